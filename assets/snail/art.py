# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Snail Race: four snails on four tracks in a summer garden."""

import math
import random

from svgkit import ball, cloud, icon_frame, inside, key_cap, lettering, linear, radial, small_text, star_path, svg

INK = "#3a2330"
SHELLS = {"purple": ("#f0c8ff", "#a64df0", "#5a1a96"), "red": ("#ffd0c0", "#ff5a4a", "#a01c24"),
          "blue": ("#c8f0ff", "#3aa0f0", "#134a96"), "green": ("#e4ffc0", "#62c93a", "#1f6a24")}


def snail(colour, step):
    stretch = [0, 2.2, 3.4, 1.4][step]
    lift = [0, -1, -1.4, -.6][step]
    light, middle, dark = SHELLS[colour]
    return svg(60, 46, f'<path d="M{4 - stretch * .2:.1f} 41C4 37 12 35 20 35H38C41 35 41 30 41 26C41 20 45 17 49 17C{54 + stretch * .4:.1f} 17 {57 + stretch * .5:.1f} 21 {56 + stretch * .5:.1f} 26C{55.6 + stretch * .4:.1f} 33 52 41.6 45 41.6H7Q4 41.6 4 41Z" fill="url(#b)" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/>'
               f'<path d="M46.6 18L{45 + stretch * .6:.1f} {7.4 + lift}M52 18L{54.4 + stretch * .6:.1f} {8 + lift}" stroke="{INK}" stroke-width="4.4" stroke-linecap="round"/><path d="M46.6 18L{45 + stretch * .6:.1f} {7.4 + lift}M52 18L{54.4 + stretch * .6:.1f} {8 + lift}" stroke="#f7d9a0" stroke-width="2" stroke-linecap="round"/>'
               f'<circle cx="{45 + stretch * .6:.1f}" cy="{6.4 + lift}" r="3.6" fill="#fff" stroke="{INK}" stroke-width="1.5"/><circle cx="{46 + stretch * .6:.1f}" cy="{6.6 + lift}" r="1.6" fill="{INK}"/><circle cx="{54.4 + stretch * .6:.1f}" cy="{7 + lift}" r="3.6" fill="#fff" stroke="{INK}" stroke-width="1.5"/><circle cx="{55.4 + stretch * .6:.1f}" cy="{7.2 + lift}" r="1.6" fill="{INK}"/>'
               f'<path d="M49 31Q52 32.4 54 29.6" stroke="{INK}" stroke-width="1.6" fill="none" stroke-linecap="round"/><circle cx="47.4" cy="28.4" r="2" fill="#ff9a8a" fill-opacity=".8"/>'
               f'<circle cx="25" cy="{22 + lift}" r="15" fill="url(#s)" stroke="{INK}" stroke-width="2.2"/>'
               f'<path d="M25 {22 + lift}a3 3 0 0 1 6 0a6 6 0 0 1 -12 0a9 9 0 0 1 18 0a11.4 11.4 0 0 1 -15 11" fill="none" stroke="{dark}" stroke-opacity=".75" stroke-width="2.4" stroke-linecap="round"/>'
               f'<path d="M14 {17 + lift}A12 12 0 0 1 22 {10.4 + lift}" stroke="#fff" stroke-opacity=".85" stroke-width="2.6" stroke-linecap="round" fill="none"/>',
               linear("b", "#ffeec4", "#e8b978") + ball("s", light, middle, dark))


def leaf():
    return svg(30, 30, f'<path d="M4 24C2 12 10 3 26 4C28 18 20 27 8 25Z" fill="url(#l)" stroke="#14521e" stroke-width="1.8" stroke-linejoin="round"/>'
               '<path d="M3 28C8 20 14 13 22 8M10 19L9 13M14 15L13 9M11 18.6L18 19M16 13.6L22 14" stroke="#eaffc8" stroke-width="1.4" fill="none" stroke-linecap="round"/>',
               linear("l", "#c8f56a", "#4fb52e"))


