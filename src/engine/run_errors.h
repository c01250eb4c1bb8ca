// The errors of a design run: a run-time error is trapped in the step and item where it arises, told to the user and kept, and the run goes on.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "properties/vb.h"
#include "shell/ui.h"

namespace kestrane {

// The run-time error behind a result that is not a finite number, read from
// the floating point flags raised since they were last cleared: 11 "Division
// by zero", 5 "Invalid procedure call or argument", else 6 "Overflow".
VbError ArithmeticError();

// "Error # 6 Overflow": the number and text of a trapped error, as the run's messages give them.
std::string FaultText(const VbError& e);

// The values one step of the run writes, for the check that none is left infinite or not a number.
using ResultCells = std::vector<float*>;

// The error flags a run ends with, one short text each, in the order they arose.
class RunErrors {
 public:
  explicit RunErrors(Ui& ui) : ui_(ui) {}

  // Runs one step of the run for one item, `what` naming both ("the
  // connections of stage A"). A run-time error inside the step, or a value of
  // `cells` that it leaves infinite or not a number, is trapped: such a value
  // keeps what it held before the step (an arithmetic fault stops an
  // assignment before it stores), the user is told "Error in " + what +
  // ": Error # N text", that text is kept, and the run goes on. False when the
  // step was trapped.
  bool Step(const std::string& what, const ResultCells& cells, const std::function<void()>& step);

  // An error flag that the step which raised it has already reported, or that has no notice.
  void Add(std::string text) { texts_.push_back(std::move(text)); }

  const std::vector<std::string>& texts() const { return texts_; }

 private:
  Ui& ui_;
  std::vector<std::string> texts_;
};

}  // namespace kestrane
