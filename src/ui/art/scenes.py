"""The landscape behind each product's name. Every scene is (defs, body), back to front.

The left third lies under the medallion and the name and is kept calm; the story is told from x = 250 on.
"""
import math

from svg import WIDTH, circle, ellipse, group, num, path, poly, radial, rect, stroke, vertical
from terrain import (bird, cloud, embers, facets, gather, mist, pines, profile, ridge, sky, stars, streak, sun, tower)

# Hour of the day of the flagship's editions: the same land in another light.
BRENN_HOURS = {
    "dusk": dict(sky=[(0, "#2a0d1e"), (0.35, "#7a1d1f"), (0.62, "#d2561d"), (0.85, "#ffb347"), (1, "#ffd98a")],
                 disc=(352, 47, 15, "#fff0b8", "#ffc24a", 95), far=("#8c3322", "#e58a3a"), mid=("#5a1a1a", "#a8431f"),
                 near=("#2c0c12", "#4a1512"), front="#16060b", lit="#ffb24a", cloud="#ff9d4d", window="#ffd36b"),
    "night": dict(sky=[(0, "#050b22"), (0.5, "#10275a"), (0.85, "#2f5f9c"), (1, "#6ea5cf")],
                  disc=(352, 26, 12, "#f4f8ff", "#9cc4ff", 80), far=("#34598f", "#6c9ccb"), mid=("#1c3769", "#3b6299"),
                  near=("#0b1a3c", "#17305c"), front="#050c20", lit="#bcd9ff", cloud="#7fa8dc", window="#ffd98a"),
    "morning": dict(sky=[(0, "#0b4a55"), (0.45, "#2c9088"), (0.8, "#a8dcae"), (1, "#f4f3c0")],
                    disc=(352, 40, 13, "#fffde0", "#fff2a0", 90), far=("#5aa694", "#b4dcae"), mid=("#226f63", "#6bb08c"),
                    near=("#0c3f3d", "#1f6652"), front="#05221f", lit="#e9ffc9", cloud="#f0ffd8", window="#fff1a6"),
    "twilight": dict(sky=[(0, "#160a38"), (0.4, "#4a2178"), (0.7, "#a54a98"), (0.9, "#f097a0"), (1, "#ffd0a8")],
                     disc=(352, 44, 13, "#fff0e4", "#ffb6c8", 90), far=("#7a3f92", "#d98aae"), mid=("#4a2270", "#8a4a94"),
                     near=("#21103f", "#432060"), front="#100722", lit="#ffc4d8", cloud="#ff9fc0", window="#ffe08a"),
}


def citadel(x, foot, colour, window):
    walls = tower(x, foot, 13, 27) + tower(x - 15, foot + 3, 9, 19, 9) + tower(x + 15, foot + 3, 9, 17, 9) + \
        tower(x - 5, foot, 5, 33, 8) + tower(x + 27, foot + 5, 7, 11) + tower(x - 27, foot + 5, 7, 12)
    wall = f"M{num(x - 34)},{num(foot + 12)}V{num(foot - 5)}H{num(x + 34)}V{num(foot + 12)}Z"
    lights = "".join(f"M{num(x + dx)},{num(foot - dy)}v-2.6h1.2v2.6Z" for dx, dy in
                     ((-2.6, 16), (1.6, 16), (-15.6, 11), (14.4, 9), (-0.6, 7), (26.4, 1), (-27.6, 1)))
    flag = path(f"M{num(x - 5)},{num(foot - 41)}v-7l8,2l-8,2.4", colour)
    return [path(walls + wall, colour), flag, path(lights, window)]


def brenn(hour):
    light = BRENN_HOURS[hour]
    x, y, radius, core, glow, reach = light["disc"]
    far = profile(11, -5, 455, 50, 20, peaks=((290, 16, 40), (430, 22, 45), (210, 10, 40)))
    mid = profile(23, -5, 455, 60, 16, peaks=((395, 20, 48), (255, 8, 36)))
    near = profile(37, -5, 455, 69, 9, peaks=((330, 11, 60),))
    front = profile(41, -5, 455, 74, 4)
    night = stars(5, 46, 100, 445, 34) if hour == "night" else []
    return gather(sky(light["sky"]), night, sun(x, y, radius, core, glow, reach),
                  [streak(300, 22, 120, 4, light["cloud"], 0.45), streak(415, 15, 90, 3.4, light["cloud"], 0.4),
                   streak(190, 14, 130, 4, light["cloud"], 0.22), streak(400, 33, 70, 2.6, light["cloud"], 0.5)],
                  ridge("far", far, *light["far"], 25), facets(far, light["lit"], 0.35),
                  ridge("mid", mid, *light["mid"], 38), facets(mid, light["lit"], 0.2),
                  citadel(318, 57, light["near"][0], light["window"]),
                  ridge("near", near, *light["near"], 52), ridge("front", front, light["front"], light["front"], 70),
                  pines(3, front, 268, 449, 6, 11, light["front"], (300, 350)),
                  [bird(268, 20, 4.4, light["near"][0]), bird(281, 26, 3.2, light["near"][0])],
                  embers(8, 34, 255, 440, 14, 68, (light["window"], light["lit"])))


