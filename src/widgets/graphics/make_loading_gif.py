#!/usr/bin/env python3
"""Draws Loading.gif, the busy spinner: twelve spokes, one lit spoke walking round.

Standard library only. Run from this folder: python3 make_loading_gif.py
The LZW stream sends a clear code after every two pixels, so the code width never
grows; the file is larger than a packed GIF but trivially correct.
"""
import math
import struct

SIZE = 48
FRAMES = 12
SPOKES = 12
# palette: 0 transparent, 1 dark grey, 2 mid grey, 3 strong blue
PALETTE = [(255, 255, 255), (64, 64, 64), (150, 150, 150), (30, 100, 255)]


def spoke_colour(spoke, lit):
    distance = (lit - spoke) % SPOKES
    if distance == 0:
        return 3
    if distance < 4:
        return 1
    return 2


def frame_pixels(lit):
    pixels = bytearray(SIZE * SIZE)
    centre = (SIZE - 1) / 2.0
    for y in range(SIZE):
        for x in range(SIZE):
            dx, dy = x - centre, y - centre
            radius = math.hypot(dx, dy)
            if radius < 10 or radius > 22:
                continue
            angle = (math.degrees(math.atan2(dx, -dy)) + 360.0) % 360.0
            spoke = int(round(angle / (360.0 / SPOKES))) % SPOKES
            offset = abs(((angle - spoke * 360.0 / SPOKES) + 180.0) % 360.0 - 180.0)
            if offset * math.pi / 180.0 * radius < 2.6:
                pixels[y * SIZE + x] = spoke_colour(spoke, lit)
    return pixels


def lzw_uncompressed(pixels, min_code_size=2):
    clear = 1 << min_code_size
    end = clear + 1
    width = min_code_size + 1
    codes = []
    for i in range(0, len(pixels), 2):
        codes.append(clear)
        codes.extend(pixels[i:i + 2])
    codes.append(end)
    bits, nbits, out = 0, 0, bytearray()
    for code in codes:
        bits |= code << nbits
        nbits += width
        while nbits >= 8:
            out.append(bits & 0xFF)
            bits >>= 8
            nbits -= 8
    if nbits:
        out.append(bits & 0xFF)
    return bytes(out)


def sub_blocks(data):
    out = bytearray()
    for i in range(0, len(data), 255):
        chunk = data[i:i + 255]
        out.append(len(chunk))
        out += chunk
    out.append(0)
    return bytes(out)


def main():
    gif = bytearray(b"GIF89a")
    gif += struct.pack("<HHBBB", SIZE, SIZE, 0xF1, 0, 0)  # global table of 4 colours
    for r, g, b in PALETTE:
        gif += bytes((r, g, b))
    gif += b"\x21\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00"  # loop for ever
    for lit in range(FRAMES):
        gif += b"\x21\xF9\x04" + struct.pack("<BHBB", 0x09, 8, 0, 0)  # 80 ms, colour 0 clear
        gif += b"\x2C" + struct.pack("<HHHHB", 0, 0, SIZE, SIZE, 0)
        gif += bytes((2,)) + sub_blocks(lzw_uncompressed(frame_pixels(lit)))
    gif += b"\x3B"
    with open("Loading.gif", "wb") as f:
        f.write(gif)


if __name__ == "__main__":
    main()
