#include <gtest/gtest.h>

#include <cmath>

#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/Random.h"
#include "runtime/RuntimeError.h"
#include "runtime/Value.h"

namespace sw {
namespace {

int ErrorOf(auto&& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.Number();
  }
  return 0;
}

TEST(Random, FirstNumbersFromTheStartStateMatchTheClassicRuntime) {
  Random r;
  const float expected[] = {0.7055475f, 0.533424f, 0.5795186f, 0.2895625f, 0.301948f};
  for (float e : expected) EXPECT_NEAR(r.Rnd(), e, 5e-7f);
}

TEST(Random, NegativeSeedRestartsAtAPointFixedByTheSeedAlone) {
  Random a, b;
  EXPECT_NEAR(a.Rnd(-1.0f), 0.224007f, 5e-7f);
  for (int i = 0; i < 17; ++i) b.Rnd();
  EXPECT_EQ(b.Rnd(-1.0f), a.Rnd(0.0f));
  // The same negative seed gives the same sequence whatever came before.
  for (int i = 0; i < 5; ++i) EXPECT_EQ(a.Rnd(), b.Rnd());
  // Rnd(0) repeats the last number without advancing.
  const float last = a.Rnd();
  EXPECT_EQ(a.Rnd(0.0f), last);
  EXPECT_EQ(a.Rnd(0.0f), last);
}

TEST(Random, ResultsAreMultiplesOfTwoToTheMinus24InUnitInterval) {
  Random r;
  for (int i = 0; i < 10000; ++i) {
    const float v = r.Rnd();
    ASSERT_GE(v, 0.0f);
    ASSERT_LT(v, 1.0f);
    ASSERT_EQ(v * 16777216.0f, std::floor(v * 16777216.0f));
  }
}

TEST(Random, RandomizeMixesTheUpperHalfOfTheDoubleAndKeepsTheLowByte) {
  Random r;
  r.SetState(0xABCDEF);
  // 1.0 is 0x3FF00000_00000000: hi = 0x3FF00000.
  r.Randomize(1.0);
  const uint32_t hi = 0x3FF00000;
  const uint32_t expected = ((((hi & 0xFFFF) << 8) ^ ((hi >> 8) & 0xFFFF00)) | 0xEF) & 0xFFFFFF;
  EXPECT_EQ(r.State(), expected);
  EXPECT_EQ(r.State() & 0xFF, 0xEFu);
  // A different double gives a different state; the low bits of the double do not count.
  Random a, b;
  a.Randomize(12345.0);
  b.Randomize(12345.0 + 1e-9);
  EXPECT_EQ(a.State(), b.State());
  Random c;
  c.Randomize(54321.0);
  EXPECT_NE(a.State(), c.State());
}

TEST(Random, SingleProductsTruncateLikeTheRuntime) {
  // Int(Rnd * 24) on the start state: 0.7055475 * 24 = 16.93 -> 16.
  Random r;
  EXPECT_EQ(static_cast<int>(r.Rnd() * 24.0f), 16);
  EXPECT_EQ(static_cast<int>(r.Rnd() * 14.0f), 7);
}


TEST(Checked, ArithmeticAtItsWidth) {
  EXPECT_EQ(Mul16(5, 1500), 7500);
  EXPECT_EQ(ErrorOf([] { Mul16(25, 1500); }), 6);
  EXPECT_EQ(ErrorOf([] { Mul16(150, 1500); }), 6);
  EXPECT_EQ(Add16(32766, 1), 32767);
  EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), 6);
  EXPECT_EQ(ErrorOf([] { Sub16(-32768, 1); }), 6);
  EXPECT_EQ(Mul32(150, 60000), 9000000);
  EXPECT_EQ(ErrorOf([] { Add32(2147483647, 1); }), 6);
  EXPECT_EQ(RuntimeError(6).Description(), "Overflow");
  EXPECT_EQ(RuntimeError(53).Description(), "File not found");
}

TEST(Checked, CIntRoundsHalvesToEvenAndOverflowsOutsideSixteenBits) {
  EXPECT_EQ(CInt(0.5), 0);
  EXPECT_EQ(CInt(1.5), 2);
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_EQ(CInt(-3.5), -4);
  EXPECT_EQ(CInt(2.4999), 2);
  EXPECT_EQ(CInt(32767.4), 32767);
  EXPECT_EQ(CInt(-32768.0), -32768);
  EXPECT_EQ(ErrorOf([] { CInt(32767.5); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(40000); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(NAN); }), 6);
  EXPECT_EQ(CLng(40000.5), 40000);
  EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
  EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), 6);
}

TEST(NumText, ValReadsTheLeadingNumberAndSkipsBlanks) {
  EXPECT_EQ(Val(" 1"), 1.0);
  EXPECT_EQ(Val("  -12abc"), -12.0);
  EXPECT_EQ(Val("1 2 3"), 123.0);
  EXPECT_EQ(Val("abc"), 0.0);
  EXPECT_EQ(Val(""), 0.0);
  EXPECT_EQ(Val("3.75e2x"), 375.0);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("&HFF"), 255.0);
  EXPECT_EQ(Val("&HFFFF"), -1.0);
  EXPECT_EQ(Val("1e"), 1.0);
  EXPECT_TRUE(IsNumeric(" 1"));
  EXPECT_TRUE(IsNumeric("-1"));
  EXPECT_TRUE(IsNumeric("2.5E3"));
  EXPECT_FALSE(IsNumeric("abc"));
  EXPECT_FALSE(IsNumeric("7x"));
  EXPECT_FALSE(IsNumeric(""));
}

TEST(NumText, StrHasALeadingBlankForNonNegativeNumbersConcatenationHasNone) {
  EXPECT_EQ(Str(1), " 1");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-1), "-1");
  EXPECT_EQ(Str(0.5), " .5");
  EXPECT_EQ(NumText(1.0), "1");
  EXPECT_EQ(NumText(-7.0), "-7");
  EXPECT_EQ(NumText(0.25), "0.25");
  EXPECT_EQ(NumText(0.7055475f), "0.7055475");
  EXPECT_EQ(Value(int16_t{-1}).Text(), "-1");
  EXPECT_EQ(Value(true).Text(), "True");
  EXPECT_EQ(Value(false).Text(), "False");
  EXPECT_EQ(Value(std::string()).Text(), "");
  EXPECT_EQ(Value().Text(), "");
}

TEST(NumText, ThousandsFormat) {
  EXPECT_EQ(FormatThousands(0), "0");
  EXPECT_EQ(FormatThousands(999), "999");
  EXPECT_EQ(FormatThousands(1000), "1,000");
  EXPECT_EQ(FormatThousands(1234567), "1,234,567");
  EXPECT_EQ(FormatThousands(-1234), "-1,234");
  EXPECT_EQ(FormatThousands(2147483647), "2,147,483,647");
}

}  // namespace
}  // namespace sw
