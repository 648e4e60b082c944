# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Comet Patrol: a little fighter, saucers, rocks and their mother ship, far out in space."""

import math
import random
import struct

from svgkit import (ball, digit, heart, icon_frame, inside, key_cap, lettering, linear, radial, small_text,
                    star_path, svg)

INK = "#141233"


def ship(step):
    flame = [12, 8, 10][step]
    return svg(44, 52, f'<path d="M17 40Q22 {46 + flame * 1.1} 27 40Z" fill="#ff7a1f" stroke="#b32a00" stroke-width="1.2"/><path d="M19.2 40Q22 {42 + flame * .7} 24.8 40Z" fill="#fff2a0"/>'
               f'<path d="M15 24L3 37V43L15 39ZM29 24L41 37V43L29 39Z" fill="url(#w)" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/>'
               f'<path d="M4.4 31V40M39.6 31V40" stroke="{INK}" stroke-width="4.6" stroke-linecap="round"/><path d="M4.4 31V40M39.6 31V40" stroke="#ffd23f" stroke-width="2.2" stroke-linecap="round"/>'
               f'<path d="M22 2C29 9 31 20 30 34L27 41H17L14 34C13 20 15 9 22 2Z" fill="url(#b)" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/>'
               f'<path d="M22 2C26 6 28.4 11 29.4 16H14.6C15.6 11 18 6 22 2Z" fill="#ff4d6d" stroke="{INK}" stroke-width="1.6" stroke-linejoin="round"/>'
               f'<ellipse cx="22" cy="22.6" rx="4.6" ry="5.6" fill="url(#g)" stroke="{INK}" stroke-width="1.6"/><ellipse cx="20.6" cy="20.4" rx="1.4" ry="2" fill="#fff" fill-opacity=".9"/>'
               '<path d="M17.4 33C16.6 24 17 14 20 8" stroke="#fff" stroke-width="1.8" stroke-opacity=".85" fill="none" stroke-linecap="round"/><path d="M16 35.6H28" stroke="#8f9cc4" stroke-width="1.4"/>',
               linear("b", "#ffffff", "#dfe6fa@0.4", "#8f9cc8", x2=1, y2=0) + linear("w", "#7fb2ff", "#2f5fd0") + linear("g", "#9ff3ff", "#1285c9"))


def shot():
    return svg(10, 22, '<rect x="1.4" y="1.4" width="7.2" height="19.2" rx="3.6" fill="url(#s)" stroke="#0b6b4a" stroke-width="1.4"/><rect x="3.8" y="4" width="2.2" height="10" rx="1.1" fill="#fff"/>',
               linear("s", "#f2fff0", "#5dffa8@0.5", "#12b56a"))


def bolt(step):
    return svg(16, 16, f'<path d="{star_path(8, 8, 7.4, 3.6, 6, step * 15)}" fill="#ff3d7a" stroke="#6b0030" stroke-width="1.3" stroke-linejoin="round"/><circle cx="8" cy="8" r="2.8" fill="#ffe0ea"/>')


def saucer(step):
    lamps = "".join(f'<circle cx="{7 + k * 7}" cy="{21.6 + 2.4 * math.sin(math.pi * (k + .5) / 5):.1f}" r="2.1" fill="{"#fff36b" if (k + step) % 3 == 0 else "#7a3bd0"}" stroke="{INK}" stroke-width="1"/>' for k in range(5))
    return svg(42, 32, f'<path d="M11 17C11 8 15 3 21 3S31 8 31 17Z" fill="url(#d)" stroke="{INK}" stroke-width="2"/>'
               f'<path d="M17 16.6C16 11 18.4 8.4 21 8.4S26 11 25 16.6Z" fill="#67d84a" stroke="{INK}" stroke-width="1.3"/><circle cx="19.2" cy="12.6" r="1.5" fill="{INK}"/><circle cx="22.8" cy="12.6" r="1.5" fill="{INK}"/><circle cx="19.6" cy="12.1" r=".5" fill="#fff"/><circle cx="23.2" cy="12.1" r=".5" fill="#fff"/>'
               f'<ellipse cx="21" cy="20.6" rx="19.4" ry="8" fill="url(#s)" stroke="{INK}" stroke-width="2"/>{lamps}'
               f'<path d="M5 18.2C9 14.6 15 13.8 21 13.8" stroke="#fff" stroke-opacity=".8" stroke-width="1.8" fill="none" stroke-linecap="round"/><path d="M14 7.6C15.6 5.4 17.4 4.8 19 4.6" stroke="#fff" stroke-width="1.6" fill="none" stroke-linecap="round"/>',
               linear("d", "#e8fbff", "#8fd8ee") + linear("s", "#e3b8ff", "#9a4df0@0.5", "#4a1a96"))


