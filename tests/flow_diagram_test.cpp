// The process flow diagram on designs of the examples: a symbol for each piece of equipment in flow order, the
// design's values on the stream labels in standard and metric units, the title block, and a sheet on which
// nothing strays off the sheet or overlaps another text.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

#include "drawings/flow_diagram.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "pump/pump_selection.h"
#include "design_support.h"

using namespace kestrane;

namespace {

const std::vector<std::string> kDesignedExamples = {
    "AUTOMATIC-SURFACE.JET",          "FOUR-STAGE-SURFACE.JET",        "LRVP-ONLY-50HZ.JET",
    "METRIC-TWO-STAGE.JET",           "ONE-STAGE-NO-CONDENSERS.JET",   "SOLVENT-LOADS-THREE-STAGE.JET",
    "THREE-STAGE-DIRECT-CONTACT.JET", "TWO-STAGE-LRVP.JET",            "TWO-STAGE-PRECONDENSER.JET",
    "TWO-STAGE-SURFACE-TUBE-SIDE.JET"};

// A value with `decimals` decimals and its unit, formatted here rather than by the program's formatter: as a
// single's seven significant digits, rounded half away from zero.
std::string Fixed(double value, int decimals, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, "%.7g", static_cast<double>(static_cast<float>(value)));
  const double scale = std::pow(10.0, decimals), seven = std::stod(text);
  const double rounded = std::round(seven * scale + std::copysign(1e-7, seven)) / scale;
  std::snprintf(text, sizeof text, "%.*f %s", decimals, rounded, unit);
  return text;
}

// The lines of every text of the drawing, each text split at "||" and trimmed.
std::vector<std::vector<std::string>> TextLines(const Drawing& d) {
  std::vector<std::vector<std::string>> texts;
  for (int i = 1; i <= d.Texts.count; ++i) {
    std::vector<std::string> lines;
    std::string text = Trim(d.Texts(i).text);
    for (size_t at; (at = text.find("||")) != std::string::npos; text.erase(0, at + 2)) {
      lines.push_back(Trim(text.substr(0, at)));
    }
    lines.push_back(Trim(text));
    texts.push_back(lines);
  }
  return texts;
}

// A symbol found on the drawing: its kind, by its layer, and its span across the sheet.
struct FoundSymbol {
  int kind;
  float x1, x2;
};

// The symbols of the drawing from the left: the rows of each symbol layer gathered into runs that touch across.
std::vector<FoundSymbol> Symbols(const Drawing& d) {
  std::vector<FoundSymbol> spans;
  for (int i = 1; i <= d.Lines.count; ++i) {
    const LineRow& l = d.Lines(i);
    spans.push_back({l.layer - kSymbolLayerBase, std::min(l.x1, l.x2), std::max(l.x1, l.x2)});
  }
  for (int i = 1; i <= d.Arcs.count; ++i) {
    const ArcRow& a = d.Arcs(i);
    spans.push_back({a.layer - kSymbolLayerBase, a.cx - a.radius, a.cx + a.radius});
  }
  std::erase_if(spans, [](const FoundSymbol& s) { return s.kind < 1 || s.kind > 4; });
  std::sort(spans.begin(), spans.end(), [](const FoundSymbol& a, const FoundSymbol& b) { return a.x1 < b.x1; });
  std::vector<FoundSymbol> symbols;
  for (const FoundSymbol& s : spans) {
    if (!symbols.empty() && symbols.back().kind == s.kind && s.x1 <= symbols.back().x2 + 0.01f) {
      symbols.back().x2 = std::max(symbols.back().x2, s.x2);
    } else {
      symbols.push_back(s);
    }
  }
  return symbols;
}

