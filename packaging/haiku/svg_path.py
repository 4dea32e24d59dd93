"""Reads the data of an SVG path: moves, lines, cubic curves and arcs, absolute or relative."""

import math
import re
from dataclasses import dataclass

# How many numbers a command takes.
COUNTS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "A": 7, "Z": 0}
NUMBER = re.compile(r"[\s,]*([-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?)")
FLAG = re.compile(r"[\s,]*([01])")


class SvgError(Exception):
    """Says what the picture has that cannot be read."""


@dataclass
class Outline:
    """One subpath. A vertex is its point, the control point before it and the one behind it, all absolute."""

    vertices: list
    closed: bool


def read_path(data):
    """The outlines of a path. One that is closed has no second vertex where it began."""
    reader = _PathReader()
    position, command = 0, None
    while data[position:].strip():
        found = re.compile(r"\s*([A-Za-z])").match(data, position)
        if found is not None:
            command, position = found[1], found.end()
        elif command is None or command in "Zz":
            raise SvgError(f'has a path "{data}"')
        if command.upper() not in COUNTS:
            raise SvgError(f"has a path with the command {command}")
        values = []
        for index in range(COUNTS[command.upper()]):
            found = (FLAG if command in "Aa" and index in (3, 4) else NUMBER).match(data, position)
            if found is None:
                raise SvgError(f'has a path "{data}"')
            values.append(float(found[1]))
            position = found.end()
        reader.take(command, values)
        # More numbers behind those of a move are lines.
        command = {"M": "L", "m": "l"}.get(command, command)
    return reader.finished()


class _PathReader:
    def __init__(self):
        self.outlines, self.vertices = [], []
        self.start = self.point = (0, 0)

    def take(self, command, values):
        x, y = self.point if command.islower() else (0, 0)
        name = command.upper()
        if name == "M":
            self.end(closed=False)
            self.start = self.point = (x + values[0], y + values[1])
            return
        if name == "Z":
            self.end(closed=True)
            self.point = self.start
            return
        if not self.vertices:
            self.vertices = [(self.point,) * 3]
        if name == "C":
            points = [(x + values[i], y + values[i + 1]) for i in (0, 2, 4)]
            self.curve(*points)
        elif name == "A":
            self.arc(abs(values[0]), abs(values[1]), math.radians(values[2]), values[3] != 0, values[4] != 0,
                (x + values[5], y + values[6]))
        elif name == "H":
            self.line((x + values[0], self.point[1]))
        elif name == "V":
            self.line((self.point[0], y + values[0]))
        else:
            self.line((x + values[0], y + values[1]))

    def line(self, end):
        self.vertices.append((end,) * 3)
        self.point = end

    def curve(self, first, second, end):
        place, before, _ = self.vertices[-1]
        self.vertices[-1] = (place, before, first)
        self.vertices.append((end, second, end))
        self.point = end

    def arc(self, rx, ry, tilt, large, clockwise, end):
        """As SVG describes it: from the two ends to the center, then quarters at most, each a curve."""
        (x1, y1), (x2, y2) = self.point, end
        if rx == 0 or ry == 0 or (x1, y1) == (x2, y2):
            raise SvgError("has an arc without a radius or a length")
        cosine, sine = math.cos(tilt), math.sin(tilt)
        dx, dy = (x1 - x2) / 2, (y1 - y2) / 2
        u, v = (cosine * dx + sine * dy) / rx, (cosine * dy - sine * dx) / ry
        reach = u * u + v * v
        if reach > 1:
            rx, ry, u, v, reach = rx * math.sqrt(reach), ry * math.sqrt(reach), u / math.sqrt(reach), v / math.sqrt(reach), 1
        factor = math.sqrt((1 - reach) / reach) * (-1 if large == clockwise else 1)
        # The center and the ends on a circle of radius 1.
        center = (factor * v, -factor * u)
        begin = math.atan2(v - center[1], u - center[0])
        sweep = math.atan2(-v - center[1], -u - center[0]) - begin
        sweep = sweep % (2 * math.pi) - (0 if clockwise else 2 * math.pi)

        def place(px, py):
            px, py = (px + center[0]) * rx, (py + center[1]) * ry
            return (cosine * px - sine * py + (x1 + x2) / 2, sine * px + cosine * py + (y1 + y2) / 2)

        count = math.ceil(abs(sweep) / (math.pi / 2) - 1e-9)
        step = sweep / count
        reach = 4 / 3 * math.tan(step / 4)
        for index in range(count):
            a, b = begin + index * step, begin + (index + 1) * step
            self.curve(place(math.cos(a) - reach * math.sin(a), math.sin(a) + reach * math.cos(a)),
                place(math.cos(b) + reach * math.sin(b), math.sin(b) - reach * math.cos(b)),
                end if index == count - 1 else place(math.cos(b), math.sin(b)))

    def end(self, closed):
        if self.vertices:
            vertices = joined(self.vertices) if closed else self.vertices
            self.outlines.append(Outline(vertices, closed))
        self.vertices = []

    def finished(self):
        self.end(closed=False)
        return self.outlines


def joined(vertices):
    """Vertices that follow upon one another at the same place become one; the last and the first likewise."""
    result = []
    for vertex in vertices:
        if result and _same(result[-1][0], vertex[0]):
            result[-1] = (vertex[0], result[-1][1], vertex[2])
        else:
            result.append(vertex)
    if len(result) > 1 and _same(result[0][0], result[-1][0]):
        last = result.pop()
        result[0] = (result[0][0], last[1], result[0][2])
    return result


def _same(one, other):
    return math.hypot(one[0] - other[0], one[1] - other[1]) < 1e-6
