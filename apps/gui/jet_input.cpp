// The design input window: five tabs of paired boxes, options and lists over the input screen model; the file menu and the design run.
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenuBar>
#include <QThread>
#include <QVBoxLayout>

#include "case/jet_file.h"
#include "engine/design_run.h"
#include "pages.h"
#include "properties/vapors.h"
#include "properties/vb.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

const char* kInputCaptions[8][2] = {{"Suction pressure", "mmHgA / KpaA"},
                                    {"Suction temperature", "degF / degC"},
                                    {"Discharge pressure", "mmHgA / KpaA"},
                                    {"Motive pressure", "psig / Bar (g)"},
                                    {"Motive temperature (0=D&S)", "degF / degC"},
                                    {"Cooling or seal water inlet", "degF / degC"},
                                    {"Maximum water outlet temperature", "degF / degC"},
                                    {"Overall fouling factor", "hr-ft2-F/Btu / hr-m2-C/Kcal"}};
const char* kDesignCaptions[4] = {"Shell side design pressure (psig / Bar (g))", "Shell side design temperature (degF / degC)",
                                  "Tube side design pressure (psig / Bar (g))", "Tube side design temperature (degF / degC)"};

QString FilterJet() { return "JET Files (*.JET)"; }

}  // namespace

frmJetInput::frmJetInput(MainWindow& w) : Page(&w), w_(w), watcher_(this, w.ui) {
  auto* outer = new QVBoxLayout(this);
  auto* bar = new QMenuBar;
  outer->setMenuBar(bar);
  w_.AddFileMenu(bar, this,
                 {FilterJet(), [this] { return CheckToStore(); },
                  [this] {
                    w_.screen = NewCase();
                    Refresh();
                  },
                  [this](const QString& path) { OpenFile(path); }, [this] { return w_.screen.USERCASE; },
                  [this](const std::string& path) { SaveCaseAs(path, w_.screen, w_.ui); },
                  [this] { w_.SwapForms(Form::frmJetInput, Form::MainForm); }});
  bar->addAction("&Design System", this, Trapped(w_.ui, [this] { DesignSystem(); }));

  SSTabInput = new QTabWidget;
  outer->addWidget(SSTabInput, 1);
  txtboxMainInputDescription = new QPlainTextEdit;
  txtboxMainInputDescription->setReadOnly(true);
  txtboxMainInputDescription->setMaximumHeight(70);
  outer->addWidget(txtboxMainInputDescription);
  lblStatus = new QLabel;
  outer->addWidget(lblStatus);
  connect(&w_.ui, &QtUi::statusChanged, this, Trapped(w_.ui, [this](const QString& text) {
    if (running_) lblStatus->setText(text);
  }));

  auto make_box = [this](BoxRef box) {
    auto* edit = new QLineEdit;
    edit->setMaximumWidth(130);
    boxes_[{static_cast<int>(box.group), box.index}] = edit;
    watcher_.Watch(
        edit,
        [this, box] {
          txtboxMainInputDescription->setPlainText(Q(InputHint(box)));
          if (box.group == BoxGroup::kCpph || box.group == BoxGroup::kCpphA) focused_load_row_ = box.index;
        },
        [this, box] { Leave(box); });
    return edit;
  };

  // Main input.
  auto* main = new QWidget;
  auto* main_layout = new QHBoxLayout(main);
  auto* values = new QGridLayout;
  for (int i = 0; i < 3; ++i) {
    static const char* headings[] = {"Item", "Description", "Engineer"};
    values->addWidget(new QLabel(headings[i]), i, 0);
    auto* edit = new QLineEdit;
    edit->setMaximumWidth(400);
    boxes_[{-3, i}] = edit;
    watcher_.Watch(edit, {}, [this, edit, i] {
      auto& heading = w_.screen.txtHeadingInput[static_cast<size_t>(i)];
      if (heading != S(edit->text())) w_.screen.CASEDIRTY = 1;
      heading = S(edit->text());
    });
    values->addWidget(edit, i, 1, 1, 2);
  }
  values->addWidget(new QLabel("<b>Standard</b>"), 3, 1);
  values->addWidget(new QLabel("<b>Metric</b>"), 3, 2);
  for (int i = 0; i < 8; ++i) {
    values->addWidget(new QLabel(QString("%1 (%2)").arg(kInputCaptions[i][0], kInputCaptions[i][1])), i + 4, 0);
    values->addWidget(make_box({BoxGroup::kInput, i}), i + 4, 1);
    values->addWidget(make_box({BoxGroup::kInputA, i}), i + 4, 2);
  }
  for (int i = 0; i < 3; ++i) {
    cost_captions_[static_cast<size_t>(i)] = new QLabel;
    values->addWidget(cost_captions_[static_cast<size_t>(i)], i + 12, 0);
    values->addWidget(make_box({BoxGroup::kCost, i}), i + 12, 1);
  }
  values->setRowStretch(15, 1);
  values->setColumnStretch(3, 1);
  main_layout->addLayout(values, 3);
  auto* options = new QVBoxLayout;
  auto group = [&](const char* title, std::vector<const char*> captions, std::vector<QRadioButton*>& buttons,
                   std::function<void(int)> chosen) {
    auto* box = new QGroupBox(title);
    auto* l = new QVBoxLayout(box);
    for (size_t i = 0; i < captions.size(); ++i) {
      auto* b = new QRadioButton(captions[i]);  // "&&" shows one "&"
      buttons.push_back(b);
      l->addWidget(b);
      connect(b, &QRadioButton::clicked, this, Trapped(w_.ui, [chosen, i] { chosen(static_cast<int>(i)); }));
    }
    options->addWidget(box);
  };
  group("Units", {"Standard Units", "Metric Units"}, units_, [this](int i) {
    SelectOption(w_.screen, w_.screen.OptionUnits, i);
    UnitsChanged();
  });
  group("Condensers",
        {"Shell && Tube (SS condensing)", "Shell && Tube (TS condensing)", "Direct Contact", "No Condensers"},
        condenser_, [this](int i) { SelectOption(w_.screen, w_.screen.OptionCondenserType, i); });
  group("Stages", {"Automatic", "4 Stages", "3 Stages", "2 Stages", "1 Stage"}, stages_, [this](int i) {
    SelectOption(w_.screen, w_.screen.OptionStages, i);
    txtboxMainInputDescription->setPlainText(Q(StageHint()));
  });
  precondenser_ = new QCheckBox("Use precondenser (< 3 stages)");
  lrvp_ = new QCheckBox("Use LRVP for last stage");
  options->addWidget(precondenser_);
  options->addWidget(lrvp_);
  connect(precondenser_, &QCheckBox::clicked, this, Trapped(w_.ui, [this](bool on) {
    w_.screen.chkboxPreCondenser = on ? 1 : 0;
    w_.screen.CASEDIRTY = 1;
  }));
  connect(lrvp_, &QCheckBox::clicked, this, Trapped(w_.ui, [this](bool on) {
    w_.screen.chkboxLRVP = on ? 1 : 0;
    w_.screen.CASEDIRTY = 1;
  }));
  group("Power", {"60 Cycles", "50 Cycles"}, cycles_, [this](int i) { SelectOption(w_.screen, w_.screen.OptionCycles, i); });
  group("Optimize", {"Minimize Utility Costs", "Minimize Capital Costs"}, optimize_,
        [this](int i) { SelectOption(w_.screen, w_.screen.OptionOptimize, i); });
  options->addStretch();
  main_layout->addLayout(options, 1);
  SSTabInput->addTab(main, "Main Input");

  // Condensible loads with the vapor grid.
  auto* cond = new QWidget;
  auto* cond_layout = new QHBoxLayout(cond);
  auto* loads = new QGridLayout;
  loads->addWidget(new QLabel("<b>Vapor ID</b>"), 0, 0);
  loads->addWidget(new QLabel("<b>lbs/hr</b>"), 0, 1);
  loads->addWidget(new QLabel("<b>kg/hr</b>"), 0, 2);
  for (int i = 0; i < 10; ++i) {
    auto* id = new QLineEdit;
    id->setMaximumWidth(90);
    boxes_[{-2, i}] = id;
    watcher_.Watch(id, [this, i] { focused_load_row_ = i; },
                   [this, id, i] {
                     w_.screen.txtCID[static_cast<size_t>(i)] = S(id->text());
                     w_.screen.CASEDIRTY = 1;
                   });
    if (i == 0) id->setReadOnly(true);
    loads->addWidget(id, i + 1, 0);
    loads->addWidget(make_box({BoxGroup::kCpph, i}), i + 1, 1);
    loads->addWidget(make_box({BoxGroup::kCpphA, i}), i + 1, 2);
  }
  loads->setRowStretch(11, 1);
  cond_layout->addLayout(loads);
  auto* grid_side = new QVBoxLayout;
  vaporSearch = new QLineEdit;
  vaporSearch->setPlaceholderText("Search the vapors by name or formula");
  grid_side->addWidget(vaporSearch);
  vaporGrid = new QTableWidget(0, 3);
  vaporGrid->setHorizontalHeaderLabels({"ID", "Name", "MW"});
  vaporGrid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  vaporGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  vaporGrid->setSelectionBehavior(QAbstractItemView::SelectRows);
  vaporGrid->verticalHeader()->hide();
  grid_side->addWidget(vaporGrid);
  grid_side->addWidget(new QLabel("Click a vapor to put its ID in the load row last used."));
  cond_layout->addLayout(grid_side, 1);
  connect(vaporSearch, &QLineEdit::textChanged, this, Trapped(w_.ui, [this] { FillVaporGrid(); }));
  connect(vaporGrid, &QTableWidget::cellClicked, this, Trapped(w_.ui, [this](int row, int) {
    const int load = focused_load_row_ < 1 ? 1 : focused_load_row_;
    w_.screen.txtCID[static_cast<size_t>(load)] = S(vaporGrid->item(row, 0)->text());
    w_.screen.CASEDIRTY = 1;
    Refresh();
  }));
  SSTabInput->addTab(cond, "Condensible Loads");

  auto* nc = new QWidget;
  auto* nc_layout = new QGridLayout(nc);
  nc_layout->addWidget(new QLabel("<b>lbs/hr</b>"), 0, 0);
  nc_layout->addWidget(new QLabel("<b>kg/hr</b>"), 0, 1);
  nc_layout->addWidget(new QLabel("<b>Mol. weight</b>"), 0, 2);
  for (int i = 0; i < 10; ++i) {
    nc_layout->addWidget(make_box({BoxGroup::kNCpph, i}), i + 1, 0);
    nc_layout->addWidget(make_box({BoxGroup::kNCpphA, i}), i + 1, 1);
    nc_layout->addWidget(make_box({BoxGroup::kNCMW, i}), i + 1, 2);
  }
  nc_layout->setColumnStretch(3, 1);
  nc_layout->setRowStretch(11, 1);
  SSTabInput->addTab(nc, "Non-Condensible Loads");

  auto list_row = [this](QFormLayout* form, ListBox box, const char* caption) {
    auto* combo = new QComboBox;
    combo->setMaximumWidth(340);
    for (auto entry : ListBoxDefinition(box).entries) combo->addItem(Q(entry));
    lists_[static_cast<size_t>(box)] = combo;
    connect(combo, &QComboBox::activated, this, Trapped(w_.ui, [this, box](int index) {
      w_.screen.lists[static_cast<size_t>(box)] = static_cast<int16_t>(index);
      w_.screen.CASEDIRTY = 1;
    }));
    form->addRow(caption, combo);
  };
  auto* cnd = new QWidget;
  auto* cnd_layout = new QFormLayout(cnd);
  for (int i = 0; i < 4; ++i) {
    auto* pair = new QHBoxLayout;
    pair->addWidget(make_box({BoxGroup::kDesign, i}));
    pair->addWidget(make_box({BoxGroup::kDesignA, i}));
    pair->addStretch();
    cnd_layout->addRow(kDesignCaptions[i], pair);
  }
  list_row(cnd_layout, kTubeMaterial, "Tubes");
  list_row(cnd_layout, kTubeSheetMaterial, "Tube sheets");
  list_row(cnd_layout, kProcessSideMaterial, "Process side");
  list_row(cnd_layout, kWaterSideMaterial, "Water side");
  list_row(cnd_layout, kInletHead, "Inlet head");
  list_row(cnd_layout, kReturnHead, "Return head");
  list_row(cnd_layout, kCNDCode, "Condenser code");
  SSTabInput->addTab(cnd, "Condenser Parameters");

  auto* ej = new QWidget;
  auto* ej_layout = new QFormLayout(ej);
  list_row(ej_layout, kSuctionChamberMaterial, "Suction chamber");
  list_row(ej_layout, kSteamNozzleMaterial, "Steam nozzle");
  list_row(ej_layout, kSteamChestMaterial, "Steam chest");
  list_row(ej_layout, kNozzlePlateMaterial, "Nozzle plate");
  list_row(ej_layout, kLRVPMaterial, "Liquid ring pump");
  list_row(ej_layout, kJetCode, "Ejector code");
  SSTabInput->addTab(ej, "Ejector Parameters");
}

