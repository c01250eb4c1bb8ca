// Number semantics of the original run time: rounding, truncation, text forms of numbers, Val and dates.
#include "properties/vb.h"

#include <locale.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace kestrane {

namespace {

// Numbers are read and written with a decimal point whatever the user's
// locale (a desktop may set a comma-decimal one): the C locale is made
// current for this thread while the C library formats or reads a number.
class CNumericLocale {
 public:
  CNumericLocale() : previous_(uselocale(CLocale())) {}
  ~CNumericLocale() { uselocale(previous_); }
  CNumericLocale(const CNumericLocale&) = delete;
  CNumericLocale& operator=(const CNumericLocale&) = delete;

 private:
  static locale_t CLocale() {
    static const locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return c;
  }
  locale_t previous_;
};

std::string ErrorText(int number) {
  switch (number) {
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 7: return "Out of memory";
    case 9: return "Subscript out of range";
    case 11: return "Division by zero";
    case 13: return "Type mismatch";
    case 28: return "Out of stack space";
    case 51: return "Internal error";
    case 52: return "Bad file name or number";
    case 53: return "File not found";
    case 54: return "Bad file mode";
    case 57: return "Device I/O error";
    case 58: return "File already exists";
    case 61: return "Disk full";
    case 62: return "Input past end of file";
    case 70: return "Permission denied";
    case 75: return "Path/File access error";
    case 76: return "Path not found";
    case 380: return "Invalid property value";
    case 457: return "This key is already associated with an element of this collection";
    default: return "Application-defined or object-defined error";
  }
}

// Text of a non-finite value as the original run time shows it.
std::string NonFiniteText(double x) {
  if (std::isnan(x)) return "-1.#IND";
  return x < 0 ? "-1.#INF" : "1.#INF";
}

// printf's %G form with the given significant digits: exponent form below
// 1E-04 and from 10^digits on, trailing zeros dropped; negative zero is "0".
std::string GeneralForm(double x, int digits) {
  if (!std::isfinite(x)) return NonFiniteText(x);
  if (x == 0.0) return "0";
  std::array<char, 64> buf{};
  const CNumericLocale c_locale;
  std::snprintf(buf.data(), buf.size(), "%.*G", digits, x);
  return buf.data();
}

// Decimal digits of |x| rounded to `digits` significant digits, with the
// decimal exponent of the first digit: |x| = 0.d1d2... * 10^(exp + 1).
struct DecimalDigits {
  std::string digits;
  int exponent = 0;
};

DecimalDigits SignificantDigits(double x, int digits) {
  std::array<char, 64> buf{};
  const CNumericLocale c_locale;
  std::snprintf(buf.data(), buf.size(), "%.*e", digits - 1, std::fabs(x));
  DecimalDigits d;
  const char* p = buf.data();
  for (; *p && *p != 'e'; ++p) {
    if (std::isdigit(static_cast<unsigned char>(*p))) d.digits += *p;
  }
  if (*p == 'e') d.exponent = std::atoi(p + 1);
  return d;
}

// Increment a string of decimal digits by one unit in its last place.
void IncrementDigits(std::string& s) {
  for (size_t i = s.size(); i-- > 0;) {
    if (s[i] == '9') {
      s[i] = '0';
    } else {
      ++s[i];
      return;
    }
  }
  s.insert(s.begin(), '1');
}

std::string FormatMasked(double value, std::string_view mask, int significant) {
  // Mask: one or more '0', optionally '.' and zero or more '0'.
  const size_t point = mask.find('.');
  const std::string_view int_mask = mask.substr(0, point);
  const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(mask.size() - point - 1);
  const bool valid = !int_mask.empty() && int_mask.find_first_not_of('0') == std::string_view::npos &&
                     (point == std::string_view::npos ||
                      mask.substr(point + 1).find_first_not_of('0') == std::string_view::npos);
  if (!valid) throw std::invalid_argument("unsupported number mask: " + std::string(mask));
  if (!std::isfinite(value)) return NonFiniteText(value);

  // Rounded magnitude scaled by 10^decimals, as a digit string.
  std::string scaled;
  if (value != 0.0) {
    const DecimalDigits d = SignificantDigits(value, significant);
    // value = digits * 10^(exponent - significant + 1)
    const int shift = d.exponent - significant + 1 + decimals;
    if (shift >= 0) {
      scaled = d.digits + std::string(static_cast<size_t>(shift), '0');
    } else {
      const int keep = significant + shift;  // digits kept before rounding
      if (keep >= 0) {
        scaled = d.digits.substr(0, static_cast<size_t>(keep));
        const char dropped = d.digits[static_cast<size_t>(keep)];
        if (scaled.empty()) scaled = "0";
        if (dropped >= '5') IncrementDigits(scaled);
      }
    }
  }
  if (scaled.empty()) scaled = "0";
  const size_t min_len = int_mask.size() + static_cast<size_t>(decimals);
  if (scaled.size() < min_len) scaled.insert(0, min_len - scaled.size(), '0');
  // Drop surplus leading zeros beyond the mask's integer digits.
  while (scaled.size() > min_len && scaled[0] == '0') scaled.erase(0, 1);

  std::string text = scaled.substr(0, scaled.size() - static_cast<size_t>(decimals));
  if (point != std::string_view::npos) {
    text += '.';
    text += scaled.substr(scaled.size() - static_cast<size_t>(decimals));
  }
  // A negative number keeps its sign even when it rounds to zero.
  if (value < 0) text.insert(text.begin(), '-');
  return text;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

const char* const kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

}  // namespace

VbError::VbError(int number) : std::runtime_error(ErrorText(number)), number_(number) {}
std::string TrappedError(std::string_view routine, const VbError& e) {
  return std::string(routine) + " Error:" + Str(e.number()) + " " + e.description();
}

std::string RunTimeErrorText(const VbError& e) {
  return "Run-time error " + std::to_string(e.number()) + ": " + e.description();
}

VbError CaughtError() {
  try {
    throw;
  } catch (const VbError& e) {
    return e;
  } catch (const std::bad_alloc&) {
    return VbError(7);
  } catch (const std::exception& e) {
    const std::string what = e.what();
    return VbError(51, what.empty() ? "Internal error" : "Internal error (" + what + ")");
  } catch (...) {
    return VbError(51);
  }
}

VbError::VbError(int number, const std::string& text) : std::runtime_error(text), number_(number) {}

int16_t CInt(double x) {
  // nearbyint rounds half to even in the default rounding mode.
  const double r = std::nearbyint(x);
  if (!(r >= -32768.0 && r <= 32767.0)) throw VbError(6);
  return static_cast<int16_t>(r);
}

bool FitsSingle(double x) {
  // Below half a unit past the largest Single, rounding still lands on it; from there on (and for a NaN) it does not.
  constexpr double kBeyond = 0x1.ffffffp127;
  return std::fabs(x) < kBeyond;
}

float CSng(double x) {
  if (!FitsSingle(x)) throw VbError(6);
  return static_cast<float>(x);
}

std::string OverflowNotice(std::string_view what, std::string_view text, bool integer) {
  try {
    const double v = Val(text);
    if (integer) {
      CInt(v);
    } else {
      CSng(v);
    }
    return {};
  } catch (const VbError&) {
    return "Run-time error 6: Overflow in the " + std::string(what) + " (" + Trim(text) + ").";
  }
}

std::string GeneralText(float x) { return GeneralForm(static_cast<double>(x), 7); }
std::string GeneralText(double x) { return GeneralForm(x, 15); }

std::string Str(float x) { return x >= 0 ? " " + GeneralText(x) : GeneralText(x); }
std::string Str(double x) { return x >= 0 ? " " + GeneralText(x) : GeneralText(x); }

std::string Format(float value, std::string_view mask) {
  return FormatMasked(static_cast<double>(value), mask, 7);
}
std::string Format(double value, std::string_view mask) { return FormatMasked(value, mask, 15); }

double Val(std::string_view text) {
  // Blanks are skipped everywhere, as the original does.
  std::string s;
  for (char c : text) {
    if (!IsBlank(c)) s += c;
  }
  size_t i = 0;
  if (s.size() >= 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h' || s[1] == 'O' || s[1] == 'o')) {
    const int base = (s[1] == 'H' || s[1] == 'h') ? 16 : 8;
    long long v = 0;
    for (i = 2; i < s.size(); ++i) {
      const int c = std::toupper(static_cast<unsigned char>(s[i]));
      int digit = -1;
      if (c >= '0' && c <= '9') digit = c - '0';
      if (base == 16 && c >= 'A' && c <= 'F') digit = c - 'A' + 10;
      if (digit < 0 || digit >= base) break;
      v = v * base + digit;
      if (v > 0xFFFFFFFFLL) break;
    }
    return static_cast<double>(v);
  }
  std::string number;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) number += s[i++];
  bool any_digit = false;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
    number += s[i++];
    any_digit = true;
  }
  if (i < s.size() && s[i] == '.') {
    number += s[i++];
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
      number += s[i++];
      any_digit = true;
    }
  }
  if (!any_digit) return 0.0;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    size_t j = i + 1;
    std::string exponent = "e";
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent += s[j++];
    const size_t first_digit = j;
    while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) exponent += s[j++];
    if (j > first_digit) number += exponent;
  }
  const CNumericLocale c_locale;
  return std::strtod(number.c_str(), nullptr);
}

