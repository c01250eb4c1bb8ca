// The design input window as a user works it: picking vapors from the data base or the user defined ones, the
// search by name or formula, the vapor names beside the load IDs, and the marks of refused boxes.
#include <QTest>

#include "desktop.h"
#include "properties/vapor_search.h"

namespace {

// Focus comes to a box: the window takes it as the load row last used and shows its hint.
void Enter(QLineEdit* box) {
  QFocusEvent in(QEvent::FocusIn);
  QApplication::sendEvent(box, &in);
}

// A click on a row of a vapor list, as the mouse gives it.
void ClickRow(QTableWidget* grid, int row) {
  grid->scrollToItem(grid->item(row, 0));
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(row, 1)).center());
}

// The row of a vapor list that shows an ID.
int RowOf(QTableWidget* grid, const QString& id) {
  for (int r = 0; r < grid->rowCount(); ++r) {
    if (grid->item(r, 0)->text() == id) return r;
  }
  return -1;
}

}  // namespace

class InputWindow : public Desktop {
 protected:
  void SetUp() override {
    ASSERT_TRUE(window->Start());
    // A user defined vapor of the user's own beside the shipped samples.
    UserVapors& user = session.data.user_vapors;
    ASSERT_LT(user.NUDV, kMaxUserVapors);
    const int row = ++user.NUDV;
    const float data[] = {static_cast<float>(-row), 20, 40, 50, 200, 80, 700, 58, 0};
    for (int c = 1; c <= 9; ++c) user.UDVDATA(row, c) = data[c - 1];
    user.UDVNAME(row) = FixedText("Blend K7", kUserVaporNameLength);
    own_id = -row;
    window->SwapForms(window->Current(), Form::frmJetInput);
    Input()->SSTabInput->setCurrentIndex(1);
  }
  QLineEdit* Id(int row) { return Input()->BoxOf({BoxGroup::kCID, row}); }
  QLabel* NameOf(int row) { return Input()->vaporNames[static_cast<size_t>(row)]; }
  int own_id = 0;
};

TEST_F(InputWindow, AUserDefinedVaporPickedFromItsListPutsItsNegativeIdInTheLoadRowLastUsed) {
  QTableWidget* users = Input()->userVaporGrid;
  const UserVapors& user = session.data.user_vapors;
  ASSERT_EQ(users->rowCount(), user.NUDV);
  const int own = RowOf(users, QString::number(own_id));
  ASSERT_GE(own, 0);
  EXPECT_EQ(users->item(own, 1)->text(), "Blend K7");
  EXPECT_EQ(users->item(own, 2)->text(), "58");
  Input()->vaporLists->setCurrentWidget(users);
  Enter(Input()->BoxOf({BoxGroup::kCpph, 3}));
  ClickRow(users, own);
  EXPECT_EQ(Id(3)->text(), QString::number(own_id));
  EXPECT_EQ(window->screen.txtCID[3], std::to_string(own_id));
  EXPECT_EQ(window->screen.CASEDIRTY, 1);
  EXPECT_EQ(NameOf(3)->text(), "Blend K7");
  // The data base list still puts a built-in ID, in the row last used.
  Input()->vaporLists->setCurrentWidget(Input()->vaporGrid);
  Enter(Id(2));
  ClickRow(Input()->vaporGrid, 2);
  EXPECT_EQ(Id(2)->text(), "3");
  EXPECT_EQ(Id(3)->text(), QString::number(own_id));
}

TEST_F(InputWindow, ACaseWithAPickedUserVaporDesignsWithItsLoad) {
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  Input()->vaporLists->setCurrentWidget(Input()->userVaporGrid);
  Enter(Id(5));
  ClickRow(Input()->userVaporGrid, RowOf(Input()->userVaporGrid, QString::number(own_id)));
  Type(Input()->BoxOf({BoxGroup::kCpph, 5}), "4");
  ASSERT_TRUE(DesignFromTheMenu()) << ::testing::PrintToString(ui.notices);
  bool found = false;
  for (int load = 1; load <= session.design.NLOADS; ++load) {
    if (session.design.LOADS(kLoadID, load) == static_cast<float>(own_id)) {
      found = true;
      EXPECT_EQ(session.design.LOADS(kLoadPPH, load), 4.0f);
      EXPECT_EQ(session.design.LOADS(kLoadMW, load), 58.0f);
    }
  }
  EXPECT_TRUE(found);
}

