// The price build-up: ejector items from the ejector tables, condenser items from their family tables, tubes from the tube prices.
#include "pricing/price_buildup.h"

#include <algorithm>
#include <cmath>

#include "engine/results.h"
#include "properties/list_input.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kRepeatFactor = 0.95f;  // a repeated body: its patterns and set-up serve again
constexpr float kTubePremium = 1.5f;    // tubes are sold at 50 % over the mill's price

// Flange classes of a motive connection by motive pressure, psig: carbon steel flange ratings at 500 F.
constexpr struct {
  float rating;
  int flange_class;
} kFlangeClasses[] = {{140, 150}, {550, 300}, {1095, 600}, {1640, 900}, {2735, 1500}};

int MotiveClass(float psig) {
  for (const auto& c : kFlangeClasses) {
    if (psig <= c.rating) return c.flange_class;
  }
  return 0;
}

// The row of a table whose first column is `value` (to the hundredth); 0 when none is.
int RowOf(const Array2D<float>& t, float value) {
  for (int r = 1; r <= t.hi1(); ++r) {
    if (CInt(t(r, 1) * 100.0) == CInt(value * 100.0)) return r;
  }
  return 0;
}

// Materials, hours and weight before the material multiplier.
struct TableValues {
  float matl = 0, hours = 0, weight = 0;
};

// Adds table values times the material multiplier `m`; the cost is the labor of the hours and the materials.
void Add(PriceItem& item, const TableValues& v, float m, float blabor) {
  item.MATL += v.matl * m;
  item.HOURS += v.hours;
  item.COST += blabor * v.hours + v.matl * m;
  item.WEIGHT += v.weight;
}

// The difference of two table rows, `high` less `low`, for a quantity `q`: the weight once, as the rows give it.
void AddRowDifference(PriceItem& item, const TableValues& high, const TableValues& low, float q, float m, float blabor) {
  item.MATL += (high.matl - low.matl) * q * m;
  item.HOURS += (high.hours - low.hours) * q;
  item.COST += blabor * (high.hours - low.hours) * q + (high.matl - low.matl) * q * m;
  item.WEIGHT += high.weight - low.weight;
}

void Incomplete(PriceItem& item) {
  item.complete = false;
  item.MATL = item.HOURS = item.COST = item.WEIGHT = 0;
}

// The body's material code from the suction chamber: cast iron 1, steel 2, stainless 3, or 4 when the nozzle
// plate is 316SS.
int BodyCode(const InputScreen& screen) {
  switch (screen.lists[kSuctionChamberMaterial]) {
    case 0: return 1;
    case 1: return 2;
    case 2: return screen.lists[kNozzlePlateMaterial] == 2 ? 4 : 3;
    default: return 0;
  }
}

std::string CodeName(int code) {
  static const char* const names[] = {"", "CAST IRON", "STEEL", "304SS", "316SS", "CAST STEEL", "CAST 316SS"};
  return code >= 1 && code <= 6 ? names[code] : "";
}

// One connection of an ejector: the body comes with its standard size in class 150; a connection of another row
// adds the difference of the two rows (the later row less the earlier). Threaded up to 2 in, else flanged, with
// the reinforcing pad under the ASME code. False when a row is missing.
bool AddConnection(PriceItem& item, const PriceData& p, float designed, float standard, int flange_class, bool asme,
                   float m, int body_weeks) {
  if (flange_class == 0) return false;
  if (flange_class == 150 && std::fabs(designed - standard) <= 1) return true;  // the same row
  const Array2D<float>& t = p.Table("CSTA");
  auto row = [&](float size, int cls) {
    for (int r = 1; r <= t.hi1(); ++r) {
      if (CInt(t(r, 1) * 100.0) == CInt(size * 100.0) && CInt(t(r, 2)) == cls) return r;
    }
    return 0;
  };
  const int a = row(designed, flange_class), b = row(standard, 150);
  if (a == 0 || b == 0) return false;
  if (a == b) return true;
  auto values = [&](int r) {
    const bool threaded = t(r, 1) <= 2;
    const int c = threaded ? 6 : 3;
    TableValues v{t(r, c), t(r, c + 1), t(r, c + 2)};
    if (asme && !threaded) v = {v.matl + t(r, 9), v.hours + t(r, 10), v.weight + t(r, 11)};
    return v;
  };
  const int high = std::max(a, b), low = std::min(a, b);
  AddRowDifference(item, values(high), values(low), 1, m, p.BLABOR);
  item.weeks = std::max(item.weeks, body_weeks + CInt(t(high, 12)));
  return true;
}

