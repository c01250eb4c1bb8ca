// The command line's shared pieces: its Ui, the session it builds and the exit codes.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "engine/design_run.h"
#include "json_text.h"
#include "shell/session.h"
#include "shell/ui.h"

namespace kestrane::cli {

// Exit status: done, input refused by a check, usage or file error, a design
// that ran but ended with an error flag (pump, condenser, a failed stage balance).
inline constexpr int kExitDone = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitDesignError = 3;

// Notices go to standard error as they come in text mode, and are kept for
// the "notices" member in JSON mode. Questions are answered no.
class CliUi : public RecordingUi {
 public:
  explicit CliUi(bool json) : json_(json) {}
  void notice(const std::string& text) override {
    RecordingUi::notice(text);
    if (!json_) std::cerr << text << '\n';
  }

 private:
  bool json_;
};

// A command that cannot go on: main reports the error (a JSON object with
// --json, else a line on standard error) and exits with the status.
struct Failure {
  int exit_code;
  std::string error;
  std::vector<std::string> notices;  // shown before the failure
  bool told = false;                 // the notices said it all: text mode adds no line of its own
};

[[noreturn]] inline void Fail(int exit_code, const std::string& error, const RecordingUi& ui) {
  throw Failure{exit_code, error, ui.notices};
}

// The error of a file that cannot be read, naming it: "The case /path/A.JET could not be read."
inline std::string UnreadableText(const std::string& what, const std::filesystem::path& file) {
  return what + " " + file.string() + " could not be read.";
}

// A file error: the file named by UnreadableText.
[[noreturn]] inline void FailToRead(const std::string& what, const std::filesystem::path& file, const RecordingUi& ui) {
  Fail(kExitUsage, UnreadableText(what, file), ui);
}

// A refusal that the notices (or the window's silence) already gave in text
// mode, as the program has always shown it; JSON mode still names the error.
[[noreturn]] inline void Refuse(const std::string& error, const RecordingUi& ui) {
  throw Failure{kExitRefused, error, ui.notices, true};
}

// The message for a command word that names no command (the nearest command
// offered, when one is near), from the words after the program's name; empty
// when every command word is known.
std::string UnknownCommandMessage(const CLI::App& app, const std::vector<std::string>& args);

// The check of a number argument: a number as the program reads one (no
// thousands commas) that a Single can hold; CLI11 names the argument it refuses.
CLI::Validator SingleNumber();

// Options every command sees.
struct GlobalOptions {
  std::string pgmfiles;  // empty: pgmfiles beside the program
  std::string date;      // YYYY-MM-DD, empty: today
};

// A session for the options: the program's paths and a fixed date if one was given.
// Throws CLI::ValidationError for a date that is not a calendar day.
std::unique_ptr<Session> MakeSession(const GlobalOptions& options);

// Reads the steam table into the session; a usage or file failure (with the
// read error notice shown) when it cannot be read.
void LoadSteamTable(Session& session, RecordingUi& ui);

// Reads the vapor data base and the user defined vapors into the session; a
// failure (with the notice shown) when the data base cannot be read.
void LoadVapors(Session& session, RecordingUi& ui);

// Reads everything a design needs: steam table, design curves and tables, vapors, pumps, and the pricing data.
void LoadDesignData(Session& session, RecordingUi& ui);

// Opens a case file into `screen` and designs it, for a command that works on the design's results (`verb`:
// "print", "price"). Fails when the case cannot be read or designed, refuses when its input is refused, and fails
// when the design leaves no results.
DesignOutcome DesignCaseFile(Session& session, const std::string& file, InputScreen& screen, CliUi& ui,
                             const std::string& verb);

// A usage failure that says why when pricing is off (the configuration's mode, or the price file that failed).
void RequirePricing(const Session& session, const RecordingUi& ui);

// Prints a JSON document on standard output, its numbers in their shortest form (JsonText).
void PrintJson(const nlohmann::json& doc);
// Whether a JSON document was printed.
bool JsonPrinted();

// Makes ready for painting pages and drawings with Qt (fonts, PDF, images), without a screen; once a run.
void StartPainting();

// The command groups, each adding its subcommands to the application.
void AddStartupCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddUserInfoCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddSteamCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddVaporCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddUdvCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddCheckCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddDesignCommands(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddTcCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddCalculatorCommands(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddPrintCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddDrawingCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddPriceCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);
void AddStudyCommand(CLI::App& app, const GlobalOptions& options, int& exit_code);

}  // namespace kestrane::cli
