// Helpers of the tests that run designs: a fixture that designs an example case in process with the shipped data.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "case/jet_file.h"
#include "engine/design_context.h"
#include "engine/design_run.h"
#include "test_support.h"

namespace kestrane::testing {

// A design case, its input screen and the context a run works in; DesignExample fills them from an example.
class ExampleDesign : public ::testing::Test {
 protected:
  ExampleDesign() : screen(NewCase()), ctx{dc, ShippedData(), screen, pinterfix, ui} {}

  // Designs the example `file` of usrfiles as its file has it; the run must end with results.
  void DesignExample(const std::string& file) {
    dc = DesignCase();
    InputScreen read = NewCase();
    RecordingUi read_ui;
    ASSERT_TRUE(OpenCase(std::filesystem::path(KESTRANE_SOURCE_DIR) / "usrfiles" / file, read, read_ui));
    screen = read;
    const DesignOutcome outcome = RunDesign(ctx, screen);
    ASSERT_EQ(outcome.input_error, 0);
    ASSERT_TRUE(outcome.results);
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
};

}  // namespace kestrane::testing
