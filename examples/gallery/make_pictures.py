#!/usr/bin/env python3
"""Makes the pictures that the gallery's forms show, into the folder pictures: the same bytes every time."""

import math
import pathlib
import struct
import zlib

GREEN_KEY = (0, 255, 0)
WHITE = (255, 255, 255)


def write_png(path, width, height, pixel):
    rows = b"".join(
        b"\0" + bytes(part for x in range(width) for part in pixel(x, y)) for y in range(height))

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9))
                     + chunk(b"IEND", b""))


def mix(one, other, share):
    return tuple(round(a + (b - a) * min(1, max(0, share))) for a, b in zip(one, other))


def color(text):
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def bands(colors, upright):
    """A flag of equal bands, 30 by 20 with a fine frame."""
    def pixel(x, y):
        if x in (0, 29) or y in (0, 19):
            return color("#cbd5e1")
        place = (x - 1) / 28 if upright else (y - 1) / 18
        return color(colors[min(len(colors) - 1, int(place * len(colors)))])
    return 30, 20, pixel


def cross(ground, outer, inner):
    def pixel(x, y):
        if x in (0, 29) or y in (0, 19):
            return color("#cbd5e1")
        if abs(x - 10.5) < 1 or abs(y - 9.5) < 1:
            return color(inner)
        if abs(x - 10.5) < 2.6 or abs(y - 9.5) < 2.6:
            return color(outer)
        return color(ground)
    return 30, 20, pixel


def disc(ground, ink):
    def pixel(x, y):
        if x in (0, 29) or y in (0, 19):
            return color("#cbd5e1")
        return mix(color(ink), color(ground), math.hypot(x - 14.5, y - 9.5) - 5.5)
    return 30, 20, pixel


def mood(upper, lower, wave):
    """A landscape in two tones, to be stretched over a cell."""
    def pixel(x, y):
        ridge = 14 + 5 * math.sin(x / 9 + wave) + 3 * math.sin(x / 4 + wave * 2)
        sky = mix(color(upper), WHITE, y / 26)
        return mix(sky, mix(color(lower), WHITE, (y - ridge) / 40), y - ridge)
    return 64, 28, pixel


def gradient(width, height):
    """A pale ground with soft rings in its upper right corner."""
    def pixel(x, y):
        ground = mix(color("#eff6ff"), color("#fdf2f8"), (x / width + y / height) / 2)
        distance = math.hypot(x - width * 0.86, y - height * 0.18)
        ring = 0.5 + 0.5 * math.cos(distance / 16)
        return mix(ground, color("#bfdbfe"), ring * max(0, 1 - distance / (width * 0.55)))
    return width, height, pixel


def badge(size):
    """A round badge with a tick on the key colour, hard at its edge so that no pixel mixes with the key."""
    def pixel(x, y):
        u, v = (x + 0.5) / size * 2 - 1, (y + 0.5) / size * 2 - 1
        if math.hypot(u, v) > 0.96:
            return GREEN_KEY
        if math.hypot(u, v) > 0.84:
            return color("#93c5fd")
        near = min(segment(u, v, -0.42, 0.02, -0.1, 0.34), segment(u, v, -0.1, 0.34, 0.46, -0.32))
        return mix(color("#ffffff"), color("#dbeafe"), (near - 0.09) * size / 2)
    return size, size, pixel


def segment(x, y, x1, y1, x2, y2):
    share = ((x - x1) * (x2 - x1) + (y - y1) * (y2 - y1)) / ((x2 - x1) ** 2 + (y2 - y1) ** 2)
    share = min(1, max(0, share))
    return math.hypot(x - x1 - share * (x2 - x1), y - y1 - share * (y2 - y1))


PICTURES = {
    "fr": bands(["#2f4fa8", "#ffffff", "#d9414e"], True),
    "it": bands(["#2f9461", "#ffffff", "#d5404b"], True),
    "ie": bands(["#3a9d6a", "#ffffff", "#f0924b"], True),
    "de": bands(["#2b2b2b", "#d6404a", "#f4c64d"], False),
    "se": cross("#2f6cb3", "#f5cf4c", "#f5cf4c"),
    "no": cross("#d0424f", "#ffffff", "#2c4a8c"),
    "jp": disc("#ffffff", "#d64555"),
    "coast": mood("#7dd3fc", "#0e7490", 0.3),
    "dunes": mood("#fdba74", "#c2410c", 1.7),
    "forest": mood("#a7f3d0", "#15803d", 2.9),
    "night": mood("#a5b4fc", "#3730a3", 4.1),
    "ground": gradient(760, 330),
    "badge": badge(120),
}


def main():
    folder = pathlib.Path(__file__).parent / "pictures"
    folder.mkdir(exist_ok=True)
    for name, (width, height, pixel) in PICTURES.items():
        write_png(folder / f"{name}.png", width, height, pixel)


if __name__ == "__main__":
    main()
