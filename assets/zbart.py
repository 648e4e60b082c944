#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

"""Draws the art of Zorbino: reads small manifests and writes sprites, pictures, icons and PNGs.

    python3 assets/zbart.py [MANIFEST...]        (default: every assets/*/art.json)

Needs rsvg-convert (Debian: librsvg2-bin); JPEG and GIF also need ImageMagick's convert.
The same manifest always gives the same bytes, and a file that is already right is not touched.

A manifest is a JSON object:

    {"target": "../../games/00000001",        where the files go, seen from the manifest
     "module": "art.py",                      optional: drawings made by Python functions
     "outputs": [
       {"sprite": "ball",  "size": [20, 20], "frames": ["ball.svg"]},
       {"sprite": "coin",  "size": [24, 24], "kind": "Animated", "frames": ["coin(0)", "coin(1)"]},
       {"sprite": "fish",  "size": [48, 48], "kind": "Rotating", "rotate": 16, "frames": ["fish.svg"]},
       {"picture": "sky.bmp",  "size": [480, 480], "svg": "sky()"},        .bmp, .gif or .jpg
       {"icon": "icon.bmp", "svg": "icon.svg"},                            80 x 80
       {"png": "zorbino.png",  "size": [128, 128], "svg": "logo.svg"},
       {"file": "maze.map", "from": "maze_map(1)"}]}                       text or bytes, as they are

A drawing is the name of an SVG file beside the manifest, or a call such as "coin(0)" or "coin" of a
function in the module that returns SVG text. An output may have a "target" of its own.

A sprite NAME becomes NAME.spr (what it is) and NAME.spb (a bitmap: image left, mask right, frames below
each other). "rotate": N turns its one drawing, which faces right, into N frames, counter-clockwise.
"text" replaces the free first line of the .spr file.
"""

import ast
import glob
import importlib.util
import json
import os
import re
import shutil
import struct
import subprocess
import sys
import zlib

SUPERSAMPLE = 4     # a sprite pixel is judged by this many squared points
ICON_SIZE = [80, 80]
KINDS = ("Simple", "Animated", "Rotating")


class ArtError(Exception):
    """Something in a manifest or a drawing is off; the text says what."""


# ---- from SVG to pixels ---------------------------------------------------------------------------------

def rasterize(svg, width, height):
    """PNG bytes of the SVG text, stretched to width x height."""
    command = ["rsvg-convert", "-w", str(width), "-h", str(height), "-f", "png"]
    done = subprocess.run(command, input=svg.encode(), capture_output=True)
    if done.returncode:
        raise ArtError("rsvg-convert: " + done.stderr.decode(errors="replace").strip())
    return done.stdout


