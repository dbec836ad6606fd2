// The copy of the settings written before an import rewrites the registry:
// it survives failing imports and brings the former values back.
#include <windows.h>

#include <gtest/gtest.h>

#include "app/shell.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "tests/support/record_text.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

constexpr char16_t kBackup[] = u"\\My Documents\\TW_Settings.bak";

class ShellBackupTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    device::DocumentsFolder();  // made on first use, as on the device
  }
  void TearDown() override {
    files().Delete(kBackup);
    AppTest::TearDown();
  }
  void WriteDocument(const std::string& text) { ASSERT_TRUE(files().WriteAll(kDocument, text.data(), text.size())); }
  std::vector<std::uint8_t> Backup() {
    std::vector<std::uint8_t> bytes;
    files().ReadAll(kBackup, bytes);
    return bytes;
  }
};

TEST_F(ShellBackupTest, FailedImportsKeepTheBackupThatRestoresEveryValue) {
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
  WriteDword(registry(), kCurrentUser, kColorsKey.path, u"GeneralFontColor", 255);
  ASSERT_NE(Start(kAboutPage), nullptr);
  std::string before = DescribeRecord(Settings());

  // OnDoubleClick was at its default, so it was not stored at all.
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n\"OnDoubleClick\"=dword:1\r\n"
                "\r\nbroken\r\n");
  Command(IDM_IMPORT);
  ASSERT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 1u) << "the import failed half way";
  std::vector<std::uint8_t> backup = Backup();
  ASSERT_FALSE(backup.empty());

  // A second try must not back up the half-written state over the whole one.
  WriteDocument("\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"GeneralFontColor\"=dword:7\r\n\r\nbroken\r\n");
  Command(IDM_IMPORT);
  EXPECT_EQ(Backup(), backup);
  ASSERT_NE(Window(), nullptr);

  ASSERT_TRUE(files().WriteAll(kDocument, backup.data(), backup.size()));
  Command(IDM_IMPORT);
  EXPECT_EQ(Window(), nullptr) << "the backup imports like any settings file";
  EXPECT_EQ(DescribeRecord(Settings()), before) << "read back from the registry on the way out";
}

TEST_F(ShellBackupTest, EachImportBacksUpTheSettingsItReplaces) {
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n");
  ASSERT_NE(Start(kAboutPage), nullptr);
  Command(IDM_IMPORT);
  ASSERT_EQ(Window(), nullptr);
  std::vector<std::uint8_t> first = Backup();
  std::string text(first.begin(), first.end());
  EXPECT_NE(text.find("\"OnClick\"=dword:2"), std::string::npos) << text;

  ASSERT_NE(Start(kAboutPage), nullptr);
  Command(IDM_IMPORT);
  std::vector<std::uint8_t> second = Backup();
  text.assign(second.begin(), second.end());
  EXPECT_NE(text.find("\"OnClick\"=dword:1"), std::string::npos) << "a new run backs up afresh";
}

}  // namespace
}  // namespace tw::test
