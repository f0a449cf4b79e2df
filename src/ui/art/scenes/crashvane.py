"""The neutral banner: a storm over the roofs; the vane on the ridge has been struck."""
from svg import circle, group, num, path, poly, radial, rect, stroke
from terrain import cloud, gather, profile, ridge, sky

INK, LIT, WINDOW = "#0c141d", "#7fa6c0", "#ffd27a"
HOUSES = ((190, 28, 17), (222, 30, 22), (254, 22, 17), (283, 34, 25), (408, 30, 21), (436, 34, 28))
TAIL = "M-30,-18L-21,-13.6H-4L-7,-10.6L-3,-8H-21L-30,-3.4L-26,-10.8Z"
HEAD = "M2,-13.6H15V-18.4L30,-10.8L15,-3.4V-8H4L7,-10.8Z"
SHARDS = "M-1,-18l2.6,2l-2,1.4ZM2.4,-5l2.4,1l-1.2,2ZM-1.6,-5.4l-2.4,2.4l2.6,0.4Z"
BOLT, FORK = "M372,-2L361,10L368,11L350,26.4", "M368,11L384,21L380,24L393,36"
RAIN = ((240, 22), (262, 40), (278, 18), (300, 34), (318, 14), (392, 46), (410, 40), (424, 26), (440, 44), (228, 46),
        (205, 30), (330, 58), (400, 60), (306, 56), (270, 56), (432, 58), (214, 14), (378, 60))


def house(x, wide, tall):
    ridge_y, eave = 76 - tall, 76 - tall * 0.45
    wall = [(x - wide / 2 - 2, eave), (x, ridge_y), (x + wide / 2 + 2, eave), (x + wide / 2, 76), (x - wide / 2, 76)]
    slope = [(x, ridge_y), (x + wide / 2 + 2, eave), (x + wide / 2 - 1, eave)]
    panes = "".join(f"M{num(x + dx)},{num(76 - tall * 0.36)}v3.4h2.4v-3.4Z" for dx in (-4, 3))
    return [rect("#16222f", x - wide * 0.36, ridge_y - 1, 3.6, tall * 0.6), poly(wall, "#16222f"),
            poly(slope, "#5d7f98"), path(panes, WINDOW)]


def great_roof():
    tiles = "".join(f"M{num(345 - row * 6.6)},{num(50 + row * 5)}H{num(345 + row * 6.6)}" for row in range(1, 6))
    return [poly([(303, 80), (345, 46), (387, 80)], INK), stroke(tiles, "#22384a", 0.8),
            stroke("M345,46L387,80", LIT, 1.4), stroke("M345,46L303,80", "#33506a", 0.9)]


def vane():
    return group([stroke("M0,28V-22", INK, 2.2), stroke("M0.8,26V-20", LIT, 0.6), stroke("M-12,3H12", INK, 1.6),
                  circle(-12.6, 3, 2, INK), circle(12.6, 3, 2, INK), circle(0, -23, 2.4, INK), circle(0, 14, 3, INK),
                  path(TAIL, INK), stroke("M-29,-17L-21,-13H-5", LIT, 0.7),
                  group([path(HEAD, INK), stroke("M3,-13.4H15.4V-17.4L29,-10.8", LIT, 0.7)],
                        "rotate(28 3,-10) translate(2,1)"),
                  path(SHARDS, INK), stroke("M0,-17L3,-11L-1.6,-10L1.6,-4", "#fff2b0", 1.3)],
                 "translate(345,37)")


def scene():
    town = profile(71, -5, 455, 62, 7)
    houses = [part for place in HOUSES for part in house(*place)]
    rain = stroke("".join(f"M{x},{y}l-2.4,7" for x, y in RAIN), "#d6ecf8", 0.7, 'opacity="0.55"')
    flash = [radial("flash", 354, 26, 95, [(0, "#f4fbff", 1), (0.35, "#a8d0e8", 0.6), (1, "#9cc8e4", 0)])]
    return gather(sky([(0, "#0d1622"), (0.4, "#24405a"), (0.75, "#5f8aa4"), (1, "#c4d6d4")]),
                  (flash, [circle(354, 26, 95, "url(#flash)")]),
                  [cloud(275, 15, 110, 10, "#1c2c3c", 0.92, 2), cloud(425, 16, 60, 10, "#213648", 0.92, 4),
                   cloud(170, 18, 130, 10, "#1c2c3c", 0.88, 6), cloud(262, 31, 70, 6, "#33536c", 0.75, 3),
                   cloud(425, 33, 50, 6, "#3c5f78", 0.75, 7)],
                  [stroke(BOLT + FORK, "#cfe8ff", 3.6, 'opacity="0.5"'), stroke(BOLT, "#ffffff", 1.7),
                   stroke(FORK, "#ffffff", 1)],
                  ridge("town", town, "#3f6178", "#2a465a", 56), houses, great_roof(), vane(), rain)