// The family table of a condenser: group letter by type and code, then the process and water side materials.
std::string FamilyName(const DesignCase& dc, const InputScreen& screen) {
  const int code = screen.lists[kCNDCode];
  const char group = dc.CNDTYPE == 2 ? 'B' : (code == 4 || code == 5) ? 'R' : dc.CNDTS == 1 ? 'C' : 'X';
  static const char* const metal[] = {"STL", "304", "316"};
  const int process = screen.lists[kProcessSideMaterial], water = screen.lists[kWaterSideMaterial];
  if (process < 0 || process > 2 || water < 0 || water > 2) return "";
  std::string family;
  if (process == 0 && water == 0) {
    family = "ALLSTL";
  } else if (process == water) {
    family = std::string(metal[process]) + "SS";
  } else if (process == 0 || water == 0) {
    family = std::string(metal[process]) + metal[water];
  } else {
    return "";  // 304 with 316: no family
  }
  return group + family;
}

// The extra condenser nozzles: the base price includes a nozzle up to the largest size its shell carries; a
// larger one adds the difference of the two rows. False when a nozzle is larger than the table.
bool AddNozzles(PriceItem& item, const PriceData& p, const DesignCase& dc, const InputScreen& screen, int col) {
  const Array2D<float>& t = p.Table("EXTRANOZ");
  const int group = screen.lists[kProcessSideMaterial] == 0 ? 1 : 2;
  const float shell = dc.CND(col, kCndOD);
  int included = 0;
  for (int r = 1; r <= t.hi1(); ++r) {
    if (CInt(t(r, 2)) == group && t(r, 6) <= shell) included = r;
  }
  const float included_size = included ? t(included, 1) : 0;
  const int base_weeks = item.weeks;
  auto nozzle = [&](float size, float q) {
    if (size <= included_size + 1) return true;  // within 1 of the included size: the same row
    for (int r = 1; r <= t.hi1(); ++r) {
      if (CInt(t(r, 2)) == group && t(r, 1) >= size) {
        const TableValues high{t(r, 3), t(r, 4), t(r, 5)};
        const TableValues low = included ? TableValues{t(included, 3), t(included, 4), t(included, 5)} : TableValues{};
        AddRowDifference(item, high, low, q, 1, p.BLABOR);
        item.weeks = std::max(item.weeks, base_weeks + CInt(t(r, 7)));
        return true;
      }
    }
    return false;
  };
  const float wi = dc.CND(col, kCndDIAWI), wo = dc.CND(col, kCndDIAWO);
  bool ok = nozzle(dc.CND(col, kCndDIAVI), 1) && nozzle(dc.CND(col, kCndDIAVO), 1) && nozzle(dc.CND(col, kCndDIACOUT), 1);
  ok = ok && (wi == wo ? nozzle(wi, 2) : nozzle(wi, 1) && nozzle(wo, 1));
  return ok;
}

// The program's material of a tube list entry.
int TubeMaterial(const Constants& c, const InputScreen& screen) {
  static const struct {
    std::string_view entry, material;
  } renamed[] = {{"ALUMINUM BRASS", "ALUM BR"}, {"70/30 CUNI", "70/30 CU NI"}, {"90/10 CUNI", "90/10 CU NI"},
                 {"TITANIUM GR-2", "TI GR 2"}};
  std::string_view name = ListText(screen, kTubeMaterial);
  for (const auto& r : renamed) {
    if (name == r.entry) name = r.material;
  }
  if (name.empty()) return 0;
  for (int i = 1; i <= c.MATERIALNAME.size(); ++i) {
    if (Trim(c.MATERIALNAME(i)) == name) return i;
  }
  return 0;
}

}  // namespace

float MaterialMultiplier(const PriceData& data, int code) {
  switch (code) {
    case 1: return data.AMFCI;
    case 2: return data.AMFSTEEL;
    case 3: return data.AMF304;
    case 4: return data.AMF316;
    case 5: return data.AMFCASTSTL;
    case 6: return data.AMFCAST316;
    default: return 0;
  }
}

