// The property windows: vapor pressures, steam properties and user defined vapors.
#include <QChart>
#include <QChartView>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineSeries>
#include <QLogValueAxis>
#include <QMessageBox>
#include <QValueAxis>
#include <QVBoxLayout>
#include <cmath>

#include "documents/page_frame.h"
#include "documents/user_vapor_reports.h"
#include "pages.h"
#include "properties/numeric.h"
#include "properties/steam.h"
#include "properties/vb.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QPushButton* ExitTo(MainWindow& w, Form form, QWidget* parent) {
  auto* exit = new QPushButton("E&xit", parent);
  QObject::connect(exit, &QPushButton::clicked, parent,
                   Trapped(w.ui, [&w, form] { w.SwapForms(form, Form::MainForm); }));
  return exit;
}

QTableWidget* Table(const QStringList& heads) {
  auto* t = new QTableWidget(0, static_cast<int>(heads.size()));
  t->setHorizontalHeaderLabels(heads);
  t->setEditTriggers(QAbstractItemView::NoEditTriggers);
  t->setSelectionBehavior(QAbstractItemView::SelectRows);
  t->setSelectionMode(QAbstractItemView::SingleSelection);
  t->verticalHeader()->hide();
  return t;
}

void SetRow(QTableWidget* t, int row, const QStringList& cells) {
  for (int c = 0; c < cells.size(); ++c) t->setItem(row, c, new QTableWidgetItem(cells[c]));
}

// A pressure curve on a logarithmic axis.
void Plot(QChartView* view, const QString& title, const QString& x_title, const std::vector<QPointF>& points) {
  auto* chart = new QChart;
  chart->setTitle(title);
  chart->legend()->hide();
  auto* series = new QLineSeries;
  double low = 0, high = 0;
  for (const QPointF& p : points) {
    if (!(p.y() > 0)) continue;
    series->append(p);
    low = low == 0 ? p.y() : std::min(low, p.y());
    high = std::max(high, p.y());
  }
  chart->addSeries(series);
  auto* x = new QValueAxis;
  x->setTitleText(x_title);
  auto* y = new QLogValueAxis;
  y->setTitleText("Vapor Pressure (mmHgA)");
  y->setBase(10);
  y->setLabelFormat("%g");
  if (low > 0) y->setRange(std::pow(10.0, std::floor(std::log10(low))), std::pow(10.0, std::ceil(std::log10(high))));
  chart->addAxis(x, Qt::AlignBottom);
  chart->addAxis(y, Qt::AlignLeft);
  series->attachAxis(x);
  series->attachAxis(y);
  QChart* old = view->chart();
  view->setChart(chart);
  delete old;
}

float ToF(float t, bool celsius) { return celsius ? t * 1.8f + 32 : t; }
float FromF(float t, bool celsius) { return celsius ? (t - 32) / 1.8f : t; }

}  // namespace

// --- Vapor pressures -----------------------------------------------------------

VaporPressureForm::VaporPressureForm(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  search = new QLineEdit;
  search->setPlaceholderText("Search by name or formula");
  left->addWidget(search);
  vapors = Table({"ID", "Formula", "Name"});
  vapors->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
  left->addWidget(vapors, 1);
  auto* form = new QFormLayout;
  tmin = new QLineEdit("32");
  tmax = new QLineEdit("212");
  step = new QLineEdit("10");
  form->addRow("From", tmin);
  form->addRow("To", tmax);
  form->addRow("Step", step);
  left->addLayout(form);
  auto* units = new QHBoxLayout;
  fahrenheit = new QRadioButton("degF");
  celsius = new QRadioButton("degC");
  fahrenheit->setChecked(true);
  units->addWidget(fahrenheit);
  units->addWidget(celsius);
  units->addStretch();
  left->addLayout(units);
  auto* buttons = new QHBoxLayout;
  auto* calculate = new QPushButton("&Calculate");
  buttons->addWidget(calculate);
  buttons->addStretch();
  buttons->addWidget(ExitTo(w, Form::VaporPressureForm, this));
  left->addLayout(buttons);
  layout->addLayout(left, 2);
  auto* right = new QVBoxLayout;
  table = Table({"Temperature", "Vapor pressure (mmHgA)", "Range"});
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  right->addWidget(table, 1);
  chart = new QChartView;
  chart->setMinimumHeight(260);
  right->addWidget(chart, 1);
  layout->addLayout(right, 3);
  connect(search, &QLineEdit::textChanged, this, Trapped(w_.ui, [this] { Fill(); }));
  connect(calculate, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Calculate(); }));
}

