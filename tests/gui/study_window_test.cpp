// The study window: ranges from the case on screen, the study in the background with progress and Cancel, the
// chart of an output a line per value of the second input, and the chart and table written out.
#include <QtCharts/QLineSeries>
#include <fstream>

#include "desktop.h"
#include "study_window.h"

namespace {

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

class StudyWindowTest : public Desktop {
 protected:
  StudyWindow* Open(const char* example) {
    DesignFile(kProgram / "usrfiles" / example);
    Results()->cmdStudy->click();
    return Results()->study;
  }
  static void Choose(StudyRangeFields& f, const char* name, const char* from, const char* to, int points, bool log) {
    f.name->setCurrentIndex(f.name->findData(name));
    f.from->setText(from);
    f.to->setText(to);
    f.points->setValue(points);
    f.log->setChecked(log);
  }
  bool WaitDone(StudyWindow* s) {
    return WaitFor([s] { return !s->running(); }, 60000);
  }
};

TEST_F(StudyWindowTest, ChartsAnOutputALinePerValueOfTheSecondInputFromTheStudysPoints) {
  StudyWindow* s = Open("SOLVENT-LOADS-THREE-STAGE.JET");
  ASSERT_NE(s, nullptr);
  EXPECT_TRUE(s->isVisible());
  // The first range starts about the case's own suction pressure.
  EXPECT_EQ(s->ranges[0].name->currentData().toString(), "PSUCT");
  EXPECT_EQ(s->ranges[0].from->text(), "10");
  EXPECT_EQ(s->ranges[0].to->text(), "40");
  Choose(s->ranges[0], "PSUCT", "10", "30", 3, false);
  s->second->setChecked(true);
  Choose(s->ranges[1], "NSTAGES", "2", "3", 2, false);
  s->cmdRun->click();
  EXPECT_TRUE(s->running() || !s->points().empty());
  ASSERT_TRUE(WaitDone(s));
  ASSERT_EQ(s->points().size(), 6u);
  EXPECT_EQ(s->progress->value(), 6);
  EXPECT_TRUE(s->summary->text().startsWith("6 points: 6 designed"));
  const auto expected = RunStudy(window->session.data, window->screen, 0, s->variables());
  const auto series = s->chart->chart()->series();
  ASSERT_EQ(series.size(), 2);
  const auto* three = static_cast<QLineSeries*>(series[1]);
  EXPECT_EQ(three->name(), "NSTAGES 3");
  ASSERT_EQ(three->count(), 3);
  const StudyOutput& out = StudyOutputs()[static_cast<size_t>(s->output->currentIndex())];
  EXPECT_EQ(out.name, "steam_per_lb_load");
  for (int i = 0; i < 3; ++i) {
    EXPECT_FLOAT_EQ(three->at(i).x(), expected[static_cast<size_t>(i * 2 + 1)].values[0]);
    EXPECT_FLOAT_EQ(three->at(i).y(), *out.value(expected[static_cast<size_t>(i * 2 + 1)]));
  }
  // Another output redraws from the same points.
  s->output->setCurrentIndex(0);
  EXPECT_FLOAT_EQ(static_cast<QLineSeries*>(s->chart->chart()->series()[0])->at(0).y(),
                  expected[0].summary.motive_steam_lb_hr);

  const fs::path csv = userdata / "study.csv", png = userdata / "study.png", svg = userdata / "study.svg";
  fs::create_directories(userdata);
  s->save_path = [&](const QString& filter, const QString&) {
    return QString::fromStdString((filter.contains("csv") ? csv : png).string());
  };
  s->cmdExportTable->click();
  s->cmdExportChart->click();
  EXPECT_EQ(ReadBytes(csv), StudyCsv(s->variables(), expected));
  EXPECT_GT(fs::file_size(png), 1000u);
  ASSERT_TRUE(s->ExportChart(QString::fromStdString(svg.string())));
  EXPECT_NE(ReadBytes(svg).find("<svg"), std::string::npos);
}

TEST_F(StudyWindowTest, CancelStopsTheStudyWithThePointsDesignedSoFar) {
  StudyWindow* s = Open("SOLVENT-LOADS-THREE-STAGE.JET");
  Choose(s->ranges[0], "PSUCT", "10", "30", 3000, false);
  ASSERT_TRUE(s->Run());
  EXPECT_TRUE(s->cmdCancel->isEnabled());
  EXPECT_FALSE(s->cmdRun->isEnabled());
  s->cmdCancel->click();
  ASSERT_TRUE(WaitDone(s));
  ASSERT_EQ(s->points().size(), 3000u);
  EXPECT_EQ(s->points().back().input_error, -1);
  EXPECT_TRUE(s->summary->text().contains("not designed (cancelled)"));
  EXPECT_TRUE(s->cmdRun->isEnabled());
}

TEST_F(StudyWindowTest, AWrongRangeIsToldAndNothingRuns) {
  StudyWindow* s = Open("SOLVENT-LOADS-THREE-STAGE.JET");
  Choose(s->ranges[0], "PSUCT", "0", "30", 5, true);
  EXPECT_FALSE(s->Run());
  EXPECT_FALSE(s->running());
  EXPECT_TRUE(Told("above zero"));
  s->ranges[0].from->setText("ten");
  EXPECT_FALSE(s->Run());
  EXPECT_TRUE(Told("\"ten\" is not a number"));
}

}  // namespace
