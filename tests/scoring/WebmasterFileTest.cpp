#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "scoring/Cipher.h"
#include "support/App.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

namespace fs = std::filesystem;

// A text of the given length that walks through all 256 byte values.
std::string AllBytes(size_t len, int start) {
  std::string s;
  for (size_t i = 0; i < len; ++i) s.push_back(static_cast<char>((start + 97 * static_cast<int>(i)) & 0xFF));
  return s;
}

// Every three bytes, high bits and all, become four characters from ";" to "z", a short last group one more
// than its length; and back.
TEST(Cipher, ThreeBytesBecomeFourPrintableCharactersAndComeBack) {
  for (size_t len = 1; len <= 9; ++len) {
    const std::string plain = AllBytes(len, 200);
    Cipher c;
    c.Text(plain);
    c.Stretch();
    EXPECT_EQ(c.Text().size(), (4 * len + 2) / 3) << len;
    const std::string& t = c.Text();
    EXPECT_TRUE(std::all_of(t.begin(), t.end(), [](char ch) { return ch >= ';' && ch <= 'z'; })) << len;
    c.Shrink();
    EXPECT_EQ(c.Text(), plain) << len;
  }
}

// Every entry distinct; names with commas and runs of blanks; the extremes.
void FillTable(HighScores& hs, int seed) {
  for (int t = 0; t < 2; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s) {
        const int n = (t * 4 + d - 1) * 10 + s;
        hs.Entry(t, d, s) = {seed * 100000 + (11 - s) * 1000 + n, static_cast<int16_t>(seed + n),
                             "Whisk, " + std::to_string(seed) + " the  " + std::to_string(n) + "th "};
      }
  hs.Entry(0, 1, 1).szName = "";
  hs.Entry(1, 4, 10).szName = " , ,, ";
  hs.Entry(1, 4, 9).lScore = 2147483647;
  hs.Entry(1, 4, 8).nSites = -32768;
}

TEST(WebmasterFile, RoundTripAndThePinnedEmptyFile) {
  TempDir dir;
  App a, b, fresh;
  FillTable(a.sw.hs, 7);
  // Eighty write-list lines: personal lists first, easy to nightmare, slots 1 to 10.
  const std::string text = a.sw.hs.PlainText();
  EXPECT_EQ(text.rfind("710001,8,\"\"\r\n709002,9,\"Whisk, 7 the  2th \"\r\n", 0), 0u);
  EXPECT_NE(text.find("\"Whisk, 7 the  40th \"\r\n710041,48,"), std::string::npos);
  EXPECT_TRUE(text.ends_with(",\" , ,, \"\r\n"));
  a.sw.hs.WriteHighScores();
  FillTable(b.sw.hs, 3);
  b.sw.hs.LoadHighScores();
  EXPECT_EQ(b.sw.hs.PlainText(), a.sw.hs.PlainText());  // every field, as the checks above show

  // The file an empty table writes is the pinned one, byte for byte. Other builds of the game must read our
  // files and we theirs: the key schedule, the generator's single-precision draws and the stretching show here.
  fresh.sw.hs.WriteHighScores();
  EXPECT_EQ(Slurp(HighScores::kFileName), Slurp(SKITTERWEB_SEEDS "/webmaster/empty.dat"));
  b.sw.hs.LoadHighScores();
  EXPECT_EQ(b.sw.hs.PlainText(), fresh.sw.hs.PlainText());
  EXPECT_TRUE(a.w.messages.empty() && b.w.messages.empty() && fresh.w.messages.empty());
}

TEST(WebmasterFile, DamagedFilesAreReportedAndKeepWhatWasRead) {
  TempDir dir;
  App a, ref;
  FillTable(a.sw.hs, 1);
  // Cut short: the entries before the cut are read, the rest stay as they were. (A missing file: see the
  // start-up test of the menu.)
  FillTable(ref.sw.hs, 5);
  ref.sw.hs.WriteHighScores();
  const std::string whole = Slurp(HighScores::kFileName);
  Spit(HighScores::kFileName, whole.substr(0, whole.size() / 2));
  a.sw.hs.LoadHighScores();
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{"Error: LoadHighScoresError: Failed to open high score file\n"
                                                 "Error #62 - Input past end of file"});
  EXPECT_EQ(a.sw.hs.Entry(0, 3, 5), ref.sw.hs.Entry(0, 3, 5));
  EXPECT_EQ(a.sw.hs.Entry(1, 4, 10), (WebmasterEntry{101080, 81, " , ,, "}));  // as FillTable left it

  // Junk of any size, or a directory in the file's place: reported, no temporary file left.
  for (int len : {0, 1, 2, 3, 5, 856, 4000, -1}) {  // -1: a directory
    a.w.messages.clear();
    fs::remove(HighScores::kFileName);
    if (len < 0)
      fs::create_directory(HighScores::kFileName);
    else
      Spit(HighScores::kFileName, AllBytes(static_cast<size_t>(len), 17));
    a.sw.hs.LoadHighScores();
    ASSERT_EQ(a.w.messages.size(), 1u) << len;
    EXPECT_EQ(a.w.messages.at(0).szTitle, "Error: LoadHighScoresError");
    EXPECT_FALSE(fs::exists(HighScores::kTempName));
  }
}

// A write that stops part of the way (a full disk: the plain temporary file gets through, the enciphered one
// does not) is reported, and the old file stays whole with nothing left beside it. (Read-only files and
// folders: the options file's saves, through the same writer.)
TEST(WebmasterFile, AWriteThatStopsIsReportedAndLeavesTheOldFile) {
  TempDir dir;
  App a;
  FillTable(a.sw.hs, 4);
  a.sw.hs.WriteHighScores();
  const std::string old = Slurp(HighScores::kFileName);
  FillTable(a.sw.hs, 9);
  WithFileSizeLimit(a.sw.hs.PlainText().size() + 64, [&] { a.sw.hs.WriteHighScores(); });
  const std::vector<std::string> shown = Shown(a.w);
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_TRUE(shown[0].starts_with("Error: WriteHighScoresError: Failed to open high score file\nError #")) << shown[0];
  EXPECT_EQ(Slurp(HighScores::kFileName), old);
  EXPECT_EQ(DirNames(), std::set<std::string>{HighScores::kFileName});
}

}  // namespace
}  // namespace sw::test
