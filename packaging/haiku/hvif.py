"""Writes shapes as Haiku's vector icon format, which is drawn on a grid of 64 units."""

import math

MAGIC = b"ncif"
MOST = 255

COLOR, GRADIENT, COLOR_OPAQUE, GREY, GREY_OPAQUE = range(1, 6)
KINDS = {"linear": 0, "radial": 1}
WITH_MATRIX, WITHOUT_ALPHA, GREYS = 2, 4, 16
CLOSED, WITH_COMMANDS, WITHOUT_CURVES = 2, 4, 8
HORIZONTAL, VERTICAL, LINE, CURVE = range(4)
SHAPE, WITH_TRANSFORMERS, STROKE = 10, 16, 23
CAPS = {"butt": 0, "square": 1, "round": 2}
JOINS = {"miter": 0, "round": 2, "bevel": 3}

# Units of a coordinate of two bytes, and what its zero stands for.
STEPS, LOWEST = 102, -128


class HvifError(Exception):
    """Says what the shapes have that the format has not."""


def write_hvif(shapes):
    """The bytes of an icon with these shapes, which are painted in that order."""
    styles, paths, written = [], [], []
    for shape in _merged(shapes):
        style = _index(styles, style_bytes(shape.paint))
        indices = [_index(paths, path_bytes(outline)) for outline in shape.outlines]
        head = bytes([SHAPE, style, _at_most(len(indices), "paths in a shape"), *indices])
        if shape.stroke is None:
            written.append(head + bytes([0]))
        else:
            written.append(head + bytes([WITH_TRANSFORMERS, 1]) + stroke_bytes(shape.stroke))
    return MAGIC + b"".join(
        bytes([_at_most(len(section), name)]) + b"".join(section)
        for name, section in (("styles", styles), ("paths", paths), ("shapes", written)))


def _at_most(count, what):
    if count > MOST:
        raise HvifError(f"has {count} {what}, {MOST} is the most")
    return count


def _index(section, entry):
    """Where the entry stands in its section; one that is there already is used again."""
    if entry not in section:
        section.append(entry)
    # Whatever has too many is refused when its section is written, but an index must be a byte until then.
    return min(section.index(entry), MOST)


def _merged(shapes):
    """Shapes that follow upon one another, are painted alike and lie apart become one."""
    result = []
    for shape in shapes:
        before = result[-1] if result else None
        if (before is not None and before.paint == shape.paint and before.stroke is None and shape.stroke is None
                and len(before.outlines) + len(shape.outlines) <= MOST
                and all(_apart(_bounds(one), _bounds(other)) for one in before.outlines for other in shape.outlines)):
            result[-1] = type(shape)(before.outlines + shape.outlines, shape.paint)
        else:
            result.append(shape)
    return result


def _bounds(outline):
    xs, ys = zip(*(point for vertex in outline.vertices for point in vertex))
    return min(xs), min(ys), max(xs), max(ys)


def _apart(one, other):
    return one[2] < other[0] or other[2] < one[0] or one[3] < other[1] or other[3] < one[1]


def style_bytes(paint):
    if not isinstance(paint, tuple):
        return gradient_bytes(paint)
    opaque, grey = paint[3] == 255, _is_grey(paint)
    kind = (GREY_OPAQUE if opaque else GREY) if grey else (COLOR_OPAQUE if opaque else COLOR)
    return bytes([kind]) + color_bytes(paint, opaque, grey)


def color_bytes(color, opaque, grey):
    return bytes(color[:1] if grey else color[:3]) + bytes([] if opaque else color[3:])


def _is_grey(color):
    return color[0] == color[1] == color[2]


