// Renders every window of the desktop program, with an example case loaded where it applies, to PNG files.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <cstdio>

#include "main_window.h"
#include "pages.h"
#include "pricing_form.h"
#include "study_window.h"
#include "shell/paths.h"

using namespace kestrane;
using namespace kestrane::gui;

namespace {

// A study's range as its window takes it.
struct ShotRange {
  const char* name;
  const char* from;
  const char* to;
  int points;
  bool log;
};

void Settle() {
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < 100) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

bool Save(QWidget* widget, const QString& folder, const QString& name) {
  Settle();
  const bool ok = widget->grab().save(folder + "/" + name + ".png");
  if (!ok) std::fprintf(stderr, "could not write %s.png\n", name.toUtf8().constData());
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_screenshots FOLDER\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setApplicationDisplayName("Kestrane");
  const QString folder = argv[1];
  QDir().mkpath(folder);
  Session session(PathsForProgram(ExecutableDirectory()));
  QtUi ui(nullptr);
  ui.set_unattended(true);
  MainWindow window(session, ui);
  window.resize(1366, 768);  // a laptop's screen
  window.show();
  if (!window.Start()) return 1;
  bool ok = true;
  window.SwapForms(window.Current(), Form::frmUserData);
  ok = Save(&window, folder, "user-information") && ok;
  window.SwapForms(Form::frmUserData, Form::MainForm);
  ok = Save(&window, folder, "main-menu") && ok;
  window.SwapForms(Form::MainForm, Form::frmAbout);
  ok = Save(&window, folder, "about") && ok;

  auto* input = static_cast<frmJetInput*>(window.PageOf(Form::frmJetInput));
  window.SwapForms(Form::frmAbout, Form::frmJetInput);
  input->OpenFile(QString::fromStdString((session.data.paths.examples / "SOLVENT-LOADS-THREE-STAGE.JET").string()));
  const char* tabs[] = {"design-input-main", "design-input-condensible-loads", "design-input-noncondensible-loads",
                        "design-input-condenser", "design-input-ejector"};
  for (int t = 0; t < 5; ++t) {
    input->SSTabInput->setCurrentIndex(t);
    ok = Save(&window, folder, tabs[t]) && ok;
  }
  // Each example designed from the input window: its input, then its results.
  auto* results = static_cast<frmJET0*>(window.PageOf(Form::frmJET0));
  const auto design = [&](const char* example, const QString& name) {
    if (window.Current() != Form::frmJetInput) window.SwapForms(window.Current(), Form::frmJetInput);
    input->OpenFile(QString::fromStdString((session.data.paths.examples / example).string()));
    input->SSTabInput->setCurrentIndex(0);
    if (!name.isEmpty()) ok = Save(&window, folder, "design-input-" + name) && ok;
    input->DesignSystem();
    QElapsedTimer timer;
    timer.start();
    while (window.Current() != Form::frmJET0 && timer.elapsed() < 10000) QCoreApplication::processEvents();
    ok = Save(&window, folder, name.isEmpty() ? "design-results" : "design-results-" + name) && ok;
  };
  design("SOLVENT-LOADS-THREE-STAGE.JET", "");
  // The print preview of all output, as Print > All Output opens it; the data sheet's text goes to a scratch copy.
  window.preview = [&](QWidget* parent, const ReportJob& job) {
    PreviewReport(parent, job, [&](QDialog& dialog) {
      dialog.resize(1000, 740);
      ok = Save(&dialog, folder, "print-preview") && ok;
      dialog.accept();
    });
  };
  const std::string shown_case = window.screen.USERCASE;
  window.screen.USERCASE = (QDir::tempPath() + "/SOLVENT-LOADS-THREE-STAGE.JET").toStdString();
  results->Print(PrintCommand::kAllOutput);
  window.screen.USERCASE = shown_case;
  // The equipment drawings: an intercondenser, an ejector, the flow diagram, and the printed drawings page.
  const auto open = [&](size_t n, const QString& name) {
    results->pictures->Image1[n]->click();
    ok = Save(&window, folder, name) && ok;
    results->pictures->Image1[n]->click();
  };
  open(1, "drawing-condenser");
  open(0, "drawing-ejector");
  open(results->pictures->Image1.size() - 1, "flow-diagram");
  window.preview = [&](QWidget* parent, const ReportJob& job) {
    PreviewReport(parent, job, [&](QDialog& dialog) {
      dialog.resize(1000, 740);
      ok = Save(&dialog, folder, "print-drawings") && ok;
      dialog.accept();
    });
  };
  results->Print(PrintCommand::kDrawings);
  results->cmdDebugger->setChecked(true);
  ok = Save(&window, folder, "design-results-debugger") && ok;
  results->cmdDebugger->setChecked(false);
  // The pricing form over the results it prices.
  results->cmdPricePrint->click();
  results->pricing->resize(860, 420);
  ok = Save(results->pricing, folder, "pricing") && ok;
  results->pricing->hide();
  // Two studies of 100 lb/hr of air: steam per pound against suction pressure by stage count, and total steam
  // against motive pressure.
  design("AIR-ONLY-100-LB-HR.JET", "air");
  const auto study = [&](const char* name, const std::vector<ShotRange> vary, int chart) {
    results->cmdStudy->click();
    StudyWindow* s = results->study;
    for (size_t i = 0; i < vary.size(); ++i) {
      auto& f = s->ranges[i];
      f.name->setCurrentIndex(f.name->findData(vary[i].name));
      f.from->setText(vary[i].from);
      f.to->setText(vary[i].to);
      f.points->setValue(vary[i].points);
      f.log->setChecked(vary[i].log);
    }
    s->second->setChecked(vary.size() == 2);
    s->output->setCurrentIndex(chart);
    s->resize(900, 620);
    s->Run();
    QElapsedTimer timer;
    timer.start();
    while (s->running() && timer.elapsed() < 60000) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    Settle();
    ok = Save(s, folder, name) && ok;
    s->close();
  };
  study("study-steam-per-lb-air", {{"PSUCT", "1", "100", 21, true}, {"NSTAGES", "1", "4", 4, false}}, 4);
  study("study-steam-against-motive", {{"PMOTIVE", "60", "250", 20, false}}, 0);
  design("METRIC-TWO-STAGE.JET", "metric");
  design("TWO-STAGE-LRVP.JET", "pump");
  design("THREE-STAGE-DIRECT-CONTACT.JET", "direct-contact");

  window.SwapForms(Form::frmJET0, Form::ConvertForm);
  ok = Save(&window, folder, "conversions") && ok;
  window.SwapForms(Form::ConvertForm, Form::TailLeg);
  auto* tail = static_cast<TailLeg*>(window.PageOf(Form::TailLeg));
  tail->txtTailLeg[1]->setText("50");
  tail->txtTailLeg[2]->setText("1");
  tail->cmdCalculate->click();
  ok = Save(&window, folder, "tail-leg") && ok;
  window.SwapForms(Form::TailLeg, Form::GasMassVol);
  auto* gas = static_cast<GasMassVol*>(window.PageOf(Form::GasMassVol));
  gas->model.txtMW = "29";
  gas->model.txtTemperature[0] = "60";
  gas->model.txtMassFlow[0] = "100";
  gas->Calculate();
  ok = Save(&window, folder, "gas-volume-mass") && ok;

  window.SwapForms(Form::GasMassVol, Form::TCInput);
  auto* tc = static_cast<TCInput*>(window.PageOf(Form::TCInput));
  tc->OpenFile(QString::fromStdString((session.data.paths.examples / "TC-MEDIUM-RATIO.TTC").string()));
  ok = Save(&window, folder, "thermo-compressor-input") && ok;
  tc->Design();
  ok = Save(&window, folder, "thermo-compressor-results") && ok;
  window.SwapForms(Form::TCform, Form::dpVac);
  auto* dp = static_cast<dpVac*>(window.PageOf(Form::dpVac));
  ReadDpFile(session.data.paths.examples / "LINE-LOSS-HEI.TDP", dp->model, ui);
  dp->Refresh();
  dp->Calculate();
  ok = Save(&window, folder, "gas-pressure-loss") && ok;

  window.SwapForms(Form::dpVac, Form::VaporPressureForm);
  auto* vp = static_cast<VaporPressureForm*>(window.PageOf(Form::VaporPressureForm));
  vp->search->setText("toluene");
  vp->vapors->selectRow(0);
  vp->Calculate();
  ok = Save(&window, folder, "vapor-pressures") && ok;
  window.SwapForms(Form::VaporPressureForm, Form::frmMollier);
  auto* mollier = static_cast<frmMollier*>(window.PageOf(Form::frmMollier));
  mollier->value->setText("400");
  mollier->Calculate();
  ok = Save(&window, folder, "steam-properties") && ok;
  window.SwapForms(Form::frmMollier, Form::frmUDV);
  auto* udv = static_cast<frmUDV*>(window.PageOf(Form::frmUDV));
  udv->grid->selectRow(0);
  udv->graph->click();
  ok = Save(&window, folder, "user-defined-vapors") && ok;

  window.ShowGoFigure();
  GoFigure* calc = window.goFigure();
  ReadGoFigure(session.data.paths.examples / "INLET-VOLUME.GFR", calc->model, ui);
  calc->Show();
  ok = Save(calc, folder, "nupreir") && ok;
  return ok ? 0 : 1;
}
