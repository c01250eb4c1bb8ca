// Reports in the desktop program: a print preview before anything reaches a printer, and export to PDF.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QString>
#include <QWidget>
#include <functional>

#include "shell/page_sink.h"
#include "documents/print_commands.h"
#include "shell/ui.h"

namespace kestrane::gui {

// A report as the desktop prints it: its title and the printing of its pages. Printing may run more than once
// (the preview paints again as the user changes its view), so it only prints: files beside the case are written
// before.
struct ReportJob {
  QString title;
  std::function<void(PageSink&)> print;
};

// Shows the pages in a print preview, from which the user sends them to a printer. `opened`, when given, runs
// once the preview stands open (a screenshot takes it, then closes it).
void PreviewReport(QWidget* parent, const ReportJob& job, const std::function<void(QDialog&)>& opened = {});

// Writes the report as a PDF file at `path`; a failure is told through `ui`. True when written.
bool WriteReportPdf(const ReportJob& job, const QString& path, Ui& ui);

// What the results windows share while a print command runs: the hourglass, pending events and the status line
// "Patience....printing..." (lblStatus, made hidden by the window through NewStatusLine).
class StatusPrinting : public PrintingWindow {
 public:
  void SetStatus(const std::string& text) override;
  void SetBusy(bool busy) override;
  void ProcessEvents() override;
  QLabel* lblStatus = nullptr;

 protected:
  // The status line, bold and hidden until a print command shows it.
  QLabel* NewStatusLine();
};

}  // namespace kestrane::gui
