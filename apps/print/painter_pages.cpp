// Report pages on a Qt paint device: lines placed in twips, the page scaled to fit when it overflows.
#include "painter_pages.h"

#include "painter_surface.h"

#include <QFontDatabase>
#include <QPageLayout>
#include <QImage>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <system_error>

namespace kestrane {

QFont ReportFont(const PrintFont& font) {
  static const bool have_liberation = QFontDatabase::families().contains(QStringLiteral("Liberation Mono"));
  QFont f(have_liberation ? QStringLiteral("Liberation Mono") : QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  f.setStyleHint(QFont::Monospace);
  f.setPointSizeF(font.size);
  f.setBold(font.bold);
  f.setKerning(false);
  return f;
}

PainterPages::PainterPages(QPagedPaintDevice& device) : device_(&device) {
  device_->setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
}

PainterPages::~PainterPages() { Finish(); }

void PainterPages::Finish() {
  if (painter_.isActive()) painter_.end();
}

void PainterPages::Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) {
  lines_.push_back({x_twips, y_twips, text, font});
}

void PainterPages::PageStrokes::Add(float x1, float y1, float x2, float y2, SurfaceColour colour) {
  // User scale to twips of the page; the page's size in twips by orientation.
  const float w = pages_.orientation == 2 ? kPageHeightTwips : kPageWidthTwips;
  const float h = pages_.orientation == 2 ? kPageWidthTwips : kPageHeightTwips;
  const auto px = [&](float x) { return (x - ScaleLeft) / ScaleWidth * w; };
  const auto py = [&](float y) { return (y - ScaleTop) / ScaleHeight * h; };
  pages_.strokes_list_.push_back({px(x1), py(y1), px(x2), py(y2), colour, DrawStyle, DrawWidth});
  pages_.Touch();
}

void PainterPages::PageStrokes::Line(float x1, float y1, float x2, float y2) { Add(x1, y1, x2, y2, ForeColor); }

void PainterPages::PageStrokes::Box(float x1, float y1, float x2, float y2, SurfaceColour colour) {
  const int16_t style = DrawStyle;
  DrawStyle = kStyleSolid;
  Add(x1, y1, x2, y1, colour);
  Add(x2, y1, x2, y2, colour);
  Add(x2, y2, x1, y2, colour);
  Add(x1, y2, x1, y1, colour);
  DrawStyle = style;
}

QPainter& PainterPages::BeginPagePainter(bool landscape, QPaintDevice*& device) {
  device_->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  if (!started_) {
    painter_.begin(device_);
    started_ = true;
  } else {
    device_->newPage();
  }
  device = device_;
  return painter_;
}

void PainterPages::EndPage(float bottom_twips) {
  QPaintDevice* device = nullptr;
  QPainter& painter = BeginPagePainter(orientation == 2, device);
  // Device units per twip; a page whose lines run past its lower edge is shrunk to fit.
  const double unit = device->logicalDpiY() / 1440.0;
  const double height = orientation == 2 ? kPageWidthTwips : kPageHeightTwips;
  const double fit = bottom_twips > height ? height / bottom_twips : 1.0;
  painter.save();
  painter.scale(unit * fit, unit * fit);
  painter.setPen(Qt::black);
  for (const Line& line : lines_) {
    // The font sized in twips, the painter's unit here: the device sizes points at its own resolution.
    QFont f = ReportFont(line.font);
    f.setPointSizeF(line.font.size * 1440.0 / device->logicalDpiY());
    painter.setFont(f);
    const QFontMetricsF metrics(f, device);
    painter.drawText(QPointF(line.x, line.y + metrics.ascent()), QString::fromStdString(line.text));
  }
  // Drawing strokes: DrawWidth in dots of a 600 dpi printer.
  for (const Stroke& stroke : strokes_list_) {
    painter.setPen(SurfacePen(stroke.colour, stroke.style, std::max<int>(stroke.width, 1) * 1440.0 / 600.0));
    painter.drawLine(QPointF(stroke.x1, stroke.y1), QPointF(stroke.x2, stroke.y2));
  }
  painter.restore();
  lines_.clear();
  strokes_list_.clear();
  EndPagePainter();
}

FilePages::FilePages(std::filesystem::path path, std::string form) : path_(std::move(path)), form_(std::move(form)) {}

FilePages::~FilePages() {
  if (painter_.isActive()) painter_.end();
  std::error_code ec;
  if (!temp_.empty()) std::filesystem::remove(temp_, ec);
}

QPainter& FilePages::BeginPagePainter(bool landscape, QPaintDevice*& device) {
  constexpr int kDots = 150;  // a Letter page, 8.5 x 11 in
  const QSize size = landscape ? QSize(11 * kDots, 17 * kDots / 2) : QSize(17 * kDots / 2, 11 * kDots);
  std::filesystem::path file = path_;
  if (!written_.empty()) {
    file = path_.parent_path() / (path_.stem().string() + "-" + std::to_string(written_.size() + 1) +
                                  path_.extension().string());
  }
  temp_ = file;
  temp_ += ".part";
  if (form_ == "svg") {
    auto svg = std::make_unique<QSvgGenerator>();
    svg->setFileName(QString::fromStdString(temp_.string()));
    svg->setSize(size);
    svg->setViewBox(QRect(QPoint(0, 0), size));
    svg->setResolution(kDots);
    page_ = std::move(svg);
  } else {
    auto image = std::make_unique<QImage>(size, QImage::Format_RGB32);
    image->setDotsPerMeterX(static_cast<int>(kDots / 0.0254));
    image->setDotsPerMeterY(static_cast<int>(kDots / 0.0254));
    image->fill(Qt::white);
    page_ = std::move(image);
  }
  painter_.begin(page_.get());
  painter_.setRenderHint(QPainter::Antialiasing);
  device = page_.get();
  written_.push_back(file);
  return painter_;
}

void FilePages::EndPagePainter() {
  painter_.end();
  bool saved = true;
  if (form_ != "svg") saved = static_cast<QImage*>(page_.get())->save(QString::fromStdString(temp_.string()), "PNG");
  page_.reset();  // an SVG is written as its generator goes
  std::error_code ec;
  if (saved) std::filesystem::rename(temp_, written_.back(), ec);
  if (!saved || ec) {
    std::filesystem::remove(temp_, ec);
    if (error_.empty()) error_ = "The file " + written_.back().string() + " could not be written.";
  }
  temp_.clear();
}


PdfPages::PdfPages(std::filesystem::path path) : path_(std::move(path)) {
  temp_ = path_;
  temp_ += ".part";
  writer_ = std::make_unique<QPdfWriter>(QString::fromStdString(temp_.string()));
  writer_->setResolution(1200);
  writer_->setCreator(QStringLiteral("Kestrane"));
  pages_ = std::make_unique<PainterPages>(*writer_);
}

PdfPages::~PdfPages() {
  if (pages_) {
    pages_.reset();
    writer_.reset();
    std::error_code ec;
    std::filesystem::remove(temp_, ec);
  }
}

PageSink& PdfPages::pages() { return *pages_; }

bool PdfPages::Commit(std::string& error) {
  if (pages_->pages() == 0) {
    // A PDF needs a page: an empty report still gives one blank page.
    pages_->Print("");
    pages_->EndDoc();
  }
  pages_->Finish();
  pages_.reset();
  writer_.reset();
  std::error_code ec;
  if (!std::filesystem::exists(temp_)) {
    error = "The file " + path_.string() + " could not be written.";
    return false;
  }
  std::filesystem::rename(temp_, path_, ec);
  if (ec) {
    error = "The file " + path_.string() + " could not be written: " + ec.message() + ".";
    std::filesystem::remove(temp_, ec);
    return false;
  }
  return true;
}

}  // namespace kestrane
