// The JET case file: the input screen's controls in order, one value a line; the current layout and the older one.
#include "case/jet_file.h"

#include <bit>
#include <cstdint>

#include "case/case_file_io.h"

namespace kestrane {

namespace {

// The part of both layouts from the condenser types' tail to the design pairs.
void ReadMiddle(CaseReader& in, InputScreen& s) {
  for (auto& o : s.OptionStages) o = in.Option();
  s.chkboxPreCondenser = in.Check();
  s.chkboxLRVP = in.Check();
  for (size_t i = 0; i < 10; ++i) {
    s.txtCID[i] = in.Text();
    s.txtCpph[i] = in.Text();
    s.txtCpphA[i] = in.Text();
  }
  for (size_t i = 0; i < 10; ++i) {
    s.txtNCpph[i] = in.Text();
    s.txtNCpphA[i] = in.Text();
    s.txtNCMW[i] = in.Text();
  }
  for (auto& o : s.OptionUnits) o = in.Option();
  for (auto& o : s.OptionCycles) o = in.Option();
  for (size_t i = 0; i < 4; ++i) {
    s.txtDesign[i] = in.Text();
    s.txtDesignA[i] = in.Text();
  }
}

void ReadCurrent(CaseReader& in, InputScreen& s) {
  for (auto& h : s.txtHeadingInput) h = in.Text();
  for (size_t i = 0; i < 8; ++i) {
    s.txtInput[i] = in.Text();
    s.txtInputA[i] = in.Text();
  }
  for (auto& c : s.txtCost) c = in.Text();
  for (auto& o : s.OptionCondenserType) o = in.Option();
  ReadMiddle(in, s);
  for (int box = 0; box < kListBoxCount; ++box) s.lists[static_cast<size_t>(box)] = in.ListIndex(ListBoxDefinition(static_cast<ListBox>(box)).entries.size());
  for (auto& o : s.OptionOptimize) o = in.Option();
}

void ReadOlder(CaseReader& in, InputScreen& s) {
  for (auto& h : s.txtHeadingInput) h = in.Text();
  for (size_t i = 0; i < 8; ++i) {
    if (i == 6) {  // no maximum water outlet in this layout
      s.txtInput[i].clear();
      s.txtInputA[i].clear();
      continue;
    }
    s.txtInput[i] = in.Text();
    s.txtInputA[i] = in.Text();
  }
  for (auto& c : s.txtCost) c = in.Text();
  // One shell and tube button then; it becomes the shell side condensing one.
  s.OptionCondenserType[0] = in.Number() != 0 ? int16_t{-1} : int16_t{0};
  s.OptionCondenserType[1] = 0;
  s.OptionCondenserType[2] = in.Option();
  s.OptionCondenserType[3] = in.Option();
  ReadMiddle(in, s);
  s.txtCID[0] = "WATER";
  // The layout ends behind the condenser code.
  for (int box = 0; box <= kCNDCode; ++box) s.lists[static_cast<size_t>(box)] = in.ListIndex(ListBoxDefinition(static_cast<ListBox>(box)).entries.size());
  s.lists[kReturnHead] = 0;
  s.lists[kInletHead] = 0;
  s.OptionOptimize = {-1, 0};
  RecomputePairs(s);
}

}  // namespace

bool ReadCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui) {
  try {
    CaseReader in(path);
    const float version = in.Number();
    if (std::bit_cast<uint32_t>(version) == std::bit_cast<uint32_t>(kCaseFileVersion)) {
      ReadCurrent(in, screen);
    } else {
      ReadOlder(in, screen);
    }
  } catch (const VbError& e) {
    ui.notice(TrappedError("ReadFile Routine", e));
    return false;
  }
  screen.CASEDIRTY = 0;
  return true;
}

bool WriteCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui) {
  try {
    CaseWriter out(path);
    const InputScreen& s = screen;
    out.Number(kCaseFileVersion);
    for (const auto& h : s.txtHeadingInput) out.Text(h);
    for (size_t i = 0; i < 8; ++i) {
      out.Text(s.txtInput[i]);
      out.Text(s.txtInputA[i]);
    }
    for (const auto& c : s.txtCost) out.Text(c);
    for (int16_t o : s.OptionCondenserType) out.Number(o);
    for (int16_t o : s.OptionStages) out.Number(o);
    out.Number(s.chkboxPreCondenser);
    out.Number(s.chkboxLRVP);
    for (size_t i = 0; i < 10; ++i) {
      out.Text(s.txtCID[i]);
      out.Text(s.txtCpph[i]);
      out.Text(s.txtCpphA[i]);
    }
    for (size_t i = 0; i < 10; ++i) {
      out.Text(s.txtNCpph[i]);
      out.Text(s.txtNCpphA[i]);
      out.Text(s.txtNCMW[i]);
    }
    for (int16_t o : s.OptionUnits) out.Number(o);
    for (int16_t o : s.OptionCycles) out.Number(o);
    for (size_t i = 0; i < 4; ++i) {
      out.Text(s.txtDesign[i]);
      out.Text(s.txtDesignA[i]);
    }
    for (int16_t index : s.lists) out.Number(index);
    for (int16_t o : s.OptionOptimize) out.Number(o);
    out.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteFile Routine", e));
    return false;
  }
  screen.CASEDIRTY = 0;
  return true;
}

bool OpenCase(const std::filesystem::path& path, InputScreen& screen, Ui& ui) {
  screen.USERCASE = path.string();
  screen.CASENAME = path.filename().string();
  return ReadCase(path, screen, ui);
}

bool SaveCaseAs(const std::filesystem::path& path, InputScreen& screen, Ui& ui) {
  screen.USERCASE = path.string();
  screen.CASENAME = path.filename().string();
  return WriteCase(path, screen, ui);
}

StoreDecision CheckToStoreJetFile(InputScreen& screen, Ui& ui) {
  if (screen.CASEDIRTY == 0) return StoreDecision::kUnchanged;
  if (!ui.ask("Do you want to save changes?", "Save changes?")) return StoreDecision::kDeclined;
  if (screen.USERCASE.empty()) return StoreDecision::kNeedsName;
  return WriteCase(screen.USERCASE, screen, ui) ? StoreDecision::kSaved : StoreDecision::kSaveFailed;
}

StoreDecision AskToStore(Ui& ui, const std::string& name, const std::string& tail, const std::string& title,
                         bool has_path, const std::function<bool()>& save) {
  const std::string question = name.empty() ? std::string("Save file?") : "The file \"" + name + "\" has been changed!" + tail;
  if (!ui.ask(question, title)) return StoreDecision::kDeclined;
  if (!has_path) return StoreDecision::kNeedsName;
  return save() ? StoreDecision::kSaved : StoreDecision::kSaveFailed;
}

}  // namespace kestrane
