// Where the program finds its data files, keeps the user's own data and offers case files.
#include "shell/paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace kestrane {

namespace fs = std::filesystem;

namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

fs::path HomeFolder() {
  const std::string home = Environment("HOME");
  if (!home.empty()) return home;
  const passwd* entry = ::getpwuid(::getuid());
  return entry && entry->pw_dir ? fs::path(entry->pw_dir) : fs::temp_directory_path();
}

// An absolute folder named by an environment variable, else the default.
fs::path FolderFromEnvironment(const char* name, const fs::path& fallback) {
  const fs::path value = Environment(name);
  return value.is_absolute() ? value : fallback;
}

// The documents folder of the user-dirs.dirs file: XDG_DOCUMENTS_DIR="$HOME/Documents".
fs::path DocumentsFolder(const fs::path& home) {
  const fs::path explicit_folder = Environment("XDG_DOCUMENTS_DIR");
  if (explicit_folder.is_absolute()) return explicit_folder;
  const fs::path config = FolderFromEnvironment("XDG_CONFIG_HOME", home / ".config");
  std::ifstream dirs(config / "user-dirs.dirs");
  const std::string key = "XDG_DOCUMENTS_DIR=";
  for (std::string line; std::getline(dirs, line);) {
    if (line.rfind(key, 0) != 0) continue;
    std::string value = line.substr(key.size());
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    if (value.rfind("$HOME", 0) == 0) return home.string() + value.substr(5);
    if (fs::path(value).is_absolute()) return value;
  }
  return home / "Documents";
}

// The folder beside the program when it stands there (the build tree), else the
// installed folder relative to the program's (bin/../share/...).
fs::path BesideOrInstalled(const fs::path& program_dir, const fs::path& beside, const fs::path& installed) {
  std::error_code ec;
  const fs::path here = program_dir / beside;
  const fs::path there = program_dir.parent_path() / installed;
  if (!fs::is_directory(here, ec) && fs::is_directory(there, ec)) return there;
  return here;
}

}  // namespace

ProgramPaths PathsForProgram(const fs::path& program_dir) {
  const fs::path home = HomeFolder();
  ProgramPaths p;
  p.program_dir = program_dir;
  p.pgmfiles = BesideOrInstalled(program_dir, "pgmfiles", fs::path("share") / "kestrane");
  p.examples = BesideOrInstalled(program_dir, "usrfiles", fs::path("share") / "doc" / "kestrane" / "examples");
  p.userdata = FolderFromEnvironment("XDG_DATA_HOME", home / ".local" / "share") / "kestrane";
  p.usrfiles = DocumentsFolder(home) / "Kestrane";
  return p;
}

ProgramPaths PathsForDataFolder(const fs::path& program_dir, const fs::path& folder) {
  ProgramPaths p = PathsForProgram(program_dir);
  p.pgmfiles = folder;
  p.userdata = folder;
  return p;
}

fs::path ProgramPaths::UserDataFile(std::string_view name) const {
  const fs::path file = userdata / name;
  const fs::path shipped = pgmfiles / name;
  std::error_code ec;
  // One folder for all data (--pgmfiles) must exist; the user's own is made when missing,
  // for files with no shipped copy too, so that they can be written.
  if (userdata == pgmfiles) return file;
  fs::create_directories(userdata, ec);
  if (!fs::exists(file, ec) && fs::is_regular_file(shipped, ec)) {
    fs::copy_file(shipped, file, ec);
    // The shipped copy may be read-only; the user's copy is the user's to change.
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, ec);
  }
  return file;
}

void SeedCaseFolder(const ProgramPaths& paths) {
  std::error_code ec;
  if (fs::exists(paths.usrfiles, ec) || !fs::is_directory(paths.examples, ec)) return;
  if (!fs::create_directories(paths.usrfiles, ec)) return;
  for (const auto& entry : fs::directory_iterator(paths.examples, ec)) {
    if (!entry.is_regular_file(ec)) continue;
    const fs::path copy = paths.usrfiles / entry.path().filename();
    fs::copy_file(entry.path(), copy, ec);
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, ec);
  }
}

fs::path ExecutableDirectory() {
  std::error_code ec;
  const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (ec) return fs::current_path();
  return exe.parent_path();
}

}  // namespace kestrane
