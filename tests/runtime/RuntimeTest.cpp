// The runtime: the classic random numbers, 16-bit arithmetic, number texts, list lines, and files. Nothing
// lost: a file that failed to load is kept as "<name>.bad" before the next write replaces it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cmath>
#include <ctime>

#include "runtime/Checked.h"
#include "runtime/Files.h"
#include "runtime/NumText.h"
#include "runtime/Random.h"
#include "runtime/WriteList.h"
#include "support/App.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

TEST(Random, ClassicSequenceSeedsAndRandomize) {
  Random r, a;
  for (float e : {0.7055475f, 0.533424f, 0.5795186f, 0.2895625f, 0.301948f}) EXPECT_NEAR(r.Rnd(), e, 5e-7f);
  // A negative argument restarts at a point fixed by the argument alone; 0 repeats without advancing.
  EXPECT_NEAR(a.Rnd(-1.0f), 0.224007f, 5e-7f);
  const float n1 = a.Rnd(), again = a.Rnd(0.0f), n2 = a.Rnd();
  r.Rnd(-1.0f);
  EXPECT_EQ(std::vector<float>({n1, again, n2}), std::vector<float>({r.Rnd(), n1, r.Rnd()}));
  // Randomize mixes in the upper half of the double (1.0: 0x3FF00000) and keeps the low byte.
  auto seeded = [](double t) {
    Random x;
    x.SetState(0xABCDEF);
    x.Randomize(t);
    return x.State();
  };
  EXPECT_EQ(seeded(1.0), 0x3FF0EFu);  // the low bits of the double do not count
  EXPECT_TRUE(seeded(12345.0) == seeded(12345.0 + 1e-9) && seeded(12345.0) != seeded(54321.0));
  // Timer: the seconds since local midnight, to the millisecond (a float holds them to 8 ms).
  const auto now = std::chrono::system_clock::now();
  std::time_t t = std::chrono::system_clock::to_time_t(now);
  std::tm midnight{};
  localtime_r(&t, &midnight);
  midnight.tm_hour = midnight.tm_min = midnight.tm_sec = 0;
  const double since =
      std::chrono::duration<double>(now - std::chrono::system_clock::from_time_t(mktime(&midnight))).count();
  if (since < 86399) {  // not at midnight
    EXPECT_NEAR(Random::Timer(), since, 0.02);
  }
}

TEST(Checked, SixteenBitOverflowAndCIntRounding) {
  EXPECT_EQ(std::vector<int>({Mul16(5, 1500), Add16(32766, 1), Sub16(-32767, 1), CLng(40000.5), CLng(-2147483648.0)}),
            std::vector<int>({7500, 32767, -32768, 40000, -2147483647 - 1}));
  for (auto f : {+[] { Mul16(25, 1500); }, +[] { Add16(32767, 1); }, +[] { Sub16(-32768, 1); },
                 +[] { Add32(2147483647, 1); }, +[] { CLng(2147483647.5); }})
    EXPECT_EQ(ErrorOf(f), 6);
  // To the nearest; halves to the even neighbour.
  const std::pair<double, int> rounded[] = {{0.5, 0},    {1.5, 2}, {2.5, 2},   {-2.5, -2},       {-3.5, -4},
                                            {2.4999, 2}, {2.6, 3}, {-2.4, -2}, {32767.4, 32767}, {-32768.5, -32768}};
  for (auto [v, n] : rounded) EXPECT_EQ(CInt(v), n) << v;
  for (double v : {32767.5, 40000.0, -32769.0, double(NAN)}) EXPECT_EQ(ErrorOf([v] { CInt(v); }), 6) << v;
}

// A failed file operation raises the classic error that says what went wrong; so do the runtime's own errors.
TEST(RuntimeError, ErrorsCarryTheClassicNumbersAndWords) {
  auto said = [](const RuntimeError& e) { return std::to_string(e.Number()) + " " + e.Description(); };
  const std::pair<int, const char*> failed[] = {
      {ENOENT, "53 File not found"}, {ENOTDIR, "76 Path not found"}, {EROFS, "70 Permission denied"},
      {EFBIG, "61 Disk full"},       {EIO, "57 Device I/O error"},   {EINVAL, "52 Bad file name or number"},
      {EMFILE, "67 Too many files"}, {ENOMEM, "7 Out of memory"},    {EISDIR, "75 Path/File access error"}};
  for (auto [err, words] : failed) EXPECT_EQ(said(RuntimeError::FromErrno(err)), words);
  EXPECT_EQ(said(RuntimeError(errInputPastEnd)) + ", " + said(RuntimeError(errSubscript)),
            "62 Input past end of file, 9 Subscript out of range");
}

