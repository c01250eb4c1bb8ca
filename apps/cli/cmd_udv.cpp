// kestrane udv list|add|edit|delete|graph: user defined vapors in UDV.DTA, with the checks of the user vapor window.
#include <array>
#include <cstdio>
#include <fstream>

#include "cli.h"
#include "properties/user_vapors.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

// Edit fields 1 to 8 as options: T1, P1, T2, P2, T3, P3, MW, name.
constexpr std::array<const char*, 8> kFieldOptions = {"--t1", "--p1", "--t2", "--p2", "--t3", "--p3", "--mw", "--name"};
constexpr std::array<const char*, 8> kFieldNames = {"T1", "P1", "T2", "P2", "T3", "P3", "MW", "Name"};

struct UdvArgs {
  int id = 0;
  bool json = false;
  bool fahrenheit = false;
  bool alcohol = false;
  bool not_alcohol = false;
  bool yes = false;
  std::array<std::string, 8> fields;
  std::array<CLI::Option*, 8> given{};
  CLI::Option* alcohol_given = nullptr;
};


// The session with the vapors loaded. A user vapor file that is there but
// cannot be opened (a folder, no permission) is a file error: every command
// here reads or writes it. A damaged one is read up to its damage.
std::unique_ptr<Session> Load(const GlobalOptions& options, CliUi& ui) {
  auto session = MakeSession(options);
  LoadVapors(*session, ui);
  const std::filesystem::path file = session->data.paths.UserDataFile(kUserVaporFile);
  std::error_code ec;
  if (std::filesystem::exists(file, ec) && !(std::filesystem::is_regular_file(file, ec) && std::ifstream(file).is_open())) {
    FailToRead("The user defined vapors file", file, ui);
  }
  return session;
}

// The vapor the ID names; a refusal when it names none.
void RequireVapor(const UserVapors& user, int id, CliUi& ui) {
  if (id < 0 && -id <= user.NUDV) return;
  Fail(kExitRefused, "There is no user defined vapor " + std::to_string(id) + ".", ui);
}

void PrintGrid(const UserVapors& user, bool fahrenheit) {
  const auto heads = UdvGridHeads(fahrenheit);
  std::printf("%5s  %-20s %8s", heads[0].c_str(), heads[1].c_str(), heads[2].c_str());
  for (size_t k = 3; k <= 8; ++k) std::printf(" %11s", heads[k].c_str());
  std::printf(" %10s\n", heads[9].c_str());
  for (const auto& r : UdvGridRows(user, fahrenheit)) {
    std::printf("%5s  %-20s %8s", r[0].c_str(), r[1].c_str(), r[2].c_str());
    for (size_t k = 3; k <= 8; ++k) std::printf(" %10s", r[k].c_str());
    std::printf(" %10s\n", r[9].c_str());
  }
}

int List(const GlobalOptions& options, const UdvArgs& args) {
  CliUi ui(args.json);
  auto session = Load(options, ui);
  const UserVapors& user = session->data.user_vapors;
  if (args.json) {
    nlohmann::json doc;
    doc["NUDV"] = user.NUDV;
    doc["vapors"] = nlohmann::json::array();
    for (int row = 1; row <= user.NUDV; ++row) {
      nlohmann::json data = nlohmann::json::array();
      for (int c = 1; c <= 9; ++c) data.push_back(JsonSingle(user.UDVDATA(row, c)));
      doc["vapors"].push_back({{"id", -row}, {"name", RTrim(user.UDVNAME(row))}, {"UDVDATA", data}});
    }
    doc["notices"] = ui.notices;
    PrintJson(doc);
  } else {
    PrintGrid(user, args.fahrenheit);
  }
  return kExitDone;
}

