#include <gtest/gtest.h>

#include <cmath>

#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/Random.h"
#include "runtime/Value.h"
#include "runtime/WriteList.h"
#include "support/App.h"

namespace sw {
namespace {

using test::ErrorOf;

TEST(Random, ClassicSequenceSeedsAndRandomize) {
  Random r;
  for (float e : {0.7055475f, 0.533424f, 0.5795186f, 0.2895625f, 0.301948f}) EXPECT_NEAR(r.Rnd(), e, 5e-7f);
  // A negative argument restarts at a point fixed by the argument alone; 0 repeats without advancing.
  Random a;
  EXPECT_NEAR(a.Rnd(-1.0f), 0.224007f, 5e-7f);
  const float n1 = a.Rnd();
  EXPECT_EQ(a.Rnd(0.0f), n1);
  EXPECT_EQ(a.Rnd(0.0f), n1);
  const float n2 = a.Rnd();
  r.Rnd(-1.0f);
  EXPECT_EQ(r.Rnd(), n1);
  EXPECT_EQ(r.Rnd(), n2);
  for (int i = 0; i < 10000; ++i) {
    const float v = r.Rnd();
    ASSERT_TRUE(v >= 0.0f && v < 1.0f && v * 16777216.0f == std::floor(v * 16777216.0f)) << v;
  }
  // Randomize mixes in the upper half of the double (1.0: 0x3FF00000) and keeps the low byte.
  r.SetState(0xABCDEF);
  r.Randomize(1.0);
  EXPECT_EQ(r.State(), 0x3FF0EFu);
  Random b, c, d;  // the low bits of the double do not count
  b.Randomize(12345.0);
  c.Randomize(12345.0 + 1e-9);
  d.Randomize(54321.0);
  EXPECT_EQ(b.State(), c.State());
  EXPECT_NE(b.State(), d.State());
}

TEST(Checked, SixteenBitOverflowAndCIntRounding) {
  EXPECT_EQ(Mul16(5, 1500), 7500);
  EXPECT_EQ(Add16(32766, 1), 32767);
  EXPECT_EQ(ErrorOf([] { Mul16(25, 1500); }), 6);
  EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), 6);
  EXPECT_EQ(ErrorOf([] { Sub16(-32768, 1); }), 6);
  EXPECT_EQ(ErrorOf([] { Add32(2147483647, 1); }), 6);
  EXPECT_EQ(RuntimeError(6).Description(), "Overflow");
  // Halves go to the even neighbour.
  const std::pair<double, int> rounded[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},         {-2.5, -2},
                                            {-3.5, -4}, {2.4999, 2}, {32767.4, 32767}, {-32768.5, -32768}};
  for (auto [v, n] : rounded) EXPECT_EQ(CInt(v), n) << v;
  for (double v : {32767.5, 40000.0, -32769.0, double(NAN)}) EXPECT_EQ(ErrorOf([v] { CInt(v); }), 6) << v;
  EXPECT_EQ(CLng(40000.5), 40000);
  EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), 6);
}

TEST(NumText, ValStrAndThousands) {
  const std::pair<const char*, double> vals[] = {{" 1", 1},  {"  -12abc", -12}, {"1 2 3", 123}, {"abc", 0},
                                                 {"", 0},    {"3.75e2x", 375},  {".5", 0.5},    {"&HFF", 255},
                                                 {"&HFFFF", -1}, {"1e", 1}};
  for (auto [t, v] : vals) EXPECT_EQ(Val(t), v) << t;
  const std::pair<const char*, bool> numeric[] = {{" 1", true},    {"-1", true},   {"2.5E3", true},
                                                  {"abc", false}, {"7x", false}, {"", false}};
  for (auto [t, n] : numeric) EXPECT_EQ(IsNumeric(t), n) << t;
  // Str gives a non-negative number a leading blank; concatenation gives none.
  EXPECT_EQ(Str(1) + Str(0) + Str(-1) + Str(0.5), " 1 0-1 .5");
  EXPECT_EQ(NumText(-7.0) + "|" + NumText(0.25) + "|" + NumText(0.7055475f), "-7|0.25|0.7055475");
  EXPECT_EQ(Value(int16_t{-1}).Text() + Value(true).Text() + Value(false).Text() + Value().Text(), "-1TrueFalse");
  const std::pair<double, const char*> thousands[] = {{0, "0"},           {999, "999"},
                                                      {1000, "1,000"},     {-1234, "-1,234"},
                                                      {1234567, "1,234,567"}, {2147483647, "2,147,483,647"}};
  for (auto [v, t] : thousands) EXPECT_EQ(FormatThousands(v), t);
}

TEST(WriteList, LinesReadBackAndDamagedLinesAreTolerated) {
  EXPECT_EQ(WriteListLine({"Grid", int16_t{-1}}), "\"Grid\",-1\r\n");
  EXPECT_EQ(WriteListLine({int32_t{1234567}, "a\"b", ""}), "1234567,\"a\"b\",\"\"\r\n");  // no escaping
  ListReader r(WriteListLine({int32_t{250}, int16_t{3}, "Smith, John  Q"}) + WriteListLine({"LastOption", " 1"}));
  EXPECT_EQ(r.ReadItem().Number(), 250);
  EXPECT_EQ(r.ReadItem().Number(), 3);
  const ListItem name = r.ReadItem();
  EXPECT_TRUE(name.quoted);
  EXPECT_EQ(name.text, "Smith, John  Q");
  const std::vector<ListItem> line = r.ReadLine();
  ASSERT_EQ(line.size(), 2u);
  EXPECT_EQ(line[1].text, " 1");
  EXPECT_TRUE(line[1].IsNumeric());
  EXPECT_TRUE(r.Eof());
  EXPECT_EQ(ErrorOf([&] { r.ReadItem(); }), 62);

  // Blanks around items, LF alone, junk after a closing quote, a string cut by the line's end.
  ListReader d("  \"Diff\" , 3 \n\"Name\"junk,\"x\n\"unterminated");
  std::string read;
  while (!d.Eof())
    for (const ListItem& item : d.ReadLine()) read += item.text + "|";
  EXPECT_EQ(read, "Diff|3|Name|x|unterminated|");
}

}  // namespace
}  // namespace sw
