// The printed pages of the user vapors, the gas pressure loss and Nupreir: heads, columns and page breaks.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "calculators/pressure_drop.h"
#include "documents/page_frame.h"
#include "documents/paged_report.h"
#include "documents/text_pages.h"
#include "documents/tool_reports.h"
#include "documents/user_vapor_reports.h"
#include "properties/temperature_units.h"
#include "properties/text_codec.h"
#include "properties/user_vapors.h"
#include "test_support.h"

namespace kestrane {
namespace {

const std::filesystem::path kSource = KESTRANE_SOURCE_DIR;
const std::string kDate = ReportDate({2026, 11, 5});

// The printed pages, each as its lines.
std::vector<std::vector<std::string>> PagesOf(const TextPages& printed) {
  std::vector<std::vector<std::string>> pages(1);
  std::string line;
  for (char c : printed.text()) {
    if (c == '\f') pages.emplace_back();
    else if (c == '\n') pages.back().push_back(std::exchange(line, ""));
    else line += c;
  }
  return pages;
}

// The character column (from 1) where `what` starts in `line`, 0 when it is not there; and where it ends.
int ColumnOf(const std::string& line, const std::string& what) {
  const size_t at = line.find(what);
  return at == std::string::npos ? 0 : static_cast<int>(ToCodePoints(line.substr(0, at)).size()) + 1;
}
int EndOf(const std::string& line, const std::string& what) {
  return ColumnOf(line, what) + static_cast<int>(ToCodePoints(what).size()) - 1;
}

// Checks the page's head and foot and returns what stands between them, the gap before the foot left out.
std::vector<std::string> BodyOf(const std::vector<std::string>& page, const std::string& title, const std::string& file) {
  EXPECT_GE(page.size(), 10u);
  if (page.size() < 10) return {};
  EXPECT_EQ(page[2], std::string(31, ' ') + "TESSEL CORPORATION");
  EXPECT_EQ(page[3], std::string(40 - title.size() / 2, ' ') + title);
  EXPECT_EQ(ColumnOf(page[5], "Date: " + kDate), 57) << page[5];
  EXPECT_EQ(page[5].find("File: " + file), file.empty() ? std::string::npos : 0u) << page[5];
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Trim(page[page.size() - 3 + i]), kMakerLines[i]);
  std::vector<std::string> body(page.begin() + 7, page.end() - 3);
  while (!body.empty() && body.back().empty()) body.pop_back();
  return body;
}

// Each line printed with its page and its place in twips.
class PlacedLines : public PageSink {
 public:
  struct Placed {
    int page;
    float y, size;
    std::string text;
  };
  std::vector<Placed> placed;

