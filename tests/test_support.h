// Helpers shared by the test suites: error numbers, a scratch folder per test, whole-file bytes, the command run.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "properties/vb.h"
#include "shell/app_data.h"

namespace kestrane::testing {

// The error number a call raises, 0 when it raises none.
template <typename F>
int ErrorNumberOf(F&& f) {
  try {
    f();
  } catch (const VbError& e) {
    return e.number();
  }
  return 0;
}

inline std::string ReadBytes(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

inline void WriteBytes(const std::filesystem::path& p, const std::string& bytes) {
  std::ofstream(p, std::ios::binary) << bytes;
}

// Puts the shipped steam table and vapor data base into a data folder.
inline void CopyProgramData(const std::filesystem::path& pgmfiles) {
  for (const char* name : {"MOLVBLG.DTA", "PSAT.DTA", "VPX.DTA", "CVRT.DTA", "KSConfig.DTA", "MULTIPLE.PRC", "TUBE.PRC",
                           "JETPRC.PRC"}) {
    std::filesystem::copy_file(std::filesystem::path(KESTRANE_SOURCE_DIR) / "pgmfiles" / name, pgmfiles / name,
                               std::filesystem::copy_options::overwrite_existing);
  }
}

// The shipped steam table, vapor data base and design tables, loaded once.
inline const AppData& ShippedData() {
  static const AppData* data = [] {
    auto* d = new AppData;
    RecordingUi ui;
    const std::filesystem::path pgm = std::filesystem::path(KESTRANE_SOURCE_DIR) / "pgmfiles";
    ReadSteamData(pgm / "MOLVBLG.DTA", d->steam, ui);
    ReadPsat(pgm / "PSAT.DTA", d->vapors, ui);
    SetCurves(d->curves);
    SetConstants(d->constants);
    ReadPumps(pgm / "VPX.DTA", d->pumps, ui);
    SetPumpTables(d->pumps.tables);
    ReadPricing(PathsForDataFolder(pgm, pgm), d->pricing);
    return d;
  }();
  return *data;
}

// The tests, and the programs they start, never touch the user's own data
// and documents folders: these stand unless a test sets its own.
inline const bool kTestUserFolders = [] {
  const std::filesystem::path home = std::filesystem::temp_directory_path() / "kestrane-test-user";
  ::setenv("XDG_DATA_HOME", (home / "data").c_str(), 1);
  ::setenv("XDG_DOCUMENTS_DIR", (home / "documents").c_str(), 1);
  return true;
}();

// What the command printed and its exit status.
struct CliRun {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// Runs a shell command line: its standard output, standard error and exit status.
inline CliRun Run(const std::string& command_line) {
  const std::filesystem::path err_file =
      std::filesystem::temp_directory_path() / ("kestrane_cli_err_" + std::to_string(::getpid()));
  const std::string command = command_line + " 2>" + err_file.string();
  CliRun r;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buf{};
  size_t n = 0;
  while ((n = std::fread(buf.data(), 1, buf.size(), pipe)) > 0) r.out.append(buf.data(), n);
  const int status = ::pclose(pipe);
  r.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  r.err = ReadBytes(err_file);
  std::filesystem::remove(err_file);
  return r;
}

// Runs the kestrane command with the given arguments (already quoted for the shell).
inline CliRun Kestrane(const std::string& args) { return Run(std::string(KESTRANE_CLI) + " " + args); }

// A fresh empty folder for each test, removed afterwards. The user's data
// folder and documents folder of the test (and of the programs it starts) lie
// in it: data/kestrane and documents/Kestrane.
class ScratchFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = std::filesystem::temp_directory_path() /
          ("kestrane_" + std::to_string(::getpid()) + "_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() + "_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    ::setenv("XDG_DATA_HOME", (dir / "data").c_str(), 1);
    ::setenv("XDG_DOCUMENTS_DIR", (dir / "documents").c_str(), 1);
  }
  void TearDown() override { std::filesystem::remove_all(dir); }
  std::filesystem::path dir;
};

// A path quoted for the shell.
inline std::string Quoted(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

// A scratch folder holding the shipped data, used as the program's data
// folder by the commands given Pgm() before their command.
class DataFolder : public ScratchFolder {
 protected:
  void SetUp() override {
    ScratchFolder::SetUp();
    CopyProgramData(dir);
  }
  std::string Pgm() const { return "--pgmfiles " + Quoted(dir) + " "; }
};

}  // namespace kestrane::testing
