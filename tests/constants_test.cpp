// The fixed design tables stand in memory as transcribed: sizes, first and last rows, derived columns.
#include <gtest/gtest.h>

#include <vector>

#include "shell/constants.h"

using namespace kestrane;

namespace {

class DesignTables : public ::testing::Test {
 protected:
  void SetUp() override {
    SetCurves(curves);
    SetConstants(constants);
  }
  Curves curves;
  Constants constants;
};

std::vector<float> Row(const Array2D<float>& t, int i) {
  std::vector<float> r;
  for (int j = t.lo2(); j <= t.hi2(); ++j) r.push_back(t(i, j));
  return r;
}

void ExpectTable(const Array2D<float>& t, int rows, int cols, const std::vector<float>& first,
                 const std::vector<float>& last) {
  ASSERT_EQ(t.hi1(), rows);
  ASSERT_EQ(t.hi2(), cols);
  EXPECT_EQ(Row(t, 1), first);
  EXPECT_EQ(Row(t, rows), last);
}

}  // namespace

TEST_F(DesignTables, CurveTablesHaveTheirPointsAndEnds) {
  ExpectTable(curves.VELOCITYCURVE, 17, 2, {1, 395}, {30, 159});
  ExpectTable(curves.CONDCURVEA, 23, 2, {0, 1350}, {100, 20});
  ExpectTable(curves.CONDCURVEB, 11, 2, {0.0001f, 300}, {1, 20});
  EXPECT_FLOAT_EQ(curves.VELOCITYCURVE(11, 2), 249.5f);
}

TEST_F(DesignTables, EfficiencyLinesKeepTheirSingleCoefficients) {
  const auto& e = curves.EFFLINES;
  ASSERT_EQ(e.hi1(), 8);
  ASSERT_EQ(e.hi2(), 6);
  EXPECT_EQ(Row(e, 1), (std::vector<float>{0.04f, 3.5117709636688232f, 0.37199491262435913f, -0.05948042f,
                                           -0.01468407f, 0.0f}));
  EXPECT_EQ(Row(e, 8), (std::vector<float>{600.0f, 4.604790210723877f, -0.02698863f, -0.3730058f,
                                           0.22996249794960022f, -0.04189189f}));
  const float pressures[] = {0.04f, 1, 5, 10, 25, 40, 90, 600};
  for (int j = 1; j <= 8; ++j) EXPECT_EQ(e(j, 1), pressures[j - 1]);
  // The long coefficients are exact singles.
  EXPECT_EQ(static_cast<double>(e(1, 2)), 3.5117709636688232);
}

TEST_F(DesignTables, StageNamesRunFromTheAtmosphericEnd) {
  const auto& n = constants.STAGENAME;
  ASSERT_EQ(n.size(), 5);
  EXPECT_EQ(n(1), "C");
  EXPECT_EQ(n(3), "A");
  EXPECT_EQ(n(5), "AAA");
}

TEST_F(DesignTables, MaterialNamesArePaddedToSixteenWithTheirConductivities) {
  ASSERT_EQ(constants.MATERIALNAME.size(), 36);
  EXPECT_EQ(constants.MATERIALNAME(1), "STEEL           ");
  EXPECT_EQ(constants.MATERIALNAME(10), "70/30 CU NI     ");
  EXPECT_EQ(constants.MATERIALNAME(34), "CAST 316LSS     ");
  EXPECT_EQ(constants.MATERIALNAME(35), std::string(16, ' '));
  EXPECT_EQ(constants.MATERIALNAME(36), std::string(16, ' '));
  for (int i = 1; i <= 36; ++i) EXPECT_EQ(constants.MATERIALNAME(i).size(), 16u) << i;
  EXPECT_FLOAT_EQ(constants.CONDUCTIVITY(1), 26.0f);
  EXPECT_FLOAT_EQ(constants.CONDUCTIVITY(17), 9.833f);
  EXPECT_FLOAT_EQ(constants.CONDUCTIVITY(21), 0.001f);
  EXPECT_FLOAT_EQ(constants.CONDUCTIVITY(26), 215.0f);
  EXPECT_FLOAT_EQ(constants.CONDUCTIVITY(36), 1.0f);
}

TEST_F(DesignTables, TubeGaugesAndPipes) {
  ASSERT_EQ(constants.BWGWALL.size(), 18);
  EXPECT_FLOAT_EQ(constants.BWGWALL(1), 0.18f);
  EXPECT_FLOAT_EQ(constants.BWGWALL(18), 0.022f);
  ExpectTable(constants.PIPETAB, 20, 3, {0.25f, 0.119f, 0.302f}, {24, 0.375f, 23.25f});
  // The pipes rise in nominal size and bore.
  for (int i = 2; i <= 20; ++i) {
    EXPECT_GT(constants.PIPETAB(i, 1), constants.PIPETAB(i - 1, 1));
    EXPECT_GT(constants.PIPETAB(i, 3), constants.PIPETAB(i - 1, 3));
  }
  EXPECT_FLOAT_EQ(constants.PIPETAB(11, 1), 6);
  EXPECT_FLOAT_EQ(constants.PIPETAB(11, 3), 6.065f);
}

