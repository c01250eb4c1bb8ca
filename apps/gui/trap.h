// Run-time errors of the desktop program: an action that fails is told in a message box and the window goes on,
// with the user's input as it stands. Every slot of the windows runs under `Trapped`; the application's event
// delivery traps whatever still escapes, so that no error ever reaches the end of the program.
#pragma once

#include <QApplication>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

#include "shell/ui.h"

namespace kestrane::gui {

// The text of the error being handled, to be called inside a catch block: "Run-time error 6: Overflow" for a
// run-time error, "Run-time error 7: Out of memory" when memory ran out, error 51 "Internal error" with the
// error's own words for any other failure.
std::string CaughtErrorText();

// Runs `action`; a run-time error it raises is told on `ui` and goes no further. False when the action failed.
bool Trap(Ui& ui, const std::function<void()>& action);

// `action` as a slot under the trap, for connect() and menu entries; it takes what the signal gives when it
// asks for it.
template <class F>
auto Trapped(Ui& ui, F action) {
  return [&ui, action = std::move(action)](auto&&... args) {
    Trap(ui, [&] {
      if constexpr (std::is_invocable_v<const F&, decltype(args)...>) {
        action(std::forward<decltype(args)>(args)...);
      } else {
        action();
      }
    });
  };
}

// The desktop program's application: an error that escapes an event handler (a slot outside the windows'
// own, a timer, a queued call) is trapped where the event is delivered and told by `report`, which shows a
// message box unless set otherwise.
class Application : public QApplication {
  Q_OBJECT

 public:
  Application(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;
  std::function<void(const std::string&)> report;

 private:
  void Report(const std::string& text);
};

}  // namespace kestrane::gui
