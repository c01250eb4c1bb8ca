// Plain advice on a design beyond the program's notices: a failed or overloaded stage, unusual steam, and a stage count or search that would do markedly better.
#pragma once

#include <string>
#include <vector>

#include "engine/design_context.h"

namespace kestrane {

// One ejector stage compresses about this much at most.
inline constexpr float kMaxStageCompression = 15.0f;
// An alternative is worth telling when it saves at least this share of the motive steam.
inline constexpr float kMarkedSaving = 0.10f;

// The stages of the case designed with another stage count, on copies of the
// record and of the session's carried state, telling the user nothing: the
// input check with `stages` asked for, then the stage search.
struct StageCountTrial {
  int stages = 0;
  bool fits = false;    // the check kept the count for this suction and every stage was designed
  bool failed = false;  // a stage whose jet balance failed
  float motive = 0;     // total motive steam, lb/hr
  float cost = 0;       // what the thorough search minimises (TrainObjective)
  DesignCase dc;
  float pinterfix = 0;
};
StageCountTrial TryStageCount(const DesignContext& ctx, const InputScreen& screen, int stages,
                              InterstageSearch search);

// Every stage count from one to four that fits, designed by the thorough
// search, but `except` (the count the run itself designs thoroughly; 0 for
// none), for a train of ejectors only (none when a pump is the last stage).
std::vector<StageCountTrial> TryStageCounts(const DesignContext& ctx, const InputScreen& screen, int except);

// The automatic stage count under the thorough search: of the counts that fit
// the suction and have no failed stage, the one of least motive steam (least
// ejector size when the case optimises capital); the count of the pressure
// bands keeps a tie. Sets the record's count and its intercondensers as the
// input check would, and returns the advisory saying what was chosen and why.
std::string ChooseStageCount(DesignContext& ctx, const std::vector<StageCountTrial>& counts);

// The advisories on a designed record, in this order: each stage whose jet
// balance failed, each stage compressing beyond one stage's reach, motive steam
// far beyond the usual for the stage count, and the stage counts or the
// thorough search that would use markedly less steam.
std::vector<std::string> DesignAdvisories(const DesignContext& ctx, const std::vector<StageCountTrial>& counts);

}  // namespace kestrane
