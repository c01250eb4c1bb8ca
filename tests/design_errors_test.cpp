// A design run that meets a stage or condenser it cannot design goes on to the end and lists its error flags.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

#include "case/jet_file.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "engine/run_errors.h"
#include "engine/stage_model.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

// Ten non-condensible loads of one flow and molecular weight.
void TenGases(InputScreen& s, const char* pph, const char* mw) {
  for (size_t row = 0; row < 10; ++row) {
    s.txtNCpph[row] = pph;
    s.txtNCMW[row] = mw;
  }
}

// An example case with boxes typed anew; each passes the input check.
struct Hostile {
  const char* name;
  const char* example;
  std::function<void(InputScreen&)> edit;
  std::vector<std::string> errors;  // texts the run must list among its errors
};

const std::vector<Hostile>& HostileCases() {
  static const std::vector<Hostile> cases = {
      {"1 mmHgA, 1E6 lb/hr of water", "FOUR-STAGE-SURFACE.JET",
       [](InputScreen& s) {
         s.txtInput[0] = "1";
         s.txtCpph[0] = "1000000";
       },
       {"Error in the ejector dimensions of stage A: Error # 6 Overflow"}},
      {"1 mmHgA, 5E4 lb/hr of water", "FOUR-STAGE-SURFACE.JET",
       [](InputScreen& s) {
         s.txtInput[0] = "1";
         s.txtCpph[0] = "50000";
       },
       {}},
      {"ten condensible loads of 1E5 lb/hr", "FOUR-STAGE-SURFACE.JET",
       [](InputScreen& s) {
         s.txtCpph[0] = "100000";
         for (size_t row = 1; row < 10; ++row) {
           s.txtCID[row] = std::to_string(row + 1);
           s.txtCpph[row] = "100000";
         }
       },
       {"Error in the ejector dimensions of stage AA: Error # 6 Overflow"}},
      {"ten gases of 1E7 lb/hr, MW 1000", "AUTOMATIC-SURFACE.JET", [](InputScreen& s) { TenGases(s, "10000000", "1000"); },
       {"Error in the ejector dimensions of stage B: Error # 6 Overflow"}},
      {"ten gases of 1E7 lb/hr, MW 0.001", "AUTOMATIC-SURFACE.JET",
       [](InputScreen& s) { TenGases(s, "10000000", "0.001"); },
       // Every interstage pressure needs more motive steam than the search's starting best.
       {"Stage B: the search stored no design for it", "Stage C: the search stored no design for it",
        "Error in the connections of stage B: Error # 11 Division by zero"}},
      {"least fouling, 1E5 lb/hr of water", "AUTOMATIC-SURFACE.JET",
       [](InputScreen& s) {
         s.txtInput[7] = "0.001";
         s.txtCpph[0] = "100000";
       },
       {}},
      {"surface precondenser, loads of 1E6 lb/hr", "TWO-STAGE-PRECONDENSER.JET",
       [](InputScreen& s) {
         s.txtCpph[0] = "1000000";
         s.txtCpph[1] = "1000000";
         s.txtNCpph[0] = "1000000";
       },
       {"Error in the ejector dimensions of stage B: Error # 6 Overflow"}},
  };
  return cases;
}

class DesignErrors : public ::testing::Test {
 protected:
  DesignErrors() : screen(NewCase()), ctx{dc, kestrane::testing::ShippedData(), screen, pinterfix, ui} {}

  InputScreen Example(const std::string& file) {
    InputScreen s = NewCase();
    RecordingUi read_ui;
    EXPECT_TRUE(OpenCase(kExamples / file, s, read_ui)) << file;
    return s;
  }
  DesignOutcome Design(const InputScreen& s) {
    dc = DesignCase();
    pinterfix = 0;
    ui.notices.clear();
    screen = s;
    return RunDesign(ctx, screen);
  }
  // The values of STG, CND and TOTALS that are infinite or not a number, by name.
  std::vector<std::string> NonFinite() const {
    std::vector<std::string> bad;
    for (int c = 1; c <= kStageColumns; ++c) {
      for (int r = 1; r <= kStageRows; ++r) {
        if (!std::isfinite(dc.STG(c, r))) bad.push_back("STG(" + std::to_string(c) + "," + std::to_string(r) + ")");
      }
    }
    for (int col = 1; col <= kCondenserColumns; ++col) {
      for (int r = 1; r <= kCondenserRows; ++r) {
        if (!std::isfinite(dc.CND(col, r))) bad.push_back("CND(" + std::to_string(col) + "," + std::to_string(r) + ")");
      }
    }
    for (int k = 1; k <= 12; ++k) {
      if (!std::isfinite(dc.TOTALS(k))) bad.push_back("TOTALS(" + std::to_string(k) + ")");
    }
    return bad;
  }
  bool Noticed(const std::string& text) const {
    return std::find(ui.notices.begin(), ui.notices.end(), text) != ui.notices.end();
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
};

bool Lists(const std::vector<std::string>& errors, const std::string& text) {
  return std::find(errors.begin(), errors.end(), text) != errors.end();
}

}  // namespace

// --- The trap of one step -------------------------------------------------------

