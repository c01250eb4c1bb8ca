// kestrane-gui: the desktop program. It loads the data as it starts, then offers the tools from its main menu.
#include <QApplication>

#include "main_window.h"
#include "shell/paths.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationDisplayName("Kestrane");
  kestrane::Session session(kestrane::PathsForProgram(kestrane::ExecutableDirectory()));
  kestrane::gui::MainWindow* window = nullptr;
  kestrane::gui::QtUi ui(nullptr);
  window = new kestrane::gui::MainWindow(session, ui);
  window->show();
  window->Start();
  const int code = QApplication::exec();
  delete window;
  return code;
}
