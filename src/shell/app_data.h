// Everything the start sequence loads: read-only afterwards except through the owners of each data set.
#pragma once

#include "properties/steam.h"
#include "properties/stroke_font.h"
#include "properties/vapors.h"
#include "pump/pump_data.h"
#include "shell/constants.h"
#include "shell/paths.h"
#include "shell/price_files.h"
#include "shell/user_info.h"

namespace kestrane {

struct AppData {
  ProgramPaths paths;
  SteamTable steam;
  Curves curves;
  VaporData vapors;
  UserVapors user_vapors;
  Constants constants;
  PumpData pumps;
  DrawFont font;  // the drawings' stroke font
  UserInfo USERINFO{kUserInfoRows};
  UserInfoRead userinfo_state = UserInfoRead::kMissing;
  // The pricing data; its PRICEMODE is the internal mode: 2 also writes the
  // debugger grid to OUT.CSV after each design.
  PriceData pricing;
};

}  // namespace kestrane