// Puts the given options into the edit fields, checks each as leaving it would, and updates.
int FillAndUpdate(UdvScreen& screen, Session& session, const UdvArgs& args, CliUi& ui) {
  UserVapors& user = session.data.user_vapors;
  const auto file = session.data.paths.UserDataFile(kUserVaporFile);
  for (size_t k = 0; k < kFieldOptions.size(); ++k) {
    if (args.given[k]->count() > 0) screen.TextUDV[k + 1] = args.fields[k];
  }
  if (args.alcohol_given->count() > 0) screen.alcohol = args.alcohol;
  if (args.not_alcohol) screen.alcohol = false;
  for (int field = 1; field <= 7; ++field) {
    const std::string& text = screen.TextUDV[static_cast<size_t>(field)];
    if (!UdvFieldAccepted(field, text)) {
      const bool temperature = field % 2 == 1 && field < 7;
      const std::string error = std::string(kFieldNames[static_cast<size_t>(field - 1)]) + ": \"" + text + "\" is refused: " +
                                (temperature ? "a temperature must be a number other than 0." : "the value must be a number above 0.");
      UdvAbortChange(screen, user, file, ui);
      Fail(kExitRefused, error, ui);
    }
  }
  if (!UdvUpdate(screen, user, file, ui)) {
    UdvAbortChange(screen, user, file, ui);
    Fail(kExitRefused, "The vapor was refused; " + file.string() + " is unchanged.", ui);
  }
  if (args.json) {
    PrintJson({{"id", CInt(Val(screen.TextUDV[0]))}, {"NUDV", user.NUDV}, {"notices", ui.notices}});
  } else {
    std::printf("Vapor %s stored in %s\n", screen.TextUDV[0].c_str(), file.string().c_str());
  }
  return kExitDone;
}

int Add(const GlobalOptions& options, const UdvArgs& args) {
  CliUi ui(args.json);
  auto session = Load(options, ui);
  UdvScreen screen;
  screen.fahrenheit = args.fahrenheit;
  if (!UdvAdd(screen, session->data.user_vapors, ui)) {
    Fail(kExitRefused, "All 50 user defined vapors are in use: delete one before adding another.", ui);
  }
  return FillAndUpdate(screen, *session, args, ui);
}

int Edit(const GlobalOptions& options, const UdvArgs& args) {
  CliUi ui(args.json);
  auto session = Load(options, ui);
  UdvScreen screen;
  screen.fahrenheit = args.fahrenheit;
  RequireVapor(session->data.user_vapors, args.id, ui);
  UdvEdit(screen, session->data.user_vapors, args.id, ui);
  return FillAndUpdate(screen, *session, args, ui);
}

int Delete(const GlobalOptions& options, const UdvArgs& args) {
  CliUi ui(args.json);
  ui.answer = args.yes;
  auto session = Load(options, ui);
  UserVapors& user = session->data.user_vapors;
  RequireVapor(user, args.id, ui);
  if (!UdvDelete(user, args.id, session->data.paths.UserDataFile(kUserVaporFile), ui)) {
    if (!args.yes) Fail(kExitRefused, ui.questions.back() + "\nNot deleted: add --yes to confirm.", ui);
    Fail(kExitUsage, "The vapor was not deleted.", ui);
  }
  if (args.json) PrintJson({{"NUDV", user.NUDV}, {"notices", ui.notices}});
  return kExitDone;
}

int Graph(const GlobalOptions& options, const UdvArgs& args) {
  CliUi ui(args.json);
  auto session = Load(options, ui);
  const UserVapors& user = session->data.user_vapors;
  RequireVapor(user, args.id, ui);
  const Vapors vapors{session->data.vapors, user, ui};
  const UdvCurve curve = UdvGraph(vapors, static_cast<int16_t>(-args.id), args.fahrenheit);
  if (args.json) {
    nlohmann::json points = nlohmann::json::array();
    for (const auto& p : curve.points) {
      points.push_back({{"n", p.number}, {"t", JsonSingle(p.temperature)}, {"pressure", JsonSingle(p.pressure)}});
    }
    PrintJson({{"title", curve.title}, {"subtitle", curve.subtitle}, {"x_axis", curve.x_axis},
               {"y_axis", curve.y_axis}, {"points", points}, {"notices", ui.notices}});
  } else {
    std::printf("%s\n%s\n%6s %14s %16s\n", curve.title.c_str(), curve.subtitle.c_str(), "n", curve.x_axis.c_str(),
                "P (mmHgA)");
    for (const auto& p : curve.points) {
      std::printf("%6d %14s %16s\n", p.number, GeneralText(p.temperature).c_str(), GeneralText(p.pressure).c_str());
    }
  }
  return curve.points.empty() ? kExitRefused : kExitDone;
}

