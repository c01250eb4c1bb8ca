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

 protected:
  void Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) override;
  void EndPage(float bottom_twips) override;

 private:
  struct Line {
    float x, y;
    std::string text;
    PrintFont font;
  };
  QPagedPaintDevice& device_;
  QPainter painter_;
  std::vector<Line> lines_;
  bool started_ = false;
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
