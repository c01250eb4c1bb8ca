// Binary data files: the whole file as bytes, and little-endian 16-bit integers and singles within it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace kestrane {

// The file's bytes; empty when it is missing or unreadable.
std::vector<char> ReadFileBytes(const std::filesystem::path& path);

// A little-endian 16-bit integer at a byte offset.
int16_t LittleInt16(const std::vector<char>& bytes, size_t at);

// A little-endian single at a byte offset.
float LittleSingle(const std::vector<char>& bytes, size_t at);

}  // namespace kestrane
