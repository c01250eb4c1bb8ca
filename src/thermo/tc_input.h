// The thermo compressor input screen as data: headings, six values with their metric pairs, units, lists, hints, titles, and its input check.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "case/design_case.h"
#include "properties/steam.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kTcInputs = 6;

inline constexpr std::string_view kTcNote =
    "This program will design steam to steam thermo-compressors.  For other fluids, contact Tessel Corporation.";

// List boxes, in the order of the case file.
enum TcList : int { kTcSuctionChamber, kTcSteamNozzle, kTcSteamChest, kTcNozzlePlate, kTcJetCode, kTcListCount };

struct TcListDef {
  std::string_view name;
  std::vector<std::string_view> entries;
};
const TcListDef& TcListDefinition(TcList list);

// The state of the input window. Option buttons hold -1 (on) or 0, lists their index.
struct TCInputScreen {
  std::array<std::string, 3> txtHeadingInput;
  std::array<std::string, kTcInputs> txtInput;   // standard units: psia, degF, psia, psig, degF, lb/hr
  std::array<std::string, kTcInputs> txtInputA;  // metric units: bar (a), degC, bar (a), bar (g), degC, kg/hr
  std::array<int16_t, 2> OptionUnits{-1, 0};
  std::array<int16_t, kTcListCount> lists{};
  std::string TCUSERCASE;  // path, empty for a new case
  std::string TCCASENAME;  // file name
  int16_t TCDIRTY = 0;

  bool Metric() const { return OptionUnits[1] != 0; }
};

// The text of the entry selected in a list; empty when its index names none.
std::string_view TcListText(const TCInputScreen& screen, TcList list);

// Captions of the heading rows and of the value rows with their units.
extern const std::array<std::string_view, 3> kTcHeadingCaptions;
extern const std::array<std::string_view, kTcInputs> kTcInputCaptions;
extern const std::array<std::string_view, kTcInputs> kTcStandardUnits;
extern const std::array<std::string_view, kTcInputs> kTcMetricUnits;
extern const std::array<std::string_view, 2> kTcUnitOptions;

// All boxes empty, standard units, every list at its first entry, no file.
void ClearTCInput(TCInputScreen& screen);

// The window title: the new-case title, or the one naming the open file.
std::string TcTitle(const TCInputScreen& screen);

// An edit of value row `row` on the standard or metric side: the pair follows, TCDIRTY is set.
void EditTcInput(TCInputScreen& screen, int row, bool metric_side, const std::string& text);
void SelectTcUnits(TCInputScreen& screen, int index);
void SelectTcList(TCInputScreen& screen, TcList list, int16_t index);

// The pair text of a value typed on one side (FormatFixed 12.4); empty stays empty, a temperature of 0 stays 0.
std::string TcPairText(int row, bool from_metric, const std::string& text);
// Every pair again from the active side.
void RecomputeTcPairs(TCInputScreen& screen);

// The hint shown while value row `row` has the focus.
std::string_view TcHint(int row);

// The input record of the design, filled by the check: psia, degF, psia, psig, degF, lb/hr.
struct TcInput {
  float PSUCT = 0, TSUCT = 0, PDISCH = 0, PMOTIVE = 0, TMOTIVE = 0, LOADTC = 0;
};

// The input check on the standard boxes. Errors and the motive temperature
// warning are shown together in one notice; returns 1 on an error (the run
// stops), else clears STG and fills `tcin`.
int16_t CheckTCInput(const TCInputScreen& screen, DesignCase& dc, TcInput& tcin, const Steam& steam, Ui& ui);

}  // namespace kestrane
