// Reading the pricing data: the configuration, the multiplier look-up, the tube prices and the sectioned price tables.
#include "shell/price_files.h"

#include "properties/list_input.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// The multipliers by their key, in the order they are looked up.
struct MultiplierKey {
  std::string_view key;
  float PriceData::*value;
};
constexpr MultiplierKey kMultiplierKeys[] = {
    {"DLR", &PriceData::DLR},           {"AMFCI", &PriceData::AMFCI},       {"AMFSTEEL", &PriceData::AMFSTEEL},
    {"AMF304", &PriceData::AMF304},     {"AMF316", &PriceData::AMF316},     {"AMFCASTSTL", &PriceData::AMFCASTSTL},
    {"AMFCAST316", &PriceData::AMFCAST316}, {"BLABOR", &PriceData::BLABOR}};

// A price file: PRICEPATH with the file's name appended directly, under the program's data folder when relative.
std::filesystem::path PriceFile(const std::filesystem::path& folder, const std::string& price_path, std::string_view name) {
  const std::filesystem::path joined(price_path + std::string(name));
  return joined.is_absolute() ? joined : folder / joined;
}

}  // namespace

void ReadTubePrices(const std::filesystem::path& file, PriceData& data) {
  ListInput in(file);
  for (int i = 1; i <= kTubeIndexCount; ++i) data.TUBEIDX(i) = in.Integer();
  for (int g = 1; g <= kTubeGroups; ++g) {
    for (int d = 1; d <= kTubeSizes; ++d) {
      for (int k = 1; k <= kTubeValues; ++k) data.TUBEPRC(g, d, k) = in.Single();
    }
  }
}

bool ReadPriceTables(const std::filesystem::path& file, PriceData& data) {
  ListInput in(file);
  data.tables.clear();
  while (!in.Eof()) {
    const std::string line = Trim(in.Line());
    for (const PriceSection& s : PriceSections()) {
      if (line != "DATA " + std::string(s.name)) continue;
      Array2D<float> table(s.rows, s.columns);
      for (int r = 1; r <= s.rows; ++r) {
        for (int c = 1; c <= s.columns; ++c) table(r, c) = in.Single();
      }
      data.tables.insert_or_assign(std::string(s.name), std::move(table));
      break;
    }
  }
  return data.tables.size() == PriceSections().size();
}

const std::vector<PriceSection>& PriceSections() {
  static const std::vector<PriceSection> sections = [] {
    std::vector<PriceSection> s = {{"CSTC", 32, 15}, {"CSTA", 85, 12}, {"PCTSTLCF", 26, 2}, {"EXTRANOZ", 36, 7},
                                   {"CASTJETS", 32, 10}};
    for (std::string_view name :
         {"XALLSTL", "XSTL304", "X304STL", "X304SS", "XSTL316", "X316STL", "X316SS", "XSTLCHAN", "X304CHAN",
          "X316CHAN", "CALLSTL", "CSTL304", "C304STL", "C304SS", "CSTL316", "C316STL", "C316SS", "BALLSTL",
          "BSTL304", "B304STL", "B304SS", "BSTL316", "B316STL", "B316SS", "RALLSTL", "RSTL304", "R304STL", "R304SS",
          "RSTL316", "R316STL", "R316SS"}) {
      s.push_back({name, 19, 8});
    }
    return s;
  }();
  return sections;
}

const Array2D<float>& PriceData::Table(std::string_view name) const {
  static const Array2D<float> empty;
  const auto it = tables.find(name);
  return it == tables.end() ? empty : it->second;
}

bool MultiplierLookup(const std::filesystem::path& file, std::string_view key, float& value) {
  if (key.empty()) return false;
  try {
    ListInput in(file);
    while (!in.Eof()) {
      const std::string text = in.Text();
      const float number = in.Single();
      if (text.find(key) != std::string::npos) {
        value = number;
        return true;
      }
    }
  } catch (const VbError&) {
  }
  return false;
}

void ReadPricing(const ProgramPaths& paths, PriceData& data) {
  data = PriceData{};
  PriceData read;
  const std::filesystem::path config = paths.UserDataFile(kPriceConfigFile);
  std::filesystem::path reading = config;  // the file being read, for the reason pricing is off
  try {
    ListInput in(config);
    read.PRICEMODE = in.Integer();
    read.PRICEPATH = in.Text();
    if (read.PRICEMODE != 1 && read.PRICEMODE != 2) {
      data.off_reason = config.string() + " sets PRICEMODE " + std::to_string(read.PRICEMODE) + ".";
      return;
    }
    reading = PriceFile(paths.pgmfiles, read.PRICEPATH, kMultiplierFile);
    read.folder = reading.parent_path();
    for (const MultiplierKey& m : kMultiplierKeys) {
      if (!MultiplierLookup(reading, m.key, read.*m.value)) {
        data.off_reason = reading.string() + " has no number for " + std::string(m.key) + ".";
        return;
      }
    }
    reading = PriceFile(paths.pgmfiles, read.PRICEPATH, kTubePriceFile);
    ReadTubePrices(reading, read);
    reading = PriceFile(paths.pgmfiles, read.PRICEPATH, kPriceTableFile);
    if (!ReadPriceTables(reading, read)) {
      data.off_reason = reading.string() + " lacks a section.";
      return;
    }
  } catch (const VbError& e) {
    data.off_reason = reading.string() + ": " + RunTimeErrorText(e);
    return;
  }
  data = std::move(read);
}

}  // namespace kestrane
