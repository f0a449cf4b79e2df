"""What the landscapes are made of: skies, ridges, woods, buildings. The same seed gives the same land."""
import math
import random

from svg import HEIGHT, circle, group, num, path, poly, radial, rect, stroke, vertical


def sky(colours):
    return [vertical("sky", colours)], [rect("url(#sky)")]


def sun(x, y, radius, core, glow, reach, name="sun", strength=0.9):
    """A disc and the light around it."""
    defs = [radial(name, x, y, reach, [(0, glow, strength), (0.35, glow, strength * 0.45), (1, glow, 0)])]
    return defs, [circle(x, y, reach, f"url(#{name})"), circle(x, y, radius, core)]


def profile(seed, left, right, base, height, roughness=0.55, levels=6, peaks=()):
    """A skyline as points from left to right; `peaks` pulls it up at (x, height) places."""
    dice = random.Random(seed)
    count = 2 ** levels
    line = [0.0] * (count + 1)
    line[0], line[count] = dice.uniform(-1, 1), dice.uniform(-1, 1)
    step, swing = count, 1.0
    while step > 1:
        half = step // 2
        for i in range(half, count, step):
            line[i] = (line[i - half] + line[i + half]) / 2 + dice.uniform(-swing, swing)
        step, swing = half, swing * roughness
    points = []
    for i, value in enumerate(line):
        x = left + (right - left) * i / count
        lift = sum(tall * max(0.0, 1 - abs(x - at) / wide) ** 1.15 for at, tall, wide in peaks)
        points.append((x, base - height * value * 0.5 - lift))
    return points


def ridge(name, points, top_colour, foot_colour, top, bottom=HEIGHT):
    """A range of hills that fades into the mist at its foot."""
    shape = list(points) + [(points[-1][0], HEIGHT), (points[0][0], HEIGHT)]
    return [vertical(name, [(0, top_colour), (1, foot_colour)], top, bottom)], [poly(shape, f"url(#{name})")]


def facets(points, light, opacity, reach=9, shadow=None):
    """Caps the summits of a skyline with light (snow, sun), and with `shadow` on their far side when it is given."""
    body = []
    for i in range(1, len(points) - 1):
        x, y = points[i]
        if y > min(py for _, py in points[max(0, i - 5):i + 6]):
            continue
        for side, tint in ((1, light), (-1, shadow)):
            slope = [(x, y)]
            at = i + side
            while 0 <= at < len(points) and points[at][1] < y + reach and points[at][1] >= slope[-1][1] - 1:
                slope.append(points[at])
                at += side
            if tint is None or len(slope) < 2:
                continue
            wide = max(3.0, abs(slope[-1][0] - x))
            low = slope[-1][1]
            hem = [(x + side * wide * share, y + (low - y) * (share + drop) + 1.2) for share, drop in
                   ((0.8, 0.34), (0.62, 0.16), (0.44, 0.62), (0.3, 0.3), (0.12, 0.72), (0, 0.44))]
            body.append(poly(slope + hem, tint, f'opacity="{num(opacity)}"'))
    return body


def height_at(points, x):
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        if x0 <= x <= x1:
            return y0 + (y1 - y0) * (x - x0) / (x1 - x0)
    return points[-1][1]


def pine(x, foot, tall):
    wide = tall * 0.36
    points = [(x, foot - tall)]
    for share in (0.42, 0.7, 1.0):
        points += [(x + wide * share, foot - tall * (1 - share)), (x + wide * share * 0.55, foot - tall * (1 - share))]
    mirrored = [(2 * x - px, py) for px, py in reversed(points[1:])]
    return points + mirrored


def pines(seed, ground, left, right, gap, tall, colour, clearing=(0, 0)):
    dice, body, x = random.Random(seed), [], left
    while x < right:
        if not clearing[0] < x < clearing[1]:
            body.append("M" + "L".join(f"{num(a)},{num(b)}" for a, b in
                                       pine(x, height_at(ground, x) + 2, tall * dice.uniform(0.55, 1.1))) + "Z")
        x += gap * dice.uniform(0.5, 1.5)
    return [path("".join(body), colour)]


def stars(seed, count, left, right, bottom, colour="#ffffff"):
    dice, body = random.Random(seed), []
    for _ in range(count):
        x, y, size = dice.uniform(left, right), dice.uniform(5, bottom), dice.choice((0.45, 0.55, 0.7, 1.0))
        body.append(circle(x, y, size, colour, f'opacity="{num(dice.uniform(0.5, 1))}"'))
    return body


