// The results window: what the design computed beside the results, in the case's units, every row reachable
// on a laptop screen, and the debugger grid readable when open.
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

#include "desktop.h"
#include "properties/numeric.h"

namespace {

class ResultsWindow : public Desktop {
 protected:
  void Design(const std::string& example) { DesignFile(kProgram / "usrfiles" / example); }
  // The row captions of a frame, by its title; empty when the frame is not shown.
  QStringList Captions(const QString& title) {
    QStringList captions;
    for (auto* box : Results()->frames->findChildren<QGroupBox*>()) {
      if (box->title() != title) continue;
      auto* table = box->findChild<QTableWidget*>();
      for (int r = 0; r < table->rowCount(); ++r) captions << table->verticalHeaderItem(r)->text();
    }
    return captions;
  }
};

TEST_F(ResultsWindow, ShowsCostPressuresDutiesAndLoadsBesideTheResults) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  const DesignCase& dc = session.design;
  EXPECT_EQ(FrameValue("Annual Utility Cost", "Total ($/yr)").toStdString(),
            Trim(FormatFixed(dc.TOTALS(kTotalAnnualCost), 12.0f)));
  EXPECT_EQ(FrameValue("Annual Utility Cost", "Steam ($/yr)").toStdString(),
            Trim(FormatFixed(dc.TOTALS(kTotalSteamCost), 12.0f)));
  // The first column is the highest stage, A.
  EXPECT_EQ(FrameValue("Stage Pressures", "Suction (mmHgA)").toStdString(), Trim(FormatFixed(dc.STG(kStageA, kStgPIN), 10.2f)));
  EXPECT_EQ(FrameValue("Condenser Duties", "Duty (Btu/hr)").toStdString(),
            Trim(FormatFixed(dc.CND(kCondC1, kCndQNOSUB), 12.0f)));
  EXPECT_EQ(FrameValue("Condenser Duties", "Vent Temperature (degF)").toStdString(),
            Trim(FormatFixed(dc.CND(kCondC1, kCndTSAT), 6.1f)));
  EXPECT_EQ(Captions("Loads"),
            QStringList({"WATER", "Methanol", "Acetone", "Toluene", "NON-CONDENSIBLE", "NON-CONDENSIBLE"}));
  EXPECT_TRUE(Captions("Pump Capacity").isEmpty()) << "no pump, no pump block";
  // The results' own blocks stand unchanged, on their side.
  EXPECT_EQ(Captions("Utilities"),
            QStringList({"Total Motive Steam (#/hr)", "Total Water (gpm)", "Total Power (KW)"}));
}

TEST_F(ResultsWindow, AMetricCaseShowsItsDetailsInMetricUnits) {
  Design("METRIC-TWO-STAGE.JET");
  const DesignCase& dc = session.design;
  EXPECT_EQ(FrameValue("Stage Pressures", "Suction (KpaA)").toStdString(),
            Trim(FormatFixed(dc.STG(kStageB, kStgPIN) / 7.5f, 10.2f)));
  EXPECT_TRUE(Captions("Condenser Duties").contains("Duty (KW)"));
  EXPECT_TRUE(Captions("Condenser Duties").contains("Vent Temperature (degC)"));
}

TEST_F(ResultsWindow, APumpTrainShowsThePumpAgainstItsDuty) {
  Design("TWO-STAGE-LRVP.JET");
  const DesignCase& dc = session.design;
  EXPECT_EQ(FrameValue("Pump Capacity", "Capacity / Duty").toStdString(), Trim(FormatFixed(dc.LRVPRES(10, 1), 8.2f)));
  EXPECT_EQ(FrameValue("Pump Capacity", "Duty at Suction (ACFM)").toStdString(),
            Trim(FormatFixed(dc.LRVPRES(5, 1), 8.1f)));
}

