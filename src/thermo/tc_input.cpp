// The thermo compressor input screen as data: headings, six values with their metric pairs, units, lists, hints, titles, and its input check.
#include "thermo/tc_input.h"

#include "case/input_screen.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

const std::array<TcListDef, kTcListCount> kTcLists = {{
    {"cmboSuctionChamberMaterial", {"CAST IRON", "STEEL", "STAINLESS STEEL"}},
    {"cmboSteamNozzleMaterial", {"416SS", "304SS", "316SS"}},
    {"cmboSteamChestMaterial", {"STEEL"}},
    {"cmboNozzlePlateMaterial", {"STEEL", "304SS", "316SS"}},
    {"cmboJetCode", {"Tessel Standard", "ASME Sect. VIII, Div I", "HEI"}},
}};

// Pressures convert psi to bar (absolute and gauge alike), temperatures keep 0, the load lb/hr to kg/hr.
Quantity TcQuantity(int row) {
  switch (row) {
    case 1:
    case 4: return Quantity::kMotiveTemperature;
    case 5: return Quantity::kFlow;
    default: return Quantity::kPressurePsig;
  }
}

float Number(const std::string& text) { return static_cast<float>(Val(text)); }

// 51.7147 in this check, one digit off the design's 51.7144.
constexpr double kCheckMmHgPerPsi = 51.7147;

float SaturationAt(const Steam& steam, float p_mmhg) {
  float t = 0, h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(steam, p_mmhg, t, h, s, v, moisture, failed);
  return t;
}

}  // namespace

const std::array<std::string_view, 3> kTcHeadingCaptions = {"Item:", "Description:", "Engineer (initials):"};
const std::array<std::string_view, kTcInputs> kTcInputCaptions = {
    "Suction Pressure",  "Suction Temperature (0=D&&S)", "Discharge Pressure",
    "Motive Pressure",   "Motive Temperature (0=D&&S)",  "Load (mass flow rate of steam)"};
const std::array<std::string_view, kTcInputs> kTcStandardUnits = {"psia", "degF", "psia", "psig", "degF", "#/hr"};
const std::array<std::string_view, kTcInputs> kTcMetricUnits = {"Bar (a)", "degC", "Bar (a)", "Bar (g)", "degC", "kg/hr"};
const std::array<std::string_view, 2> kTcUnitOptions = {"Standard Units", "Metric Units"};

const TcListDef& TcListDefinition(TcList list) { return kTcLists[static_cast<size_t>(list)]; }

std::string_view TcListText(const TCInputScreen& screen, TcList list) {
  return EntryAt(TcListDefinition(list).entries, screen.lists[static_cast<size_t>(list)]);
}

void ClearTCInput(TCInputScreen& screen) {
  screen = TCInputScreen{};
}

std::string TcTitle(const TCInputScreen& screen) {
  if (screen.TCCASENAME.empty()) return "Kestrane-Thermo Compressor Design ";
  return "Kestrane-Thermo Compressor Design       Current File:" + screen.TCCASENAME;
}

std::string TcPairText(int row, bool from_metric, const std::string& text) {
  if (Trim(text).empty()) return "";
  return FormatFixed(Convert(TcQuantity(row), Number(text), !from_metric), 12.4f);
}

void EditTcInput(TCInputScreen& screen, int row, bool metric_side, const std::string& text) {
  const auto r = static_cast<size_t>(row);
  (metric_side ? screen.txtInputA : screen.txtInput).at(r) = text;
  (metric_side ? screen.txtInput : screen.txtInputA).at(r) = TcPairText(row, metric_side, text);
  screen.TCDIRTY = 1;
}

void SelectTcUnits(TCInputScreen& screen, int index) {
  screen.OptionUnits = {0, 0};
  screen.OptionUnits.at(static_cast<size_t>(index)) = -1;
  screen.TCDIRTY = 1;
}

void SelectTcList(TCInputScreen& screen, TcList list, int16_t index) {
  if (index < 0 || index >= static_cast<int16_t>(TcListDefinition(list).entries.size())) throw VbError(380);
  screen.lists[static_cast<size_t>(list)] = index;
  screen.TCDIRTY = 1;
}

