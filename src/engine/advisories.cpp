// Plain advice on a design beyond the program's notices: a failed or overloaded stage, unusual steam, and a stage count or search that would do markedly better.
#include "engine/advisories.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <exception>

#include "case/check_input.h"
#include "engine/design_run.h"
#include "engine/thorough_search.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// The most motive steam per pound of suction load that balanced trains of 1
// to 4 stages need over each count's band of suction pressure: 100 lb/hr of
// air, 100 psig motive, water in at 60 to 100 degF, by either search; the
// most is at the deepest suction and warmest water of each band.
constexpr std::array<float, 5> kUsualSteamPerLoad = {0, 11, 17, 21, 21};
// Steam beyond twice the usual is far outside it: lower motive pressures and
// other gases move the usual figure, but not that far.
constexpr float kFarBeyond = 2;

std::string Capitalized(std::string text) {
  if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

std::string Words(int stages) {
  static const char* const kWords[] = {"no", "one", "two", "three", "four"};
  return std::string(kWords[stages]) + (stages == 1 ? " stage" : " stages");
}

// Motive steam in the case's units.
std::string SteamText(const DesignContext& ctx, float lb_hr) {
  return ctx.screen.Metric() ? Format(static_cast<float>(lb_hr / 2.205), "0") + " kg/hr" : Format(lb_hr, "0") + " lb/hr";
}

// A pressure in the case's units, as the results show them (mmHgA, or KpaA at 7.5 mmHg each).
std::string PressureText(const DesignContext& ctx, float mmhga) {
  const bool metric = ctx.screen.Metric();
  const float p = metric ? mmhga / 7.5f : mmhga;
  return Format(p, p < 10 ? "0.00" : "0.0") + (metric ? " KpaA" : " mmHgA");
}

std::string SavingText(float saving) { return Format(100 * saving, "0") + " % less"; }

}  // namespace

StageCountTrial TryStageCount(const DesignContext& ctx, const InputScreen& screen, int stages,
                              InterstageSearch search) {
  StageCountTrial trial;
  trial.stages = stages;
  trial.dc = ctx.dc;
  trial.pinterfix = ctx.PINTERFIX;
  RecordingUi quiet;
  InputScreen s = screen;
  SelectOption(s, s.OptionStages, 5 - stages);  // the options run from four stages (1) to one (4)
  DesignContext trial_ctx{trial.dc, ctx.data, s, trial.pinterfix, quiet, search};
  const Steam steam = trial_ctx.steam();
  const Vapors vapors = trial_ctx.vapors();
  // A run-time error in a trial leaves the count unoffered.
  try {
    if (CheckInput(s, trial.dc, trial.pinterfix, CheckServices{steam, vapors, quiet}) != 0) return trial;
    if (trial.dc.NSTAGES != stages || trial.dc.USELRVP == 1) return trial;
    TrainEnds ends = TrainEndsOf(trial.dc);
    DesignStages(trial_ctx, ends.pin, ends.pout, ends.tin, ends.loads);
    for (int c = 1; c <= stages; ++c) {
      if (!(trial.dc.STG(c, kStgPOUT) > 0)) return trial;  // the search stored no design for a stage
    }
    const TrainTrial train = StoredTrain(trial_ctx);
    trial.fits = true;
    trial.failed = train.failed;
    trial.motive = train.motive;
    trial.cost = TrainObjective(trial_ctx, train);
  } catch (const std::exception&) {
    trial.fits = false;
  }
  return trial;
}

std::vector<StageCountTrial> TryStageCounts(const DesignContext& ctx, const InputScreen& screen, int except) {
  std::vector<StageCountTrial> counts;
  if (ctx.dc.USELRVP == 1) return counts;
  for (int n = 1; n <= 4; ++n) {
    if (n == except) continue;
    StageCountTrial trial = TryStageCount(ctx, screen, n, InterstageSearch::kThorough);
    if (trial.fits) counts.push_back(std::move(trial));
  }
  return counts;
}