QString frmJetInput::Caption() const {
  if (w_.screen.CASENAME.empty()) return "Kestrane-System Design";
  return Q(InputCaption(w_.screen.CASENAME));
}

void frmJetInput::Activate() {
  if (vaporGrid->rowCount() == 0) FillVaporGrid();
  Refresh();
}

void frmJetInput::FillVaporGrid() {
  const VaporData& v = w_.session.data.vapors;
  const QString search = vaporSearch->text().trimmed();
  vaporGrid->setRowCount(0);
  for (int id = 1; id <= v.NPSAT; ++id) {
    const QString name = Q(Trim(v.PSATNAME(id)));
    if (!search.isEmpty() && !name.contains(search, Qt::CaseInsensitive)) continue;
    const int row = vaporGrid->rowCount();
    vaporGrid->insertRow(row);
    vaporGrid->setItem(row, 0, new QTableWidgetItem(QString::number(id)));
    vaporGrid->setItem(row, 1, new QTableWidgetItem(name));
    vaporGrid->setItem(row, 2, new QTableWidgetItem(Q(Trim(GeneralText(v.PSATDATA(id, 1))))));
  }
}

void frmJetInput::Refresh() {
  InputScreen& s = w_.screen;
  for (auto& [key, edit] : boxes_) {
    if (key.first == -2) {
      edit->setText(Q(s.txtCID[static_cast<size_t>(key.second)]));
    } else if (key.first == -3) {
      edit->setText(Q(s.txtHeadingInput[static_cast<size_t>(key.second)]));
    } else {
      edit->setText(Q(s.Box({static_cast<BoxGroup>(key.first), key.second})));
    }
  }
  auto set = [](std::vector<QRadioButton*>& buttons, const auto& group) {
    for (size_t i = 0; i < buttons.size(); ++i) buttons[i]->setChecked(group[i] != 0);
  };
  set(units_, s.OptionUnits);
  set(condenser_, s.OptionCondenserType);
  set(stages_, s.OptionStages);
  set(cycles_, s.OptionCycles);
  set(optimize_, s.OptionOptimize);
  precondenser_->setChecked(s.chkboxPreCondenser != 0);
  lrvp_->setChecked(s.chkboxLRVP != 0);
  for (int b = 0; b < kListBoxCount; ++b) lists_[static_cast<size_t>(b)]->setCurrentIndex(s.lists[static_cast<size_t>(b)]);
  UnitsChanged();
  w_.RefreshTitle();
}

