#!/usr/bin/env python3
"""The manual: its pages as a browser gets them, and whether the program has every label that they name."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
MANUAL = ROOT / "docs/manual"
sys.path.insert(0, str(MANUAL))
import render  # pylint: disable=wrong-import-position

# Named in the manual, and shown or made by somebody else.
NOT_OURS = {
    "programs:": "a line of the screen saver's own settings",
    "~/.xscreensaver": "a file of the screen saver",
    "man pixorra": "a command",
    "man pixorra-slideshow": "a command",
    "DCIM": "a folder of cameras",
}


def program_texts():
    """Every text in quotation marks of the programs, without the marks of access keys."""
    texts = set()
    for folder in ("src", "slideshow"):
        for path in (ROOT / folder).rglob("*"):
            if path.suffix in (".cpp", ".h"):
                for text in re.findall(r'"((?:[^"\\\n]|\\.)*)"', path.read_text(encoding="utf-8")):
                    texts.add(text.replace('\\"', '"').replace("&", ""))
    return texts


class Links(HTMLParser):
    def __init__(self):
        super().__init__()
        self.targets, self.pictures, self.open_tags = [], [], []

    def handle_starttag(self, tag, attrs):
        named = dict(attrs)
        if tag in ("a", "link"):
            self.targets.append(named["href"])
        if tag == "img":
            self.pictures.append((named["src"], named.get("alt")))
        if tag not in ("img", "link", "meta"):
            self.open_tags.append(tag)

    def handle_endtag(self, tag):
        if not self.open_tags or self.open_tags.pop() != tag:
            raise AssertionError(f"</{tag}> ends what is not open")


class Pages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.target = Path(cls.folder.name) / "manual"
        subprocess.run([sys.executable, "-B", MANUAL / "render.py", MANUAL, cls.target], check=True)

    def test_there_are_ten_pages_at_most_and_each_source_is_one(self):
        pages = sorted(path.stem for path in self.target.glob("*.html"))
        self.assertEqual(sorted(render.PAGES), pages)
        self.assertEqual(sorted(path.stem for path in MANUAL.glob("*.md")), pages)
        self.assertLessEqual(len(pages), 10)

    def test_every_link_and_picture_is_there_and_every_picture_is_described(self):
        for path in self.target.glob("*.html"):
            links = Links()
            links.feed(path.read_text(encoding="utf-8"))
            self.assertEqual([], links.open_tags, path.name)
            for target in links.targets + [source for source, _ in links.pictures]:
                self.assertTrue((self.target / target).is_file(), f"{path.name}: {target}")
            for source, description in links.pictures:
                self.assertTrue(description, f"{path.name}: {source}")

    def test_every_picture_is_shown_and_all_are_small(self):
        texts = "".join(path.read_text(encoding="utf-8") for path in [*MANUAL.glob("*.md"), ROOT / "README.md"])
        sizes = {path.name: path.stat().st_size for path in (MANUAL / "images").iterdir()}
        for name in sizes:
            self.assertTrue(f"images/{name})" in texts, name)
        self.assertLess(sum(sizes.values()), 1_500_000)

    def test_the_pages_are_the_same_at_each_run(self):
        again = Path(self.folder.name) / "again"
        subprocess.run([sys.executable, "-B", MANUAL / "render.py", MANUAL, again], check=True)
        for path in self.target.rglob("*.html"):
            self.assertEqual(path.read_bytes(), (again / path.relative_to(self.target)).read_bytes())

    def test_an_older_manual_is_replaced_as_a_whole(self):
        older = Path(self.folder.name) / "older"
        shutil.copytree(self.target, older)
        shutil.copyfile(older / "keys.html", older / "gone.html")
        shutil.copyfile(older / "images" / self.a_picture(), older / "images/gone.png")
        self.rendered_to(older).check_returncode()
        names = [sorted(path.relative_to(folder) for path in folder.rglob("*")) for folder in (self.target, older)]
        self.assertEqual(names[0], names[1])

    def test_a_folder_that_holds_anything_else_is_refused_and_stays(self):
        with tempfile.TemporaryDirectory() as scratch:
            for kept in ("letter.txt", "index.html", "manual.css", "images/cat.png"):
                target = Path(scratch) / kept.replace("/", "-") / "target"
                (target / kept).parent.mkdir(parents=True)
                (target / kept).write_text("mine")
                self.assert_refused(target)
                self.assertEqual("mine", (target / kept).read_text())

    def test_a_page_of_somebody_else_is_refused_and_stays_with_all_beside_it(self):
        with tempfile.TemporaryDirectory() as scratch:
            target = Path(scratch) / "site"
            target.mkdir()
            for name in ("index.html", "manual.css", "letter.txt"):
                (target / name).write_text("mine")
            self.assert_refused(target)
            (target / "letter.txt").unlink()
            self.assert_refused(target)
            self.assertEqual("mine", (target / "index.html").read_text())

    def test_what_has_been_put_beside_an_older_manual_stays(self):
        for name in ("letter.txt", "notes.html", "images/cat.jpg", "images/more/cat.png", "more/cat.png"):
            with tempfile.TemporaryDirectory() as scratch:
                target = Path(scratch) / "manual"
                shutil.copytree(self.target, target)
                (target / name).parent.mkdir(exist_ok=True)
                (target / name).write_text("mine")
                self.assert_refused(target)
                self.assertEqual("mine", (target / name).read_text())
                self.assertTrue((target / "keys.html").is_file())

    def test_a_file_and_a_link_are_refused(self):
        with tempfile.TemporaryDirectory() as scratch:
            file = Path(scratch) / "file"
            file.write_text("mine")
            self.assert_refused(file)
            self.assertEqual("mine", file.read_text())
            link = Path(scratch) / "link"
            shutil.copytree(self.target, Path(scratch) / "manual")
            link.symlink_to("manual")
            self.assert_refused(link)
            self.assertTrue((Path(scratch) / "manual/index.html").is_file())

    def test_the_sources_and_what_they_are_in_are_refused(self):
        with tempfile.TemporaryDirectory() as scratch:
            manual = Path(scratch) / "docs/manual"
            shutil.copytree(MANUAL, manual)
            for target in (manual, manual.parent, manual / "images"):
                (target / "index.html").write_text("")
                (target / "manual.css").touch()
                self.assert_refused(target, manual)
                self.assertTrue((manual / "index.md").is_file())
                self.assertTrue(any((manual / "images").glob("*.png")))

    def test_an_empty_folder_is_taken(self):
        with tempfile.TemporaryDirectory() as scratch:
            self.rendered_to(scratch).check_returncode()
            self.assertTrue((Path(scratch) / "index.html").is_file())

    def a_picture(self):
        return next(path.name for path in (self.target / "images").iterdir())

    @staticmethod
    def rendered_to(target, sources=MANUAL):
        return subprocess.run([sys.executable, "-B", MANUAL / "render.py", sources, target], capture_output=True, text=True, check=False)

    def assert_refused(self, target, sources=MANUAL):
        run = self.rendered_to(target, sources)
        self.assertEqual(1, run.returncode, run.stderr)
        self.assertEqual(1, len(run.stderr.splitlines()), run.stderr)


class Labels(unittest.TestCase):
    def test_the_program_has_every_label_that_the_manual_names(self):
        texts = program_texts()
        missing = []
        for path in sorted(MANUAL.glob("*.md")):
            for label in re.findall(r"`(.+?)`", path.read_text(encoding="utf-8")):
                # A caption may end with its key, or with a name that is put in while the program runs.
                if label not in NOT_OURS and not any(text == label or text.startswith((label + "  ", label + " \"")) for text in texts):
                    missing.append(f"{path.name}: {label}")
        self.assertEqual([], missing)


class Rendering(unittest.TestCase):
    def test_paragraphs_lists_and_headings(self):
        self.assertEqual("<h2>A &amp; B</h2>", render.body("## A & B"))
        self.assertEqual("<p>one two</p>\n<p>three</p>", render.body("one\ntwo\n\n\nthree\n"))
        self.assertEqual("<ul>\n<li>one more</li>\n<li>two</li>\n</ul>", render.body("- one\n  more\n- two"))
        self.assertEqual("<ol>\n<li>one</li>\n<li>two</li>\n</ol>", render.body("1. one\n2. two"))

    def test_what_is_in_a_line(self):
        self.assertEqual('<p><strong>a</strong> <code>&lt;b&gt;</code> <a href="c.html">d</a></p>', render.body("**a** `<b>` [d](c.md)"))

    def test_tables_pictures_and_commands(self):
        self.assertEqual("<table>\n<tr><th>a</th><th>b</th></tr>\n<tr><td>1</td><td>2</td></tr>\n</table>",
                         render.body("| a | b |\n|---|---|\n| 1 | 2 |"))
        self.assertEqual('<p class="picture"><img src="c.png" alt="A &quot;c&quot;"></p>', render.body('![A "c"](c.png)'))
        self.assertEqual("<pre>a  \\\nb</pre>", render.body("    a  \\\n    b"))

    def test_a_page_names_itself_and_leads_on(self):
        made = render.page("a", {"a": "# One\n\ntext", "b": "# Two\n\ntext"})
        self.assertIn("<title>One - Pixorra</title>", made)
        self.assertIn('<a href="a.html" aria-current="page">One</a>', made)
        self.assertIn('<p class="onward"><a href="b.html">Two</a></p>', made)
        self.assertNotIn("onward", render.page("b", {"a": "# One\n\ntext", "b": "# Two\n\ntext"}))


if __name__ == "__main__":
    unittest.main()
