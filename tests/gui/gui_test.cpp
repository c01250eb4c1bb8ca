// The desktop windows, driven without a screen: start-up, a design from the input window, metric pairs, a refused input, Nupreir.
#include "desktop.h"

#include <QFileDialog>
#include <QTimer>
#include <fstream>

#include "properties/numeric.h"
#include "shell/constants.h"
#include "shell/startup.h"

TEST_F(Desktop, StartUpShowsTheProgressTextsInOrder) {
  ASSERT_TRUE(window->Start());
  ASSERT_EQ(ui.statuses.size(), kStartProgressTexts.size());
  for (size_t i = 0; i < kStartProgressTexts.size(); ++i) EXPECT_EQ(ui.statuses[i], kStartProgressTexts[i]);
  auto* menu = static_cast<MainForm*>(window->PageOf(Form::MainForm));
  EXPECT_EQ(menu->Label3->text().toStdString(), "ENGINEERING ANSWERS FOR YOUR VACUUM SYSTEM NEEDS");
  for (auto* b : menu->cmdMain) EXPECT_TRUE(b->isEnabled());
}

TEST_F(Desktop, AnExampleDesignedFromTheWindowShowsTheSameNumbersAsTheRecord) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::frmJetInput);
  ASSERT_TRUE(Input()->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET").string())));
  EXPECT_EQ(Input()->BoxOf({BoxGroup::kInput, 0})->text().toStdString(), window->screen.txtInput[0]);
  Input()->DesignSystem();
  ASSERT_TRUE(WaitFor([&] { return window->Current() == Form::frmJET0; }));
  const DesignCase& dc = session.design;
  EXPECT_EQ(FrameValue("Utilities", "Total Motive Steam (#/hr)").toStdString(),
            Trim(FormatFixed(dc.TOTALS(kTotalMotive), 8.0f)));
  EXPECT_EQ(FrameValue("Condensers", "Surface (sq.ft.)").toStdString(), Trim(FormatFixed(dc.CND(kCondC1, kCndAREA), 6.1f)));
  EXPECT_FALSE(Results()->lblMessage->isVisible());
  EXPECT_NE(std::find(ui.statuses.begin(), ui.statuses.end(), "Calculating.....three stage design... "), ui.statuses.end());
  Results()->cmdDebugger->setChecked(true);
  EXPECT_TRUE(Results()->Grid1->isVisible());
  EXPECT_GT(Results()->Grid1->rowCount(), 100);
}

TEST_F(Desktop, APumpErrorShowsLrvpErrorWithoutResults) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::frmJetInput);
  ASSERT_TRUE(Input()->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "LRVP-BEYOND-LIMITS.JET").string())));
  Input()->DesignSystem();
  ASSERT_TRUE(WaitFor([&] { return window->Current() == Form::frmJET0; }));
  EXPECT_EQ(Results()->lblMessage->text(), "LRVP Error");
  EXPECT_TRUE(Results()->frames->findChildren<QGroupBox*>().empty());
  EXPECT_EQ(ui.notices.back().substr(0, 52), "Error encountered in liquid ring vacuum pump design.");
}

TEST_F(Desktop, AMetricPairFollowsOnLeavingItsBox) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::frmJetInput);
  QLineEdit* suction = Input()->BoxOf({BoxGroup::kInput, 0});
  suction->setText("75");
  Leave(suction);
  EXPECT_EQ(Input()->BoxOf({BoxGroup::kInputA, 0})->text().toStdString(), FormatFixed(10.0f, 12.4f));
  EXPECT_EQ(window->screen.txtInput[0], "75");
  EXPECT_EQ(window->screen.CASEDIRTY, 1);
}

TEST_F(Desktop, ARefusedInputShowsItsNoticeAndStaysOnTheInput) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::frmJetInput);
  ASSERT_TRUE(Input()->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "AUTOMATIC-SURFACE.JET").string())));
  window->screen.txtInput[2] = "500";  // discharge below the limit
  bool finished = false, results = true;
  QObject::connect(Input(), &frmJetInput::designFinished, [&](bool r) {
    finished = true;
    results = r;
  });
  Input()->DesignSystem();
  ASSERT_TRUE(WaitFor([&] { return finished; }));
  EXPECT_FALSE(results);
  EXPECT_EQ(window->Current(), Form::frmJetInput);
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_NE(ui.notices.back().find("Discharge pressure outside the range: (700 - 900 mmHga)"), std::string::npos);
  EXPECT_TRUE(Input()->isEnabled());
}

