// The gas pressure loss and Nupreir pages: a tool's texts under the page head, over as many pages as they take.
#include "documents/tool_reports.h"

#include <algorithm>
#include <filesystem>

#include "documents/page_frame.h"
#include "documents/paged_report.h"
#include "properties/text_codec.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// Section heads of the Nupreir page stand behind five blanks, what they hold behind eight.
constexpr std::string_view kSectionIndent = "     ";
constexpr std::string_view kTextIndent = "        ";

// A report at 10 points headed with the title, the file's name and the date.
PagedReport ToolReport(std::string_view title, const std::string& file, const std::string& date_text) {
  PagedReport report;
  report.title = title;
  if (!file.empty()) report.file_name = std::filesystem::path(file).filename().string();
  report.date_text = date_text;
  return report;
}

// The lines of a text box behind the indent; an empty line stays empty.
void AddIndented(PagedReport& report, const std::string& box) {
  for (const std::string& line : BoxLines(box)) report.lines.push_back(line.empty() ? "" : std::string(kTextIndent) + line);
}

}  // namespace

void PrintPressureDrop(PageSink& printer, const std::string& results_box, const std::string& file,
                       const std::string& date_text) {
  PagedReport report = ToolReport(kPressureDropReportTitle, file, date_text);
  report.lines = BoxLines(results_box);
  PrintPaged(printer, report);
}

void PrintNupreir(PageSink& printer, const std::array<NupreirVariable, kNupreirVariables>& variables,
                  const std::string& equations, const std::string& results, const std::string& file,
                  const std::string& date_text) {
  PagedReport report = ToolReport(kNupreirTitle, file, date_text);
  const std::string variable_head = "Variable";
  size_t name_width = variable_head.size();
  for (const NupreirVariable& v : variables) name_width = std::max(name_width, ToCodePoints(Trim(v.name)).size());
  const auto row = [&](const std::string& name, const std::string& value) {
    return std::string(kTextIndent) + TemplateLine(name, static_cast<int>(name_width) + 3) + value;
  };
  report.lines = {std::string(kSectionIndent) + "Variables:", ""};
  report.lines.push_back(row(variable_head, "Value"));
  for (const NupreirVariable& v : variables) {
    if (!Trim(v.name).empty() || !Trim(v.value).empty()) report.lines.push_back(row(Trim(v.name), Trim(v.value)));
  }
  report.lines.insert(report.lines.end(), {"", std::string(kSectionIndent) + "Equations:", ""});
  AddIndented(report, equations);
  report.lines.insert(report.lines.end(), {"", std::string(kSectionIndent) + "Results:"});
  AddIndented(report, results);
  PrintPaged(printer, report);
}

}  // namespace kestrane
