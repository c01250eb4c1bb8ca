// The thermo compressor windows: the input with its file menu and check, and the results with the debugger rows.
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenuBar>
#include <QVBoxLayout>

#include "documents/design_reports.h"
#include "design_prints.h"
#include "documents/page_frame.h"
#include "drawings/drawing_sets.h"
#include "pages.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QString Filter() { return "TTC Files (*.TTC)"; }

}  // namespace

TCInput::TCInput(MainWindow& w) : Page(&w), w_(w), watcher_(this, w.ui) {
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QMenuBar;
  layout->setMenuBar(bar);
  w_.AddFileMenu(bar, this,
                 {Filter(), [this] { return CheckToStore(); },
                  [this] {
                    ClearTCInput(model);
                    Refresh();
                  },
                  [this](const QString& path) { OpenFile(path); }, [this] { return model.TCUSERCASE; },
                  [this](const std::string& path) { SaveTCFileAs(path, model, w_.ui); },
                  [this] { w_.SwapForms(Form::TCInput, Form::MainForm); }});
  bar->addAction("&Design Thermo Compressor", this, Trapped(w_.ui, [this] { Design(); }));

  auto* note = new QLabel(Q(kTcNote));
  note->setWordWrap(true);
  layout->addWidget(note);
  auto* grid = new QGridLayout;
  for (size_t i = 0; i < 3; ++i) {
    txtHeadingInput[i] = new QLineEdit;
    grid->addWidget(new QLabel(Q(kTcHeadingCaptions[i])), static_cast<int>(i), 0);
    grid->addWidget(txtHeadingInput[i], static_cast<int>(i), 1, 1, 3);
    auto* edit = txtHeadingInput[i];
    watcher_.Watch(edit, {}, [this, edit, i] {
      if (model.txtHeadingInput[i] != S(edit->text())) model.TCDIRTY = 1;
      model.txtHeadingInput[i] = S(edit->text());
    });
  }
  for (int r = 0; r < kTcInputs; ++r) {
    const auto i = static_cast<size_t>(r);
    const int row = r + 3;
    grid->addWidget(new QLabel(Q(kTcInputCaptions[i]).replace("&&", "&")), row, 0);
    txtInput[i] = new QLineEdit;
    txtInputA[i] = new QLineEdit;
    grid->addWidget(txtInput[i], row, 1);
    grid->addWidget(new QLabel(Q(kTcStandardUnits[i])), row, 2);
    grid->addWidget(txtInputA[i], row, 3);
    grid->addWidget(new QLabel(Q(kTcMetricUnits[i])), row, 4);
    for (bool metric_side : {false, true}) {
      QLineEdit* edit = metric_side ? txtInputA[i] : txtInput[i];
      watcher_.Watch(
          edit, [this, r] { description->setPlainText(Q(TcHint(r))); },
          [this, edit, r, i, metric_side] {
            if (edit->isReadOnly()) return;
            const std::string text = S(edit->text());
            if (text == (metric_side ? model.txtInputA[i] : model.txtInput[i])) return;
            EditTcInput(model, r, metric_side, text);
            Refresh();
          });
    }
  }
  grid->setColumnStretch(5, 1);
  layout->addLayout(grid);
  auto* options = new QHBoxLayout;
  for (size_t i = 0; i < 2; ++i) {
    OptionUnits[i] = new QRadioButton(Q(kTcUnitOptions[i]));
    options->addWidget(OptionUnits[i]);
    connect(OptionUnits[i], &QRadioButton::clicked, this, Trapped(w_.ui, [this, i] {
      SelectTcUnits(model, static_cast<int>(i));
      UnitsChanged();
    }));
  }
  options->addStretch();
  layout->addLayout(options);
  auto* form = new QFormLayout;
  static const char* list_captions[] = {"Suction chamber", "Steam nozzle", "Steam chest", "Nozzle plate", "Code"};
  for (int l = 0; l < kTcListCount; ++l) {
    auto* combo = new QComboBox;
    combo->setMaximumWidth(300);
    for (auto entry : TcListDefinition(static_cast<TcList>(l)).entries) combo->addItem(Q(entry));
    lists[static_cast<size_t>(l)] = combo;
    connect(combo, &QComboBox::activated, this, Trapped(w_.ui, [this, l](int index) {
      SelectTcList(model, static_cast<TcList>(l), static_cast<int16_t>(index));
    }));
    form->addRow(list_captions[l], combo);
  }
  layout->addLayout(form);
  layout->addStretch();
  description = new HintBox;
  layout->addWidget(description);
}

void TCInput::UnitsChanged() {
  const bool metric = model.Metric();
  for (size_t i = 0; i < kTcInputs; ++i) {
    txtInput[i]->setReadOnly(metric);
    txtInputA[i]->setReadOnly(!metric);
  }
}

void TCInput::Refresh() {
  for (size_t i = 0; i < 3; ++i) txtHeadingInput[i]->setText(Q(model.txtHeadingInput[i]));
  for (size_t i = 0; i < kTcInputs; ++i) {
    txtInput[i]->setText(Q(model.txtInput[i]));
    txtInputA[i]->setText(Q(model.txtInputA[i]));
  }
  for (size_t i = 0; i < 2; ++i) OptionUnits[i]->setChecked(model.OptionUnits[i] != 0);
  for (size_t l = 0; l < kTcListCount; ++l) lists[l]->setCurrentIndex(model.lists[l]);
  UnitsChanged();
  w_.RefreshTitle();
}

bool TCInput::OpenFile(const QString& path) {
  TCInputScreen read;
  const bool ok = OpenTCFile(S(path), read, w_.ui);
  model = read;
  Refresh();
  return ok;
}

