// Text conversions: Windows-1252 on disk to UTF-8 in memory and back, and UTF-8 by character.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

// Windows-1252 bytes to UTF-8 text.
std::string Cp1252ToUtf8(std::string_view bytes);

// UTF-8 text to Windows-1252 bytes; a character with no Windows-1252 code becomes '?'.
std::string Utf8ToCp1252(std::string_view text);

// UTF-8 text as one code point per element, and back. Bytes that are not
// valid UTF-8 are taken one by one as Windows-1252 characters.
std::u32string ToCodePoints(std::string_view text);
std::string FromCodePoints(std::u32string_view points);

// The lines of a multi-line text box (CR LF line ends), without the empty one after the last line end.
std::vector<std::string> BoxLines(std::string_view box);

}  // namespace kestrane
