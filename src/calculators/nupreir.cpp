// The Nupreir desk calculator: the recursive expression splitter, its variables and echo, the history and the GFR file.
#include "calculators/nupreir.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "case/case_file_io.h"
#include "properties/text_codec.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr double kPi = 3.141592654;

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// A single from a double with the run time's faults: not a number is error 5, too large error 6.
float Checked(double value) {
  if (std::isnan(value)) throw VbError(5);
  if (std::isinf(value) || std::fabs(value) > 3.402823466e38) throw VbError(6);
  return static_cast<float>(value);
}

}  // namespace

float ALOG10(float x) {
  if (!(x > 0)) throw VbError(5);
  return Checked(std::log(static_cast<double>(x)) / std::log(10.0));
}

float ASN(float x) {
  // At plus and minus 1 the value is a quarter turn, without the sign.
  if (std::fabs(x) == 1) return static_cast<float>(282.74333886 / 180);
  const double root = 1 - static_cast<double>(x) * x;
  if (root < 0) throw VbError(5);
  return Checked(std::atan(x / std::sqrt(root)));
}

void Nupreir::AddVariable(const std::string& name, const std::string& value) {
  if (!store_.emplace(Lower(name), value).second) throw VbError(457);
}

float Nupreir::Function(const std::string& name, float x) const {
  const double to_radians = radians_ ? 1.0 : kPi / 180;
  const double from_radians = radians_ ? 1.0 : 180 / kPi;
  if (name == "sin(") return Checked(std::sin(x * to_radians));
  if (name == "cos(") return Checked(std::cos(x * to_radians));
  if (name == "tan(") return Checked(std::tan(x * to_radians));
  if (name == "sqr(") {
    if (x < 0) throw VbError(5);
    return Checked(std::sqrt(static_cast<double>(x)));
  }
  if (name == "exp(") return Checked(std::exp(static_cast<double>(x)));
  if (name == "ln(") {
    if (!(x > 0)) throw VbError(5);
    return Checked(std::log(static_cast<double>(x)));
  }
  if (name == "log(") return ALOG10(x);
  if (name == "asn(") return Checked(ASN(x) * from_radians);
  return Checked(std::atan(static_cast<double>(x)) * from_radians);  // "atn("
}

float Nupreir::EvaluateExpr(const std::string& source) {
  if (nesting_ >= kMaxNesting || source.size() > kMaxLength) throw VbError(28);
  struct Level {
    int& nesting;
    explicit Level(int& n) : nesting(++n) {}
    ~Level() { --nesting; }
  } level_guard(nesting_);
  const std::string text = Trim(source);
  if (text.empty()) return 0;

  int depth = 0, lowest = 11;
  size_t at = 0;
  bool unary = true;
  for (size_t i = 0; i < text.size(); ++i) {
    const char ch = text[i];
    if (ch == ' ') continue;
    if (ch == '(') {
      ++depth;
      unary = true;
      continue;
    }
    if (ch == ')') {
      --depth;
      unary = true;
      if (depth < 0) throw VbError(kTooManyClosing, "Too many )s in '" + text + "'");
      continue;
    }
    if (depth > 0) {
      unary = false;
      continue;
    }
    int level = 0;
    switch (ch) {
      case '^': level = 9; break;
      case '*':
      case '/': level = 8; break;
      case '\\': level = 6; break;
      case '%': level = 5; break;
      case '+':
      case '-': level = unary ? 0 : 4; break;
      default: unary = false; continue;
    }
    unary = true;
    // Of equal operators the rightmost wins: every operator groups from the left.
    if (level > 0 && level <= lowest) {
      lowest = level;
      at = i;
    }
  }
  if (depth != 0) throw VbError(kMissingClosing, "Missing ) in '" + text + "'");

  if (lowest < 11) {
    const char op = text[at];
    if (op == '\\' || op == '%') return 0;  // recognised, and worth 0
    const std::string left = text.substr(0, at), right = text.substr(at + 1);
    const float a = EvaluateExpr(left);
    echo += std::string(" ") + op;
    const float b = EvaluateExpr(right);
    switch (op) {
      case '^': return Checked(std::pow(static_cast<double>(a), static_cast<double>(b)));
      case '*': return Checked(static_cast<double>(a * b));
      case '/': return Divide(a, b);
      case '+': return Checked(static_cast<double>(a + b));
      default: return Checked(static_cast<double>(a - b));
    }
  }

  if (text.front() == '(' && text.back() == ')') {
    echo += " (";
    const float value = EvaluateExpr(text.substr(1, text.size() - 2));
    echo += " )";
    return value;
  }
  if (text.front() == '-') {
    echo += " -";
    return -EvaluateExpr(text.substr(1));
  }
  if (text.front() == '+') {
    echo += " +";
    return EvaluateExpr(text.substr(1));
  }
  if (text.back() == ')' && text.size() > 4) {
    const size_t open = text.find('(');
    const std::string name = Lower(text.substr(0, open + 1));
    static const char* kNames[] = {"sin(", "cos(", "tan(", "sqr(", "exp(", "ln(", "log(", "asn(", "atn("};
    if (open != std::string::npos && std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames)) {
      echo += name;
      const float x = EvaluateExpr(text.substr(open + 1, text.size() - open - 2));
      echo += " )";
      return Function(name, x);
    }
  }
  const auto found = store_.find(Lower(text));
  if (found != store_.end()) {
    echo += " " + Trim(found->second);
    variable_used = true;
    return Checked(Val(found->second));
  }
  if (!IsPlainNumber(text)) {
    throw VbError(kBadConstant, "Error evaluating '" + text + "' as a constant.");
  }
  echo += " " + text;
  return Checked(Val(text));
}

