// The drawing view: the engine draws into an image on the window thread, letting events through between rows.
#include "drawing_view.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>

namespace kestrane::gui {

DrawingView::DrawingView(Drawing& drawing, QWidget* parent) : QWidget(parent), d_(drawing) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  image_ = QImage(size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
}

DrawingView::~DrawingView() = default;

void DrawingView::Begin() {
  if (depth_++ > 0) return;
  painter_ = std::make_unique<QPainter>(&image_);
  painter_->setRenderHint(QPainter::Antialiasing);
  surface_ = std::make_unique<PainterSurface>(*painter_, QRectF(image_.rect()), QBColor(0));
  d_.Target = surface_.get();
  d_.Printing = 0;
  // Between rows the window takes its events: a key or click then starts a redraw of its own (nested), after
  // which this one goes on. What is drawn so far shows.
  d_.ProcessEvents = [this] {
    update();
    QCoreApplication::processEvents();
  };
}

void DrawingView::End() {
  ++redraws_;
  if (--depth_ > 0) return;
  d_.ProcessEvents = nullptr;
  d_.Target = nullptr;  // the surface keeps its scale for clicks; it paints no more without a painter
  painter_->end();
  painter_.reset();
  update();
  // The view was resized during the redraw: draw again at the new size.
  if (resized_) QMetaObject::invokeMethod(this, [this] { Resize(); }, Qt::QueuedConnection);
}

void DrawingView::Resize() {
  if (depth_ > 0) {
    resized_ = true;  // run from within a redraw's events: the image is in use; its end comes back here
    return;
  }
  resized_ = false;
  image_ = QImage(size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
  image_.fill(Qt::black);
  surface_.reset();
  if (d_.font != nullptr) Fit();
}

void DrawingView::Fit() {
  Begin();
  ZoomFit(d_);
  End();
}

void DrawingView::Command(int16_t op) {
  Begin();
  ViewCommand(d_, op);
  End();
}

void DrawingView::Event(int16_t code, float x, float y, int16_t button) {
  d_.RedrawAbort = -1;
  d_.ViewCode = code;
  d_.ClickX = x;
  d_.ClickY = y;
  d_.ClickButton = button;
  Begin();
  ViewEvent(d_);
  End();
}

int16_t DrawingView::KeyCode(int key) {
  switch (key) {
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    default: return 0;
  }
}

QPointF DrawingView::DrawingPoint(const QPointF& pixel) const {
  if (!surface_) return {};
  return {surface_->ScaleLeft + pixel.x() / image_.width() * surface_->ScaleWidth,
          surface_->ScaleTop + pixel.y() / image_.height() * surface_->ScaleHeight};
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.drawImage(0, 0, image_);
}

void DrawingView::resizeEvent(QResizeEvent*) { Resize(); }

void DrawingView::keyPressEvent(QKeyEvent* event) {
  const int16_t code = KeyCode(event->key());
  if (code == 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  Event(code);
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  const QPointF at = DrawingPoint(event->position());
  Event(999, static_cast<float>(at.x()), static_cast<float>(at.y()), event->button() == Qt::LeftButton ? 1 : 2);
}

}  // namespace kestrane::gui
