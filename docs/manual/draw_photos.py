#!/usr/bin/env python3
"""Draws the photos that the screenshots of the manual show: landscapes of shapes and light, 1600 x 1200, the same at each run.

draw_photos.py FOLDER    writes IMG_0411.JPG and so on, each with a date of its own. Needs rsvg-convert and convert."""

import datetime
import math
import multiprocessing
import os
import random
import subprocess
import sys
from pathlib import Path

WIDTH, HEIGHT = 1600, 1200


def stops(colours):
    step = 1 / (len(colours) - 1)
    return "".join(f'<stop offset="{i * step:.3f}" stop-color="{colour}"/>' for i, colour in enumerate(colours))


class Scene:
    """An SVG that grows from the back to the front."""

    def __init__(self, seed, width=WIDTH, height=HEIGHT):
        self.random = random.Random(seed)
        self.width, self.height = width, height
        self.shapes, self.definitions = [], []

    def gradient(self, colours, radial=False):
        name = f"g{len(self.definitions)}"
        kind, ends = ("radialGradient", "") if radial else ("linearGradient", ' x1="0" y1="0" x2="0" y2="1"')
        self.definitions.append(f'<{kind} id="{name}"{ends}>{stops(colours)}</{kind}>')
        return f"url(#{name})"

    def blur(self, amount):
        name = f"b{len(self.definitions)}"
        self.definitions.append(f'<filter id="{name}" x="-50%" y="-50%" width="200%" height="200%">'
                                f'<feGaussianBlur stdDeviation="{amount}"/></filter>')
        return f'filter="url(#{name})"'

    def add(self, shape):
        self.shapes.append(shape)

    def box(self, left, top, width, height, fill, more=""):
        self.add(f'<rect x="{left:.1f}" y="{top:.1f}" width="{width:.1f}" height="{height:.1f}" fill="{fill}" {more}/>')

    def disc(self, x, y, across, fill, high=None, more=""):
        self.add(f'<ellipse cx="{x:.1f}" cy="{y:.1f}" rx="{across:.1f}" ry="{across if high is None else high:.1f}" '
                 f'fill="{fill}" {more}/>')

    def outline(self, points, fill, more=""):
        self.add(f'<polygon points="{" ".join(f"{x:.1f},{y:.1f}" for x, y in points)}" fill="{fill}" {more}/>')

    def sky(self, colours, horizon=1.0):
        self.box(0, 0, self.width, self.height * horizon + 2, self.gradient(colours))

    def sun(self, x, y, across, colour, glow):
        name = f"g{len(self.definitions)}"
        self.definitions.append(f'<radialGradient id="{name}"><stop offset="0" stop-color="{glow}" stop-opacity=".9"/>'
                                f'<stop offset="1" stop-color="{glow}" stop-opacity="0"/></radialGradient>')
        self.disc(x, y, across * 7, f"url(#{name})")
        self.disc(x, y, across, colour, more=self.blur(3))

    def clouds(self, count, top, bottom, colour="#ffffff", opacity=.75):
        soft = self.blur(16)
        for _ in range(count):
            x, y = self.random.uniform(0, self.width), self.random.uniform(top, bottom)
            size = self.random.uniform(50, 110)
            puffs = "".join(f'<ellipse cx="{x + self.random.uniform(-2, 2) * size:.0f}" cy="{y - self.random.uniform(0, .6) * size:.0f}" '
                            f'rx="{self.random.uniform(.6, 1.2) * size:.0f}" ry="{self.random.uniform(.3, .6) * size:.0f}"/>'
                            for _ in range(9))
            self.add(f'<g fill="{colour}" opacity="{opacity}" {soft}>{puffs}</g>')

    def ridge(self, base, rough, fill, steps=7, more=""):
        """A line of hills or peaks across the picture, filled to its foot."""
        heights = [self.random.uniform(-1, 1) * rough for _ in range(3)]
        size = rough
        for _ in range(steps):
            size *= .52
            between = [(a + b) / 2 + self.random.uniform(-1, 1) * size for a, b in zip(heights, heights[1:])]
            heights = [h for pair in zip(heights, between) for h in pair] + heights[-1:]
        step = self.width / (len(heights) - 1)
        line = [(i * step, base + h) for i, h in enumerate(heights)]
        self.outline([(0, self.height), *line, (self.width, self.height)], fill, more)
        return line

    def ripples(self, top, colour, count, middle=None):
        for _ in range(count):
            y = top + (self.height - top) * self.random.random() ** 1.6
            near = (y - top) / (self.height - top)
            x = self.random.uniform(0, self.width) if middle is None else self.random.gauss(middle, 60 + 260 * near)
            self.disc(x, y, 14 + 70 * near, colour, 1 + 3 * near, f'opacity="{self.random.uniform(.2, .7):.2f}"')

    def pine(self, x, foot, high, fill, snow=None):
        for part in range(5):
            y, wide = foot - high * (.1 + .17 * part), high * (.26 - .042 * part)
            self.outline([(x - wide, y), (x, y - high * .3), (x + wide, y)], fill)
            if snow:
                self.outline([(x - wide * .7, y - high * .07), (x, y - high * .3), (x + wide * .7, y - high * .07),
                              (x, y - high * .13)], snow)
        self.box(x - high * .02, foot - high * .1, high * .04, high * .1, "#4a3626")

    def write(self, path, date, number):
        # What an SVG file is known by; nothing is looked up there.
        svg = (f'<svg xmlns="http:' f'//www.w3.org/2000/svg" viewBox="0 0 {self.width} {self.height}"><defs>{"".join(self.definitions)}'
               f'</defs>{"".join(self.shapes)}</svg>')
        drawn = subprocess.run(["rsvg-convert", "-w", str(self.width), "-h", str(self.height)], input=svg.encode(),
                               stdout=subprocess.PIPE, check=True).stdout
        subprocess.run(["convert", "png:-", "-seed", str(number), "-attenuate", ".08", "+noise", "Gaussian", "-modulate", "100,108",
                        "-quality", "88", str(path)], input=drawn, check=True)
        os.utime(path, (date.timestamp(), date.timestamp()))


