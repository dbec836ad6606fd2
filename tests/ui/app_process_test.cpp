// The program itself, started as separate processes under the same prefix:
// a single instance, the "About" command line, and the window at each screen
// geometry with the dots per inch Wine really reports.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "app/shell.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"

#ifndef TW_PROGRAM
#error "the build names the program"
#endif

namespace tw::test {
namespace {

constexpr wchar_t kClass[] = L"TidewellSettingsWindow";
constexpr wchar_t kTitle[] = L"Tidewell Settings";

struct Program {
  PROCESS_INFORMATION process = {};
  bool started = false;

  bool Start(const std::wstring& arguments) {
    std::wstring line = std::wstring(L"\"") + TW_PROGRAM + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, L"C:\\", &startup, &process);
    return started;
  }
  bool Ended(DWORD milliseconds) { return WaitForSingleObject(process.hProcess, milliseconds) == WAIT_OBJECT_0; }
  DWORD ExitCode() {
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process.hProcess, &code);
    return code;
  }
  ~Program() {
    if (!started) return;
    if (!Ended(0)) {
      EnumThreadWindows(process.dwThreadId, [](HWND window, LPARAM) {
        PostMessageW(window, WM_CLOSE, 0, 0);
        return TRUE;
      }, 0);
      if (!Ended(5000)) TerminateProcess(process.hProcess, 1);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
};

HWND WaitForMainWindow() {
  HWND window = nullptr;
  WaitFor([&] {
    window = FindWindowW(kClass, kTitle);
    return window != nullptr && IsWindowVisible(window);
  }, 20000);  // a process start under a busy Wine can take seconds
  return window;
}

// The desktop's dots per inch for the next process started.
class ScreenDpi {
 public:
  explicit ScreenDpi(DWORD dpi) {
    RegCreateKeyExW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    DWORD size = sizeof old_;
    had_ = RegQueryValueExW(key_, L"LogPixels", nullptr, nullptr, reinterpret_cast<BYTE*>(&old_), &size) ==
           ERROR_SUCCESS;
    RegSetValueExW(key_, L"LogPixels", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dpi), sizeof dpi);
  }
  ~ScreenDpi() {
    if (had_) RegSetValueExW(key_, L"LogPixels", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&old_), sizeof old_);
    else RegDeleteValueW(key_, L"LogPixels");
    RegCloseKey(key_);
  }

 private:
  HKEY key_ = nullptr;
  DWORD old_ = 0;
  bool had_ = false;
};

// The device screen as the desktop shows it, saved as a 24-bit .bmp.
void SaveScreen(const std::wstring& path, int width, int height) {
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
  GdiFlush();
  DWORD row = (width * 3 + 3) & ~3u, size = row * height;
  BITMAPFILEHEADER header = {0x4D42, static_cast<DWORD>(sizeof header + sizeof info.bmiHeader + size), 0, 0,
                             static_cast<DWORD>(sizeof header + sizeof info.bmiHeader)};
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, &header, sizeof header, &written, nullptr);
  WriteFile(file, &info.bmiHeader, sizeof info.bmiHeader, &written, nullptr);
  WriteFile(file, bits, size, &written, nullptr);
  CloseHandle(file);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

class ProgramTest : public AppTest {};

TEST_F(ProgramTest, SecondInstanceBringsTheFirstForward) {
  Program first;
  ASSERT_TRUE(first.Start(L""));
  HWND window = WaitForMainWindow();
  ASSERT_NE(window, nullptr);
  HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 600, 600, 20, 20, nullptr, nullptr,
                               nullptr, nullptr);
  SetForegroundWindow(other);
  WaitFor([&] { return GetForegroundWindow() == other; });

  Program second;
  ASSERT_TRUE(second.Start(L"About"));
  EXPECT_TRUE(second.Ended(20000)) << "the second instance ends without a window";
  EXPECT_EQ(second.ExitCode(), 0u);
  EXPECT_TRUE(WaitFor([&] { return GetForegroundWindow() == window; })) << "the first comes to the front";
  EXPECT_EQ(SendMessageW(FindWindowExW(window, nullptr, L"ComboBox", nullptr), CB_GETCURSEL, 0, 0), 0)
      << "and keeps its page";
  DestroyWindow(other);
}

struct Geometry {
  const wchar_t* screen;
  DWORD dpi;
  int width, height, strip;
  const char* name;
};

class GeometryTest : public AppTest, public ::testing::WithParamInterface<Geometry> {};

// Started with "about" (any case selects the About page) on each screen.
TEST_P(GeometryTest, AboutPageFitsTheScreen) {
  const Geometry& geometry = GetParam();
  ScreenDpi dpi(geometry.dpi);
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", geometry.screen);
  Program program;
  ASSERT_TRUE(program.Start(L"aBoUt"));
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", nullptr);
  HWND window = WaitForMainWindow();
  ASSERT_NE(window, nullptr);
  HWND selector = FindWindowExW(window, nullptr, L"ComboBox", nullptr);
  EXPECT_EQ(SendMessageW(selector, CB_GETCURSEL, 0, 0), 12);

  RECT area;
  GetWindowRect(window, &area);
  EXPECT_EQ(area.left, 0);
  EXPECT_EQ(area.top, geometry.strip);
  EXPECT_EQ(area.right, geometry.width);
  EXPECT_EQ(area.bottom, geometry.height - geometry.strip) << "the window ends at the menu bar";
  for (const std::string& fault : CheckLayout(window)) ADD_FAILURE() << fault;

  wchar_t folder[MAX_PATH] = {};
  if (GetEnvironmentVariableW(L"TW_SCREENSHOTS", folder, MAX_PATH) > 0) {
    for (int i = 0; i < 30; ++i) {  // let the program finish painting
      Pump();
      Sleep(10);
    }
    std::string name = geometry.name;
    SaveScreen(std::wstring(folder) + L"\\about_" + std::wstring(name.begin(), name.end()) + L".bmp",
               geometry.width, geometry.height);
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, GeometryTest,
                         ::testing::Values(Geometry{L"240x320", 96, 240, 320, 26, "240x320"},
                                           Geometry{L"320x240", 96, 320, 240, 26, "320x240"},
                                           Geometry{L"480x640", 192, 480, 640, 52, "480x640"}),
                         [](const auto& info) { return std::string(info.param.name).replace(3, 1, "_"); });

}  // namespace
}  // namespace tw::test
