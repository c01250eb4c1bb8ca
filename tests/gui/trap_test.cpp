// Run-time errors in the windows: told in a message box, the window goes on and the user's input stays.
#include <QMessageBox>
#include <QTimer>
#include <QtTest/QTest>
#include <new>
#include <stdexcept>

#include "desktop.h"
#include "properties/vb.h"

namespace {

// Closes the next message box as soon as it shows, keeping its text: the box is really shown, and modal.
class BoxCloser {
 public:
  BoxCloser() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      texts.push_back(box->text().toStdString());
      box->accept();
    });
    timer_.start(20);
  }
  std::vector<std::string> texts;

 private:
  QTimer timer_;
};

}  // namespace

TEST_F(Desktop, AMillionPoundsOfWaterIsToldAndTheInputStaysReadyForTheNextRun) {
  ASSERT_TRUE(window->Start());
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  QLineEdit* water = Input()->BoxOf({BoxGroup::kCpph, 0});
  Type(water, "1000000");
  ASSERT_EQ(window->screen.txtCpph[0], "1000000");  // the box check lets it through
  DesignFromTheMenu();
  // The overflow of the run is told, by the run's own notice or by the window's trap.
  EXPECT_TRUE(Told("Overflow")) << ::testing::PrintToString(ui.notices);
  EXPECT_EQ(water->text(), "1000000");
  EXPECT_EQ(window->screen.txtCpph[0], "1000000");
  EXPECT_TRUE(Input()->isEnabled());
  EXPECT_FALSE(Input()->Running());
  EXPECT_TRUE(Input()->lblStatus->text().isEmpty());
  // The window goes on: a sensible load designs.
  window->SwapForms(window->Current(), Form::frmJetInput);
  EXPECT_EQ(water->text(), "1000000");
  Type(water, "30");
  EXPECT_TRUE(DesignFromTheMenu());
  EXPECT_EQ(window->Current(), Form::frmJET0);
  EXPECT_FALSE(FrameValue("Utilities", "Total Motive Steam (#/hr)").isEmpty());
}

TEST_F(Desktop, ARunTimeErrorOfTheDesignThreadIsToldAndTheInputPageIsReadyAgain) {
  ASSERT_TRUE(window->Start());
  OpenExample("SOLVENT-LOADS-THREE-STAGE.JET");
  const QString suction = Input()->BoxOf({BoxGroup::kInput, 0})->text();
  int runs = 0;
  Input()->design = [&runs](DesignContext& ctx, InputScreen&) -> DesignOutcome {
    ctx.ui.status("Calculating.....three stage design... ");
    if (++runs == 1) throw VbError(6);
    throw std::bad_alloc();
  };
  EXPECT_FALSE(DesignFromTheMenu());
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_EQ(ui.notices.back(), "Run-time error 6: Overflow");
  EXPECT_EQ(window->Current(), Form::frmJetInput);
  EXPECT_TRUE(Input()->isEnabled());
  EXPECT_TRUE(Input()->lblStatus->text().isEmpty());
  EXPECT_EQ(Input()->BoxOf({BoxGroup::kInput, 0})->text(), suction);
  EXPECT_FALSE(DesignFromTheMenu());
  EXPECT_EQ(ui.notices.back(), "Run-time error 7: Out of memory");
  EXPECT_EQ(runs, 2);
  // The real run again, from the same input.
  Input()->design = RunDesign;
  EXPECT_TRUE(DesignFromTheMenu());
  EXPECT_EQ(window->Current(), Form::frmJET0);
}

// The thermo compressor window with discharge equal to suction at 10 psia: it passes the check, and the jet balance overflows.
class NoCompression : public Desktop {
 protected:
  TCInput* Open() {
    EXPECT_TRUE(window->Start());
    window->SwapForms(Form::MainForm, Form::TCInput);
    auto* tc = static_cast<TCInput*>(window->PageOf(Form::TCInput));
    EXPECT_TRUE(tc->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "TC-LOW-RATIO.TTC").string())));
    Type(tc->txtInput[0], "10");
    Type(tc->txtInput[2], "10");
    Type(tc->txtInput[3], "100");
    Type(tc->txtInput[5], "1000");
    return tc;
  }
};