void VaporPressureForm::Activate() {
  if (vapors->rowCount() == 0) Fill();
}

void VaporPressureForm::Fill() {
  const VaporData& v = w_.session.data.vapors;
  const UserVapors& u = w_.session.data.user_vapors;
  const QString text = search->text().trimmed();
  vapors->setRowCount(0);
  auto add = [&](int id, const QString& formula, const QString& name) {
    if (!text.isEmpty() && !name.contains(text, Qt::CaseInsensitive) && !formula.contains(text, Qt::CaseInsensitive)) return;
    const int row = vapors->rowCount();
    vapors->insertRow(row);
    SetRow(vapors, row, {QString::number(id), formula, name});
  };
  for (int i = 1; i <= u.NUDV; ++i) add(-i, "(user)", Q(Trim(u.UDVNAME(i))));
  for (int id = 1; id <= v.NPSAT; ++id) add(id, Q(Trim(v.PSATFORMULA(id))), Q(Trim(v.PSATNAME(id))));
}

void VaporPressureForm::Calculate() {
  const int row = vapors->currentRow();
  if (row < 0) {
    w_.ui.notice("Choose a vapor in the list first.");
    return;
  }
  const auto id = static_cast<int16_t>(vapors->item(row, 0)->text().toInt());
  const bool c = celsius->isChecked();
  const float from = static_cast<float>(Val(S(tmin->text()))), to = static_cast<float>(Val(S(tmax->text())));
  const float by = static_cast<float>(Val(S(step->text()))) * (c ? 1.8f : 1.0f);
  if (!VaporTableRange(ToF(from, c), ToF(to, c), by)) {
    w_.ui.notice("The table runs from the first temperature up to the last in steps above 0, at most 10000 rows.");
    return;
  }
  std::vector<VaporTableRow> rows;
  const Vapors vap{w_.session.data.vapors, w_.session.data.user_vapors, w_.ui};
  VaporPressureTable(vap, id, ToF(from, c), ToF(to, c), by, rows);  // a vapor that cannot be evaluated says so
  table->setRowCount(static_cast<int>(rows.size()));
  table->setHorizontalHeaderItem(0, new QTableWidgetItem(c ? "Temperature (degC)" : "Temperature (degF)"));
  std::vector<QPointF> points;
  for (size_t i = 0; i < rows.size(); ++i) {
    const float t = FromF(rows[i].t, c);
    SetRow(table, static_cast<int>(i),
           {Q(Trim(FormatFixed(t, 10.2f))), Q(Trim(GeneralText(rows[i].pressure))), QString(rows[i].flag ? "outside data" : "")});
    if (rows[i].flag) {
      for (int col = 0; col < 3; ++col) table->item(static_cast<int>(i), col)->setForeground(QColor(180, 0, 0));
    }
    points.emplace_back(t, rows[i].pressure);
  }
  Plot(chart, vapors->item(row, 2)->text(), c ? "Temperature (degC)" : "Temperature (degF)", points);
}

// --- Steam properties -----------------------------------------------------------

frmMollier::frmMollier(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  mode = new QComboBox;
  mode->addItems({"Pressure and temperature (0 = saturated)", "Pressure and enthalpy (Btu/lb)",
                  "Pressure and entropy (Btu/lb-F)", "Saturation pressure at a temperature (degF)"});
  unit = new QComboBox;
  unit->addItems({"microns Hg", "mm Hg", "in Hg abs", "psig", "psia", "in Hg vacuum", "bar gauge"});
  unit->setCurrentIndex(1);
  pressure = new QLineEdit("760");
  value = new QLineEdit("0");
  form->addRow("State from", mode);
  form->addRow("Pressure", pressure);
  form->addRow("Pressure unit", unit);
  form->addRow("Temperature, enthalpy or entropy", value);
  layout->addLayout(form);
  state = Table({"Property", "Value"});
  state->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  layout->addWidget(state, 1);
  auto* buttons = new QHBoxLayout;
  auto* calculate = new QPushButton("&Calculate");
  buttons->addWidget(calculate);
  buttons->addStretch();
  buttons->addWidget(ExitTo(w, Form::frmMollier, this));
  layout->addLayout(buttons);
  connect(calculate, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Calculate(); }));
  connect(mode, &QComboBox::currentIndexChanged, this, Trapped(w_.ui, [this](int m) { pressure->setEnabled(m != 3); }));
}

