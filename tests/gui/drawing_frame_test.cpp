// The equipment pictures of the results windows: one per piece of equipment in flow order and the flow diagram
// after them; a click opens the drawing in place of the lists, a second click or Escape closes it; a missing
// drawing file is told and the window goes on.
#include <QKeyEvent>

#include "desktop.h"
#include "documents/text_pages.h"
#include "engine/results.h"

namespace {

class DrawingFrameTest : public Desktop {
 protected:
  void Design(const std::string& example) { DesignFile(kProgram / "usrfiles" / example); }
  SlotRow* Slots() { return Results()->pictures; }
  // Whether a text or dimension label of the open drawing still reads `key`.
  bool Holds(const std::string& key) {
    const Drawing& d = Results()->FrameDrawing->drawing;
    for (int i = 1; i <= d.Texts.count; ++i) {
      if (Trim(d.Texts(i).text) == key) return true;
    }
    for (int i = 1; i <= d.Dimensions.count; ++i) {
      if (Trim(d.Dimensions(i).label) == key) return true;
    }
    return false;
  }
};

TEST_F(DrawingFrameTest, PicturesFollowTheFlowAndEndWithTheFlowDiagram) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  DesignContext ctx{session.design, session.data, window->screen, session.PINTERFIX, ui};
  const std::vector<EquipmentSlot> equipment = EquipmentSlots(ctx, false);
  ASSERT_EQ(Slots()->Image1.size(), equipment.size() + 1);
  for (size_t n = 0; n < equipment.size(); ++n) {
    EXPECT_EQ(Slots()->Image1[n]->text().toStdString(), equipment[n].caption);
  }
  EXPECT_EQ(Slots()->Image1.back()->text(), "Flow Diagram");
  EXPECT_FALSE(Slots()->Image1[0]->icon().isNull()) << "each picture is drawn";
}

TEST_F(DrawingFrameTest, AClickOpensTheDrawingFilledAndASecondClickClosesIt) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  Slots()->Image1[1]->click();  // the first intercondenser
  EXPECT_TRUE(Results()->FrameDrawing->isVisible());
  EXPECT_FALSE(Results()->frames->isVisible()) << "the drawing stands in place of the lists";
  EXPECT_EQ(Slots()->selected(), 1);
  for (const char* key : {"A?", "G?", "VI?", "WO?", "CO?", "DESCRIPTION?"}) EXPECT_FALSE(Holds(key)) << key;
  EXPECT_GT(Results()->FrameDrawing->drawing.Lines.count, 20);
  // Another picture: the first one dims, the new one opens.
  Slots()->Image1[0]->click();
  EXPECT_EQ(Slots()->selected(), 0);
  EXPECT_FALSE(Holds("A?"));
  Slots()->Image1[0]->click();
  EXPECT_FALSE(Results()->FrameDrawing->isVisible());
  EXPECT_TRUE(Results()->frames->isVisible());
  EXPECT_EQ(Slots()->selected(), -1);
}

TEST_F(DrawingFrameTest, ControlsAndKeysMoveTheViewAndEscapeCloses) {
  Design("TWO-STAGE-LRVP.JET");
  Slots()->Image1.back()->click();  // the flow diagram
  ASSERT_TRUE(Results()->FrameDrawing->isVisible());
  const Drawing& d = Results()->FrameDrawing->drawing;
  const float left = d.ViewLeft, width = d.ViewWidth;
  Results()->FrameDrawing->cmdDwgCtrl[3]->click();  // right
  EXPECT_NEAR(d.ViewLeft, left + 0.1f * width, 1e-3f);
  Results()->FrameDrawing->cmdDwgCtrl[4]->click();  // zoom in
  EXPECT_LT(d.ViewWidth, width);
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(Results()->FrameDrawing, &escape);
  EXPECT_FALSE(Results()->FrameDrawing->isVisible());
  EXPECT_TRUE(Results()->frames->isVisible());
}

