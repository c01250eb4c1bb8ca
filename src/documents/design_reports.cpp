// A print command's design sheets: lines built and the data sheet's text written once, pages printed on demand.
#include "documents/design_reports.h"

#include <algorithm>

#include "documents/data_sheet.h"
#include "documents/spec_sheet.h"
#include "documents/tc_sheets.h"

namespace kestrane {

namespace {

// Writes a sheet's text by `write`; OUT.TXT of a case never saved goes to the user's case folder, made when
// missing. The path written, empty when it could not be.
template <typename Write>
std::filesystem::path WriteText(Write write, const std::vector<std::string>& lines, const std::filesystem::path& text,
                                const std::filesystem::path& text_folder, Ui& ui) {
  std::error_code ec;
  if (text.parent_path() == text_folder) std::filesystem::create_directories(text_folder, ec);
  return write(lines, text, ui) ? text : std::filesystem::path();
}

}  // namespace

DesignSheets PrepareDesignSheets(const std::vector<Report>& reports, const DesignContext& ctx,
                                 const std::string& date_text, const std::filesystem::path& text_folder) {
  const auto asked = [&reports](Report r) { return std::find(reports.begin(), reports.end(), r) != reports.end(); };
  DesignSheets sheets;
  if (asked(Report::kSpecSheet)) sheets.spec = SpecSheetLines(ctx, ctx.screen.CASENAME, date_text);
  if (asked(Report::kDataSheet)) {
    sheets.data = DataSheetLines(ctx, ctx.data.USERINFO, date_text);
    // A sheet its handler gave up on writes no text.
    if (!sheets.data.empty()) {
      sheets.data_text = WriteText(WriteSheetText, sheets.data,
                                   DataSheetTextPath(ctx.screen.USERCASE, text_folder), text_folder, ctx.ui);
    }
  }
  return sheets;
}

void PrintDesignSheets(const DesignSheets& sheets, PageSink& printer) {
  if (!sheets.spec.empty()) PrintSpecSheet(sheets.spec, printer);
  if (!sheets.data.empty()) PrintDataSheet(sheets.data, printer);
}

TcSheets PrepareTcSheets(const TcInput& tcres, const DesignContext& ctx, const TCInputScreen& screen,
                         const std::string& date_text, const std::filesystem::path& text_folder) {
  TcSheets sheets;
  sheets.spec = TcSpecSheetLines(tcres, ctx.dc, screen, date_text);
  sheets.data = TcDataSheetLines(ctx.dc, screen, ctx.data.USERINFO, date_text);
  sheets.data_text = WriteText(WriteTcSheetText, sheets.data, TcSheetTextPath(screen.TCUSERCASE, text_folder),
                               text_folder, ctx.ui);
  return sheets;
}

void PrintTcSheets(const TcSheets& sheets, PageSink& printer, const std::function<void(PageSink&)>& drawing) {
  PrintTcSpecSheet(sheets.spec, printer, drawing);
  PrintTcDataSheet(sheets.data, printer);
}

}  // namespace kestrane
