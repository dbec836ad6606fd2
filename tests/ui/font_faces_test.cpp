#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "data/choice_lists.h"
#include "platform/win32/font_faces.h"

namespace tw {
namespace {

// Equal faces are equal case included; of duplicates the first is chosen.
TEST(FontFacesTest, ScreenFacesListedAndCurrentFaceSelected) {
  HDC dc = GetDC(nullptr);
  std::vector<std::u16string> faces = FontFaces(dc);
  ReleaseDC(nullptr, dc);
  ASSERT_NE(std::find(faces.begin(), faces.end(), u"Tahoma"), faces.end()) << "the prefix installs Wine's fonts";
  EXPECT_EQ(ListFontFaces(faces, u"tahoma").selected, -1);
  ChoiceList list = ListFontFaces({u"Arial", u"Tahoma", u"Tahoma"}, u"Tahoma");
  ASSERT_EQ(list.entries.size(), 3u);
  EXPECT_EQ(list.selected, 1);
  EXPECT_EQ(list.entries[2].itemData, 2);
}

}  // namespace
}  // namespace tw
