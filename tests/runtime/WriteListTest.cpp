#include <gtest/gtest.h>

#include "runtime/RuntimeError.h"
#include "runtime/WriteList.h"

namespace sw {
namespace {

TEST(WriteList, StringsQuotedNumbersBareLinesEndWithCrLf) {
  EXPECT_EQ(WriteListLine({"Grid", int16_t{-1}}), "\"Grid\",-1\r\n");
  EXPECT_EQ(WriteListLine({"UserName", "Guest"}), "\"UserName\",\"Guest\"\r\n");
  EXPECT_EQ(WriteListLine({int32_t{1234567}, int16_t{12}, ""}), "1234567,12,\"\"\r\n");
  // No escaping: a quote inside a string is written as it is.
  EXPECT_EQ(WriteListLine({"a\"b"}), "\"a\"b\"\r\n");
}

TEST(WriteList, ReaderGivesBackWhatWasWrittenCommasAndBlanksInStringsIncluded) {
  const std::string text = WriteListLine({int32_t{250}, int16_t{3}, "Smith, John  Q"}) +
                           WriteListLine({int32_t{0}, int16_t{0}, ""}) + WriteListLine({"LastOption", " 1"});
  ListReader r(text);
  EXPECT_EQ(r.ReadItem().Number(), 250);
  EXPECT_EQ(r.ReadItem().Number(), 3);
  ListItem name = r.ReadItem();
  EXPECT_TRUE(name.quoted);
  EXPECT_EQ(name.text, "Smith, John  Q");
  EXPECT_EQ(r.ReadItem().text, "0");
  EXPECT_EQ(r.ReadItem().text, "0");
  EXPECT_EQ(r.ReadItem().text, "");
  std::vector<ListItem> line = r.ReadLine();
  ASSERT_EQ(line.size(), 2u);
  EXPECT_EQ(line[0].text, "LastOption");
  EXPECT_EQ(line[1].text, " 1");
  EXPECT_EQ(line[1].Number(), 1);
  EXPECT_TRUE(line[1].IsNumeric());
  EXPECT_TRUE(r.Eof());
  try {
    r.ReadItem();
    FAIL() << "reading past the end must raise";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), 62);
  }
}

TEST(WriteList, ReaderToleratesHandEditedAndDamagedLines) {
  ListReader r("  \"Diff\" , 3 \n\"Grid\",abc\r\n\"Name\"junk,\"x\nlone\r\n\"unterminated");
  auto a = r.ReadLine();
  ASSERT_EQ(a.size(), 2u);
  EXPECT_EQ(a[0].text, "Diff");
  EXPECT_EQ(a[1].Number(), 3);
  auto b = r.ReadLine();
  EXPECT_FALSE(b[1].IsNumeric());
  EXPECT_EQ(b[1].Number(), 0);
  auto c = r.ReadLine();
  ASSERT_EQ(c.size(), 2u);
  EXPECT_EQ(c[0].text, "Name");  // text between the closing quote and the comma is passed over
  EXPECT_EQ(c[1].text, "x");      // a string ends at the line's end
  EXPECT_EQ(r.ReadLine().size(), 1u);
  auto e = r.ReadLine();
  ASSERT_EQ(e.size(), 1u);
  EXPECT_EQ(e[0].text, "unterminated");
  EXPECT_THROW(r.ReadLine(), RuntimeError);
}

}  // namespace
}  // namespace sw
