// Small shared pieces of the windows: the focus look and Enter as Tab for text boxes, the mark of a refused box,
// the hint box and the scroll area of a page.
#include "widgets.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QVariant>
#include <cmath>
#include <QTimer>
#include <QWidget>

#include "shell/forms.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

// Palette colours 10 and 15 of the classic sixteen.
QColor PaletteColour(int16_t index) { return index == 10 ? QColor(0, 255, 0) : QColor(255, 255, 255); }

void Look(QLineEdit* box, bool focused) {
  const BoxLook look = FocusLook(focused);
  QPalette palette = box->palette();
  palette.setColor(QPalette::Base, PaletteColour(look.backcolor));
  box->setPalette(palette);
  if (look.select_all) QTimer::singleShot(0, box, [box] { box->selectAll(); });
}

}  // namespace

HintBox::HintBox(int lines, QWidget* parent) : QTextEdit(parent), lines_(lines) {
  setReadOnly(true);
  setLineWrapMode(QTextEdit::WidgetWidth);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  // The text wraps anew at each width; its height follows.
  connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this, [this] { FitHeight(); });
  FitHeight();
}

void HintBox::FitHeight() {
  const int text = static_cast<int>(std::ceil(document()->size().height()));
  const int least = fontMetrics().lineSpacing() * lines_ + 2 * static_cast<int>(std::ceil(document()->documentMargin()));
  setFixedHeight(std::max(text, least) + 2 * frameWidth());
}

QScrollArea* Scrolled(QWidget* page) {
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(page);
  return scroll;
}

void ShowRefusal(QLineEdit* box, const std::string& notices) {
  const bool refused = !notices.empty();
  if (box->property("refused").toBool() == refused && box->toolTip() == Q(notices)) return;
  box->setProperty("refused", refused);
  box->setToolTip(Q(notices));
  // A style sheet sets the border; it would hide the focus look of the palette, so it carries that look too.
  const QString focused = PaletteColour(FocusLook(true).backcolor).name();
  box->setStyleSheet(refused ? "QLineEdit { border: 2px solid #d00000; border-radius: 2px; } "
                               "QLineEdit:focus { background-color: " + focused + "; }"
                             : QString());
}

bool RefusalShown(const QLineEdit* box) { return box->property("refused").toBool(); }

QString Q(const std::string& text) { return QString::fromStdString(text); }
QString Q(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }
std::string S(const QString& text) { return text.toStdString(); }

void BoxWatcher::Watch(QLineEdit* box, std::function<void()> on_focus, std::function<void()> on_leave) {
  box->installEventFilter(this);
  actions_[box] = {std::move(on_focus), std::move(on_leave)};
}

bool BoxWatcher::eventFilter(QObject* object, QEvent* event) {
  auto* box = qobject_cast<QLineEdit*>(object);
  if (box == nullptr) return false;
  const auto& [on_focus, on_leave] = actions_[object];
  switch (event->type()) {
    case QEvent::FocusIn:
      Look(box, true);
      if (on_focus) Trap(ui_, on_focus);
      break;
    case QEvent::FocusOut:
      Look(box, false);
      if (on_leave) Trap(ui_, on_leave);
      break;
    case QEvent::KeyPress: {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) {
        if (QWidget* next = box->nextInFocusChain()) next->setFocus(Qt::TabFocusReason);
        return true;
      }
      if (key == Qt::Key_Up) {
        if (QWidget* previous = box->previousInFocusChain()) previous->setFocus(Qt::BacktabFocusReason);
        return true;
      }
      break;
    }
    default: break;
  }
  return false;
}

}  // namespace kestrane::gui
