// The main window's procedure: a short switch that hands each message to
// its handler. WM_COMMAND is in commands.cpp, the slots in page_slots.cpp.
#include <windows.h>
#include <commctrl.h>

#include "app/main_window.h"
#include "app/shell.h"
#include "base/scaling.h"
#include "data/categories.h"
#include "data/skin.h"
#include "pages/common_controls.h"
#include "platform/win32/device.h"
#include "platform/win32/startup_trace.h"
#include "data/win32/skin_image.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

constexpr COLORREF kHeaderColour = 0xEFC6A4;
constexpr COLORREF kHeaderIconTransparent = 0x0000FF;
constexpr COLORREF kMenuButtonMask = 0xC6CFDE;
// Menu bar images: 0 Cancel, 1 Done.
constexpr TBBUTTON kMenuButtons[] = {
    {0, IDM_CANCEL, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, -1},
    {1, IDOK, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, -1},
};

bool LowDensity() { return ScaleX(1) < 2; }

HMODULE LoadProductLibrary(const wchar_t* file) {
  std::wstring path = ToWide(Settings().ProgramFilesFolder.View()) + L"\\Orvex\\Tidewell\\" + file;
  return LoadLibraryW(path.c_str());
}

void LoadLanguageLibrary() {
  Shell().language = LoadLibraryW(ToWide(Settings().SelectedLangResFile.View()).c_str());
  if (Shell().language == nullptr) Shell().language = LoadProductLibrary(L"LangRes\\CPEngRc.dll");
}

void CreateMenuBar(HWND window) {
  HWND bar = device::CreateMenuBar(window, Shell().language, IDM_MENU_BAR);
  Shell().menuBar = bar;
  if (bar == nullptr) return;
  device::SetMenuBarImages(bar, Shell().instance, LowDensity() ? IDB_MENU_BUTTONS_16 : IDB_MENU_BUTTONS_32,
                           kMenuButtonMask);
  SendMessageW(bar, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(kMenuButtons));
}

HFONT CreatePageFont(int weight) {
  return CreateFontW(ScaleX(12), 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, DEFAULT_QUALITY, 0, L"Tahoma");
}

void CreatePageSelector(HWND window) {
  RECT client;
  GetClientRect(window, &client);
  HWND selector = CreateWindowExW(0, WC_COMBOBOXW, L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST,
                                  ScaleX(40), ScaleX(4), client.right - ScaleX(50), ScaleX(180), window, nullptr,
                                  Shell().instance, nullptr);
  Shell().selector = selector;
  SendMessageW(selector, WM_SETFONT, reinterpret_cast<WPARAM>(Shell().boldFont), FALSE);
  for (int page = 0; page < kPageCount; ++page) {
    WideString name = LanguageText(kPages[page].nameText);
    LRESULT item = SendMessageW(selector, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(AsWide(name.Text())));
    SendMessageW(selector, CB_SETITEMDATA, item, page);
  }
}

// The skin is read last in the settings load; for the start-up trace the
// settings step ends where the skin begins.
void ReadSkinAfterSettings(SettingsStore& store, FileSystem& files) {
  trace::Step("settings");
  ReadSelectedSkin(store, files);
  trace::Step("skin");
}

