// Printing from the results windows: each entry sends its sheets through the preview, the window shows its
// message meanwhile and comes back whole; the data sheet's text lands beside the case; PDF export.
#include <QRegularExpression>
#include <fstream>

#include "desktop.h"
#include "documents/text_pages.h"

namespace {

class PrintWindow : public Desktop {
 protected:
  void SetUp() override {
    // The cases are copies in the test's own folder: the data sheet writes its text beside them.
    fs::create_directories(userdata / "cases");
    window->preview = [this](QWidget*, const ReportJob& job) {
      seen.push_back({Results()->lblStatus->isVisible() ? Results()->lblStatus->text() : QString(),
                      Results()->menus->actions().front()->isEnabled(), Results()->frames->isVisible()});
      TextPages pages;
      job.print(pages);
      printed += pages.text();
      page_count += pages.pages();
    };
  }
  fs::path Copy(const std::string& example) {
    const fs::path to = userdata / "cases" / example;
    fs::copy_file(kProgram / "usrfiles" / example, to, fs::copy_options::overwrite_existing);
    return to;
  }
  void Design(const std::string& example) { DesignFile(Copy(example)); }
  QAction* Entry(const char* name) { return Results()->findChild<QAction*>(name); }
  QAction* PrintMenu() {
    for (QAction* a : Results()->menus->actions()) {
      if (a->text() == "&Print") return a;
    }
    return nullptr;
  }
  // The window as the preview found it: status text, menus enabled, results shown.
  struct Seen {
    QString status;
    bool menus_enabled;
    bool results_shown;
  };
  std::vector<Seen> seen;
  std::string printed;
  int page_count = 0;
};

bool Has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

TEST_F(PrintWindow, EachEntrySendsItsSheetsWhileTheWindowShowsItsMessage) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  // The data sheet entry prints the specification sheet.
  Entry("mnuPrintDataSheet")->trigger();
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].status, "Patience....printing data sheet... ");
  EXPECT_FALSE(seen[0].menus_enabled);
  EXPECT_FALSE(seen[0].results_shown);
  EXPECT_TRUE(Has(printed, "VACUUM SYSTEM SPECIFICATION SHEET"));
  EXPECT_FALSE(Has(printed, "VACUUM SYSTEM DESIGN PROGRAM DATA"));
  EXPECT_EQ(page_count, 1);
  // Afterwards the window is as it was.
  EXPECT_FALSE(Results()->lblStatus->isVisible());
  EXPECT_TRUE(Results()->frames->isVisible());
  EXPECT_TRUE(Results()->menus->actions().front()->isEnabled());
  EXPECT_TRUE(Results()->cmdDebugger->isEnabled());

  // The quotation request prints the design data sheet, and writes its text beside the case.
  printed.clear();
  Entry("mnuPrintQuotationRequest")->trigger();
  EXPECT_EQ(seen.back().status, "Patience....printing quotation request... ");
  EXPECT_TRUE(Has(printed, "VACUUM SYSTEM DESIGN PROGRAM DATA"));
  EXPECT_FALSE(Has(printed, "VACUUM SYSTEM SPECIFICATION SHEET"));
  EXPECT_TRUE(fs::exists(userdata / "cases" / "SOLVENT-LOADS-THREE-STAGE.TXT"));

  // All output: both sheets, the specification sheet first, each its own page, then the drawings' page (on a
  // text page only its heading; the flow diagram is a drawing alone and leaves no text page).
  printed.clear();
  page_count = 0;
  Entry("mnuPrintAllOutput")->trigger();
  EXPECT_EQ(seen.back().status, "Patience....printing all output... ");
  EXPECT_LT(printed.find("VACUUM SYSTEM SPECIFICATION SHEET"), printed.find("VACUUM SYSTEM DESIGN PROGRAM DATA"));
  EXPECT_LT(printed.find("VACUUM SYSTEM DESIGN PROGRAM DATA"), printed.find("Preliminary Drawings"));
  EXPECT_EQ(page_count, 3);
}

TEST_F(PrintWindow, ADesignWithoutResultsHasNothingToPrint) {
  Design("LRVP-BEYOND-LIMITS.JET");
  EXPECT_EQ(Results()->lblMessage->text(), "LRVP Error");
  EXPECT_FALSE(PrintMenu()->isEnabled());
  EXPECT_FALSE(Action(Results(), "&Export PDF...")->isEnabled());
  // A good design afterwards can print again.
  window->SwapForms(Form::frmJET0, Form::frmJetInput);
  ASSERT_TRUE(Input()->OpenFile(QString::fromStdString(Copy("TWO-STAGE-SURFACE-TUBE-SIDE.JET").string())));
  Input()->DesignSystem();
  ASSERT_TRUE(WaitFor([&] { return window->Current() == Form::frmJET0 && Results()->lblMessage->text().isEmpty(); }));
  EXPECT_TRUE(Action(Results(), "&Export PDF...")->isEnabled());
  EXPECT_TRUE(PrintMenu()->isEnabled());
  Entry("mnuPrintAllOutput")->trigger();
  EXPECT_EQ(page_count, 3);
}

// The pages of a PDF file, counted by their page objects.
int PdfPageCount(const fs::path& pdf) {
  std::ifstream in(pdf, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.rfind("%PDF", 0) != 0) return 0;
  return static_cast<int>(QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()))
                              .count(QRegularExpression(R"(/Type\s*/Page(?!s))")));
}

