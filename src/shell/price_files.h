// The pricing data read at start-up: the configuration (mode and price folder), the multipliers, the tube prices and the price tables.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "properties/arrays.h"
#include "shell/paths.h"

namespace kestrane {

inline constexpr std::string_view kPriceConfigFile = "KSConfig.DTA";
inline constexpr std::string_view kMultiplierFile = "MULTIPLE.PRC";
inline constexpr std::string_view kTubePriceFile = "TUBE.PRC";
inline constexpr std::string_view kPriceTableFile = "JETPRC.PRC";

inline constexpr int kTubeIndexCount = 140;  // 35 materials x 4 numbers
inline constexpr int kTubeGroups = 8, kTubeSizes = 6, kTubeValues = 5;

// A section of the price tables: its name after "DATA " and its rows and columns.
struct PriceSection {
  std::string_view name;
  int rows;
  int columns;
};

// Every section the price tables must hold, in the order they are described.
const std::vector<PriceSection>& PriceSections();

struct PriceData {
  int16_t PRICEMODE = 0;  // 0 off; 1 the pricing button; 2 also the price on the results window and OUT.CSV
  std::string PRICEPATH;  // as written, ending in its separator
  std::filesystem::path folder;  // PRICEPATH resolved: a relative one stands under the program's data folder
  float DLR = 0, AMFCI = 0, AMFSTEEL = 0, AMF304 = 0, AMF316 = 0, AMFCASTSTL = 0, AMFCAST316 = 0, BLABOR = 0;
  Array1D<int16_t> TUBEIDX{kTubeIndexCount};
  Array3D<float> TUBEPRC{kTubeGroups, kTubeSizes, kTubeValues};
  std::map<std::string, Array2D<float>, std::less<>> tables;  // by section name
  // Why pricing is off, for the command line to say (the desktop program says nothing); empty when it is on.
  std::string off_reason;

  // A section's table; an empty table for a name the data do not hold.
  const Array2D<float>& Table(std::string_view name) const;
};

// The number of the first record of a multiplier file whose text holds `key` anywhere in it. False for an empty
// key, a key no record holds, and a file that cannot be read.
bool MultiplierLookup(const std::filesystem::path& file, std::string_view key, float& value);

// The tube prices: TUBEIDX, then TUBEPRC. Throws VbError when the file cannot be read whole.
void ReadTubePrices(const std::filesystem::path& file, PriceData& data);

// The price tables: each section opens with a line that, trimmed, is "DATA " and its name, its numbers following
// row by row; other lines are skipped. False when a section is missing; throws VbError when a section's numbers
// cannot be read.
bool ReadPriceTables(const std::filesystem::path& file, PriceData& data);

// Reads the configuration from the user's data folder and, when it turns pricing on, the three price files from
// its folder. Any failure leaves PRICEMODE 0 and says nothing: pricing stays off.
void ReadPricing(const ProgramPaths& paths, PriceData& data);

}  // namespace kestrane