def mountains(s, sky, far, near, sun=None, lake=None):
    s.sky(sky)
    if sun:
        s.sun(*sun)
    def mixed(part):
        a, b = ([int(c[i:i + 2], 16) for i in (1, 3, 5)] for c in (far, near))
        return "#" + "".join(f"{round(x + (y - x) * part):02x}" for x, y in zip(a, b))
    for i in range(5):
        s.ridge(s.height * (.42 + .11 * i), 190 - 28 * i, s.gradient([mixed(i / 4), mixed(max(0, i / 4 - .22)), mixed(i / 4)]),
                more=s.blur(1.2))
    if lake:
        top = s.height * .8
        s.box(0, top, s.width, s.height, s.gradient(lake))
        s.ripples(top, "#ffffff", 90, sun[0] if sun else None)


def sea(s, sky, water, sun=None, sand=None, sails=0):
    horizon = s.height * .52
    s.sky(sky, .52)
    if sun:
        s.sun(*sun)
    s.clouds(5, 120, 420, opacity=.55)
    s.box(0, horizon, s.width, s.height, s.gradient(water))
    s.ripples(horizon, "#ffffff", 160, sun[0] if sun else None)
    for i in range(sails):
        x, y, size = s.width * (.25 + .3 * i) + s.random.uniform(-60, 60), horizon + 70 + 60 * i, 150 + 70 * i
        s.outline([(x, y - size * 1.5), (x, y), (x + size * .7, y)], "#fbf7ee")
        s.outline([(x - 8, y - size * 1.35), (x - 8, y), (x - size * .5, y)], s.random.choice(["#d8432f", "#f0b23a", "#3a7bbf"]))
        s.outline([(x - size * .6, y + 8), (x + size * .75, y + 8), (x + size * .5, y + size * .2), (x - size * .4, y + size * .2)],
                  "#5b3a25")
    if sand:
        edge = [(s.width * i / 24, s.height * .84 + 26 * math.sin(i * .55) - 9 * i) for i in range(25)]
        s.outline([(0, s.height), *[(x, y - 26) for x, y in edge], (s.width, s.height)], "#ffffff", 'opacity=".8" ' + s.blur(7))
        s.outline([(0, s.height), *edge, (s.width, s.height)], s.gradient(sand))