// All output as one PDF: both sheets, the drawings' page and the flow diagram.
TEST_F(PrintWindow, ExportPdfWritesAllOutputAsPagesOfOneFile) {
  Design("METRIC-TWO-STAGE.JET");
  const fs::path pdf = userdata / "cases" / "sheets.pdf";
  QString suggested;
  window->pdf_path = [&](QWidget*, const QString& name) {
    suggested = name;
    return QString::fromStdString(pdf.string());
  };
  Action(Results(), "&Export PDF...")->trigger();
  EXPECT_EQ(suggested, "METRIC-TWO-STAGE.pdf");
  EXPECT_EQ(PdfPageCount(pdf), 4);
  EXPECT_FALSE(fs::exists(pdf.string() + ".part")) << "no temporary file is left";
  // A folder that cannot be written is told, and the program goes on.
  const size_t notices = ui.notices.size();
  window->pdf_path = [&](QWidget*, const QString&) { return QString::fromStdString((userdata / "none" / "x.pdf").string()); };
  Action(Results(), "&Export PDF...")->trigger();
  ASSERT_EQ(ui.notices.size(), notices + 1);
  EXPECT_TRUE(Has(ui.notices.back(), "x.pdf could not be written"));
  EXPECT_TRUE(Results()->frames->isVisible());
}

TEST_F(PrintWindow, TheThermoCompressorWindowPrintsItsTwoSheets) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::TCInput);
  auto* tc = static_cast<TCInput*>(window->PageOf(Form::TCInput));
  ASSERT_TRUE(tc->OpenFile(QString::fromStdString(Copy("TC-MEDIUM-RATIO.TTC").string())));
  tc->Design();
  ASSERT_EQ(window->Current(), Form::TCform);
  auto* results = static_cast<TCform*>(window->PageOf(Form::TCform));
  QString status;
  window->preview = [&](QWidget*, const ReportJob& job) {
    status = results->lblStatus->text();
    TextPages pages;
    job.print(pages);
    printed = pages.text();
    page_count = pages.pages();
  };
  results->findChild<QAction*>("mnuPrint")->trigger();
  EXPECT_EQ(status, "Patience....printing........ ");
  EXPECT_LT(printed.find("THERMO COMPRESSOR SPECIFICATION SHEET"), printed.find("THERMO COMPRESSOR DESIGN PROGRAM DATA"));
  EXPECT_EQ(page_count, 2);
  EXPECT_TRUE(fs::exists(userdata / "cases" / "TC-MEDIUM-RATIO.TXT"));
  EXPECT_FALSE(results->lblStatus->isVisible());
}

}  // namespace

namespace {

// The tools print through the same preview: each page carries the tool's heading and what the tool shows.
class ToolPrint : public Desktop {
 protected:
  void SetUp() override {
    window->preview = [this](QWidget*, const ReportJob& job) {
      TextPages pages;
      job.print(pages);
      printed = pages.text();
      ++previews;
    };
  }
  std::string printed;
  int previews = 0;
};

TEST_F(ToolPrint, PressureLossAndNupreirPrintWhatTheirWindowsShow) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::dpVac);
  auto* dp = static_cast<dpVac*>(window->PageOf(Form::dpVac));
  ASSERT_TRUE(ReadDpFile(kProgram / "usrfiles" / "LINE-LOSS-HEI.TDP", dp->model, ui));
  dp->Refresh();
  dp->Calculate();
  dp->findChild<QAction*>("mnuPrint")->trigger();
  ASSERT_EQ(previews, 1);
  EXPECT_TRUE(Has(printed, "Kestrane Gas Pressure Drop Estimation"));
  EXPECT_TRUE(Has(printed, "Total calculated pressure drop:"));
  EXPECT_TRUE(Has(printed, "File: LINE-LOSS-HEI.TDP")) << printed;

  window->ShowGoFigure();
  GoFigure* calc = window->goFigure();
  calc->cmboExprText->setEditText("2^3^2");
  calc->Calculate();
  calc->findChild<QAction*>("mnuPrint")->trigger();
  ASSERT_EQ(previews, 2);
  EXPECT_TRUE(Has(printed, "Nupreir Expression Evaluator"));
  EXPECT_TRUE(Has(printed, "2 ^ 3 ^ 2 = 64"));
}

TEST_F(ToolPrint, UserVaporsPrintTheOneSelectedOrAll) {
  ASSERT_TRUE(window->Start());
  window->SwapForms(Form::MainForm, Form::frmUDV);
  auto* udv = static_cast<frmUDV*>(window->PageOf(Form::frmUDV));
  ASSERT_GT(udv->grid->rowCount(), 1);
  // Nothing selected: Print Current has nothing to print.
  udv->grid->setCurrentCell(-1, -1);
  udv->print_current->click();
  EXPECT_EQ(previews, 0);
  udv->grid->setCurrentCell(1, 0);
  udv->print_current->click();
  ASSERT_EQ(previews, 1);
  EXPECT_TRUE(Has(printed, "Kestrane User Defined Vapor Pressure"));
  EXPECT_TRUE(Has(printed, Trim(session.data.user_vapors.UDVNAME(2)).c_str())) << printed;
  EXPECT_TRUE(Has(printed, "Vapor Press(mmHgA)"));
  udv->print_all->click();
  ASSERT_EQ(previews, 2);
  for (int i = 1; i <= session.data.user_vapors.NUDV; ++i) {
    EXPECT_TRUE(Has(printed, Trim(session.data.user_vapors.UDVNAME(i)).c_str()));
  }
}

}  // namespace
