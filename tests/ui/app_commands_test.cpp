// Export and import from the menu, with the file in the documents folder.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "app/shell.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

class CommandsTest : public AppTest {
 protected:
  std::string ReadDocument() {
    std::vector<std::uint8_t> bytes;
    if (!files().ReadAll(DocumentsFile(), bytes)) return {};
    return std::string(bytes.begin(), bytes.end());
  }
  void WriteDocument(const std::string& text) {
    files().MakeDirectory(u"\\twtest\\Documents");
    ASSERT_TRUE(files().WriteAll(DocumentsFile(), text.data(), text.size()));
  }
  std::wstring LastCaption() {
    auto boxes = answerer_.Boxes();
    return boxes.empty() ? L"" : boxes.back().caption;
  }
};

// The export takes the registry as it is, values of other programs included.
TEST_F(CommandsTest, ExportStraightAfterStart) {
  WriteText(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Extra", u"Foreign", u"x");
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 0xFFFFFFFF);
  ASSERT_NE(Start(), nullptr);
  Command(IDM_EXPORT);
  EXPECT_EQ(LastCaption(), EnglishText(40209));
  std::string file = ReadDocument();
  EXPECT_EQ(file.rfind("\r\n[Software\\Orvex\\Tidewell]\r\n", 0), 0u) << file.substr(0, 80);
  EXPECT_NE(file.find("\"OnClick\"=dword:-1\r\n"), std::string::npos);
  EXPECT_NE(file.find("[Software\\Orvex\\Tidewell\\Extra]\r\n\"Foreign\"=\"x\"\r\n"), std::string::npos);
  EXPECT_NE(file.find("[::Filters::]"), std::string::npos);
  EXPECT_NE(Window(), nullptr) << "export keeps the program open";
}

TEST_F(CommandsTest, MissingFileLeavesEverythingAsItWas) {
  ASSERT_NE(Start(kAboutPage), nullptr);
  SettingsPage* about = Shell().slots[kAboutPage].get();
  std::string before = RegistrySnapshot();
  Command(IDM_IMPORT);
  EXPECT_EQ(LastCaption(), EnglishText(40211));
  EXPECT_EQ(Window(), Shell().mainWindow);
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Shell().slots[kAboutPage].get(), about);
  EXPECT_EQ(RegistrySnapshot(), before);
}

TEST_F(CommandsTest, FailedImportKeepsTheWindowAndPages) {
  // A header that is neither opened nor closed by a bracket fails the import
  // after the first section was applied.
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n\r\nbroken\r\n");
  ASSERT_NE(Start(kAboutPage), nullptr);
  SettingsPage* about = Shell().slots[kAboutPage].get();
  std::vector<HWND> controls = about->Controls();
  Command(IDM_IMPORT);
  EXPECT_EQ(LastCaption(), EnglishText(40213));
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Shell().slots[kAboutPage].get(), about);
  EXPECT_EQ(about->Controls(), controls);
  for (HWND control : controls) EXPECT_TRUE(IsWindowVisible(control));
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 1u) << "no rollback";
  Pump();
  EXPECT_EQ(listener_.Received(), 0);
}

TEST_F(CommandsTest, SuccessfulImportReloadsSavesListsAndEnds) {
  WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Business"}, {0x40020002, 3, u""}}});
  WriteDocument(
      "\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n\"FirstTimeSettingsMsg\"=dword:1\r\n"
      "\r\n[::Categories::]\r\n\"Category\"=\"Business\"\r\n\"FiltersFlag\"=dword:6\r\n\"Color\"=dword:128\r\n");
  ASSERT_NE(Start(kAboutPage), nullptr);
  Command(IDM_IMPORT);
  EXPECT_EQ(LastCaption(), EnglishText(40215));
  EXPECT_EQ(Window(), nullptr) << "the program ends after an import";
  EXPECT_EQ(Settings().OnClick, 1) << "the record was read back";
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 1u);
  const char16_t* categories = u"Software\\Orvex\\Tidewell\\Categories";
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, categories, u"CatColor.Business").dword, 128u);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, categories, u"CatFilter.Business").dword, 6u);
  EXPECT_TRUE(files().Exists(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt"));
  files().Delete(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt");
  Pump();
  EXPECT_EQ(listener_.Received(), 0) << "an import does not broadcast";
}

}  // namespace
}  // namespace tw::test
