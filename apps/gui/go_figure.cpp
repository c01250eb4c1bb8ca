// The Nupreir calculator window: expression with history, five variables, angle unit, the results box and its file.
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QVBoxLayout>

#include "documents/page_frame.h"
#include "documents/tool_reports.h"
#include "pages.h"
#include "trap.h"

namespace kestrane::gui {

namespace {

QString Filter() { return "GoFigure Files (*.GFR)"; }

// The results text as rich text: expression lines blue (colour 1), values bold red (colour 12).
QString Coloured(const std::string& results) {
  QString html;
  for (const QString& line : Q(results).split("\r\n")) {
    const int eq = line.lastIndexOf(" = ");
    if (eq < 0 || eq + 3 == line.size()) {
      html += "<span style='color:#000080'>" + line.toHtmlEscaped() + "</span><br>";
    } else {
      html += "<span style='color:#000080'>" + line.left(eq + 3).toHtmlEscaped() + "</span><b style='color:#ff0000'>" +
              line.mid(eq + 3).toHtmlEscaped() + "</b><br>";
    }
  }
  return html;
}

}  // namespace

GoFigure::GoFigure(MainWindow& w) : QWidget(nullptr, Qt::Window), w_(w), watcher_(this, w.ui) {
  setWindowTitle(Q(NupreirCaption(model)));
  resize(640, 520);
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QMenuBar;
  layout->setMenuBar(bar);
  w_.AddFileMenu(bar, this,
                 {Filter(), [this] { return CheckToStore(); },
                  [this] {
                    model = NupreirScreen{};
                    Show();
                  },
                  [this](const QString& path) {
                    ReadGoFigure(S(path), model, w_.ui);
                    Show();
                  },
                  [this] { return model.file; },
                  [this](const std::string& path) {
                    Take();
                    WriteGoFigure(path, model, w_.ui);
                    Show();
                  },
                  {}});
  bar->addAction("&Print", this, Trapped(w_.ui, [this] {
    Take();
    const NupreirScreen shown = model;
    const std::string date = ReportDate(w_.session.Today());
    w_.preview(this, {windowTitle(), [shown, date](PageSink& printer) {
                        PrintNupreir(printer, shown.variables, shown.expression, shown.results, shown.file, date);
                      }});
  }))->setObjectName("mnuPrint");
  cmboExprText = new QComboBox;
  cmboExprText->setEditable(true);
  cmboExprText->setInsertPolicy(QComboBox::NoInsert);
  layout->addWidget(new QLabel("Expression"));
  layout->addWidget(cmboExprText);
  auto* vars = new QGridLayout;
  vars->addWidget(new QLabel("<b>Variable</b>"), 0, 0);
  vars->addWidget(new QLabel("<b>Value</b>"), 0, 1);
  for (size_t i = 0; i < kNupreirVariables; ++i) {
    names[i] = new QLineEdit;
    values[i] = new QLineEdit;
    vars->addWidget(names[i], static_cast<int>(i) + 1, 0);
    vars->addWidget(values[i], static_cast<int>(i) + 1, 1);
    watcher_.Watch(names[i]);
    watcher_.Watch(values[i], [this, i] { last_value_ = i; });
  }
  layout->addLayout(vars);
  auto* options = new QHBoxLayout;
  degrees = new QRadioButton("Degrees");
  radians = new QRadioButton("Radians");
  degrees->setChecked(true);
  options->addWidget(degrees);
  options->addWidget(radians);
  options->addStretch();
  auto* grab = new QPushButton("&Grab");
  options->addWidget(grab);
  connect(grab, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Grab(); }));
  auto* calculate = new QPushButton("&Calculate");
  calculate->setDefault(true);
  options->addWidget(calculate);
  layout->addLayout(options);
  results = new QTextEdit;
  results->setReadOnly(true);
  layout->addWidget(results, 1);
  connect(calculate, &QPushButton::clicked, this, Trapped(w_.ui, [this] { Calculate(); }));
  connect(cmboExprText->lineEdit(), &QLineEdit::returnPressed, this, Trapped(w_.ui, [this] { Calculate(); }));
}

void GoFigure::Take() {
  model.expression = S(cmboExprText->currentText());
  model.radians = radians->isChecked();
  for (size_t i = 0; i < kNupreirVariables; ++i) model.variables[i] = {S(names[i]->text()), S(values[i]->text())};
}

void GoFigure::Show() {
  cmboExprText->clear();
  for (const auto& entry : model.history) cmboExprText->addItem(Q(entry));
  cmboExprText->setEditText(Q(model.expression));
  (model.radians ? radians : degrees)->setChecked(true);
  for (size_t i = 0; i < kNupreirVariables; ++i) {
    names[i]->setText(Q(model.variables[i].name));
    values[i]->setText(Q(model.variables[i].value));
  }
  results->setHtml(Coloured(model.results));
  results->moveCursor(QTextCursor::End);
  setWindowTitle(Q(NupreirCaption(model)));
}

void GoFigure::Grab() {
  const QStringList lines = Q(model.results).split("\r\n", Qt::SkipEmptyParts);
  if (lines.isEmpty()) return;
  QString latest = lines.last();
  const int eq = latest.lastIndexOf("=");
  if (eq >= 0) latest = latest.mid(eq + 1);
  values[last_value_]->setText(latest.trimmed());
}

void GoFigure::Calculate() {
  Take();
  if (Evaluate(model, w_.ui)) PreCalc(model);
  Show();
  cmboExprText->lineEdit()->selectAll();
}

bool GoFigure::CheckToStore() {
  Take();
  return w_.Resolve(CheckToStoreGoFigureFile(model, w_.ui), this, Filter(),
                    [this](const std::string& path) { return WriteGoFigure(path, model, w_.ui); });
}

void GoFigure::closeEvent(QCloseEvent* event) {
  Trap(w_.ui, [this] { CheckToStore(); });  // a tool window closes whatever the answer
  event->accept();
}

}  // namespace kestrane::gui
