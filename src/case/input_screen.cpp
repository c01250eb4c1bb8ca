// The design input screen as data: every box, option, check box and list, the metric pairs, hints and the check on leaving a box.
#include "case/input_screen.h"

#include "case/input_limits.h"
#include "properties/numeric.h"
#include "properties/steam.h"
#include "properties/vb.h"
#include "properties/unit_factors.h"

namespace kestrane {

namespace {

Quantity QuantityOf(BoxRef box) {
  switch (box.group) {
    case BoxGroup::kInput:
    case BoxGroup::kInputA:
      switch (box.index) {
        case 0:
        case 2: return Quantity::kPressureMmHg;
        case 3: return Quantity::kPressurePsig;
        case 4: return Quantity::kMotiveTemperature;
        case 7: return Quantity::kFouling;
        default: return Quantity::kTemperature;
      }
    case BoxGroup::kCpph:
    case BoxGroup::kCpphA:
    case BoxGroup::kNCpph:
    case BoxGroup::kNCpphA: return Quantity::kFlow;
    case BoxGroup::kDesign:
    case BoxGroup::kDesignA: return box.index % 2 == 0 ? Quantity::kPressurePsig : Quantity::kTemperature;
    default: return Quantity::kNone;
  }
}

bool IsMetricGroup(BoxGroup g) {
  return g == BoxGroup::kInputA || g == BoxGroup::kCpphA || g == BoxGroup::kNCpphA || g == BoxGroup::kDesignA;
}

float StandardValue(BoxRef box, const std::string& text) {
  const float v = static_cast<float>(Val(text));
  return IsMetricGroup(box.group) ? Convert(QuantityOf(box), v, false) : v;
}

const ListBoxDef kLists[kListBoxCount] = {
    {"cmboTubeMaterial",
     {"ADMIRALTY", "304SS", "316SS", "304L SS", "316L SS", "ALUMINUM BRASS", "70/30 CUNI", "90/10 CUNI", "MONEL",
      "HAST-B", "HAST-C", "TITANIUM GR-2", "ALLOY 20"}},
    {"cmboTubeSheetMaterial",
     {"STEEL", "NRB", "304SS", "316SS", "304L SS", "316L SS", "ALUMINUM BRONZE", "70/30 CUNI", "90/10 CUNI", "MONEL",
      "HAST-B", "HAST-C", "TITANIUM GR-2", "ALLOY 20"}},
    {"cmboProcessSideMaterial", {"STEEL", "304SS", "316SS"}},
    {"cmboWaterSideMaterial", {"STEEL", "304SS", "316SS"}},
    {"cmboSuctionChamberMaterial", {"CAST IRON", "STEEL", "STAINLESS STEEL"}},
    {"cmboSteamNozzleMaterial", {"416SS", "304SS", "316SS"}},
    {"cmboSteamChestMaterial", {"STEEL"}},
    {"cmboNozzlePlateMaterial", {"STEEL", "304SS", "316SS"}},
    {"cmboLRVPMaterial", {"CAST IRON", "STEEL", "STAINLESS STEEL"}},
    {"cmboJetCode", {"Tessel Standard", "ASME Sect. VIII, Div I", "HEI"}},
    {"cmboCNDCode",
     {"Tessel Standard", "ASME Sect. VIII, Div I", "TEMA C & ASME Sect. VIII, Div I", "TEMA B & ASME Sect. VIII, Div I",
      "TEMA R & ASME Sect. VIII, Div I", "API 660 & ASME Sect. VIII, Div I"}},
    {"cmboReturnHead", {"Bonnet", "Channel"}},
    {"cmboInletHead", {"Bonnet", "Channel"}}};

template <size_t N>
void Select(InputScreen& screen, std::array<int16_t, N>& group, int index) {
  for (size_t k = 0; k < N; ++k) group[k] = static_cast<int16_t>(static_cast<int>(k) == index ? -1 : 0);
  screen.CASEDIRTY = 1;
}

}  // namespace

std::string_view EntryAt(const std::vector<std::string_view>& entries, int index) {
  return index >= 0 && index < static_cast<int>(entries.size()) ? entries[static_cast<size_t>(index)] : "";
}

std::string_view ListText(const InputScreen& screen, ListBox box) {
  return EntryAt(ListBoxDefinition(box).entries, screen.lists[static_cast<size_t>(box)]);
}

std::string HeadLetters(const InputScreen& screen) {
  return std::string(screen.lists[kInletHead] == 1 ? "A" : "B") + "E" + (screen.lists[kReturnHead] == 1 ? "L" : "M");
}

float Convert(Quantity q, float v, bool to_metric) {
  switch (q) {
    case Quantity::kPressureMmHg: return to_metric ? static_cast<float>(v / 7.5) : static_cast<float>(v * 7.5);
    case Quantity::kMotiveTemperature:
      if (v == 0) return 0;  // 0 means dry and saturated on both sides
      [[fallthrough]];
    case Quantity::kTemperature:
      return to_metric ? static_cast<float>((v - 32) / 1.8) : static_cast<float>(v * 1.8 + 32);
    case Quantity::kPressurePsig:
      return to_metric ? static_cast<float>(v / kPsiPerBar) : static_cast<float>(v * kPsiPerBar);
    case Quantity::kFouling:
      return to_metric ? static_cast<float>(v / 4.8824272156) : static_cast<float>(v * 4.8824272156);
    case Quantity::kFlow: return to_metric ? static_cast<float>(v / kLbPerKg) : static_cast<float>(v * kLbPerKg);
    case Quantity::kNone: return v;
  }
  return v;
}


std::optional<InputLimit> MainInputLimit(int row) {
  switch (row) {
    case 0: return InputLimit{1, 500, "Suction pressure outside the range: (1 - 500 mmHga)"};
    case 1: return InputLimit{35, 500, "Suction temperature outside the range: (35 - 500 degF)"};
    // The notice names 700 though the limit is 759.9, as it always did.
    case 2: return InputLimit{759.9f, 900.1f, "Discharge pressure outside the range: (700 - 900 mmHga)"};
    case 3: return InputLimit{50, 250, "Motive pressure outside the range: (50 - 250 psig)"};
    case 5: return InputLimit{35, 125, "Cooling Water Temperature outside the range: (35 - 125 degF)"};
    default: return std::nullopt;
  }
}

const ListBoxDef& ListBoxDefinition(ListBox box) { return kLists[box]; }

std::string& InputScreen::Box(BoxRef box) {
  return const_cast<std::string&>(static_cast<const InputScreen&>(*this).Box(box));
}

const std::string& InputScreen::Box(BoxRef box) const {
  const auto i = static_cast<size_t>(box.index);
  switch (box.group) {
    case BoxGroup::kInput: return txtInput.at(i);
    case BoxGroup::kInputA: return txtInputA.at(i);
    case BoxGroup::kCost: return txtCost.at(i);
    case BoxGroup::kCpph: return txtCpph.at(i);
    case BoxGroup::kCpphA: return txtCpphA.at(i);
    case BoxGroup::kNCpph: return txtNCpph.at(i);
    case BoxGroup::kNCpphA: return txtNCpphA.at(i);
    case BoxGroup::kNCMW: return txtNCMW.at(i);
    case BoxGroup::kDesign: return txtDesign.at(i);
    case BoxGroup::kDesignA: return txtDesignA.at(i);
    case BoxGroup::kCID: return txtCID.at(i);
  }
  throw VbError(9);
}

InputScreen NewCase() {
  InputScreen s;
  s.txtCost = {"5", "0.03", "0.1"};
  s.OptionUnits = {-1, 0};
  s.OptionCondenserType = {-1, 0, 0, 0};
  s.OptionStages = {-1, 0, 0, 0, 0};
  s.OptionCycles = {-1, 0};
  s.OptionOptimize = {-1, 0};
  s.lists.fill(0);
  s.lists[kTubeMaterial] = 1;  // "304SS"
  s.txtDesign = {"75", "200", "20", "300"};
  s.txtInput[7] = "0.002";
  s.txtInputA[7] = "0.0004";
  s.txtCID[0] = "WATER";
  s.CASEDIRTY = 0;
  return s;
}

void EditBox(InputScreen& screen, BoxRef box, const std::string& text) {
  screen.Box(box) = text;
  screen.CASEDIRTY = 1;
}

void EditVaporId(InputScreen& screen, int row, const std::string& text) {
  const BoxRef box{BoxGroup::kCID, row};
  if (screen.Box(box) == text) return;
  EditBox(screen, box, text);
  ClearRefusal(screen, box);
}

std::string VaporIdCaption(const VaporData& data, const UserVapors& user, int row, const std::string& id_text) {
  if (Trim(id_text).empty()) return "";
  // The ID as the input check reads it; one beyond a 16-bit integer, or 0 on a load row, names no vapor.
  const int id = OverflowNotice("", id_text, true).empty() ? CInt(Val(id_text)) : 0;
  const std::string name = id == 0 && row > 0 ? std::string() : VaporName(data, user, id);
  return name.empty() ? "No vapor has this ID." : name;
}

void RefuseBox(InputScreen& screen, BoxRef box, std::string_view notice) {
  screen.refused.push_back({box, std::string(notice)});
}

void ClearRefusal(InputScreen& screen, BoxRef box) {
  BoxRef pair = box;
  PairOf(box, pair);
  std::erase_if(screen.refused, [&](const RefusedBox& r) { return r.box == box || r.box == pair; });
}

std::string RefusalOf(const InputScreen& screen, BoxRef box) {
  BoxRef pair = box;
  PairOf(box, pair);
  std::string notices;
  for (const RefusedBox& r : screen.refused) {
    if (r.box != box && r.box != pair) continue;
    if (!notices.empty()) notices += "\n";
    notices += r.notice;
  }
  return notices;
}

void SelectOption(InputScreen& screen, std::array<int16_t, 4>& group, int index) { Select(screen, group, index); }
void SelectOption(InputScreen& screen, std::array<int16_t, 5>& group, int index) { Select(screen, group, index); }
void SelectOption(InputScreen& screen, std::array<int16_t, 2>& group, int index) { Select(screen, group, index); }

std::array<std::string, 3> CostCaptions(bool metric) {
  if (metric) return {"Cost of steam ($/metric ton)", "Cost of electricity ($/KW hr) ", "Cost of water ($/metric ton)"};
  return {"Cost of steam ($/1000 lbs.)", "Cost of electricity ($/KW hr) ", "Cost of water ($/1000 gallons)"};
}

std::string InputCaption(const std::string& case_name) {
  return "Kestrane-System Design           Current File:" + case_name;
}

bool PairOf(BoxRef box, BoxRef& pair) {
  switch (box.group) {
    case BoxGroup::kInput: pair = {BoxGroup::kInputA, box.index}; return true;
    case BoxGroup::kInputA: pair = {BoxGroup::kInput, box.index}; return true;
    case BoxGroup::kCpph: pair = {BoxGroup::kCpphA, box.index}; return true;
    case BoxGroup::kCpphA: pair = {BoxGroup::kCpph, box.index}; return true;
    case BoxGroup::kNCpph: pair = {BoxGroup::kNCpphA, box.index}; return true;
    case BoxGroup::kNCpphA: pair = {BoxGroup::kNCpph, box.index}; return true;
    case BoxGroup::kDesign: pair = {BoxGroup::kDesignA, box.index}; return true;
    case BoxGroup::kDesignA: pair = {BoxGroup::kDesign, box.index}; return true;
    default: return false;
  }
}

std::string PairText(BoxRef box, const std::string& text) {
  if (Trim(text).empty()) return "";
  const Quantity q = QuantityOf(box);
  const float converted = Convert(q, static_cast<float>(Val(text)), !IsMetricGroup(box.group));
  return FormatFixed(converted, q == Quantity::kFouling ? 12.6f : 12.4f);
}

void RecomputePairs(InputScreen& screen) {
  const bool metric = screen.Metric();
  const BoxGroup sources[] = {metric ? BoxGroup::kInputA : BoxGroup::kInput, metric ? BoxGroup::kCpphA : BoxGroup::kCpph,
                              metric ? BoxGroup::kNCpphA : BoxGroup::kNCpph,
                              metric ? BoxGroup::kDesignA : BoxGroup::kDesign};
  const int counts[] = {8, 10, 10, 4};
  for (int g = 0; g < 4; ++g) {
    for (int i = 0; i < counts[g]; ++i) {
      const BoxRef box{sources[g], i};
      BoxRef pair{};
      PairOf(box, pair);
      screen.Box(pair) = PairText(box, screen.Box(box));
    }
  }
}

bool ChkTxtInput(InputScreen& screen, BoxRef box, const Steam& steam, Ui& ui) {
  std::string& text = screen.Box(box);
  ClearRefusal(screen, box);
  const auto refuse = [&](const std::string& notice) {
    ui.notice(notice);
    RefuseBox(screen, box, notice);
    return false;
  };
  if (NumberFieldFlagged(text)) return refuse("Please enter a number (without commas) in this box.");
  if (const std::string overflow = OverflowNotice("box", text); !overflow.empty()) return refuse(overflow);
  const bool main = box.group == BoxGroup::kInput || box.group == BoxGroup::kInputA;
  if (main) {
    const float value = StandardValue(box, text);
    if (const auto limit = MainInputLimit(box.index); limit && (value < limit->low || value > limit->high)) {
      return refuse(std::string(limit->message));
    }
    if (box.index == 6 && value > 0 && value < Val(screen.txtInput[5]) + 15) {
      return refuse(std::string(kWaterOutletMessage));
    }
    const bool shell_and_tube = screen.OptionCondenserType[0] != 0 || screen.OptionCondenserType[1] != 0;
    if (box.index == 7 && shell_and_tube && (value < kFoulingLimit.low || value > kFoulingLimit.high)) {
      return refuse(std::string(kFoulingLimit.message));
    }
    if (box.index == 4 && value > 0) {
      // The motive steam must be saturated (0) or superheated.
      const float pmotive = static_cast<float>(Val(screen.txtInput[3]));
      float t = 0, h = 0, s = 0, v = 0, moisture = 0;
      int16_t failed = 0;
      if (pmotive > 0) {
        SteamFromPT(steam, static_cast<float>((pmotive + 14.696) * 51.7144), t, h, s, v, moisture, failed);
        if (!failed && value <= t) {
          return refuse("The motive temperature must be 0 (dry and saturated steam) or above the saturation "
                        "temperature of the motive steam, " + FormatFixed(t, 0.1f) + " degF.");
        }
      }
    }
  }
  BoxRef pair{};
  if (PairOf(box, pair)) screen.Box(pair) = PairText(box, text);
  return true;
}

std::string_view StageHint() {
  return "Typically, pressures below 5 mmHgA (.67 KpaA) require a four stage system, between 5 mmHgA (.67 KpaA) and "
         "25 mmHgA (3.33 KpaA) require a three stage system, between 25 mmHgA (3.33 KpaA) and 100 mmHga (13.33 KpaA) "
         "require a two stage system, and single stage for higher suction pressures.  ";
}

std::string_view InputHint(BoxRef box) {
  switch (box.group) {
    case BoxGroup::kInput:
    case BoxGroup::kInputA:
      switch (box.index) {
        case 0: return "The suction pressure is the pressure the vacuum system must hold at its inlet, from 1 to 500 "
                       "mmHgA (0.13 to 66.7 KpaA).  ";
        case 1: return "The suction temperature is the temperature of the load entering the first stage, from 35 to "
                       "500 degF (1.7 to 260 degC).  ";
        case 2: return "The discharge pressure is the pressure at the outlet of the last stage, normally atmospheric: "
                       "760 to 900 mmHgA (101.3 to 120 KpaA).  ";
        case 3: return "The motive steam pressure must be between 50 psig (3.45 bar(g)) and 250 psig (17.23 bar(g)).  ";
        case 4: return "Enter the motive steam temperature when the steam is superheated.  If 0 is entered, the motive "
                       "temperature is assumed to be the saturation temperature based on the motive pressure.";
        case 5: return "The cooling water (or seal water) inlet temperature, from 35 to 125 degF (1.7 to 51.7 degC).  ";
        case 6: return "The highest cooling water outlet temperature allowed; leave 0 to let the program choose.  It "
                       "must be at least 15 degF (8.3 degC) above the water inlet.  ";
        default: return "The overall fouling factor of the surface condensers, from 0.001 to 0.1 hr-ft2-F/Btu.  ";
      }
    case BoxGroup::kCost:
      return "Utility prices for the annual operating cost: steam, electricity and cooling water.  ";
    case BoxGroup::kCID:
    case BoxGroup::kCpph:
    case BoxGroup::kCpphA:
      return "The condensible load: enter the vapor ID from the list (negative for user defined vapors) and its flow.  "
             "Row 1 is always water vapor.  ";
    case BoxGroup::kNCpph:
    case BoxGroup::kNCpphA:
    case BoxGroup::kNCMW:
      return "The non-condensible load (air, inerts): its flow and molecular weight.  At least one is required.  ";
    case BoxGroup::kDesign:
    case BoxGroup::kDesignA:
      return "The design pressure and temperature of the condenser shell side and tube side.  ";
  }
  return "";
}

}  // namespace kestrane
