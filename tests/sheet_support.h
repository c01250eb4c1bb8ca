// Helpers of the sheet tests: texts at their columns, a printer that keeps what it was sent.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "shell/page_sink.h"

namespace kestrane::testing {

inline const std::filesystem::path kExampleCases = std::filesystem::path(KESTRANE_SOURCE_DIR) / "usrfiles";
// The date the sheets of the tests carry.
inline const std::string kSheetDate = "Nov 05, 2026";

// A sheet of `count` lines, each of the sheets' width of 76 characters.
inline void ExpectSheetShape(const std::vector<std::string>& lines, size_t count) {
  EXPECT_EQ(lines.size(), count);
  for (const auto& line : lines) EXPECT_EQ(line.size(), 76u) << line;
}

// The `count` characters of a report line from column `column` (from 1).
inline std::string At(const std::string& line, size_t column, size_t count) { return line.substr(column - 1, count); }

// The field that ends at `column`: the characters back to the first blank or underscore before it.
inline std::string FieldEndingAt(const std::string& line, size_t column) {
  size_t start = column;
  while (start > 1 && line[start - 2] != ' ' && line[start - 2] != '_') --start;
  return line.substr(start - 1, column - start + 1);
}

// The field that starts at `column`: the characters up to the first blank or underscore after it.
inline std::string FieldStartingAt(const std::string& line, size_t column) {
  const size_t end = line.find_first_of(" _", column - 1);
  return line.substr(column - 1, end == std::string::npos ? std::string::npos : end - (column - 1));
}

// One printed line with the font it was printed in.
struct PrintedLine {
  std::string text;
  float size;
  std::string font;
  int page;  // pages ended before it was printed
};

// A printer that keeps every line and counts the ended pages.
class RecordingPrinter : public PageSink {
 public:
  std::vector<PrintedLine> printed;
  int ended = 0;

 protected:
  void Text(float, float, const std::string& text, const PrintFont& f) override {
    printed.push_back({text, f.size, f.name, ended});
  }
  void EndPage(float) override { ++ended; }
};

}  // namespace kestrane::testing
