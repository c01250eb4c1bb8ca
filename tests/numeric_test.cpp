// Table interpolation, lines, rounding, extremes and fixed-width text.
#include <gtest/gtest.h>

#include <cmath>

#include "properties/numeric.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ErrorNumberOf;

namespace {

// A table of `declared` rows and 2 columns with the given points, the rest zero.
Array2D<float> Curve(int declared, std::initializer_list<std::pair<float, float>> points) {
  Array2D<float> t(declared, 2);
  int i = 1;
  for (auto [x, y] : points) {
    t(i, 1) = x;
    t(i, 2) = y;
    ++i;
  }
  return t;
}

struct Lookup {
  float result = -999;
  int16_t status = -1;
  int16_t xcol = 1;
};

Lookup Interp(const Array2D<float>& t, float x, int16_t xcol = 1, int16_t ycol = 2) {
  Lookup r;
  r.xcol = xcol;
  TableInterp(t, static_cast<int16_t>(t.hi1()), static_cast<int16_t>(t.hi2()), x, r.status, r.xcol, ycol, r.result);
  return r;
}

}  // namespace

TEST(TableInterp, InterpolatesLinearlyInsideARisingTable) {
  const auto t = Curve(5, {{0, 0}, {10, 100}, {20, 300}, {40, 500}});
  auto r = Interp(t, 15);
  EXPECT_FLOAT_EQ(r.result, 200);
  EXPECT_EQ(r.status, 0);
  EXPECT_FLOAT_EQ(Interp(t, 30).result, 400);
}

TEST(TableInterp, EndsOfTheTableGiveTheirValuesWithoutExtrapolation) {
  const auto t = Curve(5, {{1, 10}, {2, 20}, {3, 35}});
  auto low = Interp(t, 1);
  EXPECT_FLOAT_EQ(low.result, 10);
  EXPECT_EQ(low.status, 0);
  auto high = Interp(t, 3);
  EXPECT_FLOAT_EQ(high.result, 35);
  EXPECT_EQ(high.status, 0);
}

TEST(TableInterp, UsedLengthEndsAtTheFirstBlankRowAndExtrapolatesFromTheLastTwo) {
  // 11 declared rows, 7 filled: above the seventh abscissa the line through rows 6 and 7 continues.
  const auto t = Curve(11, {{1, 1}, {2, 4}, {3, 9}, {4, 16}, {5, 25}, {6, 36}, {7, 49}});
  auto r = Interp(t, 8);
  EXPECT_EQ(r.status, 1);
  EXPECT_FLOAT_EQ(r.result, 62);  // 49 + (49 - 36)
  auto below = Interp(t, 0);
  EXPECT_EQ(below.status, 1);
  EXPECT_FLOAT_EQ(below.result, -2);  // through rows 1 and 2
}

TEST(TableInterp, ARowOfZerosEndsTheTableEvenWithDataBehindIt) {
  auto t = Curve(6, {{1, 10}, {2, 20}, {3, 30}, {0, 0}, {5, 50}, {6, 60}});
  auto r = Interp(t, 5);
  EXPECT_EQ(r.status, 1);
  EXPECT_FLOAT_EQ(r.result, 50);  // continuation of rows 2 and 3, not row 5
}

TEST(TableInterp, BlankTestCountsTinyPositiveValuesAsBlankButNotNegativeOnes) {
  // 0.000002 is blank, -0.0000001 is not: the second table keeps its third row.
  auto blank = Curve(4, {{0, 0}, {1, 1}, {0.000002f, 0.000002f}, {3, 3}});
  EXPECT_EQ(Interp(blank, 2).status, 1);
  auto kept = Curve(4, {{-2, 5}, {-1, 4}, {-0.0000001f, 3}, {0, 0}});
  auto r = Interp(kept, -0.5f);
  EXPECT_EQ(r.status, 0);
  EXPECT_NEAR(r.result, 3.5f, 1e-5);
}

TEST(TableInterp, TwoRowTableNeedsNoBlankTest) {
  Array2D<float> two(2, 2);
  two(1, 1) = 0;  // a true zero in row 1 is data, rows 1 and 2 always count
  two(1, 2) = 5;
  two(2, 1) = 10;
  two(2, 2) = 15;
  EXPECT_FLOAT_EQ(Interp(two, 5).result, 10);
}

