// A vapor's pressures over a temperature range, for the vapor pressure window and command.
#include "properties/vapor_table.h"

#include <algorithm>

#include "properties/temperature_units.h"
#include "properties/user_vapors.h"

namespace kestrane {

namespace {

// Counts the notices shown while the table is made: one means the vapor cannot be evaluated.
class CountingUi : public Ui {
 public:
  explicit CountingUi(Ui& inner) : inner_(inner) {}
  void notice(const std::string& text) override {
    ++notices;
    inner_.notice(text);
  }
  bool ask(const std::string& text, const std::string& title) override { return inner_.ask(text, title); }
  void status(const std::string& text) override { inner_.status(text); }
  void progress(const std::string& text) override { inner_.progress(text); }
  int notices = 0;

 private:
  Ui& inner_;
};

}  // namespace

bool VaporTableRange(float tmin, float tmax, float step) {
  return step > 0 && tmax >= tmin && (tmax - tmin) / step <= 10000;
}

bool VaporPressureTable(const Vapors& vapors, int16_t id, float tmin, float tmax, float step,
                        std::vector<VaporTableRow>& rows, bool celsius) {
  rows.clear();
  if (!VaporTableRange(tmin, tmax, step)) return false;
  CountingUi ui(vapors.ui);
  const Vapors counted{vapors.data, vapors.user, ui};
  // Rows from tmin on while within tmax; the quotient's rounding (180 / 0.18 gives 999.99994 in singles) is
  // forgiven in proportion to the number of steps, so that the table ends on tmax when the steps reach it.
  const double steps = (static_cast<double>(tmax) - tmin) / step;
  const int count = static_cast<int>(steps + 1e-6 * std::max(1.0, steps));
  for (int k = 0; k <= count; ++k) {
    VaporTableRow row;
    row.t = tmin + static_cast<float>(k) * step;
    Antoine(counted, id, celsius ? FahrenheitOf(row.t) : row.t, row.pressure, row.flag);
    if (ui.notices > 0) return false;  // an unknown vapor or points that cannot be fitted
    rows.push_back(row);
  }
  return true;
}

}  // namespace kestrane
