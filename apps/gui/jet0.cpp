// The results window of a design: its frames laid out by the parts of the train that exist, the debugger grid and the pump error.
#include <QGroupBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "case/jet_file.h"
#include "documents/design_reports.h"
#include "design_prints.h"
#include "documents/page_frame.h"
#include "drawings/drawing_sets.h"
#include "drawings/flow_diagram.h"
#include "engine/design_summary.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "pages.h"
#include "pricing_form.h"
#include "study_window.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QTableWidget* Frame(const ResultsBlock& block) {
  auto* table = new QTableWidget(static_cast<int>(block.captions.size()), static_cast<int>(block.columns.size()));
  QStringList rows, heads;
  for (const auto& c : block.captions) rows << Q(Trim(c));
  for (const auto& h : block.heads) heads << Q(h);
  table->setVerticalHeaderLabels(rows);
  table->setHorizontalHeaderLabels(heads);
  if (heads.join("").isEmpty()) table->horizontalHeader()->hide();
  for (size_t c = 0; c < block.columns.size(); ++c) {
    for (size_t r = 0; r < block.columns[c].size(); ++r) {
      auto* item = new QTableWidgetItem(Q(Trim(block.columns[c][r])));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      table->setItem(static_cast<int>(r), static_cast<int>(c), item);
    }
  }
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->horizontalHeader()->setMinimumSectionSize(110);
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);  // never squeezed: the page scrolls instead
  table->setShowGrid(false);
  table->setAlternatingRowColors(true);
  return table;
}

}  // namespace

frmJET0::frmJET0(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QVBoxLayout(this);
  auto* bar = menus = new QMenuBar;
  layout->setMenuBar(bar);
  QMenu* file = bar->addMenu("&File");
  const auto save_as = [this] {
    const QString path = w_.SavePath(this, "JET Files (*.JET)");
    if (!path.isEmpty()) SaveCaseAs(S(path), w_.screen, w_.ui);
    w_.RefreshTitle();
  };
  file->addAction("&Open...", this, Trapped(w_.ui, [this] {
    auto* input = static_cast<frmJetInput*>(w_.PageOf(Form::frmJetInput));
    if (!input->CheckToStore()) return;
    const QString path = w_.OpenPath(this, "JET Files (*.JET)");
    if (path.isEmpty()) return;
    input->OpenFile(path);
    w_.SwapForms(Form::frmJET0, Form::frmJetInput);
  }));
  file->addAction("&Save", this, Trapped(w_.ui, [this, save_as] {
    if (w_.screen.USERCASE.empty()) {
      save_as();
    } else {
      WriteCase(w_.screen.USERCASE, w_.screen, w_.ui);
    }
  }));
  file->addAction("Save &As...", this, Trapped(w_.ui, save_as));
  file->addSeparator();
  export_pdf_ = file->addAction("&Export PDF...", this, Trapped(w_.ui, [this] {
    const QString suggested = Q(CaseStem(w_.screen.CASENAME).empty() ? "OUT" : CaseStem(w_.screen.CASENAME)) + ".pdf";
    const QString path = w_.pdf_path(this, suggested);
    if (!path.isEmpty()) ExportPdf(path);
  }));
  bar->addAction("&Revise Data", this, Trapped(w_.ui, [this] { w_.SwapForms(Form::frmJET0, Form::frmJetInput); }));
  // The print entries, as the results have always named them: the data sheet entry prints the specification
  // sheet and the quotation request the design data sheet.
  QMenu* print = print_menu_ = bar->addMenu("&Print");
  const auto entry = [this, print](const char* text, PrintCommand command) {
    QAction* action = print->addAction(text, this, Trapped(w_.ui, [this, command] { Print(command); }));
    action->setObjectName(Q(std::string(PrintCommandOf(command).name)));
    return action;
  };
  entry("&Data Sheet", PrintCommand::kDataSheet);
  entry("&Quotation Request", PrintCommand::kQuotationRequest);
  entry("D&rawings", PrintCommand::kDrawings);
  entry("&Process Flow Diagram", PrintCommand::kProcessFlowDiagram);
  entry("&All Output", PrintCommand::kAllOutput);
  layout->addWidget(NewStatusLine());
  lblMessage = new QLabel;
  lblMessage->setStyleSheet("color: red; font-weight: bold;");
  layout->addWidget(lblMessage);
  // The results on the left, what the design computed beside them on the right; both scroll together when
  // the window is small. The debugger grid opens below, the two parted by a splitter the user can move.
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  frames = new QWidget;
  auto* columns = new QHBoxLayout(frames);
  results_ = new QVBoxLayout;
  details_ = new QVBoxLayout;
  columns->addLayout(results_);
  columns->addLayout(details_);
  columns->addStretch();
  scroll->setWidget(frames);
  splitter_ = new QSplitter(Qt::Vertical);
  splitter_->addWidget(scroll);
  Grid1 = new QTableWidget;
  Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Grid1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  Grid1->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  Grid1->hide();
  splitter_->addWidget(Grid1);
  splitter_->setChildrenCollapsible(false);
  layout->addWidget(splitter_, 1);
  pictures = AddDrawingPanel(*layout, *splitter_, w_.session.data.font, FrameDrawing);
  auto* buttons = new QHBoxLayout;
  cmdDebugger = new QPushButton("Debugger");
  cmdDebugger->setCheckable(true);
  buttons->addWidget(cmdDebugger);
  cmdPricePrint = new QPushButton("&Pricing...");
  buttons->addWidget(cmdPricePrint);
  lblPrice = new QLabel;
  buttons->addWidget(lblPrice);
  cmdStudy = new QPushButton("&Study...");
  cmdStudy->setToolTip("Design this case again over a range of one or two inputs, and chart the results");
  buttons->addWidget(cmdStudy);
  buttons->addStretch();
  layout->addLayout(buttons);
  connect(cmdPricePrint, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    if (pricing == nullptr) pricing = new PricingForm(w_, this);
    pricing->Refresh();
    pricing->show();
    pricing->raise();
  }));
  connect(cmdStudy, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    // A new window each time: its base case is the case as it stands now.
    if (study != nullptr) study->close();
    study = new StudyWindow(w_, this);
    study->setAttribute(Qt::WA_DeleteOnClose);
    study->show();
  }));
  connect(cmdDebugger, &QPushButton::toggled, this, [this](bool on) {
    // The internal mode keeps the grid it shows in OUT.CSV as well.
    if (on && w_.session.data.pricing.PRICEMODE == 2) {
      DesignContext ctx = w_.Context();
      WriteGridCsv(DebuggerGrid(ctx), GridCsvPath(), w_.ui);
    }
    Grid1->setVisible(on);
    // The debug view: the grid takes the pictures' room too.
    if (on) pictures->Close();
    pictures->setVisible(!on);
    // Open, the grid takes two thirds of the height: enough rows to read beside the results.
    if (on) splitter_->setSizes({splitter_->height() / 3, splitter_->height() - splitter_->height() / 3});
  });
}

