// The print commands: message, reports in order, window state around them.
#include "documents/print_commands.h"

#include <array>

namespace kestrane {

const PrintCommandDef& PrintCommandOf(PrintCommand command) {
  static const std::array<PrintCommandDef, 6> kCommands = {{
      {"mnuPrintAllOutput", "Patience....printing all output... ",
       {Report::kSpecSheet, Report::kDataSheet, Report::kDrawings, Report::kFlowDiagram}},
      {"mnuPrintDataSheet", "Patience....printing data sheet... ", {Report::kSpecSheet}},
      {"mnuPrintDrawings", "Patience....printing drawings... ", {Report::kDrawings}},
      {"mnuPrintProcessFlowDiagram", "Patience....printing process flow diagram... ", {Report::kFlowDiagram}},
      {"mnuPrintQuotationRequest", "Patience....printing quotation request... ", {Report::kDataSheet}},
      {"mnuPrint", "Patience....printing........ ", {Report::kThermoCompressorSheets}},
  }};
  return kCommands[static_cast<size_t>(command)];
}

void RunPrintCommand(PrintCommand command, PrintingWindow& window,
                     const std::function<void(const std::vector<Report>&)>& print) {
  const PrintCommandDef& def = PrintCommandOf(command);
  window.SetBusy(true);
  window.SetResultsMode(2);
  window.SetStatus(std::string(def.message));
  window.ProcessEvents();
  struct Restore {
    PrintingWindow& window;
    ~Restore() {
      window.SetResultsMode(0);
      window.SetStatus("");
      window.SetBusy(false);
      window.ProcessEvents();
    }
  } restore{window};
  print(def.reports);
}

}  // namespace kestrane
