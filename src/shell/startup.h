// The start sequence: every data set loaded once, in a fixed order, each announced by its progress text.
#pragma once

#include <array>
#include <string_view>

#include "shell/session.h"
#include "shell/ui.h"

namespace kestrane {

// The progress texts of the start sequence, in order.
inline constexpr std::array<std::string_view, 8> kStartProgressTexts = {
    "Reading Steam Data....",
    "Setting Mollier Data......",
    "Reading Vapor Pressure Data....",
    "Setting program constants.........",
    "Reading drawing information.........",
    "Reading LRVP Data.....................",
    "Reading User Data........................",
    "ENGINEERING ANSWERS FOR YOUR VACUUM SYSTEM NEEDS"};

// Loads every data set into session.data, showing each progress text through
// Ui::status before its step. A data file that is missing or broken is
// reported by its own reader. Without a steam table or the vapor data base
// the program cannot run: the sequence stops there and returns false. Otherwise it goes on to the end,
// the status keeping the last text, the main menu's slogan.
bool RunStartSequence(Session& session, Ui& ui);

}  // namespace kestrane
