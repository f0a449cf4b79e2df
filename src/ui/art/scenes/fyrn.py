"""A deep wood at first light; a stag stands in the glade."""
from svg import num, path, poly, stroke, vertical
from terrain import embers, gather, mist, pines, profile, ridge, sky, sun

FAR_TRUNKS = ((168, 5, 1), (205, 5, 1), (222, 4, -1), (262, 4, -1), (281, 6, 1), (318, 4, 0), (377, 5, 1),
              (398, 4, -1), (421, 6, 1), (441, 5, 0))
MIDDLE_TRUNKS = ((150, 7, 1), (192, 8, 1), (236, 9, 2), (292, 7, -2), (409, 9, -2))
CLOSE_TRUNKS = ((258, 13, -3), (437, 17, 3))
BOUGHS = ("M210,-2H449V13Q440,10 432,15Q424,9 415,13Q405,6 396,10Q388,4 378,7Q360,1 345,4Q325,0 312,7Q303,4 296,11"
          "Q287,6 279,13Q268,8 261,16Q252,9 244,12Q236,6 228,8Q218,2 210,3Z")
STAG = ("M338,63V55.6C336.6,53.4 336.4,51 337.6,49C341,47.6 346,48.4 349,47.4C351,45.6 351.6,42.8 352,40.4L350.6,38.6"
        "L353.2,39C354.2,38.4 355.2,38.6 356,39.4L359.6,41.4L358.8,43L355.8,43.2C355.4,46.6 355.2,49.6 353.6,52.4"
        "C353.2,53.8 353,55 353,63H351.6L351.2,55.6C348,56.4 344,56.2 341.4,55.4C340.4,57 339.8,58.6 339.6,63Z")
ANTLERS = ("M353,39C351,35 347,35.6 346.6,30.6M350.2,35.8C350,33.6 350.4,32 350,30M354.4,38.6C355,35 359,35 359.4,30.6"
           "M356.2,35.6C356.2,33.6 356,32 356.4,30")


def trunk(x, wide, lean, colour):
    half = wide / 2
    data = (f"M{num(x - half * 1.9)},76C{num(x - half)},66 {num(x - half + lean)},30 {num(x - half * 0.8 + lean)},0"
            f"H{num(x + half * 0.8 + lean)}C{num(x + half + lean)},30 {num(x + half)},66 {num(x + half * 2.1)},76Z")
    return path(data, colour)


def bark(x, wide, lean):
    """The light that the glade throws on the near trunks."""
    side = 1 if x < 345 else -1
    half = side * wide / 2
    return stroke(f"M{num(x + half * 0.72 + lean)},14C{num(x + half * 0.9 + lean)},32 {num(x + half * 0.9)},60 "
                  f"{num(x + half * 1.5)},72", "#8fcf6a", 1.1, 'opacity="0.7"')


def fern(x, foot, scale):
    blades = "".join(f"M{num(x)},{num(foot)}q{num(dx * 0.3 * scale)},{num(-rise * scale)} {num(dx * scale)},"
                     f"{num(-rise * 0.7 * scale)}" for dx, rise in
                     ((-9, 6), (-6, 9), (-2, 11), (3, 11), (7, 8), (10, 5)))
    return stroke(blades, "#0a2418", 1.5 * scale)


def scene():
    back = profile(7, -5, 455, 55, 8)
    floor = profile(15, -5, 455, 66, 5, peaks=((345, 4, 70),))
    front = profile(19, -5, 455, 73, 5)
    rays = [poly([(345 + a, -2), (352 + a, -2), (345 + a * 2.4 + 13, 70), (345 + a * 2.4 - 12, 70)], "url(#ray)")
            for a in (-44, -20, 2, 26)]
    return gather(sky([(0, "#0e3b2c"), (0.4, "#3f8f5a"), (0.75, "#bfe08a"), (1, "#eff6bb")]),
                  sun(345, 30, 0.1, "#ffffd8", "#fbffc4", 100, strength=1),
                  ridge("back", back, "#6fae6a", "#b4d98a", 48),
                  pines(2, back, -5, 455, 9, 34, "#5c9e62", (322, 372)),
                  [trunk(*place, "#4f8f5c") for place in FAR_TRUNKS],
                  ([vertical("ray", [(0, "#ffffd0", 0.42), (1, "#ffffd0", 0)], 0, 70)], rays),
                  [trunk(*place, "#1f5638") for place in MIDDLE_TRUNKS], mist(58, 14, "#e8f8b8", 0.5, "mist"),
                  ridge("floor", floor, "#2f6b3c", "#123a24", 60),
                  [path(STAG, "#0c2417"), stroke(ANTLERS, "#0c2417", 1.2)],
                  [trunk(*place, "#0a2418") for place in CLOSE_TRUNKS], [bark(*place) for place in CLOSE_TRUNKS],
                  [path(BOUGHS, "#0a2418")], ridge("front", front, "#0a2418", "#06170f", 70),
                  [fern(x, 75, scale) for x, scale in ((226, 0.8), (284, 1), (300, 0.7), (392, 0.8), (408, 1.1))],
                  embers(4, 34, 200, 430, 22, 68, ("#f9ffb0", "#ffffff")))
