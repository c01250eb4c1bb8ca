// The JET case file: round trips of the examples, the older layout, damaged files and safe saves.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <tuple>

#include "case/jet_file.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

auto Controls(const InputScreen& s) {
  return std::tie(s.txtHeadingInput, s.txtInput, s.txtInputA, s.txtCost, s.OptionCondenserType, s.OptionStages,
                  s.chkboxPreCondenser, s.chkboxLRVP, s.txtCID, s.txtCpph, s.txtCpphA, s.txtNCpph, s.txtNCpphA,
                  s.txtNCMW, s.OptionUnits, s.OptionCycles, s.txtDesign, s.txtDesignA, s.lists, s.OptionOptimize);
}

using CaseFile = kestrane::testing::ScratchFolder;

// An older-layout case typed by hand: LF line ends, numbers with blanks,
// one shell and tube button, no water outlet row, no heads, no optimise options.
std::string OlderCase() {
  std::vector<std::string> lines = {" 2", "Old item", "Old description", "JB"};
  const char* pairs[] = {"50", "   6.6667", "100", "   37.7778", "770", "   102.6667",
                         "150", "   10.3421", "0", "0", "85", "   29.4444", "0.002", "0.0004"};
  lines.insert(lines.end(), std::begin(pairs), std::end(pairs));
  for (const char* v : {"5", "0.03", "0.1", " 1 ", " 0", " 0", " 0", " 0", "-1", " 0", " 0", " 0", " 0"}) lines.push_back(v);
  const char* condensibles[] = {"Water vapor", "40", "", "13", "25", ""};
  lines.insert(lines.end(), std::begin(condensibles), std::end(condensibles));
  lines.insert(lines.end(), 24, "");
  for (const char* v : {"20", "", "29"}) lines.push_back(v);
  lines.insert(lines.end(), 27, "");
  for (const char* v : {"-1", " 0", "-1", " 0", "75", "", "200", "", "20", "", "300", ""}) lines.push_back(v);
  for (const char* v : {" 2", " 0", " 1", " 1", " 0", " 0", " 0", " 0", " 2", " 1", " 3"}) lines.push_back(v);
  std::string text;
  for (const auto& line : lines) text += line + "\n";
  return text;
}

}  // namespace

TEST(ExampleCases, TheGeneratorReproducesThemByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_examples_" + std::to_string(::getpid()));
  fs::create_directories(out);
  const fs::path tool = fs::path(KESTRANE_CLI).parent_path() / "make_example_cases";
  ASSERT_EQ(std::system((tool.string() + " '" + out.string() + "'").c_str()), 0);
  int count = 0;
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    ++count;
    EXPECT_TRUE(ReadBytes(entry.path()) == ReadBytes(out / entry.path().filename())) << entry.path();
  }
  EXPECT_GE(count, 17);
  EXPECT_EQ(std::distance(fs::directory_iterator(out), fs::directory_iterator{}), count);
  fs::remove_all(out);
}

TEST_F(CaseFile, EveryExampleRoundTripsToTheSameBytesAndControls) {
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".JET") continue;
    RecordingUi ui;
    InputScreen first;
    ASSERT_TRUE(ReadCase(entry.path(), first, ui)) << entry.path();
    const fs::path copy = dir / entry.path().filename();
    ASSERT_TRUE(WriteCase(copy, first, ui));
    EXPECT_TRUE(ReadBytes(copy) == ReadBytes(entry.path())) << entry.path();
    InputScreen second;
    ASSERT_TRUE(ReadCase(copy, second, ui));
    EXPECT_TRUE(Controls(first) == Controls(second)) << entry.path();
    EXPECT_TRUE(ui.notices.empty());
  }
}

