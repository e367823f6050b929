#!/usr/bin/env python3
"""Draws the icons of the plug-in and its widget kit as 32x32 PNGs, with the standard library only.

Each icon is a simple shape, filled where a point lies inside it; edges are smoothed by 4x4
supersampling. Run from the repository root: scripts/draw-icons.py
"""
import math
import os
import struct
import zlib

SIZE = 32
IMAGES = os.path.join("src", "resources", "images")


def polygon(points):
    def inside(x, y):
        hit = False
        for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
            if (y1 > y) != (y2 > y) and x < x1 + (y - y1) * (x2 - x1) / (y2 - y1):
                hit = not hit
        return hit
    return inside


def segment(x1, y1, x2, y2, width):
    def inside(x, y):
        dx, dy = x2 - x1, y2 - y1
        t = max(0.0, min(1.0, ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy)))
        return math.hypot(x - (x1 + t * dx), y - (y1 + t * dy)) <= width / 2
    return inside


def ring(cx, cy, outer, inner):
    return lambda x, y: inner <= math.hypot(x - cx, y - cy) <= outer


def union(*shapes):
    return lambda x, y: any(shape(x, y) for shape in shapes)


def draw(shape, rgb):
    rows = []
    for py in range(SIZE):
        row = bytearray([0])
        for px in range(SIZE):
            hits = sum(shape(px + (sx + 0.5) / 4, py + (sy + 0.5) / 4) for sx in range(4) for sy in range(4))
            row += bytes(rgb) + bytes([round(255 * hits / 16)])
        rows.append(bytes(row))
    return png(b"".join(rows))


def png(raw):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


def star(cx, cy, outer, inner, points):
    corners = []
    for i in range(points * 2):
        r = outer if i % 2 == 0 else inner
        a = math.pi * i / points - math.pi / 2
        corners.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    return polygon(corners)


ENTITY_ICONS = {
    # an aircraft seen from above
    "platform.png": (union(polygon([(16, 2), (19, 12), (30, 18), (30, 21), (19, 18), (18, 26), (22, 29), (22, 31),
                                    (10, 31), (10, 29), (14, 26), (13, 18), (2, 21), (2, 18), (13, 12)])), (40, 90, 200)),
    # a cone of energy from its source on the left
    "beam.png": (polygon([(3, 16), (29, 4), (29, 28)]), (230, 150, 20)),
    # a range gate: an annular sector
    "gate.png": (lambda x, y: 16 <= math.hypot(x - 2, y - 16) <= 28 and abs(math.atan2(y - 16, x - 2)) <= 0.5,
                 (20, 160, 70)),
    # a thin ray with its emitter
    "laser.png": (union(segment(4, 28, 28, 4, 3), ring(5, 27, 4, 0)), (220, 30, 30)),
    # lines of bearing fanning out from one point
    "lob.png": (union(*[segment(4, 28, 4 + 26 * math.cos(a), 28 - 26 * math.sin(a), 2)
                        for a in (0.25, 0.7, 1.15)]), (140, 60, 190)),
    # a projector lens throwing a wide frustum
    "projector.png": (union(polygon([(2, 12), (10, 12), (10, 20), (2, 20)]), polygon([(10, 14), (30, 3), (30, 29), (10, 18)])),
                      (90, 90, 90)),
    # something drawn by a renderer of its own
    "CustomRender.png": (star(16, 16, 15, 6, 5), (200, 40, 150)),
}


def arc(cx, cy, outer, inner, start, end):
    """A ring between two angles, in radians counter-clockwise from east (y grows downwards)."""
    def inside(x, y):
        a = math.atan2(cy - y, x - cx) % (2 * math.pi)
        return inner <= math.hypot(x - cx, y - cy) <= outer and start <= a <= end
    return inside


def outline(x1, y1, x2, y2, width):
    return union(segment(x1, y1, x2, y1, width), segment(x2, y1, x2, y2, width),
                 segment(x2, y2, x1, y2, width), segment(x1, y2, x1, y1, width))


