// The process flow diagram: the train's equipment in flow order on one sheet, its streams, utilities and labels.
#include "drawings/flow_diagram.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "case/input_screen.h"
#include "drawings/drawing_builder.h"
#include "engine/design_summary.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "properties/unit_factors.h"
#include "properties/vb.h"
#include "pump/pump_selection.h"

namespace kestrane {

namespace {

// Rows of the sheet (inches): the motive steam header, the process line through the ejectors and the pump, the
// condensers' centres below it, and the foot of the condensate legs.
constexpr float kHeaderY = 8.5f;
constexpr float kLineY = 6.4f;
constexpr float kCondenserY = 4.1f;
constexpr float kHotwellY = 2.1f;
// Columns: the process inlet and the discharge at the sheet's sides, the equipment evenly between.
constexpr float kInletX = 0.5f, kDischargeX = 14.5f;
constexpr float kFirstX = 2.1f, kLastX = 12.9f;
constexpr float kMaxPitch = 2.6f;
// Symbol sizes.
constexpr float kEjectorLength = 1.1f, kEjectorHeight = 0.36f;
constexpr float kMotiveX = -0.35f * kEjectorLength;  // the motive inlet from the ejector's centre
constexpr float kShellLength = 1.3f, kShellDiameter = 0.5f, kNozzleX = 0.3f;
constexpr float kBaroWidth = 0.5f, kBaroHeight = 1.4f;
constexpr float kPumpRadius = 0.32f;
// Text heights.
constexpr float kLabelHeight = 0.08f, kNameHeight = 0.1f;
// A label that would overlap another slides down by this much at a time.
constexpr float kSlide = 0.1f;
constexpr int kMaxSlides = 15;

// Values as the diagram writes them, in the case's units: metric ones converted as the input screen pairs them.
struct Units {
  bool metric;
  float Shown(Quantity q, float standard) const { return metric ? Convert(q, standard, true) : standard; }
  std::string Pressure(float mmhga) const {
    return FormatFixed(Shown(Quantity::kPressureMmHg, mmhga), metric ? 0.3f : 0.2f) + (metric ? " KPaA" : " mmHgA");
  }
  std::string Temperature(float f) const {
    return FormatFixed(Shown(Quantity::kTemperature, f), 0.1f) + (metric ? " degC" : " degF");
  }
  std::string Flow(float lb_hr) const {
    return FormatFixed(Shown(Quantity::kFlow, lb_hr), 0.1f) + (metric ? " kg/h" : " lb/hr");
  }
  std::string Water(float gpm) const {
    return metric ? FormatFixed(gpm * kM3hPerGpm, 0.1f) + " M3/h" : FormatFixed(gpm, 0.1f) + " gpm";
  }
  std::string Steam(float psig) const {
    return FormatFixed(Shown(Quantity::kPressurePsig, psig), metric ? 0.2f : 0.1f) + (metric ? " barg" : " psig");
  }
};

// A stream's pressure, temperature and flow where it leaves a piece of equipment.
struct StreamState {
  float p_mmhga = 0, t_f = 0, w_lb_hr = 0;
};

// A piece of equipment on the sheet: its column, the way from the process line to its inlet and from its outlet
// back to the line, and what leaves it.
struct Placed {
  EquipmentSlot slot;
  float x = 0;
  std::vector<DrawingPoint> entry, exit;
  float inlet_mmhga = 0;
  StreamState out;
  float condensed_lb_hr = 0;  // a condenser's condensate
  bool OnLine() const { return slot.kind == EquipmentSlot::kEjector || slot.kind == EquipmentSlot::kPump; }
};

// Texts and labels placed so far, so that a new label finds room beside them.
struct Sheet {
  Drawing& d;
  std::vector<LabelBox> taken;

