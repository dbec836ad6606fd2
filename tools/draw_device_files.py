#!/usr/bin/env python3
"""Writes the files the installer lays out on the device beside the program:
two skins of our own, two colour schemes, category icons, icon sets, the demo
categories database and the Today items of the demo device.

  python3 tools/draw_device_files.py

Output, committed under device/ (paths as below the product folder, except
the database, which lies at the root of the device, and the registry file):
  Skins/default/   skin.ini, scroller arrows and thumb
  Skins/Harbour/   skin.ini, scroller parts and its own item pictures
  Skins/Slate/     no skin.ini: only text_color.bmp gives the text colour
  Schemes/*.scm    colour and font snapshots in the settings file format
  CategoryIcons/   one bitmap per demo category that has one
  Icons/<set>/     icon-set bitmaps offered by the icon chooser
  Categories Database   UTF-8, one record a line, PROPID=value
  device.reg       the Today items: our own and two plug-ins of type 4
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import draw_images as art  # noqa: E402
from draw_images import Circle, Line, Poly, Rect, render, keyed, write_bmp, write_tga  # noqa: E402

ROOT = art.ROOT
OUT = os.path.join(ROOT, "device")

GREEN_KEY = art.GREEN_KEY
RED_KEY = art.RED_KEY

# ------------------------------------------------------------ categories --

# (name, id, icon drawing or None, colour or None, filter mask)
CATEGORIES = [
    ("Business", 1, "briefcase", (44, 77, 156), 1),
    ("Personal", 2, "house", (40, 150, 60), 2),
    ("Holiday", 3, "sun", (236, 176, 32), 2),
    ("Family", 4, None, (200, 60, 120), 2),
    ("Friends", 5, None, None, 2),
    ("Travel", 6, "plane", (0, 140, 150), 3),
    ("Health", 7, "heart", (210, 40, 40), 0),
    ("Finance", 8, None, None, 1),
    ("Projects", 9, "star", None, 1),
    ("Errands", 10, None, None, 0),
    ("Sport", 11, None, (120, 60, 10), 0),
    ("Café", 12, None, None, 0),
]

# ---------------------------------------------------------------- images --

INK = art.INK
WHITE = art.WHITE


def briefcase():
    brown, dark = (150, 90, 40), (90, 50, 20)
    return [
        (Rect(0.30, 0.10, 0.70, 0.34, 0.08), dark),
        (Rect(0.38, 0.17, 0.62, 0.30), art.CLEAR),
        (Rect(0.04, 0.26, 0.96, 0.90, 0.08), dark),
        (Rect(0.10, 0.32, 0.90, 0.84, 0.05), brown),
        (Rect(0.42, 0.48, 0.58, 0.60), art.GOLD),
    ]


def house():
    return [
        (Poly((0.02, 0.50), (0.5, 0.06), (0.98, 0.50)), (150, 30, 30)),
        (Rect(0.14, 0.46, 0.86, 0.96), INK),
        (Rect(0.20, 0.50, 0.80, 0.90), (250, 240, 210)),
        (Rect(0.42, 0.62, 0.60, 0.90), (120, 70, 30)),
    ]


def sun():
    paint = []
    for i in range(8):
        a = i * 45
        x0, y0 = art.point_on(0.5, 0.5, 0.30, a)
        x1, y1 = art.point_on(0.5, 0.5, 0.47, a)
        paint.append((Line(x0, y0, x1, y1, 0.09), art.DARK_GOLD))
    paint += [(Circle(0.5, 0.5, 0.27), art.DARK_GOLD), (Circle(0.5, 0.5, 0.21), art.YELLOW)]
    return paint


def plane():
    """Seen from above, nose up, wings swept back."""
    body = (80, 90, 120)
    return [
        (Rect(0.42, 0.03, 0.58, 0.95, 0.08), body),
        (Poly((0.5, 0.30), (0.97, 0.58), (0.97, 0.68), (0.5, 0.52), (0.03, 0.68), (0.03, 0.58)), body),
        (Poly((0.5, 0.76), (0.75, 0.90), (0.75, 0.97), (0.5, 0.90), (0.25, 0.97), (0.25, 0.90)), body),
    ]


def star():
    import math
    points = []
    for i in range(10):
        r = 0.48 if i % 2 == 0 else 0.20
        a = math.radians(90 + i * 36)
        points.append((0.5 + r * math.cos(a), 0.52 - r * math.sin(a)))
    return [(Poly(*points), art.DARK_GOLD)]


def flag():
    return [
        (Line(0.16, 0.06, 0.16, 0.96, 0.10), INK),
        (Poly((0.20, 0.08), (0.92, 0.24), (0.20, 0.52)), art.RED),
    ]


def phone():
    return [
        (Rect(0.26, 0.04, 0.74, 0.96, 0.10), INK),
        (Rect(0.32, 0.14, 0.68, 0.74), (170, 215, 245)),
        (Circle(0.5, 0.85, 0.06), WHITE),
    ]


def anchor():
    navy = (20, 50, 100)
    return [
        (Circle(0.5, 0.14, 0.10), navy),
        (Circle(0.5, 0.14, 0.05), art.CLEAR),
        (Line(0.5, 0.22, 0.5, 0.88, 0.10), navy),
        (Line(0.30, 0.36, 0.70, 0.36, 0.09), navy),
        (art.Arc(0.5, 0.56, 0.34, 0.10, 200, 340), navy),
        (art.arrow_head(0.14, 0.64, 150, 0.14), navy),
        (art.arrow_head(0.86, 0.64, 30, 0.14), navy),
    ]


DRAWINGS = {
    "briefcase": briefcase, "house": house, "sun": sun, "plane": plane, "star": star,
    "heart": art.heart, "flag": flag, "phone": phone, "anchor": anchor, "cake": art.cake,
    "envelope": art.envelope, "bell": art.bell,
}

ICON_SETS = {
    "Office": ["briefcase", "envelope", "phone", "flag", "star"],
    "Leisure": ["sun", "plane", "heart", "cake", "anchor", "house"],
}


def icon(name, cell=16):
    """A category icon: the picture in a 16-pixel cell on pure green."""
    return keyed(render(DRAWINGS[name](), cell, cell, (1, 1, cell - 2, cell - 2)), WHITE, GREEN_KEY)


# ----------------------------------------------------------------- skins --


def scroll_arrow(up, rim, face, ink):
    tri = Poly((0.5, 0.26), (0.80, 0.70), (0.20, 0.70)) if up else Poly((0.5, 0.74), (0.80, 0.30), (0.20, 0.30))
    return [(Rect(0.0, 0.0, 1.0, 1.0, 0.2), rim), (Rect(0.08, 0.08, 0.92, 0.92, 0.14), face), (tri, ink)]


def thumb(part, edge, face):
    if part == "middle":
        return [(Rect(0.08, -1, 0.92, 2), edge), (Rect(0.23, -1, 0.77, 2), face)]
    if part == "top":
        return [(Rect(0.08, 0.0, 0.92, 2.0, 0.3), edge), (Rect(0.23, 0.08, 0.77, 2.0, 0.22), face)]
    return [(Rect(0.08, -2.0, 0.92, 0.31, 0.3), edge), (Rect(0.23, -2.0, 0.77, 0.23, 0.22), face)]


def scroller_files(rim, face, ink, matte):
    """up.bmp and down.bmp on pure red; the thumb's three parts, 13 x 4."""
    files = {
        "up.bmp": keyed(render(scroll_arrow(True, rim, face, ink), 13, 13), matte, RED_KEY),
        "down.bmp": keyed(render(scroll_arrow(False, rim, face, ink), 13, 13), matte, RED_KEY),
    }
    for part in ("top", "middle", "bottom"):
        files["scroller_%s.bmp" % part] = keyed(render(thumb(part, rim, face), 13, 4, (0, 0, 13, 13)), matte, RED_KEY)
    return files


