# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""The Hungry Mouse: two mazes, drawn and written as maps from the same plans.

In a plan # is a wall, R and Y are doors, E the exit, T a trap, W a puddle, P a hole, and a blank is path.
The other letters only mark where the program puts its sprites: S mouse, p end of the hole, c cheese, r y keys, C cat.
"""

import random

from svgkit import ball, heart, icon_frame, inside, key_cap, lettering, linear, radial, small_text, star_path, svg

INK = "#2c2233"
TILE = 32

GARDEN = """
###############
#S  #   c #  r#
# # # ### # # #
# #   #     # #
# ##### ### # #
#c    #   #   #
### # ### ### #
#   #   #W C  #
# ##### # ### #
#   c #   #c# #
### # ##### # #
#y# #         #
# # ### ##### #
# R   #c #E Yc#
###############
""".split("\n")[1:-1]

CELLAR = """
###############
#S    #c  #y  #
##### # # ###R#
#   # # #   # #
# # # # ### # #
#c# # C # T P #
# # ### ##### #
#   W        c#
# ##### ##### #
# #c  # #E  Y #
# # # # ##### #
# #T# W     # #
# # ####### # #
#r   c#p C    #
###############
""".split("\n")[1:-1]

PLANS = {1: GARDEN, 2: CELLAR}
COLOURS = {"R": 1, "T": 2, "Y": 4, "E": 8, "W": 16, "#": 32, "P": 64}
LEGENDS = ["red door", "mousetrap", "golden door", "the way out", "puddle", "wall", "hole to the cellar's other end"]


def maze_map(number):
    plan = PLANS[number]
    lines = ["", ["", "00000002\\garden.jpg", "00000002\\cellar.jpg"][number], f" {len(plan[0])}", f" {len(plan)}"]
    lines += LEGENDS + [""] * 14
    lines += [str(COLOURS.get(square, 0)) for row in plan for square in row]
    return "\r\n".join(lines) + "\r\n"


# ---- pictures of the mazes --------------------------------------------------------------------------------

def _walls(plan, grow, colour, rise=0, radius=7):
    """All walls as one shape: a rounded square for each and a bridge to each neighbour."""
    parts = []
    for r, row in enumerate(plan):
        for c, square in enumerate(row):
            if square != "#":
                continue
            x, y, size = c * TILE + 3 - grow, r * TILE + 3 - grow - rise, TILE - 6 + 2 * grow
            parts.append(f'<rect x="{x}" y="{y}" width="{size}" height="{size}" rx="{radius + grow}"/>')
            if c + 1 < len(row) and row[c + 1] == "#":
                parts.append(f'<rect x="{x + size / 2}" y="{y}" width="{TILE}" height="{size}"/>')
            if r + 1 < len(plan) and plan[r + 1][c] == "#":
                parts.append(f'<rect x="{x}" y="{y + size / 2}" width="{size}" height="{TILE}"/>')
            if (c + 1 < len(row) and r + 1 < len(plan) and row[c + 1] == plan[r + 1][c] == plan[r + 1][c + 1] == "#"):
                parts.append(f'<rect x="{x + size / 2}" y="{y + size / 2}" width="{TILE}" height="{TILE}"/>')
    # the outer walls go on beyond the edge
    edge = 480 + 40
    for x, y, w, h in ((-20, -20 - rise, edge, 34 + grow), (-20, 480 - 16 - grow - rise, edge, 40), (-20, -20, 34 + grow, edge), (480 - 14 - grow, -20, 40, edge)):
        parts.append(f'<rect x="{x}" y="{y}" width="{w}" height="{h}"/>')
    return f'<g fill="{colour}">{"".join(parts)}</g>'


def _places(plan, letter):
    return [(c * TILE + 16, r * TILE + 16) for r, row in enumerate(plan) for c, s in enumerate(row) if s == letter]


def _puddle(x, y):
    return (f'<path d="M{x - 13} {y + 2}C{x - 15} {y - 9} {x - 4} {y - 12} {x + 3} {y - 10}C{x + 13} {y - 11} {x + 15} {y} {x + 12} {y + 6}'
            f'C{x + 8} {y + 13} {x - 10} {y + 12} {x - 13} {y + 2}Z" fill="url(#water)" stroke="#1f6fa8" stroke-width="1.6"/>'
            f'<path d="M{x - 8} {y - 3}Q{x - 3} {y - 8} {x + 4} {y - 6}M{x - 4} {y + 5}Q{x + 2} {y + 8} {x + 7} {y + 3}" stroke="#fff" stroke-opacity=".8" stroke-width="1.8" fill="none" stroke-linecap="round"/>')


def _trap(x, y):
    return (f'<rect x="{x - 11}" y="{y - 8}" width="22" height="16" rx="2.5" fill="url(#wood)" stroke="{INK}" stroke-width="1.6"/>'
            f'<path d="M{x - 9} {y - 3}H{x + 9}M{x - 9} {y + 3}H{x + 9}" stroke="#8a5a24" stroke-width=".8"/>'
            f'<path d="M{x - 1} {y - 6}H{x + 8}V{y + 6}H{x - 1}" fill="none" stroke="#e8edf5" stroke-width="2.2"/>'
            f'<path d="M{x - 1} {y - 6}H{x + 8}V{y + 6}H{x - 1}" fill="none" stroke="#5b6478" stroke-width=".7"/>'
            f'<circle cx="{x - 5}" cy="{y}" r="3" fill="#ff4d4d" stroke="{INK}" stroke-width="1"/>')


def _hole(x, y):
    return (f'<ellipse cx="{x}" cy="{y}" rx="14" ry="12" fill="#7d5cc9" stroke="{INK}" stroke-width="1.5"/>'
            f'<ellipse cx="{x}" cy="{y + 1}" rx="10.5" ry="8.6" fill="url(#hole)"/>'
            f'<path d="M{x - 7} {y - 5}A9 7 0 0 1 {x + 6} {y - 6}" stroke="#d9c6ff" stroke-width="1.6" fill="none" stroke-linecap="round"/>')


def _exit(x, y):
    return (f'<circle cx="{x}" cy="{y}" r="26" fill="url(#glow)"/>'
            f'<path d="M{x - 12} {y + 13}V{y - 1}A12 12 0 0 1 {x + 12} {y - 1}V{y + 13}Z" fill="url(#hole)" stroke="#ffe08a" stroke-width="3"/>'
            f'<path d="{star_path(x, y + 2, 6, 2.6)}" fill="#ffe98a"/>')


MAZE_DEFS = (linear("water", "#9fe2ff", "#3d9be0") + linear("wood", "#f0c98a", "#c08a45") +
             radial("hole", "#120a1c", "#2a1a44", "#4a3178") + radial("glow", "#fff6a8/0.9", "#fff6a8/0"))


def _marks(plan):
    return ("".join(_puddle(*p) for p in _places(plan, "W")) + "".join(_trap(*p) for p in _places(plan, "T")) +
            "".join(_hole(*p) for p in _places(plan, "P")) + "".join(_exit(*p) for p in _places(plan, "E")))


def garden():
    rng = random.Random(21)
    floor = "".join(f'<ellipse cx="{rng.random() * 480:.0f}" cy="{rng.random() * 480:.0f}" rx="{1 + rng.random() * 3:.1f}" ry="{.8 + rng.random() * 2:.1f}" fill="{["#d9b878", "#fff0c8", "#c9a566"][k % 3]}" fill-opacity=".6"/>' for k in range(420))
    leaves, flowers = "", ""
    for r, row in enumerate(GARDEN):
        for c, square in enumerate(row):
            if square != "#":
                continue
            for _ in range(9):
                x, y = c * TILE + 5 + rng.random() * 22, r * TILE + 1 + rng.random() * 22
                light = rng.random()
                leaves += f'<path d="M{x:.1f} {y:.1f}q3 -4 6 0q-3 3.4 -6 0Z" transform="rotate({rng.random() * 360:.0f} {x:.1f} {y:.1f})" fill="{"#8fe06a" if light > .6 else "#2f8f3a" if light < .4 else "#62c552"}" fill-opacity=".8"/>'
            if rng.random() < .3:
                x, y = c * TILE + 9 + rng.random() * 14, r * TILE + 6 + rng.random() * 12
                colour = ["#ff7ab0", "#fff", "#ffd84d", "#b58cff"][int(rng.random() * 4)]
                flowers += "".join(f'<circle cx="{x + dx:.1f}" cy="{y + dy:.1f}" r="2.6" fill="{colour}" stroke="#1f5a2a" stroke-width=".6"/>' for dx, dy in ((-2.6, 0), (2.6, 0), (0, -2.6), (0, 2.6)))
                flowers += f'<circle cx="{x:.1f}" cy="{y:.1f}" r="2" fill="#ffb52e"/>'
    return svg(480, 480, f'<rect width="480" height="480" fill="url(#sand)"/>{floor}'
               + f'<g opacity=".28" transform="translate(3 7)">{_walls(GARDEN, 1, "#5a3b10")}</g>{_marks(GARDEN)}'
               + _walls(GARDEN, 2, "#123f1d") + _walls(GARDEN, 0, "#2c7a35") + _walls(GARDEN, -1.5, "url(#hedge)", 3) + leaves + flowers,
               linear("sand", "#f7e2ad", "#ecd092") + linear("hedge", "#5cbf4f", "#45a845", user=True, y2=480) + MAZE_DEFS)


def cellar():
    rng = random.Random(5)
    floor = ""
    for r in range(15):
        for c in range(15):
            shade = 52 + int(rng.random() * 14)
            floor += (f'<rect x="{c * TILE + .7}" y="{r * TILE + .7}" width="30.6" height="30.6" rx="4" fill="rgb({shade + 12},{shade + 2},{shade + 34})"/>'
                      f'<path d="M{c * TILE + 3} {r * TILE + 28}V{r * TILE + 3.4}H{c * TILE + 27}" stroke="#a999d8" stroke-opacity=".2" stroke-width="1.4" fill="none"/>')
            if rng.random() < .16:
                floor += f'<path d="M{c * TILE + 8} {r * TILE + 10}l6 5l-2 5l7 4" stroke="#1d1430" stroke-opacity=".55" stroke-width="1.2" fill="none"/>'
    bricks, torches = "", ""
    for r, row in enumerate(CELLAR):
        for c, square in enumerate(row):
            if square != "#":
                continue
            x, y = c * TILE, r * TILE - 3
            for by, offset in ((5, 0), (15, 8)):
                for bx in (4, 18):
                    tint = rng.random()
                    colour = "#c9a9a0" if tint > .72 else "#9c8090" if tint < .3 else "#b39399"
                    bricks += f'<rect x="{x + (bx + offset - 4) % 26 + 2:.0f}" y="{y + by}" width="{11 if offset else 12}" height="8.4" rx="2" fill="{colour}" stroke="#4a3350" stroke-width="1"/>'
                    bricks += f'<path d="M{x + (bx + offset - 4) % 26 + 4:.0f} {y + by + 2}h6" stroke="#fff" stroke-opacity=".4" stroke-width="1.2"/>'
    for c, r in ((3, 2), (11, 4), (6, 8), (9, 12), (1, 0), (13, 8)):
        x, y = c * TILE + 16, r * TILE + 10
        torches += (f'<circle cx="{x}" cy="{y + 4}" r="58" fill="url(#light)"/><path d="M{x - 3.4} {y + 2}L{x - 2} {y + 15}H{x + 2}L{x + 3.4} {y + 2}Z" fill="#7b4a1e" stroke="{INK}" stroke-width="1.2"/>'
                    f'<path d="M{x} {y - 11}C{x + 7} {y - 4} {x + 5} {y + 3} {x} {y + 3}C{x - 5} {y + 3} {x - 7} {y - 3} {x} {y - 11}Z" fill="#ff9a1f" stroke="#b33a00" stroke-width="1"/><path d="M{x} {y - 5}C{x + 3} {y - 1} {x + 2} {y + 2} {x} {y + 2}C{x - 2} {y + 2} {x - 3} {y - 1} {x} {y - 5}Z" fill="#fff2a0"/>')
    return svg(480, 480, f'<rect width="480" height="480" fill="#2b2140"/>{floor}'
               + f'<g opacity=".5" transform="translate(3 8)">{_walls(CELLAR, 1, "#0d0716", radius=3)}</g>{_marks(CELLAR)}'
               + _walls(CELLAR, 2, "#1d1228", radius=3) + _walls(CELLAR, 0, "#5c4460", radius=3) + _walls(CELLAR, -1.5, "#7b5f76", 3, radius=3) + bricks + torches,
               radial("light", "#ffcf6a/0.42", "#ff9a3a/0") + MAZE_DEFS)


# ---- sprites ----------------------------------------------------------------------------------------------

def _smaller(scale, body, defs):
    """A 40 x 40 drawing with room to turn."""
    return svg(40, 40, f'<g transform="translate(20 20) scale({scale}) translate(-20 -20)">{body}</g>', defs)


def mouse():
    """From above, looking right."""
    return _smaller(0.92, '<path d="M8 21C2 24 0 16 4 12" fill="none" stroke="#2c2233" stroke-width="4.2" stroke-linecap="round"/>'
               '<path d="M8 21C2 24 0 16 4 12" fill="none" stroke="#ff9fb2" stroke-width="2" stroke-linecap="round"/>'
               f'<path d="M6 20C6 11 14 8 22 9.6C30 11 38 17 38.4 20C38 23 30 29 22 30.4C14 32 6 29 6 20Z" fill="url(#m)" stroke="{INK}" stroke-width="2"/>'
               f'<circle cx="22.5" cy="10.4" r="6" fill="#aeb9cf" stroke="{INK}" stroke-width="2"/><circle cx="22.8" cy="10.6" r="3.4" fill="#ffb3c4"/>'
               f'<circle cx="22.5" cy="29.6" r="6" fill="#8d99b5" stroke="{INK}" stroke-width="2"/><circle cx="22.8" cy="29.4" r="3.4" fill="#ffb3c4"/>'
               f'<circle cx="30" cy="16.2" r="2" fill="{INK}"/><circle cx="30.6" cy="15.6" r=".8" fill="#fff"/><circle cx="30" cy="23.8" r="2" fill="{INK}"/><circle cx="30.6" cy="23.2" r=".8" fill="#fff"/>'
               f'<circle cx="37" cy="20" r="2.6" fill="#ff6d8a" stroke="{INK}" stroke-width="1.2"/>'
               '<path d="M11 15C14 11.5 18 11.5 20 12" stroke="#fff" stroke-opacity=".7" stroke-width="2" stroke-linecap="round" fill="none"/>',
               ball("m", "#eef3ff", "#aab6ce", "#68738f"))


def cat():
    stripes = "".join(f'<path d="M{x} {13.4 + d}Q{x + 2.4} {20} {x} {26.6 - d}" stroke="#b34a00" stroke-width="2.2" fill="none" stroke-linecap="round"/>' for x, d in ((8, 2), (13, 0), (18, 1)))
    return _smaller(0.84, '<path d="M5 20C-1 18 1 9 6 8" fill="none" stroke="#2c2233" stroke-width="6.4" stroke-linecap="round"/><path d="M5 20C-1 18 1 9 6 8" fill="none" stroke="#ff9a3a" stroke-width="3.6" stroke-linecap="round"/>'
               f'<ellipse cx="14" cy="20" rx="11" ry="9.4" fill="url(#c)" stroke="{INK}" stroke-width="2"/>{stripes}'
               f'<path d="M22 12L20.5 4.6L29.5 9ZM22 28L20.5 35.4L29.5 31Z" fill="#ff8a2a" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/><path d="M23 10.6L22.4 7.4L26.6 9.6ZM23 29.4L22.4 32.6L26.6 30.4Z" fill="#ffc0b0"/>'
               f'<circle cx="27.5" cy="20" r="10.4" fill="url(#h)" stroke="{INK}" stroke-width="2"/>'
               '<path d="M20.6 20H25M21.4 17L25 18M21.4 23L25 22" stroke="#b34a00" stroke-width="1.8" stroke-linecap="round"/>'
               f'<ellipse cx="30" cy="15.4" rx="2.6" ry="2.9" fill="#d8ff6a" stroke="{INK}" stroke-width="1"/><ellipse cx="30.6" cy="15.4" rx="1" ry="2.3" fill="{INK}"/>'
               f'<ellipse cx="30" cy="24.6" rx="2.6" ry="2.9" fill="#d8ff6a" stroke="{INK}" stroke-width="1"/><ellipse cx="30.6" cy="24.6" rx="1" ry="2.3" fill="{INK}"/>'
               f'<path d="M38.6 20L35 17.8V22.2Z" fill="#ff7a90" stroke="{INK}" stroke-width="1"/><path d="M33 12L36 8.6M35 13L39 10.6M33 28L36 31.4M35 27L39 29.4" stroke="#fff" stroke-width="1.1" stroke-linecap="round"/>',
               ball("c", "#ffd39a", "#ff9a3a", "#c95f10") + ball("h", "#ffdcae", "#ffa347", "#d96a14"))


def cheese():
    return svg(28, 28, f'<path d="M2 17L19 5.4Q26 8 26 15L26 23.4L2 23.4Z" fill="url(#c)" stroke="{INK}" stroke-width="1.8" stroke-linejoin="round"/>'
               '<path d="M3.4 17L19.2 6.6Q24.8 9 25 15.4Z" fill="#ffef9e"/><path d="M2 17H26" stroke="#c98a00" stroke-width="1.3"/>'
               '<circle cx="9" cy="20.2" r="2" fill="#c98a00"/><circle cx="17" cy="20" r="2.5" fill="#c98a00"/><circle cx="18.4" cy="12" r="2" fill="#e0a820"/><ellipse cx="22.6" cy="22" rx="1.6" ry="1.1" fill="#c98a00"/>'
               '<path d="M7 15.2L16 9.2" stroke="#fff" stroke-width="1.8" stroke-linecap="round" stroke-opacity=".9"/>',
               linear("c", "#ffd84d", "#f2a900"))


def key(light, dark, shine):
    spark = ["", f'<path d="{star_path(9, 8, 6, 1.4, 4)}" fill="#fff"/>', f'<path d="{star_path(21, 13, 5, 1.2, 4)}" fill="#fff"/>'][shine]
    return svg(30, 26, f'<path d="M15 10.6H28V19H24.4V15.4H21.6V19H18V15.4H14.6A7.4 7.4 0 1 1 15 10.6ZM8 10.2A2.8 2.8 0 1 0 8 15.8A2.8 2.8 0 0 0 8 10.2Z" fill="url(#k)" fill-rule="evenodd" stroke="{INK}" stroke-width="1.7" stroke-linejoin="round"/>'
               f'<path d="M3.4 10A5.6 5.6 0 0 1 9 7.4M15.6 12H26.6" stroke="#fff" stroke-opacity=".75" stroke-width="1.3" fill="none" stroke-linecap="round"/>{spark}',
               linear("k", light, dark))


def red_key(shine):
    return key("#ff9a9a", "#e0182f", shine)


def gold_key(shine):
    return key("#fff0a0", "#f0a400", shine)


def door(light, dark, metal):
    return svg(32, 32, f'<rect x="1.4" y="1.4" width="29.2" height="29.2" rx="4" fill="#6a4a2c" stroke="{INK}" stroke-width="2"/>'
               f'<rect x="4.6" y="4.2" width="22.8" height="24.8" rx="2.4" fill="url(#d)" stroke="{INK}" stroke-width="1.4"/>'
               f'<path d="M10.4 4.6V28.6M16 4.6V28.6M21.6 4.6V28.6" stroke="{INK}" stroke-opacity=".4" stroke-width="1.2"/>'
               f'<path d="M4.8 9H27.2M4.8 24H27.2" stroke="{INK}" stroke-width="4.4"/><path d="M5.2 9H26.8M5.2 24H26.8" stroke="{metal}" stroke-width="2.4"/>'
               f'<circle cx="16" cy="16.4" r="4.6" fill="{metal}" stroke="{INK}" stroke-width="1.4"/><path d="M16 14.2A1.5 1.5 0 0 1 16.8 17L17.4 19.4H14.6L15.2 17A1.5 1.5 0 0 1 16 14.2Z" fill="{INK}"/>'
               '<path d="M6.4 6H25" stroke="#fff" stroke-opacity=".5" stroke-width="1.3"/>', linear("d", light, dark))


def red_door():
    return door("#ff8a7a", "#c21a2e", "#ffd9a0")


def gold_door():
    return door("#ffe27a", "#d99000", "#fff3c8")


def cork():
    return svg(32, 32, f'<circle cx="16" cy="16" r="12.6" fill="url(#c)" stroke="{INK}" stroke-width="2"/>'
               '<circle cx="11" cy="12" r="1.4" fill="#8a5a24"/><circle cx="19" cy="10" r="1" fill="#8a5a24"/><circle cx="21" cy="18" r="1.6" fill="#8a5a24"/><circle cx="13" cy="21" r="1.2" fill="#8a5a24"/><circle cx="16" cy="15" r="1" fill="#8a5a24"/>'
               '<path d="M7 13A9.6 9.6 0 0 1 14 6.6" stroke="#fff" stroke-opacity=".7" stroke-width="2" stroke-linecap="round" fill="none"/>', ball("c", "#f7dcae", "#d9a862", "#96632c"))


def splash(step):
    drops = "".join(f'<ellipse cx="{16 + dx * (1 + step * .45):.1f}" cy="{17 + dy * (1 + step * .4):.1f}" rx="2.1" ry="2.7" fill="#9fe2ff" stroke="#1f6fa8" stroke-width="1"/>' for dx, dy in ((-7, -3), (7, -3), (-3.4, -8), (3.6, -7.4), (0, 6), (-8, 4), (8, 4)))
    return svg(32, 32, drops)


def title():
    return svg(480, 480, f'{_strip(garden())}<rect width="480" height="480" fill="#143a1c" fill-opacity=".45"/>'
               + '<path d="M40 250C40 110 440 110 440 250C440 330 400 440 240 440S40 330 40 250Z" fill="#fff6d8" fill-opacity=".0"/>'
               + lettering("THE HUNGRY", 240, 50, 38, "url(#t2)", INK, wave=3, shadow="#0d2a14") + lettering("MOUSE", 240, 112, 64, "url(#t)", INK, wave=5, shadow="#0d2a14")
               + inside(cheese(), 318, 272, 92) + inside(mouse(), 196, 268, 118) + inside(cat(), 84, 268, 92)
               + "".join(key_cap(x, y, k) for x, y, k in ((130, 372, "up"), (84, 412, "left"), (130, 412, "down"), (176, 412, "right")))
               + small_text("RUN", 214, 405, 13, "#fff", INK, "start") + key_cap(316, 412, "SPACE", 92) + small_text("PLAY", 376, 405, 13, "#fff", INK, "start"),
               _defs(garden()) + linear("t", "#fff7c2", "#ffd23f@0.45", "#ff8a1f", y2=14, user=True) + linear("t2", "#ffffff", "#c9ffb0@0.5", "#57c95a", y2=14, user=True))


def _strip(drawing):
    return drawing[drawing.index("</defs>") + 7:-6]


def _defs(drawing):
    return drawing[drawing.index("<defs>") + 6:drawing.index("</defs>")]


def _ending(backdrop, word, line, fill, extra):
    return svg(480, 480, f'{_strip(backdrop)}<rect width="480" height="480" fill="#140a1c" fill-opacity=".55"/>'
               + lettering(word, 240, 92, 54, fill, INK, wave=5, shadow="#140a1c") + small_text(line, 240, 186, 15, "#fff", INK) + extra
               + key_cap(166, 400, "SPACE", 92) + small_text("PLAY AGAIN", 228, 393, 14, "#fff", INK, "start"),
               _defs(backdrop) + linear("t", "#fff7c2", "#ffd23f@0.45", "#ff8a1f", y2=14, user=True) + linear("t3", "#ffd0d0", "#ff7a6a@0.5", "#d3123b", y2=14, user=True))


def won():
    feast = "".join(inside(cheese(), 90 + k * 60, 318 - (k % 2) * 12, 56) for k in range(6))
    return _ending(garden(), "HURRAY!", "THE MOUSE IS HOME AND FULL", "url(#t)", feast + inside(mouse(), 240, 252, 92, -90))


def lost():
    return _ending(cellar(), "CAUGHT!", "THE MOUSE NEEDS A REST", "url(#t3)", inside(cat(), 200, 284, 120) + inside(mouse(), 318, 284, 70))


def icon():
    return icon_frame(inside(cheese(), 57, 27, 32) + inside(mouse(), 36, 48, 52, -28), "", "#c8f08a", "#4fae4a", "#1d5a28")
