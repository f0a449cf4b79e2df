"""The flagship: a citadel with its beacons lit among high mountains. Its editions are other hours of the same day."""
from svg import circle, num, path, radial, stroke
from terrain import (bird, embers, facets, gather, pines, profile, ridge, sky, stars, streak, sun, tower)

HOURS = {
    "dusk": dict(sky=[(0, "#2a0d1e"), (0.3, "#7a1d1f"), (0.55, "#d2561d"), (0.8, "#ffb347"), (1, "#ffd98a")],
                 disc=(366, 40, 14, "#fff4c4", "#ffd05a", 105), far=("#a0402a", "#f0a04c"), mid=("#64201c", "#b85424"),
                 near=("#2c0c12", "#54180f"), front="#16060b", lit="#ffc060", cloud="#ffac5a", window="#ffe28a"),
    "night": dict(sky=[(0, "#050b22"), (0.5, "#10275a"), (0.85, "#2f5f9c"), (1, "#6ea5cf")],
                  disc=(366, 25, 12, "#f4f8ff", "#9cc4ff", 85), far=("#34598f", "#6c9ccb"), mid=("#1c3769", "#3b6299"),
                  near=("#0b1a3c", "#17305c"), front="#050c20", lit="#dcecff", cloud="#7fa8dc", window="#ffd98a"),
    "morning": dict(sky=[(0, "#0b4a55"), (0.4, "#2c9088"), (0.75, "#a8dcae"), (1, "#f4f3c0")],
                    disc=(366, 34, 13, "#fffde0", "#fff2a0", 95), far=("#5aa694", "#b4dcae"),
                    mid=("#226f63", "#6bb08c"), near=("#0c3f3d", "#1f6652"), front="#05221f", lit="#f4ffda",
                    cloud="#f0ffd8", window="#ffe88a"),
    "twilight": dict(sky=[(0, "#160a38"), (0.35, "#4a2178"), (0.62, "#a54a98"), (0.85, "#f097a0"), (1, "#ffd0a8")],
                     disc=(366, 38, 13, "#fff4e8", "#ffc0cc", 95), far=("#8a4a9c", "#e79cb4"),
                     mid=("#4a2270", "#9a549c"), near=("#21103f", "#4a2468"), front="#100722", lit="#ffd4e0",
                     cloud="#ff9fc0", window="#ffe08a"),
}
BEACONS = ((313, 24), (333, 37), (345, 46))


def citadel(x, foot, colour, window, lit):
    walls = "".join((tower(x, foot, 13, 27), tower(x - 15, foot + 3, 9, 19, 10), tower(x + 15, foot + 3, 9, 17),
                     tower(x - 5, foot, 5, 34), tower(x + 27, foot + 5, 7, 14), tower(x - 27, foot + 5, 7, 12, 7),
                     tower(x - 40, foot + 9, 6, 11), tower(x + 41, foot + 9, 6, 11)))
    wall = (f"M{num(x - 42)},{num(foot + 14)}V{num(foot + 4)}H{num(x - 34)}V{num(foot - 4)}H{num(x + 34)}"
            f"V{num(foot + 4)}H{num(x + 42)}V{num(foot + 14)}Z")
    lights = "".join(f"M{num(x + dx)},{num(foot - dy)}v-2.6h1.2v2.6Z" for dx, dy in
                     ((-2.6, 16), (1.6, 16), (-15.6, 11), (14.4, 9), (-0.6, 7), (26.4, 2), (-27.6, 1), (7, 4), (-9, 4)))
    edges = "".join(f"M{num(x + dx)},{num(foot - low)}V{num(foot - high)}" for dx, low, high in
                    ((6.1, 0, 26), (19.1, 0, 18), (30.1, 0, 8), (-10.9, 0, 15)))
    return [path(walls + wall, colour), stroke(edges, lit, 0.9, 'opacity="0.55"'), path(lights, window)]


def beacon(x, y, scale):
    flame = (f"M{num(x - 2 * scale)},{num(y)}q{num(-1.4 * scale)},{num(-3 * scale)} {num(1 * scale)},{num(-5 * scale)}"
             f"q{num(0.2 * scale)},{num(1.4 * scale)} {num(1.2 * scale)},{num(1.6 * scale)}q0,{num(-2 * scale)} "
             f"{num(0.8 * scale)},{num(-3.4 * scale)}q{num(2.6 * scale)},{num(3.4 * scale)} {num(1 * scale)},"
             f"{num(6.8 * scale)}Z")
    return [path(flame, "#ff7a1c"), circle(x + 0.2, y - 1.4 * scale, 1.3 * scale, "#fff0a8")]


def scene(hour):
    light = HOURS[hour]
    x, y, radius, core, glow, reach = light["disc"]
    far = profile(11, -5, 455, 50, 13, levels=7, peaks=((275, 24, 38), (438, 24, 50), (398, 14, 24), (205, 18, 44),
                                                      (120, 16, 50)))
    mid = profile(23, -5, 455, 60, 11, levels=7, peaks=((412, 26, 50), (246, 14, 40), (160, 10, 44)))
    near = profile(37, -5, 455, 69, 7, peaks=((320, 11, 64),))
    front = profile(41, -5, 455, 74, 4)
    night = stars(5, 60, 90, 445, 36) if hour == "night" else []
    glows = [radial(f"beacon{i}", bx, by - 3, 11, [(0, "#ffd27a", 0.95), (0.4, "#ff9a3c", 0.45), (1, "#ff8a2c", 0)])
             for i, (bx, by) in enumerate(BEACONS)]
    fires = []
    for i, (bx, by) in enumerate(BEACONS):
        fires += [circle(bx, by - 3, 11, f"url(#beacon{i})")] + beacon(bx, by, 1.15 if i == 0 else 0.8)
    return gather(sky(light["sky"]), night, sun(x, y, radius, core, glow, reach),
                  [streak(300, 17, 130, 4, light["cloud"], 0.5), streak(415, 13, 90, 3.4, light["cloud"], 0.45),
                   streak(190, 14, 130, 4, light["cloud"], 0.25), streak(390, 27, 80, 2.6, light["cloud"], 0.5),
                   streak(250, 28, 90, 2.6, light["cloud"], 0.3)],
                  ridge("far", far, *light["far"], 18, 70), facets(far, light["lit"], 0.6, 11),
                  ridge("mid", mid, *light["mid"], 34), facets(mid, light["lit"], 0.42, 10),
                  citadel(318, 57, light["near"][0], light["window"], light["lit"]), (glows, fires),
                  ridge("near", near, *light["near"], 54),
                  pines(13, near, 362, 449, 7, 9, light["near"][0]), pines(14, near, 200, 275, 7, 8, light["near"][0]),
                  ridge("front", front, light["front"], light["front"], 70),
                  pines(3, front, 190, 449, 6, 11, light["front"], (285, 352)),
                  [bird(262, 20, 4.4, light["near"][0]), bird(275, 26, 3.2, light["near"][0])],
                  embers(8, 30, 285, 440, 12, 64, (light["window"], light["lit"])))