  bool Free(const LabelBox& b) const {
    return std::none_of(taken.begin(), taken.end(), [&b](const LabelBox& t) {
      return b.x1 < t.x2 && t.x1 < b.x2 && b.y1 < t.y2 && t.y1 < b.y2;
    });
  }
  void Text(float x, float y, float height, int16_t justify, const std::string& text) {
    const TextBoxResult box = TextBox(d, x, y, height, justify, 0, 500, text);
    taken.push_back({box.x[0], box.y[0], box.x[1], box.y[2]});
    AddText(d, x, y, height, justify, text);
  }
  // A label at its place, or as little below it as leaves it clear of the others.
  void Label(float x, float y, int16_t align, const std::string& text) {
    for (int i = 0; i < kMaxSlides && !Free(StreamLabelBox(d, x, y, align, kLabelHeight, text)); ++i) y -= kSlide;
    taken.push_back(StreamLabelBox(d, x, y, align, kLabelHeight, text));
    AddStreamLabel(d, x, y, align, kLabelHeight, text);
  }
};

// A text of several lines.
std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& l : lines) text += (text.empty() ? "" : "||") + l;
  return text;
}

std::string StreamText(const Units& u, const StreamState& s) {
  return Lines({u.Pressure(s.p_mmhga), u.Temperature(s.t_f), u.Flow(s.w_lb_hr)});
}

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

// The loads stage column `c` compresses, lb/hr.
float StageLoad(const DesignCase& dc, int c) {
  float sum = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) sum += dc.STGLOAD(load, c);
  return sum;
}

// What leaves condenser column `col` when `leaving`, else what it condenses, lb/hr.
float CondenserLoad(const DesignCase& dc, int col, bool leaving) {
  float sum = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    sum += leaving ? dc.CNDLOAD(load, 2, col) : dc.CNDLOAD(load, 1, col) - dc.CNDLOAD(load, 2, col);
  }
  return sum;
}

// The equipment in columns from the suction side, each with its ways in and out and its outlet stream.
std::vector<Placed> PlaceEquipment(const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  std::vector<Placed> placed;
  const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, metric);
  const float pitch = std::min(kMaxPitch, (kLastX - kFirstX) / static_cast<float>(std::max<size_t>(slots.size(), 1)));
  const float start = (kFirstX + kLastX - pitch * static_cast<float>(slots.size())) / 2;
  for (size_t i = 0; i < slots.size(); ++i) {
    Placed p{slots[i], start + pitch * (static_cast<float>(i) + 0.5f), {}, {}, 0, {}, 0};
    const float x = p.x;
    const int k = p.slot.index;
    switch (p.slot.kind) {
      case EquipmentSlot::kEjector:
      case EquipmentSlot::kPump: {
        const float half = p.slot.kind == EquipmentSlot::kPump ? kPumpRadius : kEjectorLength / 2;
        p.entry = {{x - half, kLineY}};
        p.exit = {{x + half, kLineY}};
        p.inlet_mmhga = dc.STG(k, kStgPIN);
        p.out = {dc.STG(k, kStgPOUT), dc.STG(k, kStgTD), StageLoad(dc, k) + dc.STG(k, kStgMOTIVE)};
        // A pump's gas leaves at the temperature of its seal water.
        if (p.slot.kind == EquipmentSlot::kPump && DesignedPump(ctx) != nullptr) p.out.t_f = dc.LRVPRES(kLrvpSealOut, 1);
        break;
      }
      case EquipmentSlot::kSurface: {
        const float top = kCondenserY + kShellDiameter / 2;
        p.entry = {{x - kNozzleX, kLineY}, {x - kNozzleX, top}};
        p.exit = {{x + kNozzleX, top}, {x + kNozzleX, kLineY}};
        break;
      }
      case EquipmentSlot::kBarometric: {
        const float side = kCondenserY + 0.1f * kBaroHeight, wall = x - kBaroWidth / 2;
        p.entry = {{wall - kNozzleX, kLineY}, {wall - kNozzleX, side}, {wall, side}};
        p.exit = {{x, kCondenserY + kBaroHeight / 2}, {x, kLineY}};
        break;
      }
    }
    if (!p.OnLine()) {
      p.inlet_mmhga = dc.CND(k, kCndPIN);
      p.out = {dc.CND(k, kCndPOUT), dc.CND(k, kCndTSAT), CondenserLoad(dc, k, true)};
      p.condensed_lb_hr = CondenserLoad(dc, k, false);
    }
    placed.push_back(p);
  }
  return placed;
}

