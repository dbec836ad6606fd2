// Measures start-up to first paint of two programs, alternating them.
//   startup_probe <runs> <program.exe> <baseline.exe>
// One run: the clock starts before CreateProcessW; it stops when the
// program's main window (found by strings 3 and 1 of its resources) is
// visible, has no invalid region left (its first WM_PAINT has begun), its
// thread is back in its message loop (the paint has returned) and the window
// is still valid then. The same
// watch applies to both programs, so the ratio compares like with like. The
// program is then terminated, so every run is a cold start of the process.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "tools/remote_program.h"

namespace {

constexpr DWORD kTimeoutMs = 60000;

struct Subject {
  std::wstring exe;
  std::wstring className;
  std::wstring title;
  const char* label;
  std::vector<double> times;
};

double Now(LARGE_INTEGER frequency) {
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return static_cast<double>(counter.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

// Milliseconds to the end of the first paint, or a negative number on failure.
double MeasureOnce(const Subject& subject, LARGE_INTEGER frequency) {
  tw::tools::RemoteProgram program;
  double start = Now(frequency);
  if (!tw::tools::StartProgram(subject.exe, L"", program)) return -1;
  double elapsed = -1;
  while (Now(frequency) - start < kTimeoutMs) {
    HWND window = tw::tools::FindProgramWindow(program.process.dwProcessId, subject.className.c_str(),
                                               subject.title.c_str());
    // Checked again once the thread is idle: a window shown but not yet
    // invalidated would otherwise pass for one already painted.
    if (window && !GetUpdateRect(window, nullptr, FALSE) && tw::tools::WaitIdle(window, kTimeoutMs) &&
        !GetUpdateRect(window, nullptr, FALSE)) {
      elapsed = Now(frequency) - start;
      break;
    }
    if (WaitForSingleObject(program.process.hProcess, 0) == WAIT_OBJECT_0) break;
    Sleep(1);
  }
  tw::tools::KillProgram(program);
  return elapsed;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: startup_probe <runs> <program.exe> <baseline.exe>\n");
    return 2;
  }
  int runs = _wtoi(argv[1]);
  Subject subjects[2] = {{argv[2], L"", L"", "program", {}}, {argv[3], L"", L"", "blank", {}}};
  for (Subject& subject : subjects) {
    if (!tw::tools::ReadWindowNames(subject.exe, subject.className, subject.title)) {
      std::fprintf(stderr, "startup_probe: no window strings in %ls\n", subject.exe.c_str());
      return 1;
    }
  }
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);

  // One unmeasured start of each warms the file cache and Wine's services.
  for (Subject& subject : subjects) MeasureOnce(subject, frequency);
  for (int run = 0; run < runs; ++run) {
    for (Subject& subject : subjects) {
      double ms = MeasureOnce(subject, frequency);
      if (ms < 0) {
        std::fprintf(stderr, "startup_probe: %s did not paint its window\n", subject.label);
        return 1;
      }
      subject.times.push_back(ms);
      std::printf("run %2d %-8s %8.1f ms\n", run + 1, subject.label, ms);
      std::fflush(stdout);
      Sleep(200);
    }
  }
  double program = tw::tools::Median(subjects[0].times);
  double blank = tw::tools::Median(subjects[1].times);
  // The fastest runs show the cost without the noise of a busy machine.
  double programBest = *std::min_element(subjects[0].times.begin(), subjects[0].times.end());
  double blankBest = *std::min_element(subjects[1].times.begin(), subjects[1].times.end());
  std::printf("median program %.1f ms\nmedian blank %.1f ms\nratio %.2f\n", program, blank, program / blank);
  std::printf("fastest program %.1f ms, fastest blank %.1f ms, ratio %.2f\n", programBest, blankBest,
              programBest / blankBest);
  return 0;
}