def trunk(x, wide, lean, colour):
    half = wide / 2
    data = (f"M{num(x - half * 1.9)},76C{num(x - half)},66 {num(x - half + lean)},30 {num(x - half * 0.8 + lean)},0"
            f"H{num(x + half * 0.8 + lean)}C{num(x + half + lean)},30 {num(x + half)},66 {num(x + half * 2.1)},76Z")
    return path(data, colour)


def fyrn():
    """A deep wood at first light; a stag stands in the glade."""
    back = profile(7, -5, 455, 55, 8)
    floor = profile(15, -5, 455, 66, 5, peaks=((345, 4, 70),))
    front = profile(19, -5, 455, 73, 5)
    rays = [poly([(345 + a, -2), (352 + a, -2), (345 + a * 2.4 + 13, 70), (345 + a * 2.4 - 12, 70)], "url(#ray)")
            for a in (-44, -20, 2, 26)]
    far = [trunk(x, w, l, "#4f8f5c") for x, w, l in
           ((205, 5, 1), (262, 4, -1), (281, 6, 1), (318, 4, 0), (377, 5, 1), (398, 4, -1), (421, 6, 1), (441, 5, 0))]
    middle = [trunk(x, w, l, "#1f5638") for x, w, l in ((236, 9, 2), (292, 7, -2), (409, 9, -2), (180, 8, 1))]
    close = [trunk(x, w, l, "#0a2418") for x, w, l in ((258, 13, -3), (437, 17, 3))]
    boughs = path("M230,-2H449V13Q440,10 432,15Q424,9 415,13Q405,6 396,10Q388,4 378,7Q360,1 345,4Q325,0 312,7Q303,4 "
                  "296,11Q287,6 279,13Q268,8 261,16Q252,9 244,12Q238,6 230,8Z", "#0a2418")
    deer = ("M338,63V55.6C336.6,53.4 336.4,51 337.6,49C341,47.6 346,48.4 349,47.4C351,45.6 351.6,42.8 352,40.4L350.6,38.6"
            "L353.2,39C354.2,38.4 355.2,38.6 356,39.4L359.6,41.4L358.8,43L355.8,43.2C355.4,46.6 355.2,49.6 353.6,52.4"
            "C353.2,53.8 353,55 353,63H351.6L351.2,55.6C348,56.4 344,56.2 341.4,55.4C340.4,57 339.8,58.6 339.6,63Z")
    horns = "M353,39C351,35 347,35.6 346.6,30.6M350.2,35.8C350,33.6 350.4,32 350,30M354.4,38.6C355,35 359,35 359.4,30.6" \
            "M356.2,35.6C356.2,33.6 356,32 356.4,30"
    return gather(sky([(0, "#0e3b2c"), (0.4, "#3f8f5a"), (0.75, "#bfe08a"), (1, "#eff6bb")]),
                  sun(345, 30, 0.1, "#ffffd8", "#fbffc4", 100, strength=1),
                  ridge("back", back, "#6fae6a", "#b4d98a", 48), pines(2, back, -5, 455, 9, 34, "#5c9e62", (322, 372)),
                  far, ([vertical("ray", [(0, "#ffffd0", 0.42), (1, "#ffffd0", 0)], 0, 70)], rays),
                  middle, mist(58, 14, "#e8f8b8", 0.5, "mist"),
                  ridge("floor", floor, "#2f6b3c", "#123a24", 60), [path(deer, "#0c2417"), stroke(horns, "#0c2417", 1.2)],
                  close, [boughs], ridge("front", front, "#0a2418", "#06170f", 70),
                  embers(4, 30, 262, 430, 22, 68, ("#f9ffb0", "#ffffff")))


