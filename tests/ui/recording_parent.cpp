#include "tests/ui/recording_parent.h"

#include <winternl.h>

#include <cstdint>
#include <string>

#include "controls/scroller.h"
#include "tests/ui/app_harness.h"

namespace tw::test {

constexpr wchar_t kClassName[] = L"TwRecordingParent";
constexpr int kRowHeight = 20;

std::ostream& operator<<(std::ostream& out, const Logged& entry) {
  return out << "{message " << entry.message << ", id " << entry.id << ", code 0x" << std::hex << entry.code
             << std::dec << "}";
}

RecordingParent::RecordingParent(int width, int height, int x, int y) {
  WNDCLASSW type = {};
  type.lpfnWndProc = Procedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
  type.lpszClassName = kClassName;
  RegisterClassW(&type);
  window_ = CreateWindowExW(0, kClassName, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, x, y, width, height,
                            nullptr, nullptr, type.hInstance, this);
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

// Rows alternate between two colours and carry their number.
LRESULT RecordingParent::DrawRows(HDC dc, LPARAM where) {
  int position = LOWORD(where);
  drawnFrom.push_back(position);
  RECT clip;
  GetClipBox(dc, &clip);
  drawnClips.push_back(clip);
  RECT client;
  GetClientRect(window_, &client);
  SetBkMode(dc, TRANSPARENT);
  for (int y = -(position % kRowHeight); y < client.bottom; y += kRowHeight) {
    int row = (position + y) / kRowHeight;
    RECT area = {0, y, client.right, y + kRowHeight};
    HBRUSH brush = CreateSolidBrush(row * kRowHeight >= contentHeight ? RGB(255, 255, 255)
                                    : row % 2                        ? RGB(220, 230, 245)
                                                                     : RGB(250, 250, 250));
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    if (row * kRowHeight >= contentHeight) continue;
    std::wstring text = L"Row " + std::to_wstring(row);
    TextOutW(dc, 4, y + 3, text.c_str(), static_cast<int>(text.size()));
  }
  return contentHeight;
}

void RecordingParent::Settle() const {
  UpdateWindow(window_);
  RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  // Wine hands the window's pixels to the X server shortly after the paint.
  for (int i = 0; i < 10; ++i) {
    Pump();
    Sleep(10);
  }
}

tools::Capture RecordingParent::Shot(HWND other) const {
  RECT area;
  GetWindowRect(other ? other : window_, &area);
  tools::Capture capture;
  tools::CaptureScreen(area, capture);
  return capture;
}

std::wstring RecordingParent::Save(const std::wstring& name, HWND other) const {
  Settle();
  std::wstring folder = TW_LIBRARY_FOLDER L"\\..\\screenshots";
  CreateDirectoryW(folder.c_str(), nullptr);
  folder += L"\\controls";
  CreateDirectoryW(folder.c_str(), nullptr);
  std::wstring path = folder + L"\\" + name + L".bmp";
  tools::WriteBmp(path, Shot(other));
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
