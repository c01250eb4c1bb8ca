// Unit conversions from the table of CVRT.DTA: categories of units, each unit with four coefficients to and from a base unit.
#include "calculators/conversions.h"

#include <cmath>

#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

namespace {

// One comma separated field: blanks around it and quotes around a text are dropped.
std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  std::string field;
  bool quoted = false;
  for (char ch : line) {
    if (ch == '"') {
      quoted = !quoted;
    } else if (ch == ',' && !quoted) {
      fields.push_back(Trim(field));
      field.clear();
    } else {
      field += ch;
    }
  }
  fields.push_back(Trim(field));
  return fields;
}

double Number(const std::string& text) {
  if (!IsNumeric(text)) throw VbError(13);
  return Val(text);
}

}  // namespace

const CvrtCategory* CvrtTable::Find(int number) const {
  for (const auto& c : categories) {
    if (c.number == number) return &c;
  }
  return nullptr;
}

bool ReadCvrt(const std::filesystem::path& path, CvrtTable& table, Ui& ui) {
  table = CvrtTable{};
  try {
    TextInput in(path);
    int previous = 0;
    while (!in.Eof()) {
      const std::string line = in.LineInput();
      if (Trim(line).empty()) continue;
      const std::vector<std::string> f = Fields(line);
      if (f.size() != 7) throw VbError(62);
      const int number = CInt(Number(f[0]));
      // A new number starts a category; so does the first line, whatever its number.
      if (number != previous || table.categories.empty()) {
        if (table.categories.size() == kCvrtCategories) throw VbError(9);
        table.categories.push_back({number, {}});
        previous = number;
      }
      auto& units = table.categories.back().units;
      if (units.size() == kCvrtUnits) throw VbError(9);
      units.push_back({f[1], f[2], Number(f[3]), Number(f[4]), Number(f[5]), Number(f[6])});
      ++table.lines;
    }
  } catch (const VbError&) {
    ui.notice("An error has occurred reading the conversion data file (CVRT.DTA).  Check to make sure this file is "
              "in the 'pgmfiles' directory of the Kestrane program.  If not, try re-installing Kestrane.  If the "
              "problem persists, contact Tessel Corporation.");
    return false;
  }
  return true;
}

double ConvertUnits(const CvrtCategory& category, int from, int to, double x) {
  const CvrtUnit& u1 = category.units.at(static_cast<size_t>(from - 1));
  const CvrtUnit& u2 = category.units.at(static_cast<size_t>(to - 1));
  const double base = std::pow(u1.A, u1.B) * (u1.C + x) + u1.D;
  return (base - u2.D) / std::pow(u2.A, u2.B) - u2.C;
}

std::string CVRT(const CvrtCategory& category, int from, int to, double x) {
  const double y = ConvertUnits(category, from, to, x);
  // A negative result counts as small.
  const float spec = y >= 1000 ? 20.2f : y >= 100 ? 20.4f : y >= 1 ? 20.6f : 20.9f;
  // The result is a Double, shown with its own digits.
  return Trim(FormatFixedDouble(y, spec));
}

std::string CategoryName(int number) {
  static const char* kNames[] = {"",
                                 "Pressure",
                                 "Temperature",
                                 "Mass flow",
                                 "Volume flow",
                                 "Length",
                                 "Area",
                                 "Volume",
                                 "Mass",
                                 "Energy",
                                 "Power",
                                 "Heat flux",
                                 "Heat transfer coefficient",
                                 "Fouling factor",
                                 "Density",
                                 "Viscosity",
                                 "Velocity",
                                 "Thermal conductivity",
                                 "Specific heat",
                                 "Specific energy",
                                 "Kinematic viscosity",
                                 "Molar flow"};
  if (number >= 1 && number <= kCvrtCategories) return kNames[number];
  return "Category " + std::to_string(number);
}

}  // namespace kestrane
