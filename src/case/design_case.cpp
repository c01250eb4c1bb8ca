// The design case record: the inputs as the design run sees them and the result tables it fills.
#include "case/design_case.h"

namespace kestrane {

void ClearLoadTables(DesignCase& dc) {
  dc.LOADS.Clear();
  dc.LATENT.Clear();
  dc.LOADCLASS.Clear();
  dc.STGLOAD.Clear();
  dc.CNDLOAD.Clear();
  // Range flags go with their loads, so that a gas load never keeps a flag of an earlier run.
  dc.VPRANGE.Clear();
}

void ClearResultTables(DesignCase& dc) {
  dc.STG.Clear();
  dc.CND.Clear();
  dc.LRVPRES.Clear();
  dc.TOTALS.Clear();
  dc.LRVPERR = 0;
}

}  // namespace kestrane
