// The drawing view: keys and clicks move and zoom the view, and a redraw overtaken by a newer event gives way to
// it without blocking the window.
#include <QKeyEvent>

#include "desktop.h"
#include "drawing_view.h"

namespace {

class DrawingViewTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(LoadDrawingFont(kProgram / "pgmfiles" / "DRAWTEXT.DTA", font));
    drawing.font = &font;
    RecordingUi ui;
    int16_t failed = 0;
    LoadDrawing(drawing, kProgram / "pgmfiles" / "TESTSHEET.CAD", 0, failed, ui);
    ASSERT_EQ(failed, 0);
    view = std::make_unique<DrawingView>(drawing);
    view->resize(800, 600);
    view->show();
    QCoreApplication::processEvents();
  }
  DrawFont font;
  Drawing drawing;
  std::unique_ptr<DrawingView> view;
};

TEST_F(DrawingViewTest, FitsTheSheetAndDrawsIt) {
  view->Fit();
  // The whole sheet with its margin of 2 % on the longer side.
  const SheetSize sheet = kSheets[2];
  EXPECT_LE(drawing.ViewLeft, -0.019f * sheet.width);
  EXPECT_GE(drawing.ViewRight, 1.019f * sheet.width);
  EXPECT_LE(drawing.ViewBottom, 0.0f);
  EXPECT_GE(drawing.ViewTop, sheet.height);
  // Something other than the black background was drawn.
  const QImage& image = view->image();
  int ink = 0;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width(); x += 2) ink += image.pixel(x, y) != qRgb(0, 0, 0) ? 1 : 0;
  }
  EXPECT_GT(ink, 500);
}

TEST_F(DrawingViewTest, KeysPanAndZoomTheView) {
  view->Fit();
  const float left = drawing.ViewLeft, width = drawing.ViewWidth;
  QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
  QCoreApplication::sendEvent(view.get(), &right);
  EXPECT_NEAR(drawing.ViewLeft, left + 0.1f * width, 1e-3f);
  QKeyEvent zoom_in(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
  QCoreApplication::sendEvent(view.get(), &zoom_in);
  EXPECT_NEAR(drawing.ViewWidth, 0.8f * width, 1e-3f);
  QKeyEvent home(QEvent::KeyPress, Qt::Key_Home, Qt::NoModifier);
  QCoreApplication::sendEvent(view.get(), &home);
  EXPECT_NEAR(drawing.ViewLeft, 0.0f, 1e-3f) << "the whole sheet, no margin";
  EXPECT_EQ(DrawingView::KeyCode(Qt::Key_A), 0);
}

TEST_F(DrawingViewTest, AClickZoomsAboutThePointClicked) {
  view->Fit();
  const QPointF at = view->DrawingPoint(QPointF(200, 150));
  view->Event(999, static_cast<float>(at.x()), static_cast<float>(at.y()), 1);
  EXPECT_NEAR((drawing.ViewLeft + drawing.ViewRight) / 2, at.x(), 1e-3);
  EXPECT_NEAR((drawing.ViewBottom + drawing.ViewTop) / 2, at.y(), 1e-3);
}

TEST_F(DrawingViewTest, ARedrawOvertakenByAKeyGivesWayAndTheKeyWins) {
  view->Fit();
  const float left = drawing.ViewLeft, width = drawing.ViewWidth;
  // A key waiting when the next redraw starts: the redraw lets it through between rows; its own redraw runs
  // nested, and the view ends where the key put it.
  QCoreApplication::postEvent(view.get(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier));
  const int before = view->redraws();
  view->Command(4);  // zoom in
  EXPECT_EQ(view->redraws(), before + 2) << "the zoom's redraw and the key's, nested in it";
  EXPECT_NEAR(drawing.ViewWidth, 0.8f * width, 1e-3f);
  EXPECT_NEAR(drawing.ViewLeft, left + 0.1f * width - 0.08f * width, 1e-3f) << "zoomed, then moved left";
  EXPECT_EQ(drawing.Target, nullptr) << "the view lets go of the drawing after its redraw";
}

}  // namespace