def rgb(c):
    return "%d,%d,%d" % c


SKINS = {
    "default": {
        "colours": [
            ("txt_color", (0, 0, 0)),
            ("shadow", "none"),
            ("shadow_color", (200, 200, 200)),
            ("hide_scroll_bk", "show"),
            ("scroll_bk_color", (140, 140, 140)),
            ("highlight_default_color", (44, 77, 156)),
            ("highlight_transparency", "160"),
            ("highlight_text_color", (255, 255, 255)),
            ("blending_base_color", (255, 255, 255)),
            ("monthly_clr_weekdays", (150, 218, 133)),
            ("monthly_clr_weekdays_txt", (70, 50, 56)),
            ("monthly_clr_weekends", (181, 201, 235)),
            ("monthly_clr_weekends_txt", (70, 50, 56)),
            ("monthly_clr_curr_day", (238, 241, 143)),
            ("monthly_clr_curr_day_txt", (70, 50, 56)),
            ("monthly_clr_highlight", (130, 120, 220)),
            ("monthly_clr_highlight_txt", (255, 255, 255)),
            ("color_tsks_sort", (44, 77, 156)),
            ("color_tsks_category", (44, 77, 156)),
        ],
        "scroller": ((80, 80, 96), (190, 196, 214), (40, 40, 56)),
        "matte": (255, 255, 255),
        "pictures": {},
    },
    "Harbour": {
        "colours": [
            ("txt_color", (16, 40, 78)),
            ("shadow", "glow"),
            ("shadow_color", (190, 225, 245)),
            ("hide_scroll_bk", "hide"),
            ("scroll_bk_color", (90, 140, 180)),
            ("highlight_default_color", (0, 120, 140)),
            ("highlight_transparency", "200"),
            ("highlight_text_color", (250, 250, 240)),
            ("blending_base_color", (225, 240, 248)),
            ("color_clr_loaded_dates", (0, 90, 120)),
            ("color_clr_category", (0, 120, 140)),
            ("monthly_clr_weekdays", (200, 228, 240)),
            ("monthly_clr_weekdays_txt", (16, 40, 78)),
            ("monthly_clr_weekends", (160, 200, 225)),
            ("monthly_clr_weekends_txt", (16, 40, 78)),
            ("monthly_clr_curr_day", (250, 220, 120)),
            ("monthly_clr_curr_day_txt", (16, 40, 78)),
            ("monthly_clr_prev_month", (230, 236, 240)),
            ("monthly_clr_prev_month_txt", (130, 150, 170)),
            ("monthly_clr_weeknums", (20, 60, 110)),
            ("monthly_clr_weeknums_txt", (255, 255, 255)),
            ("monthly_clr_highlight", (0, 120, 140)),
            ("monthly_clr_highlight_txt", (255, 255, 255)),
            ("monthly_clr_dayttls_txt", (16, 40, 78)),
            ("pinned_clr_blend_base", (225, 240, 248)),
            ("color_tsks_sort", (0, 90, 120)),
            ("color_tsks_category", (0, 90, 120)),
            ("color_sevents_category", (150, 60, 90)),
            ("color_notes_sort", (0, 90, 120)),
            ("color_notes_folder", (0, 90, 120)),
        ],
        "scroller": ((20, 50, 100), (120, 180, 220), (250, 250, 240)),
        "matte": (225, 240, 248),
        # Item pictures of the skin, in place of the picture library's.
        "pictures": {
            "reminder.tga": "bell", "birthday.bmp": "cake", "anniversary.bmp": "heart",
            "category_symbol.tga": "anchor", "mail_counter.tga": "envelope",
        },
    },
}