def read_png(data):
    """Width, height and RGBA rows of an 8-bit PNG without interlacing, which is what rsvg-convert writes."""
    position, packed = 8, b""
    while position < len(data):
        length, kind = struct.unpack(">I4s", data[position:position + 8])
        body = data[position + 8:position + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
        position += length + 12
    if depth != 8 or colour not in (2, 6) or interlace:
        raise ArtError("an unexpected kind of PNG")
    step = 4 if colour == 6 else 3
    raw, rows, above = zlib.decompress(packed), [], bytearray(width * step)
    for y in range(height):
        start = y * (width * step + 1)
        row = bytearray(raw[start + 1:start + 1 + width * step])
        unfilter(raw[start], row, above, step)
        above = row
        rows.append(row if step == 4 else with_alpha(row))
    return width, height, rows


def unfilter(method, row, above, step):
    """Undoes one row's PNG filter in place."""
    if method == 1:
        for i in range(step, len(row)):
            row[i] = (row[i] + row[i - step]) & 255
    elif method == 2:
        for i, up in enumerate(above):
            row[i] = (row[i] + up) & 255
    elif method == 3:
        for i in range(len(row)):
            left = row[i - step] if i >= step else 0
            row[i] = (row[i] + (left + above[i]) // 2) & 255
    elif method == 4:
        for i in range(len(row)):
            a = row[i - step] if i >= step else 0
            b = above[i]
            c = above[i - step] if i >= step else 0
            guess = a + b - c
            pa, pb, pc = abs(guess - a), abs(guess - b), abs(guess - c)
            row[i] = (row[i] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255


def with_alpha(row):
    full = bytearray(len(row) // 3 * 4)
    full[0::4], full[1::4], full[2::4] = row[0::3], row[1::3], row[2::3]
    full[3::4] = b"\xff" * (len(row) // 3)
    return full


def opaque_rows(svg, width, height):
    """RGB rows of a drawing that fills its rectangle; what it leaves open is white."""
    rows = []
    for rgba in read_png(rasterize(svg, width, height))[2]:
        rgb = bytearray(width * 3)
        for x in range(width):
            alpha = rgba[4 * x + 3]
            for i in range(3):
                rgb[3 * x + i] = (rgba[4 * x + i] * alpha + 255 * (255 - alpha) + 127) // 255
        rows.append(rgb)
    return rows


def sprite_rows(svg, width, height):
    """RGB rows, 2 * width wide: the image with black where it is open, then its mask."""
    n = SUPERSAMPLE
    fine = read_png(rasterize(svg, width * n, height * n))[2]
    rows = []
    for y in range(height):
        image, mask = bytearray(width * 3), bytearray(b"\xff" * (width * 3))
        for x in range(width):
            red = green = blue = cover = 0
            for row in fine[y * n:y * n + n]:
                for i in range(4 * x * n, 4 * (x + 1) * n, 4):
                    alpha = row[i + 3]
                    if alpha:
                        red += row[i] * alpha
                        green += row[i + 1] * alpha
                        blue += row[i + 2] * alpha
                        cover += alpha
            if 2 * cover >= 255 * n * n:
                half = cover // 2
                image[3 * x:3 * x + 3] = bytes(((red + half) // cover, (green + half) // cover,
                                                (blue + half) // cover))
                mask[3 * x:3 * x + 3] = b"\0\0\0"
        rows.append(image + mask)
    return rows


def turned(svg, degrees):
    """The drawing turned counter-clockwise about its middle."""
    inner = re.sub(r"^\s*(<\?xml.*?\?>)?\s*(<!DOCTYPE[^>]*>)?\s*", "", svg, flags=re.S)
    head = re.match(r"<svg\b[^>]*>", inner)
    box = head and re.search(r'viewBox="([^"]*)"', head.group(0))
    if not box:
        raise ArtError("a drawing to be turned needs a viewBox in its first element")
    left, top, width, height = (float(word) for word in re.split(r"[\s,]+", box.group(1).strip()))
    plain = re.sub(r'\s(width|height|x|y|overflow)="[^"]*"', "", head.group(0))
    inner = (plain.replace("<svg", f'<svg x="{left:g}" y="{top:g}" width="{width:g}" height="{height:g}" '
                           'overflow="visible"', 1) + inner[head.end():])
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{left:g} {top:g} {width:g} {height:g}">'
            f'<g transform="rotate({-degrees:g} {left + width / 2:g} {top + height / 2:g})">{inner}</g></svg>')


# ---- files ----------------------------------------------------------------------------------------------

def bitmap(rows):
    """A 24-bit uncompressed BMP of RGB rows, the top row first."""
    width, padding = len(rows[0]) // 3, b"\0" * (-len(rows[0]) % 4)
    body = bytearray()
    for row in reversed(rows):
        swapped = bytearray(len(row))
        swapped[0::3], swapped[1::3], swapped[2::3] = row[2::3], row[1::3], row[0::3]
        body += swapped + padding
    return (struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54) +
            struct.pack("<IiiHHIIiiII", 40, width, len(rows), 1, 24, 0, len(body), 2835, 2835, 0, 0) + body)


def converted(rows, kind, settings):
    """A JPEG or GIF of RGB rows, written by ImageMagick."""
    command = ["convert", "bmp:-", "-strip", *settings, kind + ":-"]
    done = subprocess.run(command, input=bytes(bitmap(rows)), capture_output=True)
    if done.returncode:
        raise ArtError("convert: " + done.stderr.decode(errors="replace").strip())
    return done.stdout


def picture_file(svg, name, size, output):
    rows, extension = opaque_rows(svg, *size), os.path.splitext(name)[1].lower()
    if extension == ".bmp":
        return bytes(bitmap(rows))
    if extension == ".gif":
        return converted(rows, "gif", ["-colors", str(min(256, output.get("colors", 256)))])
    if extension in (".jpg", ".jpeg"):
        return converted(rows, "jpeg", ["-sampling-factor", "1x1", "-quality", str(output.get("quality", 92))])
    raise ArtError(f"{name}: a picture is a .bmp, .gif or .jpg")


def write_if_new(path, data):
    """Writes the file unless it already holds just this; tells whether it wrote."""
    try:
        with open(path, "rb") as file:
            if file.read() == data:
                return False
    except FileNotFoundError:
        os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)
    return True


# ---- manifests ------------------------------------------------------------------------------------------

class Manifest:
    def __init__(self, path):
        self.path, self.folder = path, os.path.dirname(os.path.abspath(path))
        with open(path, encoding="utf-8") as file:
            self.words = json.load(file)
        self.module = self.load_module(self.words.get("module"))

    def load_module(self, name):
        if not name:
            return None
        for folder in (self.folder, os.path.dirname(os.path.abspath(__file__))):
            if folder not in sys.path:
                sys.path.append(folder)
        place = importlib.util.spec_from_file_location(
            re.sub(r"\W", "_", os.path.basename(self.folder)) + "_art", os.path.join(self.folder, name))
        module = importlib.util.module_from_spec(place)
        place.loader.exec_module(module)
        return module

    def drawing(self, source):
        """SVG text of a file name or of a call like coin(3, "red")."""
        if source.endswith(".svg"):
            with open(os.path.join(self.folder, source), encoding="utf-8") as file:
                return file.read()
        call = ast.parse(source, mode="eval").body
        plain = isinstance(call, ast.Name)
        function = getattr(self.module, call.id if plain else call.func.id, None)
        if function is None:
            raise ArtError(f"there is no drawing named {source}")
        return function() if plain else function(*[ast.literal_eval(word) for word in call.args])

    def files(self, output):
        """Yields file name and bytes of one output."""
        if "sprite" in output:
            yield from self.sprite_files(output)
        elif "file" in output:
            data = self.drawing(output["from"])
            yield output["file"], data.encode() if isinstance(data, str) else bytes(data)
        elif "png" in output:
            yield output["png"], rasterize(self.drawing(output["svg"]), *output["size"])
        else:
            name = output.get("picture") or output["icon"]
            size = output["size"] if "picture" in output else ICON_SIZE
            yield name, picture_file(self.drawing(output["svg"]), name, size, output)

    def sprite_files(self, output):
        name, kind, (width, height) = output["sprite"], output.get("kind", "Simple"), output["size"]
        frames = [self.drawing(source) for source in output["frames"]]
        if kind not in KINDS or not frames:
            raise ArtError(f"{name}: a sprite is Simple, Animated or Rotating and has a frame")
        if "rotate" in output:
            turns = output["rotate"]
            frames = [turned(frames[0], 360 * k / turns) for k in range(turns)]
        text = output.get("text", f"{name}, a Zorbino sprite")
        yield name + ".spr", f"{text}\r\n{kind},{width},{height},{len(frames)}\r\n".encode()
        yield name + ".spb", bytes(bitmap([row for svg in frames for row in sprite_rows(svg, width, height)]))

    def write(self):
        """Writes every output that changed and returns how many files that were."""
        count = 0
        for output in self.words["outputs"]:
            target = output.get("target", self.words.get("target", "."))
            for name, data in self.files(output):
                path = os.path.normpath(os.path.join(self.folder, target, name))
                if write_if_new(path, data):
                    print("wrote", os.path.relpath(path))
                    count += 1
        return count


def main(arguments):
    if arguments and arguments[0] in ("-h", "--help"):
        print(__doc__.strip())
        return 0
    sys.dont_write_bytecode = True
    if not shutil.which("rsvg-convert"):
        print("zbart needs rsvg-convert (on Debian: apt install librsvg2-bin)", file=sys.stderr)
        return 1
    here = os.path.dirname(os.path.abspath(__file__))
    for path in arguments or sorted(glob.glob(os.path.join(here, "*", "art.json"))):
        try:
            Manifest(path).write()
        except (ArtError, OSError, KeyError, ValueError, SyntaxError, TypeError) as problem:
            print(f"{path}: {type(problem).__name__}: {problem}", file=sys.stderr)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
