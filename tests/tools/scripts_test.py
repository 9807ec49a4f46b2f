#!/usr/bin/env python3
"""run, test, package, .ci/run, tools/install-packages and tools/fuzz, each in a checkout of nothing but scripts, with stand-ins for what they call."""

import json
import os
import pty
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
NO_DISPLAY = "No display: neither DISPLAY nor WAYLAND_DISPLAY is set"


class ScriptTest(unittest.TestCase):
    """Every stand-in writes its name and arguments into a log, and does what the test gave it to do."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "checkout"
        self.bin = Path(folder.name) / "bin"
        self.bin.mkdir()
        self.log = Path(folder.name) / "log"
        self.log.touch()
        for name in ("run", "test", ".ci/run", "tools/install-packages", "tools/packages.txt", "tools/fuzz", "package", "tools/test-targets",
                     "tools/checks/sources.py"):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, self.root / name)
        self.environment = {"PATH": f"{self.bin}:{os.environ['PATH']}", "LOG": str(self.log), "HOME": folder.name}

    def stand_in(self, path, body=""):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f'#!/bin/bash\necho "{path.name} $*" >>"$LOG"\n{body}\n', encoding="utf-8")
        path.chmod(0o755)

    def call(self, *command, **environment):
        return subprocess.run(command, cwd=self.root, env={**self.environment, **environment}, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, check=False)

    def calls(self, name):
        return [line.split(" ", 1)[1] for line in self.log.read_text().splitlines() if line.startswith(name + " ")]


class InstallPackages(ScriptTest):
    def setUp(self):
        super().setUp()
        (self.root / "tools/packages.txt").write_text("# A list\n[build]\ng++\ncmake\n\n[test]\n# Two tools\nxdotool\nccache\n")
        self.stand_in(self.bin / "apt-get")
        self.stand_in(self.bin / "sudo", '"$@"')
        self.stand_in(self.bin / "id", "echo 0")
        self.have("g++", "cmake", "xdotool", "ccache")

    def have(self, *packages):
        names = "|".join(packages)
        self.stand_in(self.bin / "dpkg-query", f'case "${{@: -1}}" in {names}) printf installed ;; *) exit 1 ;; esac')

    def test_nothing_is_asked_of_apt_when_all_is_there(self):
        done = self.call("tools/install-packages", "build", "test")
        self.assertEqual((0, ""), (done.returncode, done.stdout))
        self.assertEqual([], self.calls("apt-get"))

    def test_what_is_missing_is_installed_after_one_update(self):
        self.have("cmake", "ccache")
        self.assertEqual(0, self.call("tools/install-packages", "build", "test").returncode)
        update, install = self.calls("apt-get")
        self.assertTrue(update.startswith("update"))
        self.assertTrue(install.startswith("install") and install.endswith(" g++ xdotool"), install)
        self.assertEqual([], self.calls("sudo"))

    def test_only_the_sections_asked_for_count(self):
        self.have("g++", "cmake")
        self.call("tools/install-packages", "build")
        self.assertEqual([], self.calls("apt-get"))

    def test_who_is_not_root_installs_by_sudo(self):
        self.have("cmake")
        self.stand_in(self.bin / "id", "echo 1000")
        self.assertEqual(0, self.call("tools/install-packages", "build").returncode)
        self.assertEqual(2, len(self.calls("sudo")))

    def test_an_installation_that_fails_fails_the_script(self):
        self.have("cmake")
        self.stand_in(self.bin / "apt-get", '[ "$1" = update ]')
        self.assertNotEqual(0, self.call("tools/install-packages", "build").returncode)

    def test_a_section_that_is_not_there_is_an_error(self):
        done = self.call("tools/install-packages", "nothing")
        self.assertEqual(2, done.returncode)
        self.assertIn("no section [nothing]", done.stderr)


class Built(ScriptTest):
    """Stand-ins for everything that run and test call."""

    def setUp(self):
        super().setUp()
        self.stand_in(self.root / "tools/install-packages")
        self.stand_in(self.root / "tools/tidy")
        self.stand_in(self.bin / "cmake", 'mkdir -p build && printf "" >>build/made')
        self.stand_in(self.bin / "ctest", 'echo "100% tests passed, 0 tests failed out of 1"')
        self.stand_in(self.bin / "xvfb-run", 'exec "${@: -1}"')
        self.stand_in(self.root / "build/release/pixorra", 'echo "started on ${DISPLAY:-no display}"; exit 3')


class Run(Built):
    def test_it_builds_and_starts_the_program_with_no_arguments(self):
        done = self.call("./run", DISPLAY=":7")
        self.assertEqual(3, done.returncode)
        self.assertIn("started on :7", done.stdout)
        self.assertEqual([""], self.calls("pixorra"))
        self.assertEqual(["build run"], self.calls("install-packages"))

    def test_it_needs_no_test_library_and_keeps_a_build_folder_that_has_the_tests(self):
        self.call("./run", "--build-only")
        self.assertIn("-DBUILD_TESTING=OFF", self.calls("cmake")[0])
        (self.root / "build/release/CMakeCache.txt").write_text("BUILD_TESTING:BOOL=OFF\n")
        self.log.write_text("")
        self.call("./run", "--build-only")
        self.assertIn("-DBUILD_TESTING=OFF", self.calls("cmake")[0])
        (self.root / "build/release/CMakeCache.txt").write_text("BUILD_TESTING:BOOL=ON\n")
        self.log.write_text("")
        self.call("./run", "--build-only")
        self.assertEqual("--preset release", self.calls("cmake")[0])

    def test_build_only_stops_before_starting(self):
        done = self.call("./run", "--build-only")
        self.assertEqual(0, done.returncode)
        self.assertEqual([], self.calls("pixorra"))
        self.assertTrue(os.access(self.root / "build/pixorra", os.X_OK))
        self.assertEqual("", done.stderr)

    def test_without_display_and_terminal_one_line_tells_and_1_is_the_end(self):
        done = self.call("./run")
        self.assertEqual(1, done.returncode)
        self.assertTrue(done.stderr.startswith(NO_DISPLAY))
        self.assertEqual(1, done.stderr.count("\n"))
        self.assertEqual([], self.calls("pixorra"))

    def test_a_wayland_display_is_a_display(self):
        self.assertEqual(3, self.call("./run", WAYLAND_DISPLAY="wayland-0").returncode)

    def test_virtual_starts_on_a_virtual_display_and_installs_it(self):
        done = self.call("./run", "--virtual")
        self.assertEqual(3, done.returncode)
        self.assertEqual(["build run virtual"], self.calls("install-packages"))
        self.assertEqual(1, len(self.calls("xvfb-run")))

    def test_virtual_keeps_to_a_display_that_is_there(self):
        self.call("./run", "--virtual", DISPLAY=":7")
        self.assertEqual([], self.calls("xvfb-run"))

    def answer_on_a_terminal(self, answer):
        try:
            person, terminal = pty.openpty()
        except OSError:
            self.skipTest("no terminal can be had here")
        os.write(person, answer)
        done = subprocess.run("./run", cwd=self.root, env=self.environment, stdin=terminal, stdout=terminal, stderr=terminal,
                              check=False)
        os.close(terminal)
        shown = b""
        try:
            while data := os.read(person, 65536):
                shown += data
        except OSError:
            pass  # all is read, and nobody has the other end any more
        os.close(person)
        self.assertIn(NO_DISPLAY, shown.decode())
        return done.returncode

    def test_on_a_terminal_it_asks_and_takes_yes(self):
        self.assertEqual(3, self.answer_on_a_terminal(b"y\n"))
        self.assertEqual(1, len(self.calls("xvfb-run")))

    def test_on_a_terminal_it_asks_and_takes_no_before_anything_is_built(self):
        self.assertEqual(1, self.answer_on_a_terminal(b"\n"))
        self.assertEqual([], self.calls("cmake"))

    def test_a_build_that_fails_starts_nothing(self):
        self.stand_in(self.bin / "cmake", '[ "$1" != --build ]')
        self.assertNotEqual(0, self.call("./run", DISPLAY=":7").returncode)
        self.assertEqual([], self.calls("pixorra"))

    def test_an_unknown_option_is_refused(self):
        done = self.call("./run", "--fast")
        self.assertEqual(2, done.returncode)
        self.assertEqual([], self.calls("cmake"))


class Test(Built):
    def built(self):
        return [line.split()[2] for line in self.calls("cmake") if line.startswith("--build")]

    def test_both_builds_are_tried_in_one_summary_that_comes_last(self):
        done = self.call("./test")
        self.assertEqual(0, done.returncode)
        self.assertEqual(["asan", "release"], self.built())
        self.assertEqual('subdirs("asan")\nsubdirs("release")\n', (self.root / "build/CTestTestfile.cmake").read_text())
        self.assertTrue(done.stdout.endswith("100% tests passed, 0 tests failed out of 1\n"))

    def test_quick_tries_the_release_alone(self):
        self.call("./test", "--quick")
        self.assertEqual(["release"], self.built())
        self.assertEqual('subdirs("release")\n', (self.root / "build/CTestTestfile.cmake").read_text())

    def test_other_options_go_to_ctest(self):
        self.lay_out_tests()
        self.call("./test", "-R", "Undo.*", "--quick")
        self.assertTrue(self.calls("ctest")[0].endswith(" -R Undo.*"))

    def lay_out_tests(self):
        """Two test programs and a scenario that runs on both back ends, as a configured build folder lists them."""
        tests = {"drop/UndoTest.cpp": "TEST_F(UndoTest, TakesTheLastDropBack) {\n", "pictures/FitTest.cpp": "TEST(FitTest, Fits) {\n",
                 "platform/contract/BarContract.cpp": "TEST_F(BarContract, Moves) {\n",
                 "scenarios/DayTest.cpp": 'TEST_P(DayTest, IsSorted) {\nINSTANTIATE_TEST_SUITE_P(Light, DayTest, Values(1, 2));\n'}
        for name, text in tests.items():
            path = self.root / "tests" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        (self.root / "tests/x11").mkdir()
        (self.root / "tests/x11/start.sh").touch()
        programs = (("drop_test", "drop/UndoTest.cpp"), ("pictures_test", "pictures/FitTest.cpp"),
                    ("scenario_test", "scenarios/DayTest.cpp"), ("qt_scenario_test", "scenarios/DayTest.cpp"),
                    ("contract_tests", "platform/contract/BarContract.cpp"))
        for preset, sanitize in (("asan", "ON"), ("release", "OFF")):
            build = self.root / "build" / preset
            build.mkdir(parents=True, exist_ok=True)
            (build / "CMakeCache.txt").write_text(f"PIXORRA_SANITIZE:BOOL={sanitize}\n", encoding="utf-8")
            (build / "compile_commands.json").write_text(json.dumps(
                [{"directory": str(build), "file": f"../../tests/{source}",
                  "command": f"g++ -o tests/CMakeFiles/{program}.dir/{source}.o -c ../../tests/{source}"}
                 for program, source in programs]), encoding="utf-8")

    def targets(self, *arguments):
        """What is built for these arguments, in each preset."""
        self.lay_out_tests()
        self.assertEqual(0, self.call("./test", *arguments).returncode)
        return [line.split("--target ")[1] for line in self.calls("cmake") if line.startswith("--build")]

    def test_only_the_programs_of_the_tests_that_match_are_built(self):
        self.assertEqual(["drop_test"] * 2, self.targets("-R", "Undo.*Back"))

    def test_a_test_of_both_back_ends_builds_both(self):
        self.assertEqual(["qt_scenario_test scenario_test"], self.targets("-R", "DayTest", "--quick"))

    def test_a_contract_builds_the_tests_of_both_back_ends(self):
        self.assertEqual(["headless_test qt_test"], self.targets("-R", "BarContract", "--quick"))

    def test_a_test_is_found_by_its_back_end_and_its_parameter(self):
        self.assertEqual(["qt_scenario_test"], self.targets("-R", "^qt.Light/DayTest.IsSorted/1$", "--quick"))

    def test_tests_on_a_display_build_the_program(self):
        self.assertEqual(["pixorra pixorra-slideshow"], self.targets("--quick", "--tests-regex", "x11.start"))

    def test_what_is_installed_needs_the_programs(self):
        self.assertEqual(["pixorra pixorra-slideshow"], self.targets("--quick", "-R", "packaging"))

    def test_where_no_test_matches_all_is_built(self):
        self.assertEqual(["all"], self.targets("-R", "Nothing", "--quick"))

    def test_checks_need_nothing_built(self):
        self.assertEqual([], self.targets("-R", "checks"))

    def test_a_test_that_fails_fails_all(self):
        self.stand_in(self.bin / "ctest", "exit 8")
        self.assertEqual(8, self.call("./test").returncode)
        self.assertNotEqual(0, self.call(".ci/run").returncode)

    def test_a_build_that_fails_fails_all_and_tries_nothing(self):
        self.stand_in(self.bin / "cmake", '[ "$1" != --build ]')
        self.assertNotEqual(0, self.call("./test").returncode)
        self.assertEqual([], self.calls("ctest"))

    def test_ci_tries_everything_from_any_folder(self):
        done = subprocess.run([str(self.root / ".ci/run")], cwd="/", env=self.environment, capture_output=True, text=True,
                              check=False)
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["asan", "release"], self.built())


class Package(Built):
    def setUp(self):
        super().setUp()
        self.stand_in(self.bin / "cpack", 'echo "$SOURCE_DATE_EPOCH $QT_RCC_SOURCE_DATE_OVERRIDE" >>"$LOG.date"')
        self.stand_in(self.bin / "git", "echo 86400")
        self.stand_in(self.bin / "dpkg-buildflags", "echo -hardened")
        self.stand_in(self.root / "tests/package/try", 'exit "${TRIED:-0}"')
        (self.root / "build/package").mkdir(parents=True)

    def test_the_programs_alone_are_built_and_packed(self):
        done = self.call("./package")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["build package"], self.calls("install-packages"))
        self.assertIn("--build --preset package --target pixorra pixorra-slideshow", self.calls("cmake"))
        self.assertIn("-hardened", self.calls("cmake")[0])
        self.assertEqual(1, len(self.calls("cpack")))
        self.assertEqual([], self.calls("try"))

    def test_all_that_is_packed_has_the_date_of_the_commit_or_the_one_that_is_given(self):
        date = Path(f"{self.log}.date")
        self.call("./package")
        self.call("./package", SOURCE_DATE_EPOCH="7")
        self.assertEqual("86400 86400\n7 7\n", date.read_text())

    def test_packages_of_before_are_not_taken_for_it(self):
        (self.root / "build/package/pixorra_0_all.deb").touch()
        self.call("./package")
        self.assertEqual([], list((self.root / "build/package").glob("*.deb")))

    def test_it_is_tried_when_asked_and_fails_with_that(self):
        self.assertEqual(0, self.call("./package", "--test").returncode)
        self.assertEqual(["build package virtual package-test"], self.calls("install-packages"))
        self.assertEqual(1, self.call("./package", "--test", TRIED="1").returncode)

    def test_an_unknown_option_is_refused(self):
        self.assertEqual(2, self.call("./package", "--tets").returncode)
        self.assertEqual([], self.calls("cmake"))


class Fuzz(Built):
    TARGETS = ("SavedState", "CacheFile", "PictureFile", "Path")

    def setUp(self):
        super().setUp()
        for target in self.TARGETS:
            self.stand_in(self.root / f"build/fuzz/tests/fuzz_{target}")

    def ran(self):
        return [target for target in self.TARGETS if self.calls("fuzz_" + target)]

    def test_all_targets_run_for_a_minute_each(self):
        done = self.call("tools/fuzz")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(list(self.TARGETS), self.ran())
        self.assertIn("-max_total_time=60 ", self.calls("fuzz_Path")[0])
        self.assertTrue(self.calls("fuzz_Path")[0].endswith(" build/fuzz/corpus/Path tests/data/fuzz/Path"))
        self.assertTrue(done.stdout.endswith("failed: none\n"), done.stdout)
        self.assertIn("fuzz", self.calls("install-packages")[0].split())

    def test_seconds_and_targets_can_be_chosen(self):
        self.call("tools/fuzz", "5", "Path", "CacheFile")
        self.assertEqual(["CacheFile", "Path"], self.ran())
        self.assertIn("-max_total_time=5 ", self.calls("fuzz_Path")[0])

    def test_one_that_fails_is_told_with_its_input_and_the_others_run(self):
        self.stand_in(self.root / "build/fuzz/tests/fuzz_CacheFile", "touch build/fuzz/CacheFile-crash-1; exit 77")
        done = self.call("tools/fuzz")
        self.assertEqual(1, done.returncode)
        self.assertEqual(list(self.TARGETS), self.ran())
        self.assertTrue(done.stdout.endswith("failed: CacheFile\n  build/fuzz/CacheFile-crash-1\n"), done.stdout)

    def test_an_unknown_target_is_refused(self):
        self.assertEqual(2, self.call("tools/fuzz", "Nothing").returncode)
        self.assertEqual([], self.calls("cmake"))


if __name__ == "__main__":
    unittest.main()
