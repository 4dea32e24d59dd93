# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What is said in the chat, and too much of it."""

import wire
from attack import attacks

LONGEST = 65535


def say(arena, text, count):
    """Says a piece of text as often as a line has room for it, in that many lines."""
    piece = text if isinstance(text, bytes) else text.encode()
    host = arena.meet()
    line = piece * (LONGEST // len(piece))
    for number in range(count):
        host.send(wire.chat(line) + wire.chat(b"after %d" % number))
    host.wait_until_read()


def lines_of_one_byte(arena):
    """Says 50,000 lines of one letter."""
    host = arena.meet()
    host.send(wire.chat(b"x") * 50000)
    host.wait_until_read()


def empty_lines(arena):
    """Says 50,000 lines that have nothing in them."""
    host = arena.meet()
    host.send((wire.chat(b"") + wire.chat(b"\r")) * 25000)
    host.wait_until_read()


def one_long_word(arena):
    """Says 50 words of 64 KB."""
    say(arena, "w", 50)


def long_lines_of_words(arena):
    """Says 50 lines of words of 64 KB."""
    say(arena, "word ", 50)


def only_line_ends(arena):
    """Says 30 lines that are 65,535 line ends."""
    say(arena, "\r", 30)


def line_ends_and_letters(arena):
    """Says 30 lines in which line ends and letters take turns."""
    say(arena, "\ra", 30)


def only_combining_marks(arena):
    """Says 10 lines that are marks on nothing."""
    say(arena, "\u0301", 10)


def a_letter_with_all_marks(arena):
    """Says 10 lines of letters with sixty marks each."""
    say(arena, "a" + "\u0301\u0316\u0334" * 20, 10)


def bidi_overrides(arena):
    """Says 10 lines in which every letter turns the direction once more."""
    say(arena, "\u202ea\u202db\u2067c\u2066d", 10)


def deep_bidi_isolates(arena):
    """Says 10 lines that open isolates and never close them."""
    say(arena, "\u2067", 10)


def arabic(arena):
    """Says 10 lines of Arabic, whose letters all join."""
    say(arena, "\u0633\u0644\u0627\u0645\u0645", 10)


def arabic_with_vowels(arena):
    """Says 10 lines of Arabic with vowel marks, and digits and Latin in between."""
    say(arena, "\u0628\u064e\u0651a1\u0644\u0627 ", 10)


def khmer(arena):
    """Says 10 lines of Khmer, whose letters stack without a blank."""
    say(arena, "\u1780\u17d2\u179a\u17bb\u1798", 10)


def tibetan_stacks(arena):
    """Says 10 lines of Tibetan stacks without an end."""
    say(arena, "\u0f62\u0f90\u0fb3\u0fb2", 10)


def devanagari(arena):
    """Says 10 lines of Devanagari clusters that never end."""
    say(arena, "\u0915\u094d", 10)


def hangul_letters(arena):
    """Says 10 lines of Korean letters that form syllables as they come."""
    say(arena, "\u1112\u1161\u11ab", 10)


def emoji_families(arena):
    """Says 10 lines of faces that are joined to one another."""
    say(arena, "\U0001f468\u200d\U0001f469\u200d", 10)


def flags(arena):
    """Says 10 lines of letters for flags, which go in pairs."""
    say(arena, "\U0001f1e6", 10)


def variation_selectors(arena):
    """Says 10 lines of selectors of variants."""
    say(arena, "a\ufe0f\U000e0100", 10)


def private_use(arena):
    """Says 10 lines of letters that no font has."""
    say(arena, "\ue000\U000f0000\U0010fffd", 10)


def letters_of_every_script(arena):
    """Says 10 lines in which each letter is of another script, so that each asks for another font."""
    say(arena, "".join(chr(code) for code in range(0xa1, 0x3000, 97) if chr(code).isprintable()), 10)


def all_characters(arena):
    """Says every character that there is, once."""
    host = arena.meet()
    for start in range(0x20, 0x110000, 16384):
        codes = range(start, min(start + 16384, 0x110000))
        text = "".join(chr(code) for code in codes if not 0xd800 <= code < 0xe000)
        host.send(wire.chat(text.encode()[:LONGEST]))
    host.wait_until_read()


def zero_width(arena):
    """Says 10 lines of characters without a width."""
    say(arena, "\u200b\u200c\u200d\u2060\ufeff", 10)


def zeros(arena):
    """Says 10 lines of zeros."""
    say(arena, b"\0", 10)


def control_characters(arena):
    """Says 10 lines of all the control characters."""
    say(arena, bytes(range(1, 32)) + b"\x7f\xc2\x85\xe2\x80\xa8", 10)


def not_utf_8(arena):
    """Says 10 lines that are no UTF-8 in every way that there is."""
    say(arena, b"\xff\xfe\xc0\xaf\xed\xa0\x80\xf4\x90\x80\x80\xe2\x82", 10)


def tabs(arena):
    """Says 10 lines of tabs."""
    say(arena, "\t", 10)


def markup(arena):
    """Says 20 lines of what others would take for markup, formats and mnemonics."""
    say(arena, "<b>&%s%n[*]<img src='/dev/zero'>\\", 20)


def in_rooms_that_nobody_entered(arena):
    """Says 20,000 lines in private rooms, each in another."""
    host = arena.meet()
    host.send(b"".join(wire.transaction(wire.CHAT, [(wire.DATA, b"room"), (114, wire.long(number))])
        for number in range(20000)))
    host.wait_until_read()


ATTACKS = attacks(lines_of_one_byte, empty_lines, one_long_word, long_lines_of_words, only_line_ends,
    line_ends_and_letters, only_combining_marks, a_letter_with_all_marks, bidi_overrides, deep_bidi_isolates, arabic,
    arabic_with_vowels, khmer, tibetan_stacks, devanagari, hangul_letters, emoji_families, flags, variation_selectors,
    private_use, letters_of_every_script, all_characters, zero_width, zeros, control_characters, not_utf_8, tabs, markup,
    in_rooms_that_nobody_entered)
