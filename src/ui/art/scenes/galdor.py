"""A ring of standing stones under the northern lights; something answers the chant."""
import math

from svg import WIDTH, ellipse, num, path, poly, radial, rect, stroke, vertical
from terrain import embers, facets, gather, profile, ridge, sky, stars

STONE, EDGE = "#15132e", "#9a86ff"
CURTAINS = ((34, 26, 0.0, "aurora_green", 1.0), (24, 20, 2.1, "aurora_violet", 0.85))


def aurora():
    """Curtains of fine upright rays that follow a wave."""
    defs = [f'<linearGradient id="{name}" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="{tip}" '
            f'stop-opacity="0"/><stop offset="0.6" stop-color="{tint}" stop-opacity="0.55"/><stop offset="0.92" '
            f'stop-color="{foot}" stop-opacity="0.85"/><stop offset="1" stop-color="{foot}" stop-opacity="0"/>'
            "</linearGradient>" for name, tip, tint, foot in
            (("aurora_green", "#7a6cff", "#3fe0b0", "#c8ffd8"), ("aurora_violet", "#ff7ad8", "#9a6cff", "#a8d8ff"))]
    body = []
    for base, tall, phase, fill, strength in CURTAINS:
        for x in range(150, WIDTH, 2):
            foot = base + 7 * math.sin(x / 31 + phase) + 3 * math.sin(x / 13 + phase * 2)
            rise = tall * (0.8 + 0.3 * math.sin(x / 9.1 + phase) + 0.16 * math.sin(x / 4.3))
            fade = strength * (0.72 + 0.28 * math.sin(x / 11 + phase))
            body.append(rect(f"url(#{fill})", x, foot - rise, 2.1, rise, f'opacity="{num(fade)}"'))
    return defs, body


def trilithon(x, foot, wide, tall):
    """Two uprights and their lintel; the inner sides catch the light of the well."""
    side = 0 if abs(x - 345) < 5 else (1 if x < 345 else -1)
    body = []
    for at in (x - wide / 2, x + wide / 2):
        body.append(poly([(at - 4.2, foot + 6), (at - 3, foot - tall), (at + 3, foot - tall), (at + 4.2, foot + 6)],
                         STONE))
        lean = side or (1 if at < 345 else -1)
        body.append(poly([(at + lean * 4.2, foot + 6), (at + lean * 3, foot - tall), (at + lean * 1.7, foot - tall),
                          (at + lean * 2.4, foot + 6)], EDGE, 'opacity="0.85"'))
        body.append(stroke(f"M{num(at)},{num(foot - tall * 0.8)}v{num(tall * 0.44)}m-1.8,{num(-tall * 0.38)}l3.6,2.4"
                           "m-3.6,1.8l3.6,2.4", "#8ff7ff", 0.9))
    reach = wide / 2 + 5.4
    under, over = foot - tall + 0.4, foot - tall - 5
    body.append(poly([(x - reach, under), (x - reach + 0.8, over), (x + reach - 0.8, over), (x + reach, under)], STONE))
    body.append(stroke(f"M{num(x - reach + 1.4)},{num(foot - tall - 4.6)}H{num(x + reach - 1.4)}", "#b8ffe0", 0.7,
                       'opacity="0.7"'))
    return body


def scene():
    hills = profile(5, -5, 455, 58, 9, levels=7, peaks=((425, 18, 50), (235, 14, 50), (140, 8, 40)))
    ground = profile(9, -5, 455, 69, 3, peaks=((345, 4, 90),))
    well = [vertical("beam", [(0, "#b9a4ff", 0), (1, "#e9fbff", 0.95)], 2, 68),
            radial("well", 345, 67, 50, [(0, "#dffcff", 0.95), (0.4, "#7a6cff", 0.55), (1, "#7a6cff", 0)])]
    return gather(sky([(0, "#070620"), (0.5, "#1a1650"), (0.85, "#3a2d80"), (1, "#6a4aa0")]),
                  stars(12, 80, 90, 445, 50), aurora(), ridge("hills", hills, "#221c56", "#3d2f7c", 44),
                  facets(hills, "#a8e8e0", 0.45, 8),
                  (well, [ellipse(345, 67, 50, 20, "url(#well)"),
                          poly([(340, 0), (350, 0), (354, 68), (336, 68)], "url(#beam)")]),
                  trilithon(289, 65, 15, 18), trilithon(401, 65, 15, 18), trilithon(345, 65, 38, 27),
                  ridge("ground", ground, "#171333", "#080716", 62),
                  [path("M424,76l1.4,-13l5,-2.4l3,2l1.2,13.4ZM244,76l1,-8l4,-1l2,9Z", STONE)],
                  embers(6, 30, 300, 392, 12, 62, ("#bff8ff", "#e2d6ff")))
