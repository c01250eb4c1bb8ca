// The TTC case file of the thermo compressor: headings, value pairs, units and lists, one value a line.
#include "thermo/tc_file.h"

#include "case/case_file_io.h"

namespace kestrane {

namespace {

constexpr float kTcFileVersion = 2.01f;

}  // namespace

bool ReadTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui) {
  try {
    CaseReader in(path);
    in.Number();  // the version
    for (auto& h : screen.txtHeadingInput) h = in.Text();
    for (size_t r = 0; r < kTcInputs; ++r) {
      screen.txtInput[r] = in.Text();
      screen.txtInputA[r] = in.Text();
    }
    // Turning a button on turns the other off, so of two buttons both on in a file the second wins.
    for (size_t i = 0; i < screen.OptionUnits.size(); ++i) {
      const int16_t on = in.Option();
      if (on != 0) screen.OptionUnits = {0, 0};
      screen.OptionUnits[i] = on;
    }
    for (int list = 0; list < kTcListCount; ++list) {
      screen.lists[static_cast<size_t>(list)] = in.ListIndex(TcListDefinition(static_cast<TcList>(list)).entries.size());
    }
  } catch (const VbError& e) {
    ui.notice(TrappedError("ReadTCFile", e));
    return false;
  }
  screen.TCDIRTY = 0;
  return true;
}

bool WriteTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui) {
  try {
    CaseWriter out(path);
    out.Number(kTcFileVersion);
    for (const auto& h : screen.txtHeadingInput) out.Text(h);
    for (size_t r = 0; r < kTcInputs; ++r) {
      out.Text(screen.txtInput[r]);
      out.Text(screen.txtInputA[r]);
    }
    for (int16_t o : screen.OptionUnits) out.Number(o);
    for (int16_t index : screen.lists) out.Number(index);
    out.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteTCFile", e));
    return false;
  }
  screen.TCDIRTY = 0;
  return true;
}

bool OpenTCFile(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui) {
  screen.TCUSERCASE = path.string();
  screen.TCCASENAME = path.filename().string();
  return ReadTCFile(path, screen, ui);
}

bool SaveTCFileAs(const std::filesystem::path& path, TCInputScreen& screen, Ui& ui) {
  screen.TCUSERCASE = path.string();
  screen.TCCASENAME = path.filename().string();
  return WriteTCFile(path, screen, ui);
}

StoreDecision CheckToStoreTCFile(TCInputScreen& screen, Ui& ui) {
  if (screen.TCDIRTY == 0) return StoreDecision::kUnchanged;
  return AskToStore(ui, screen.TCCASENAME, "\r\nDo you want to save changes?", "Thermo Compressor", !screen.TCUSERCASE.empty(),
                    [&] { return WriteTCFile(screen.TCUSERCASE, screen, ui); });
}

}  // namespace kestrane
