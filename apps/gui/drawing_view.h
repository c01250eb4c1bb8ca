// A drawing on screen: rendered into an image, panned and zoomed by keys and clicks; a redraw gives way to a newer
// view event and never blocks the window.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <memory>

#include "drawings/drawing.h"
#include "painter_surface.h"

namespace kestrane::gui {

class DrawingView : public QWidget {
  Q_OBJECT

 public:
  // The view draws `drawing`, which must outlive it.
  explicit DrawingView(Drawing& drawing, QWidget* parent = nullptr);
  ~DrawingView() override;

  // The whole sheet, fitted (after a new drawing was loaded).
  void Fit();
  // A view command: 0 down, 1 left, 2 up, 3 right, 4 zoom in, 5 zoom out, 6 whole sheet.
  void Command(int16_t op);
  // A key code of the view events (33 to 40, 45, 46) or 999 for a click at (x, y) in drawing units.
  void Event(int16_t code, float x = 0, float y = 0, int16_t button = 1);
  // The key code of a key, 0 for none of the view's keys.
  static int16_t KeyCode(int key);
  // The drawing point under a pixel of the view.
  QPointF DrawingPoint(const QPointF& pixel) const;

  const QImage& image() const { return image_; }
  int redraws() const { return redraws_; }  // completed or overtaken redraws so far

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  // Points the drawing at this view's image for a redraw, and back afterwards.
  void Begin();
  void End();
  // A new image at the view's size, the whole sheet fitted in it.
  void Resize();
  bool resized_ = false;
  Drawing& d_;
  QImage image_;
  std::unique_ptr<QPainter> painter_;
  std::unique_ptr<PainterSurface> surface_;
  int depth_ = 0;  // nested redraws in progress
  int redraws_ = 0;
};

}  // namespace kestrane::gui
