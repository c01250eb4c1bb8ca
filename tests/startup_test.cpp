// The start sequence, the user information store and the screen rules shared by every window.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "shell/forms.h"
#include "shell/startup.h"
#include "shell/user_info.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;

// A program folder with its pgmfiles.
class ProgramFolder : public kestrane::testing::ScratchFolder {
 protected:
  void SetUp() override {
    ScratchFolder::SetUp();
    fs::create_directories(dir / "pgmfiles");
    kestrane::testing::CopyProgramData(dir / "pgmfiles");
    fs::create_directories(UserInfoPath().parent_path());
  }
  fs::path UserInfoPath() const { return dir / "data" / "kestrane" / "USERINFO.DTA"; }
};

// Records when each status text arrived relative to the user information request.
class OrderUi : public RecordingUi {
 public:
  void request_user_info(const std::string& path) override {
    asked_after = statuses.size();
    asked_path = path;
  }
  size_t asked_after = 0;
  std::string asked_path;
};

}  // namespace

TEST_F(ProgramFolder, StartSequenceShowsEveryProgressTextInOrder) {
  Session session(PathsForProgram(dir));
  RecordingUi ui;
  RunStartSequence(session, ui);
  ASSERT_EQ(ui.statuses.size(), kStartProgressTexts.size());
  for (size_t i = 0; i < kStartProgressTexts.size(); ++i) EXPECT_EQ(ui.statuses[i], kStartProgressTexts[i]);
  EXPECT_EQ(ui.statuses.back(), "ENGINEERING ANSWERS FOR YOUR VACUUM SYSTEM NEEDS");
  EXPECT_EQ(kStartProgressTexts[6], "Reading User Data........................");
  EXPECT_EQ(session.data.curves.VELOCITYCURVE.hi1(), 17);
  EXPECT_EQ(session.data.constants.BAROTAB.hi1(), 39);
  EXPECT_TRUE(session.data.pumps.loaded);
  EXPECT_EQ(session.data.pumps.tables.discharge(4), 10.0f);
}

TEST_F(ProgramFolder, AMissingPumpCatalogueIsReportedAndTheStartGoesOn) {
  std::filesystem::remove(dir / "pgmfiles" / "VPX.DTA");
  Session session(PathsForProgram(dir));
  RecordingUi ui;
  EXPECT_TRUE(RunStartSequence(session, ui));
  EXPECT_FALSE(session.data.pumps.loaded);
  EXPECT_EQ(ui.statuses.size(), kStartProgressTexts.size());
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_NE(ui.notices[0].find("VPX.DTA"), std::string::npos);
}

