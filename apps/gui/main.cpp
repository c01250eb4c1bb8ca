// kestrane-gui: the desktop program. It loads the data as it starts, then offers the tools from its main menu.
#include <QApplication>
#include <cstdio>
#include <string_view>

#include "main_window.h"
#include "shell/constants.h"
#include "shell/paths.h"
#include "trap.h"

namespace {

// --help and --version are answered on standard output before any window (or screen) is needed.
bool AnsweredFromCommandLine(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg == "--version") {
      std::printf("Kestrane %s\n", kestrane::ProgramVersionText().c_str());
      return true;
    }
    if (arg == "--help") {
      std::printf(
          "Usage: kestrane-gui [--help] [--version]\n"
          "The Kestrane desktop program: designs steam jet vacuum systems and offers the engineering\n"
          "calculators from its main menu.\n\n"
          "Options:\n"
          "  --help     Print this help and exit\n"
          "  --version  Print the program version and exit\n\n"
          "The shipped data are read from pgmfiles beside the program, or from ../share/kestrane when\n"
          "installed; the user's own data live in $XDG_DATA_HOME/kestrane (default ~/.local/share/kestrane),\n"
          "the cases in the Kestrane folder of the documents folder.\n");
      return true;
    }
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (AnsweredFromCommandLine(argc, argv)) return 0;
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
