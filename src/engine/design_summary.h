// What a design run computed, by name: annual cost, the stages with their pressures, the condensers with their
// duties, the pump against its duty and the loads by vapor; in standard units, and as screen blocks in either.
#pragma once

#include <string>
#include <vector>

#include "engine/design_context.h"
#include "engine/results.h"

namespace kestrane {

struct AnnualCost {
  float total = 0, steam = 0, water = 0, power = 0;  // $/yr
};

// One stage, from the highest down to C.
struct StageSummary {
  std::string name;   // "AAA" .. "C"
  std::string model;  // as the results screen shows it
  bool pump = false;  // stage C is the liquid ring pump
  float motive_lb_hr = 0;
  float suction_mmhga = 0, discharge_mmhga = 0;
  float compression_ratio = 0;  // discharge over suction pressure, 0 when no suction pressure
  float suction_in = 0, discharge_in = 0, motive_in = 0;  // connections, inches
};

// One condenser, in the order of flow.
struct CondenserSummary {
  std::string name;   // "C1", "C2", "AC"
  std::string role;   // "precondenser", "intercondenser", "after condenser"
  std::string model;  // as the results screen shows it in standard units
  std::string type;   // "surface" or "direct contact"
  float area_ft2 = 0;
  float water_gpm = 0;
  float water_in_f = 0, water_out_f = 0;
  float water_dp_psi = 0;
  float duty_btu_hr = 0;  // the heat load the condenser was designed for
  float inlet_mmhga = 0, outlet_mmhga = 0;
  float vent_f = 0;  // saturation temperature at the outlet, where the gas leaves
};

struct PumpSummary {
  bool present = false;
  std::string model;
  float capacity_acfm = 0;  // the chosen pump's corrected capacity
  float duty_acfm = 0;      // the volume the load needs at its suction
  float condensed_duty_acfm = 0;  // that volume less what condenses in the ring
  float capacity_ratio = 0;       // capacity over the condensed duty
  float brake_hp = 0, motor_hp = 0;
  float seal_water_gpm = 0, seal_out_f = 0;
};

struct LoadSummary {
  int id = 0;         // vapor ID: positive built-in, negative user defined, 0 water or non-condensible
  std::string name;   // the vapor's name; "WATER" for water vapor, "NON-CONDENSIBLE" for a gas
  std::string kind;   // "water vapor", "condensible", "non-condensible"
  float flow_lb_hr = 0;
  float mw = 0;
};

struct DesignSummary {
  AnnualCost annual_cost;
  float motive_steam_lb_hr = 0, water_gpm = 0, power_kw = 0;
  std::vector<StageSummary> stages;
  std::vector<CondenserSummary> condensers;
  PumpSummary pump;
  std::vector<LoadSummary> loads;
};

// The summary of the case's record after a good run.
DesignSummary SummarizeDesign(const DesignContext& ctx);

// The summary as screen blocks beside the results: annual cost, stage pressures, condenser duties, the pump's
// capacity against its duty and the loads, in metric units when asked.
std::vector<ResultsBlock> SummaryBlocks(const DesignSummary& summary, bool metric);

}  // namespace kestrane
