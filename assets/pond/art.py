# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Koi Pond: a pond from above, a rower with a straw hat, carps and a pike."""

import math
import random

from svgkit import ball, digit, heart, icon_frame, inside, key_cap, lettering, linear, radial, small_text, star_path, svg

INK = "#1f2a3a"


def _turnable(body, defs):
    """A 48 x 48 drawing with room to turn, looking right."""
    return svg(48, 48, f'<g transform="translate(24 24) scale(.94) translate(-24 -24)">{body}</g>', defs)


def boat():
    return _turnable(f'<path d="M20 9L26 3M20 39L26 45" stroke="{INK}" stroke-width="4.4" stroke-linecap="round"/><path d="M20 9L26 3M20 39L26 45" stroke="#ffd9a0" stroke-width="2.2" stroke-linecap="round"/>'
                     f'<ellipse cx="27" cy="3.6" rx="4.2" ry="2.4" fill="#ffb15a" stroke="{INK}" stroke-width="1.4" transform="rotate(-40 27 3.6)"/><ellipse cx="27" cy="44.4" rx="4.2" ry="2.4" fill="#ffb15a" stroke="{INK}" stroke-width="1.4" transform="rotate(40 27 44.4)"/>'
                     f'<path d="M3 15C14 10 30 11 46 24C30 37 14 38 3 33Q1 24 3 15Z" fill="url(#h)" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/>'
                     f'<path d="M6.6 18C15 14.6 28 15.6 39 24C28 32.4 15 33.4 6.6 30Q5.4 24 6.6 18Z" fill="#8a4f22" stroke="#5a2f10" stroke-width="1.2"/><path d="M8 21.4H35M7.6 24H38M8 26.6H35" stroke="#a8693a" stroke-width="1.3"/>'
                     f'<path d="M12 16V32" stroke="{INK}" stroke-width="4.6"/><path d="M12 16.4V31.6" stroke="#e8a860" stroke-width="2.6"/>'
                     f'<circle cx="21" cy="24" r="9" fill="url(#s)" stroke="{INK}" stroke-width="1.8"/><circle cx="21" cy="24" r="4.4" fill="#ffe9a8" stroke="#e0443a" stroke-width="2"/>'
                     '<path d="M14.4 20.4A8 8 0 0 1 20 16.8" stroke="#fff" stroke-width="1.6" fill="none" stroke-linecap="round"/><path d="M7 16.4C16 12.6 29 14 40 21" stroke="#fff" stroke-opacity=".5" stroke-width="1.4" fill="none"/>',
                     linear("h", "#e8a860", "#b86a2c") + radial("s", "#fff3b8", "#f0c24a"))


def koi(body, patch):
    return _turnable(f'<path d="M10 24C4 18 2 14 3 11C9 12 12 18 13 22ZM10 24C4 30 2 34 3 37C9 36 12 30 13 26Z" fill="{patch}" fill-opacity=".9" stroke="{INK}" stroke-width="1.5" stroke-linejoin="round"/>'
                     f'<path d="M27 17C24 10 21 9 18 9.4C19 13 20 16 22 18ZM27 31C24 38 21 39 18 38.6C19 35 20 32 22 30Z" fill="{patch}" fill-opacity=".85" stroke="{INK}" stroke-width="1.4" stroke-linejoin="round"/>'
                     f'<path d="M8 24C14 16 26 14.6 35 17C41 18.6 45 22 45.4 24C45 26 41 29.4 35 31C26 33.4 14 32 8 24Z" fill="url(#k)" stroke="{INK}" stroke-width="1.9"/>'
                     f'<path d="M17 19C21 17 26 18 27 21S22 27 19 26S14 21 17 19ZM33 17.6C37 18 39 20 37.6 22.4S33 23 32 21S31 17.6 33 17.6ZM27 29C29 27 33 27 33.6 29S29 32 27 31.4Z" fill="{patch}"/>'
                     '<path d="M12 23Q22 20 32 23.4" stroke="#fff" stroke-opacity=".55" stroke-width="1.5" fill="none"/>'
                     f'<circle cx="39" cy="19.8" r="1.7" fill="{INK}"/><circle cx="39" cy="28.2" r="1.7" fill="{INK}"/><path d="M44 21Q47 19.6 47.4 17.6M44 27Q47 28.4 47.4 30.4" stroke="{INK}" stroke-width="1.1" fill="none"/>',
                     ball("k", "#ffffff", body, "#b8b0a8"))