def ladybug(step):
    hop = [0, -3][step]
    return svg(26, 28, f'<g transform="translate(0 {3 + hop})"><path d="M8 21L6 24.6M13 22V25M18 21L20 24.6" stroke="{INK}" stroke-width="2" stroke-linecap="round"/>'
               f'<circle cx="13" cy="6.6" r="5" fill="#33262e" stroke="{INK}" stroke-width="1.4"/><circle cx="11" cy="5.8" r="1.6" fill="#fff"/><circle cx="15" cy="5.8" r="1.6" fill="#fff"/><circle cx="11.2" cy="6" r=".8"/><circle cx="15.2" cy="6" r=".8"/>'
               f'<circle cx="13" cy="14.6" r="8.4" fill="url(#r)" stroke="{INK}" stroke-width="1.8"/><path d="M13 6.6V23" stroke="{INK}" stroke-width="1.5"/><circle cx="9" cy="12" r="1.8" fill="{INK}"/><circle cx="17" cy="12" r="1.8" fill="{INK}"/><circle cx="9.6" cy="17.6" r="1.6" fill="{INK}"/><circle cx="16.4" cy="17.6" r="1.6" fill="{INK}"/>'
               f'<path d="M10.6 2.4L8.6 -.6M15.4 2.4L17.4 -.6" stroke="{INK}" stroke-width="1.3" stroke-linecap="round"/></g>', ball("r", "#ff9a8a", "#f0322e", "#9a0f1a"))


def count(text):
    return svg(110, 80, lettering(text, 55, 16, 46, "url(#t)", INK, weight=3.2, rim=1.8),
               linear("t", "#fff7c2", "#ffd23f@0.45", "#ff7a1f", y2=14, user=True))


def hint(direction):
    return svg(52, 50, key_cap(26, 23, direction, 44, 38) + '<rect x="4" y="4" width="44" height="38" rx="9" fill="none" stroke="#ffcf1f" stroke-width="3.4"/>')


def _flower(x, y, s, petals, heart="#7a4a12"):
    ring = "".join(f'<ellipse cx="{x + s * .62 * math.cos(a):.1f}" cy="{y + s * .62 * math.sin(a):.1f}" rx="{s * .44:.1f}" ry="{s * .24:.1f}" transform="rotate({math.degrees(a):.0f} {x + s * .62 * math.cos(a):.1f} {y + s * .62 * math.sin(a):.1f})"/>' for a in [k * math.pi / 5 for k in range(10)])
    return (f'<path d="M{x} {y}Q{x + 3} {y + s * 1.4:.0f} {x} {y + s * 2.6:.0f}" stroke="#3f8a34" stroke-width="{max(2, s * .16):.1f}" fill="none"/>'
            f'<g fill="{petals}" stroke="{INK}" stroke-opacity=".5" stroke-width="1">{ring}</g><circle cx="{x}" cy="{y}" r="{s * .36:.1f}" fill="{heart}" stroke="{INK}" stroke-opacity=".6" stroke-width="1"/>')


def _sky():
    hills = '<path d="M0 96C60 60 130 62 190 88C250 52 330 54 390 84C420 70 450 66 480 72V120H0Z" fill="#8fd46a"/><path d="M0 108C80 86 160 96 240 104C320 88 400 92 480 98V130H0Z" fill="#6fc154"/>'
    return ('<rect width="480" height="480" fill="url(#sky)"/><circle cx="64" cy="38" r="46" fill="url(#sun)"/><circle cx="64" cy="38" r="20" fill="#fff3a8"/>'
            + cloud(180, 40, .8, "#fff", .9) + cloud(330, 30, 1, "#fff", .85) + cloud(440, 62, .6, "#fff", .8) + hills)


