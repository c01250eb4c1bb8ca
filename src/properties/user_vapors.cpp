// User defined vapors: the UDV.DTA file and the editing rules of the user vapor window.
#include "properties/user_vapors.h"

#include <cmath>
#include <cstdlib>

#include "properties/numeric.h"
#include "properties/temperature_units.h"
#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

namespace {

// A damaged line: where and what.
struct Damage {
  int line;
  std::string what;
};

// Reads the vapors into `user`; throws Damage at the first bad line.
void ParseUserVapors(TextInput& file, UserVapors& user) {
  int line = 1;
  if (file.Eof()) throw Damage{line, "the file is empty"};
  const std::string count_text = Trim(file.LineInput());
  if (!IsPlainNumber(count_text)) {
    throw Damage{line, "the count of vapors \"" + count_text + "\" is not a number"};
  }
  const double count = Val(count_text);
  if (count < 0 || count > kMaxUserVapors || count != std::floor(count)) {
    throw Damage{line, "the count of vapors " + count_text + " is not a whole number from 0 to 50"};
  }
  for (int row = 1; row <= static_cast<int>(count); ++row) {
    ++line;
    if (file.Eof()) throw Damage{line, "the file ends before vapor " + std::to_string(row)};
    const std::string text = file.LineInput();
    size_t at = 0;
    std::array<float, 9> values{};
    for (int c = 0; c < 9; ++c) {
      const size_t comma = text.find(',', at);
      if (comma == std::string::npos) {
        throw Damage{line, "the line holds " + std::to_string(c) + " of the 9 numbers before the name"};
      }
      const std::string field = Trim(text.substr(at, comma - at));
      if (!IsNumeric(field)) throw Damage{line, "\"" + field + "\" stands where a number belongs"};
      if (!FitsSingle(Val(field))) throw Damage{line, field + " is too large a number"};
      values[static_cast<size_t>(c)] = static_cast<float>(Val(field));
      at = comma + 1;
    }
    for (int c = 1; c <= 9; ++c) user.UDVDATA(row, c) = values[static_cast<size_t>(c - 1)];
    user.UDVNAME(row) = FixedText(text.substr(at), kUserVaporNameLength);
    user.NUDV = static_cast<int16_t>(row);
  }
}

// Row of a vapor ID (-row), or 0 when it names none.
int RowOfId(const UserVapors& user, int id) {
  const int row = std::abs(id);
  return row >= 1 && row <= user.NUDV ? row : 0;
}

}  // namespace

UserVaporsRead ReadUDV(const std::filesystem::path& path, UserVapors& user, Ui& ui) {
  user.NUDV = 0;
  user.UDVDATA.Clear();
  user.UDVNAME.Clear();
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return UserVaporsRead::kMissing;
  try {
    TextInput file(path);
    ParseUserVapors(file, user);
  } catch (const Damage& d) {
    ui.notice("The user defined vapors file " + path.filename().string() + " is damaged at line " +
              std::to_string(d.line) + ": " + d.what + ". The " + std::to_string(user.NUDV) +
              " vapors before it are kept; the file is not changed until a vapor is added, edited or deleted.");
    NoticeDamagedCopy(path, ui);
    return UserVaporsRead::kFailed;
  } catch (const VbError& e) {
    ui.notice(TrappedError("ReadUDV", e));
    NoticeDamagedCopy(path, ui);
    return UserVaporsRead::kFailed;
  }
  return UserVaporsRead::kRead;
}

bool WriteUDV(const std::filesystem::path& path, const UserVapors& user, Ui& ui) {
  try {
    TextOutput file(path);
    file.PrintLine(GeneralText(user.NUDV));
    for (int row = 1; row <= user.NUDV; ++row) {
      std::string line;
      for (int c = 1; c <= 9; ++c) line += GeneralText(user.UDVDATA(row, c)) + ",";
      file.PrintLine(line + user.UDVNAME(row));
    }
    file.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteUDV", e));
    return false;
  }
  return true;
}