LRESULT OnCreate(HWND window) {
  // A process's first window brings up Wine's display driver: kept apart
  // from the settings load in the trace.
  trace::Step("window creation");
  ShellState& shell = Shell();
  shell.mainWindow = window;
  for (auto& slot : shell.slots) slot.reset();
  SettingsEnvironment environment = Platform().Environment();
  environment.readSkin = ReadSkinAfterSettings;
  LoadSettings(Settings(), environment);
  shell.pictures = LoadProductLibrary(LowDensity() ? L"LowDpiRes.dll" : L"HighDpiRes.dll");
  trace::Step("picture library");
  LoadLanguageLibrary();
  trace::Step("language library");
  CreateMenuBar(window);
  trace::Step("menu bar");
  PreviewImages().Load(shell.pictures, false, Settings().skin.folder.View(), nullptr);
  shell.normalFont = CreatePageFont(0);
  shell.boldFont = CreatePageFont(700);
  trace::Step("preview images and fonts");
  // The category list and the filter panel are read now; their views,
  // slots 10 and 11, are made below once the selector is in place.
  LoadCategories(Categories(), Platform().Categories(), Settings().TWIconsFolder.View(),
                 Settings().TWFiltersFileFolder.View());
  trace::Step("category list and filter file");
  CreatePageSelector(window);
  trace::Step("page selector");
  GetWindowRect(window, &shell.windowRect);
  GetClientRect(window, &shell.clientRect);
  shell.categoryList = std::make_unique<CategoryListView>(MakePageContext(), Categories(), Platform().Categories(),
                                                           shell.pictures);
  shell.filterPanel = std::make_unique<FilterPanel>(MakePageContext(), Categories());
  trace::Step("category views");
  return 0;
}

void OnDestroy() {
  ShellState& shell = Shell();
  DestroyPages();
  shell.categoryList.reset();
  shell.filterPanel.reset();
  Categories().categories.Clear();
  DeleteObject(shell.normalFont);
  DeleteObject(shell.boldFont);
  shell.normalFont = shell.boldFont = nullptr;
  if (shell.menuBar != nullptr) DestroyWindow(shell.menuBar);
  shell.menuBar = nullptr;
  PreviewFonts().Release();
  PreviewImages().Release();
  if (shell.pictures != nullptr) FreeLibrary(shell.pictures);
  shell.pictures = nullptr;
  FreeLanguageLibrary();
  shell.selector = nullptr;
  shell.mainWindow = nullptr;
  PostQuitMessage(0);
}

void ShowFirstRunMessage(HWND window) {
  if (Settings().FirstTimeSettingsMsg != 0) return;
  Settings().FirstTimeSettingsMsg = 1;
  ShowMessage(window, kFirstRunNotice, MB_OK);
}

void PaintHeader(HDC dc) {
  RECT band = {0, 0, Shell().clientRect.right, ScaleX(kHeaderBand)};
  HBRUSH fill = CreateSolidBrush(kHeaderColour);
  FillRect(dc, &band, fill);
  DeleteObject(fill);
  RECT line = {0, band.bottom, band.right, band.bottom + ScaleX(1)};
  FillRect(dc, &line, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));

  int id = LowDensity() ? IDB_HEADER_ICON_24 : IDB_HEADER_ICON_48;
  auto icon = static_cast<HBITMAP>(
      LoadImageW(Shell().instance, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (icon == nullptr) return;
  BITMAP info = {};
  GetObjectW(icon, sizeof info, &info);
  TransparentImage(dc, ScaleX(10), ScaleX(2), ScaleX(24), ScaleX(24), icon, 0, 0, info.bmWidth, info.bmHeight,
                   kHeaderIconTransparent);
  DeleteObject(icon);
}

// The category list and the filter panel sit on a dark page that the shell
// paints itself, the list's caption included: two lines, room enough for
// the longer languages.
void PaintCategoryPage(HDC dc, int page) {
  RECT area = {0, ScaleX(kHeaderBand) + ScaleX(1), Shell().clientRect.right, Shell().clientRect.bottom};
  HBRUSH fill = CreateSolidBrush(kCategoryPageColour);
  FillRect(dc, &area, fill);
  DeleteObject(fill);
  if (page != kCategoryListPage) return;
  WideString caption = LanguageText(kCategoryListCaption);
  HGDIOBJ oldFont = SelectObject(dc, Shell().normalFont);
  SetTextColor(dc, RGB(255, 255, 255));
  SetBkMode(dc, TRANSPARENT);
  RECT text = {ScaleX(6), area.top + ScaleY(2), area.right - ScaleX(6),
               area.top + ScaleY(CategoryListView::kCaptionHeight)};
  DrawTextW(dc, AsWide(caption.Text()), caption.Length(), &text, DT_LEFT | DT_WORDBREAK | DT_END_ELLIPSIS);
  SelectObject(dc, oldFont);
}

void OnPaint(HWND window) {
  ShowFirstRunMessage(window);
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(window, &paint);
  GetClientRect(window, &Shell().clientRect);
  FillRect(dc, &Shell().clientRect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  PaintHeader(dc);
  int current = Shell().currentPage;
  if (kPages[current].paintedByShell) PaintCategoryPage(dc, current);
  if (SettingsPage* page = ShownPage()) page->Paint(dc);
  EndPaint(window, &paint);
}

LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  SettingsPage* page = ShownPage();
  return page ? page->OnNotify(window, message, wParam, lParam) : 0;
}

void OnTap(LPARAM position) {
  if (SettingsPage* page = ShownPage())
    page->OnTap(static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)));
}

