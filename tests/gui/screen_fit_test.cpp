// The windows on a 1366 x 768 screen with its task bar: every page fits, every control can be reached, and every
// hint shows whole in its box.
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

#include "desktop.h"
#include "thermo/tc_input.h"

namespace {

// A 1366 x 768 screen less a 40-pixel task bar holds the window's frame; the frame's title bar and borders
// take their share of it.
constexpr QSize kFrameRoom(1366, 728);
constexpr QMargins kFrame(4, 30, 4, 4);
QSize ClientRoom() { return kFrameRoom.shrunkBy(kFrame); }

void Settle() {
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < 50) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

// What a user works with: buttons, boxes, lists and tables (not their headers).
bool IsControl(QWidget* w) {
  if (qobject_cast<QHeaderView*>(w) != nullptr) return false;
  return qobject_cast<QAbstractButton*>(w) != nullptr || qobject_cast<QLineEdit*>(w) != nullptr ||
         qobject_cast<QComboBox*>(w) != nullptr || qobject_cast<QAbstractItemView*>(w) != nullptr ||
         qobject_cast<QTextEdit*>(w) != nullptr || qobject_cast<QPlainTextEdit*>(w) != nullptr ||
         qobject_cast<QAbstractSpinBox*>(w) != nullptr;
}

QString Name(QWidget* w) {
  QString text;
  if (auto* b = qobject_cast<QAbstractButton*>(w)) text = b->text();
  if (auto* e = qobject_cast<QLineEdit*>(w)) text = e->placeholderText().isEmpty() ? e->text() : e->placeholderText();
  return QString("%1 '%2'").arg(w->metaObject()->className(), text);
}

// Why a control cannot be reached inside `room` (in `top`'s coordinates): it lies outside a widget that holds
// it, or is squeezed below its least size. Empty when it can be reached, in view or by scrolling a scroll area.
QString Unreachable(QWidget* control, QWidget* top, QSize room) {
  // Buttons, boxes and lists keep their least size (a line edit inside a combo box is the combo box's own).
  const QSize least = control->minimumSizeHint();
  const bool sized = qobject_cast<QAbstractScrollArea*>(control) == nullptr &&
                     qobject_cast<QComboBox*>(control->parentWidget()) == nullptr;
  const bool squeezed = control->height() < least.height() ||
                        (qobject_cast<QLineEdit*>(control) == nullptr && control->width() < least.width());
  if (sized && squeezed) return Name(control) + " is squeezed below its least size";
  QRect rect = control->rect();
  for (QWidget* w = control; w != top; w = w->parentWidget()) {
    QWidget* parent = w->parentWidget();
    rect.translate(w->pos());
    auto* area = qobject_cast<QAbstractScrollArea*>(parent->parentWidget());
    if (area != nullptr && area->viewport() == parent) {
      rect = parent->rect();  // what the scroll area holds scrolls into its view
    } else if (!parent->rect().contains(rect)) {
      return Name(control) + " lies outside its " + parent->metaObject()->className();
    }
  }
  return QRect(QPoint(0, 0), room).contains(rect) ? QString() : Name(control) + " lies outside the screen";
}

// Every visible control of `top` that cannot be reached, a line each.
std::string Unreachables(QWidget* top, QSize room) {
  std::string lines;
  int controls = 0;
  for (QWidget* w : top->findChildren<QWidget*>()) {
    if (!IsControl(w) || !w->isVisible()) continue;
    ++controls;
    const QString why = Unreachable(w, top, room);
    if (!why.isEmpty()) lines += why.toStdString() + "\n";
  }
  return controls > 0 ? lines : "no control in view";
}

// Whether a page (or a tab's page) shows whole in the scroll area that holds it, with nothing to scroll.
bool ShowsWhole(QWidget* page) {
  const QWidget* viewport = page->parentWidget();
  return page->width() <= viewport->width() && page->height() <= viewport->height();
}

}  // namespace

