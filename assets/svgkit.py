# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Pens and brushes for the drawings of the games: gradients, round lettering, key caps, digits, hearts.

The lettering is made of strokes, so the pictures do not depend on the fonts of a machine.
"""

import math
import re

# Strokes of each character in a box 14 high; the number is its width.
GLYPHS = {
    "A": (8, "M0 14L4 0L8 14M1.5 9H6.5"),
    "B": (7, "M0 0V14H3.5A3.7 3.7 0 0 0 3.5 6.6H0M0 0H3A3.3 3.3 0 0 1 3 6.6"),
    "C": (8, "M8 2A5 7 0 1 0 8 12"),
    "D": (8, "M0 0V14H2A6 7 0 0 0 2 0Z"),
    "E": (6.5, "M6.5 0H0V14H6.5M0 6.8H5"),
    "F": (6.5, "M6.5 0H0V14M0 6.8H5"),
    "G": (8.5, "M8 2A5 7 0 1 0 8.5 11V7.6H5.4"),
    "H": (8, "M0 0V14M8 0V14M0 7H8"),
    "I": (0.1, "M0 0V14"),
    "J": (6, "M6 0V10A3 4 0 0 1 0 10"),
    "K": (7.5, "M0 0V14M7 0L0 8M2.6 5.4L7.5 14"),
    "L": (6, "M0 0V14H6"),
    "M": (10, "M0 14V0L5 8L10 0V14"),
    "N": (8, "M0 14V0L8 14V0"),
    "O": (9, "M4.5 0A4.5 7 0 1 0 4.5 14A4.5 7 0 1 0 4.5 0Z"),
    "P": (7.4, "M0 14V0H3.5A4 4 0 0 1 3.5 8H0"),
    "Q": (9, "M4.5 0A4.5 7 0 1 0 4.5 14A4.5 7 0 1 0 4.5 0ZM5.5 10L9 14.5"),
    "R": (7.4, "M0 14V0H3.5A4 4 0 0 1 3.5 8H0M3.5 8L7.4 14"),
    "S": (7.4, "M7 2C6 .5 5 0 3.7 0C1.5 0 .2 1.5 .2 3.4C.2 7.5 7.4 6 7.4 10.4C7.4 12.6 5.8 14 3.7 14C2 14 .6 13.2 0 11.6"),
    "T": (8, "M0 0H8M4 0V14"),
    "U": (8, "M0 0V9.5A4 4.5 0 0 0 8 9.5V0"),
    "V": (8, "M0 0L4 14L8 0"),
    "W": (11, "M0 0L2.8 14L5.5 4L8.2 14L11 0"),
    "X": (8, "M0 0L8 14M8 0L0 14"),
    "Y": (8, "M0 0L4 7L8 0M4 7V14"),
    "Z": (7.5, "M0 0H7.5L0 14H7.5"),
    "0": (8, "M4 0A4 7 0 1 0 4 14A4 7 0 1 0 4 0Z"),
    "1": (4, "M0 3L3.6 0V14"),
    "2": (7.5, "M.3 3.4A3.6 3.5 0 1 1 6.5 6.2L0 14H7.5"),
    "3": (7.6, "M.4 1.8A3.5 3.4 0 1 1 3.4 6.7A3.7 3.7 0 1 1 .1 12"),
    "4": (8, "M5.6 14V0L0 9.6H8"),
    "5": (7.6, "M7 0H1.2L.6 6.2A4 4.2 0 1 1 .2 12.2"),
    "6": (7.8, "M6.5 .3C2 1.5 .2 6 .2 9.8A3.7 4.1 0 1 0 7.6 9.8A3.7 4.1 0 0 0 .2 9.8"),
    "7": (7.5, "M0 0H7.5L2.5 14"),
    "8": (7.6, "M3.8 0A3.1 3.3 0 1 0 3.8 6.6A3.1 3.3 0 1 0 3.8 0ZM3.8 6.6A3.7 3.7 0 1 0 3.8 14A3.7 3.7 0 1 0 3.8 6.6Z"),
    "9": (7.8, "M1.3 13.7C5.8 12.5 7.6 8 7.6 4.2A3.7 4.1 0 1 0 .2 4.2A3.7 4.1 0 0 0 7.6 4.2"),
    "!": (0.1, "M0 0V9M0 13.6V14"),
    "'": (0.6, "M.6 0L0 3"),
    "-": (4, "M0 7.5H4"),
    ".": (0.1, "M0 13.6V14"),
    ",": (1, "M1 13L0 16"),
    ":": (0.1, "M0 4.6V5M0 12V12.4"),
    "?": (7, "M.3 3.4A3.5 3.5 0 1 1 5 6.4C3.8 7.2 3.6 8 3.6 9.4M3.6 13.6V14"),
    " ": (3, ""),
}


def svg(width, height, body, defs=""):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'width="{width}" height="{height}" viewBox="0 0 {width} {height}"><defs>{defs}</defs>{body}</svg>')


def _stops(colours):
    parts = []
    for i, colour in enumerate(colours):
        colour, _, place = colour.partition("@")
        colour, _, opacity = colour.partition("/")
        place = float(place) if place else i / max(1, len(colours) - 1)
        see = f' stop-opacity="{opacity}"' if opacity else ""
        parts.append(f'<stop offset="{place:g}" stop-color="{colour}"{see}/>')
    return "".join(parts)


def linear(name, *colours, x1=0, y1=0, x2=0, y2=1, user=False):
    """A gradient from top to bottom; a colour is "#rgb", "#rgb/opacity" or "#rgb@place"."""
    units = ' gradientUnits="userSpaceOnUse"' if user else ""
    return (f'<linearGradient id="{name}" x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}"{units}>'
            f'{_stops(colours)}</linearGradient>')


def radial(name, *colours, cx=0.5, cy=0.5, r=0.5, fx=None, fy=None):
    focus = f' fx="{cx if fx is None else fx}" fy="{cy if fy is None else fy}"'
    return f'<radialGradient id="{name}" cx="{cx}" cy="{cy}" r="{r}"{focus}>{_stops(colours)}</radialGradient>'


def ball(name, light, middle, dark):
    """A gradient that makes a disc look round, lit from the upper left."""
    return radial(name, light, middle + "@0.45", dark, cx=0.42, cy=0.38, r=0.66, fx=0.34, fy=0.28)


def text_width(text, gap=4.2):
    return sum(GLYPHS[c][0] for c in text) + gap * (len(text) - 1)


def lettering(text, x, y, height, fill, edge="#222", weight=3.0, rim=2.2, shine=0.55, wave=0, anchor="middle",
              gap=None, shadow=None):
    """Round letters, top edge at y. fill: colour or "url(#id)" of a gradient in the 14-high letter box."""
    scale = height / 14
    gap = 1.3 + weight if gap is None else gap
    left = x - text_width(text, gap) * scale * {"middle": 0.5, "start": 0, "end": 1}[anchor]
    layers = {"shadow": [], "edge": [], "fill": [], "shine": []}
    for i, character in enumerate(text):
        width, path = GLYPHS[character]
        lift = math.sin(i * 1.1) * wave
        place = f'transform="translate({left:.2f} {y + lift:.2f}) rotate({math.cos(i * 1.1) * wave:.2f}) scale({scale:.3f})"'
        if path:
            if shadow:
                layers["shadow"].append(f'<g transform="translate(0 {0.14 * height:.1f})"><path {place} d="{path}" '
                                        f'stroke="{shadow}" stroke-width="{weight + 2 * rim:.2f}"/></g>')
            layers["edge"].append(f'<path {place} d="{path}" stroke="{edge}" stroke-width="{weight + 2 * rim:.2f}"/>')
            layers["fill"].append(f'<path {place} d="{path}" stroke="{fill}" stroke-width="{weight:.2f}"/>')
            if shine:
                layers["shine"].append(f'<g transform="translate({-0.05 * height * weight / 3:.2f} {-0.05 * height * weight / 3:.2f})">'
                                       f'<path {place} d="{path}" stroke="#fff" stroke-opacity="{shine}" '
                                       f'stroke-width="{weight * 0.22:.2f}"/></g>')
        left += (width + gap) * scale
    inner = "".join("".join(layers[k]) for k in ("shadow", "edge", "fill", "shine"))
    return f'<g fill="none" stroke-linecap="round" stroke-linejoin="round">{inner}</g>'


def small_text(text, x, y, height, colour="#fff", edge="#222", anchor="middle"):
    return lettering(text, x, y, height, colour, edge, weight=1.9, rim=1.5, shine=0, anchor=anchor)


ARROWS = {"left": 180, "up": 270, "right": 0, "down": 90}


def key_cap(x, y, label, width=40, height=36):
    """A key of a keyboard, with an arrow or a word on it; x, y is its middle."""
    left, top = x - width / 2, y - height / 2
    face = (f'<rect x="{left}" y="{top + 4}" width="{width}" height="{height}" rx="9" fill="#5b6478" stroke="#2a2f3d" stroke-width="2.5"/>'
            f'<rect x="{left}" y="{top}" width="{width}" height="{height}" rx="9" fill="#f4f6fb" stroke="#2a2f3d" stroke-width="2.5"/>'
            f'<rect x="{left + 5}" y="{top + 3.5}" width="{width - 10}" height="{height - 10}" rx="6" fill="#fff" stroke="#c9d0e0" stroke-width="1.2"/>')
    if label in ARROWS:
        return face + (f'<path transform="translate({x} {y - 1.5}) rotate({ARROWS[label]})" d="M-9 -2.6H1V-7.5L10 0L1 7.5V2.6H-9Z" '
                       'fill="#3d4a6b" stroke="#3d4a6b" stroke-width="1.5" stroke-linejoin="round"/>')
    return face + lettering(label, x, y - 7.5, 11.5, "#3d4a6b", "#3d4a6b", weight=2, rim=0, shine=0, gap=3.4)


def heart(size=20, light="#ff9aa8", dark="#d3123b", edge="#5a0a20"):
    path = "M12 21C5 15.5 2 12 2 8A5 5 0 0 1 12 6A5 5 0 0 1 22 8C22 12 19 15.5 12 21Z"
    return svg(24, 24, f'<path d="{path}" fill="url(#h)" stroke="{edge}" stroke-width="1.8" stroke-linejoin="round"/>'
               '<ellipse cx="7.4" cy="7.6" rx="2.3" ry="1.7" fill="#fff" fill-opacity=".85" transform="rotate(-35 7.4 7.6)"/>',
               linear("h", light, dark))


def digit(number, light="#fff6c8", dark="#ffb400", edge="#4a2a00"):
    """A digit of a score, 18 x 24."""
    return svg(18, 24, lettering(str(number), 9, 4.4, 15.2, "url(#d)", edge, weight=2.9, rim=1.7, shine=0.6),
               linear("d", light, dark, y2=14, user=True))


def star_path(cx, cy, outer, inner, points=5, turn=-90):
    words = []
    for i in range(points * 2):
        radius = outer if i % 2 == 0 else inner
        angle = math.radians(turn + i * 180 / points)
        words.append(f"{cx + radius * math.cos(angle):.2f} {cy + radius * math.sin(angle):.2f}")
    return "M" + "L".join(words) + "Z"


def cloud(x, y, scale, colour, opacity=1.0):
    return (f'<g transform="translate({x} {y}) scale({scale})" fill="{colour}" fill-opacity="{opacity}">'
            '<path d="M-44 12A16 16 0 0 1 -34 -12A24 24 0 0 1 8 -22A18 18 0 0 1 36 -8A12 12 0 0 1 42 12Z"/></g>')


def inside(drawing, x, y, size, turn=0):
    """A whole drawing as a part of another, its middle at x, y; its colours are renamed so that none clash."""
    mark = f"n{x:g}_{y:g}_".replace("-", "m").replace(".", "p")
    body = re.sub(r'id="', f'id="{mark}', drawing).replace("url(#", f"url(#{mark}")
    width, height = (float(n) for n in re.search(r'width="([\d.]+)" height="([\d.]+)"', body).groups())
    tall = size * height / width
    body = re.sub(r'width="[\d.]+" height="[\d.]+"', f'x="{x - size / 2:g}" y="{y - tall / 2:g}" width="{size:g}" height="{tall:g}"',
                  body, count=1)
    return f'<g transform="rotate({turn} {x:g} {y:g})">{body}</g>' if turn else body


def icon_frame(body, defs, top="#bfe6ff", bottom="#5aa7e8", edge="#2b4d80"):
    """The 80 x 80 tile on which a game's icon stands."""
    return svg(80, 80, f'<rect width="80" height="80" fill="{edge}"/>'
               f'<rect x="3" y="3" width="74" height="74" rx="15" fill="url(#tile)" stroke="{edge}" stroke-width="3"/>'
               f'{body}<path d="M8 20Q8 8 20 8H60Q72 8 72 20Q40 12 8 20Z" fill="#fff" fill-opacity=".28"/>',
               linear("tile", top, bottom) + defs)
