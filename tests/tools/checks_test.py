#!/usr/bin/env python3
"""The checks of tools/checks fail when they should, each on a small bad sample, and only then."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKS = Path(__file__).resolve().parents[2] / "tools" / "checks"
LAYERS = """
[ground]
platform/runtime: : numbers
platform/services: platform/runtime : speak of numbers
[back ends]
platform/qt: [ground] : shows windows
[shared]
window: [ground] : the window as data
[subjects]
filmstrip: [ground] [shared] : the strip
drop: [ground] [shared] filmstrip : a drop marks a photo
[app]
app: [ground] [shared] [subjects] : connects events
app/main.cpp: [back ends] : starts the program
[companion]
slideshow: [ground] : beside it
slideshow/main.cpp: [back ends] : starts it
"""


class CheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("tools/layers.txt", LAYERS)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_check(self, check, *options):
        done = subprocess.run([sys.executable, "-B", str(CHECKS / f"{check}.py"), "--root", str(self.root), *options],
                              capture_output=True, text=True, check=False)
        self.assertEqual("", done.stderr)
        return done.returncode, done.stdout

    def assert_passes(self, check, *options):
        code, output = self.run_check(check, *options)
        self.assertEqual(0, code, output)
        return output

    def assert_fails(self, check, expected, *options):
        code, output = self.run_check(check, *options)
        self.assertEqual(1, code, output)
        self.assertIn(expected, output)
        return output


class Layers(CheckTest):
    def setUp(self):
        super().setUp()
        self.write("src/platform/runtime/Numbers.h", "#include <string>\n")
        self.write("src/platform/services/Files.h", '#include "platform/runtime/Numbers.h"\n')
        self.write("src/platform/qt/QtFiles.h", '#include "platform/services/Files.h"\n')
        self.write("src/window/MainForm.h", '#include "window/FilmStripState.h"\n')
        self.write("src/window/FilmStripState.h", '#include "platform/services/Files.h"\n')
        self.write("src/filmstrip/Marks.h", "")
        self.write("src/filmstrip/Marks.cpp", '#include "window/MainForm.h"\n#include "platform/services/Files.h"\n')
        self.write("src/drop/Drop.h", "")
        self.write("src/drop/Drop.cpp", '#include "drop/Drop.h"\n#include "window/MainForm.h"\n#include "filmstrip/Marks.h"\n')
        self.write("src/app/main.cpp", '#include "window/MainForm.h"\n#include "platform/qt/QtFiles.h"\n')
        self.write("slideshow/Show.h", '#include "platform/services/Files.h"\n')
        self.write("slideshow/main.cpp", '#include "slideshow/Show.h"\n#include "platform/qt/QtFiles.h"\n')

    def test_includes_that_keep_to_the_order_pass_and_the_graph_is_printed(self):
        output = self.assert_passes("layers")
        self.assertIn("drop -> window 1, filmstrip 1\n", output)
        self.assertIn("none upwards, no pair both ways", output)

    def test_including_what_lies_above_fails(self):
        self.write("src/platform/runtime/Bad.cpp", '#include "platform/services/Files.h"\n')
        self.assert_fails("layers", "src/platform/runtime/Bad.cpp:1: platform/runtime may not include")

    def test_including_a_subject_above_fails(self):
        self.write("src/filmstrip/Bad.cpp", '\n#include "drop/Drop.h"\n')
        self.assert_fails("layers", "src/filmstrip/Bad.cpp:2: filmstrip may not include \"drop/Drop.h\"")

    def test_a_program_folder_that_includes_a_back_end_fails(self):
        self.write("src/drop/Bad.cpp", '#include "platform/qt/QtFiles.h"\n')
        self.assert_fails("layers", "drop may not include")

    def test_a_back_end_is_for_the_one_file_that_is_named(self):
        self.write("src/app/Bad.cpp", '#include "platform/qt/QtFiles.h"\n')
        self.assert_fails("layers", "src/app/Bad.cpp:1: app may not include")

    def test_a_header_that_includes_the_main_form_fails(self):
        self.write("src/drop/Bad.h", '#include "window/MainForm.h"\n')
        self.assert_fails("layers", "by a forward declaration")

    def test_a_line_that_names_what_stands_on_no_earlier_line_fails(self):
        self.write("tools/layers.txt", LAYERS.replace("filmstrip: [ground]", "filmstrip: drop [ground]"))
        self.assert_fails("layers", "filmstrip names drop, which stands on no earlier line")

    def test_a_section_that_is_not_known_fails(self):
        self.write("tools/layers.txt", LAYERS.replace("filmstrip: [ground]", "filmstrip: [cellar]"))
        self.assert_fails("layers", "filmstrip names [cellar], which stands on no earlier line")

    def test_a_line_without_a_reason_fails(self):
        self.write("tools/layers.txt", LAYERS.replace(" : the strip", ""))
        self.assert_fails("layers", "filmstrip gives no reason")

    def test_an_include_that_is_not_by_path_from_src_fails(self):
        self.write("src/drop/Bad.cpp", '#include "Drop.h"\n')
        self.assert_fails("layers", "is no file below src/")

    def test_a_stale_pair_is_reported_and_passes(self):
        self.write("src/drop/Drop.cpp", '#include "window/MainForm.h"\n')
        self.assertIn("stale: nothing in drop includes filmstrip", self.assert_passes("layers"))

    def test_a_folder_that_the_list_does_not_name_fails(self):
        self.write("src/misc/Things.cpp", "")
        self.assert_fails("layers", "src/misc: tools/layers.txt does not name this folder")

    def test_a_folder_that_is_not_there_fails(self):
        self.write("tools/layers.txt", LAYERS + "printing: [ground] : prints\n")
        self.assert_fails("layers", "there is no src/printing")

    def test_the_slide_show_keeps_to_its_own_line(self):
        self.write("slideshow/Bad.cpp", '#include "slideshow/Show.h"\n#include "drop/Drop.h"\n')
        self.assert_fails("layers", "slideshow/Bad.cpp:2: slideshow may not include \"drop/Drop.h\"")

    def test_the_slide_show_names_its_headers_from_the_checkout_on(self):
        self.write("slideshow/Bad.cpp", '#include "Show.h"\n')
        self.assert_fails("layers", "slideshow/Bad.cpp:1: \"Show.h\" is no file")

    def test_a_program_folder_that_includes_the_slide_show_fails(self):
        self.write("src/drop/Bad.cpp", '#include "slideshow/Show.h"\n')
        self.assert_fails("layers", "src/drop/Bad.cpp:1: drop may not include \"slideshow/Show.h\"")

    def test_an_include_inside_a_comment_counts_for_nothing(self):
        self.write("src/drop/Good.cpp", '/*\n#include "platform/qt/QtFiles.h"\n*/\n// #include "platform/qt/QtFiles.h"\n')
        self.assert_passes("layers")


class Forbidden(CheckTest):
    def assert_line_fails(self, line, expected):
        with self.subTest(line):
            self.write("src/drop/Bad.cpp", line + "\n")
            self.assert_fails("forbidden", "src/drop/Bad.cpp:1: " + expected)

    def assert_line_passes(self, line):
        with self.subTest(line):
            self.write("src/drop/Good.cpp", line + "\n")
            self.assert_passes("forbidden")

    def test_headers_of_the_host_and_of_a_toolkit_fail(self):
        for header in ("chrono", "thread", "mutex", "filesystem", "fstream", "random", "unistd.h", "QString", "jpeglib.h",
                       "sys/stat.h", "ctime", "iostream"):
            self.assert_line_fails(f"#include <{header}>", f"<{header}> is not for this floor")

    def test_the_slide_show_leaves_the_host_to_the_services_too(self):
        self.write("slideshow/main.cpp", "#include <unistd.h>\n")
        self.assert_passes("forbidden")
        self.write("slideshow/Show.cpp", "#include <thread>\n")
        self.assert_fails("forbidden", "slideshow/Show.cpp:1: <thread> is not for this floor")

    def test_pure_headers_pass(self):
        self.assert_line_passes("#include <vector>\n#include <cstdio>")

    def test_calls_that_reach_past_the_program_fail(self):
        for call, name in (("int a = rand();", "rand"), ("auto t = std::time(nullptr);", "time"), ("return time(0);", "time"),
                           ("x = ::time(0);", "time"), ("sleep(1);", "sleep"), ('auto f = std::fopen("a", "r");', "fopen"),
                           ("std::remove(name);", "remove"), ('getenv("HOME");', "getenv"), ("if (a &&time(0)) b();", "time")):
            self.assert_line_fails(call, f"{name}() is not for this floor")

    def test_names_of_the_library_that_reach_past_the_program_fail(self):
        self.assert_line_fails("std::this_thread::sleep_for(d);", "sleep_for() is not for this floor")
        self.assert_line_fails("std::filesystem::path p;", "std::filesystem is not for this floor")

    def test_members_variables_and_algorithms_of_such_names_pass(self):
        for line in ("host.time(0);", "host->remove(name);", "CalendarTime time(2003);", "const Date& time(int);",
                     "list.erase(std::remove(list.begin(), list.end(), 3), list.end());", "Times::time(3);",
                     "auto rename = [](int a) {}; rename(3);", "// rand()", 'Say("rand()");'):
            self.assert_line_passes(line)

    def test_back_ends_may(self):
        self.write("src/platform/posix/Clock.cpp", "#include <chrono>\n")
        self.assert_passes("forbidden")


class Sizes(CheckTest):
    @staticmethod
    def function(head, lines):
        return head + " {\n" + "  Step();\n" * (lines - 2) + "}\n"

    def test_a_file_at_its_limit_passes_and_one_line_more_fails(self):
        self.write("src/app/A.cpp", "\n" * 500)
        self.write("src/app/A.h", "\n" * 250)
        self.assert_passes("sizes")
        self.write("src/app/A.cpp", "\n" * 501)
        self.assert_fails("sizes", "src/app/A.cpp:1: 501 lines; 500 is the limit")

    def test_a_header_over_its_limit_fails(self):
        self.write("src/app/A.h", "\n" * 251)
        self.assert_fails("sizes", "src/app/A.h:1: 251 lines; 250 is the limit")

    def test_a_function_over_60_lines_is_told_and_over_80_fails(self):
        self.write("src/app/A.cpp", "namespace pixorra {\n" + self.function("void Start(int a)", 60) + "}\n")
        self.assertNotIn("long:", self.assert_passes("sizes"))
        self.write("src/app/A.cpp", "namespace pixorra {\n" + self.function("void Start(int a)", 61) + "}\n")
        self.assertIn("src/app/A.cpp:2: long: Start has 61 lines", self.assert_passes("sizes"))
        self.write("src/app/A.cpp", "namespace pixorra {\n\n" + self.function("void Start(int a)", 81) + "}\n")
        self.assert_fails("sizes", "src/app/A.cpp:3: Start has 81 lines; 80 is the limit")

    def test_every_shape_of_a_function_is_found(self):
        for head in ("TEST(A, B)", "Form::Form(int a) : Left(a), Top{a}", "bool A::operator==(const A& b) const",
                     "void F(int a = 3) noexcept", "template <class T>\nT* Find(std::function<void(int)> f)",
                     "static struct Size Measure(const std::string& text)", "auto F() -> std::vector<int>"):
            with self.subTest(head):
                self.write("src/app/A.cpp", self.function(head, 85))
                self.assert_fails("sizes", "80 is the limit")

    def test_functions_inside_a_class_are_found_and_the_class_is_none(self):
        self.write("src/app/A.h", "class A final : public B {\n public:\n" + self.function("  void F()", 40) * 3 + "};\n")
        self.assertNotIn("long:", self.assert_passes("sizes"))
        self.write("src/app/A.h", "class A {\n public:\n" + self.function("  void F()", 90) + "};\n")
        self.assert_fails("sizes", "src/app/A.h:3: F has 90 lines")

    def test_tables_are_no_functions(self):
        self.write("src/app/A.cpp", "const std::array<Row, 3> rows = {\n" + "  Row{1, F(2)},\n" * 100 + "};\n")
        self.assert_passes("sizes")

    def test_braces_in_texts_and_comments_count_for_nothing(self):
        body = "  // {{{\n  Say(\"{\"); Say('{'); Say(R\"x({)x\");\n  /* { */ int a = 1'000;\n"
        self.write("src/app/A.cpp", "void F() {\n" + body + "}\n" + self.function("void G()", 85))
        self.assert_fails("sizes", "src/app/A.cpp:6: G has 85 lines")


class Words(CheckTest):
    def assert_line_fails(self, name, line, expected="Bad"):
        with self.subTest(line):
            self.write(name, "\n" + line + "\n")
            self.assert_fails("words", f"{name}:2: ")
            self.write(name, "")

    def assert_line_passes(self, name, line):
        with self.subTest(line):
            self.write(name, line + "\n")
            self.assert_passes("words")

    def test_documents_that_are_elsewhere_fail(self):
        # Written in pieces, as this file is checked too.
        for line in ("// see spec" ".md", "// as the " "specification says", "// Part" " 4.2", "// Parts" " 10.1 and others"):
            self.assert_line_fails("src/app/A.cpp", line)

    def test_a_phrase_over_two_lines_fails(self):
        self.assert_line_fails("docs/a.md", "as the\n" "specification says")

    def test_paths_of_one_machine_fail(self):
        for line in ("/wo" "rk/main", '"/ro' 'ot/.ssh"', "/ho" "me/bob/photos", "see /ho" "me/jenkins"):
            self.assert_line_fails("docs/a.md", line)

    def test_example_paths_pass(self):
        for line in ("/home/anna/Photos", "a/work/b", "the framework/rooted", "/rootless", "$HOME/work", "/home/<user>"):
            self.assert_line_passes("docs/a.md", line)

    def test_addresses_fail_in_scripts_and_build_files(self):
        address = "https" "://example.org/a"
        for name in ("tools/get.py", "CMakeLists.txt", "run"):
            self.assert_line_fails(name, f"# {address}")
        self.write("tools/fetch", f"#!/bin/sh\ncurl {address}\n")
        self.assert_fails("words", "tools/fetch:2: an address")

    def test_name_spaces_of_drawings_pass(self):
        self.assert_line_passes("assets/a.svg", '<svg xmlns="http' '://www.w3.org/2000/svg"/>')

    def test_what_is_built_is_not_looked_at(self):
        self.assert_line_passes("build/a.txt", "/wo" "rk/main")


class Orphans(CheckTest):
    def test_a_file_that_no_target_builds_fails(self):
        self.write("src/app/A.cpp", "")
        self.write("tests/app/ATest.cpp", "")
        entry = '{{"directory": "{0}", "file": "{0}/src/app/A.cpp", "command": ""}}'.format(self.root)
        self.write("build/compile_commands.json", f"[{entry}]")
        output = self.assert_fails("orphans", "tests/app/ATest.cpp:1: no target builds", "--build", str(self.root / "build"))
        self.assertNotIn("src/app/A.cpp", output)

    def test_files_that_are_all_built_pass(self):
        self.write("src/app/A.cpp", "")
        self.write("build/compile_commands.json", '[{"directory": "%s/build", "file": "../src/app/A.cpp"}]' % self.root)
        self.assert_passes("orphans", "--build", str(self.root / "build"))

    def test_files_that_are_compiled_as_one_are_built(self):
        self.write("tests/app/ATest.cpp", "")
        self.write("build/Unity/unity_0_cxx.cxx", f'#include "{self.root}/tests/app/ATest.cpp"\n')
        self.write("build/compile_commands.json",
                   '[{"directory": "%s/build", "file": "Unity/unity_0_cxx.cxx"}]' % self.root)
        self.assert_passes("orphans", "--build", str(self.root / "build"))
        self.write("tests/app/BTest.cpp", "")
        self.assert_fails("orphans", "tests/app/BTest.cpp:1", "--build", str(self.root / "build"))


class Format(CheckTest):
    def setUp(self):
        super().setUp()
        self.write(".clang-format", "BasedOnStyle: Google\n")

    def test_badly_set_code_fails_and_is_put_right(self):
        self.write("src/app/A.cpp", "int  a ;\n")
        done = subprocess.run([sys.executable, "-B", str(CHECKS / "format.py"), "--root", str(self.root)],
                              capture_output=True, text=True, check=False)
        self.assertEqual(1, done.returncode)
        self.assertIn("clang-formatted", done.stderr)
        self.assert_passes("format", "--fix", "yes")
        self.assertEqual("int a;\n", (self.root / "src/app/A.cpp").read_text())
        self.assert_passes("format")


if __name__ == "__main__":
    unittest.main()
