// Number semantics of the original run time: rounding, truncation, text forms of numbers, Val and dates.
#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrane {

// A run-time error with the original error number, raised where the original
// raised one (overflow in CInt, subscript out of range, file errors...) and
// caught by the routines that trap errors, which report number and text.
class VbError : public std::runtime_error {
 public:
  explicit VbError(int number);
  // An error raised by the program itself, with its own number and text.
  VbError(int number, const std::string& text);
  int number() const { return number_; }
  // The error's description, e.g. "Overflow".
  std::string description() const { return what(); }

 private:
  int number_;
};

// The message of a trapped run-time error: routine + " Error:" + Str(number) + " " + text.
std::string TrappedError(std::string_view routine, const VbError& e);

// The message of an error no routine traps: "Run-time error 6: Overflow".
std::string RunTimeErrorText(const VbError& e);

// Inside a catch block, the error being handled as a run-time error: the
// error itself, 7 "Out of memory" when memory ran out, 51 "Internal error
// (what happened)" for any other failure.
VbError CaughtError();

// Round half to even to a 16-bit integer; error 6 when out of range.
int16_t CInt(double x);

// Whether a number rounds to a finite Single (a NaN does not).
bool FitsSingle(double x);

// CSng: a number as a Single; error 6 when it lies beyond the Single's range
// (a NaN is error 6 too, never a silent result).
float CSng(double x);

// The notice for a box whose number a Single (or, with `integer`, a 16-bit
// integer) cannot hold: "Run-time error 6: Overflow in the <what> (<text>).";
// empty when it can.
std::string OverflowNotice(std::string_view what, std::string_view text, bool integer = false);

// Largest integer not above x, in the type of x.
template <std::floating_point T>
T Int(T x) {
  return std::floor(x);
}

// Integer part, truncated toward zero, in the type of x.
template <std::floating_point T>
T Fix(T x) {
  return std::trunc(x);
}

// Division with the original's arithmetic errors: x / 0 is error 11
// "Division by zero", 0 / 0 is error 6 "Overflow".
template <std::floating_point T>
T Divide(T numerator, T denominator) {
  if (denominator == 0) throw VbError(numerator == 0 ? 6 : 11);
  return numerator / denominator;
}

// General text form of a Single: 7 significant digits, exponent form
// "1.5E-05" / "1E+07" outside 1E-04 .. 1E+07.
std::string GeneralText(float x);
// General text form of a Double: 15 significant digits.
std::string GeneralText(double x);
template <std::integral T>
std::string GeneralText(T x) {
  return std::to_string(x);
}

// Str: the general text form with a leading blank for zero and positive numbers.
std::string Str(float x);
std::string Str(double x);
template <std::integral T>
std::string Str(T x) {
  return x < 0 ? std::to_string(x) : " " + std::to_string(x);
}

// Format with a mask of zeros and an optional point: "0", "0.0", "0.00", "00.000"...
// The number's decimal form (7 digits for a Single, 15 for a Double) is rounded
// half away from zero on the last shown digit.
std::string Format(float value, std::string_view mask);
std::string Format(double value, std::string_view mask);

// Val: the leading number of a text, blanks anywhere ignored, 0 when none.
double Val(std::string_view text);

// The numeric test of the original (IsNumeric): a number with optional blanks
// around it, sign, decimals, exponent, thousands commas, or &H / &O forms.
// A number beyond the range of a Double ("1E400") is not numeric.
bool IsNumeric(std::string_view text);

// A number as the program reads one: numeric and without thousands commas
// ("1,000" would read as 1, Val stopping at the comma).
bool IsPlainNumber(std::string_view text);

// The number check shared by input boxes: an empty text becomes "0"; the
// field is flagged (true) when it holds a comma or is not numeric.
bool NumberFieldFlagged(std::string& text);

// A calendar day.
struct VbDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

// Date in the mask "MMM DD, YYYY": "Nov 05, 2026".
std::string FormatDate(const VbDate& date);

// UCase: the letters a to z upper-cased, every other character as it is.
std::string UCase(std::string_view text);

// Trim blanks as Trim$, LTrim$ and RTrim$ do (spaces only).
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

}  // namespace kestrane