def balloons(s, sky, hills):
    s.sky(sky)
    s.clouds(7, 150, 700, opacity=.6)
    for i, colour in enumerate(hills):
        s.ridge(s.height * (.84 + .06 * i), 60, colour, more=s.blur(1.5))
    for x, y, size, colours in [(430, 420, 190, ("#d9382e", "#f6c544")), (1080, 300, 130, ("#2f6fb5", "#f4f1e6")),
                                (1330, 620, 84, ("#7c3f98", "#f29a38")), (820, 690, 62, ("#2c9a63", "#f6e36a"))]:
        for i in range(7):
            s.disc(x, y, size * (1 - i / 7), colours[i % 2], size * 1.12)
        s.outline([(x - size * .62, y + size * .92), (x + size * .62, y + size * .92), (x + size * .16, y + size * 1.5),
                   (x - size * .16, y + size * 1.5)], colours[0])
        s.box(x - size * .15, y + size * 1.56, size * .3, size * .22, "#6b4526")
        s.disc(x - size * .35, y - size * .4, size * .3, "#ffffff", more='opacity=".25" ' + s.blur(18))


def meadow(s, sky, hills, flowers):
    s.sky(sky)
    s.clouds(6, 150, 480)
    for i, colour in enumerate(hills):
        s.ridge(s.height * (.5 + .13 * i), 90 - 20 * i, colour, 5, s.blur(2))
    s.box(1196, 540, 34, 190, "#5a3d27")
    for _ in range(60):
        s.disc(1213 + s.random.gauss(0, 80), 470 + s.random.gauss(0, 62), s.random.uniform(24, 46),
               s.random.choice(["#2f6b2c", "#3d7f34", "#4c9440", "#275a28"]))
    for _ in range(1300):
        near = s.random.random() ** .7
        s.disc(s.random.uniform(0, s.width), s.height * (.76 + .26 * near), 2 + 9 * near, s.random.choice(flowers),
               more=f'opacity="{.6 + .4 * s.random.random():.2f}"')


def tulips(s):
    s.sky(["#4b8fd0", "#bfe0f2", "#f5efd9"])
    s.clouds(7, 130, 440)
    s.box(0, 610, s.width, s.height, "#3c7a34")
    colours = ["#e0342f", "#f6c22e", "#e979b0", "#f4f0ea", "#8c3fa0", "#f2762e"]
    for i in range(-9, 9):
        a, b = 820 + i * 22, 820 + i * 330
        s.outline([(a, 612), (a + 16, 612), (b + 240, s.height), (b, s.height)], colours[i % 6])
    for _ in range(1500):
        near = s.random.random() ** .6
        s.disc(s.random.uniform(0, s.width), 616 + 590 * near, 1 + 10 * near, "#1f5126", 2 + 4 * near, 'opacity=".35"')
    x = 1180
    s.outline([(x - 62, 640), (x - 40, 410), (x + 40, 410), (x + 62, 640)], "#7a4a34")
    s.outline([(x - 48, 412), (x, 350), (x + 48, 412)], "#4d3022")
    for turn in (20, 110, 200, 290):
        s.add(f'<g transform="translate({x} 400) rotate({turn})"><rect x="-3" y="-190" width="6" height="190" fill="#3a281d"/>'
              f'<rect x="3" y="-186" width="34" height="150" fill="#efe6d2" opacity=".92"/></g>')