def koi_red():
    return koi("#fff4ea", "#ff5a2a")


def koi_gold():
    return _turnable(f'<path d="M10 24C4 18 2 13 3 10C10 12 12 18 13 22ZM10 24C4 30 2 35 3 38C10 36 12 30 13 26Z" fill="#ffdf5a" stroke="#7a4a00" stroke-width="1.5" stroke-linejoin="round"/>'
                     '<path d="M27 17C24 10 21 9 18 9.4C19 13 20 16 22 18ZM27 31C24 38 21 39 18 38.6C19 35 20 32 22 30Z" fill="#ffdf5a" stroke="#7a4a00" stroke-width="1.4" stroke-linejoin="round"/>'
                     '<path d="M8 24C14 16 26 14.6 35 17C41 18.6 45 22 45.4 24C45 26 41 29.4 35 31C26 33.4 14 32 8 24Z" fill="url(#k)" stroke="#7a4a00" stroke-width="1.9"/>'
                     + "".join(f'<path d="M{x} {y}q3 2.6 0 5" stroke="#c98000" stroke-width="1.2" fill="none"/>' for x in (16, 21, 26, 31) for y in (18.4, 24.6)) +
                     '<path d="M13 21.4Q22 17.4 33 19.4" stroke="#fff" stroke-width="1.9" fill="none" stroke-linecap="round"/><circle cx="39" cy="19.8" r="1.7" fill="#3a2000"/><circle cx="39" cy="28.2" r="1.7" fill="#3a2000"/>'
                     f'<path d="{star_path(33, 13, 5, 1.2, 4)}" fill="#fff"/>', ball("k", "#fffbd0", "#ffc81f", "#d98a00"))


def pike():
    return _turnable(f'<path d="M7 24C3 19 1 16 1.6 13C6 14 9 19 10 22.4ZM7 24C3 29 1 32 1.6 35C6 34 9 29 10 25.6Z" fill="#4a6a2a" stroke="{INK}" stroke-width="1.6" stroke-linejoin="round"/>'
                     f'<path d="M20 18C17 13 14 12 12 12.6L16 19ZM20 30C17 35 14 36 12 35.4L16 29Z" fill="#4a6a2a" stroke="{INK}" stroke-width="1.4"/>'
                     f'<path d="M5 24C12 17 24 16 33 18L46 21.4Q47.6 24 46 26.6L33 30C24 32 12 31 5 24Z" fill="url(#p)" stroke="{INK}" stroke-width="2"/>'
                     '<path d="M14 20.4V27.6M19 19V29M24 18.6V29.4M29 19V29" stroke="#c8d87a" stroke-opacity=".75" stroke-width="2" stroke-linecap="round" stroke-dasharray="3 2.4"/>'
                     f'<path d="M37 21.4L39 22.8L41 21.8L43 22.8L45.6 22.4M37 26.6L39 25.2L41 26.2L43 25.2L45.6 25.6" stroke="#fff" stroke-width="1.5" fill="none" stroke-linejoin="round"/>'
                     f'<circle cx="34.4" cy="20.4" r="2.3" fill="#ffe14d" stroke="{INK}" stroke-width="1"/><circle cx="35" cy="20.4" r="1" fill="{INK}"/><circle cx="34.4" cy="27.6" r="2.3" fill="#ffe14d" stroke="{INK}" stroke-width="1"/><circle cx="35" cy="27.6" r="1" fill="{INK}"/><path d="M32 18.2L37 19.4M32 29.8L37 28.6" stroke="{INK}" stroke-width="1.6"/>',
                     ball("p", "#d0e28a", "#7a9a3a", "#33501c"))