// The font-size command exists only while the Fonts page is shown; Undo
// only while there is a backup to restore.
void OnInitMenuPopup() {
  auto menu = reinterpret_cast<HMENU>(SendMessageW(Shell().menuBar, device::kMenuBarGetMenu, 0, 0));
  HMENU tools = menu ? GetSubMenu(menu, 0) : nullptr;
  if (tools == nullptr) return;
  EnableMenuItem(tools, IDM_UNDO_REWRITE, MF_BYCOMMAND | (CanUndoRewrite() ? MF_ENABLED : MF_GRAYED));
  DeleteMenu(tools, IDM_APPLY_FONT_SIZE, MF_BYCOMMAND);
  if (Shell().currentPage == kFontsPage) {
    WideString text = LanguageText(kApplyFontSizeText);
    AppendMenuW(tools, MF_STRING, IDM_APPLY_FONT_SIZE, AsWide(text.Text()));
  }
}

// Labels sit on the white page as on the device, unless the page says otherwise.
LRESULT OnControlColour(HDC dc, HWND control) {
  if (SettingsPage* page = ShownPage())
    if (HBRUSH brush = page->ControlColour(dc, control)) return reinterpret_cast<LRESULT>(brush);
  SetTextColor(dc, RGB(0, 0, 0));
  SetBkColor(dc, RGB(255, 255, 255));
  return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
}

// The category list's draw and press requests: its scroller is a child of
// the main window.
LRESULT ForwardToCategoryList(UINT message, WPARAM wParam, LPARAM lParam) {
  CategoryListView* list = Shell().categoryList.get();
  return list != nullptr ? list->OnListMessage(message, wParam, lParam) : 0;
}

void OnWindowPosChanged(HWND window) {
  GetWindowRect(window, &Shell().windowRect);
  GetClientRect(window, &Shell().clientRect);
  if (Shell().categoryList) Shell().categoryList->Place();
  if (Shell().filterPanel) Shell().filterPanel->Place();
}

}  // namespace

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return OnCreate(window);
    case WM_DESTROY:
      OnDestroy();
      return 0;
    case WM_PAINT:
      OnPaint(window);
      return 0;
    case WM_ERASEBKGND:
      return 0;
    case WM_COMMAND:
      return OnMainCommand(window, message, wParam, lParam);
    case WM_NOTIFY:
      return OnNotify(window, message, wParam, lParam);
    case WM_LBUTTONDOWN:
      OnTap(lParam);
      return 0;
    case WM_INITMENUPOPUP:
      OnInitMenuPopup();
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return OnControlColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_USER + 1:
    case WM_USER + 2:
      return ForwardToCategoryList(message, wParam, lParam);
    case WM_ACTIVATE:
      device::HandleActivate(window, wParam, lParam);
      break;
    case WM_SETTINGCHANGE:
      device::HandleSettingChange(window, wParam, lParam);
      break;
    case WM_WINDOWPOSCHANGED:
      OnWindowPosChanged(window);
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tw
