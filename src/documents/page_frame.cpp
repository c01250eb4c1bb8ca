// Page head and foot of the reports, and the tools that fill a report line.
#include "documents/page_frame.h"

#include <algorithm>

#include "properties/numeric.h"
#include "properties/text_codec.h"

namespace kestrane {

std::string TemplateLine(std::string_view text, int width) {
  std::string line(text);
  const int chars = static_cast<int>(ToCodePoints(line).size());
  if (chars < width) line.append(static_cast<size_t>(width - chars), ' ');
  return line;
}

void PlaceNumber(std::string& line, float value, float spec, int16_t alignment, int16_t column) {
  PlaceInField(alignment, line, FormatFixed(value, spec), column);
}

float BoxNumber(const std::string& text, double factor) { return CSng(Val(text) * factor); }

std::string CaseStem(std::string_view file_name) {
  const size_t dot = file_name.find('.');
  if (dot == std::string_view::npos || dot == 0) return Trim(file_name);
  return Trim(file_name.substr(0, dot));
}

std::string MakerLine(size_t i) {
  return std::string(static_cast<size_t>(kMakerIndents[i]), ' ') + std::string(kMakerLines[i]);
}

void PageHeader(PageSink& printer, std::string_view title, std::string_view file_name, std::string_view date_text,
                std::string_view prefix) {
  printer.font.name = "Courier New";
  printer.font.size = 12;
  printer.Print("     ");
  printer.Print("     ");
  printer.font.bold = true;
  printer.Print(std::string(31, ' ') + std::string(kMakerName));
  const std::string heading = Trim(title);
  const int length = static_cast<int>(ToCodePoints(heading).size());
  // 40 - length / 2 blanks, the half rounded as the original's conversion to a whole count rounds (to even).
  const int blanks = std::max<int>(CInt(40.0f - static_cast<float>(length) / 2.0f), 1);
  printer.Print(std::string(static_cast<size_t>(blanks), ' ') + heading);
  printer.font.bold = false;

  std::string line = std::string(prefix) + std::string(80, ' ');
  if (!Trim(file_name).empty()) line = std::string(prefix) + "File: " + Trim(file_name) + std::string(80, ' ');
  if (!Trim(date_text).empty()) PlaceInField(-1, line, "Date: " + Trim(date_text), 57);
  printer.Print("     ");
  printer.Print(line);
}

void PageFooter(PageSink& printer) {
  printer.SetCurrentX(1);
  printer.SetCurrentY(printer.Height() - kFootAboveEdgeTwips);
  printer.font.name = "Courier New";
  printer.font.size = 10;
  for (size_t i = 0; i < kMakerLines.size(); ++i) printer.Print(MakerLine(i));
  printer.EndDoc();
}

}  // namespace kestrane
