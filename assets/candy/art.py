# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Candy Bounce: sweets, a gum ball and a bat under a pink evening sky."""

import math
import random

from svgkit import (ball, cloud, digit, heart, icon_frame, inside, key_cap, lettering, linear, radial, small_text,
                    star_path, svg)

INK = "#4a1538"


def gumball():
    return svg(20, 20, f'<circle cx="10" cy="10" r="8.6" fill="url(#b)" stroke="{INK}" stroke-width="1.6"/>'
               '<ellipse cx="7" cy="6.2" rx="2.8" ry="1.9" fill="#fff" fill-opacity=".9" transform="rotate(-35 7 6.2)"/>'
               '<path d="M5 13.5A7 7 0 0 0 14.5 14" stroke="#fff" stroke-opacity=".4" stroke-width="1.3" fill="none"/>',
               ball("b", "#d9fbff", "#30c8ee", "#0a63b8"))


def bat_left():
    return _bat("M28 3H11A9 9 0 0 0 11 21H28", '<circle cx="11" cy="12" r="5" fill="#fff" fill-opacity=".9"/>'
                '<path d="M11 7A5 5 0 0 1 16 12H11ZM11 12V17A5 5 0 0 1 6 12Z" fill="#ff3f6e"/>')


def bat_middle():
    return _bat("M0 3H28M0 21H28", "", '<path d="M0 3H28V21H0Z" fill="url(#w)"/>'
                '<path d="M2 3L10 21H16L8 3ZM16 3L24 21H30L22 3Z" fill="#ff5c8a"/><path d="M-12 3L-4 21H2L-6 3Z" fill="#ff5c8a"/>'
                '<path d="M0 4.2H28V8H0Z" fill="#fff" fill-opacity=".55"/><path d="M0 16.5H28V20.5H0Z" fill="#9c1e55" fill-opacity=".28"/>')


def bat_right():
    return _bat("M0 3H17A9 9 0 0 1 17 21H0", '<circle cx="17" cy="12" r="5" fill="#fff" fill-opacity=".9"/>'
                '<path d="M17 7A5 5 0 0 1 22 12H17ZM17 12V17A5 5 0 0 1 12 12Z" fill="#ff3f6e"/>')


def _bat(outline, detail, fill=None):
    body = fill or f'<path d="{outline}" fill="url(#r)"/>'
    return svg(28, 24, body + detail + f'<path d="{outline}" fill="none" stroke="{INK}" stroke-width="2"/>',
               linear("r", "#ffc2d6", "#ff5c8a@0.4", "#c3195c") + linear("w", "#ffffff", "#f3d7e4"))


def donut():
    colours = ["#ffe14d", "#5fe0ff", "#fff", "#8bff7a", "#fff", "#ffe14d", "#5fe0ff", "#8bff7a"]
    spots = [(8, 9, 30), (14, 5.4, 80), (21, 7, 10), (25, 13, 60), (22.5, 20, 120), (9, 20, 70), (6, 14.5, 0), (15.5, 23.6, 20)]
    sprinkles = "".join(f'<rect x="-1.9" y="-.8" width="3.8" height="1.7" rx=".8" fill="{c}" transform="translate({x} {y}) rotate({a})"/>'
                        for c, (x, y, a) in zip(colours, spots))
    return svg(30, 30, f'<circle cx="15" cy="15.6" r="13" fill="url(#d)" stroke="{INK}" stroke-width="1.8"/>'
               '<path d="M15 2.6A12 12 0 0 1 27 14.6C27 17 25.5 17.6 25.4 19.8C25 22 22.4 21 21 23.4C19.4 26 17 24.6 15 25.8C12.5 26.6 11 24.4 9 24C6.6 23.4 6.4 20.6 4.6 19.4C2.8 18 3 16 3 14.6A12 12 0 0 1 15 2.6Z" fill="url(#p)"/>'
               f'{sprinkles}<circle cx="15" cy="14.8" r="4.4" fill="#7b3b12" stroke="{INK}" stroke-width="1.6"/>'
               '<path d="M11.6 16.6A4 4 0 0 0 18.4 16.6" stroke="#ffc98a" stroke-width="1.4" fill="none"/>'
               '<path d="M6 9.4A10.6 10.6 0 0 1 12 4.6" stroke="#fff" stroke-opacity=".8" stroke-width="1.8" stroke-linecap="round" fill="none"/>',
               linear("d", "#f0b267", "#b9691f") + linear("p", "#ff9fd0", "#f04c9c"))


def lemon():
    return svg(30, 30, f'<path d="M8 15L1.6 8.4Q3.6 15 1.6 21.6ZM22 15L28.4 8.4Q26.4 15 28.4 21.6Z" fill="url(#w)" stroke="{INK}" stroke-width="1.6" stroke-linejoin="round"/>'
               f'<ellipse cx="15" cy="15" rx="9.4" ry="8.8" fill="url(#l)" stroke="{INK}" stroke-width="1.8"/>'
               '<path d="M11 6.8Q17 15 11.4 23.2L15.4 23.8Q20.6 15 15 6.2ZM19.5 8.2Q23.6 15 20 21.6L22 20Q25 15 21.8 10Z" fill="#ff9a1f" fill-opacity=".75"/>'
               '<ellipse cx="10.8" cy="10.4" rx="3" ry="1.9" fill="#fff" fill-opacity=".85" transform="rotate(-35 10.8 10.4)"/>',
               ball("l", "#fffbc9", "#ffdc3a", "#e09a00") + linear("w", "#fff3a6", "#ffb52e"))