TEST_F(DrawingFrameTest, AMissingDrawingFileIsToldAndTheWindowGoesOn) {
  // The program's data in a folder of the test's own, without the ejector drawing.
  const fs::path pgm = userdata / "pgm";
  fs::create_directories(pgm);
  for (const auto& entry : fs::directory_iterator(kProgram / "pgmfiles")) {
    if (entry.path().filename() != "NJET.CAD") fs::copy_file(entry.path(), pgm / entry.path().filename());
  }
  session.data.paths.pgmfiles = pgm;
  Design("ONE-STAGE-NO-CONDENSERS.JET");
  const size_t notices = ui.notices.size();
  Slots()->Image1[0]->click();
  ASSERT_EQ(ui.notices.size(), notices + 1);
  EXPECT_EQ(ui.notices.back().rfind("Drawing file read failed...ERROR: 53", 0), 0u) << ui.notices.back();
  EXPECT_TRUE(Results()->FrameDrawing->isVisible()) << "an empty sheet: the window stays usable";
  Slots()->Image1[0]->click();
  EXPECT_TRUE(Results()->frames->isVisible());
}

TEST_F(DrawingFrameTest, PrintDrawingsSendsThePreliminaryDrawingsPage) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  std::string printed;
  int pages = 0;
  window->preview = [&](QWidget*, const ReportJob& job) {
    TextPages text;
    job.print(text);
    printed = text.text();
    pages = text.pages();
  };
  Results()->findChild<QAction*>("mnuPrintDrawings")->trigger();
  EXPECT_NE(printed.find("Preliminary Drawings"), std::string::npos);
  EXPECT_EQ(pages, 1) << "six drawings, one page";
}

TEST_F(DrawingFrameTest, TheThermoCompressorWindowShowsItsEjectorDrawing) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::TCInput);
  auto* tc = static_cast<TCInput*>(window->PageOf(Form::TCInput));
  ASSERT_TRUE(tc->OpenFile(QString::fromStdString((kProgram / "usrfiles" / "TC-MEDIUM-RATIO.TTC").string())));
  tc->Design();
  auto* results = static_cast<TCform*>(window->PageOf(Form::TCform));
  ASSERT_EQ(results->Image1->Image1.size(), 1u);
  results->Image1->Image1[0]->click();
  EXPECT_TRUE(results->FrameDrawing->isVisible());
  const Drawing& d = results->FrameDrawing->drawing;
  bool description_left = false;
  for (int i = 1; i <= d.Texts.count; ++i) description_left |= Trim(d.Texts(i).text) == "DESCRIPTION?";
  EXPECT_FALSE(description_left);
  results->Image1->Image1[0]->click();
  EXPECT_FALSE(results->FrameDrawing->isVisible());
}

}  // namespace

namespace {

// A page that counts what a drawing draws on it.
class CountingPage : public PageSink {
 public:
  class Strokes : public DrawingSurface {
   public:
    void Cls() override {}
    void Line(float, float, float, float) override { ++lines; }
    void Box(float, float, float, float, SurfaceColour) override {}
    SurfaceColour BackColor() const override { return 0xFFFFFF; }
    float Width() const override { return 8.5f; }
    float Height() const override { return 11.0f; }
    int lines = 0;
  } strokes;
  DrawingSurface* DrawingTarget() override { return &strokes; }

 protected:
  void Text(float, float, const std::string&, const PrintFont&) override {}
  void EndPage(float) override {}
};

TEST_F(Desktop, TheTailLegPrintsOnItsDrawingWithTheFiguresShown) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::TailLeg);
  auto* tail = static_cast<TailLeg*>(window->PageOf(Form::TailLeg));
  tail->txtTailLeg[1]->setText("0");
  tail->txtTailLeg[2]->setText("1");
  tail->cmdCalculate->click();
  ASSERT_EQ(tail->lblAns[0]->text(), "33.9 feet");
  CountingPage page;
  window->preview = [&](QWidget*, const ReportJob& job) { job.print(page); };
  tail->cmdPrint->click();
  EXPECT_TRUE(ui.notices.empty());
  EXPECT_EQ(page.pages(), 1) << "one page, drawing only";
  EXPECT_GT(page.strokes.lines, 200) << "the sheet with its stroked texts";
}

}  // namespace