def cloud(x, y, wide, tall, colour, opacity, seed=1):
    """A flat-bottomed bank of cloud heaped from puffs of uneven size, with a lighter crest."""
    dice, puffs, crests = random.Random(seed), "", ""
    at = -wide / 2
    while at < wide / 2:
        share = max(0.12, math.cos(math.pi * at / wide)) * dice.uniform(0.55, 1.05)
        radius = tall * share
        puffs += (f"M{num(x + at - radius * 1.5)},{num(y)}a{num(radius * 1.5)},{num(radius)} 0 0 1 "
                  f"{num(radius * 3)},0Z")
        crests += (f"M{num(x + at - radius * 0.9)},{num(y - radius * 0.6)}a{num(radius)},{num(radius * 0.62)} 0 0 1 "
                   f"{num(radius * 1.7)},{num(-radius * 0.1)}q{num(-radius * 0.8)},{num(-radius * 0.3)} "
                   f"{num(-radius * 1.7)},{num(radius * 0.1)}Z")
        at += max(2.5, radius * dice.uniform(0.7, 1.5))
    foot = (f"M{num(x - wide / 2 - tall)},{num(y)}h{num(wide + 2 * tall)}q{num(-wide * 0.3)},{num(tall * 0.4)} "
            f"{num(-wide / 2 - tall)},{num(tall * 0.3)}q{num(-wide * 0.3)},{num(tall * 0.1)} "
            f"{num(-wide / 2 - tall)},{num(-tall * 0.3)}Z")
    return group([path(puffs + foot, colour), path(crests, "#ffffff", 'opacity="0.22"')], "",
                 f'opacity="{num(opacity)}"')


def streak(x, y, wide, tall, colour, opacity):
    data = (f"M{num(x - wide / 2)},{num(y)}q{num(wide * 0.3)},{num(-tall)} {num(wide * 0.55)},{num(-tall * 0.4)}"
            f"q{num(wide * 0.2)},{num(tall * 0.1)} {num(wide * 0.45)},{num(tall * 0.4)}"
            f"q{num(-wide * 0.5)},{num(tall * 0.9)} {num(-wide)},0Z")
    return path(data, colour, f'opacity="{num(opacity)}"')


def bird(x, y, size, colour):
    return stroke(f"M{num(x - size)},{num(y - size * 0.35)}q{num(size * 0.6)},{num(-size * 0.25)} {num(size)},"
                  f"{num(size * 0.35)}q{num(size * 0.4)},{num(-size * 0.6)} {num(size)},{num(-size * 0.35)}",
                  colour, size * 0.22)


def tower(x, foot, wide, tall, roof=0.0):
    """Outline of a tower with battlements, or with a pointed roof of the given height."""
    half, lip = wide / 2, wide * 0.16
    top = foot - tall
    data = f"M{num(x - half)},{num(foot)}V{num(top)}h{num(-lip)}"
    if roof:
        data += f"L{num(x)},{num(top - roof)}L{num(x + half + lip)},{num(top)}h{num(-lip)}"
    else:
        tooth = (wide + 2 * lip) / 5
        data += f"v{num(-tooth * 1.6)}"
        for i in range(5):
            data += f"h{num(tooth)}" + ("" if i == 4 else f"v{num(tooth if i % 2 == 0 else -tooth)}")
        data += f"v{num(tooth * 1.6)}h{num(-lip)}"
    return data + f"V{num(foot)}Z"


def embers(seed, count, left, right, top, bottom, colours):
    dice, body = random.Random(seed), []
    for _ in range(count):
        x, y = dice.uniform(left, right), dice.uniform(top, bottom)
        radius, colour = dice.uniform(0.35, 0.95), dice.choice(colours)
        body.append(circle(x, y, radius, colour, f'opacity="{num(dice.uniform(0.5, 1))}"'))
    return body


def mist(y, tall, colour, opacity, name):
    defs = [vertical(name, [(0, colour, 0), (0.5, colour, opacity), (1, colour, 0)], y - tall, y + tall)]
    return defs, [rect(f"url(#{name})", y=y - tall, height=2 * tall)]


def gather(*pieces):
    """Joins (defs, body) pairs and plain bodies, back to front."""
    defs, body = [], []
    for piece in pieces:
        if isinstance(piece, tuple):
            defs += piece[0]
            body += piece[1]
        else:
            body += piece if isinstance(piece, list) else [piece]
    return defs, body
