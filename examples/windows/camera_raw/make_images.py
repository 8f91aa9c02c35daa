#!/usr/bin/env python3
"""Draws the synthetic Camera Raw pictures of this folder: a reference image for each tab (main/ and sub/), and
the screenshot of ../camera_raw.json. Run it from anywhere; it writes next to itself. The pictures are made up
(see README.md): no real Camera Raw images are public."""
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))

MAIN_TABS = ["基本", "色调曲线", "细节", "HSL", "黑白混合", "分离色调", "镜头校正", "效果", "相机校准", "相机校准_0",
             "相机校准_1", "预设"]
SUB_TABS = ["参数", "点", "色相", "饱和度", "明亮度"]
TAB_WIDTH, TAB_HEIGHT = 18, 12
BACKGROUND = (83, 83, 83)


def png(width, height, rgb):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)
    rows = b"".join(b"\0" + bytes(rgb[y * width * 3:(y + 1) * width * 3]) for y in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def tab(name):
    """A tab icon: a light frame around blocks of 3 by 3 pixels whose colours follow from the name."""
    state = zlib.crc32(name.encode("utf-8"))
    rgb = []
    for y in range(TAB_HEIGHT):
        for x in range(TAB_WIDTH):
            if x in (0, TAB_WIDTH - 1) or y in (0, TAB_HEIGHT - 1):
                rgb += [200, 200, 200]
                continue
            block = (y // 3) * 7 + x // 3
            value = zlib.crc32(bytes([block]), state)
            rgb += [value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF]
    return rgb


def paste(screen, width, picture, left, top):
    for y in range(TAB_HEIGHT):
        for x in range(TAB_WIDTH):
            at = ((top + y) * width + left + x) * 3
            screen[at:at + 3] = picture[(y * TAB_WIDTH + x) * 3:(y * TAB_WIDTH + x) * 3 + 3]


def main():
    for folder, names in (("main", MAIN_TABS), ("sub", SUB_TABS)):
        os.makedirs(os.path.join(HERE, folder), exist_ok=True)
        for name in names:
            with open(os.path.join(HERE, folder, name + ".png"), "wb") as out:
                out.write(png(TAB_WIDTH, TAB_HEIGHT, tab(name)))
    # The screenshot of camera_raw.json: the dialog at [12, 10, 1012, 750] on a 1024 by 768 screen, its HSL tab
    # open on the saturation sub-tab, and beside them icons that match no reference (the other tabs' plain look).
    width, height = 1024, 768
    screen = list(BACKGROUND) * (width * height)
    paste(screen, width, tab("HSL"), 760, 226)
    paste(screen, width, tab("饱和度"), 790, 292)
    for i, other in enumerate(["plain 1", "plain 2", "plain 3"]):
        paste(screen, width, tab(other), 800 + 24 * i, 226)
    with open(os.path.join(HERE, "screen_hsl_saturation.png"), "wb") as out:
        out.write(png(width, height, screen))


if __name__ == "__main__":
    main()