def forest(s, fog, trunk, leaves, ground):
    s.sky(fog)
    for layer in range(4):
        for _ in range(9 + layer):
            x, wide = s.random.uniform(0, s.width), 12 + 20 * layer
            s.box(x, -10, wide, s.height * (.68 + .08 * layer), trunk[layer], s.blur(3.5 - layer) if layer < 3 else "")
        s.box(0, 0, s.width, s.height, fog[-1], f'opacity="{.32 - .1 * layer:.2f}"')
    soft = s.blur(4)
    for _ in range(420):
        s.disc(s.random.uniform(0, s.width), abs(s.random.gauss(0, 260)), s.random.uniform(12, 44), s.random.choice(leaves),
               more=f'opacity=".55" {soft if s.random.random() < .4 else ""}')
    s.box(0, s.height * .84, s.width, s.height * .2, s.gradient(ground), s.blur(10))
    for _ in range(700):
        s.disc(s.random.uniform(0, s.width), s.height * s.random.uniform(.84, 1), s.random.uniform(4, 14), s.random.choice(leaves), 4)


def night(s):
    s.sky(["#050b24", "#14295a", "#4a5f93"])
    for _ in range(420):
        s.disc(s.random.uniform(0, s.width), s.random.uniform(0, 760), s.random.uniform(.7, 2.6), "#fff8e0",
               more=f'opacity="{s.random.uniform(.3, 1):.2f}"')
    s.sun(1180, 270, 74, "#fff6dc", "#c9d6ff")
    for i, colour in enumerate(["#26386a", "#182750", "#0d1836"]):
        s.ridge(760 + 70 * i, 150 - 40 * i, colour)
    s.box(0, 960, s.width, 240, s.gradient(["#1d3266", "#0a1430"]))
    s.ripples(962, "#dfe6ff", 110, 1180)


def city(s, sky, walls, windows):
    s.sky(sky)
    s.clouds(4, 160, 420, "#ffd9c0", .4)
    for layer in range(3):
        x = -30
        while x < s.width:
            wide, high = s.random.uniform(70, 150), s.random.uniform(180, 560) - 70 * layer
            s.box(x, 900 - high, wide, high, walls[layer])
            if layer:
                for row in range(int(high / 30) - 1):
                    for column in range(int(wide / 24) - 1):
                        if s.random.random() < .42:
                            s.box(x + 12 + 24 * column, 914 - high + 30 * row, 11, 15, s.random.choice(windows))
            x += wide + s.random.uniform(0, 30)
    s.box(0, 898, s.width, 302, s.gradient([walls[1], walls[2]]))
    for _ in range(260):
        s.disc(s.random.uniform(0, s.width), s.random.uniform(905, 1195), s.random.uniform(10, 46), s.random.choice(windows), 2,
               'opacity=".45"')


def blossom(s, ground, petals, heart, count=13):
    s.sky(ground)
    soft = s.blur(26)
    for _ in range(46):
        s.disc(s.random.uniform(0, s.width), s.random.uniform(0, s.height), s.random.uniform(30, 120),
               s.random.choice(ground + ["#f4f7d2"]), more=f'opacity=".4" {soft}')
    x, y = s.width * .52, s.height * .5
    s.outline([(x - 14, y), (x + 14, y), (x + 90, s.height), (x + 40, s.height)], "#3f7a33")
    for ring, size in ((0, 1), (1, .8)):
        for i in range(count):
            turn = 360 * i / count + ring * 180 / count
            fill = s.gradient([petals[ring], petals[-1]])
            s.add(f'<g transform="translate({x} {y}) rotate({turn:.1f})"><ellipse cx="0" cy="{-250 * size}" rx="{76 * size}" '
                  f'ry="{190 * size}" fill="{fill}" stroke="{petals[ring]}" stroke-opacity=".35" stroke-width="3"/></g>')
    s.disc(x, y, 108, heart[0])
    for _ in range(340):
        far, turn = 104 * s.random.random() ** .5, s.random.uniform(0, 6.29)
        s.disc(x + far * math.cos(turn), y + far * math.sin(turn), 6, s.random.choice(heart))


