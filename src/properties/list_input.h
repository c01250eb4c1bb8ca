// Free-format reading of list files (drawings, the stroke font, price files): values separated by commas or line ends, and whole lines.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "properties/vb_file.h"

namespace kestrane {

// A list of values may span lines; a whole-line read takes the rest of a line begun by a list, else the next
// line. Errors are VbError: 62 past the end of the file, 13 for text in a number field, 6 for a number out of
// the field's range.
class ListInput {
 public:
  explicit ListInput(const std::filesystem::path& path) : file_(path) {}
  // Nothing left to read.
  bool Eof() const { return !in_line_ && file_.Eof(); }
  int16_t Integer();
  int32_t Long();
  float Single();
  // The next field as text: a field in double quotes is what stands between them (commas included), any other
  // field its trimmed text.
  std::string Text();
  std::string Line();

 private:
  // The next field: its trimmed text, and whether it stood in quotes.
  std::string Field(bool& quoted);
  // The next field as a number; an empty field between commas is 0.
  double Number();

  TextInput file_;
  std::string rest_;  // the unread part of the current line
  bool in_line_ = false;
};

// A text cut or blank-padded to `width` characters.
std::string FixedWidth(const std::string& text, size_t width);

// A text cut to at most `width` characters.
std::string CutTo(const std::string& text, size_t width);

}  // namespace kestrane