def rock():
    return svg(44, 44, f'<g transform="translate(22 22) scale(.9) translate(-22 -22)"><path d="M15 4L28 3L38 11L41 23L36 34L26 41L13 39L5 29L3 17Z" fill="url(#r)" stroke="{INK}" stroke-width="2.4" stroke-linejoin="round"/>'
               '<path d="M15 4L18 13L8 18L3 17M18 13L30 12L38 11M30 12L34 24L41 23M34 24L26 33L26 41M26 33L13 30L8 18M13 30L13 39" stroke="#4a2f2a" stroke-opacity=".45" stroke-width="1.3" fill="none"/>'
               '<ellipse cx="15" cy="22" rx="4.2" ry="3.2" fill="#6e4a3c"/><path d="M11.4 21A4.2 3 0 0 1 18.4 20.4" stroke="#3d2620" stroke-width="1.2" fill="none"/><ellipse cx="28" cy="19" rx="2.8" ry="2.2" fill="#6e4a3c"/><ellipse cx="24" cy="35" rx="2.6" ry="1.8" fill="#5a3a30"/><ellipse cx="33" cy="30" rx="2" ry="1.6" fill="#5a3a30"/>'
               '<path d="M8 15L16 7L25 6" stroke="#fff" stroke-opacity=".55" stroke-width="2" fill="none" stroke-linecap="round"/></g>',
               ball("r", "#f0cfae", "#b98a6a", "#5f3f38"))


def mother(step):
    eye = [0, -2.4, 0, 2.4][step]
    lamps = "".join(f'<circle cx="{10 + k * 8.8:.1f}" cy="{38 + 4 * math.sin(math.pi * (k + .5) / 6):.1f}" r="2.8" fill="{["#ff5c6c", "#fff36b", "#5dffa8"][(k + step) % 3]}" stroke="{INK}" stroke-width="1.2"/>' for k in range(6))
    return svg(64, 56, f'<path d="M6 30L1 46L12 40ZM58 30L63 46L52 40Z" fill="#ff5c6c" stroke="{INK}" stroke-width="2" stroke-linejoin="round"/><path d="M24 45L28 55H36L40 45Z" fill="#7a86b0" stroke="{INK}" stroke-width="2"/>'
               f'<path d="M12 31C12 14 20 4 32 4S52 14 52 31Z" fill="url(#d)" stroke="{INK}" stroke-width="2.4"/>'
               f'<circle cx="32" cy="20" r="9.4" fill="#fff" stroke="{INK}" stroke-width="2"/><circle cx="{32 + eye}" cy="21" r="5.4" fill="url(#e)" stroke="{INK}" stroke-width="1.2"/><circle cx="{32 + eye}" cy="21" r="2.4" fill="{INK}"/><circle cx="{30.6 + eye}" cy="19.2" r="1.3" fill="#fff"/>'
               f'<path d="M22.6 12.4L30 14.8M41.4 12.4L34 14.8" stroke="{INK}" stroke-width="3" stroke-linecap="round"/>'
               f'<ellipse cx="32" cy="36.6" rx="30" ry="11.4" fill="url(#s)" stroke="{INK}" stroke-width="2.4"/>{lamps}'
               '<path d="M7 32.6C14 27.4 24 26.6 32 26.8" stroke="#fff" stroke-opacity=".75" stroke-width="2.2" fill="none" stroke-linecap="round"/>',
               linear("d", "#ffd0e8", "#c23d9a") + linear("s", "#c4d2ff", "#5a6fd8@0.5", "#232a80") + radial("e", "#ffe14d", "#ff6a00"))


def boom(step):
    size = [11, 16, 20, 16][step]
    return svg(46, 46, f'<path d="{star_path(23, 23, size + 2, size * .62, 9, step * 17)}" fill="#ff5a1f" stroke="#7a1500" stroke-width="1.8" stroke-linejoin="round"/>'
               f'<path d="{star_path(23, 23, size * .78, size * .46, 8, 20 + step * 17)}" fill="#ffc23f"/><circle cx="23" cy="23" r="{size * .36:.1f}" fill="#fffbe0"/>')


