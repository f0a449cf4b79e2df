"""The motif of each product, drawn around the origin inside a circle of radius 22."""
import math

from svg import circle, num, path, poly, rect, stroke

GOLD, DARK, SILVER, STEEL = "url(#gold)", "#1a1108", "url(#silver)", "#6d7b88"
EDGE = f'stroke="{DARK}" stroke-width="0.7" stroke-linejoin="round"'


def mirrored(content):
    return content + f'<g transform="scale(-1,1)">{content}</g>'


def sword(blade=SILVER, hilt=GOLD):
    return [path("M0,-21L2.6,-16.5L2.1,8H-2.1L-2.6,-16.5Z", blade, EDGE),
            path("M0,-20V8H-2.1L-2.6,-16.5Z", "#ffffff", 'opacity="0.45"'),
            rect(hilt, -1.3, 9, 2.6, 7, EDGE), circle(0, 17.6, 2.3, hilt, EDGE),
            path("M-9.5,7.2Q0,9.6 9.5,7.2L10.4,9.8Q0,12.6 -10.4,9.8Z", hilt, EDGE)]


def flaming_sword(flame="url(#flame)"):
    wing = path("M-3,10.4C-12,11 -20,4 -18.4,-7C-17.4,-3.6 -15.8,-1.8 -14.2,-1.4C-16.4,-8 -14.6,-14.4 -10.6,-18"
                "C-11.4,-13 -9.6,-9.4 -7.4,-7.6C-8,-12.6 -6.6,-17 -4.2,-20.6C-4.2,-14 -3.4,-6 -3,10.4Z", flame, EDGE)
    heart = path("M-3.6,7.6C-9.6,7.6 -14,3.4 -14,-0.6C-11.6,1.6 -9.8,1.2 -10.2,-4.6C-8,-0.8 -5.4,-1.6 -4.6,-8Z",
                 "#ffe9a8", 'opacity="0.8"')
    return [mirrored(wing + heart)] + sword()


def stag():
    antlers = "M-3,-2C-5,-8 -15,-6 -15.5,-17M-7.6,-6C-8,-10 -7,-14 -8.4,-17.5M-12.4,-8C-16,-8.4 -18.4,-10 -19,-13" \
              "M-3.6,-4C-3,-8 -2.2,-9 -2.6,-12.5"
    half = stroke(antlers, DARK, 3.4) + stroke(antlers, GOLD, 2.1)
    ear = path("M-4.6,0C-9,-3.4 -12.4,-2.2 -13.4,-0.4C-11,2.6 -7,3.4 -4.6,3Z", GOLD, EDGE)
    return [mirrored(half), mirrored(ear),
            path("M0,-4C3.4,-4 5.6,-2 5.6,1.6C5.6,6 3.4,8 3.4,12.4C3.4,16.6 2.6,19.4 0,19.4C-2.6,19.4 -3.4,16.6 "
                 "-3.4,12.4C-3.4,8 -5.6,6 -5.6,1.6C-5.6,-2 -3.4,-4 0,-4Z", GOLD, EDGE),
            path("M0,-2.6C1,2 0.8,10 0,14.4C-0.8,10 -1,2 0,-2.6Z", "#fff3c4", 'opacity="0.6"'),
            mirrored(circle(-3.1, 4, 0.95, DARK)), path("M-2,15.4Q0,18 2,15.4L0,18.4Z", DARK)]


def rune_star():
    arm = "M0,0V-20M-3.6,-19.4Q0,-13.6 3.6,-19.4M-3,-10.6H3M-2.2,-7.4H2.2"
    arms = [f'<g transform="rotate({turn})">' + stroke(arm, DARK, 3) + "</g>" for turn in range(0, 360, 45)]
    arms += [f'<g transform="rotate({turn})">' + stroke(arm, GOLD if turn % 90 == 0 else SILVER, 1.7) + "</g>"
             for turn in range(0, 360, 45)]
    return arms + [circle(0, 0, 4.6, DARK), circle(0, 0, 3.8, GOLD), circle(0, 0, 2.3, "#8d5cff"),
                   circle(-0.7, -0.8, 0.8, "#ffffff")]


def spiral(turns, reach, start):
    points = []
    for i in range(41):
        angle = start + turns * 2 * math.pi * i / 40
        radius = reach * (1 - i / 40) ** 0.9 + 0.4
        points.append((radius * math.cos(angle), radius * math.sin(angle)))
    return points


def triskele():
    curl = [(x, y - 10) for x, y in spiral(1.45, 8.4, math.pi * 0.5)]
    data = "M0,0Q-1,-1 " + "L".join(f"{num(x)},{num(y)}" for x, y in curl)
    arms = [f'<g transform="rotate({turn})">' + stroke(data, DARK, 4) + "</g>" for turn in (0, 120, 240)]
    arms += [f'<g transform="rotate({turn})">' + stroke(data, GOLD, 2.5) + "</g>" for turn in (0, 120, 240)]
    return arms + [circle(0, 0, 3.2, GOLD, EDGE), circle(0, 0, 1.5, "#c0201c")]


