// The command's JSON text: singles in their shortest decimal form, every number in the shortest text that reads back to it.
#pragma once

#include <charconv>
#include <cmath>
#include <string>

#include <nlohmann/json.hpp>

namespace kestrane::cli {

// A single as a JSON number: the double nearest the single's shortest decimal
// form, so that the number is written with no more digits than the single
// needs ("0.1" for 0.1f, not its exact value 0.100000001490116...). JSON has
// no infinity nor NaN: a non-finite single is null.
inline nlohmann::json JsonSingle(float value) {
  if (!std::isfinite(value)) return nullptr;
  char text[32];
  const char* end = std::to_chars(text, text + sizeof text, value).ptr;
  double nearest = 0;
  std::from_chars(text, end, nearest);
  return nearest;
}

// The shortest text that reads back to the double, with ".0" on a whole
// number in fixed form so that it still reads as a float; null when not finite.
inline std::string JsonNumberText(double value) {
  if (!std::isfinite(value)) return "null";
  char text[32];
  std::string out(text, std::to_chars(text, text + sizeof text, value).ptr);
  if (out.find_first_of(".e") == std::string::npos) out += ".0";
  return out;
}

// The document laid out as nlohmann's dump(2) lays it out, its floats written
// by JsonNumberText: that dump writes some doubles with up to 17 digits where
// fewer read back to the same number.
inline void AppendJsonText(std::string& out, const nlohmann::json& doc, int depth = 0) {
  const std::string inner(static_cast<size_t>(depth + 1) * 2, ' ');
  const bool object = doc.is_object();
  if (!object && !doc.is_array()) {
    out += doc.is_number_float() ? JsonNumberText(doc.get<double>()) : doc.dump();
    return;
  }
  if (doc.empty()) {
    out += object ? "{}" : "[]";
    return;
  }
  out += object ? "{\n" : "[\n";
  bool first = true;
  for (auto it = doc.begin(); it != doc.end(); ++it) {
    out += first ? "" : ",\n";
    first = false;
    out += inner;
    if (object) out += nlohmann::json(it.key()).dump() + ": ";
    AppendJsonText(out, *it, depth + 1);
  }
  out += '\n' + std::string(static_cast<size_t>(depth) * 2, ' ') + (object ? '}' : ']');
}

inline std::string JsonText(const nlohmann::json& doc) {
  std::string out;
  AppendJsonText(out, doc);
  return out;
}

}  // namespace kestrane::cli
