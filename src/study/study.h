// Design studies: a base case designed again at every combination of one or two varied inputs, on every core.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "case/input_screen.h"
#include "engine/design_summary.h"
#include "shell/app_data.h"

namespace kestrane {

// An input a study can vary: its name (the case record's name where it has one), what it is, and its unit.
struct StudyInputName {
  std::string name;
  std::string meaning;
  std::string unit;
};

// Every input a study can vary: the main values, the condensible and non-condensible load flows by row, the
// utility prices, and the choices (stage count, condenser type, precondenser, pump).
const std::vector<StudyInputName>& StudyInputNames();

// Whether `name` names an input a study can vary.
bool IsStudyInput(std::string_view name);

// Sets an input of the screen, in standard units (the choices by number, as StudyInputNames says). False for a
// name no input has.
bool SetStudyInput(InputScreen& screen, std::string_view name, float value);

// The value an input has on the screen (a box that holds no number reads 0).
float StudyInputValue(const InputScreen& screen, std::string_view name);

// A varied input and its values, in the order they are designed.
struct StudyVariable {
  std::string name;
  std::vector<float> values;
};

// `n` values from `start` to `stop`, both included, evenly spaced, or evenly in the logarithm with `log` (then
// both must be above zero). Throws std::invalid_argument for n below 1 or a logarithmic range through zero.
std::vector<float> StudyRange(float start, float stop, int n, bool log);

// Reads "START:STOP:N[:log]" or a list "V1,V2,...". Throws std::invalid_argument with the reason.
std::vector<float> ParseStudyValues(std::string_view text);

// Every combination of the variables' values, the first variable varying slowest.
std::vector<std::vector<float>> StudyGrid(const std::vector<StudyVariable>& variables);

// One designed point.
struct StudyPoint {
  std::vector<float> values;  // the varied inputs, in the order of the variables
  int16_t input_error = 0;    // the input check refused the point: no run
  bool results = false;       // the run gave results
  std::vector<std::string> notices;  // the messages of its check and run, in order
  std::vector<std::string> errors;   // the error flags it ended with, as `design` names them
  std::vector<std::string> advisories;  // the advice on the design itself (no comparison with other designs)
  int16_t NSTAGES = 0;
  int16_t LRVPERR = 0;
  float load_lb_hr = 0;  // all loads together
  DesignSummary summary;  // empty without results
};

struct StudyOptions {
  int jobs = 0;  // worker threads; 0: one per core
  InterstageSearch search = InterstageSearch::kOriginal;  // as the design command's --search
  // Called from the workers, now and then and at the end, with the points done and the total.
  std::function<void(size_t done, size_t total)> progress;
  const std::atomic<bool>* cancel = nullptr;  // set: the points not started yet are left undone
};

// Designs the base screen at every point of the grid, by the options' search. The data are shared read-only; each worker has its own
// case record, screen and messages. Every point starts from the same fixed A-B pressure `pinterfix` (the
// session's at the start), so that no point depends on the points designed before it: the results are those of
// one design per point in a fresh session with that pressure, in grid order whatever the number of workers.
// Cancelled, the points never started stay with no results and input_error -1.
std::vector<StudyPoint> RunStudy(const AppData& data, const InputScreen& base, float pinterfix,
                                 const std::vector<StudyVariable>& variables, const StudyOptions& options = {});

// What a study reports of each point, by name with its unit: the utilities, annual cost, steam per pound of
// load, stage count, each stage's motive and pressures, each condenser's area and water, the pump's power.
struct StudyOutput {
  std::string name;
  std::string unit;
  std::function<std::optional<float>(const StudyPoint&)> value;  // none where the point has no such value
};
const std::vector<StudyOutput>& StudyOutputs();

// The study as a table: a head line, then a line per point (the varied values first, then input_error, errors,
// LRVPERR and the outputs, then the notices and the advisories), comma-separated with texts in quotes.
std::string StudyCsv(const std::vector<StudyVariable>& variables, const std::vector<StudyPoint>& points);

}  // namespace kestrane
