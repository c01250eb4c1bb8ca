// A drawing surface painted by Qt, and a drawing rendered whole to an image, SVG or PDF file.
#include "painter_surface.h"

#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <system_error>

namespace kestrane {

QColor SurfaceQColor(SurfaceColour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

PainterSurface::PainterSurface(QPainter& painter, const QRectF& area, SurfaceColour background)
    : painter_(painter), area_(area), background_(background) {}

QPointF PainterSurface::Map(float x, float y) const {
  return {area_.left() + (x - ScaleLeft) / ScaleWidth * area_.width(),
          area_.top() + (y - ScaleTop) / ScaleHeight * area_.height()};
}

void PainterSurface::SetPen(SurfaceColour colour) {
  QPen pen(SurfaceQColor(colour));
  pen.setWidthF(std::max<int>(DrawWidth, 1));
  pen.setCapStyle(Qt::RoundCap);
  switch (DrawStyle) {
    case kStyleDash: pen.setStyle(Qt::DashLine); break;
    case kStyleDot: pen.setStyle(Qt::DotLine); break;
    case kStyleDashDot: pen.setStyle(Qt::DashDotLine); break;
    case kStyleDashDotDot: pen.setStyle(Qt::DashDotDotLine); break;
    default: pen.setStyle(Qt::SolidLine); break;
  }
  painter_.setPen(pen);
}

void PainterSurface::Cls() { painter_.fillRect(area_, SurfaceQColor(background_)); }

void PainterSurface::Line(float x1, float y1, float x2, float y2) {
  SetPen(ForeColor);
  painter_.drawLine(Map(x1, y1), Map(x2, y2));
}

void PainterSurface::Box(float x1, float y1, float x2, float y2, SurfaceColour colour) {
  const int16_t style = DrawStyle;
  DrawStyle = kStyleSolid;
  SetPen(colour);
  DrawStyle = style;
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(QRectF(Map(x1, y1), Map(x2, y2)).normalized());
}

namespace {

// Renders the drawing fitted into the painter's `area`.
void Render(Drawing& d, QPainter& painter, const QRectF& area, DrawingLook look) {
  painter.setRenderHint(QPainter::Antialiasing);
  PainterSurface surface(painter, area, look == DrawingLook::kPrinted ? 0xFFFFFF : 0x000000);
  DrawingSurface* const target = d.Target;
  const int16_t printing = d.Printing;
  d.Target = &surface;
  d.Printing = look == DrawingLook::kPrinted ? -1 : 0;
  ZoomFit(d);  // the view fitted to the page, and the screen's redraw
  if (look == DrawingLook::kPrinted) {
    // On paper: drawn again over a clean page with the print colours.
    surface.Cls();
    PrintAll(d);
  }
  d.Target = target;
  d.Printing = printing;
}

}  // namespace

bool RenderDrawingFile(Drawing& d, const std::string& form, const std::filesystem::path& path, int width, int height,
                       DrawingLook look, std::string& error) {
  std::filesystem::path temp = path;
  temp += ".part";
  const QString file = QString::fromStdString(temp.string());
  bool painted = false;
  if (form == "png") {
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    Render(d, painter, QRectF(0, 0, width, height), look);
    painter.end();
    painted = image.save(file, "PNG");
  } else if (form == "svg") {
    QSvgGenerator svg;
    svg.setFileName(file);
    svg.setSize(QSize(width, height));
    svg.setViewBox(QRect(0, 0, width, height));
    svg.setTitle(QString::fromStdString(d.titles[0]).trimmed());
    QPainter painter;
    painted = painter.begin(&svg);
    if (painted) {
      Render(d, painter, QRectF(0, 0, width, height), look);
      painted = painter.end();
    }
  } else {
    QPdfWriter pdf(file);
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Landscape, QMarginsF(0.25, 0.25, 0.25, 0.25),
                                  QPageLayout::Inch));
    pdf.setResolution(600);
    pdf.setCreator(QStringLiteral("Kestrane"));
    QPainter painter;
    painted = painter.begin(&pdf);
    if (painted) {
      Render(d, painter, QRectF(QPointF(0, 0), QSizeF(pdf.width(), pdf.height())), look);
      painted = painter.end();
    }
  }
  std::error_code ec;
  if (painted && std::filesystem::exists(temp, ec)) {
    std::filesystem::rename(temp, path, ec);
    if (!ec) return true;
  }
  std::filesystem::remove(temp, ec);
  error = "The file " + path.string() + " could not be written.";
  return false;
}

}  // namespace kestrane
