// The equipment drawings of a results window: a row of small pictures in flow order, and the frame a click opens
// with the drawing, its pan and zoom controls and keys.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "drawing_view.h"
#include "drawings/drawing.h"

namespace kestrane::gui {

// The frame of an open drawing: the view and the eight controls (up, left, down, right, zoom in, zoom out,
// whole sheet, close). Escape closes it too.
class DrawingFrame : public QWidget {
  Q_OBJECT

 public:
  explicit DrawingFrame(QWidget* parent = nullptr);
  Drawing drawing;
  DrawingView* view;
  std::array<QPushButton*, 8> cmdDwgCtrl{};
  std::function<void()> closed;  // the close control or Escape

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

// One picture of the row: its idle (dimmed) and open (bright) images, rendered from the drawing itself.
struct SlotPicture {
  QImage dim, bright;
};

// Renders a loaded drawing small, in the screen's colours: bright, and dimmed for the idle state.
SlotPicture RenderSlotPicture(Drawing& drawing, QSize size);

// The row of pictures: one per slot with its caption under it; a click on a picture opens its drawing in the
// frame, a click on the open one closes it. `load` fills a drawing for slot n (0 based); quietly (no message
// of a failed load) for the pictures.
class SlotRow : public QWidget {
  Q_OBJECT

 public:
  SlotRow(DrawingFrame& frame, QWidget* parent = nullptr);
  // The slots anew: their captions and how to load each; all idle.
  void BuildSlots(const std::vector<std::string>& captions, const std::function<void(Drawing&, int, bool, int16_t&)>& load);
  // Every picture idle, none selected.
  void AllDim();
  // Picture n open.
  void Brighten(int n);
  // A click on picture n.
  void Click(int n);
  // Closes the open drawing, if any.
  void Close();
  int selected() const { return selected_; }
  std::vector<QToolButton*> Image1;
  // Called with true when a drawing opens and false when it closes: the window swaps its lists for the frame.
  std::function<void(bool)> frame_shown;

 private:
  DrawingFrame& frame_;
  std::vector<SlotPicture> pictures_;
  std::function<void(Drawing&, int, bool, int16_t&)> load_;
  int selected_ = -1;
};

// The pictures and the drawing frame of a window: the row of pictures before `lists` in `layout`, the frame
// (hidden) after it, standing in place of `lists` while a drawing is open; its drawing strokes with `font`.
SlotRow* AddDrawingPanel(QBoxLayout& layout, QWidget& lists, const DrawFont& font, DrawingFrame*& frame);

}  // namespace kestrane::gui
