// The study window: a design case run again over one or two varied inputs, in the background, and charted.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QtCharts/QChartView>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "main_window.h"
#include "study/study.h"

namespace kestrane::gui {

// The fields of one varied input: its name, the range's ends, the number of points and a logarithmic spacing.
struct StudyRangeFields {
  QComboBox* name;
  QLineEdit* from;
  QLineEdit* to;
  QSpinBox* points;
  QCheckBox* log;
};

class StudyWindow : public QDialog {
  Q_OBJECT

 public:
  // A study of the case on the input page as it stands now.
  StudyWindow(MainWindow& window, QWidget* parent);
  ~StudyWindow() override;

  // Starts the study of the fields' ranges in the background; false, after a message, when a field is wrong.
  bool Run();
  // Asks the running study to stop; the points designed so far stay.
  void Cancel();
  bool running() const { return worker_.joinable(); }
  const std::vector<StudyVariable>& variables() const { return variables_; }
  const std::vector<StudyPoint>& points() const { return points_; }
  // Draws the chosen output against the first input, a line per value of the second.
  void Chart();
  bool ExportChart(const QString& path);  // PNG or SVG by the name's ending
  bool ExportTable(const QString& path);  // CSV

  std::array<StudyRangeFields, 2> ranges{};
  QCheckBox* second;  // a second varied input
  QComboBox* output;
  QPushButton *cmdRun, *cmdCancel, *cmdExportChart, *cmdExportTable;
  QProgressBar* progress;
  QLabel* summary;
  ::QChartView* chart;
  // The file name asked for an export; tests answer it themselves.
  std::function<QString(const QString& filter, const QString& suggested)> save_path;

 private:
  void Finished();
  MainWindow& w_;
  InputScreen base_;
  float pinterfix_;
  // The program's data as the study started: the windows may change the user's vapors meanwhile.
  std::unique_ptr<const AppData> data_;
  std::vector<StudyVariable> variables_;
  bool log_x_ = false;
  InterstageSearch search_ = InterstageSearch::kOriginal;  // the first input's values are spaced in the logarithm: so is the chart's axis
  std::vector<StudyPoint> points_;
  std::vector<StudyPoint> running_points_;
  std::atomic<bool> cancel_{false};
  std::atomic<size_t> done_{0};
  std::atomic<bool> finished_{false};
  size_t total_ = 0;
  std::thread worker_;
  QTimer poll_;
};

}  // namespace kestrane::gui
