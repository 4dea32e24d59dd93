"""Reads a small part of SVG: what a program's icon is drawn with. Whatever else a picture has is an error.

Shapes come out in the order in which they are painted, with all transformations applied, on a grid of 64 units.
"""

import math
import re
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass

from svg_path import joined, Outline, read_path, SvgError

GRID = 64
NAMESPACE = "{http://www.w3.org/2000/svg}"

PAINT = {"fill", "stroke", "stroke-width", "stroke-linecap", "stroke-linejoin", "stroke-miterlimit"}
GEOMETRY = {
    "path": {"d"},
    "rect": {"x", "y", "width", "height", "rx", "ry"},
    "circle": {"cx", "cy", "r"},
    "ellipse": {"cx", "cy", "rx", "ry"},
}
GRADIENTS = {"linearGradient": {"x1", "y1", "x2", "y2"}, "radialGradient": {"cx", "cy", "r"}}
INITIAL = {
    "fill": "#000000", "stroke": "none", "stroke-width": "1", "stroke-linecap": "butt", "stroke-linejoin": "miter",
    "stroke-miterlimit": "4",
}


@dataclass
class Stroke:
    width: float
    cap: str
    join: str
    miter_limit: float


@dataclass
class Gradient:
    """Colors at offsets from 0 to 1. The matrix puts a kind's own space on the grid: from -1 to 1 on the x-axis if it is linear, from the
    middle to the edge of the unit circle if it is radial.
    """

    kind: str
    matrix: tuple
    stops: list


@dataclass
class Shape:
    """What is painted at once: filled by non-zero winding if it has no stroke, else drawn along its outlines.
    The paint is a gradient or a color: red, green, blue and alpha, 0 to 255 each.
    """

    outlines: list
    paint: object
    stroke: Stroke = None


def read_svg(text):
    """The shapes of a square picture; the text is a whole document."""
    root = ElementTree.fromstring(text)
    if root.tag != NAMESPACE + "svg":
        raise SvgError("is no SVG")
    _expect(root, {"viewBox", "width", "height"})
    box = [_number(value) for value in root.get("viewBox", "").split()]
    if len(box) != 4 or box[2] <= 0 or box[2] != box[3]:
        raise SvgError("has no square viewBox")
    scale = GRID / box[2]
    gradients = {f"url(#{element.get('id')})": _gradient(element) for element in root.iter() if _name(element) in GRADIENTS}
    reader = _Reader(gradients)
    reader.read_children(root, INITIAL, (scale, 0, 0, scale, -box[0] * scale, -box[1] * scale))
    return reader.shapes


def _expect(element, attributes):
    for name in element.keys():
        if name not in attributes:
            raise SvgError(f"<{_name(element)}> has an attribute {name}")


def _name(element):
    return element.tag.removeprefix(NAMESPACE)


def _number(text):
    try:
        value = float(text)
    except ValueError:
        raise SvgError(f'"{text}" is no number') from None
    if not math.isfinite(value):
        raise SvgError(f'"{text}" is no number')
    return value


class _Reader:
    def __init__(self, gradients):
        self.gradients, self.shapes = gradients, []

    def read_children(self, parent, inherited, matrix):
        for element in parent:
            name = _name(element)
            if name == "title" or name in GRADIENTS:
                continue
            if name not in ("g", "defs") and name not in GEOMETRY or name in GEOMETRY and _name(parent) == "defs":
                raise SvgError(f"uses <{name}> in <{_name(parent)}>")
            _expect(element, PAINT | {"transform"} | GEOMETRY.get(name, set()))
            paint = {key: element.get(key, inherited[key]) for key in PAINT}
            own = _multiplied(matrix, _transform(element.get("transform", "")))
            if name in GEOMETRY:
                self.paint([_moved(outline, own) for outline in _outlines(element)], paint, own)
            else:
                self.read_children(element, paint, own)

    def paint(self, outlines, paint, matrix):
        if not outlines:
            raise SvgError("has a shape without an outline")
        if paint["fill"] != "none":
            filled = [Outline(outline.vertices, True) for outline in outlines]
            self.shapes.append(Shape(filled, self.resolved(paint["fill"], matrix)))
        if paint["stroke"] != "none":
            a, b, c, d, _, _ = matrix
            scale = math.hypot(a, b)
            if abs(a * c + b * d) > 1e-9 or abs(math.hypot(c, d) - scale) > 1e-9:
                raise SvgError("has a stroke that is not scaled evenly")
            stroke = Stroke(_number(paint["stroke-width"]) * scale, paint["stroke-linecap"], paint["stroke-linejoin"],
                _number(paint["stroke-miterlimit"]))
            self.shapes.append(Shape(outlines, self.resolved(paint["stroke"], matrix), stroke))

    def resolved(self, text, matrix):
        if text not in self.gradients:
            return _color(text)
        gradient = self.gradients[text]
        return Gradient(gradient.kind, _multiplied(matrix, gradient.matrix), gradient.stops)


