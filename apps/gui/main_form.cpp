// The main menu: the start sequence's texts, then the tools.
#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "pages.h"
#include "trap.h"

namespace kestrane::gui {

MainForm::MainForm(MainWindow& w) : Page(&w) {
  auto* layout = new QVBoxLayout(this);
  auto* title = new QLabel("<h1>Kestrane</h1><p>Steam jet vacuum systems and the engineering around them</p>");
  title->setAlignment(Qt::AlignCenter);
  layout->addWidget(title);
  auto* grid = new QGridLayout;
  struct Entry {
    const char* caption;
    std::function<void()> action;
  };
  const std::vector<Entry> entries = {
      {"System &Design",
       [&w] {
         w.screen.USERCASE.clear();
         w.screen.CASENAME.clear();
         w.SwapForms(Form::MainForm, Form::frmJetInput);
         static_cast<frmJetInput*>(w.PageOf(Form::frmJetInput))->SSTabInput->setCurrentIndex(0);
       }},
      {"&Thermo Compressor",
       [&w] {
         auto* tc = static_cast<TCInput*>(w.PageOf(Form::TCInput));
         tc->model.TCUSERCASE.clear();
         tc->model.TCCASENAME.clear();
         w.SwapForms(Form::MainForm, Form::TCInput);
       }},
      {"Vapor &Pressures", [&w] { w.SwapForms(Form::MainForm, Form::VaporPressureForm); }},
      {"&Mollier", [&w] { w.SwapForms(Form::MainForm, Form::frmMollier); }},
      {"&Conversions", [&w] { w.SwapForms(Form::MainForm, Form::ConvertForm); }},
      {"User Defined Vapors", [&w] { w.SwapForms(Form::MainForm, Form::frmUDV); }},
      {"Tail Leg Height", [&w] { w.SwapForms(Form::MainForm, Form::TailLeg); }},
      {"Gas Volume && Mass", [&w] { w.SwapForms(Form::MainForm, Form::GasMassVol); }},
      {"Gas Pressure Loss", [&w] { w.SwapForms(Form::MainForm, Form::dpVac); }},
      {"\"Nupreir\"", [&w] { w.ShowGoFigure(); }},
      {"E&xit", [] { QApplication::quit(); }},
  };
  int row = 0;
  for (const Entry& e : entries) {
    auto* button = new QPushButton(e.caption);
    button->setMinimumHeight(36);
    connect(button, &QPushButton::clicked, this, Trapped(w.ui, e.action));
    grid->addWidget(button, row / 2, row % 2);
    cmdMain.push_back(button);
    ++row;
  }
  layout->addLayout(grid);
  auto* small = new QHBoxLayout;
  auto* user = new QPushButton("User Information");
  auto* about = new QPushButton("&About");
  auto* help = new QPushButton("&Help");
  connect(user, &QPushButton::clicked, this, Trapped(w.ui, [&w] { w.SwapForms(Form::MainForm, Form::frmUserData); }));
  connect(about, &QPushButton::clicked, this, Trapped(w.ui, [&w] {
    w.SwapForms(Form::MainForm, Form::frmAbout);
    static_cast<frmAbout*>(w.PageOf(Form::frmAbout))->cmdDone->setFocus();
  }));
  connect(help, &QPushButton::clicked, this, Trapped(w.ui, [&w] { w.ShowHelp(); }));
  small->addStretch();
  for (auto* b : {user, about, help}) small->addWidget(b);
  layout->addLayout(small);
  layout->addStretch();
  Label3 = new QLabel;
  Label3->setAlignment(Qt::AlignCenter);
  layout->addWidget(Label3);
  connect(&w.ui, &QtUi::statusChanged, this, Trapped(w.ui, [this, &w](const QString& text) {
    if (w.starting) Label3->setText(text);
  }));
}

}  // namespace kestrane::gui
