// The tail leg height's one page print-out: the calculator's values and answers filled into its drawing.
#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "drawings/drawing.h"
#include "shell/page_sink.h"
#include "shell/ui.h"

namespace kestrane {

// Loads the drawing `ksii`, fills its placeholders with the date, the receiver pressure, condenser pressure and
// specific gravity (`inputs`) and the two answers, and prints it fitted to the page on the printer's drawing target,
// table by table: lines, arcs, leaders, texts, dimensions, angles; then the page ends. A drawing that cannot be
// read (told through `ui` by the loader) prints nothing.
void PrintTailLeg(PageSink& printer, Drawing& d, const std::filesystem::path& ksii,
                  const std::array<std::string, 3>& inputs, const std::array<std::string, 2>& answers,
                  const std::string& date_text, Ui& ui);

}  // namespace kestrane
