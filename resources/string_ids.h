// Every text number the program loads from a language library. The language
// libraries are numbered to match this list, and the resource test loads each
// number from every library, so a number used in code belongs here first.
// Numbers that sit in the middle of a range but are never loaded (40226,
// 40292, 40293, 40305, 40765, ...) are left out on purpose: libraries need
// not carry them.
#pragma once

#include <cstddef>

#include "resources/resource_ids.h"

namespace tw {

// A message box as the language library gives it: text and caption by number.
struct MessagePair {
  unsigned text = 0;
  unsigned caption = 0;

  bool operator==(const MessagePair&) const = default;
};
inline constexpr MessagePair kNoMessage{};

// The texts the code loads by name. Pages name theirs beside their tables.
inline constexpr unsigned kLanguageNameText = 719;
inline constexpr unsigned kApplyFontSizeText = 40201;
inline constexpr unsigned kCategoryListCaption = 40232;
inline constexpr unsigned kColourGreenLabel = 40834;
// The first entry of a collapsed icon strip's menu, which chooses no item.
inline constexpr unsigned kNoneChoiceText = 40791;
// The page selector's entries, in slot order.
inline constexpr unsigned kPageNameTexts[] = {40220, 40221, 40222, 40981, 40982, 40223, 40224,
                                              40225, 40227, 40228, 40229, 40230, 40231};

inline constexpr MessagePair kFirstRunNotice{40218, 40219}, kAskCancel{40216, 40217},
    kAskApplyGeneralSize{40206, 40207};
inline constexpr MessagePair kSettingsExported{40208, 40209}, kCannotOpenSettingsFile{40210, 40211},
    kImportFailed{40212, 40213}, kSettingsImported{40214, 40215};
inline constexpr MessagePair kNoSchemeSelected{40485, 40486}, kAskDeleteScheme{40487, 40488},
    kSchemeNameEmpty{40489, 40490}, kSchemeExists{40491, 40492}, kSchemeSaved{40493, 40494},
    kAskLoadScheme{40495, 40496}, kSchemeCannotOpen{40497, 40498}, kSchemeLoadFailed{40499, 40500};
// Undo and the backup before a rewrite: our own texts, numbered apart from the device's.
inline constexpr MessagePair kAskUndoRewrite{41201, 41202}, kRewriteUndone{41203, 41204},
    kBackupUnreadable{41205, 41206}, kUndoIncomplete{41207, 41208};
inline constexpr MessagePair kBackupNoFolder{41209, 41213}, kBackupNoRoom{41210, 41213},
    kBackupLinkInTheWay{41211, 41213}, kBackupNotWritten{41212, 41213};
inline constexpr MessagePair kAskHidePlugin{40736, 40737}, kTabExists{40749, 40750};

inline constexpr unsigned kLanguageTexts[] = {
    // The library's own language name, shown in the language choice.
    719,

    // Short choice texts shared by several pages: PIM sources, line styles,
    // passed appointments, tap actions, special-event days, clock format.
    22, 23, 24, 82, 25, 26, 27, 40944, 28, 30, 31, 32, 38, 39, 40, 47, 48,

    // Shell: page selector, first-run notice, Cancel, export and import
    // messages, the Fonts menu item, the category list caption.
    40201, 40206, 40207, 40208, 40209, 40210, 40211, 40212, 40213, 40214, 40215,
    40216, 40217, 40218, 40219, 40220, 40221, 40222, 40981, 40982, 40223, 40224,
    40225, 40227, 40228, 40229, 40230, 40231, 40232,

    // Calendar page: icon-marker preview texts and sample appointment.
    40233, 40234, 40235, 40236, 40237,

    // Calendar page: tab labels (40240 and 40247 also name General page tabs),
    // up and down buttons, icon-marker captions and flag names.
    40240, 40241, 40242, 40243, 40244, 40245, 40246, 40247, 40248, 40249, 40250,
    40252, 40254, 40919, 40255, 40256, 40257, 40258, 40259, 40260, 40261, 40920,
    40921,

    // Calendar page: row names of the seven row lists.
    40262, 40263, 40922, 40264, 40265, 40266, 40267, 40268, 40269, 40270, 40271,
    40272, 40273, 40274, 40275, 40276, 40923, 40277, 40278, 40279, 40280, 40281,
    40282, 40283, 40284, 40285, 40286, 40287, 40288, 40289, 40290, 40924, 40291,
    40294, 40295, 40296, 40297, 40925, 40926, 40927, 40928, 40298, 40299, 40300,
    40929, 40301, 40930, 40931, 40932, 40933, 40302, 40304, 40306, 40307, 40308,
    40309, 40934, 40316, 40317, 40318, 40319, 40320, 40321, 40322,

    // Calendar page: the six parts of a day title.
    40310, 40311, 40312, 40313, 40314, 40315,

    // Calendar page, general tab: editor captions, tips and choices.
    40323, 40324, 40325, 40326, 40935, 40327, 40328, 40329, 40330, 40331, 40332,
    40333, 40334, 40335, 40336, 40337, 40338, 40339,

    // Calendar page, appointments tab.
    40340, 40341, 40342, 40343, 40344, 40345, 40346, 40347, 40348, 40349, 40350,
    40351, 40352, 40353,

    // Calendar page, tasks tab (40781..40788 are shared with the Tasks page).
    40354, 40355, 40356, 40357, 40358, 40359, 40360, 40361, 40936, 40937, 40938,
    40939, 40940, 40941, 40364, 40365, 40942, 40943, 40366, 40367, 40368, 40369,
    40370, 40371, 40372, 40373, 40374, 40375, 40376, 40377, 40378, 40379, 40380,
    40381, 40382, 40383, 40384, 40385, 40386, 40387, 40388, 40389, 40390,

    // Calendar page, titles tab: titles, folding and time lines.
    40391, 40392, 40393, 40394, 40395, 40396, 40397, 40398, 40399, 40400, 40401,
    40402, 40403, 40404, 40405, 40406, 40407, 40408, 40409, 40410, 40945, 40946,
    40947, 40948, 40415, 40416, 40419, 40420, 40421, 40422, 40423, 40424, 40425,
    40426, 40417, 40418, 40949, 40950, 40898, 40899, 40900, 40901,

    // Calendar page, month tab, with the pinned month warning.
    40427, 40428, 40429, 40430, 40431, 40432, 40433, 40434, 40902, 40903, 40904,
    40905, 40437, 40438, 40906, 40907, 40916, 40917, 40918, 40908, 40909, 40910,
    40911, 40912, 40913, 40914, 40915,

    // Calendar page, mail tab.
    40439, 40440, 40441, 40442, 40443, 40444, 40445, 40446, 40447, 40448, 40449,
    40450, 40451, 40452, 40453, 40454, 40455, 40456, 40457, 40458,

    // Calendar page, other tab; 40478 also labels the PIM page's browse buttons.
    40459, 40460, 40466, 40467, 40470, 40471, 40472, 40473, 40474, 40475, 40476,
    40477, 40478,

    // Colours page: buttons, row names, swatch labels, explanations, schemes
    // and their messages; 40553 is the "no colour" swatch text everywhere.
    40483, 40484, 40485, 40486, 40487, 40488, 40489, 40490, 40491, 40492, 40493,
    40494, 40495, 40496, 40497, 40498, 40499, 40500, 40501, 40502, 40503, 40504,
    40505, 40506, 40507, 40508, 40509, 40510, 40511, 40512, 40513, 40514, 40515,
    40516, 40517, 40518, 40519, 40520, 40521, 40522, 40523, 40524, 40525, 40526,
    40527, 40528, 40529, 40530, 40531, 40532, 40533, 40534, 40535, 40536, 40537,
    40538, 40539, 40540, 40541, 40542, 40543, 40544, 40545, 40546, 40547, 40548,
    40549, 40550, 40551, 40552, 40553, 40951, 40952,

    // PIM source page.
    40554, 40555, 40556, 40557, 40558, 40559, 40560, 40561, 40562, 40563, 40564,

    // Fonts page: tabs, controls, row names, preview headings and texts.
    40572, 40573, 40574, 40575, 40576, 40577, 40578, 40579, 40580, 40581, 40582,
    40583, 40584, 40585, 40586, 40587, 40588, 40589, 40590, 40591, 40592, 40593,
    40594, 40595, 40596, 40597, 40598, 40599, 40600, 40601, 40602, 40603, 40957,
    40958, 40959, 40960, 40961, 40604, 40605, 40606, 40607, 40608, 40609, 40610,
    40611, 40612, 40613, 40614, 40615, 40616, 40617, 40618, 40619, 40620, 40621,
    40622, 40623, 40624, 40625, 40626, 40627, 40628, 40629, 40630, 40631, 40632,

    // General page: tab, row names, editor captions, explanations, choices.
    40962, 40633, 40634, 40635, 40636, 40637, 40638, 40639, 40640, 40641, 40648,
    40650, 40653, 40963, 40642, 40643, 40645, 40646, 40647, 40651, 40654, 40966,
    40303, 40967, 40655, 40656, 40657, 40658, 40659, 40660, 40661, 40662, 40663,
    40664, 40665, 40666, 40667, 40668, 40669, 40670, 40671, 40672, 40673, 40674,
    40675, 40676, 40695, 40696, 40702, 40703, 40708, 40709, 40968, 40677, 40678,
    40679, 40680, 40683, 40684, 40685, 40686, 40687, 40688, 40689, 40690, 40691,
    40692, 40693, 40704, 40705, 40710, 40711, 40969, 40970, 40461, 40462, 40463,
    40464, 40465, 40972, 40973, 40652, 40964, 40644, 40649, 40699, 40700, 40701,
    40965,

    // Special events page.
    40720, 40721, 40722, 40723, 40724, 40725, 40726, 40727, 40728, 40729, 40730,
    40731, 40732, 40733, 40734, 40735,

    // Tabs page and the hosted plug-in chooser.
    40736, 40737, 40738, 40739, 40740, 40741, 40743, 40744, 40745, 40746, 40747,
    40748, 40749, 40750, 40751, 40837, 40838,
    // The notes and messages tabs' headings, numbered after the texts above.
    41100, 41101,

    // Tasks page.
    40762, 40763, 40764, 40766, 40767, 40768, 40769, 40770, 40771, 40772, 40773,
    40775, 40776, 40777, 40778, 40779, 40780, 40781, 40782, 40783, 40784, 40785,
    40786, 40787, 40788, 40791, 40792, 40793, 40794, 40795, 40796, 40797, 40798,
    40799, 40800, 40801, 40980,

    // Notes and Messages pages.
    40974, 40975, 40976, 40977, 40978, 40979,

    // Icon chooser caption lines.
    40815, 40816, 40817,

    // Font chooser and colour picker dialogs.
    40821, 40822, 40823, 40824, 40825, 40826, 40827, 40828, 40832, 40833, 40834,
    40835, 40983, 40984, 40985, 40059,

    // File and folder chooser; the font chooser's title.
    40986, 40987, 40988, 40989, 40990, 40991, 40992, 40993,

    // Undo of the last import or scheme; the backup written before either.
    41201, 41202, 41203, 41204, 41205, 41206, 41207, 41208, 41209, 41210, 41211,
    41212, 41213,
    // Category list, icon chooser buttons and the category filter panel.
    40994, 40995, 40996, 40997, 40998, 40999, 41000, 41001, 41002, 41003, 41004,
    41005, 41006, 41007, 41008, 41009,
};

// Texts of the three dialogs that pages open.
inline constexpr unsigned kTextNoColour = 40553;  // the swatch of "no colour"
inline constexpr unsigned kTextSetColour = 40483;
inline constexpr unsigned kTextFontSize = 40821;
inline constexpr unsigned kTextItalic = 40822;
inline constexpr unsigned kTextBold = 40823;
inline constexpr unsigned kTextUnderline = 40824;
inline constexpr unsigned kTextStrikeOut = 40825;
inline constexpr unsigned kTextFontColour = 40826;
inline constexpr unsigned kTextComponentRange = 40827;
inline constexpr unsigned kTextComponentRangeCaption = 40828;
inline constexpr unsigned kTextChosenColour = 40832;
inline constexpr unsigned kTextRed = 40833;
inline constexpr unsigned kTextGreen = 40834;
inline constexpr unsigned kTextBlue = 40835;
inline constexpr unsigned kTextChooseColour = 40983;
inline constexpr unsigned kTextSlidersTab = 40984;
inline constexpr unsigned kTextPaletteTab = 40985;
inline constexpr unsigned kTextNoneButton = 40059;
inline constexpr unsigned kTextChooseFile = 40986;
inline constexpr unsigned kTextChooseFolder = 40987;
inline constexpr unsigned kTextFolderLabel = 40988;
inline constexpr unsigned kTextFolderUp = 40989;
inline constexpr unsigned kTextPathTooLong = 40990;
inline constexpr unsigned kTextPathTooLongCaption = 40991;
inline constexpr unsigned kTextNoFileChosen = 40992;
inline constexpr unsigned kTextFontChooserTitle = 40993;
inline constexpr unsigned kTextIconChooserLines[] = {40815, 40816, 40817};
inline constexpr unsigned kTextChooseIcon = 40997;
inline constexpr unsigned kTextNoIcon = 40998;

inline constexpr std::size_t kLanguageTextCount = std::size(kLanguageTexts);

// Texts that the program formats with printf-style arguments: each must carry
// exactly the one conversion named here in every language.
struct FormattedText {
  unsigned id;
  const char* conversion;
};
inline constexpr FormattedText kFormattedTexts[] = {
    {40233, "%d"},  // icon-marker preview: the appointment display format number
    {40746, "%s"},  // Tabs page heading: the hosted plug-in's name
    {40914, "%d"},  // pinned month view: the smallest height limit in pixels
};

}  // namespace tw
