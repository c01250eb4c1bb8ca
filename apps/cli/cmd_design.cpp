// kestrane design CASE.JET... and kestrane stage: the design run and one stage of it.
#include <cstdio>

#include "case/jet_file.h"
#include "cli.h"
#include "engine/design_run.h"
#include "engine/design_summary.h"
#include "engine/results.h"
#include "engine/stage_model.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "pump/pump_selection.h"

namespace kestrane::cli {

namespace {

struct DesignArgs {
  std::vector<std::string> files;
  bool json = false;
  bool grid = false;
  std::string search = "original";  // the interstage search: original or thorough
};

struct StageArgs {
  float pin = 0, pout = 0, pmotive = 0, tmotive = 0, ve = 0;
  bool json = false;
};

nlohmann::json Singles(const std::vector<float>& values) {
  nlohmann::json out = nlohmann::json::array();
  for (float v : values) out.push_back(JsonSingle(v));
  return out;
}

nlohmann::json CaseJson(const DesignCase& dc, const PumpData& pumps, const DesignOutcome& outcome, const CliUi& ui, const std::string& text) {
  nlohmann::json doc;
  doc["input_error"] = outcome.input_error;
  doc["notices"] = ui.notices;
  doc["status"] = ui.statuses;
  doc["lblMessage"] = outcome.lblMessage;
  doc["NSTAGES"] = dc.NSTAGES;
  doc["HASC1"] = dc.HASC1;
  doc["HASC2"] = dc.HASC2;
  doc["HASAC"] = dc.HASAC;
  doc["LRVPERR"] = dc.LRVPERR;
  // The chosen pump: the first column of LRVPRES, rows 1 to 18, and its model.
  std::vector<float> pump;
  for (int r = 1; r <= kLrvpCondensation; ++r) pump.push_back(dc.LRVPRES(r, 1));
  doc["LRVPRES"] = Singles(pump);
  const int chosen = CInt(dc.LRVPRES(kLrvpPump, 1));
  doc["pump_model"] = chosen >= 1 && chosen <= kPumps ? nlohmann::json(Trim(pumps.pumps[static_cast<size_t>(chosen)].MODEL))
                                                     : nlohmann::json(nullptr);
  doc["NLOADS"] = dc.NLOADS;
  doc["PINTERFIX"] = nullptr;
  for (int c = 1; c <= kStageColumns; ++c) {
    std::vector<float> rows;
    for (int r = 1; r <= kStageRows; ++r) rows.push_back(dc.STG(c, r));
    doc["STG"].push_back(Singles(rows));
  }
  for (int col = 1; col <= kCondenserColumns; ++col) {
    std::vector<float> rows;
    for (int r = 1; r <= kCondenserRows; ++r) rows.push_back(dc.CND(col, r));
    doc["CND"].push_back(Singles(rows));
  }
  std::vector<float> totals;
  for (int k = 1; k <= 12; ++k) totals.push_back(dc.TOTALS(k));
  doc["TOTALS"] = Singles(totals);
  doc["STGLOAD"] = nlohmann::json::array();
  doc["CNDLOAD"] = nlohmann::json::array();
  doc["LOADS"] = nlohmann::json::array();
  for (int load = 1; load <= dc.NLOADS; ++load) {
    std::vector<float> stages, rows;
    for (int c = 1; c <= kStageColumns; ++c) stages.push_back(dc.STGLOAD(load, c));
    doc["STGLOAD"].push_back(Singles(stages));
    nlohmann::json inout = nlohmann::json::array();
    for (int k = 1; k <= 2; ++k) {
      std::vector<float> cols;
      for (int col = 1; col <= kCondenserColumns; ++col) cols.push_back(dc.CNDLOAD(load, k, col));
      inout.push_back(Singles(cols));
    }
    doc["CNDLOAD"].push_back(inout);
    for (int r = 0; r <= 7; ++r) rows.push_back(dc.LOADS(r, load));
    doc["LOADS"].push_back(Singles(rows));
  }
  doc["results_text"] = text;
  return doc;
}

// The named results: what the positional tables hold, by name, in standard units (the unit in each name).
nlohmann::json ResultsJson(const DesignSummary& s) {
  nlohmann::json r;
  r["annual_cost"] = {{"total_usd_yr", JsonSingle(s.annual_cost.total)},
                      {"steam_usd_yr", JsonSingle(s.annual_cost.steam)},
                      {"water_usd_yr", JsonSingle(s.annual_cost.water)},
                      {"power_usd_yr", JsonSingle(s.annual_cost.power)}};
  r["motive_steam_lb_hr"] = JsonSingle(s.motive_steam_lb_hr);
  r["water_gpm"] = JsonSingle(s.water_gpm);
  r["power_kw"] = JsonSingle(s.power_kw);
  r["stages"] = nlohmann::json::array();
  for (const StageSummary& st : s.stages) {
    r["stages"].push_back({{"name", st.name},
                           {"model", st.model},
                           {"pump", st.pump},
                           {"motive_lb_hr", JsonSingle(st.motive_lb_hr)},
                           {"suction_mmhga", JsonSingle(st.suction_mmhga)},
                           {"discharge_mmhga", JsonSingle(st.discharge_mmhga)},
                           {"compression_ratio", JsonSingle(st.compression_ratio)},
                           {"connections_in",
                            {{"suction", JsonSingle(st.suction_in)},
                             {"discharge", JsonSingle(st.discharge_in)},
                             {"motive", JsonSingle(st.motive_in)}}}});
  }
  r["condensers"] = nlohmann::json::array();
  for (const CondenserSummary& c : s.condensers) {
    r["condensers"].push_back({{"name", c.name},
                               {"role", c.role},
                               {"model", c.model},
                               {"type", c.type},
                               {"area_ft2", JsonSingle(c.area_ft2)},
                               {"water_gpm", JsonSingle(c.water_gpm)},
                               {"water_in_f", JsonSingle(c.water_in_f)},
                               {"water_out_f", JsonSingle(c.water_out_f)},
                               {"water_dp_psi", JsonSingle(c.water_dp_psi)},
                               {"duty_btu_hr", JsonSingle(c.duty_btu_hr)},
                               {"inlet_mmhga", JsonSingle(c.inlet_mmhga)},
                               {"outlet_mmhga", JsonSingle(c.outlet_mmhga)},
                               {"vent_f", JsonSingle(c.vent_f)}});
  }
  if (s.pump.present) {
    r["pump"] = {{"model", s.pump.model},
                 {"capacity_acfm", JsonSingle(s.pump.capacity_acfm)},
                 {"duty_acfm", JsonSingle(s.pump.duty_acfm)},
                 {"condensed_duty_acfm", JsonSingle(s.pump.condensed_duty_acfm)},
                 {"capacity_ratio", JsonSingle(s.pump.capacity_ratio)},
                 {"brake_hp", JsonSingle(s.pump.brake_hp)},
                 {"motor_hp", JsonSingle(s.pump.motor_hp)},
                 {"seal_water_gpm", JsonSingle(s.pump.seal_water_gpm)},
                 {"seal_out_f", JsonSingle(s.pump.seal_out_f)}};
  } else {
    r["pump"] = nullptr;
  }
  r["loads"] = nlohmann::json::array();
  for (const LoadSummary& l : s.loads) {
    r["loads"].push_back({{"vapor_id", l.id},
                          {"name", l.name},
                          {"kind", l.kind},
                          {"flow_lb_hr", JsonSingle(l.flow_lb_hr)},
                          {"mw", JsonSingle(l.mw)}});
  }
  return r;
}

// One case of a design command: read, check, design, and print it in text mode.
struct CaseRun {
  nlohmann::json doc;  // the JSON object of the case
  int exit_code = kExitDone;
};

CaseRun DesignOne(Session& session, const std::string& file, const DesignArgs& args) {
  CaseRun run;
  CliUi ui(args.json);
  InputScreen screen = NewCase();
  // A case that cannot be read is reported with the record of an empty case, in the same shape.
  DesignCase unread;
  const bool read = OpenCase(file, screen, ui);
  DesignCase& dc = read ? session.design : unread;
  DesignContext ctx{dc, session.data, screen, session.PINTERFIX, ui};
  if (args.search == "thorough") ctx.search = InterstageSearch::kThorough;
  DesignOutcome outcome;
  std::string text;
  std::vector<std::vector<std::string>> grid;
  if (!read) {
    outcome.input_error = 1;
    outcome.errors.push_back(UnreadableText("The case file", file));
    run.exit_code = kExitUsage;
  } else {
    try {
      outcome = RunDesign(ctx, screen);
      if (outcome.results) text = ResultsText(FillResults(ctx, screen.Metric()));
      grid = DebuggerGrid(ctx);
    } catch (const VbError& e) {
      // Whatever no step of the run trapped ends this case, never the others.
      outcome.errors.push_back(RunTimeErrorText(e));
      outcome.results = false;
    }
    if (outcome.results && session.data.pricing.PRICEMODE == 2) WriteGridCsv(grid, GridCsvPath(), ui);
    if (outcome.input_error != 0) {
      run.exit_code = kExitRefused;
    } else if (!outcome.errors.empty()) {
      run.exit_code = kExitDesignError;
    }
  }
  const DesignSummary summary = outcome.results ? SummarizeDesign(ctx) : DesignSummary{};
  if (args.json) {
    run.doc = CaseJson(dc, session.data.pumps, outcome, ui, text);
    run.doc["case"] = file;
    run.doc["PINTERFIX"] = JsonSingle(session.PINTERFIX);
    run.doc["errors"] = outcome.errors;
    run.doc["advisories"] = outcome.advisories;
    run.doc["results"] = ResultsJson(summary);
    if (!read) run.doc["error"] = outcome.errors.front();
    if (args.grid) run.doc["grid"] = grid;
    return run;
  }
  if (!read) {
    std::fprintf(stderr, "%s\n", outcome.errors.front().c_str());
    return run;
  }
  if (args.files.size() > 1) std::printf("== %s\n", screen.CASENAME.c_str());
  if (outcome.input_error != 0) return run;
  if (!outcome.lblMessage.empty()) std::printf("%s\n", outcome.lblMessage.c_str());
  std::printf("%s", text.c_str());
  if (outcome.results) {
    for (const ResultsBlock& block : SummaryBlocks(summary, screen.Metric())) std::printf("%s", BlockText(block).c_str());
  }
  if (!outcome.advisories.empty()) {
    std::printf("\nAdvisories\n");
    for (const std::string& advice : outcome.advisories) std::printf("- %s\n", advice.c_str());
  }
  if (args.grid) {
    for (const auto& row : grid) {
      std::string line;
      for (const auto& cell : row) {
        std::string padded(20, ' ');
        PlaceInField(-1, padded, cell, 1);
        line += padded;
      }
      std::printf("%s\n", RTrim(line).c_str());
    }
  }
  for (const std::string& error : outcome.errors) std::fprintf(stderr, "Design error: %s\n", error.c_str());
  return run;
}

int Design(const GlobalOptions& options, const DesignArgs& args) {
  auto session = MakeSession(options);
  CliUi load_ui(args.json);
  LoadDesignData(*session, load_ui);
  nlohmann::json docs = nlohmann::json::array();
  // The status is the worst of the cases': a usage or file error, a refused input, a design error.
  int exit_code = kExitDone;
  const auto rank = [](int code) { return code == kExitUsage ? 3 : code == kExitRefused ? 2 : code == kExitDesignError ? 1 : 0; };
  for (const std::string& file : args.files) {
    CaseRun run = DesignOne(*session, file, args);
    if (rank(run.exit_code) > rank(exit_code)) exit_code = run.exit_code;
    if (args.json) docs.push_back(std::move(run.doc));
  }
  if (args.json) PrintJson(docs.size() == 1 ? docs[0] : docs);
  return exit_code;
}

int Stage(const GlobalOptions& options, const StageArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadDesignData(*session, ui);
  const InputScreen screen = NewCase();
  DesignContext ctx{session->design, session->data, screen, session->PINTERFIX, ui};
  StageDesign st;
  try {
    st = DesignStage(ctx, args.pin, args.pout, args.pmotive, args.tmotive, args.ve);
  } catch (const VbError& e) {
    Fail(kExitDesignError, "The stage could not be designed: " + RunTimeErrorText(e), ui);
  }
  const JetBalanceData& b = st.balance;
  const std::string failure =
      b.failed != 0 ? "The jet balance of the stage did not converge: its results are those of the last trial." : "";
  if (args.json) {
    PrintJson({{"ML", JsonSingle(st.ML)},
               {"THROAT", JsonSingle(st.THROAT)},
               {"SIZE", JsonSingle(st.SIZE)},
               {"EFF", JsonSingle(st.EFF)},
               {"steamRatio", JsonSingle(b.steamRatio)},
               {"efficiency", JsonSingle(b.efficiency)},
               {"dischargeTemp", JsonSingle(b.dischargeTemp)},
               {"throatTemp", JsonSingle(b.throatTemp)},
               {"throatVolume", JsonSingle(b.throatVolume)},
               {"mixVelocity", JsonSingle(b.mixVelocity)},
               {"nozzleVelocity", JsonSingle(b.nozzleVelocity)},
               {"compressionRatio", JsonSingle(b.compressionRatio)},
               {"entropyIndex", JsonSingle(b.entropyIndex)},
               {"failed", b.failed},
               {"errors", failure.empty() ? nlohmann::json::array() : nlohmann::json::array({failure})},
               {"notices", ui.notices}});
  } else {
    std::printf("ML        %s\nTHROAT    %s in\nSIZE      %s\nEFF       %s %%\nmotive    %s lb/hr\n",
                GeneralText(st.ML).c_str(), GeneralText(st.THROAT).c_str(), GeneralText(st.SIZE).c_str(),
                GeneralText(st.EFF).c_str(), GeneralText(st.ML * args.ve).c_str());
    if (!failure.empty()) std::fprintf(stderr, "Design error: %s\n", failure.c_str());
  }
  return failure.empty() ? kExitDone : kExitDesignError;
}

}  // namespace

void AddDesignCommands(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<DesignArgs>();
  auto* design = app.add_subcommand("design", "Check and design one or more cases in one session, in order");
  design->add_option("CASES", args->files, "Case files (.JET)")->required();
  design->add_flag("--json", args->json, "Print the record and results as JSON");
  design->add_flag("--grid", args->grid, "Print the debugger grid as well");
  design->add_option("--search", args->search,
                     "Interstage search: original (the program's own, the default) or thorough (every interstage "
                     "pressure over its whole range, kept only when it needs less steam)")
      ->check(CLI::IsMember({"original", "thorough"}));
  design->callback([&options, &exit_code, args] { exit_code = Design(options, *args); });

  auto stage_args = std::make_shared<StageArgs>();
  auto* stage = app.add_subcommand("stage", "Size one ejector stage for a load");
  stage->add_option("PIN", stage_args->pin, "Suction pressure, mmHgA")->required()->check(SingleNumber());
  stage->add_option("POUT", stage_args->pout, "Discharge pressure, mmHgA")->required()->check(SingleNumber());
  stage->add_option("PMOTIVE", stage_args->pmotive, "Motive pressure, psig")->required()->check(SingleNumber());
  stage->add_option("TMOTIVE", stage_args->tmotive, "Motive temperature, degF (0 saturated)")->required()->check(SingleNumber());
  stage->add_option("VE", stage_args->ve, "Water vapor equivalent load, lb/hr")->required()->check(SingleNumber());
  stage->add_flag("--json", stage_args->json, "Print the stage and its balance as JSON");
  stage->callback([&options, &exit_code, stage_args] { exit_code = Stage(options, *stage_args); });
}

}  // namespace kestrane::cli
