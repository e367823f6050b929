#!/usr/bin/env python3
"""Draws the entity kind icons of the entity tree as 32x32 PNGs, with the standard library only.

Each icon is a simple shape, filled where a point lies inside it; edges are smoothed by 4x4
supersampling. Run from the repository root: scripts/draw-entity-icons.py
"""
import math
import os
import struct
import zlib

SIZE = 32
OUT = os.path.join("src", "resources", "images", "entities")


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


ICONS = {
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

if __name__ == "__main__":
    os.makedirs(OUT, exist_ok=True)
    for name, (shape, rgb) in ICONS.items():
        with open(os.path.join(OUT, name), "wb") as f:
            f.write(draw(shape, rgb))
