// kestrane check CASE.JET: reads a case and runs the input check, reporting the record it fills.
#include <cstdio>

#include "case/check_input.h"
#include "case/jet_file.h"
#include "cli.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

struct CheckArgs {
  std::string file;
  bool json = false;
};

int Check(const GlobalOptions& options, const CheckArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadSteamTable(*session, ui);
  LoadVapors(*session, ui);
  InputScreen screen = NewCase();
  if (!OpenCase(args.file, screen, ui)) FailToRead("The case", args.file, ui);
  AppData& data = session->data;
  DesignCase& dc = session->design;
  const Steam steam{data.steam, ui};
  const Vapors vapors{data.vapors, data.user_vapors, ui};
  const int16_t err = CheckInput(screen, dc, session->PINTERFIX, CheckServices{steam, vapors, ui});

  if (args.json) {
    nlohmann::json loads = nlohmann::json::array();
    for (int load = 1; load <= dc.NLOADS; ++load) {
      loads.push_back({{"ID", JsonSingle(dc.LOADS(kLoadID, load))},
                       {"PPH", JsonSingle(dc.LOADS(kLoadPPH, load))},
                       {"MW", JsonSingle(dc.LOADS(kLoadMW, load))},
                       {"VPC1", JsonSingle(dc.LOADS(kLoadVPC1, load))},
                       {"VPC2", JsonSingle(dc.LOADS(kLoadVPC2, load))},
                       {"VPAC", JsonSingle(dc.LOADS(kLoadVPAC, load))},
                       {"LATENT", JsonSingle(dc.LATENT(load))},
                       {"LOADCLASS", dc.LOADCLASS(load)},
                       {"VPRANGE", {dc.VPRANGE(load, 1), dc.VPRANGE(load, 2), dc.VPRANGE(load, 3)}}});
    }
    PrintJson({{"input_error", err},
               {"NSTAGES", dc.NSTAGES},
               {"STAGEOPT", dc.STAGEOPT},
               {"CNDTYPE", dc.CNDTYPE},
               {"HASC1", dc.HASC1},
               {"HASC2", dc.HASC2},
               {"HASAC", dc.HASAC},
               {"TSATC1", JsonSingle(dc.TSATC1)},
               {"TSATC2", JsonSingle(dc.TSATC2)},
               {"TSATAC", JsonSingle(dc.TSATAC)},
               {"NLOADS", dc.NLOADS},
               {"LOADS", loads},
               {"notices", ui.notices}});
  } else {
    std::printf("Case:        %s\n", screen.CASENAME.c_str());
    std::printf("Input:       %s\n", err ? "refused" : "accepted");
    std::printf("Stages:      %d (asked %d)\n", dc.NSTAGES, dc.STAGEOPT);
    std::printf("Condensers:  C1 %d  C2 %d  AC %d\n", dc.HASC1, dc.HASC2, dc.HASAC);
    std::printf("Loads:       %d\n", dc.NLOADS);
    std::printf("%5s %8s %10s %8s %12s %12s %12s %8s\n", "load", "ID", "lb/hr", "MW", "VP C1", "VP C2", "VP AC", "latent");
    for (int load = 1; load <= dc.NLOADS; ++load) {
      std::printf("%5d %8s %10s %8s %12s %12s %12s %8s\n", load, GeneralText(dc.LOADS(kLoadID, load)).c_str(),
                  GeneralText(dc.LOADS(kLoadPPH, load)).c_str(), GeneralText(dc.LOADS(kLoadMW, load)).c_str(),
                  GeneralText(dc.LOADS(kLoadVPC1, load)).c_str(), GeneralText(dc.LOADS(kLoadVPC2, load)).c_str(),
                  GeneralText(dc.LOADS(kLoadVPAC, load)).c_str(), GeneralText(dc.LATENT(load)).c_str());
    }
  }
  return err ? kExitRefused : kExitDone;
}

}  // namespace

void AddCheckCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<CheckArgs>();
  auto* cmd = app.add_subcommand("check", "Read a design case and run the input check only");
  cmd->add_option("CASE", args->file, "The case file (.JET)")->required();
  cmd->add_flag("--json", args->json, "Print the record the check fills as JSON");
  cmd->callback([&options, &exit_code, args] { exit_code = Check(options, *args); });
}

}  // namespace kestrane::cli
