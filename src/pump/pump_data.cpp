// Liquid ring pump data: the 89-pump catalogue read from VPX.DTA and the fixed correction tables.
#include "pump/pump_data.h"

#include <vector>

#include "properties/binary_file.h"

namespace kestrane {

namespace {

constexpr size_t kRecordBytes = 450;

}  // namespace

bool ReadPumps(const std::filesystem::path& path, PumpData& data, Ui& ui) {
  const std::vector<char> bytes = ReadFileBytes(path);
  data.loaded = false;
  if (bytes.size() < kPumps * kRecordBytes) {
    ui.notice("An error has occurred reading the liquid ring vacuum pump data file (" + path.filename().string() +
              ").  Check to make sure this file is in the 'pgmfiles' directory of the Kestrane program.  Designs "
              "with a vacuum pump as last stage will find no pump.");
    return false;
  }
  for (int p = 1; p <= kPumps; ++p) {
    PumpRecord& r = data.pumps[static_cast<size_t>(p)];
    size_t at = static_cast<size_t>(p - 1) * kRecordBytes;
    r.MODEL.assign(&bytes[at], 12);
    at += 12;
    r.rated = LittleSingle(bytes, at);
    r.speed = LittleSingle(bytes, at + 4);
    r.points = LittleInt16(bytes, at + 8);
    r.MOTORIDX = LittleInt16(bytes, at + 10);
    r.PCYCLES = LittleSingle(bytes, at + 12);
    r.PTYPE = LittleInt16(bytes, at + 16);
    r.PSERIES = LittleInt16(bytes, at + 18);
    r.PFLAG = LittleInt16(bytes, at + 20);
    at += 22;
    for (size_t k = 1; k <= 3; ++k) r.SEALGPM[k] = LittleSingle(bytes, at + 4 * (k - 1));
    r.PMAXBHP = LittleSingle(bytes, at + 12);
    at += 16;
    for (int row = 1; row <= kCurvePoints; ++row) {
      for (int col = 1; col <= 4; ++col) {
        r.PCURVE(row, col) = LittleSingle(bytes, at);
        at += 4;
      }
    }
  }
  data.loaded = true;
  return true;
}

void SetPumpTables(PumpTables& t) {
  // Capacity and power factors against vacuum (inHg) at discharge 0, 2, 5 and 10 psig. The
  // capacity factors apply Ryans & Roper's pseudo suction rule (Process Vacuum System Design
  // and Operation, 1986, eq. 10-21: read the standard curve at P' = P 760 / Pd) to the
  // project's synthetic single-stage (series 1) and two-stage (series 2) capacity shapes;
  // the power factors come from the synthetic power model of the same notes (60 % ring loss,
  // 40 % isothermal compression), floored at 1. See pgmfiles/README.md.
  t.discharge = Array1D<float>(1, {0.0f, 2.0f, 5.0f, 10.0f});
  t.capacity1 = Array2D<float>{
      {4, 1, 0.9981f, 0.995f, 0.9896f},   {8, 1, 0.9976f, 0.9938f, 0.9871f},  {10, 1, 0.9973f, 0.9929f, 0.9853f},
      {12, 1, 0.9968f, 0.9919f, 0.9831f}, {14, 1, 0.9963f, 0.9905f, 0.9803f}, {16, 1, 0.9956f, 0.9887f, 0.9764f},
      {18, 1, 0.9946f, 0.986f, 0.971f},   {20, 1, 0.993f, 0.9821f, 0.9629f},  {22, 1, 0.9906f, 0.9757f, 0.9496f},
      {24, 1, 0.9859f, 0.9637f, 0.9245f}, {26, 1, 0.9744f, 0.9344f, 0.8635f}, {27, 1, 0.9599f, 0.8969f, 0.7856f},
      {28, 1, 0.9175f, 0.7881f, 0.5592f}};
  t.power1 = Array2D<float>{
      {4, 1, 1.1656f, 1.3789f, 1.6677f},  {8, 1, 1.1205f, 1.2752f, 1.4839f},  {10, 1, 1.1032f, 1.2356f, 1.4137f},
      {12, 1, 1.0884f, 1.2015f, 1.3531f}, {14, 1, 1.0754f, 1.1715f, 1.2998f}, {16, 1, 1.0637f, 1.1446f, 1.2517f},
      {18, 1, 1.053f, 1.1198f, 1.2073f},  {20, 1, 1.0428f, 1.0964f, 1.1651f}, {22, 1, 1.033f, 1.0734f, 1.1233f},
      {24, 1, 1.0227f, 1.0493f, 1.0789f}, {26, 1, 1.0108f, 1.021f, 1.0255f},  {27, 1, 1.0032f, 1.0025f, 1.0f},
      {28, 1, 1.0f, 1.0f, 1.0f}};
  t.capacity2 = Array2D<float>{
      {4, 1, 0.9998f, 0.9995f, 0.9988f},  {8, 1, 0.9997f, 0.9993f, 0.9983f},  {10, 1, 0.9997f, 0.9991f, 0.9979f},
      {12, 1, 0.9996f, 0.9989f, 0.9975f}, {14, 1, 0.9995f, 0.9986f, 0.9968f}, {16, 1, 0.9993f, 0.9982f, 0.9958f},
      {18, 1, 0.9991f, 0.9975f, 0.9942f}, {20, 1, 0.9987f, 0.9964f, 0.9917f}, {22, 1, 0.9979f, 0.9943f, 0.9869f},
      {24, 1, 0.9962f, 0.9897f, 0.9764f}, {26, 1, 0.9913f, 0.9761f, 0.9452f}, {27, 1, 0.9839f, 0.9558f, 0.8989f}};
  t.power2 = Array2D<float>{
      {4, 1, 1.1638f, 1.3758f, 1.6656f},  {8, 1, 1.12f, 1.2752f, 1.4873f},    {10, 1, 1.1033f, 1.2369f, 1.4192f},
      {12, 1, 1.0889f, 1.2039f, 1.3607f}, {14, 1, 1.0763f, 1.175f, 1.3093f},  {16, 1, 1.0651f, 1.1492f, 1.2634f},
      {18, 1, 1.0549f, 1.1257f, 1.2216f}, {20, 1, 1.0455f, 1.1039f, 1.1825f}, {22, 1, 1.0364f, 1.0829f, 1.1446f},
      {24, 1, 1.0273f, 1.0616f, 1.1056f}, {26, 1, 1.0171f, 1.0373f, 1.0597f}, {27, 1, 1.0106f, 1.0214f, 1.0279f}};
  // Capacity factor of pumps of other classes against discharge (psig): the same pseudo suction
  // rule on the single-stage shape at 24 inHg vacuum, the middle of a last stage's duty.
  t.other = Array2D<float>{{0, 1},       {1, 0.9929f},  {2, 0.9859f},  {3, 0.9786f}, {4, 0.9713f}, {5, 0.9637f},
                           {6, 0.9560f}, {7, 0.9481f},  {8, 0.9401f},  {9, 0.9321f}, {10, 0.9245f}};
  // Standard motor ratings, hp (NEC Table 430.250, as excerpted in the pump notes).
  t.motors = Array1D<float>(1, {0.5f, 0.75f, 1, 1.5f, 2, 3, 5, 7.5f, 10, 15, 20, 25, 30, 40, 50, 60, 75, 100, 125, 150,
                                200, 400, 450, 500});
}

}  // namespace kestrane