TEST(TableInterp, FallingTableExtrapolatesThroughItsEndSegments) {
  // Pressure falling as velocity rises, as the barometric velocity tables.
  const auto t = Curve(4, {{10, 100}, {8, 80}, {5, 50}, {4, 30}});
  auto above = Interp(t, 12);
  EXPECT_EQ(above.status, 1);
  EXPECT_FLOAT_EQ(above.result, 120);  // rows 1 and 2
  auto below = Interp(t, 3);
  EXPECT_EQ(below.status, 1);
  EXPECT_FLOAT_EQ(below.result, 10);  // rows 3 and 4
  auto inside = Interp(t, 6.5f);
  EXPECT_EQ(inside.status, 0);
  EXPECT_FLOAT_EQ(inside.result, 65);
  EXPECT_FLOAT_EQ(Interp(t, 10).result, 100);
  EXPECT_FLOAT_EQ(Interp(t, 4).result, 30);
}

TEST(TableInterp, ReadsBackwardsBySwappingColumns) {
  const auto t = Curve(3, {{1, 10}, {2, 20}, {3, 40}});
  EXPECT_FLOAT_EQ(Interp(t, 30, 2, 1).result, 2.5f);
}

TEST(TableInterp, ColumnOutsideTheTableReadsColumnOneAndIsWrittenBack) {
  const auto t = Curve(3, {{1, 10}, {2, 20}, {3, 40}});
  auto zero = Interp(t, 2.5f, 0);
  EXPECT_EQ(zero.xcol, 1);
  EXPECT_FLOAT_EQ(zero.result, 30);
  auto beyond = Interp(t, 2.5f, 3);
  EXPECT_EQ(beyond.xcol, 1);
  EXPECT_FLOAT_EQ(beyond.result, 30);
}

TEST(TableInterp, TransposedLayoutGivesTheSameAnswerAndNeedsOneSparePoint) {
  Array2D<float> t(2, 4);  // T(column, point): 3 points and a spare
  const float xs[] = {1, 2, 3}, ys[] = {10, 20, 40};
  for (int i = 1; i <= 3; ++i) {
    t(1, i) = xs[i - 1];
    t(2, i) = ys[i - 1];
  }
  int16_t status = -1, xcol = 1;
  float result = 0;
  TableInterp(t, 2, 3, 2.5f, status, xcol, 2, result, 1);
  EXPECT_FLOAT_EQ(result, 30);
  EXPECT_EQ(status, 0);

  Array2D<float> tight(2, 3);  // declared exactly as many points as the bound
  for (int i = 1; i <= 3; ++i) {
    tight(1, i) = xs[i - 1];
    tight(2, i) = ys[i - 1];
  }
  EXPECT_EQ(ErrorNumberOf([&] { TableInterp(tight, 2, 3, 2.5f, status, xcol, 2, result, 1); }), 9);
}

TEST(TableInterp, EqualAbscissasAtTheEndAreADivisionByZero) {
  const auto t = Curve(3, {{1, 10}, {2, 20}, {2, 30}});
  EXPECT_EQ(ErrorNumberOf([&] { Interp(t, 5); }), 11);
}

TEST(TableInterp, ReadsTheMolecularWeightStyleTableInSinglePrecision) {
  const auto t = Curve(3, {{25, 0.94f}, {29, 1.0f}, {35, 1.08f}});
  auto r = Interp(t, 28.97f);
  // fraction = (29 - 28.97) / 4 in singles
  const float fraction = (29.0f - 28.97f) / (29.0f - 25.0f);
  EXPECT_EQ(r.result, 1.0f - fraction * (1.0f - 0.94f));
}

TEST(TwoPointLine, PassesThroughBothPoints) {
  EXPECT_FLOAT_EQ(TwoPointLine(0, 1, 10, 21, 5), 11);
  EXPECT_FLOAT_EQ(TwoPointLine(15.24f, 34, 107.95f, 180, 15.24f), 34);
  EXPECT_FLOAT_EQ(TwoPointLine(15.24f, 34, 107.95f, 180, 107.95f), 180);
  EXPECT_EQ(ErrorNumberOf([] { TwoPointLine(1, 2, 1, 3, 4); }), 11);
}

