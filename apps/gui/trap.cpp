// Run-time errors of the desktop program: told in a message box, never the end of the program.
#include "trap.h"

#include <QMessageBox>
#include <QThread>

#include "properties/vb.h"

namespace kestrane::gui {

std::string CaughtErrorText() { return RunTimeErrorText(CaughtError()); }

bool Trap(Ui& ui, const std::function<void()>& action) {
  std::string text;
  try {
    action();
    return true;
  } catch (...) {
    text = CaughtErrorText();
  }
  // Told outside the handler: the box runs its own event loop.
  ui.notice(text);
  return false;
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  report = [](const std::string& text) {
    QMessageBox::critical(activeWindow(), applicationDisplayName(), QString::fromStdString(text));
  };
}

bool Application::notify(QObject* receiver, QEvent* event) {
  std::string text;
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    text = CaughtErrorText();
  }
  if (QThread::currentThread() == thread()) {
    Report(text);
  } else {
    // An event of another thread: told on the window thread.
    QMetaObject::invokeMethod(this, [this, text] { Report(text); }, Qt::QueuedConnection);
  }
  return true;  // the event is taken as handled
}

void Application::Report(const std::string& text) {
  try {
    if (report) report(text);
  } catch (...) {
    // Telling failed as well (no memory left for a box): the program goes on without it.
  }
}

}  // namespace kestrane::gui
