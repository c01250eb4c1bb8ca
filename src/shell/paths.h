// Where the program finds its data files, keeps the user's own data and offers case files.
#pragma once

#include <filesystem>
#include <string_view>

namespace kestrane {

// The shipped data stand read-only beside the program; what the user changes
// (user information, user vapors, pricing configuration) lives in the user's
// data folder, seeded from the shipped copy on first use; cases live in the
// user's documents folder, seeded with the example cases on first use.
struct ProgramPaths {
  std::filesystem::path program_dir;  // folder of the executable
  std::filesystem::path pgmfiles;     // shipped data files
  std::filesystem::path userdata;     // the user's data files
  std::filesystem::path examples;     // shipped example cases
  std::filesystem::path usrfiles;     // the user's case folder, where the case file dialogs start

  // A shipped data file.
  std::filesystem::path DataFile(std::string_view name) const { return pgmfiles / name; }
  // A file of the user's data folder, which is made when it is missing (unless
  // it is the one folder of all data, which must exist); the
  // first time the file is asked for, the shipped copy (if any) is copied
  // there. When the folder cannot be made, the file is still named there, so
  // that reading finds nothing and writing reports its error.
  std::filesystem::path UserDataFile(std::string_view name) const;
};

// The paths of a program in the given folder. The shipped data and examples
// stand beside it (pgmfiles, usrfiles), as in the build tree; an installed
// program without them finds them under ../share (share/kestrane and
// share/doc/kestrane/examples). For the user of the
// environment: the data folder $XDG_DATA_HOME/kestrane (default
// ~/.local/share/kestrane), the case folder Kestrane in the documents folder
// ($XDG_DOCUMENTS_DIR, the user-dirs.dirs setting, default ~/Documents).
ProgramPaths PathsForProgram(const std::filesystem::path& program_dir);

// The paths of a program whose data, shipped and the user's alike, stand in one folder.
ProgramPaths PathsForDataFolder(const std::filesystem::path& program_dir, const std::filesystem::path& folder);

// Makes the user's case folder with the example cases in it, the first time.
void SeedCaseFolder(const ProgramPaths& paths);

// Folder of the running executable.
std::filesystem::path ExecutableDirectory();

}  // namespace kestrane