def galdor():
    """A ring of standing stones under the northern lights."""
    hills = profile(5, -5, 455, 58, 12, peaks=((425, 12, 60), (230, 8, 70)))
    ground = profile(9, -5, 455, 68, 4, peaks=((345, 5, 90),))
    curtains, defs = [], []
    for i, (x, wide, tint, sway) in enumerate(((190, 90, "#4be0c0", 9), (265, 100, "#5cf0a8", -12),
                                               (350, 110, "#9a7bff", 10), (420, 80, "#4be0c0", -8))):
        top, low = 4 + i % 2 * 5, 50 - i % 3 * 5
        defs.append(vertical(f"veil{i}", [(0, tint, 0), (0.7, tint, 0.5), (0.93, "#d8ffe8", 0.75), (1, tint, 0)], top, low))
        edge = f"M{num(x - wide / 2)},{low - 8}C{num(x - wide / 4)},{low + sway} {num(x + wide / 4)},{low - 10 - sway} " \
               f"{num(x + wide / 2)},{low - 4}L{num(x + wide / 2 + 8)},{top}C{num(x + wide / 4)},{top - 4} " \
               f"{num(x - wide / 4)},{top + 6} {num(x - wide / 2 + 6)},{top}Z"
        curtains.append(path(edge, f"url(#veil{i})"))
    stones, glow = [], []
    for x, foot, wide, tall in ((287, 66, 8, 20), (306, 65, 7, 25), (330, 64, 8, 29), (360, 64, 8, 29), (385, 65, 7, 25),
                                (405, 66, 8, 20)):
        side = 1 if x < 345 else -1
        shape = [(x - wide / 2 - 1, foot + 5), (x - wide / 2 + 0.6, foot - tall + 2), (x - 1, foot - tall),
                 (x + wide / 2 - 0.6, foot - tall + 3), (x + wide / 2 + 1, foot + 5)]
        stones.append(poly(shape, "#15132e"))
        stones.append(poly([(x + side * wide / 2, foot + 5), (x + side * (wide / 2 - 0.8), foot - tall + 3),
                            (x + side * (wide / 2 - 2.4), foot - tall + 4), (x + side * (wide / 2 - 2), foot + 5)], "#7d6cff",
                           'opacity="0.8"'))
        glow.append(stroke(f"M{x},{num(foot - tall * 0.75)}v{num(tall * 0.42)}m-1.8,{num(-tall * 0.36)}l3.6,2.4"
                           f"m-3.6,1.8l3.6,2.4", "#8ff7ff", 0.9))
    lintels = [poly([(301, 40), (336, 34), (336, 37.6), (301, 43.6)], "#15132e"),
               poly([(389, 40), (354, 34), (354, 37.6), (389, 43.6)], "#15132e")]
    beam = [vertical("beam", [(0, "#b9a4ff", 0), (1, "#e9fbff", 0.9)], 2, 66),
            radial("well", 345, 66, 46, [(0, "#dffcff", 0.9), (0.4, "#7a6cff", 0.5), (1, "#7a6cff", 0)])]
    return gather(sky([(0, "#070620"), (0.5, "#1a1650"), (0.85, "#3a2d80"), (1, "#6a4aa0")]), stars(12, 70, 90, 445, 50),
                  (defs, curtains), ridge("hills", hills, "#221c56", "#3d2f7c", 44), facets(hills, "#9ad0ff", 0.25),
                  (beam, [poly([(341, 0), (349, 0), (353, 66), (337, 66)], "url(#beam)"),
                          ellipse(345, 66, 46, 14, "url(#well)")]),
                  lintels, stones, glow, ridge("ground", ground, "#171333", "#080716", 62),
                  embers(6, 26, 300, 392, 16, 62, ("#bff8ff", "#e2d6ff")))


def cymra():
    """Green hills, a keep on its rock, and the red dragon over it."""
    far = profile(31, -5, 455, 50, 13, peaks=((250, 12, 60), (440, 16, 50)))
    mid = profile(33, -5, 455, 59, 9, 0.45, peaks=((385, 20, 42),))
    near = profile(35, -5, 455, 68, 8, 0.4)
    keep = tower(385, 42, 11, 16) + tower(374, 44, 7, 12) + tower(396, 44, 7, 12) + tower(385, 42, 4, 22, 0) + \
        "M366,50V38H404V50Z"
    lights = "".join(f"M{x},{y}v-2.4h1.1v2.4Z" for x, y in ((381, 33), (387.6, 33), (373.4, 38), (395.4, 38)))
    dragon = ("M0,0C-3,-1 -6,-0.6 -8.6,1.4L-13.4,1.6L-10,3.4C-8,4.4 -5.6,4 -3.6,3.2C-1,6 3,8 8,8.4C14,9 20,8.2 25,10.4"
              "C28,12 29,15 33.4,15.6L31.8,18.4L38.6,15.6L34.2,11.8L34.4,14C31,13 30,9 26.6,7C23,5 18.6,5.4 15.4,4.4"
              "C19.4,0 25.6,-1.2 31.4,0C29.6,-2.6 28.6,-4 28.8,-6.6C26,-6.4 23.8,-7.4 22.4,-10C19.6,-8.6 17,-9 14.6,-12.4"
              "C12,-8 7.4,-3 5.4,1.4C3.6,2 1.8,1.2 0,0Z")
    wing = "M7,2.4C4,-5 0.6,-10 -6,-14.6C-5.4,-11.4 -6,-9.4 -8,-7.6C-5.6,-6.8 -4.6,-5.2 -4.8,-2.6C-2.6,-2.6 0,-1 2.4,2Z"
    return gather(sky([(0, "#2c5a8c"), (0.4, "#6ba3c4"), (0.75, "#d8dcb8"), (1, "#ffe7a8")]),
                  sun(300, 52, 0.1, "#fff6d0", "#fff0b0", 110),
                  [cloud(410, 18, 95, 9, "#ffffff", 0.75, 3), cloud(240, 20, 110, 8, "#ffffff", 0.5, 5),
                   cloud(345, 12, 70, 5, "#ffffff", 0.55, 8), cloud(300, 44, 120, 6, "#fff4d0", 0.6, 9)],
                  ridge("far", far, "#4f8590", "#a8c49a", 30), facets(far, "#ffffff", 0.3),
                  ridge("mid", mid, "#3d7a3c", "#7fa648", 40), [path(keep, "#3a3240"), path(lights, "#ffd76a")],
                  [stroke("M385,20v-7", "#3a3240", 0.8), path("M385,12.4l8,2l-8,2.4Z", "#c41f1c")],
                  ridge("near", near, "#2b6130", "#163a1c", 60), pines(6, near, 240, 455, 8, 9, "#143019"),
                  group([path(wing, "#7d1113"), path(dragon, "#b3191a"),
                         path("M14.6,-12.4C12,-8 7.4,-3 5.4,1.4L15.4,4.4C19.4,0 20.6,-5 14.6,-12.4Z", "#e0442c", 'opacity="0.7"'),
                         circle(-5.4, 0.9, 0.5, "#ffe27a")], "translate(291,26) scale(1.12)"))