def lighthouse(s, sky, water):
    sea(s, sky, water)
    s.outline([(1600, 1200), (1600, 560), (1480, 590), (1330, 570), (1180, 640), (1080, 760), (980, 900), (860, 1200)],
              s.gradient(["#6d8a4a", "#5b5347", "#3c3631"]))
    s.outline([(1290, 620), (1312, 270), (1388, 270), (1410, 620)], "#f7f2e8")
    for i in range(3):
        s.outline([(1295 + 7 * i, 545 - 110 * i), (1299 + 7 * i, 490 - 110 * i), (1401 - 7 * i, 490 - 110 * i),
                   (1405 - 7 * i, 545 - 110 * i)], "#c9382c")
    s.box(1318, 212, 64, 58, "#f8d872")
    s.outline([(1306, 214), (1350, 158), (1394, 214)], "#a52a22")
    s.box(1300, 266, 100, 12, "#33302c")


def cabin(s, sky):
    s.sky(sky)
    for i, colour in enumerate(["#a9bdd6", "#c8d6e6"]):
        s.ridge(600 + 90 * i, 150 - 40 * i, colour, more=s.blur(2))
    s.ridge(830, 40, s.gradient(["#f4f8fd", "#d2deee"]), 4)
    for x, high in ((140, 480), (300, 360), (470, 430), (1240, 420), (1390, 520), (1530, 380)):
        s.pine(x, 900 + s.random.uniform(-20, 40), high, "#2b4a44", "#f2f7fc")
    s.box(680, 720, 380, 200, "#7a4b2c")
    for i in range(6):
        s.box(680, 748 + 30 * i, 380, 4, "#5a3620")
    s.outline([(630, 730), (760, 590), (980, 590), (1110, 730)], "#f7fafd")
    s.sun(780, 830, 8, "#ffd36b", "#ffcf70")
    s.box(740, 790, 84, 74, "#ffd66e")
    s.box(780, 790, 4, 74, "#5a3620")
    s.box(900, 780, 84, 140, "#4a2c1a")
    for _ in range(260):
        s.disc(s.random.uniform(0, s.width), s.random.uniform(0, s.height), s.random.uniform(2, 6), "#ffffff", more='opacity=".8"')


def dunes(s):
    s.sky(["#3a7cc0", "#a7d0ea", "#fbe6c4"])
    s.sun(320, 260, 60, "#fffbe6", "#fff2c2")
    for i in range(5):
        light, shade = ["#f0c890", "#e8b373", "#dd9c58", "#cf8546", "#b96e37"][i], ["#d9a468", "#cc8f52", "#b97a41", "#a4652f", "#8a5125"][i]
        line = s.ridge(560 + 120 * i, 90, light, 3)
        top = min(line, key=lambda point: point[1])
        s.outline([top, (top[0] + 520, s.height), (top[0] - 60, s.height)], shade, 'opacity=".55" ' + s.blur(8))


