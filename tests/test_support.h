// Helpers shared by the test suites: error numbers, a scratch folder per test, whole-file bytes.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

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
  for (const char* name : {"MOLVBLG.DTA", "PSAT.DTA", "VPX.DTA", "CVRT.DTA"}) {
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
    return d;
  }();
  return *data;
}

// A fresh empty folder for each test, removed afterwards.
class ScratchFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = std::filesystem::temp_directory_path() /
          ("kestrane_" + std::to_string(::getpid()) + "_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() + "_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
  }
  void TearDown() override { std::filesystem::remove_all(dir); }
  std::filesystem::path dir;
};

}  // namespace kestrane::testing
