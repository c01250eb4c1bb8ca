// Where the program finds its data files and offers case files.
#include "shell/paths.h"

namespace kestrane {

ProgramPaths PathsForProgram(const std::filesystem::path& program_dir) {
  ProgramPaths p;
  p.program_dir = program_dir;
  p.pgmfiles = program_dir / "pgmfiles";
  p.usrfiles = program_dir / "usrfiles";
  return p;
}

std::filesystem::path ExecutableDirectory() {
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return std::filesystem::current_path();
  return exe.parent_path();
}

}  // namespace kestrane
