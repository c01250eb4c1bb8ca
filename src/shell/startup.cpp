// The start sequence: every data set loaded once, in a fixed order, each announced by its progress text.
#include "shell/startup.h"

#include "properties/user_vapors.h"

namespace kestrane {

bool RunStartSequence(Session& session, Ui& ui) {
  AppData& data = session.data;
  session.EXITING = 0;

  ui.status(std::string(kStartProgressTexts[0]));
  if (!ReadSteamData(data.paths.DataFile(kSteamFile), data.steam, ui)) return false;

  ui.status(std::string(kStartProgressTexts[1]));
  SetCurves(data.curves);

  ui.status(std::string(kStartProgressTexts[2]));
  if (!ReadPsat(data.paths.DataFile(kVaporFile), data.vapors, ui)) return false;
  ReadUDV(data.paths.UserDataFile(kUserVaporFile), data.user_vapors, ui);

  ui.status(std::string(kStartProgressTexts[3]));
  SetConstants(data.constants);
  ReadPumps(data.paths.DataFile(kPumpFile), data.pumps, ui);

  // The drawings' stroke font; a missing or damaged file leaves the characters it did not give empty, silently.
  ui.status(std::string(kStartProgressTexts[4]));
  LoadDrawingFont(data.paths.DataFile(kDrawingFontFile), data.font);

  ui.status(std::string(kStartProgressTexts[5]));
  SetPumpTables(data.pumps.tables);

  ui.status(std::string(kStartProgressTexts[6]));
  data.userinfo_state = ReadUserInfo(data.paths.UserDataFile(kUserInfoFile), data.USERINFO, ui);

  // The main menu's slogan; the pricing configuration is read under it.
  ui.status(std::string(kStartProgressTexts[7]));
  ReadPricing(data.paths, data.pricing);
  return true;
}

}  // namespace kestrane
