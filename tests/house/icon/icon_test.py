#!/usr/bin/env python3
"""Haiku's icon: what is written is read back by a reader of its own, and looks as the drawing does."""

import importlib.machinery
import importlib.util
import math
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "packaging" / "haiku"))

from hvif import coordinate_bytes, HvifError, number_bytes, write_hvif
from hvif_reader import Bytes, icon_as_svg, read_icon
from svg_shapes import read_svg, SvgError

ICON_SVG = (ROOT / "packaging" / "palimbra.svg").read_text(encoding="utf-8")
# Half of what the two bytes of a coordinate can tell apart.
PRECISION = 0.5 / 102 + 1e-9
PIXELS = 128


def svg(content, box="0 0 64 64"):
    return f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{box}">{content}</svg>'


def converted(content, box="0 0 64 64"):
    return read_icon(write_hvif(read_svg(svg(content, box))))


def load_renderer():
    loader = importlib.machinery.SourceFileLoader("render", str(ROOT / "assets" / "render"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("render", loader))
    loader.exec_module(module)
    return module


def pixels(text):
    renderer = load_renderer()
    with tempfile.TemporaryDirectory() as folder:
        source, target = Path(folder) / "picture.svg", Path(folder) / "picture.png"
        source.write_text(text, encoding="utf-8")
        renderer.render(source, target, (PIXELS, PIXELS))
        return renderer.read_png(target)[2]


def difference(one, other):
    """The mean of what the channels of all pixels differ by, of 255."""
    return sum(abs(a - b) for a, b in zip(pixels(one), pixels(other))) / (4 * PIXELS * PIXELS)


def committed_icon():
    text = (ROOT / "packaging" / "haiku" / "icon.rdef").read_text(encoding="utf-8")
    return bytes.fromhex("".join(re.findall(r'\$"([0-9A-F]*)"', text)))


class CoordinateTest(unittest.TestCase):
    def test_whole_numbers_take_one_byte_where_it_reaches(self):
        for value, expected in ((-32, b"\x00"), (0, b"\x20"), (95, b"\x7f")):
            self.assertEqual(expected, coordinate_bytes(value), value)
        for value in (-33, 96, 0.5):
            self.assertEqual(2, len(coordinate_bytes(value)), value)

    def test_two_bytes_count_in_steps_from_the_lowest(self):
        self.assertEqual(b"\x80\x00", coordinate_bytes(-128))
        self.assertEqual(b"\xb3\x33", coordinate_bytes(0.5))
        self.assertEqual(b"\xff\xff", coordinate_bytes(0x7fff / 102 - 128))

    def test_every_step_is_read_back(self):
        for steps in range(0x8000):
            value = steps / 102 - 128
            source = Bytes(coordinate_bytes(value))
            self.assertAlmostEqual(value, source.coordinate(), 9)
            self.assertEqual(len(source.data), source.position)

    def test_beyond_the_range_is_an_error(self):
        for value in (-128.01, 193.3):
            with self.assertRaises(HvifError):
                coordinate_bytes(value)


class NumberTest(unittest.TestCase):
    def test_sign_exponent_and_mantissa_lie_as_the_format_has_them(self):
        for value, expected in ((0, "000000"), (1, "400000"), (-1, "c00000"), (-2.5, "c28000"), (0.75, "3f0000"),
                (2.0 ** -31, "020000"), (2.0 ** 32 - 2.0 ** 14, "7fffff"), (2 - 2.0 ** -19, "420000")):
            self.assertEqual(expected, number_bytes(value).hex(), value)

    def test_what_is_read_back_differs_by_half_of_the_last_bit(self):
        for exponent in range(-31, 32):
            for mantissa in (1, 1.1, 4 / 3, 1.5, 1.9, 1.99999):
                for value in (mantissa * 2.0 ** exponent, -mantissa * 2.0 ** exponent):
                    self.assertLessEqual(abs(Bytes(number_bytes(value)).number() - value), 2.0 ** (exponent - 18))

    def test_too_small_is_zero_and_too_large_is_an_error(self):
        self.assertEqual(bytes(3), number_bytes(2.0 ** -33))
        with self.assertRaises(HvifError):
            number_bytes(-(2.0 ** 32))


LINEAR = ('<linearGradient id="a" gradientUnits="userSpaceOnUse" x1="8" y1="4" x2="24" y2="12">%s</linearGradient>'
    '<rect x="4" y="2" width="24" height="20" fill="url(#a)"/>')
RADIAL = ('<defs><radialGradient id="a" gradientUnits="userSpaceOnUse" gradientTransform="translate(4 2) scale(2 1)" cx="6" cy="8"'
    ' r="7">%s</radialGradient></defs><g transform="rotate(10)"><circle cx="16" cy="12" r="9" fill="url(#a)"/></g>')
STOPS = '<stop offset="0" stop-color="#ff2040"/><stop offset="0.4" stop-color="#20ff40"/><stop offset="1" stop-color="#0020ff"/>'


class GradientTest(unittest.TestCase):
    def test_the_ends_and_the_stops_are_read_back(self):
        (gradient,) = converted(LINEAR % STOPS, "0 0 32 32").styles
        a, b, c, d, e, f = gradient.matrix
        for x, expected in ((-64, (16, 8)), (64, (48, 24))):
            self.assertAlmostEqual(expected[0], a * x + e, 3)
            self.assertAlmostEqual(expected[1], b * x + f, 3)
        self.assertAlmostEqual(0, a * c + b * d, 6)
        self.assertEqual([(0, (255, 32, 64, 255)), (102, (32, 255, 64, 255)), (255, (0, 32, 255, 255))], gradient.stops)

    def test_stops_are_as_short_as_their_colors_allow(self):
        sizes = {}
        for first, last in (("#102030", "#203040"), ("#10203040", "#203040"), ("#101010", "#202020"), ("#10101040", "#202020")):
            stops = f'<stop offset="0" stop-color="{first}"/><stop offset="1" stop-color="{last}"/>'
            data = write_hvif(read_svg(svg(LINEAR % stops)))
            sizes[first] = len(data)
            expected = [tuple(bytes.fromhex((color[1:] + "ff")[:8])) for color in (first, last)]
            self.assertEqual(expected, [color for _, color in read_icon(data).styles[0].stops])
        self.assertEqual([0, 2, -4, -2], [size - sizes["#102030"] for size in sizes.values()])

    def test_they_look_as_drawn_and_would_not_the_other_way_round(self):
        for content in (LINEAR % STOPS, RADIAL % STOPS):
            with self.subTest(content):
                drawn = svg(content, "0 0 32 32")
                icon = read_icon(write_hvif(read_svg(drawn)))
                self.assertLess(difference(drawn, icon_as_svg(icon)), 0.3)
                icon.styles[0].stops = [(255 - offset, color) for offset, color in reversed(icon.styles[0].stops)]
                self.assertGreater(difference(drawn, icon_as_svg(icon)), 3)


class StyleTest(unittest.TestCase):
    def test_each_kind_of_color_is_read_back(self):
        for color, expected, size in (
                ("#102030", (0x10, 0x20, 0x30, 255), 4), ("#10203040", (0x10, 0x20, 0x30, 0x40), 5),
                ("#777777", (0x77, 0x77, 0x77, 255), 2), ("#77777708", (0x77, 0x77, 0x77, 8), 3)):
            with self.subTest(color):
                data = write_hvif(read_svg(svg(f'<rect width="8" height="8" fill="{color}"/>')))
                self.assertEqual([expected], read_icon(data).styles)
                self.assertEqual(1, data[5 + size], "the paths follow the style")

    def test_a_color_that_comes_again_is_kept_once(self):
        icon = converted('<rect width="9" height="9" fill="#102030"/><rect width="8" height="8" fill="#ffffff"/>'
            '<rect width="7" height="7" fill="#102030"/>')
        self.assertEqual([0, 1, 0], [shape.style for shape in icon.shapes])


class PathTest(unittest.TestCase):
    def path(self, content, form, closed=True, box="0 0 64 64"):
        icon = converted(content, box)
        self.assertEqual(1, len(icon.paths))
        self.assertEqual((form, closed), (icon.paths[0].form, icon.paths[0].closed))
        return icon.paths[0]

    def expect_points(self, expected, path):
        self.assertEqual(len(expected), len(path.points))
        for vertex, points in zip(expected, path.points):
            for (x, y), (read_x, read_y) in zip(vertex, points):
                self.assertLessEqual(abs(x - read_x), PRECISION)
                self.assertLessEqual(abs(y - read_y), PRECISION)

    def test_a_triangle_has_corners_alone(self):
        path = self.path('<path d="M1.3 2.7L20 9.1L5 30.77z"/>', "corners")
        self.expect_points([((1.3, 2.7),) * 3, ((20, 9.1),) * 3, ((5, 30.77),) * 3], path)

    def test_a_rectangle_goes_level_and_upright(self):
        path = self.path('<rect x="3.5" y="4.5" width="20.5" height="11.25"/>', "commands")
        self.assertEqual([2, 0, 1, 0], path.commands)
        self.expect_points([((x, y),) * 3 for x, y in ((3.5, 4.5), (24, 4.5), (24, 15.75), (3.5, 15.75))], path)

    def test_curves_and_lines_mix_by_commands(self):
        path = self.path('<path d="M2 3L9 4C10 5.5 11 6.5 12 8H5V6z"/>', "commands")
        self.assertEqual([2, 3, 3, 0, 1], path.commands)
        self.expect_points([((2, 3),) * 3, ((9, 4), (9, 4), (10, 5.5)), ((12, 8), (11, 6.5), (12, 8)), ((5, 8),) * 3,
            ((5, 6),) * 3], path)

    def test_curves_alone_need_no_commands(self):
        path = self.path('<path d="M2 3C4 5 6 7 8 9C7 5 6 4 2 3z"/>', "curves")
        self.expect_points([((2, 3), (6, 4), (4, 5)), ((8, 9), (6, 7), (7, 5))], path)

    def test_relative_commands_start_where_the_last_ended(self):
        one = converted('<path d="m2 3 7 1c1 1.5 2 2.5 3 4h-7v-2zm1 1h9v9z"/>')
        other = converted('<path d="M2 3L9 4C10 5.5 11 6.5 12 8H5V6zM3 4H12V13z"/>')
        self.assertEqual(other, one)
        self.assertEqual(2, len(one.shapes[0].paths))

    def test_a_circle_stays_round(self):
        path = self.path('<circle cx="30" cy="20" r="12.4"/>', "curves")
        self.assertEqual(4, len(path.points))
        ends = path.points[1:] + path.points[:1]
        for (start, _, first), (end, second, _) in zip(path.points, ends):
            middle = [(a + 3 * b + 3 * c + d) / 8 for a, b, c, d in zip(start, first, second, end)]
            self.assertAlmostEqual(12.4, math.hypot(start[0] - 30, start[1] - 20), 1)
            self.assertAlmostEqual(12.4, math.hypot(middle[0] - 30, middle[1] - 20), 1)

    def test_arcs_take_the_way_that_their_flags_say(self):
        for flags, middle in (("0 0", 30), ("0 1", 10), ("1 0", 30), ("1 1", 10)):
            with self.subTest(flags):
                points = converted(f'<path d="M10 20A10 10 0 {flags} 30 20z"/>').paths[0].points
                self.assertEqual([20, middle, 20], [round(point[1], 1) for point, _, _ in points])

    def test_arcs_are_less_than_half_of_a_circle_or_more(self):
        for flags, radius, count in (("0 1", 10, 2), ("1 1", 10, 5)):
            with self.subTest(flags):
                points = converted(f'<path d="M15 20A10 10 0 {flags} 25 20z"/>').paths[0].points
                self.assertEqual(count, len(points))
                center = 20 + math.sqrt(75) * (1 if flags[0] == "0" else -1)
                for (x, y), _, _ in points:
                    self.assertAlmostEqual(radius, math.hypot(x - 20, y - center), 1)

    def test_transformations_and_the_box_are_applied(self):
        path = self.path('<g transform="translate(2 1)"><rect transform="rotate(90) scale(2 1)" width="4" height="3"/></g>',
            "commands", box="-1 0 32 32")
        self.expect_points([((x, y),) * 3 for x, y in ((6, 2), (6, 18), (0, 18), (0, 2))], path)

    def test_a_path_used_twice_is_kept_once(self):
        icon = converted('<circle cx="9" cy="9" r="4" fill="#123456" stroke="#654321" stroke-width="2"/>')
        self.assertEqual(1, len(icon.paths))
        self.assertEqual([[0], [0]], [shape.paths for shape in icon.shapes])


class ShapeTest(unittest.TestCase):
    def test_strokes_keep_their_width_cap_join_and_openness(self):
        icon = converted('<path d="M2 3L9 5" fill="none" stroke="#102030" stroke-width="1.5" stroke-linecap="square"'
            ' stroke-linejoin="bevel" stroke-miterlimit="7"/>', "0 0 32 32")
        self.assertEqual((3, "square", "bevel", 7), icon.shapes[0].stroke)
        self.assertFalse(icon.paths[0].closed)

    def test_neighbors_of_one_color_become_one_shape_unless_they_touch(self):
        first, apart, over = ('<rect x="%d" width="8" height="8" fill="#102030"/>' % x for x in (0, 9, 7))
        self.assertEqual([[0, 1]], [shape.paths for shape in converted(first + apart).shapes])
        self.assertEqual([[0], [1]], [shape.paths for shape in converted(first + over).shapes])

    def test_255_of_each_are_written_and_one_more_is_an_error(self):
        corners = lambda count: " ".join(f"L{x % 60}.5 {x // 60 * 9 + x % 7}" for x in range(count))
        rectangle = lambda i: f'<rect x="{i % 60}" y="{i // 60}" width="3" height="3" fill="#01%02x%02x"/>' % (i // 60, i % 60)
        kinds = {
            "points": lambda n: f'<path d="M0 0{corners(n - 1)}z"/>',
            "styles, paths and shapes": lambda n: "".join(rectangle(i) for i in range(n)),
            "paths of a shape": lambda n: '<path d="%s"/>' % "".join(f"M{i % 60} {i // 60}h9v9z" for i in range(n)),
        }
        for kind, content in kinds.items():
            with self.subTest(kind):
                icon = converted(content(255))
                self.assertEqual(255, max(len(icon.paths[0].points), len(icon.styles), len(icon.shapes[0].paths)))
                with self.assertRaisesRegex(HvifError, "255 is the most"):
                    converted(content(256))


class RefusalTest(unittest.TestCase):
    def test_what_cannot_be_written_is_an_error(self):
        for content, message in (
                ('<text>A</text>', "uses <text>"), ('<g><clipPath/></g>', "uses <clipPath>"),
                ('<defs><path d="M0 0h9v9z"/></defs>', "uses <path> in <defs>"), ('<linearGradient/>', "userSpaceOnUse"),
                (LINEAR % "", "less than two stops"), (LINEAR % (STOPS + STOPS), "not in order"), (LINEAR % "<g/>", "uses <g> in"),
                (LINEAR.replace(' x2="24" y2="12"', ' x2="8" y2="4"') % STOPS, "without a length"),
                (LINEAR.replace(' x2="24"', "") % STOPS, "is no number"),
                (LINEAR.replace(' x2="24"', ' spreadMethod="reflect"') % STOPS, "attribute spreadMethod"),
                ('<rect width="2" height="2" fill="url(#a)"/>', "a color"),
                ('<rect width="2" height="2" opacity="0.5"/>', "attribute opacity"),
                ('<rect width="2" height="2" style="fill:red"/>', "attribute style"),
                ('<path d="M0 0Q1 1 2 2z"/>', "command Q"), ('<path d="M0 0L1"/>', "a path"), ('<path d="5 5z"/>', "a path"),
                ('<path d=""/>', "without an outline"), ('<rect width="2"/>', "without a size"),
                ('<circle cx="4"/>', "without a radius"), ('<g transform="skewX(3)"/>', "transform skewX"),
                ('<g transform="wrong"/>', "a transform"),
                ('<path transform="scale(2 1)" d="M0 0H9" stroke="#000000"/>', "not scaled evenly")):
            with self.subTest(content), self.assertRaisesRegex(SvgError, re.escape(message)):
                converted(content)
        with self.assertRaisesRegex(SvgError, "square"):
            converted("", "0 0 64 32")
        for content, message in (
                ('<path d="M0 0H9V9z" stroke="#000000" stroke-width="1.5"/>', "a stroke 1.5 wide"),
                ('<path d="M0 0H9V9z" stroke="#000000" stroke-linecap="flat"/>', "the cap flat"),
                ('<path d="M0 0H900V9z"/>', "a coordinate 900")):
            with self.subTest(content), self.assertRaisesRegex(HvifError, re.escape(message)):
                converted(content)


class ProgramIconTest(unittest.TestCase):
    # Of 255, over the whole picture. Curves that went astray or a shape too few make more, as the second case shows.
    BOUND = 0.1

    def test_it_is_what_the_drawing_makes(self):
        self.assertEqual(write_hvif(read_svg(ICON_SVG)), committed_icon())

    def test_it_has_a_usual_size(self):
        self.assertIn(len(committed_icon()), range(700, 2501))

    def test_it_looks_as_the_drawing_does(self):
        self.assertLess(difference(ICON_SVG, icon_as_svg(read_icon(committed_icon()))), self.BOUND)

    def test_one_that_lacks_or_moves_something_would_not(self):
        lacking, moved, turned = (read_icon(committed_icon()) for _ in range(3))
        del lacking.shapes[-1]
        moved.paths[0].points = [tuple((x + 1, y) for x, y in vertex) for vertex in moved.paths[0].points]
        turned.styles[0] = tuple(reversed(turned.styles[0][:3])) + (255,)
        for name, icon in (("lacking", lacking), ("moved", moved), ("turned", turned)):
            with self.subTest(name):
                self.assertGreater(difference(ICON_SVG, icon_as_svg(icon)), self.BOUND)


if __name__ == "__main__":
    unittest.main()