DEFS = (linear("sky", "#5cc0ff", "#c9f0ff@0.25", "#e8fbff") + radial("sun", "#fff6b0/0.9", "#fff6b0/0") + linear("soil", "#d9a066", "#c48a52") + linear("grass", "#7fd05a", "#3f9a3a")
        + linear("t", "#fff7c2", "#ffd23f@0.45", "#ff7a1f", y2=14, user=True) + linear("t2", "#f4ffd8", "#a8f06a@0.5", "#3fa83a", y2=14, user=True)
        + linear("t3", "#e8f4ff", "#8fb8f0@0.5", "#3a5fb8", y2=14, user=True))


def track():
    rng = random.Random(31)
    lanes = ""
    for k in range(4):
        top = 106 + k * 77
        lanes += f'<rect x="0" y="{top}" width="480" height="77" fill="{["#dba873", "#cf9a62"][k % 2]}"/>'
        for _ in range(46):
            x, y, r = rng.random() * 480, top + 6 + rng.random() * 66, .8 + rng.random() * 2
            lanes += f'<ellipse cx="{x:.0f}" cy="{y:.0f}" rx="{r * 1.4:.1f}" ry="{r:.1f}" fill="{["#b07c46", "#f0c896", "#a87040"][int(rng.random() * 3)]}" fill-opacity=".7"/>'
        lanes += f'<path d="M0 {top + 66}H480" stroke="#a8753f" stroke-opacity=".35" stroke-width="12"/>'
        if k:
            lanes += f'<path d="M4 {top}H480" stroke="#fff6e0" stroke-width="4" stroke-dasharray="16 12" stroke-linecap="round"/>'
    checks = "".join(f'<rect x="{436 + (c * 10)}" y="{106 + r * 11}" width="10" height="11" fill="{"#fff" if (r + c) % 2 else "#2a2230"}"/>' for r in range(28) for c in range(2))
    start = '<path d="M58 108V412" stroke="#fff" stroke-width="5"/>'
    tufts = ""
    for k in range(90):
        x, y = rng.random() * 490 - 5, 418 + rng.random() * 60
        tufts += f'<path d="M{x:.0f} {y:.0f}q-2 -8 -5 -10M{x:.0f} {y:.0f}q0 -9 1 -13M{x:.0f} {y:.0f}q2 -7 6 -9" stroke="{["#2f7f34", "#9be06a", "#4fae44"][k % 3]}" stroke-width="1.6" fill="none" stroke-linecap="round"/>'
    edge = "".join(f'<path d="M{x} {412}q-3 -9 -6 -11M{x} 412q0 -10 1 -14M{x} 412q3 -8 7 -10" stroke="#3f9a3a" stroke-width="2" fill="none" stroke-linecap="round"/><path d="M{x + 5} 108q-3 -9 -6 -11M{x + 5} 108q0 -10 1 -14M{x + 5} 108q3 -8 7 -10" stroke="#3f9a3a" stroke-width="2" fill="none" stroke-linecap="round"/>' for x in range(4, 480, 14))
    flowers = "".join(_flower(x, y, s, c) for x, y, s, c in ((22, 432, 13, "#ff7ab0"), (452, 434, 14, "#ffd23f"), (98, 446, 9, "#fff"), (392, 448, 9, "#b58cff")))
    suns = "".join(_flower(x, 66, s, "#ffcf1f") for x, s in ((250, 15), (284, 12), (404, 14)))
    return svg(480, 480, _sky() + suns + f'{lanes}{checks}{start}<path d="M0 106H480M0 414H480" stroke="#8a5a2c" stroke-width="4"/><rect y="414" width="480" height="66" fill="url(#grass)"/>{edge}{tufts}{flowers}', DEFS)