SLATE_TEXT = (60, 70, 90)


def skin_ini(colours):
    lines = []
    for key, value in colours:
        text = rgb(value) if isinstance(value, tuple) else value
        lines.append('"%s"="%s"\r\n' % (key, text))
    return "".join(lines).encode("ascii")


# --------------------------------------------------------------- schemes --

COLOR_VALUES = [
    "GeneralFontColor", "HighlightBgClr", "HighlightTextClr", "ShadowFontColor", "SeperatorLineClr",
    "TimeLinesBgClr", "TimeLinesDfltClr", "ClrBreakingLineClr", "ClrPopupClrBg", "ClrPopupCurr",
    "ClrPopupHighlight", "TskBreakingLineClr", "ClrStatusFree", "ClrStatusBusy", "ClrStatusTentative",
    "ClrStatusOutofoffice",
]


def colour_value(c):
    return c[0] + c[1] * 256 + c[2] * 65536


SCHEMES = {
    "Deep Water": {
        "colors": {
            "GeneralFontColor": (16, 40, 78), "HighlightBgClr": (0, 120, 140), "HighlightTextClr": (255, 255, 255),
            "SeperatorLineClr": (90, 140, 180), "TimeLinesBgClr": (225, 240, 248),
            "ClrStatusBusy": (20, 60, 110), "ClrStatusTentative": (120, 180, 220),
        },
        # font record: (height, weight, colour or None)
        "fonts": {"FontGnrlUseAdvncd": 1, "FontCalDayTitles": (13, 700, (0, 90, 120)),
                  "FontCalApptBusy": (12, 100, (16, 40, 78)), "FontTskOverdue": (12, 700, (180, 30, 30))},
        "categories": {"Business": (20, 60, 110), "Travel": (0, 140, 150), "Holiday": (250, 200, 90)},
    },
    "Sandbank": {
        "colors": {
            "GeneralFontColor": (70, 50, 30), "HighlightBgClr": (220, 170, 90), "HighlightTextClr": (40, 30, 20),
            "SeperatorLineClr": (200, 180, 140), "ClrPopupClrBg": (250, 240, 215),
        },
        "fonts": {"FontGnrlSize": 13, "FontCalDayTitles": (13, 700, None)},
        "categories": {"Business": (150, 90, 40), "Personal": (120, 140, 60)},
    },
}