bool TCInput::CheckToStore() {
  return w_.Resolve(CheckToStoreTCFile(model, w_.ui), this, Filter(),
                    [this](const std::string& path) { return SaveTCFileAs(path, model, w_.ui); });
}

void TCInput::Design() {
  TcInput tcin;
  if (CheckTCInput(model, w_.session.design, tcin, Steam{w_.session.data.steam, w_.ui}, w_.ui) != 0) return;
  DesignContext ctx = w_.Context();
  const TcOutcome outcome = DesignThermoCompressor(ctx, tcin);
  auto* results = static_cast<TCform*>(w_.PageOf(Form::TCform));
  results->tcres = tcin;
  results->ShowResults(outcome);
  w_.SwapForms(Form::TCInput, Form::TCform);
}

TCform::TCform(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QVBoxLayout(this);
  auto* bar = menus = new QMenuBar;
  layout->setMenuBar(bar);
  QMenu* file = bar->addMenu("&File");
  file->addAction("&Export PDF...", this, Trapped(w_.ui, [this] {
    auto* input = static_cast<TCInput*>(w_.PageOf(Form::TCInput));
    const std::string stem = CaseStem(input->model.TCCASENAME);
    const QString path = w_.pdf_path(this, Q(stem.empty() ? "OUT" : stem) + ".pdf");
    if (!path.isEmpty()) ExportPdf(path);
  }));
  bar->addAction("&Revise Data", this, Trapped(w_.ui, [this] { w_.SwapForms(Form::TCform, Form::TCInput); }));
  bar->addAction("&Print", this, Trapped(w_.ui, [this] { Print(); }))->setObjectName("mnuPrint");
  layout->addWidget(NewStatusLine());
  lists_ = new QWidget;
  auto* lists = new QVBoxLayout(lists_);
  lists->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lists_, 1);
  body = new QLabel;
  lists->addWidget(body);
  auto* row = new QHBoxLayout;
  results = new QTableWidget(5, 1);
  results->horizontalHeader()->hide();
  results->setEditTriggers(QAbstractItemView::NoEditTriggers);
  results->setMinimumWidth(360);
  row->addWidget(results);
  grid = new QTableWidget(17, 1);
  grid->horizontalHeader()->hide();
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  row->addWidget(grid, 1);
  lists->addLayout(row, 1);
  Image1 = AddDrawingPanel(*layout, *lists_, w_.session.data.font, FrameDrawing);
}

void TCform::SetResultsMode(int mode) {
  const bool printing = mode == 2;
  Image1->Close();
  Image1->setEnabled(!printing);
  lblStatus->setVisible(printing);
  lists_->setVisible(!printing);
  for (QAction* action : menus->actions()) action->setEnabled(!printing);
}

ReportJob TCform::SheetsJob() {
  auto* input = static_cast<TCInput*>(w_.PageOf(Form::TCInput));
  DesignContext ctx = w_.Context();
  auto sheets = std::make_shared<TcSheets>(
      PrepareTcSheets(tcres, ctx, input->model, ReportDate(w_.session.Today()), w_.session.data.paths.usrfiles));
  const bool metric = input->model.Metric();
  return {Caption(), [this, sheets, metric](PageSink& printer) {
            DesignContext at_print = w_.Context();
            PrintTcReports(*sheets, at_print, metric, TcModel(w_.session.design), printer);
          }};
}

void TCform::Print() {
  RunPrintCommand(PrintCommand::kThermoCompressor, *this, [this](const std::vector<Report>&) { w_.preview(this, SheetsJob()); });
}

void TCform::ExportPdf(const QString& path) {
  RunPrintCommand(PrintCommand::kThermoCompressor, *this,
                  [this, &path](const std::vector<Report>&) { WriteReportPdf(SheetsJob(), path, w_.ui); });
}

QString TCform::Caption() const {
  auto* input = static_cast<TCInput*>(w_.PageOf(Form::TCInput));
  return "Kestrane-Thermo Compressor Results" +
         (input->model.TCCASENAME.empty() ? QString() : "   " + Q(input->model.TCCASENAME));
}

void TCform::ShowResults(const TcOutcome& outcome) {
  auto* input = static_cast<TCInput*>(w_.PageOf(Form::TCInput));
  const TcResults r = FillTCResults(w_.session.design, input->model.Metric());
  QStringList captions;
  for (size_t i = 0; i < r.captions.size(); ++i) {
    captions << Q(Trim(r.captions[i]));
    auto* item = new QTableWidgetItem(Q(Trim(r.values[i])));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    results->setItem(static_cast<int>(i), 0, item);
  }
  results->setVerticalHeaderLabels(captions);
  results->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  const auto rows = TcDebuggerGrid(w_.session.design);
  QStringList labels;
  for (size_t i = 0; i < rows.size(); ++i) {
    labels << Q(rows[i].first).trimmed();
    auto* item = new QTableWidgetItem(Q(Trim(rows[i].second)));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->setItem(static_cast<int>(i), 0, item);
  }
  grid->setVerticalHeaderLabels(labels);
  // The compressor's picture: the ejector drawing of stage 1, in the input's units.
  const bool metric = input->model.Metric();
  const std::string model = TcModel(w_.session.design);
  Image1->BuildSlots({model}, [this, metric, model](Drawing& d, int, bool quiet, int16_t& failed) {
    RecordingUi quiet_ui;
    DesignContext ctx = w_.Context(quiet ? static_cast<Ui&>(quiet_ui) : w_.ui);
    LoadJetDrawing(d, ctx, 1, metric, model, failed);
  });
  body->setText(QString("Body type %1, compression ratio %2").arg(outcome.TYPE).arg(outcome.compressionRatio, 0, 'f', 3));
}

}  // namespace kestrane::gui
