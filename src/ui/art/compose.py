#!/usr/bin/env python3
"""Writes the vector drawings beside itself: banner_<id>.svg for every product, the icons are drawn by hand."""
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
    points = [poly([(x, y - r - 4.4), (x + 4.4, y - r + 2), (x - 4.4, y - r + 2)], "url(#gold)",
                   f'stroke="#1a1108" stroke-width="0.8" transform="rotate({turn} {x} {y})"') for turn in (0, 90, 180, 270)]
    body = [circle(x + 1, y + 1.6, r + 2, "#000000", 'opacity="0.45"')] + points + [
        circle(x, y, r, "url(#gold)", 'stroke="#1a1108" stroke-width="1.2"'),
        circle(x, y, r - 2.2, "none", 'stroke="#7a4c10" stroke-width="2.2"')] + studs + [
        circle(x, y, r - 4.4, "url(#enamel)", 'stroke="#1a1108" stroke-width="1"'),
        circle(x, y, r - 5.6, "none", 'stroke="#f0c453" stroke-width="0.5" opacity="0.7"'),
        group(emblem(), f"translate({x},{y})")]
    return defs, body


def name_size(name):
    return min(37.0, NAME_WIDEST / WORDS[name]["width"])


def lettering(name, mark):
    """The name in gold over its own shadow, a rule with a lozenge under it, and the edition's mark."""
    word, size = WORDS[name], name_size(name)
    base = 38 + size * 0.35 - (6 if mark else 4)
    place = f"translate({NAME_X},{num(base)}) scale({num(size)})"
    width, dark = word["width"] * size, "#1a0f08"
    body = [path(word["path"], "#000000", f'transform="translate({num(NAME_X + 1.2)},{num(base + 1.8)}) scale({num(size)})" '
                 f'stroke="#000000" stroke-width="{num(3 / size)}" stroke-linejoin="round" opacity="0.4"'),
            path(word["path"], dark, f'transform="{place}" stroke="{dark}" stroke-width="{num(3.4 / size)}" stroke-linejoin="round"'),
            f'<g transform="{place}"><path d="{word["path"]}" fill="url(#face)"/></g>']
    defs = [vertical("face", [(0, "#fffdf0"), (0.45, "#ffe8a0"), (0.55, "#dca23c"), (1, "#ffeeb4")], -0.7, 0)]
    rule = base + (13 if mark else 9)
    left, right = NAME_X + 1, NAME_X + width - 1
    end = right
    if mark:
        small = 8.6 if mark.isascii() or mark.startswith("T") else 10.4
        long = WORDS[mark]["width"] * small
        end = right - long - 17
        body += ribbon(mark, small, right - long - 6, rule, long)
    middle = (left + end) / 2
    line = f"M{num(left)},{num(rule)}H{num(middle - 7)}M{num(middle + 7)},{num(rule)}H{num(end)}"
    gem = [(middle, rule - 3), (middle + 4, rule), (middle, rule + 3), (middle - 4, rule)]
    body += [stroke(line, dark, 3), stroke(line, "#f0c453", 1.2), poly(gem, "#f6d57a", f'stroke="{dark}" stroke-width="1"')]
    return defs, body


def ribbon(mark, size, x, y, long):
    tall = 6.6
    left, right = x - 6, x + long + 6
    shape = [(left - 4, y - tall), (right + 4, y - tall), (right, y), (right + 4, y + tall), (left - 4, y + tall), (left, y)]
    drop = 0.37 if size > 9 else 0.36
    return [poly(shape, "#1a1108", 'stroke="#f0c453" stroke-width="1" stroke-linejoin="round"'),
            path(WORDS[mark]["path"], "#fff0c0", f'transform="translate({num(x)},{num(y + size * drop)}) scale({num(size)})"')]


def frame():
    """The border that all banners share: dark edge, gold line, corner pieces."""
    body = [f'<rect x="1" y="1" width="{WIDTH - 2}" height="{HEIGHT - 2}" fill="none" stroke="#120b06" stroke-width="2"/>',
            f'<rect x="2.5" y="2.5" width="{WIDTH - 5}" height="{HEIGHT - 5}" fill="none" stroke="#d9a840" stroke-width="1"/>',
            f'<rect x="3.5" y="3.5" width="{WIDTH - 7}" height="{HEIGHT - 7}" fill="none" stroke="#3a2410" stroke-width="1"/>']
    corner = path("M2,2H17L13,6H9.5V9.5H6V13L2,17Z", "#e3b34a", 'stroke="#1a1108" stroke-width="0.8"') + \
        path("M4,4H11L8,7H7V8L4,11Z", "#7a4c10") + circle(5.6, 5.6, 1.1, "#fff3bf")
    for flip_x, flip_y in ((1, 1), (-1, 1), (1, -1), (-1, -1)):
        place = f"translate({0 if flip_x > 0 else WIDTH},{0 if flip_y > 0 else HEIGHT}) scale({flip_x},{flip_y})"
        body.append(group([corner], place))
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
