// The vapor data base, the Antoine equation, user defined vapors and their editing rules, and the vapor search.
#include <gtest/gtest.h>

#include <cmath>

#include "properties/user_vapors.h"
#include "properties/vapor_search.h"
#include "properties/vapor_table.h"
#include "shell/startup.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kSourceDir = KESTRANE_SOURCE_DIR;

float Fahrenheit(float celsius) { return celsius * 9 / 5 + 32; }

class VaporBase : public kestrane::testing::ScratchFolder {
 protected:
  static void SetUpTestSuite() {
    data_ = new VaporData;
    RecordingUi ui;
    ASSERT_TRUE(ReadPsat(kSourceDir / "pgmfiles" / "PSAT.DTA", *data_, ui));
  }
  static void TearDownTestSuite() { delete data_; }
  Vapors vapors() { return Vapors{*data_, user, ui}; }
  fs::path UdvFile() const { return dir / "UDV.DTA"; }

  // The ID of the vapor whose trimmed name is exactly `name`.
  int IdOf(const std::string& name) {
    for (int i = 1; i <= data_->NPSAT; ++i) {
      if (Trim(data_->PSATNAME(i)) == name) return i;
    }
    return 0;
  }
  // Adds a user vapor through the window's rules.
  bool AddUser(const std::string& name, float t1, float p1, float t2, float p2, float t3, float p3, float mw = 50) {
    UdvScreen screen;
    if (!UdvAdd(screen, user, ui)) return false;
    screen.TextUDV = {screen.TextUDV[0], GeneralText(t1), GeneralText(p1), GeneralText(t2), GeneralText(p2),
                      GeneralText(t3), GeneralText(p3), GeneralText(mw), name};
    return UdvUpdate(screen, user, UdvFile(), ui);
  }

  static VaporData* data_;
  UserVapors user;
  RecordingUi ui;
};
VaporData* VaporBase::data_ = nullptr;

}  // namespace

// --- The data base ---------------------------------------------------------

TEST(VaporDataBase, GeneratorReproducesTheCommittedFileByteForByte) {
  const fs::path tsv = kSourceDir / ".." / "shared" / "data" / "vapors" / "vapors.tsv";
  if (!fs::exists(tsv)) GTEST_SKIP() << "the shared vapor table is not beside the project";
  const fs::path out = fs::temp_directory_path() / ("kestrane_psat_" + std::to_string(::getpid()) + ".DTA");
  const std::string cmd = "/usr/bin/python3 '" + (kSourceDir / "tools" / "make_psat.py").string() + "' '" +
                          tsv.string() + "' '" + out.string() + "'";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  EXPECT_TRUE(ReadBytes(out) == ReadBytes(kSourceDir / "pgmfiles" / "PSAT.DTA"));
  fs::remove(out);
}

TEST_F(VaporBase, LoadsOverAThousandVaporsWithPaddedTexts) {
  EXPECT_GE(data_->NPSAT, 1000);
  EXPECT_LE(data_->NPSAT, 2000);
  EXPECT_EQ(data_->PSATID(1), 1);
  EXPECT_EQ(data_->PSATID(data_->NPSAT), data_->NPSAT);
  EXPECT_EQ(data_->PSATNAME(1).size(), 50u);
  EXPECT_EQ(data_->PSATFORMULA(1).size(), 15u);
  EXPECT_EQ(Trim(data_->PSATNAME(1)), "Water");
  EXPECT_EQ(Trim(data_->PSATFORMULA(1)), "H2O");
  EXPECT_NEAR(data_->PSATDATA(1, 1), 18.0153, 1e-4);
  EXPECT_NEAR(data_->PSATDATA(1, 7), 970.09, 0.01);  // latent heat at 1 atm, Btu/lb
}