def magnifier(extra=None):
    shapes = [ring(13, 13, 10, 7), segment(20, 20, 29, 29, 5)]
    if extra:
        shapes.append(extra)
    return union(*shapes)


def helix():
    strands = []
    for i in range(24):
        y1, y2 = 2 + i * 28 / 24, 2 + (i + 1) * 28 / 24
        for phase in (0, math.pi):
            x1 = 16 + 9 * math.sin(y1 / 28 * 2 * math.pi + phase)
            x2 = 16 + 9 * math.sin(y2 / 28 * 2 * math.pi + phase)
            strands.append(segment(x1, y1, x2, y2, 2.5))
    rungs = [segment(16 - 9 * abs(math.sin(y / 28 * 2 * math.pi)), y, 16 + 9 * abs(math.sin(y / 28 * 2 * math.pi)), y, 1.5)
             for y in (5, 9, 19, 23)]
    return union(*(strands + rungs))


def chevron(points):
    return polygon(points)


GRAY = (70, 70, 80)

EDITOR_ICONS = {
    "Add.png": (union(polygon([(13, 4), (19, 4), (19, 28), (13, 28)]), polygon([(4, 13), (28, 13), (28, 19), (4, 19)])),
                (30, 150, 50)),
    "Check In.png": (union(segment(5, 17, 13, 25, 5), segment(13, 25, 27, 7, 5)), (30, 150, 50)),
    "Collapse Down.png": (chevron([(4, 10), (28, 10), (16, 24)]), GRAY),
    "Collapse Up.png": (chevron([(4, 22), (28, 22), (16, 8)]), GRAY),
    "Collapse Left.png": (chevron([(22, 4), (22, 28), (8, 16)]), GRAY),
    "Collapse Right.png": (chevron([(10, 4), (10, 28), (24, 16)]), GRAY),
    "DNA.png": (helix(), (40, 110, 190)),
    "Delete.png": (union(segment(6, 6, 26, 26, 5), segment(26, 6, 6, 26, 5)), (200, 30, 30)),
    "Edit.png": (union(segment(8, 24, 24, 8, 6), polygon([(3, 29), (5, 22), (10, 27)])), (210, 140, 20)),
    "Find.png": (magnifier(ring(13, 13, 3, 0)), GRAY),
    "Search.png": (magnifier(), GRAY),
    "Refresh.png": (union(arc(16, 16, 12, 8, 0.6, 2 * math.pi - 0.2), polygon([(22, 2), (30, 12), (18, 13)])),
                    (30, 120, 200)),
    "Selection.png": (union(*[segment(x, 4, min(x + 3, 28), 4, 2) for x in range(4, 28, 6)] +
                            [segment(x, 28, min(x + 3, 28), 28, 2) for x in range(4, 28, 6)] +
                            [segment(4, y, 4, min(y + 3, 28), 2) for y in range(4, 28, 6)] +
                            [segment(28, y, 28, min(y + 3, 28), 2) for y in range(4, 28, 6)] +
                            [polygon([(12, 10), (24, 20), (18, 20), (21, 27), (18, 28), (15, 21), (12, 25)])]), GRAY),
}

FUNNEL = polygon([(3, 4), (29, 4), (19, 16), (19, 28), (13, 24), (13, 16)])

KELQT_ICONS = {
    "Data Red Filter.png": (FUNNEL, (210, 40, 40)),
    "Data Blue Filter.png": (FUNNEL, (40, 90, 210)),
    "Data Purple Filter.png": (FUNNEL, (140, 60, 190)),
    "Data Green Filter.png": (FUNNEL, (30, 150, 60)),
}

FOLDERS = {"entities": ENTITY_ICONS, "editor": EDITOR_ICONS, "kelQt": KELQT_ICONS}

if __name__ == "__main__":
    for folder, icons in FOLDERS.items():
        out = os.path.join(IMAGES, folder)
        os.makedirs(out, exist_ok=True)
        for name, (shape, rgb) in icons.items():
            with open(os.path.join(out, name), "wb") as f:
                f.write(draw(shape, rgb))