void frmMollier::Calculate() {
  const Steam steam{w_.session.data.steam, w_.ui};
  const auto code = static_cast<int16_t>(unit->currentIndex() + 1);
  const float x = static_cast<float>(Val(S(value->text())));
  int16_t failed = 0;
  QList<QStringList> rows;
  if (mode->currentIndex() == 3) {
    float p = 0;
    SatPress(steam, x, p, failed);
    rows = {{"Saturation pressure (mmHgA)", Q(Trim(GeneralText(p)))},
            {"Saturation pressure (" + unit->currentText() + ")", Q(Trim(GeneralText(PressFromMmHg(p, code))))}};
  } else {
    const float p = PressToMmHg(static_cast<float>(Val(S(pressure->text()))), code);
    float t = 0, h = 0, s = 0, v = 0, moisture = 0;
    switch (mode->currentIndex()) {
      case 0: t = x; SteamFromPT(steam, p, t, h, s, v, moisture, failed); break;
      case 1: h = x; SteamFromPH(steam, p, t, h, s, v, moisture, failed); break;
      default: s = x; SteamFromPS(steam, p, t, h, s, v, moisture, failed); break;
    }
    rows = {{"Pressure (mmHgA)", Q(Trim(GeneralText(p)))},   {"Temperature (degF)", Q(Trim(GeneralText(t)))},
            {"Enthalpy (Btu/lb)", Q(Trim(GeneralText(h)))},  {"Entropy (Btu/lb-F)", Q(Trim(GeneralText(s)))},
            {"Volume (ft3/lb)", Q(Trim(GeneralText(v)))},    {"Moisture (fraction)", Q(Trim(GeneralText(moisture)))}};
  }
  if (failed) rows.append(QStringList{"Note", "outside the steam table: the values are the table's limits"});
  state->setRowCount(static_cast<int>(rows.size()));
  for (int r = 0; r < rows.size(); ++r) SetRow(state, r, rows[r]);
}

// --- User defined vapors --------------------------------------------------------