def lily(flower):
    bloom = ""
    if flower:
        for ring, count, colour in ((8.4, 8, "#ff8ac0"), (5.2, 6, "#ffc0de")):
            bloom += "".join(f'<path d="M24 24Q{24 + ring * math.cos(a - .5):.1f} {24 + ring * math.sin(a - .5):.1f} {24 + ring * 1.35 * math.cos(a):.1f} {24 + ring * 1.35 * math.sin(a):.1f}Q{24 + ring * math.cos(a + .5):.1f} {24 + ring * math.sin(a + .5):.1f} 24 24Z" fill="{colour}" stroke="#a02a6a" stroke-width="1"/>' for a in [k * 2 * math.pi / count for k in range(count)])
        bloom += '<circle cx="24" cy="24" r="3" fill="#ffd84d" stroke="#c98a00" stroke-width=".8"/>'
    veins = "".join(f'<path d="M24 24L{24 + 18 * math.cos(a):.1f} {24 + 18 * math.sin(a):.1f}" stroke="#2f7a2a" stroke-opacity=".6" stroke-width="1.2"/>' for a in [.5 + k * .72 for k in range(8)])
    return svg(48, 48, f'<path d="M24 24L45 17A22 22 0 1 0 45 29Z" fill="url(#l)" stroke="#164a1c" stroke-width="2" stroke-linejoin="round"/>{veins}<path d="M8 17A18 18 0 0 1 22 5.6" stroke="#e8ffb8" stroke-opacity=".8" stroke-width="2" fill="none" stroke-linecap="round"/>{bloom}',
               ball("l", "#b8ec6a", "#62b83a", "#2a7a30"))


def dragonfly(step):
    spread = [0, 4][step]
    wing = "".join(f'<path d="M20 20C{12 - x} {4 + spread} {4 - x} {2 + spread} {6 - x} {8 + spread}C{8 - x} 14 14 18 20 20Z" fill="#dff6ff" fill-opacity=".95" stroke="#3a6a9a" stroke-width="1.1"/>' for x in (0, -6))
    return svg(44, 40, f'{wing}<g transform="matrix(1 0 0 -1 0 40)">{wing}</g><path d="M6 20H30" stroke="{INK}" stroke-width="6" stroke-linecap="round"/><path d="M6 20H30" stroke="#2fc0b0" stroke-width="3.4" stroke-linecap="round" stroke-dasharray="4 1.6"/>'
               f'<circle cx="33" cy="20" r="4.6" fill="#1f9a90" stroke="{INK}" stroke-width="1.4"/><circle cx="35" cy="17.4" r="2.2" fill="#ff5a4a" stroke="{INK}" stroke-width=".8"/><circle cx="35" cy="22.6" r="2.2" fill="#ff5a4a" stroke="{INK}" stroke-width=".8"/>')


def ripple(step):
    r = 5 + step * 4
    return svg(40, 40, f'<circle cx="20" cy="20" r="{r}" fill="none" stroke="#e8fbff" stroke-width="2.4"/><circle cx="20" cy="20" r="{max(1, r - 6)}" fill="none" stroke="#e8fbff" stroke-width="1.6"/>')


def sun_drop():
    return svg(20, 20, f'<path d="{star_path(10, 10, 9.2, 6, 10)}" fill="#ffb52e" stroke="#9a4a00" stroke-width="1.2" stroke-linejoin="round"/><circle cx="10" cy="10" r="4.8" fill="#ffe98a"/>')


def score_digit(number):
    return digit(number, "#ffffff", "#ffe08a", "#1f3a4a")