def scheme_text(scheme):
    out = ["", "[Software\\Orvex\\Tidewell\\Colors]"]
    for name in COLOR_VALUES:
        if name in scheme["colors"]:
            out.append('"%s"=dword:%d' % (name, colour_value(scheme["colors"][name])))
    out += ["", "[Software\\Orvex\\Tidewell\\Fonts]"]
    for name, value in scheme["fonts"].items():
        if isinstance(value, int):
            out.append('"%s"=dword:%d' % (name, value))
            continue
        height, weight, colour = value
        out.append('"%slfHeight"=dword:%d' % (name, height))
        out.append('"%slfWeight"=dword:%d' % (name, weight))
        if colour is not None:
            out.append('"%slfColor"=dword:%d' % (name, colour_value(colour)))
    out += ["", "[::Categories::]"]
    for name, _, _, colour, mask in sorted(CATEGORIES, key=lambda c: c[0].lower()):
        chosen = scheme["categories"].get(name, colour)
        out.append('"Category"="%s"' % name)
        out.append('"FiltersFlag"=dword:%d' % mask)
        out.append('"Color"=dword:%d' % (colour_value(chosen) if chosen else -1))
    return ("\r\n".join(out) + "\r\n").encode("utf-8")


# ------------------------------------------------------ database and .reg --


def categories_database():
    lines = ["# The demo device's PIM categories: name (4001001F) and id (40020002)."]
    for name, ident, _, _, _ in CATEGORIES:
        lines.append("4001001F=%s\t40020002=%d" % (name, ident))
    return ("\n".join(lines) + "\n").encode("utf-8")


TODAY_ITEMS = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Today\\Items"


def device_reg():
    def s(text):
        return '"%s"' % text.replace("\\", "\\\\")

    blocks = [
        # Our own item, as its installer registers it. "ProgramFiles" and
        # "InstallPath" name the folder below which "Orvex\Tidewell" lies.
        ("Tidewell", [("Type", "dword:00000004"), ("Enabled", "dword:00000001"), ("Order", "dword:00000002"),
                      ("DLL", s("\\Program Files\\Orvex\\Tidewell\\Tidewell.dll")),
                      ("ProgramFiles", s("\\Program Files")), ("InstallPath", s("\\Program Files"))]),
        ("Tide Clock", [("Type", "dword:00000004"), ("Enabled", "dword:00000001"), ("Order", "dword:00000003"),
                        ("DLL", s("\\Program Files\\Tide Clock\\tideclock.dll"))]),
        ("Harbour Weather", [("Type", "dword:00000004"), ("Enabled", "dword:00000000"),
                             ("Order", "dword:00000004"),
                             ("DLL", s("\\Windows\\harbourweather.dll"))]),
        # A built-in item of another type, which the plug-in list leaves out.
        ("Date", [("Type", "dword:00000000"), ("Enabled", "dword:00000001"), ("Order", "dword:00000000")]),
    ]
    out = ["Windows Registry Editor Version 5.00", ""]
    for name, values in blocks:
        out.append("[%s\\%s]" % (TODAY_ITEMS, name))
        out += ['"%s"=%s' % (k, v) for k, v in values]
        out.append("")
    return ("\r\n".join(out) + "\r\n").encode("utf-8")


# ------------------------------------------------------------------ main --


def save(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(data)


def build():
    made = []

    def image(relative, pixels):
        path = os.path.join(OUT, relative)
        (write_tga if path.endswith(".tga") else write_bmp)(path, pixels)
        made.append(path)

    def data(relative, payload):
        path = os.path.join(OUT, relative)
        save(path, payload)
        made.append(path)

    for skin, spec in SKINS.items():
        folder = os.path.join("Skins", skin)
        data(os.path.join(folder, "skin.ini"), skin_ini(spec["colours"]))
        rim, face, ink = spec["scroller"]
        for name, pixels in scroller_files(rim, face, ink, spec["matte"]).items():
            image(os.path.join(folder, name), pixels)
        for name, drawing in spec["pictures"].items():
            picture = render(DRAWINGS[drawing](), 16, 16, (0, 0, 14, 14))
            image(os.path.join(folder, name), picture if name.endswith(".tga") else keyed(picture, spec["matte"], GREEN_KEY))
    image(os.path.join("Skins", "Slate", "text_color.bmp"), [[SLATE_TEXT + (1.0,)] * 4 for _ in range(4)])

    for name, scheme in SCHEMES.items():
        data(os.path.join("Schemes", name + ".scm"), scheme_text(scheme))
    for name, _, drawing, _, _ in CATEGORIES:
        if drawing:
            image(os.path.join("CategoryIcons", name + ".bmp"), icon(drawing))
    for folder, names in ICON_SETS.items():
        for name in names:
            image(os.path.join("Icons", folder, name + ".bmp"), icon(name))
    data("Categories Database", categories_database())
    data("device.reg", device_reg())
    return made


if __name__ == "__main__":
    for path in build():
        print(os.path.relpath(path, ROOT))
