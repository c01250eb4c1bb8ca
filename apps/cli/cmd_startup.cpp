// kestrane startup: runs the start sequence and reports what it loaded.
#include "cli.h"
#include "shell/startup.h"

namespace kestrane::cli {

namespace {

const char* UserInfoStateName(UserInfoRead state) {
  switch (state) {
    case UserInfoRead::kRead: return "read";
    case UserInfoRead::kMissing: return "missing";
    case UserInfoRead::kFailed: return "unreadable";
  }
  return "unreadable";
}

int RunStartup(const GlobalOptions& options, bool json) {
  auto session = MakeSession(options);
  CliUi ui(json);
  const bool started = RunStartSequence(*session, ui);
  const AppData& data = session->data;
  const Constants& c = data.constants;
  const std::string today = FormatDate(session->Today());
  // The sequence stops only at a steam table or vapor data base it cannot read: the step it stopped at names the file.
  std::string error;
  if (!started) {
    const bool vapors = !ui.statuses.empty() && ui.statuses.back() == kStartProgressTexts[2];
    error = vapors ? UnreadableText("The vapor data base", data.paths.DataFile(kVaporFile))
                   : UnreadableText("The steam table", data.paths.DataFile(kSteamFile));
    std::cerr << error << '\n';
  }

  if (json) {
    nlohmann::json doc;
    doc["started"] = started;
    doc["status"] = ui.statuses;
    doc["notices"] = ui.notices;
    doc["pgmfiles"] = data.paths.pgmfiles.string();
    doc["userdata"] = data.paths.userdata.string();
    doc["userinfo"] = UserInfoStateName(data.userinfo_state);
    doc["today"] = today;
    doc["pricing"] = {{"PRICEMODE", data.pricing.PRICEMODE}, {"folder", data.pricing.folder.string()}};
    if (!started) {
      doc["error"] = error;
      doc["exit_code"] = kExitUsage;
    }
    PrintJson(doc);
    return started ? kExitDone : kExitUsage;
  }
  for (const auto& s : ui.statuses) std::cout << s << '\n';
  if (!started) return kExitUsage;
  std::cout << "\nProgram data:     " << data.paths.pgmfiles.string() << '\n'
            << "User data:        " << data.paths.userdata.string() << '\n'
            << "Steam table:      " << data.steam.STEAMNP << " pressures from " << GeneralText(data.steam.STEAMTBL(1, 1))
            << " to " << GeneralText(data.steam.STEAMTBL(data.steam.STEAMNP, 1)) << " psia, "
            << (data.steam.STEAMNC - 7) / 2 << " superheat temperatures\n"
            << "Vapors:           " << data.vapors.NPSAT << " in the data base, " << data.user_vapors.NUDV
            << " user defined\n"
            << "Design curves:    maximum vapor velocity " << data.curves.VELOCITYCURVE.hi1()
            << " points, condensing film " << data.curves.CONDCURVEA.hi1() << " and " << data.curves.CONDCURVEB.hi1()
            << " points, " << data.curves.EFFLINES.hi1() << " efficiency lines\n"
            << "Design tables:    " << c.MATERIALNAME.size() << " materials, " << c.PIPETAB.hi1() << " pipes, "
            << c.SIZETAB.hi1() << " ejector sizes, " << c.BAROTAB.hi1() << " barometric condensers, "
            << c.STDCONDENSER.hi1() << " standard condensers\n"
            << "User information: " << UserInfoStateName(data.userinfo_state) << '\n'
            << "Pricing:          "
            << (data.pricing.PRICEMODE == 0 ? "off"
                                            : "mode " + std::to_string(data.pricing.PRICEMODE) + ", prices in " +
                                                  data.pricing.folder.string())
            << '\n'
            << "Today:            " << today << '\n';
  return kExitDone;
}

}  // namespace

void AddStartupCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* cmd = app.add_subcommand("startup", "Load the program's data as the desktop program does and report it");
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print the result as JSON");
  cmd->callback([&options, &exit_code, json] { exit_code = RunStartup(options, *json); });
}

}  // namespace kestrane::cli
