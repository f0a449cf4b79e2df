#!/usr/bin/env python3
"""Turns the words of the banners into outlines, so that drawing a banner needs no font.

Run by hand, when a word is added: lettering.py TITLE_FONT LATIN_FONT CJK_FONT > lettering.json
The title face is Cinzel Bold, the marks are set in DejaVu Serif Bold and Noto Serif CJK Bold.
All three are free for artwork (SIL Open Font License, DejaVu: Bitstream Vera License); the tree keeps outlines of
these words, not the fonts.
Needs fontTools. Outlines are in units of one em, y downwards, the baseline at 0.
"""
import json
import sys

from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTCollection, TTFont

TITLES = ("BRENN", "FYRN", "GALDOR", "CYMRA", "HESK", "ORVEL", "XX", "TALIS", "CRASHVANE")
LATIN_MARKS = ("TIẾNG VIỆT", "VNIB")
CJK_MARKS = ("한국어", "繁體中文")
TITLE_TRACKING = 0.045
MARK_TRACKING = 0.06


def open_font(path):
    if path.endswith(".ttc"):
        return TTCollection(path).fonts[0]
    return TTFont(path)


def outline(font, word, tracking):
    """The path of a word and its width, both in ems."""
    scale = 1.0 / font["head"].unitsPerEm
    glyphs, names, x = font.getGlyphSet(), font.getBestCmap(), 0.0
    pen = SVGPathPen(glyphs, ntos=lambda value: f"{value:.4f}".rstrip("0").rstrip("."))
    for letter in word:
        name = names[ord(letter)]
        glyphs[name].draw(TransformPen(pen, (scale, 0, 0, -scale, x, 0)))
        x += glyphs[name].width * scale + tracking
    return {"width": round(x - tracking, 4), "path": pen.getCommands()}


def main():
    title, latin, cjk = (open_font(path) for path in sys.argv[1:4])
    words = {word: outline(title, word, TITLE_TRACKING) for word in TITLES}
    words.update({word: outline(latin, word, MARK_TRACKING) for word in LATIN_MARKS})
    words.update({word: outline(cjk, word, MARK_TRACKING) for word in CJK_MARKS})
    json.dump(words, sys.stdout, ensure_ascii=False, indent=1, sort_keys=True)
    print()


if __name__ == "__main__":
    main()
