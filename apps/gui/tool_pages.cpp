// The calculator pages: conversions, tail leg height, gas volume and mass.
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "documents/page_frame.h"
#include "drawings/tail_leg_print.h"
#include "pages.h"
#include "properties/vb.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QPushButton* ExitButton(MainWindow& w, Form form, QWidget* parent) {
  auto* exit = new QPushButton("E&xit", parent);
  QObject::connect(exit, &QPushButton::clicked, parent,
                   Trapped(w.ui, [&w, form] { w.SwapForms(form, Form::MainForm); }));
  return exit;
}

}  // namespace

// --- Conversions ---------------------------------------------------------------

ConvertForm::ConvertForm(MainWindow& w) : Page(&w), w_(w) {
  auto* layout = new QVBoxLayout(this);
  category = new QComboBox;
  layout->addWidget(category);
  auto* row = new QHBoxLayout;
  for (auto*& list : unitList) {
    list = new QListWidget;
    row->addWidget(list);
  }
  layout->addLayout(row, 1);
  auto* form = new QFormLayout;
  value = new QLineEdit("1");
  from_unit_ = new QLabel;
  result = new QLabel;
  result->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* value_row = new QHBoxLayout;
  value_row->addWidget(value);
  value_row->addWidget(from_unit_);
  form->addRow("Value", value_row);
  form->addRow("Result", result);
  layout->addLayout(form);
  layout->addWidget(ExitButton(w, Form::ConvertForm, this), 0, Qt::AlignRight);
  connect(category, &QComboBox::currentIndexChanged, this, Trapped(w_.ui, [this](int index) {
    if (index < 0 || index >= static_cast<int>(table_.categories.size())) return;
    for (auto* list : unitList) {
      list->clear();
      for (const auto& u : table_.categories[static_cast<size_t>(index)].units) list->addItem(Q(u.name));
      list->setCurrentRow(0);
    }
    CVRT();
  }));
  for (auto* list : unitList) connect(list, &QListWidget::currentRowChanged, this, Trapped(w_.ui, [this] { CVRT(); }));
  connect(value, &QLineEdit::textChanged, this, Trapped(w_.ui, [this] { CVRT(); }));
}

void ConvertForm::Activate() {
  if (loaded_) return;
  loaded_ = ReadCvrt(w_.session.data.paths.DataFile(kCvrtFile), table_, w_.ui);
  for (const auto& c : table_.categories) category->addItem(Q(CategoryName(c.number)));
}

void ConvertForm::CVRT() {
  const int c = category->currentIndex();
  const int from = unitList[0]->currentRow() + 1, to = unitList[1]->currentRow() + 1;
  if (c < 0 || from < 1 || to < 1) return;
  const CvrtCategory& cat = table_.categories[static_cast<size_t>(c)];
  from_unit_->setText(Q(cat.units[static_cast<size_t>(from - 1)].short_name));
  result->setText(Q(kestrane::CVRT(cat, from, to, Val(S(value->text())))) + " " +
                  Q(cat.units[static_cast<size_t>(to - 1)].short_name));
}

// --- Tail leg ------------------------------------------------------------------

TailLeg::TailLeg(MainWindow& w) : Page(&w), watcher_(this, w.ui) {
  auto* layout = new QVBoxLayout(this);
  auto* note = new QLabel(Q(kTailLegNote));
  note->setWordWrap(true);
  layout->addWidget(note);
  auto* form = new QFormLayout;
  static const char* captions[] = {"Condensate Receiver Pressure (mmHgA)", "Condenser Pressure (mmHgA)",
                                   "Condensate specific gravity"};
  for (size_t i = 0; i < 3; ++i) {
    txtTailLeg[i] = new QLineEdit(Q(model_.txtTailLeg[i]));
    txtTailLeg[i]->setMaximumWidth(120);
    watcher_.Watch(txtTailLeg[i]);
    form->addRow(captions[i], txtTailLeg[i]);
  }
  layout->addLayout(form);
  auto* answers = new QGroupBox("Min Height");
  auto* al = new QVBoxLayout(answers);
  for (auto*& label : lblAns) {
    label = new QLabel;
    al->addWidget(label);
  }
  layout->addWidget(answers);
  auto* advice = new QLabel(Q(kTailLegAdvice));
  advice->setWordWrap(true);
  layout->addWidget(advice);
  layout->addStretch();
  auto* buttons = new QHBoxLayout;
  cmdCalculate = new QPushButton("&Calculate");
  buttons->addWidget(cmdCalculate);
  cmdPrint = new QPushButton("&Print");
  buttons->addWidget(cmdPrint);
  buttons->addStretch();
  buttons->addWidget(ExitButton(w, Form::TailLeg, this));
  layout->addLayout(buttons);
  // The print-out on its prepared drawing, with the figures as the window shows them.
  connect(cmdPrint, &QPushButton::clicked, this, Trapped(w.ui, [this, &w] {
    std::array<std::string, 3> inputs;
    for (size_t i = 0; i < 3; ++i) inputs[i] = S(txtTailLeg[i]->text());
    const std::array<std::string, 2> answers = {S(lblAns[0]->text()), S(lblAns[1]->text())};
    const std::string date = ReportDate(w.session.Today());
    w.preview(this, {Caption(), [&w, inputs, answers, date](PageSink& printer) {
                       Drawing d;
                       d.font = &w.session.data.font;
                       PrintTailLeg(printer, d, w.session.data.paths.DataFile("KSII.CAD"), inputs, answers, date, w.ui);
                     }});
  }));
  connect(cmdCalculate, &QPushButton::clicked, this, Trapped(w.ui, [this] {
    for (size_t i = 0; i < 3; ++i) model_.txtTailLeg[i] = S(txtTailLeg[i]->text());
    if (CalculateTailLeg(model_)) {
      for (size_t i = 0; i < 2; ++i) lblAns[i]->setText(Q(model_.lblAns[i]));
    }
  }));
}

