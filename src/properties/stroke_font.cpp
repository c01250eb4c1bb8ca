// Reads the stroke font DRAWTEXT.DTA: 216 blocks of code and stroke count, each followed by its strokes.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>

#include "properties/stroke_font.h"

namespace kestrane {

namespace {

// The values of a free-format list file in order: separated by commas or line ends, blanks round them dropped;
// a comma that ends a line separates once.
class ListReader {
 public:
  explicit ListReader(std::string text) : text_(std::move(text)) {}

  // The next value as a number; nothing past the end of the file or when the value is not a number.
  std::optional<float> Next() {
    SkipLineEnds();
    if (pos_ >= text_.size()) return std::nullopt;
    size_t end = text_.find_first_of(",\r\n", pos_);
    if (end == std::string::npos) end = text_.size();
    std::string_view field(text_.data() + pos_, end - pos_);
    pos_ = end < text_.size() && text_[end] == ',' ? end + 1 : end;
    field.remove_prefix(std::min(field.find_first_not_of(" \t"), field.size()));
    field.remove_suffix(field.size() - (field.find_last_not_of(" \t") + 1));
    if (field.empty()) return 0.0f;
    if (field.front() == '+') field.remove_prefix(1);
    float value = 0;
    const auto [ptr, ec] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (ec != std::errc() || ptr != field.data() + field.size()) return std::nullopt;
    return value;
  }

 private:
  void SkipLineEnds() {
    while (pos_ < text_.size() && (text_[pos_] == '\r' || text_[pos_] == '\n')) ++pos_;
  }

  std::string text_;
  size_t pos_ = 0;
};

constexpr int kFontCodes = 216;
constexpr int kMaxStrokes = 15;

}  // namespace

bool LoadDrawingFont(const std::filesystem::path& path, DrawFont& font) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream bytes;
  bytes << in.rdbuf();
  ListReader list(bytes.str());
  for (int block = 0; block < kFontCodes; ++block) {
    const std::optional<float> code = list.Next();
    const std::optional<float> count = list.Next();
    if (!code || !count) return false;
    const long c = std::lrint(*code), n = std::lrint(*count);
    if (c < 1 || c > kFontCodes || n < 0 || n > kMaxStrokes) return false;
    // The count stands as soon as it is read; strokes not read stay zero.
    std::vector<FontStroke>& glyph = font.glyphs[static_cast<size_t>(c)];
    glyph.assign(static_cast<size_t>(n), FontStroke{0, 0, 0, 0});
    for (FontStroke& s : glyph) {
      for (float* v : {&s.x1, &s.y1, &s.x2, &s.y2}) {
        const std::optional<float> value = list.Next();
        if (!value) return false;
        *v = *value;
      }
    }
  }
  return true;
}

}  // namespace kestrane
