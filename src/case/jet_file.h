// The JET case file: the input screen's controls in order, one value a line; the current layout and the older one.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "case/input_screen.h"

namespace kestrane {

inline constexpr float kCaseFileVersion = 2.01f;

// Reads a case into the screen's controls. A first number other than 2.01
// (compared as exact single bits) means the older layout. A read error shows
// "ReadFile Routine Error: " and the error text; what was read stays.
bool ReadCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui);

// Writes the screen's controls (CR LF, to a temporary name then renamed) and
// clears CASEDIRTY. A write error shows "WriteFile Routine Error: " and the error text.
bool WriteCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui);

// File menu Open: the case's path and name, then ReadCase.
bool OpenCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui);

// File menu Save As (and Save with a path): the case's path and name, then WriteCase.
bool SaveCaseAs(const std::filesystem::path& path, InputScreen& screen, Ui& ui);

// Before an action that would lose the input: when it changed, ask
// "Do you want to save changes?"; on yes save it where it came from.
enum class StoreDecision { kUnchanged, kDeclined, kSaved, kSaveFailed, kNeedsName };
StoreDecision CheckToStoreJetFile(InputScreen& screen, Ui& ui);

// The same question for the tools' files: "The file "NAME" has been changed!"
// and `tail` for a named file, "Save file?" for a new one, under `title`; on
// yes `save` stores the file where it came from (kNeedsName when it has no path).
StoreDecision AskToStore(Ui& ui, const std::string& name, const std::string& tail, const std::string& title,
                         bool has_path, const std::function<bool()>& save);

}  // namespace kestrane
