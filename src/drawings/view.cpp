// The view window of a drawing: fitted to the surface's aspect, moved and zoomed by commands, keys and clicks.
#include <algorithm>

#include "drawings/drawing.h"

namespace kestrane {

namespace {

// The smaller and the larger of the two requested ends of one side.
void FitSide(float req1, float req2, float& low, float& high) {
  low = std::min(req1, req2);
  high = std::max(req1, req2);
}

}  // namespace

SheetSize ScaledSheet(const Drawing& d) {
  if (d.SheetNo < 1 || d.SheetNo > 10) throw VbError(9);
  const SheetSize& s = kSheets[static_cast<size_t>(d.SheetNo)];
  return {d.DrawScale * s.width, d.DrawScale * s.height};
}

void ApplyView(Drawing& d) {
  DrawingSurface& t = *d.Target;
  const float ratio = t.Width() / t.Height();
  FitSide(d.ReqX1, d.ReqX2, d.ViewLeft, d.ViewRight);
  FitSide(d.ReqY1, d.ReqY2, d.ViewBottom, d.ViewTop);
  const float cx = (d.ViewLeft + d.ViewRight) * 0.5f;
  const float cy = (d.ViewBottom + d.ViewTop) * 0.5f;
  float width = d.ViewRight - d.ViewLeft;
  float height = d.ViewTop - d.ViewBottom;
  // Never narrower than 1/16 inch.
  if (width < 0.0625f) {
    width = 0.0625f;
    d.ViewLeft = cx - 0.03125f;
    d.ViewRight = cx + 0.03125f;
  }
  if (height < 0.0625f) {
    height = 0.0625f;
    d.ViewBottom = cy - 0.03125f;
    d.ViewTop = cy + 0.03125f;
  }
  if (height <= width / ratio) {
    height = width / ratio;
    d.ViewBottom = cy - height * 0.5f;
    d.ViewTop = height + d.ViewBottom;
  } else {
    width = height * ratio;
    d.ViewLeft = cx - width * 0.5f;
    d.ViewRight = width + d.ViewLeft;
  }
  d.ViewWidth = width;
  d.ViewHeight = height;
  t.ScaleHeight = (d.ViewTop - d.ViewBottom) * -1.0f;
  t.ScaleWidth = d.ViewRight - d.ViewLeft;
  t.ScaleTop = d.ViewTop;
  t.ScaleLeft = d.ViewLeft;
}

void FitView(Drawing& d) {
  const SheetSize sheet = ScaledSheet(d);
  d.ReqX1 = 0;
  d.ReqY1 = 0;
  d.ReqX2 = sheet.width;
  d.ReqY2 = sheet.height;
  // A margin of 2% on the side that fills the surface.
  if (sheet.width / sheet.height > d.Target->Width() / d.Target->Height()) {
    d.ReqX1 = static_cast<float>(sheet.width * -0.019999999553);
    d.ReqX2 = static_cast<float>(sheet.width * 1.019999999553);
  } else {
    d.ReqY1 = static_cast<float>(sheet.height * -0.019999999553);
    d.ReqY2 = static_cast<float>(sheet.height * 1.019999999553);
  }
  ApplyView(d);
}

void ZoomFit(Drawing& d) {
  FitView(d);
  DrawAll(d);
}

void ViewCommand(Drawing& d, int16_t op) {
  const float s = d.ViewWidth * 0.1f;
  const float t = d.ViewHeight * 0.1f;
  switch (op) {
    case 0:  // move down
      d.ReqY1 = d.ViewBottom - t;
      d.ReqY2 = d.ViewTop - t;
      break;
    case 1:  // move left
      d.ReqX1 = d.ViewLeft - s;
      d.ReqX2 = d.ViewRight - s;
      break;
    case 2:  // move up
      d.ReqY1 = d.ViewBottom + t;
      d.ReqY2 = d.ViewTop + t;
      break;
    case 3:  // move right
      d.ReqX1 = d.ViewLeft + s;
      d.ReqX2 = d.ViewRight + s;
      break;
    case 4:  // zoom in
      d.ReqX1 = d.ViewLeft + s;
      d.ReqX2 = d.ViewRight - s;
      d.ReqY1 = d.ViewBottom + t;
      d.ReqY2 = d.ViewTop - t;
      break;
    case 5:  // zoom out
      d.ReqX1 = d.ViewLeft - s;
      d.ReqX2 = d.ViewRight + s;
      d.ReqY1 = d.ViewBottom - t;
      d.ReqY2 = d.ViewTop + t;
      break;
    case 6: {  // the whole sheet
      const SheetSize sheet = ScaledSheet(d);
      d.ReqX1 = 0;
      d.ReqY1 = 0;
      d.ReqX2 = sheet.width;
      d.ReqY2 = sheet.height;
      break;
    }
    default: break;
  }
  ApplyView(d);
  DrawAll(d);
}

void ZoomAt(Drawing& d, float x, float y, int16_t button) {
  d.ReqX1 = x - d.ViewWidth * 0.5f;
  d.ReqX2 = x + d.ViewWidth * 0.5f;
  d.ReqY1 = y - d.ViewHeight * 0.5f;
  d.ReqY2 = y + d.ViewHeight * 0.5f;
  // The left button zooms in, another out.
  const float s = (button < 2 ? 1.0f : -1.0f) * d.ViewWidth * 0.1f;
  const float t = (button < 2 ? 1.0f : -1.0f) * d.ViewHeight * 0.1f;
  d.ReqX1 += s;
  d.ReqX2 -= s;
  d.ReqY1 += t;
  d.ReqY2 -= t;
  ApplyView(d);
  DrawAll(d);
}

void ViewEvent(Drawing& d) {
  const int16_t code = d.ViewCode;
  d.RedrawAbort = 0;
  d.ViewCode = 0;
  switch (code) {
    case 33:  // page up, page down, end, home
    case 34:
    case 35:
    case 36: ViewCommand(d, 6); break;
    case 37: ViewCommand(d, 1); break;  // left
    case 38: ViewCommand(d, 2); break;  // up
    case 39: ViewCommand(d, 3); break;  // right
    case 40: ViewCommand(d, 0); break;  // down
    case 45: ViewCommand(d, 4); break;  // insert
    case 46: ViewCommand(d, 5); break;  // delete
    case 999: ZoomAt(d, d.ClickX, d.ClickY, d.ClickButton); break;
    default: break;
  }
}

void ResetPrinter(DrawingSurface& printer) {
  // The default page of a print, in twips.
  printer.ScaleHeight = 15120.0f;
  printer.ScaleWidth = 11520.0f;
  printer.ScaleLeft = 0;
  printer.ScaleTop = 0;
  printer.DrawWidth = 1;
}

}  // namespace kestrane
