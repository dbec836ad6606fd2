// The program itself, started as separate processes under the same prefix:
// a single instance, the "About" command line, the start-up trace, and the
// window at each screen geometry with the dots per inch Wine really reports.
#include <windows.h>

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/shell.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"
#include "tools/remote_program.h"

#ifndef TW_PROGRAM
#error "the build names the program"
#endif

namespace tw::test {
namespace {

// The program as a process of its own, ended with the test.
struct Program {
  PROCESS_INFORMATION process = {};
  explicit Program(const std::wstring& arguments) {
    std::wstring line = L"\"" TW_PROGRAM L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, L"C:\\", &startup, &process);
  }
  bool Ended(DWORD milliseconds) { return WaitForSingleObject(process.hProcess, milliseconds) == WAIT_OBJECT_0; }
  ~Program() {
    if (process.hProcess == nullptr) return;
    TerminateProcess(process.hProcess, 1);
    Ended(5000);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
};

HWND WaitForMainWindow() {
  HWND window = nullptr;
  WaitFor([&] {
    window = FindWindowW(L"TidewellSettingsWindow", L"Tidewell Settings");
    return window != nullptr && IsWindowVisible(window);
  }, 20000);  // a process start under a busy Wine can take seconds
  return window;
}

int SelectedPage(HWND window) {
  return static_cast<int>(SendMessageW(FindWindowExW(window, nullptr, L"ComboBox", nullptr), CB_GETCURSEL, 0, 0));
}

using ProgramTest = AppTest;

TEST_F(ProgramTest, SecondInstanceBringsTheFirstForward) {
  Program first(L"");
  HWND window = WaitForMainWindow();
  ASSERT_NE(window, nullptr);
  HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 600, 600, 20, 20, nullptr, nullptr,
                               nullptr, nullptr);
  SetForegroundWindow(other);
  WaitFor([&] { return GetForegroundWindow() == other; });

  Program second(L"About");
  ASSERT_NE(second.process.hProcess, nullptr);
  EXPECT_TRUE(second.Ended(20000)) << "the second instance ends without a window";
  DWORD code = STILL_ACTIVE;
  GetExitCodeProcess(second.process.hProcess, &code);
  EXPECT_EQ(code, 0u);
  EXPECT_TRUE(WaitFor([&] { return GetForegroundWindow() == window; })) << "the first comes to the front";
  EXPECT_EQ(SelectedPage(window), kFirstPage) << "and keeps its page";
  DestroyWindow(other);
}

std::set<std::wstring> FilesIn(const std::wstring& folder) {
  std::set<std::wstring> names;
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do names.insert(found.cFileName);
  while (FindNextFileW(search, &found));
  FindClose(search);
  return names;
}

std::string FileText(const std::wstring& path) {
  std::string text;
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, 0, nullptr);
  char buffer[4096];
  DWORD read = 0;
  while (file != INVALID_HANDLE_VALUE && ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read > 0)
    text.append(buffer, read);
  CloseHandle(file);
  return text;
}

// The start-up breakdown names every step in the order the program takes
// them, each ending no earlier than the one before.
void ExpectEveryStep(const std::string& text) {
  const std::vector<std::string> expected = {
      "WinMain", "window class", "window creation", "settings", "skin", "picture library", "language library", "menu bar",
      "preview images and fonts", "category list and filter file", "page selector", "category views",
      "title strip", "start page", "first paint"};
  std::vector<std::string> names;
  double previousEnd = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string name, rest;
    double end = -1, own = -1;
    std::getline(fields, name, '\t');
    fields >> end >> own;
    std::getline(fields, rest);
    names.push_back(name);
    EXPECT_GE(own, 0) << line;
    EXPECT_GE(end, previousEnd) << line;
    previousEnd = end;
    if (name == "settings") EXPECT_NE(rest.find("registry"), std::string::npos) << "calls counted: " << line;
    if (name == "start page") EXPECT_NE(rest.find("child windows"), std::string::npos) << line;
  }
  EXPECT_EQ(names, expected);
}

class GeometryTest : public AppTest {
 protected:
  void TearDown() override {
    // Later processes start at the desktop's own density.
    ScopedKey desktop(registry(), kCurrentUser, u"Control Panel\\Desktop", true);
    if (old_.present) WriteDword(registry(), kCurrentUser, u"Control Panel\\Desktop", u"LogPixels", old_.dword);
    else registry().DeleteValue(desktop.get(), u"LogPixels");
    SetEnvironmentVariableW(L"TIDEWELL_TRACE", nullptr);
    AppTest::TearDown();
  }
  StoredValue old_ = ReadValue(registry(), kCurrentUser, u"Control Panel\\Desktop", u"LogPixels");
};

// Started with "about" (any case selects the About page) on each screen, at
// the density Wine reports to a new process. The first start is traced; the
// others, without the switch, write nothing where a trace could land.
TEST_F(GeometryTest, AboutPageFitsEachScreenAndTheFirstIsTraced) {
  wchar_t folder[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, folder);
  const std::wstring temp = std::wstring(folder).substr(0, wcslen(folder) - 1), trace = temp + L"\\tw-startup-trace.txt";
  DeleteFileW(trace.c_str());
  std::set<std::wstring> tempBefore = FilesIn(temp), rootBefore = FilesIn(L"C:");
  const struct {
    const wchar_t* screen;
    DWORD dpi;
    LONG width, height, strip;
  } screens[] = {{L"240x320", 96, 240, 320, 26}, {L"320x240", 96, 320, 240, 26}, {L"480x640", 192, 480, 640, 52}};
  for (const auto& screen : screens) {
    SCOPED_TRACE(screen.width);
    bool traced = screen.width == 240;
    SetEnvironmentVariableW(L"TIDEWELL_TRACE", traced ? trace.c_str() : L"");
    WriteDword(registry(), kCurrentUser, u"Control Panel\\Desktop", u"LogPixels", screen.dpi);
    SetEnvironmentVariableW(L"TIDEWELL_SCREEN", screen.screen);
    Program program(L"aBoUt");
    HWND window = WaitForMainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(SelectedPage(window), kAboutPage);
    RECT area;
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    EXPECT_EQ((std::vector<LONG>{area.left, area.top, area.right, area.bottom}),
              (std::vector<LONG>{0, screen.strip, screen.width, screen.height - screen.strip}))
        << "between the title strip and the menu bar";
    for (const std::string& fault : CheckLayout(window)) ADD_FAILURE() << fault;
    if (traced) {
      std::string text;
      WaitFor([&] { return (text = FileText(trace)).find("first paint") != std::string::npos; }, 20000);
      DeleteFileW(trace.c_str());
      ExpectEveryStep(text);
    } else {
      EXPECT_TRUE(tools::WaitIdle(window, 10000));
    }
  }
  EXPECT_EQ(FilesIn(temp), tempBefore) << "no trace without the switch";
  EXPECT_EQ(FilesIn(L"C:"), rootBefore);
}

}  // namespace
}  // namespace tw::test
