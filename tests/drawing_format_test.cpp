// Dimension texts in feet, inches and fractions, and rounding to powers of ten.
#include <gtest/gtest.h>

#include "drawings/format_inches.h"

namespace kestrane {
namespace {

std::string Inches(float value, int16_t format, int16_t nofeet = 0) { return FormatInches(value, format, nofeet); }

TEST(DrawingFormatInches, FeetAndFractionsInSixtyFourthsOrCoarser) {
  EXPECT_EQ(Inches(36.0f, 3), "3'-0\"");
  EXPECT_EQ(Inches(23.5f, 3), "23 1/2\"");
  EXPECT_EQ(Inches(0.375f, 3), "3/8\"");
  EXPECT_EQ(Inches(30.0f, 3), "2'-6\"");
  EXPECT_EQ(Inches(38.203125f, 3), "3'-2 13/64\"");
  EXPECT_EQ(Inches(36.5f, 3), "3'-0 1/2\"");
}

TEST(DrawingFormatInches, FeetStartAtTwoFeetAndNeverWithNoFeet) {
  EXPECT_EQ(Inches(23.0f, 3), "23\"");
  EXPECT_EQ(Inches(24.0f, 3), "2'-0\"");
  EXPECT_EQ(Inches(30.0f, 3, 1), "30\"");
  EXPECT_EQ(Inches(150.25f, 3, 1), "150 1/4\"");
}

TEST(DrawingFormatInches, AFractionJustBelowAWholeInchRoundsUp) {
  EXPECT_EQ(Inches(22.99995f, 3), "23\"");
}

TEST(DrawingFormatInches, NoSixtyFourthFitsFallsBackToFiveDecimalsAndFormatZero) {
  int16_t format = 3;
  EXPECT_EQ(FormatInches(23.1f, format, 0), "23.10000\"");
  EXPECT_EQ(format, 0);
  format = 3;
  FormatInches(23.5f, format, 0);
  EXPECT_EQ(format, 3);
}

TEST(DrawingFormatInches, DecimalFormatsRoundTheFraction) {
  EXPECT_EQ(Inches(5.4567f, 0), "5.45670\"");
  EXPECT_EQ(Inches(5.4567f, 1), "5.46\"");
  EXPECT_EQ(Inches(5.4567f, 2), "5.457\"");
  EXPECT_EQ(Inches(0.25f, 1), "0.25\"");
  EXPECT_EQ(Inches(5.0f, 2), "5\"");
}

TEST(DrawingRoundPow10, TruncatesAfterAddingAHalf) {
  EXPECT_FLOAT_EQ(RoundPow10(25.44f, 0), 25.0f);
  EXPECT_FLOAT_EQ(RoundPow10(25.46f, -1), 25.5f);
  EXPECT_FLOAT_EQ(RoundPow10(1234.0f, 2), 1200.0f);
  // Fix, not Int: a negative value rounds toward zero.
  EXPECT_FLOAT_EQ(RoundPow10(-2.7f, 0), -2.0f);
}

}  // namespace
}  // namespace kestrane
