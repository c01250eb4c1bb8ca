// Print preview and PDF export of reports, both painted by the report page painter.
#include "printing.h"

#include <QApplication>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTimer>

#include "painter_pages.h"

namespace kestrane::gui {

void PreviewReport(QWidget* parent, const ReportJob& job, const std::function<void(QDialog&)>& opened) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(job.title);
  printer.setFullPage(true);
  QPrintPreviewDialog dialog(&printer, parent);
  dialog.setWindowTitle(job.title);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&job](QPrinter* target) {
    PainterPages pages(*target);
    job.print(pages);
    pages.Finish();
  });
  if (opened) QTimer::singleShot(0, &dialog, [&dialog, &opened] { opened(dialog); });
  dialog.exec();
}

bool WriteReportPdf(const ReportJob& job, const QString& path, Ui& ui) {
  PdfPages pdf(path.toStdString());
  job.print(pdf.pages());
  std::string error;
  if (pdf.Commit(error)) return true;
  ui.notice(error);
  return false;
}

void StatusPrinting::SetStatus(const std::string& text) { lblStatus->setText(QString::fromStdString(text)); }

void StatusPrinting::SetBusy(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void StatusPrinting::ProcessEvents() { QCoreApplication::processEvents(); }

QLabel* StatusPrinting::NewStatusLine() {
  lblStatus = new QLabel;
  lblStatus->setStyleSheet("font-weight: bold;");
  lblStatus->hide();
  return lblStatus;
}

}  // namespace kestrane::gui