 protected:
  void Text(float, float y, const std::string& text, const PrintFont& font) override {
    placed.push_back({pages(), y, font.size, text});
  }
  void EndPage(float) override {}
};

TEST(ToolReportPages, LongResultsFillEachPageToTheFootAndGoOnWithNoLineLostOrRepeated) {
  RecordingUi ui;
  NupreirScreen screen;
  screen.variables[0] = {"x", "2"};
  for (int i = 1; i <= 150; ++i) {
    screen.expression = std::to_string(i) + "*x";
    ASSERT_TRUE(Evaluate(screen, ui));
  }
  TextPages text;
  PrintNupreir(text, screen.variables, screen.expression, screen.results, "/tmp/LONG.GFR", kDate);
  const auto pages = PagesOf(text);
  ASSERT_GE(pages.size(), 4u);
  EXPECT_EQ(text.pages(), static_cast<int>(pages.size()));
  for (const auto& page : pages) BodyOf(page, "Nupreir Expression Evaluator", "LONG.GFR");

  PlacedLines placed;
  PrintNupreir(placed, screen.variables, screen.expression, screen.results, "", kDate);
  EXPECT_EQ(placed.pages(), static_cast<int>(pages.size()));
  const float foot = kPageHeightTwips - 1440, line = LineHeightTwips(10);
  std::vector<std::string> body;  // the body lines, behind the blank line under each page's head
  const auto& all = placed.placed;
  for (size_t i = 1; i + 1 < all.size(); ++i) {
    if (all[i].size != 10 || all[i].y >= foot || all[i - 1].size == 12) continue;
    EXPECT_LE(all[i].y + line, foot) << all[i].text;
    body.push_back(all[i].text);
    // The last line of a page the report goes on from: one more would have reached into the foot.
    if (all[i + 1].y >= foot && all[i].page + 1 < placed.pages()) {
      EXPECT_GT(all[i].y + 2 * line, foot);
    }
  }
  const auto results = std::find(body.begin(), body.end(), "     Results:");
  ASSERT_NE(results, body.end());
  std::vector<std::string> expected;
  for (const std::string& l : BoxLines(screen.results)) expected.push_back(l.empty() ? "" : "        " + l);
  EXPECT_EQ(std::vector<std::string>(results + 1, body.end()), expected);
}

TEST(ToolReportPages, TableHeadsOpenEveryPageTheTableRunsOnTo) {
  PagedReport report;
  report.title = "T";
  report.date_text = kDate;
  report.lines = {"intro", "   HEAD"};
  report.table_from = 1;
  report.table_heads = 1;
  for (int i = 0; i < 120; ++i) report.lines.push_back(std::to_string(i));
  TextPages text;
  PrintPaged(text, report);
  const auto pages = PagesOf(text);
  ASSERT_EQ(pages.size(), 3u);
  std::vector<std::string> rows;
  for (size_t k = 0; k < pages.size(); ++k) {
    const auto body = BodyOf(pages[k], "T", "");
    ASSERT_GE(body.size(), 2u);
    EXPECT_EQ(body[k == 0 ? 1 : 0], "   HEAD");
    rows.insert(rows.end(), body.begin() + (k == 0 ? 2 : 1), body.end());
  }
  EXPECT_EQ(rows, std::vector<std::string>(report.lines.begin() + 2, report.lines.end()));
}

class ToolReportUserVapors : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(ReadUDV(kSource / "pgmfiles" / "UDV.DTA", user, ui), UserVaporsRead::kRead); }
  RecordingUi ui;
  UserVapors user;
  Vapors vapors{testing::ShippedData().vapors, user, ui};
};

TEST_F(ToolReportUserVapors, PrintCurrentGivesTheVaporAndItsCurveAsAntoineUserComputesIt) {
  for (const bool fahrenheit : {false, true}) {
    for (int16_t row = 1; row <= user.NUDV; ++row) {
      SCOPED_TRACE(std::to_string(row) + (fahrenheit ? " degF" : " degC"));
      TextPages text;
      PrintUserVapor(text, vapors, row, fahrenheit, kDate);
      const auto pages = PagesOf(text);
      ASSERT_EQ(pages.size(), 1u);
      const auto body = BodyOf(pages[0], "Kestrane User Defined Vapor Pressure", "");
      ASSERT_EQ(body.size(), 11u + 41u);
      EXPECT_EQ(body[0], "      Vapor Name: " + RTrim(user.UDVNAME(row)));
      EXPECT_EQ(body[1], "             ID#: -" + std::to_string(row));
      EXPECT_EQ(body[2], "              MW: " + GeneralText(user.UDVDATA(row, 8)));
      EXPECT_EQ(body[3], std::string("            Type: ") + (row == 2 ? "Non-alcohol" : "Alcohol"));
      EXPECT_EQ(body[5], "      Valid temperature range:");
      EXPECT_EQ(body[8], "      Temperature & Vapor Pressure Data:");
      const float t1 = user.UDVDATA(row, 2), t3 = user.UDVDATA(row, 6);
      const auto shown = [&](float t) { return fahrenheit ? FahrenheitOf(t) : t; };
      EXPECT_EQ(body[6], "      T-min=" + GeneralText(shown(t1)) + (fahrenheit ? "\xC2\xB0" "F" : "\xC2\xB0" "C") +
                             "    T-max=" + GeneralText(shown(t3)) + (fahrenheit ? "\xC2\xB0" "F" : "\xC2\xB0" "C"));
      const std::string& head = body[10];
      const std::string temp_head = fahrenheit ? "Temp(\xC2\xB0" "F)" : "Temp(\xC2\xB0" "C)";
      ASSERT_GT(ColumnOf(head, temp_head), 0) << head;
      float t = t1;
      for (int k = 0; k <= 40; ++k, t += (t3 - t1) / 40) {
        const std::string& line = body[11 + static_cast<size_t>(k)];
        float pressure = 0;
        int16_t flag = 0;
        AntoineUser(vapors, row, FahrenheitOf(t), pressure, flag);
        std::istringstream cells(line);
        std::string temperature_text, pressure_text;
        cells >> temperature_text >> pressure_text;
        EXPECT_NEAR(std::stof(temperature_text), shown(t), 0.0011) << line;
        EXPECT_NEAR(std::stof(pressure_text), pressure, pressure * 5e-4 + 0.0005) << line;
        // Each number ends under the end of its head.
        EXPECT_EQ(EndOf(line, temperature_text), EndOf(head, temp_head)) << line;
        EXPECT_EQ(EndOf(line, " " + pressure_text), EndOf(head, "Vapor Press(mmHgA)")) << line;
      }
    }
  }
  EXPECT_TRUE(ui.notices.empty());
  TextPages none;
  PrintUserVapor(none, vapors, 4, false, kDate);
  EXPECT_EQ(none.text(), "");
}

