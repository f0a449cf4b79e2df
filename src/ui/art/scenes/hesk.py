"""A longship runs down a winter fjord."""
from svg import circle, group, path, rect, stroke, vertical
from terrain import embers, facets, gather, mist, profile, ridge, sky, streak, sun

HULL = ("M-27,-12C-25.6,-13.6 -23.4,-13 -23.2,-11C-23.4,-9.8 -24.6,-9.8 -24.8,-10.6C-23.6,-4 -20,-1.4 -14,-0.8H14"
        "C20,-1.4 23.6,-5 24.6,-13.4C25,-15.6 28.4,-15.6 28.6,-12.8L30.8,-12L28,-11C27.6,-3 23.4,5.6 15,6H-14"
        "C-22.6,5.6 -27,-2 -27,-12Z")
SAIL = "M-13.6,-26C-15.4,-19 -15,-12 -12.4,-6H12.4C15,-12 15.4,-19 13.6,-26Z"
STRIPES = "M-8.4,-26C-9.6,-19 -9.4,-12 -7.4,-6H-2.6V-26ZM2.6,-26V-6H7.4C9.4,-12 9.6,-19 8.4,-26Z"
WAVES = ((150, 64, 26), (196, 68, 30), (232, 63, 22), (270, 67, 30), (285, 61.6, 15), (382, 62, 24), (398, 68, 34),
         (352, 71.6, 26), (246, 71, 20), (318, 73.4, 18), (420, 64.6, 14), (170, 72, 22))
WOOD, RED, YELLOW = "#20140c", "#c8352c", "#e7c15a"


def ship():
    shields = [circle(x, 0.6, 2.2, tint, f'stroke="{WOOD}" stroke-width="0.6"') + circle(x, 0.6, 0.6, "#fff0c8")
               for x, tint in zip((-13, -8, -3, 2, 7, 12), (RED, YELLOW) * 3)]
    oars = stroke("".join(f"M{x},2.6l-6,5" for x in (-12, -7, -2, 3, 8, 13)), "#8a5a30", 0.7)
    body = [stroke("M0,0V-30", WOOD, 1.3), path(SAIL, "#f1ead8"), path(STRIPES, RED),
            path("M13.6,-26C15.4,-19 15,-12 12.4,-6H8C11,-12 11,-19 9,-26Z", "#000000", 'opacity="0.18"'),
            stroke("M-14.4,-26.4H14.4", WOOD, 1.2), path("M0,-30l-8,-1.8l8,-2Z", RED), path(HULL, "#2b1a10"),
            stroke("M-23,-3.4C-18,1.6 18,1.6 23,-4", "#a06a38", 0.9)] + shields + [oars]
    wake = [path("M-40,7.4Q-20,3.6 0,5.4Q20,3.6 38,7.4Q20,8.6 0,7.8Q-20,9 -40,7.4Z", "#ffffff", 'opacity="0.8"'),
            path("M-14,10H13C15,14 12,17 0,17C-12,17 -15,14 -14,10Z", "#7a2a30", 'opacity="0.28"')]
    return group(body + wake, "translate(330,60) scale(1.1)")


def scene():
    back = profile(51, -5, 455, 50, 8, levels=7, peaks=((375, 34, 44), (280, 22, 40), (210, 20, 44), (140, 18, 40),
                                                     (322, 14, 26)))
    left = profile(53, -5, 296, 64, 6, levels=7, peaks=((236, 24, 44), (165, 16, 50), (90, 16, 60)))
    right = profile(57, 366, 455, 66, 4, levels=5, peaks=((436, 46, 62),))
    shine = stroke("".join(f"M{x},{y}h{wide}" for x, y, wide in WAVES), "#e8f6fa", 0.9, 'opacity="0.65"')
    return gather(sky([(0, "#22456c"), (0.45, "#5f95b8"), (0.75, "#c9dfe6"), (1, "#fdeedd")]),
                  sun(322, 34, 9, "#fffaf0", "#fff1dc", 85),
                  [streak(265, 15, 120, 4, "#ffffff", 0.45), streak(410, 10, 70, 3, "#ffffff", 0.4)],
                  ridge("back", back, "#7fa5c0", "#d9e6ea", 20, 62), facets(back, "#ffffff", 0.9, 12, "#b4cbdc"),
                  mist(56, 10, "#ffffff", 0.55, "mist"),
                  ridge("left", left, "#3c6480", "#6f99b0", 36), facets(left, "#ffffff", 0.9, 10, "#a4c0d2"),
                  ridge("right", right, "#31566f", "#5b86a0", 20), facets(right, "#ffffff", 0.92, 15, "#a4c0d2"),
                  ([vertical("sea", [(0, "#c4dde2"), (0.3, "#5b93ad"), (1, "#163c56")], 58, 76)],
                   [rect("url(#sea)", y=58.6, height=18), stroke("M-2,58.8H451", "#f2fafa", 0.8, 'opacity="0.8"')]),
                  [shine, ship()], embers(10, 48, 110, 445, 6, 72, ("#ffffff",)))
