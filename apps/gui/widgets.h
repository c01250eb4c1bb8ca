// Small shared pieces of the windows: the focus look and Enter as Tab for text boxes, and labelled rows.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <functional>

namespace kestrane::gui {

// Watches text boxes: bright green with the text selected while focused, white after;
// Enter and the up and down arrows move between fields. `on_focus` runs on focus in, `on_leave` on focus out.
class BoxWatcher : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  void Watch(QLineEdit* box, std::function<void()> on_focus = {}, std::function<void()> on_leave = {});

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  std::map<QObject*, std::pair<std::function<void()>, std::function<void()>>> actions_;
};

QString Q(const std::string& text);
QString Q(std::string_view text);
std::string S(const QString& text);

}  // namespace kestrane::gui