// --- Gas volume and mass ------------------------------------------------------

GasMassVol::GasMassVol(MainWindow& w) : Page(&w), watcher_(this, w.ui) {
  auto* layout = new QVBoxLayout(this);
  auto* note = new QLabel(Q(kGasFlowNote));
  note->setWordWrap(true);
  layout->addWidget(note);
  auto* grid = new QGridLayout;
  int row = 0;
  txtMW = new QLineEdit;
  txtMW->setMaximumWidth(110);
  watcher_.Watch(txtMW, {}, [this] { model.txtMW = S(txtMW->text()); });
  grid->addWidget(new QLabel("<b>Molecular weight</b>"), row, 0);
  grid->addWidget(txtMW, row++, 1);
  auto group = [&](const char* title, GasGroup g, auto& edits, const auto& units, auto& texts, int& option) {
    grid->addWidget(new QLabel(QString("<b>%1</b>").arg(title)), row++, 0);
    for (size_t i = 0; i < edits.size(); ++i) {
      auto* radio = new QRadioButton(Q(units[i]));
      edits[i] = new QLineEdit;
      edits[i]->setMaximumWidth(110);
      grid->addWidget(radio, row, 0);
      grid->addWidget(edits[i], row++, 1);
      radio->setChecked(static_cast<int>(i) == option);
      connect(radio, &QRadioButton::clicked, this, Trapped(w.ui, [this, g, i] {
        SelectGasOption(model, g, static_cast<int>(i));
        Show();
      }));
      auto* edit = edits[i];
      watcher_.Watch(edit, {}, [this, g, edit, &texts, i] {
        texts[i] = S(edit->text());
        UpdateGasUnits(model, g);
        Show();
      });
    }
  };
  group("Pressure", GasGroup::kPressure, txtPressure, kPressureUnits, model.txtPressure, model.OptionPressure);
  group("Temperature", GasGroup::kTemperature, txtTemperature, kTemperatureUnits, model.txtTemperature,
        model.OptionTemperature);
  auto* mass = new QRadioButton("Enter Mass Flow");
  auto* volume = new QRadioButton("Enter Volumetric Flow");
  mass->setChecked(true);
  connect(mass, &QRadioButton::clicked, this, Trapped(w.ui, [this] {
    SelectMassOrVolume(model, 0);
    Show();
  }));
  connect(volume, &QRadioButton::clicked, this, Trapped(w.ui, [this] {
    SelectMassOrVolume(model, 1);
    Show();
  }));
  grid->addWidget(mass, row, 0);
  grid->addWidget(volume, row++, 1);
  group("Mass flow", GasGroup::kMassFlow, txtMassFlow, kMassFlowUnits, model.txtMassFlow, model.OptionMassFlow);
  group("Volumetric flow", GasGroup::kVolFlow, txtVolFlow, kVolFlowUnits, model.txtVolFlow, model.OptionVolFlow);
  grid->setColumnStretch(2, 1);
  layout->addLayout(grid);
  message = new QLabel;
  message->setStyleSheet("color: darkred;");
  layout->addWidget(message);
  layout->addStretch();
  auto* buttons = new QHBoxLayout;
  auto* calculate = new QPushButton("&Calculate");
  buttons->addWidget(calculate);
  buttons->addStretch();
  buttons->addWidget(ExitButton(w, Form::GasMassVol, this));
  layout->addLayout(buttons);
  connect(calculate, &QPushButton::clicked, this, Trapped(w.ui, [this] { Calculate(); }));
  Show();
}

void GasMassVol::Calculate() {
  GasMassVolCalcs(model);
  Show();
}

void GasMassVol::Show() {
  txtMW->setText(Q(model.txtMW));
  for (size_t i = 0; i < 5; ++i) txtPressure[i]->setText(Q(model.txtPressure[i]));
  for (size_t i = 0; i < 2; ++i) txtTemperature[i]->setText(Q(model.txtTemperature[i]));
  for (size_t i = 0; i < 2; ++i) txtMassFlow[i]->setText(Q(model.txtMassFlow[i]));
  for (size_t i = 0; i < 4; ++i) txtVolFlow[i]->setText(Q(model.txtVolFlow[i]));
  message->setText(Q(model.message));
  Enable();
}

void GasMassVol::Enable() {
  for (size_t i = 0; i < 5; ++i) txtPressure[i]->setReadOnly(!GasBoxEnabled(model, GasGroup::kPressure, static_cast<int>(i)));
  for (size_t i = 0; i < 2; ++i) txtTemperature[i]->setReadOnly(!GasBoxEnabled(model, GasGroup::kTemperature, static_cast<int>(i)));
  for (size_t i = 0; i < 2; ++i) txtMassFlow[i]->setReadOnly(!GasBoxEnabled(model, GasGroup::kMassFlow, static_cast<int>(i)));
  for (size_t i = 0; i < 4; ++i) txtVolFlow[i]->setReadOnly(!GasBoxEnabled(model, GasGroup::kVolFlow, static_cast<int>(i)));
}

}  // namespace kestrane::gui