TEST_F(Desktop, NupreirAppendsResultsAndKeepsOneWindow) {
  window->ShowGoFigure();
  window->ShowGoFigure();
  GoFigure* calc = window->goFigure();
  EXPECT_TRUE(calc->isVisible());
  calc->cmboExprText->setEditText("2^3^2");
  calc->Calculate();
  EXPECT_NE(calc->results->toPlainText().indexOf("2 ^ 3 ^ 2 = 64"), -1);
  calc->cmboExprText->setEditText("(1+2)+(3+4)");
  calc->Calculate();
  EXPECT_EQ(ui.notices.back(), "Too many )s in '1+2)+(3+4'");
  EXPECT_EQ(calc->results->toPlainText().count(" = "), 1);
  EXPECT_EQ(calc->cmboExprText->count(), 1);  // the history holds the good expression
  calc->Grab();
  EXPECT_EQ(calc->values[0]->text().toStdString(), "64");
}

TEST_F(Desktop, AThermoCompressorExampleDesignsFromItsWindow) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::TCInput);
  auto* tc = static_cast<TCInput*>(window->PageOf(Form::TCInput));
  ASSERT_TRUE(tc->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "TC-METRIC-HIGH-RATIO.TTC").string())));
  EXPECT_TRUE(tc->txtInput[0]->isReadOnly());  // metric entry: the standard side follows
  tc->Design();
  EXPECT_EQ(window->Current(), Form::TCform);
  auto* results = static_cast<TCform*>(window->PageOf(Form::TCform));
  EXPECT_EQ(results->results->item(1, 0)->text().toStdString(),
            Trim(FormatFixed(session.design.STG(1, kStgMOTIVE) / 2.2045993805f, 12.0f)));
  EXPECT_EQ(results->grid->verticalHeaderItem(2)->text(), "Motive FLow (#/hr)");
  // A refused case stays on the input with its notice.
  window->SwapForms(Form::TCform, Form::TCInput);
  tc->model.txtInput[0] = "26";
  tc->Design();
  EXPECT_EQ(window->Current(), Form::TCInput);
  EXPECT_EQ(ui.notices.back().rfind("Suction pressure outside the range: (3.8 - 10. psia)\r\n", 0), 0u);
}

TEST_F(Desktop, ThePressureLossWindowCalculatesACase) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::dpVac);
  auto* dp = static_cast<dpVac*>(window->PageOf(Form::dpVac));
  ASSERT_TRUE(ReadDpFile(kProgram / "usrfiles" / "LINE-LOSS-HEI.TDP", dp->model, ui));
  dp->Refresh();
  EXPECT_FALSE(dp->txtEV[4]->isVisible());  // no viscosity with the chart method
  dp->Calculate();
  EXPECT_EQ(dp->total->text().toStdString(), dp->model.total);
  EXPECT_NE(dp->results->toPlainText().indexOf("Total calculated pressure drop:"), -1);
}

TEST_F(Desktop, UserInformationIsKeptInTheUsersDataFolderWhenDone) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(window->Current(), Form::frmUserData);
  auto* form = static_cast<frmUserData*>(window->PageOf(Form::frmUserData));
  form->Text1[0]->setText("Ann Lee");
  form->cmdDone->click();
  EXPECT_EQ(window->Current(), Form::MainForm);
  EXPECT_EQ(session.data.USERINFO(1), "Ann Lee");
  std::ifstream file(userdata / "USERINFO.DTA");
  std::string first;
  std::getline(file, first);
  EXPECT_EQ(first, "Ann Lee\r") << ::testing::PrintToString(ui.notices);
}

TEST_F(Desktop, VaporPressuresAndSteamStatesShowTheModelsValues) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::VaporPressureForm);
  auto* vp = static_cast<VaporPressureForm*>(window->PageOf(Form::VaporPressureForm));
  vp->search->setText("ethanol");
  ASSERT_GT(vp->vapors->rowCount(), 0);
  vp->vapors->selectRow(0);
  vp->tmin->setText("122");
  vp->tmax->setText("122");
  vp->Calculate();
  ASSERT_EQ(vp->table->rowCount(), 1);
  EXPECT_NEAR(vp->table->item(0, 1)->text().toDouble(), 221.1, 2.5);  // ethanol at 50 C
  vp->tmax->setText("100");  // below the first temperature: said, and the table stays
  vp->Calculate();
  EXPECT_EQ(ui.notices.back().rfind("The table runs from the first temperature", 0), 0u);
  EXPECT_EQ(vp->table->rowCount(), 1);
  window->SwapForms(Form::VaporPressureForm, Form::frmMollier);
  auto* mollier = static_cast<frmMollier*>(window->PageOf(Form::frmMollier));
  mollier->mode->setCurrentIndex(3);
  mollier->value->setText("212");
  mollier->Calculate();
  EXPECT_NEAR(mollier->state->item(0, 1)->text().toDouble(), 760.0, 1.0);
}

