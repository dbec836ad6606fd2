#include <gtest/gtest.h>

#include "base/text.h"
#include "base/wide_string.h"

namespace tw {
namespace {

TEST(WideStringTest, GrowsByTheDeviceRuleAndCutsAtTheSixteenBitLimit) {
  WideString s;
  EXPECT_EQ(s.Capacity(), 64);
  s.Assign(std::u16string(60, u'a'));
  EXPECT_EQ(s.Capacity(), 64) << "60 + 4 fits the first block";
  s.Assign(std::u16string(61, u'b'));
  EXPECT_EQ(s.Capacity(), 125) << "61 + 4 > 64 gives 61 + 64";
  s.Append(u"cd");
  EXPECT_EQ(s.Capacity(), 125);
  s.Append(std::u16string(60, u'e'));  // 63 + 60 + 4 > 125
  EXPECT_EQ(s.Capacity(), 63 + 60 + 64);
  EXPECT_EQ(s.View(), std::u16string(61, u'b') + u"cd" + std::u16string(60, u'e'));
  EXPECT_EQ(s.Text()[s.Length()], 0);

  s.Assign(std::u16string(70000, u'x'));
  EXPECT_EQ(s.Capacity(), 65535);
  s.Append(u"more");
  EXPECT_EQ(s.Length(), 65534) << "and a terminator";
  EXPECT_EQ(s.Text()[65534], 0);
  s.Assign(std::u16string(65533, u'y'));
  s.Append(u"\xD83D\xDE00\xFF21");
  EXPECT_EQ(s.Length(), 65533) << "a surrogate pair straddling the limit is dropped whole";

  WideString own(u"hello world");  // from its own text
  own.Assign(own.View().substr(6));
  own.Append(own.View());
  EXPECT_EQ(own.View(), u"worldworld");
}

TEST(WideStringTest, FormatsLikeTheDeviceLibrary) {
  WideString s;
  s.Format(u"\"%s\"=dword:%d\r\n", u"Color", 0xFFFFFFFFu);
  EXPECT_EQ(s.View(), u"\"Color\"=dword:-1\r\n");
  s.Format(u"Filter %d|%5d|%-3d|%03d|%x|%X|%u|%10d|%ld|%%", 7, 42, 1, 5, 255, 255, 0xFFFFFFFFu, 7, -3);
  EXPECT_EQ(s.View(), u"Filter 7|   42|1  |005|ff|FF|4294967295|         7|-3|%");
  EXPECT_EQ(FormatText(u"%s", {std::u16string(5000, u'z')}).size(), 1023u);
}

TEST(ParseLongTest, BehavesLikeWcstolWithThirtyTwoBitLong) {
  std::size_t used = 0;
  EXPECT_EQ(ParseLong(u"  -42xyz", 10, &used), -42);
  EXPECT_EQ(used, 5u);
  EXPECT_EQ(ParseLong(u"abc", 10, &used), 0);
  EXPECT_EQ(used, 0u);
  EXPECT_EQ(ParseLong(u"99999999999", 10), 2147483647);
  EXPECT_EQ(ParseLong(u"-99999999999", 10), -2147483647 - 1);
  EXPECT_EQ(ParseLong(u"0x1F", 16), 31);
  EXPECT_EQ(ParseUnsignedLong(u"-1", 10), 0xFFFFFFFFu);
  EXPECT_EQ(ParseUnsignedLong(u"99999999999", 10), 0xFFFFFFFFu);
  EXPECT_EQ(ParseUnsignedLong(u"-4294967295", 10), 1u);
  EXPECT_EQ(ParseLong(u"  0x1F", 16), 31);
  EXPECT_EQ(ParseLong(u"0xz1", 16, &used), 0);
  EXPECT_EQ(used, 1u) << "no hex digit after the prefix: only the 0 is read";
  EXPECT_EQ(ParseLong(u"A", 16), 10);
  EXPECT_EQ(ParseLong(u"101", 2), 5);
}

TEST(Utf8Test, RoundTripsAndKeepsStrayBytes) {
  std::u16string text = u"Grüße Привет \xD83D\xDE00";
  EXPECT_EQ(Utf8ToUtf16(Utf16ToUtf8(text)), text);
  EXPECT_EQ(Utf8ToUtf16("caf\xE9"), u"caf\u00E9");
  EXPECT_EQ(Utf8ToUtf16("\xE2\x82"), u"\u00E2\u201A") << "a broken sequence falls back to Windows-1252";
  const std::string edges = "\xC2\x80\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  const std::u16string edgeCodes = u"\u0080\u0800\uFFFD\U00010000\U0010FFFF";
  EXPECT_EQ(Utf8ToUtf16(edges), edgeCodes);
  EXPECT_EQ(Utf16ToUtf8(edgeCodes), edges);
  EXPECT_EQ(Utf8ToUtf16("\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F\x90\x91\x92\x93\x94\x95"
                        "\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F\xA0\xFF"),
            u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
            u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178"
            u"\u00A0\u00FF");
}

}  // namespace
}  // namespace tw
