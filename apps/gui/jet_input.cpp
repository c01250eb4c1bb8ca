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
#include "properties/vapor_search.h"
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

// Widths (pixels) below which a box would cut its text: a value of FormatFixed 12.4, a vapor ID.
constexpr int kValueBoxWidth = 100;
constexpr int kIdBoxWidth = 60;

// A vapor list to pick from: whole rows selected, `stretch` the column that takes the width.
QTableWidget* VaporTable(const QStringList& heads, int stretch) {
  auto* grid = new QTableWidget(0, static_cast<int>(heads.size()));
  grid->setHorizontalHeaderLabels(heads);
  grid->horizontalHeader()->setSectionResizeMode(stretch, QHeaderView::Stretch);
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid->setSelectionMode(QAbstractItemView::SingleSelection);
  grid->verticalHeader()->hide();
  return grid;
}

QTableWidget* CurrentVaporGrid(QTabWidget* lists) { return static_cast<QTableWidget*>(lists->currentWidget()); }

// Fills a vapor list: the ID, the text columns and the molecular weight of each row.
void FillVaporTable(QTableWidget* grid, const std::vector<int>& ids, const std::vector<std::vector<std::string>>& text,
                    const std::vector<float>& mw) {
  grid->setRowCount(static_cast<int>(ids.size()));
  for (size_t r = 0; r < ids.size(); ++r) {
    const int row = static_cast<int>(r);
    grid->setItem(row, 0, new QTableWidgetItem(QString::number(ids[r])));
    for (size_t c = 0; c < text[r].size(); ++c) grid->setItem(row, static_cast<int>(c) + 1, new QTableWidgetItem(Q(text[r][c])));
    grid->setItem(row, static_cast<int>(text[r].size()) + 1, new QTableWidgetItem(Q(Trim(GeneralText(mw[r])))));
  }
}

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
  QMenu* settings = bar->addMenu("&Options");
  QAction* thorough = settings->addAction("&Thorough Interstage Search");
  thorough->setObjectName("mnuThoroughSearch");
  thorough->setCheckable(true);
  thorough->setToolTip("Search every interstage pressure over its whole range; the original search's design is kept "
                       "when it needs less steam");
  thorough->setChecked(w_.search == InterstageSearch::kThorough);
  connect(thorough, &QAction::toggled, this, [this](bool on) {
    w_.SetSearch(on ? InterstageSearch::kThorough : InterstageSearch::kOriginal);
  });

  SSTabInput = new QTabWidget;
  outer->addWidget(SSTabInput, 1);
  txtboxMainInputDescription = new HintBox;
  outer->addWidget(txtboxMainInputDescription);
  lblStatus = new QLabel;
  outer->addWidget(lblStatus);
  connect(&w_.ui, &QtUi::statusChanged, this, Trapped(w_.ui, [this](const QString& text) {
    if (running_) lblStatus->setText(text);
  }));

  auto make_box = [this](BoxRef box) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(kValueBoxWidth);  // a narrow window scrolls rather than cutting the values short
    edit->setMaximumWidth(130);
    boxes_[{static_cast<int>(box.group), box.index}] = edit;
    watcher_.Watch(
        edit,
        [this, box] {
          txtboxMainInputDescription->setPlainText(Q(InputHint(box)));
          if (box.group == BoxGroup::kCID || box.group == BoxGroup::kCpph || box.group == BoxGroup::kCpphA) {
            focused_load_row_ = box.index;
          }
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
    edit->setMinimumWidth(2 * kValueBoxWidth);
    edit->setMaximumWidth(600);
    boxes_[{-3, i}] = edit;
    watcher_.Watch(edit, {}, [this, edit, i] {
      auto& heading = w_.screen.txtHeadingInput[static_cast<size_t>(i)];
      if (heading != S(edit->text())) w_.screen.CASEDIRTY = 1;
      heading = S(edit->text());
    });
    values->addWidget(edit, i, 1, 1, 3);
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
  // The options in two columns, so that the tab is no taller than its column of values.
  std::array<QVBoxLayout*, 2> options{new QVBoxLayout, new QVBoxLayout};
  auto group = [&](int column, const char* title, std::vector<const char*> captions, std::vector<QRadioButton*>& buttons,
                   std::function<void(int)> chosen) {
    auto* box = new QGroupBox(title);
    auto* l = new QVBoxLayout(box);
    for (size_t i = 0; i < captions.size(); ++i) {
      auto* b = new QRadioButton(captions[i]);  // "&&" shows one "&"
      buttons.push_back(b);
      l->addWidget(b);
      connect(b, &QRadioButton::clicked, this, Trapped(w_.ui, [chosen, i] { chosen(static_cast<int>(i)); }));
    }
    options[static_cast<size_t>(column)]->addWidget(box);
  };
  group(0, "Units", {"Standard Units", "Metric Units"}, units_, [this](int i) {
    SelectOption(w_.screen, w_.screen.OptionUnits, i);
    UnitsChanged();
  });
  group(0, "Condensers",
        {"Shell && Tube (SS condensing)", "Shell && Tube (TS condensing)", "Direct Contact", "No Condensers"},
        condenser_, [this](int i) { SelectOption(w_.screen, w_.screen.OptionCondenserType, i); });
  group(1, "Stages", {"Automatic", "4 Stages", "3 Stages", "2 Stages", "1 Stage"}, stages_, [this](int i) {
    SelectOption(w_.screen, w_.screen.OptionStages, i);
    txtboxMainInputDescription->setPlainText(Q(StageHint()));
  });
  precondenser_ = new QCheckBox("Use precondenser (< 3 stages)");
  lrvp_ = new QCheckBox("Use LRVP for last stage");
  options[1]->addWidget(precondenser_);
  options[1]->addWidget(lrvp_);
  connect(precondenser_, &QCheckBox::clicked, this, Trapped(w_.ui, [this](bool on) {
    w_.screen.chkboxPreCondenser = on ? 1 : 0;
    w_.screen.CASEDIRTY = 1;
  }));
  connect(lrvp_, &QCheckBox::clicked, this, Trapped(w_.ui, [this](bool on) {
    w_.screen.chkboxLRVP = on ? 1 : 0;
    w_.screen.CASEDIRTY = 1;
  }));
  group(0, "Power", {"60 Cycles", "50 Cycles"}, cycles_, [this](int i) { SelectOption(w_.screen, w_.screen.OptionCycles, i); });
  group(1, "Optimize", {"Minimize Utility Costs", "Minimize Capital Costs"}, optimize_,
        [this](int i) { SelectOption(w_.screen, w_.screen.OptionOptimize, i); });
  for (QVBoxLayout* column : options) {
    column->addStretch();
    main_layout->addLayout(column, 1);
  }
  SSTabInput->addTab(Scrolled(main), "Main Input");

  // Condensible loads with the vapor grids.
  auto* cond = new QWidget;
  auto* cond_layout = new QHBoxLayout(cond);
  auto* loads = new QGridLayout;
  loads->addWidget(new QLabel("<b>Vapor ID</b>"), 0, 0);
  loads->addWidget(new QLabel("<b>Vapor</b>"), 0, 1);
  loads->addWidget(new QLabel("<b>lbs/hr</b>"), 0, 2);
  loads->addWidget(new QLabel("<b>kg/hr</b>"), 0, 3);
  for (int i = 0; i < 10; ++i) {
    QLineEdit* id = make_box({BoxGroup::kCID, i});
    id->setMinimumWidth(kIdBoxWidth);
    id->setMaximumWidth(90);
    if (i == 0) id->setReadOnly(true);
    auto* name = new QLabel;
    name->setWordWrap(true);
    name->setMinimumWidth(170);
    name->setMaximumWidth(260);
    vaporNames[static_cast<size_t>(i)] = name;
    connect(id, &QLineEdit::textChanged, this, Trapped(w_.ui, [this, i] { ShowVaporName(i); }));
    loads->addWidget(id, i + 1, 0);
    loads->addWidget(name, i + 1, 1);
    loads->addWidget(make_box({BoxGroup::kCpph, i}), i + 1, 2);
    loads->addWidget(make_box({BoxGroup::kCpphA, i}), i + 1, 3);
  }
  loads->setRowStretch(11, 1);
  cond_layout->addLayout(loads);
  auto* grid_side = new QVBoxLayout;
  auto* search_row = new QHBoxLayout;
  vaporSearch = new QLineEdit;
  vaporSearch->setPlaceholderText("Search the vapors by name or formula");
  findPrevious = new QPushButton("Find &Previous");
  findNext = new QPushButton("Find &Next");
  search_row->addWidget(vaporSearch, 1);
  search_row->addWidget(findPrevious);
  search_row->addWidget(findNext);
  grid_side->addLayout(search_row);
  vaporSearchReport = new QLabel;
  grid_side->addWidget(vaporSearchReport);
  vaporLists = new QTabWidget;
  vaporGrid = VaporTable({"ID", "Formula", "Name", "MW"}, 2);
  userVaporGrid = VaporTable({"ID", "Name", "MW"}, 1);
  vaporLists->addTab(vaporGrid, "Data Base");
  vaporLists->addTab(userVaporGrid, "User Defined");
  grid_side->addWidget(vaporLists, 1);
  grid_side->addWidget(new QLabel("Click a vapor to put its ID in the load row last used."));
  cond_layout->addLayout(grid_side, 1);
  // Typing searches from the top; Enter and Find Next go on below the selected row, Find Previous above it.
  connect(vaporSearch, &QLineEdit::textEdited, this, Trapped(w_.ui, [this] {
    CurrentVaporGrid(vaporLists)->setCurrentCell(-1, -1);
    SearchVapors(true);
  }));
  connect(vaporSearch, &QLineEdit::returnPressed, this, Trapped(w_.ui, [this] { SearchVapors(true); }));
  connect(findNext, &QPushButton::clicked, this, Trapped(w_.ui, [this] { SearchVapors(true); }));
  connect(findPrevious, &QPushButton::clicked, this, Trapped(w_.ui, [this] { SearchVapors(false); }));
  connect(vaporLists, &QTabWidget::currentChanged, this, Trapped(w_.ui, [this] { vaporSearchReport->clear(); }));
  for (QTableWidget* grid : {vaporGrid, userVaporGrid}) {
    connect(grid, &QTableWidget::cellClicked, this, Trapped(w_.ui, [this, grid](int row, int) {
      const int load = focused_load_row_ < 1 ? 1 : focused_load_row_;
      EditVaporId(w_.screen, load, S(grid->item(row, 0)->text()));
      BoxOf({BoxGroup::kCID, load})->setText(Q(w_.screen.txtCID[static_cast<size_t>(load)]));
      ShowRefused(false);
    }));
  }
  SSTabInput->addTab(Scrolled(cond), "Condensible Loads");

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
  SSTabInput->addTab(Scrolled(nc), "Non-Condensible Loads");

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
  SSTabInput->addTab(Scrolled(cnd), "Condenser Parameters");

  auto* ej = new QWidget;
  auto* ej_layout = new QFormLayout(ej);
  list_row(ej_layout, kSuctionChamberMaterial, "Suction chamber");
  list_row(ej_layout, kSteamNozzleMaterial, "Steam nozzle");
  list_row(ej_layout, kSteamChestMaterial, "Steam chest");
  list_row(ej_layout, kNozzlePlateMaterial, "Nozzle plate");
  list_row(ej_layout, kLRVPMaterial, "Liquid ring pump");
  list_row(ej_layout, kJetCode, "Ejector code");
  SSTabInput->addTab(Scrolled(ej), "Ejector Parameters");
}

QString frmJetInput::Caption() const {
  if (w_.screen.CASENAME.empty()) return "Kestrane-System Design";
  return Q(InputCaption(w_.screen.CASENAME));
}

void frmJetInput::Activate() {
  FillVaporGrids();  // the user defined vapors may have changed since
  Refresh();
}

void frmJetInput::FillVaporGrids() {
  const VaporData& v = w_.session.data.vapors;
  if (vaporGrid->rowCount() != v.NPSAT) {
    std::vector<int> ids;
    std::vector<float> mw;
    for (int id = 1; id <= v.NPSAT; ++id) {
      ids.push_back(id);
      mw.push_back(v.PSATDATA(id, 1));
    }
    FillVaporTable(vaporGrid, ids, VaporGridText(v), mw);
  }
  const UserVapors& u = w_.session.data.user_vapors;
  std::vector<int> ids;
  std::vector<float> mw;
  for (int i = 1; i <= u.NUDV; ++i) {
    ids.push_back(-i);
    mw.push_back(u.UDVDATA(i, 8));
  }
  FillVaporTable(userVaporGrid, ids, UserVaporGridText(u), mw);
}

void frmJetInput::SearchVapors(bool forward) {
  QTableWidget* grid = CurrentVaporGrid(vaporLists);
  const auto rows = grid == vaporGrid ? VaporGridText(w_.session.data.vapors) : UserVaporGridText(w_.session.data.user_vapors);
  const VaporSearchResult found = SearchVaporRows(rows, S(vaporSearch->text()), grid->currentRow() + 1, forward);
  vaporSearchReport->setText(Q(found.message));
  if (found.row == 0) return;
  grid->setCurrentCell(found.row - 1, 0);
  grid->scrollToItem(grid->item(found.row - 1, 0), QAbstractItemView::PositionAtCenter);
}

void frmJetInput::ShowVaporName(int row) {
  const std::string id = S(BoxOf({BoxGroup::kCID, row})->text());
  vaporNames[static_cast<size_t>(row)]->setText(
      Q(VaporIdCaption(w_.session.data.vapors, w_.session.data.user_vapors, row, id)));
}

void frmJetInput::ShowRefused(bool reveal) {
  int first_tab = -1;
  bool on_current_tab = false;
  for (auto& [key, edit] : boxes_) {
    if (key.first < 0) continue;  // the headings are never refused
    const std::string notices = RefusalOf(w_.screen, {static_cast<BoxGroup>(key.first), key.second});
    ShowRefusal(edit, notices);
    if (notices.empty() || edit->isReadOnly()) continue;
    for (int t = 0; t < SSTabInput->count(); ++t) {
      if (!SSTabInput->widget(t)->isAncestorOf(edit)) continue;
      if (first_tab < 0 || t < first_tab) first_tab = t;
      on_current_tab = on_current_tab || t == SSTabInput->currentIndex();
    }
  }
  if (reveal && first_tab >= 0 && !on_current_tab) SSTabInput->setCurrentIndex(first_tab);
}

void frmJetInput::Refresh() {
  InputScreen& s = w_.screen;
  for (auto& [key, edit] : boxes_) {
    if (key.first == -3) {
      edit->setText(Q(s.txtHeadingInput[static_cast<size_t>(key.second)]));
      edit->setCursorPosition(0);  // a long heading shows its beginning
    } else {
      edit->setText(Q(s.Box({static_cast<BoxGroup>(key.first), key.second})));
    }
  }
  for (int row = 0; row < 10; ++row) ShowVaporName(row);  // the user defined vapors may have changed
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
  ShowRefused(false);
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
  if (box.group == BoxGroup::kCID) {
    EditVaporId(s, box.index, text);  // no check on leaving: the input check reads the ID
    ShowRefused(false);
    return;
  }
  if (text == s.Box(box)) return;
  EditBox(s, box, text);
  if (!ChkTxtInput(s, box, Steam{w_.session.data.steam, w_.ui}, w_.ui)) {
    edit->setText(Q(s.Box(box)));
    ShowRefused(false);
    return;
  }
  BoxRef pair{};
  if (PairOf(box, pair)) BoxOf(pair)->setText(Q(s.Box(pair)));
  edit->setText(Q(s.Box(box)));
  ShowRefused(false);
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
      DesignContext ctx = w_.Context();
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
  ShowRefused(true);
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
    static_cast<frmJET0*>(w_.PageOf(Form::frmJET0))->ShowResults(outcome.results, outcome.lblMessage, outcome.advisories);
    w_.SwapForms(Form::frmJetInput, Form::frmJET0);
  });
  emit designFinished(shown);
}

}  // namespace kestrane::gui
