// Reading and writing the lines of a case file: a Text is a whole line, a Number a line holding one number.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

// Reading: blanks around a number are allowed; anything else is error 13.
class CaseReader {
 public:
  explicit CaseReader(const std::filesystem::path& path) : file_(path) {}
  std::string Text() { return file_.LineInput(); }
  // The next line, or false at the end of the file.
  bool TryText(std::string& line) {
    if (file_.Eof()) return false;
    line = file_.LineInput();
    return true;
  }
  float Number() {
    const std::string text = Trim(file_.LineInput());
    if (!IsPlainNumber(text)) throw VbError(13);
    return static_cast<float>(Val(text));
  }
  // An option button: any nonzero number turns it on (-1).
  int16_t Option() { return Number() != 0 ? int16_t{-1} : int16_t{0}; }
  int16_t Check() { return CInt(Number()); }
  // A list index of a list of `count` entries; -1 (nothing chosen) allowed, beyond the list error 380.
  int16_t ListIndex(size_t count) {
    const int16_t index = CInt(Number());
    if (index < -1 || index >= static_cast<int16_t>(count)) throw VbError(380);
    return index;
  }

 private:
  TextInput file_;
};

// Writing: CR LF lines to a temporary name, renamed over the file by Commit.
class CaseWriter {
 public:
  explicit CaseWriter(const std::filesystem::path& path) : file_(path) {}
  void Text(const std::string& text) { file_.PrintLine(text); }
  void Number(float value) { file_.PrintLine(Str(value)); }
  void Commit() const { file_.Commit(); }

 private:
  TextOutput file_;
};

}  // namespace kestrane
