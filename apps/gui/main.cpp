// kestrane-gui: the desktop program. It loads the data as it starts, then offers the tools from its main menu.
#include <QApplication>

#include "main_window.h"
#include "shell/paths.h"
#include "trap.h"

int main(int argc, char** argv) {
  kestrane::gui::Application app(argc, argv);
  QApplication::setApplicationDisplayName("Kestrane");
  kestrane::gui::QtUi ui(nullptr);
  app.report = [&ui](const std::string& text) { ui.notice(text); };
  int code = 1;
  try {
    kestrane::Session session(kestrane::PathsForProgram(kestrane::ExecutableDirectory()));
    kestrane::SeedCaseFolder(session.data.paths);
    kestrane::gui::MainWindow window(session, ui);
    window.show();
    kestrane::gui::Trap(ui, [&window] { window.Start(); });
    code = QApplication::exec();
  } catch (...) {
    // The program could not be set up: said, and it ends.
    ui.notice(kestrane::gui::CaughtErrorText());
  }
  app.report = {};
  return code;
}