TEST(LogLogLine, IsAStraightLineOnLogarithmicAxes) {
  // y = 3 x^2 through (1, 3) and (10, 300).
  EXPECT_NEAR(LogLogLine(1, 3, 10, 300, 4), 48, 1e-4);
  EXPECT_NEAR(LogLogLine(10, 0.044f, 20, 0.022f, 15), 0.044 * 10 / 15, 1e-6);
  EXPECT_EQ(ErrorNumberOf([] { LogLogLine(0, 1, 2, 3, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { LogLogLine(1, 1, 2, 3, -1); }), 5);
}

TEST(Log10, IsTheCommonLogarithm) {
  EXPECT_DOUBLE_EQ(Log10(1000), std::log(1000.0) / std::log(10.0));
  EXPECT_NEAR(Log10(2), 0.30102999566, 1e-11);
  EXPECT_EQ(ErrorNumberOf([] { Log10(0); }), 5);
}

TEST(RoundTo, RoundsToTheNearestMultipleWithTiesUp) {
  float v = 10.25f;
  RoundTo(v, 0.5f);
  EXPECT_FLOAT_EQ(v, 10.5f);
  v = 10.2f;
  RoundTo(v, 0.5f);
  EXPECT_FLOAT_EQ(v, 10.0f);
  v = -2.5f;
  RoundTo(v, 1.0f);
  EXPECT_FLOAT_EQ(v, -2.0f);  // ties go up, also below zero
  v = 1234.0f;
  RoundTo(v, 10.0f);
  EXPECT_FLOAT_EQ(v, 1230.0f);
  v = 0.1f;
  RoundTo(v, 0.125f);
  EXPECT_FLOAT_EQ(v, 0.125f);
}

TEST(RoundUpTo, GoesToTheNextMultipleAndLeavesAMultipleAlone) {
  float v = 10.1f;
  RoundUpTo(v, 0.5f);
  EXPECT_FLOAT_EQ(v, 10.5f);
  v = 10.0f;
  RoundUpTo(v, 0.5f);
  EXPECT_FLOAT_EQ(v, 10.0f);
  v = 23.3f;
  RoundUpTo(v, 2.0f);
  EXPECT_FLOAT_EQ(v, 24.0f);
  v = 7.0f;
  RoundUpTo(v, 2.0f);
  EXPECT_FLOAT_EQ(v, 8.0f);
}

TEST(MaxOfMinOf, SkipMissingArgumentsInsteadOfCountingZero) {
  EXPECT_FLOAT_EQ(MinOf(3, 5), 3);
  EXPECT_FLOAT_EQ(MaxOf(3, 5), 5);
  EXPECT_FLOAT_EQ(MinOf(3, 5, std::nullopt, 4), 3);
  EXPECT_FLOAT_EQ(MinOf(3, 5, std::nullopt, 1), 1);
  EXPECT_FLOAT_EQ(MaxOf(-3, -5, std::nullopt), -3);  // a missing value is not a zero
  EXPECT_FLOAT_EQ(MaxOf(1, 2, 3, 4, 5, 6, 7, 8, 9, 10), 10);
  EXPECT_FLOAT_EQ(MinOf(10, 9, 8, 7, 6, 5, 4, 3, 2, 1), 1);
}

TEST(FormatFixed, RightJustifiesInTheFieldWidth) {
  EXPECT_EQ(FormatFixed(3.14159f, 8.2f), "    3.14");
  EXPECT_EQ(FormatFixed(3.14159f, 0.2f), "3.14");
  EXPECT_EQ(FormatFixed(1234.5f, 8.0f), "    1235");
  EXPECT_EQ(FormatFixed(0.05f, 6.1f), "   0.1");
  EXPECT_EQ(FormatFixed(-1.5f, 12.4f), "     -1.5000");
  EXPECT_EQ(FormatFixed(0.000012f, 12.6f), "    0.000012");
}

TEST(FormatFixed, ANumberLongerThanTheFieldIsReturnedWhole) {
  EXPECT_EQ(FormatFixed(123456.0f, 4.1f), "123456.0");
  EXPECT_EQ(FormatFixed(12.0f, 0.0f), "12");
}

TEST(FormatBySize, ChoosesDecimalsByTheSizeOfTheNumber) {
  EXPECT_EQ(FormatBySize(0, 7), "    0.0");
  EXPECT_EQ(FormatBySize(1500, 7), "   1500");
  EXPECT_EQ(FormatBySize(0.5f, 3), "0.50");
  EXPECT_EQ(FormatBySize(999.94f, 8), "   999.9");
  EXPECT_EQ(FormatBySize(45.678f, 8), "   45.68");
  EXPECT_EQ(FormatBySize(4.5678f, 8), "   4.568");
  EXPECT_EQ(FormatBySize(0.45678f, 8), "  0.4568");
  EXPECT_EQ(FormatBySize(0.045678f, 8), " 0.04568");
  EXPECT_EQ(FormatBySize(0.0045678f, 9), " 0.004568");
  EXPECT_EQ(FormatBySize(-2, 10), " -2.000000");  // a negative number has six
  EXPECT_EQ(FormatBySize(0.01f, 9), " 0.010000");  // 0.01 as a single lies below 0.01
}

TEST(PlaceInField, WritesTrimmedTextByAlignment) {
  std::string line(10, '.');
  PlaceInField(-1, line, " ab ", 3);
  EXPECT_EQ(line, "..ab......");
  line = std::string(10, '.');
  PlaceInField(1, line, "abc", 5);
  EXPECT_EQ(line, "..abc.....");
  line = std::string(10, '.');
  PlaceInField(0, line, "abcd", 5);
  EXPECT_EQ(line, "..abcd....");
  line = std::string(10, '.');
  PlaceInField(0, line, "abc", 5);
  EXPECT_EQ(line, "...abc....");
}

TEST(PlaceInField, LeavesTheLineWhenTheTextCannotStartInIt) {
  std::string line(10, '.');
  PlaceInField(1, line, "abcde", 3);
  EXPECT_EQ(line, "..........");
  PlaceInField(-1, line, "   ", 3);
  EXPECT_EQ(line, "..........");
  PlaceInField(2, line, "x", 3);
  EXPECT_EQ(line, "..........");
}

TEST(PlaceInField, CutsWhatReachesPastTheEndAndCountsCharactersNotBytes) {
  std::string line(6, '.');
  PlaceInField(-1, line, "abcdef", 4);
  EXPECT_EQ(line, "...abc");
  std::string deg = "T(\xC2\xB0""C) ....";
  PlaceInField(-1, deg, "xy", 6);
  EXPECT_EQ(deg, "T(\xC2\xB0""C)xy...");
}

TEST(PolarOf, GivesDistanceAndAngleInAllQuadrants) {
  float d = 0, a = 0;
  PolarOf(0, 0, 3, 4, d, a);
  EXPECT_FLOAT_EQ(d, 5);
  EXPECT_NEAR(a, 53.1301, 1e-3);
  PolarOf(0, 0, -1, 1, d, a);
  EXPECT_NEAR(a, 135, 1e-4);
  PolarOf(0, 0, -1, -1, d, a);
  EXPECT_NEAR(a, 225, 1e-4);
  PolarOf(0, 0, 1, -1, d, a);
  EXPECT_NEAR(a, 315, 1e-4);
  PolarOf(2, 2, 2, 5, d, a);
  EXPECT_FLOAT_EQ(a, 90);
  PolarOf(2, 2, 2, -5, d, a);
  EXPECT_FLOAT_EQ(a, 270);
  PolarOf(2, 2, 2, 2, d, a);
  EXPECT_FLOAT_EQ(a, 0);
  EXPECT_FLOAT_EQ(d, 0);
}

TEST(PolarOf, UsesTheProgramsDegreeFactor) {
  float d = 0, a = 0;
  PolarOf(0, 0, 1, 1, d, a);
  EXPECT_EQ(a, static_cast<float>(std::atan(1.0) * 57.295777918682));
}
