// Sequential text files as the original reads and writes them: lines in, lines out, whole-file saves.
#include "properties/vb_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "properties/binary_file.h"
#include "properties/text_codec.h"
#include "properties/vb.h"
#include "shell/ui.h"

namespace kestrane {

int VbErrorFromErrno(int error_code) {
  switch (error_code) {
    case ENOENT: return 53;
    case EACCES:
    case EPERM:
    case EROFS: return 70;
    case ENOTDIR: return 76;
    case ENOSPC: return 61;
    default: return 75;
  }
}

std::string KeepDamagedCopy(const std::filesystem::path& path) {
  namespace fs = std::filesystem;
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) return {};
  const std::vector<char> bytes = ReadFileBytes(path);
  for (int n = 1; n <= 99; ++n) {
    fs::path copy = path;
    copy += n == 1 ? ".bak" : ".bak" + std::to_string(n);
    const std::string name = copy.filename().string();
    const std::string said = "The file " + path.filename().string() +
                             " could not be read whole; it is kept as it was in " + name + ".";
    if (fs::exists(copy, ec)) {
      if (ReadFileBytes(copy) == bytes) return said;
      continue;
    }
    if (!fs::copy_file(path, copy, ec) || ec) return {};
    return said;
  }
  return {};
}

void NoticeDamagedCopy(const std::filesystem::path& path, Ui& ui) {
  const std::string said = KeepDamagedCopy(path);
  if (!said.empty()) ui.notice(said);
}

TextInput::TextInput(const std::filesystem::path& path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) throw VbError(75);
  errno = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) throw VbError(VbErrorFromErrno(errno));
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) throw VbError(57);
  data_ = bytes.str();
}

std::string TextInput::LineInput() {
  if (Eof()) throw VbError(62);
  const size_t end = data_.find_first_of("\r\n", pos_);
  std::string line;
  if (end == std::string::npos) {
    line = data_.substr(pos_);
    pos_ = data_.size();
  } else {
    line = data_.substr(pos_, end - pos_);
    pos_ = end + 1;
    if (data_[end] == '\r' && pos_ < data_.size() && data_[pos_] == '\n') ++pos_;
  }
  return Cp1252ToUtf8(line);
}

void TextOutput::PrintLine(std::string_view text) {
  bytes_ += Utf8ToCp1252(text);
  bytes_ += "\r\n";
}

void TextOutput::Commit() const { WriteFileWhole(path_, bytes_); }

void WriteFileWhole(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::path temp = path;
  temp += ".tmp" + std::to_string(::getpid());
  {
    errno = 0;
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    // A folder that does not exist is "Path not found" when writing.
    if (!out) throw VbError(errno == ENOENT ? 76 : VbErrorFromErrno(errno));
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      const int number = VbErrorFromErrno(errno);
      std::error_code ignored;
      std::filesystem::remove(temp, ignored);
      throw VbError(number);
    }
  }
  std::error_code ec;
  std::filesystem::rename(temp, path, ec);
  if (ec) {
    std::error_code ignored;
    std::filesystem::remove(temp, ignored);
    throw VbError(VbErrorFromErrno(ec.value()));
  }
}

}  // namespace kestrane
