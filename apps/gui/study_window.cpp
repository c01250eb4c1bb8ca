// The study window: ranges of one or two inputs, the study on worker threads with progress and Cancel, the chart and its exports.
#include "study_window.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QSvgGenerator>
#include <QVBoxLayout>
#include <QtCharts/QLineSeries>
#include <QtCharts/QLogValueAxis>
#include <QtCharts/QValueAxis>
#include <algorithm>
#include <cmath>

#include "properties/vb.h"
#include "properties/vb_file.h"
#include "trap.h"
#include "widgets.h"

namespace kestrane::gui {

namespace {

// A first range for an input: its choices, or about its value on the screen.
void SuggestRange(StudyRangeFields& f, const InputScreen& screen) {
  const std::string name = S(f.name->currentData().toString());
  const auto set = [&](float from, float to, int points, bool log) {
    f.from->setText(Q(GeneralText(from)));
    f.to->setText(Q(GeneralText(to)));
    f.points->setValue(points);
    f.log->setChecked(log);
  };
  if (name == "NSTAGES") return set(1, 4, 4, false);
  if (name == "CONDENSER") return set(0, 3, 4, false);
  if (name == "PRECOND" || name == "LRVP") return set(0, 1, 2, false);
  const float value = StudyInputValue(screen, name);
  if (name == "PSUCT") return set(value > 0 ? value / 2 : 1, value > 0 ? value * 2 : 100, 6, true);
  if (value > 0) return set(value * 0.8f, value * 1.2f, 5, false);
  set(0, 10, 5, false);
}

// Whether a point was designed as asked: a stage count asked (not automatic) that the input check replaced
// by its own choice leaves the point off the chart's line of that count; the table keeps it.
bool AsAsked(const std::vector<StudyVariable>& variables, const StudyPoint& p) {
  for (size_t v = 0; v < variables.size(); ++v) {
    if (variables[v].name == "NSTAGES" && p.values[v] != 0 && p.NSTAGES != p.values[v]) return false;
  }
  return true;
}

StudyRangeFields RangeFields(QGridLayout* grid, int row, const QString& caption) {
  StudyRangeFields f{new QComboBox, new QLineEdit, new QLineEdit, new QSpinBox, new QCheckBox("log")};
  for (const StudyInputName& n : StudyInputNames()) {
    f.name->addItem(Q(n.name + "  " + n.meaning + (n.unit.empty() ? "" : " (" + n.unit + ")")), Q(n.name));
  }
  f.points->setRange(1, 10000);
  grid->addWidget(new QLabel(caption), row, 0);
  grid->addWidget(f.name, row, 1);
  grid->addWidget(new QLabel("from"), row, 2);
  grid->addWidget(f.from, row, 3);
  grid->addWidget(new QLabel("to"), row, 4);
  grid->addWidget(f.to, row, 5);
  grid->addWidget(new QLabel("points"), row, 6);
  grid->addWidget(f.points, row, 7);
  grid->addWidget(f.log, row, 8);
  return f;
}

}  // namespace

StudyWindow::StudyWindow(MainWindow& window, QWidget* parent)
    : QDialog(parent), w_(window), base_(window.screen), pinterfix_(window.session.PINTERFIX) {
  setWindowTitle("Kestrane-Design Study" + (base_.CASENAME.empty() ? QString() : "   " + Q(base_.CASENAME)));
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  ranges[0] = RangeFields(grid, 0, "Vary");
  second = new QCheckBox("and");
  ranges[1] = RangeFields(grid, 1, "");
  grid->addWidget(second, 1, 0);
  layout->addLayout(grid);
  ranges[1].name->setCurrentIndex(ranges[1].name->findData("NSTAGES"));
  for (StudyRangeFields& f : ranges) {
    SuggestRange(f, base_);
    connect(f.name, &QComboBox::currentIndexChanged, this, [this, &f] { SuggestRange(f, base_); });
  }
  const auto enable_second = [this] {
    const bool on = second->isChecked();
    for (QWidget* widget : std::initializer_list<QWidget*>{ranges[1].name, ranges[1].from, ranges[1].to, ranges[1].points,
                                                          ranges[1].log}) {
      widget->setEnabled(on);
    }
  };
  connect(second, &QCheckBox::toggled, this, enable_second);
  enable_second();

  auto* controls = new QHBoxLayout;
  controls->addWidget(new QLabel("Chart"));
  output = new QComboBox;
  for (const StudyOutput& o : StudyOutputs()) output->addItem(Q(o.name + (o.unit.empty() ? "" : " (" + o.unit + ")")));
  output->setCurrentIndex(4);  // steam per pound of load
  controls->addWidget(output, 1);
  cmdRun = new QPushButton("&Run");
  cmdCancel = new QPushButton("&Cancel");
  cmdExportChart = new QPushButton("Export C&hart...");
  cmdExportTable = new QPushButton("Export &Table...");
  for (QPushButton* b : {cmdRun, cmdCancel, cmdExportChart, cmdExportTable}) controls->addWidget(b);
  layout->addLayout(controls);
  progress = new QProgressBar;
  layout->addWidget(progress);
  summary = new QLabel;
  layout->addWidget(summary);
  chart = new QChartView;
  chart->setRenderHint(QPainter::Antialiasing);
  chart->setMinimumSize(560, 320);
  layout->addWidget(chart, 1);
  cmdCancel->setEnabled(false);
  cmdExportChart->setEnabled(false);
  cmdExportTable->setEnabled(false);

  save_path = [this](const QString& filter, const QString& suggested) {
    return QFileDialog::getSaveFileName(this, "Export", suggested, filter);
  };
  const std::string stem = base_.CASENAME.empty() ? "STUDY" : std::filesystem::path(base_.CASENAME).stem().string();
  connect(cmdRun, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Run(); }));
  connect(cmdCancel, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Cancel(); }));
  connect(output, &QComboBox::currentIndexChanged, this, Trapped(w_.ui, [this] { Chart(); }));
  connect(cmdExportChart, &QPushButton::clicked, this, Trapped(w_.ui, [this, stem] {
    const QString path = save_path("Pictures (*.png *.svg)", Q(stem) + "-study.png");
    if (!path.isEmpty() && !ExportChart(path)) w_.ui.notice("The chart could not be written to " + S(path) + ".");
  }));
  connect(cmdExportTable, &QPushButton::clicked, this, Trapped(w_.ui, [this, stem] {
    const QString path = save_path("CSV (*.csv)", Q(stem) + "-study.csv");
    if (!path.isEmpty() && !ExportTable(path)) w_.ui.notice("The table could not be written to " + S(path) + ".");
  }));
  poll_.setInterval(100);
  connect(&poll_, &QTimer::timeout, this, [this] {
    progress->setValue(static_cast<int>(done_.load()));
    if (finished_) Finished();
  });
}

