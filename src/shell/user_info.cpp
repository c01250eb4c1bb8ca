// The user information store USERINFO.DTA: eight lines, one per row, printed on every sheet's header.
#include "shell/user_info.h"

#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

namespace {

std::string ErrorMessage(std::string_view routine, const VbError& e) {
  return std::string(routine) + " Error:" + Str(e.number()) + " " + e.description();
}

}  // namespace

UserInfoRead ReadUserInfo(const std::filesystem::path& path, UserInfo& rows, Ui& ui) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    ui.request_user_info(path.string());
    return UserInfoRead::kMissing;
  }
  try {
    TextInput file(path);
    for (int row = 1; row <= kUserInfoRows; ++row) rows(row) = file.LineInput();
  } catch (const VbError& e) {
    ui.notice(ErrorMessage("ReadUserInfo", e));
    return UserInfoRead::kFailed;
  }
  return UserInfoRead::kRead;
}

bool WriteUserInfo(const std::filesystem::path& path, const UserInfo& rows, Ui& ui) {
  try {
    TextOutput file(path);
    for (int row = 1; row <= kUserInfoRows; ++row) file.PrintLine(rows(row));
    file.Commit();
  } catch (const VbError& e) {
    ui.notice(ErrorMessage("WriteUserInfo", e));
    return false;
  }
  return true;
}

}  // namespace kestrane