class FlowDiagram : public kestrane::testing::ExampleDesign {
 protected:
  // Designs an example as its file has it and draws its diagram in the units asked.
  void Design(const std::string& file, bool metric) {
    DesignExample(file);
    BuildFlowDiagram(d, ctx, metric);
  }
  // Runs `check` on the diagram of each example in both units, one drawing drawn over the one before.
  template <typename Check>
  void EachDiagram(const std::vector<std::string>& examples, Check check) {
    for (const std::string& example : examples) {
      for (bool metric : {false, true}) {
        SCOPED_TRACE(example + (metric ? " metric" : " standard"));
        Design(example, metric);
        check(metric);
      }
    }
  }
  // Whether some text's lines are exactly these.
  bool HasText(const std::vector<std::string>& lines) const {
    const auto texts = TextLines(d);
    return std::find(texts.begin(), texts.end(), lines) != texts.end();
  }
  // A stream's pressure, temperature and flow as its label shows them.
  static std::vector<std::string> Stream(float mmhga, float f, float lb_hr, bool metric) {
    if (metric) return {Fixed(mmhga / 7.5, 3, "KPaA"), Fixed((f - 32) / 1.8, 1, "degC"), Fixed(lb_hr / 2.2045993805, 1, "kg/h")};
    return {Fixed(mmhga, 2, "mmHgA"), Fixed(f, 1, "degF"), Fixed(lb_hr, 1, "lb/hr")};
  }
  float Sum(const std::function<float(int)>& of) const {
    float sum = 0;
    for (int load = 1; load <= dc.NLOADS; ++load) sum += of(load);
    return sum;
  }

  Drawing d;
};

// --- Equipment -------------------------------------------------------------------------

TEST_F(FlowDiagram, EveryExampleHasOneSymbolPerPieceOfEquipmentInTheOrderOfFlow) {
  EachDiagram(kDesignedExamples, [&](bool metric) {
    const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, metric);
    const std::vector<FoundSymbol> symbols = Symbols(d);
    ASSERT_EQ(symbols.size(), slots.size());
    for (size_t i = 0; i < slots.size(); ++i) {
      EXPECT_EQ(symbols[i].kind, slots[i].kind) << "slot " << i;
      // The slot's model stands by its symbol.
      const float centre = (symbols[i].x1 + symbols[i].x2) / 2;
      const auto texts = TextLines(d);
      bool named = false;
      for (int t = 1; t <= d.Texts.count; ++t) {
        if (texts[static_cast<size_t>(t - 1)] != std::vector<std::string>{Trim(slots[i].caption)}) continue;
        const TextBoxResult box = TextBox(d, d.Texts(t).x, d.Texts(t).y, d.Texts(t).height, d.Texts(t).justify, 0,
                                          d.Texts(t).width, d.Texts(t).text);
        named = named || (box.x[0] < centre + 0.6f && box.x[1] > centre - 1.8f);
      }
      EXPECT_TRUE(named) << slots[i].caption;
    }
  });
}

TEST_F(FlowDiagram, ACondenserlessTrainHasNoCondenserAndAPumpTrainEndsInThePump) {
  Design("ONE-STAGE-NO-CONDENSERS.JET", false);
  for (const FoundSymbol& s : Symbols(d)) EXPECT_EQ(s.kind, EquipmentSlot::kEjector);
  EXPECT_FALSE(HasText({"CONDENSATE"}));
  Design("TWO-STAGE-LRVP.JET", false);
  ASSERT_EQ(dc.USELRVP, 1);
  const std::vector<FoundSymbol> symbols = Symbols(d);
  const auto pump = std::find_if(symbols.begin(), symbols.end(),
                                 [](const FoundSymbol& s) { return s.kind == EquipmentSlot::kPump; });
  ASSERT_NE(pump, symbols.end());
  EXPECT_TRUE(std::none_of(pump + 1, symbols.end(),
                           [](const FoundSymbol& s) { return s.kind == EquipmentSlot::kEjector; }));
  EXPECT_TRUE(HasText({"SEAL WATER", Fixed(dc.LRVPRES(kLrvpSeal, 1), 1, "gpm")}));
}

// --- Values ----------------------------------------------------------------------------

