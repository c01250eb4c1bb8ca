// A command word the program does not know, and the registered command nearest to it.
#include <algorithm>

#include "cli.h"

namespace kestrane::cli {

namespace {

// The commands under a group (or the program), in the order they were added.
std::vector<const CLI::App*> Commands(const CLI::App& group) { return group.get_subcommands({}); }

const CLI::App* CommandNamed(const CLI::App& group, const std::string& word) {
  for (const CLI::App* command : Commands(group)) {
    if (command->check_name(word)) return command;
  }
  return nullptr;
}

// The commands a word at this level could have been meant for, each with the words that name it
// from here: the group's own, and at the top also the commands of each group ("vapor pressure").
std::vector<std::string> Candidates(const CLI::App& group, bool top) {
  std::vector<std::string> names;
  for (const CLI::App* command : Commands(group)) names.push_back(command->get_name());
  if (!top) return names;
  for (const CLI::App* command : Commands(group)) {
    for (const CLI::App* sub : Commands(*command)) names.push_back(command->get_name() + " " + sub->get_name());
  }
  return names;
}

// The last word of a command path: what a typed word is compared with.
std::string LastWord(const std::string& path) { return path.substr(path.rfind(' ') + 1); }

std::string Listed(const std::vector<std::string>& names) {
  std::string out;
  for (const std::string& name : names) out += (out.empty() ? "" : ", ") + name;
  return out;
}

size_t EditDistance(const std::string& a, const std::string& b) {
  // Optimal string alignment: insertions, deletions, substitutions and swaps of two neighbours, each 1.
  std::vector<std::vector<size_t>> d(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) d[i][0] = i;
  for (size_t j = 0; j <= b.size(); ++j) d[0][j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t cost = a[i - 1] == b[j - 1] ? 0 : 1;
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + cost});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

}  // namespace

std::string UnknownCommandMessage(const CLI::App& app, const std::vector<std::string>& args) {
  const CLI::App* group = &app;
  std::string path;  // the command words read so far, each followed by a blank
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& word = args[i];
    if (word.size() > 1 && word[0] == '-') {
      // An option of this level: its value, when it takes one, is the next word unless given with "=".
      const CLI::Option* option = group->get_option_no_throw(word.substr(0, word.find('=')));
      if (option != nullptr && option->get_type_size() > 0 && word.find('=') == std::string::npos) ++i;
      continue;
    }
    if (Commands(*group).empty()) return {};  // a command's own argument
    if (const CLI::App* command = CommandNamed(*group, word)) {
      group = command;
      path += word + " ";
      continue;
    }
    // The nearest command, when one is near enough to be what was meant: a typing slip, not another word.
    const size_t allowed = std::max<size_t>(1, word.size() / 3);
    std::string nearest;
    size_t best = allowed + 1;
    for (const std::string& candidate : Candidates(*group, group == &app)) {
      const size_t distance = EditDistance(word, LastWord(candidate));
      if (distance < best) {
        best = distance;
        nearest = candidate;
      }
    }
    const std::string unknown = "Unknown command '" + path + word + "'.";
    if (!nearest.empty()) return unknown + " Did you mean '" + path + nearest + "'?";
    return unknown + " The " + path + "commands are: " + Listed(Candidates(*group, false)) + ".";
  }
  return {};
}

}  // namespace kestrane::cli
