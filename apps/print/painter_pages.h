// Report pages painted with Qt: onto a PDF file, a printer or a print preview, in the fixed-pitch report font.
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "shell/page_sink.h"

class QPdfWriter;

namespace kestrane {

// The report font on this system: Liberation Mono, metric-compatible with Courier New, so that a sheet lines up
// the same everywhere; bold when asked. The family falls back to the system's fixed-pitch font when missing.
QFont ReportFont(const PrintFont& font);

// Pages painted on a paged device (a PDF writer, a printer). The device is set to Letter with no margins; each
// EndDoc paints its page, scaled down as a whole when its lines pass the page's lower edge.
class PainterPages : public PageSink {
 public:
  explicit PainterPages(QPagedPaintDevice& device);
  ~PainterPages() override;
  // Ends painting; the device holds the pages.
  void Finish();
  // Drawings print on the page too: their strokes are kept with the page's text lines.
  DrawingSurface* DrawingTarget() override { return &strokes_; }

 protected:
  void Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) override;
  void EndPage(float bottom_twips) override;

  // Pages each on a device of their own (FilePages).
  PainterPages() = default;
  // The painter of the next page, begun on its device (`device` set to it), landscape or not; the page painted,
  // EndPagePainter finishes it.
  virtual QPainter& BeginPagePainter(bool landscape, QPaintDevice*& device);
  virtual void EndPagePainter() {}

 private:
  struct Line {
    float x, y;
    std::string text;
    PrintFont font;
  };
  // A drawing's line on the page, in twips from the page's corner.
  struct Stroke {
    float x1, y1, x2, y2;
    SurfaceColour colour;
    int16_t style, width;
  };
  // The page as a drawing surface: its user scale spans the whole page.
  class PageStrokes : public DrawingSurface {
   public:
    explicit PageStrokes(PainterPages& pages) : pages_(pages) {}
    void Cls() override { pages_.strokes_list_.clear(); }
    void Line(float x1, float y1, float x2, float y2) override;
    void Box(float x1, float y1, float x2, float y2, SurfaceColour colour) override;
    SurfaceColour BackColor() const override { return 0xFFFFFF; }
    float Width() const override { return pages_.Width(); }
    float Height() const override { return pages_.Height(); }

   private:
    void Add(float x1, float y1, float x2, float y2, SurfaceColour colour);
    PainterPages& pages_;
  };
  QPagedPaintDevice* device_ = nullptr;
  QPainter painter_;
  std::vector<Line> lines_;
  std::vector<Stroke> strokes_list_;
  PageStrokes strokes_{*this};
  bool started_ = false;
};

// Pages as image files, one a page: PNG or SVG ("png", "svg"), a Letter page at 150 dots an inch. The first
// page is `path`, the next ones have "-2", "-3"... before the extension. Each file is written to a temporary
// name and renamed.
class FilePages : public PainterPages {
 public:
  FilePages(std::filesystem::path path, std::string form);
  ~FilePages() override;
  // The files written; an error names the one that could not be.
  const std::vector<std::filesystem::path>& written() const { return written_; }
  const std::string& error() const { return error_; }

 protected:
  QPainter& BeginPagePainter(bool landscape, QPaintDevice*& device) override;
  void EndPagePainter() override;

 private:
  std::filesystem::path path_;
  std::string form_;
  std::unique_ptr<QPaintDevice> page_;
  std::filesystem::path temp_;
  QPainter painter_;
  std::vector<std::filesystem::path> written_;
  std::string error_;
};

// A PDF file of report pages, the fonts embedded; written to a temporary name and renamed on Commit, so that a
// failed report leaves no half file.
class PdfPages {
 public:
  explicit PdfPages(std::filesystem::path path);
  ~PdfPages();
  PageSink& pages();
  // Finishes the file; false with the reason in `error` when it cannot be written.
  bool Commit(std::string& error);

 private:
  std::filesystem::path path_;
  std::filesystem::path temp_;
  std::unique_ptr<QPdfWriter> writer_;
  std::unique_ptr<PainterPages> pages_;
};

}  // namespace kestrane