TEST_F(CaseFile, UnderACommaDecimalLocaleCasesReadAndSaveAsUnderC) {
  // A German locale compiled into the scratch folder (the desktop sets the user's locale at start).
  const fs::path locales = dir / "locale";
  fs::create_directories(locales);
  ASSERT_EQ(std::system(("localedef -i de_DE -f UTF-8 '" + (locales / "de_DE.UTF-8").string() + "' 2>/dev/null").c_str()), 0);
  ::setenv("LOCPATH", locales.c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  ASSERT_STREQ(std::localeconv()->decimal_point, ",") << "the test runs under a comma-decimal locale";

  EXPECT_EQ(Str(2.01f), " 2.01");
  EXPECT_EQ(Format(1234.5678f, "0.00"), "1234.57");
  EXPECT_EQ(Val("606.5"), 606.5);
  EXPECT_TRUE(IsNumeric("1.5E-3"));
  std::vector<std::string> texts;
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".JET") continue;
    RecordingUi ui;
    InputScreen screen;
    ASSERT_TRUE(ReadCase(entry.path(), screen, ui)) << entry.path() << ": " << (ui.notices.empty() ? "" : ui.notices[0]);
    RecomputePairs(screen);
    const fs::path copy = dir / entry.path().filename();
    ASSERT_TRUE(WriteCase(copy, screen, ui));
    EXPECT_TRUE(ReadBytes(copy) == ReadBytes(entry.path())) << entry.path();
    texts.push_back(screen.txtInputA[0] + screen.txtCpphA[0]);
  }
  std::setlocale(LC_ALL, "C");
  ::unsetenv("LOCPATH");
  // The metric boxes hold the same texts as under C.
  size_t k = 0;
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".JET") continue;
    RecordingUi ui;
    InputScreen screen;
    ASSERT_TRUE(ReadCase(dir / entry.path().filename(), screen, ui));
    RecomputePairs(screen);
    EXPECT_EQ(screen.txtInputA[0] + screen.txtCpphA[0], texts.at(k++)) << entry.path();
  }
  EXPECT_EQ(k, texts.size());
}

TEST_F(CaseFile, ListIndicesAndOptionsAreKeptByPosition) {
  InputScreen s = NewCase();
  s.lists[kTubeMaterial] = 12;  // "ALLOY 20"
  s.lists[kInletHead] = 1;
  SelectOption(s, s.OptionOptimize, 1);
  SelectOption(s, s.OptionCondenserType, 1);
  s.chkboxLRVP = 1;
  RecordingUi ui;
  ASSERT_TRUE(SaveCaseAs(dir / "LISTS.JET", s, ui));
  EXPECT_EQ(s.CASEDIRTY, 0);
  EXPECT_EQ(s.CASENAME, "LISTS.JET");
  InputScreen back;
  ASSERT_TRUE(OpenCase(dir / "LISTS.JET", back, ui));
  EXPECT_EQ(back.lists[kTubeMaterial], 12);
  EXPECT_EQ(back.lists[kInletHead], 1);
  EXPECT_EQ(back.OptionOptimize, (std::array<int16_t, 2>{0, -1}));
  EXPECT_EQ(back.OptionCondenserType, (std::array<int16_t, 4>{0, -1, 0, 0}));
  EXPECT_EQ(back.chkboxLRVP, 1);
  const std::string bytes = ReadBytes(dir / "LISTS.JET");
  EXPECT_EQ(bytes.substr(0, 7), " 2.01\r\n");
}