PriceItem EjectorItem(const DesignContext& ctx, int column, std::vector<EjectorBody>& bodies) {
  const DesignCase& dc = ctx.dc;
  const PriceData& p = ctx.data.pricing;
  PriceItem item;
  if (column < 1 || column > 4 || column > dc.NSTAGES) return item;
  item.name = ctx.data.constants.STAGENAME(column);
  item.description = EjectorModel(ctx, column);
  if (dc.USELRVP == 1 && column == kStageC) {
    item.priced = false;
    return item;
  }
  const float size = dc.STG(column, kStgSIZE);
  const Array2D<float>& fab = p.Table("CSTC");
  const Array2D<float>& cast = p.Table("CASTJETS");
  const int r = RowOf(fab, size);
  int code = BodyCode(ctx.screen);
  if (r == 0 || RowOf(cast, size) != r || code == 0) {
    Incomplete(item);
    return item;
  }
  // Small bodies are cast in every material, cast iron ones up to the largest pattern, the rest fabricated.
  const int cast_flag = CInt(cast(r, 2));
  bool use_cast = false;
  if (code == 1) {
    if (cast_flag < 1) {
      Incomplete(item);
      return item;
    }
    use_cast = true;
  } else if (cast_flag == 2) {
    code = code == 2 ? 5 : 6;
    use_cast = true;
  }
  item.description += " " + CodeName(code);
  const float m = MaterialMultiplier(p, code);
  const TableValues body = use_cast ? TableValues{cast(r, 3), cast(r, 4), cast(r, 5)}
                                    : TableValues{fab(r, 2), fab(r, 3), fab(r, 4)};
  const bool repeat = std::any_of(bodies.begin(), bodies.end(), [&](const EjectorBody& b) {
    return CInt(b.size * 100.0) == CInt(size * 100.0) && b.code == code;
  });
  bodies.push_back({size, code});
  if (repeat) {
    item.MATL = body.matl * kRepeatFactor * m;
    item.HOURS = body.hours * kRepeatFactor;
    item.COST = body.hours * kRepeatFactor * p.BLABOR + body.matl * kRepeatFactor * m;
  } else {
    item.MATL = m * body.matl;
    item.HOURS = body.hours;
    item.COST = p.BLABOR * item.HOURS + item.MATL;
  }
  item.WEIGHT = body.weight;
  item.weeks = CInt(use_cast ? cast(r, 10) : fab(r, 15));

  // The design code's additions: ASME Sect. VIII, or the HEI performance test.
  const int jet_code = ctx.screen.lists[kJetCode];
  const int code_column = jet_code == 1 ? (use_cast ? 6 : 5) : jet_code == 2 ? (use_cast ? 8 : 7) : 0;
  if (code_column != 0) {
    const Array2D<float>& t = use_cast ? cast : fab;
    Add(item, {t(r, code_column), t(r, code_column + 1), 0}, m, p.BLABOR);
  }
  // The steam nozzle in its own material: 416 and 304 bar as 304, else 316.
  const float nozzle_m = MaterialMultiplier(p, ctx.screen.lists[kSteamNozzleMaterial] == 2 ? 4 : 3);
  Add(item, {fab(r, 12), fab(r, 13), fab(r, 14)}, nozzle_m, p.BLABOR);

  const bool asme = jet_code == 1;
  const int body_weeks = item.weeks;
  const bool connections =
      AddConnection(item, p, dc.STG(column, kStgDIAS), fab(r, 9), 150, asme, m, body_weeks) &&
      AddConnection(item, p, dc.STG(column, kStgDIAD), fab(r, 10), 150, asme, m, body_weeks) &&
      AddConnection(item, p, dc.STG(column, kStgDIAM), fab(r, 11), MotiveClass(dc.PMOTIVE), asme, m, body_weeks);
  if (!connections) Incomplete(item);
  return item;
}