def gift(step):
    return svg(28, 28, f'<circle cx="14" cy="14" r="{12.6 - (step % 2)}" fill="url(#g)" stroke="{INK}" stroke-width="1.6"/>'
               '<path d="M14 21.4C9.4 17.8 7.2 15.4 7.2 12.6A3.4 3.4 0 0 1 14 11.4A3.4 3.4 0 0 1 20.8 12.6C20.8 15.4 18.6 17.8 14 21.4Z" fill="#ff3d5e" stroke="#8a0a2a" stroke-width="1.4"/>'
               '<path d="M5 12A9.6 9.6 0 0 1 12 4.6" stroke="#fff" stroke-width="2" stroke-linecap="round" fill="none"/>', radial("g", "#ffffff/0.9", "#b9f4ff", "#4bc7f0"))


def twinkle(size):
    return svg(9, 9, f'<path d="{star_path(4.5, 4.5, size, size * .4, 4)}" fill="#fff"/>')


def score_digit(number):
    return digit(number, "#f2fff0", "#4dffb0", "#063a2c")


def space(extra="", planets=True):
    rng = random.Random(99)
    stars = ""
    for k in range(260):
        x, y, r = rng.random() * 480, rng.random() * 480, .4 + rng.random() ** 3 * 1.6
        stars += f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{r:.2f}" fill="{["#fff", "#cfe2ff", "#ffe9c9", "#ffd3ef"][k % 4]}" fill-opacity="{.35 + rng.random() * .65:.2f}"/>'
    for x, y, s in ((70, 130, 5), (410, 300, 6), (250, 60, 4), (180, 420, 5)):
        stars += f'<path d="{star_path(x, y, s, s * .16, 4)}" fill="#fff" fill-opacity=".9"/>'
    ring = '<g transform="rotate(-20 392 104)"><path d="M314 104A78 20 0 0 {} 470 104" fill="none" stroke="#ffdca8" stroke-opacity="{}" stroke-width="8"/></g>'
    worlds = (ring.format(1, .45) + '<circle cx="392" cy="104" r="52" fill="url(#p1)"/><path d="M346 84Q390 96 436 78M341 104Q390 122 443 100M346 128Q392 142 436 124" stroke="#fff" stroke-opacity=".16" stroke-width="7" fill="none"/>'
              + ring.format(0, .85) +
              '<circle cx="52" cy="400" r="86" fill="url(#p2)"/><circle cx="30" cy="360" r="13" fill="#0c3a66" fill-opacity=".35"/><circle cx="84" cy="384" r="9" fill="#0c3a66" fill-opacity=".3"/><circle cx="58" cy="424" r="18" fill="#0c3a66" fill-opacity=".3"/>' if planets else "")
    return svg(480, 480, f'<rect width="480" height="480" fill="url(#sky)"/><rect width="480" height="480" fill="url(#n1)"/><rect width="480" height="480" fill="url(#n2)"/><rect width="480" height="480" fill="url(#n3)"/>{stars}{worlds}{extra}',
               linear("sky", "#0a0b2e", "#1a1250@0.5", "#0b1a44") + radial("n1", "#b23dbf/0.5", "#5a1f9a/0.25@0.5", "#000/0", cx=.72, cy=.55, r=.55)
               + radial("n2", "#1fb5c9/0.4", "#135a9a/0.2@0.5", "#000/0", cx=.2, cy=.3, r=.5) + radial("n3", "#ff8a5c/0.22", "#000/0", cx=.5, cy=1, r=.5)
               + radial("p1", "#ffd9a0", "#f08a4a@0.5", "#6a1f4a", cx=.35, cy=.3, r=.8) + radial("p2", "#8fe0ff", "#2f7fd0@0.5", "#0a1f4a", cx=.4, cy=.25, r=.85)
               + linear("t", "#ffffff", "#8ff3ff@0.45", "#1f8fe0", y2=14, user=True) + linear("t2", "#fff7c2", "#ffc23f@0.45", "#ff5a1f", y2=14, user=True)
               + linear("t3", "#ffd0e0", "#ff5c8a@0.5", "#b3124a", y2=14, user=True) + linear("tail", "#fff6c0/0.9", "#ffb03a/0.5@0.4", "#ff5a1f/0", x1=0, y1=0, x2=1, y2=0))


