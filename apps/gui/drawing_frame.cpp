// The row of equipment pictures and the drawing frame they open.
#include "drawing_frame.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "painter_surface.h"

namespace kestrane::gui {

DrawingFrame::DrawingFrame(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  view = new DrawingView(drawing);
  layout->addWidget(view, 1);
  auto* controls = new QGridLayout;
  static const char* kCaptions[] = {"Up", "Left", "Down", "Right", "Zoom In", "Zoom Out", "Whole Sheet", "Close"};
  // Each control's view command; the last closes.
  static const int16_t kOps[] = {2, 1, 0, 3, 4, 5, 6, -1};
  for (int i = 0; i < 8; ++i) {
    cmdDwgCtrl[static_cast<size_t>(i)] = new QPushButton(kCaptions[i]);
    controls->addWidget(cmdDwgCtrl[static_cast<size_t>(i)], i, 0);
    const int16_t op = kOps[i];
    connect(cmdDwgCtrl[static_cast<size_t>(i)], &QPushButton::clicked, this, [this, op] {
      if (!isVisible()) return;  // the controls act only on an open drawing
      if (op < 0) {
        if (closed) closed();
      } else {
        view->Command(op);
      }
    });
  }
  controls->setRowStretch(8, 1);
  layout->addLayout(controls);
}

void DrawingFrame::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    drawing.RedrawAbort = 0;
    drawing.ViewCode = 0;
    if (closed) closed();
    return;
  }
  const int16_t code = DrawingView::KeyCode(event->key());
  if (code != 0 && isVisible()) {
    view->Event(code);
    return;
  }
  QWidget::keyPressEvent(event);
}

SlotPicture RenderSlotPicture(Drawing& drawing, QSize size) {
  SlotPicture picture;
  picture.bright = QImage(size, QImage::Format_RGB32);
  QPainter painter(&picture.bright);
  RenderDrawing(drawing, painter, QRectF(picture.bright.rect()), DrawingLook::kScreen);
  painter.end();
  // Idle: the same picture at a third of its brightness.
  picture.dim = picture.bright.copy();
  for (int y = 0; y < picture.dim.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.dim.scanLine(y));
    for (int x = 0; x < picture.dim.width(); ++x) {
      line[x] = qRgb(qRed(line[x]) / 3, qGreen(line[x]) / 3, qBlue(line[x]) / 3);
    }
  }
  return picture;
}

SlotRow::SlotRow(DrawingFrame& frame, QWidget* parent) : QWidget(parent), frame_(frame) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch();
  frame_.closed = [this] { Close(); };
}

void SlotRow::BuildSlots(const std::vector<std::string>& captions,
                         const std::function<void(Drawing&, int, bool, int16_t&)>& load) {
  Close();
  for (QToolButton* b : Image1) delete b;
  Image1.clear();
  pictures_.clear();
  load_ = load;
  auto* layout = static_cast<QHBoxLayout*>(this->layout());
  for (size_t n = 0; n < captions.size(); ++n) {
    // The picture is the drawing itself, loaded quietly: a missing file tells its message when it is opened.
    Drawing d;
    d.font = frame_.drawing.font;
    int16_t failed = 0;
    load(d, static_cast<int>(n), true, failed);
    pictures_.push_back(RenderSlotPicture(d, QSize(132, 88)));
    auto* button = new QToolButton;
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(QSize(132, 88));
    button->setText(QString::fromStdString(captions[n]));
    button->setAutoRaise(true);
    button->setObjectName(QString("Image1_%1").arg(n));
    connect(button, &QToolButton::clicked, this, [this, n] { Click(static_cast<int>(n)); });
    layout->insertWidget(static_cast<int>(n), button);
    Image1.push_back(button);
  }
  AllDim();
}

void SlotRow::AllDim() {
  for (size_t n = 0; n < Image1.size(); ++n) Image1[n]->setIcon(QIcon(QPixmap::fromImage(pictures_[n].dim)));
  selected_ = -1;
}

void SlotRow::Brighten(int n) {
  Image1[static_cast<size_t>(n)]->setIcon(QIcon(QPixmap::fromImage(pictures_[static_cast<size_t>(n)].bright)));
  selected_ = n;
}

void SlotRow::Click(int n) {
  if (selected_ == n) {
    Close();
    return;
  }
  AllDim();
  Brighten(n);
  int16_t failed = 0;
  load_(frame_.drawing, n, false, failed);
  frame_.show();
  if (frame_shown) frame_shown(true);
  frame_.drawing.RedrawAbort = 0;
  frame_.view->Fit();
  frame_.view->setFocus();
}

void SlotRow::Close() {
  if (selected_ >= 0) AllDim();
  frame_.hide();
  if (frame_shown) frame_shown(false);
}

SlotRow* AddDrawingPanel(QBoxLayout& layout, QWidget& lists, const DrawFont& font, DrawingFrame*& frame) {
  frame = new DrawingFrame;
  frame->drawing.font = &font;
  frame->hide();
  layout.addWidget(frame, 1);
  auto* row = new SlotRow(*frame);
  row->frame_shown = [&lists](bool shown) { lists.setVisible(!shown); };
  layout.insertWidget(layout.indexOf(&lists), row);
  return row;
}

}  // namespace kestrane::gui
