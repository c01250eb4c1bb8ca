// The design case record: its shapes, 1-based indexing and clearing rules.
#include <gtest/gtest.h>

#include "case/design_case.h"

using namespace kestrane;

TEST(DesignCase, TablesHaveTheRecordsShapesWithOneBasedIndices) {
  DesignCase dc;
  dc.STG(kStageAAA, kStgVELM) = 1;
  dc.STG(kStageC, kStgPIN) = 2;
  dc.CND(kCondC1, 160) = 3;
  dc.LOADS(kLoadID, kMaxLoads) = 4;
  dc.LOADS(kLoadMISCIBLE, 1) = 5;
  dc.CNDLOAD(kMaxLoads, 2, kCondC1) = 6;
  dc.LRVPRES(68, 89) = 7;
  dc.TOTALS(kTotalPowerCost) = 8;
  dc.TWMAX(18) = 9;
  EXPECT_THROW(dc.STG(0, 1), VbError);
  EXPECT_THROW(dc.STG(6, 1), VbError);
  EXPECT_THROW(dc.STG(1, 61), VbError);
  EXPECT_THROW(dc.CND(4, 1), VbError);
  EXPECT_THROW(dc.LOADS(8, 1), VbError);
  EXPECT_THROW(dc.LOADS(0, 0), VbError);
  EXPECT_THROW(dc.TOTALS(13), VbError);
  EXPECT_THROW(dc.CNDLOAD(1, 3, 1), VbError);
  try {
    dc.STG(1, 0);
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), 9);
    EXPECT_EQ(e.description(), "Subscript out of range");
  }
}

TEST(DesignCase, StartsWithThePumpFactorsAndNoResults) {
  DesignCase dc;
  EXPECT_FLOAT_EQ(dc.LRVPFACTOR, 1.0f);
  EXPECT_FLOAT_EQ(dc.LRVPMLMIN, 1.1f);
  EXPECT_EQ(dc.NSTAGES, 0);
  EXPECT_EQ(dc.STG(kStageC, kStgMOTIVE), 0);
}

TEST(DesignCase, NamedRowsSitWhereTheResultsGridShowsThem) {
  EXPECT_EQ(kStgDIAS, 45);
  EXPECT_EQ(kStgVELM, 58);
  EXPECT_EQ(kCndWLMTD, 78);
  EXPECT_EQ(kCndQNOSUB, 105);
  EXPECT_EQ(kCndWALL, 115);
  EXPECT_EQ(kCndWALL2, 144);
  EXPECT_EQ(kCndFPSWI2, 150);
  EXPECT_EQ(kCndBAROG, 158);
}

namespace {

DesignCase FilledCase() {
  DesignCase dc;
  dc.PSUCT = 50;
  dc.NLOADS = 3;
  dc.HASC1 = 1;
  dc.TSATC1 = 95;
  for (int load = 1; load <= kMaxLoads; ++load) {
    dc.LOADS(kLoadPPH, load) = 10;
    dc.LATENT(load) = 1100;
    dc.LOADCLASS(load) = 4;
    dc.STGLOAD(load, kStageB) = 5;
    dc.CNDLOAD(load, 2, kCondAC) = 6;
    dc.VPRANGE(load, 1) = 1;
  }
  dc.STG(kStageAA, kStgMOTIVE) = 100;
  dc.CND(kCondC2, kCndAREA) = 50;
  dc.LRVPRES(1, 1) = 3;
  dc.TOTALS(kTotalMotive) = 100;
  dc.LRVPERR = 2;
  dc.CNDOPT(3) = 0.75f;
  return dc;
}

}  // namespace

TEST(DesignCase, ClearingTheLoadTablesLeavesInputsAndResults) {
  DesignCase dc = FilledCase();
  ClearLoadTables(dc);
  for (int load = 1; load <= kMaxLoads; ++load) {
    EXPECT_EQ(dc.LOADS(kLoadPPH, load), 0);
    EXPECT_EQ(dc.LATENT(load), 0);
    EXPECT_EQ(dc.LOADCLASS(load), 0);
    EXPECT_EQ(dc.STGLOAD(load, kStageB), 0);
    EXPECT_EQ(dc.CNDLOAD(load, 2, kCondAC), 0);
  }
  EXPECT_EQ(dc.STG(kStageAA, kStgMOTIVE), 100);
  EXPECT_EQ(dc.LRVPERR, 2);
  EXPECT_EQ(dc.PSUCT, 50);
  EXPECT_EQ(dc.TSATC1, 95);
}

TEST(DesignCase, ClearingTheResultsLeavesInputsAndLoads) {
  DesignCase dc = FilledCase();
  ClearResultTables(dc);
  EXPECT_EQ(dc.STG(kStageAA, kStgMOTIVE), 0);
  EXPECT_EQ(dc.CND(kCondC2, kCndAREA), 0);
  EXPECT_EQ(dc.LRVPRES(1, 1), 0);
  EXPECT_EQ(dc.TOTALS(kTotalMotive), 0);
  EXPECT_EQ(dc.LRVPERR, 0);
  EXPECT_EQ(dc.LOADS(kLoadPPH, 7), 10);
  EXPECT_EQ(dc.HASC1, 1);
  EXPECT_EQ(dc.TSATC1, 95);
  EXPECT_FLOAT_EQ(dc.CNDOPT(3), 0.75f);
}
