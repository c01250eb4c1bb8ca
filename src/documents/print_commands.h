// The print commands of the results windows: their messages, the reports each prints, and the window's state
// while it prints.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

// The reports a print command can send.
enum class Report { kSpecSheet, kDataSheet, kDrawings, kFlowDiagram, kThermoCompressorSheets };

// The print entries of the results menu, and the thermo compressor window's Print.
enum class PrintCommand { kAllOutput, kDataSheet, kDrawings, kProcessFlowDiagram, kQuotationRequest, kThermoCompressor };

struct PrintCommandDef {
  std::string_view name;     // the menu entry
  std::string_view message;  // the status line while it prints
  std::vector<Report> reports;
};

// The entry's definition. The data sheet entry prints the specification sheet and the quotation request the
// design data sheet.
const PrintCommandDef& PrintCommandOf(PrintCommand command);

// A results window as its print commands drive it.
class PrintingWindow {
 public:
  virtual ~PrintingWindow() = default;
  // 0 the results, 2 printing: the status line shown, lists hidden, commands disabled.
  virtual void SetResultsMode(int mode) = 0;
  // The status line; an empty text clears it.
  virtual void SetStatus(const std::string& text) = 0;
  // The hourglass pointer while true; back to the pointer before when false.
  virtual void SetBusy(bool busy) = 0;
  // Runs pending events, so that what was set paints.
  virtual void ProcessEvents() = 0;
};

// Runs a print command: the hourglass, printing mode, the message; the command's reports in their order through
// `print`, as one job; then the results mode, the status cleared and the pointer restored, even when printing
// throws.
void RunPrintCommand(PrintCommand command, PrintingWindow& window,
                     const std::function<void(const std::vector<Report>&)>& print);

}  // namespace kestrane
