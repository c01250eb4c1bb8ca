// The price of a designed system built per item (ejector stages, condensers without tubes, then tubes) from the price tables.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "engine/design_context.h"

namespace kestrane {

inline constexpr std::string_view kNotComplete = "NOT COMPLETE!";
inline constexpr std::array<std::string_view, 3> kPricingIncompleteLines = {
    "Pricing could not be completed!",
    "Condenser size must be <= 42inch and materials must be steel, 304SS or 316SS.",
    "Contact Tessel Corporation for assistance."};
inline constexpr std::string_view kTubePremiumNote = "   *Note: Tubing prices shown have 50% premium over mill $";
inline constexpr std::string_view kPumpNotPricedNote = "   *Note: The liquid ring vacuum pump is not in the price tables";

// Outside diameters of the tube price columns, inches, and the gauges (BWG) of their first four values.
inline constexpr std::array<float, 6> kTubePriceOds = {0.625f, 0.75f, 0.875f, 1.0f, 1.25f, 1.5f};
inline constexpr std::array<int, 4> kTubePriceGauges = {14, 16, 18, 20};

// One line of the build-up: materials ($), shop hours, cost ($) and weight (lb).
struct PriceItem {
  std::string name;         // "AA", "A", "B", "C", "C1", "C2", "AC", "TUBES C1"...
  std::string description;  // model and material
  bool complete = true;     // false: a table has no row for it ("NOT COMPLETE!")
  bool priced = true;       // false: the price tables hold no such equipment (a liquid ring pump)
  float MATL = 0, HOURS = 0, COST = 0, WEIGHT = 0;
  int weeks = 0;            // shipment weeks
};

struct PriceBuildUp {
  std::vector<PriceItem> items;
  PriceItem total;        // the sum of the items
  bool complete = true;   // every item found its rows
  bool tubes = false;     // tubes were priced: the premium note
  bool pump = false;      // a pump stands in the train unpriced
  float BLABOR = 0;
  float DLR = 0;
  float price = 0;        // the total cost times DLR
};

// The material multiplier of a material code: 1 cast iron, 2 carbon steel, 3 304 stainless, 4 316 stainless,
// 5 cast steel, 6 cast 316; 0 for any other code.
float MaterialMultiplier(const PriceData& data, int code);

// An ejector body already priced: its model size and material code.
struct EjectorBody {
  float size = 0;
  int code = 0;
};

// One ejector stage (column 1 "C" to 4 "AA"); a column outside, or one without a stage, gives zeros. `bodies`
// holds the bodies already priced, and gets this one: a stage of the same size and body as one of them is a
// repeat and takes 0.95 of its body's table material and hours.
PriceItem EjectorItem(const DesignContext& ctx, int column, std::vector<EjectorBody>& bodies);

// One condenser without its tubes (column 1 "AC", 2 "C2", 3 "C1").
PriceItem CondenserItem(const DesignContext& ctx, int column);

// The tubes of one surface condenser.
PriceItem TubeItem(const DesignContext& ctx, int column);

// The whole build-up of the design in `ctx`, which must hold a finished run; the pricing data of ctx.data.
PriceBuildUp PriceDesign(const DesignContext& ctx);

// The breakdown as printed lines: a head, a line per item, then the total, the price and the shipment, or, when
// an item is not complete, the three lines that stop the quotation; then the notes.
std::vector<std::string> PriceBreakdownLines(const PriceBuildUp& price);

}  // namespace kestrane
