#include "tests/ui/recording_parent.h"

#include <winternl.h>

#include <cstdint>
#include <cstdio>

#include "controls/scroller.h"
#include "tests/ui/app_harness.h"

namespace tw::test {

std::ostream& operator<<(std::ostream& out, const Logged& entry) {
  return out << "{" << entry.message << ", " << entry.id << ", 0x" << std::hex << entry.code << std::dec << "}";
}

RecordingParent::RecordingParent(int width, int height, int x, int y) {
  WNDCLASSW type = {};
  type.lpfnWndProc = Procedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
  type.lpszClassName = L"TwRecordingParent";
  RegisterClassW(&type);
  window_ = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, x, y, width,
                            height, nullptr, nullptr, type.hInstance, this);
}

LRESULT CALLBACK RecordingParent::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE)
    SetWindowLongPtrW(window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
  auto self = reinterpret_cast<RecordingParent*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  switch (message) {
    case kScrollerDrawContent:
      return self->DrawRows(reinterpret_cast<HDC>(wParam), lParam);
    case WM_COMMAND:
    case kScrollerPressed:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
      self->log.push_back({message, wParam, lParam});
      return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

// Numbered rows in two colours, white below the content.
LRESULT RecordingParent::DrawRows(HDC dc, LPARAM where) {
  constexpr int kRow = 20;
  int position = LOWORD(where);
  drawnFrom.push_back(position);
  RECT clip, client;
  GetClipBox(dc, &clip);
  drawnClips.push_back(clip);
  GetClientRect(window_, &client);
  SetBkMode(dc, TRANSPARENT);
  for (int y = -(position % kRow); y < client.bottom; y += kRow) {
    int row = (position + y) / kRow;
    bool content = row * kRow < contentHeight;
    RECT area = {0, y, client.right, y + kRow};
    HBRUSH brush = CreateSolidBrush(!content ? RGB(255, 255, 255) : row % 2 ? RGB(220, 230, 245) : RGB(250, 250, 250));
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    std::wstring text = L"Row " + std::to_wstring(row);
    if (content) TextOutW(dc, 4, y + 3, text.c_str(), static_cast<int>(text.size()));
  }
  return contentHeight;
}

void Settle(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  // Wine hands the window's pixels to the X server shortly after the paint.
  for (int i = 0; i < 10; ++i) {
    Pump();
    Sleep(10);
  }
}

tools::Capture Shot(HWND window, RECT area) {
  Settle(window);
  if (IsRectEmpty(&area)) GetWindowRect(window, &area);
  tools::Capture capture;
  if (!tools::CaptureScreen(area, capture)) return {};
  return capture;
}

std::wstring SaveScreenshot(const std::wstring& name, HWND window, RECT area) {
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring folder = program;
  folder = folder.substr(0, folder.find_last_of(L'\\')) + L"\\screenshots";
  CreateDirectoryW(folder.c_str(), nullptr);
  std::wstring path = folder + L"\\" + name + L".bmp";
  tools::Capture capture = Shot(window, area);
  if (capture.width == 0 || !tools::WriteBmp(path, capture)) return L"";
  printf("screenshot %ls\n", path.c_str());
  return path;
}

int CountGdiObjects() {
  if (DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return static_cast<int>(counted);
  // The 64-bit process block keeps the table's address at 0xF8; an entry is
  // 24 bytes, its type byte (0 when free) at offset 14; 65536 entries.
  constexpr size_t kTableOffset = 0xF8, kEntrySize = 24, kTypeOffset = 14, kEntries = 0x10000;
  auto block = reinterpret_cast<const std::uint8_t*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  auto table = *reinterpret_cast<const std::uint8_t* const*>(block + kTableOffset);
  if (table == nullptr) return 0;
  int live = 0;
  for (size_t i = 0; i < kEntries; ++i) live += table[i * kEntrySize + kTypeOffset] != 0;
  return live;
}

COLORREF PixelAt(const tools::Capture& capture, int x, int y) {
  if (x < 0 || y < 0 || x >= capture.width || y >= capture.height) return CLR_INVALID;
  const std::uint8_t* p = &capture.rows[(capture.height - 1 - y) * tools::CaptureStride(capture.width) + x * 3];
  return RGB(p[2], p[1], p[0]);
}

}  // namespace tw::test