void AddFieldOptions(CLI::App* cmd, UdvArgs& args) {
  const char* help[] = {"T1, the lowest temperature, degC (degF with --fahrenheit)",
                        "P1 at T1, mmHgA",
                        "T2, the middle temperature, degC (degF with --fahrenheit)",
                        "P2 at T2, mmHgA",
                        "T3, the highest temperature, degC (degF with --fahrenheit)",
                        "P3 at T3, mmHgA",
                        "Molecular weight, lb/lb-mol",
                        "Name (cut at 20 characters)"};
  for (size_t k = 0; k < kFieldOptions.size(); ++k) args.given[k] = cmd->add_option(kFieldOptions[k], args.fields[k], help[k]);
  args.alcohol_given = cmd->add_flag("--alcohol", args.alcohol, "Mark the vapor as an alcohol");
  cmd->add_flag("--not-alcohol", args.not_alcohol, "Clear the alcohol mark");
  cmd->add_flag("--fahrenheit", args.fahrenheit, "Temperatures are entered in degF (stored in degC)");
  cmd->add_flag("--json", args.json, "Print the result as JSON");
}

}  // namespace

void AddUdvCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* group = app.add_subcommand("udv", "User defined vapors (IDs -1 to -50) in UDV.DTA");
  group->require_subcommand(1);
  auto args = std::make_shared<UdvArgs>();

  auto* list = group->add_subcommand("list", "List the user defined vapors");
  list->add_flag("--fahrenheit", args->fahrenheit, "Show temperatures in degF (default degC, as stored)");
  list->add_flag("--json", args->json, "Print the vapors as JSON");
  list->callback([&options, &exit_code, args] { exit_code = List(options, *args); });

  // Add and edit each keep their own options, so that each knows which fields were given.
  auto add_args = std::make_shared<UdvArgs>();
  auto* add = group->add_subcommand("add", "Add a vapor from three points of temperature and vapor pressure");
  AddFieldOptions(add, *add_args);
  add->callback([&options, &exit_code, add_args] { exit_code = Add(options, *add_args); });

  auto edit_args = std::make_shared<UdvArgs>();
  auto* edit = group->add_subcommand("edit", "Change the fields given of a vapor");
  edit->add_option("ID", edit_args->id, "Vapor ID, -1 to -50")->required();
  AddFieldOptions(edit, *edit_args);
  edit->callback([&options, &exit_code, edit_args] { exit_code = Edit(options, *edit_args); });

  auto* del = group->add_subcommand("delete", "Delete a vapor; later vapors move up one ID");
  del->add_option("ID", args->id, "Vapor ID, -1 to -50")->required();
  del->add_flag("--yes", args->yes, "Confirm the deletion");
  del->add_flag("--json", args->json, "Print the result as JSON");
  del->callback([&options, &exit_code, args] { exit_code = Delete(options, *args); });

  auto* graph = group->add_subcommand("graph", "The vapor pressure curve of a vapor, T1 to T3 in 40 steps");
  graph->add_option("ID", args->id, "Vapor ID, -1 to -50")->required();
  graph->add_flag("--fahrenheit", args->fahrenheit, "Temperatures in degF (default degC); pressures are mmHgA");
  graph->add_flag("--json", args->json, "Print the curve as JSON");
  graph->callback([&options, &exit_code, args] { exit_code = Graph(options, *args); });
}

}  // namespace kestrane::cli
