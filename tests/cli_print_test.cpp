// The print command: sheets as text and as PDF, the PDF's words standing at the text form's columns, the data
// sheet's text beside the case, the fixed date, and the exit codes of what cannot be printed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::testing::CliRun;
using kestrane::testing::Kestrane;
using kestrane::testing::Quoted;

namespace {

class PrintCommand : public kestrane::testing::ScratchFolder {
 protected:
  fs::path Copy(const std::string& example) {
    const fs::path to = dir / example;
    fs::copy_file(fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / example, to, fs::copy_options::overwrite_existing);
    return to;
  }
  CliRun Print(const std::string& args) { return Kestrane("--date 2026-11-05 print " + args); }
};

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST_F(PrintCommand, TextSheetsCarryTheFixedDateAndAFormFeedBetweenPages) {
  const CliRun spec = Print("spec-sheet " + Quoted(Copy("SOLVENT-LOADS-THREE-STAGE.JET")) + " --format txt");
  ASSERT_EQ(spec.exit_code, 0) << spec.err;
  EXPECT_NE(spec.out.find("VACUUM SYSTEM SPECIFICATION SHEET"), std::string::npos);
  EXPECT_NE(spec.out.find("Nov 05, 2026"), std::string::npos);
  EXPECT_EQ(spec.out.find('\f'), std::string::npos) << "one page";
  EXPECT_EQ(spec.out.find('\r'), std::string::npos) << "LF line ends";

  const fs::path out = dir / "all.txt";
  const CliRun all = Print("all " + Quoted(Copy("SOLVENT-LOADS-THREE-STAGE.JET")) + " --format txt -o " + Quoted(out));
  ASSERT_EQ(all.exit_code, 0) << all.err;
  const std::string text = kestrane::testing::ReadBytes(out);
  const size_t feed = text.find('\f');
  ASSERT_NE(feed, std::string::npos);
  EXPECT_EQ(text.find('\f', feed + 1), std::string::npos) << "two pages";
  EXPECT_EQ(text.substr(0, feed), spec.out) << "the specification sheet first, as printed alone";
  EXPECT_NE(text.find("VACUUM SYSTEM DESIGN PROGRAM DATA", feed), std::string::npos);
}

TEST_F(PrintCommand, TheDataSheetIsAlsoWrittenBesideTheCase) {
  const fs::path jet = Copy("METRIC-TWO-STAGE.JET");
  const CliRun r = Print("data-sheet " + Quoted(jet) + " --format txt");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const fs::path beside = dir / "METRIC-TWO-STAGE.TXT";
  ASSERT_TRUE(fs::exists(beside));
  EXPECT_NE(r.err.find(beside.string()), std::string::npos) << "the command names the file: " << r.err;
  const std::string file = kestrane::testing::ReadBytes(beside);
  EXPECT_NE(file.find("\r\n"), std::string::npos) << "the text file keeps CR LF";
  // Every printed line of the sheet stands in the file, behind the same three blanks.
  for (const std::string& line : Lines(r.out)) {
    if (line.find("DESIGN PROGRAM DATA") != std::string::npos) {
      EXPECT_NE(file.find(line + "\r\n"), std::string::npos);
    }
  }
}

TEST_F(PrintCommand, ThermoCompressorSheetsPrintBothPages) {
  const CliRun r = Print("tc-sheets " + Quoted(Copy("TC-METRIC-HIGH-RATIO.TTC")) + " --format txt");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const size_t feed = r.out.find('\f');
  ASSERT_NE(feed, std::string::npos);
  EXPECT_LT(r.out.find("THERMO COMPRESSOR SPECIFICATION SHEET"), feed);
  EXPECT_GT(r.out.find("THERMO COMPRESSOR DESIGN PROGRAM DATA"), feed);
  EXPECT_TRUE(fs::exists(dir / "TC-METRIC-HIGH-RATIO.TXT"));
}

// Words of a PDF with the left edge of each, from pdftotext's bounding boxes, page by page.
struct PdfWord {
  int page;
  double x, y;
  std::string text;
};
std::vector<PdfWord> PdfWords(const fs::path& pdf) {
  const fs::path html = pdf.string() + ".html";
  const CliRun r = kestrane::testing::Run("pdftotext -bbox " + Quoted(pdf) + " " + Quoted(html));
  EXPECT_EQ(r.exit_code, 0) << r.err;
  std::vector<PdfWord> words;
  const std::string bytes = kestrane::testing::ReadBytes(html);
  const std::regex word(R"re(<word xMin="([0-9.]+)" yMin="([0-9.]+)"[^>]*>([^<]*)</word>|<page )re");
  int page = 0;
  for (auto it = std::sregex_iterator(bytes.begin(), bytes.end(), word); it != std::sregex_iterator(); ++it) {
    if ((*it)[0].str().rfind("<page", 0) == 0) {
      ++page;
      continue;
    }
    std::string text = (*it)[3];
    for (const auto& [entity, c] : std::map<std::string, std::string>{{"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}}) {
      for (size_t at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1)) text.replace(at, entity.size(), c);
    }
    words.push_back({page, std::stod((*it)[1]), std::stod((*it)[2]), text});
  }
  // In reading order: line by line down the page, left to right on a line.
  std::stable_sort(words.begin(), words.end(), [](const PdfWord& a, const PdfWord& b) {
    if (a.page != b.page) return a.page < b.page;
    if (std::abs(a.y - b.y) > 0.5) return a.y < b.y;
    return a.x < b.x;
  });
  return words;
}

// The PDF lines up column for column like the text form: every word of the specification sheet stands where
// its column puts it, 0.6 em a character at its line's size, on the one page.
TEST_F(PrintCommand, ThePdfPutsEveryWordAtItsTextColumn) {
  for (const char* example : {"SOLVENT-LOADS-THREE-STAGE.JET", "METRIC-TWO-STAGE.JET", "TWO-STAGE-LRVP.JET"}) {
    SCOPED_TRACE(example);
    const fs::path jet = Copy(example);
    const CliRun text = Print("spec-sheet " + Quoted(jet) + " --format txt");
    const fs::path pdf = dir / "spec.pdf";
    const CliRun r = Print("spec-sheet " + Quoted(jet) + " --format pdf -o " + Quoted(pdf));
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.err, "") << "no chatter on standard error";
    // The text form's words with their columns, in reading order.
    std::vector<std::pair<int, std::string>> expected;  // column (0-based), word
    std::vector<double> sizes;                          // the point size of each word's line
    int line_no = 0;
    for (const std::string& line : Lines(text.out)) {
      ++line_no;
      // Lines 2 to 56 print at 12 points, the maker's lines at the foot at 10.
      const double size = line_no <= 55 ? 12.0 : 10.0;
      static const std::regex kWord(R"(\S+)");
      for (auto it = std::sregex_iterator(line.begin(), line.end(), kWord); it != std::sregex_iterator(); ++it) {
        expected.push_back({static_cast<int>(it->position()), it->str()});
        sizes.push_back(size);
      }
    }
    const std::vector<PdfWord> words = PdfWords(pdf);
    ASSERT_EQ(words.size(), expected.size());
    // One scale for the whole page: 1 unless the page was shrunk a little to keep its foot on the paper.
    const double scale = words.back().x / (0.6 * sizes.back() * expected.back().first);
    EXPECT_GT(scale, 0.99);
    EXPECT_LE(scale, 1.0005);
    for (size_t i = 0; i < words.size(); ++i) {
      EXPECT_EQ(words[i].text, expected[i].second);
      EXPECT_NEAR(words[i].x / (0.6 * sizes[i] * scale), expected[i].first, 0.05) << expected[i].second;
      EXPECT_EQ(words[i].page, 1);
    }
  }
}

TEST_F(PrintCommand, WhatCannotBePrintedEndsWithItsExitCode) {
  // A case that cannot be read.
  EXPECT_EQ(Print("spec-sheet " + Quoted(dir / "NONE.JET") + " --format txt").exit_code, 2);
  // A PDF with nowhere to go.
  const CliRun nowhere = Print("spec-sheet " + Quoted(Copy("ONE-STAGE-NO-CONDENSERS.JET")) + " --format pdf");
  EXPECT_EQ(nowhere.exit_code, 2);
  EXPECT_NE(nowhere.err.find("-o FILE.pdf"), std::string::npos);
  // A folder that does not exist: the file is named, nothing is left behind.
  const CliRun unwritable = Print("spec-sheet " + Quoted(Copy("ONE-STAGE-NO-CONDENSERS.JET")) + " --format pdf -o " +
                                  Quoted(dir / "no" / "such.pdf"));
  EXPECT_EQ(unwritable.exit_code, 2);
  EXPECT_NE(unwritable.err.find("such.pdf"), std::string::npos) << unwritable.err;
  // A pump that cannot be chosen leaves no results to print.
  EXPECT_EQ(Print("spec-sheet " + Quoted(Copy("LRVP-BEYOND-LIMITS.JET")) + " --format txt").exit_code, 3);
  // An unknown sheet is a usage error.
  EXPECT_EQ(Print("quotation " + Quoted(Copy("ONE-STAGE-NO-CONDENSERS.JET"))).exit_code, 2);
}

}  // namespace