TEST_F(ToolReportUserVapors, ACurveThatCannotBeFittedPrintsItsHeadsAndNoRows) {
  // Equal temperature steps and equal pressure ratios: the three points give no Antoine constants.
  for (int c = 2; c <= 7; ++c) user.UDVDATA(1, c) = std::vector<float>{20, 10, 50, 100, 80, 1000}[c - 2];
  TextPages text;
  PrintUserVapor(text, vapors, 1, false, kDate);
  const auto body = BodyOf(PagesOf(text)[0], "Kestrane User Defined Vapor Pressure", "");
  ASSERT_EQ(body.size(), 11u);
  EXPECT_EQ(Trim(body[10]), "Temp(\xC2\xB0" "C)      Vapor Press(mmHgA)");
  EXPECT_EQ(ui.notices, std::vector<std::string>{"The ratio of p2/p3 and p1/p2 cannot be the same!"});
}

TEST_F(ToolReportUserVapors, PrintAllLinesEachValueUpUnderItsHead) {
  TextPages text;
  PrintAllUserVapors(text, user, kDate);
  const auto pages = PagesOf(text);
  ASSERT_EQ(pages.size(), 1u);
  const auto body = BodyOf(pages[0], "Kestrane User Defined Vapor Pressure", "");
  ASSERT_EQ(body.size(), 4u);
  const std::string& head = body[0];
  EXPECT_EQ(ColumnOf(head, "  ID#      Vapor Name: "), 1);
  const std::string deg = "\xC2\xB0" "C";
  for (const char* h : {"   MW", "     Type: ", "  P1 mmHgA", "  P2 mmHgA", "  P3 mmHgA"}) EXPECT_GT(ColumnOf(head, h), 0) << h;
  // The degree sign is UTF-8 (0xC2 0xB0), one character wide.
  EXPECT_EQ(std::count(text.text().begin(), text.text().end(), '\xC2'), 3);
  EXPECT_EQ(std::count(text.text().begin(), text.text().end(), '\xB0'), 3);
  EXPECT_EQ(EndOf(head, "T1" + deg) + 1, ColumnOf(head, "  P1 mmHgA"));
  const std::vector<std::vector<std::string>> rows = {
      {"-1", "Ethanol (sample)", "46.07", "Alcohol", "20.00", "43.96", "50.00", "221.10", "80.00", "814.20"},
      {"-2", "Toluene (sample)", "92.14", "Non-alcohol", "20.00", "21.80", "50.00", "92.21", "80.00", "291.60"},
      {"-3", "Propylene glycol", "76.09", "Alcohol", "50.00", "1.02", "100.00", "22.73", "150.00", "207.80"}};
  const std::vector<std::string> number_heads = {"ID#", "MW", "T1" + deg, "P1 mmHgA", "T2" + deg,
                                                 "P2 mmHgA", "T3" + deg, "P3 mmHgA"};
  for (size_t r = 0; r < rows.size(); ++r) {
    const std::u32string line = ToCodePoints(body[r + 1]);
    SCOPED_TRACE(body[r + 1]);
    EXPECT_EQ(ColumnOf(body[r + 1], rows[r][1]), ColumnOf(head, "Vapor Name:"));
    EXPECT_EQ(ColumnOf(body[r + 1], rows[r][3]), ColumnOf(head, "Type:"));
    for (size_t c = 0, n = 0; c < rows[r].size(); ++c) {
      if (c == 1 || c == 3) continue;
      // The number with the blank before it, ending in the column where its head ends.
      const size_t end = static_cast<size_t>(EndOf(head, number_heads[n++]));
      const size_t width = rows[r][c].size() + 1;
      ASSERT_LE(end, line.size());
      EXPECT_EQ(FromCodePoints(line.substr(end - width, width)), " " + rows[r][c]) << number_heads[n - 1];
    }
  }
}