bool UdvAdd(UdvScreen& screen, UserVapors& user, Ui& ui) {
  if (user.NUDV >= kMaxUserVapors) {
    ui.beep();
    return false;
  }
  screen.mode = UdvScreen::Mode::kEdit;
  ++user.NUDV;
  screen.TextUDV = {};
  screen.TextUDV[0] = GeneralText(static_cast<int>(-user.NUDV));
  screen.alcohol = false;
  screen.focus = 1;
  return true;
}

bool UdvEdit(UdvScreen& screen, const UserVapors& user, int id, Ui& ui) {
  const int row = RowOfId(user, id);
  if (row == 0) {
    ui.beep();
    return false;
  }
  screen.mode = UdvScreen::Mode::kEdit;
  screen.TextUDV[0] = GeneralText(static_cast<int>(-row));
  for (int field = 1; field <= 6; ++field) {
    const float value = user.UDVDATA(row, field + 1);
    const bool temperature = field % 2 == 1;
    screen.TextUDV[static_cast<size_t>(field)] =
        GeneralText(temperature && screen.fahrenheit ? FahrenheitOf(value) : value);
  }
  screen.TextUDV[7] = GeneralText(user.UDVDATA(row, 8));
  screen.TextUDV[8] = RTrim(user.UDVNAME(row));
  screen.alcohol = user.UDVDATA(row, 9) == 1;
  screen.focus = 1;
  return true;
}

bool UdvDelete(UserVapors& user, int id, const std::filesystem::path& path, Ui& ui) {
  const int row = RowOfId(user, id);
  if (row == 0) {
    ui.beep();
    return false;
  }
  if (!ui.ask("You are about to delete the data for " + RTrim(user.UDVNAME(row)) + "\r\n\r\n  Confirm Delete?",
              "Delete Vapor")) {
    return false;
  }
  for (int r = row; r < user.NUDV; ++r) {
    for (int c = 2; c <= 9; ++c) user.UDVDATA(r, c) = user.UDVDATA(r + 1, c);
    user.UDVDATA(r, 1) = static_cast<float>(-r);
    user.UDVNAME(r) = user.UDVNAME(r + 1);
  }
  for (int c = 1; c <= 9; ++c) user.UDVDATA(user.NUDV, c) = 0;
  user.UDVNAME(user.NUDV) = "";
  --user.NUDV;
  return WriteUDV(path, user, ui);
}

bool UdvFieldAccepted(int index, const std::string& text) {
  if (text.empty()) return true;
  if (!IsPlainNumber(text)) return false;
  const double value = Val(text);
  // A temperature of exactly 0 is refused, as it always was.
  if (index == 1 || index == 3 || index == 5) return value != 0;
  return value > 0;
}

bool ValidateUDV(const UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui) {
  const auto number = [&](int field) { return CSng(Val(screen.TextUDV[static_cast<size_t>(field)])); };
  int row = 0;
  float t1 = 0, t2 = 0, t3 = 0, p1 = 0, p2 = 0, p3 = 0, mw = 0;
  try {
    // A field beyond a Single's range is refused here: nothing is stored or written.
    row = std::abs(CInt(Val(screen.TextUDV[0])));
    t1 = number(1), t2 = number(3), t3 = number(5);
    p1 = number(2), p2 = number(4), p3 = number(6);
    mw = number(7);
  } catch (const VbError& e) {
    ui.notice(RunTimeErrorText(e));
    return false;
  }
  if (!(t1 < t2) || !(t1 < t3) || !(t2 < t3)) {
    ui.notice("ERROR: Temperatures may not be equal and must be in ascending order!");
    return false;
  }
  if (p1 == p2 || p1 == p3 || p2 == p3) {
    ui.notice("ERROR: Pressures may not be equal!");
    return false;
  }
  if (Trim(screen.TextUDV[8]).empty()) {
    ui.notice("ERROR: User defined vapors must be named!");
    return false;
  }
  if (row < 1 || row > kMaxUserVapors) throw VbError(9);
  if (screen.fahrenheit) {
    t1 = CelsiusOf(t1);
    t2 = CelsiusOf(t2);
    t3 = CelsiusOf(t3);
  }
  const float values[] = {static_cast<float>(-row), t1, p1, t2, p2, t3, p3, mw, screen.alcohol ? 1.0f : 0.0f};
  for (int c = 1; c <= 9; ++c) user.UDVDATA(row, c) = values[c - 1];
  user.UDVNAME(row) = FixedText(screen.TextUDV[8], kUserVaporNameLength);
  if (row > user.NUDV) user.NUDV = static_cast<int16_t>(row);
  return WriteUDV(path, user, ui);
}

