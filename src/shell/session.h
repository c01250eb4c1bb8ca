// What lives as long as the program: the loaded data, the current case and state carried across runs.
#pragma once

#include <cstdint>
#include <optional>

#include "case/design_case.h"
#include "properties/vb.h"
#include "shell/app_data.h"
#include "shell/forms.h"

namespace kestrane {

struct Session {
  explicit Session(ProgramPaths paths) { data.paths = std::move(paths); }

  AppData data;
  DesignCase design;
  // Pressure between stages A and B fixed by a four stage run; it stays for
  // the later runs until the program ends.
  float PINTERFIX = 0;
  WindowGeometry window;
  int16_t EXITING = 0;
  // A fixed "today" for reproducible reports; the clock when empty.
  std::optional<VbDate> fixed_today;

  VbDate Today() const;
};

}  // namespace kestrane
