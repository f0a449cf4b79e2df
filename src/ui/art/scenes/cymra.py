"""Green hills, a keep on its rock, and the red dragon over it."""
from svg import circle, group, num, path, stroke
from terrain import cloud, facets, gather, pines, profile, ridge, sky, streak, sun, tower

DRAGON = ("M0,0C-3,-1 -6,-0.6 -8.6,1.4L-13.4,1.6L-10,3.4C-8,4.4 -5.6,4 -3.6,3.2C-1,6 3,8 8,8.4C14,9 20,8.2 25,10.4"
          "C28,12 29,15 33.4,15.6L31.8,18.4L38.6,15.6L34.2,11.8L34.4,14C31,13 30,9 26.6,7C23,5 18.6,5.4 15.4,4.4"
          "C19.4,0 25.6,-1.2 31.4,0C29.6,-2.6 28.6,-4 28.8,-6.6C26,-6.4 23.8,-7.4 22.4,-10C19.6,-8.6 17,-9 14.6,-12.4"
          "C12,-8 7.4,-3 5.4,1.4C3.6,2 1.8,1.2 0,0Z")
FAR_WING = ("M7,2.4C4,-5 0.6,-10 -6,-14.6C-5.4,-11.4 -6,-9.4 -8,-7.6C-5.6,-6.8 -4.6,-5.2 -4.8,-2.6"
            "C-2.6,-2.6 0,-1 2.4,2Z")
WING_LIGHT = "M14.6,-12.4C12,-8 7.4,-3 5.4,1.4L15.4,4.4C19.4,0 20.6,-5 14.6,-12.4Z"
WING_BONES = "M5.6,1.6C8,-3 12,-8 14.4,-12M6.4,2C11,-3 17,-7.6 22.2,-9.6M8,2.6C14,-2 22,-5.6 28.6,-6.4"
KNOLL = "M346,62Q385,46 424,62Q405,58 397,52L385,53L373,52Q365,58 346,62Z"
LEGS = "M4,6.4C4.6,9.4 3.4,10.6 1.2,11.4M14,8C15.4,10.8 14.6,12.4 12.4,13.4"
HORNS = "M-3.4,0L0.8,-2.8M-1.8,0.2L2.6,-1.6"


def keep(x, foot):
    stone, lit = "#46404e", "#b9aa9c"
    walls = "".join((tower(x, foot, 12, 18), tower(x - 13, foot + 2, 8, 14), tower(x + 13, foot + 2, 8, 14),
                     tower(x - 26, foot + 7, 6, 11), tower(x + 26, foot + 7, 6, 11)))
    curtain = f"M{x - 27},{foot + 12}V{foot + 2}H{x - 17}V{foot - 4}H{x + 17}V{foot + 2}H{x + 27}V{foot + 12}Z"
    bright = "".join(f"M{num(x + a)},{foot + 4}V{foot - b}" for a, b in
                     ((-5.2, 17), (-16.2, 11), (9.8, 11), (-28.2, 3), (23.8, 3)))
    lights = "".join(f"M{num(x + a)},{foot - b}v-2.6h1.2v2.6Z" for a, b in
                     ((-3, 9), (2, 9), (-13.4, 5), (12.6, 5), (-0.6, 3)))
    return [path(walls + curtain, stone), stroke(bright, lit, 1.2, 'opacity="0.8"'), path(lights, "#ffd76a"),
            path(f"M{x - 2.4},{foot + 8}v-4q2.4,-3.4 4.8,0v4Z", "#241c28"),
            stroke(f"M{x},{foot - 20}v-8", stone, 0.9), path(f"M{x},{foot - 28.4}l9,2.2l-9,2.6Z", "#c41f1c")]


def dragon():
    body = [path(FAR_WING, "#7d1113"), stroke(LEGS, "#8c1414", 1.5), path(DRAGON, "#b3191a"),
            path(WING_LIGHT, "#e0442c", 'opacity="0.75"'), stroke(WING_BONES, "#6a0c10", 0.6),
            stroke("M-3,2.8C0,5 4,6.8 9,7C14,7.4 19,6.8 24,8.6", "#ff8a5a", 0.7, 'opacity="0.8"'),
            stroke(HORNS, "#7d1113", 0.9), circle(-5.4, 1, 0.55, "#ffe27a"),
            path("M-13.6,1.8C-17,1.2 -19,2.4 -22.6,1.8C-20,3.4 -22,4.4 -25,5.4C-20,6 -16,4.6 -11,3.2Z", "#ffb23c"),
            path("M-13,2.2C-16,2.2 -17.4,3 -20,3.2C-17.4,4.2 -15,3.8 -11.4,3Z", "#fff2b0")]
    return group(body, "translate(292,26) scale(1.2)")


def scene():
    far = profile(31, -5, 455, 52, 9, levels=7, peaks=((250, 20, 46), (440, 24, 40), (330, 12, 40), (165, 16, 50)))
    mid = profile(33, -5, 455, 61, 7, 0.45, peaks=((385, 17, 60), (200, 6, 60)))
    near = profile(35, -5, 455, 69, 6, 0.4, peaks=((270, 5, 60),))
    return gather(sky([(0, "#2c5a8c"), (0.4, "#6ba3c4"), (0.75, "#d8dcb8"), (1, "#ffe7a8")]),
                  sun(335, 48, 0.1, "#fff6d0", "#fff4c0", 110),
                  [cloud(425, 22, 70, 10, "#f4f6f4", 0.85, 3), cloud(215, 25, 90, 9, "#e8f0f2", 0.7, 5),
                   cloud(350, 13, 46, 5, "#f4f6f4", 0.7, 8), cloud(310, 45, 80, 6, "#fff4d0", 0.6, 9),
                   streak(270, 10, 100, 2.6, "#ffffff", 0.4)],
                  ridge("far", far, "#4f8590", "#a8c49a", 30), facets(far, "#f4f8ee", 0.55, 9),
                  ridge("mid", mid, "#3d7a3c", "#7fa648", 44), keep(385, 44),
                  [path(KNOLL, "#8fb84e", 'opacity="0.7"')],
                  ridge("near", near, "#2b6130", "#163a1c", 62), pines(6, near, 180, 455, 8, 9, "#143019", (362, 408)),
                  dragon())