def _gradient(element):
    """In the coordinates of what it paints."""
    name = _name(element)
    _expect(element, GRADIENTS[name] | {"id", "gradientUnits", "gradientTransform"})
    if element.get("gradientUnits") != "userSpaceOnUse":
        raise SvgError("has a gradient in other units than userSpaceOnUse")
    stops = []
    for stop in element:
        if _name(stop) != "stop":
            raise SvgError(f"uses <{_name(stop)}> in a gradient")
        _expect(stop, {"offset", "stop-color"})
        offset = _number(stop.get("offset", "0"))
        if not (stops[-1][0] if stops else 0) <= offset <= 1:
            raise SvgError("has a gradient whose stops are not in order from 0 to 1")
        stops.append((offset, _color(stop.get("stop-color", "#000000"))))
    if len(stops) < 2:
        raise SvgError("has a gradient of less than two stops")
    value = lambda key: _number(element.get(key, ""))
    if name == "linearGradient":
        x, y = (value("x1") + value("x2")) / 2, (value("y1") + value("y2")) / 2
        own = (value("x2") - x, value("y2") - y, y - value("y2"), value("x2") - x, x, y)
    else:
        own = (value("r"), 0, 0, value("r"), value("cx"), value("cy"))
    if own[:2] == (0, 0):
        raise SvgError("has a gradient without a length")
    return Gradient(name.removesuffix("Gradient"), _multiplied(_transform(element.get("gradientTransform", "")), own), stops)


def _color(text):
    """Red, green, blue and alpha, 0 to 255 each."""
    if not re.fullmatch(r"#([0-9a-fA-F]{6}|[0-9a-fA-F]{8})", text):
        raise SvgError(f'has a color "{text}"')
    values = bytes.fromhex(text[1:])
    return tuple(values) if len(values) == 4 else (*values, 255)


# Matrices are (a, b, c, d, e, f), as in SVG: x' = a x + c y + e, y' = b x + d y + f.

def _multiplied(outer, inner):
    a, b, c, d, e, f = outer
    g, h, i, j, k, m = inner
    return (a * g + c * h, b * g + d * h, a * i + c * j, b * i + d * j, a * k + c * m + e, b * k + d * m + f)


def _transform(text):
    matrix, position = (1, 0, 0, 1, 0, 0), 0
    pattern = re.compile(r"\s*,?\s*(\w+)\s*\(([^)]*)\)")
    while text[position:].strip():
        found = pattern.match(text, position)
        if found is None:
            raise SvgError(f'has a transform "{text}"')
        matrix = _multiplied(matrix, _single_transform(found[1], [_number(v) for v in re.split(r"[\s,]+", found[2].strip())]))
        position = found.end()
    return matrix


def _single_transform(name, values):
    count = len(values)
    if name == "matrix" and count == 6:
        return tuple(values)
    if name == "translate" and count in (1, 2):
        return (1, 0, 0, 1, values[0], values[1] if count == 2 else 0)
    if name == "scale" and count in (1, 2):
        return (values[0], 0, 0, values[-1], 0, 0)
    if name == "rotate" and count == 1:
        angle = math.radians(values[0])
        return (math.cos(angle), math.sin(angle), -math.sin(angle), math.cos(angle), 0, 0)
    raise SvgError(f"has a transform {name} of {count} numbers")


def _moved(outline, matrix):
    a, b, c, d, e, f = matrix
    move = lambda point: (a * point[0] + c * point[1] + e, b * point[0] + d * point[1] + f)
    return Outline([tuple(move(point) for point in vertex) for vertex in outline.vertices], outline.closed)


def _outlines(element):
    name = _name(element)
    if name == "path":
        return read_path(element.get("d", ""))
    value = lambda key: _number(element.get(key, "0"))
    if name == "circle":
        return [_ellipse(value("cx"), value("cy"), value("r"), value("r"))]
    if name == "ellipse":
        return [_ellipse(value("cx"), value("cy"), value("rx"), value("ry"))]
    rx = value("rx") if "rx" in element.keys() else value("ry")
    ry = value("ry") if "ry" in element.keys() else rx
    return [_rectangle(value("x"), value("y"), value("width"), value("height"), rx, ry)]


# How far the control points of a quarter of a circle lie from its ends.
QUARTER = 4 / 3 * (math.sqrt(2) - 1)


def _ellipse(x, y, rx, ry):
    if rx <= 0 or ry <= 0:
        raise SvgError("has a circle without a radius")
    return _rectangle(x - rx, y - ry, 2 * rx, 2 * ry, rx, ry)


def _rectangle(x, y, width, height, rx, ry):
    if width <= 0 or height <= 0 or rx < 0 or ry < 0:
        raise SvgError("has a rectangle without a size")
    rx, ry = min(rx, width / 2), min(ry, height / 2)
    right, bottom = x + width, y + height
    if rx == 0 or ry == 0:
        return Outline([(corner,) * 3 for corner in ((x, y), (right, y), (right, bottom), (x, bottom))], True)
    # The ends of each corner's quarter, and the corner that it rounds off.
    quarters = (
        ((x, y + ry), (x, y), (x + rx, y)), ((right - rx, y), (right, y), (right, y + ry)),
        ((right, bottom - ry), (right, bottom), (right - rx, bottom)), ((x + rx, bottom), (x, bottom), (x, bottom - ry)),
    )
    toward = lambda end, corner: tuple(p + (q - p) * QUARTER for p, q in zip(end, corner))
    vertices = []
    for first, corner, last in quarters:
        vertices.append((first, first, toward(first, corner)))
        vertices.append((last, toward(last, corner), last))
    return Outline(joined(vertices), True)