def hesk():
    """A longship runs down a winter fjord."""
    back = profile(51, -5, 455, 46, 12, peaks=((400, 30, 62), (285, 16, 48), (205, 14, 50)))
    left = profile(53, -5, 300, 56, 9, peaks=((245, 18, 48), (150, 8, 60)))
    right = profile(57, 360, 455, 58, 6, levels=5, peaks=((446, 32, 60),))
    waves = "".join(f"M{x},{y}h{w}" for x, y, w in ((232, 63, 22), (270, 67, 30), (300, 60.6, 15), (382, 62, 24), (398, 68, 34),
                                                      (352, 71.6, 26), (246, 71, 20), (318, 73.4, 18), (420, 64.6, 14)))
    hull = ("M-27,-12C-25.6,-13.6 -23.4,-13 -23.2,-11C-23.4,-9.8 -24.6,-9.8 -24.8,-10.6C-23.6,-4 -20,-1.4 -14,-0.8H14C20,-1.4 "
            "23.6,-5 24.6,-13.4C25,-15.6 28.4,-15.6 28.6,-12.8L30.8,-12L28,-11C27.6,-3 23.4,5.6 15,6H-14C-22.6,5.6 -27,-2 -27,-12Z")
    shields = [circle(x, 0.6, 2.2, tint, 'stroke="#20140c" stroke-width="0.6"') for x, tint in
               zip((-13, -8, -3, 2, 7, 12), ("#c8352c", "#e7c15a", "#c8352c", "#e7c15a", "#c8352c", "#e7c15a"))]
    sail = "M-13.6,-26C-15.4,-19 -15,-12 -12.4,-6H12.4C15,-12 15.4,-19 13.6,-26Z"
    stripes = "M-8.4,-26C-9.6,-19 -9.4,-12 -7.4,-6H-2.6V-26ZM2.6,-26V-6H7.4C9.4,-12 9.6,-19 8.4,-26Z"
    ship = [stroke("M0,0V-30", "#20140c", 1.3), path(sail, "#f1ead8"), path(stripes, "#c8352c"),
            stroke("M-14.4,-26.4H14.4", "#20140c", 1.2), path("M0,-30l-7,-1.6l7,-1.8Z", "#c8352c"),
            path(hull, "#2b1a10"), stroke("M-23,-3.4C-18,1.6 18,1.6 23,-4", "#8a5a30", 0.8)] + shields + \
           [stroke("M-28,6.4C-20,4.6 20,4.6 30,6.4", "#ffffff", 1.1, 'opacity="0.8"')]
    return gather(sky([(0, "#22456c"), (0.45, "#5f95b8"), (0.75, "#c9dfe6"), (1, "#fdeedd")]),
                  sun(330, 40, 9, "#fffaf0", "#fff1dc", 80),
                  [streak(265, 17, 120, 4, "#ffffff", 0.45), streak(400, 11, 90, 3, "#ffffff", 0.4)],
                  ridge("back", back, "#86aac4", "#d9e6ea", 20), facets(back, "#ffffff", 0.85, 12),
                  mist(54, 9, "#ffffff", 0.5, "mist"),
                  ([vertical("sea", [(0, "#b9d6de"), (0.35, "#5b93ad"), (1, "#1b4560")], 55, 76)],
                   [rect("url(#sea)", y=55.5, height=21)]),
                  ridge("left", left, "#3c6480", "#5f8aa3", 38), facets(left, "#ffffff", 0.8, 10),
                  ridge("right", right, "#31566f", "#4b768f", 24), facets(right, "#ffffff", 0.8, 10),
                  [stroke(waves, "#e8f6fa", 0.9, 'opacity="0.65"'), group(ship, "translate(335,60) scale(1.08)")],
                  embers(10, 44, 110, 445, 6, 72, ("#ffffff",)))


