// The desktop program's one window: its pages are the program's forms, swapped as the menu and the forms ask.
#pragma once

#include <QMainWindow>
#include <QStackedWidget>
#include <QTextBrowser>
#include <map>

#include "case/input_screen.h"
#include "case/jet_file.h"
#include "engine/design_context.h"
#include "printing.h"
#include "qt_ui.h"
#include "shell/forms.h"
#include "shell/session.h"

namespace kestrane::gui {

class GoFigure;

// A form shown as a page of the window: its caption goes to the window's title.
class Page : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  virtual QString Caption() const = 0;
  // Called each time the page becomes the visible one.
  virtual void Activate() {}
};

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(Session& session, QtUi& ui);
  // The calculator window stands on its own (no parent), so the main window deletes it.
  ~MainWindow() override;

  // The one-visible-window rule: the coming page replaces the leaving one.
  void SwapForms(Form leaving, Form coming);
  Page* PageOf(Form form) const { return pages_.at(form); }
  Form Current() const { return current_; }
  void ShowGoFigure();
  GoFigure* goFigure() const { return go_figure_; }
  void RefreshTitle();

  // The file dialogs of the forms: their titles, the user's case folder and the form's filter; empty when cancelled.
  QString OpenPath(QWidget* parent, const QString& filter);
  QString SavePath(QWidget* parent, const QString& filter);
  // After the save question: a new case that the user wants saved is saved under a name asked for.
  // True when the input may be left (unchanged, declined or saved).
  bool Resolve(StoreDecision decision, QWidget* parent, const QString& filter,
               const std::function<bool(const std::string&)>& save_as);

  // The File menu of a form's case file: New and Open ask the save question first (check_to_store),
  // Save writes where the case came from (current_path, empty for a new case) or asks a name, Save As
  // always asks one; Main Menu (when given) leaves the form after the save question.
  struct CaseFileActions {
    QString filter;
    std::function<bool()> check_to_store;
    std::function<void()> clear;
    std::function<void(const QString&)> open;
    std::function<std::string()> current_path;
    std::function<void(const std::string&)> save_as;
    std::function<void()> main_menu;
  };
  void AddFileMenu(class QMenuBar* bar, QWidget* owner, const CaseFileActions& actions);

  // The start sequence, its texts shown on the main menu as the data loads.
  bool Start();
  bool starting = false;

  // The help window at the page of the current form (F1 anywhere).
  void ShowHelp();

  // Shows a report before it prints: the print preview; tests put their own page sink here.
  std::function<void(QWidget*, const ReportJob&)> preview = [](QWidget* parent, const ReportJob& job) {
    PreviewReport(parent, job);
  };
  // The file name for a PDF export, asked in a save dialog; empty when cancelled. Tests answer it themselves.
  std::function<QString(QWidget*, const QString& suggested)> pdf_path;

  Session& session;
  QtUi& ui;
  InputScreen screen;  // the design case on the input page
  // A setting of the program, not of the case: Options > Thorough Interstage Search on the input window,
  // kept in kestrane-gui.ini in the user's data folder from one start of the program to the next.
  InterstageSearch search = InterstageSearch::kOriginal;
  void SetSearch(InterstageSearch chosen);

  // What a design run or a results page works on: the session's case, data and carried state with the input
  // page's screen; messages through `to` (a quiet one for work the user did not ask for).
  // The design runs search the interstage pressures as the Options menu of the input window says.
  DesignContext Context(Ui& to) { return {session.design, session.data, screen, session.PINTERFIX, to, search}; }
  DesignContext Context() { return Context(ui); }

 protected:
  // Closing the program: each form with unsaved input asks first; a cancelled save keeps the program open.
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddPage(Form form, Page* page);
  QStackedWidget* stack_;
  std::map<Form, Page*> pages_;
  std::map<Form, QWidget*> holders_;  // the scroll area of each page, the stack's own widget
  Form current_ = Form::MainForm;
  GoFigure* go_figure_ = nullptr;
  QTextBrowser* help_ = nullptr;
};


}  // namespace kestrane::gui
