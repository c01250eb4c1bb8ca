// The pricing form: the price build-up of the design shown, item by item, with its print and PDF.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>

#include "main_window.h"
#include "pricing/price_buildup.h"

namespace kestrane::gui {

class PricingForm : public QDialog {
  Q_OBJECT

 public:
  PricingForm(MainWindow& window, QWidget* parent);
  // Prices the design the results window shows and shows the breakdown.
  void Refresh();
  const PriceBuildUp& price() const { return price_; }
  QPlainTextEdit* breakdown;
  QPushButton* cmdPrint;
  QPushButton* cmdExportPdf;

 private:
  struct ReportJob Job() const;
  MainWindow& w_;
  PriceBuildUp price_;
};

}  // namespace kestrane::gui
