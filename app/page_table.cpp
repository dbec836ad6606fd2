// The page object of each slot. A slot whose page is not written yet has no
// factory and stays empty; slots 10 and 11 never hold a page object.
#include "app/main_window.h"
#include "app/shell.h"
#include "pages/about_page.h"

namespace tw {

const PageFactory kPageFactories[kPageCount] = {
    nullptr,        // 0 General
    nullptr,        // 1 Calendar
    nullptr,        // 2 Tasks
    nullptr,        // 3 Notes
    nullptr,        // 4 Messages
    nullptr,        // 5 Special events
    nullptr,        // 6 Fonts
    nullptr,        // 7 Colours
    nullptr,        // 8 PIM source
    nullptr,        // 9 Tabs
    nullptr,        // 10 category list: no page object
    nullptr,        // 11 filter panel: no page object
    MakeAboutPage,  // 12 About
};

}  // namespace tw
