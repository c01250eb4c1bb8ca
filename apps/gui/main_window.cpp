// The desktop program's one window: its pages are the program's forms, swapped as the menu and the forms ask.
#include "main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QRegularExpression>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>

#include "pages.h"
#include "shell/startup.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

// The desktop program's own settings, in the user's data folder.
QString SettingsFile(const Session& session) {
  return QString::fromStdString((session.data.paths.userdata / "kestrane-gui.ini").string());
}

constexpr const char* kSearchKey = "design/search";

}  // namespace

void MainWindow::SetSearch(InterstageSearch chosen) {
  search = chosen;
  QSettings settings(SettingsFile(session), QSettings::IniFormat);
  settings.setValue(kSearchKey, chosen == InterstageSearch::kThorough ? "thorough" : "original");
}

MainWindow::MainWindow(Session& s, QtUi& u) : session(s), ui(u), screen(NewCase()) {
  if (QSettings(SettingsFile(session), QSettings::IniFormat).value(kSearchKey).toString() == "thorough") {
    search = InterstageSearch::kThorough;
  }
  pdf_path = [this](QWidget* parent, const QString& suggested) {
    QFileDialog dialog(parent, "Export PDF", QString::fromStdString((session.data.paths.usrfiles / suggested.toStdString()).string()),
                       "PDF Files (*.pdf)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("pdf");
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
  };
  stack_ = new QStackedWidget(this);
  setCentralWidget(stack_);
  AddPage(Form::MainForm, new MainForm(*this));
  AddPage(Form::frmJetInput, new frmJetInput(*this));
  AddPage(Form::frmJET0, new frmJET0(*this));
  AddPage(Form::ConvertForm, new ConvertForm(*this));
  AddPage(Form::TailLeg, new TailLeg(*this));
  AddPage(Form::GasMassVol, new GasMassVol(*this));
  AddPage(Form::TCInput, new TCInput(*this));
  AddPage(Form::TCform, new TCform(*this));
  AddPage(Form::dpVac, new dpVac(*this));
  AddPage(Form::VaporPressureForm, new VaporPressureForm(*this));
  AddPage(Form::frmMollier, new frmMollier(*this));
  AddPage(Form::frmUDV, new frmUDV(*this));
  AddPage(Form::frmUserData, new frmUserData(*this));
  AddPage(Form::frmAbout, new frmAbout(*this));
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  help->setContext(Qt::ApplicationShortcut);
  connect(help, &QShortcut::activated, this, Trapped(ui, [this] { ShowHelp(); }));
  // No user information on file: its window opens during the start and the load goes on.
  connect(&ui, &QtUi::userInfoRequested, this, Trapped(ui, [this] { SwapForms(current_, Form::frmUserData); }));
  go_figure_ = new GoFigure(*this);
  // Fits a 1366 x 768 screen with its task bar and the window's title bar, and any smaller screen.
  QSize size(1000, 680);
  if (const QScreen* shown = QWidget::screen()) size = size.boundedTo(shown->availableGeometry().size() - QSize(16, 48));
  resize(size);
  RefreshTitle();
}

MainWindow::~MainWindow() { delete go_figure_; }

void MainWindow::AddPage(Form form, Page* page) {
  pages_[form] = page;
  // A page that needs more room than the window has (a small screen) scrolls rather than being cut off.
  QWidget* holder = Scrolled(page);
  holders_[form] = holder;
  stack_->addWidget(holder);
}

void MainWindow::RefreshTitle() { setWindowTitle(pages_.at(current_)->Caption()); }

void MainWindow::SwapForms(Form /*leaving*/, Form coming) {
  current_ = coming;
  Page* page = pages_.at(coming);
  page->Activate();
  stack_->setCurrentWidget(holders_.at(coming));
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
  starting = true;
  const bool loaded = RunStartSequence(session, ui);
  starting = false;
  for (auto* b : menu->cmdMain) b->setEnabled(loaded);
  if (!loaded) menu->cmdMain.back()->setEnabled(true);  // Exit stays
  return loaded;
}

QString MainWindow::OpenPath(QWidget* parent, const QString& filter) {
  return QFileDialog::getOpenFileName(parent, "Get Existing Design", QString::fromStdString(session.data.paths.usrfiles.string()),
                                      filter);
}

QString MainWindow::SavePath(QWidget* parent, const QString& filter) {
  QFileDialog dialog(parent, "Save File As", QString::fromStdString(session.data.paths.usrfiles.string()), filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // A name typed without an extension gets the form's own (".JET" from "... (*.JET)").
  const QRegularExpressionMatch match = QRegularExpression(R"(\*\.(\w+))").match(filter);
  if (match.hasMatch()) dialog.setDefaultSuffix(match.captured(1));
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool MainWindow::Resolve(StoreDecision decision, QWidget* parent, const QString& filter,
                         const std::function<bool(const std::string&)>& save_as) {
  switch (decision) {
    case StoreDecision::kNeedsName: {
      const QString path = SavePath(parent, filter);
      return !path.isEmpty() && save_as(path.toStdString());
    }
    case StoreDecision::kSaveFailed: return false;
    default: return true;
  }
}

void MainWindow::AddFileMenu(QMenuBar* bar, QWidget* owner, const CaseFileActions& a) {
  QMenu* file = bar->addMenu("&File");
  file->addAction("&New", owner, Trapped(ui, [a] {
    if (a.check_to_store()) a.clear();
  }));
  file->addAction("&Open...", owner, Trapped(ui, [this, owner, a] {
    if (!a.check_to_store()) return;
    const QString path = OpenPath(owner, a.filter);
    if (!path.isEmpty()) a.open(path);
  }));
  const auto save_as = [this, owner, a] {
    const QString path = SavePath(owner, a.filter);
    if (!path.isEmpty()) a.save_as(path.toStdString());
    RefreshTitle();
  };
  file->addAction("&Save", owner, Trapped(ui, [this, a, save_as] {
    const std::string path = a.current_path();
    if (path.empty()) {
      save_as();
      return;
    }
    a.save_as(path);
    RefreshTitle();
  }));
  file->addAction("Save &As...", owner, Trapped(ui, save_as));
  if (a.main_menu) {
    file->addSeparator();
    file->addAction("Main &Menu", owner, Trapped(ui, [a] {
      if (a.check_to_store()) a.main_menu();
    }));
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A design in progress finishes first: its thread works on the case. A save question that fails keeps
  // the program open, with the input it would have saved.
  bool keep = true;
  Trap(ui, [this, &keep] {
    keep = static_cast<frmJetInput*>(pages_.at(Form::frmJetInput))->Running() ||
           !static_cast<frmJetInput*>(pages_.at(Form::frmJetInput))->CheckToStore() ||
           !static_cast<TCInput*>(pages_.at(Form::TCInput))->CheckToStore() ||
           !static_cast<dpVac*>(pages_.at(Form::dpVac))->CheckToStore();
  });
  if (keep) {
    event->ignore();
    return;
  }
  session.EXITING = -1;
  go_figure_->close();
  event->accept();
  QApplication::quit();
}

void MainWindow::ShowHelp() {
  static const std::map<Form, const char*> kAnchors = {
      {Form::MainForm, "menu"},       {Form::frmJetInput, "design"},   {Form::frmJET0, "results"},
      {Form::TCInput, "thermo"},      {Form::TCform, "thermo"},        {Form::ConvertForm, "calculators"},
      {Form::TailLeg, "calculators"}, {Form::GasMassVol, "calculators"}, {Form::dpVac, "calculators"}};
  if (help_ == nullptr) {
    help_ = new QTextBrowser;
    help_->setWindowTitle("Kestrane Help");
    help_->resize(760, 600);
  }
  const auto anchor = kAnchors.find(current_);
  QUrl url = QUrl::fromLocalFile(QString::fromStdString(session.data.paths.DataFile("KESTRANE-HELP.html").string()));
  if (anchor != kAnchors.end()) url.setFragment(anchor->second);
  help_->setSource(url);
  help_->show();
  help_->raise();
}

}  // namespace kestrane::gui
