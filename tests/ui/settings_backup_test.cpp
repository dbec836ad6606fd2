// The copy of the settings written before an import or a scheme rewrites the
// registry: taken once a run, it survives failing imports and brings the
// former values back, and Undo puts back the very tree it was taken from, as
// `reg export` sees it.
#include <windows.h>

#include <gtest/gtest.h>

#include "app/main_window.h"
#include "app/shell.h"
#include "data/schemes.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "tests/support/record_text.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

constexpr char16_t kBackup[] = u"\\My Documents\\TW_Settings.bak";

constexpr wchar_t kDocuments[] = L"C:\\My Documents", kDocumentsAside[] = L"C:\\My Documents aside";

// The product's tree as `reg export` writes it, from a process of its own.
std::string RegExport() {
  wchar_t temp[MAX_PATH];
  GetTempPathW(MAX_PATH, temp);
  std::wstring file = std::wstring(temp) + L"tw-undo-test.reg";
  std::wstring line = L"reg.exe export \"HKCU\\Software\\Orvex\\Tidewell\" \"" + file + L"\" /y";
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                      &process))
    return "reg.exe did not start";
  WaitForSingleObject(process.hProcess, 30000);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  std::vector<std::uint8_t> bytes;
  Win32FileSystem files;
  files.ReadAll(ToU16(file), bytes);
  DeleteFileW(file.c_str());
  return std::string(bytes.begin(), bytes.end());
}

class ShellBackupTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    device::DocumentsFolder();  // made on first use, as on the device
  }
  void TearDown() override {
    if (GetFileAttributesW(kDocumentsAside) != INVALID_FILE_ATTRIBUTES) {
      DeleteFileW(kDocuments);
      MoveFileW(kDocumentsAside, kDocuments);
    }
    SetFileAttributesW(L"C:\\My Documents\\TW_Settings.bak", FILE_ATTRIBUTE_NORMAL);
    files().Delete(kBackup);
    AppTest::TearDown();
  }
  // Four keys' values and a binary value the export cannot carry.
  void WriteSomeSettings() {
    WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
    WriteDword(registry(), kCurrentUser, kCalendarKey.path, u"dNumOfDays", 3);
    WriteDword(registry(), kCurrentUser, kColorsKey.path, u"GeneralFontColor", 255);
    WriteDword(registry(), kCurrentUser, kFontsKey.path, u"FontGenerallfHeight", 20);
    const std::uint8_t blob[] = {7, 0, 7};
    WriteRaw(registry(), kCurrentUser, kProductKey, u"Blob", kRegBinary, blob, sizeof blob);
  }
  bool UndoOffered() {
    SendMessageW(Window(), WM_INITMENUPOPUP, 0, 0);
    auto menu = reinterpret_cast<HMENU>(SendMessageW(Shell().menuBar, device::kMenuBarGetMenu, 0, 0));
    UINT state = GetMenuState(GetSubMenu(menu, 0), IDM_UNDO_REWRITE, MF_BYCOMMAND);
    return state != UINT(-1) && !(state & MF_GRAYED);
  }
  void Undo() {
    ASSERT_NE(Start(kAboutPage), nullptr);
    ASSERT_TRUE(UndoOffered());
    Command(IDM_UNDO_REWRITE);
    ASSERT_EQ(Window(), nullptr) << "Undo ends the program like an import";
  }
  std::wstring LastText() { return answerer_.boxes.empty() ? L"" : answerer_.boxes.back().text; }
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
  std::string text(backup.begin(), backup.end());
  EXPECT_NE(text.find("\"OnClick\"=dword:2"), std::string::npos) << text;

  // A new run backs up afresh, what the first import wrote.
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:3\r\n");
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 1);
  ASSERT_NE(Start(kAboutPage), nullptr);
  Command(IDM_IMPORT);
  std::vector<std::uint8_t> second = Backup();
  text.assign(second.begin(), second.end());
  EXPECT_NE(text.find("\"OnClick\"=dword:1"), std::string::npos) << text;
}

TEST_F(ShellBackupTest, UndoPutsBackTheTreeAnImportReplacedAndUndoesItself) {
  WriteSomeSettings();
  ASSERT_NE(Start(kAboutPage), nullptr);
  EXPECT_FALSE(UndoOffered()) << "no backup yet";
  const std::string before = RegExport();
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n"
                "\r\n[Software\\Orvex\\Tidewell\\Calendar]\r\n\"dNumOfDays\"=dword:7\r\n"
                "\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"GeneralFontColor\"=dword:9\r\n"
                "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"FontGenerallfHeight\"=dword:30\r\n"
                "\r\n[Software\\Orvex\\Tidewell\\TabSettings\\Harbour Weather]\r\n\"Order\"=dword:4\r\n");
  Command(IDM_IMPORT);
  ASSERT_EQ(Window(), nullptr);
  const std::string imported = RegExport();
  ASSERT_NE(imported, before);

  Undo();
  EXPECT_EQ(answerer_.boxes.end()[-2].text, EnglishText(kAskUndoRewrite.text)) << "asked first";
  EXPECT_EQ(LastText(), EnglishText(kRewriteUndone.text));
  EXPECT_EQ(RegExport(), before);
  EXPECT_EQ(Settings().dNumOfDays, 3) << "the record was read back";
  Undo();
  EXPECT_EQ(RegExport(), imported) << "the second Undo takes back the first";

  // A colour scheme rewrites the tree too.
  ASSERT_NE(Start(kAboutPage), nullptr);
  std::u16string folder = std::u16string(Settings().InstallFolder.View()) + u"\\Schemes";
  files().MakeDirectory(folder);
  std::string scheme = "\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"GeneralFontColor\"=dword:7\r\n"
                       "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"FontGenerallfItalic\"=dword:1\r\n";
  ASSERT_TRUE(files().WriteAll(folder + u"\\Undo test.scm", scheme.data(), scheme.size()));
  PageSchemeHooks().apply(Window(), u"Undo test.scm");
  DeleteScheme(files(), Settings().InstallFolder.View(), u"Undo test.scm");
  ASSERT_EQ(Window(), nullptr);
  ASSERT_NE(RegExport(), imported);
  Undo();
  EXPECT_EQ(RegExport(), imported);
}

// Without a backup the rewrite does not start: the registry and the former
// backup stay as they were, and the message says why.
TEST_F(ShellBackupTest, ARewriteThatCannotBackUpDoesNotStart) {
  WriteSomeSettings();
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n");
  ASSERT_NE(Start(kAboutPage), nullptr);
  const std::string before = RegExport();
  ASSERT_TRUE(files().WriteAll(kBackup, "former", 6));
  ASSERT_TRUE(SetFileAttributesW(L"C:\\My Documents\\TW_Settings.bak", FILE_ATTRIBUTE_READONLY));
  Command(IDM_IMPORT);
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(LastText(), EnglishText(kBackupNotWritten.text));
  EXPECT_EQ(RegExport(), before);
  EXPECT_EQ(Backup(), std::vector<std::uint8_t>({'f', 'o', 'r', 'm', 'e', 'r'}));

  // The documents folder replaced by a file: a scheme has nowhere to back up to.
  ASSERT_TRUE(MoveFileW(kDocuments, kDocumentsAside));
  ASSERT_TRUE(files().WriteAll(u"\\My Documents", "file", 4));
  PageSchemeHooks().apply(Window(), u"Any.scm");
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(LastText(), EnglishText(kBackupNoFolder.text));
  EXPECT_EQ(RegExport(), before);
}

}  // namespace
}  // namespace tw::test