bool UdvUpdate(UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui) {
  if (!ValidateUDV(screen, user, path, ui)) return false;
  screen.mode = UdvScreen::Mode::kBrowse;
  return true;
}

void UdvAbortChange(UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui) {
  ReadUDV(path, user, ui);
  screen.mode = UdvScreen::Mode::kBrowse;
}

std::string TemperatureUnitText(bool fahrenheit) { return fahrenheit ? "\xC2\xB0" "F" : "\xC2\xB0" "C"; }

std::array<std::string, 10> UdvGridHeads(bool fahrenheit) {
  const std::string unit = TemperatureUnitText(fahrenheit);
  return {"ID#",           "Name",     "MW",          "T1 " + unit, "P1 mmHgA",
          "T2 " + unit,    "P2 mmHgA", "T3 " + unit,  "P3 mmHgA",   "Alcohol=1"};
}

std::vector<std::array<std::string, 10>> UdvGridRows(const UserVapors& user, bool fahrenheit) {
  std::vector<std::array<std::string, 10>> rows;
  for (int row = 1; row <= user.NUDV; ++row) {
    std::array<std::string, 10> cells;
    cells[0] = GeneralText(user.UDVDATA(row, 1));
    cells[1] = RTrim(user.UDVNAME(row));
    cells[2] = GeneralText(user.UDVDATA(row, 8));
    for (int field = 1; field <= 6; ++field) {
      const float value = user.UDVDATA(row, field + 1);
      const bool temperature = field % 2 == 1;
      cells[static_cast<size_t>(field + 2)] =
          FormatFixed(temperature && fahrenheit ? FahrenheitOf(value) : value, 10.2f);
    }
    cells[9] = GeneralText(user.UDVDATA(row, 9));
    rows.push_back(cells);
  }
  return rows;
}

UdvCurve UdvGraph(const Vapors& vapors, int16_t row, bool fahrenheit) {
  UdvCurve curve;
  const auto& u = vapors.user.UDVDATA;
  const float t1 = u(row, 2), t3 = u(row, 6);
  const std::string unit = TemperatureUnitText(fahrenheit);
  const auto shown = [&](float celsius) { return fahrenheit ? FahrenheitOf(celsius) : celsius; };
  curve.title = GeneralText(u(row, 1)) + " ID# " + ": " + RTrim(vapors.user.UDVNAME(row)) + "   (MW:" +
                GeneralText(u(row, 8)) + ")";
  curve.subtitle = "T-min=" + GeneralText(shown(t1)) + unit + "    T-max=" + GeneralText(shown(t3)) + unit;
  curve.x_axis = "Temperature " + unit;
  curve.y_axis = "Vapor Pressure (mmHgA)";
  const float step = (t3 - t1) / 40;
  if (!(step > 0)) return curve;
  int number = 0;
  for (float t = t1; t <= t3 + 0.1f; t += step) {
    float pressure = 0;
    int16_t flag = 0;
    AntoineUser(vapors, row, FahrenheitOf(t), pressure, flag);
    if (flag > 1) {
      curve.points.clear();
      return curve;
    }
    float temperature = shown(t);
    RoundTo(temperature, 0.001f);
    curve.points.push_back({++number, temperature, pressure});
  }
  return curve;
}

}  // namespace kestrane