bool IsNumeric(std::string_view text) {
  const std::string s = Trim(text);
  if (s.empty()) return false;
  size_t i = 0;
  if (s.size() >= 2 && s[0] == '&') {
    const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(s[1])));
    if (kind != 'H' && kind != 'O') return false;
    if (s.size() == 2) return false;
    for (i = 2; i < s.size(); ++i) {
      const unsigned char c = static_cast<unsigned char>(s[i]);
      const bool ok = kind == 'H' ? std::isxdigit(c) != 0 : (c >= '0' && c <= '7');
      if (!ok) return false;
    }
    return true;
  }
  if (s[i] == '+' || s[i] == '-') ++i;
  bool any_digit = false;
  while (i < s.size() && (std::isdigit(static_cast<unsigned char>(s[i])) || (s[i] == ',' && any_digit))) {
    if (s[i] != ',') any_digit = true;
    ++i;
  }
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
      any_digit = true;
      ++i;
    }
  }
  if (!any_digit) return false;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    const size_t first = i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i;
    if (i == first) return false;
  }
  return i == s.size() && std::isfinite(Val(s));
}

bool IsPlainNumber(std::string_view text) { return text.find(',') == std::string_view::npos && IsNumeric(text); }

bool NumberFieldFlagged(std::string& text) {
  if (text.empty()) text = "0";
  return !IsPlainNumber(text);
}

std::string FormatDate(const VbDate& date) {
  if (date.month < 1 || date.month > 12) throw VbError(5);
  std::array<char, 32> buf{};
  std::snprintf(buf.data(), buf.size(), "%s %02d, %04d", kMonths[date.month - 1], date.day, date.year);
  return buf.data();
}

std::string LTrim(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string RTrim(std::string_view text) {
  const size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) { return LTrim(RTrim(text)); }

std::string UCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

}  // namespace kestrane
