// What the engine tells the user and asks of the user, without knowing the screens.
#pragma once

#include <string>
#include <vector>

namespace kestrane {

class Ui {
 public:
  virtual ~Ui() = default;
  // A message box with an OK button; the calculation waits for it.
  virtual void notice(const std::string& text) = 0;
  // A yes/no question; true for yes.
  virtual bool ask(const std::string& text, const std::string& title) = 0;
  // The status label of the current window.
  virtual void status(const std::string& text) = 0;
  // A progress line during long work.
  virtual void progress(const std::string& text) = 0;
  // The warning sound of a refused action; silent unless a screen makes it heard.
  virtual void beep() {}
  // No user information is on file. The desktop program opens its user
  // information window; elsewhere a notice says where to enter it.
  virtual void request_user_info(const std::string& path);
};

// A Ui that keeps everything it is told, for the command line and the tests.
class RecordingUi : public Ui {
 public:
  void notice(const std::string& text) override { notices.push_back(text); }
  bool ask(const std::string& text, const std::string& title) override;
  void status(const std::string& text) override { statuses.push_back(text); }
  void progress(const std::string& text) override { progresses.push_back(text); }
  void beep() override { ++beeps; }

  std::vector<std::string> notices;
  std::vector<std::string> statuses;
  std::vector<std::string> progresses;
  std::vector<std::string> questions;
  int beeps = 0;
  bool answer = false;  // the answer given to every question
};

}  // namespace kestrane
