# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What a screen reader finds in a program's windows (AT-SPI)."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from desktop import Gone, wait_until  # noqa: E402


def _asked(function, *arguments):
    try:
        return function(*arguments)
    except GLib.Error as error:
        raise Gone(error.message) from error


class Node:
    """A thing of the accessible tree. Every question goes to the program itself; nothing is remembered."""

    def __init__(self, desktop, accessible):
        self.desktop = desktop
        self._accessible = accessible

    def __repr__(self):
        try:
            return "<%s \"%s\">" % (self.role(), self.name())
        except Gone:
            return "<gone>"

    def name(self):
        return _asked(self._accessible.get_name)

    def description(self):
        return _asked(self._accessible.get_description)

    def role(self):
        return _asked(self._accessible.get_role_name)

    def states(self):
        """The names of the states that hold, such as "enabled", "focused", "read-only", "multi-line"."""
        states = _asked(self._accessible.get_state_set)
        return {state.value_nick for state in states.get_states()}

    def has(self, state):
        return state in self.states()

    def count_children(self):
        return _asked(self._accessible.get_child_count)

    def child(self, index):
        """The child at that place, or None: empty tables of the toolkit count cells that they do not have."""
        accessible = _asked(self._accessible.get_child_at_index, index)
        return None if accessible is None else Node(self.desktop, accessible)

    def children(self):
        return [child for child in map(self.child, range(self.count_children())) if child is not None]

    def parent(self):
        return Node(self.desktop, _asked(self._accessible.get_parent))

    def walk(self, but_in=()):
        """This node and all below it, parents first, but for what is in nodes of those roles."""
        yield self
        if self.role() not in but_in:
            for child in self.children():
                yield from child.walk(but_in)

    def find(self, role=None, name=None, having=(), but_in=()):
        """The first node below with that role, name and those states, or None."""
        for node in self.walk(but_in):
            if (role is None or node.role() == role) and (name is None or node.name() == name) \
                    and all(node.has(state) for state in having):
                return node
        return None

    def tree(self, depth=0):
        """The tree below as text, one node per line, for messages."""
        line = "%s%s \"%s\"" % ("  " * depth, self.role(), self.name())
        if self.description():
            line += " (%s)" % self.description()
        return "\n".join([line] + [child.tree(depth + 1) for child in self.children()])

    # Where it is

    def extents(self):
        """Left, top, width and height in pixels of the screen."""
        rect = _asked(self._accessible.get_component_iface().get_extents, Atspi.CoordType.SCREEN)
        return rect.x, rect.y, rect.width, rect.height

    def click(self, button=1, count=1):
        x, y, width, height = self.extents()
        self.desktop.click(x + width // 2, y + height // 2, button, count)

    # Text

    def text(self):
        """All of its text, of any length."""
        count = self.count_characters()
        return _asked(Atspi.Text.get_text, self._accessible, 0, count)

    def count_characters(self):
        return _asked(Atspi.Text.get_character_count, self._accessible)

    def last_text(self, count):
        """At most the last `count` characters of its text."""
        end = self.count_characters()
        return _asked(Atspi.Text.get_text, self._accessible, max(0, end - count), end)

    def caret(self):
        return _asked(Atspi.Text.get_caret_offset, self._accessible)

    def attributes_at(self, offset):
        """The text attributes at that character, and the range [start, end) that shares them."""
        attributes, start, end = _asked(Atspi.Text.get_attribute_run, self._accessible, offset, True)
        return attributes, start, end

    def select_text(self, start, end):
        return _asked(Atspi.Text.add_selection, self._accessible, start, end)

    def selection(self):
        """The selected range (start, end), or None."""
        if _asked(Atspi.Text.get_n_selections, self._accessible) == 0:
            return None
        selected = _asked(Atspi.Text.get_selection, self._accessible, 0)
        return selected.start_offset, selected.end_offset

    # Relations

    def related(self, kind):
        """The nodes that this one is in that relation with, such as "labelled-by"."""
        nodes = []
        for relation in _asked(self._accessible.get_relation_set):
            if relation.get_relation_type().value_nick == kind:
                for index in range(relation.get_n_targets()):
                    nodes.append(Node(self.desktop, relation.get_target(index)))
        return nodes


def application(desktop, program):
    """Waits for the program to appear on the accessibility bus and returns its root, whose children are its windows."""
    def find():
        root = Atspi.get_desktop(0)
        root.set_cache_mask(Atspi.Cache.NONE)
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            try:
                if child is not None and child.get_process_id() == program.pid:
                    return Node(desktop, child)
            except GLib.Error:
                continue
        return None

    Atspi.set_timeout(20000, 20000)
    return wait_until(find, "process %d on the accessibility bus" % program.pid)


def window(desktop, program, title):
    """Waits for the accessible window with that name."""
    root = application(desktop, program)

    def find():
        return next((child for child in root.children() if child.name() == title), None)

    def others():
        return "an accessible window \"%s\"; there are %s" % (title, root.children())

    return wait_until(find, others)
