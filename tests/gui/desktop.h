// The desktop windows driven without a screen: one main window over a session, notices kept instead of shown.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFocusEvent>
#include <QGroupBox>
#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "main_window.h"
#include "pages.h"
#include "shell/paths.h"
#include "trap.h"

using namespace kestrane;
using namespace kestrane::gui;
namespace fs = std::filesystem;

inline const fs::path kProgram = fs::path(KESTRANE_CLI).parent_path();

class Desktop : public ::testing::Test {
 protected:
  Desktop() : session(PathsForProgram(kProgram)), ui(nullptr) {
    // The user's own data files (user information, user vapors) go to a folder of the test's own.
    static int count = 0;
    userdata = fs::temp_directory_path() /
               ("kestrane_gui_userdata_" + std::to_string(::getpid()) + "_" + std::to_string(++count));
    session.data.paths.userdata = userdata;
    ui.set_unattended(true);
    // What escapes a handler is told on this window's Ui, as the program does.
    static_cast<Application*>(qApp)->report = [this](const std::string& text) { ui.notice(text); };
    window = std::make_unique<MainWindow>(session, ui);
    window->show();
  }
  ~Desktop() override {
    static_cast<Application*>(qApp)->report = {};
    window.reset();
    fs::remove_all(userdata);
  }

  // Runs the event loop until `done` or `ms` milliseconds have passed.
  bool WaitFor(const std::function<bool()>& done, int ms = 5000) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < ms) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
  }
  // Starts the program, opens the case `file` in the design input and designs it; the results window stands.
  void DesignFile(const fs::path& file) {
    ASSERT_TRUE(window->Start());
    window->SwapForms(window->Current(), Form::frmJetInput);
    ASSERT_TRUE(Input()->OpenFile(QString::fromStdString(file.string())));
    Input()->DesignSystem();
    ASSERT_TRUE(WaitFor([&] { return window->Current() == Form::frmJET0; }));
  }
  frmJetInput* Input() { return static_cast<frmJetInput*>(window->PageOf(Form::frmJetInput)); }
  frmJET0* Results() { return static_cast<frmJET0*>(window->PageOf(Form::frmJET0)); }
  // Focus leaves a box: the window takes its text as the user typed it.
  void Leave(QLineEdit* box) {
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(box, &out);
  }
  void Type(QLineEdit* box, const QString& text) {
    box->setText(text);
    Leave(box);
  }
  // A menu entry of a form by its text, "&Save" or "&Design System".
  static QAction* Action(QWidget* form, const QString& text) {
    for (QAction* a : form->findChildren<QAction*>()) {
      if (a->text() == text) return a;
    }
    return nullptr;
  }
  // The value shown in a results frame, by frame title and row caption, first column.
  QString FrameValue(const QString& title, const QString& caption) {
    for (auto* box : Results()->frames->findChildren<QGroupBox*>()) {
      if (box->title() != title) continue;
      auto* table = box->findChild<QTableWidget*>();
      for (int r = 0; r < table->rowCount(); ++r) {
        if (table->verticalHeaderItem(r)->text() == caption) return table->item(r, 0)->text();
      }
    }
    return {};
  }
  // Opens an example case on the design input.
  void OpenExample(const std::string& name) {
    window->SwapForms(window->Current(), Form::frmJetInput);
    ASSERT_TRUE(Input()->OpenFile(QString::fromStdString((kProgram / "usrfiles" / name).string())));
  }
  // Starts "Design System" from the input's menu and waits for the run to end; true when results were shown.
  bool DesignFromTheMenu() {
    bool finished = false, results = false;
    auto connection = QObject::connect(Input(), &frmJetInput::designFinished, [&](bool r) {
      finished = true;
      results = r;
    });
    QAction* design = Action(Input(), "&Design System");
    EXPECT_NE(design, nullptr);
    if (design != nullptr) design->trigger();
    EXPECT_TRUE(WaitFor([&] { return finished; }, 60000));
    QObject::disconnect(connection);
    return results;
  }
  // The standard output of a command line.
  static std::string Run(const std::string& command) {
    std::string text;
    if (FILE* pipe = popen(command.c_str(), "r")) {
      char buffer[4096];
      while (size_t n = fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, n);
      pclose(pipe);
    }
    return text;
  }
  bool Told(const std::string& part) const {
    for (const auto& n : ui.notices) {
      if (n.find(part) != std::string::npos) return true;
    }
    return false;
  }

  fs::path userdata;
  Session session;
  QtUi ui;
  std::unique_ptr<MainWindow> window;
};
