#!/usr/bin/env python3
"""Writes banner_<id>.svg for every product beside itself; the icon's drawings are written by hand."""
import json
import pathlib

import emblems
from scenes import brenn, crashvane, crossing, cymra, fyrn, galdor, hesk, orvel, talis
from svg import HEIGHT, WIDTH, circle, document, group, horizontal, num, path, poly, radial, rect, stroke, vertical

HERE = pathlib.Path(__file__).resolve().parent
WORDS = json.loads((HERE / "lettering.json").read_text(encoding="utf-8"))

# id, name, emblem, scene, enamel of the medallion (light, dark), edition mark
BANNERS = (
    (130, "BRENN", emblems.flaming_sword, lambda: brenn.scene("dusk"), ("#a8341c", "#3a0a0c"), None),
    (131, "FYRN", emblems.stag, fyrn.scene, ("#2f8f56", "#0a2c1c"), None),
    (132, "GALDOR", emblems.rune_star, galdor.scene, ("#4a3aa8", "#120c3c"), None),
    (135, "CRASHVANE", emblems.broken_vane, crashvane.scene, ("#47708c", "#101f2e"), None),
    (136, "CYMRA", emblems.triskele, cymra.scene, ("#2f7a3a", "#0c2c14"), None),
    (144, "HESK", emblems.war_axe, hesk.scene, ("#2f7aa8", "#0a2840"), None),
    (146, "ORVEL", emblems.sun_compass, lambda: orvel.scene("noon"), ("#1f8a9c", "#07343f"), None),
    (151, "BRENN", emblems.flaming_sword, lambda: brenn.scene("night"), ("#2f5aa8", "#0a143c"), "한국어"),
    (153, "XX", emblems.crossed_swords, crossing.scene, ("#5a5f6c", "#17181f"), None),
    (154, "TALIS", emblems.amulet, talis.scene, ("#8a5aa8", "#2c1444"), None),
    (156, "BRENN", emblems.flaming_sword, lambda: brenn.scene("morning"), ("#1f8a78", "#06302c"), "TIẾNG VIỆT"),
    (157, "ORVEL", emblems.sun_compass, lambda: orvel.scene("night"), ("#4a4aa8", "#100c3c"), "VNIB"),
    (158, "BRENN", emblems.flaming_sword, lambda: brenn.scene("twilight"), ("#7a3a9c", "#22083c"), "繁體中文"),
)

MEDAL_X, MEDAL_Y, MEDAL_R = 45, 38, 30
NAME_X, NAME_WIDEST = 88, 168
LATIN_MARK, CJK_MARK = 8.6, 10.4   # sizes of the edition marks
DARK, BRIGHT = "#1a0f08", "#f0c453"


def metals():
    gold = [(0, "#fff3bf"), (0.35, "#f0c453"), (0.6, "#b57a20"), (1, "#f2cf70")]
    return ['<linearGradient id="gold" x1="0" y1="0" x2="0" y2="1">'
            + "".join(f'<stop offset="{num(o)}" stop-color="{c}"/>' for o, c in gold) + "</linearGradient>",
            '<linearGradient id="silver" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffffff"/>'
            '<stop offset="0.5" stop-color="#b9c6d2"/><stop offset="1" stop-color="#7f8e9c"/></linearGradient>',
            '<linearGradient id="flame" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffe27a"/>'
            '<stop offset="0.5" stop-color="#ff9a2c"/><stop offset="1" stop-color="#d8321c"/></linearGradient>',
            '<linearGradient id="ember" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffb15a"/>'
            '<stop offset="0.5" stop-color="#f0582c"/><stop offset="1" stop-color="#a82418"/></linearGradient>']


def medallion(emblem, enamel):
    light, dark = enamel
    defs = [radial("enamel", MEDAL_X, MEDAL_Y - 8, 34, [(0, light), (1, dark)])]
    x, y, r = MEDAL_X, MEDAL_Y, MEDAL_R
    studs = [f'<g transform="rotate({turn} {x} {y})">' + circle(x, y - r + 2.2, 1, "#fff3bf") + "</g>"
             for turn in range(0, 360, 30)]
    tip = [(x, y - r - 4.4), (x + 4.4, y - r + 2), (x - 4.4, y - r + 2)]
    points = [poly(tip, "url(#gold)", f'stroke="#1a1108" stroke-width="0.8" transform="rotate({turn} {x} {y})"')
              for turn in (0, 90, 180, 270)]
    body = [circle(x + 1, y + 1.6, r + 2, "#000000", 'opacity="0.45"')] + points + [
        circle(x, y, r, "url(#gold)", 'stroke="#1a1108" stroke-width="1.2"'),
        circle(x, y, r - 2.2, "none", 'stroke="#7a4c10" stroke-width="2.2"')] + studs + [
        circle(x, y, r - 4.4, "url(#enamel)", 'stroke="#1a1108" stroke-width="1"'),
        circle(x, y, r - 5.6, "none", 'stroke="#f0c453" stroke-width="0.5" opacity="0.7"'),
        group(emblem(), f"translate({x},{y})")]
    return defs, body


