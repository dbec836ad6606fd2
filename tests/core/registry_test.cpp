// The registry semantics the settings depend on, checked against whichever
// registry this build runs with (in memory natively, Wine's under Wine).
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::u16string_view kKey = u"Software\\Orvex\\Tidewell\\Probe";

class RegistryTest : public PlatformTest {
 protected:
  std::u16string Below(std::u16string_view sub) { return std::u16string(kKey) + u"\\" + std::u16string(sub); }
};

TEST_F(RegistryTest, NamesIgnoreCaseAndKeepTheirCase) {
  WriteDword(registry(), kCurrentUser, kKey, u"MixedCase", 5);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, u"software\\orvex\\TIDEWELL\\probe", u"mixedcase").dword, 5u);
  WriteDword(registry(), kCurrentUser, kKey, u"MIXEDCASE", 6);
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kKey), std::vector<std::u16string>{u"MixedCase"});
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kKey, u"MixedCase").dword, 6u);
}

TEST_F(RegistryTest, TypesAreKeptAndShortBuffersFailWithMoreData) {
  WriteText(registry(), kCurrentUser, kKey, u"One", u"1");
  StoredValue one = ReadValue(registry(), kCurrentUser, kKey, u"One");
  EXPECT_EQ(one.type, kRegSz);
  EXPECT_EQ(one.size, 4u);
  EXPECT_EQ(one.dword, 49u) << "'1' and its terminator read as raw bytes";
  WriteRaw(registry(), kCurrentUser, kKey, u"Blob", kRegBinary, "\1\2\3", 3);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kKey, u"Blob").type, kRegBinary);

  std::uint64_t eight = 0x1122334455667788ull;
  WriteRaw(registry(), kCurrentUser, kKey, u"Wide", kRegDword, &eight, 8);
  ScopedKey key(registry(), kCurrentUser, kKey, false);
  std::uint32_t value = 0, size = 4, type = 0;
  EXPECT_EQ(registry().Query(key.get(), u"Wide", type, &value, size), kRegMoreData);
  EXPECT_EQ(size, 8u);
  EXPECT_EQ(registry().Query(key.get(), u"Missing", type, &value, size), kRegNotFound);
}

TEST_F(RegistryTest, EnumeratesByNameIgnoringCaseWithinItsBuffers) {
  for (auto name : {u"beta", u"Alpha", u"gamma", u"ALPHA2", u"_under", u"Zed"})
    WriteDword(registry(), kCurrentUser, kKey, name, 1);
  for (auto sub : {u"Sub\\b", u"Sub\\A", u"Sub\\c"}) ScopedKey key(registry(), kCurrentUser, Below(sub), true);
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kKey),
            (std::vector<std::u16string>{u"_under", u"Alpha", u"ALPHA2", u"beta", u"gamma", u"Zed"}));
  EXPECT_EQ(SubkeyNames(registry(), kCurrentUser, Below(u"Sub")), (std::vector<std::u16string>{u"A", u"b", u"c"}));

  WriteText(registry(), kCurrentUser, Below(u"Long"), u"LongData", std::u16string(200, u'd'));
  ScopedKey key(registry(), kCurrentUser, Below(u"Long"), false);
  char16_t name[256];
  std::uint8_t data[1024];
  std::uint32_t chars = 256, type = 0, size = 256;
  EXPECT_EQ(registry().EnumValue(key.get(), 0, name, chars, type, data, size), kRegMoreData) << "data past 256 bytes";
  chars = 4, size = sizeof data;
  EXPECT_EQ(registry().EnumValue(key.get(), 0, name, chars, type, data, size), kRegMoreData)
      << "an eight-character name does not fit four characters";
  chars = 256, size = sizeof data;
  ASSERT_EQ(registry().EnumValue(key.get(), 0, name, chars, type, data, size), kRegSuccess);
  EXPECT_EQ(chars, 8u);
  EXPECT_EQ(size, 402u);
  EXPECT_EQ(registry().EnumValue(key.get(), 1, name, chars, type, data, size), kRegNoMoreItems);
}

TEST_F(RegistryTest, DeletesValuesAndWholeTrees) {
  WriteDword(registry(), kCurrentUser, kKey, u"V", 1);
  WriteDword(registry(), kCurrentUser, Below(u"Deep\\Deeper"), u"W", 2);
  ScopedKey key(registry(), kCurrentUser, kKey, false);
  EXPECT_EQ(registry().DeleteValue(key.get(), u"V"), kRegSuccess);
  EXPECT_NE(registry().DeleteValue(key.get(), u"V"), kRegSuccess) << "absent value: harmless failure";
  EXPECT_EQ(registry().DeleteTree(key.get(), u"Deep"), kRegSuccess);
  EXPECT_FALSE(KeyExists(registry(), kCurrentUser, Below(u"Deep")));
  EXPECT_TRUE(KeyExists(registry(), kCurrentUser, kKey));
  RegKey missing = 0;
  EXPECT_EQ(registry().Open(kCurrentUser, u"Software\\Orvex\\Nowhere", false, missing), kRegNotFound);
}

}  // namespace
}  // namespace tw::test