def gradient_bytes(gradient):
    """Its own space is 64 times as large in the format."""
    colors = [color for _, color in gradient.stops]
    opaque, grey = all(color[3] == 255 for color in colors), all(map(_is_grey, colors))
    flags = WITH_MATRIX | (WITHOUT_ALPHA if opaque else 0) | (GREYS if grey else 0)
    result = bytes([GRADIENT, KINDS[gradient.kind], flags, _at_most(len(colors), "stops in a gradient")])
    a, b, c, d, e, f = gradient.matrix
    result += b"".join(map(number_bytes, (a / 64, b / 64, c / 64, d / 64, e, f)))
    for offset, color in gradient.stops:
        result += bytes([round(offset * 255)]) + color_bytes(color, opaque, grey)
    return result


def number_bytes(value):
    """A sign, six bits of exponent, seventeen of mantissa. What is too small to be told from zero is zero."""
    mantissa, exponent = math.frexp(abs(value))
    steps, exponent = round((2 * mantissa - 1) * (1 << 17)), exponent - 1
    if steps == 1 << 17:
        steps, exponent = 0, exponent + 1
    if value == 0 or exponent < -31:
        return bytes(3)
    if exponent > 31:
        raise HvifError(f"has a number {value:g} in a matrix")
    return ((value < 0) << 23 | exponent + 32 << 17 | steps).to_bytes(3, "big")


def stroke_bytes(stroke):
    """The transformer that makes a line of an outline. Its width is a whole number in the format."""
    width, limit = round(stroke.width), round(stroke.miter_limit)
    if abs(width - stroke.width) > 1e-6 or not 0 < width <= MOST - 128:
        raise HvifError(f"has a stroke {stroke.width:g} wide on the grid of 64; it must be a whole number up to 127")
    if abs(limit - stroke.miter_limit) > 1e-6 or not 0 <= limit <= MOST:
        raise HvifError(f"has a miter limit of {stroke.miter_limit:g}")
    if stroke.cap not in CAPS or stroke.join not in JOINS:
        raise HvifError(f"has a stroke with the cap {stroke.cap} and the join {stroke.join}")
    return bytes([STROKE, width + 128, JOINS[stroke.join] | CAPS[stroke.cap] << 4, limit])


def coordinate_bytes(value):
    """One byte for whole numbers from -32 to 95, else two, in steps of 1/102 from -128 on."""
    steps = round((value - LOWEST) * STEPS)
    if not 0 <= steps <= 0x7fff:
        raise HvifError(f"has a coordinate {value:g} on the grid of 64")
    whole, rest = divmod(steps, STEPS)
    if rest == 0 and -32 <= whole + LOWEST <= 95:
        return bytes([whole + LOWEST + 32])
    return bytes([0x80 | steps >> 8, steps & 0xff])


def path_bytes(outline):
    """The shortest of the forms that a path can have."""
    vertices = [tuple(_point_bytes(point) for point in vertex) for vertex in outline.vertices]
    head = bytes([_at_most(len(vertices), "points in a path")])
    flags = CLOSED if outline.closed else 0
    forms = [bytes([flags]) + head + b"".join(x + y for vertex in vertices for x, y in vertex)]
    commands, values = _commands(vertices)
    forms.append(bytes([flags | WITH_COMMANDS]) + head + commands + values)
    if all(_is_corner(vertex) for vertex in vertices):
        forms.append(bytes([flags | WITHOUT_CURVES]) + head + b"".join(x + y for (x, y), _, _ in vertices))
    return min(forms, key=len)


def _point_bytes(point):
    return coordinate_bytes(point[0]), coordinate_bytes(point[1])


def _is_corner(vertex):
    return vertex[0] == vertex[1] == vertex[2]


def _commands(vertices):
    """The commands, two bits each, and the coordinates that they take."""
    bits, values, before = 0, b"", None
    for index, vertex in enumerate(vertices):
        x, y = vertex[0]
        if not _is_corner(vertex):
            command, value = CURVE, b"".join(a + b for a, b in vertex)
        elif before is not None and y == before[1]:
            command, value = HORIZONTAL, x
        elif before is not None and x == before[0]:
            command, value = VERTICAL, y
        else:
            command, value = LINE, x + y
        bits |= command << 2 * index
        values += value
        before = vertex[0]
    return bits.to_bytes((len(vertices) + 3) // 4, "little"), values
