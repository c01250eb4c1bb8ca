// The forms of the desktop program, each a page of the one window (GoFigure a window of its own).
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <array>
#include <vector>

#include "calculators/conversions.h"
#include "calculators/gas_flow.h"
#include "calculators/nupreir.h"
#include "calculators/tail_leg.h"
#include "calculators/pressure_drop.h"
#include "documents/print_commands.h"
#include "engine/design_run.h"
#include "thermo/tc_file.h"
#include "properties/user_vapors.h"
#include "properties/vapor_table.h"
#include "thermo/thermo_compressor.h"
#include "drawing_frame.h"
#include "main_window.h"
#include "study_window.h"
#include "widgets.h"

namespace kestrane::gui {

// The main menu: the start sequence's texts, then the tools.
class MainForm : public Page {
  Q_OBJECT

 public:
  explicit MainForm(MainWindow& window);
  QString Caption() const override { return "Kestrane"; }
  QLabel* Label3;
  std::vector<QPushButton*> cmdMain;
};

// The design input: five tabs, paired standard and metric boxes, hints, the vapor grids, the file menu and the run.
class frmJetInput : public Page {
  Q_OBJECT

 public:
  explicit frmJetInput(MainWindow& window);
  QString Caption() const override;
  void Activate() override;
  // Shows the screen model in the boxes.
  void Refresh();
  QLineEdit* BoxOf(BoxRef box) const { return boxes_.at({static_cast<int>(box.group), box.index}); }
  // The menu entry: the design runs off the window's thread, its status texts in lblStatus. A run-time error
  // of the run is told in a message box and the input stays as it was, ready for the next run.
  void DesignSystem();
  // The run that DesignSystem starts (the input check, then the design); a test may stand in its own.
  std::function<DesignOutcome(DesignContext&, InputScreen&)> design = RunDesign;
  bool OpenFile(const QString& path);
  // The search of the vapor list shown: from the selected row on, forward or backward; its report beside the box.
  void SearchVapors(bool forward);
  QTabWidget* SSTabInput;
  HintBox* txtboxMainInputDescription;
  // The vapors to pick a load's ID from: the data base and the user defined vapors, a tab each.
  QTabWidget* vaporLists;
  QTableWidget* vaporGrid;
  QTableWidget* userVaporGrid;
  QLineEdit* vaporSearch;
  QPushButton *findNext, *findPrevious;
  QLabel* vaporSearchReport;
  // The name of each condensible load's vapor, beside its ID box.
  std::array<QLabel*, 10> vaporNames{};
  QLabel* lblStatus;
  // The save question before unsaved input is lost; false when the user's save did not happen.
  bool CheckToStore();
  bool Running() const { return running_; }

 signals:
  void designFinished(bool results);

 private:
  // Back on the window's thread after a run: `failure` is the text of a run-time error that ended it.
  void FinishDesign(const DesignOutcome& outcome, const std::string& failure);
  void Leave(BoxRef box);
  void UnitsChanged();
  void FillVaporGrids();
  void ShowVaporName(int row);
  // The marks of the boxes the model holds refused; with `reveal`, the tab of the first one comes forward.
  void ShowRefused(bool reveal);
  MainWindow& w_;
  BoxWatcher watcher_;
  std::map<std::pair<int, int>, QLineEdit*> boxes_;
  std::vector<QRadioButton*> units_, condenser_, stages_, cycles_, optimize_;
  QCheckBox *precondenser_, *lrvp_;
  std::array<QComboBox*, kListBoxCount> lists_{};
  std::array<QLabel*, 3> cost_captions_{};
  int focused_load_row_ = 1;
  bool running_ = false;
};

// The results of a design: utilities, ejectors, condensers and pump, the debugger grid, "LRVP Error".
class frmJET0 : public Page, public StatusPrinting {
  Q_OBJECT

