"""A domed city beyond the dunes; a caravan goes towards it. The other edition comes by night."""
from svg import circle, group, num, path, rect, stroke, vertical
from terrain import gather, sky, stars, streak, sun

HOURS = {
    "noon": dict(sky=[(0, "#2b7fb4"), (0.4, "#7fc0cf"), (0.7, "#ffe0a0"), (1, "#ffc768")],
                 disc=(300, 20, 9, "#fffbe0", "#fff0a8", 85), dune=("#f2b95a", "#d98a34"), mid=("#e8a444", "#a85a20"),
                 near=("#a8561e", "#5e2a10"), city="#d8924e", shade="#8a4a24", dome="#2f8f9a", lit="#fff0c0",
                 figure="#4a200c", haze="#f0b878"),
    "night": dict(sky=[(0, "#081538"), (0.45, "#1f3f7c"), (0.75, "#6a5a9c"), (1, "#e0909a")],
                  disc=(300, 21, 8, "#fff7dc", "#cfd8ff", 70), dune=("#7a6a9c", "#4f4580"), mid=("#5e5090", "#2f2a60"),
                  near=("#2a2454", "#120f2e"), city="#54488c", shade="#2c2558", dome="#39b0b4", lit="#e8dcff",
                  figure="#0c0a20", haze="#8a70a8"),
}
CAMEL = ("M0,0V-6.4C-1.4,-8 -1,-9.6 0.6,-10C1.6,-12.4 3.6,-12.4 4.4,-10.4C5.2,-12.6 7.4,-12.6 8.2,-10"
         "C9.8,-9.6 10.6,-8.6 11,-7.8C12.4,-8.6 12.2,-11 13,-12.8L15.8,-12.4L15.6,-11.2L14.2,-11C14,-8 13.4,-5.6 "
         "10.6,-5.2L10.2,0H9.2L9,-4.8H2.2L1.2,0Z")
RIDER = "M3.4,-10.6C3.2,-13.4 4.2,-15 5.6,-15.2C5,-17 7.4,-17.4 7.4,-15.6C8.6,-14.6 9,-12.6 8.8,-10.4Z"
BACK = "M-5,58C60,48 140,62 215,56C270,50 330,61 380,59C410,57 440,58 455,56V80H-5Z"
MIDDLE = "M-5,66C80,54 150,70 235,65C300,60 350,66 455,60V80H-5Z"
NEAR = "M-5,72C90,64 180,78 262,72C340,66 400,80 455,68V80H-5Z"
CREST = "M235,65C300,60 350,66 455,60C400,66 350,72 300,69C275,67.6 255,66.6 235,65Z"
NEAR_CREST = "M262,72C340,66 400,80 455,68C420,77 380,78 340,75C310,72 290,71.6 262,72Z"


def dome(x, foot, wide, colour, shade):
    half, top = wide / 2, foot - wide * 1.02
    right = (f"C{num(x + half * 0.3)},{num(foot - wide * 0.7)} {num(x + half * 1.5)},{num(foot - wide * 0.55)} "
             f"{num(x + half)},{num(foot)}Z")
    whole = (f"M{num(x - half)},{num(foot)}C{num(x - half * 1.5)},{num(foot - wide * 0.55)} {num(x - half * 0.3)},"
             f"{num(foot - wide * 0.7)} {num(x)},{num(top)}{right}")
    dark = (f"M{num(x + half * 0.2)},{num(foot)}C{num(x + half * 0.9)},{num(foot - wide * 0.5)} {num(x + half * 0.2)},"
            f"{num(foot - wide * 0.7)} {num(x)},{num(top)}{right}")
    gleam = stroke(f"M{num(x - half * 0.72)},{num(foot - wide * 0.2)}Q{num(x - half * 0.9)},{num(foot - wide * 0.45)} "
                   f"{num(x - half * 0.4)},{num(foot - wide * 0.66)}", "#e8ffff", wide * 0.06, 'opacity="0.75"')
    return [path(whole, colour), path(dark, shade, 'opacity="0.45"'), gleam,
            stroke(f"M{num(x)},{num(top + 1)}v-5", "#ffe08a", 0.9), circle(x, top - 2, 0.9, "#ffe08a")]


