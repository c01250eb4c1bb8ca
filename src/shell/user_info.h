// The user information store USERINFO.DTA: eight lines, one per row, printed on every sheet's header.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "properties/arrays.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kUserInfoRows = 8;
inline constexpr std::string_view kUserInfoFile = "USERINFO.DTA";

// Captions of the eight rows, in file order.
inline constexpr std::array<std::string_view, kUserInfoRows> kUserInfoCaptions = {
    "User Name",        "Company Name", "Address (line 1)", "Address (line 2)",
    "Address (line 3)", "Phone Number", "Fax Number",       "Email"};

// USERINFO rows 1..8.
using UserInfo = Array1D<std::string>;

enum class UserInfoRead { kRead, kMissing, kFailed };

// Reads the file into rows 1..8. A missing file asks the user for the
// information (Ui::request_user_info) and leaves the rows as they are; any
// other error shows its number and text, and the rows read so far stand.
UserInfoRead ReadUserInfo(const std::filesystem::path& path, UserInfo& rows, Ui& ui);

// Writes rows 1..8, one per line; an error shows its number and text and
// leaves the previous file as it was. True when written.
bool WriteUserInfo(const std::filesystem::path& path, const UserInfo& rows, Ui& ui);

}  // namespace kestrane
