// Number semantics of the original run time.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <new>
#include <stdexcept>

#include "properties/vb.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ErrorNumberOf;

TEST(CInt, RoundsHalfToEven) {
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(3.5), 4);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_EQ(CInt(-3.5), -4);
  EXPECT_EQ(CInt(2.5000001), 3);
  EXPECT_EQ(CInt(0.4999), 0);
}

TEST(CInt, OverflowsOutsideSixteenBitsWithError6) {
  EXPECT_EQ(ErrorNumberOf([] { CInt(40000); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { CInt(32767.5); }), 6);  // rounds to 32768
  EXPECT_EQ(ErrorNumberOf([] { CInt(-32768.6); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { CInt(std::nan("")); }), 6);
  EXPECT_EQ(CInt(32767.4), 32767);
  EXPECT_EQ(CInt(-32768.4), -32768);
  try {
    CInt(1e9);
  } catch (const VbError& e) {
    EXPECT_EQ(e.description(), "Overflow");
  }
}

TEST(CSng, OverflowsOnlyWhereRoundingLeavesTheSinglesRange) {
  const float largest = std::numeric_limits<float>::max();
  EXPECT_EQ(CSng(static_cast<double>(largest)), largest);
  // Up to half a unit beyond the largest Single, rounding still lands on it.
  EXPECT_EQ(CSng(0x1.fffffefffffffp127), largest);
  EXPECT_EQ(ErrorNumberOf([] { CSng(0x1.ffffffp127); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { CSng(-1e39); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { CSng(std::nan("")); }), 6);
  EXPECT_EQ(CSng(1e-50), 0.0f) << "underflow is no error";
}

TEST(CaughtError, NamesWhatIsBeingHandledAsARunTimeError) {
  const auto caught = [](const std::function<void()>& raise) {
    try {
      raise();
    } catch (...) {
      return RunTimeErrorText(CaughtError());
    }
    return std::string();
  };
  EXPECT_EQ(caught([] { throw VbError(11); }), "Run-time error 11: Division by zero");
  EXPECT_EQ(caught([] { throw std::bad_alloc(); }), "Run-time error 7: Out of memory");
  EXPECT_EQ(caught([] { throw std::out_of_range("row 99"); }), "Run-time error 51: Internal error (row 99)");
  EXPECT_EQ(caught([] { throw 3; }), "Run-time error 51: Internal error");
}

TEST(IntAndFix, DifferOnNegativeNumbers) {
  EXPECT_EQ(Int(-2.5), -3.0);
  EXPECT_EQ(Fix(-2.5), -2.0);
  EXPECT_EQ(Int(2.5f), 2.0f);
  EXPECT_EQ(Fix(2.9f), 2.0f);
  EXPECT_EQ(Int(-0.0001f), -1.0f);
}

TEST(Divide, RaisesTheOriginalArithmeticErrors) {
  EXPECT_EQ(ErrorNumberOf([] { Divide(1.0f, 0.0f); }), 11);
  EXPECT_EQ(ErrorNumberOf([] { Divide(0.0f, 0.0f); }), 6);
  EXPECT_EQ(Divide(1.0f, 4.0f), 0.25f);
}

TEST(Str, HasALeadingBlankForZeroAndPositiveNumbers) {
  EXPECT_EQ(Str(5), " 5");
  EXPECT_EQ(Str(-5), "-5");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(2.5f), " 2.5");
  EXPECT_EQ(Str(-0.25), "-0.25");
}

TEST(GeneralText, SingleShowsSevenSignificantDigits) {
  EXPECT_EQ(GeneralText(2.01f), "2.01");
  EXPECT_EQ(GeneralText(0.1f), "0.1");
  EXPECT_EQ(GeneralText(1.0f / 3.0f), "0.3333333");
  EXPECT_EQ(GeneralText(123456.7f), "123456.7");
  EXPECT_EQ(GeneralText(1234567.0f), "1234567");
  EXPECT_EQ(GeneralText(100.0f), "100");
  EXPECT_EQ(GeneralText(-0.0f), "0");
}

TEST(GeneralText, UsesTheExponentFormOutsideItsRange) {
  EXPECT_EQ(GeneralText(12345678.0f), "1.234568E+07");
  EXPECT_EQ(GeneralText(10000000.0f), "1E+07");
  EXPECT_EQ(GeneralText(0.0001f), "0.0001");
  EXPECT_EQ(GeneralText(0.00001f), "1E-05");
  EXPECT_EQ(GeneralText(-0.000015f), "-1.5E-05");
  EXPECT_EQ(GeneralText(8999999488.0f), "8.999999E+09");
}

TEST(GeneralText, DoubleShowsFifteenSignificantDigits) {
  EXPECT_EQ(GeneralText(0.1), "0.1");
  EXPECT_EQ(GeneralText(1.0 / 3.0), "0.333333333333333");
  EXPECT_EQ(GeneralText(static_cast<double>(0.1f)), "0.100000001490116");
  EXPECT_EQ(GeneralText(1e15), "1E+15");
  EXPECT_EQ(GeneralText(int16_t{-7}), "-7");
}

TEST(Format, RoundsTheSinglesDecimalFormHalfAwayFromZero) {
  // 2.675 as a single lies below 2.675, yet its 7-digit form is 2.675000.
  EXPECT_EQ(Format(2.675f, "0.00"), "2.68");
  EXPECT_EQ(Format(-2.675f, "0.00"), "-2.68");
  EXPECT_EQ(Format(0.125f, "0.00"), "0.13");
  EXPECT_EQ(Format(2.5f, "0"), "3");
  EXPECT_EQ(Format(0.5f, "0"), "1");
  EXPECT_EQ(Format(-0.5f, "0"), "-1");
  EXPECT_EQ(Format(9.996f, "0.00"), "10.00");
  EXPECT_EQ(Format(3.14159f, "0.0000"), "3.1416");
}

TEST(Format, PadsAndKeepsTheSignOfASmallNegativeNumber) {
  EXPECT_EQ(Format(0.0f, "0.00"), "0.00");
  EXPECT_EQ(Format(0.05f, "0.0"), "0.1");
  EXPECT_EQ(Format(0.001f, "0.00"), "0.00");
  EXPECT_EQ(Format(-0.001f, "0.00"), "-0.00");
  EXPECT_EQ(Format(7.0f, "000"), "007");
  EXPECT_EQ(Format(1234.5f, "0"), "1235");
  EXPECT_EQ(Format(0.000001f, "0.000000"), "0.000001");
}

TEST(Format, ASingleBeyondSevenDigitsShowsItsRoundedForm) {
  EXPECT_EQ(Format(123456789.0f, "0"), "123456800");
  EXPECT_EQ(Format(123456789.0, "0"), "123456789");
}

TEST(Format, DoubleUsesFifteenDigits) {
  // 2.675 as a double is 2.67499999999999982236431605997495353221893310546875.
  EXPECT_EQ(Format(2.675, "0.00"), "2.68");
  EXPECT_EQ(Format(1.005, "0.00"), "1.01");
  EXPECT_EQ(Format(static_cast<double>(2.675f), "0.00"), "2.67");
}

TEST(Format, RefusesMasksItDoesNotKnow) { EXPECT_THROW(Format(1.0f, "#,##0"), std::invalid_argument); }

TEST(Val, ReadsTheLeadingNumberSkippingBlanks) {
  EXPECT_DOUBLE_EQ(Val("  12.5 kg"), 12.5);
  EXPECT_DOUBLE_EQ(Val("1 2 3"), 123.0);
  EXPECT_DOUBLE_EQ(Val("-.5"), -0.5);
  EXPECT_DOUBLE_EQ(Val("1,5"), 1.0);
  EXPECT_DOUBLE_EQ(Val("2.5E3x"), 2500.0);
  EXPECT_DOUBLE_EQ(Val("2.5D-1"), 0.25);
  EXPECT_DOUBLE_EQ(Val("7E"), 7.0);
  EXPECT_DOUBLE_EQ(Val("&H1F"), 31.0);
  EXPECT_DOUBLE_EQ(Val("&O17"), 15.0);
  EXPECT_DOUBLE_EQ(Val("abc"), 0.0);
  EXPECT_DOUBLE_EQ(Val(""), 0.0);
  EXPECT_DOUBLE_EQ(Val("."), 0.0);
}

TEST(IsNumeric, AcceptsNumbersWithBlanksSignExponentAndHex) {
  EXPECT_TRUE(IsNumeric("12"));
  EXPECT_TRUE(IsNumeric(" -12.5 "));
  EXPECT_TRUE(IsNumeric("+.5"));
  EXPECT_TRUE(IsNumeric("5."));
  EXPECT_TRUE(IsNumeric("1e-3"));
  EXPECT_TRUE(IsNumeric("1D3"));
  EXPECT_TRUE(IsNumeric("&HFF"));
  EXPECT_TRUE(IsNumeric("1,000"));
  EXPECT_FALSE(IsNumeric(""));
  EXPECT_FALSE(IsNumeric("   "));
  EXPECT_FALSE(IsNumeric("."));
  EXPECT_FALSE(IsNumeric("-"));
  EXPECT_FALSE(IsNumeric("1e"));
  EXPECT_FALSE(IsNumeric("12 mm"));
  EXPECT_FALSE(IsNumeric("1.2.3"));
  EXPECT_FALSE(IsNumeric("&H"));
  EXPECT_FALSE(IsNumeric("&O8"));
  EXPECT_FALSE(IsNumeric(",5"));
}

TEST(NumberField, EmptyBecomesZeroAndCommasOrTextAreFlagged) {
  EXPECT_TRUE(IsPlainNumber(" 1.5E+3 "));
  EXPECT_FALSE(IsPlainNumber("1,000")) << "numeric, but it would read as 1";
  EXPECT_FALSE(IsPlainNumber("1E400"));
  std::string empty;
  EXPECT_FALSE(NumberFieldFlagged(empty));
  EXPECT_EQ(empty, "0");
  std::string comma = "1,000";
  EXPECT_TRUE(NumberFieldFlagged(comma));
  EXPECT_EQ(comma, "1,000");
  std::string text = "abc";
  EXPECT_TRUE(NumberFieldFlagged(text));
  std::string number = " 25.4 ";
  EXPECT_FALSE(NumberFieldFlagged(number));
}

TEST(FormatDate, WritesMonthNameTwoDigitDayAndYear) {
  EXPECT_EQ(FormatDate({2026, 11, 5}), "Nov 05, 2026");
  EXPECT_EQ(FormatDate({1999, 1, 31}), "Jan 31, 1999");
  EXPECT_EQ(FormatDate({2000, 12, 1}), "Dec 01, 2000");
  EXPECT_THROW(FormatDate({2000, 13, 1}), VbError);
}

TEST(Trim, RemovesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a "), "a ");
  EXPECT_EQ(RTrim("  a "), "  a");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim("    "), "");
}
