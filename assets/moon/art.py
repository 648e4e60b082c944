# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Moon Lander: three moons, a round little rocket and its flame.

Each moon is one line of heights, 40 of them; P marks a landing pad.  From it come the picture and the map,
so the map knows the ground exactly where the child sees it.
"""

import math
import random

from svgkit import ball, heart, icon_frame, inside, key_cap, lettering, linear, radial, small_text, star_path, svg

INK = "#1a1836"
COLUMNS, SQUARE = 40, 12
FOOT = 22      # pixels from the rocket's middle down to its feet
SIDE = 1       # squares the rocket is wide to either side

# heights in squares above the lower edge; a pad is flat
MOONS = {
    1: ([9, 10, 11, 11, 10, 9, 8, 7, 7, 6, 6, 5, 5, 5, 5, 5, 5, 5, 5, 6, 7, 9, 11, 12, 12, 11, 9, 7, 6, 5, 5, 6, 7, 8, 9, 11, 13, 14, 14, 13], (11, 18)),
    2: ([16, 17, 17, 15, 13, 11, 9, 8, 7, 7, 8, 10, 13, 16, 18, 19, 18, 16, 13, 10, 8, 6, 5, 5, 6, 8, 11, 13, 14, 13, 12, 11, 11, 11, 11, 11, 11, 11, 13, 16], (31, 37)),
    3: ([20, 21, 20, 18, 15, 12, 9, 7, 6, 5, 4, 4, 4, 4, 4, 4, 6, 10, 15, 19, 22, 24, 24, 22, 19, 16, 13, 11, 10, 10, 11, 13, 15, 17, 18, 20, 22, 23, 22, 21], (10, 15)),
}
WORLDS = {1: dict(sky=("#0c1038", "#27246a", "#5a3f8f"), soil=("#d9d4ea", "#9a92b8", "#4f4870"), rim="#ffffff", seed=3),
          2: dict(sky=("#1a0a26", "#5a1f3f", "#c2603f"), soil=("#ffc98a", "#d9703a", "#7a2a22"), rim="#ffe6b8", seed=8),
          3: dict(sky=("#04202c", "#0a4a52", "#2f9a86"), soil=("#b8f0d8", "#4fae9a", "#14505a"), rim="#eafff6", seed=14)}


def moon_map(number):
    heights, (first, last) = MOONS[number]
    squares = []
    for row in range(COLUMNS):
        for column in range(COLUMNS):
            near = range(max(0, column - SIDE), min(COLUMNS, column + SIDE + 1))
            top = max(heights[c] for c in near)
            middle = 480 - (row + .5) * SQUARE         # pixels above the lower edge
            ground = middle - FOOT <= top * SQUARE
            pad = all(first <= c <= last for c in near)
            squares.append("0" if not ground else "8" if pad else "1")
    legend = ["rock", "", "", "landing pad", "", "", ""]
    return "\r\n".join(["", f"00000006\\moon{number}.jpg", f" {COLUMNS}", f" {COLUMNS}"] + legend + [""] * 14 + squares) + "\r\n"


def _outline(heights, pad):
    """The ground as a smooth line through the heights, flat at the pad."""
    points = [(0, 480 - heights[0] * SQUARE)] + [((c + .5) * SQUARE, 480 - h * SQUARE) for c, h in enumerate(heights)] + [(480, 480 - heights[-1] * SQUARE)]
    path = f"M-10 490V{points[0][1]}L{points[0][0]} {points[0][1]}"
    for (x1, y1), (x2, y2) in zip(points, points[1:]):
        middle = (x1 + x2) / 2
        path += f"C{middle:.1f} {y1} {middle:.1f} {y2} {x2:.1f} {y2}"
    return path + "L490 480V490Z"


def moon(number, extra=""):
    heights, (first, last) = MOONS[number]
    world = WORLDS[number]
    rng = random.Random(world["seed"])
    stars = "".join(f'<circle cx="{rng.random() * 480:.1f}" cy="{rng.random() * 360:.1f}" r="{.4 + rng.random() ** 3 * 1.7:.2f}" fill="#fff" fill-opacity="{.3 + rng.random() * .7:.2f}"/>' for _ in range(150))
    stars += "".join(f'<path d="{star_path(rng.random() * 460 + 10, rng.random() * 200 + 20, 6, 1, 4)}" fill="#fff" fill-opacity=".9"/>' for _ in range(5))
    sky = {1: '<circle cx="382" cy="88" r="50" fill="url(#glow)"/><circle cx="382" cy="88" r="38" fill="url(#earth)"/><path d="M356 74C366 60 384 64 388 74S372 92 366 100S350 86 356 74ZM392 96C402 90 414 94 414 104S398 122 390 114S386 100 392 96Z" fill="#5fc46a" fill-opacity=".9"/><path d="M350 96Q372 104 398 84M366 60Q384 56 402 66" stroke="#fff" stroke-opacity=".8" stroke-width="4" fill="none" stroke-linecap="round"/>',
           2: '<circle cx="90" cy="96" r="84" fill="url(#glow)"/><circle cx="90" cy="96" r="30" fill="#fff3c0"/><circle cx="372" cy="70" r="16" fill="#e8b0a0"/><circle cx="367" cy="66" r="4" fill="#c08070"/><circle cx="378" cy="75" r="3" fill="#c08070"/>',
           3: '<path d="M-20 150C90 60 210 190 320 90S470 80 520 40V110C440 140 400 110 320 150S120 150 -20 220Z" fill="url(#aurora)"/><path d="M-20 100C110 40 230 130 340 50S480 40 520 10V50C440 84 380 60 330 92S110 100 -20 150Z" fill="url(#aurora)"/><circle cx="400" cy="100" r="22" fill="#d8fff0"/><path d="M366 108C372 120 430 100 436 88" stroke="#8fe0d0" stroke-width="4" fill="none" stroke-linecap="round"/>'}[number]
    far = "M-10 490V330"
    x = -10
    while x < 490:
        step = 22 + rng.random() * 40
        far += f"Q{x + step / 2:.0f} {270 + rng.random() * 60:.0f} {x + step:.0f} {318 + rng.random() * 34:.0f}"
        x += step
    far += "V490Z"
    craters, dots = "", ""
    for _ in range(34):
        c = int(rng.random() * COLUMNS)
        if first - 2 <= c <= last + 2 or heights[c] < 4:
            continue
        x, y = (c + .5) * SQUARE, 480 - (heights[c] * SQUARE - 20) * rng.random() - 4
        r = 4 + rng.random() * 9
        if y > 480 - heights[c] * SQUARE + 18:
            craters += f'<ellipse cx="{x:.0f}" cy="{y:.0f}" rx="{r:.1f}" ry="{r * .5:.1f}" fill="{world["soil"][2]}" fill-opacity=".55"/><path d="M{x - r:.1f} {y:.1f}A{r:.1f} {r * .5:.1f} 0 0 0 {x + r:.1f} {y:.1f}" stroke="{world["rim"]}" stroke-opacity=".6" stroke-width="1.6" fill="none"/>'
    for _ in range(150):
        c = rng.random() * 40
        x, y = c * SQUARE, 480 - (heights[int(c)] * SQUARE - 10) * rng.random()
        dots += f'<circle cx="{x:.0f}" cy="{y:.0f}" r="{.7 + rng.random() * 1.4:.1f}" fill="{world["soil"][2]}" fill-opacity=".5"/>'
    left, right, top = first * SQUARE, (last + 1) * SQUARE, 480 - heights[first] * SQUARE
    stripes = "".join(f'<path d="M{x} {top + 2}h9l-6 10h-9Z" fill="#2a2a3a"/>' for x in range(left + 8, right - 10, 18))
    pad = (f'<path d="M{left + 8} {top + 12}L{left + 2} {top + 30}M{right - 8} {top + 12}L{right - 2} {top + 30}" stroke="{INK}" stroke-width="7" stroke-linecap="round"/><path d="M{left + 8} {top + 12}L{left + 2} {top + 30}M{right - 8} {top + 12}L{right - 2} {top + 30}" stroke="#b8c0d8" stroke-width="3.6" stroke-linecap="round"/>'
           f'<rect x="{left}" y="{top}" width="{right - left}" height="14" rx="5" fill="#ffd23f" stroke="{INK}" stroke-width="2.4"/>{stripes}<path d="M{left + 4} {top + 2.6}H{right - 4}" stroke="#fff" stroke-opacity=".7" stroke-width="1.8"/>'
           + "".join(f'<circle cx="{x}" cy="{top - 4}" r="9" fill="url(#lamp)"/><circle cx="{x}" cy="{top - 4}" r="3.6" fill="#8affa0" stroke="{INK}" stroke-width="1.4"/>' for x in (left + 4, right - 4)))
    outline = _outline(heights, None)
    soil = world["soil"]
    return svg(480, 480, f'<rect width="480" height="480" fill="url(#sky)"/>{stars}{sky}<path d="{far}" fill="{soil[1]}" fill-opacity=".35"/>'
               f'<path d="{outline}" fill="url(#soil)" stroke="{INK}" stroke-width="5"/><path d="{outline}" fill="none" stroke="{world["rim"]}" stroke-opacity=".75" stroke-width="3" transform="translate(0 4)"/>{dots}{craters}{pad}{extra}',
               linear("sky", *world["sky"]) + linear("soil", *soil, x1=0, y1=200, x2=0, y2=480, user=True) + radial("earth", "#bfeaff", "#3f8fe0@0.6", "#123a7a", cx=.38, cy=.34, r=.7)
               + radial("glow", "#fff6d0/0.55", "#fff6d0/0") + radial("lamp", "#b8ffc0/0.9", "#8affa0/0") + linear("aurora", "#8affc8/0", "#8affc8/0.35@0.5", "#5ac8ff/0")
               + linear("t", "#fff7c2", "#ffc23f@0.45", "#ff5a1f", y2=14, user=True) + linear("t2", "#ffffff", "#c8d8ff@0.5", "#6a7ae0", y2=14, user=True) + linear("t3", "#ffe0e0", "#ff7a6a@0.5", "#b3123a", y2=14, user=True)
               + linear("t4", "#f4fff0", "#9affb0@0.5", "#1fae6a", y2=14, user=True))


def rocket():
    return svg(40, 46, f'<path d="M12 30L5 43M28 30L35 43" stroke="{INK}" stroke-width="5" stroke-linecap="round"/><path d="M12 30L5 43M28 30L35 43" stroke="#c8d0e4" stroke-width="2.4" stroke-linecap="round"/><path d="M1.6 44H9M31 44H38.4" stroke="{INK}" stroke-width="3.4" stroke-linecap="round"/>'
               f'<path d="M15 36H25L28 42H12Z" fill="#6a7290" stroke="{INK}" stroke-width="1.8" stroke-linejoin="round"/>'
               f'<path d="M20 1.6C30 8 33 18 31 29L28 37H12L9 29C7 18 10 8 20 1.6Z" fill="url(#b)" stroke="{INK}" stroke-width="2.2" stroke-linejoin="round"/>'
               f'<path d="M20 1.6C25 4.8 28.4 8.8 30 13.4H10C11.6 8.8 15 4.8 20 1.6Z" fill="url(#n)" stroke="{INK}" stroke-width="1.8" stroke-linejoin="round"/>'
               f'<circle cx="20" cy="21.6" r="6.4" fill="#ffc23f" stroke="{INK}" stroke-width="1.6"/><circle cx="20" cy="21.6" r="4.4" fill="url(#g)" stroke="{INK}" stroke-width="1.2"/>'
               '<ellipse cx="18.4" cy="19.8" rx="1.6" ry="1.1" fill="#fff" transform="rotate(-35 18.4 19.8)"/><path d="M12.6 30C11 22 11.4 16 14 10" stroke="#fff" stroke-width="2" stroke-opacity=".9" fill="none" stroke-linecap="round"/><path d="M10 31.6H30" stroke="#8a94b8" stroke-width="1.5"/>',
               linear("b", "#ffffff", "#e6ebf8@0.45", "#98a4cc", x2=1, y2=0) + linear("n", "#ff8a6a", "#e0283a", x2=1, y2=0) + radial("g", "#b8f8ff", "#2a9ad8"))


def flame(step):
    long = [20, 26, 17, 23][step]
    return svg(20, 30, f'<path d="M3 2Q-1 12 10 {long + 2}Q21 12 17 2Z" fill="#ff6a1f" stroke="#a02a00" stroke-width="1.5"/><path d="M6 2Q4 9 10 {long * .7:.0f}Q16 9 14 2Z" fill="#ffc83f"/><path d="M8 2Q7 7 10 {long * .42:.0f}Q13 7 12 2Z" fill="#fffbe0"/>')


def puff(side):
    flip = "" if side == "left" else 'transform="matrix(-1 0 0 1 22 0)"'
    return svg(22, 14, f'<g {flip}><circle cx="17" cy="7" r="3.4" fill="#fff" stroke="#8a94b8" stroke-width="1.2"/><circle cx="10.6" cy="6.6" r="4.4" fill="#fff" stroke="#8a94b8" stroke-width="1.2"/><circle cx="4.6" cy="7.4" r="3.6" fill="#eef2ff" stroke="#8a94b8" stroke-width="1.2"/></g>')


def boom(step):
    size = [13, 19, 24, 18][step]
    return svg(56, 56, f'<path d="{star_path(28, 28, size + 3, size * .62, 10, step * 17)}" fill="#ff5a1f" stroke="#7a1500" stroke-width="2" stroke-linejoin="round"/>'
               f'<path d="{star_path(28, 28, size * .78, size * .46, 9, 20 + step * 17)}" fill="#ffc23f"/><circle cx="28" cy="28" r="{size * .36:.1f}" fill="#fffbe0"/>')


def star(step):
    return svg(28, 28, f'<g transform="translate(14 14) scale({[1, .8, .45, .8][step]} 1) translate(-14 -14)"><path d="{star_path(14, 15, 12.6, 6.2)}" fill="url(#s)" stroke="#7a4a00" stroke-width="1.8" stroke-linejoin="round"/><path d="{star_path(14, 15, 6.6, 3.2)}" fill="#fff8c8" fill-opacity=".85"/></g>',
               linear("s", "#fff2a0", "#ffb400"))


def can():
    return svg(14, 22, f'<rect x="4.6" y="1" width="4.8" height="4" rx="1" fill="#8a94b8" stroke="{INK}" stroke-width="1.2"/><rect x="1.4" y="4.4" width="11.2" height="16" rx="2.6" fill="url(#c)" stroke="{INK}" stroke-width="1.5"/><path d="M7 8.4C9.6 11.4 10 13 10 14A3 3 0 0 1 4 14C4 13 4.4 11.4 7 8.4Z" fill="#fff"/>', linear("c", "#7affa0", "#12a860", x2=1, y2=0))


def comet():
    return svg(44, 44, '<path d="M30 13C18 12 8 15 1 22C8 29 18 32 30 31Z" fill="#ffb53f"/><path d="M30 16C22 16 14 18 9 22C14 26 22 28 30 28Z" fill="#fff0a8"/>'
               f'<circle cx="31" cy="22" r="10" fill="url(#c)" stroke="{INK}" stroke-width="2"/><circle cx="28" cy="19" r="2.2" fill="#6a4a5a"/><circle cx="35" cy="24" r="1.8" fill="#6a4a5a"/><circle cx="30" cy="27" r="1.4" fill="#6a4a5a"/>', ball("c", "#ffe0d0", "#c08a8a", "#5a3a50"))


def title():
    return moon(1, lettering("MOON", 190, 46, 56, "url(#t2)", INK, wave=5, shadow="#080a22") + lettering("LANDER", 206, 122, 50, "url(#t)", INK, wave=5, shadow="#080a22")
                + inside(rocket(), 180, 266, 66) + inside(flame(1), 180, 318, 30) + "".join(key_cap(x, y, k, 38, 34) for x, y, k in ((330, 240, "up"), (288, 280, "left"), (372, 280, "right")))
                + small_text("FLY AND LAND SOFTLY", 330, 314, 11, "#fff", INK) + key_cap(300, 452, "SPACE", 92) + small_text("START", 360, 445, 13, "#fff", INK, "start"))


def _ending(number, word, fill, line, extra, key_line="FLY AGAIN"):
    return moon(number, lettering(word, 240, 92, 48, f"url(#{fill})", INK, wave=5, shadow="#080a22") + small_text(line, 240, 176, 14, "#fff", INK) + extra
                + key_cap(300, 452, "SPACE", 92) + small_text(key_line, 360, 445, 13, "#fff", INK, "start"))


def landed():
    return _ending(1, "TOUCHDOWN!", "t4", "A SOFT LANDING. THE NEXT MOON IS WAITING", inside(rocket(), 180, 378, 56) + inside(star(0), 120, 270, 40) + inside(star(0), 180, 250, 56) + inside(star(0), 240, 270, 40), "FLY ON")


def won():
    return _ending(3, "CAPTAIN!", "t", "YOU LANDED ON ALL THREE MOONS", "".join(inside(star(0), 120 + k * 60, 268 - (k % 2) * 18, 50) for k in range(5)) + inside(rocket(), 156, 388, 56))


def lost():
    return _ending(2, "CRASH!", "t3", "SLOWLY, CAPTAIN, SLOWLY", inside(boom(2), 240, 290, 120) + inside(rocket(), 292, 306, 50, 64))


def icon():
    return icon_frame('<circle cx="18" cy="22" r="1.4" fill="#fff"/><circle cx="62" cy="18" r="1.6" fill="#fff"/><circle cx="56" cy="44" r="1" fill="#fff"/><path d="M5 62Q22 50 40 58T75 56V64Q75 75 64 75H16Q5 75 5 64Z" fill="#c8c2e0" stroke="#1a1836" stroke-width="2"/><ellipse cx="22" cy="66" rx="6" ry="2.6" fill="#8a84a8"/><ellipse cx="58" cy="67" rx="7" ry="2.8" fill="#8a84a8"/>'
                      + inside(flame(1), 40, 56, 15) + inside(rocket(), 40, 33, 35), "", "#1a1f5a", "#6a4fa8", "#1a1836")