def name_size(name):
    return min(37.0, NAME_WIDEST / WORDS[name]["width"])


def word_path(word, x, y, size, fill, line=None):
    """A word at its baseline; `line` is (colour, width in pixels) of an outline around it."""
    around = f' stroke="{line[0]}" stroke-width="{num(line[1] / size)}" stroke-linejoin="round"' if line else ""
    return path(word["path"], fill, f'transform="translate({num(x)},{num(y)}) scale({num(size)})"{around}')


def lettering(name, mark):
    """The name in gold over its own shadow, a rule with a lozenge under it, and the edition's mark."""
    word, size = WORDS[name], name_size(name)
    base = 38 + size * 0.35 - (6 if mark else 4)
    rule = base + (13 if mark else 9)
    left, right = NAME_X + 1, NAME_X + word["width"] * size - 1
    defs = [vertical("face", [(0, "#fffdf0"), (0.45, "#ffe8a0"), (0.55, "#dca23c"), (1, "#ffeeb4")], -0.7, 0)]
    shadow = word_path(word, NAME_X + 1.2, base + 1.8, size, "#000000", ("#000000", 3))
    body = [group([shadow], "", 'opacity="0.4"'), word_path(word, NAME_X, base, size, DARK, (DARK, 3.4)),
            word_path(word, NAME_X, base, size, "url(#face)")]
    end = right
    if mark:
        small = LATIN_MARK if "T" in mark or mark.isascii() else CJK_MARK
        wide = WORDS[mark]["width"] * small
        end = right - wide - 17
        body += ribbon(mark, small, right - wide - 6, rule, wide)
    middle = (left + end) / 2
    line = f"M{num(left)},{num(rule)}H{num(middle - 7)}M{num(middle + 7)},{num(rule)}H{num(end)}"
    gem = [(middle, rule - 3), (middle + 4, rule), (middle, rule + 3), (middle - 4, rule)]
    body += [stroke(line, DARK, 3), stroke(line, BRIGHT, 1.2),
             poly(gem, "#f6d57a", f'stroke="{DARK}" stroke-width="1"')]
    return defs, body


def ribbon(mark, size, x, y, wide):
    tall, left, right = 6.6, x - 6, x + wide + 6
    shape = [(left - 4, y - tall), (right + 4, y - tall), (right, y), (right + 4, y + tall), (left - 4, y + tall),
             (left, y)]
    return [poly(shape, DARK, f'stroke="{BRIGHT}" stroke-width="1" stroke-linejoin="round"'),
            word_path(WORDS[mark], x, y + size * 0.365, size, "#fff0c0")]


def frame():
    """The border that all banners share: dark edge, gold line, corner pieces."""
    lines = ((1, 2, "#120b06"), (2.5, 1, "#d9a840"), (3.5, 1, "#3a2410"))
    body = [rect("none", inset, inset, WIDTH - 2 * inset, HEIGHT - 2 * inset,
                 f'stroke="{colour}" stroke-width="{wide}"')
            for inset, wide, colour in lines]
    corner = (path("M2,2H17L13,6H9.5V9.5H6V13L2,17Z", "#e3b34a", f'stroke="{DARK}" stroke-width="0.8"'),
              path("M4,4H11L8,7H7V8L4,11Z", "#7a4c10"), circle(5.6, 5.6, 1.1, "#fff3bf"))
    for x, y, turn in ((0, 0, "1,1"), (WIDTH, 0, "-1,1"), (0, HEIGHT, "1,-1"), (WIDTH, HEIGHT, "-1,-1")):
        body.append(group(corner, f"translate({x},{y}) scale({turn})"))
    return body


def banner(name, emblem, scene, enamel, mark):
    defs, body = scene()
    end = NAME_X + name_size(name) * WORDS[name]["width"]
    shade = [horizontal("shade", [(0, "#000000", 0.6), (0.6, "#000000", 0.42), (1, "#000000", 0)], 0, end + 50)]
    medal_defs, medal = medallion(emblem, enamel)
    word_defs, word = lettering(name, mark)
    return document(WIDTH, HEIGHT, metals() + defs + shade + medal_defs + word_defs,
                    body + [rect("url(#shade)")] + word + frame() + medal)


def main():
    for number, *parts in BANNERS:
        (HERE / f"banner_{number}.svg").write_text(banner(*parts), encoding="utf-8")


if __name__ == "__main__":
    main()