SCENES = [
    lambda s: mountains(s, ["#3f7fc4", "#9ccbe8", "#f3ead2"], "#a9c0d6", "#27432f", None, ["#9cc4d8", "#3d6c86"]),
    lambda s: sea(s, ["#2f7fce", "#bfe4f4"], ["#3aa0b8", "#12607f"], None, ["#f3dfb4", "#d9b777"], 2),
    lambda s: balloons(s, ["#3b86d2", "#a9d8f2", "#fdf1d4"], ["#7fa86a", "#4d7f45", "#2f5b34"]),
    lambda s: blossom(s, ["#274d2a", "#4a7d3a", "#8fb45a"], ["#ffffff", "#f2f0f6", "#dcd6e6"], ["#f2b632", "#d98f1f", "#f8d264"]),
    lambda s: mountains(s, ["#2b2455", "#a6486b", "#f59a52", "#ffe0a0"], "#8a5a78", "#1d1630", (1050, 560, 52, "#fff3cf", "#ffbf6b"),
                        ["#e5925c", "#3a2346"]),
    lambda s: meadow(s, ["#4792d8", "#d4ecf7"], ["#8db86c", "#6aa24f", "#4f8a3d"], ["#e33b36", "#f6d23f", "#ffffff", "#6f57b5"]),
    lambda s: lighthouse(s, ["#3f88cf", "#cfe7f3"], ["#3f8fae", "#174f70"]),
    lambda s: forest(s, ["#dfe8d8", "#c3d5b4", "#e9efd9"], ["#b9c4ad", "#8f9c82", "#5f6b52", "#2f3626"],
                     ["#6fa34a", "#8cbd59", "#4c8438", "#b8d672"], ["#7f9c55", "#465f2e"]),
    lambda s: city(s, ["#20244f", "#7a4a7e", "#f0955e", "#ffd79a"], ["#6a4f78", "#3d3358", "#1c1a33"], ["#ffd77a", "#ffe9b5", "#ffb45c"]),
    lambda s: tulips(s),
    lambda s: night(s),
    lambda s: blossom(s, ["#3a2230", "#6d3a52", "#a8657f"], ["#f26a9b", "#e8447f", "#ffc2d6"], ["#f7d34c", "#e8a92e", "#fff0a8"], 9),
    lambda s: cabin(s, ["#7f9fcb", "#c6d8ec", "#f6e4dd"]),
    lambda s: dunes(s),
    lambda s: sea(s, ["#30285c", "#c0567a", "#ffb067", "#ffe3a8"], ["#d9825f", "#3b2a55"], (560, 560, 60, "#fff6d8", "#ffc879")),
    lambda s: forest(s, ["#f6e3bd", "#efcf92", "#f9ecc9"], ["#d3b58c", "#a5825b", "#6f5138", "#382619"],
                     ["#e0812b", "#c9521f", "#f2b13a", "#a83a1c"], ["#c9732b", "#7c4218"]),
    lambda s: mountains(s, ["#5d7f9f", "#b8cad6", "#eef2f2"], "#c6d3dc", "#3d5568"),
    lambda s: balloons(s, ["#403a78", "#c77a94", "#ffd49a"], ["#6a5a78", "#463c5c", "#2a2440"]),
    lambda s: blossom(s, ["#2f4a6b", "#5d86a8", "#a9c9d8"], ["#f7c02e", "#ee9f1f", "#ffe27a"], ["#5a371c", "#7b4d26", "#3c2412"], 17),
    lambda s: sea(s, ["#58a5de", "#e2f3f7"], ["#5ccbc4", "#1b86a3"], (1260, 210, 48, "#fffdf0", "#fff3c4"), None, 3),
    lambda s: meadow(s, ["#6aa6dc", "#f7ead2"], ["#c8c070", "#b4a850", "#97903c"], ["#b33fa0", "#ffffff", "#f2a53a", "#7d4ac0"]),
    lambda s: city(s, ["#5ba2dc", "#cfe6f2", "#fbf3e2"], ["#b7c2cf", "#8f9bab", "#5d6878"], ["#e9f2f9", "#cfe0ee", "#7f94ab"]),
    lambda s: lighthouse(s, ["#2a2f5e", "#a9587c", "#ffbf85"], ["#b4707a", "#2c2c52"]),
    lambda s: mountains(s, ["#2f6fb8", "#87bfe6", "#e6f1f2"], "#dbe6f0", "#5c7f4a", (300, 220, 46, "#fffdf0", "#fff6cf")),
]
# The camera was held upright for these, counted from 0.
UPRIGHT = {11, 16}


def draw(folder, number):
    sheet = Scene(number, *((HEIGHT, WIDTH) if number - 1 in UPRIGHT else (WIDTH, HEIGHT)))
    SCENES[number - 1](sheet)
    taken = datetime.datetime(2026, 6, 3 + number // 4, 9 + number % 4 * 2, 7 * number % 60, tzinfo=datetime.timezone.utc)
    sheet.write(folder / f"IMG_{410 + number:04}.JPG", taken, number)


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    with multiprocessing.Pool() as pool:
        pool.starmap(draw, [(folder, number) for number in range(1, len(SCENES) + 1)])


if __name__ == "__main__":
    main()