 public:
  explicit frmJET0(MainWindow& window);
  QString Caption() const override;
  // The results of a design, and beside them its advisories (none when empty).
  void ShowResults(bool results, const std::string& message, const std::vector<std::string>& advisories = {});
  // The equipment pictures of the design shown (none without results), all idle.
  void BuildSlots(bool results);
  // A print entry of the menu: the sheets it names, through the print preview.
  void Print(PrintCommand command);
  // File > Export PDF: the specification and data sheets as one PDF file.
  void ExportPdf(const QString& path);
  void SetResultsMode(int mode) override;
  QLabel* lblMessage;
  QTableWidget* Grid1;
  QWidget* frames;
  QPushButton* cmdDebugger;
  // Pricing: the button that opens the pricing form (PRICEMODE 1 and 2) and the price of the design (2).
  QPushButton* cmdPricePrint;
  QLabel* lblPrice;
  class PricingForm* pricing = nullptr;  // made the first time it opens
  // A design study of the case shown.
  QPushButton* cmdStudy;
  QPointer<StudyWindow> study;  // the study window last opened; null once it closed
  QMenuBar* menus;
  DrawingFrame* FrameDrawing;  // the open drawing, in place of the lists
  SlotRow* pictures;           // the equipment pictures in flow order, then the flow diagram

 private:
  MainWindow& w_;
  QVBoxLayout* results_;  // the results blocks
  QVBoxLayout* details_;  // what else the design computed, beside them
  QSplitter* splitter_;   // the results above, the debugger grid below
  QMenu* print_menu_;     // enabled while results are shown
  QAction* export_pdf_;   // likewise
  void ShowPriceControls();
  bool has_results_ = false;
};

class ConvertForm : public Page {
  Q_OBJECT

 public:
  explicit ConvertForm(MainWindow& window);
  QString Caption() const override { return "Kestrane-Conversions"; }
  void Activate() override;
  void CVRT();
  QComboBox* category;
  std::array<QListWidget*, 2> unitList{};
  QLineEdit* value;
  QLabel* result;

 private:
  MainWindow& w_;
  QLabel* from_unit_;
  CvrtTable table_;
  bool loaded_ = false;
};

class TailLeg : public Page {
  Q_OBJECT

 public:
  explicit TailLeg(MainWindow& window);
  QString Caption() const override { return "Kestrane-Tail Leg Height"; }
  std::array<QLineEdit*, 3> txtTailLeg{};
  std::array<QLabel*, 2> lblAns{};
  QPushButton* cmdCalculate;
  QPushButton* cmdPrint;

 private:
  BoxWatcher watcher_;
  TailLegScreen model_;
};

class GasMassVol : public Page {
  Q_OBJECT

 public:
  explicit GasMassVol(MainWindow& window);
  QString Caption() const override { return "Kestrane-Gas Volume & Mass"; }
  void Calculate();
  GasFlowScreen model;
  QLineEdit* txtMW;
  std::array<QLineEdit*, 5> txtPressure{};
  std::array<QLineEdit*, 2> txtTemperature{};
  std::array<QLineEdit*, 2> txtMassFlow{};
  std::array<QLineEdit*, 4> txtVolFlow{};
  QLabel* message;

 private:
  void Show();
  void Enable();
  BoxWatcher watcher_;
};

// The thermo compressor input: headings, six paired values, units, lists; the file menu and the design.
class TCInput : public Page {
  Q_OBJECT

 public:
  explicit TCInput(MainWindow& window);
  QString Caption() const override { return Q(TcTitle(model)); }
  void Activate() override { Refresh(); }
  void Refresh();
  bool OpenFile(const QString& path);
  void Design();
  bool CheckToStore();
  TCInputScreen model;
  std::array<QLineEdit*, 3> txtHeadingInput{};
  std::array<QLineEdit*, kTcInputs> txtInput{}, txtInputA{};
  std::array<QRadioButton*, 2> OptionUnits{};
  std::array<QComboBox*, kTcListCount> lists{};
  HintBox* description;

 private:
  void UnitsChanged();
  MainWindow& w_;
  BoxWatcher watcher_;
};

// The thermo compressor results and the debugger rows.
class TCform : public Page, public StatusPrinting {
  Q_OBJECT

 public:
  explicit TCform(MainWindow& window);
  QString Caption() const override;
  void ShowResults(const TcOutcome& outcome);
  // Print: the specification sheet with its drawing and the data sheet, through the print preview.
  void Print();
  // File > Export PDF: the same two sheets as a PDF file.
  void ExportPdf(const QString& path);
  void SetResultsMode(int mode) override;
  QTableWidget* results;
  QTableWidget* grid;
  QLabel* body;
  QMenuBar* menus;
  DrawingFrame* FrameDrawing;  // the compressor's drawing, in place of the lists
  SlotRow* Image1;             // its one picture
  TcInput tcres;  // the checked input of the design shown