frmUDV::frmUDV(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QVBoxLayout(this);
  grid = Table({});
  layout->addWidget(grid, 1);
  auto* fields = new QGridLayout;
  static const char* captions[] = {"ID#", "T1", "P1 (mmHgA)", "T2", "P2 (mmHgA)", "T3", "P3 (mmHgA)", "MW", "Name"};
  for (size_t i = 0; i < 9; ++i) {
    TextUDV[i] = new QLineEdit;
    fields->addWidget(new QLabel(captions[i]), 0, static_cast<int>(i));
    fields->addWidget(TextUDV[i], 1, static_cast<int>(i));
  }
  TextUDV[0]->setReadOnly(true);
  fields->setColumnStretch(8, 3);  // the name, up to 20 characters, wider than the numbers
  alcohol = new QCheckBox("Alcohol");
  fields->addWidget(alcohol, 1, 9);
  layout->addLayout(fields);
  auto* buttons = new QHBoxLayout;
  fahrenheit = new QRadioButton("degF");
  celsius = new QRadioButton("degC");
  celsius->setChecked(true);
  buttons->addWidget(fahrenheit);
  buttons->addWidget(celsius);
  add = new QPushButton("&Add Vapor");
  edit = new QPushButton("&Edit Vapor");
  remove = new QPushButton("&Delete Vapor");
  update = new QPushButton("&Update");
  abort = new QPushButton("Abort &Change");
  graph = new QPushButton("&Graph");
  print_current = new QPushButton("&Print Current");
  print_all = new QPushButton("Print A&ll");
  for (auto* b : {add, edit, remove, update, abort, graph, print_current, print_all}) buttons->addWidget(b);
  buttons->addStretch();
  buttons->addWidget(ExitTo(w, Form::frmUDV, this));
  layout->addLayout(buttons);
  chart = new QChartView;
  chart->setMinimumHeight(220);
  layout->addWidget(chart, 1);
  const auto path = [this] { return w_.session.data.paths.UserDataFile(kUserVaporFile); };
  connect(fahrenheit, &QRadioButton::clicked, this, Trapped(w_.ui, [this] { model.fahrenheit = true; Refresh(); }));
  connect(celsius, &QRadioButton::clicked, this, Trapped(w_.ui, [this] { model.fahrenheit = false; Refresh(); }));
  connect(add, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    UdvAdd(model, w_.session.data.user_vapors, w_.ui);
    Refresh();
  }));
  connect(edit, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    UdvEdit(model, w_.session.data.user_vapors, SelectedId(), w_.ui);
    Refresh();
  }));
  connect(remove, &QPushButton::clicked, this, Trapped(w_.ui, [this, path] {
    const int id = SelectedId();
    if (id == 0) return;
    if (!w_.ui.ask("Delete vapor " + std::to_string(id) + "?", "User Defined Vapors")) return;
    UdvDelete(w_.session.data.user_vapors, id, path(), w_.ui);
    Refresh();
  }));
  connect(update, &QPushButton::clicked, this, Trapped(w_.ui, [this, path] {
    Take();
    UdvUpdate(model, w_.session.data.user_vapors, path(), w_.ui);
    Refresh();
  }));
  connect(print_current, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    const int id = SelectedId();
    if (id == 0) return;
    const bool in_f = model.fahrenheit;
    const std::string date = ReportDate(w_.session.Today());
    w_.preview(this, {Caption(), [this, id, in_f, date](PageSink& printer) {
                        const Vapors vapors{w_.session.data.vapors, w_.session.data.user_vapors, w_.ui};
                        PrintUserVapor(printer, vapors, static_cast<int16_t>(-id), in_f, date);
                      }});
  }));
  connect(print_all, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    const std::string date = ReportDate(w_.session.Today());
    w_.preview(this, {Caption(), [this, date](PageSink& printer) {
                        PrintAllUserVapors(printer, w_.session.data.user_vapors, date);
                      }});
  }));
  connect(abort, &QPushButton::clicked, this, Trapped(w_.ui, [this, path] {
    UdvAbortChange(model, w_.session.data.user_vapors, path(), w_.ui);
    Refresh();
  }));
  connect(graph, &QPushButton::clicked, this, Trapped(w_.ui, [this] {
    const int id = SelectedId();
    if (id == 0) return;
    const Vapors vap{w_.session.data.vapors, w_.session.data.user_vapors, w_.ui};
    const UdvCurve curve = UdvGraph(vap, static_cast<int16_t>(-id), model.fahrenheit);
    std::vector<QPointF> points;
    for (const auto& p : curve.points) points.emplace_back(p.temperature, p.pressure);
    Plot(chart, Q(curve.title) + "\n" + Q(curve.subtitle), Q(curve.x_axis), points);
  }));
}

int frmUDV::SelectedId() const {
  const int row = grid->currentRow();
  return row < 0 ? 0 : grid->item(row, 0)->text().toInt();
}

void frmUDV::Take() {
  for (size_t i = 0; i < 9; ++i) model.TextUDV[i] = S(TextUDV[i]->text());
  model.alcohol = alcohol->isChecked();
}

void frmUDV::Refresh() {
  const auto heads = UdvGridHeads(model.fahrenheit);
  QStringList labels;
  for (const auto& h : heads) labels << Q(h);
  grid->setColumnCount(static_cast<int>(heads.size()));
  grid->setHorizontalHeaderLabels(labels);
  const auto rows = UdvGridRows(w_.session.data.user_vapors, model.fahrenheit);
  grid->setRowCount(static_cast<int>(rows.size()));
  for (size_t r = 0; r < rows.size(); ++r) {
    QStringList cells;
    for (const auto& c : rows[r]) cells << Q(c);
    SetRow(grid, static_cast<int>(r), cells);
  }
  grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  const bool editing = model.mode == UdvScreen::Mode::kEdit;
  for (size_t i = 0; i < 9; ++i) TextUDV[i]->setText(Q(model.TextUDV[i]));
  for (size_t i = 1; i < 9; ++i) TextUDV[i]->setEnabled(editing);
  alcohol->setChecked(model.alcohol);
  alcohol->setEnabled(editing);
  for (auto* b : {add, edit, remove, graph, print_current, print_all}) b->setEnabled(!editing);
  for (auto* b : {update, abort}) b->setEnabled(editing);
  grid->setEnabled(!editing);
}

}  // namespace kestrane::gui
