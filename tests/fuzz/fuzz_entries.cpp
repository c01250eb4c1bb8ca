// The fuzz entry points: each reader of outside data fed raw bytes, found by name, for the fuzzers and the corpus replay.
#include "fuzz_entries.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "calculators/conversions.h"
#include "calculators/nupreir.h"
#include "calculators/pressure_drop.h"
#include "case/jet_file.h"
#include "drawings/drawing.h"
#include "properties/steam.h"
#include "properties/stroke_font.h"
#include "properties/user_vapors.h"
#include "properties/vapors.h"
#include "pump/pump_data.h"
#include "shell/price_files.h"
#include "shell/user_info.h"
#include "thermo/tc_file.h"

namespace kestrane::fuzz {

namespace {

namespace fs = std::filesystem;

// The readers take a path: the bytes are written whole to a file of a scratch folder of this process, named with
// the extension the reader expects. The folder goes when the read is done, with any copy the reader kept of a
// damaged file, so that every input is read afresh.
class ScratchFile {
 public:
  ScratchFile(std::string_view bytes, std::string_view extension)
      : folder_(fs::temp_directory_path() / ("kestrane-fuzz-" + std::to_string(::getpid()))),
        path_(folder_ / ("input." + std::string(extension))) {
    fs::create_directories(folder_);
    std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  ~ScratchFile() {
    std::error_code ec;
    fs::remove_all(folder_, ec);
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  const fs::path& path() const { return path_; }

 private:
  fs::path folder_;
  fs::path path_;
};

// Each reader with a fresh state and a Ui that keeps its notices to itself and answers no.
template <typename State, typename Read>
void ReadInto(std::string_view bytes, std::string_view extension, Read read) {
  auto state = std::make_unique<State>();
  RecordingUi ui;
  const ScratchFile file(bytes, extension);
  read(file.path(), *state, ui);
}

void JetCase(std::string_view bytes) { ReadInto<InputScreen>(bytes, "JET", ReadCase); }
void TcCase(std::string_view bytes) { ReadInto<TCInputScreen>(bytes, "TTC", ReadTCFile); }
void DpCase(std::string_view bytes) { ReadInto<DpScreen>(bytes, "TDP", ReadDpFile); }
void GoFigure(std::string_view bytes) { ReadInto<NupreirScreen>(bytes, "GFR", ReadGoFigure); }
void UserVaporFile(std::string_view bytes) { ReadInto<UserVapors>(bytes, "DTA", ReadUDV); }
void Conversions(std::string_view bytes) { ReadInto<CvrtTable>(bytes, "DTA", ReadCvrt); }
void VaporBase(std::string_view bytes) { ReadInto<VaporData>(bytes, "DTA", ReadPsat); }
void SteamData(std::string_view bytes) { ReadInto<SteamTable>(bytes, "DTA", ReadSteamData); }
void Pumps(std::string_view bytes) { ReadInto<PumpData>(bytes, "DTA", ReadPumps); }

void UserInfoFile(std::string_view bytes) {
  UserInfo rows(kUserInfoRows);
  RecordingUi ui;
  const ScratchFile file(bytes, "DTA");
  ReadUserInfo(file.path(), rows, ui);
}

void DrawingFile(std::string_view bytes) {
  auto drawing = std::make_unique<Drawing>();
  RecordingUi ui;
  int16_t failed = 0;
  const ScratchFile file(bytes, "CAD");
  LoadDrawing(*drawing, file.path(), 0, failed, ui);
}

void DrawingFont(std::string_view bytes) {
  auto font = std::make_unique<DrawFont>();
  const ScratchFile file(bytes, "DTA");
  LoadDrawingFont(file.path(), *font);
}

// The price files: each reader on its own, as start-up reads them (a failure there is an exception that leaves
// pricing off), and the configuration with the multiplier look-up of every key over the files it names.
template <typename Read>
void PriceFile(std::string_view bytes, Read read) {
  auto data = std::make_unique<PriceData>();
  const ScratchFile file(bytes, "PRC");
  try {
    read(file.path(), *data);
  } catch (const VbError&) {
  }
}

void PriceTables(std::string_view bytes) { PriceFile(bytes, ReadPriceTables); }
void TubePrices(std::string_view bytes) { PriceFile(bytes, ReadTubePrices); }

void Multipliers(std::string_view bytes) {
  const ScratchFile file(bytes, "PRC");
  float value = 0;
  for (const char* key : {"DLR", "AMFCI", "AMFSTEEL", "AMF304", "AMF316", "AMFCASTSTL", "AMFCAST316", "BLABOR", ""}) {
    MultiplierLookup(file.path(), key, value);
  }
}

void PriceConfig(std::string_view bytes) {
  const ScratchFile file(bytes, "DTA");
  const ProgramPaths paths = PathsForDataFolder(file.path().parent_path(), file.path().parent_path());
  std::filesystem::rename(file.path(), paths.UserDataFile(kPriceConfigFile));
  auto data = std::make_unique<PriceData>();
  ReadPricing(paths, *data);
}

// The expression evaluator as typed: the first line is the expression, each further line (five at most) a
// variable row NAME=VALUE; evaluated in degrees and again in radians.
void Expression(std::string_view bytes) {
  NupreirScreen screen;
  size_t end = bytes.find('\n');
  screen.expression = std::string(bytes.substr(0, end));
  for (auto& variable : screen.variables) {
    if (end == std::string_view::npos) break;
    const size_t start = end + 1;
    end = bytes.find('\n', start);
    const std::string_view row = bytes.substr(start, end == std::string_view::npos ? end : end - start);
    const size_t equals = row.find('=');
    variable.name = std::string(row.substr(0, equals));
    if (equals != std::string_view::npos) variable.value = std::string(row.substr(equals + 1));
  }
  for (const bool radians : {false, true}) {
    screen.radians = radians;
    RecordingUi ui;
    Evaluate(screen, ui);
  }
}

}  // namespace

const std::vector<FuzzEntry>& FuzzEntries() {
  static const std::vector<FuzzEntry> entries = {
      {"jet_case", JetCase},          {"tc_case", TcCase},           {"dp_case", DpCase},
      {"gfr_file", GoFigure},         {"user_vapors", UserVaporFile}, {"user_info", UserInfoFile},
      {"conversions", Conversions},   {"vapor_base", VaporBase},     {"steam_table", SteamData},
      {"pumps", Pumps},               {"drawing", DrawingFile},      {"drawing_font", DrawingFont},
      {"nupreir", Expression},         {"price_tables", PriceTables}, {"tube_prices", TubePrices},
      {"multipliers", Multipliers},   {"price_config", PriceConfig},
  };
  return entries;
}

const FuzzEntry* FindFuzzEntry(std::string_view name) {
  for (const FuzzEntry& entry : FuzzEntries()) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

}  // namespace kestrane::fuzz
