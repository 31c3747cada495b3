"""The Debian packages: they install, work and go. For tests/packages/in-a-copy alone."""

import os
import pathlib
import shutil
import subprocess
import unittest

from consumers import (LINUX_COMPILERS, PACKAGES, ROOT, check_headers, check_host, fresh_folder,
                       hosts_by_cmake, hosts_by_pkg_config, run)

NAMES = ("libzorbi2engine1", "libzorbi2engine-dev", "zorbi2", "zorbi2-doc", "zorbi2-reader-standin")
# What dpkg and the loader keep for themselves.
BOOKS = ("/var/lib/dpkg", "/var/cache", "/var/log")
READER = "libQuentaResultEngine.so"


def files_of_the_system():
    files = set()
    for top in ("/etc", "/opt", "/usr", "/var"):
        for folder, folders, names in os.walk(top):
            folders[:] = [name for name in folders if os.path.join(folder, name) not in BOOKS
                          and not os.path.join(folder, name).startswith(str(ROOT))]
            files.update(os.path.join(folder, name) for name in folders + names)
    return files


def install(*names):
    run("dpkg", "--install", *(next(PACKAGES.glob(f"{name}_*.deb")) for name in names))


def reader_in_use():
    """The file that the program gets as its result reader; None when the loader finds none."""
    lines = subprocess.run(["ldd", "/usr/bin/zorbi2"], text=True, capture_output=True).stdout
    found = [line.split()[2] for line in lines.splitlines() if READER in line]
    return None if found == ["not"] else found[0]


class DebianPackages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.before = files_of_the_system()
        install(*NAMES)

    @classmethod
    def tearDownClass(cls):
        run("dpkg", "--purge", *NAMES)
        left = files_of_the_system() ^ cls.before
        if left:
            raise AssertionError(f"left behind, or taken along: {sorted(left)}")

    def test_the_program_works(self):
        desk = fresh_folder("debian desk") / "cover"
        shutil.copytree(ROOT / "examples" / "cover", desk)
        run("zorbi2", "write", "cover.toml", cwd=desk)
        self.assertEqual((desk / "Cover02.cmi").read_bytes(),
                         (desk / "expected" / "Cover02.cmi").read_bytes())

    def test_the_program_needs_no_package_but_the_reader(self):
        others = ("libzorbi2engine-dev", "libzorbi2engine1", "zorbi2-doc")
        run("dpkg", "--purge", *others)
        self.addCleanup(install, *reversed(others))
        run("zorbi2", "--version")

    def test_new_recipes_name_the_schema_that_is_installed(self):
        desk = fresh_folder("debian init") / "cover"
        shutil.copytree(ROOT / "examples" / "cover", desk)
        run("zorbi2", "init", "Run02", cwd=desk)
        line = (desk / "Cover02.toml").read_text(encoding="utf-8").splitlines()[0]
        self.assertEqual(line, "#:schema file:///usr/share/zorbi2/recipe.schema.json")
        self.assertTrue(pathlib.Path("/usr/share/zorbi2/recipe.schema.json").is_file())

    def test_documents_are_in_their_places(self):
        for file in ("man/man1/zorbi2.1.gz", "zsh/site-functions/_zorbi2",
                     "bash-completion/completions/zorbi2", "fish/vendor_completions.d/zorbi2.fish",
                     "doc/ZorbI2Engine/README.md", "doc/ZorbI2Engine/docs/zorbi2.md"):
            self.assertTrue(pathlib.Path("/usr/share", file).is_file(), file)

    def test_a_reader_of_the_suite_goes_before_the_stand_in(self):
        self.assertEqual(pathlib.Path(reader_in_use()).resolve(), pathlib.Path("/usr/lib", READER))
        suite = pathlib.Path("/usr/local/lib", READER)
        shutil.copy(f"/usr/lib/{READER}", suite)
        run("ldconfig")
        self.assertEqual(pathlib.Path(reader_in_use()), suite)
        run("dpkg", "--purge", "zorbi2-reader-standin")
        self.assertEqual(pathlib.Path(reader_in_use()), suite)
        suite.unlink()
        run("ldconfig")
        self.assertIsNone(reader_in_use())
        install("zorbi2-reader-standin")
        self.assertIsNotNone(reader_in_use())

    def test_hosts_by_cmake(self):
        check_headers(pathlib.Path("/usr/include"))
        for compiler in LINUX_COMPILERS:
            for host in hosts_by_cmake(fresh_folder("debian", "cmake", compiler),
                                       ("-D", f"CMAKE_CXX_COMPILER={compiler}")):
                with self.subTest(host.name, compiler=compiler):
                    check_host(host)

    def test_hosts_by_pkg_config(self):
        for host in hosts_by_pkg_config(fresh_folder("debian", "pkg-config"), "clang++"):
            with self.subTest(host.name):
                check_host(host)


if __name__ == "__main__":
    unittest.main()
