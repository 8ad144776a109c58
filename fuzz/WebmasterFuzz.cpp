// Feeds arbitrary bytes to the webmaster lists reader as the bytes of
// "SWhscore.dat", in memory. The reader reports or reads; a table it read
// writes and reads back the same. The
// cipher's own round trips are checked on the same bytes.
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "Skitterweb.h"
#include "scoring/Cipher.h"
#include "support/FakeWindow.h"

namespace {

using namespace sw;

void CheckCipher(const std::string& bytes) {
  Cipher c;
  c.Text(bytes);
  c.Stretch();
  fuzz::Check(c.Text().size() == bytes.size() + (bytes.size() + 2) / 3, "stretched length");
  for (char ch : c.Text()) fuzz::Check(ch >= ';' && ch <= 'z', "stretched characters are printable");
  c.Shrink();
  fuzz::Check(c.Text() == bytes, "shrink undoes stretch");
  c.KeyString(HighScores::kKey);
  c.DoXor();
  c.KeyString(HighScores::kKey);
  c.DoXor();
  fuzz::Check(c.Text() == bytes, "xor twice with one key restores");
  Cipher junk;
  junk.Text(bytes);
  junk.Shrink();
  fuzz::Check(junk.Text().size() == bytes.size() - (bytes.size() + 3) / 4, "shrunk length");
}

bool HasQuote(const HighScores& hs) {
  for (int t = 0; t < 2; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s)
        if (hs.Entry(t, d, s).szName.find('"') != std::string::npos) return true;
  return false;
}

bool SameTable(const HighScores& a, const HighScores& b) {
  for (int t = 0; t < 2; ++t)
    for (int d = 1; d <= 4; ++d)
      for (int s = 1; s <= 10; ++s)
        if (!(a.Entry(t, d, s) == b.Entry(t, d, s))) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  CheckCipher(bytes);

  test::FakeWindow w;
  Skitterweb sw(w);
  sw.hs.LoadHighScoresFrom(bytes);
  fuzz::Check(w.messages.size() <= 1, "at most one message");
  if (!w.messages.empty()) {
    fuzz::Check(w.messages[0].szTitle == "Error: LoadHighScoresError", "failure title");
    return 0;
  }
  // A table that was read is written and read back unchanged (a name holding a
  // quote cannot be written back whole, as in every build of the game).
  const std::string file = sw.hs.FileText();
  if (HasQuote(sw.hs)) return 0;
  test::FakeWindow w2;
  Skitterweb again(w2);
  again.hs.LoadHighScoresFrom(file);
  fuzz::Check(w2.messages.empty(), "a written table reads");
  fuzz::Check(SameTable(sw.hs, again.hs), "written table reads back the same");
  return 0;
}