 private:
  // The two sheets of the case shown, their data sheet's text written beside the case.
  ReportJob SheetsJob();
  MainWindow& w_;
  QWidget* lists_;  // the results and the debugger rows
};

// The gas pressure loss window: method, units, the 19 fields, the results box and the TDP file.
class dpVac : public Page {
  Q_OBJECT

 public:
  explicit dpVac(MainWindow& window);
  QString Caption() const override { return Q(DpCaption(model)); }
  void Refresh();
  void Calculate();
  bool CheckToStore();
  DpScreen model;
  QRadioButton *hei, *tessel, *standard, *metric;
  std::array<QLabel*, kDpFields + 1> captions{};
  std::array<QLineEdit*, kDpFields + 1> txtEV{};
  QPlainTextEdit* results;
  QLineEdit* total;

 private:
  MainWindow& w_;
  BoxWatcher watcher_;
};

// The user information printed on every sheet: eight boxes and Done.
class frmUserData : public Page {
  Q_OBJECT

 public:
  explicit frmUserData(MainWindow& window);
  QString Caption() const override { return "Kestrane-User Information"; }
  void Activate() override;
  std::array<QLineEdit*, 8> Text1{};
  QPushButton* cmdDone;

 private:
  MainWindow& w_;
  BoxWatcher watcher_;
  Form back_ = Form::MainForm;
};

class frmAbout : public Page {
  Q_OBJECT

 public:
  explicit frmAbout(MainWindow& window);
  QString Caption() const override { return "Kestrane-About"; }
  QLabel* lblVersion;
  QPushButton* cmdDone;
};

// Vapor pressures: a vapor from the grid, a table over a temperature range and its chart on a logarithmic axis.
class VaporPressureForm : public Page {
  Q_OBJECT

 public:
  explicit VaporPressureForm(MainWindow& window);
  QString Caption() const override { return "Kestrane-Vapor Pressures"; }
  void Activate() override;
  void Calculate();
  QLineEdit* search;
  QTableWidget* vapors;
  QLineEdit *tmin, *tmax, *step;
  QRadioButton *fahrenheit, *celsius;
  QTableWidget* table;
  class QChartView* chart;

 private:
  void Fill();
  MainWindow& w_;
};

// Steam properties: a state from pressure with temperature, enthalpy or entropy, or saturation from temperature.
class frmMollier : public Page {
  Q_OBJECT

 public:
  explicit frmMollier(MainWindow& window);
  QString Caption() const override { return "Kestrane-Steam Properties"; }
  void Calculate();
  QComboBox *mode, *unit;
  QLineEdit *pressure, *value;
  QTableWidget* state;

 private:
  MainWindow& w_;
};

// User defined vapors: the grid, browse and edit states, and the vapor pressure graph.
class frmUDV : public Page {
  Q_OBJECT

 public:
  explicit frmUDV(MainWindow& window);
  QString Caption() const override { return "Kestrane-User Defined Vapors"; }
  void Activate() override { Refresh(); }
  void Refresh();
  UdvScreen model;
  QTableWidget* grid;
  std::array<QLineEdit*, 9> TextUDV{};
  QCheckBox* alcohol;
  QRadioButton *fahrenheit, *celsius;
  QPushButton *add, *edit, *remove, *update, *abort, *graph, *print_current, *print_all;
  class QChartView* chart;

 private:
  void Take();
  int SelectedId() const;
  MainWindow& w_;
};

// The Nupreir calculator, a window of its own beside the menu.
class GoFigure : public QWidget {
  Q_OBJECT

 public:
  explicit GoFigure(MainWindow& window);
  void Calculate();
  void Show();  // the model into the widgets
  bool CheckToStore();
  NupreirScreen model;
  QComboBox* cmboExprText;
  std::array<QLineEdit*, kNupreirVariables> names{}, values{};
  // Grab: the latest result into the value box last used (the text of a line with "=" cut at it).
  void Grab();
  QRadioButton *degrees, *radians;
  QTextEdit* results;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Take();  // the widgets into the model
  MainWindow& w_;
  BoxWatcher watcher_;
  size_t last_value_ = 0;
};

}  // namespace kestrane::gui