PriceItem CondenserItem(const DesignContext& ctx, int column) {
  const DesignCase& dc = ctx.dc;
  const PriceData& p = ctx.data.pricing;
  PriceItem item;
  item.name = CondenserName(column);
  const std::string family = FamilyName(dc, ctx.screen);
  const std::string model = dc.CNDTYPE == 2 ? "BAROMETRIC " + GeneralText(dc.CND(column, kCndOD)) + "in"
                                             : CondenserDescription(ctx, column, false);
  item.description = model + " " + family;
  const Array2D<float>& t = p.Table(family);
  const float shell = dc.CND(column, kCndOD);
  int r = 0;
  for (int i = 1; i <= t.hi1() && r == 0; ++i) {
    if (std::fabs(t(i, 1) - shell) < 0.5f) r = i;
  }
  if (family.empty() || r == 0) {
    Incomplete(item);
    return item;
  }
  // Base at 6 ft and the slope per foot beyond.
  const float x = dc.CND(column, kCndTL) - 6;
  item.MATL = t(r, 3) + x * t(r, 6);
  item.HOURS = t(r, 4) + x * t(r, 7);
  item.WEIGHT = t(r, 5) + x * t(r, 8);
  item.weeks = CInt(t(r, 2));
  // Channels with covers in place of bonnets, on the standard horizontal condensers.
  if (family[0] == 'X') {
    static const char* const water[] = {"STL", "304", "316"};
    const int channels = (ctx.screen.lists[kInletHead] == 1 ? 1 : 0) + (ctx.screen.lists[kReturnHead] == 1 ? 1 : 0);
    const Array2D<float>& ch = p.Table(std::string("X") + water[ctx.screen.lists[kWaterSideMaterial]] + "CHAN");
    if (channels > 0) {
      item.MATL += channels * (ch(r, 3) + x * ch(r, 6));
      item.HOURS += channels * (ch(r, 4) + x * ch(r, 7));
      item.WEIGHT += channels * (ch(r, 5) + x * ch(r, 8));
      item.weeks += CInt(ch(r, 2));
    }
  }
  // Design pressure: the higher of the two sides adds its percent to the shell's steel and work.
  const float pressure = static_cast<float>(std::max(Val(ctx.screen.txtDesign[0]), Val(ctx.screen.txtDesign[2])));
  const Array2D<float>& pct = p.Table("PCTSTLCF");
  int pr = 0;
  for (int i = 1; i <= pct.hi1() && pr == 0; ++i) {
    if (pct(i, 1) >= pressure) pr = i;
  }
  if (pr == 0) {
    Incomplete(item);
    return item;
  }
  const float factor = 1 + pct(pr, 2) / 100;
  item.MATL *= factor;
  item.HOURS *= factor;
  item.WEIGHT *= factor;
  item.COST = p.BLABOR * item.HOURS + item.MATL;
  if (!AddNozzles(item, p, dc, ctx.screen, column)) Incomplete(item);
  return item;
}

PriceItem TubeItem(const DesignContext& ctx, int column) {
  const DesignCase& dc = ctx.dc;
  const PriceData& p = ctx.data.pricing;
  PriceItem item;
  item.name = std::string("TUBES ") + CondenserName(column);
  const float od = dc.CND(column, kCndTOD), wall = dc.CND(column, kCndWALL);
  const float tl = dc.CND(column, kCndTL), tubes = dc.CND(column, kCndTUBES);
  const auto& gauges = ctx.data.constants.BWGWALL;
  int bwg = 0;
  for (int i = 1; i <= gauges.size(); ++i) {
    if (std::fabs(gauges(i) - wall) < 0.0005f) bwg = i + 6;
  }
  item.description = std::string(ListText(ctx.screen, kTubeMaterial)) + " " + GeneralText(od) + "in BWG" +
                      std::to_string(bwg) + " " + GeneralText(tubes) + "x" + GeneralText(tl) + "ft";
  const int material = TubeMaterial(ctx.data.constants, ctx.screen);
  const int group = material >= 1 && material <= kTubeIndexCount / 4 ? p.TUBEIDX((material - 1) * 4 + 1) : 0;
  int size = 0, gauge = 0;
  for (size_t i = 0; i < kTubePriceOds.size(); ++i) {
    if (std::fabs(kTubePriceOds[i] - od) < 0.01f) size = static_cast<int>(i) + 1;
  }
  // A gauge between the priced ones is priced at the next heavier.
  for (size_t i = 0; i < kTubePriceGauges.size(); ++i) {
    if (kTubePriceGauges[i] <= bwg) gauge = static_cast<int>(i) + 1;
  }
  if (group < 1 || group > kTubeGroups || size == 0 || gauge == 0) {
    Incomplete(item);
    return item;
  }
  const float density = p.TUBEIDX((material - 1) * 4 + 2) / 1728.0f;  // lb/in3
  const float bore = od - 2 * wall;
  const float area = od * od * 3.1416f / 4 - bore * bore * 3.1416f / 4;  // metal per foot, in2
  item.WEIGHT = area * tl * 12 * tubes * density;
  const float feet = std::max(tl * tubes, static_cast<float>(p.TUBEIDX((material - 1) * 4 + 4)));
  item.MATL = p.TUBEPRC(group, size, gauge) * kTubePremium * feet;
  item.HOURS = p.TUBEPRC(group, size, kTubeValues) * tubes;
  item.COST = p.BLABOR * item.HOURS + item.MATL;
  item.weeks = p.TUBEIDX((material - 1) * 4 + 3);
  return item;
}