void frmJetInput::UnitsChanged() {
  const bool metric = w_.screen.Metric();
  const auto captions = CostCaptions(metric);
  for (size_t i = 0; i < 3; ++i) cost_captions_[i]->setText(Q(captions[i]));
  for (auto& [key, edit] : boxes_) {
    const auto group = static_cast<BoxGroup>(key.first);
    const bool metric_box = group == BoxGroup::kInputA || group == BoxGroup::kCpphA || group == BoxGroup::kNCpphA ||
                            group == BoxGroup::kDesignA;
    const bool standard_box = group == BoxGroup::kInput || group == BoxGroup::kCpph || group == BoxGroup::kNCpph ||
                              group == BoxGroup::kDesign;
    if (key.first >= 0 && (metric_box || standard_box)) edit->setReadOnly(metric ? standard_box : metric_box);
  }
}

void frmJetInput::Leave(BoxRef box) {
  InputScreen& s = w_.screen;
  QLineEdit* edit = BoxOf(box);
  if (edit->isReadOnly()) return;
  const std::string text = S(edit->text());
  if (text == s.Box(box)) return;
  EditBox(s, box, text);
  if (!ChkTxtInput(s, box, Steam{w_.session.data.steam, w_.ui}, w_.ui)) {
    edit->setText(Q(s.Box(box)));
    return;
  }
  BoxRef pair{};
  if (PairOf(box, pair)) BoxOf(pair)->setText(Q(s.Box(pair)));
  edit->setText(Q(s.Box(box)));
}

