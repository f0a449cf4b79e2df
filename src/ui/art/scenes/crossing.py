"""After the battle: torn standards, spears and lost swords against a red storm."""
from svg import circle, group, num, path, poly, stroke
from terrain import bird, cloud, embers, facets, gather, profile, ridge, sky, sun

INK = "#120a0e"
SPEARS = ((176, 71, 4, 24), (188, 71, -6, 28), (231, 71, 7, 26), (262, 70, -5, 30), (276, 70, 3, 36), (301, 69, -7, 33),
          (318, 69, 8, 25), (372, 68, 6, 32), (386, 69, -4, 38), (404, 70, 9, 30), (438, 70, -4, 34))
BOLT = "M250,0L244,15L251,15.6L240,35L246,35.6L237,50M244,24L234,33"


def spear(x, foot, lean, tall):
    tip_x, tip_y = x + lean, foot - tall
    head = poly([(tip_x + lean * 0.14, tip_y - 5), (tip_x + 1.5, tip_y), (tip_x - 1.5, tip_y)], INK)
    return stroke(f"M{x},{foot + 4}L{num(tip_x)},{num(tip_y)}", INK, 1.2) + head


def standard(x, foot, tall, flow):
    top = foot - tall
    torn = (f"M{x},{top}C{num(x + flow * 0.4)},{top - 4} {num(x + flow * 0.6)},{top + 5} {x + flow},{top + 1}"
            f"L{num(x + flow * 0.84)},{top + 6}L{num(x + flow * 0.98)},{top + 10}L{num(x + flow * 0.8)},{top + 13}"
            f"L{num(x + flow * 0.9)},{top + 19}C{num(x + flow * 0.6)},{top + 21} {num(x + flow * 0.4)},{top + 13} "
            f"{x},{top + 17}Z")
    fold = (f"M{num(x + flow * 0.36)},{num(top - 0.6)}Q{num(x + flow * 0.5)},{top + 9} {num(x + flow * 0.4)},"
            f"{num(top + 15)}L{num(x + flow * 0.62)},{num(top + 18.6)}Q{num(x + flow * 0.66)},{top + 8} "
            f"{num(x + flow * 0.56)},{num(top + 1.4)}Z")
    arm = num(flow * 0.16)
    device = stroke(f"M{num(x + flow * 0.14)},{top + 4}l{arm},8m0,-8l-{arm},8", "#f0c453", 1.3)
    return [stroke(f"M{x},{foot + 4}V{top - 4}", INK, 1.9), path(torn, "#b81c2c"),
            path(fold, "#4a0812", 'opacity="0.6"'), device, circle(x, top - 5, 1.7, "#d9b04c")]


def lost_sword(x, turn):
    return group([stroke("M0,12V-22", INK, 2.6), stroke("M-5,-12H5", INK, 2.2), circle(0, -23, 2, INK)],
                 f"translate({x},66) rotate({turn}) scale(0.9)")


def scene():
    far = profile(61, -5, 455, 54, 8, levels=7, peaks=((265, 18, 40), (420, 22, 40), (170, 14, 40)))
    field = profile(63, -5, 455, 68, 7)
    front = profile(65, -5, 455, 73, 4)
    return gather(sky([(0, "#15161d"), (0.4, "#4a323c"), (0.66, "#b03c2e"), (0.86, "#f08a3c"), (1, "#ffd07a")]),
                  sun(352, 50, 14, "#fff0c0", "#ffa048", 105),
                  [cloud(300, 17, 150, 11, "#26262f", 0.9, 2), cloud(425, 19, 70, 11, "#2e2a34", 0.9, 4),
                   cloud(180, 18, 130, 10, "#26262f", 0.85, 6), cloud(385, 32, 80, 5, "#7a3232", 0.8, 7),
                   cloud(270, 36, 70, 5, "#6a2c30", 0.75, 1), cloud(170, 40, 80, 5, "#5a2830", 0.6, 3)],
                  [stroke(BOLT, "#ffd9c0", 2.6, 'opacity="0.45"'), stroke(BOLT, "#fff6ea", 1)],
                  ridge("far", far, "#6a242a", "#c04c2e", 36), facets(far, "#ffb070", 0.4, 8),
                  ridge("field", field, "#2a1116", "#180a0e", 60), [spear(*place) for place in SPEARS],
                  standard(330, 68, 48, 34), standard(416, 70, 42, 25), standard(200, 70, 38, 21),
                  lost_sword(352, 14), lost_sword(291, -18), lost_sword(248, 12),
                  ridge("front", front, INK, "#0a0508", 70),
                  [bird(398, 13, 4, "#0c080c"), bird(384, 20, 3, "#0c080c"), bird(305, 28, 3.4, "#0c080c")],
                  embers(9, 40, 160, 445, 20, 70, ("#ffb35a", "#ffe0a0")))