TEST_F(NoCompression, AThermoCompressorWithNoCompressionIsToldAndItsInputStays) {
  auto* tc = Open();
  const size_t told = ui.notices.size();
  QAction* design = Action(tc, "&Design Thermo Compressor");
  ASSERT_NE(design, nullptr);
  design->trigger();
  ASSERT_EQ(ui.notices.size(), told + 1);
  EXPECT_EQ(ui.notices.back(), "Run-time error 6: Overflow");
  EXPECT_EQ(window->Current(), Form::TCInput);
  EXPECT_EQ(tc->txtInput[0]->text(), "10");
  EXPECT_EQ(tc->txtInput[2]->text(), "10");
  EXPECT_EQ(tc->txtInput[3]->text(), "100");
  EXPECT_EQ(tc->txtInput[5]->text(), "1000");
  EXPECT_EQ(tc->model.txtInput[2], "10");
  // The window goes on: a discharge above the suction designs.
  Type(tc->txtInput[2], "12");
  design->trigger();
  EXPECT_EQ(window->Current(), Form::TCform);
}

TEST_F(NoCompression, TheMenuShortcutOfTheThermoCompressorShowsTheErrorInAModalBox) {
  auto* tc = Open();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  ui.set_unattended(false);
  BoxCloser closer;
  QTest::keyClick(window.get(), Qt::Key_D, Qt::AltModifier);  // "&Design Thermo Compressor"
  ASSERT_TRUE(WaitFor([&] { return !closer.texts.empty(); }));
  EXPECT_EQ(closer.texts.front(), "Run-time error 6: Overflow");
  EXPECT_EQ(window->Current(), Form::TCInput);
  EXPECT_EQ(tc->txtInput[2]->text(), "10");
}

TEST_F(Desktop, ATailLegOfNoWeightKeepsItsAnswersWithoutAMessage) {
  window->SwapForms(Form::MainForm, Form::TailLeg);
  auto* leg = static_cast<TailLeg*>(window->PageOf(Form::TailLeg));
  leg->txtTailLeg[1]->setText("0");
  leg->txtTailLeg[2]->setText("1");
  QTest::mouseClick(leg->cmdCalculate, Qt::LeftButton);
  ASSERT_EQ(leg->lblAns[0]->text(), "33.9 feet");
  ASSERT_EQ(leg->lblAns[1]->text(), "10.3 meters");
  // 1E-40 passes the boxes and overflows the height; 0 divides by zero: the form absorbs both.
  for (const char* gravity : {"1E-40", "0"}) {
    SCOPED_TRACE(gravity);
    leg->txtTailLeg[2]->setText(gravity);
    QTest::mouseClick(leg->cmdCalculate, Qt::LeftButton);
    EXPECT_EQ(leg->lblAns[0]->text(), "33.9 feet");
    EXPECT_EQ(leg->lblAns[1]->text(), "10.3 meters");
    EXPECT_EQ(leg->txtTailLeg[2]->text(), gravity);
    EXPECT_TRUE(ui.notices.empty()) << ui.notices.front();
  }
  // The form goes on.
  leg->txtTailLeg[2]->setText("1");
  leg->txtTailLeg[1]->setText("760");
  leg->cmdCalculate->click();
  EXPECT_EQ(leg->lblAns[0]->text(), "0 feet");
}

TEST_F(Desktop, AnErrorOfATimerOrAQueuedCallIsToldAndTheWindowGoesOn) {
  QTimer::singleShot(0, window.get(), [] { throw VbError(11); });
  ASSERT_TRUE(WaitFor([&] { return ui.notices.size() == 1; }));
  EXPECT_EQ(ui.notices.back(), "Run-time error 11: Division by zero");
  QMetaObject::invokeMethod(window.get(), [] { throw std::bad_alloc(); }, Qt::QueuedConnection);
  ASSERT_TRUE(WaitFor([&] { return ui.notices.size() == 2; }));
  EXPECT_EQ(ui.notices.back(), "Run-time error 7: Out of memory");
  QMetaObject::invokeMethod(window.get(), [] { throw std::out_of_range("row 61 of the stage table"); },
                            Qt::QueuedConnection);
  ASSERT_TRUE(WaitFor([&] { return ui.notices.size() == 3; }));
  EXPECT_EQ(ui.notices.back(), "Run-time error 51: Internal error (row 61 of the stage table)");
  // The window still answers its menu.
  auto* menu = static_cast<MainForm*>(window->PageOf(Form::MainForm));
  menu->cmdMain[6]->click();  // Tail Leg Height
  EXPECT_EQ(window->Current(), Form::TailLeg);
}