TEST_F(DesignTables, EjectorTables) {
  ExpectTable(constants.MWTAB, 28, 2, {0.00015f, 0}, {150, 1.61f});
  EXPECT_FLOAT_EQ(constants.MWTAB(11, 1), 29);  // air entrains at ratio 1
  EXPECT_FLOAT_EQ(constants.MWTAB(11, 2), 1);
  ExpectTable(constants.SIZETAB, 32, 4, {1, 0.3f, 2, 1}, {130, 3.56f, 8, 8});
  EXPECT_EQ(Row(constants.SIZETAB, 14), (std::vector<float>{10, 0.98f, 3, 2.5f}));
  EXPECT_EQ(Row(constants.SIZETAB, 15), (std::vector<float>{12, 1.1f, 3, 2.5f}));
  ExpectTable(constants.THROATCORR, 32, 2, {0.3f, 1.2293f}, {3.56f, 1.0f});
  for (int i = 1; i <= 32; ++i) EXPECT_EQ(constants.THROATCORR(i, 1), constants.SIZETAB(i, 2)) << i;
  ExpectTable(constants.DYNHEAD, 14, 3, {0, 0, 0}, {7, 0.04f, 0.04f});
  ExpectTable(constants.EJECTORBODY, 32, 5, {1, 4, 3.5f, 13, 0.5f}, {130, 12, 12.1875f, 84.9375f, 4});
  for (int i = 1; i <= 32; ++i) EXPECT_EQ(constants.EJECTORBODY(i, 1), constants.SIZETAB(i, 1)) << i;
}

TEST_F(DesignTables, BarometricTables) {
  ExpectTable(constants.BAROTAB, 39, 12, {6, 2.5f, 2, 44, 6.75f, 16, 26, 11, 7, 1.25f, 2, 1},
              {96, 90, 8, 292, 96, 42, 148.5f, 120, 54, 36, 36, 0});
  // Cast iron rows are the sizes up to 16.
  for (int i = 1; i <= 39; ++i) EXPECT_EQ(constants.BAROTAB(i, 12) == 1, constants.BAROTAB(i, 1) <= 16) << i;
  ExpectTable(constants.BAROWATER, 28, 2, {6, 30}, {120, 17600});
  ExpectTable(constants.BAROLOAD, 27, 5, {6, 15.24f, 34, 107.95f, 180}, {120, 15.24f, 49000, 107.95f, 391247});
  for (int i = 1; i <= 27; ++i) EXPECT_NE(constants.BAROLOAD(i, 1), 42) << "size 42 has no load row";
  EXPECT_FLOAT_EQ(constants.BAROLOAD(11, 5), 19377.3594f);
  ExpectTable(constants.BAROVIN, 24, 2, {4.2f, 711.2f}, {24, 25.4f});
  ExpectTable(constants.BAROVOUT, 18, 2, {4.2f, 711.2f}, {18, 17.8f});
}

TEST_F(DesignTables, CondenserLayoutTables) {
  ExpectTable(constants.STDCONDENSER, 52, 10, {6, 4, 1, 75.5f, 47, 7.25f, 9, 0, 30, 6},
              {24, 20, 4, 282, 237.5f, 19, 18, 18, 222, 17});
  ExpectTable(constants.ODTOY, 10, 2, {6, 3.5f}, {24, 10.5f});
  ExpectTable(constants.SHELLFRICTION, 9, 2, {10, 0.044f}, {1000000, 0.0009f});
  ExpectTable(constants.PASSTAB, 11, 3, {1, 0, 0}, {16, 7, 1});
  ExpectTable(constants.PASSTAB6, 8, 3, {2, 1, 0}, {16, 7, 1});
  ASSERT_EQ(constants.LANEFACTOR.size(), 8);
  EXPECT_FLOAT_EQ(constants.LANEFACTOR(1), 0);
  EXPECT_FLOAT_EQ(constants.LANEFACTOR(3), 1.9283f);
  EXPECT_FLOAT_EQ(constants.LANEFACTOR(8), 6.3359f);
  ExpectTable(constants.CLEARANCE, 12, 2, {1, 0.3125f}, {110, 1.25f});
  ExpectTable(constants.SLOTVELOCITY, 14, 2, {1, 17.5f}, {29.5f, 100});
}
