// The registry semantics the settings depend on, checked against whichever
// registry this build runs with (in memory natively, Wine's under Wine).
#include "platform/miss_caching_registry.h"
#include "tests/support/counting_registry.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::u16string_view kKey = u"Software\\Orvex\\Tidewell\\Probe";

using RegistryTest = PlatformTest;

TEST_F(RegistryTest, NamesIgnoreCaseAndKeepTheirCase) {
  WriteDword(registry(), kCurrentUser, kKey, u"MixedCase", 5);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, u"software\\orvex\\TIDEWELL\\probe", u"mixedcase").dword, 5u);
  WriteDword(registry(), kCurrentUser, kKey, u"MIXEDCASE", 6);
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kKey), std::vector<std::u16string>{u"MixedCase"});
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kKey, u"MixedCase").dword, 6u);
}

TEST_F(RegistryTest, EnumeratesByNameIgnoringCaseWithinItsNameBuffer) {
  for (auto name : {u"beta", u"Alpha", u"gamma", u"ALPHA2", u"_under", u"Zed"})
    WriteDword(registry(), kCurrentUser, kKey, name, 1);
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kKey),
            (std::vector<std::u16string>{u"_under", u"Alpha", u"ALPHA2", u"beta", u"gamma", u"Zed"}));

  // Data too long for its buffer is the settings file tests' case.
  ScopedKey key(registry(), kCurrentUser, kKey, false);
  char16_t name[4];
  std::uint32_t chars = 4, type = 0, size = 0;
  EXPECT_EQ(registry().EnumValue(key.get(), 1, name, chars, type, nullptr, size), kRegMoreData)
      << "\"Alpha\" does not fit four characters";
}

// Every query through the listing answers exactly as the registry itself does.
TEST_F(RegistryTest, ListedKeyAnswersAsTheRegistryAndAsksOnlyForStoredValues) {
  WriteDword(registry(), kCurrentUser, kKey, u"MixedCase", 5);
  WriteText(registry(), kCurrentUser, kKey, u"Text", u"twelve chars");
  std::uint64_t eight = 0x1122334455667788ull;
  WriteRaw(registry(), kCurrentUser, kKey, u"Wide", kRegDword, &eight, 8);
  CountingRegistry below(registry());
  MissCachingRegistry listed(below);
  ScopedKey plainKey(registry(), kCurrentUser, kKey, false);
  ScopedKey listedKey(listed, kCurrentUser, kKey, false);

  struct Answer {
    long result;
    std::uint32_t type, size;
    std::uint64_t data;
    bool operator==(const Answer&) const = default;
  };
  auto ask = [](Registry& r, RegKey key, std::u16string_view name, std::uint32_t buffer, bool withData) {
    Answer a{0, 77, buffer, 0};
    a.result = r.Query(key, name, a.type, withData ? &a.data : nullptr, a.size);
    if (a.result != kRegSuccess && a.result != kRegMoreData) a = {a.result, 0, 0, 0};  // nothing else to compare
    return a;
  };
  for (auto name : {u"MixedCase", u"MIXEDCASE", u"mixedcase", u"Text", u"Wide", u"Missing", u"MixedCas", u""})
    for (std::uint32_t buffer : {0u, 4u, 8u})
      for (bool withData : {true, false})
        EXPECT_EQ(ask(listed, listedKey.get(), name, buffer, withData),
                  ask(registry(), plainKey.get(), name, buffer, withData))
            << Show(name) << " with a buffer of " << buffer;
  EXPECT_EQ(below.queries, 3 * 3 * 2 + 2 * 3 * 2) << "the missing names never reach the registry";

  below.queries = 0;
  EXPECT_EQ(listed.SetDword(listedKey.get(), u"Missing", 9), kRegSuccess);
  EXPECT_EQ(ask(listed, listedKey.get(), u"missing", 4, true).data, 9u) << "a write forgets the listing";
  EXPECT_EQ(below.queries, 1);
}

// Names outside ASCII fold case as the registry decides, so the listing
// leaves their misses to it.
TEST_F(RegistryTest, ListingLeavesOtherScriptsToTheRegistry) {
  WriteDword(registry(), kCurrentUser, kKey, u"CatColor.Ärger", 1);
  WriteDword(registry(), kCurrentUser, kKey, u"CatColor.Работа", 2);
  CountingRegistry below(registry());
  MissCachingRegistry listed(below);
  ScopedKey key(listed, kCurrentUser, kKey, false);
  std::uint32_t value = 0, size = 4, type = 0;
  EXPECT_EQ(listed.Query(key.get(), u"CatColor.ärger", type, &value, size), kRegSuccess);
  EXPECT_EQ(value, 1u);
  EXPECT_EQ(listed.Query(key.get(), u"CatColor.работа", type, &value, size), kRegSuccess);
  EXPECT_EQ(value, 2u);
  EXPECT_EQ(listed.Query(key.get(), u"CatColor.Home", type, &value, size), kRegNotFound);
  EXPECT_EQ(below.queries, 3) << "a key with such names answers nothing itself";
}

}  // namespace
}  // namespace tw::test
