// Where the program finds its data files and offers case files.
#pragma once

#include <filesystem>
#include <string_view>

namespace kestrane {

struct ProgramPaths {
  std::filesystem::path program_dir;  // folder of the executable
  std::filesystem::path pgmfiles;     // data files, program_dir/pgmfiles unless overridden
  std::filesystem::path usrfiles;     // starting folder of the case file dialogs

  std::filesystem::path DataFile(std::string_view name) const { return pgmfiles / name; }
};

// The paths of a program in the given folder.
ProgramPaths PathsForProgram(const std::filesystem::path& program_dir);

// Folder of the running executable.
std::filesystem::path ExecutableDirectory();

}  // namespace kestrane
