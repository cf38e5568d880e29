#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What an installation puts where, and whether the pieces name each other rightly.

install_test.py BUILD_FOLDER VERSION
"""

import configparser
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPONENT = "example.cuadrado_latino.programa"
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)


class Install(unittest.TestCase):
    build = None
    version = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.root = pathlib.Path(cls.folder.name)
        command = ["cmake", "--install", cls.build, "--prefix", cls.root]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)

    def test_program_is_there(self):
        self.assertTrue(os.access(self.root / "bin" / "cuadrado-latino", os.X_OK))

    def test_desktop_entry_names_the_program_and_its_icon(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(self.root / "share/applications/cuadrado-latino.desktop", encoding="utf-8")
        values = entry["Desktop Entry"]
        self.assertTrue((self.root / "bin" / values["Exec"]).is_file())
        for size in ICON_SIZES:
            icon = self.root / f"share/icons/hicolor/{size}x{size}/apps" / (values["Icon"] + ".png")
            header = icon.read_bytes()[:24]
            self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(int.from_bytes(header[16:20], "big"), size)

    def test_metainfo_and_man_pages_tell_the_version(self):
        metainfo = xml.etree.ElementTree.parse(
            self.root / f"share/metainfo/{COMPONENT}.metainfo.xml"
        )
        self.assertEqual(metainfo.find("id").text, COMPONENT)
        newest = metainfo.find("releases/release")
        self.assertEqual(newest.get("version"), self.version)
        launchable = metainfo.find("launchable").text
        self.assertTrue((self.root / "share/applications" / launchable).is_file())
        for folder in "man1", "es/man1":
            page = (self.root / "share/man" / folder / "cuadrado-latino.1").read_text("utf-8")
            self.assertIn(f"Cuadrado Latino {self.version}", page)
        changelog = (ROOT / "packaging/debian/changelog").read_text("utf-8")
        self.assertTrue(changelog.startswith(f"cuadrado-latino ({self.version})"))

    def test_pictures_that_the_software_centre_is_told_of_are_the_manuals(self):
        metainfo = xml.etree.ElementTree.parse(
            self.root / f"share/metainfo/{COMPONENT}.metainfo.xml"
        )
        images = [image.text.rsplit("/", 1)[1] for image in metainfo.iter("image")]
        self.assertTrue(images)
        for image in images:
            self.assertTrue((ROOT / "docs/manual/imagenes" / image).is_file(), image)

    def test_validation_and_samples_are_there(self):
        documents = self.root / "share/doc/cuadrado-latino"
        self.assertTrue((documents / "validacion.md").is_file())
        self.assertTrue(list((documents / "ejemplos").glob("*.asc")))


if __name__ == "__main__":
    Install.build, Install.version = sys.argv[1:3]
    del sys.argv[1:3]
    unittest.main(verbosity=2)
