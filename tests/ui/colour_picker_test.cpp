// The colour picker driven as a user drives it: fields typed and left,
// sliders dragged, the palette tapped, None, Done and Cancel.
#include "controls/colour_picker.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include "base/scaling.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"
#include "tests/ui/dialog_driver.h"

namespace tw::test {
namespace {

class ColourPickerTest : public DialogTest {
 protected:
  std::uint32_t Pick(std::uint32_t colour, bool allowNone = true, bool openOnPalette = false) {
    return Run([&] { return PickColour(owner_, resources_, language_, colour, allowNone, openOnPalette); });
  }
  // Opens on `colour`, lets `step` act, then confirms.
  std::uint32_t PickAfter(std::uint32_t colour, Step step, bool openOnPalette = false) {
    Then(IDC_RED_SLIDER, [&](HWND dialog) {
      step(dialog);
      TapMenuBar(dialog, IDOK);
    });
    return Pick(colour, true, openOnPalette);
  }
};

int SliderAt(HWND dialog, int slider) { return static_cast<int>(SendDlgItemMessageW(dialog, slider, TBM_GETPOS, 0, 0)); }

void Drag(HWND dialog, int slider, int position) {
  HWND control = GetDlgItem(dialog, slider);
  SendMessageW(control, TBM_SETPOS, TRUE, position);
  SendMessageW(dialog, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position), reinterpret_cast<LPARAM>(control));
}

// The middle of the colour swatch in the strip along the bottom, right of its label.
POINT SwatchCentre(HWND dialog) {
  RECT client;
  GetClientRect(dialog, &client);
  HDC dc = GetDC(dialog);
  HFONT font = CreateFontW(ScaleY(12), 0, 0, 0, 600, 0, 0, 0, DEFAULT_CHARSET, 0, 0, DEFAULT_QUALITY, 0, L"Tahoma");
  HGDIOBJ old = SelectObject(dc, font);
  std::wstring label = EnglishText(kTextChosenColour);
  SIZE extent = {};
  GetTextExtentPoint32W(dc, label.c_str(), static_cast<int>(label.size()), &extent);
  DeleteObject(SelectObject(dc, old));
  ReleaseDC(dialog, dc);
  return {ScaleX(4) + extent.cx + ScaleX(6 + 25), client.bottom - ScaleY(24) + ScaleY(7 + 6)};
}

// Value x 0.392... truncated to a position; position x 255 / 100 back.
TEST_F(ColourPickerTest, DecimalFieldsAndSlidersFollowEachOther) {
  const struct { int field, slider; const wchar_t* typed; int position; } typed[] = {
      {IDC_RED_VALUE, IDC_RED_SLIDER, L"255", 100}, {IDC_GREEN_VALUE, IDC_GREEN_SLIDER, L"128", 50},
      {IDC_BLUE_VALUE, IDC_BLUE_SLIDER, L"1", 0}};
  const struct { int slider, field, position; const wchar_t* shown; } dragged[] = {{IDC_GREEN_SLIDER, IDC_GREEN_VALUE, 50, L"127"}, {IDC_BLUE_SLIDER, IDC_BLUE_VALUE, 1, L"2"}};
  auto step = [&](HWND dialog) {
    for (const auto& c : typed) {
      TypeAndLeave(dialog, c.field, c.typed);
      EXPECT_EQ(SliderAt(dialog, c.slider), c.position) << "typed " << ::testing::PrintToString(std::wstring(c.typed));
    }
    EXPECT_EQ(ItemText(dialog, IDC_HTML_VALUE), L"FF8001") << "web order: red first";
    for (const auto& c : dragged) {
      Drag(dialog, c.slider, c.position);
      EXPECT_EQ(ItemText(dialog, c.field), c.shown) << "position " << c.position;
    }
    Drag(dialog, IDC_RED_SLIDER, 100);
    EXPECT_EQ(ItemText(dialog, IDC_RED_VALUE), L"255");
    UpdateWindow(dialog);
    EXPECT_EQ(PixelAt(dialog, SwatchCentre(dialog)), RGB(255, 127, 2)) << "the strip shows the colour";
  };
  EXPECT_EQ(PickAfter(0x00FFFFFF, step), 0x00027FFFu);
}

// The web field reads what it can and keeps the rest ("F" reads red alone,
// "GG" nothing, silently); a decimal out of range is refused and undone.
TEST_F(ColourPickerTest, TypedValuesOpenedOn123456) {
  const struct { int field; const wchar_t* typed; std::uint32_t result; int redPosition; } cases[] = {
      {IDC_HTML_VALUE, L"FF8000", 0x000080FF, 100}, {IDC_HTML_VALUE, L"F", 0x0012340F, 5},
      {IDC_HTML_VALUE, L"GG", 0x00123456, 33},      {IDC_HTML_VALUE, L"0a0B", 0x00120B0A, 3},
      {IDC_GREEN_VALUE, L"256", 0x00123456, 33},    {IDC_GREEN_VALUE, L"", 0x00123456, 33},
      {IDC_GREEN_VALUE, L"99999", 0x00123456, 33}};
  for (const auto& c : cases) {
    auto step = [&](HWND dialog) {
      TypeAndLeave(dialog, c.field, c.typed);
      EXPECT_EQ(SliderAt(dialog, IDC_RED_SLIDER), c.redPosition) << "the sliders follow";
      if (c.field == IDC_GREEN_VALUE) {
        EXPECT_EQ(ItemText(dialog, IDC_GREEN_VALUE), L"52") << "the edit is undone";
        EXPECT_EQ(SliderAt(dialog, IDC_GREEN_SLIDER), 20);
      }
    };
    EXPECT_EQ(PickAfter(0x00123456, step), c.result) << ::testing::PrintToString(std::wstring(c.typed));
  }
  ASSERT_EQ(answerer_.boxes.size(), 3u) << "only the refusals speak";
  EXPECT_EQ(answerer_.Seen()[0], EnglishBox(40827, 40828));
}

TEST_F(ColourPickerTest, NoneClearsTheColourAndCancelKeepsTheCallers) {
  auto none = [&](HWND dialog) {
    EXPECT_EQ(PixelAt(dialog, SwatchCentre(dialog)), RGB(0x30, 0x20, 0x10));
    TapMenuBar(dialog, IDM_NO_COLOUR);
    UpdateWindow(dialog);
    EXPECT_EQ(PixelAt(dialog, SwatchCentre(dialog)), RGB(255, 255, 255)) << "no swatch once None is chosen";
  };
  EXPECT_EQ(PickAfter(0x00102030, none), kNoColour);

  auto title = [this] {
    wchar_t text[64] = {};
    return GetWindowTextW(owner_, text, 64), std::wstring(text);
  };
  Then(IDC_RED_SLIDER, [&](HWND dialog) {
    EXPECT_FALSE(MenuBarHas(dialog, IDM_NO_COLOUR)) << "None only where the caller allows it";
    SendMessageW(dialog, WM_COMMAND, IDM_NO_COLOUR, 0);
    Drag(dialog, IDC_RED_SLIDER, 100);
    EXPECT_EQ(title(), EnglishText(40983)) << "the owner's title while open";
    TapMenuBar(dialog, IDM_CANCEL);
  });
  EXPECT_EQ(Pick(0x00102030, false), kColourCancelled);
  EXPECT_EQ(title(), L"Owner") << "restored";
}

// The palette gives the colour the screen shows under the tap: the palette
// picture's own pixel there, and only on its own tab.
TEST_F(ColourPickerTest, PaletteGivesThePixelUnderTheTap) {
  auto picture = static_cast<HBITMAP>(LoadImageW(resources_, MAKEINTRESOURCEW(IDB_PALETTE_SMALL), IMAGE_BITMAP, 0, 0, 0));
  ASSERT_NE(picture, nullptr);
  HDC memory = CreateCompatibleDC(nullptr);
  HGDIOBJ old = SelectObject(memory, picture);
  COLORREF expected = GetPixel(memory, 150, 30);
  DeleteObject(SelectObject(memory, old));
  DeleteDC(memory);

  auto tap = [&](HWND dialog) {
    RECT client;
    GetClientRect(dialog, &client);
    int left = client.right / 2 - 92;
    Tap(dialog, {left + 150, 20 + 30});
    Tap(dialog, {left - 5, 20 + 30});                                   // outside: nothing changes
    SendMessageW(dialog, WM_MOUSEMOVE, 0, MAKELPARAM(left + 10, 30));  // moving without a touch picks nothing
  };
  EXPECT_EQ(PickAfter(0x00000000, tap, true), static_cast<std::uint32_t>(expected));
  EXPECT_EQ(PickAfter(0x00102030, tap), 0x00102030u) << "the sliders tab shows no palette";
}

TEST_F(ColourPickerTest, FitsEveryScreenOnBothTabs) {
  auto palette = [](HWND dialog) {
    HWND tabs = FindWindowExW(dialog, nullptr, WC_TABCONTROLW, nullptr);
    RECT tab = {};
    TabCtrl_GetItemRect(tabs, 1, &tab);
    Tap(tabs, {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, IDC_RED_SLIDER))) << "the palette tab hides the sliders";
    CheckLayoutAndSave(dialog, L"colour_picker_palette");
  };
  OnEveryScreen(IDC_RED_SLIDER, L"colour_picker_sliders", [&] { Pick(0x0000C0FF); }, palette);
}

}  // namespace
}  // namespace tw::test
