// Drawings painted with Qt: a drawing surface over a QPainter, for windows, images, PDF and SVG files and printers.
#pragma once

#include <QPainter>
#include <QRectF>
#include <filesystem>
#include <string>

#include "drawings/drawing.h"

namespace kestrane {

// The colour of a surface colour long (0x00BBGGRR).
QColor SurfaceQColor(SurfaceColour colour);

// The pen of a drawing's line: its colour, style (solid, dash, dot, dash-dot, dash-dot-dot) and width.
QPen SurfacePen(SurfaceColour colour, int16_t style, double width);

// A drawing surface painting into `area` of a painter's device: the user scale maps onto the area, lines take
// the pen's colour, style and width (DrawWidth in device pixels, at least one).
class PainterSurface : public DrawingSurface {
 public:
  PainterSurface(QPainter& painter, const QRectF& area, SurfaceColour background);

  void Cls() override;
  void Line(float x1, float y1, float x2, float y2) override;
  void Box(float x1, float y1, float x2, float y2, SurfaceColour colour) override;
  SurfaceColour BackColor() const override { return background_; }
  float Width() const override { return static_cast<float>(area_.width()); }
  float Height() const override { return static_cast<float>(area_.height()); }

 private:
  QPointF Map(float x, float y) const;
  QPainter& painter_;
  QRectF area_;
  SurfaceColour background_;
};

// How a drawing is rendered to a file: black on white as it prints, or in the screen's colours on black.
enum class DrawingLook { kPrinted, kScreen };

// Renders the whole drawing fitted into `area` of the painter's device, in the look asked; the drawing's target
// and print flag are restored afterwards.
void RenderDrawing(Drawing& d, QPainter& painter, const QRectF& area, DrawingLook look);

// Renders the whole drawing, fitted to the page, to an SVG, PDF or PNG file by the file's form ("svg", "pdf",
// "png"): `width` x `height` pixels for PNG and SVG, a Letter page in landscape for PDF. False with the reason
// in `error` when the file cannot be written.
bool RenderDrawingFile(Drawing& d, const std::string& form, const std::filesystem::path& path, int width, int height,
                       DrawingLook look, std::string& error);

}  // namespace kestrane
