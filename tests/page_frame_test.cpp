// The page framework of the reports: page head and foot, the plain text pages, the print commands' pattern, and
// the equipment of a train in flow order.
#include <gtest/gtest.h>

#include "case/jet_file.h"
#include "documents/page_frame.h"
#include "documents/print_commands.h"
#include "documents/text_pages.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "test_support.h"

namespace kestrane {
namespace {

// A printer that keeps each printed line with its position and font.
class RecordingPages : public PageSink {
 public:
  struct Line {
    float x, y;
    std::string text;
    PrintFont font;
  };
  std::vector<Line> lines;
  std::vector<float> page_bottoms;

 protected:
  void Text(float x, float y, const std::string& text, const PrintFont& f) override { lines.push_back({x, y, text, f}); }
  void EndPage(float bottom) override { page_bottoms.push_back(bottom); }
};

TEST(PageHeader, CentresTheTitleOnColumnFortyAndPlacesFileAndDate) {
  RecordingPages p;
  PageHeader(p, "  Nupreir Expression Evaluator  ", "CASE.GFR", "Nov 05, 2026", "     ");
  ASSERT_EQ(p.lines.size(), 6u);
  EXPECT_EQ(p.lines[2].text, std::string(31, ' ') + "TESSEL CORPORATION");
  // 29 characters: 40 - 14 = 26 blanks.
  EXPECT_EQ(p.lines[3].text, std::string(26, ' ') + "Nupreir Expression Evaluator");
  EXPECT_TRUE(p.lines[2].font.bold && p.lines[3].font.bold);
  EXPECT_FALSE(p.lines[5].font.bold);
  EXPECT_EQ(p.lines[0].font.size, 12.0f);
  const std::string& heading = p.lines[5].text;
  EXPECT_EQ(heading.substr(0, 20), "     File: CASE.GFR ");
  EXPECT_EQ(heading.substr(56, 18), "Date: Nov 05, 2026");
  EXPECT_EQ(heading.size(), 5u + 14u + 80u) << "prefix, file, 80 blanks; the date is written over them";
}

TEST(PageHeader, AnOddTitleLengthRoundsItsHalfBlankToEven) {
  RecordingPages p;
  PageHeader(p, std::string(31, 'T'), "", "", "");  // 40 - 15.5 = 24.5: 24 blanks
  EXPECT_EQ(p.lines[3].text, std::string(24, ' ') + std::string(31, 'T'));
  RecordingPages q;
  PageHeader(q, std::string(29, 'T'), "", "", "");  // 40 - 14.5 = 25.5: 26 blanks
  EXPECT_EQ(q.lines[3].text, std::string(26, ' ') + std::string(29, 'T'));
}

TEST(PageHeader, ALongTitleStartsAtColumnOneAndEmptyFieldsLeaveBlanks) {
  RecordingPages p;
  const std::string title(84, 'T');
  PageHeader(p, title, " ", "", "  ");
  EXPECT_EQ(p.lines[3].text, " " + title);
  EXPECT_EQ(p.lines[5].text, std::string(82, ' '));
}

TEST(PageFooter, StandsAnInchAboveThePageEdgeWhateverCameBefore) {
  for (int body : {0, 12, 48}) {
    RecordingPages p;
    PageHeader(p, "Title", "", "", "");
    for (int i = 0; i < body; ++i) p.Print("line");
    PageFooter(p);
    ASSERT_GE(p.lines.size(), 3u);
    const auto& first_foot = p.lines[p.lines.size() - 3];
    EXPECT_FLOAT_EQ(first_foot.y, kPageHeightTwips - 1440.0f) << body;
    EXPECT_FLOAT_EQ(first_foot.x, 1.0f);
    EXPECT_EQ(first_foot.font.size, 10.0f);
    EXPECT_EQ(first_foot.text, std::string(20, ' ') + std::string(kMakerLines[0]));
    EXPECT_EQ(p.lines.back().text, std::string(15, ' ') + std::string(kMakerLines[2]));
    EXPECT_EQ(p.pages(), 1) << "the foot ends the page";
    EXPECT_FLOAT_EQ(p.CurrentY(), 0.0f) << "the next page starts at its top";
  }
}

TEST(PageFooter, TheMakerLinesStandCentredOnThePage) {
  // Each line's middle within a character of the page's middle at 10 points.
  const float page_chars = kPageWidthTwips / CharWidthTwips(10);
  for (size_t i = 0; i < kMakerLines.size(); ++i) {
    const float middle = static_cast<float>(kMakerIndents[i]) + static_cast<float>(kMakerLines[i].size()) / 2.0f;
    EXPECT_NEAR(middle, page_chars / 2.0f, 3.5f) << kMakerLines[i];
  }
}

TEST(TextPages, KeepIndentsTurnMovesIntoBlankLinesAndParePagesByFormFeeds) {
  TextPages t;
  t.font.size = 12;
  t.Print("   first");
  t.SetCurrentY(LineHeightTwips(12) * 4);  // three lines further down
  t.SetCurrentX(CharWidthTwips(12) * 2);
  t.Print("moved");
  t.EndDoc();
  t.EndDoc();  // nothing printed since: no page
  t.Print("second page");
  t.EndDoc();
  EXPECT_EQ(t.text(), "   first\n\n\n\n  moved\n\fsecond page\n");
  EXPECT_EQ(t.pages(), 2);
}

TEST(TextPages, AFooterOnAShortPageFallsNearTheBottomLine) {
  TextPages t;
  PageHeader(t, "Title", "", "", "");
  PageFooter(t);
  const std::string& text = t.text();
  // 6 head lines at 12 points, then blank lines at 10 points up to an inch above the edge: 63 lines in all
  // before the foot.
  const size_t foot = text.find(std::string(kMakerLines[0]));
  ASSERT_NE(foot, std::string::npos);
  const auto lines_before = std::count(text.begin(), text.begin() + static_cast<long>(foot), '\n');
  const float expected = 6 + (kPageHeightTwips - 1440 - 6 * LineHeightTwips(12)) / LineHeightTwips(10);
  EXPECT_NEAR(static_cast<float>(lines_before), expected, 0.5f);
}

TEST(CaseStem, IsTheNameUpToItsFirstDot) {
  EXPECT_EQ(CaseStem("PLANT.A.JET"), "PLANT");
  EXPECT_EQ(CaseStem(" CASE.JET"), "CASE");
  EXPECT_EQ(CaseStem(".JET"), ".JET");
  EXPECT_EQ(CaseStem("NOEXT"), "NOEXT");
  EXPECT_EQ(CaseStem(""), "");
}

// A window that logs what the print command does to it.
class LoggingWindow : public PrintingWindow {
 public:
  std::vector<std::string> log;
  void SetResultsMode(int mode) override { log.push_back("mode " + std::to_string(mode)); }
  void SetStatus(const std::string& text) override { log.push_back("status " + text); }
  void SetBusy(bool busy) override { log.push_back(busy ? "busy" : "idle"); }
  void ProcessEvents() override { log.push_back("events"); }
};

TEST(PrintCommands, EntriesPrintTheirReportsInOrderBetweenPrintingAndResultsModes) {
  LoggingWindow window;
  std::vector<Report> printed;
  RunPrintCommand(PrintCommand::kDataSheet, window, [&](const std::vector<Report>& r) {
    printed = r;
    window.log.push_back("print");
  });
  EXPECT_EQ(printed, std::vector<Report>{Report::kSpecSheet}) << "the data sheet entry prints the specification sheet";
  EXPECT_EQ(window.log, (std::vector<std::string>{"busy", "mode 2", "status Patience....printing data sheet... ",
                                                  "events", "print", "mode 0", "status ", "idle", "events"}));
  EXPECT_EQ(PrintCommandOf(PrintCommand::kQuotationRequest).reports, std::vector<Report>{Report::kDataSheet});
  EXPECT_EQ(PrintCommandOf(PrintCommand::kAllOutput).reports,
            (std::vector<Report>{Report::kSpecSheet, Report::kDataSheet, Report::kDrawings, Report::kFlowDiagram}));
}

TEST(PrintCommands, AFailedPrintStillGivesTheWindowBack) {
  LoggingWindow window;
  EXPECT_THROW(RunPrintCommand(PrintCommand::kThermoCompressor, window,
                               [](const std::vector<Report>&) { throw VbError(482); }),
               VbError);
  EXPECT_EQ(window.log[2], "status Patience....printing........ ");
  EXPECT_EQ(std::vector<std::string>(window.log.end() - 4, window.log.end()),
            (std::vector<std::string>{"mode 0", "status ", "idle", "events"}));
}

// The train's equipment from the suction end, each with the model text of the results blocks.
TEST(EquipmentSlots, FollowTheFlowFromTheSuctionEnd) {
  struct Case {
    const char* file;
    std::vector<EquipmentSlot::Kind> kinds;
  };
  using K = EquipmentSlot::Kind;
  for (const Case& c : {Case{"SOLVENT-LOADS-THREE-STAGE.JET", {K::kEjector, K::kSurface, K::kEjector, K::kSurface, K::kEjector, K::kSurface}},
                        Case{"TWO-STAGE-LRVP.JET", {K::kEjector, K::kSurface, K::kPump}},
                        Case{"THREE-STAGE-DIRECT-CONTACT.JET", {K::kEjector, K::kBarometric, K::kEjector, K::kBarometric, K::kEjector, K::kBarometric}},
                        Case{"ONE-STAGE-NO-CONDENSERS.JET", {K::kEjector}}}) {
    SCOPED_TRACE(c.file);
    RecordingUi ui;
    InputScreen screen = NewCase();
    ASSERT_TRUE(OpenCase(std::filesystem::path(KESTRANE_SOURCE_DIR) / "usrfiles" / c.file, screen, ui));
    DesignCase dc;
    float pinterfix = 0;
    DesignContext ctx{dc, testing::ShippedData(), screen, pinterfix, ui};
    ASSERT_TRUE(RunDesign(ctx, screen).results);
    const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, false);
    std::vector<K> kinds;
    for (const auto& s : slots) kinds.push_back(s.kind);
    EXPECT_EQ(kinds, c.kinds);
    // The first slot is the highest stage; its caption is the ejector block's model.
    EXPECT_EQ(slots.front().index, dc.NSTAGES);
    EXPECT_EQ(slots.front().caption, EjectorModel(ctx, dc.NSTAGES));
  }
}

}  // namespace
}  // namespace kestrane
