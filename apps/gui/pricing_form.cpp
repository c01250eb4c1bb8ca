// The pricing form: the breakdown in a fixed-pitch box, printed through the preview or written as PDF.
#include "pricing_form.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QVBoxLayout>

#include "documents/page_frame.h"
#include "pricing/price_report.h"
#include "printing.h"
#include "trap.h"
#include "widgets.h"

namespace kestrane::gui {

PricingForm::PricingForm(MainWindow& window, QWidget* parent) : QDialog(parent), w_(window) {
  setWindowTitle("Kestrane-Pricing");
  auto* layout = new QVBoxLayout(this);
  breakdown = new QPlainTextEdit;
  breakdown->setReadOnly(true);
  breakdown->setLineWrapMode(QPlainTextEdit::NoWrap);
  breakdown->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  layout->addWidget(breakdown, 1);
  auto* buttons = new QDialogButtonBox;
  cmdPrint = buttons->addButton("&Print...", QDialogButtonBox::ActionRole);
  cmdExportPdf = buttons->addButton("&Export PDF...", QDialogButtonBox::ActionRole);
  buttons->addButton(QDialogButtonBox::Close);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
  connect(cmdPrint, &QPushButton::clicked, this, Trapped(w_.ui, [this] { w_.preview(this, Job()); }));
  connect(cmdExportPdf, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    const std::string stem = CaseStem(w_.screen.CASENAME);
    const QString path = w_.pdf_path(this, Q(stem.empty() ? "OUT" : stem) + "-price.pdf");
    if (!path.isEmpty()) WriteReportPdf(Job(), path, w_.ui);
  }));
}

void PricingForm::Refresh() {
  price_ = PriceDesign(w_.Context());
  QString text;
  for (const std::string& line : PriceBreakdownLines(price_)) text += Q(line) + "\n";
  breakdown->setPlainText(text);
  // Wide enough for the table's lines.
  const QFontMetrics metrics(breakdown->font());
  resize(std::max(width(), metrics.horizontalAdvance(QString(92, 'M')) + 40), std::max(height(), 420));
}

ReportJob PricingForm::Job() const {
  const PriceBuildUp price = price_;
  const std::string file = w_.screen.USERCASE;
  const std::string date = ReportDate(w_.session.Today());
  return {windowTitle(), [price, file, date](PageSink& printer) { PrintPriceBreakdown(printer, price, file, date); }};
}

}  // namespace kestrane::gui