TEST_F(CaseFile, AnOlderLayoutTypedByHandReadsTheOlderWay) {
  WriteBytes(dir / "OLD.JET", OlderCase());
  InputScreen s = NewCase();
  SelectOption(s, s.OptionOptimize, 1);
  s.txtInput[6] = "120";
  s.lists[kReturnHead] = 1;
  RecordingUi ui;
  ASSERT_TRUE(ReadCase(dir / "OLD.JET", s, ui)) << (ui.notices.empty() ? "" : ui.notices[0]);
  EXPECT_EQ(s.txtHeadingInput[2], "JB");
  EXPECT_EQ(s.txtInput[5], "85");
  EXPECT_EQ(s.txtInput[6], "") << "no water outlet row in this layout";
  EXPECT_EQ(s.txtInputA[6], "");
  EXPECT_EQ(s.txtInput[7], "0.002");
  EXPECT_EQ(s.OptionCondenserType, (std::array<int16_t, 4>{-1, 0, 0, 0}));
  EXPECT_EQ(s.OptionStages, (std::array<int16_t, 5>{0, 0, -1, 0, 0}));
  EXPECT_EQ(s.txtCID[0], "WATER") << "forced after the loads";
  EXPECT_EQ(s.txtCID[1], "13");
  EXPECT_EQ(s.txtNCMW[0], "29");
  EXPECT_EQ(s.lists[kTubeMaterial], 2);
  EXPECT_EQ(s.lists[kCNDCode], 3);
  EXPECT_EQ(s.lists[kReturnHead], 0);
  EXPECT_EQ(s.OptionOptimize, (std::array<int16_t, 2>{-1, 0})) << "defaults";
  // The metric side is recomputed from the standard one.
  EXPECT_EQ(s.txtInputA[0], "      6.6667");
  EXPECT_EQ(s.txtInputA[3], "     10.3421");
  EXPECT_EQ(s.txtInputA[7], "    0.000410");
  EXPECT_EQ(s.txtCpphA[0], "     18.1439");
  EXPECT_EQ(s.txtDesignA[1], "     93.3333");
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(CaseFile, TheVersionCompareIsExact) {
  // A current-layout file with version 2.0 is read as the older layout and misreads.
  const std::string current = ReadBytes(kExamples / "AUTOMATIC-SURFACE.JET");
  WriteBytes(dir / "V20.JET", " 2.0" + current.substr(5));
  InputScreen s;
  RecordingUi ui;
  ReadCase(dir / "V20.JET", s, ui);
  EXPECT_EQ(s.txtInput[6], "") << "read the older way";
  WriteBytes(dir / "V201.JET", "2.0100" + current.substr(5));
  InputScreen t;
  EXPECT_TRUE(ReadCase(dir / "V201.JET", t, ui));
  EXPECT_EQ(t.txtHeadingInput[0], "EJ-101");
}

TEST_F(CaseFile, DamagedOrMissingFilesGiveTheirMessageAndKeepWhatWasRead) {
  const std::string good = ReadBytes(kExamples / "AUTOMATIC-SURFACE.JET");
  struct Damaged {
    std::string name, bytes, message;
  };
  std::string corrupt = good;
  corrupt.replace(corrupt.find("\r\n-1\r\n"), 6, "\r\nyes\r\n");
  std::string bad_list = good.substr(0, good.size() - 40) + "\r\n 99\r\n";
  const Damaged cases[] = {{"SHORT.JET", good.substr(0, good.size() / 2), "ReadFile Routine Error: 62 Input past end of file"},
                           {"CORRUPT.JET", corrupt, "ReadFile Routine Error: 13 Type mismatch"},
                           {"EMPTY.JET", "", "ReadFile Routine Error: 62 Input past end of file"},
                           {"OTHER.JET", ReadBytes(fs::path(KESTRANE_SOURCE_DIR) / "pgmfiles" / "UDV.DTA"),
                            "ReadFile Routine Error: 62 Input past end of file"}};
  for (const Damaged& d : cases) {
    WriteBytes(dir / d.name, d.bytes);
    InputScreen s = NewCase();
    RecordingUi ui;
    EXPECT_FALSE(ReadCase(dir / d.name, s, ui)) << d.name;
    EXPECT_EQ(ui.notices, std::vector<std::string>{d.message}) << d.name;
  }
  InputScreen partial = NewCase();
  RecordingUi ui;
  WriteBytes(dir / "SHORT.JET", good.substr(0, good.size() / 2));
  ReadCase(dir / "SHORT.JET", partial, ui);
  EXPECT_EQ(partial.txtHeadingInput[0], "EJ-101") << "what was read stays";
  EXPECT_FALSE(ReadCase(dir / "NONE.JET", partial, ui));
  EXPECT_EQ(ui.notices.back(), "ReadFile Routine Error: 53 File not found");
}

TEST_F(CaseFile, AFailedSaveReportsAndKeepsThePreviousFile) {
  WriteBytes(dir / "KEEP.JET", "previous");
  fs::create_directory(dir / ("KEEP.JET.tmp" + std::to_string(::getpid())));
  InputScreen s = NewCase();
  s.CASEDIRTY = 1;
  RecordingUi ui;
  EXPECT_FALSE(WriteCase(dir / "KEEP.JET", s, ui));
  EXPECT_EQ(ui.notices, std::vector<std::string>{"WriteFile Routine Error: 75 Path/File access error"});
  EXPECT_EQ(ReadBytes(dir / "KEEP.JET"), "previous");
  EXPECT_EQ(s.CASEDIRTY, 1);
}

TEST_F(CaseFile, UnsavedChangesAreOfferedForSaving) {
  InputScreen s = NewCase();
  RecordingUi ui;
  EXPECT_EQ(CheckToStoreJetFile(s, ui), StoreDecision::kUnchanged);
  EXPECT_TRUE(ui.questions.empty());
  EditBox(s, {BoxGroup::kInput, 0}, "40");
  EXPECT_EQ(CheckToStoreJetFile(s, ui), StoreDecision::kDeclined);
  EXPECT_EQ(ui.questions.back(), "Save changes?: Do you want to save changes?");
  ui.answer = true;
  EXPECT_EQ(CheckToStoreJetFile(s, ui), StoreDecision::kNeedsName);
  s.USERCASE = (dir / "SAVED.JET").string();
  EXPECT_EQ(CheckToStoreJetFile(s, ui), StoreDecision::kSaved);
  EXPECT_EQ(s.CASEDIRTY, 0);
  EXPECT_TRUE(fs::exists(dir / "SAVED.JET"));
}
