#!/usr/bin/env python3
"""Renders the drawings of this folder to what the resource script takes: banner_<id>.bmp and crashvane.ico.

Needs rsvg-convert (librsvg2-bin) and Pillow. The same drawings give the same bytes with the same versions of both
(the files in the tree: librsvg 2.54, Pillow 9.4). Run compose.py first when a scene was changed.
"""
import io
import pathlib
import struct
import subprocess
import sys

from PIL import Image

import bmp

HERE = pathlib.Path(__file__).resolve().parent
BANNER_WIDTH, BANNER_HEIGHT = 449, 76
OVERSAMPLING = 4
COLOURS = 256
ICON_SIZES = (16, 24, 32, 48, 256)
ICON_SOURCES = {16: "icon_16.svg", 24: "icon_24.svg"}   # simplified and fitted to their pixels


def raster(source, width, height):
    """A drawing as pixels: drawn larger, then averaged, so that fine lines keep their weight."""
    size = ["-w", str(width * OVERSAMPLING), "-h", str(height * OVERSAMPLING)]
    png = subprocess.run(["rsvg-convert", *size, str(source)], check=True, capture_output=True).stdout
    return Image.open(io.BytesIO(png)).convert("RGBA").resize((width, height), Image.BOX)


def render_banner(source):
    image = raster(source, BANNER_WIDTH, BANNER_HEIGHT).convert("RGB")
    # No dithering: its noise would break every run of the encoding.
    flat = image.quantize(COLOURS, method=Image.MEDIANCUT, kmeans=4, dither=Image.NONE)
    values = flat.getpalette()[:3 * COLOURS]
    palette = [tuple(values[i:i + 3]) for i in range(0, len(values), 3)]
    target = source.with_suffix(".bmp")
    bmp.write(target, *flat.size, palette, flat.tobytes())
    if bmp.read(target) != (*flat.size, palette, flat.tobytes()):
        raise ValueError(f"{target.name} does not read back")
    return target


def icon_image(size):
    """One image of the icon: PNG for the largest, 32-bit bitmap with its mask for the others."""
    image = raster(HERE / ICON_SOURCES.get(size, "icon.svg"), size, size)
    if size == 256:
        image = image.quantize(192, method=Image.FASTOCTREE, dither=Image.NONE).convert("RGBA")   # packs better
        packed = io.BytesIO()
        image.save(packed, "PNG", optimize=True)
        return packed.getvalue()
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = image.transpose(Image.FLIP_TOP_BOTTOM).tobytes("raw", "BGRA")
    stride = (size + 31) // 32 * 4
    mask = bytearray(stride * size)
    alpha = image.getchannel("A")
    for y in range(size):
        for x in range(size):
            if alpha.getpixel((x, size - 1 - y)) < 128:
                mask[y * stride + x // 8] |= 0x80 >> x % 8
    return header + colours + bytes(mask)


def render_icon():
    images = [icon_image(size) for size in ICON_SIZES]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, image in zip(ICON_SIZES, images):
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    target = HERE / "crashvane.ico"
    target.write_bytes(directory + b"".join(images))
    return target


def main():
    targets = [render_banner(source) for source in sorted(HERE.glob("banner_*.svg"))] + [render_icon()]
    for target in targets:
        print(f"{target.name:18} {target.stat().st_size:7}")
    print(f"{'together':18} {sum(target.stat().st_size for target in targets):7}")


if __name__ == "__main__":
    sys.exit(main())
