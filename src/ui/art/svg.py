"""Small building blocks of the drawings: numbers, gradients and shapes as SVG text."""

WIDTH, HEIGHT = 449, 76   # the banner's place in pixels at 96 dpi


def num(value):
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def stops(colours):
    """Stops from (offset, colour) or (offset, colour, opacity) tuples."""
    made = []
    for stop in colours:
        opacity = f' stop-opacity="{num(stop[2])}"' if len(stop) > 2 else ""
        made.append(f'<stop offset="{num(stop[0])}" stop-color="{stop[1]}"{opacity}/>')
    return "".join(made)


def vertical(name, colours, top=0, bottom=HEIGHT):
    return (f'<linearGradient id="{name}" gradientUnits="userSpaceOnUse" x1="0" y1="{num(top)}" x2="0" '
            f'y2="{num(bottom)}">{stops(colours)}</linearGradient>')


def horizontal(name, colours, left=0, right=WIDTH):
    return (f'<linearGradient id="{name}" gradientUnits="userSpaceOnUse" x1="{num(left)}" y1="0" '
            f'x2="{num(right)}" y2="0">{stops(colours)}</linearGradient>')


def radial(name, x, y, radius, colours):
    return (f'<radialGradient id="{name}" gradientUnits="userSpaceOnUse" cx="{num(x)}" cy="{num(y)}" '
            f'r="{num(radius)}">{stops(colours)}</radialGradient>')


def rect(fill, x=0, y=0, width=WIDTH, height=HEIGHT, extra=""):
    return (f'<rect x="{num(x)}" y="{num(y)}" width="{num(width)}" height="{num(height)}" fill="{fill}"'
            f'{" " + extra if extra else ""}/>')


def circle(x, y, radius, fill, extra=""):
    return (f'<circle cx="{num(x)}" cy="{num(y)}" r="{num(radius)}" fill="{fill}"'
            f'{" " + extra if extra else ""}/>')


def ellipse(x, y, rx, ry, fill, extra=""):
    return (f'<ellipse cx="{num(x)}" cy="{num(y)}" rx="{num(rx)}" ry="{num(ry)}" fill="{fill}"'
            f'{" " + extra if extra else ""}/>')


def path(data, fill, extra=""):
    return f'<path d="{data}" fill="{fill}"{" " + extra if extra else ""}/>'


def stroke(data, colour, width, extra=""):
    return (f'<path d="{data}" fill="none" stroke="{colour}" stroke-width="{num(width)}" '
            f'stroke-linecap="round" stroke-linejoin="round"{" " + extra if extra else ""}/>')


def poly(points, fill, extra=""):
    data = "M" + "L".join(f"{num(x)},{num(y)}" for x, y in points) + "Z"
    return path(data, fill, extra)


def group(content, transform="", extra=""):
    attributes = (f' transform="{transform}"' if transform else "") + (f" {extra}" if extra else "")
    return f"<g{attributes}>{''.join(content)}</g>"


def document(width, height, defs, body):
    """A whole drawing; one element a line, so that a change shows as a small difference."""
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{num(width)}" height="{num(height)}" '
             f'viewBox="0 0 {num(width)} {num(height)}">']
    lines += ["<defs>"] + list(defs) + ["</defs>"] + list(body) + ["</svg>"]
    return "\n".join(lines) + "\n"