def title():
    comet = ('<g transform="rotate(-24 120 212)"><path d="M116 196C220 188 330 196 430 212C330 228 220 236 116 228Z" fill="url(#tail)"/><circle cx="118" cy="212" r="19" fill="#fff2c0"/><circle cx="114" cy="208" r="11" fill="#fff"/></g>')
    return space(comet + lettering("COMET", 240, 58, 58, "url(#t)", INK, wave=5, shadow="#050418") + lettering("PATROL", 240, 136, 48, "url(#t2)", INK, wave=4, shadow="#050418")
                 + inside(ship(0), 240, 290, 76) + inside(saucer(0), 134, 268, 70) + inside(saucer(1), 346, 262, 70)
                 + "".join(key_cap(x, y, k) for x, y, k in ((226, 362, "up"), (180, 402, "left"), (226, 402, "down"), (272, 402, "right")))
                 + small_text("FLY", 306, 396, 13, "#fff", INK, "start") + key_cap(226, 448, "SPACE", 132) + small_text("FIRE", 306, 441, 13, "#fff", INK, "start"))


def won():
    sparks = "".join(inside(boom(k % 4), x, y, s) for k, (x, y, s) in enumerate(((120, 270, 70), (352, 252, 84), (300, 318, 50), (180, 320, 54))))
    return space(lettering("VICTORY!", 240, 96, 52, "url(#t2)", INK, wave=5, shadow="#050418") + small_text("THE STARS ARE SAFE AGAIN", 240, 190, 15, "#fff", INK)
                 + sparks + inside(ship(1), 240, 280, 84) + key_cap(190, 410, "SPACE", 92) + small_text("PLAY AGAIN", 252, 403, 14, "#fff", INK, "start"))


def lost():
    return space(lettering("GAME", 240, 76, 54, "url(#t3)", INK, wave=4, shadow="#050418") + lettering("OVER", 240, 150, 54, "url(#t3)", INK, wave=4, shadow="#050418")
                 + inside(mother(1), 240, 290, 130) + inside(boom(2), 330, 340, 50) + key_cap(190, 410, "SPACE", 92) + small_text("TRY AGAIN", 252, 403, 14, "#fff", INK, "start"))


def icon():
    return icon_frame('<circle cx="22" cy="22" r="1.4" fill="#fff"/><circle cx="60" cy="34" r="1.2" fill="#fff"/><circle cx="16" cy="52" r="1" fill="#fff"/>' + inside(saucer(0), 54, 24, 32) + inside(shot(), 36, 22, 6) + inside(ship(0), 34, 52, 36),
                      "", "#3a2a8a", "#1aa0c8", "#141233")


# ---- a little tune ------------------------------------------------------------------------------------------

def tune():
    """A cheerful march as a MIDI file: one track, one voice above a bass."""
    melody = "c5 e5 g5 e5 a5 g5 e5 - f5 a5 c6 a5 g5 e5 c5 - d5 f5 a5 f5 g5 b5 d6 b5 c6 g5 e5 d5 c5 - c5 -".split()
    bass = "c3 g3 c3 g3 f3 c4 c3 g3 d3 a3 g3 d3 c3 g3 c3 c3".split()
    events = []
    for voice, (notes, beat) in enumerate(((melody, 48), (bass, 96))):
        for i, note in enumerate(notes):
            if note != "-":
                pitch = "c d ef g a b".replace(" ", "_").index(note[0]) + 12 * (int(note[1]) + 1)
                events.append((i * beat, bytes((0x90 | voice, pitch, 88 - 18 * voice))))
                events.append((i * beat + beat - 6, bytes((0x80 | voice, pitch, 0))))
    track, now = bytes((0, 0xC0, 80, 0, 0xC1, 38)), 0
    for when, event in sorted(events):
        wait, now = when - now, when
        track += (bytes((0x80 | wait >> 7, wait & 127)) if wait > 127 else bytes((wait,))) + event
    track += b"\x00\xff\x2f\x00"
    return b"MThd" + struct.pack(">IHHH", 6, 0, 1, 96) + b"MTrk" + struct.pack(">I", len(track)) + track
