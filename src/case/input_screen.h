// The design input screen as data: every box, option, check box and list, the metric pairs, hints and the check on leaving a box.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "properties/vapors.h"
#include "shell/ui.h"

namespace kestrane {

struct Steam;
struct InputScreen;

// List boxes by their position in the case file.
enum ListBox : int {
  kTubeMaterial,
  kTubeSheetMaterial,
  kProcessSideMaterial,
  kWaterSideMaterial,
  kSuctionChamberMaterial,
  kSteamNozzleMaterial,
  kSteamChestMaterial,
  kNozzlePlateMaterial,
  kLRVPMaterial,
  kJetCode,
  kCNDCode,
  kReturnHead,
  kInletHead,
  kListBoxCount
};

// What a box holds, for its unit conversion. A motive temperature of 0 (dry
// and saturated) stays 0 on both sides.
enum class Quantity { kNone, kPressureMmHg, kTemperature, kMotiveTemperature, kPressurePsig, kFouling, kFlow };

// Standard to metric, or back: mmHg and kPa, degF and degC, psi and bar,
// hr-ft2-F/Btu and hr-m2-C/kcal, lb/hr and kg/hr.
float Convert(Quantity q, float v, bool to_metric);

// Name and fixed entries of a list box.
struct ListBoxDef {
  std::string_view name;
  std::vector<std::string_view> entries;
};
const ListBoxDef& ListBoxDefinition(ListBox box);

// Entry `index` (from 0) of a list; empty when the index names none.
std::string_view EntryAt(const std::vector<std::string_view>& entries, int index);

// The text of the entry selected in a list box; empty when its index names none.
std::string_view ListText(const InputScreen& screen, ListBox box);

// The head letters of a surface condenser's model: inlet head "A" for a channel, else "B"; "E"; return head "L"
// for a channel, else "M" ("BEM").
std::string HeadLetters(const InputScreen& screen);

// The boxes that hold numbers, for the check on leaving a box, and the vapor IDs of the condensible loads (kCID,
// text boxes the input check reads).
enum class BoxGroup { kInput, kInputA, kCost, kCpph, kCpphA, kNCpph, kNCpphA, kNCMW, kDesign, kDesignA, kCID };

struct BoxRef {
  BoxGroup group;
  int index;
  bool operator==(const BoxRef&) const = default;
};

// A box a check refused, with the notice line that refused it.
struct RefusedBox {
  BoxRef box;
  std::string notice;
};

// The state of the design input window. Option buttons hold -1 (on) or 0,
// check boxes 1 or 0, list boxes their list index.
struct InputScreen {
  std::array<std::string, 3> txtHeadingInput;
  std::array<std::string, 8> txtInput;   // standard units
  std::array<std::string, 8> txtInputA;  // metric units
  std::array<std::string, 3> txtCost;
  std::array<int16_t, 4> OptionCondenserType{};
  std::array<int16_t, 5> OptionStages{};
  int16_t chkboxPreCondenser = 0;
  int16_t chkboxLRVP = 0;
  std::array<std::string, 10> txtCID, txtCpph, txtCpphA;
  std::array<std::string, 10> txtNCpph, txtNCpphA, txtNCMW;
  std::array<int16_t, 2> OptionUnits{};
  std::array<int16_t, 2> OptionCycles{};
  std::array<std::string, 4> txtDesign, txtDesignA;
  std::array<int16_t, kListBoxCount> lists{};
  std::array<int16_t, 2> OptionOptimize{};

  // The case file behind the screen.
  std::string USERCASE;  // path, empty for a new case
  std::string CASENAME;  // file name
  int16_t CASEDIRTY = 0;

  // The boxes the latest check refused: the input check's, and each box whose leave check refused it. A box
  // stays refused until a new value in it passes its leave check or the next input check.
  std::vector<RefusedBox> refused;

  std::string& Box(BoxRef box);
  const std::string& Box(BoxRef box) const;
  bool Metric() const { return OptionUnits[1] != 0; }
};

// A new case: the screen's defaults, CASEDIRTY 0.
InputScreen NewCase();

// An edit of a box by the user: the text changes and CASEDIRTY is set.
void EditBox(InputScreen& screen, BoxRef box, const std::string& text);

// An edit of a condensible load's vapor ID: a text other than the one held is an edit (EditBox) and lifts the
// box's refusal.
void EditVaporId(InputScreen& screen, int row, const std::string& text);

// The caption beside the vapor ID box of condensible load `row` (0 is the water row): the name of the vapor the
// input check reads from `id_text`, built-in or user defined; empty for an empty box; "No vapor has this ID."
// when the ID names none.
std::string VaporIdCaption(const VaporData& data, const UserVapors& user, int row, const std::string& id_text);

// Records that a check refused `box` with `notice`.
void RefuseBox(InputScreen& screen, BoxRef box, std::string_view notice);
// Lifts the refusal of `box` and of its pair.
void ClearRefusal(InputScreen& screen, BoxRef box);
// The notices that refused `box` or its pair, a line each; empty when neither stands refused.
std::string RefusalOf(const InputScreen& screen, BoxRef box);

// Turns one option of a group on and the others off (an edit).
void SelectOption(InputScreen& screen, std::array<int16_t, 4>& group, int index);
void SelectOption(InputScreen& screen, std::array<int16_t, 5>& group, int index);
void SelectOption(InputScreen& screen, std::array<int16_t, 2>& group, int index);

// The captions of the three cost rows, which follow the unit option.
std::array<std::string, 3> CostCaptions(bool metric);

// The caption of the input window for the case name.
std::string InputCaption(const std::string& case_name);

// The box paired with this one (standard with metric), or none.
bool PairOf(BoxRef box, BoxRef& pair);

// The text of the pair box for a value typed in `box`: the unit conversion
// by FormatFixed 12.4 (12.6 for the fouling factor). Empty stays empty.
std::string PairText(BoxRef box, const std::string& text);

// Recomputes every pair from the active unit side.
void RecomputePairs(InputScreen& screen);

// The check on leaving a box: the shared number check (an empty box becomes
// "0"; a comma or any other text flags it), the limits of the input check for
// the main values, and the motive temperature against saturation; a box that
// passes updates its pair and lifts its refusal. False, after a notice, when the box is refused (recorded in
// `screen.refused`).
bool ChkTxtInput(InputScreen& screen, BoxRef box, const Steam& steam, Ui& ui);

// The hint shown in the description box while a box has the focus.
std::string_view InputHint(BoxRef box);
// The hint of the stage options.
std::string_view StageHint();

}  // namespace kestrane