TEST_F(ProgramFolder, MissingUserInformationIsAskedForDuringLoadAndTheLoadGoesOn) {
  Session session(PathsForProgram(dir));
  OrderUi ui;
  RunStartSequence(session, ui);
  EXPECT_EQ(session.data.userinfo_state, UserInfoRead::kMissing);
  EXPECT_EQ(ui.asked_after, 7u) << "asked while reading user data, before the slogan";
  EXPECT_EQ(ui.asked_path, UserInfoPath().string());
  EXPECT_EQ(ui.statuses.size(), 8u);
  for (int row = 1; row <= kUserInfoRows; ++row) EXPECT_EQ(session.data.USERINFO(row), "");
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(ProgramFolder, CommandLineUiSaysWhereToEnterMissingUserInformation) {
  RecordingUi ui;
  UserInfo rows(kUserInfoRows);
  EXPECT_EQ(ReadUserInfo(UserInfoPath(), rows, ui), UserInfoRead::kMissing);
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_NE(ui.notices[0].find("kestrane userinfo set"), std::string::npos);
  EXPECT_NE(ui.notices[0].find(UserInfoPath().string()), std::string::npos);
}

TEST_F(ProgramFolder, UserInformationIsReadAtStartUp) {
  WriteBytes(UserInfoPath(), "Ann\r\nAcme Vacuum\r\n1 Main St\r\n\r\nSpringfield\r\n555-0100\r\n\r\nann@example.com\r\n");
  Session session(PathsForProgram(dir));
  RecordingUi ui;
  RunStartSequence(session, ui);
  EXPECT_EQ(session.data.userinfo_state, UserInfoRead::kRead);
  EXPECT_EQ(session.data.USERINFO(1), "Ann");
  EXPECT_EQ(session.data.USERINFO(4), "");
  EXPECT_EQ(session.data.USERINFO(8), "ann@example.com");
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(ProgramFolder, EightEmptyRowsRoundTrip) {
  RecordingUi ui;
  UserInfo rows(kUserInfoRows);
  ASSERT_TRUE(WriteUserInfo(UserInfoPath(), rows, ui));
  EXPECT_EQ(ReadBytes(UserInfoPath()), "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
  UserInfo back(kUserInfoRows);
  for (int row = 1; row <= kUserInfoRows; ++row) back(row) = "x";
  EXPECT_EQ(ReadUserInfo(UserInfoPath(), back, ui), UserInfoRead::kRead);
  for (int row = 1; row <= kUserInfoRows; ++row) EXPECT_EQ(back(row), "");
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(ProgramFolder, RowsAreWrittenAsTheyStandWithoutQuoting) {
  RecordingUi ui;
  UserInfo rows(kUserInfoRows);
  rows(1) = "J. \"Doc\" Smith, P.E.";
  rows(3) = "  Suite 5  ";
  rows(8) = "r\xC3\xA9sum\xC3\xA9@example.com";
  ASSERT_TRUE(WriteUserInfo(UserInfoPath(), rows, ui));
  EXPECT_EQ(ReadBytes(UserInfoPath()),
            "J. \"Doc\" Smith, P.E.\r\n\r\n  Suite 5  \r\n\r\n\r\n\r\n\r\nr\xE9sum\xE9@example.com\r\n");
  UserInfo back(kUserInfoRows);
  ReadUserInfo(UserInfoPath(), back, ui);
  for (int row = 1; row <= kUserInfoRows; ++row) EXPECT_EQ(back(row), rows(row));
}

TEST_F(ProgramFolder, AShortFileReportsItsErrorAndKeepsTheRowsRead) {
  WriteBytes(UserInfoPath(), "Ann\r\nAcme\r\nStreet\r\n");
  RecordingUi ui;
  UserInfo rows(kUserInfoRows);
  rows(5) = "before";
  EXPECT_EQ(ReadUserInfo(UserInfoPath(), rows, ui), UserInfoRead::kFailed);
  ASSERT_EQ(ui.notices.size(), 2u);
  EXPECT_EQ(ui.notices[0], "ReadUserInfo Error: 62 Input past end of file");
  EXPECT_EQ(ui.notices[1], "The file USERINFO.DTA could not be read whole; it is kept as it was in USERINFO.DTA.bak.");
  EXPECT_EQ(ReadBytes(fs::path(UserInfoPath()) += ".bak"), "Ann\r\nAcme\r\nStreet\r\n");
  EXPECT_EQ(rows(1), "Ann");
  EXPECT_EQ(rows(3), "Street");
  EXPECT_EQ(rows(4), "");
  EXPECT_EQ(rows(5), "before");
}

TEST_F(ProgramFolder, AFailedWriteReportsItsErrorAndKeepsThePreviousFile) {
  WriteBytes(UserInfoPath(), "old\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
  fs::create_directory(fs::path(UserInfoPath()) += ".tmp" + std::to_string(::getpid()));
  RecordingUi ui;
  UserInfo rows(kUserInfoRows);
  rows(1) = "new";
  EXPECT_FALSE(WriteUserInfo(UserInfoPath(), rows, ui));
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0], "WriteUserInfo Error: 75 Path/File access error");
  EXPECT_EQ(ReadBytes(UserInfoPath()), "old\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
}

TEST_F(ProgramFolder, UserFilesAreSeededOnceFromTheShippedCopyWhichStaysAsItIs) {
  const std::string shipped = "1\r\n-1,20,40,50,200,80,700,58,0,Shipped\r\n";
  WriteBytes(dir / "pgmfiles" / "UDV.DTA", shipped);
  Session first(PathsForProgram(dir));
  RecordingUi ui;
  ASSERT_TRUE(RunStartSequence(first, ui));
  EXPECT_EQ(first.data.user_vapors.NUDV, 1);
  const fs::path mine = dir / "data" / "kestrane" / "UDV.DTA";
  EXPECT_EQ(ReadBytes(mine), shipped);

  // The user's own vapors are read from then on; the shipped copy never changes.
  WriteBytes(mine, "2\r\n-1,20,40,50,200,80,700,58,0,Mine\r\n-2,20,40,50,200,80,700,58,0,Also mine\r\n");
  Session second(PathsForProgram(dir));
  ASSERT_TRUE(RunStartSequence(second, ui));
  EXPECT_EQ(second.data.user_vapors.NUDV, 2);
  EXPECT_EQ(ReadBytes(dir / "pgmfiles" / "UDV.DTA"), shipped);
}

TEST_F(ProgramFolder, DataAndCaseFoldersFollowTheUsersDesktopSettings) {
  const std::string home = ::getenv("HOME") ? ::getenv("HOME") : "";
  ::setenv("HOME", dir.c_str(), 1);
  ::unsetenv("XDG_DATA_HOME");
  ::unsetenv("XDG_DOCUMENTS_DIR");
  ::setenv("XDG_CONFIG_HOME", (dir / "config").c_str(), 1);
  ProgramPaths defaults = PathsForProgram(dir);
  EXPECT_EQ(defaults.userdata, dir / ".local" / "share" / "kestrane");
  EXPECT_EQ(defaults.usrfiles, dir / "Documents" / "Kestrane");
  EXPECT_EQ(defaults.pgmfiles, dir / "pgmfiles");

  fs::create_directories(dir / "config");
  WriteBytes(dir / "config" / "user-dirs.dirs", "# written by xdg-user-dirs-update\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  EXPECT_EQ(PathsForProgram(dir).usrfiles, dir / "Dokumente" / "Kestrane");

  // One folder for everything, as --pgmfiles asks.
  const ProgramPaths one = PathsForDataFolder(dir, dir / "elsewhere");
  EXPECT_EQ(one.pgmfiles, dir / "elsewhere");
  EXPECT_EQ(one.userdata, dir / "elsewhere");
  ::setenv("HOME", home.c_str(), 1);
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(ProgramFolder, AnInstalledProgramFindsItsDataAndExamplesUnderShare) {
  const fs::path usr = dir / "usr";
  fs::create_directories(usr / "bin");
  fs::create_directories(usr / "share" / "kestrane");
  fs::create_directories(usr / "share" / "doc" / "kestrane" / "examples");
  const ProgramPaths installed = PathsForProgram(usr / "bin");
  EXPECT_EQ(installed.pgmfiles, usr / "share" / "kestrane");
  EXPECT_EQ(installed.examples, usr / "share" / "doc" / "kestrane" / "examples");

  // Folders beside the program win, as in the build tree.
  fs::create_directories(usr / "bin" / "pgmfiles");
  fs::create_directories(usr / "bin" / "usrfiles");
  const ProgramPaths beside = PathsForProgram(usr / "bin");
  EXPECT_EQ(beside.pgmfiles, usr / "bin" / "pgmfiles");
  EXPECT_EQ(beside.examples, usr / "bin" / "usrfiles");
}

TEST_F(ProgramFolder, TheCaseFolderIsSeededWithTheExamplesOnlyWhenItIsNew) {
  fs::create_directories(dir / "usrfiles");
  WriteBytes(dir / "usrfiles" / "EXAMPLE.JET", "shipped");
  const ProgramPaths paths = PathsForProgram(dir);
  SeedCaseFolder(paths);
  EXPECT_EQ(ReadBytes(dir / "documents" / "Kestrane" / "EXAMPLE.JET"), "shipped");
  WriteBytes(dir / "documents" / "Kestrane" / "EXAMPLE.JET", "edited by the user");
  WriteBytes(dir / "usrfiles" / "OTHER.JET", "new example");
  SeedCaseFolder(paths);
  EXPECT_EQ(ReadBytes(dir / "documents" / "Kestrane" / "EXAMPLE.JET"), "edited by the user");
  EXPECT_FALSE(fs::exists(dir / "documents" / "Kestrane" / "OTHER.JET"));
}

namespace {

class FakeHost : public FormHost {
 public:
  void SwapForms(Form leaving, Form coming) override { swaps.emplace_back(leaving, coming); }
  void SendTab(bool backwards) override { tabs.push_back(backwards); }
  void ProcessEvents() override {
    ++events;
    clock += 0.25f;
  }
  float Timer() override { return clock; }
  std::vector<std::pair<Form, Form>> swaps;
  std::vector<bool> tabs;
  int events = 0;
  float clock = 100;
};

}  // namespace

TEST(Keys, EnterMovesOnAndIsSwallowed) {
  FakeHost host;
  int16_t key = 13;
  EnterToTab(key, host);
  EXPECT_EQ(key, 0);
  ASSERT_EQ(host.tabs.size(), 1u);
  EXPECT_FALSE(host.tabs[0]);
  key = 65;
  EnterToTab(key, host);
  EXPECT_EQ(key, 65);
  EXPECT_EQ(host.tabs.size(), 1u);
}

TEST(Keys, ArrowsMoveBetweenFieldsAndPageKeysDoNothing) {
  FakeHost host;
  ArrowToTab(40, host);
  ArrowToTab(38, host);
  ArrowToTab(33, host);
  ArrowToTab(34, host);
  ArrowToTab(37, host);
  EXPECT_EQ(host.tabs, (std::vector<bool>{false, true}));
}

TEST(Delay, KeepsTheScreenAliveUntilTheTimeHasPassed) {
  FakeHost host;
  DelaySeconds(1.0f, host);
  EXPECT_EQ(host.events, 4);
  DelaySeconds(0, host);
  EXPECT_EQ(host.events, 4);
}

TEST(WindowGeometry, MaximisedWindowsAreNotMovedSoTheNormalPlaceSurvives) {
  WindowGeometry shared{0, 100, 200, 9720, 6900};
  WindowGeometry form{0, 100, 200, 9720, 6900};
  auto same = ApplyWindowGeometry(form, shared);
  EXPECT_FALSE(same.set_state);
  EXPECT_FALSE(same.move);

  form.WINLEFT = 300;
  EXPECT_TRUE(ApplyWindowGeometry(form, shared).move);

  // The user maximises: the state is saved but the stored place is not used.
  WindowGeometry maximised{2, 0, 0, 15000, 11000};
  WindowGeometry shared_max = shared;
  shared_max.WINSTATE = 2;
  auto change = ApplyWindowGeometry(maximised, shared_max);
  EXPECT_FALSE(change.set_state);
  EXPECT_FALSE(change.move);
  WindowGeometry normal_form{0, 0, 0, 15000, 11000};
  auto to_max = ApplyWindowGeometry(normal_form, shared_max);
  EXPECT_TRUE(to_max.set_state);
  EXPECT_FALSE(to_max.move);

  WindowGeometry saved;
  SaveWindowGeometry(form, saved);
  EXPECT_EQ(saved.WINLEFT, 300);
  EXPECT_EQ(saved.WINHEIGHT, 6900);
}
