// A libFuzzer target: the entry point named by KESTRANE_FUZZ_ENTRY, fed each input the fuzzer makes.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz_entries.h"

namespace {

const kestrane::fuzz::FuzzEntry& Entry() {
  static const kestrane::fuzz::FuzzEntry* entry = [] {
    const auto* found = kestrane::fuzz::FindFuzzEntry(KESTRANE_FUZZ_ENTRY);
    if (found == nullptr) {
      std::fprintf(stderr, "no fuzz entry point is named %s\n", KESTRANE_FUZZ_ENTRY);
      std::abort();
    }
    return found;
  }();
  return *entry;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Entry().feed(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
