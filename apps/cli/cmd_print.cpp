// kestrane print: the specification sheet, the design data sheet and the thermo compressor sheets as text or PDF.
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "case/jet_file.h"
#include "cli.h"
#include "design_prints.h"
#include "documents/design_reports.h"
#include "documents/page_frame.h"
#include "documents/text_pages.h"
#include "engine/design_run.h"
#include "painter_pages.h"
#include "pricing/price_report.h"
#include "properties/vb_file.h"
#include "thermo/tc_file.h"
#include "thermo/tc_input.h"
#include "thermo/thermo_compressor.h"

namespace kestrane::cli {

void StartPainting() {
  if (QGuiApplication::instance() != nullptr) return;
  // Qt paints fonts only with an application; it needs no screen.
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  // Qt's own chatter (a missing runtime folder, font notes) is no message of this command.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
  });
  static int argc = 1;
  static char name[] = "kestrane";
  static char* argv[] = {name, nullptr};
  static QGuiApplication app(argc, argv);
}

namespace {

struct PrintArgs {
  std::string what;
  std::string file;
  std::string format = "txt";
  std::string out;
};

// The pages of a report in the asked form: plain text, a PDF, or an image file a page, painted by Qt.
class ReportOutput {
 public:
  explicit ReportOutput(const PrintArgs& args) : args_(args) {
    if (args.format == "pdf") {
      StartPainting();
      pdf_ = std::make_unique<PdfPages>(args.out);
    } else if (args.format != "txt") {
      StartPainting();
      files_ = std::make_unique<FilePages>(args.out, args.format);
    }
  }
  PageSink& pages() {
    if (pdf_) return pdf_->pages();
    if (files_) return *files_;
    return text_;
  }

  // Writes the pages to the output file (standard output for text without -o).
  void Finish(const RecordingUi& ui) {
    std::string error;
    if (pdf_) {
      if (!pdf_->Commit(error)) Fail(kExitUsage, error, ui);
      return;
    }
    if (files_) {
      if (!files_->error().empty()) Fail(kExitUsage, files_->error(), ui);
      for (size_t i = 1; i < files_->written().size(); ++i) {
        std::fprintf(stderr, "Page %zu is in %s.\n", i + 1, files_->written()[i].string().c_str());
      }
      return;
    }
    if (args_.out.empty() || args_.out == "-") {
      std::fwrite(text_.text().data(), 1, text_.text().size(), stdout);
      return;
    }
    try {
      WriteFileWhole(args_.out, text_.text());
    } catch (const VbError& e) {
      Fail(kExitUsage, "The file " + args_.out + " could not be written: " + e.what() + ".", ui);
    }
  }

