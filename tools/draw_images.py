#!/usr/bin/env python3
"""Draws every picture of the program and of the two picture libraries.

Each picture is a list of filled shapes in a unit square, rendered with 4 x 4
supersampling at whatever size a resource needs, so the 16- and 32-pixel
libraries come from one drawing. Output:
  resources/images/program/   bitmaps and the icon compiled into the program
  resources/images/low/       16-pixel cells for LowDpiRes.dll
  resources/images/high/      32-pixel cells for HighDpiRes.dll
Bitmaps are 24-bit with a key colour; Targa files are 32-bit, uncompressed,
stored top-down with descriptor bit 4 set, as the program's reader expects.

  python3 tools/draw_images.py [--preview FOLDER]
--preview also writes every picture as an enlarged PNG for a look.
"""

import math
import os
import struct
import sys
import zlib

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
OUT = os.path.join(ROOT, "resources", "images")

RED_KEY = (255, 0, 0)
GREEN_KEY = (0, 255, 0)
MENU_KEY = (222, 207, 198)
CHOOSER_KEY = (222, 208, 198)
HEADER_BAND = (0xA4, 0xC6, 0xEF)
MENU_BAR = (236, 236, 236)
LIST_BG = (255, 255, 255)

# ---------------------------------------------------------------- shapes --


class Circle:
    def __init__(self, cx, cy, r):
        self.cx, self.cy, self.r2 = cx, cy, r * r

    def contains(self, x, y):
        return (x - self.cx) ** 2 + (y - self.cy) ** 2 <= self.r2


class Ellipse:
    def __init__(self, cx, cy, rx, ry):
        self.cx, self.cy, self.rx, self.ry = cx, cy, rx, ry

    def contains(self, x, y):
        return ((x - self.cx) / self.rx) ** 2 + ((y - self.cy) / self.ry) ** 2 <= 1.0


class Rect:
    def __init__(self, x0, y0, x1, y1, radius=0.0):
        self.x0, self.y0, self.x1, self.y1, self.r = x0, y0, x1, y1, radius

    def contains(self, x, y):
        if not (self.x0 <= x <= self.x1 and self.y0 <= y <= self.y1):
            return False
        r = self.r
        if r <= 0:
            return True
        cx = min(max(x, self.x0 + r), self.x1 - r)
        cy = min(max(y, self.y0 + r), self.y1 - r)
        return (x - cx) ** 2 + (y - cy) ** 2 <= r * r


class Line:
    """A stroke with round ends."""

    def __init__(self, x0, y0, x1, y1, width):
        self.a, self.b, self.h = (x0, y0), (x1, y1), width / 2.0

    def contains(self, x, y):
        ax, ay = self.a
        bx, by = self.b
        dx, dy = bx - ax, by - ay
        length2 = dx * dx + dy * dy
        t = 0.0 if length2 == 0 else max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / length2))
        px, py = ax + t * dx, ay + t * dy
        return (x - px) ** 2 + (y - py) ** 2 <= self.h * self.h


class Poly:
    def __init__(self, *points):
        self.p = points

    def contains(self, x, y):
        inside = False
        p = self.p
        j = len(p) - 1
        for i in range(len(p)):
            xi, yi = p[i]
            xj, yj = p[j]
            if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
                inside = not inside
            j = i
        return inside


class Arc:
    """A band between two radii, from angle a0 to a1 (degrees, counter-clockwise, 0 = right)."""

    def __init__(self, cx, cy, r, width, a0, a1):
        self.cx, self.cy = cx, cy
        self.ri, self.ro = r - width / 2.0, r + width / 2.0
        self.a0, self.a1 = a0 % 360, a1 % 360

    def contains(self, x, y):
        d = math.hypot(x - self.cx, y - self.cy)
        if not (self.ri <= d <= self.ro):
            return False
        a = math.degrees(math.atan2(self.cy - y, x - self.cx)) % 360
        if self.a0 <= self.a1:
            return self.a0 <= a <= self.a1
        return a >= self.a0 or a <= self.a1