TEST(NumText, ValStrAndThousands) {
  const std::pair<const char*, double> vals[] = {
      {" 1", 1},     {"  -12abc", -12}, {"1 2 3", 123}, {"abc", 0},   {"", 0},        {"3.75e2x", 375}, {".5", 0.5},
      {"&HFF", 255}, {"&hff", 255},     {"&HFFFF", -1}, {"&O17", 15}, {"&o777", 511}, {"&O8", 0},       {"1e", 1},
      {"&H19", 25},  {"&H10", 16},      {"1e+", 1},     {"1d2", 100}, {"1E-2", 0.01}};
  for (auto [t, v] : vals) EXPECT_EQ(Val(t), v) << t;
  const std::pair<const char*, bool> numeric[] = {{" 1\t", true}, {"-1", true},   {"2.5E3", true}, {"1e-5", true},
                                                  {"&hfF", true}, {"&HFF", true}, {"abc", false},  {"7x", false},
                                                  {"", false},    {"-", false},   {".", false},    {"&H1", true},
                                                  {"1D2", true},  {"1d2", true},  {"1e", false}};
  for (auto [t, n] : numeric) EXPECT_EQ(IsNumeric(t), n) << t;
  // Str gives a non-negative number a leading blank; concatenation gives none.
  EXPECT_EQ(Str(1) + Str(0) + Str(-1) + Str(0.5) + Str(-0.5) + Str(INFINITY) + Str(-INFINITY),
            " 1 0-1 .5-.5 Infinity-Infinity");
  EXPECT_EQ(NumText(-7.0) + "|" + NumText(0.25) + "|" + NumText(0.7055475f), "-7|0.25|0.7055475");
  EXPECT_EQ(Value(int16_t{-1}).Text() + Value(true).Text() + Value(false).Text() + Value().Text(), "-1TrueFalse");
  const std::pair<int64_t, const char*> thousands[] = {
      {0, "0"},          {999, "999"},           {1000, "1,000"},
      {-1234, "-1,234"}, {1234567, "1,234,567"}, {2147483647, "2,147,483,647"}};
  for (auto [v, t] : thousands) EXPECT_EQ(FormatThousands(v), t);
}

// The lines as written (read back: the options and webmaster file round trips); damaged lines are read.
TEST(WriteList, LinesAsWrittenAndDamagedLinesAreTolerated) {
  EXPECT_EQ(WriteListLine({"Grid", int16_t{-1}}), "\"Grid\",-1\r\n");
  EXPECT_EQ(WriteListLine({int32_t{1234567}, "a\"b", ""}), "1234567,\"a\"b\",\"\"\r\n");  // no escaping
  // Blanks around items, LF alone, bare items before a comma, an empty string (an item) and an empty line (none),
  // junk after a closing quote, a string cut by the line's end.
  ListReader d("  \"Diff\" , 3 \n 7 ,8\r\n\"\"\r\n\r\n\"Name\"junk,\"x\n\"unterminated");
  std::string read;
  while (!d.Eof())
    for (const ListItem& item : d.ReadLine()) read += item.text + "|";
  EXPECT_EQ(read, "Diff|3|7|8||Name|x|unterminated|");
}

// A line with one item where two are due.
const std::string kDamagedOptions = "\"Version\",\"1.14\"\r\n\"LastOption\"\r\n";

unsigned ModeOf(const char* name) {
  struct stat st {};
  return ::stat(name, &st) == 0 ? st.st_mode & 07777 : 0;
}
std::string Titles(const FakeWindow& w) {
  std::string t;
  for (auto& m : w.messages) t += m.szTitle + "|";
  return t;
}

void Load(App& a) {
  a.sw.optsFile.LoadOptions();
  a.sw.hs.LoadHighScores();
}
void Save(App& a) {
  a.sw.optsFile.SaveOptions();
  a.sw.hs.WriteHighScores();
}

TEST(KeepAside, OnlyDamagedFilesAreKeptBeforeTheyAreReplaced) {
  TempDir dir;
  const std::set<std::string> files{Options::kFileName, HighScores::kFileName};
  App m, a, b;
  Load(m);  // missing: the notice, nothing to keep
  Save(m);
  EXPECT_EQ(DirNames(), files);
  Spit(Options::kFileName, kDamagedOptions);
  Spit(HighScores::kFileName, "this is no list file\r\n");
  Load(a);
  EXPECT_EQ(Titles(a.w), "Error: LoadOptions|Error: LoadHighScoresError|");
  EXPECT_EQ(DirNames(), files);  // loading alone writes nothing
  Save(a);
  Save(a);  // saved again: the copy kept aside is still the damaged file
  EXPECT_EQ(ModeOf("sw.opt.bad"), 0600u);
  Load(b);  // the new files are good ones: a later save copies nothing and keeps the first copy as it is
  Save(b);
  EXPECT_EQ(Titles(b.w) + std::to_string(DirNames().size()), "4");
  EXPECT_EQ(Slurp("sw.opt.bad") + Slurp("SWhscore.dat.bad"), kDamagedOptions + "this is no list file\r\n");
}

// A file reached through a symbolic link is saved in the file the link leads to, which keeps its mode; the
// link stays a link.
TEST(Files, ASaveThroughASymbolicLinkWritesTheFileItLeadsTo) {
  TempDir dir;
  std::filesystem::create_directory("keep");
  Spit("keep/real.opt", "old");
  ::chmod("keep/real.opt", 0640);
  std::filesystem::create_symlink("keep/real.opt", Options::kFileName);
  App a;
  a.sw.optsFile.SaveOptions();
  EXPECT_TRUE(std::filesystem::is_symlink(Options::kFileName));
  EXPECT_EQ(Slurp("keep/real.opt").substr(0, 18) + " " + std::to_string(ModeOf("keep/real.opt")),
            "\"Version\",\"1.14\"\r\n " + std::to_string(0640));
}

}  // namespace
}  // namespace sw::test
