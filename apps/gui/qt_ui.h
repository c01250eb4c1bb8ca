// The desktop program's Ui: message boxes and questions on the window thread, status and progress texts as signals.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

#include "shell/ui.h"

namespace kestrane::gui {

class QtUi : public QObject, public Ui {
  Q_OBJECT

 public:
  explicit QtUi(QWidget* owner) : owner_(owner) {}

  // From any thread: a modal box on the window thread; the caller waits for it.
  void notice(const std::string& text) override;
  bool ask(const std::string& text, const std::string& title) override;
  void status(const std::string& text) override;
  void progress(const std::string& text) override;
  void beep() override;
  void request_user_info(const std::string& path) override;

  // Unattended use (tests, screenshots): notices are kept instead of shown and questions get `answer`.
  void set_unattended(bool unattended, bool answer = false) {
    unattended_ = unattended;
    answer_ = answer;
  }
  std::vector<std::string> notices;
  std::vector<std::string> statuses;

 signals:
  void statusChanged(const QString& text);
  void progressChanged(const QString& text);
  void userInfoRequested(const QString& path);

 private:
  void OnWindowThread(const std::function<void()>& work);
  QWidget* owner_;
  bool unattended_ = false;
  bool answer_ = false;
};

}  // namespace kestrane::gui