bool Evaluate(NupreirScreen& screen, Ui& ui) {
  const std::string expression = Trim(screen.expression);
  if (expression.empty()) {
    ui.beep();
    return false;
  }
  Nupreir calc(screen.radians);
  try {
    calc.AddVariable("pi", Trim(GeneralText(kPi)));  // the Double's text, "3.141592654"
    for (const NupreirVariable& row : screen.variables) {
      const std::string name = Trim(row.name);
      if (!name.empty() && IsNumeric(name)) {
        ui.notice("Variable name must not be fully numeric: " + name);
        return false;
      }
      if (name.empty()) continue;
      std::string value = Trim(row.value);
      if (value.empty()) continue;
      if (!IsNumeric(value)) value = Trim(GeneralText(calc.EvaluateExpr(value)));
      calc.AddVariable(name, value);
    }
    calc.echo.clear();
    calc.variable_used = false;
    const float result = calc.EvaluateExpr(expression);
    std::string lines = "\r\n";
    if (calc.variable_used) lines += expression + " = \r\n";
    lines += Trim(calc.echo) + " = " + Trim(GeneralText(result)) + "\r\n";
    screen.results += lines;
    screen.value = result;
    screen.dirty = 1;
  } catch (const VbError& e) {
    ui.notice(e.description());
    return false;
  }
  return true;
}

void PreCalc(NupreirScreen& screen) {
  const std::string text = Trim(screen.expression);
  screen.expression = text;
  auto& h = screen.history;
  if (!h.empty() && h.front() == text) return;
  h.insert(h.begin(), text);
  if (h.size() > kNupreirHistory) h.resize(kNupreirHistory);
}

std::string NupreirCaption(const NupreirScreen& screen) {
  std::string caption(kNupreirTitle);
  if (!screen.file.empty()) caption += "   " + std::filesystem::path(screen.file).filename().string();
  return caption;
}

bool ReadGoFigure(const std::filesystem::path& path, NupreirScreen& screen, Ui& ui) {
  try {
    CaseReader in(path);
    in.Number();  // the version
    screen.radians = in.Number() != 0;
    for (auto& v : screen.variables) {
      v.name = in.Text();
      v.value = in.Text();
    }
    screen.expression = in.Text();
    const int count = CInt(in.Number());
    if (count < 0 || count > static_cast<int>(kNupreirHistory)) throw VbError(380);
    screen.history.clear();
    for (int i = 0; i < count; ++i) screen.history.push_back(in.Text());
    screen.results.clear();
    std::string line;
    while (in.TryText(line)) screen.results += line + "\r\n";
  } catch (const VbError& e) {
    ui.notice(TrappedError("ReadGoFigure", e));
    return false;
  }
  screen.file = path.string();
  screen.dirty = 0;
  return true;
}

bool WriteGoFigure(const std::filesystem::path& path, NupreirScreen& screen, Ui& ui) {
  try {
    CaseWriter out(path);
    out.Text("1.00");
    out.Text(screen.radians ? "1" : "0");
    for (const auto& v : screen.variables) {
      out.Text(v.name);
      out.Text(v.value);
    }
    out.Text(screen.expression);
    out.Text(std::to_string(screen.history.size()));
    for (const auto& entry : screen.history) out.Text(entry);
    // The results box whole, one line a line; its closing line end is the last line's.
    for (const std::string& line : BoxLines(screen.results)) out.Text(line);
    out.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteGoFigure", e));
    return false;
  }
  screen.file = path.string();
  screen.dirty = 0;
  return true;
}

StoreDecision CheckToStoreGoFigureFile(NupreirScreen& screen, Ui& ui) {
  if (screen.dirty == 0) return StoreDecision::kUnchanged;
  return AskToStore(ui, std::filesystem::path(screen.file).filename().string(), "\r\n\r\nDo you want to save changes?",
                    "Nupreir", !screen.file.empty(), [&] { return WriteGoFigure(screen.file, screen, ui); });
}

}  // namespace kestrane
