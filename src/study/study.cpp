// Design studies: the inputs that vary, their ranges and grid, the workers that design the points, and the table.
#include "study/study.h"

#include <cmath>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "engine/design_run.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr int kLoadRows = 10;

// The main boxes by name, in the order of the screen's row of main values.
constexpr struct {
  const char* name;
  const char* meaning;
  const char* unit;
} kMainInputs[] = {{"PSUCT", "suction pressure", "mmHgA"},
                   {"TSUCT", "suction temperature", "degF"},
                   {"PDISCH", "discharge pressure", "mmHgA"},
                   {"PMOTIVE", "motive steam pressure", "psig"},
                   {"TMOTIVE", "motive steam temperature (0: dry and saturated)", "degF"},
                   {"TWATERIN", "cooling water inlet temperature", "degF"},
                   {"TWATEROUT", "cooling water outlet temperature limit (0: none)", "degF"},
                   {"FOULING", "fouling factor", "hr-ft2-F/Btu"}};
constexpr const char* kCostInputs[] = {"STEAMCOST", "POWERCOST", "WATERCOST"};

// The number in `name` after `prefix` (1..10), or 0.
int RowAfter(std::string_view name, std::string_view prefix) {
  if (name.substr(0, prefix.size()) != prefix) return 0;
  const std::string_view digits = name.substr(prefix.size());
  if (digits.empty() || digits.size() > 2 || digits.find_first_not_of("0123456789") != std::string_view::npos) return 0;
  const int row = std::stoi(std::string(digits));
  return row >= 1 && row <= kLoadRows && std::to_string(row) == digits ? row : 0;
}

// A choice's number: a whole number within [low, high], else -1.
int Choice(float value, int low, int high) {
  const float whole = std::round(value);
  return whole == value && whole >= low && whole <= high ? static_cast<int>(whole) : -1;
}

StudyPoint DesignPoint(const AppData& data, const InputScreen& base, float pinterfix, InterstageSearch search,
                       const std::vector<StudyVariable>& variables, const std::vector<float>& values) {
  StudyPoint point;
  point.values = values;
  InputScreen screen = base;
  screen.refused.clear();
  for (size_t v = 0; v < variables.size(); ++v) {
    if (!SetStudyInput(screen, variables[v].name, values[v])) {
      point.input_error = 1;
      point.notices.push_back(variables[v].name + " cannot be " + GeneralText(values[v]) + ".");
      return point;
    }
  }
  DesignCase dc;
  float fixed = pinterfix;
  RecordingUi ui;
  DesignContext ctx{dc, data, screen, fixed, ui, search};
  ctx.compare = false;  // the advice on each point's own design, not the designs it could have been
  try {
    const DesignOutcome outcome = RunDesign(ctx, screen);
    point.input_error = outcome.input_error;
    point.results = outcome.results;
    point.errors = outcome.errors;
    point.advisories = outcome.advisories;
    if (point.results) point.summary = SummarizeDesign(ctx);
  } catch (const VbError& e) {
    // Whatever no step of the run trapped ends this point, as it ends a case of the design command.
    point.errors.push_back(RunTimeErrorText(e));
    point.results = false;
  }
  point.notices = ui.notices;
  point.NSTAGES = dc.NSTAGES;
  point.LRVPERR = dc.LRVPERR;
  for (int load = 1; load <= dc.NLOADS; ++load) point.load_lb_hr += dc.LOADS(kLoadPPH, load);
  return point;
}

std::string CsvText(const std::string& text) {
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"') quoted += '"';
    quoted += c == '\r' || c == '\n' ? ' ' : c;
  }
  return quoted + "\"";
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& t : texts) joined += (joined.empty() ? "" : " | ") + t;
  return joined;
}

}  // namespace

