// Unit conversions from the table of CVRT.DTA: categories of units, each unit with four coefficients to and from a base unit.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "shell/ui.h"

namespace kestrane {

inline constexpr std::string_view kCvrtFile = "CVRT.DTA";
inline constexpr int kCvrtCategories = 21;
inline constexpr int kCvrtUnits = 20;

// base = A^B * (C + x) + D
struct CvrtUnit {
  std::string name, short_name;
  double A = 1, B = 1, C = 0, D = 0;
};

struct CvrtCategory {
  int number = 0;
  std::vector<CvrtUnit> units;
};

struct CvrtTable {
  std::vector<CvrtCategory> categories;  // in file order
  int lines = 0;
  const CvrtCategory* Find(int number) const;
};

// Reads the table; false, with the read error notice, when the file is missing or damaged.
bool ReadCvrt(const std::filesystem::path& path, CvrtTable& table, Ui& ui);

// x in unit `from` to unit `to` of the category, in doubles.
double ConvertUnits(const CvrtCategory& category, int from, int to, double x);

// The result as the form shows it: FormatFixed 20.2 from 1000, 20.4 from 100, 20.6 from 1, else 20.9, trimmed.
std::string CVRT(const CvrtCategory& category, int from, int to, double x);

// The name the program gives a category number of the shipped table.
std::string CategoryName(int number);

}  // namespace kestrane
