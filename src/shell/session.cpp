// What lives as long as the program: the loaded data, the current case and state carried across runs.
#include "shell/session.h"

#include <ctime>

namespace kestrane {

VbDate Session::Today() const {
  if (fixed_today) return *fixed_today;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return VbDate{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

}  // namespace kestrane
