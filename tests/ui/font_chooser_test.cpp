// The font chooser driven as a user drives it: boxes ticked, a size picked,
// a colour set through the picker, Done and Cancel.
#include "controls/font_chooser.h"

#include <gtest/gtest.h>

#include "controls/colour_picker.h"
#include "resources/resource_ids.h"
#include "tests/ui/dialog_driver.h"

namespace tw::test {
namespace {

class FontChooserTest : public DialogTest {
 protected:
  bool Edit(LOGFONTW& font, std::uint32_t& colour) {
    return Run([&] { return EditFont(owner_, resources_, language_, font, colour); });
  }
};

LOGFONTW Font(LONG height, LONG weight, BYTE styles = 0) {
  return {height, 0, 0, 0, weight, styles, styles, styles, 0, 0, 0, 0, 0, L"Tahoma"};
}

bool Ticked(HWND dialog, int box) { return IsDlgButtonChecked(dialog, box) == BST_CHECKED; }

// Only 700 is bold; unticked bold is stored thin; sizes outside the list
// come back one below it.
TEST_F(FontChooserTest, OpensFromTheRecordAndStoresOnDone) {
  const struct { LONG height, weight; bool bold; int row; LONG storedHeight, storedWeight; } cases[] = {
      {12, 700, true, 2, 12, 700},
      {12, 400, false, 2, 12, 100},
      {30, 600, false, 20, 30, 100},
      {10, 100, false, 0, 10, 100},
      {31, 700, true, -1, 9, 700},
      {-12, 400, false, -1, 9, 100},
  };
  for (const auto& c : cases) {
    LOGFONTW font = Font(c.height, c.weight);
    std::uint32_t colour = 0x00112233;
    SCOPED_TRACE(::testing::Message() << "height " << c.height << ", weight " << c.weight);
    Then(IDC_FONT_SIZE, [&](HWND dialog) {
      EXPECT_EQ(Ticked(dialog, IDC_FONT_BOLD), c.bold);
      EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_FONT_SIZE, CB_GETCURSEL, 0, 0), c.row);
      EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_FONT_SIZE, CB_GETCOUNT, 0, 0), 21) << "sizes 10 to 30";
      TapMenuBar(dialog, IDOK);
    });
    EXPECT_TRUE(Edit(font, colour));
    EXPECT_EQ(std::pair(font.lfHeight, font.lfWeight), std::pair(c.storedHeight, c.storedWeight));
    EXPECT_STREQ(font.lfFaceName, L"Tahoma") << "the face is not the chooser's";
  }
}

TEST_F(FontChooserTest, StylesAndSizeChangeOnlyOnDone) {
  const LOGFONTW start = Font(12, 400, 1);
  LOGFONTW font = start;
  std::uint32_t colour = kNoColour;
  for (int close : {IDM_CANCEL, IDOK}) {
    Then(IDC_FONT_SIZE, [&](HWND dialog) {
      EXPECT_TRUE(Ticked(dialog, IDC_FONT_ITALIC) && Ticked(dialog, IDC_FONT_UNDERLINE) &&
                  Ticked(dialog, IDC_FONT_STRIKEOUT));
      for (int box : {IDC_FONT_ITALIC, IDC_FONT_STRIKEOUT, IDC_FONT_BOLD}) SendDlgItemMessageW(dialog, box, BM_CLICK, 0, 0);
      SendDlgItemMessageW(dialog, IDC_FONT_SIZE, CB_SETCURSEL, 8, 0);
      SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_FONT_SIZE, CBN_SELCHANGE), LPARAM(GetDlgItem(dialog, IDC_FONT_SIZE)));
      SendMessageW(dialog, WM_COMMAND, close, 0);
    });
    EXPECT_EQ(Edit(font, colour), close == IDOK);
    EXPECT_TRUE(close == IDOK || memcmp(&font, &start, sizeof font) == 0) << "cancel leaves the record alone";
  }
  const LOGFONTW stored = {18, 0, 0, 0, 700, 0, 1, 0, 0, 0, 0, 0, 0, L"Tahoma"};
  EXPECT_EQ(memcmp(&font, &stored, sizeof font), 0) << "size 18, bold, underlined only";
}

// Whether the swatch's inside holds dark pixels: with no colour set, the
// text that says so.
bool SwatchIsLabelled(HWND dialog) {
  for (int y = 42; y < 57; ++y)
    for (int x = 112; x < 150; ++x)
      if (GetRValue(PixelAt(dialog, {x, y})) < 128) return true;
  return false;
}

// The colour is the caller's as soon as it is set: a later cancel keeps it.
TEST_F(FontChooserTest, ColourSetThenCancelledStaysSet) {
  LOGFONTW font = Font(12, 400);
  std::uint32_t colour = kNoColour;
  Then(IDC_FONT_SIZE, [&](HWND dialog) {
    EXPECT_TRUE(SwatchIsLabelled(dialog)) << "no colour yet, and the swatch says so";
    TapControl(dialog, IDC_FONT_SET_COLOUR);
    UpdateWindow(dialog);
    EXPECT_EQ(PixelAt(dialog, {131, 49}), RGB(0x00, 0x80, 0xFF)) << "the swatch shows the new colour";
    TapControl(dialog, IDC_FONT_SET_COLOUR);  // picker cancelled this time
    TapMenuBar(dialog, IDM_CANCEL);
  });
  Then(IDC_RED_SLIDER, [&](HWND picker) {
    TypeAndLeave(picker, IDC_HTML_VALUE, L"0080FF");
    TapMenuBar(picker, IDOK);
  });
  Then(IDC_RED_SLIDER, [&](HWND picker) { TapMenuBar(picker, IDM_CANCEL); });
  EXPECT_FALSE(Edit(font, colour));
  EXPECT_EQ(colour, 0x00FF8000u);
  EXPECT_EQ(font.lfWeight, 400) << "the font itself is untouched";
}

TEST_F(FontChooserTest, FitsEveryScreen) {
  LOGFONTW font = Font(14, 700);
  std::uint32_t colour = kNoColour;
  OnEveryScreen(IDC_FONT_SIZE, L"font_chooser", [&] { Edit(font, colour); });
}

}  // namespace
}  // namespace tw::test