namespace {

class PrintDrawingsCommand : public kestrane::testing::ScratchFolder {};

// The pages of a PDF file, from pdfinfo.
int PdfPages(const fs::path& pdf) {
  const CliRun r = kestrane::testing::Run("pdfinfo " + Quoted(pdf));
  const size_t at = r.out.find("Pages:");
  return at == std::string::npos ? 0 : std::stoi(r.out.substr(at + 6));
}

TEST_F(PrintDrawingsCommand, DrawingsAndTheFlowDiagramPrintAsPdfPages) {
  const fs::path jet = dir / "SOLVENT-LOADS-THREE-STAGE.JET";
  fs::copy_file(fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / jet.filename(), jet);
  const fs::path drawings = dir / "drawings.pdf", diagram = dir / "diagram.pdf", all = dir / "all.pdf";
  ASSERT_EQ(Kestrane("print drawings " + Quoted(jet) + " --format pdf -o " + Quoted(drawings)).exit_code, 0);
  EXPECT_EQ(PdfPages(drawings), 1) << "six pieces of equipment, one page";
  const CliRun text = kestrane::testing::Run("pdftotext -layout " + Quoted(drawings) + " -");
  EXPECT_NE(text.out.find("Preliminary Drawings"), std::string::npos);
  ASSERT_EQ(Kestrane("print flow-diagram " + Quoted(jet) + " --format pdf -o " + Quoted(diagram)).exit_code, 0);
  EXPECT_EQ(PdfPages(diagram), 1);
  // All output: the two sheets, the drawings and the flow diagram.
  ASSERT_EQ(Kestrane("print all " + Quoted(jet) + " --format pdf -o " + Quoted(all)).exit_code, 0);
  EXPECT_EQ(PdfPages(all), 4);
  // Drawings have no text form.
  EXPECT_EQ(Kestrane("print drawings " + Quoted(jet) + " --format txt").exit_code, 2);
  // As images: a file a page, the later ones numbered.
  const CliRun png = Kestrane("print all " + Quoted(jet) + " --format png -o " + Quoted(dir / "all.png"));
  ASSERT_EQ(png.exit_code, 0) << png.err;
  for (const char* page : {"all.png", "all-2.png", "all-3.png", "all-4.png"}) {
    EXPECT_EQ(kestrane::testing::ReadBytes(dir / page).substr(1, 3), "PNG") << page;
  }
  EXPECT_FALSE(fs::exists(dir / "all-5.png"));
  EXPECT_NE(png.err.find("all-4.png"), std::string::npos) << "the command names the pages after the first";
  ASSERT_EQ(Kestrane("print flow-diagram " + Quoted(jet) + " --format svg -o " + Quoted(dir / "flow.svg")).exit_code, 0);
  EXPECT_NE(kestrane::testing::ReadBytes(dir / "flow.svg").find("<svg"), std::string::npos);
  EXPECT_FALSE(fs::exists(dir / "flow.svg.part"));
}

}  // namespace
