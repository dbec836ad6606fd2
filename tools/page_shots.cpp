// Starts the settings program, shows each page in turn through its page
// selector and saves what the device screen shows as page-NN.bmp, then
// cancels the program.
//   page_shots <program.exe> <output folder> [page count]
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "app/page_table.h"
#include "resources/resource_ids.h"
#include "tools/remote_program.h"
#include "tools/screen_capture.h"

namespace {

constexpr DWORD kStartTimeoutMs = 60000;
constexpr DWORD kIdleTimeoutMs = 10000;
// Wine copies a window's drawing to the X server a little after the paint
// returns; a capture taken at once can miss the last strokes.
constexpr DWORD kSettleMs = 250;

void ShowPage(HWND main, HWND selector, int page) {
  tw::tools::SelectPage(main, selector, page);
  RedrawWindow(main, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

// The device screen lies at the top left of the desktop: TIDEWELL_SCREEN
// pixels, or portrait 240 x 320 scaled by the dots per inch.
RECT DeviceScreen() {
  HDC screen = GetDC(nullptr);
  int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  int width = (240 * dpi + 48) / 96, height = (320 * dpi + 48) / 96;
  wchar_t text[32] = {};
  if (GetEnvironmentVariableW(L"TIDEWELL_SCREEN", text, 32) > 0) {
    int w = 0, h = 0;
    if (swscanf(text, L"%dx%d", &w, &h) == 2 && w > 0 && h > 0) width = w, height = h;
  }
  return {0, 0, width, height};
}

int Fail(const char* what) {
  std::fprintf(stderr, "page_shots: %s\n", what);
  return 1;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc < 3) return Fail("usage: page_shots <program.exe> <output folder> [page count]");
  std::wstring exe = argv[1];
  std::wstring folder = argv[2];
  int pages = argc > 3 ? _wtoi(argv[3]) : tw::kPageCount;

  std::wstring className, title;
  if (!tw::tools::ReadWindowNames(exe, className, title)) return Fail("cannot read the window class and title");
  CreateDirectoryW(folder.c_str(), nullptr);

  tw::tools::RemoteProgram program;
  if (!tw::tools::StartProgram(exe, L"", program)) return Fail("cannot start the program");
  if (!tw::tools::WaitForMainWindow(program, className.c_str(), title.c_str(), kStartTimeoutMs)) {
    tw::tools::CloseProgram(program, IDM_CANCEL, 1000);
    return Fail("the main window did not appear");
  }
  tw::tools::WaitIdle(program.main, kIdleTimeoutMs);
  // The first start greets the user from its first paint; the pages are what
  // we are after, so the greeting is acknowledged as a user would.
  for (int tries = 0; tries < 5 && tw::tools::DismissMessageBoxes(program.process.dwProcessId) > 0; ++tries) {
    Sleep(100);
    tw::tools::WaitIdle(program.main, kIdleTimeoutMs);
  }
  HWND selector = tw::tools::FindPageSelector(program.main, pages);
  if (!selector) {
    tw::tools::CloseProgram(program, IDM_CANCEL, 5000);
    return Fail("no page selector with the expected entries");
  }

  int saved = 0;
  for (int page = 0; page < pages; ++page) {
    ShowPage(program.main, selector, page);
    tw::tools::WaitIdle(program.main, kIdleTimeoutMs);
    Sleep(kSettleMs);
    RECT area = DeviceScreen();
    tw::tools::Capture capture;
    wchar_t name[32];
    std::swprintf(name, 32, L"\\page-%02d.bmp", page);
    if (tw::tools::CaptureScreen(area, capture) && tw::tools::WriteBmp(folder + name, capture)) {
      ++saved;
      std::printf("page %2d: %dx%d at %ld,%ld\n", page, capture.width, capture.height, area.left, area.top);
    } else {
      std::fprintf(stderr, "page_shots: page %d not captured\n", page);
    }
  }
  std::fflush(stdout);
  DWORD exitCode = tw::tools::CloseProgram(program, IDM_CANCEL, 10000);
  std::printf("program closed, exit code %lu\n", exitCode);
  return saved == pages ? 0 : 1;
}