// On a 1366 x 768 laptop (less its task bar) every row of every table can be brought into view, and the grid,
// once open, shows a screenful of rows without hiding the results.
TEST_F(ResultsWindow, EveryRowIsReachableOnALaptopScreenAndTheGridIsReadable) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  window->resize(1366, 728);
  WaitFor([] { return false; }, 200);
  ASSERT_LE(Results()->minimumSizeHint().height(), 600) << "the results page fits the screen";
  auto* scroll = Results()->findChild<QScrollArea*>();
  ASSERT_NE(scroll, nullptr);
  const auto tables = Results()->frames->findChildren<QTableWidget*>();
  ASSERT_GE(tables.size(), 7);
  for (QTableWidget* table : tables) {
    // The table shows all its rows itself: none hidden behind a scroll bar of its own.
    int rows = 0;
    for (int r = 0; r < table->rowCount(); ++r) rows += table->rowHeight(r);
    EXPECT_GE(table->viewport()->height(), rows) << table->parentWidget()->objectName().toStdString();
    // Scrolled to, its last row lies inside the visible part of the window.
    scroll->ensureWidgetVisible(table, 0, 0);
    WaitFor([] { return false; }, 20);
    const QRect last = table->visualItemRect(table->item(table->rowCount() - 1, 0));
    const QPoint bottom = table->viewport()->mapTo(scroll->viewport(), last.bottomLeft());
    EXPECT_TRUE(scroll->viewport()->rect().contains(bottom)) << "a row out of reach";
  }

  Results()->cmdDebugger->setChecked(true);
  WaitFor([] { return false; }, 100);
  QTableWidget* grid = Results()->Grid1;
  EXPECT_GE(grid->viewport()->height(), 12 * grid->rowHeight(1)) << "a dozen rows of the grid at least";
  EXPECT_GE(scroll->viewport()->height(), 100) << "the results stay in view above the grid";
  int widest = 0;
  for (int r = 0; r < grid->rowCount(); ++r) {
    if (grid->item(r, 0) != nullptr) widest = std::max(widest, grid->fontMetrics().horizontalAdvance(grid->item(r, 0)->text()));
  }
  EXPECT_GE(grid->columnWidth(0), widest) << "the row labels are not cut";
}

}  // namespace

TEST_F(ResultsWindow, TheThoroughSearchOptionDesignsAndItsAdvisoriesStandWithTheResults) {
  auto* thorough = Input()->findChild<QAction*>("mnuThoroughSearch");
  ASSERT_NE(thorough, nullptr);
  EXPECT_EQ(window->search, InterstageSearch::kOriginal) << "the original search unless asked";
  thorough->setChecked(true);
  EXPECT_EQ(window->search, InterstageSearch::kThorough);
  Design("AUTOMATIC-SURFACE.JET");
  EXPECT_EQ(session.design.NSTAGES, 3) << "three stages need less steam than the two of the pressure bands";
  auto* box = Results()->frames->findChild<QGroupBox*>("advisories");
  ASSERT_NE(box, nullptr);
  QStringList texts;
  for (auto* label : box->findChildren<QLabel*>()) texts << label->text();
  ASSERT_FALSE(texts.isEmpty());
  EXPECT_TRUE(texts.front().startsWith("Thorough search: three stages chosen")) << texts.front().toStdString();
  thorough->setChecked(false);
  EXPECT_EQ(window->search, InterstageSearch::kOriginal);
}

TEST_F(ResultsWindow, ADesignWithNothingToAdviseShowsNoAdvisories) {
  Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET");
  EXPECT_EQ(Results()->frames->findChild<QGroupBox*>("advisories"), nullptr);
}

TEST_F(ResultsWindow, TheSearchSettingIsKeptForTheNextStartOfTheProgram) {
  Input()->findChild<QAction*>("mnuThoroughSearch")->setChecked(true);
  window = std::make_unique<MainWindow>(session, ui);
  EXPECT_EQ(window->search, InterstageSearch::kThorough);
  auto* thorough = Input()->findChild<QAction*>("mnuThoroughSearch");
  EXPECT_TRUE(thorough->isChecked());
  thorough->setChecked(false);
  window = std::make_unique<MainWindow>(session, ui);
  EXPECT_EQ(window->search, InterstageSearch::kOriginal);
}
