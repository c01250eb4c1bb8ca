// What a design run computed, by name, from the case's record: costs, stages, condensers, pump and loads.
#include "engine/design_summary.h"

#include "engine/stage_results.h"
#include "properties/numeric.h"
#include "properties/unit_factors.h"
#include "properties/vb.h"
#include "pump/pump_selection.h"

namespace kestrane {

namespace {

constexpr float kBtuHrPerKw = 3412.1416f;  // International Table Btu per hour in a kilowatt

// Where a condenser stands in the train: before the first stage, between two stages, or after the last.
std::string CondenserRole(const DesignCase& dc, int col) {
  if ((col == kCondC1 && dc.NSTAGES == 2) || (col == kCondC2 && dc.NSTAGES == 1)) return "precondenser";
  return col == kCondAC ? "after condenser" : "intercondenser";
}

}  // namespace

DesignSummary SummarizeDesign(const DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  DesignSummary s;
  s.annual_cost = {dc.TOTALS(kTotalAnnualCost), dc.TOTALS(kTotalSteamCost), dc.TOTALS(kTotalWaterCost),
                   dc.TOTALS(kTotalPowerCost)};
  s.motive_steam_lb_hr = dc.TOTALS(kTotalMotive);
  s.water_gpm = dc.TOTALS(kTotalWater);
  s.power_kw = dc.TOTALS(kTotalPower);

  for (int c = dc.NSTAGES; c >= 1; --c) {
    StageSummary st;
    st.name = ctx.data.constants.STAGENAME(c);
    st.model = Trim(EjectorModel(ctx, c));
    st.pump = dc.USELRVP == 1 && c == kStageC;
    st.motive_lb_hr = dc.STG(c, kStgMOTIVE);
    st.suction_mmhga = dc.STG(c, kStgPIN);
    st.discharge_mmhga = dc.STG(c, kStgPOUT);
    st.compression_ratio = st.suction_mmhga > 0 ? st.discharge_mmhga / st.suction_mmhga : 0.0f;
    st.suction_in = dc.STG(c, kStgDIAS);
    st.discharge_in = dc.STG(c, kStgDIAD);
    st.motive_in = dc.STG(c, kStgDIAM);
    s.stages.push_back(st);
  }

  for (int col : CondensersPresent(dc)) {
    CondenserSummary cs;
    cs.name = CondenserName(col);
    cs.role = CondenserRole(dc, col);
    cs.model = CondenserModel(ctx, col);
    cs.type = dc.CNDTYPE == 2 ? "direct contact" : "surface";
    cs.area_ft2 = dc.CND(col, kCndAREA);
    cs.water_gpm = dc.CND(col, kCndGPMUSE);
    cs.water_in_f = dc.CND(col, kCndWATERIN);
    cs.water_out_f = dc.CND(col, kCndWATEROUT);
    cs.water_dp_psi = dc.CND(col, kCndDELTAP);
    cs.duty_btu_hr = dc.CND(col, kCndQNOSUB);
    cs.inlet_mmhga = dc.CND(col, kCndPIN);
    cs.outlet_mmhga = dc.CND(col, kCndPOUT);
    cs.vent_f = dc.CND(col, kCndTSAT);
    s.condensers.push_back(cs);
  }

  if (const PumpRecord* designed = DesignedPump(ctx)) {
    PumpSummary& p = s.pump;
    p.present = true;
    p.model = Trim(designed->MODEL);
    p.capacity_acfm = dc.LRVPRES(kLrvpCapacity, 1);
    p.duty_acfm = dc.LRVPRES(kLrvpAcfm, 1);
    p.capacity_ratio = dc.LRVPRES(kLrvpRatio, 1);
    p.condensed_duty_acfm = p.duty_acfm / dc.LRVPRES(kLrvpCondensation, 1);
    p.brake_hp = dc.LRVPRES(kLrvpPower, 1);
    p.motor_hp = dc.LRVPRES(kLrvpMotor, 1);
    p.seal_water_gpm = dc.LRVPRES(kLrvpSeal, 1);
    p.seal_out_f = dc.LRVPRES(kLrvpSealOut, 1);
  }

  for (int load = 1; load <= dc.NLOADS; ++load) {
    LoadSummary l;
    l.id = static_cast<int>(dc.LOADS(kLoadID, load));
    l.flow_lb_hr = dc.LOADS(kLoadPPH, load);
    l.mw = dc.LOADS(kLoadMW, load);
    if (load == 1) {
      l.kind = "water vapor";
      l.name = "WATER";
    } else if (l.id != 0) {
      l.kind = "condensible";
      l.name = VaporName(ctx.data.vapors, ctx.data.user_vapors, l.id);
    } else {
      l.kind = "non-condensible";
      l.name = "NON-CONDENSIBLE";
    }
    s.loads.push_back(l);
  }
  return s;
}

std::vector<ResultsBlock> SummaryBlocks(const DesignSummary& s, bool metric) {
  std::vector<ResultsBlock> blocks;
  // Pressures and temperatures in metric as the input screen pairs them.
  const auto shown = [metric](Quantity q, float standard) { return metric ? Convert(q, standard, true) : standard; };
  const auto pressure = [&shown](float mmhga) { return FormatFixed(shown(Quantity::kPressureMmHg, mmhga), 10.2f); };
  const auto temperature = [&shown](float f) { return FormatFixed(shown(Quantity::kTemperature, f), 6.1f); };
  const char* pressure_unit = metric ? "(KpaA)" : "(mmHgA)";
  const char* temperature_unit = metric ? "(degC)" : "(degF)";

  ResultsBlock cost;
  cost.title = "Annual Utility Cost";
  cost.captions = {"Steam ($/yr)", "Water ($/yr)", "Power ($/yr)", "Total ($/yr)"};
  cost.heads = {""};
  cost.columns = {{FormatFixed(s.annual_cost.steam, 12.0f), FormatFixed(s.annual_cost.water, 12.0f),
                   FormatFixed(s.annual_cost.power, 12.0f), FormatFixed(s.annual_cost.total, 12.0f)}};
  blocks.push_back(cost);

  ResultsBlock stages;
  stages.title = "Stage Pressures";
  stages.captions = {std::string("Suction ") + pressure_unit, std::string("Discharge ") + pressure_unit,
                     "Compression Ratio"};
  for (const StageSummary& st : s.stages) {
    stages.heads.push_back(st.pump ? st.name + " (LRVP)" : st.name);
    stages.columns.push_back(
        {pressure(st.suction_mmhga), pressure(st.discharge_mmhga), FormatFixed(st.compression_ratio, 8.2f)});
  }
  blocks.push_back(stages);

  if (!s.condensers.empty()) {
    ResultsBlock cond;
    cond.title = "Condenser Duties";
    cond.captions = {"Place in Train",
                     metric ? "Duty (KW)" : "Duty (Btu/hr)",
                     std::string("Inlet Pressure ") + pressure_unit,
                     std::string("Outlet Pressure ") + pressure_unit,
                     std::string("Vent Temperature ") + temperature_unit};
    for (const CondenserSummary& cs : s.condensers) {
      cond.heads.push_back(cs.name);
      cond.columns.push_back({std::string(cs.role),
                              metric ? FormatFixed(cs.duty_btu_hr / kBtuHrPerKw, 10.1f) : FormatFixed(cs.duty_btu_hr, 12.0f),
                              pressure(cs.inlet_mmhga), pressure(cs.outlet_mmhga), temperature(cs.vent_f)});
    }
    blocks.push_back(cond);
  }

  if (s.pump.present) {
    ResultsBlock pump;
    pump.title = "Pump Capacity";
    const float volume = metric ? kM3hPerCfm : 1.0f;
    pump.captions = {metric ? "Capacity (M3/hr)" : "Capacity (ACFM)",
                     metric ? "Duty at Suction (M3/hr)" : "Duty at Suction (ACFM)",
                     metric ? "Duty less Ring Condensation (M3/hr)" : "Duty less Ring Condensation (ACFM)",
                     "Capacity / Duty"};
    pump.heads = {""};
    pump.columns = {{FormatFixed(s.pump.capacity_acfm * volume, 8.1f), FormatFixed(s.pump.duty_acfm * volume, 8.1f),
                     FormatFixed(s.pump.condensed_duty_acfm * volume, 8.1f), FormatFixed(s.pump.capacity_ratio, 8.2f)}};
    blocks.push_back(pump);
  }

  ResultsBlock loads;
  loads.title = "Loads";
  loads.heads = {"ID", metric ? "Flow (kg/hr)" : "Flow (#/hr)", "Mol. Wt."};
  loads.columns.resize(3);
  for (const LoadSummary& l : s.loads) {
    loads.captions.push_back(l.name.empty() ? "(no such vapor)" : l.name);
    loads.columns[0].push_back(std::to_string(l.id));
    loads.columns[1].push_back(FormatFixed(metric ? l.flow_lb_hr / kLbPerKgSingle : l.flow_lb_hr, 10.1f));
    loads.columns[2].push_back(FormatFixed(l.mw, 6.1f));
  }
  blocks.push_back(loads);
  return blocks;
}

}  // namespace kestrane