QString frmJET0::Caption() const {
  return "Kestrane-System Design Results" + (w_.screen.CASENAME.empty() ? QString() : "   " + Q(w_.screen.CASENAME));
}

void frmJET0::ShowResults(bool results, const std::string& message, const std::vector<std::string>& advisories) {
  for (QVBoxLayout* column : {results_, details_}) {
    while (QLayoutItem* item = column->takeAt(0)) {
      delete item->widget();
      delete item;
    }
  }
  lblMessage->setText(Q(message));
  lblMessage->setVisible(!message.empty());
  DesignContext ctx = w_.Context();
  const auto add = [](QVBoxLayout* column, const ResultsBlock& block) {
    auto* box = new QGroupBox(Q(block.title));
    auto* l = new QVBoxLayout(box);
    l->addWidget(Frame(block), 0, Qt::AlignLeft);
    column->addWidget(box);
  };
  if (results) {
    const bool metric = w_.screen.Metric();
    const ResultsScreen r = FillResults(ctx, metric);
    add(results_, r.utilities);
    add(results_, r.ejectors);
    if (r.show_condensers) add(results_, r.condensers);
    if (r.show_pump) add(results_, r.pump);
    for (const ResultsBlock& block : SummaryBlocks(SummarizeDesign(ctx), metric)) add(details_, block);
  }
  if (!advisories.empty()) {
    auto* box = new QGroupBox("Advisories");
    box->setObjectName("advisories");
    auto* l = new QVBoxLayout(box);
    for (const std::string& advice : advisories) {
      auto* line = new QLabel(Q(advice));
      line->setWordWrap(true);
      line->setMaximumWidth(520);
      l->addWidget(line);
    }
    results_->addWidget(box);
  }
  results_->addStretch();
  details_->addStretch();
  const auto grid = DebuggerGrid(ctx);
  Grid1->clear();
  Grid1->setRowCount(static_cast<int>(grid.size()));
  Grid1->setColumnCount(grid.empty() ? 0 : static_cast<int>(grid[0].size()));
  for (size_t r = 0; r < grid.size(); ++r) {
    for (size_t c = 0; c < grid[r].size(); ++c) {
      Grid1->setItem(static_cast<int>(r), static_cast<int>(c), new QTableWidgetItem(Q(grid[r][c])));
    }
  }
  Grid1->resizeColumnsToContents();
  has_results_ = results;
  BuildSlots(results);
  cmdDebugger->setEnabled(results);
  print_menu_->menuAction()->setEnabled(results);
  export_pdf_->setEnabled(results);
  if (!results) cmdDebugger->setChecked(false);
  ShowPriceControls();
}

