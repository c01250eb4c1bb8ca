// A drawing surface painted by Qt, and a drawing rendered whole to an image, SVG or PDF file.
#include "painter_surface.h"

#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <array>
#include <system_error>

namespace kestrane {

QColor SurfaceQColor(SurfaceColour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QPen SurfacePen(SurfaceColour colour, int16_t style, double width) {
  static constexpr std::array<Qt::PenStyle, 5> kStyles = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                                          Qt::DashDotDotLine};
  QPen pen(SurfaceQColor(colour));
  pen.setWidthF(width);
  pen.setCapStyle(Qt::RoundCap);
  pen.setStyle(style >= 0 && style < 5 ? kStyles[static_cast<size_t>(style)] : Qt::SolidLine);
  return pen;
}

PainterSurface::PainterSurface(QPainter& painter, const QRectF& area, SurfaceColour background)
    : painter_(painter), area_(area), background_(background) {}

QPointF PainterSurface::Map(float x, float y) const {
  return {area_.left() + (x - ScaleLeft) / ScaleWidth * area_.width(),
          area_.top() + (y - ScaleTop) / ScaleHeight * area_.height()};
}

void PainterSurface::Cls() { painter_.fillRect(area_, SurfaceQColor(background_)); }

void PainterSurface::Line(float x1, float y1, float x2, float y2) {
  painter_.setPen(SurfacePen(ForeColor, DrawStyle, std::max<int>(DrawWidth, 1)));
  painter_.drawLine(Map(x1, y1), Map(x2, y2));
}

void PainterSurface::Box(float x1, float y1, float x2, float y2, SurfaceColour colour) {
  painter_.setPen(SurfacePen(colour, kStyleSolid, std::max<int>(DrawWidth, 1)));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(QRectF(Map(x1, y1), Map(x2, y2)).normalized());
}

void RenderDrawing(Drawing& d, QPainter& painter, const QRectF& area, DrawingLook look) {
  painter.setRenderHint(QPainter::Antialiasing);
  PainterSurface surface(painter, area, look == DrawingLook::kPrinted ? 0xFFFFFF : 0x000000);
  DrawingSurface* const target = d.Target;
  const int16_t printing = d.Printing;
  d.Target = &surface;
  d.Printing = look == DrawingLook::kPrinted ? -1 : 0;
  if (look == DrawingLook::kPrinted) {
    // On paper: the fitted view over a clean page, in the print colours.
    FitView(d);
    surface.Cls();
    PrintAll(d);
  } else {
    ZoomFit(d);
  }
  d.Target = target;
  d.Printing = printing;
}

bool RenderDrawingFile(Drawing& d, const std::string& form, const std::filesystem::path& path, int width, int height,
                       DrawingLook look, std::string& error) {
  std::filesystem::path temp = path;
  temp += ".part";
  const QString file = QString::fromStdString(temp.string());
  bool painted = false;
  if (form == "png") {
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    RenderDrawing(d, painter, QRectF(0, 0, width, height), look);
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
      RenderDrawing(d, painter, QRectF(0, 0, width, height), look);
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
      RenderDrawing(d, painter, QRectF(QPointF(0, 0), QSizeF(pdf.width(), pdf.height())), look);
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
