# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Banners that are not meant to be looked at."""

import os
import random
import time
import zlib

import hotline
import painter
import wire
from attack import attacks

# The largest banner that the program fetches, in bytes.
LARGEST = 524288


NOTICE = wire.transaction(wire.BANNER, [(wire.BANNER_TYPE, b"JPEG")])


def show(arena, *pictures):
    """Has the program fetch these pictures as banners, one after another."""
    contents = iter(pictures)

    def send(transfer):
        transfer.send(next(contents))
        transfer.close()

    host = arena.meet(transfer=send)
    for number, picture in enumerate(pictures):
        if len(picture) > LARGEST:
            raise AssertionError("the banner is too large to be fetched")
        host.size = len(picture)
        host.send(NOTICE)
        host.wait_for_transfers(number + 1)
    host.wait_until_read()


def jpeg_with_scans_without_an_end(arena):
    """Offers a JPEG of 4,000 by 4,000 that consists of scans to the last byte."""
    show(arena, painter.jpeg(4000, 4000, LARGEST))


def jpeg_with_scans_of_a_usual_size(arena):
    """Offers a JPEG of a banner's size that consists of scans to the last byte."""
    show(arena, painter.jpeg(1024, 512, LARGEST))


def png_as_costly_as_may_be(arena):
    """Offers ten PNGs of as many dots as one may have, of 16 bits for each color, interlaced."""
    show(arena, *[painter.png(2048, 2048, 16, 6, interlaced=True)] * 10)


def jpeg_as_costly_as_may_be(arena):
    """Offers ten JPEGs of as many dots as one may have, which go over them as often as one may."""
    scans = painter.jpeg(2048, 2048, LARGEST)
    # What stands between the marks of the scans is of the same length for all of them.
    parts = scans.split(b"\xff\xda")
    show(arena, *[b"\xff\xda".join(parts[:33]) + b"\xff\xd9"] * 10)


def png_with_packed_texts(arena):
    """Offers a PNG whose comments take 450 MB when they are unpacked."""
    show(arena, painter.png_with_texts(60, 7500000))


def png_with_a_packed_profile(arena):
    """Offers a PNG whose color profile takes 64 MB when it is unpacked."""
    profile = hotline.png_chunk(b"iCCP", b"Profile\0\0" + zlib.compress(bytes(64 << 20), 9))
    show(arena, painter.png(8, 8, extra=profile))


def png_of_30000_by_300(arena):
    """Offers pictures that are as wide and as high as no screen is."""
    show(arena, painter.png(30000, 300), painter.png(300, 30000))


def png_of_30000_by_30000(arena):
    """Offers a picture of 900 million dots."""
    show(arena, painter.png(30000, 30000))


def png_of_4000_by_4000_in_color(arena):
    """Offers a picture of 16 million dots of eight bytes each, in seven passes."""
    show(arena, painter.png(4000, 4000, 16, 6, interlaced=True))


def png_as_wide_as_numbers_go(arena):
    """Offers pictures of two billion by one and one by two billion, with nothing in them."""
    show(arena, painter.png((1 << 31) - 1, 1, pixels=b""), painter.png(1, (1 << 31) - 1, pixels=b""))


def png_that_unpacks_without_an_end(arena):
    """Offers a small picture whose packed rows are 200 MB."""
    show(arena, painter.png(8, 8, pixels=zlib.compress(bytes(200 << 20), 9)[:LARGEST - 200]))


def gif_of_huge_frames(arena):
    """Offers GIFs of 65,535 by 65,535, and of 2,000 frames of 3,000 by 3,000."""
    show(arena, painter.gif(65535, 65535, 1), painter.gif(3000, 3000, 2000))


def bitmaps_that_are_only_announced(arena):
    """Offers other kinds of pictures whose sizes are huge and which have no dots."""
    show(arena, painter.bitmap(65535, 65535), painter.bitmap(2000000000, -1), painter.portable(20000, 20000))