ORVEL_HOURS = {
    "noon": dict(sky=[(0, "#2b7fb4"), (0.4, "#7fc0cf"), (0.7, "#ffe0a0"), (1, "#ffc768")],
                 disc=(300, 20, 9, "#fffbe0", "#fff0a8", 85), dune=("#f2b95a", "#d98a34"), mid=("#e09a3c", "#a85a20"),
                 near=("#a8561e", "#5e2a10"), city="#c98245", shade="#8a4a24", dome="#2f8f9a", lit="#fff0c0", figure="#4a200c"),
    "night": dict(sky=[(0, "#081538"), (0.45, "#1f3f7c"), (0.75, "#6a5a9c"), (1, "#e0909a")],
                  disc=(300, 21, 8, "#fff7dc", "#cfd8ff", 70), dune=("#7a6a9c", "#4f4580"), mid=("#574a86", "#2f2a60"),
                  near=("#2a2454", "#120f2e"), city="#4a4080", shade="#2c2558", dome="#39b0b4", lit="#e8dcff", figure="#0c0a20"),
}


def dome(x, foot, wide, colour, shade, gold="#ffe08a"):
    half = wide / 2
    data = (f"M{num(x - half)},{num(foot)}C{num(x - half * 1.5)},{num(foot - wide * 0.55)} {num(x - half * 0.3)},"
            f"{num(foot - wide * 0.7)} {num(x)},{num(foot - wide * 1.02)}C{num(x + half * 0.3)},{num(foot - wide * 0.7)} "
            f"{num(x + half * 1.5)},{num(foot - wide * 0.55)} {num(x + half)},{num(foot)}Z")
    dark = (f"M{num(x + half * 0.2)},{num(foot)}C{num(x + half * 0.9)},{num(foot - wide * 0.5)} {num(x + half * 0.2)},"
            f"{num(foot - wide * 0.7)} {num(x)},{num(foot - wide * 1.02)}C{num(x + half * 0.3)},{num(foot - wide * 0.7)} "
            f"{num(x + half * 1.5)},{num(foot - wide * 0.55)} {num(x + half)},{num(foot)}Z")
    return [path(data, colour), path(dark, shade, 'opacity="0.45"'),
            stroke(f"M{num(x)},{num(foot - wide)}v-4", gold, 0.9)]


def orvel(hour):
    """A domed city beyond the dunes; a caravan goes towards it."""
    light = ORVEL_HOURS[hour]
    x, y, radius, core, glow, reach = light["disc"]
    city, shade = light["city"], light["shade"]
    walls = [rect(city, a, b, w, 60 - b) for a, b, w in ((352, 45, 66), (358, 40, 14), (376, 34, 20), (400, 41, 12))]
    shades = [rect(shade, a, b, w, 60 - b, 'opacity="0.6"') for a, b, w in ((367, 40, 5), (388, 34, 8), (408, 41, 4), (412, 45, 6))]
    spires = []
    for at, top in ((349, 19), (421, 22), (437, 32), (335, 33)):
        spires += [rect(city, at - 1.7, top, 3.4, 60 - top), rect(shade, at + 0.3, top, 1.4, 60 - top, 'opacity="0.6"'),
                   rect(city, at - 2.8, top + 7, 5.6, 1.8), path(f"M{at - 2.4},{top}Q{at - 2},{top - 4} {at},{top - 7}Q{at + 2},"
                                                             f"{top - 4} {at + 2.4},{top}Z", light["dome"])]
    arches = "".join(f"M{a},60v-6q1.6,-3.4 3.2,0v6Z" for a in (379, 385, 391, 361, 366, 403))
    camel = ("M0,0V-6.4C-1.4,-8 -1,-9.6 0.6,-10C1.6,-12.4 3.6,-12.4 4.4,-10.4C5.2,-12.6 7.4,-12.6 8.2,-10C9.8,-9.6 10.6,-8.6 11,-7.8"
             "C12.4,-8.6 12.2,-11 13,-12.8L15.8,-12.4L15.6,-11.2L14.2,-11C14,-8 13.4,-5.6 10.6,-5.2L10.2,0H9.2L9,-4.8H2.2L1.2,0Z")
    rider = "M3.4,-10.6C3.2,-13.4 4.2,-15 5.6,-15.2C5,-17 7.4,-17.4 7.4,-15.6C8.6,-14.6 9,-12.6 8.8,-10.4Z"
    caravan = [group([path(camel, light["figure"])] + ([path(rider, light["figure"])] if load else []),
                     f"translate({at},{foot}) scale(0.86)") for at, foot, load in ((258, 64.6, 1), (279, 63.8, 0), (299, 64.2, 1))]
    back = "M-5,58C60,48 140,62 215,56C270,50 330,60 380,57C410,55 440,58 455,56V80H-5Z"
    mid = "M-5,66C80,54 150,70 235,65C300,60 350,66 455,60V80H-5Z"
    near = "M-5,72C90,64 180,78 262,72C340,66 400,80 455,68V80H-5Z"
    crest = "M235,65C300,60 350,66 455,60C400,66 350,72 300,69C275,67.6 255,66.6 235,65Z"
    night = stars(14, 60, 90, 445, 36) + [circle(303.5, 18.6, 7, "#15305f", 'opacity="0.88"')] if hour == "night" else []
    return gather(sky(light["sky"]), sun(x, y, radius, core, glow, reach), night,
                  [streak(390, 14, 90, 3, light["lit"], 0.5), streak(220, 18, 110, 4, light["lit"], 0.3),
                   streak(330, 36, 120, 3, light["lit"], 0.35)],
                  spires, walls, shades, dome(386, 35, 19, light["dome"], shade), dome(365, 41, 11, light["dome"], shade),
                  dome(406, 42, 10, light["dome"], shade), [path(arches, light["figure"], 'opacity="0.8"')],
                  ([vertical("dune", [(0, light["dune"][0]), (1, light["dune"][1])], 50, 70)], [path(back, "url(#dune)")]),
                  ([vertical("slope", [(0, light["mid"][0]), (1, light["mid"][1])], 58, 76)], [path(mid, "url(#slope)")]),
                  [path(crest, light["lit"], 'opacity="0.35"')], caravan,
                  ([vertical("fore", [(0, light["near"][0]), (1, light["near"][1])], 66, 76)], [path(near, "url(#fore)")]))