def arrow_head(cx, cy, angle, size):
    """A triangle pointing along angle (degrees, counter-clockwise), tip at (cx, cy)."""
    a = math.radians(angle)
    ux, uy = math.cos(a), -math.sin(a)
    bx, by = cx - ux * size, cy - uy * size
    nx, ny = -uy, ux
    return Poly((cx, cy), (bx + nx * size * 0.75, by + ny * size * 0.75),
                (bx - nx * size * 0.75, by - ny * size * 0.75))


def point_on(cx, cy, r, angle):
    a = math.radians(angle)
    return cx + r * math.cos(a), cy - r * math.sin(a)


# -------------------------------------------------------------- renderer --

CLEAR = None
SS = 4


def render(paint, width, height, box=None):
    """Renders [(shape, colour or CLEAR)] into straight-alpha RGBA floats.

    box = (x, y, w, h) in pixels is where the unit square lands; by default
    the whole image."""
    bx, by, bw, bh = box if box else (0, 0, width, height)
    pixels = []
    for py in range(height):
        row = []
        for px in range(width):
            r = g = b = a = 0.0
            for sy in range(SS):
                for sx in range(SS):
                    u = (px + (sx + 0.5) / SS - bx) / bw
                    v = (py + (sy + 0.5) / SS - by) / bh
                    colour = CLEAR
                    for shape, c in paint:
                        if shape.contains(u, v):
                            colour = c
                    if colour is not CLEAR:
                        alpha = colour[3] / 255.0 if len(colour) > 3 else 1.0
                        r += colour[0] * alpha
                        g += colour[1] * alpha
                        b += colour[2] * alpha
                        a += alpha
            n = SS * SS
            if a > 0:
                row.append((r / a, g / a, b / a, a / n))
            else:
                row.append((0.0, 0.0, 0.0, 0.0))
        pixels.append(row)
    return pixels


def over(pixels, matte):
    """Composites onto an opaque matte colour."""
    return [[tuple(p[i] * p[3] + matte[i] * (1 - p[3]) for i in range(3)) + (1.0,) for p in row]
            for row in pixels]


def keyed(pixels, matte, key):
    """Opaque where at least half covered (edges smoothed against the matte
    the picture is shown on), the key colour elsewhere."""
    out = []
    for row in pixels:
        line = []
        for p in row:
            if p[3] < 0.5:
                line.append(key + (1.0,))
            else:
                c = tuple(min(255, max(0, round(p[i] * p[3] + matte[i] * (1 - p[3])))) for i in range(3))
                if c == key:  # never let a drawn pixel turn transparent
                    c = (c[0], c[1] ^ 1, c[2])
                line.append(c + (1.0,))
        out.append(line)
    return out


def side_by_side(*images):
    return [sum((img[y] for img in images), []) for y in range(len(images[0]))]


# --------------------------------------------------------------- writers --


def byte(v):
    return max(0, min(255, int(round(v))))


def write_bmp(path, pixels):
    h, w = len(pixels), len(pixels[0])
    stride = (w * 3 + 3) & ~3
    data = bytearray()
    for row in reversed(pixels):
        line = bytearray()
        for p in row:
            line += bytes((byte(p[2]), byte(p[1]), byte(p[0])))
        line += b"\0" * (stride - len(line))
        data += line
    header = struct.pack("<2sIHHI", b"BM", 14 + 40 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, w, h, 1, 24, 0, len(data), 3780, 3780, 0, 0)
    save(path, header + info + bytes(data))


def write_tga(path, pixels):
    h, w = len(pixels), len(pixels[0])
    header = struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, w, h, 32, 0x18)
    data = bytearray()
    for row in pixels:  # top-down: descriptor bit 4
        for p in row:
            data += bytes((byte(p[2]), byte(p[1]), byte(p[0]), byte(p[3] * 255)))
    save(path, header + bytes(data))


