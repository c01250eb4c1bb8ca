// kestrane userinfo show|set: the user information printed in every sheet's header.
#include <array>
#include <filesystem>

#include "cli.h"
#include "shell/user_info.h"

namespace kestrane::cli {

namespace {

// Option names of the eight rows, in file order.
constexpr std::array<const char*, kUserInfoRows> kRowOptions = {"--name",     "--company", "--address1", "--address2",
                                                                "--address3", "--phone",   "--fax",      "--email"};

struct UserInfoArgs {
  bool json = false;
  std::array<std::string, kUserInfoRows> values;
  std::array<CLI::Option*, kUserInfoRows> given{};
};

int Show(const GlobalOptions& options, const UserInfoArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  const std::filesystem::path path = session->data.paths.UserDataFile(kUserInfoFile);
  UserInfo rows(kUserInfoRows);
  ReadUserInfo(path, rows, ui);
  if (args.json) {
    nlohmann::json doc;
    doc["path"] = path.string();
    doc["notices"] = ui.notices;
    for (int row = 1; row <= kUserInfoRows; ++row) {
      doc["USERINFO"].push_back(rows(row));
      doc["captions"].push_back(kUserInfoCaptions[static_cast<size_t>(row - 1)]);
    }
    PrintJson(doc);
    return kExitDone;
  }
  for (int row = 1; row <= kUserInfoRows; ++row) {
    const std::string caption(kUserInfoCaptions[static_cast<size_t>(row - 1)]);
    std::cout << caption << ':' << std::string(18 - caption.size(), ' ') << rows(row) << '\n';
  }
  return kExitDone;
}

int Set(const GlobalOptions& options, const UserInfoArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  const std::filesystem::path path = session->data.paths.UserDataFile(kUserInfoFile);
  UserInfo rows(kUserInfoRows);
  // Rows not named on the command line keep what the file holds.
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) ReadUserInfo(path, rows, ui);
  for (int row = 1; row <= kUserInfoRows; ++row) {
    const auto i = static_cast<size_t>(row - 1);
    if (args.given[i]->count() > 0) rows(row) = args.values[i];
  }
  if (!WriteUserInfo(path, rows, ui)) return kExitUsage;
  if (args.json) {
    nlohmann::json doc;
    doc["path"] = path.string();
    doc["notices"] = ui.notices;
    for (int row = 1; row <= kUserInfoRows; ++row) doc["USERINFO"].push_back(rows(row));
    PrintJson(doc);
  }
  return kExitDone;
}

}  // namespace

void AddUserInfoCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* group = app.add_subcommand("userinfo", "Show or set the user information printed on every sheet");
  group->require_subcommand(1);
  auto args = std::make_shared<UserInfoArgs>();

  auto* show = group->add_subcommand("show", "Print the eight rows of the user information");
  show->add_flag("--json", args->json, "Print the rows as JSON");
  show->callback([&options, &exit_code, args] { exit_code = Show(options, *args); });

  auto* set = group->add_subcommand("set", "Change the rows given; the others keep their text");
  set->add_flag("--json", args->json, "Print the rows written as JSON");
  for (size_t i = 0; i < kRowOptions.size(); ++i) {
    args->given[i] = set->add_option(kRowOptions[i], args->values[i], std::string(kUserInfoCaptions[i]));
  }
  set->callback([&options, &exit_code, args] { exit_code = Set(options, *args); });
}

}  // namespace kestrane::cli