TEST_F(InputWindow, TheSearchFindsFormulasAndNamesForwardAndBackFromTheSelectedRow) {
  QTableWidget* grid = Input()->vaporGrid;
  const VaporData& data = session.data.vapors;
  const auto rows = VaporGridText(data);
  EXPECT_EQ(grid->rowCount(), data.NPSAT) << "the list keeps every vapor; the search moves through it";
  // Typed: the first row from the top whose formula or name holds the text.
  QTest::keyClicks(Input()->vaporSearch, "c7h8");
  const int toluene = SearchVaporRows(rows, "c7h8", 0, true).row;
  ASSERT_GT(toluene, 0);
  EXPECT_EQ(grid->currentRow(), toluene - 1);
  EXPECT_EQ(grid->item(toluene - 1, 1)->text(), "C7H8");
  EXPECT_EQ(Input()->vaporSearchReport->text().toStdString(), "\"c7h8\" found in row " + std::to_string(toluene) + ".");
  // Find Next and Enter go on below the selected row, Find Previous back above it.
  Input()->vaporSearch->clear();
  QTest::keyClicks(Input()->vaporSearch, "ethanol");
  const int first = grid->currentRow() + 1;
  const int second = SearchVaporRows(rows, "ethanol", first, true).row;
  ASSERT_GT(second, first);
  Input()->findNext->click();
  EXPECT_EQ(grid->currentRow(), second - 1);
  Input()->findPrevious->click();
  EXPECT_EQ(grid->currentRow(), first - 1);
  QTest::keyClick(Input()->vaporSearch, Qt::Key_Return);
  EXPECT_EQ(grid->currentRow(), second - 1);
  // Nothing more above the first: said beside the box, and the selection stays.
  Input()->findPrevious->click();
  Input()->findPrevious->click();
  EXPECT_EQ(grid->currentRow(), first - 1);
  EXPECT_EQ(Input()->vaporSearchReport->text(), "\"ethanol\" not found above the current row.");
  EXPECT_EQ(Id(1)->text(), "") << "a search selects; only a click puts an ID";
  // The user defined list searches its own names.
  Input()->vaporLists->setCurrentWidget(Input()->userVaporGrid);
  Input()->vaporSearch->clear();
  QTest::keyClicks(Input()->vaporSearch, "k7");
  ASSERT_GE(Input()->userVaporGrid->currentRow(), 0);
  EXPECT_EQ(Input()->userVaporGrid->item(Input()->userVaporGrid->currentRow(), 0)->text(), QString::number(own_id));
}

TEST_F(InputWindow, EachLoadRowNamesItsVaporAsTheIdIsTypedOrRead) {
  const VaporData& data = session.data.vapors;
  EXPECT_EQ(NameOf(0)->text(), "WATER");
  QTest::keyClicks(Id(1), "3");  // not yet left
  EXPECT_EQ(NameOf(1)->text().toStdString(), Trim(data.PSATNAME(3)));
  QTest::keyClicks(Id(1), "0");  // 30
  EXPECT_EQ(NameOf(1)->text().toStdString(), Trim(data.PSATNAME(30)));
  QTest::keyClicks(Id(1), "00");  // 3000: no such vapor
  EXPECT_EQ(NameOf(1)->text(), "No vapor has this ID.");
  Id(1)->clear();
  EXPECT_EQ(NameOf(1)->text(), "");
  QTest::keyClicks(Id(1), QString::number(own_id));
  EXPECT_EQ(NameOf(1)->text(), "Blend K7");
  // A case read from its file names its loads; user vapors changed elsewhere are named anew on return.
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  for (int row = 1; row < 10; ++row) {
    const std::string id = window->screen.txtCID[static_cast<size_t>(row)];
    if (id.empty()) continue;
    EXPECT_EQ(NameOf(row)->text().toStdString(), Trim(data.PSATNAME(std::stoi(id)))) << row;
  }
  window->screen.txtCID[9] = std::to_string(own_id);
  window->SwapForms(Form::frmJetInput, Form::frmUDV);
  session.data.user_vapors.UDVNAME(-own_id) = FixedText("Blend K8", kUserVaporNameLength);
  window->SwapForms(Form::frmUDV, Form::frmJetInput);
  EXPECT_EQ(NameOf(9)->text(), "Blend K8");
  const int own = RowOf(Input()->userVaporGrid, QString::number(own_id));
  EXPECT_EQ(Input()->userVaporGrid->item(own, 1)->text(), "Blend K8");
}