TEST_F(FlowDiagram, StreamLabelsCarryTheDesignsPressuresTemperaturesAndFlowsInBothUnits) {
  EachDiagram(kDesignedExamples, [&](bool metric) {
    const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, metric);
    ASSERT_FALSE(slots.empty());
    // What leaves each piece of equipment is labelled on the stream after it; the last one's is the discharge.
    for (size_t i = 0; i < slots.size(); ++i) {
      const int k = slots[i].index;
      std::vector<std::string> out;
      if (slots[i].kind == EquipmentSlot::kEjector || slots[i].kind == EquipmentSlot::kPump) {
        // A pump's gas leaves at its seal water's temperature.
        const float t = slots[i].kind == EquipmentSlot::kPump ? dc.LRVPRES(kLrvpSealOut, 1) : dc.STG(k, kStgTD);
        out = Stream(dc.STG(k, kStgPOUT), t,
                     Sum([&](int l) { return dc.STGLOAD(l, k); }) + dc.STG(k, kStgMOTIVE), metric);
      } else {
        out = Stream(dc.CND(k, kCndPOUT), dc.CND(k, kCndTSAT), Sum([&](int l) { return dc.CNDLOAD(l, 2, k); }),
                     metric);
      }
      if (i + 1 == slots.size()) out.insert(out.begin(), "DISCHARGE");
      EXPECT_TRUE(HasText(out)) << "after slot " << i << ": " << out[0];
    }
    const bool first_is_stage = slots[0].kind == EquipmentSlot::kEjector || slots[0].kind == EquipmentSlot::kPump;
    const float suction = first_is_stage ? dc.STG(slots[0].index, kStgPIN) : dc.CND(slots[0].index, kCndPIN);
    std::vector<std::string> inlet = Stream(suction, dc.TSUCT, Sum([&](int l) { return dc.LOADS(kLoadPPH, l); }), metric);
    inlet.insert(inlet.begin(), "PROCESS INLET");
    EXPECT_TRUE(HasText(inlet)) << inlet[1];
  });
}

TEST_F(FlowDiagram, CondensersShowTheirCoolingWaterAndEjectorsTheirMotiveSteam) {
  EachDiagram({"FOUR-STAGE-SURFACE.JET", "THREE-STAGE-DIRECT-CONTACT.JET"}, [&](bool metric) {
    const auto temperature = [metric](double f) {
      return metric ? Fixed((f - 32) / 1.8, 1, "degC") : Fixed(f, 1, "degF");
    };
    const auto flow = [metric](double lb) { return metric ? Fixed(lb / 2.2045993805, 1, "kg/h") : Fixed(lb, 1, "lb/hr"); };
    int condensers = 0;
    for (int col : CondensersPresent(dc)) {
      ++condensers;
      const double gpm = dc.CND(col, kCndGPMUSE);
      EXPECT_TRUE(HasText({"CW IN", metric ? Fixed(gpm * 0.22712470704, 1, "M3/h") : Fixed(gpm, 1, "gpm"),
                           temperature(dc.CND(col, kCndWATERIN))}))
          << col;
      const std::string out = temperature(dc.CND(col, kCndWATEROUT));
      const double condensed = Sum([&](int l) { return dc.CNDLOAD(l, 1, col) - dc.CNDLOAD(l, 2, col); });
      if (dc.CNDTYPE == 2) {
        EXPECT_TRUE(HasText({"TO HOTWELL", out, flow(condensed)})) << col;
      } else {
        EXPECT_TRUE(HasText({"CW OUT", out})) << col;
        EXPECT_TRUE(HasText({"CONDENSATE", flow(condensed)})) << col;
      }
    }
    EXPECT_EQ(condensers, 3);
    for (int c = 1; c <= dc.NSTAGES; ++c) EXPECT_TRUE(HasText({"MOTIVE", flow(dc.STG(c, kStgMOTIVE))})) << c;
    EXPECT_TRUE(HasText({"MOTIVE STEAM", metric ? Fixed(dc.PMOTIVE / 14.5037994385, 2, "barg") : Fixed(dc.PMOTIVE, 1, "psig"),
                         dc.TMOTIVE > 0 ? temperature(dc.TMOTIVE) : "SATURATED"}));
  });
}