std::string ChooseStageCount(DesignContext& ctx, const std::vector<StageCountTrial>& counts) {
  DesignCase& dc = ctx.dc;
  const StageCountTrial* best = nullptr;
  for (const StageCountTrial& t : counts) {
    if (t.failed) continue;
    const bool banded = t.stages == dc.NSTAGES;
    if (best == nullptr || t.cost < best->cost || (t.cost == best->cost && banded)) best = &t;
  }
  if (best == nullptr) return "";
  const bool capital = ctx.screen.OptionOptimize[1] != 0;
  std::string text = "Thorough search: " + Words(best->stages) + " chosen for " + PressureText(ctx, dc.PSUCT) +
                     " suction, the " + (capital ? "smallest ejectors" : "least motive steam") +
                     " of the stage counts that suit it (";
  for (size_t k = 0; k < counts.size(); ++k) {
    const StageCountTrial& t = counts[k];
    text += (k > 0 ? "; " : "") + Words(t.stages) + " " + SteamText(ctx, t.motive);
    if (capital) text += ", ejector sizes " + Format(t.cost, "0");
    if (t.failed) text += " with a stage whose jet balance fails";
  }
  text += ")";
  if (best->stages != dc.NSTAGES) {
    text += "; the suction pressure bands alone would take " + Words(dc.NSTAGES);
    dc.NSTAGES = best->dc.NSTAGES;
    dc.HASC1 = best->dc.HASC1;
    dc.HASC2 = best->dc.HASC2;
    ctx.PINTERFIX = best->pinterfix;
  }
  return text + ".";
}

std::vector<std::string> DesignAdvisories(const DesignContext& ctx, const std::vector<StageCountTrial>& counts) {
  const DesignCase& dc = ctx.dc;
  std::vector<std::string> advice;
  const auto name = [&](int c) { return "Stage " + Trim(ctx.data.constants.STAGENAME(c)); };
  bool failed = false;
  for (int c = dc.NSTAGES; c >= 1; --c) {
    if (!StageBalanceFails(ctx, c)) continue;
    failed = true;
    advice.push_back(name(c) + ": its jet balance failed from " + PressureText(ctx, dc.STG(c, kStgPIN)) + " to " +
                     PressureText(ctx, dc.STG(c, kStgPOUT)) +
                     ", so its motive, throat and model are those of the last trial, not a design; the train "
                     "needs another stage count or interstage pressures (try the thorough search).");
  }
  for (int c = dc.NSTAGES; c >= 1; --c) {
    if (dc.USELRVP == 1 && c == kStageC) continue;
    const float pin = dc.STG(c, kStgPIN), pout = dc.STG(c, kStgPOUT);
    if (!(pin > 0) || !(pout / pin > kMaxStageCompression)) continue;
    advice.push_back(name(c) + " compresses " + Format(pout / pin, "0.0") + " to 1, more than the about " +
                     Format(kMaxStageCompression, "0") + " to 1 one ejector stage can do.");
  }
  float load = 0;
  for (int k = 1; k <= dc.NLOADS; ++k) load += dc.LOADS(kLoadPPH, k);
  const float motive = dc.TOTALS(kTotalMotive);
  const float usual = kUsualSteamPerLoad[static_cast<size_t>(std::clamp<int>(dc.NSTAGES, 0, 4))];
  if (usual > 0 && load > 0 && motive / load > kFarBeyond * usual) {
    const std::string mass = ctx.screen.Metric() ? "kg" : "lb";
    advice.push_back("The train needs " + Format(motive / load, "0.0") + " " + mass + " of motive steam per " + mass +
                     " of load, far " +
                     "beyond the usual for " + Words(dc.NSTAGES) + " (up to about " + Format(usual, "0") + ").");
  }
  for (const StageCountTrial& t : counts) {
    if (t.failed) continue;
    const float saving = 1 - t.motive / motive;
    if (!failed && !(saving >= kMarkedSaving)) continue;
    const std::string steam = SteamText(ctx, t.motive);
    if (t.stages != dc.NSTAGES) {
      advice.push_back(Capitalized(Words(t.stages) + " with the thorough search would need " + steam +
                                   " of motive steam" +
                                   (failed ? " with every stage balanced" : ", " + SavingText(saving) + " than this train") +
                                   "."));
    } else if (ctx.search == InterstageSearch::kOriginal) {
      advice.push_back("The thorough search would design these " + Words(t.stages) + " with " + steam +
                       " of motive steam" + (failed ? " and every stage balanced" : ", " + SavingText(saving)) +
                       ".");
    }
  }
  return advice;
}

}  // namespace kestrane