StudyWindow::~StudyWindow() {
  cancel_ = true;
  if (worker_.joinable()) worker_.join();
}

bool StudyWindow::Run() {
  if (running()) return false;
  std::vector<StudyVariable> variables;
  for (size_t i = 0; i < (second->isChecked() ? 2u : 1u); ++i) {
    const StudyRangeFields& f = ranges[i];
    const std::string name = S(f.name->currentData().toString());
    const std::string spec = Trim(S(f.from->text())) + ":" + Trim(S(f.to->text())) + ":" +
                             std::to_string(f.points->value()) + (f.log->isChecked() ? ":log" : "");
    try {
      variables.push_back({name, ParseStudyValues(spec)});
    } catch (const std::invalid_argument& e) {
      w_.ui.notice("The range of " + name + " is not a range: " + e.what() + ".");
      return false;
    }
  }
  if (variables.size() == 2 && variables[0].name == variables[1].name) {
    w_.ui.notice("The two inputs are the same input.");
    return false;
  }
  variables_ = variables;
  log_x_ = ranges[0].log->isChecked();
  search_ = w_.search;  // the program's setting, as the designs of the input window use it
  total_ = StudyGrid(variables_).size();
  progress->setRange(0, static_cast<int>(total_));
  progress->setValue(0);
  summary->setText(QString("Designing %1 points...").arg(total_));
  cancel_ = false;
  done_ = 0;
  finished_ = false;
  cmdRun->setEnabled(false);
  cmdCancel->setEnabled(true);
  cmdExportChart->setEnabled(false);
  cmdExportTable->setEnabled(false);
  // The workers share a copy of the data read-only and have their own records, screens and messages.
  data_ = std::make_unique<const AppData>(w_.session.data);
  worker_ = std::thread([this] {
    StudyOptions options;
    options.cancel = &cancel_;
    options.search = search_;
    options.progress = [this](size_t done, size_t) { done_ = done; };
    running_points_ = RunStudy(*data_, base_, pinterfix_, variables_, options);
    finished_ = true;
  });
  poll_.start();
  return true;
}

