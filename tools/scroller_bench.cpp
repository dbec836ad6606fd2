// How much a scroller's paint costs over the least any paint of its window
// costs: a plain BitBlt of the client area from memory, timed in the same
// run. The content is 10,000 rows of 20 pixels, each filled and numbered by
// the parent, which draws only the rows meeting the clip box; the parent's
// drawing of a whole client area plus the blit is timed too, as the floor of
// any full paint of this content. Prints each round's times and ratios, then
// the median and the spread of the ratios. Goal: a scroll step at most 2x the blit.
// Blits and steps take turns in chunks of a few paints, each chunk timed on
// its own, and a round takes each one's median chunk: on a loaded machine a
// chunk in which another process had the processor counts for no more than
// any other.
// With "categories", the content is instead the category list of 10,000
// categories as the main window's categories view paints it.
//   wine64 scroller_bench.exe [rounds, default 7] [paints per round, default 400] [rows|categories]
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "controls/scroller.h"
#include "pages/category_list_view.h"

namespace {

constexpr int kWidth = 240, kHeight = 268;  // the device's page area
constexpr int kRows = 10000, kRowHeight = 20;
constexpr int kStep = 10;  // one tick of an arrow's repeat
constexpr int kChunk = 20;

HWND gScroller = nullptr;
HBRUSH gRowBrushes[2];
tw::CategoryRowPainter* gCategories = nullptr;  // drawn instead of the plain rows when set

// Only the rows within the clip box, as a list parent draws them: the
// parent knows its rows' height.
LRESULT DrawRows(HDC dc) {
  if (gCategories != nullptr) return gCategories->Paint(dc);
  int position = tw::ScrollerPosition(gScroller);
  RECT clip;
  if (GetClipBox(dc, &clip) == ERROR) clip = {0, 0, kWidth, kHeight};
  SetBkMode(dc, TRANSPARENT);
  int first = (position + clip.top) / kRowHeight * kRowHeight - position;
  for (int y = first; y < clip.bottom; y += kRowHeight) {
    int row = (position + y) / kRowHeight;
    RECT area = {0, y, kWidth, y + kRowHeight};
    FillRect(dc, &area, gRowBrushes[row % 2]);
    wchar_t text[16];
    int length = swprintf(text, 16, L"Row %d", row);
    TextOutW(dc, 4, y + 3, text, length);
  }
  return kRows * kRowHeight;
}

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == tw::kScrollerDrawContent) return DrawRows(reinterpret_cast<HDC>(wParam));
  return DefWindowProcW(window, message, wParam, lParam);
}

double Now() {
  static LARGE_INTEGER frequency = [] {
    LARGE_INTEGER f;
    QueryPerformanceFrequency(&f);
    return f;
  }();
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Microseconds per call.
template <typename Paint>
double Time(int paints, Paint paint) {
  GdiFlush();
  double start = Now();
  for (int i = 0; i < paints; ++i) paint(i);
  GdiFlush();
  return (Now() - start) * 1e6 / paints;
}

void Repaint() {
  InvalidateRect(gScroller, nullptr, FALSE);
  UpdateWindow(gScroller);
}

struct Round {
  double blit, rows, full, step;
};

void Blit(HDC source) {
  HDC dc = GetDC(gScroller);
  BitBlt(dc, 0, 0, kWidth, kHeight, source, 0, 0, SRCCOPY);
  ReleaseDC(gScroller, dc);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

Round Measure(int paints, HDC source) {
  Round round;
  tw::SetScrollerPosition(gScroller, 50000);
  // The parent's own drawing and the blit: what any paint of this content costs.
  round.rows = Time(paints, [source](int) {
    DrawRows(source);
    Blit(source);
  });
  round.full = Time(paints, [](int) { Repaint(); });
  std::vector<double> blits, steps;
  for (int done = 0; done < paints; done += kChunk) {
    blits.push_back(Time(kChunk, [source](int) { Blit(source); }));
    steps.push_back(Time(kChunk, [done](int i) { tw::SetScrollerPosition(gScroller, 50000 + (done + i) * kStep); }));
  }
  round.blit = Median(blits);
  round.step = Median(steps);
  return round;
}

void Summarise(const char* name, const std::vector<double>& ratios) {
  auto [low, high] = std::minmax_element(ratios.begin(), ratios.end());
  std::printf("%-12s median %.2fx  min %.2fx  max %.2fx\n", name, Median(ratios), *low, *high);
}

}  // namespace

int main(int argc, char** argv) {
  int rounds = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 7;
  int paints = argc > 2 ? std::max(std::atoi(argv[2]), 1) : 400;
  tw::CategoryList categories;
  bool categoryRows = argc > 3 && std::string(argv[3]) == "categories";
  for (int i = 0; categoryRows && i < kRows; ++i) {
    tw::CategoryEntry& entry = categories.entries.emplace_back();
    entry.name.Format(u"Category %d", i);
    if (i % 3 == 0) entry.color = RGB(i % 256, 80, 160);
  }
  HFONT font = CreateFontW(-12, 0, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, DEFAULT_QUALITY, 0, L"Tahoma");
  HINSTANCE instance = GetModuleHandleW(nullptr);
  gRowBrushes[0] = CreateSolidBrush(RGB(250, 250, 250));
  gRowBrushes[1] = CreateSolidBrush(RGB(220, 230, 245));
  WNDCLASSW type = {};
  type.lpfnWndProc = ParentProc;
  type.hInstance = instance;
  type.lpszClassName = L"TwScrollerBench";
  RegisterClassW(&type);
  HWND parent = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, kWidth, kHeight, nullptr,
                                nullptr, instance, nullptr);
  HMODULE pictures = LoadLibraryW(TW_PICTURES);
  tw::ScrollerOptions options;
  options.pictures = pictures;
  gScroller = tw::CreateScroller(instance, parent, {0, 0, kWidth, kHeight}, L"CategoriesView", options);
  tw::CategoryRowPainter painter(gScroller, categories, font);
  if (categoryRows) gCategories = &painter;
  if (!gScroller || !pictures) {
    std::fprintf(stderr, "no scroller or no picture library\n");
    return 1;
  }
  // The blit's source: what the scroller shows, copied once.
  HDC screen = GetDC(gScroller);
  HDC source = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
  HGDIOBJ old = SelectObject(source, bitmap);
  BitBlt(source, 0, 0, kWidth, kHeight, screen, 0, 0, SRCCOPY);
  ReleaseDC(gScroller, screen);

  Measure(paints / 4, source);  // warm-up
  std::vector<double> rowRatios, fullRatios, stepRatios;
  std::printf("round   blit us  rows+blit us   full us   step us   rows+blit/blit  full/blit  step/blit\n");
  for (int r = 0; r < rounds; ++r) {
    Round round = Measure(paints, source);
    rowRatios.push_back(round.rows / round.blit);
    fullRatios.push_back(round.full / round.blit);
    stepRatios.push_back(round.step / round.blit);
    std::printf("%5d  %8.1f  %12.1f  %8.1f  %8.1f  %14.2fx  %8.2fx  %8.2fx\n", r + 1, round.blit, round.rows,
                round.full, round.step, rowRatios.back(), fullRatios.back(), stepRatios.back());
  }
  Summarise("rows+blit", rowRatios);
  Summarise("full repaint", fullRatios);
  Summarise("scroll step", stepRatios);

  SelectObject(source, old);
  DeleteObject(bitmap);
  DeleteDC(source);
  DestroyWindow(parent);
  FreeLibrary(pictures);
  for (HBRUSH brush : gRowBrushes) DeleteObject(brush);
  DeleteObject(font);
  return 0;
}
