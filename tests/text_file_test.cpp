// Text files: line ends, Windows-1252 on disk, whole-file saves that never destroy the previous file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "properties/text_codec.h"
#include "properties/vb.h"
#include "properties/vb_file.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

using TempDir = kestrane::testing::ScratchFolder;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;

TEST(TextCodec, Windows1252AndUtf8RoundTrip) {
  EXPECT_EQ(Cp1252ToUtf8("25\xB0""C"), "25\xC2\xB0""C");
  EXPECT_EQ(Cp1252ToUtf8("\x80"), "\xE2\x82\xAC");  // euro sign
  EXPECT_EQ(Utf8ToCp1252("25\xC2\xB0""C \xE2\x82\xAC"), "25\xB0""C \x80");
  EXPECT_EQ(Utf8ToCp1252("\xE4\xB8\xAD"), "?");  // no Windows-1252 code
  EXPECT_EQ(ToCodePoints("a\xC2\xB0").size(), 2u);
  EXPECT_EQ(ToCodePoints("a\xB0"), std::u32string(U"a\u00B0"));  // a stray byte is read as Windows-1252
  EXPECT_EQ(FromCodePoints(ToCodePoints("x\xC2\xB5y")), "x\xC2\xB5y");
}

TEST_F(TempDir, LinesEndWithCrLfLfOrCr) {
  const fs::path p = dir / "lines.txt";
  WriteBytes(p, "one\r\ntwo\nthree\rfour");
  TextInput in(p);
  EXPECT_EQ(in.LineInput(), "one");
  EXPECT_EQ(in.LineInput(), "two");
  EXPECT_EQ(in.LineInput(), "three");
  EXPECT_FALSE(in.Eof());
  EXPECT_EQ(in.LineInput(), "four");
  EXPECT_TRUE(in.Eof());
  try {
    in.LineInput();
    FAIL() << "reading past the end must fail";
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), 62);
    EXPECT_EQ(e.description(), "Input past end of file");
  }
}

TEST_F(TempDir, EmptyLinesAreLinesAndAFinalLineEndAddsNone) {
  const fs::path p = dir / "empty.txt";
  WriteBytes(p, "\r\n\r\nx\r\n");
  TextInput in(p);
  EXPECT_EQ(in.LineInput(), "");
  EXPECT_EQ(in.LineInput(), "");
  EXPECT_EQ(in.LineInput(), "x");
  EXPECT_TRUE(in.Eof());
}

TEST_F(TempDir, OpeningAMissingFileIsFileNotFound) {
  try {
    TextInput in(dir / "none.txt");
    FAIL();
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), 53);
  }
}

TEST_F(TempDir, WritesCrLfInWindows1252) {
  const fs::path p = dir / "out.txt";
  TextOutput out(p);
  out.PrintLine("T = 25\xC2\xB0""C");
  out.PrintLine("");
  out.Commit();
  EXPECT_EQ(ReadBytes(p), "T = 25\xB0""C\r\n\r\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator{}), 1) << "no temporary left";
}

TEST_F(TempDir, AFailedSaveLeavesThePreviousFile) {
  const fs::path p = dir / "keep.txt";
  WriteBytes(p, "old\r\n");
  // A folder where the temporary file would go makes the save fail, even for root.
  fs::create_directory(dir / ("keep.txt.tmp" + std::to_string(::getpid())));
  TextOutput out(p);
  out.PrintLine("new");
  try {
    out.Commit();
    FAIL() << "the save must fail";
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), 75);
  }
  EXPECT_EQ(ReadBytes(p), "old\r\n");
}

TEST_F(TempDir, SavingIntoAMissingFolderIsPathNotFound) {
  TextOutput out(dir / "no" / "such" / "file.txt");
  out.PrintLine("x");
  try {
    out.Commit();
    FAIL();
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), 76);
  }
}