void StudyWindow::Cancel() { cancel_ = true; }

void StudyWindow::Finished() {
  poll_.stop();
  worker_.join();
  points_ = std::move(running_points_);
  const auto count = [&](auto test) { return std::count_if(points_.begin(), points_.end(), test); };
  const auto designed = count([](const StudyPoint& p) { return p.results; });
  const auto refused = count([](const StudyPoint& p) { return p.input_error == 1; });
  const auto flagged = count([](const StudyPoint& p) { return !p.errors.empty(); });
  const auto undone = count([](const StudyPoint& p) { return p.input_error == -1; });
  QString text = QString("%1 points: %2 designed").arg(points_.size()).arg(designed);
  if (refused > 0) text += QString(", %1 refused by the input check").arg(refused);
  if (flagged > 0) text += QString(", %1 ended with an error flag").arg(flagged);
  if (undone > 0) text += QString(", %1 not designed (cancelled)").arg(undone);
  summary->setText(text + ".");
  progress->setValue(static_cast<int>(done_.load()));
  cmdRun->setEnabled(true);
  cmdCancel->setEnabled(false);
  cmdExportChart->setEnabled(true);
  cmdExportTable->setEnabled(true);
  Chart();
}

void StudyWindow::Chart() {
  if (points_.empty() || variables_.empty()) return;
  const StudyOutput& out = StudyOutputs()[static_cast<size_t>(std::max(0, output->currentIndex()))];
  auto* c = new QChart;
  c->setTitle(Q(out.name + (out.unit.empty() ? "" : " (" + out.unit + ")")) + " against " + Q(variables_[0].name));
  const size_t lines = variables_.size() == 2 ? variables_[1].values.size() : 1;
  const size_t along = variables_[0].values.size();
  QAbstractAxis* x = nullptr;
  if (log_x_) {
    auto* log = new QLogValueAxis;
    log->setBase(10);
    log->setMinorTickCount(8);
    log->setLabelFormat("%g");
    x = log;
  } else {
    auto* linear = new QValueAxis;
    linear->setLabelFormat("%g");
    x = linear;
  }
  auto* y = new QValueAxis;
  x->setTitleText(Q(variables_[0].name));
  y->setTitleText(Q(out.name));
  y->setLabelFormat("%g");
  c->addAxis(x, Qt::AlignBottom);
  c->addAxis(y, Qt::AlignLeft);
  double low = 0, high = 0;
  bool any = false;
  for (size_t l = 0; l < lines; ++l) {
    auto* series = new QLineSeries;
    series->setName(variables_.size() == 2 ? Q(variables_[1].name + " " + GeneralText(variables_[1].values[l]))
                                           : Q(out.name));
    for (size_t i = 0; i < along; ++i) {
      // The grid varies the first input slowest: point (i, l) stands at i * lines + l.
      const StudyPoint& p = points_[i * lines + l];
      const std::optional<float> v = out.value(p);
      if (!v || !std::isfinite(*v) || !AsAsked(variables_, p)) continue;
      series->append(p.values[0], *v);
      low = any ? std::min(low, static_cast<double>(*v)) : *v;
      high = any ? std::max(high, static_cast<double>(*v)) : *v;
      any = true;
    }
    c->addSeries(series);
    series->attachAxis(x);
    series->attachAxis(y);
  }
  const auto [first, last] = std::minmax_element(variables_[0].values.begin(), variables_[0].values.end());
  x->setRange(*first, *last == *first ? *first + 1 : *last);
  if (any) {
    y->setRange(low == high ? low - 1 : low, low == high ? high + 1 : high);
    y->applyNiceNumbers();
  }
  c->legend()->setVisible(variables_.size() == 2);
  QChart* old = chart->chart();
  chart->setChart(c);
  delete old;
}

bool StudyWindow::ExportChart(const QString& path) {
  if (path.endsWith(".svg", Qt::CaseInsensitive)) {
    QSvgGenerator svg;
    svg.setFileName(path);
    svg.setSize(chart->size());
    svg.setViewBox(chart->rect());
    svg.setTitle(windowTitle());
    QPainter painter;
    if (!painter.begin(&svg)) return false;
    chart->render(&painter);
    return painter.end();
  }
  return chart->grab().save(path);
}

bool StudyWindow::ExportTable(const QString& path) {
  try {
    WriteFileWhole(S(path), StudyCsv(variables_, points_));
  } catch (const VbError&) {
    return false;
  }
  return true;
}

}  // namespace kestrane::gui
