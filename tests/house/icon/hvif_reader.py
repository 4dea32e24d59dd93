"""Reads Haiku's vector icon format, apart from what writes it, and says what it read as SVG."""

from dataclasses import dataclass, field

CAPS = ["butt", "square", "round"]
JOINS = {0: "miter", 2: "round", 3: "bevel"}


@dataclass
class Path:
    closed: bool
    form: str
    commands: list = field(default_factory=list)
    # Point, control in, control out.
    points: list = field(default_factory=list)


@dataclass
class Shape:
    style: int
    paths: list
    # Width, cap, join and miter limit of a stroke.
    stroke: tuple = None


@dataclass
class Gradient:
    kind: str
    matrix: tuple
    # Offsets of 255, and colors.
    stops: list


@dataclass
class Icon:
    styles: list
    paths: list
    shapes: list


class Bytes:
    def __init__(self, data):
        self.data, self.position = data, 0

    def take(self, count=1):
        if self.position + count > len(self.data):
            raise ValueError("ends too early")
        self.position += count
        return self.data[self.position - count:self.position]

    def byte(self):
        return self.take()[0]

    def coordinate(self):
        first = self.byte()
        if first < 128:
            return first - 32
        return ((first - 128) * 256 + self.byte()) / 102 - 128

    def number(self):
        first, second, third = self.take(3)
        bits = first * 65536 + second * 256 + third
        if bits == 0:
            return 0
        size = (1 + bits % 2 ** 17 / 2 ** 17) * 2.0 ** (bits // 2 ** 17 % 64 - 32)
        return -size if first >= 128 else size

    def point(self):
        return self.coordinate(), self.coordinate()


def read_icon(data):
    """The whole icon; ValueError for anything that the format or this reader does not know."""
    source = Bytes(data)
    if source.take(4) != bytes([0x6e, 0x63, 0x69, 0x66]):
        raise ValueError("has another magic")
    styles = [read_style(source) for _ in range(source.byte())]
    paths = [read_path(source) for _ in range(source.byte())]
    shapes = [read_shape(source, len(styles), len(paths)) for _ in range(source.byte())]
    if source.position != len(data):
        raise ValueError("goes on behind its end")
    return Icon(styles, paths, shapes)


def read_style(source):
    """A gradient, or red, green, blue and alpha."""
    kind = source.byte()
    if kind == 2:
        return read_gradient(source)
    if kind == 1:
        return tuple(source.take(4))
    if kind == 3:
        return (*source.take(3), 255)
    if kind in (4, 5):
        grey = source.byte()
        return (grey, grey, grey, source.byte() if kind == 4 else 255)
    raise ValueError(f"has a style of type {kind}")


def read_gradient(source):
    kind, flags, count = source.take(3)
    if flags & ~20 != 2:
        raise ValueError(f"has a gradient with flags {flags}")
    matrix, stops = tuple(source.number() for _ in range(6)), []
    for _ in range(count):
        offset = source.byte()
        color = source.take(1) * 3 if flags & 16 else source.take(3)
        stops.append((offset, (*color, 255 if flags & 4 else source.byte())))
    return Gradient(["linear", "radial"][kind], matrix, stops)


def read_path(source):
    flags = source.byte()
    if flags & ~2 not in (0, 4, 8):
        raise ValueError(f"has a path with flags {flags}")
    count = source.byte()
    path = Path(flags & 2 != 0, {0: "curves", 4: "commands", 8: "corners"}[flags & ~2])
    if path.form == "commands":
        packed = source.take((count + 3) // 4)
        path.commands = [packed[i // 4] >> i % 4 * 2 & 3 for i in range(count)]
    else:
        path.commands = [3 if path.form == "curves" else 2] * count
    x = y = 0
    for command in path.commands:
        if command == 3:
            path.points.append((source.point(), source.point(), source.point()))
        else:
            x = source.coordinate() if command != 1 else x
            y = source.coordinate() if command != 0 else y
            path.points.append(((x, y),) * 3)
        x, y = path.points[-1][0]
    return path


def read_shape(source, style_count, path_count):
    if source.byte() != 10:
        raise ValueError("has a shape of another type")
    style = source.byte()
    indices = list(source.take(source.byte()))
    if style >= style_count or any(index >= path_count for index in indices):
        raise ValueError("has a shape of what is not there")
    flags = source.byte()
    if flags not in (0, 16):
        raise ValueError(f"has a shape with flags {flags}")
    if flags == 0:
        return Shape(style, indices)
    if source.byte() != 1 or source.byte() != 23:
        raise ValueError("has other transformers than one stroke")
    width, ends, limit = source.take(3)
    return Shape(style, indices, (width - 128, CAPS[ends >> 4], JOINS[ends & 15], limit))


def icon_as_svg(icon):
    lines = ['<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 64 64">']
    for index, style in enumerate(icon.styles):
        if isinstance(style, Gradient):
            lines += gradient_as_svg(index, style)
    for shape in icon.shapes:
        data = " ".join(path_as_svg(icon.paths[index]) for index in shape.paths)
        kind = "fill" if shape.stroke is None else "stroke"
        paint = f'{kind}="{style_as_svg(shape.style, icon.styles[shape.style])}"'
        if shape.stroke is not None:
            width, cap, join, limit = shape.stroke
            paint += f' fill="none" stroke-width="{width}" stroke-linecap="{cap}" stroke-linejoin="{join}"'
            paint += f' stroke-miterlimit="{max(limit, 1)}"'
        lines.append(f'<path d="{data}" {paint}/>')
    return "\n".join([*lines, "</svg>"])


def style_as_svg(index, style):
    return f"url(#style{index})" if isinstance(style, Gradient) else "#%02x%02x%02x%02x" % style


def gradient_as_svg(index, gradient):
    place = 'x1="-64" y1="0" x2="64" y2="0"' if gradient.kind == "linear" else 'cx="0" cy="0" r="64"'
    yield (f'<{gradient.kind}Gradient id="style{index}" gradientUnits="userSpaceOnUse" {place} '
        f'gradientTransform="matrix({" ".join(map(str, gradient.matrix))})">')
    for offset, (red, green, blue, alpha) in gradient.stops:
        yield f'<stop offset="{offset / 255}" stop-color="rgb({red},{green},{blue})" stop-opacity="{alpha / 255}"/>'
    yield f"</{gradient.kind}Gradient>"


def path_as_svg(path):
    text = "M%r %r" % path.points[0][0]
    ends = path.points[1:] + (path.points[:1] if path.closed else [])
    for (_, _, control_out), (point, control_in, _) in zip(path.points, ends):
        text += " C%r %r %r %r %r %r" % (*control_out, *control_in, *point)
    return text + ("z" if path.closed else "")
