// kestrane study CASE.JET --vary NAME=RANGE...: a case designed at every combination of the varied inputs.
#include <chrono>
#include <cstdio>

#include "case/jet_file.h"
#include "cli.h"
#include "properties/vb_file.h"
#include "study/study.h"

namespace kestrane::cli {

namespace {

struct StudyArgs {
  std::string file;
  std::vector<std::string> vary;
  int jobs = 0;
  std::string search = "original";
  std::string format = "csv";
  std::string out;
};

// NAME=VALUES as the variable it names; a usage failure that says what is wrong.
StudyVariable Variable(const std::string& text, const RecordingUi& ui) {
  const size_t eq = text.find('=');
  const std::string name = text.substr(0, eq);
  if (eq == std::string::npos || !IsStudyInput(name)) {
    Fail(kExitUsage, "--vary " + text + ": " + (eq == std::string::npos ? "give NAME=START:STOP:N" : "no input is named " + name) +
                         " (kestrane study --help lists the names)", ui);
  }
  try {
    return {name, ParseStudyValues(text.substr(eq + 1))};
  } catch (const std::invalid_argument& e) {
    Fail(kExitUsage, "--vary " + text + ": " + e.what(), ui);
  }
}

nlohmann::json PointJson(const StudyPoint& p, const std::vector<StudyVariable>& variables) {
  nlohmann::json j;
  for (size_t v = 0; v < variables.size(); ++v) j["inputs"][variables[v].name] = JsonSingle(p.values[v]);
  j["input_error"] = p.input_error;
  j["errors"] = p.errors;
  j["notices"] = p.notices;
  j["advisories"] = p.advisories;
  j["LRVPERR"] = p.LRVPERR;
  for (const StudyOutput& o : StudyOutputs()) {
    const std::optional<float> value = o.value(p);
    j["outputs"][o.name] = value ? JsonSingle(*value) : nlohmann::json(nullptr);
  }
  return j;
}

int Study(const GlobalOptions& options, const StudyArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.format == "json");
  if (args.vary.empty() || args.vary.size() > 2) Fail(kExitUsage, "A study varies one or two inputs: --vary NAME=START:STOP:N", ui);
  std::vector<StudyVariable> variables;
  for (const std::string& v : args.vary) variables.push_back(Variable(v, ui));
  if (variables.size() == 2 && variables[0].name == variables[1].name) {
    Fail(kExitUsage, "The two --vary name the same input " + variables[0].name + ".", ui);
  }
  LoadDesignData(*session, ui);
  InputScreen base = NewCase();
  if (!OpenCase(args.file, base, ui)) FailToRead("The case", args.file, ui);

  // A progress line on standard error, twice a second, for a study that takes a while.
  const auto started = std::chrono::steady_clock::now();
  auto shown = started;
  bool progressed = false;
  StudyOptions run;
  run.jobs = args.jobs;
  if (args.search == "thorough") run.search = InterstageSearch::kThorough;
  run.progress = [&](size_t done, size_t total) {
    const auto now = std::chrono::steady_clock::now();
    if (done < total && now - shown < std::chrono::milliseconds(500)) return;
    if (!progressed && done == total) return;  // quick: no progress line at all
    shown = now;
    progressed = true;
    std::fprintf(stderr, "\rStudy: %zu of %zu points", done, total);
    if (done == total) std::fprintf(stderr, "\n");
  };
  const std::vector<StudyPoint> points = RunStudy(session->data, base, session->PINTERFIX, variables, run);

  std::string text;
  if (args.format == "json") {
    nlohmann::json doc;
    doc["case"] = args.file;
    for (const StudyVariable& v : variables) {
      nlohmann::json values = nlohmann::json::array();
      for (float x : v.values) values.push_back(JsonSingle(x));
      doc["vary"].push_back({{"name", v.name}, {"values", values}});
    }
    doc["points"] = nlohmann::json::array();
    for (const StudyPoint& p : points) doc["points"].push_back(PointJson(p, variables));
    text = JsonText(doc) + "\n";
  } else {
    text = StudyCsv(variables, points);
  }
  if (args.out.empty() || args.out == "-") {
    std::fwrite(text.data(), 1, text.size(), stdout);
  } else {
    try {
      WriteFileWhole(args.out, text);
    } catch (const VbError& e) {
      Fail(kExitUsage, "The file " + args.out + " could not be written: " + e.what() + ".", ui);
    }
  }
  return kExitDone;
}

std::string InputNamesHelp() {
  std::string help = "Inputs that can vary (standard units):\n";
  for (const StudyInputName& n : StudyInputNames()) {
    help += "  " + n.name + std::string(n.name.size() < 11 ? 11 - n.name.size() : 1, ' ') + n.meaning +
            (n.unit.empty() ? "" : ", " + n.unit) + "\n";
  }
  return help;
}

}  // namespace

void AddStudyCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<StudyArgs>();
  auto* cmd = app.add_subcommand("study", "Design a case again at every combination of one or two varied inputs");
  cmd->footer(InputNamesHelp());
  cmd->add_option("CASE", args->file, "The base case (.JET)")->required();
  cmd->add_option("--vary", args->vary,
                  "NAME=START:STOP:N (N points, both ends included), NAME=START:STOP:N:log (evenly in the "
                  "logarithm) or NAME=V1,V2,...; given twice, every combination, the first varying slowest")
      ->required();
  cmd->add_option("--jobs", args->jobs, "Worker threads (default: one per core)")->check(CLI::Range(1, 256));
  cmd->add_option("--search", args->search, "Interstage search of every point: original (the default) or thorough")
      ->check(CLI::IsMember({"original", "thorough"}));
  cmd->add_option("--format", args->format, "csv: a line per point; json: the points with their inputs and outputs")
      ->check(CLI::IsMember({"csv", "json"}));
  cmd->add_option("-o,--output", args->out, "Output file (standard output without it)");
  cmd->callback([&options, &exit_code, args] { exit_code = Study(options, *args); });
}

}  // namespace kestrane::cli