void frmJET0::ShowPriceControls() {
  const int16_t mode = w_.session.data.pricing.PRICEMODE;
  cmdPricePrint->setVisible(mode == 1 || mode == 2);
  cmdPricePrint->setEnabled(has_results_);
  cmdStudy->setEnabled(has_results_);
  lblPrice->setVisible(mode == 2 && has_results_);
  if (mode == 2 && has_results_) {
    const PriceBuildUp price = PriceDesign(w_.Context());
    lblPrice->setText(price.complete ? "Price: $" + Q(Trim(FormatFixed(price.price, 14.2f)))
                                     : "Price: " + Q(std::string(kNotComplete)));
  }
  if (pricing != nullptr) {
    if (has_results_ && pricing->isVisible()) {
      pricing->Refresh();
    } else {
      pricing->hide();
    }
  }
}

void frmJET0::BuildSlots(bool results) {
  const bool metric = w_.screen.Metric();
  std::vector<EquipmentSlot> equipment;
  if (results) {
    DesignContext ctx = w_.Context();
    equipment = EquipmentSlots(ctx, metric);
  }
  std::vector<std::string> captions;
  for (const EquipmentSlot& slot : equipment) captions.push_back(slot.caption);
  if (results) captions.push_back("Flow Diagram");
  pictures->BuildSlots(captions, [this, equipment, metric](Drawing& d, int n, bool quiet, int16_t& failed) {
    RecordingUi quiet_ui;
    DesignContext ctx = w_.Context(quiet ? static_cast<Ui&>(quiet_ui) : w_.ui);
    if (n < static_cast<int>(equipment.size())) {
      LoadSlotDrawing(d, ctx, equipment[static_cast<size_t>(n)], metric, failed);
    } else {
      BuildFlowDiagram(d, ctx, metric);
    }
  });
}

void frmJET0::SetResultsMode(int mode) {
  const bool printing = mode == 2;
  pictures->Close();
  pictures->setEnabled(!printing);
  lblStatus->setVisible(printing);
  splitter_->setVisible(!printing);
  for (QAction* action : menus->actions()) action->setEnabled(!printing);
  print_menu_->menuAction()->setEnabled(!printing && has_results_);
  export_pdf_->setEnabled(has_results_);
  cmdDebugger->setEnabled(!printing && has_results_);
  cmdPricePrint->setEnabled(!printing && has_results_);
  cmdStudy->setEnabled(!printing && has_results_);
}

namespace {

// The reports of the case shown, as a report job; the data sheet's text is written beside the case first.
ReportJob DesignSheetsJob(MainWindow& w, const std::vector<Report>& reports, const QString& title) {
  DesignContext ctx = w.Context();
  const std::string date = ReportDate(w.session.Today());
  auto sheets = std::make_shared<DesignSheets>(PrepareDesignSheets(reports, ctx, date, w.session.data.paths.usrfiles));
  return {title, [&w, reports, sheets, date](PageSink& printer) {
            DesignContext at_print = w.Context();
            PrintDesignReports(reports, *sheets, at_print, date, printer);
          }};
}

}  // namespace

void frmJET0::Print(PrintCommand command) {
  RunPrintCommand(command, *this, [this, command](const std::vector<Report>& reports) {
    const ReportJob job = DesignSheetsJob(w_, reports, Caption());
    w_.preview(this, job);
  });
}

void frmJET0::ExportPdf(const QString& path) {
  RunPrintCommand(PrintCommand::kAllOutput, *this, [this, &path](const std::vector<Report>& reports) {
    WriteReportPdf(DesignSheetsJob(w_, reports, Caption()), path, w_.ui);
  });
}

}  // namespace kestrane::gui
