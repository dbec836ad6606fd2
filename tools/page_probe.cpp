// Measures the first open of one page against the first open of another,
// each in a fresh process of the settings program.
//   page_probe <runs> <program.exe> <page> <baseline page>
// One run: the program starts on its first page and goes idle; then the page
// is selected through the page selector, as a tap would, and the clock runs
// from the selection to the end of the paint that follows (the window has no
// invalid region left and its thread is back in its message loop); then the
// baseline page likewise. The program is then terminated.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "app/page_table.h"
#include "tools/remote_program.h"

namespace {

constexpr DWORD kTimeoutMs = 60000;

double Now() {
  static LARGE_INTEGER frequency = [] {
    LARGE_INTEGER value;
    QueryPerformanceFrequency(&value);
    return value;
  }();
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return static_cast<double>(counter.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

bool Painted(HWND window) {
  return !GetUpdateRect(window, nullptr, FALSE) && tw::tools::WaitIdle(window, kTimeoutMs) &&
         !GetUpdateRect(window, nullptr, FALSE);
}

bool WaitPainted(HWND window, double start) {
  while (!Painted(window)) {
    if (Now() - start > kTimeoutMs) return false;
    Sleep(0);
  }
  return true;
}

// Milliseconds from the selection to the end of its paint, or negative.
double OpenPage(HWND main, HWND selector, int page) {
  double start = Now();
  tw::tools::SelectPage(main, selector, page);
  return WaitPainted(main, start) ? Now() - start : -1;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "usage: page_probe <runs> <program.exe> <page> <baseline page>\n");
    return 2;
  }
  int runs = _wtoi(argv[1]);
  std::wstring exe = argv[2];
  int pages[2] = {_wtoi(argv[3]), _wtoi(argv[4])};
  std::wstring className, title;
  if (!tw::tools::ReadWindowNames(exe, className, title)) {
    std::fprintf(stderr, "page_probe: no window strings in %ls\n", exe.c_str());
    return 1;
  }
  std::vector<double> times[2];
  // The first run is not counted: it warms the file cache and Wine's services.
  for (int run = 0; run <= runs; ++run) {
    tw::tools::RemoteProgram program;
    if (!tw::tools::StartProgram(exe, L"", program) ||
        !tw::tools::WaitForMainWindow(program, className.c_str(), title.c_str(), kTimeoutMs) ||
        !WaitPainted(program.main, Now())) {
      tw::tools::KillProgram(program);
      std::fprintf(stderr, "page_probe: the program did not start\n");
      return 1;
    }
    HWND selector = tw::tools::FindPageSelector(program.main, tw::kPageCount);
    double opened[2] = {-1, -1};
    for (int i = 0; i < 2 && selector; ++i) opened[i] = OpenPage(program.main, selector, pages[i]);
    tw::tools::KillProgram(program);
    if (opened[0] < 0 || opened[1] < 0) {
      std::fprintf(stderr, "page_probe: a page did not paint\n");
      return 1;
    }
    if (run == 0) continue;
    std::printf("run %2d page %d %8.1f ms, page %d %8.1f ms\n", run, pages[0], opened[0], pages[1], opened[1]);
    std::fflush(stdout);
    for (int i = 0; i < 2; ++i) times[i].push_back(opened[i]);
    Sleep(200);
  }
  double page = tw::tools::Median(times[0]), baseline = tw::tools::Median(times[1]);
  std::printf("median page %d %.1f ms (%.1f to %.1f)\nmedian page %d %.1f ms (%.1f to %.1f)\nratio %.2f\n", pages[0],
              page, *std::min_element(times[0].begin(), times[0].end()),
              *std::max_element(times[0].begin(), times[0].end()), pages[1], baseline,
              *std::min_element(times[1].begin(), times[1].end()),
              *std::max_element(times[1].begin(), times[1].end()), page / baseline);
  return 0;
}