def _meadow(extra):
    rng = random.Random(8)
    flowers = "".join(_flower(20 + rng.random() * 440, 356 + k * 5, 7 + k * .34, ["#ff7ab0", "#fff", "#ffd23f", "#b58cff", "#ff9a4a"][k % 5]) for k in range(20))
    return svg(480, 480, _sky() + f'<rect y="104" width="480" height="376" fill="url(#grass)"/><path d="M0 104C90 130 200 92 300 112C380 128 440 104 480 110V90H0Z" fill="#6fc154"/>{flowers}{extra}', DEFS)


def title():
    return _meadow(lettering("SNAIL", 240, 58, 58, "url(#t)", INK, wave=5, shadow="#23401c") + lettering("RACE", 240, 138, 54, "url(#t2)", INK, wave=5, shadow="#23401c")
                   + inside(snail("purple", 2), 244, 276, 148) + inside(snail("red", 0), 92, 262, 92) + inside(snail("blue", 1), 394, 256, 84)
                   + key_cap(122, 388, "left") + small_text("THEN", 174, 381, 12, "#fff", INK) + key_cap(226, 388, "right") + small_text("AND AGAIN, FAST!", 258, 381, 12, "#fff", INK, "start")
                   + key_cap(196, 440, "SPACE", 92) + small_text("START", 258, 433, 13, "#fff", INK, "start"))


def _podium():
    return ('<path d="M176 330H304V420H176Z" fill="#ffcf4a" stroke="#8a5a10" stroke-width="3"/><path d="M66 356H176V420H66ZM304 370H414V420H304Z" fill="#f0b040" stroke="#8a5a10" stroke-width="3"/>'
            + lettering("1", 240, 350, 36, "#fff", "#8a5a10") + lettering("2", 121, 372, 28, "#fff", "#8a5a10") + lettering("3", 359, 382, 24, "#fff", "#8a5a10"))


def _cup(x, y, s):
    return (f'<g transform="translate({x} {y}) scale({s})"><path d="M-13 -16H13C13 0 8 6 3 7V12H9V17H-9V12H-3V7C-8 6 -13 0 -13 -16Z" fill="#ffd84d" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/>'
            f'<path d="M-13 -13H-19C-19 -4 -15 0 -10 0M13 -13H19C19 -4 15 0 10 0" fill="none" stroke="{INK}" stroke-width="2.4"/><path d="M-8 -13C-8 -4 -6 0 -3 2" stroke="#fff" stroke-width="2.2" fill="none" stroke-linecap="round"/></g>')


def won():
    return _meadow(lettering("YOU WIN!", 240, 84, 52, "url(#t)", INK, wave=5, shadow="#23401c") + small_text("THE NEXT RACE IS FASTER", 240, 172, 14, "#fff", INK) + _podium()
                   + inside(snail("purple", 1), 236, 290, 104) + inside(snail("red", 0), 120, 326, 76) + inside(snail("blue", 0), 358, 340, 76) + _cup(322, 256, 1.5)
                   + key_cap(186, 450, "SPACE", 92) + small_text("RACE AGAIN", 248, 443, 13, "#fff", INK, "start"))


def lost():
    return _meadow(lettering("TOO SLOW!", 240, 84, 48, "url(#t3)", INK, wave=5, shadow="#23401c") + small_text("YOUR SNAIL WANTS TO TRY AGAIN", 240, 168, 14, "#fff", INK) + _podium()
                   + inside(snail("red", 1), 236, 290, 104) + inside(snail("green", 0), 120, 326, 76) + inside(snail("blue", 0), 358, 340, 76) + inside(snail("purple", 0), 44, 420, 70)
                   + key_cap(186, 450, "SPACE", 92) + small_text("RACE AGAIN", 248, 443, 13, "#fff", INK, "start"))


def icon():
    return icon_frame('<path d="M5 58H75V64Q75 75 64 75H16Q5 75 5 64Z" fill="#5fb848"/>' + _flower(17, 42, 8, "#fff", "#ffb52e") + inside(snail("purple", 1), 44, 42, 54), "", "#aee6ff", "#e0fbd0", "#2c6a30")