void DrawEjector(Sheet& s, const Placed& p, const StageSummary& stage, const Units& u) {
  AddEjectorSymbol(s.d, p.x, kLineY, kEjectorLength, kEjectorHeight, kSymbolLayerBase + p.slot.kind);
  const float drop = p.x + kMotiveX;
  AddStreamArrow(s.d, {{drop, kHeaderY}, {drop, kLineY + kEjectorHeight / 2}});
  s.Text(drop + 0.1f, kLineY + 0.45f, kNameHeight, 1, "STAGE " + stage.name);
  s.Text(drop + 0.1f, kLineY + 0.25f, kLabelHeight, 1, Trim(p.slot.caption));
  s.Label(drop + 0.1f, (kHeaderY + kLineY) / 2 + 0.3f, 2, Lines({"MOTIVE", u.Flow(stage.motive_lb_hr)}));
}

void DrawPump(Sheet& s, const Placed& p, const PumpSummary& pump, const Units& u) {
  AddLiquidRingPumpSymbol(s.d, p.x, kLineY, kPumpRadius, kSymbolLayerBase + p.slot.kind);
  s.Text(p.x, kLineY + 0.82f, kNameHeight, 4, "LIQUID RING PUMP");
  s.Text(p.x, kLineY + 0.62f, kLabelHeight, 4, Trim(p.slot.caption));
  if (pump.present) s.Text(p.x, kLineY + 0.42f, kLabelHeight, 4, pump.model);
  const float bottom = kLineY - kPumpRadius;
  AddStreamArrow(s.d, {{p.x, bottom - 0.45f}, {p.x, bottom}});
  s.Label(p.x, bottom - 0.5f, 6, Lines({"SEAL WATER", u.Water(pump.seal_water_gpm)}));
}

void DrawCondenser(Sheet& s, const Placed& p, const CondenserSummary& cnd, const Units& u) {
  const float x = p.x;
  const auto layer = static_cast<int16_t>(kSymbolLayerBase + p.slot.kind);
  const std::string water_in = Lines({"CW IN", u.Water(cnd.water_gpm), u.Temperature(cnd.water_in_f)});
  float bottom = 0;
  if (p.slot.kind == EquipmentSlot::kSurface) {
    AddSurfaceCondenserSymbol(s.d, x, kCondenserY, kShellLength, kShellDiameter, layer);
    const float head = kShellLength / 2;
    AddStreamArrow(s.d, {{x - head - 0.3f, kCondenserY}, {x - head, kCondenserY}});
    AddStreamArrow(s.d, {{x + head, kCondenserY}, {x + head + 0.3f, kCondenserY}});
    bottom = kCondenserY - kShellDiameter / 2;
    s.Label(x - 0.1f, bottom - 0.15f, 9, water_in);
    s.Label(x + 0.1f, bottom - 0.15f, 3, Lines({"CW OUT", u.Temperature(cnd.water_out_f)}));
  } else {
    AddBarometricCondenserSymbol(s.d, x, kCondenserY, kBaroWidth, kBaroHeight, layer);
    const float wall = x + kBaroWidth / 2, y = kCondenserY + 0.3f * kBaroHeight;
    AddStreamArrow(s.d, {{wall + 0.3f, y}, {wall, y}});
    s.Label(wall + 0.35f, y, 2, water_in);
    bottom = kCondenserY - kBaroHeight / 2;
  }
  AddStreamArrow(s.d, {{x, bottom}, {x, kHotwellY}});
  const std::string leg = p.slot.kind == EquipmentSlot::kSurface
                              ? Lines({"CONDENSATE", u.Flow(p.condensed_lb_hr)})
                              : Lines({"TO HOTWELL", u.Temperature(cnd.water_out_f), u.Flow(p.condensed_lb_hr)});
  s.Label(x, kHotwellY - 0.1f, 6, leg);
  s.Text(x - 0.1f, kCondenserY - 1.3f, kNameHeight, 7, cnd.name + " " + Upper(cnd.role));
  s.Text(x - 0.1f, kCondenserY - 1.5f, kLabelHeight, 7, Trim(p.slot.caption));
}

