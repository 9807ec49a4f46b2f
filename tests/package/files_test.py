#!/usr/bin/env python3
"""What is installed, from a build folder with both programs in it: every file in its place below any prefix, and none that the
desktop's own checks find fault with.

    files_test.py BUILD_FOLDER
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
PREFIX = "/opt/photo tools"

FILES = """
bin/pixorra
bin/pixorra-slideshow
libexec/xscreensaver/pixorra-slideshow
share/Thunar/sendto/pixorra-slideshow-by-pixorra.desktop
share/applications/pixorra-slideshow.desktop
share/applications/pixorra.desktop
share/applications/screensavers/pixorra-slideshow.desktop
share/icons/hicolor/scalable/apps/pixorra.svg
share/icons/hicolor/symbolic/apps/pixorra-symbolic.svg
share/kio/servicemenus/pixorra-slideshow-by-pixorra.desktop
share/man/man1/pixorra-slideshow.1
share/man/man1/pixorra.1
share/metainfo/org.pixorra.pixorra.metainfo.xml
share/xscreensaver/config/pixorra-slideshow.xml
""".split() + [f"share/icons/hicolor/{size}x{size}/apps/pixorra.png" for size in (16, 22, 24, 32, 48, 64, 128, 256, 512)]
MANUAL = ROOT / "docs/manual"
FILES += [f"share/doc/pixorra/manual/{name}" for name in ["manual.css"] +
          [f"{page.stem}.html" for page in MANUAL.glob("*.md")] + [f"images/{image.name}" for image in MANUAL.glob("images/*.png")]]


def run(*command, **more):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, check=False, **more)


def needs(tool):
    return unittest.skipUnless(shutil.which(tool), f"{tool} is missing")


class Installed(unittest.TestCase):
    build = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.stage = Path(folder.name)
        done = run("cmake", "--install", cls.build, "--prefix", PREFIX, "--strip", env={**os.environ, "DESTDIR": folder.name})
        if done.returncode != 0:
            raise AssertionError(done.stderr)
        cls.prefix = cls.stage / PREFIX[1:]

    def paths(self, pattern):
        found = sorted(str(path) for path in self.prefix.rglob(pattern))
        self.assertTrue(found, pattern)
        return found

    def passes(self, *command):
        done = run(*command)
        self.assertEqual((0, ""), (done.returncode, done.stdout + done.stderr if done.returncode else ""))
        return done.stdout + done.stderr

    def test_each_file_is_in_its_place_and_no_other(self):
        found = [path.relative_to(self.prefix).as_posix() for path in self.prefix.rglob("*") if not path.is_dir()]
        self.assertEqual(sorted(FILES), sorted(found))
        self.assertEqual(["opt"], [path.name for path in self.stage.iterdir()], "something is outside the prefix")

    def test_the_programs_run_from_there(self):
        for program in ("bin/pixorra", "bin/pixorra-slideshow", "libexec/xscreensaver/pixorra-slideshow"):
            done = run(self.prefix / program, "--version", cwd="/")
            self.assertEqual((0, f"{Path(program).name} {version()}\n"), (done.returncode, done.stdout))

    def test_the_programs_know_nothing_of_the_folder_that_they_were_built_in(self):
        for program in ("pixorra", "pixorra-slideshow"):
            self.assertNotIn(str(Path(self.build).resolve()).encode(), (self.prefix / "bin" / program).read_bytes(), program)

    @needs("readelf")
    def test_the_licences_name_each_library_that_is_linked(self):
        names = {"libQt6": "Qt 6", "libgio-": "GLib", "libgobject-": "GLib", "libglib-": "GLib", "libjpeg.": "libjpeg-turbo",
                 "libcups.": "CUPS", "libxcb.": "libxcb", "libX11.": "libX11", "libXss.": "libXss"}
        read_me = (ROOT / "assets/Readme.txt").read_text().split("\nLicences\n")[1].split("\nThe MIT licence\n")[0]
        copyright = (PACKAGING / "debian/copyright").read_text()
        for program in ("pixorra", "pixorra-slideshow"):
            dynamic = self.passes("readelf", "-d", self.prefix / "bin" / program)
            libraries = set(re.findall(r"\(NEEDED\).*\[(\S+)\]", dynamic))
            self.assertTrue(libraries)
            # The compiler's own come with every program.
            for library in {name for name in libraries if not re.match(r"lib(c|m|gcc_s|stdc\+\+)\.|ld-", name)}:
                name = next((names[start] for start in names if library.startswith(start)), library)
                self.assertIn(name, read_me, library)
                self.assertIn(name, copyright, library)

    def test_the_screen_saver_is_the_slide_show(self):
        self.assertEqual((self.prefix / "bin/pixorra-slideshow").resolve(),
                         (self.prefix / "libexec/xscreensaver/pixorra-slideshow").resolve())

    def test_icons_have_the_size_of_their_folder(self):
        for path in self.paths("apps/*.png"):
            size = int(re.search(r"/(\d+)x\1/", path)[1])
            self.assertEqual((size, size), size_of(Path(path)), path)

    @needs("desktop-file-validate")
    def test_the_desktop_finds_no_fault_with_the_entries(self):
        self.assertEqual("", self.passes("desktop-file-validate", *self.paths("applications/pixorra*.desktop")))
        # Its category is the daemons', which the tool has a hint about.
        self.passes("desktop-file-validate", *self.paths("screensavers/*.desktop"))

    # Without a folder the slide show is a screen saver, which nobody looks for among the programs.
    def test_of_the_two_programs_the_menus_show_the_sorter(self):
        hidden = {Path(path).name: "\nNoDisplay=true\n" in Path(path).read_text()
                  for path in self.paths("applications/pixorra*.desktop")}
        self.assertEqual({"pixorra.desktop": False, "pixorra-slideshow.desktop": True}, hidden)

    @needs("appstreamcli")
    def test_software_centres_find_no_fault_with_the_programs_page(self):
        self.passes("appstreamcli", "validate", "--pedantic", "--no-net", *self.paths("*.metainfo.xml"))

    @needs("mandoc")
    def test_the_manual_pages_are_clean(self):
        self.assertEqual("", self.passes("mandoc", "-Tlint", *self.paths("*.1")))


def version():
    return re.search(r"VERSION ([\d.]+)", re.search(r"project\([^)]*\)", (ROOT / "CMakeLists.txt").read_text())[0])[1]


def size_of(image):
    header = image.read_bytes()[16:24]
    return int.from_bytes(header[:4], "big"), int.from_bytes(header[4:], "big")


class Texts(unittest.TestCase):
    def test_the_programs_page_shows_pictures_of_the_manual_with_their_sizes(self):
        metainfo = next(PACKAGING.glob("*.metainfo.xml"))
        shown = re.findall(r'<image type="source" width="(\d+)" height="(\d+)">[^<]*/([^/<]+)</image>', metainfo.read_text())
        self.assertEqual(metainfo.read_text().count("<image"), len(shown))
        for width, height, name in shown:
            image = MANUAL / "images" / name
            self.assertTrue(image.exists(), f"{metainfo.name} shows {name}: the manual has no such picture")
            self.assertEqual((int(width), int(height)), size_of(image),
                             f'{metainfo.name}: write width="{size_of(image)[0]}" height="{size_of(image)[1]}" for {name}')
            self.assertIn(f"`../docs/manual/images/{name}`", (PACKAGING / "README.md").read_text())

    def test_all_speak_of_one_version(self):
        changelog = (PACKAGING / "debian/changelog").read_text()
        self.assertEqual(version(), re.match(r"pixorra \(([\d.]+)\)", changelog)[1])
        metainfo = next(PACKAGING.glob("*.metainfo.xml")).read_text()
        self.assertEqual(version(), re.search(r'<release version="([\d.]+)"', metainfo)[1])
        for page in PACKAGING.glob("*.1"):
            self.assertIn(f'"Pixorra {version()}"', page.read_text().splitlines()[0], page.name)

    def test_the_licence_is_the_same_everywhere(self):
        text = (ROOT / "LICENSE").read_text().split("\n\n", 2)[2]
        self.assertTrue((ROOT / "assets/Readme.txt").read_text().endswith(text))
        debian = "".join(f" {line or '.'}\n" for line in text.splitlines())
        self.assertIn("License: Expat\n" + debian, (PACKAGING / "debian/copyright").read_text())


if __name__ == "__main__":
    Installed.build = sys.argv.pop(1)
    unittest.main()