def crossing():
    """After the battle: torn standards and spears against a red storm."""
    far = profile(61, -5, 455, 54, 10, peaks=((280, 10, 50), (420, 14, 60)))
    field = profile(63, -5, 455, 68, 7)
    front = profile(65, -5, 455, 73, 4)
    spears = []
    for x, foot, lean, tall in ((262, 70, -5, 30), (276, 70, 3, 36), (301, 69, -7, 33), (318, 69, 8, 25), (372, 68, 6, 32),
                                (386, 69, -4, 38), (408, 70, 9, 30), (428, 70, -6, 34), (440, 71, 4, 26)):
        top = (x + lean, foot - tall)
        spears.append(stroke(f"M{x},{foot + 4}L{num(top[0])},{num(top[1])}", "#120a0e", 1.2))
        spears.append(poly([(top[0] + lean * 0.14, top[1] - 5), (top[0] + 1.5, top[1]), (top[0] - 1.5, top[1])], "#120a0e"))
    def standard(x, foot, tall, flow, tint, dark):
        top = foot - tall
        torn = (f"M{x},{top}C{x + flow * 0.4},{top - 4} {x + flow * 0.6},{top + 5} {x + flow},{top + 1}L{num(x + flow * 0.84)},{top + 6}"
                f"L{num(x + flow * 0.98)},{top + 10}L{num(x + flow * 0.8)},{top + 13}L{num(x + flow * 0.9)},{top + 19}C{x + flow * 0.6},{top + 21} "
                f"{x + flow * 0.4},{top + 13} {x},{top + 17}Z")
        fold = f"M{num(x + flow * 0.36)},{num(top - 0.6)}Q{num(x + flow * 0.5)},{top + 9} {num(x + flow * 0.4)},{top + 15.6}" \
               f"L{num(x + flow * 0.62)},{num(top + 19.6)}Q{num(x + flow * 0.66)},{top + 8} {num(x + flow * 0.56)},{num(top + 1.4)}Z"
        return [stroke(f"M{x},{foot + 4}V{top - 4}", "#120a0e", 1.9), path(torn, tint), path(fold, dark, 'opacity="0.55"'),
                circle(x, top - 5, 1.7, "#d9b04c")]
    blades = [group([stroke("M0,12V-22", "#120a0e", 2.6), stroke("M-5,-12H5", "#120a0e", 2.2), circle(0, -23, 2, "#120a0e")],
                    f"translate({x},66) rotate({turn}) scale(0.9)") for x, turn in ((352, 14), (292, -18))]
    bolts = "M238,0L232,15L239,15.6L228,35L234,35.6L225,52M232,24L222,33"
    return gather(sky([(0, "#15161d"), (0.4, "#43303a"), (0.7, "#a8392e"), (0.9, "#f08a3c"), (1, "#ffd07a")]),
                  sun(340, 56, 13, "#fff0c0", "#ffa048", 100),
                  [cloud(300, 16, 170, 10, "#20212b", 0.85, 2), cloud(420, 21, 120, 10, "#2a2630", 0.85, 4),
                   cloud(190, 19, 160, 10, "#20212b", 0.8, 6), cloud(370, 31, 110, 6, "#6a2c30", 0.7, 7),
                   cloud(250, 34, 100, 6, "#5a2830", 0.6, 1)],
                  [stroke(bolts, "#ffd9c0", 2.4, 'opacity="0.4"'), stroke(bolts, "#fff6ea", 0.9)],
                  ridge("far", far, "#5f2028", "#b3442c", 40), ridge("field", field, "#2a1116", "#180a0e", 60),
                  spears, standard(334, 68, 48, 34, "#a5182a", "#4a0812"), standard(416, 70, 40, 24, "#a5182a", "#4a0812"),
                  blades, ridge("front", front, "#120a0e", "#0a0508", 70),
                  [bird(398, 13, 4, "#0c080c"), bird(384, 20, 3, "#0c080c"), bird(309, 28, 3.4, "#0c080c")],
                  embers(9, 34, 240, 445, 20, 70, ("#ffb35a", "#ffe0a0")))