TEST_F(ToolReportUserVapors, AnEmptyListPrintsItsHeadingAndNoRows) {
  TextPages text;
  PrintAllUserVapors(text, UserVapors{}, kDate);
  const auto pages = PagesOf(text);
  ASSERT_EQ(pages.size(), 1u);
  const auto body = BodyOf(pages[0], "Kestrane User Defined Vapor Pressure", "");
  ASSERT_EQ(body.size(), 1u);
  EXPECT_EQ(ColumnOf(body[0], "  ID#      Vapor Name: "), 1);
}

TEST(ToolReportPressureDrop, TheExamplesPrintTheirResultsBoxLineByLineUnderTheHead) {
  for (const char* name : {"LINE-LOSS-HEI.TDP", "LINE-LOSS-FORMULA-METRIC.TDP"}) {
    SCOPED_TRACE(name);
    RecordingUi ui;
    DpScreen screen;
    ASSERT_TRUE(ReadDpFile(kSource / "usrfiles" / name, screen, ui));
    ASSERT_TRUE(Calculate_DP(screen, ui));
    TextPages text;
    PrintPressureDrop(text, screen.results, (kSource / "usrfiles" / name).string(), kDate);
    const auto pages = PagesOf(text);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(BodyOf(pages[0], "Kestrane Gas Pressure Drop Estimation", name), BoxLines(screen.results));
  }
}

TEST(ToolReportNupreir, TheExamplePrintsItsVariablesEquationsAndResultsInSections) {
  RecordingUi ui;
  NupreirScreen screen;
  ASSERT_TRUE(ReadGoFigure(kSource / "usrfiles" / "INLET-VOLUME.GFR", screen, ui));
  TextPages text;
  PrintNupreir(text, screen.variables, screen.expression, screen.results, screen.file, kDate);
  const auto pages = PagesOf(text);
  ASSERT_EQ(pages.size(), 1u);
  const std::vector<std::string> body = BodyOf(pages[0], "Nupreir Expression Evaluator", "INLET-VOLUME.GFR");
  const std::vector<std::string> head = {"     Variables:", "", "        Variable   Value", "        W          150",
                                         "        MW         29", "        P          50", "        T          100",
                                         "", "     Equations:", "", "        sqr(2)*sin(45)", "", "     Results:"};
  ASSERT_GT(body.size(), head.size());
  EXPECT_EQ(std::vector<std::string>(body.begin(), body.begin() + static_cast<long>(head.size())), head);
  std::vector<std::string> results;
  for (const std::string& l : BoxLines(screen.results)) results.push_back(l.empty() ? "" : "        " + l);
  while (!results.empty() && results.back().empty()) results.pop_back();
  EXPECT_EQ(std::vector<std::string>(body.begin() + static_cast<long>(head.size()), body.end()), results);
}

}  // namespace
}  // namespace kestrane
