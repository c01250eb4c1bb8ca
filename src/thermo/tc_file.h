// The TTC case file of the thermo compressor: headings, value pairs, units and lists, one value a line.
#pragma once

#include <filesystem>

#include "case/jet_file.h"
#include "thermo/tc_input.h"

namespace kestrane {

// Reads a case into the screen. The version is read and not tested. A read
// error shows "ReadTCFile Error:" with the error's number and text; what was
// read stays in the boxes.
bool ReadTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui);

// Writes the screen (CR LF, to a temporary name then renamed) and clears TCDIRTY.
// A write error shows "WriteTCFile Error:" with the error's number and text.
bool WriteTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui);

// File menu Open and Save As: the case's path and name, then the read or the write.
bool OpenTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui);
bool SaveTCFileAs(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui);

// Before an action that would lose the input: when it changed, ask whether to
// save it (box title "Thermo Compressor"); on yes save it where it came from.
StoreDecision CheckToStoreTCFile(TCInputScreen& screen, Ui& ui);

}  // namespace kestrane
