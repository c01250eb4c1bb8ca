// kestrane drawing render: the test sheet as PNG, SVG and PDF, placeholders filled, and a damaged file refused
// with the load's message.
#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>

#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::testing::CliRun;
using kestrane::testing::Kestrane;
using kestrane::testing::Quoted;
using kestrane::testing::ReadBytes;

namespace {

class DrawingCommand : public kestrane::testing::ScratchFolder {
 protected:
  const fs::path sheet = fs::path(KESTRANE_SOURCE_DIR) / "pgmfiles" / "TESTSHEET.CAD";
  CliRun Render(const fs::path& cad, const std::string& format, const fs::path& out, const std::string& more = "") {
    return Kestrane("drawing render " + Quoted(cad) + " --format " + format + " -o " + Quoted(out) + " " + more);
  }
};

// The share of an image's pixels that are not the background.
double InkShare(const fs::path& png) {
  QImage image(QString::fromStdString(png.string()));
  if (image.isNull()) return -1;
  const QRgb background = image.pixel(0, 0);
  long ink = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ink += image.pixel(x, y) != background ? 1 : 0;
  }
  return static_cast<double>(ink) / (static_cast<double>(image.width()) * image.height());
}

TEST_F(DrawingCommand, RendersTheTestSheetInEachForm) {
  const CliRun png = Render(sheet, "png", dir / "sheet.png", "--width 800 --height 600");
  ASSERT_EQ(png.exit_code, 0) << png.err;
  EXPECT_EQ(png.err, "");
  const QImage image(QString::fromStdString((dir / "sheet.png").string()));
  EXPECT_EQ(image.size(), QSize(800, 600));
  const double ink = InkShare(dir / "sheet.png");
  EXPECT_GT(ink, 0.005) << "the drawing is drawn";
  EXPECT_LT(ink, 0.5) << "on a page that stays mostly white";
  EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255)) << "black on white, as it prints";

  ASSERT_EQ(Render(sheet, "svg", dir / "sheet.svg").exit_code, 0);
  const std::string svg = ReadBytes(dir / "sheet.svg");
  EXPECT_NE(svg.find("<svg"), std::string::npos);
  EXPECT_GT(svg.size(), 20000u) << "every stroke of the sheet is a path";

  ASSERT_EQ(Render(sheet, "pdf", dir / "sheet.pdf").exit_code, 0);
  EXPECT_EQ(ReadBytes(dir / "sheet.pdf").rfind("%PDF", 0), 0u);
}

TEST_F(DrawingCommand, PlaceholdersAreFilledByKey) {
  ASSERT_EQ(Render(sheet, "png", dir / "plain.png", "--width 800 --height 600").exit_code, 0);
  ASSERT_EQ(Render(sheet, "png", dir / "filled.png", "--width 800 --height 600 --set 'A?=3-2 5/8' --set 'SUCTION?=6 IN'").exit_code, 0);
  EXPECT_NE(ReadBytes(dir / "plain.png"), ReadBytes(dir / "filled.png"));
  // A key that names no row changes nothing.
  ASSERT_EQ(Render(sheet, "png", dir / "same.png", "--width 800 --height 600 --set NOSUCHKEY?=1").exit_code, 0);
  EXPECT_EQ(ReadBytes(dir / "plain.png"), ReadBytes(dir / "same.png"));
  EXPECT_EQ(Render(sheet, "png", dir / "bad.png", "--set NOEQUALSIGN").exit_code, 2);
}

TEST_F(DrawingCommand, ADamagedFileGivesTheLoadMessageAndExitTwo) {
  kestrane::testing::WriteBytes(dir / "BAD.CAD", "2,1,1,0,0,0,0,0.1\r\n");
  const CliRun r = Render(dir / "BAD.CAD", "png", dir / "bad.png");
  EXPECT_EQ(r.exit_code, 2);
  EXPECT_EQ(r.err.rfind("Drawing file read failed...ERROR: 0>>>   <<<   ", 0), 0u) << r.err;
  EXPECT_NE(r.err.find("BAD.CAD"), std::string::npos);
  EXPECT_FALSE(fs::exists(dir / "bad.png"));
  EXPECT_EQ(Render(dir / "NONE.CAD", "png", dir / "none.png").exit_code, 2);
  // Nowhere to write.
  const CliRun nowhere = Render(sheet, "png", dir / "no" / "such.png");
  EXPECT_EQ(nowhere.exit_code, 2);
  EXPECT_NE(nowhere.err.find("such.png"), std::string::npos);
}

}  // namespace
