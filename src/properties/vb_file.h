// Sequential text files as the original reads and writes them: lines in, lines out, whole-file saves.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrane {

// The original's error number for an operating system error code
// (53 file not found, 70 permission denied, 76 path not found, 61 disk full, else 75).
int VbErrorFromErrno(int error_code);

// Keeps a copy of a file that could not be read whole beside it, as NAME.bak
// (NAME.bak2, NAME.bak3... when a different older copy stands there; nothing
// new when the same copy already does), so that a later save of what was read
// never loses the rest. Returns the notice that says so, empty when the file
// does not exist or no copy could be made.
std::string KeepDamagedCopy(const std::filesystem::path& path);

class Ui;
// KeepDamagedCopy, its notice shown.
void NoticeDamagedCopy(const std::filesystem::path& path, Ui& ui);

// A text file read whole on opening; lines end with CR LF, LF or CR and are
// Windows-1252 on disk, UTF-8 here. Errors are VbError with the original numbers.
class TextInput {
 public:
  explicit TextInput(const std::filesystem::path& path);
  bool Eof() const { return pos_ >= data_.size(); }
  // The next line without its end; error 62 past the end of the file.
  std::string LineInput();

 private:
  std::string data_;
  size_t pos_ = 0;
};

// A text file written whole: lines gathered in memory, then on Commit written
// with CR LF in Windows-1252 to a temporary name and renamed over the target,
// so that a failed save leaves the previous file as it was.
class TextOutput {
 public:
  explicit TextOutput(std::filesystem::path path) : path_(std::move(path)) {}
  // Print #n, text: the text and a line end, nothing quoted.
  void PrintLine(std::string_view text);
  // Writes the file; throws VbError when it cannot.
  void Commit() const;

 private:
  std::filesystem::path path_;
  std::string bytes_;
};

// Writes bytes as a whole file: to a temporary name beside it, then renamed over it, so that a failed write
// leaves the previous file as it was. Throws VbError with the original's number when it cannot.
void WriteFileWhole(const std::filesystem::path& path, std::string_view bytes);

}  // namespace kestrane
