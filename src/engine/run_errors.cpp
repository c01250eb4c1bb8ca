// The errors of a design run: a run-time error is trapped in the step and item where it arises, told to the user and kept, and the run goes on.
#include "engine/run_errors.h"

#include <cfenv>
#include <cmath>
#include <exception>

namespace kestrane {

VbError ArithmeticError() {
  if (std::fetestexcept(FE_DIVBYZERO)) return VbError(11);
  if (std::fetestexcept(FE_INVALID)) return VbError(5);
  return VbError(6);
}

std::string FaultText(const VbError& e) { return "Error # " + GeneralText(e.number()) + " " + e.description(); }

bool RunErrors::Step(const std::string& what, const ResultCells& cells, const std::function<void()>& step) {
  std::vector<float> before;
  before.reserve(cells.size());
  for (const float* cell : cells) before.push_back(*cell);
  std::feclearexcept(FE_ALL_EXCEPT);
  std::string fault;
  try {
    step();
  } catch (const std::exception&) {
    fault = FaultText(CaughtError());
  }
  bool left_non_finite = false;
  for (size_t k = 0; k < cells.size(); ++k) {
    if (std::isfinite(*cells[k])) continue;
    left_non_finite = true;
    *cells[k] = std::isfinite(before[k]) ? before[k] : 0.0f;
  }
  if (fault.empty() && left_non_finite) fault = FaultText(ArithmeticError());
  if (fault.empty()) return true;
  const std::string text = "Error in " + what + ": " + fault;
  ui_.notice(text);
  texts_.push_back(text);
  return false;
}

}  // namespace kestrane
