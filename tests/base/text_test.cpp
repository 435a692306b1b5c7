#include "base/text.h"

#include <gtest/gtest.h>

TEST(Text, PositionsCountCodePoints) {
  const std::string gujarati = "ગુજ રાત";  // seven code points, three bytes a letter
  EXPECT_EQ(length(gujarati), 7);
  EXPECT_EQ(left(gujarati, 3), "ગુજ");
  EXPECT_EQ(right(gujarati, 3), "રાત");
  EXPECT_EQ(mid(gujarati, 2, 2), "ુજ");
  EXPECT_EQ(cut(gujarati + "x", 7), gujarati);
  EXPECT_EQ(mid("2024", 3), "24");
  EXPECT_EQ(left("ab", -1), "");
  EXPECT_EQ(right("ab", 5), "ab");
  EXPECT_EQ(mid("ab", 9, 2), "");
}

TEST(Text, BrokenSequencesDoNotRunOver) {
  EXPECT_EQ(length("\xE0"), 1);
  EXPECT_EQ(length("\x80\x80"), 2);
  EXPECT_EQ(left("\xE0\xAA", 1), "\xE0\xAA");
}

TEST(Text, CaseIsOfAsciiAlone) {
  EXPECT_EQ(upper("abc éગ"), "ABC éગ");
  EXPECT_EQ(lower("ABC É"), "abc É");
  EXPECT_TRUE(sameText("Invgst1", "INVGST1"));
  EXPECT_FALSE(sameText("Invgst", "INVGST1"));
  EXPECT_TRUE(startsWithNoCase("msysObjects", "MSys"));
}

TEST(Text, TrimTakesBlanksOnly) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(ltrim(" a "), "a ");
  EXPECT_EQ(trim("\ta"), "\ta");
}

TEST(Text, SplitJoinReplacePad) {
  EXPECT_EQ(split("a,,b", ","), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(split("", ","), (std::vector<std::string>{""}));
  EXPECT_EQ(join({"a", "b", "c"}, " and "), "a and b and c");
  EXPECT_EQ(replaceAll("it''s", "''", "'"), "it's");
  EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(padLeft("7", 5, '0'), "00007");
  EXPECT_EQ(padLeft("123456", 5, '0'), "123456");
}