const std::vector<StudyInputName>& StudyInputNames() {
  static const std::vector<StudyInputName> names = [] {
    std::vector<StudyInputName> n;
    for (const auto& m : kMainInputs) n.push_back({m.name, m.meaning, m.unit});
    for (int row = 1; row <= kLoadRows; ++row) {
      n.push_back({"CPPH" + std::to_string(row),
                   row == 1 ? "water vapor load (condensible row 1)" : "condensible load of row " + std::to_string(row),
                   "lb/hr"});
    }
    for (int row = 1; row <= kLoadRows; ++row) {
      n.push_back({"NCPPH" + std::to_string(row), "non-condensible load of row " + std::to_string(row), "lb/hr"});
    }
    n.push_back({"STEAMCOST", "steam price, in the case's units", "$/1000 lb"});
    n.push_back({"POWERCOST", "power price", "$/kWh"});
    n.push_back({"WATERCOST", "water price, in the case's units", "$/1000 gal"});
    n.push_back({"NSTAGES", "ejector stages: 0 automatic, 1 to 4", ""});
    n.push_back({"CONDENSER", "condensers: 0 none, 1 shell and tube condensing on the shell side, 2 in the tubes, "
                              "3 direct contact", ""});
    n.push_back({"PRECOND", "precondenser: 0 no, 1 yes", ""});
    n.push_back({"LRVP", "liquid ring vacuum pump as last stage: 0 no, 1 yes", ""});
    return n;
  }();
  return names;
}

bool IsStudyInput(std::string_view name) {
  for (const StudyInputName& n : StudyInputNames()) {
    if (n.name == name) return true;
  }
  return false;
}

