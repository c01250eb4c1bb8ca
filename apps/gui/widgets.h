// Small shared pieces of the windows: the focus look and Enter as Tab for text boxes, and labelled rows.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <functional>
#include <map>

#include "shell/ui.h"

namespace kestrane::gui {

// Watches text boxes: bright green with the text selected while focused, white after;
// Enter and the up and down arrows move between fields. `on_focus` runs on focus in, `on_leave` on focus out,
// each under the trap of run-time errors, told on `ui`.
class BoxWatcher : public QObject {
  Q_OBJECT

 public:
  BoxWatcher(QObject* parent, Ui& ui) : QObject(parent), ui_(ui) {}
  void Watch(QLineEdit* box, std::function<void()> on_focus = {}, std::function<void()> on_leave = {});

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  Ui& ui_;
  std::map<QObject*, std::pair<std::function<void()>, std::function<void()>>> actions_;
};

QString Q(const std::string& text);
QString Q(std::string_view text);
std::string S(const QString& text);

}  // namespace kestrane::gui
