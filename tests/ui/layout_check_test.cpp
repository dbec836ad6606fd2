#include "tests/ui/layout_check.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pages/common_controls.h"
#include "tests/ui/recording_parent.h"

namespace tw::test {
namespace {

constexpr wchar_t kLong[] = L"A rather long text that no narrow control holds";

HWND Add(HWND parent, const wchar_t* type, DWORD style, RECT at) {
  HWND control = CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | style, at.left, at.top, at.right - at.left,
                                 at.bottom - at.top, parent, nullptr, nullptr, nullptr);
  SendMessageW(control, WM_SETFONT, WPARAM(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  return control;
}

// Each kind of control, too narrow for the text it shows, is named with the
// text; given the room, none is.
TEST(LayoutCheck, NamesEveryTextTooLongForItsControl) {
  ASSERT_TRUE(LoadCommonControls());
  for (int width : {60, 400}) {
    SCOPED_TRACE(width);
    RecordingParent parent(480, 300);
    HWND label = Add(parent.window(), L"STATIC", SS_LEFT, {5, 5, 5 + width, 20});
    SetWindowTextW(label, kLong);
    HWND combo = Add(parent.window(), WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL, {5, 30, 5 + width, 130});
    SendMessageW(combo, CB_ADDSTRING, 0, LPARAM(L"Short"));
    SendMessageW(combo, CB_ADDSTRING, 0, LPARAM(kLong));
    SendMessageW(combo, CB_SETCURSEL, 1, 0);
    HWND list = Add(parent.window(), WC_LISTVIEWW, LVS_REPORT | LVS_NOCOLUMNHEADER, {5, 60, 5 + width, 120});
    ListViewPrepare(list);
    ListViewAddRow(list, u"A rather long text that no narrow control holds");
    HWND tabs = Add(parent.window(), WC_TABCONTROLW, TCS_FIXEDWIDTH, {5, 130, 465, 160});
    SendMessageW(tabs, TCM_SETITEMSIZE, 0, MAKELPARAM(width, 20));
    TabAdd(tabs, u"Long tab label here");

    std::vector<std::string> faults = CheckLayout(parent.window());
    auto named = [&](const char* kind, const std::string& text) {
      int found = 0;
      for (const std::string& fault : faults)
        found += fault.rfind(kind, 0) == 0 && fault.find("cuts off '" + text + "'") != std::string::npos;
      return found;
    };
    const std::string longText = "A rather long text that no narrow control holds";
    bool narrow = width < 100;
    EXPECT_EQ(named("Static", longText), narrow);
    EXPECT_EQ(named("ComboBox", longText), narrow ? 2 : 0) << "the selection and the entry in the open list";
    EXPECT_EQ(named("ComboBox", "Short"), 0);
    EXPECT_EQ(named("SysListView32", longText), narrow);
    EXPECT_EQ(named("SysTabControl32", "Long tab label here"), narrow);
    if (!narrow) {
      EXPECT_TRUE(faults.empty()) << faults.front();
    }
  }
}

}  // namespace
}  // namespace tw::test
