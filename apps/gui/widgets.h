// Small shared pieces of the windows: the focus look and Enter as Tab for text boxes, the mark of a refused box,
// the hint box and the scroll area of a page.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QScrollArea>
#include <QTextEdit>
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

// A read-only box of hint text whose height follows its text: the whole hint shows, wrapped at the box's width,
// in no less than `lines` lines.
class HintBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit HintBox(int lines = 3, QWidget* parent = nullptr);

 private:
  void FitHeight();
  int lines_;
};

// A page in a scroll area of its own: a window with less room than the page needs scrolls it instead of cutting
// it off, and a larger one shows it whole with no scroll bars.
QScrollArea* Scrolled(QWidget* page);

// Marks a box that a check refused: a red border, and the notices that refused it as its tool tip.
// Empty `notices` take the mark away.
void ShowRefusal(QLineEdit* box, const std::string& notices);
// Whether a box carries the mark.
bool RefusalShown(const QLineEdit* box);

QString Q(const std::string& text);
QString Q(std::string_view text);
std::string S(const QString& text);

}  // namespace kestrane::gui