TEST_F(Desktop, EveryExampleDesignsFromTheWindowAsOnTheCommandLine) {
  ASSERT_TRUE(window->Start());
  int designed = 0;
  for (const auto& entry : fs::directory_iterator(kProgram / "usrfiles")) {
    if (entry.path().extension() != ".JET") continue;
    SCOPED_TRACE(entry.path().filename().string());
    window->SwapForms(window->Current(), Form::frmJetInput);
    ASSERT_TRUE(Input()->OpenFile(QString::fromStdString(entry.path().string())));
    // As a program just started: a four stage run fixes the A-B pressure of the later runs of a session.
    session.PINTERFIX = 0;
    bool finished = false;
    auto connection = QObject::connect(Input(), &frmJetInput::designFinished, [&](bool) { finished = true; });
    Input()->DesignSystem();
    ASSERT_TRUE(WaitFor([&] { return finished; }));
    QObject::disconnect(connection);
    // The command line's results text for the same case, run in a fresh session.
    const std::string command = std::string(KESTRANE_CLI) + " design '" + entry.path().string() + "' 2>/dev/null";
    const std::string text = Run(command);
    const QString motive = FrameValue("Utilities", session.design.NSTAGES > 0 && window->screen.Metric()
                                                       ? "Total Motive Steam (kg/h)"
                                                       : "Total Motive Steam (#/hr)");
    if (session.design.LRVPERR != 0) {
      EXPECT_NE(text.find("LRVP Error"), std::string::npos);
      continue;
    }
    ASSERT_FALSE(motive.isEmpty());
    EXPECT_NE(text.find(" " + motive.toStdString() + "\n"), std::string::npos) << text;
    ++designed;
  }
  EXPECT_GE(designed, 9);
}

TEST_F(Desktop, TheFileMenuSavesWhereTheCaseCameFromAndNewClearsASavedSheet) {
  const fs::path folder = fs::temp_directory_path() / ("kestrane_gui_files_" + std::to_string(::getpid()));
  fs::create_directories(folder);
  auto action = [this](QWidget* form, const QString& text) { return Action(form, text); };
  auto* dp = static_cast<dpVac*>(window->PageOf(Form::dpVac));
  dp->model.file = (folder / "LINE.TDP").string();
  dp->model.txtEV[1] = "150";
  ASSERT_NE(action(dp, "&Save"), nullptr);
  action(dp, "&Save")->trigger();
  EXPECT_TRUE(fs::exists(folder / "LINE.TDP"));
  EXPECT_EQ(dp->model.dirty, 0);
  GoFigure* calc = window->goFigure();
  calc->model.file = (folder / "SHEET.GFR").string();
  calc->cmboExprText->setEditText("1+1");
  calc->Calculate();
  ASSERT_EQ(calc->model.dirty, 1);
  ui.set_unattended(true, true);  // yes, save it
  action(calc, "&New")->trigger();
  EXPECT_TRUE(fs::exists(folder / "SHEET.GFR"));
  EXPECT_TRUE(calc->model.results.empty());
  fs::remove_all(folder);
}

TEST_F(Desktop, ThePressureLossOptionButtonsSetTheMethodAndUnitsAsAnEdit) {
  auto* dp = static_cast<dpVac*>(window->PageOf(Form::dpVac));
  window->SwapForms(Form::MainForm, Form::dpVac);
  dp->tessel->click();
  EXPECT_FALSE(dp->model.hei);
  EXPECT_EQ(dp->model.dirty, 1);
  dp->metric->click();
  EXPECT_FALSE(dp->model.standard);
  EXPECT_EQ(DpFieldCaption(dp->model, 6), "Pipe inside diameter (mm)");
  dp->hei->click();
  dp->standard->click();
  EXPECT_TRUE(dp->model.hei);
  EXPECT_TRUE(dp->model.standard);
}

TEST_F(Desktop, SaveAsGivesANameWithoutExtensionTheFormsOwn) {
  const fs::path folder = fs::temp_directory_path() / ("kestrane_gui_suffix_" + std::to_string(::getpid()));
  fs::create_directories(folder);
  // The user types a name in the dialog and accepts it.
  const auto save_as = [&](const QString& typed, const QString& filter) {
    QTimer::singleShot(0, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->setDirectory(QString::fromStdString(folder.string()));
      dialog->selectFile(typed);
      QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    });
    return window->SavePath(window.get(), filter).toStdString();
  };
  EXPECT_EQ(save_as("CASE", "JET Files (*.JET)"), (folder / "CASE.JET").string());
  EXPECT_EQ(save_as("LINE.TDP", "TDP Files (*.TDP)"), (folder / "LINE.TDP").string());
  fs::remove_all(folder);
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  Application app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