void RecomputeTcPairs(TCInputScreen& screen) {
  const bool metric = screen.Metric();
  for (size_t r = 0; r < kTcInputs; ++r) {
    const std::string& typed = metric ? screen.txtInputA[r] : screen.txtInput[r];
    (metric ? screen.txtInput : screen.txtInputA)[r] = TcPairText(static_cast<int>(r), metric, typed);
  }
}

std::string_view TcHint(int row) {
  switch (row) {
    case 0: return "The suction pressure can range from 3.86 psia (200mmHgA)(.26 bar(a)) to 25 psia (1.72 bar(a)).  ";
    case 1:
      return "The suction temperature may be left 0, in which case the steam saturation temperature is used."
             "  If entered, the temperature must be greater than or equal to the steam saturation temperature.  "
             "There is an increase in motive steam when the suction steam is superheated.";
    case 2:
      return "The discharge pressure must be greater than the suction pressure with a maximum of 45 psia (3.1 bar(a)).";
    case 3: return "The motive steam pressure must be between 50 psig (3.45 bar(g)) and 250 psig (17.23 bar(g)).  ";
    case 4:
      return "Enter the motive steam temperature when the steam is superheated.  If 0 is entered, the motive "
             "temperature is assumed to be the saturation temperature based on the motive pressure.";
    case 5: return "The load must be greater than 0.";
    default: return "";
  }
}

int16_t CheckTCInput(const TCInputScreen& screen, DesignCase& dc, TcInput& tcin, const Steam& steam, Ui& ui) {
  std::string messages;
  int16_t err = 0;
  auto add = [&messages](std::string_view text) { messages += std::string(text) + "\r\n"; };
  auto error = [&](std::string_view text) {
    add(text);
    err = 1;
  };

  // A number beyond a Single's range refuses the input before any is read.
  static const char* const kBoxes[] = {"suction pressure",  "suction temperature", "discharge pressure",
                                       "motive pressure",   "motive temperature",  "load"};
  for (size_t row = 0; row < 6; ++row) {
    const std::string notice = OverflowNotice(kBoxes[row], screen.txtInput[row]);
    if (!notice.empty()) error(notice);
  }
  if (err != 0) {
    ui.notice(messages);
    return err;
  }

  TcInput in;
  in.PSUCT = Number(screen.txtInput[0]);
  // The message says 10 while the limit is 25, as it always has.
  if (in.PSUCT < 3.8f || in.PSUCT > 25.0f) error("Suction pressure outside the range: (3.8 - 10. psia)");

  in.TSUCT = Number(screen.txtInput[1]);
  const float ts = SaturationAt(steam, static_cast<float>(in.PSUCT * kCheckMmHgPerPsi));
  if (in.TSUCT == 0) in.TSUCT = ts;
  if (in.TSUCT > 500.0f || in.TSUCT < ts) error("Suction temperature outside the range: (Tsat - 500 degF)");

  in.PDISCH = Number(screen.txtInput[2]);
  if (in.PDISCH > 45.0f) error("Discharge pressure outside the range: (45 psia)");
  if (in.PDISCH < in.PSUCT) error("Discharge pressure must be greater than suction pressure!");

  in.PMOTIVE = Number(screen.txtInput[3]);
  if (in.PMOTIVE < 50 || in.PMOTIVE > 250) error("Motive pressure outside the range: (50 - 250 psig)");

  in.TMOTIVE = Number(screen.txtInput[4]);
  const float tm = SaturationAt(steam, static_cast<float>((in.PMOTIVE + 14.696) * kCheckMmHgPerPsi));
  if (in.TMOTIVE == 0) in.TMOTIVE = tm;
  // Only a warning: the temperature stays as entered.
  if (in.TMOTIVE < tm) add("Motive temperature less than saturation! Changed to saturation and continuing.");

  in.LOADTC = Number(screen.txtInput[5]);
  if (!(in.LOADTC > 0)) error("The load (#/hr of steam) must be greater than zero!");

  if (!messages.empty()) ui.notice(messages);
  if (err != 0) return err;
  for (int c = 1; c <= 5; ++c) {
    for (int r = 1; r <= 60; ++r) dc.STG(c, r) = 0;
  }
  tcin = in;
  return 0;
}

}  // namespace kestrane