// The stream from one piece of equipment to the next, labelled beside the leg where it runs alone: under the
// line between two on the line, else beside the leg down into a condenser or up out of one.
void DrawStream(Sheet& s, const Placed& from, const Placed& to, const Units& u) {
  std::vector<DrawingPoint> way = from.exit;
  way.insert(way.end(), to.entry.begin(), to.entry.end());
  AddStreamArrow(s.d, way);
  const std::string text = StreamText(u, from.out);
  const float below = kLineY - 0.3f;
  if (!to.OnLine()) {
    s.Label(to.entry.front().first - 0.1f, below, 9, text);
  } else if (!from.OnLine()) {
    s.Label(from.exit.back().first + 0.1f, below, 3, text);
  } else {
    s.Label((from.exit.back().first + to.entry.front().first) / 2, below, 6, text);
  }
}

}  // namespace

void BuildFlowDiagram(Drawing& d, const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  ClearDrawing(d);
  d.SheetNo = 2;
  d.DrawScale = 1.0f;
  const Units u{metric};
  const DesignSummary summary = SummarizeDesign(ctx);
  const std::vector<Placed> placed = PlaceEquipment(ctx, metric);
  Sheet s{d, {}};

  AddDiagramTitleBlock(d, "TESSEL CORPORATION", "PROCESS FLOW DIAGRAM", Trim(ctx.screen.txtHeadingInput[0]),
                       Trim(ctx.screen.txtHeadingInput[1]));
  if (placed.empty()) return;

  // Equipment, with the motive steam header over the ejectors.
  size_t condenser = 0;
  float last_drop = 0;
  for (const Placed& p : placed) {
    switch (p.slot.kind) {
      case EquipmentSlot::kEjector:
        DrawEjector(s, p, summary.stages[static_cast<size_t>(dc.NSTAGES - p.slot.index)], u);
        last_drop = p.x + kMotiveX;
        break;
      case EquipmentSlot::kPump: DrawPump(s, p, summary.pump, u); break;
      default: DrawCondenser(s, p, summary.condensers[condenser++], u); break;
    }
  }
  if (last_drop > 0) {
    AddLine(d, kInletX, kHeaderY, last_drop, kHeaderY, 1);
    const std::string motive_t = dc.TMOTIVE > 0 ? u.Temperature(dc.TMOTIVE) : "SATURATED";
    s.Label(kInletX, kHeaderY + 0.08f, 1, Lines({"MOTIVE STEAM", u.Steam(dc.PMOTIVE), motive_t}));
  }

  // The process inlet, the streams between the equipment and the discharge.
  std::vector<DrawingPoint> inlet = {{kInletX, kLineY}};
  inlet.insert(inlet.end(), placed.front().entry.begin(), placed.front().entry.end());
  AddStreamArrow(d, inlet);
  float load = 0;
  for (const LoadSummary& l : summary.loads) load += l.flow_lb_hr;
  s.Label(kInletX, kLineY + 0.1f, 1,
          Lines({"PROCESS INLET", u.Pressure(placed.front().inlet_mmhga), u.Temperature(dc.TSUCT), u.Flow(load)}));
  for (size_t i = 1; i < placed.size(); ++i) DrawStream(s, placed[i - 1], placed[i], u);
  std::vector<DrawingPoint> discharge = placed.back().exit;
  discharge.emplace_back(kDischargeX, kLineY);
  AddStreamArrow(d, discharge);
  s.Label(kDischargeX, kLineY + 0.1f, 7, Lines({"DISCHARGE", StreamText(u, placed.back().out)}));
}

}  // namespace kestrane
