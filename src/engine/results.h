// The results screen as data: utilities, ejectors and condensers in standard or metric units, and the debugger grid.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "engine/design_context.h"
#include "pump/pump_data.h"

namespace kestrane {

// A block of the results screen: row captions down the side, one column of texts per item.
struct ResultsBlock {
  std::string title;
  std::vector<std::string> captions;
  std::vector<std::string> heads;                  // one per column
  std::vector<std::vector<std::string>> columns;  // columns[item][row]
};

struct ResultsScreen {
  ResultsBlock utilities;
  ResultsBlock ejectors;    // from the highest stage down to C
  ResultsBlock condensers;  // in the order of flow: C1, C2, AC
  bool show_condensers = false;
  ResultsBlock pump;  // the liquid ring pump of stage C
  bool show_pump = false;
};

// The condenser columns the train has, in the order of flow: C1, C2, AC.
std::vector<int> CondensersPresent(const DesignCase& dc);

// The name of condenser column `col`: "AC", "C2" or "C1".
const char* CondenserName(int col);

// The liquid ring pump the run chose for the last stage; none without a pump, after a pump error, or when the
// run kept no pump of the catalogue.
const PumpRecord* DesignedPump(const DesignContext& ctx);

// The model of stage column `c` as the ejector block shows it: its name, "-" and its size, the pump's
// column marked "LRVP".
std::string EjectorModel(const DesignContext& ctx, int c);

// The model of condenser column `col` as the condenser block shows it; in metric units with the shell and tube
// length in millimetres.
std::string CondenserDescription(const DesignContext& ctx, int col, bool metric);

// A piece of equipment of the train, in the order of flow, with the text that names it.
struct EquipmentSlot {
  enum Kind : int16_t { kEjector = 1, kSurface = 2, kBarometric = 3, kPump = 4 };
  Kind kind;
  int index;            // stage column, or condenser column
  std::string caption;  // the model text of the results blocks
};

// The equipment of the design from the suction end: stages 4 and 3, the first intercondenser, stage 2, the second
// intercondenser, stage 1 (or the pump), the after condenser, each when the train has it.
std::vector<EquipmentSlot> EquipmentSlots(const DesignContext& ctx, bool metric);

// The three blocks after a good run, in metric units when asked.
ResultsScreen FillResults(const DesignContext& ctx, bool metric);

// The blocks as the screen shows them, as text.
std::string ResultsText(const ResultsScreen& screen);

// One block as text: its title, the column heads when there are any, a line per caption; the columns as wide
// as their widest text.
std::string BlockText(const ResultsBlock& block);

// The debugger grid: 161 rows of [label, C, B, A, AA, AAA, condenser label, AC, C2, C1,
// table row label, AC, C2, C1]; the condenser table fills rows 1 to 160.
std::vector<std::vector<std::string>> DebuggerGrid(const DesignContext& ctx);

// The label of a condenser table row in the grid (" 78 WLMTD", " 120dim #4 ", "159 ").
std::string CondenserRowLabel(int row);

// The grid as comma separated lines, each closed by a blank, written whole.
bool WriteGridCsv(const std::vector<std::vector<std::string>>& grid, const std::filesystem::path& path, Ui& ui);

// Where the grid goes in the internal pricing mode: OUT.CSV in the system's temporary folder.
std::filesystem::path GridCsvPath();

}  // namespace kestrane
