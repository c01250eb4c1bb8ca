// The desktop program's Ui: message boxes and questions on the window thread, status and progress texts as signals.
#include "qt_ui.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>

namespace kestrane::gui {

namespace {

// The program's texts end their lines with CR LF; a box shows LF.
QString BoxText(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }

}  // namespace

void QtUi::OnWindowThread(const std::function<void()>& work) {
  if (QThread::currentThread() == thread()) {
    work();
  } else {
    QMetaObject::invokeMethod(this, work, Qt::BlockingQueuedConnection);
  }
}

void QtUi::notice(const std::string& text) {
  OnWindowThread([&] {
    notices.push_back(text);
    if (!unattended_) QMessageBox::information(owner_, QApplication::applicationDisplayName(), BoxText(text));
  });
}

bool QtUi::ask(const std::string& text, const std::string& title) {
  bool yes = answer_;
  OnWindowThread([&] {
    if (unattended_) return;
    yes = QMessageBox::question(owner_, QString::fromStdString(title), BoxText(text),
                                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
  });
  return yes;
}

void QtUi::status(const std::string& text) {
  OnWindowThread([&] {
    statuses.push_back(text);
    emit statusChanged(QString::fromStdString(text));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  });
}

void QtUi::progress(const std::string& text) { emit progressChanged(QString::fromStdString(text)); }

void QtUi::beep() {
  if (!unattended_) QApplication::beep();
}

void QtUi::request_user_info(const std::string& path) { emit userInfoRequested(QString::fromStdString(path)); }

}  // namespace kestrane::gui
