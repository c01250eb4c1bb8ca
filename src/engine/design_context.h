// What a design run works on: the case record, the loaded data, the input screen's prices and options, the session's carried state and the user.
#pragma once

#include "case/design_case.h"
#include "case/input_screen.h"
#include "properties/steam.h"
#include "properties/vapors.h"
#include "shell/app_data.h"

namespace kestrane {

// A working vector of flows, lb/hr per load.
using LoadVector = Array1D<float>;

// How a design run searches the interstage pressures of two, three and four stage trains.
enum class InterstageSearch {
  kOriginal,  // the program's own stepping search, as it always designed
  kThorough,  // the original first, then every interstage pressure over its whole range (thorough_search.h)
};

struct DesignContext {
  DesignCase& dc;
  const AppData& data;
  const InputScreen& screen;
  float& PINTERFIX;  // carried across runs by the session
  Ui& ui;
  // The search the run uses. A setting of the program or of the command, never of the case file.
  InterstageSearch search = InterstageSearch::kOriginal;
  // Whether the run's advice compares the other stage counts and the thorough search: several designs more,
  // which a study of many points leaves out (its points keep the advice on the design itself).
  bool compare = true;

  Steam steam() const { return Steam{data.steam, ui}; }
  Vapors vapors() const { return Vapors{data.vapors, data.user_vapors, ui}; }
};

// A load vector of all loads.
inline LoadVector NewLoadVector() { return LoadVector(kMaxLoads); }

}  // namespace kestrane