TEST_F(FlowDiagram, TitleBlockNamesTheMakerTheDrawingTheItemAndTheDescription) {
  Design("TWO-STAGE-PRECONDENSER.JET", false);
  screen.txtHeadingInput = {"  EJ-204 ", " Precondenser and two stages ", "J. Engineer"};
  BuildFlowDiagram(d, ctx, false);
  EXPECT_TRUE(HasText({"TESSEL CORPORATION"}));
  EXPECT_TRUE(HasText({"PROCESS FLOW DIAGRAM"}));
  EXPECT_TRUE(HasText({"ITEM: EJ-204"}));
  EXPECT_TRUE(HasText({"Precondenser and two stages"}));
  // A description too long for the block is cut to its width.
  screen.txtHeadingInput[1] = std::string(60, 'D');
  BuildFlowDiagram(d, ctx, false);
  EXPECT_TRUE(HasText({std::string(38, 'D')}));
}

// --- The sheet -------------------------------------------------------------------------

TEST_F(FlowDiagram, EveryExampleStaysOnTheSheetWithTextsApartAndTablesWithinTheirMaxima) {
  EachDiagram(kDesignedExamples, [&](bool metric) {
    // Drawn over the diagram before, it holds what it holds drawn anew.
    Drawing fresh;
    BuildFlowDiagram(fresh, ctx, metric);
    EXPECT_EQ(d.Lines.count, fresh.Lines.count);
    EXPECT_EQ(d.Texts.count, fresh.Texts.count);
    EXPECT_EQ(d.SheetNo, 2);
    EXPECT_EQ(d.DrawScale, 1.0f);
    const auto inside = [](float x, float y) { return x >= 0.15f && x <= 14.85f && y >= 0.15f && y <= 9.6f; };
    for (int i = 1; i <= d.Lines.count; ++i) {
      const LineRow& l = d.Lines(i);
      EXPECT_TRUE(inside(l.x1, l.y1) && inside(l.x2, l.y2)) << "line " << i;
    }
    for (int i = 1; i <= d.Arcs.count; ++i) {
      const ArcRow& a = d.Arcs(i);
      EXPECT_TRUE(inside(a.cx - a.radius, a.cy - a.radius) && inside(a.cx + a.radius, a.cy + a.radius));
    }
    std::vector<TextBoxResult> boxes;
    for (int i = 1; i <= d.Texts.count; ++i) {
      const TextRow& t = d.Texts(i);
      EXPECT_GE(t.height, 0.08f);
      EXPECT_LE(t.height, 0.12f);
      boxes.push_back(TextBox(d, t.x, t.y, t.height, t.justify, t.angle, t.width, t.text));
      for (int c = 0; c < 4; ++c) EXPECT_TRUE(inside(boxes.back().x[c], boxes.back().y[c])) << t.text;
    }
    for (size_t a = 0; a < boxes.size(); ++a) {
      for (size_t b = a + 1; b < boxes.size(); ++b) {
        const TextBoxResult &p = boxes[a], &q = boxes[b];
        const bool apart = p.x[1] <= q.x[0] || q.x[1] <= p.x[0] || p.y[2] <= q.y[0] || q.y[2] <= p.y[0];
        EXPECT_TRUE(apart) << Trim(d.Texts(static_cast<int>(a + 1)).text) << " / "
                           << Trim(d.Texts(static_cast<int>(b + 1)).text);
      }
    }
    EXPECT_LE(d.Lines.count, decltype(d.Lines)::kMax);
    EXPECT_LE(d.Arcs.count, decltype(d.Arcs)::kMax);
    EXPECT_LE(d.Texts.count, decltype(d.Texts)::kMax);
    EXPECT_EQ(d.Leaders.count + d.Dimensions.count + d.Angles.count, 0);
  });
}

}  // namespace