def island(x, y, wide, deep, rock, shade, grass):
    half = wide / 2
    under = [(x - half, y), (x - half * 0.66, y + deep * 0.38), (x - half * 0.5, y + deep * 0.34), (x - half * 0.24, y + deep * 0.8),
             (x - half * 0.04, y + deep), (x + half * 0.14, y + deep * 0.66), (x + half * 0.4, y + deep * 0.5),
             (x + half * 0.62, y + deep * 0.24), (x + half, y)]
    dark = [(x + half * 0.1, y)] + under[4:]
    top = (f"M{num(x - half - 1)},{num(y + 1)}Q{num(x - half * 0.7)},{num(y - wide * 0.1)} {num(x - half * 0.2)},{num(y - wide * 0.07)}"
           f"Q{num(x + half * 0.3)},{num(y - wide * 0.14)} {num(x + half + 1)},{num(y + 1)}Q{num(x)},{num(y + 4)} {num(x - half - 1)},{num(y + 1)}Z")
    return [poly(under, rock), poly(dark, shade), path(top, grass)]


def pagoda(x, foot, scale, wall, roof):
    body = []
    for level, wide in enumerate((15, 12, 9)):
        y = foot - level * 7.6 * scale
        w = wide * scale
        body.append(rect(wall, x - w * 0.34, y - 6 * scale, w * 0.68, 6 * scale))
        body.append(path(f"M{num(x - w * 0.8)},{num(y - 5.6 * scale)}Q{num(x - w * 0.4)},{num(y - 6 * scale)} {num(x - w * 0.3)},{num(y - 9 * scale)}"
                         f"H{num(x + w * 0.3)}Q{num(x + w * 0.4)},{num(y - 6 * scale)} {num(x + w * 0.8)},{num(y - 5.6 * scale)}"
                         f"Q{num(x)},{num(y - 3.8 * scale)} {num(x - w * 0.8)},{num(y - 5.6 * scale)}Z", roof))
    return body + [stroke(f"M{num(x)},{num(foot - 24 * scale)}v{num(-5 * scale)}", roof, 1)]


def blossom(x, foot, scale):
    crown = [(-5, -13, 5), (1, -16, 6), (7, -12, 5), (-1, -11, 5), (4, -9, 4)]
    return [stroke(f"M{num(x)},{num(foot)}q{num(-1 * scale)},{num(-5 * scale)} {num(1.4 * scale)},{num(-11 * scale)}", "#5a2c3c", 1.6 * scale)] + \
        [circle(x + a * scale, foot + b * scale, r * scale, "#e86a9a") for a, b, r in crown] + \
        [circle(x + a * scale - 1, foot + b * scale - 1.2, r * scale * 0.66, "#ffb6d0") for a, b, r in crown]