 private:
  const PrintArgs& args_;
  std::unique_ptr<PdfPages> pdf_;
  std::unique_ptr<FilePages> files_;
  TextPages text_;
};

// Reads the user's information for the sheets that carry the sender's details.
void LoadUserInfo(Session& session, RecordingUi& ui) {
  AppData& data = session.data;
  data.userinfo_state = ReadUserInfo(data.paths.UserDataFile(kUserInfoFile), data.USERINFO, ui);
}

// The text file of a sheet has been written where the sheet says; the command names it.
void TellTextFile(const std::filesystem::path& path) {
  std::fprintf(stderr, "The sheet's text is in %s.\n", path.string().c_str());
}

int PrintDesignSheets(Session& session, const PrintArgs& args, CliUi& ui) {
  InputScreen screen = NewCase();
  const DesignOutcome outcome = DesignCaseFile(session, args.file, screen, ui, "print");
  DesignContext ctx{session.design, session.data, screen, session.PINTERFIX, ui};

  // "all" is the menu's all output; drawings and the flow diagram are pictures, left out of the text form.
  const bool all = args.what == "all";
  std::vector<Report> reports;
  if (all || args.what == "spec-sheet") reports.push_back(Report::kSpecSheet);
  if (all || args.what == "data-sheet") reports.push_back(Report::kDataSheet);
  if ((all && args.format != "txt") || args.what == "drawings") reports.push_back(Report::kDrawings);
  if ((all && args.format != "txt") || args.what == "flow-diagram") reports.push_back(Report::kFlowDiagram);
  if (std::find(reports.begin(), reports.end(), Report::kDataSheet) != reports.end()) LoadUserInfo(session, ui);
  const std::string date = ReportDate(session.Today());
  const DesignSheets sheets = PrepareDesignSheets(reports, ctx, date, session.data.paths.usrfiles);
  if (!sheets.data_text.empty()) TellTextFile(sheets.data_text);
  ReportOutput output(args);
  PrintDesignReports(reports, sheets, ctx, date, output.pages());
  output.Finish(ui);
  for (const std::string& error : outcome.errors) std::fprintf(stderr, "Design error: %s\n", error.c_str());
  return outcome.errors.empty() ? kExitDone : kExitDesignError;
}

int PrintTcSheets(Session& session, const PrintArgs& args, CliUi& ui) {
  TCInputScreen screen;
  if (!OpenTCFile(args.file, screen, ui)) FailToRead("The case", args.file, ui);
  DesignCase& dc = session.design;
  TcInput tcin;
  if (CheckTCInput(screen, dc, tcin, Steam{session.data.steam, ui}, ui) != 0) {
    Refuse("The input was refused: nothing was printed.", ui);
  }
  const InputScreen design_screen = NewCase();
  DesignContext ctx{dc, session.data, design_screen, session.PINTERFIX, ui};
  try {
    DesignThermoCompressor(ctx, tcin);
  } catch (const VbError& e) {
    Fail(kExitDesignError, "The thermo compressor could not be designed: " + RunTimeErrorText(e), ui);
  }
  LoadUserInfo(session, ui);
  const TcSheets sheets = PrepareTcSheets(tcin, ctx, screen, ReportDate(session.Today()), session.data.paths.usrfiles);
  if (!sheets.data_text.empty()) TellTextFile(sheets.data_text);
  ReportOutput output(args);
  PrintTcReports(sheets, ctx, screen.Metric(), TcModel(dc), output.pages());
  output.Finish(ui);
  return kExitDone;
}

// The pricing breakdown of a case; exit 1 when it could not be completed.
int PrintPrice(Session& session, const PrintArgs& args, CliUi& ui) {
  RequirePricing(session, ui);
  InputScreen screen = NewCase();
  DesignCaseFile(session, args.file, screen, ui, "price");
  const DesignContext ctx{session.design, session.data, screen, session.PINTERFIX, ui};
  const PriceBuildUp price = PriceDesign(ctx);
  ReportOutput output(args);
  PrintPriceBreakdown(output.pages(), price, args.file, ReportDate(session.Today()));
  output.Finish(ui);
  return price.complete ? kExitDone : kExitRefused;
}

int Print(const GlobalOptions& options, const PrintArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(false);
  if (args.format == "txt" && (args.what == "drawings" || args.what == "flow-diagram")) {
    Fail(kExitUsage, "Drawings print as pdf, svg or png: --format pdf -o FILE.pdf", ui);
  }
  if (args.format != "txt" && (args.out.empty() || args.out == "-")) {
    Fail(kExitUsage, "A PDF, SVG or PNG needs an output file: -o FILE." + args.format, ui);
  }
  LoadDesignData(*session, ui);
  // The drawings' stroke font, for the drawings and the compressor's sheet; without it drawings print their
  // lines and no letters.
  LoadDrawingFont(session->data.paths.DataFile(kDrawingFontFile), session->data.font);
  if (args.what == "price") return PrintPrice(*session, args, ui);
  return args.what == "tc-sheets" ? PrintTcSheets(*session, args, ui) : PrintDesignSheets(*session, args, ui);
}

}  // namespace

void AddPrintCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<PrintArgs>();
  auto* print = app.add_subcommand("print", "Print a case's sheets as text or PDF");
  print->add_option("SHEET", args->what,
                    "spec-sheet: the vacuum system specification sheet; data-sheet: the design data sheet (also "
                    "written as text beside the case, NAME.TXT); drawings: the preliminary drawings, six a page; "
                    "flow-diagram: the process flow diagram; all: all of these (the sheets only as text); "
                    "tc-sheets: the thermo compressor's specification and data sheets of a .TTC case (its text "
                    "beside the case too); price: the pricing breakdown")
      ->required()
      ->check(CLI::IsMember({"spec-sheet", "data-sheet", "drawings", "flow-diagram", "all", "tc-sheets", "price"}));
  print->add_option("CASE", args->file, "Case file (.JET, or .TTC for tc-sheets)")->required();
  print->add_option("--format", args->format,
                    "txt: the printed lines, a form feed between pages; pdf: the pages; svg or png: a file a page "
                    "(the second page FILE-2.png...)")
      ->check(CLI::IsMember({"txt", "pdf", "svg", "png"}));
  print->add_option("-o,--output", args->out, "Output file (text goes to standard output without it)");
  print->callback([&options, &exit_code, args] { exit_code = Print(options, *args); });
}

}  // namespace kestrane::cli