TEST(RunErrorsStep, AFaultIsToldKeptAndLeavesNoValueThatIsNotANumber) {
  RecordingUi ui;
  RunErrors errors(ui);
  float written = 1, result = 7;
  const ResultCells cells{&written, &result};

  EXPECT_TRUE(errors.Step("the clean step", cells, [&] { result = 8; }));
  EXPECT_EQ(result, 8);
  EXPECT_TRUE(ui.notices.empty());

  // Raised part way: what was stored before the fault stays.
  EXPECT_FALSE(errors.Step("the dimensions of stage A", cells, [&] {
    written = 2;
    throw VbError(6);
  }));
  EXPECT_EQ(written, 2);

  // A division by zero that the arithmetic lets through is found in the value it leaves.
  volatile float zero = 0;
  EXPECT_FALSE(errors.Step("the connections of stage B", cells, [&] { result = 1 / zero; }));
  EXPECT_EQ(result, 8) << "the value keeps what it held before the step";

  EXPECT_FALSE(errors.Step("the curve of stage C", cells, [] { throw std::out_of_range("row 61"); }));

  const std::vector<std::string> expected = {"Error in the dimensions of stage A: Error # 6 Overflow",
                                             "Error in the connections of stage B: Error # 11 Division by zero",
                                             "Error in the curve of stage C: Error # 51 Internal error (row 61)"};
  EXPECT_EQ(errors.texts(), expected);
  EXPECT_EQ(ui.notices, expected);
  errors.Add("Stage A: flag");
  EXPECT_EQ(errors.texts().back(), "Stage A: flag");
  EXPECT_EQ(ui.notices.size(), 3u) << "a flag without a fault has no notice of its own";
}

// --- Whole runs -------------------------------------------------------------------

TEST_F(DesignErrors, HostileCasesDesignToTheEndAndListWhatFailed) {
  for (const Hostile& h : HostileCases()) {
    SCOPED_TRACE(h.name);
    InputScreen s = Example(h.example);
    h.edit(s);
    DesignOutcome outcome;
    ASSERT_NO_THROW(outcome = Design(s));
    ASSERT_EQ(outcome.input_error, 0);
    EXPECT_TRUE(outcome.results);
    EXPECT_EQ(NonFinite(), std::vector<std::string>{});
    EXPECT_NO_THROW(ResultsText(FillResults(ctx, false)));
    EXPECT_NO_THROW(DebuggerGrid(ctx));
    for (const std::string& text : h.errors) EXPECT_TRUE(Lists(outcome.errors, text)) << text;
    for (const std::string& text : outcome.errors) {
      // A trapped fault was told to the user in the same words; a condenser's in the condenser run's own.
      if (text.rfind("Error in ", 0) == 0) {
        EXPECT_TRUE(Noticed(text)) << text;
      }
      const std::string flag = " ended with its error flag: Error # ";
      const auto at = text.find(flag);
      if (at != std::string::npos) {
        const size_t from = at + flag.size();
        const std::string number = text.substr(from, text.find(' ', from) - from);
        EXPECT_TRUE(Noticed("Error during Condenser Calculation: Error # " + number)) << text;
      }
    }
  }
}

TEST_F(DesignErrors, ExamplesEndCleanOrWithTheFlagsTheyHave) {
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".JET") continue;
    const std::string name = entry.path().filename().string();
    SCOPED_TRACE(name);
    const DesignOutcome outcome = Design(Example(name));
    ASSERT_EQ(outcome.input_error, 0);
    std::vector<std::string> expected;
    if (name == "LRVP-BEYOND-LIMITS.JET") {
      expected = {"LRVP Error: no liquid ring vacuum pump could be designed for these conditions"};
    }
    EXPECT_EQ(outcome.errors, expected);
    EXPECT_EQ(outcome.results, dc.LRVPERR == 0);
  }
}

TEST_F(DesignErrors, AStageWhoseJetBalanceDoesNotConvergeIsListedWithoutANotice) {
  // 5 mmHgA and 110 F water: three stages, and stage A must compress to about 104 mmHgA.
  InputScreen s = Example("AUTOMATIC-SURFACE.JET");
  s.txtInput[0] = "5";
  s.txtInput[5] = "110";
  const DesignOutcome outcome = Design(s);
  ASSERT_EQ(outcome.input_error, 0);
  ASSERT_EQ(dc.NSTAGES, 3);
  const float pin = dc.STG(kStageA, kStgPIN), pout = dc.STG(kStageA, kStgPOUT);
  EXPECT_EQ(pin, 5);
  EXPECT_NEAR(pout, 104, 2);
  EXPECT_EQ(DesignStage(ctx, pin, pout, dc.PMOTIVE, dc.TMOTIVE, 1).balance.failed, 1) << "the stage model's own flag";
  EXPECT_EQ(outcome.errors, std::vector<std::string>{"Stage A: the jet balance did not converge from 5 to " +
                                                     Trim(GeneralText(pout)) + " mmHgA; its last motive ratio stands"});
  for (const std::string& notice : ui.notices) EXPECT_EQ(notice.find("balance"), std::string::npos) << notice;
  EXPECT_EQ(NonFinite(), std::vector<std::string>{});
}

TEST_F(DesignErrors, AThreeStageSearchHeldAtItsFloorEndsWithoutADesign) {
  // No condensers, hot water, and gases so light that no interstage pressure beats the search's
  // starting best: the floor of the A-B pressure kept turning the search round for ever.
  InputScreen s = Example("SOLVENT-LOADS-THREE-STAGE.JET");
  s.OptionCondenserType = {0, 0, 0, -1};
  s.txtInput[5] = "120";
  s.txtInput[6] = "";
  TenGases(s, "10000000", "0.001");
  const DesignOutcome outcome = Design(s);
  ASSERT_EQ(outcome.input_error, 0);
  ASSERT_EQ(dc.NSTAGES, 3);
  for (const char* stage : {"A", "B", "C"}) {
    EXPECT_TRUE(Lists(outcome.errors, std::string("Stage ") + stage + ": the search stored no design for it")) << stage;
  }
  EXPECT_EQ(dc.TOTALS(kTotalMotive), 0);
  EXPECT_EQ(NonFinite(), std::vector<std::string>{});
}
