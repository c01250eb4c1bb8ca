// The desktop program's one window: its pages are the program's forms, swapped as the menu and the forms ask.
#include "main_window.h"

#include <QApplication>

#include "pages.h"
#include "shell/startup.h"

namespace kestrane::gui {

MainWindow::MainWindow(Session& s, QtUi& u) : session(s), ui(u), screen(NewCase()) {
  stack_ = new QStackedWidget(this);
  setCentralWidget(stack_);
  AddPage(Form::MainForm, new MainForm(*this));
  AddPage(Form::frmJetInput, new frmJetInput(*this));
  AddPage(Form::frmJET0, new frmJET0(*this));
  AddPage(Form::ConvertForm, new ConvertForm(*this));
  AddPage(Form::TailLeg, new TailLegForm(*this));
  AddPage(Form::GasMassVol, new GasMassVolForm(*this));
  AddPage(Form::TCInput, new TCInput(*this));
  AddPage(Form::TCform, new TCform(*this));
  AddPage(Form::dpVac, new dpVac(*this));
  go_figure_ = new GoFigure(*this);
  resize(1000, 700);  // fits a 1366 x 768 screen with its task bar
  RefreshTitle();
}

void MainWindow::AddPage(Form form, Page* page) {
  pages_[form] = page;
  stack_->addWidget(page);
}

void MainWindow::RefreshTitle() { setWindowTitle(pages_.at(current_)->Caption()); }

void MainWindow::SwapForms(Form /*leaving*/, Form coming) {
  current_ = coming;
  Page* page = pages_.at(coming);
  page->Activate();
  stack_->setCurrentWidget(page);
  RefreshTitle();
}

void MainWindow::ShowGoFigure() {
  go_figure_->setVisible(true);
  go_figure_->setEnabled(true);
  go_figure_->show();
  go_figure_->raise();
}

bool MainWindow::Start() {
  auto* menu = static_cast<MainForm*>(pages_.at(Form::MainForm));
  for (auto* b : menu->cmdMain) b->setEnabled(false);
  const bool loaded = RunStartSequence(session, ui);
  for (auto* b : menu->cmdMain) b->setEnabled(loaded);
  if (!loaded) menu->cmdMain.back()->setEnabled(true);  // Exit stays
  return loaded;
}

}  // namespace kestrane::gui