def talis():
    """Islands that hang in the morning sky, with falls that run into the clouds."""
    falls = [path("M309,43C308,50 309,60 307,70H313C312,60 312.6,50 313,43Z", "#ffffff", 'opacity="0.75"'),
             path("M412,33C411.6,42 412,54 410.6,64H415C414.4,52 414.6,42 414.6,33Z", "#ffffff", 'opacity="0.7"')]
    rock, shade, grass = "#7a6a9a", "#4c3f74", "#4fb090"
    clouds = [cloud(350, 76, 150, 9, "#ffffff", 0.9, 2), cloud(250, 78, 150, 10, "#fff0f4", 0.9, 4), cloud(430, 79, 110, 10, "#fff4f0", 0.95, 5),
              cloud(130, 80, 200, 9, "#f4e4f4", 0.7, 6)]
    return gather(sky([(0, "#2a6ea8"), (0.35, "#5fb4cc"), (0.65, "#bfe4dc"), (0.85, "#ffdcd8"), (1, "#ffc4cc")]),
                  sun(365, 34, 11, "#fffdf0", "#fff4d8", 85),
                  [cloud(250, 24, 90, 6, "#ffffff", 0.6, 3), cloud(432, 17, 60, 5, "#ffffff", 0.6, 8), cloud(375, 52, 120, 6, "#ffffff", 0.65, 9),
                   cloud(170, 20, 110, 6, "#ffffff", 0.35, 7)],
                  island(262, 33, 22, 14, "#8f9cc0", "#6a76a4", "#7cc4b0"), island(365, 17, 16, 10, "#9aa8cc", "#7884b0", "#8cd0bc"),
                  island(406, 33, 44, 26, rock, shade, grass), pagoda(400, 31, 0.72, "#f4e4d0", "#b8344c"), blossom(418, 31, 0.62),
                  falls[1], island(316, 43, 66, 27, rock, shade, grass), falls[0], pagoda(327, 40, 1.05, "#f8ead6", "#c23a50"),
                  blossom(297, 41, 0.95), blossom(345, 41, 0.7), clouds,
                  [bird(282, 17, 4, "#ffffff"), bird(293, 22, 3, "#ffffff"), bird(374, 28, 3, "#4a5a8a")],
                  embers(13, 26, 255, 440, 14, 66, ("#ff9cc0", "#ffd0e0")))


def crashvane():
    """A storm over the roofs; the vane on the ridge has been struck."""
    town = profile(71, -5, 455, 62, 7)
    roofs = []
    for x, foot, wide, tall in ((222, 76, 30, 22), (254, 76, 22, 17), (283, 76, 34, 25), (404, 76, 30, 22), (434, 76, 34, 28), (190, 76, 28, 17)):
        roofs.append(poly([(x - wide / 2 - 2, foot - tall * 0.45), (x, foot - tall), (x + wide / 2 + 2, foot - tall * 0.45),
                           (x + wide / 2, foot), (x - wide / 2, foot)], "#16222f"))
        roofs.append(poly([(x, foot - tall), (x + wide / 2 + 2, foot - tall * 0.45), (x + wide / 2 - 1, foot - tall * 0.45)], "#5d7f98"))
        roofs.append(rect("#ffd27a", x - 4, foot - tall * 0.36, 2.4, 3.4))
        roofs.append(rect("#ffd27a", x + 3, foot - tall * 0.36, 2.4, 3.4))
        roofs.append(rect("#16222f", x - wide * 0.36, foot - tall - 1, 3.6, tall * 0.6))
    house = [poly([(306, 76), (345, 47), (384, 76)], "#0c141d"), stroke("M345,47L384,76", "#7fa6c0", 1.3)]
    vane = [stroke("M0,26V-22", "#0c141d", 2), stroke("M-11,2H11M0,-2V6", "#0c141d", 1.5), circle(0, -22, 2.2, "#0c141d"), circle(0, 12, 2.8, "#0c141d"),
            path("M-30,-18L-21,-13.6H-4L-7,-10.6L-3,-8H-21L-30,-3.4L-26,-10.8Z", "#0c141d"),
            group([path("M2,-13.6H15V-18.4L30,-10.8L15,-3.4V-8H4L7,-10.8Z", "#0c141d")], "rotate(28 3,-10) translate(2,1)"),
            stroke("M-1,-16L2,-10L-2,-9L1,-4", "#fff2b0", 1.1)]
    bolt = "M372,-2L362,11L369,12L352,27.6"
    fork = "M369,12L384,22L380,25L392,36"
    return gather(sky([(0, "#0d1622"), (0.4, "#24405a"), (0.75, "#5f8aa4"), (1, "#c4d6d4")]),
                  ([radial("flash", 356, 24, 90, [(0, "#eef8ff", 0.95), (0.4, "#9cc8e4", 0.5), (1, "#9cc8e4", 0)])], [circle(356, 24, 90, "url(#flash)")]),
                  [cloud(290, 13, 150, 9, "#1a2a3a", 0.9, 2), cloud(425, 15, 110, 9, "#1f3244", 0.9, 4), cloud(190, 17, 170, 10, "#1a2a3a", 0.85, 6),
                   cloud(250, 29, 110, 6, "#33536c", 0.7, 3), cloud(420, 31, 90, 6, "#3c5f78", 0.7, 7)],
                  [stroke(bolt + fork, "#cfe8ff", 3.4, 'opacity="0.45"'), stroke(bolt, "#ffffff", 1.6), stroke(fork, "#ffffff", 0.9)],
                  ridge("town", town, "#3f6178", "#2a465a", 56), roofs, house, group(vane, "translate(345,38) scale(0.98)"),
                  [stroke("".join(f"M{x},{y}l-2.4,7" for x, y in ((240, 22), (262, 40), (278, 18), (300, 34), (318, 14), (392, 46), (410, 40), (424, 26),
                                                                 (440, 44), (228, 46), (205, 30), (332, 60), (398, 60))), "#d6ecf8", 0.7, 'opacity="0.55"')])
