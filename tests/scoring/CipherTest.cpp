#include <gtest/gtest.h>

#include <string>

#include "scoring/Cipher.h"

namespace sw {
namespace {

// A text of the given length that walks through all 256 byte values.
std::string AllBytes(size_t len, int start) {
  std::string s;
  for (size_t i = 0; i < len; ++i) s.push_back(static_cast<char>((start + 97 * static_cast<int>(i)) & 0xFF));
  return s;
}

std::string Stretched(const std::string& text) {
  Cipher c;
  c.Text(text);
  c.Stretch();
  return c.Text();
}

std::string Shrunk(const std::string& text) {
  Cipher c;
  c.Text(text);
  c.Shrink();
  return c.Text();
}

std::string Xored(const std::string& text, const std::string& key) {
  Cipher c;
  c.Text(text);
  c.KeyString(key);
  c.DoXor();
  return c.Text();
}

TEST(Cipher, StretchMakesFourOfEveryThreeAndShrinkUndoesItForEveryLength) {
  for (size_t len = 0; len <= 20; ++len) {
    for (int start = 0; start < 256; start += 5) {
      const std::string plain = AllBytes(len, start);
      const std::string s = Stretched(plain);
      ASSERT_EQ(s.size(), len + (len + 2) / 3) << "length " << len;
      for (char ch : s) {
        ASSERT_GE(ch, ';');
        ASSERT_LE(ch, 'z');
      }
      ASSERT_EQ(Shrunk(s), plain) << "length " << len << " start " << start;
    }
  }
  EXPECT_EQ(Stretched("A").size(), 2u);
  EXPECT_EQ(Stretched("AB").size(), 3u);
  EXPECT_EQ(Stretched("ABC").size(), 4u);
  EXPECT_EQ(Stretched("ABCD").size(), 6u);
}

TEST(Cipher, StretchPutsTheHighBitsOfAGroupIntoItsLastCharacter) {
  // 0xC1 = 11 000001, 0x42 = 01 000010, 0x83 = 10 000011: low parts 1, 2, 3;
  // high parts 3, 1, 2 -> 110110 = 54.
  const std::string s = Stretched("\xC1\x42\x83");
  EXPECT_EQ(s, std::string({char(59 + 1), char(59 + 2), char(59 + 3), char(59 + 54)}));
  // A last partial group ends with its own high-part character: 0xC1 alone -> 3 in bits 5-4.
  EXPECT_EQ(Stretched("\xC1"), std::string({char(59 + 1), char(59 + 48)}));
}

TEST(Cipher, ShrinkOfTextThatWasNeverStretchedStaysInBoundsAndGivesBytes) {
  // Any input: the length rule holds and nothing is read beyond the text
  // (sanitizer builds would catch it); characters outside ";".."z" are masked.
  for (size_t len = 0; len <= 13; ++len) {
    const std::string junk = AllBytes(len, 7);
    EXPECT_EQ(Shrunk(junk).size(), len - (len + 3) / 4) << len;
  }
  // A stretched text followed by CR LF still gives the original characters first.
  const std::string plain = "0,0,\"\"\r\n0,0,\"x\"\r\n";
  for (size_t cut = 1; cut <= plain.size(); ++cut) {
    const std::string part = plain.substr(0, cut);
    const std::string back = Shrunk(Stretched(part) + "\r\n");
    ASSERT_GE(back.size(), part.size());
    // Only a last group completed by the CR LF can lose its high bits.
    const size_t intact = part.size() % 3 == 0 ? part.size() : part.size() - part.size() % 3;
    EXPECT_EQ(back.substr(0, intact), part.substr(0, intact)) << cut;
  }
  // Characters below ";" count in two's complement: ":" is -1, all six bits set.
  EXPECT_EQ(Shrunk(":;"), std::string(1, '\x3F'));
  EXPECT_EQ(Shrunk(";:"), std::string(1, '\xC0'));
}

TEST(Cipher, XorWithTheSameKeyRestoresTheTextAndAnotherKeyScramblesDifferently) {
  const std::string plain = AllBytes(300, 3);
  const std::string once = Xored(plain, "tinfoil");
  EXPECT_NE(once, plain);
  EXPECT_EQ(once.size(), plain.size());
  EXPECT_EQ(Xored(once, "tinfoil"), plain);
  // Setting the key again restarts the stream on the same object.
  Cipher c;
  c.Text(plain);
  c.KeyString("tinfoil");
  c.DoXor();
  c.KeyString("tinfoil");
  c.DoXor();
  EXPECT_EQ(c.Text(), plain);

  const std::string other = Xored(plain, "tinfoiL");
  EXPECT_NE(other, once);
  size_t differ = 0;
  for (size_t i = 0; i < plain.size(); ++i) differ += other[i] != once[i];
  EXPECT_GT(differ, plain.size() / 2);
  // The stream does not depend on what the generator did before the key was set.
  Cipher used;
  used.KeyString("other");
  used.Text(std::string(50, 'x'));
  used.DoXor();
  used.Text(plain);
  used.KeyString("tinfoil");
  used.DoXor();
  EXPECT_EQ(used.Text(), once);
}

TEST(Cipher, EmptyTextStaysEmpty) {
  Cipher c;
  c.KeyString("tinfoil");
  c.DoXor();
  c.Stretch();
  EXPECT_EQ(c.Text(), "");
  c.Shrink();
  EXPECT_EQ(c.Text(), "");
}

}  // namespace
}  // namespace sw
