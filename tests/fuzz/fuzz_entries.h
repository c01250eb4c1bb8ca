// The fuzz entry points: each reader of outside data fed raw bytes, found by name, for the fuzzers and the corpus replay.
#pragma once

#include <string_view>
#include <vector>

namespace kestrane::fuzz {

// One reader under test: its name (the fuzzer fuzz_<name> and the corpus folder tests/fuzz_corpus/<name>) and the
// function that hands it the bytes as a file (or, for the expression evaluator, as the typed text).
struct FuzzEntry {
  std::string_view name;
  void (*feed)(std::string_view bytes);
};

// Every entry point. A new reader gets a function in fuzz_entries.cpp, a row in this list, a
// kestrane_fuzzer() line in tests/fuzz/CMakeLists.txt and a corpus folder.
const std::vector<FuzzEntry>& FuzzEntries();

// The entry of that name; null when there is none.
const FuzzEntry* FindFuzzEntry(std::string_view name);

}  // namespace kestrane::fuzz
