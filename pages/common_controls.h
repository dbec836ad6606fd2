// The common controls the pages are built of (tab strip, list view, combo
// box, check box, edit), used through one-line typed helpers rather than raw
// messages scattered through the pages.
//
// The program does not import comctl32: every imported library is loaded
// before the first window, and the common controls alone would cost Wine
// about 17 ms of start-up. The first page that needs them calls
// LoadCommonControls, which loads the library and registers its classes.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

// Loads comctl32 and registers the tab strip and list view classes, once per
// process. False when the library is missing (pages then lack those controls).
bool LoadCommonControls();

// The room a text takes in the font: on one line, or wrapped at wrapWidth.
SIZE TextExtent(HFONT font, std::u16string_view text, int wrapWidth = 0);

// Combo box (drop-down list).
void ComboClear(HWND combo);
// The entry's data is its position until the caller sets other; the open
// list widens to show the entry whole.
int ComboAdd(HWND combo, std::u16string_view text);
// -1 clears the selection.
void ComboSelect(HWND combo, int position);
// -1 when nothing is selected.
int ComboSelection(HWND combo);
int ComboCount(HWND combo);
std::u16string ComboText(HWND combo, int position);

// List view in report style with one column and no header: a plain row
// list, or with check boxes a check list.
void ListViewPrepare(HWND list, bool checkBoxes = false);
// A check-list row is checked unless its state image is the unchecked box,
// so a row without a state image reads as checked.
void ListViewSetChecked(HWND list, int row, bool checked);
bool ListViewChecked(HWND list, int row);
// Adding a row fits the column to the list again (see ListViewFitColumn).
void ListViewAddRow(HWND list, std::u16string_view text);
// Holds a list's redrawing while rows are added to it in a batch: under Wine
// a list re-measures and redraws itself at each row added, about half a
// millisecond a row. Letting go fits the column; a hidden list stays hidden.
class ListViewBatch {
 public:
  explicit ListViewBatch(HWND list);
  ~ListViewBatch();
  ListViewBatch(const ListViewBatch&) = delete;
  ListViewBatch& operator=(const ListViewBatch&) = delete;

 private:
  HWND list_;
  bool hidden_;
};
void ListViewFitColumn(HWND list);
void ListViewSetRowText(HWND list, int row, std::u16string_view text);
std::u16string ListViewRowText(HWND list, int row);
int ListViewCount(HWND list);
// Selects and focuses one row, or clears every row's selection and focus with -1.
void ListViewSelect(HWND list, int row);
// -1 when no row is selected.
int ListViewSelection(HWND list);
// The row last selected, -1 when none ever was.

// Tab strip.
void TabAdd(HWND tabs, std::u16string_view label);
int TabSelection(HWND tabs);
void TabSelect(HWND tabs, int tab);
int TabCount(HWND tabs);

// Check box.
void SetChecked(HWND box, bool checked);
bool IsChecked(HWND box);

// Any window text: captions, statics, edits.
void SetText(HWND window, std::u16string_view text);
std::u16string GetText(HWND window);

// Has part of the main window (all of it for null) repainted, the controls
// within it too. Left to the message loop, since a list may ask for it
// while it is changing its own state.
void RepaintArea(HWND window, const RECT* area);
// The main window paints over its children (it does not clip them), and
// the order in which the queue paints windows is not fixed: a page calls
// this at the end of its painting so that its shown controls come out on top.
void RepaintShown(const std::vector<HWND>& controls);

// The dark page of the category list and the filter panel, which the shell
// paints; its labels and check boxes take white text on it.
inline constexpr COLORREF kCategoryPageColour = 0x323232;
HBRUSH CategoryPageColours(HDC dc);

// Moves each control to its box (null controls are skipped).
template <std::size_t N>
void PlaceControls(const std::array<HWND, N>& controls, const RECT (&boxes)[N]) {
  for (std::size_t i = 0; i < N; ++i)
    if (controls[i] != nullptr)
      MoveWindow(controls[i], boxes[i].left, boxes[i].top, boxes[i].right - boxes[i].left,
                 boxes[i].bottom - boxes[i].top, FALSE);
}

// Tahoma 12 high (96-dpi units), the face the colour and font pages paint
// their labels in; the caller deletes it.
HFONT CreateLabelFont();
// A colour sample: a black frame one pixel wide around the colour, or
// around white carrying `noColourText` when the setting holds no colour.
void PaintSwatch(HDC dc, RECT frame, std::uint32_t colour, std::u16string_view noColourText);

}  // namespace tw
