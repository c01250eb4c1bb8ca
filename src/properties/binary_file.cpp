// Binary data files: the whole file as bytes, and little-endian 16-bit integers and singles within it.
#include "properties/binary_file.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace kestrane {

std::vector<char> ReadFileBytes(const std::filesystem::path& path) {
  // A folder opens as a stream but fails at its first read, with an exception of the library's.
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return {};
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  try {
    return std::vector<char>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  } catch (const std::ios_base::failure&) {
    return {};
  }
}

int16_t LittleInt16(const std::vector<char>& bytes, size_t at) {
  const auto lo = static_cast<unsigned char>(bytes.at(at));
  const auto hi = static_cast<unsigned char>(bytes.at(at + 1));
  return static_cast<int16_t>(static_cast<uint16_t>(lo | (hi << 8)));
}

float LittleSingle(const std::vector<char>& bytes, size_t at) {
  uint32_t bits = 0;
  for (size_t k = 4; k-- > 0;) bits = (bits << 8) | static_cast<unsigned char>(bytes.at(at + k));
  float value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

}  // namespace kestrane
