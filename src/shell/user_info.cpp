// The user information store USERINFO.DTA: eight lines, one per row, printed on every sheet's header.
#include "shell/user_info.h"

#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {


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
    ui.notice(TrappedError("ReadUserInfo", e));
    NoticeDamagedCopy(path, ui);
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
    ui.notice(TrappedError("WriteUserInfo", e));
    return false;
  }
  return true;
}

}  // namespace kestrane
