// The Nupreir desk calculator: the recursive expression splitter, its variables and echo, the history and the GFR file.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "case/jet_file.h"
#include "shell/ui.h"

namespace kestrane {

// The base of the numbers of errors the program raises itself.
inline constexpr int kVbObjectError = -2147221504;
inline constexpr int kTooManyClosing = kVbObjectError + 1001;
inline constexpr int kMissingClosing = kVbObjectError + 1002;
inline constexpr int kBadConstant = kVbObjectError + 1003;
inline constexpr size_t kNupreirVariables = 5;
inline constexpr size_t kNupreirHistory = 20;
// The calculator's title, on its window and its printed page.
inline constexpr std::string_view kNupreirTitle = "Nupreir Expression Evaluator";

// The evaluator: variables by case-insensitive name, the echo of the expression
// with the variables filled in, and whether a variable was used. Errors are VbErrors.
class Nupreir {
 public:
  explicit Nupreir(bool radians) : radians_(radians) {}

  // Adds a variable; a name already present is error 457.
  void AddVariable(const std::string& name, const std::string& value);
  // The value of an expression, splitting it recursively. The splitting goes
  // at most kMaxNesting levels deep and takes texts of at most kMaxLength
  // characters: beyond either it stops with error 28 "Out of stack space",
  // so that no expression can exhaust the stack or the memory.
  float EvaluateExpr(const std::string& text);
  static constexpr int kMaxNesting = 1000;
  static constexpr size_t kMaxLength = 65535;

  std::string echo;
  bool variable_used = false;

 private:
  float Function(const std::string& name, float x) const;
  bool radians_;
  int nesting_ = 0;  // levels of EvaluateExpr under way
  std::map<std::string, std::string> store_;  // lower-case name -> value text
};

// Common logarithm and arcsine as the calculator has them.
float ALOG10(float x);
float ASN(float x);

// The window as data.
struct NupreirVariable {
  std::string name, value;
};
struct NupreirScreen {
  std::array<NupreirVariable, kNupreirVariables> variables;
  bool radians = false;
  std::string expression;
  std::vector<std::string> history;  // newest first
  std::string results;               // the results box, lines ended by CR LF
  float value = 0;                   // the value of the last expression evaluated
  std::string file;                  // the current GFR file, empty for a new one
  int16_t dirty = 0;
};

// Calculate: evaluates the expression with the variable rows and appends the
// echo and the value to the results box. An error (or an empty expression,
// with a beep) shows its text and leaves the results box as it was; false then.
bool Evaluate(NupreirScreen& screen, Ui& ui);

// Moves the expression into the history, newest first, at most 20.
void PreCalc(NupreirScreen& screen);

// The GFR file. A read error shows its text and keeps what was read.
bool ReadGoFigure(const std::filesystem::path& path, NupreirScreen& screen, Ui& ui);
bool WriteGoFigure(const std::filesystem::path& path, NupreirScreen& screen, Ui& ui);
StoreDecision CheckToStoreGoFigureFile(NupreirScreen& screen, Ui& ui);

// The window caption for the current file.
std::string NupreirCaption(const NupreirScreen& screen);

}  // namespace kestrane
