// The file and folder chooser on the prefix's file system, driven by taps:
// down into folders, up again, Done and Cancel, and paths too long to keep.
#include "controls/file_chooser.h"

#include <gtest/gtest.h>

#include <cstring>

#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"
#include "tests/ui/dialog_driver.h"

namespace tw::test {
namespace {

// Made in this order and removed in the reverse one, entry by entry.
const wchar_t* const kTree[] = {L"\\twdlg\\", L"\\twdlg\\Docs\\", L"\\twdlg\\Docs\\Notes\\",
                                L"\\twdlg\\Docs\\Notes\\a.txt", L"\\twdlg\\Docs\\b.txt", L"\\twdlg\\zeta.txt",
                                L"\\twdlg\\apps\\"};
constexpr wchar_t kOtherScript[] = L"\\twdlg\\\u041f\u0440\u0438\u0432\u0435\u0442";

bool IsFolder(const wchar_t* path) { return path[wcslen(path) - 1] == L'\\'; }

class FileChooserTest : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    for (const wchar_t* path : kTree)
      if (IsFolder(path)) CreateDirectoryW(path, nullptr);
      else CloseHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }
  void TearDown() override {
    RemoveDirectoryW(kOtherScript);
    for (auto path = std::rbegin(kTree); path != std::rend(kTree); ++path)
      IsFolder(*path) ? RemoveDirectoryW(*path) : DeleteFileW(*path);
    DialogTest::TearDown();
  }
  int Choose(BrowseFor target, wchar_t* path, std::size_t capacity = kChooserPathCapacity) {
    return Run([&] { return ChoosePath(owner_, resources_, language_, files_, locale_, target, path, capacity); });
  }
  Win32FileSystem files_;
  Win32Locale locale_;
};

std::vector<std::wstring> Rows(HWND dialog) {
  std::vector<std::wstring> rows;
  HWND list = GetDlgItem(dialog, IDC_CHOOSER_LIST);
  for (LRESULT i = 0, n = SendMessageW(list, LB_GETCOUNT, 0, 0); i < n; ++i) {
    wchar_t text[300] = {};
    SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
    rows.push_back(text);
  }
  return rows;
}

TEST_F(FileChooserTest, BothModesGoDownAndUpAndChoose) {
  wchar_t path[kChooserPathCapacity] = L"\\twdlg";
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    EXPECT_EQ(Rows(dialog), (std::vector<std::wstring>{L"apps\\", L"Docs\\", L"zeta.txt"}));
    EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), L"\\twdlg");
    TapChooserRow(dialog, L"Docs\\");
    EXPECT_EQ(Rows(dialog), (std::vector<std::wstring>{L"Notes\\", L"b.txt"}));
    for (const wchar_t* shown : {L"\\twdlg\\Docs", L"\\twdlg", L"\\"}) {
      EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), shown);
      TapControl(dialog, IDC_CHOOSER_UP);
    }
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_CHOOSER_UP))) << "nothing above the root";
    TapChooserRow(dialog, L"twdlg\\");
    TapChooserRow(dialog, L"Docs\\");
    TapMenuBar(dialog, IDOK);  // no file chosen yet: told so, and the chooser stays
    EXPECT_TRUE(IsWindowVisible(dialog));
    TapChooserRow(dialog, L"b.txt");
    EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), L"\\twdlg\\Docs\\b.txt");
    TapMenuBar(dialog, IDOK);
  });
  EXPECT_EQ(Choose(BrowseFor::File, path), 1);
  EXPECT_STREQ(path, L"\\twdlg\\Docs\\b.txt");
  ASSERT_EQ(answerer_.boxes.size(), 1u);
  EXPECT_EQ(answerer_.boxes[0].text, EnglishText(kTextNoFileChosen));

  // Folder mode lists folders only and chooses the one shown.
  wcscpy(path, L"\\TWDLG\\docs\\b.txt");
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), L"\\twdlg\\Docs") << "starts in the folder of the path given";
    EXPECT_EQ(Rows(dialog), (std::vector<std::wstring>{L"Notes\\"}));
    TapChooserRow(dialog, L"Notes\\");
    TapMenuBar(dialog, IDOK);
  });
  EXPECT_EQ(Choose(BrowseFor::Folder, path), 1);
  EXPECT_STREQ(path, L"\\twdlg\\Docs\\Notes");

  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    TapControl(dialog, IDC_CHOOSER_UP);
    TapMenuBar(dialog, IDM_CANCEL);
  });
  EXPECT_EQ(Choose(BrowseFor::Folder, path), 0);
  EXPECT_STREQ(path, L"\\twdlg\\Docs\\Notes") << "cancel leaves the buffer alone";
}

TEST_F(FileChooserTest, FolderNamedInAnotherScript) {
  if (!CreateDirectoryW(kOtherScript, nullptr)) GTEST_SKIP() << "Wine creates no such name without a UTF-8 locale";
  wchar_t path[kChooserPathCapacity] = L"\\twdlg";
  std::wstring name = std::wstring(kOtherScript).substr(7);
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    EXPECT_EQ(Rows(dialog).back(), name + L"\\") << "sorted after the Latin names here";
    TapChooserRow(dialog, name + L"\\");
    EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), kOtherScript);
    TapMenuBar(dialog, IDOK);
  });
  EXPECT_EQ(Choose(BrowseFor::Folder, path), 1);
  EXPECT_STREQ(path, kOtherScript);
}

// With room for "\twdlg\Docs" and its terminator only, nothing longer is
// opened or chosen, and the user is told; the buffer is never cut into.
TEST_F(FileChooserTest, PathTooLongForTheBufferIsRefused) {
  const std::size_t room = std::wcslen(L"\\twdlg\\Docs") + 1;
  wchar_t path[kChooserPathCapacity] = L"\\twdlg\\Docs";
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    TapChooserRow(dialog, L"Notes\\");
    EXPECT_EQ(ItemText(dialog, IDC_CHOOSER_PATH), L"\\twdlg\\Docs") << "the folder shown stays";
    TapChooserRow(dialog, L"b.txt");
    TapMenuBar(dialog, IDOK);
    EXPECT_TRUE(IsWindowVisible(dialog)) << "a file path too long is not chosen";
    TapMenuBar(dialog, IDM_CANCEL);
  });
  EXPECT_EQ(Choose(BrowseFor::File, path, room), 0);
  EXPECT_STREQ(path, L"\\twdlg\\Docs");
  ASSERT_EQ(answerer_.boxes.size(), 2u);
  for (const auto& box : answerer_.boxes) {
    EXPECT_EQ(box.text, EnglishText(kTextPathTooLong));
    EXPECT_EQ(box.caption, EnglishText(kTextPathTooLongCaption));
  }
}

TEST_F(FileChooserTest, FitsEveryScreen) {
  wchar_t path[kChooserPathCapacity] = L"\\twdlg\\Docs";
  OnEveryScreen(IDC_CHOOSER_LIST, L"file_chooser", [&] { Choose(BrowseFor::File, path); });
}

}  // namespace
}  // namespace tw::test