def war_axe():
    blade = path("M-1.6,-12C-6,-12 -9,-15 -11,-18.6C-18.6,-12 -18.6,0.6 -11,7C-9,3.4 -6,0.6 -1.6,0.6Z", SILVER, EDGE)
    shine = stroke("M-11.4,-16C-16.4,-10.4 -16.4,-0.6 -11.4,4.8", "#ffffff", 1.1, 'opacity="0.9"')
    knot = stroke("M-4,-9.4C-9,-10 -10.6,-6 -8,-4.6C-6,-3.8 -5,-6.4 -7,-6.6M-4,-1.8C-9,-1.4 -11.4,-4", STEEL, 1)
    return [mirrored(blade + shine + knot), rect("#7a4a22", -1.7, -19.4, 3.4, 37, EDGE),
            stroke("M-0.5,-18V16", "#c98a4c", 0.8), rect(GOLD, -2.6, -13.4, 5.2, 2.6, EDGE),
            rect(GOLD, -2.6, -0.8, 5.2, 2.6, EDGE), rect(GOLD, -2.4, 7.4, 4.8, 1.8, EDGE),
            path("M-2.6,16.6H2.6L1.8,20.6H-1.8Z", GOLD, EDGE), path("M0,-22.4L2.4,-19H-2.4Z", GOLD, EDGE)]


def sun_compass():
    body = []
    for turn in range(0, 360, 45):
        length, wide = (20.4, 4.6) if turn % 90 == 0 else (15.6, 4.2)
        body.append(f'<g transform="rotate({turn})">' + path(f"M0,{-length}L{wide},-6H{-wide}Z", GOLD, EDGE)
                    + path(f"M0,{-length}V-6H{-wide}Z", "#fff2b8", 'opacity="0.6"') + "</g>")
    for turn in range(22, 360, 45):
        ray = "M0,-15C1.8,-12 -1.8,-11 0,-7"
        body.append(f'<g transform="rotate({turn + 0.5})">' + stroke(ray, DARK, 2.4) + stroke(ray, GOLD, 1.3) + "</g>")
    face = stroke("M-3.6,-1.4Q-2.4,-2.6 -1.2,-1.4M3.6,-1.4Q2.4,-2.6 1.2,-1.4M0,-1.2V1.6M-2.2,3.6Q0,5 2.2,3.6",
                  "#5a2c06", 0.9)
    return body + [circle(0, 0, 8, GOLD, EDGE), circle(0, 0, 6.6, "#ffd866"), face]


def crossed_swords():
    body = [path("M0,21C-9,17 -12,10 -12,-2Q-6,-1 0,-5Q6,-1 12,-2C12,10 9,17 0,21Z", "#7d1520",
                 'stroke="url(#gold)" stroke-width="1.8"'),
            path("M0,21C-9,17 -12,10 -12,-2Q-6,-1 0,-5Z", "#b3202c", 'opacity="0.75"')]
    for turn in (-45, 45):
        body.append(f'<g transform="rotate({turn}) scale(0.98)">' + "".join(sword()) + "</g>")
    return body


def amulet():
    wing = path("M-6,-7C-12,-12 -18,-11 -20.4,-15C-21,-8 -18,-4.6 -15.6,-3.4C-17,-3.2 -18,-3.4 -18.8,-4"
                "C-18,0.6 -14.6,2.6 -12.4,3C-13.4,3.4 -14.2,3.4 -15,3.2C-13.4,6.6 -9.6,7 -6.4,6Z", GOLD, EDGE)
    veins = stroke("M-8,-4C-12,-7 -15,-8 -18,-10M-8,0C-11,-1.4 -13.6,-1.6 -15.6,-1.6", "#6a3d0a", 0.7)
    return [mirrored(wing + veins), poly([(0, -15), (8.6, -6), (8.6, 5), (0, 17), (-8.6, 5), (-8.6, -6)], GOLD, EDGE),
            poly([(0, -12), (6.4, -5), (6.4, 4.4), (0, 13.4), (-6.4, 4.4), (-6.4, -5)], "#13a7a0"),
            poly([(0, -12), (-6.4, -5), (-2.8, -3.4), (0, -6)], "#9ff5e6"),
            poly([(0, -12), (6.4, -5), (2.8, -3.4), (0, -6)], "#56dccb"),
            poly([(-6.4, -5), (-6.4, 4.4), (-2.8, 3), (-2.8, -3.4)], "#2fc4b8"),
            poly([(6.4, -5), (6.4, 4.4), (2.8, 3), (2.8, -3.4)], "#0b7f86"),
            poly([(0, 13.4), (-6.4, 4.4), (-2.8, 3), (0, 6.4)], "#0f8d90"),
            poly([(0, 13.4), (6.4, 4.4), (2.8, 3), (0, 6.4)], "#075a66"),
            poly([(0, -6), (2.8, -3.4), (2.8, 3), (0, 6.4), (-2.8, 3), (-2.8, -3.4)], "#47d8ca"),
            circle(0, -18, 2.6, "none", f'stroke="{DARK}" stroke-width="3"'),
            circle(0, -18, 2.6, "none", 'stroke="url(#gold)" stroke-width="1.8"')]


def broken_vane():
    """The house's own mark: a weather vane whose arrow has snapped."""
    tail = path("M-21.6,-14L-14.6,-9.4H-1.6L-4.4,-5.8L-1.2,-2.6H-14.6L-21.6,2L-17.8,-6Z", GOLD, EDGE)
    head = path("M0.6,-9.4H8.4V-14L20.6,-6L8.4,2V-2.6H1.8L4.6,-5.8Z", "url(#ember)", EDGE)
    return [rect(SILVER, -1.6, -14, 3.2, 33, EDGE), circle(0, -16, 3, GOLD, EDGE), tail,
            f'<g transform="translate(1.6,2) rotate(28 2,-6)">{head}</g>',
            stroke("M-9.4,11H9.4", DARK, 3.6), stroke("M-9.4,11H9.4", SILVER, 2.2),
            circle(-10.4, 11, 2.5, GOLD, EDGE), circle(10.4, 11, 2.5, GOLD, EDGE), circle(0, 11, 3.2, GOLD, EDGE),
            path("M-8,22Q0,16.4 8,22Z", GOLD, EDGE)]