def mint():
    wedges = ""
    for k in range(6):
        a, b = math.radians(k * 60), math.radians(k * 60 + 34)
        x1, y1 = 15 + 11.6 * math.cos(a), 15 + 11.6 * math.sin(a)
        x2, y2 = 15 + 11.6 * math.cos(b), 15 + 11.6 * math.sin(b)
        wedges += (f'<path d="M15 15Q{15 + 8 * math.cos(a - .6):.2f} {15 + 8 * math.sin(a - .6):.2f} {x1:.2f} {y1:.2f}'
                   f'A11.6 11.6 0 0 1 {x2:.2f} {y2:.2f}Q{15 + 8 * math.cos(b - .6):.2f} {15 + 8 * math.sin(b - .6):.2f} 15 15Z" fill="#18b77a"/>')
    return svg(30, 30, f'<circle cx="15" cy="15" r="12.6" fill="#f7fffb" stroke="{INK}" stroke-width="1.8"/>{wedges}'
               '<circle cx="15" cy="15" r="11.7" fill="url(#s)"/>'
               '<ellipse cx="10" cy="8.6" rx="3.6" ry="2.2" fill="#fff" fill-opacity=".9" transform="rotate(-35 10 8.6)"/>',
               radial("s", "#fff/0.35", "#fff/0@0.5", "#04553c/0.5", cx=.42, cy=.38, r=.62))


def gumdrop():
    rng = random.Random(4)
    sugar = "".join(f'<circle cx="{6 + 18 * rng.random():.1f}" cy="{9 + 15 * rng.random():.1f}" r=".75" fill="#fff" fill-opacity=".8"/>' for _ in range(22))
    return svg(30, 30, f'<path d="M3.4 23C3.4 9 8.4 3 15 3S26.6 9 26.6 23Q26.6 27 22.6 27H7.4Q3.4 27 3.4 23Z" fill="url(#g)" stroke="{INK}" stroke-width="1.8"/>'
               f'{sugar}<path d="M8 17C8.4 11 10.4 7.4 13 6.4" stroke="#fff" stroke-width="2.4" stroke-opacity=".85" stroke-linecap="round" fill="none"/>',
               linear("g", "#d8a5ff", "#9a4df0@0.5", "#5a1fb0"))


def bonus(turn):
    return svg(30, 30, f'<path d="{star_path(15, 15.6, 13, 6.4, 5, -90 + turn)}" fill="url(#s)" stroke="#7a4a00" stroke-width="1.8" stroke-linejoin="round"/>'
               f'<path d="{star_path(15, 15.6, 7, 3.4, 5, -90 + turn)}" fill="#fff8c8" fill-opacity=".8"/>',
               linear("s", "#fff2a0", "#ffb400"))


def crumbs(step):
    rng = random.Random(11)
    bits = ""
    colours = ["#ff5c8a", "#ffdc3a", "#30c8ee", "#8bff7a", "#fff", "#d8a5ff"]
    for k in range(14):
        angle, far = rng.random() * 360, 3 + rng.random() * 5 + step * 3
        bits += (f'<g transform="translate(16 16) rotate({angle:.0f})"><rect x="{far:.1f}" y="-1.6" width="{5 - step * .8:.1f}" height="{3.4 - step * .5:.1f}" rx="1.5" '
                 f'fill="{colours[k % 6]}" stroke="{INK}" stroke-width=".7"/></g>')
    return svg(32, 32, bits)


def pink_heart():
    return heart()


def score_digit(number):
    return digit(number, "#ffffff", "#ffd0e4", "#6b1650")