TEST_F(InputWindow, ARefusedRunMarksTheBoxesItRefusedAndBringsTheirTabForward) {
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  window->screen.txtInput[2] = "500";  // discharge below its range
  Input()->Refresh();
  Input()->SSTabInput->setCurrentIndex(3);
  EXPECT_FALSE(DesignFromTheMenu());
  const std::string notice = "Discharge pressure outside the range: (700 - 900 mmHga)";
  ASSERT_EQ(ui.notices.back(), notice + "\r\n") << "the notice as it always was";
  QLineEdit* discharge = Input()->BoxOf({BoxGroup::kInput, 2});
  EXPECT_TRUE(RefusalShown(discharge));
  EXPECT_TRUE(RefusalShown(Input()->BoxOf({BoxGroup::kInputA, 2})));
  EXPECT_EQ(discharge->toolTip().toStdString(), notice);
  EXPECT_FALSE(RefusalShown(Input()->BoxOf({BoxGroup::kInput, 0})));
  EXPECT_EQ(Input()->SSTabInput->currentIndex(), 0) << "the refused box comes into view";
  // The mark is red on the screen.
  const QImage look = discharge->grab().toImage();
  const QColor edge = look.pixelColor(0, look.height() / 2);
  EXPECT_GT(edge.red(), 150);
  EXPECT_LT(edge.green(), 60);
  // Corrected, the mark goes; the next refusal marks the vapor ID on its own tab.
  Type(discharge, "770");
  EXPECT_FALSE(RefusalShown(discharge));
  EXPECT_FALSE(RefusalShown(Input()->BoxOf({BoxGroup::kInputA, 2})));
  EXPECT_EQ(discharge->toolTip(), "");
  Type(Id(6), "1999");
  Type(Input()->BoxOf({BoxGroup::kCpph, 6}), "2");
  EXPECT_FALSE(DesignFromTheMenu());
  EXPECT_TRUE(RefusalShown(Id(6)));
  EXPECT_EQ(Id(6)->toolTip(), "Condensible load 7: vapor ID 1999 is not in the vapor data base.");
  EXPECT_EQ(Input()->SSTabInput->currentIndex(), 1);
  Input()->vaporLists->setCurrentWidget(Input()->vaporGrid);
  Enter(Id(6));
  ClickRow(Input()->vaporGrid, 4);
  EXPECT_FALSE(RefusalShown(Id(6)));
  EXPECT_TRUE(DesignFromTheMenu());
}

TEST_F(InputWindow, ALeaveCheckThatRefusesAValueMarksItsBoxUntilAValueIsTaken) {
  QLineEdit* suction = Input()->BoxOf({BoxGroup::kInput, 0});
  QLineEdit* suction_kpa = Input()->BoxOf({BoxGroup::kInputA, 0});
  Type(suction, "600");
  EXPECT_EQ(ui.notices.back(), "Suction pressure outside the range: (1 - 500 mmHga)");
  EXPECT_TRUE(RefusalShown(suction));
  EXPECT_TRUE(RefusalShown(suction_kpa));
  EXPECT_EQ(suction->toolTip(), "Suction pressure outside the range: (1 - 500 mmHga)");
  Type(suction, "1,5");
  EXPECT_EQ(suction->toolTip(), "Please enter a number (without commas) in this box.");
  // Marked, the box still turns green while it has the focus.
  window->activateWindow();
  suction->setFocus();
  ASSERT_TRUE(WaitFor([&] { return suction->hasFocus(); }));
  const QImage look = suction->grab().toImage();
  EXPECT_EQ(look.pixelColor(look.width() - 6, look.height() / 2), QColor(0, 255, 0));
  EXPECT_EQ(look.pixelColor(0, look.height() / 2).red(), 0xd0);
  Type(suction, "75");
  EXPECT_FALSE(RefusalShown(suction));
  EXPECT_FALSE(RefusalShown(suction_kpa));
  // A new case has nothing refused.
  Type(Input()->BoxOf({BoxGroup::kNCMW, 0}), "x");
  ASSERT_TRUE(RefusalShown(Input()->BoxOf({BoxGroup::kNCMW, 0})));
  Action(Input(), "&New")->trigger();
  EXPECT_FALSE(RefusalShown(Input()->BoxOf({BoxGroup::kNCMW, 0})));
}
