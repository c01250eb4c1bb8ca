// The user vapor print-outs: the fields and curve table of one vapor, the table of all vapors.
#include "documents/user_vapor_reports.h"

#include <vector>

#include "documents/page_frame.h"
#include "documents/paged_report.h"
#include "properties/numeric.h"
#include "properties/text_codec.h"
#include "properties/user_vapors.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// A table column: its head behind `gap` blanks; the values of a text column start under the head's first
// letter, numbers end under its last.
struct Column {
  std::string head;
  int gap = 0;
  bool text = false;
};

// The head line of the columns side by side, and where each column's values stand (1-based).
struct Table {
  std::string head;
  std::vector<int16_t> at;
};

Table Lay(const std::vector<Column>& columns) {
  Table table;
  for (const Column& c : columns) {
    const int start = static_cast<int>(ToCodePoints(table.head).size()) + c.gap + 1;
    table.head += std::string(static_cast<size_t>(c.gap), ' ') + c.head;
    const int first_letter = start + static_cast<int>(c.head.find_first_not_of(' '));
    const int last = start + static_cast<int>(ToCodePoints(c.head).size()) - 1;
    table.at.push_back(static_cast<int16_t>(c.text ? first_letter : last));
  }
  return table;
}

// A table row: each cell placed in its column of a line as wide as the head line.
std::string Row(const Table& table, const std::vector<Column>& columns, const std::vector<std::string>& cells) {
  std::string line = TemplateLine("", static_cast<int>(ToCodePoints(table.head).size()));
  for (size_t i = 0; i < cells.size(); ++i) PlaceInField(columns[i].text ? -1 : 1, line, cells[i], table.at[i]);
  return line;
}

// A report of the user vapors at `size` points.
PagedReport VaporReport(const std::string& date_text, float size) {
  PagedReport report;
  report.title = kUserVaporReportTitle;
  report.date_text = date_text;
  report.size = size;
  return report;
}

std::string TypeText(float alcohol_mark) { return alcohol_mark == 1 ? "Alcohol" : "Non-alcohol"; }

}  // namespace

void PrintUserVapor(PageSink& printer, const Vapors& vapors, int16_t row, bool fahrenheit,
                    const std::string& date_text) {
  if (row < 1 || row > vapors.user.NUDV) return;
  const auto& u = vapors.user.UDVDATA;
  const UdvCurve curve = UdvGraph(vapors, row, fahrenheit);
  PagedReport report = VaporReport(date_text, 10);
  report.lines = {"      Vapor Name: " + RTrim(vapors.user.UDVNAME(row)),
                  "             ID#: " + GeneralText(u(row, 1)),
                  "              MW: " + GeneralText(u(row, 8)),
                  "            Type: " + TypeText(u(row, 9)),
                  "",
                  "      Valid temperature range:",
                  "      " + curve.subtitle,
                  "",
                  "      Temperature & Vapor Pressure Data:",
                  ""};
  const std::vector<Column> columns = {{"Temp(" + TemperatureUnitText(fahrenheit) + ")", 10},
                                       {"Vapor Press(mmHgA)", 6}};
  const Table table = Lay(columns);
  report.table_from = report.lines.size();
  report.table_heads = 1;
  report.lines.push_back(table.head);
  for (const UdvCurvePoint& p : curve.points) {
    report.lines.push_back(Row(table, columns, {FormatFixed(p.temperature, 0.3f), FormatBySize(p.pressure, 12)}));
  }
  PrintPaged(printer, report);
}

void PrintAllUserVapors(PageSink& printer, const UserVapors& user, const std::string& date_text) {
  // 116 characters wide: the report prints at 8 points to keep the line on a portrait page.
  const std::string celsius = TemperatureUnitText(false);
  const std::vector<Column> columns = {
      {"  ID#"},                  {"      Vapor Name: ", 0, true}, {"   MW", 11},           {"     Type: ", 0, true},
      {"      T1" + celsius, 6}, {"  P1 mmHgA"},                 {"      T2" + celsius}, {"  P2 mmHgA"},
      {"      T3" + celsius},    {"  P3 mmHgA"}};
  const Table table = Lay(columns);
  PagedReport report = VaporReport(date_text, 8);
  report.table_heads = 1;
  report.lines.push_back(table.head);
  for (int16_t row = 1; row <= user.NUDV; ++row) {
    const auto& u = user.UDVDATA;
    std::vector<std::string> cells = {GeneralText(u(row, 1)), RTrim(user.UDVNAME(row)), FormatFixed(u(row, 8), 0.2f),
                                      TypeText(u(row, 9))};
    for (int c = 2; c <= 7; ++c) cells.push_back(FormatFixed(u(row, c), 10.2f));
    report.lines.push_back(Row(table, columns, cells));
  }
  PrintPaged(printer, report);
}

}  // namespace kestrane
