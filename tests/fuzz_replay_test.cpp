// The fuzzers' regression corpus replayed through the same entry points: every input once broke a reader or stands
// for a damaged file of its kind; each must now be read, refused or read in part, without a crash or a hang.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <string>

#include "fuzz_entries.h"
#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::fuzz::FindFuzzEntry;
using kestrane::fuzz::FuzzEntries;
using kestrane::fuzz::FuzzEntry;

namespace {

const fs::path kCorpus = fs::path(KESTRANE_SOURCE_DIR) / "tests" / "fuzz_corpus";

std::set<std::string> CorpusFolders() {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(kCorpus)) {
    if (entry.is_directory()) names.insert(entry.path().filename().string());
  }
  return names;
}

class CorpusReplay : public ::testing::TestWithParam<std::string> {};

}  // namespace

TEST(FuzzCorpus, EveryEntryPointHasACorpusFolderAndEveryFolderAnEntryPoint) {
  std::set<std::string> entries;
  for (const FuzzEntry& entry : FuzzEntries()) entries.insert(std::string(entry.name));
  EXPECT_EQ(entries, CorpusFolders());
  EXPECT_EQ(FindFuzzEntry("no such reader"), nullptr);
}

TEST_P(CorpusReplay, EveryInputIsReadWithoutCrashOrHang) {
  const FuzzEntry* entry = FindFuzzEntry(GetParam());
  ASSERT_NE(entry, nullptr);
  int inputs = 0;
  for (const auto& file : fs::directory_iterator(kCorpus / GetParam())) {
    const auto start = std::chrono::steady_clock::now();
    entry->feed(kestrane::testing::ReadBytes(file.path()));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << file.path();
    ++inputs;
  }
  EXPECT_GT(inputs, 0);
}

INSTANTIATE_TEST_SUITE_P(Readers, CorpusReplay, ::testing::ValuesIn(CorpusFolders()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });
