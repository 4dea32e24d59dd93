#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A guided tour: the real program in real windows on a virtual display, used from outside as a person would use it.

Leaves numbered pictures in screenshots/ and says what each shows. Every step is checked by what the windows say, through
their titles and the accessible tree; the first that does not happen ends the tour with a status other than 0.
"""

import argparse
import os
import sys

PROJECT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True
sys.path.append(os.path.join(PROJECT, "driver"))

from browsing import Browsing  # noqa: E402
from choosing import Choosing  # noqa: E402
from desktop import Desktop, NotHappened  # noqa: E402
from talking import Talking  # noqa: E402


class Tour(Talking, Browsing, Choosing):
    def play(self):
        self.start()
        self.connect()
        self.agree()
        self.look_around()
        self.chat()
        self.hear_the_server()
        self.see_people_come_and_go()
        self.write_to_somebody()
        self.be_written_to()
        self.open_folders()
        self.download()
        self.upload()
        self.change_options()
        self.lose_the_line()
        self.find_a_server()
        self.disconnect()
        self.look_at_about()
        self.quit()


def empty_folder(path):
    """Makes sure that the folder is there and holds no pictures of an earlier tour."""
    os.makedirs(path, exist_ok=True)
    for name in os.listdir(path):
        if name.endswith(".png"):
            os.remove(os.path.join(path, name))


def main():
    parser = argparse.ArgumentParser(description="Plays a guided tour of Palimbra on a virtual display.")
    parser.add_argument("--build", default=os.path.join(PROJECT, "build"), help="the build folder")
    parser.add_argument("--screenshots", default=os.path.join(PROJECT, "screenshots"), help="where the pictures go")
    arguments = parser.parse_args()
    pictures = os.path.abspath(arguments.screenshots)
    empty_folder(pictures)

    with Desktop() as desktop:
        desktop.paint_background("#5b83a8", "#33597d")
        tour = Tour(desktop, os.path.abspath(arguments.build), pictures)
        try:
            tour.play()
        except NotHappened as problem:
            tour.show("failed", "This is how far it came.")
            print("The tour ended early: %s" % problem, file=sys.stderr)
            if tour.client is not None:
                print(tour.client.program.output(), file=sys.stderr)
            return 1
    print("%d pictures in %s" % (tour.count, pictures))
    return 0


if __name__ == "__main__":
    sys.exit(main())