PriceBuildUp PriceDesign(const DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  PriceBuildUp b;
  b.BLABOR = ctx.data.pricing.BLABOR;
  b.DLR = ctx.data.pricing.DLR;
  std::vector<EjectorBody> bodies;
  for (int c = 4; c >= 1; --c) {
    if (c <= dc.NSTAGES) b.items.push_back(EjectorItem(ctx, c, bodies));
  }
  const std::vector<int> condensers = CondensersPresent(dc);
  for (int col : condensers) b.items.push_back(CondenserItem(ctx, col));
  for (int col : condensers) {
    if (dc.CNDTYPE == 1 && dc.CND(col, kCndTUBES) > 0) {
      b.items.push_back(TubeItem(ctx, col));
      b.tubes = true;
    }
  }
  b.total.name = "TOTAL";
  for (const PriceItem& item : b.items) {
    if (!item.priced) {
      b.pump = true;
      continue;
    }
    b.complete = b.complete && item.complete;
    b.total.MATL += item.MATL;
    b.total.HOURS += item.HOURS;
    b.total.COST += item.COST;
    b.total.WEIGHT += item.WEIGHT;
    b.total.weeks = std::max(b.total.weeks, item.weeks);
  }
  b.total.complete = b.complete;
  b.price = b.total.COST * b.DLR;
  return b;
}

std::vector<std::string> PriceBreakdownLines(const PriceBuildUp& price) {
  auto line = [](const PriceItem& item) {
    std::string text(40, ' ');
    PlaceInField(-1, text, item.name, 1);
    PlaceInField(-1, text, CutTo(item.description, 30), 10);
    if (!item.priced) return RTrim(text) + "  not priced";
    if (!item.complete) return text + std::string(kNotComplete);
    return text + FormatFixed(item.MATL, 11.2f) + FormatFixed(item.HOURS, 9.1f) + FormatFixed(item.COST, 12.2f) +
           FormatFixed(item.WEIGHT, 10.0f) + FormatFixed(static_cast<float>(item.weeks), 7.0f);
  };
  // The head's captions end where their columns' numbers end.
  const auto right = [](const std::string& text, size_t width) { return std::string(width - text.size(), ' ') + text; };
  std::string head(40, ' ');
  PlaceInField(-1, head, "ITEM", 1);
  PlaceInField(-1, head, "DESCRIPTION", 10);
  head += right("MATL $", 11) + right("HOURS", 9) + right("COST $", 12) + right("WEIGHT lb", 10) + right("WEEKS", 7);
  std::vector<std::string> lines = {head, std::string(head.size(), '-')};
  for (const PriceItem& item : price.items) lines.push_back(line(item));
  lines.push_back(lines[1]);
  if (!price.complete) {
    for (std::string_view l : kPricingIncompleteLines) lines.emplace_back(l);
  } else {
    lines.push_back(line(price.total));
    lines.push_back("");
    lines.push_back("Labor rate (BLABOR), $/hour:  " + Trim(FormatFixed(price.BLABOR, 12.2f)));
    lines.push_back("Price, cost x " + Trim(FormatFixed(price.DLR, 8.2f)) + " (DLR), $:  " +
                    Trim(FormatFixed(price.price, 14.2f)));
    lines.push_back("Shipment, weeks after approval:  " + std::to_string(price.total.weeks));
  }
  if (price.tubes) lines.emplace_back(kTubePremiumNote);
  if (price.pump) lines.emplace_back(kPumpNotPricedNote);
  return lines;
}

}  // namespace kestrane
