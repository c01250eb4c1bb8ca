// Temperatures between the program's degF and degC, in singles as the vapor data take them.
#pragma once

namespace kestrane {

inline float CelsiusOf(float fahrenheit) { return (fahrenheit - 32) * 5 / 9; }
inline float FahrenheitOf(float celsius) { return celsius * 9 / 5 + 32; }

}  // namespace kestrane