def pond(extra="", fish=False):
    rng = random.Random(17)
    light = ""
    for _ in range(46):
        x, y, s = 30 + rng.random() * 420, 30 + rng.random() * 420, 8 + rng.random() * 20
        light += f'<path d="M{x:.0f} {y:.0f}q{s * .5:.0f} {-s * .4:.0f} {s:.0f} 0t{s:.0f} 0" stroke="#d8fff4" stroke-opacity="{.12 + rng.random() * .16:.2f}" stroke-width="2.4" fill="none" stroke-linecap="round"/>'
    depth = "".join(f'<ellipse cx="{rng.random() * 480:.0f}" cy="{rng.random() * 480:.0f}" rx="{30 + rng.random() * 60:.0f}" ry="{20 + rng.random() * 40:.0f}" fill="#0a5a6a" fill-opacity=".1"/>' for _ in range(16))
    pebbles = ""
    for k in range(170):
        side, along, off = int(rng.random() * 4), rng.random() * 480, rng.random() * 13
        x, y = [(along, off - 1), (along, 481 - off), (off - 1, along), (481 - off, along)][side]
        r = 7 + rng.random() * 8
        shade = 120 + int(rng.random() * 80)
        pebbles += f'<ellipse cx="{x:.0f}" cy="{y:.0f}" rx="{r:.1f}" ry="{r * .78:.1f}" fill="rgb({shade},{shade - 4},{shade - 18})" stroke="#4a4a44" stroke-width="1.4" transform="rotate({rng.random() * 180:.0f} {x:.0f} {y:.0f})"/><ellipse cx="{x - r * .25:.1f}" cy="{y - r * .25:.1f}" rx="{r * .35:.1f}" ry="{r * .2:.1f}" fill="#fff" fill-opacity=".45"/>'
    reeds = ""
    for cx, cy, lean in ((22, 90, 1), (458, 120, -1), (24, 470, 1), (452, 476, -1), (140, 478, 1)):
        for k in range(6):
            x = cx + (k - 2.5) * 6
            reeds += f'<path d="M{x:.0f} {cy}Q{x + lean * 4:.0f} {cy - 30 - k * 3} {x + lean * (9 + k * 2):.0f} {cy - 52 - (k % 3) * 12}" stroke="{["#2f7a34", "#5aa83a", "#86c84a"][k % 3]}" stroke-width="4" fill="none" stroke-linecap="round"/>'
        reeds += f'<path d="M{cx + lean * 10} {cy - 62}v-16" stroke="{INK}" stroke-width="9" stroke-linecap="round"/><path d="M{cx + lean * 10} {cy - 62}v-16" stroke="#8a4f22" stroke-width="6" stroke-linecap="round"/>'
    shadows = "".join(f'<g opacity=".18" transform="translate({x} {y}) rotate({a}) scale({s})"><path d="M-30 0C-14 -14 10 -14 26 0C10 14 -14 14 -30 0ZM-26 0L-42 -12L-38 0L-42 12Z" fill="#033a44"/></g>' for x, y, a, s in ((120, 330, 20, .7), (340, 390, 200, .6), (380, 170, 100, .5)))
    shore = "".join(f'<rect x="0" y="0" width="480" height="480" rx="{20 + w}" fill="none" stroke="#063c48" stroke-opacity=".09" stroke-width="{w}"/>' for w in range(28, 84, 8))
    swim = "".join(inside(d, x, y, 62, a) for d, x, y, a in ((koi_red(), 90, 286, 30), (koi_red(), 390, 300, -140), (koi_gold(), 330, 230, -30), (lily(True), 420, 400, 0), (lily(False), 66, 396, 60))) if fish else ""
    return svg(480, 480, f'<rect width="480" height="480" fill="url(#w)"/>{depth}{light}{shadows}{shore}{pebbles}{reeds}{swim}{extra}',
               radial("w", "#4fd0c8", "#1f9aa8@0.55", "#0b5f78", cx=.45, cy=.4, r=.75) + linear("t", "#fff7e0", "#ffb07a@0.45", "#f0442a", y2=14, user=True)
               + linear("t2", "#ffffff", "#b8fff0@0.5", "#2fb8a8", y2=14, user=True) + linear("t3", "#eaf6ff", "#8fb0d8@0.5", "#3a5a98", y2=14, user=True))


def title():
    return pond(lettering("KOI", 240, 60, 64, "url(#t)", INK, wave=5, shadow="#063440") + lettering("POND", 240, 144, 56, "url(#t2)", INK, wave=5, shadow="#063440")
                + inside(boat(), 212, 278, 96, -20) + key_cap(112, 376, "left") + key_cap(204, 376, "right") + key_cap(158, 356, "up") + small_text("TURN AND ROW", 240, 370, 13, "#fff", INK, "start")
                + key_cap(158, 424, "SPACE", 92) + small_text("GO FISHING", 240, 417, 13, "#fff", INK, "start"), fish=True)


def won():
    return pond(lettering("BIG CATCH!", 240, 84, 46, "url(#t)", INK, wave=5, shadow="#063440") + small_text("TWENTY POINTS BEFORE SUNSET", 240, 166, 14, "#fff", INK)
                + inside(boat(), 240, 286, 110, 0) + inside(koi_gold(), 150, 250, 50, 40) + inside(koi_gold(), 330, 330, 50, -150) + key_cap(180, 424, "SPACE", 92) + small_text("FISH AGAIN", 242, 417, 13, "#fff", INK, "start"), fish=True)


def lost():
    return pond(lettering("GOOD NIGHT", 240, 90, 42, "url(#t3)", INK, wave=4, shadow="#063440") + small_text("THE FISH ARE SAFE FOR TODAY", 240, 168, 14, "#fff", INK)
                + inside(pike(), 240, 286, 130, -160) + key_cap(180, 424, "SPACE", 92) + small_text("FISH AGAIN", 242, 417, 13, "#fff", INK, "start"))


def icon():
    return icon_frame(inside(lily(True), 22, 24, 28) + inside(koi_red(), 46, 46, 56, 35), "", "#7ae0d8", "#1a8a9c", "#0b4a5c")