def write_ico(path, images):
    """images: list of square straight-alpha RGBA pixel arrays."""
    entries, blobs = [], []
    offset = 6 + 16 * len(images)
    for pixels in images:
        n = len(pixels)
        xor = bytearray()
        for row in reversed(pixels):
            for p in row:
                xor += bytes((byte(p[2]), byte(p[1]), byte(p[0]), byte(p[3] * 255)))
        mask_stride = ((n + 31) // 32) * 4
        mask = bytearray()
        for row in reversed(pixels):
            bits = bytearray(mask_stride)
            for x, p in enumerate(row):
                if p[3] < 0.5:
                    bits[x // 8] |= 0x80 >> (x % 8)
            mask += bits
        info = struct.pack("<IiiHHIIiiII", 40, n, 2 * n, 1, 32, 0, len(xor) + len(mask), 0, 0, 0, 0)
        blob = info + bytes(xor) + bytes(mask)
        entries.append(struct.pack("<BBBBHHII", n % 256, n % 256, 0, 0, 1, 32, len(blob), offset))
        blobs.append(blob)
        offset += len(blob)
    save(path, struct.pack("<HHH", 0, 1, len(images)) + b"".join(entries) + b"".join(blobs))


def write_png(path, pixels, scale, matte=(250, 250, 250)):
    rows = []
    for row in pixels:
        line = bytearray()
        for p in row:
            c = bytes(byte(p[i] * p[3] + matte[i] * (1 - p[3])) for i in range(3))
            line += c * scale
        rows.extend([b"\0" + bytes(line)] * scale)
    h, w = len(pixels) * scale, len(pixels[0]) * scale

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, 8, 2, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b"")
    save(path, png)


def save(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(data)


# -------------------------------------------------------------- pictures --

INK = (40, 40, 56)
WHITE = (255, 255, 255)
PAPER = (250, 250, 244)
BLUE = (38, 96, 196)
LIGHT_BLUE = (120, 170, 235)
GOLD = (236, 176, 32)
DARK_GOLD = (150, 100, 10)
GREEN = (40, 150, 60)
RED = (210, 40, 40)
GREY = (130, 130, 140)
YELLOW = (255, 226, 90)


def outlined(shape_ink, shape_fill, fill, ink=INK):
    return [(shape_ink, ink), (shape_fill, fill)]


def bell():
    return [
        (Line(0.5, 0.06, 0.5, 0.16, 0.12), DARK_GOLD),
        (Poly((0.10, 0.80), (0.20, 0.66), (0.22, 0.38), (0.32, 0.20), (0.5, 0.13), (0.68, 0.20),
              (0.78, 0.38), (0.80, 0.66), (0.90, 0.80)), DARK_GOLD),
        (Poly((0.18, 0.74), (0.27, 0.63), (0.29, 0.40), (0.36, 0.27), (0.5, 0.21), (0.64, 0.27),
              (0.71, 0.40), (0.73, 0.63), (0.82, 0.74)), GOLD),
        (Circle(0.5, 0.86, 0.11), DARK_GOLD),
    ]


def clockwise_head(cx, cy, r, end, colour, size=0.24):
    """An arrow head continuing a clockwise arc that ends at angle end."""
    tip = end - 32
    return (arrow_head(*point_on(cx, cy, r, tip), (tip + end) / 2 - 90, size), colour)


def circling_arrows(colour=BLUE):
    return [
        (Arc(0.5, 0.5, 0.34, 0.13, 30, 165), colour),
        clockwise_head(0.5, 0.5, 0.34, 30, colour),
        (Arc(0.5, 0.5, 0.34, 0.13, 210, 345), colour),
        clockwise_head(0.5, 0.5, 0.34, 210, colour),
    ]


def padlock():
    return [
        (Arc(0.5, 0.40, 0.22, 0.12, 0, 180), GREY),
        (Line(0.28, 0.40, 0.28, 0.52, 0.12), GREY),
        (Line(0.72, 0.40, 0.72, 0.52, 0.12), GREY),
        (Rect(0.14, 0.46, 0.86, 0.96, 0.08), DARK_GOLD),
        (Rect(0.20, 0.52, 0.80, 0.90, 0.05), GOLD),
        (Circle(0.5, 0.66, 0.08), INK),
        (Rect(0.46, 0.68, 0.54, 0.82), INK),
    ]


def person(cx, scale, body, head=(245, 205, 170)):
    return [
        (Rect(cx - 0.24 * scale, 0.56, cx + 0.24 * scale, 0.98, 0.16 * scale), body),
        (Circle(cx, 0.36, 0.17 * scale), INK),
        (Circle(cx, 0.36, 0.13 * scale), head),
    ]


def attendees():
    return person(0.66, 0.9, (90, 120, 200)) + person(0.36, 1.05, (50, 150, 90))


def note_sheet(fill=PAPER, lines=INK):
    return [
        (Poly((0.14, 0.04), (0.66, 0.04), (0.88, 0.26), (0.88, 0.96), (0.14, 0.96)), INK),
        (Poly((0.20, 0.10), (0.62, 0.10), (0.82, 0.30), (0.82, 0.90), (0.20, 0.90)), fill),
        (Poly((0.60, 0.06), (0.86, 0.30), (0.60, 0.30)), INK),
        (Rect(0.28, 0.42, 0.74, 0.48), lines),
        (Rect(0.28, 0.58, 0.74, 0.64), lines),
        (Rect(0.28, 0.74, 0.60, 0.80), lines),
    ]


def regenerated():
    return [
        (Arc(0.5, 0.5, 0.36, 0.13, 75, 380), GREEN),
        clockwise_head(0.5, 0.5, 0.36, 75, GREEN),
        (Line(0.34, 0.50, 0.46, 0.62, 0.12), INK),
        (Line(0.46, 0.62, 0.66, 0.38, 0.12), INK),
    ]


def exclamation():
    return [
        (Rect(0.36, 0.04, 0.64, 0.66, 0.12), (140, 10, 10)),
        (Rect(0.41, 0.09, 0.59, 0.61, 0.08), RED),
        (Circle(0.5, 0.84, 0.14), (140, 10, 10)),
        (Circle(0.5, 0.84, 0.09), RED),
    ]


def down_arrow_low():
    return [
        (Rect(0.36, 0.06, 0.64, 0.56), (20, 60, 150)),
        (Poly((0.10, 0.48), (0.90, 0.48), (0.5, 0.96)), (20, 60, 150)),
        (Rect(0.42, 0.12, 0.58, 0.56), LIGHT_BLUE),
        (Poly((0.24, 0.55), (0.76, 0.55), (0.5, 0.86)), LIGHT_BLUE),
    ]


def chain():
    return [
        (Rect(0.02, 0.26, 0.62, 0.74, 0.24), GREY),
        (Rect(0.16, 0.42, 0.48, 0.58, 0.08), CLEAR),
        (Rect(0.38, 0.26, 0.98, 0.74, 0.24), (80, 80, 92)),
        (Rect(0.52, 0.42, 0.84, 0.58, 0.08), CLEAR),
        (Rect(0.38, 0.30, 0.52, 0.70), GREY),
    ]


def calendar_page(top=RED, marks=True):
    paint = [
        (Rect(0.06, 0.10, 0.94, 0.96, 0.08), INK),
        (Rect(0.12, 0.16, 0.88, 0.90, 0.04), WHITE),
        (Rect(0.12, 0.16, 0.88, 0.36), top),
        (Line(0.30, 0.04, 0.30, 0.20, 0.10), INK),
        (Line(0.70, 0.04, 0.70, 0.20, 0.10), INK),
    ]
    if marks:
        for y in (0.50, 0.72):
            for x in (0.28, 0.50, 0.72):
                paint.append((Rect(x - 0.07, y - 0.06, x + 0.07, y + 0.06), GREY))
    return paint


def allday():
    paint = calendar_page(BLUE, marks=False)
    paint.append((Rect(0.12, 0.50, 0.88, 0.72), GOLD))
    return paint


def active_task():
    return [
        (Circle(0.5, 0.5, 0.46), (20, 100, 40)),
        (Circle(0.5, 0.5, 0.39), GREEN),
        (Poly((0.38, 0.26), (0.76, 0.5), (0.38, 0.74)), WHITE),
    ]


def task_box(checked):
    paint = [
        (Rect(0.08, 0.12, 0.84, 0.92, 0.06), INK),
        (Rect(0.15, 0.19, 0.77, 0.85), WHITE),
    ]
    if checked:
        paint += [(Line(0.22, 0.52, 0.42, 0.74, 0.15), GREEN), (Line(0.42, 0.74, 0.88, 0.08, 0.15), GREEN)]
    return paint


def envelope():
    return [
        (Rect(0.04, 0.18, 0.96, 0.84, 0.06), INK),
        (Rect(0.10, 0.24, 0.90, 0.78), WHITE),
        (Line(0.10, 0.26, 0.5, 0.56, 0.09), INK),
        (Line(0.90, 0.26, 0.5, 0.56, 0.09), INK),
    ]


def sticky_note():
    return note_sheet(YELLOW, DARK_GOLD)


def tag():
    return [
        (Poly((0.06, 0.44), (0.46, 0.06), (0.94, 0.06), (0.94, 0.54), (0.54, 0.94)), (120, 60, 10)),
        (Poly((0.16, 0.44), (0.50, 0.12), (0.88, 0.12), (0.88, 0.50), (0.54, 0.84)), (240, 150, 50)),
        (Circle(0.72, 0.28, 0.08), WHITE),
    ]


def paper_clip():
    w = 0.09
    return [
        (Line(0.62, 0.30, 0.62, 0.78, w), GREY),
        (Arc(0.50, 0.78, 0.12, w, 180, 360), GREY),
        (Line(0.38, 0.78, 0.38, 0.20, w), GREY),
        (Arc(0.52, 0.20, 0.14, w, 0, 180), GREY),
        (Line(0.66, 0.20, 0.66, 0.84, w), GREY),
        (Arc(0.50, 0.84, 0.16, w, 180, 360), GREY),
        (Line(0.34, 0.84, 0.34, 0.40, w), GREY),
    ]


def heart():
    return [
        (Circle(0.32, 0.36, 0.22), (150, 10, 40)),
        (Circle(0.68, 0.36, 0.22), (150, 10, 40)),
        (Poly((0.12, 0.46), (0.88, 0.46), (0.5, 0.92)), (150, 10, 40)),
        (Circle(0.32, 0.36, 0.16), (225, 40, 80)),
        (Circle(0.68, 0.36, 0.16), (225, 40, 80)),
        (Poly((0.19, 0.46), (0.81, 0.46), (0.5, 0.83)), (225, 40, 80)),
    ]


def cake():
    return [
        (Ellipse(0.5, 0.10, 0.07, 0.10), (255, 150, 20)),
        (Rect(0.46, 0.18, 0.54, 0.42), (90, 140, 230)),
        (Rect(0.10, 0.40, 0.90, 0.94, 0.06), (120, 60, 20)),
        (Rect(0.16, 0.46, 0.84, 0.88, 0.04), (250, 200, 220)),
        (Rect(0.16, 0.60, 0.84, 0.68), (200, 60, 120)),
    ]


def triangle(pointing_left):
    if pointing_left:
        return [(Poly((0.24, 0.5), (0.76, 0.14), (0.76, 0.86)), INK)]
    return [(Poly((0.76, 0.5), (0.24, 0.14), (0.24, 0.86)), INK)]


def scroll_arrow(up):
    tri = Poly((0.5, 0.26), (0.80, 0.70), (0.20, 0.70)) if up else Poly((0.5, 0.74), (0.80, 0.30), (0.20, 0.30))
    return [
        (Rect(0.0, 0.0, 1.0, 1.0, 0.2), (80, 80, 96)),
        (Rect(0.08, 0.08, 0.92, 0.92, 0.14), (190, 196, 214)),
        (tri, (40, 40, 56)),
    ]


def thumb(part):
    # The thumb is 13 wide and its parts 4 high (0.31 of the width): rounded
    # ends and a plain middle that is stretched between them.
    edge, face = (60, 60, 76), (150, 156, 178)
    if part == "middle":
        return [(Rect(0.08, -1, 0.92, 2), edge), (Rect(0.23, -1, 0.77, 2), face)]
    if part == "top":
        return [(Rect(0.08, 0.0, 0.92, 2.0, 0.3), edge), (Rect(0.23, 0.08, 0.77, 2.0, 0.22), face)]
    return [(Rect(0.08, -2.0, 0.92, 0.31, 0.3), edge), (Rect(0.23, -2.0, 0.77, 0.23, 0.22), face)]


def cross():
    return [
        (Circle(0.5, 0.5, 0.46), (150, 20, 20)),
        (Circle(0.5, 0.5, 0.40), RED),
        (Line(0.32, 0.32, 0.68, 0.68, 0.13), WHITE),
        (Line(0.68, 0.32, 0.32, 0.68, 0.13), WHITE),
    ]


def tick():
    return [
        (Circle(0.5, 0.5, 0.46), (20, 100, 40)),
        (Circle(0.5, 0.5, 0.40), GREEN),
        (Line(0.28, 0.52, 0.44, 0.68, 0.13), WHITE),
        (Line(0.44, 0.68, 0.72, 0.34, 0.13), WHITE),
    ]


def app_logo():
    """A calendar page with the tide running across it: the Tidewell mark."""
    navy, sea, foam = (20, 50, 100), (40, 120, 200), (170, 215, 245)
    paint = [
        (Rect(0.04, 0.10, 0.96, 0.96, 0.12), navy),
        (Rect(0.10, 0.16, 0.90, 0.90, 0.08), WHITE),
        (Rect(0.10, 0.16, 0.90, 0.34), (0, 140, 150)),
        (Line(0.30, 0.04, 0.30, 0.22, 0.10), navy),
        (Line(0.70, 0.04, 0.70, 0.22, 0.10), navy),
        (Rect(0.10, 0.62, 0.90, 0.90, 0.08), foam),
        (Rect(0.10, 0.62, 0.90, 0.70), foam),
    ]
    for row, colour in ((0.0, sea), (0.16, navy)):
        for i in range(4):
            up = i % 2 == 0
            paint.append((Arc(0.20 + i * 0.2, 0.56 + row, 0.10, 0.07,
                              0 if up else 180, 180 if up else 360), colour))
    return paint


def eye():
    return [
        (Ellipse(0.5, 0.5, 0.48, 0.40), INK),
        (Ellipse(0.5, 0.5, 0.40, 0.30), WHITE),
        (Circle(0.5, 0.5, 0.22), BLUE),
        (Circle(0.5, 0.5, 0.10), INK),
    ]


# Picture-library images drawn with alpha: (resource id, file name, drawing).
TARGA_IMAGES = [
    (395, "private", padlock),
    (396, "reminder", bell),
    (397, "attendees", attendees),
    (398, "recurring", circling_arrows),
    (399, "note", note_sheet),
    (400, "regenerated", regenerated),
    (401, "high_importance", exclamation),
    (402, "low_importance", down_arrow_low),
    (403, "link", chain),
    (404, "allday_appt", allday),
    (405, "active_task", active_task),
    (406, "appt_counter", calendar_page),
    (407, "task_counter", lambda: task_box(True)),
    (408, "mail_counter", envelope),
    (428, "notes_counter", sticky_note),
    (430, "category_symbol", tag),
    (431, "attached_icon_symbol", paper_clip),
]

# Picture-library bitmaps on a key colour: (id, file, drawing, key).
LIBRARY_BITMAPS = [
    (172, "task_not_checked", lambda: task_box(False), RED_KEY),
    (173, "task_checked", lambda: task_box(True), RED_KEY),
    (365, "tabs_left", lambda: triangle(True), GREEN_KEY),
    (366, "tabs_right", lambda: triangle(False), GREEN_KEY),
    (391, "anniversary", heart, GREEN_KEY),
    (392, "birthday", cake, GREEN_KEY),
]


def glyph(drawing, cell):
    # Pictures fill the top-left 14/16 of their cell, so a row of them keeps
    # a gap and the toggle strip's 2-unit inset stays inside its cell.
    inner = cell * 14 // 16
    return render(drawing(), cell, cell, (0, 0, inner, inner))


def scroller_parts(scale):
    size = 13 * scale
    parts = {
        "scroll_up": (render(scroll_arrow(True), size, size)),
        "scroll_down": (render(scroll_arrow(False), size, size)),
    }
    for name in ("top", "bottom", "middle"):
        parts["thumb_" + name] = render(thumb(name), size, 4 * scale, (0, 0, size, size))
    return {k: keyed(v, LIST_BG, RED_KEY) for k, v in parts.items()}


def palette(width, height):
    """Hues across, from white at the top through the pure hue to black at
    the bottom; the last eighth of the width is a grey ramp."""
    pixels = []
    hue_width = width * 7 // 8
    for y in range(height):
        t = y / (height - 1)
        row = []
        for x in range(width):
            if x >= hue_width:
                g = 255 * (1 - t)
                row.append((g, g, g, 1.0))
                continue
            h = x / hue_width * 6
            i, f = int(h) % 6, h - int(h)
            base = [(1, f, 0), (1 - f, 1, 0), (0, 1, f), (0, 1 - f, 1), (f, 0, 1), (1, 0, 1 - f)][i]
            if t < 0.5:
                k = t * 2
                c = tuple(255 * (1 - k + k * v) for v in base)
            else:
                k = (t - 0.5) * 2
                c = tuple(255 * v * (1 - k) for v in base)
            row.append(c + (1.0,))
        pixels.append(row)
    return pixels


def build(preview):
    made = []

    def out(kind, folder, name, pixels, scale=8):
        path = os.path.join(OUT, folder, name)
        {"bmp": write_bmp, "tga": write_tga}[kind](path, pixels)
        made.append(path)
        if preview:
            write_png(os.path.join(preview, folder, os.path.splitext(name)[0] + ".png"), pixels, scale)

    for folder, cell in (("low", 16), ("high", 32)):
        for _, name, drawing in TARGA_IMAGES:
            out("tga", folder, name + ".tga", glyph(drawing, cell))
        for _, name, drawing, key in LIBRARY_BITMAPS:
            out("bmp", folder, name + ".bmp", keyed(glyph(drawing, cell), LIST_BG, key))
        for name, pixels in scroller_parts(cell // 16).items():
            out("bmp", folder, name + ".bmp", pixels)

    prog = "program"
    for name, pixels in scroller_parts(1).items():
        out("bmp", prog, name + ".bmp", pixels)
    for _, name, drawing, key in LIBRARY_BITMAPS[:2]:
        out("bmp", prog, name + ".bmp", keyed(glyph(drawing, 16), LIST_BG, key))
    for size in (16, 32):
        buttons = side_by_side(render(cross(), size, size), render(tick(), size, size))
        out("bmp", prog, "menu_buttons_%d.bmp" % size, keyed(buttons, MENU_BAR, MENU_KEY))
        out("bmp", prog, "chooser_buttons_%d.bmp" % size, keyed(buttons, MENU_BAR, CHOOSER_KEY))
    for size in (24, 48):
        out("bmp", prog, "header_%d.bmp" % size, keyed(render(app_logo(), size, size), HEADER_BAND, RED_KEY))
    out("bmp", prog, "palette_184.bmp", palette(184, 42), 3)
    out("bmp", prog, "palette_368.bmp", palette(368, 84), 2)
    for w, h in ((20, 12), (40, 24)):
        legend = render(eye(), w, h, ((w - h * 1.4) / 2, 0, h * 1.4, h))
        out("bmp", prog, "legend_%d.bmp" % w, keyed(legend, LIST_BG, RED_KEY))

    icons = [render(app_logo(), n, n) for n in (16, 32, 48)]
    path = os.path.join(OUT, prog, "tidewell.ico")
    write_ico(path, icons)
    made.append(path)
    if preview:
        write_png(os.path.join(preview, prog, "tidewell_48.png"), icons[2], 8)
    return made


if __name__ == "__main__":
    preview = None
    if len(sys.argv) == 3 and sys.argv[1] == "--preview":
        preview = os.path.abspath(sys.argv[2])
    for path in build(preview):
        print(os.path.relpath(path, ROOT))
