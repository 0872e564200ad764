#!/usr/bin/env python3
"""Runs the built ternlow-run and looks at its exit status, its output and its files.

    batch_cli_test.py PROGRAM ROOT BAD_SCHEME

ROOT is the root of the sources; BAD_SCHEME a folder with a Kestrel that is refused.
"""
import json
import os
import pathlib
import pty
import resource
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, ROOT, BAD_SCHEME = sys.argv[1:4]


def run(*words, env=None, limit=None, **more):
    def tighten():
        if limit is not None:
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

    return subprocess.run([PROGRAM, *words], capture_output=True, text=True, timeout=120,
                          env={**os.environ, **(env or {})}, preexec_fn=tighten, **more)


class Cli(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.out = pathlib.Path(self.scratch.name) / "out"

    def files(self):
        return sorted(path.name for path in self.out.iterdir()) if self.out.exists() else []

    def expect(self, done, status, *said):
        """The exit status, and one line on standard error for each text."""
        self.assertEqual(done.returncode, status, done.stderr)
        lines = done.stderr.splitlines()
        self.assertEqual(len(lines), len(said), done.stderr)
        for line, text in zip(lines, said):
            self.assertTrue(line.startswith("ternlow-run: "), line)
            self.assertIn(text, line)

    def test_all_well(self):
        done = run("test1", "--cells", "20,40", "--scheme", "all", "--out", str(self.out))
        self.expect(done, 0)
        self.assertEqual(len(done.stdout.splitlines()), 9)
        self.assertIn("test1-Plover-40.csv", self.files())
        self.assertEqual(len(self.files()), 8)

    def test_help_and_version(self):
        done = run("--help")
        self.expect(done, 0)
        for option in ("scheme", "cells", "courant", "periods", "plots-per-period", "left", "right",
                       "difcon", "shkjmp", "wavhaf", "wave", "jobs", "out", "states", "resume",
                       "json", "quiet", "help", "version"):
            self.assertIn(f"--{option} ", done.stdout)
        self.assertRegex(run("--version").stdout, r"^ternlow-run \d+\.\d+\.\d+\n$")

    def test_wrong_use(self):
        for words, said in ((["test1", "--cells", "5"], "--cells: '5' is not a whole number"),
                            (["test1", "--cells", "10,x"], "'x'"),
                            (["test1", "--courant", "1"], "above 0 and below 1"),
                            (["test1", "--scheme", "Osprey"], "Kestrel, Kestrel32, Heron32"),
                            (["test1", "--left", "top"], "wall, open, periodic"),
                            (["test1", "--bogus"], "--bogus"),
                            (["wave", "--wave", "1,2"], "--wave"),
                            (["wave", "--wave", "0,0,0,1,0,1,0"], "frequency"),
                            (["test1", "--states"], "--out"),
                            (["test1", "--jobs", "0"], "--jobs"),
                            ([], "PROBLEM")):
            with self.subTest(words=words):
                done = run(*words)
                self.expect(done, 2, said)
                self.assertEqual(done.stdout, "")

    def test_other_runs_go_on(self):
        wrong = pathlib.Path(self.scratch.name) / "wrong.txt"
        wrong.write_text("this is no set-up")
        done = run("no-such-file", str(wrong), "test7", "--json", "--cells", "10",
                   "--out", str(self.out))
        self.expect(done, 2, "no-such-file: no such problem, and no file", "wrong.txt --cells 10: cannot be read: it is")
        self.assertEqual(self.files(), ["test7-Kestrel-10.csv"])
        self.assertEqual(json.loads(done.stdout.splitlines()[-1])["refusal"], None)

    def test_refused_run(self):
        done = run("test1", "--scheme", "Kestrel,Plover", "--json", "--cells", "20",
                   "--out", str(self.out),
                   env={"LD_LIBRARY_PATH": BAD_SCHEME + ":" + BAD_SCHEME + "/../TakingOver"})
        self.expect(done, 1, "Courant number stays at 1 or more")
        self.assertEqual(self.files(), ["test1-Plover-20.csv"])
        refused, good = map(json.loads, done.stdout.splitlines())
        self.assertIn("Courant number", refused["refusal"])
        self.assertIsNone(good["refusal"])

    def test_could_not_write(self):
        regular = pathlib.Path(self.scratch.name) / "regular"
        regular.write_text("")
        self.expect(run("test7", "--out", str(regular / "out")), 3, "Not a directory")
        # Standard output is a pipe: the limit touches the files alone.
        done = run("test7", "default", "--cells", "10,400", "--json", "--out", str(self.out),
                   limit=16384)
        self.expect(done, 3, "test7-Kestrel-400.csv: File too large",
                    "default-Kestrel-400.csv: File too large")
        self.assertEqual(self.files(), ["default-Kestrel-10.csv", "test7-Kestrel-10.csv"])
        self.assertEqual(len(done.stdout.splitlines()), 4)
        with open("/dev/full", "w") as full:
            done = subprocess.run([PROGRAM, "test7", "--cells", "10"], stdout=full,
                                  stderr=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, 3)
        self.assertIn("standard output", done.stderr)

    def test_resume_does_nothing_twice(self):
        setup = pathlib.Path(self.scratch.name) / "tube.txt"
        text = (pathlib.Path(ROOT) / "docs/setups/shock-tube.txt").read_text()
        setup.write_text(text)
        words = ["test1", str(setup), "--cells", "20,30", "--json", "--resume",
                 "--out", str(self.out)]

        def times():
            return {name: (self.out / name).stat().st_mtime_ns for name in self.files()}

        first = run(*words)
        before = times()
        second = run(*words)
        self.expect(second, 0)
        self.assertEqual(second.stdout, first.stdout)
        self.assertEqual(times(), before)
        self.assertEqual(len(before), 4)
        # A file that is gone or cut short, and a set-up that has changed, are done again.
        (self.out / "test1-Kestrel-20.csv").unlink()
        cut = self.out / "test1-Kestrel-30.csv"
        cut.write_text(cut.read_text()[:-40])
        setup.write_text(text.replace("\n", "\r\n").replace("0.85", "0.8"))
        self.assertNotIn("0.85", setup.read_text())
        self.expect(run(*words), 0)
        for name, stamp in times().items():
            self.assertNotEqual(stamp, before[name], name)
        # States that are asked for now are not there yet.
        self.expect(run(*words, "--states"), 0)
        self.assertEqual(len(self.files()), 8)

    def test_interrupt(self):
        words = [PROGRAM, "test1", "test2", "--cells", "5001", "--periods", "50", "--states",
                 "--jobs", "2", "--out", str(self.out)]
        with subprocess.Popen(words, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            time.sleep(0.5)
            self.assertIsNone(process.poll())
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(30), 130)
        self.assertEqual(list(self.out.iterdir()), [])

    def test_point_in_any_locale(self):
        plain = run("test1", "--cells", "20", "--courant", "0.5", "--json", env={"LC_ALL": "C"})
        comma = run("test1", "--cells", "20", "--courant", "0.5", "--json",
                    env={"LC_ALL": "de_DE.UTF-8"})
        a, b = json.loads(plain.stdout), json.loads(comma.stdout)
        for key in ("seconds", "updates_per_second"):
            del a[key], b[key]
        self.assertEqual(a, b)
        self.assertEqual(a["courant"], 0.5)

    def test_quiet_and_progress(self):
        def on_terminal(*words):
            primary, secondary = pty.openpty()
            done = subprocess.run([PROGRAM, "test7", "--cells", "10,20", *words],
                                  stdout=subprocess.PIPE, stderr=secondary, text=True)
            os.set_blocking(primary, False)
            try:
                return done.stdout, os.read(primary, 65536).decode()
            except BlockingIOError:
                return done.stdout, ""
            finally:
                os.close(primary)
                os.close(secondary)

        table, progress = on_terminal()
        self.assertEqual(len(table.splitlines()), 3)
        self.assertIn("2 of 2", progress)
        self.assertEqual(on_terminal("--quiet"), ("", ""))
        lines, progress = on_terminal("--quiet", "--json")
        self.assertEqual((len(lines.splitlines()), progress), (2, ""))
        self.expect(run("no-such-file", "--quiet"), 2, "no-such-file")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