def svg_with_links(arena):
    """Offers a drawing with links to a device, to a pipe and to itself."""
    pipe = os.path.join(arena.folder, "pipe")
    os.mkfifo(pipe)
    links = "".join("<image width='9' height='9' xlink:href='%s'/>" % path
        for path in ("/dev/zero", "file:///dev/zero", pipe, "file://" + pipe, "http://127.0.0.1:%d/" % arena.server.port))
    show(arena, ("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='468'"
        " height='60'>%s</svg>" % links).encode())


def svg_of_nested_uses(arena):
    """Offers a drawing in which each of thirty groups uses the one before it twice."""
    groups = "".join("<g id='g%d'><use xlink:href='#g%d'/><use xlink:href='#g%d'/></g>" % (n + 1, n, n) for n in range(30))
    show(arena, ("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='468'"
        " height='60'><defs><rect id='g0' width='9' height='9'/>%s</defs><use xlink:href='#g30'/></svg>" % groups).encode())


def pictures_that_are_cut(arena):
    """Offers pictures that end in the middle."""
    pictures = [painter.png(468, 60, 8, 2), painter.jpeg(468, 60, 5000), painter.gif(468, 60, 3)]
    show(arena, *(picture[:length] for picture in pictures for length in (1, 8, 30, len(picture) // 2, len(picture) - 1)))


def pictures_that_are_none(arena):
    """Offers 512 KB of random bytes, with and without the beginning of a picture."""
    noise = random.Random(4).randbytes(LARGEST - 100)
    show(arena, noise, b"\x89PNG\r\n\x1a\n" + noise, b"\xff\xd8\xff\xe0" + noise, b"GIF89a" + noise, b"BM" + noise,
        b"P6\n9999 9999\n255\n" + noise)


def picture_that_trickles(arena):
    """Sends a picture byte by byte, with pauses, and half of it."""
    def send(transfer):
        for byte in painter.png(468, 60)[:40]:
            transfer.send(bytes([byte]))
            time.sleep(0.04)
        transfer.close()

    host = arena.meet(transfer=send, size=1000)
    host.send(NOTICE)
    host.wait_for_transfers()


def notices_without_an_end(arena):
    """Announces 4,000 banners, each of which is granted and sent."""
    picture = painter.png(468, 60)

    def send(transfer):
        transfer.send(picture)
        transfer.close()

    host = arena.meet(transfer=send, size=len(picture))
    host.send(NOTICE * 4000)
    host.wait_until_read()
    host.wait_for_transfers()


def notices_with_huge_pictures(arena):
    """Announces 100 banners, each of which is a picture of 25 million dots."""
    picture = painter.png(5000, 5000)

    def send(transfer):
        transfer.send(picture)
        transfer.close()

    host = arena.meet(transfer=send, size=len(picture))
    host.send(NOTICE * 100)
    host.wait_until_read()
    host.wait_for_transfers()


def sizes_of_any_number(arena):
    """Grants banners of no bytes, of one, of 512 KB and one more, and of 4 GiB, and sends none of them."""
    host = arena.meet(transfer=lambda transfer: transfer.close())
    for count, host.size in enumerate((0, 1, LARGEST, LARGEST + 1, 0xffffffff)):
        host.send(NOTICE)
        host.wait_for(wire.DOWNLOAD_BANNER, count + 1)
    host.wait_until_read()


ATTACKS = attacks(jpeg_with_scans_without_an_end, jpeg_with_scans_of_a_usual_size, png_as_costly_as_may_be,
    jpeg_as_costly_as_may_be, png_with_packed_texts,
    png_with_a_packed_profile, png_of_30000_by_300, png_of_30000_by_30000, png_of_4000_by_4000_in_color,
    png_as_wide_as_numbers_go, png_that_unpacks_without_an_end, gif_of_huge_frames, bitmaps_that_are_only_announced,
    svg_with_links, svg_of_nested_uses, pictures_that_are_cut, pictures_that_are_none, picture_that_trickles,
    notices_without_an_end, notices_with_huge_pictures, sizes_of_any_number)