bool frmJetInput::CheckToStore() {
  return w_.Resolve(CheckToStoreJetFile(w_.screen, w_.ui), this, FilterJet(),
                    [this](const std::string& path) { return SaveCaseAs(path, w_.screen, w_.ui); });
}

bool frmJetInput::OpenFile(const QString& path) {
  InputScreen read = NewCase();
  const bool ok = OpenCase(S(path), read, w_.ui);
  w_.screen = read;  // what was read stays, as the file reader leaves it
  Refresh();
  return ok;
}

void frmJetInput::DesignSystem() {
  if (running_) return;
  running_ = true;
  setEnabled(false);
  auto* worker = QThread::create([this] {
    // Nothing may leave the thread: a run-time error of the run ends the run and is told on the window's thread.
    DesignOutcome outcome;
    std::string failure;
    try {
      DesignContext ctx{w_.session.design, w_.session.data, w_.screen, w_.session.PINTERFIX, w_.ui};
      outcome = design(ctx, w_.screen);
    } catch (...) {
      failure = CaughtErrorText();
    }
    QMetaObject::invokeMethod(this, Trapped(w_.ui, [this, outcome, failure] { FinishDesign(outcome, failure); }));
  });
  connect(worker, &QThread::finished, worker, &QObject::deleteLater);
  worker->start();
}

void frmJetInput::FinishDesign(const DesignOutcome& outcome, const std::string& failure) {
  running_ = false;
  setEnabled(true);
  lblStatus->clear();
  if (!failure.empty()) {
    w_.ui.notice(failure);
    emit designFinished(false);
    return;
  }
  if (outcome.input_error != 0) {
    emit designFinished(false);
    return;
  }
  const bool shown = Trap(w_.ui, [this, &outcome] {
    static_cast<frmJET0*>(w_.PageOf(Form::frmJET0))->ShowResults(outcome.results, outcome.lblMessage);
    w_.SwapForms(Form::frmJetInput, Form::frmJET0);
  });
  emit designFinished(shown);
}

}  // namespace kestrane::gui