TEST_F(Desktop, EveryPageAndTheNupreirWindowFitA1366By768ScreenWithItsTaskBar) {
  ASSERT_TRUE(window->Start());
  const QSize room = ClientRoom();
  EXPECT_LE(window->minimumSizeHint().width(), room.width());
  EXPECT_LE(window->minimumSizeHint().height(), room.height());
  EXPECT_LE(window->width(), room.width()) << "as the program opens";
  EXPECT_LE(window->height(), room.height()) << "as the program opens";
  window->resize(room);
  const Form forms[] = {Form::MainForm,     Form::frmUserData, Form::frmAbout,    Form::ConvertForm,
                        Form::TailLeg,      Form::GasMassVol,  Form::TCInput,     Form::TCform,
                        Form::dpVac,        Form::VaporPressureForm, Form::frmMollier, Form::frmUDV,
                        Form::frmJetInput,  Form::frmJET0};
  for (Form form : forms) {
    window->SwapForms(window->Current(), form);
    Settle();
    const std::string caption = window->windowTitle().toStdString();
    EXPECT_TRUE(ShowsWhole(window->PageOf(form))) << caption;
    EXPECT_EQ(Unreachables(window.get(), room), "") << caption;
  }
  // The design input, tab by tab.
  window->SwapForms(window->Current(), Form::frmJetInput);
  for (int t = 0; t < Input()->SSTabInput->count(); ++t) {
    Input()->SSTabInput->setCurrentIndex(t);
    Settle();
    const std::string tab = Input()->SSTabInput->tabText(t).toStdString();
    EXPECT_TRUE(ShowsWhole(static_cast<QScrollArea*>(Input()->SSTabInput->widget(t))->widget())) << tab;
    EXPECT_EQ(Unreachables(window.get(), room), "") << tab;
  }
  window->ShowGoFigure();
  Settle();
  GoFigure* calc = window->goFigure();
  EXPECT_LE(calc->minimumSizeHint().width(), room.width());
  EXPECT_LE(calc->minimumSizeHint().height(), room.height());
  EXPECT_LE(calc->height(), room.height());
  EXPECT_EQ(Unreachables(calc, room), "");
}

TEST_F(Desktop, AFirstStartWithoutUserInformationCanBeDoneOnA768PixelScreen) {
  // The test's own data folder holds no user information: the start opens its page.
  window->resize(ClientRoom());
  ASSERT_TRUE(window->Start());
  ASSERT_EQ(window->Current(), Form::frmUserData);
  Settle();
  auto* form = static_cast<frmUserData*>(window->PageOf(Form::frmUserData));
  EXPECT_EQ(Unreachable(form->cmdDone, window.get(), ClientRoom()), "");
  form->Text1[0]->setText("Ann Lee");
  form->cmdDone->click();
  EXPECT_EQ(window->Current(), Form::MainForm);
}

TEST_F(Desktop, EveryHintShowsWholeInItsBoxFromTheWidestWindowToANarrowOne) {
  ASSERT_TRUE(window->Start());
  std::vector<std::string_view> hints = {StageHint()};
  const std::pair<BoxGroup, int> groups[] = {{BoxGroup::kInput, 8}, {BoxGroup::kCost, 3},   {BoxGroup::kCID, 10},
                                             {BoxGroup::kNCpph, 10}, {BoxGroup::kDesign, 4}};
  for (auto [group, count] : groups) {
    for (int i = 0; i < count; ++i) hints.push_back(InputHint({group, i}));
  }
  std::vector<std::string_view> tc_hints;
  for (int r = 0; r < kTcInputs; ++r) tc_hints.push_back(TcHint(r));
  const auto whole = [&](auto* box, std::string_view hint, int width) {
    box->setPlainText(Q(hint));
    Settle();
    EXPECT_LE(box->document()->size().height(), box->viewport()->height()) << width << " " << hint;
    EXPECT_EQ(box->verticalScrollBar()->maximum(), 0) << width << " " << hint;
    EXPECT_EQ(Unreachable(box, window.get(), ClientRoom()), "") << width << " " << hint;
  };
  for (int width : {ClientRoom().width(), 800, 640}) {
    window->resize(width, ClientRoom().height());
    window->SwapForms(window->Current(), Form::frmJetInput);
    for (std::string_view hint : hints) whole(Input()->txtboxMainInputDescription, hint, width);
    window->SwapForms(window->Current(), Form::TCInput);
    for (std::string_view hint : tc_hints) whole(static_cast<TCInput*>(window->PageOf(Form::TCInput))->description, hint, width);
  }
}
