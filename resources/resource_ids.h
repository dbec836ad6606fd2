/* Numbers of the program's resources, of the menu commands and of the
   pictures in the two picture libraries. Plain macros, so that windres and
   the C++ code read the same file. Text numbers are in string_ids.h. */
#ifndef TIDEWELL_RESOURCE_IDS_H
#define TIDEWELL_RESOURCE_IDS_H

/* The program's own string table (English only: never shown to the user). */
#define IDS_APP_TITLE 1
#define IDS_WINDOW_CLASS 3

#define IDI_APP 101
#define IDA_MAIN 3

/* The menu bar, in every language library. */
#define IDM_MENU_BAR 102
#define IDM_CANCEL 40019
#define IDM_APPLY_FONT_SIZE 40043
#define IDM_NO_COLOUR 40057
#define IDM_EXPORT 40839
#define IDM_IMPORT 40840
#define IDM_UNDO_REWRITE 41200  // our own command, beyond the numbers the device uses
/* Command 1 (IDOK) is Done: the title strip's OK button and the second menu-bar image. */

/* Program bitmaps. Menu-bar buttons: image 0 Cancel, image 1 OK, on the
   mask colour RGB(222,207,198). */
#define IDB_MENU_BUTTONS_16 106
#define IDB_MENU_BUTTONS_32 114
/* The same two buttons for the plug-in chooser, whose mask is RGB(222,208,198). */
#define IDB_CHOOSER_BUTTONS_16 107
#define IDB_CHOOSER_BUTTONS_32 115
/* Header icon on pure red: 24 pixels below 144 dpi, 48 above. */
#define IDB_HEADER_ICON_24 131
#define IDB_HEADER_ICON_48 130
/* Colour picker palette: 184 x 42 and 368 x 84. */
#define IDB_PALETTE_SMALL 110
#define IDB_PALETTE_LARGE 123
/* Icon-marker legend on pure red: 20 x 12 and 40 x 24. */
#define IDB_MARKER_LEGEND_SMALL 220
#define IDB_MARKER_LEGEND_LARGE 128

/* Pictures kept both in the program (96-dpi size) and in the picture
   libraries (16- and 32-pixel cells; the scroller's parts at 13 and 26). */
#define IDB_SCROLL_DOWN 112
#define IDB_SCROLL_UP 113
#define IDB_THUMB_TOP 213
#define IDB_THUMB_BOTTOM 214
#define IDB_THUMB_MIDDLE 215
#define IDB_TASK_NOT_CHECKED 172
#define IDB_TASK_CHECKED 173

/* Picture libraries only: bitmaps on pure green. */
#define IDB_TABS_LEFT 365
#define IDB_TABS_RIGHT 366
#define IDB_ANNIVERSARY 391
#define IDB_BIRTHDAY 392

/* Picture libraries only: resources of type "TARGA", 32-bit with alpha. */
#define IDT_PRIVATE 395
#define IDT_REMINDER 396
#define IDT_ATTENDEES 397
#define IDT_RECURRING 398
#define IDT_NOTE 399
#define IDT_REGENERATED 400
#define IDT_HIGH_IMPORTANCE 401
#define IDT_LOW_IMPORTANCE 402
#define IDT_LINK 403
#define IDT_ALLDAY_APPT 404
#define IDT_ACTIVE_TASK 405
#define IDT_APPT_COUNTER 406
#define IDT_TASK_COUNTER 407
#define IDT_MAIL_COUNTER 408
#define IDT_NOTES_COUNTER 428
#define IDT_CATEGORY_SYMBOL 430
#define IDT_ATTACHED_ICON_SYMBOL 431

/* The icon-marker flags of the Calendar page, their names (texts) and the
   pictures that stand for them:
     1 note (40255) IDT_NOTE             2 recurring (40256) IDT_RECURRING
     4 reminder (40257) IDT_REMINDER     8 private (40258) IDT_PRIVATE
     16 category (40259) IDT_CATEGORY_SYMBOL
     32 importance, tasks only (40261) IDT_HIGH_IMPORTANCE
     64 link (40260) IDT_LINK           128 attendees, appointments only (40920) IDT_ATTENDEES
     256 category icon (40921) IDT_ATTACHED_ICON_SYMBOL */

/* Dialog templates of the program. */
#define IDD_FILE_CHOOSER 111
#define IDD_COLOUR_PICKER 184
#define IDD_ICON_CHOOSER 186
#define IDD_PLUGIN_CHOOSER 188
#define IDD_FONT_CHOOSER 210

/* File and folder chooser (111): the path typed or chosen, and the folder's entries. */
#define IDC_CHOOSER_PATH 1101
#define IDC_CHOOSER_LIST 1102
#define IDC_CHOOSER_UP 1103
#define IDC_CHOOSER_LABEL 1104

/* Colour picker (184). */
#define IDC_RED_LABEL 1002
#define IDC_RED_VALUE 1003
#define IDC_GREEN_VALUE 1004
#define IDC_BLUE_VALUE 1005
#define IDC_GREEN_LABEL 1006
#define IDC_BLUE_LABEL 1007
#define IDC_HTML_VALUE 1008
#define IDC_HTML_LABEL 1009
#define IDC_RED_SLIDER 1054
#define IDC_GREEN_SLIDER 1055
#define IDC_BLUE_SLIDER 1056

/* Font chooser (210). */
#define IDC_FONT_SIZE_LABEL 1002
#define IDC_FONT_COLOUR_LABEL 1006
#define IDC_FONT_SIZE 1085
#define IDC_FONT_ITALIC 1087
#define IDC_FONT_UNDERLINE 1088
#define IDC_FONT_STRIKEOUT 1089
#define IDC_FONT_BOLD 1090
#define IDC_FONT_SET_COLOUR 1091

/* Icon chooser (186): its icon list is created in code below the caption. */
#define IDC_ICON_CHOOSE 1201
#define IDC_ICON_NONE 1202

/* Plug-in chooser (188). */
#define IDC_PLUGIN_TEXT 1301
#define IDC_PLUGIN_LABEL 1302
#define IDC_PLUGIN_LIST 1303

#endif
