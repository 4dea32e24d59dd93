# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The chapters of the tour about files: folders, a download, an upload."""

import os

from demo import COUNT_ROOT, MEBIBYTE, pattern
from desktop import wait_until
from guide import Guide

DOWNLOAD = "16 MiB"
UPLOAD = "Notes from the harbour.txt"


class Browsing(Guide):
    def open_folders(self):
        self.root = self.client.open_files()
        self.client.place(self.root, 40, 220)
        self.client.row("Files (%d)" % COUNT_ROOT, "Read me.txt")
        pictures = self.client.open_folder(self.root, "Pictures", "Files — Pictures (9)")
        self.client.place(pictures, 420, 220)
        self.show("folders", "Files was pressed, then a folder opened: icons, names and sizes.")
        self.close(pictures)

        names = self.client.open_folder(self.root, "Names", "Files — Names (10)")
        self.client.place(names, 420, 220)
        self.show("names", "Names in several scripts; one that is older than Unicode is shown with a replacement.")
        self.close(names)

        inner = self.client.open_folder(self.root, "A drawer", "Files — A drawer (1)")
        self.client.place(inner, 420, 220)
        nested = self.client.open_folder(inner, "in a drawer", "Files — A drawer/in a drawer (1)")
        self.close(nested)
        self.close(inner)

    def download(self):
        path = os.path.join(self.program_folder, "Downloads", DOWNLOAD)
        if os.path.exists(path):
            os.remove(path)
        sizes = self.client.open_folder(self.root, "Sizes", "Files — Sizes (9)")
        self.client.place(sizes, 640, 100)
        self.client.choose(sizes, DOWNLOAD)
        self.client.press_in(sizes, "Download")
        self.client.wait_for_chat("*** Requesting download: %s ***\n" % DOWNLOAD)
        self.client.wait_for_chat("*** Download complete: %s ***\n" % DOWNLOAD)
        with open(path, "rb") as file:
            self.check(file.read() == pattern(16 * MEBIBYTE), "%s is not what was to be downloaded" % path)
        # Beside each other: the chat tells how it went.
        self.close(self.root)
        self.client.bring_to_front(self.client.chat_window())
        self.client.bring_to_front(sizes)
        self.show("download", "A file was chosen and Download pressed: it lies in Downloads now, byte for byte.")
        self.close(sizes)

    def upload(self):
        path = os.path.join(self.desktop.environment["HOME"], UPLOAD)
        with open(path, "w", encoding="utf-8") as file:
            file.write("The tide comes in at seven.\n")
        self.root = self.client.open_files()
        self.client.place(self.root, 40, 220)
        uploads = self.client.open_folder(self.root, "Uploads", "Files — Uploads")
        self.client.place(uploads, 640, 230)
        self.client.choose_file(uploads, path)
        self.show("chooser", "Upload was pressed and the path of a file typed. Return sends it.")
        self.desktop.key("Return")
        self.desktop.wait_without_window("Open", self.client.program)
        self.client.wait_for_chat("*** Upload complete: %s ***\n" % UPLOAD)
        self.client.wait_for_chat("%s has left \"%s\" (28 bytes) in Uploads." % (self.nick, UPLOAD))
        self.close(uploads)
        uploads = self.client.open_folder(self.root, "Uploads", "Files — Uploads (1)")
        self.client.row("Files — Uploads (1)", UPLOAD)
        self.close(self.root)
        self.client.bring_to_front(self.client.chat_window())
        self.client.bring_to_front(uploads)
        self.client.place(uploads, 640, 230)
        self.show("upload", "The file has arrived: the chat says so, and the folder lists it.")
        self.close(uploads)

    def close(self, window):
        """Presses the close box and waits for the window to be gone."""
        window.close()
        wait_until(lambda: not window.exists(), "\"%s\" to close" % window.listed_title)
