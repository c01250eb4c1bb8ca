// Text conversions: Windows-1252 on disk to UTF-8 in memory and back, and UTF-8 by character.
#include "properties/text_codec.h"

#include <algorithm>
#include <array>

namespace kestrane {

namespace {

// Code points of bytes 0x80..0x9F in Windows-1252 (0 where the code is unused).
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t FromCp1252(unsigned char b) {
  if (b >= 0x80 && b <= 0x9F) {
    const char32_t c = kHighControls[b - 0x80];
    return c ? c : b;
  }
  return b;
}

int ToCp1252(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (size_t i = 0; i < kHighControls.size(); ++i) {
    if (kHighControls[i] == c) return static_cast<int>(0x80 + i);
  }
  if (c >= 0x80 && c <= 0x9F) return static_cast<int>(c);
  return -1;
}

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Decodes one UTF-8 sequence at text[i]; returns its length, 0 if invalid.
size_t DecodeUtf8(std::string_view text, size_t i, char32_t& c) {
  const auto b0 = static_cast<unsigned char>(text[i]);
  size_t len = 0;
  if (b0 < 0x80) {
    c = b0;
    return 1;
  }
  if ((b0 & 0xE0) == 0xC0) {
    len = 2;
    c = b0 & 0x1F;
  } else if ((b0 & 0xF0) == 0xE0) {
    len = 3;
    c = b0 & 0x0F;
  } else if ((b0 & 0xF8) == 0xF0) {
    len = 4;
    c = b0 & 0x07;
  } else {
    return 0;
  }
  if (i + len > text.size()) return 0;
  for (size_t k = 1; k < len; ++k) {
    const auto b = static_cast<unsigned char>(text[i + k]);
    if ((b & 0xC0) != 0x80) return 0;
    c = (c << 6) | (b & 0x3F);
  }
  const char32_t min_for_len[] = {0, 0, 0x80, 0x800, 0x10000};
  if (c < min_for_len[len] || c > 0x10FFFF) return 0;
  return len;
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (char b : bytes) AppendUtf8(out, FromCp1252(static_cast<unsigned char>(b)));
  return out;
}

std::string Utf8ToCp1252(std::string_view text) {
  std::string out;
  for (char32_t c : ToCodePoints(text)) {
    const int b = ToCp1252(c);
    out += b < 0 ? '?' : static_cast<char>(b);
  }
  return out;
}

std::u32string ToCodePoints(std::string_view text) {
  std::u32string out;
  for (size_t i = 0; i < text.size();) {
    char32_t c = 0;
    const size_t len = DecodeUtf8(text, i, c);
    if (len == 0) {
      out += FromCp1252(static_cast<unsigned char>(text[i]));
      ++i;
    } else {
      out += c;
      i += len;
    }
  }
  return out;
}

std::string FromCodePoints(std::u32string_view points) {
  std::string out;
  for (char32_t c : points) AppendUtf8(out, c);
  return out;
}

std::vector<std::string> BoxLines(std::string_view box) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < box.size();) {
    const size_t end = std::min(box.find("\r\n", at), box.size());
    lines.emplace_back(box.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

}  // namespace kestrane
