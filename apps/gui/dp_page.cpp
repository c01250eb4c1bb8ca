// The gas pressure loss window: method and units, the nineteen fields, the results box and the TDP file.
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QVBoxLayout>

#include "documents/page_frame.h"
#include "documents/tool_reports.h"
#include "pages.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QString Filter() { return "TDP Files (*.TDP)"; }

}  // namespace

dpVac::dpVac(MainWindow& w) : Page(&w), w_(w), watcher_(this, w.ui) {
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QMenuBar;
  layout->setMenuBar(bar);
  w_.AddFileMenu(bar, this,
                 {Filter(), [this] { return CheckToStore(); },
                  [this] {
                    ResetDpVac(model);
                    Refresh();
                  },
                  [this](const QString& path) {
                    ReadDpFile(S(path), model, w_.ui);
                    Refresh();
                  },
                  [this] { return model.file; }, [this](const std::string& path) { WriteDpFile(path, model, w_.ui); },
                  [this] { w_.SwapForms(Form::dpVac, Form::MainForm); }});
  QMenu* units = bar->addMenu("&Units");
  units->addAction("&Standard Units", this, Trapped(w_.ui, [this] {
    model.standard = true;
    Refresh();
  }));
  units->addAction("&Metric Units", this, Trapped(w_.ui, [this] {
    model.standard = false;
    Refresh();
  }));
  bar->addAction("&Calculate", this, Trapped(w_.ui, [this] { Calculate(); }));
  bar->addAction("&Print", this, Trapped(w_.ui, [this] {
    const DpScreen shown = model;
    const std::string date = ReportDate(w_.session.Today());
    w_.preview(this, {Caption(), [shown, date](PageSink& printer) {
                        PrintPressureDrop(printer, shown.results, shown.file, date);
                      }});
  }))->setObjectName("mnuPrint");

  auto* top = new QHBoxLayout;
  auto* method = new QGroupBox("Method");
  auto* ml = new QVBoxLayout(method);
  hei = new QRadioButton("HEI (air or steam)");
  tessel = new QRadioButton("Tessel (any gas)");
  ml->addWidget(hei);
  ml->addWidget(tessel);
  top->addWidget(method);
  auto* unit_box = new QGroupBox("Units");
  auto* ul = new QVBoxLayout(unit_box);
  standard = new QRadioButton("Standard Units");
  metric = new QRadioButton("Metric Units");
  ul->addWidget(standard);
  ul->addWidget(metric);
  top->addWidget(unit_box);
  top->addStretch();
  layout->addLayout(top);
  // An option button sets its flag of the sheet, an edit, and the captions follow.
  const auto option = [this](QRadioButton* button, bool& flag, bool value) {
    connect(button, &QRadioButton::clicked, this, Trapped(w_.ui, [this, &flag, value] {
      flag = value;
      model.dirty = 1;
      Refresh();
    }));
  };
  option(hei, model.hei, true);
  option(tessel, model.hei, false);
  option(standard, model.standard, true);
  option(metric, model.standard, false);

  auto* body = new QHBoxLayout;
  auto* fields = new QGridLayout;
  for (int k = 1; k <= kDpFields; ++k) {
    const auto i = static_cast<size_t>(k);
    captions[i] = new QLabel;
    txtEV[i] = new QLineEdit;
    txtEV[i]->setMaximumWidth(100);
    fields->addWidget(captions[i], k - 1, 0);
    fields->addWidget(txtEV[i], k - 1, 1);
    auto* edit = txtEV[i];
    watcher_.Watch(edit, {}, [this, edit, i] {
      if (model.txtEV[i] != S(edit->text())) model.dirty = 1;
      model.txtEV[i] = S(edit->text());
    });
  }
  body->addLayout(fields);
  auto* right = new QVBoxLayout;
  results = new QPlainTextEdit;
  results->setReadOnly(true);
  results->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  results->setLineWrapMode(QPlainTextEdit::NoWrap);
  right->addWidget(results, 1);
  auto* total_row = new QHBoxLayout;
  total_row->addWidget(new QLabel("Total pressure drop (mmHg)"));
  total = new QLineEdit;
  total->setReadOnly(true);
  total_row->addWidget(total);
  right->addLayout(total_row);
  body->addLayout(right, 1);
  layout->addLayout(body, 1);
  Refresh();
}

void dpVac::Refresh() {
  hei->setChecked(model.hei);
  tessel->setChecked(!model.hei);
  standard->setChecked(model.standard);
  metric->setChecked(!model.standard);
  for (int k = 1; k <= kDpFields; ++k) {
    const auto i = static_cast<size_t>(k);
    captions[i]->setText(Q(DpFieldCaption(model, k)));
    txtEV[i]->setText(Q(model.txtEV[i]));
  }
  // The viscosity is not asked with the chart method.
  captions[4]->setVisible(!model.hei);
  txtEV[4]->setVisible(!model.hei);
  results->setPlainText(Q(model.results).replace("\r\n", "\n"));
  total->setText(Q(model.total));
  w_.RefreshTitle();
}

void dpVac::Calculate() {
  for (int k = 1; k <= kDpFields; ++k) model.txtEV[static_cast<size_t>(k)] = S(txtEV[static_cast<size_t>(k)]->text());
  Calculate_DP(model, w_.ui);
  Refresh();
}

bool dpVac::CheckToStore() {
  return w_.Resolve(CheckToStoreDpFile(model, w_.ui), this, Filter(),
                    [this](const std::string& path) { return WriteDpFile(path, model, w_.ui); });
}

}  // namespace kestrane::gui