def minaret(x, top, light):
    tip = f"M{x - 2.4},{top}Q{x - 2},{top - 4} {x},{top - 7}Q{x + 2},{top - 4} {x + 2.4},{top}Z"
    return [rect(light["city"], x - 1.7, top, 3.4, 60 - top),
            rect(light["shade"], x + 0.3, top, 1.4, 60 - top, 'opacity="0.6"'),
            rect(light["city"], x - 2.8, top + 7, 5.6, 1.8), rect(light["shade"], x - 2.8, top + 8.8, 5.6, 0.8),
            path(tip, light["dome"]), stroke(f"M{x},{top - 6}v-3", "#ffe08a", 0.7)]


def city(light):
    body = [rect(light["haze"], left, top, wide, 60 - top, 'opacity="0.8"') for left, top, wide in
            ((322, 50, 22), (336, 46, 12), (424, 48, 22), (437, 44, 12), (312, 54, 12))]
    body += [path(f"M{x - 5},{y}Q{x},{y - 9} {x + 5},{y}Z", light["haze"], 'opacity="0.8"')
             for x, y in ((342, 46), (443, 44), (330, 50), (430, 48))]
    for x, top in ((349, 19), (421, 22), (437, 32), (335, 33)):
        body += minaret(x, top, light)
    body += [rect(light["city"], left, top, wide, 60 - top) for left, top, wide in
             ((352, 45, 66), (358, 40, 14), (376, 34, 20), (400, 41, 12))]
    body += [rect(light["shade"], left, top, wide, 60 - top, 'opacity="0.6"') for left, top, wide in
             ((367, 40, 5), (388, 34, 8), (408, 41, 4), (412, 45, 6))]
    for x, foot, wide in ((386, 35, 19), (365, 41, 11), (406, 42, 10)):
        body += dome(x, foot, wide, light["dome"], light["shade"])
    doors = "".join(f"M{x},{y}v-5q1.6,-3.4 3.2,0v5Z" for x, y in
                    ((378, 47), (384.4, 47), (390.8, 47), (361, 52), (366, 52), (402, 52), (354, 58), (396, 58)))
    gate = "M380,60v-7q6,-8 12,0v7Z"
    return body + [path(doors, light["figure"], 'opacity="0.75"'), path(gate, light["figure"], 'opacity="0.85"')]


def scene(hour):
    light = HOURS[hour]
    x, y, radius, core, glow, reach = light["disc"]
    night = stars(14, 70, 90, 445, 38) + [circle(303.5, 18.6, 7, "#15305f", 'opacity="0.88"')]
    caravan = [group([path(CAMEL, light["figure"])] + ([path(RIDER, light["figure"])] if ridden else []),
                     f"translate({at},{foot}) scale(0.9)")
               for at, foot, ridden in ((248, 65.4, 1), (267, 64.4, 0), (285, 63.9, 0), (303, 64.3, 1))]
    return gather(sky(light["sky"]), sun(x, y, radius, core, glow, reach), night if hour == "night" else [],
                  [streak(400, 13, 70, 3, light["lit"], 0.5), streak(220, 18, 110, 4, light["lit"], 0.3),
                   streak(290, 36, 120, 3, light["lit"], 0.35)],
                  city(light),
                  ([vertical("dune", [(0, light["dune"][0]), (1, light["dune"][1])], 50, 70)],
                   [path(BACK, "url(#dune)")]),
                  ([vertical("slope", [(0, light["mid"][0]), (1, light["mid"][1])], 58, 76)],
                   [path(MIDDLE, "url(#slope)"), path(CREST, light["lit"], 'opacity="0.35"')]), caravan,
                  ([vertical("fore", [(0, light["near"][0]), (1, light["near"][1])], 66, 76)],
                   [path(NEAR, "url(#fore)"), path(NEAR_CREST, light["lit"], 'opacity="0.2"')]))
