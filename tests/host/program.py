"""Runs zorbi2 for the tests, in folders of their own."""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import unittest

if os.name == "posix":
    import fcntl
    import pty
    import struct
    import termios

    # What is started in the background or by nohup ignores these, and the program would with it.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    signal.signal(signal.SIGQUIT, signal.SIG_DFL)
    signal.signal(signal.SIGHUP, signal.SIG_DFL)

PROGRAM = os.environ["ZORBI2_PROGRAM"]
EMULATOR = [part for part in os.environ.get("ZORBI2_EMULATOR", "").split("|") if part]
ON_WINDOWS = PROGRAM.endswith(".exe")
ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLE = ROOT / "examples" / "cover"
EXPECTED = pathlib.Path(__file__).resolve().parent / "expected"

RESULT_FILES = [".o2w", ".k5o", ".k5f", ".k5p", ".k5c", ".k5w", ".rsf", "_medi.crp"]

PROJECT = """[project]
name = "Cover"
run = 2
folder = "Run02"
fiber_results = true
"""
TARGET = """[target]
solver = "ANSYS"
mesh = "original"
"""


def own_path(path):
    """A path as the program shows it."""
    if not ON_WINDOWS:
        return str(path)
    return "Z:" + str(path).replace("/", "\\") if EMULATOR else str(path)


def as_on_disk(text):
    """The bytes that a text file of the engine has on this system."""
    return text.replace(b"\n", b"\r\n") if ON_WINDOWS else text


def run(*arguments, cwd=None, environment=None, **others):
    """The finished process, with its output as text; `output` is the same as bytes."""
    for stream in ("stdout", "stderr"):
        others.setdefault(stream, subprocess.PIPE)
    values = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    values["WINEDEBUG"] = "-all"
    values.update(environment or {})
    done = subprocess.run([*EMULATOR, PROGRAM, *map(str, arguments)], cwd=cwd, env=values,
                          check=False, **others)
    done.output = done.stdout
    for stream in ("stdout", "stderr"):
        if isinstance(getattr(done, stream), bytes):
            setattr(done, stream, getattr(done, stream).decode("utf-8"))
    return done


def copy_example(folder):
    """The example as it comes, without the file that scripts/demo leaves beside its recipe."""
    shutil.copytree(EXAMPLE, folder, dirs_exist_ok=True)
    (folder / "Cover02.cmi").unlink(missing_ok=True)


def all_from(master):
    """All bytes that a terminal gets; closes it."""
    text = b""
    try:
        while part := os.read(master, 65536):
            text += part
    except OSError:  # the end, on Linux
        pass
    os.close(master)
    return text


class ProgramTest(unittest.TestCase):
    """A test with a folder in which a run and recipes can stand."""

    maxDiff = None

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="zorbi2 test ")).resolve()
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def make_run(self, name="Cover02", folder="Run02", files=None):
        """A run folder with empty result files."""
        path = self.folder / folder
        path.mkdir(parents=True, exist_ok=True)
        for ending in RESULT_FILES if files is None else files:
            (path / (name + ending)).write_text("1004\n" if ending.endswith("k5o") else "")
        return path

    def make_recipe(self, text=PROJECT + TARGET, name="cover.toml"):
        (self.folder / name).write_bytes(text if isinstance(text, bytes) else text.encode("utf-8"))
        return name

    def run_program(self, *arguments, **others):
        others.setdefault("cwd", self.folder)
        return run(*arguments, **others)

    def commands(self):
        """The program's, as its help lists them."""
        text = self.run_program("--help").stdout
        listed = text[text.index("Commands:\n"):].split("\n\n")[0]
        return re.findall(r"^  ([a-z]+) ", listed, flags=re.M)

    def as_nobody(self):
        """What makes the program's process one without the rights of root. Counts of lines that ran
        go to where such a process may write."""
        if os.geteuid() != 0:
            return {}
        counts = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, counts)
        os.chmod(counts, 0o777)
        return {"user": 65534, "group": 65534, "extra_groups": [],
                "environment": {"GCOV_PREFIX": counts}}

    def as_another_user(self):
        """Opens the folder for the user that the process becomes. No test where the program lies
        in a folder that this user cannot enter."""
        self.folder.chmod(0o777)
        try:
            done = self.run_program("--version", **self.as_nobody())
        except PermissionError:
            done = None
        if done is None or done.returncode != 0:
            self.skipTest("another user cannot run the program")

    def on_terminal(self, *arguments, columns=80, environment=None, stream="stdout",
                    code=0):
        """What the program prints on a terminal, its line ends as in a file."""
        values = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        streams = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, stream: slave}
        values["TERM"] = "xterm"
        with subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, **streams,
                              env={**values, **(environment or {})}) as process:
            os.close(slave)
            text = all_from(master)
        self.assertEqual(process.returncode, code)
        return text.decode().replace("\r\n", "\n")

    def check(self, done, code, stdout=None, stderr=""):
        """Exit code, and the streams where they are told."""
        self.assertEqual((done.returncode, done.stderr if stderr is not None else None),
                         (code, stderr), done.stdout)
        if stdout is not None:
            self.assertEqual(done.stdout, stdout)

    def files(self):
        """All files in the folder, by their path in it."""
        return sorted(str(path.relative_to(self.folder)).replace("\\", "/")
                      for path in self.folder.rglob("*") if path.is_file())