namespace {

// The text box that holds an input; null for the choices and for names no input has.
template <class Screen>
auto BoxOf(Screen& screen, std::string_view name) -> decltype(&screen.txtInput[0]) {
  for (size_t i = 0; i < std::size(kMainInputs); ++i) {
    if (name == kMainInputs[i].name) return &screen.txtInput[i];
  }
  for (size_t i = 0; i < std::size(kCostInputs); ++i) {
    if (name == kCostInputs[i]) return &screen.txtCost[i];
  }
  if (const int row = RowAfter(name, "NCPPH"); row != 0) return &screen.txtNCpph[static_cast<size_t>(row - 1)];
  if (const int row = RowAfter(name, "CPPH"); row != 0) return &screen.txtCpph[static_cast<size_t>(row - 1)];
  return nullptr;
}

// The option of `group` that is on; -1 when none is.
template <size_t N>
int OptionOn(const std::array<int16_t, N>& group) {
  for (size_t i = 0; i < N; ++i) {
    if (group[i] != 0) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

bool SetStudyInput(InputScreen& screen, std::string_view name, float value) {
  if (!std::isfinite(value)) return false;
  if (std::string* box = BoxOf(screen, name)) {
    *box = GeneralText(value);
    return true;
  }
  if (name == "NSTAGES") {
    const int n = Choice(value, 0, 4);
    if (n < 0) return false;
    screen.OptionStages.fill(0);
    screen.OptionStages[static_cast<size_t>(n == 0 ? 0 : 5 - n)] = -1;
    return true;
  }
  if (name == "CONDENSER") {
    const int c = Choice(value, 0, 3);
    if (c < 0) return false;
    screen.OptionCondenserType.fill(0);
    screen.OptionCondenserType[static_cast<size_t>(c == 0 ? 3 : c - 1)] = -1;
    return true;
  }
  if (name == "PRECOND" || name == "LRVP") {
    const int on = Choice(value, 0, 1);
    if (on < 0) return false;
    (name == "PRECOND" ? screen.chkboxPreCondenser : screen.chkboxLRVP) = static_cast<int16_t>(on);
    return true;
  }
  return false;
}

float StudyInputValue(const InputScreen& screen, std::string_view name) {
  if (const std::string* box = BoxOf(screen, name)) return IsPlainNumber(Trim(*box)) ? static_cast<float>(Val(Trim(*box))) : 0.0f;
  if (name == "NSTAGES") {
    const int i = OptionOn(screen.OptionStages);
    return i <= 0 ? 0.0f : static_cast<float>(5 - i);
  }
  if (name == "CONDENSER") {
    const int i = OptionOn(screen.OptionCondenserType);
    return i < 0 || i == 3 ? 0.0f : static_cast<float>(i + 1);
  }
  if (name == "PRECOND") return screen.chkboxPreCondenser;
  if (name == "LRVP") return screen.chkboxLRVP;
  return 0;
}

std::vector<float> StudyRange(float start, float stop, int n, bool log) {
  if (n < 1) throw std::invalid_argument("a range needs at least one point");
  if (!std::isfinite(start) || !std::isfinite(stop)) throw std::invalid_argument("a range needs finite ends");
  if (log && !(start > 0 && stop > 0)) throw std::invalid_argument("a logarithmic range needs ends above zero");
  std::vector<float> values;
  for (int i = 0; i < n; ++i) {
    const double f = n == 1 ? 0.0 : static_cast<double>(i) / (n - 1);
    const double v = log ? std::exp(std::log(start) + f * (std::log(stop) - std::log(start))) : start + f * (stop - start);
    values.push_back(n > 1 && i == n - 1 ? stop : static_cast<float>(v));  // the last point is the end as given
  }
  return values;
}

std::vector<float> ParseStudyValues(std::string_view text) {
  const auto number = [](std::string_view field) {
    const std::string t = Trim(field);
    if (!IsPlainNumber(t)) throw std::invalid_argument("\"" + t + "\" is not a number");
    const double v = Val(t);
    if (!FitsSingle(v)) throw std::invalid_argument("\"" + t + "\" lies beyond the range of the program's numbers");
    return static_cast<float>(v);
  };
  std::vector<std::string_view> fields;
  const char separator = text.find(':') != std::string_view::npos ? ':' : ',';
  size_t from = 0;
  for (;;) {
    const size_t at = text.find(separator, from);
    fields.push_back(text.substr(from, at == std::string_view::npos ? std::string_view::npos : at - from));
    if (at == std::string_view::npos) break;
    from = at + 1;
  }
  if (separator == ',') {
    std::vector<float> values;
    for (std::string_view f : fields) values.push_back(number(f));
    return values;
  }
  if (fields.size() < 3 || fields.size() > 4 || (fields.size() == 4 && Trim(fields[3]) != "log")) {
    throw std::invalid_argument("a range is START:STOP:N or START:STOP:N:log");
  }
  const std::string n_text = Trim(fields[2]);
  if (n_text.empty() || n_text.size() > 7 || n_text.find_first_not_of("0123456789") != std::string::npos) {
    throw std::invalid_argument("the number of points \"" + n_text + "\" is not a whole number of up to 7 digits");
  }
  return StudyRange(number(fields[0]), number(fields[1]), std::stoi(n_text), fields.size() == 4);
}

std::vector<std::vector<float>> StudyGrid(const std::vector<StudyVariable>& variables) {
  std::vector<std::vector<float>> grid = {{}};
  for (const StudyVariable& v : variables) {
    std::vector<std::vector<float>> next;
    next.reserve(grid.size() * v.values.size());
    for (const auto& point : grid) {
      for (float value : v.values) {
        next.push_back(point);
        next.back().push_back(value);
      }
    }
    grid = std::move(next);
  }
  return grid;
}

std::vector<StudyPoint> RunStudy(const AppData& data, const InputScreen& base, float pinterfix,
                                 const std::vector<StudyVariable>& variables, const StudyOptions& options) {
  const std::vector<std::vector<float>> grid = StudyGrid(variables);
  std::vector<StudyPoint> points(grid.size());
  for (size_t i = 0; i < grid.size(); ++i) {
    points[i].values = grid[i];
    points[i].input_error = -1;  // not designed (yet)
  }
  std::atomic<size_t> next{0}, done{0};
  std::mutex progress_lock;
  const auto work = [&] {
    for (;;) {
      if (options.cancel != nullptr && options.cancel->load()) return;
      const size_t i = next++;
      if (i >= grid.size()) return;
      points[i] = DesignPoint(data, base, pinterfix, options.search, variables, grid[i]);
      const size_t finished = ++done;
      if (options.progress) {
        const std::lock_guard<std::mutex> hold(progress_lock);
        options.progress(finished, grid.size());
      }
    }
  };
  const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
  const size_t jobs = std::min<size_t>(grid.size(), options.jobs > 0 ? static_cast<size_t>(options.jobs) : cores);
  std::vector<std::thread> workers;
  for (size_t j = 1; j < jobs; ++j) workers.emplace_back(work);
  work();  // this thread is a worker too
  for (std::thread& t : workers) t.join();
  return points;
}

namespace {

// A value of the stage or condenser of that name in the design's summary; none where the design has no such part.
template <class Part>
std::function<std::optional<float>(const StudyPoint&)> PartValue(std::vector<Part> DesignSummary::*parts,
                                                                 std::string name, float Part::*field) {
  return [parts, name, field](const StudyPoint& p) -> std::optional<float> {
    for (const Part& part : p.summary.*parts) {
      if (part.name == name) return part.*field;
    }
    return std::nullopt;
  };
}

}  // namespace

const std::vector<StudyOutput>& StudyOutputs() {
  static const std::vector<StudyOutput> outputs = [] {
    using Value = std::optional<float>;
    std::vector<StudyOutput> o;
    const auto result = [](float DesignSummary::*field) {
      return [field](const StudyPoint& p) -> Value { return p.results ? Value(p.summary.*field) : std::nullopt; };
    };
    o.push_back({"steam_lb_hr", "lb/hr", result(&DesignSummary::motive_steam_lb_hr)});
    o.push_back({"water_gpm", "gpm", result(&DesignSummary::water_gpm)});
    o.push_back({"power_kw", "kW", result(&DesignSummary::power_kw)});
    o.push_back({"annual_cost_usd_yr", "$/yr",
                 [](const StudyPoint& p) -> Value { return p.results ? Value(p.summary.annual_cost.total) : std::nullopt; }});
    o.push_back({"steam_per_lb_load", "lb/lb", [](const StudyPoint& p) -> Value {
                   if (!p.results || !(p.load_lb_hr > 0)) return std::nullopt;
                   return p.summary.motive_steam_lb_hr / p.load_lb_hr;
                 }});
    o.push_back({"stages", "", [](const StudyPoint& p) -> Value {
                   return p.results ? Value(static_cast<float>(p.NSTAGES)) : std::nullopt;
                 }});
    for (const char* stage : {"AA", "A", "B", "C"}) {
      const std::string s = stage;
      o.push_back({"motive_lb_hr_" + s, "lb/hr", PartValue(&DesignSummary::stages, stage, &StageSummary::motive_lb_hr)});
      o.push_back({"suction_mmhga_" + s, "mmHgA", PartValue(&DesignSummary::stages, stage, &StageSummary::suction_mmhga)});
      o.push_back(
          {"discharge_mmhga_" + s, "mmHgA", PartValue(&DesignSummary::stages, stage, &StageSummary::discharge_mmhga)});
    }
    for (const char* condenser : {"C1", "C2", "AC"}) {
      const std::string c = condenser;
      o.push_back({"area_ft2_" + c, "ft2", PartValue(&DesignSummary::condensers, condenser, &CondenserSummary::area_ft2)});
      o.push_back(
          {"water_gpm_" + c, "gpm", PartValue(&DesignSummary::condensers, condenser, &CondenserSummary::water_gpm)});
    }
    o.push_back({"pump_bhp", "hp", [](const StudyPoint& p) -> Value {
                   return p.results && p.summary.pump.present ? Value(p.summary.pump.brake_hp) : std::nullopt;
                 }});
    return o;
  }();
  return outputs;
}

std::string StudyCsv(const std::vector<StudyVariable>& variables, const std::vector<StudyPoint>& points) {
  std::string csv;
  for (const StudyVariable& v : variables) csv += v.name + ",";
  csv += "input_error,errors,LRVPERR";
  for (const StudyOutput& o : StudyOutputs()) csv += "," + o.name;
  csv += ",notices,advisories\n";
  for (const StudyPoint& p : points) {
    for (float v : p.values) csv += GeneralText(v) + ",";
    csv += std::to_string(p.input_error) + "," + CsvText(Joined(p.errors)) + "," + std::to_string(p.LRVPERR);
    for (const StudyOutput& o : StudyOutputs()) {
      const std::optional<float> v = o.value(p);
      csv += "," + (v ? GeneralText(*v) : std::string());
    }
    csv += "," + CsvText(Joined(p.notices)) + "," + CsvText(Joined(p.advisories)) + "\n";
  }
  return csv;
}

}  // namespace kestrane
