"""Islands that hang in the morning sky, with falls that run into the clouds."""
from svg import circle, num, path, poly, rect, stroke
from terrain import bird, cloud, embers, gather, sky, streak, sun

ROCK, SHADE, GRASS = "#7a6a9a", "#4c3f74", "#4fb090"
LEFT_FALL = "M309,43C308,50 309,60 307,72H313C312,60 312.6,50 313,43Z"
RIGHT_FALL = "M412,33C411.6,42 412,54 410.6,68H415C414.4,52 414.6,42 414.6,33Z"
BRIDGE = "M349,43.5Q368,50 385,34.5"


def island(x, y, wide, deep, rock=ROCK, shade=SHADE, grass=GRASS):
    half = wide / 2
    under = [(x - half, y), (x - half * 0.66, y + deep * 0.38), (x - half * 0.5, y + deep * 0.34),
             (x - half * 0.24, y + deep * 0.8), (x - half * 0.04, y + deep), (x + half * 0.14, y + deep * 0.66),
             (x + half * 0.4, y + deep * 0.5), (x + half * 0.62, y + deep * 0.24), (x + half, y)]
    cracks = "".join(f"M{num(x + half * at)},{num(y + 2)}l{num(half * 0.05)},{num(deep * far)}" for at, far in
                     ((-0.62, 0.2), (-0.34, 0.4), (-0.1, 0.55)))
    top = (f"M{num(x - half - 1)},{num(y + 1)}Q{num(x - half * 0.7)},{num(y - wide * 0.1)} {num(x - half * 0.2)},"
           f"{num(y - wide * 0.07)}Q{num(x + half * 0.3)},{num(y - wide * 0.14)} {num(x + half + 1)},{num(y + 1)}"
           f"Q{num(x)},{num(y + 4)} {num(x - half - 1)},{num(y + 1)}Z")
    lip = f"M{num(x - half - 0.6)},{num(y + 1)}Q{num(x)},{num(y + 4.4)} {num(x + half + 0.6)},{num(y + 1)}"
    return [poly(under, rock), poly([(x + half * 0.1, y)] + under[4:], shade),
            stroke(cracks, "#b4a4cc", 0.8, 'opacity="0.7"'), path(top, grass), stroke(lip, "#2f8a70", 1)]


def pagoda(x, foot, scale, wall="#f8ead6", roof="#c23a50"):
    body = []
    for level, wide in enumerate((15, 12, 9)):
        y, w = foot - level * 7.6 * scale, wide * scale
        low, middle, high = num(y - 5.6 * scale), num(y - 6 * scale), num(y - 9 * scale)
        eave = (f"M{num(x - w * 0.8)},{low}Q{num(x - w * 0.4)},{middle} {num(x - w * 0.3)},{high}H{num(x + w * 0.3)}"
                f"Q{num(x + w * 0.4)},{middle} {num(x + w * 0.8)},{low}Q{num(x)},{num(y - 3.8 * scale)} "
                f"{num(x - w * 0.8)},{low}Z")
        body += [rect(wall, x - w * 0.34, y - 6 * scale, w * 0.68, 6 * scale),
                 rect("#8a5a6a", x - w * 0.08, y - 4 * scale, w * 0.16, 4 * scale), path(eave, roof)]
    return body + [stroke(f"M{num(x)},{num(foot - 24 * scale)}v{num(-5 * scale)}", roof, 1)]


def blossom(x, foot, scale):
    crown = [(-5, -13, 5), (1, -16, 6), (7, -12, 5), (-1, -11, 5), (4, -9, 4)]
    stem = stroke(f"M{num(x)},{num(foot)}q{num(-scale)},{num(-5 * scale)} {num(1.4 * scale)},{num(-11 * scale)}",
                  "#5a2c3c", 1.6 * scale)
    return [stem] + [circle(x + a * scale, foot + b * scale, r * scale, "#e86a9a") for a, b, r in crown] + \
        [circle(x + a * scale - 1, foot + b * scale - 1.2, r * scale * 0.66, "#ffb6d0") for a, b, r in crown]


def distant(x, y, wide, deep):
    return island(x, y, wide, deep, "#9aa8cc", "#7884b0", "#8cd0bc")


def scene():
    floor = [cloud(350, 71, 130, 10, "#ffffff", 0.95, 2), cloud(240, 73, 120, 11, "#fff0f4", 0.95, 4),
             cloud(430, 71, 70, 12, "#fff4f0", 0.97, 5), cloud(130, 76, 150, 10, "#f4e4f4", 0.8, 6)]
    return gather(sky([(0, "#2a6ea8"), (0.35, "#5fb4cc"), (0.65, "#bfe4dc"), (0.85, "#ffdcd8"), (1, "#ffc4cc")]),
                  sun(366, 30, 11, "#fffdf0", "#fff4d8", 85),
                  [cloud(238, 26, 60, 7, "#f8fcff", 0.7, 3), cloud(434, 16, 36, 5, "#f8fcff", 0.7, 8),
                   cloud(372, 60, 90, 6, "#fff8f8", 0.75, 9), cloud(165, 22, 60, 6, "#f8fcff", 0.45, 7),
                   streak(330, 12, 110, 2.6, "#ffffff", 0.5)],
                  distant(258, 40, 24, 14), pagoda(258, 38.6, 0.42, "#dfe4ee", "#a88aa8"), distant(366, 19, 18, 11),
                  distant(231, 55, 16, 8), [stroke(BRIDGE, "#6a3c4c", 1.1)],
                  island(406, 33, 44, 26), pagoda(400, 31, 0.72), blossom(418, 31, 0.62),
                  path(RIGHT_FALL, "#ffffff", 'opacity="0.8"'), island(316, 43, 66, 27),
                  path(LEFT_FALL, "#ffffff", 'opacity="0.85"'), pagoda(327, 40, 1.05), blossom(297, 41, 0.95),
                  blossom(343, 41, 0.7), floor,
                  [bird(282, 17, 4, "#ffffff"), bird(293, 22, 3, "#ffffff"), bird(374, 44, 3, "#4a5a8a")],
                  embers(13, 30, 225, 440, 14, 66, ("#ff9cc0", "#ffd0e0")))