def scene(extra="", veil=""):
    """Cotton-candy clouds over hills of ice cream."""
    rng = random.Random(7)
    stars = "".join(f'<circle cx="{rng.random() * 480:.0f}" cy="{rng.random() * 190:.0f}" r="{.5 + rng.random() * 1.3:.1f}" fill="#fff" fill-opacity="{.4 + rng.random() * .5:.2f}"/>'
                    for _ in range(60))
    clouds = "".join(cloud(x, y, s, c, o) for x, y, s, c, o in (
        (70, 230, 1.5, "#ffb3dc", .5), (400, 200, 1.9, "#ffc4e3", .45), (230, 285, 2.2, "#ffd3ea", .4),
        (60, 330, 1.8, "#ffe0ef", .45), (430, 330, 2, "#ffe0ef", .5)))
    trees = "".join(_lollipop(x, y, r, c) for x, y, r, c in ((46, 352, 25, "#ff5c8a"), (118, 372, 17, "#30c8ee"),
                                                            (432, 356, 27, "#8e5bff"), (372, 376, 16, "#ffb52e")))
    sprinkles = ""
    for k in range(70):
        x, y = rng.random() * 480, 420 + rng.random() * 58
        sprinkles += f'<rect x="-3.4" y="-1.3" width="6.8" height="2.6" rx="1.3" transform="translate({x:.0f} {y:.0f}) rotate({rng.random() * 180:.0f})" fill="{["#ff7aa8", "#ffe14d", "#6fe3ff", "#b7f77a", "#fff"][k % 5]}" fill-opacity=".75"/>'
    return svg(480, 480, f'<rect width="480" height="480" fill="url(#sky)"/>{stars}'
               '<circle cx="384" cy="66" r="34" fill="#ffeecb" fill-opacity=".25"/><path d="M396 40A30 30 0 1 0 404 88A24 24 0 1 1 396 40Z" fill="#fff1c9" fill-opacity=".9"/>'
               f'{clouds}<path d="M0 400C60 330 120 350 170 392C220 340 300 330 350 388C400 350 450 350 480 380V480H0Z" fill="url(#h1)"/>{trees}'
               '<path d="M0 430C40 404 80 424 120 414C170 402 190 440 240 424C300 404 330 436 380 420C420 408 450 424 480 414V480H0Z" fill="url(#h2)"/>'
               '<path d="M0 430C40 404 80 424 120 414C170 402 190 440 240 424C300 404 330 436 380 420C420 408 450 424 480 414" stroke="#fff" stroke-opacity=".8" stroke-width="4" fill="none"/>'
               f'{sprinkles}{veil}{extra}',
               linear("sky", "#2b1a66", "#6d2f95@0.35", "#d7609f@0.68", "#ffb590") + linear("h1", "#f59ac4", "#c95a9e")
               + linear("h2", "#fff1e0", "#f7c6d9") + linear("t", "#fffbe0", "#ffd23f@0.45", "#ff7a1f", y2=14, user=True)
               + linear("t2", "#ffffff", "#ff9fd0@0.5", "#f0307f", y2=14, user=True))


def _lollipop(x, y, r, colour):
    return (f'<rect x="{x - 3}" y="{y}" width="6" height="90" rx="3" fill="#fff" stroke="#a63f7c" stroke-width="1.5"/>'
            f'<circle cx="{x}" cy="{y}" r="{r}" fill="{colour}" stroke="#7a2a66" stroke-width="2.4"/>'
            f'<path d="M{x} {y}A{r * .25} {r * .25} 0 0 1 {x + r * .5} {y}A{r * .5} {r * .5} 0 0 1 {x - r * .5} {y}A{r * .75} {r * .75} 0 0 1 {x + r * .9} {y}" fill="none" stroke="#fff" stroke-opacity=".85" stroke-width="{r * .2:.1f}" stroke-linecap="round"/>'
            f'<ellipse cx="{x - r * .4}" cy="{y - r * .5}" rx="{r * .25}" ry="{r * .15}" fill="#fff" fill-opacity=".7" transform="rotate(-40 {x - r * .4} {y - r * .5})"/>')


def title():
    sweets = [donut(), lemon(), mint(), gumdrop()]
    row = "".join(inside(sweets[i % 4], 75 + i * 55, 218 + (i % 2) * 12, 46) for i in range(7))
    return scene(lettering("CANDY", 240, 62, 54, "url(#t)", INK, wave=5, shadow="#3a0d3f") +
                 lettering("BOUNCE", 240, 136, 46, "url(#t2)", INK, wave=4, shadow="#3a0d3f") + row +
                 inside(gumball(), 318, 300, 40) + key_cap(160, 340, "left") + key_cap(206, 340, "right") +
                 small_text("MOVE", 262, 334, 12, "#fff", INK, "start") +
                 key_cap(183, 392, "SPACE", 92) + small_text("PLAY", 262, 386, 12, "#fff", INK, "start"))


def _ending(word, line, fill, extra):
    return scene(lettering(word, 240, 120, 50, f"url(#{fill})", INK, wave=5, shadow="#3a0d3f") +
                 small_text(line, 240, 216, 15, "#fff", INK) + extra +
                 key_cap(160, 350, "SPACE", 92) + small_text("PLAY AGAIN", 222, 344, 13, "#fff", INK, "start"))


def won():
    sweets = [donut(), lemon(), mint(), gumdrop(), donut(), lemon()]
    return _ending("YUMMY!", "ALL THE CANDY IS YOURS", "t", "".join(inside(s, 90 + i * 60, 280 - (i % 2) * 14, 44) for i, s in enumerate(sweets)))


def lost():
    return _ending("OH NO!", "NO MORE GUM BALLS", "t2", inside(gumball(), 240, 284, 46))


def icon():
    return icon_frame(inside(donut(), 26, 28, 34) + inside(lemon(), 56, 26, 30) + inside(gumball(), 45, 47, 17) +
                      '<rect x="16" y="59" width="48" height="11" rx="5.5" fill="#ff5c8a" stroke="#4a1538" stroke-width="2"/>'
                      '<path d="M21 62.5H58" stroke="#fff" stroke-opacity=".7" stroke-width="2" stroke-linecap="round"/>',
                      "", "#8d4bb8", "#ff9ab0", "#4a1538")
