// The errors of a design run: a run-time error is trapped in the step and item where it arises, told to the user and kept, and the run goes on.
#include "engine/run_errors.h"

#include <cfenv>
#include <cmath>
#include <exception>
#include <new>

namespace kestrane {

VbError ArithmeticError() {
  if (std::fetestexcept(FE_DIVBYZERO)) return VbError(11);
  if (std::fetestexcept(FE_INVALID)) return VbError(5);
  return VbError(6);
}

bool RunErrors::Step(const std::string& what, const ResultCells& cells, const std::function<void()>& step) {
  std::vector<float> before;
  before.reserve(cells.size());
  for (const float* cell : cells) before.push_back(*cell);
  std::feclearexcept(FE_ALL_EXCEPT);
  std::string fault;
  try {
    step();
  } catch (const VbError& e) {
    fault = "Error # " + GeneralText(e.number()) + " " + e.description();
  } catch (const std::bad_alloc&) {
    fault = "Error # 7 " + VbError(7).description();
  } catch (const std::exception& e) {
    // Any other exception is a fault of this program: error 51, the run time's number for its internal errors.
    fault = "Error # 51 Internal error (" + std::string(e.what()) + ")";
  }
  bool left_non_finite = false;
  for (size_t k = 0; k < cells.size(); ++k) {
    if (std::isfinite(*cells[k])) continue;
    left_non_finite = true;
    *cells[k] = std::isfinite(before[k]) ? before[k] : 0.0f;
  }
  if (fault.empty() && left_non_finite) {
    const VbError e = ArithmeticError();
    fault = "Error # " + GeneralText(e.number()) + " " + e.description();
  }
  if (fault.empty()) return true;
  const std::string text = "Error in " + what + ": " + fault;
  ui_.notice(text);
  texts_.push_back(text);
  return false;
}

}  // namespace kestrane