TEST_F(VaporBase, PressuresAgreeWithPublishedValues) {
  struct Point {
    const char* name;
    float celsius;
    float mmhg;
  };
  // Ethanol and benzene from handbook tables; the others at their normal boiling points (CRC Handbook).
  const Point points[] = {{"Ethanol", 50, 221},     {"Benzene", 25, 95},     {"Toluene", 110.6f, 760},
                          {"Acetone", 56.05f, 760}, {"Methanol", 64.7f, 760}, {"n-Hexane", 68.7f, 760}};
  for (const Point& p : points) {
    const int id = IdOf(p.name);
    ASSERT_GT(id, 0) << p.name;
    float pressure = 0;
    int16_t flag = -1;
    Antoine(vapors(), static_cast<int16_t>(id), Fahrenheit(p.celsius), pressure, flag);
    EXPECT_EQ(flag, 0) << p.name;
    EXPECT_NEAR(pressure / p.mmhg, 1.0, 0.02) << p.name;
  }
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(VaporBase, OutsideItsRangeTheAntoinePressureStillComesWithFlagOne) {
  const int id = IdOf("Ethanol");
  const float tmax = data_->PSATDATA(id, 6);
  float inside = 0, outside = 0;
  int16_t flag = -1;
  Antoine(vapors(), static_cast<int16_t>(id), Fahrenheit(tmax - 0.1f), inside, flag);
  EXPECT_EQ(flag, 0);
  Antoine(vapors(), static_cast<int16_t>(id), Fahrenheit(tmax + 0.2f), outside, flag);
  EXPECT_EQ(flag, 1);
  EXPECT_GT(outside, inside);
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(VaporBase, MinusFortyFahrenheitIsMinusFortyCelsius) {
  const int id = IdOf("Ammonia");
  ASSERT_GT(id, 0);
  float pressure = 0;
  int16_t flag = 0;
  Antoine(vapors(), static_cast<int16_t>(id), -40, pressure, flag);
  const auto& d = data_->PSATDATA;
  EXPECT_FLOAT_EQ(pressure, static_cast<float>(std::pow(10.0, d(id, 2) - d(id, 3) / (d(id, 4) - 40.0f))));
  // Ammonia boils near -33 C: at -40 C it lies a little below one atmosphere.
  EXPECT_NEAR(pressure, 538, 15);
}

TEST_F(VaporBase, UnknownIdsGiveTheirMessageAndFlagOneAndLeaveThePressure) {
  float pressure = 123;
  int16_t flag = 0;
  Antoine(vapors(), static_cast<int16_t>(data_->NPSAT + 1), 100, pressure, flag);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(pressure, 123);
  Antoine(vapors(), 0, 100, pressure, flag);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(pressure, 123);
  EXPECT_EQ(ui.notices, (std::vector<std::string>{"Error in Antoine (vapor pressure) calculations! 9 Subscript out of range",
                                                  "Error in Antoine with User Defined Vapors! 9 Subscript out of range"}));
}

// --- User defined vapors ---------------------------------------------------

TEST_F(VaporBase, UserVaporFitGoesThroughItsThreePoints) {
  ASSERT_TRUE(AddUser("Test solvent", 20, 40, 50, 200, 80, 700));
  for (auto [t, p] : {std::pair{20.0f, 40.0f}, {50.0f, 200.0f}, {80.0f, 700.0f}}) {
    float pressure = 0;
    int16_t flag = -1;
    Antoine(vapors(), -1, Fahrenheit(t), pressure, flag);
    EXPECT_EQ(flag, 0);
    EXPECT_NEAR(pressure / p, 1, 1e-4) << t;
  }
  float pressure = 0;
  int16_t flag = 0;
  Antoine(vapors(), -1, Fahrenheit(81), pressure, flag);
  EXPECT_EQ(flag, 1) << "above T3";
  EXPECT_GT(pressure, 700);
}

TEST_F(VaporBase, PointsOnOneLogLineCannotBeFitted) {
  // log10 P rising by 1 every 10 C: equal ratios at equal steps.
  ASSERT_TRUE(AddUser("Straight line", 10, 1, 20, 10, 30, 100));
  float pressure = 0;
  int16_t flag = 0;
  AntoineUser(vapors(), 1, Fahrenheit(15), pressure, flag);
  EXPECT_EQ(flag, 2);
  EXPECT_EQ(pressure, 100) << "left at P3";
  EXPECT_EQ(ui.notices, std::vector<std::string>{"The ratio of p2/p3 and p1/p2 cannot be the same!"});
}

TEST_F(VaporBase, FileRoundTripsWithNamesCutAtTwenty) {
  ASSERT_TRUE(AddUser("A very long vapor name indeed", 20, 40, 50, 200, 80, 700, 58.08f));
  ASSERT_TRUE(AddUser("Short", -10, 5, 0.5f, 12, 30.25f, 80, 100));
  EXPECT_EQ(user.UDVNAME(1), "A very long vapor na");
  UserVapors back;
  EXPECT_EQ(ReadUDV(UdvFile(), back, ui), UserVaporsRead::kRead);
  ASSERT_EQ(back.NUDV, 2);
  EXPECT_EQ(back.UDVNAME(1), "A very long vapor na");
  EXPECT_EQ(back.UDVNAME(2), "Short               ");
  for (int row = 1; row <= 2; ++row) {
    for (int c = 1; c <= 9; ++c) EXPECT_EQ(back.UDVDATA(row, c), user.UDVDATA(row, c)) << row << " " << c;
  }
  EXPECT_EQ(back.UDVDATA(2, 1), -2);
  EXPECT_EQ(ReadBytes(UdvFile()).substr(0, 3), "2\r\n");
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(VaporBase, DamagedFilesAreReportedKeptAsReadAndNotRewritten) {
  const std::string damaged[] = {
      "3\r\n-1,20,40,50,200,80,700,58,0,Good one\r\n-2,20,40,50\r\n",
      "3\r\n-1,20,40,50,200,80,700,58,0,Good one\r\n-2,20,forty,50,200,80,700,58,0,Bad\r\n",
      "2\r\n-1,20,40,50,200,80,700,58,0,Good one\r\n"};
  for (const std::string& bytes : damaged) {
    WriteBytes(UdvFile(), bytes);
    RecordingUi read_ui;
    EXPECT_EQ(ReadUDV(UdvFile(), user, read_ui), UserVaporsRead::kFailed);
    ASSERT_EQ(read_ui.notices.size(), 2u);
    EXPECT_NE(read_ui.notices[0].find("line "), std::string::npos) << read_ui.notices[0];
    EXPECT_EQ(user.NUDV, 1);
    EXPECT_EQ(Trim(user.UDVNAME(1)), "Good one");
    EXPECT_EQ(ReadBytes(UdvFile()), bytes);
    // A copy of the damaged file stands beside it, named in the second notice.
    const std::string& kept = read_ui.notices[1];
    const size_t at = kept.rfind("UDV.DTA.bak");
    ASSERT_NE(at, std::string::npos) << kept;
    EXPECT_EQ(ReadBytes(UdvFile().parent_path() / kept.substr(at, kept.size() - at - 1)), bytes);
  }
  WriteBytes(UdvFile(), "many\r\n");
  EXPECT_EQ(ReadUDV(UdvFile(), user, ui), UserVaporsRead::kFailed);
  EXPECT_EQ(user.NUDV, 0);
  fs::remove(UdvFile());
  RecordingUi quiet;
  EXPECT_EQ(ReadUDV(UdvFile(), user, quiet), UserVaporsRead::kMissing);
  EXPECT_TRUE(quiet.notices.empty());
}

TEST_F(VaporBase, TheFiftyFirstAddBeepsAndChangesNothing) {
  for (int i = 1; i <= 50; ++i) ASSERT_TRUE(AddUser("V" + std::to_string(i), 20, 40, 50, 200, 80, 700)) << i;
  const std::string before = ReadBytes(UdvFile());
  UdvScreen screen;
  EXPECT_FALSE(UdvAdd(screen, user, ui));
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_EQ(user.NUDV, 50);
  EXPECT_EQ(screen.mode, UdvScreen::Mode::kBrowse);
  EXPECT_EQ(ReadBytes(UdvFile()), before);
}

TEST_F(VaporBase, DeletingMovesLaterVaporsUpWithNewIds) {
  for (int i = 1; i <= 5; ++i) ASSERT_TRUE(AddUser("Vapor " + std::to_string(i), 20, 40, 50, 200, 80, 700 + i));
  ui.answer = false;
  EXPECT_FALSE(UdvDelete(user, -3, UdvFile(), ui));
  EXPECT_EQ(user.NUDV, 5);
  ASSERT_EQ(ui.questions.size(), 1u);
  EXPECT_EQ(ui.questions[0], "Delete Vapor: You are about to delete the data for Vapor 3\r\n\r\n  Confirm Delete?");
  ui.answer = true;
  ASSERT_TRUE(UdvDelete(user, -3, UdvFile(), ui));
  EXPECT_EQ(user.NUDV, 4);
  EXPECT_EQ(Trim(user.UDVNAME(3)), "Vapor 4");
  EXPECT_EQ(Trim(user.UDVNAME(4)), "Vapor 5");
  EXPECT_EQ(user.UDVDATA(4, 1), -4);
  EXPECT_EQ(user.UDVDATA(4, 7), 705);
  UserVapors back;
  ReadUDV(UdvFile(), back, ui);
  EXPECT_EQ(back.NUDV, 4);
  EXPECT_EQ(Trim(back.UDVNAME(4)), "Vapor 5");
}

TEST_F(VaporBase, ValidationRefusesInItsOrderWithItsMessages) {
  EXPECT_FALSE(AddUser("Equal temps", 20, 40, 20, 40, 80, 700));  // equal pressures too, temperatures come first
  EXPECT_FALSE(AddUser("Falling", 50, 40, 20, 200, 80, 700));
  EXPECT_FALSE(AddUser("Equal pressures", 20, 40, 50, 200, 80, 40));
  EXPECT_FALSE(AddUser("   ", 20, 40, 50, 200, 80, 700));
  EXPECT_EQ(ui.notices, (std::vector<std::string>{"ERROR: Temperatures may not be equal and must be in ascending order!",
                                                  "ERROR: Temperatures may not be equal and must be in ascending order!",
                                                  "ERROR: Pressures may not be equal!",
                                                  "ERROR: User defined vapors must be named!"}));
  EXPECT_FALSE(fs::exists(UdvFile())) << "nothing was stored";
}

TEST_F(VaporBase, AbortChangeDropsAnAddedRow) {
  ASSERT_TRUE(AddUser("Kept", 20, 40, 50, 200, 80, 700));
  UdvScreen screen;
  ASSERT_TRUE(UdvAdd(screen, user, ui));
  EXPECT_EQ(screen.TextUDV[0], "-2");
  EXPECT_EQ(user.NUDV, 2);
  UdvAbortChange(screen, user, UdvFile(), ui);
  EXPECT_EQ(user.NUDV, 1);
  EXPECT_EQ(screen.mode, UdvScreen::Mode::kBrowse);
}

TEST(UdvField, TemperaturesRefuseZeroAndOthersMustBePositive) {
  EXPECT_TRUE(UdvFieldAccepted(1, ""));
  EXPECT_FALSE(UdvFieldAccepted(1, "0"));
  EXPECT_FALSE(UdvFieldAccepted(3, "0.0"));
  EXPECT_TRUE(UdvFieldAccepted(5, "-10"));
  EXPECT_FALSE(UdvFieldAccepted(2, "0"));
  EXPECT_FALSE(UdvFieldAccepted(4, "-1"));
  EXPECT_FALSE(UdvFieldAccepted(6, "1,000")) << "thousands commas would read as 1";
  EXPECT_TRUE(UdvFieldAccepted(7, "58.08"));
  EXPECT_FALSE(UdvFieldAccepted(6, "abc"));
}

TEST_F(VaporBase, FahrenheitEntryIsStoredInCelsiusAndTheGridFollowsTheUnit) {
  UdvScreen screen;
  screen.fahrenheit = true;
  ASSERT_TRUE(UdvAdd(screen, user, ui));
  screen.TextUDV = {screen.TextUDV[0], "68", "40", "122", "200", "176", "700", "58", "In F"};
  ASSERT_TRUE(UdvUpdate(screen, user, UdvFile(), ui));
  EXPECT_FLOAT_EQ(user.UDVDATA(1, 2), 20);
  EXPECT_FLOAT_EQ(user.UDVDATA(1, 4), 50);
  EXPECT_FLOAT_EQ(user.UDVDATA(1, 6), 80);
  const std::string file = ReadBytes(UdvFile());
  const auto celsius = UdvGridRows(user, false);
  const auto fahrenheit = UdvGridRows(user, true);
  EXPECT_EQ(celsius[0][3], "     20.00");
  EXPECT_EQ(fahrenheit[0][3], "     68.00");
  EXPECT_EQ(fahrenheit[0][4], "     40.00");
  EXPECT_EQ(UdvGridHeads(true)[3], "T1 \xC2\xB0""F");
  EXPECT_EQ(ReadBytes(UdvFile()), file) << "showing another unit does not touch the file";
  // Editing shows the stored values in the unit chosen.
  UdvScreen edit;
  edit.fahrenheit = true;
  ASSERT_TRUE(UdvEdit(edit, user, -1, ui));
  EXPECT_EQ(edit.TextUDV[1], "68");
  EXPECT_EQ(edit.TextUDV[8], "In F");
  EXPECT_FALSE(UdvEdit(edit, user, -2, ui));
  EXPECT_EQ(ui.beeps, 1);
}

TEST_F(VaporBase, GraphRunsFromT1ToT3InFortySteps) {
  ASSERT_TRUE(AddUser("Curve", 20, 40, 50, 200, 80, 700, 58.08f));
  const UdvCurve curve = UdvGraph(vapors(), 1, false);
  ASSERT_EQ(curve.points.size(), 41u);
  EXPECT_EQ(curve.points.front().number, 1);
  EXPECT_FLOAT_EQ(curve.points.front().temperature, 20);
  EXPECT_NEAR(curve.points.back().temperature, 80, 1e-3);
  EXPECT_NEAR(curve.points.back().pressure, 700, 0.5);
  EXPECT_FLOAT_EQ(curve.points[1].temperature, 21.5f);
  EXPECT_EQ(curve.title, "-1 ID# : Curve   (MW:58.08)");
  EXPECT_EQ(curve.subtitle, "T-min=20\xC2\xB0""C    T-max=80\xC2\xB0""C");
  EXPECT_EQ(curve.y_axis, "Vapor Pressure (mmHgA)");
  const UdvCurve in_f = UdvGraph(vapors(), 1, true);
  EXPECT_FLOAT_EQ(in_f.points.front().temperature, 68);
  EXPECT_EQ(in_f.x_axis, "Temperature \xC2\xB0""F");

  ASSERT_TRUE(AddUser("Line", 10, 1, 20, 10, 30, 100));
  EXPECT_TRUE(UdvGraph(vapors(), 2, false).points.empty()) << "a fit failure abandons the curve";
}

// --- Search ----------------------------------------------------------------

TEST_F(VaporBase, SearchFindsUpperCasedTextForwardAndBackward) {
  const auto grid = VaporGridText(*data_);
  const VaporSearchResult first = SearchVaporRows(grid, "ethanol", 0, true);
  EXPECT_EQ(first.row, IdOf("Methanol"));
  EXPECT_EQ(first.message, "\"ethanol\" found in row 2.");
  const VaporSearchResult next = SearchVaporRows(grid, "ETHANOL", first.row, true);
  EXPECT_EQ(next.row, IdOf("Ethanol"));
  const VaporSearchResult back = SearchVaporRows(grid, "ETHANOL", next.row, false);
  EXPECT_EQ(back.row, first.row);
  const VaporSearchResult by_formula = SearchVaporRows(grid, "c7h8", 0, true);
  EXPECT_EQ(by_formula.row, IdOf("Toluene"));
  const VaporSearchResult none = SearchVaporRows(grid, "unobtainium", 0, true);
  EXPECT_EQ(none.row, 0);
  EXPECT_EQ(none.message, "\"unobtainium\" not found below the current row.");
  EXPECT_EQ(SearchVaporRows(grid, "WATER", 1, false).row, 0);
}

TEST_F(VaporBase, StartUpReadsTheDataBaseThenTheUserVapors) {
  fs::create_directories(dir / "pgmfiles");
  kestrane::testing::CopyProgramData(dir / "pgmfiles");
  WriteBytes(dir / "pgmfiles" / "UDV.DTA", "1\r\n-1,20,40,50,200,80,700,58,0,Mine\r\n");
  Session session(PathsForProgram(dir));
  ASSERT_TRUE(RunStartSequence(session, ui));
  EXPECT_EQ(session.data.vapors.NPSAT, data_->NPSAT);
  EXPECT_EQ(session.data.user_vapors.NUDV, 1);
  fs::remove(dir / "pgmfiles" / "PSAT.DTA");
  Session without(PathsForProgram(dir));
  RecordingUi ui2;
  EXPECT_FALSE(RunStartSequence(without, ui2));
  EXPECT_EQ(ui2.statuses.back(), "Reading Vapor Pressure Data....");
  ASSERT_EQ(ui2.notices.size(), 1u);
  EXPECT_NE(ui2.notices[0].find("PSAT.DTA"), std::string::npos);
}

namespace {

// A step that divides the range in decimal but not in binary still ends the table on its last temperature.
TEST_F(VaporBase, ATableEndsOnItsLastTemperatureWhateverTheStepsRounding) {
  std::vector<kestrane::VaporTableRow> rows;
  ASSERT_TRUE(kestrane::VaporPressureTable(vapors(), 3, 32, 212, 0.18f, rows, false));
  ASSERT_EQ(rows.size(), 1001u);
  EXPECT_NEAR(rows.back().t, 212, 1e-3);
  ASSERT_TRUE(kestrane::VaporPressureTable(vapors(), 3, 0, 100, 0.1f, rows, true));
  EXPECT_EQ(rows.size(), 1001u);
  ASSERT_TRUE(kestrane::VaporPressureTable(vapors(), 3, 32, 212.5f, 10, rows, false));
  EXPECT_EQ(rows.size(), 19u) << "a range that is not a whole number of steps stops at the last step within it";
}

}  // namespace
