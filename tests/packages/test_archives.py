"""The archives, unpacked anywhere, and the source tree, as hosts outside the build use them."""

import shutil
import unittest

from consumers import (LINUX_COMPILERS, MINGW, MINGW_RUNTIME, PACKAGES, ROOT, WINE, check_headers,
                       check_host, fresh_folder, hosts_by_cmake, hosts_by_pkg_config, run)


def unpacked(system, ending, *names):
    """The tree of an archive, with the stand-in for the result reader laid over it."""
    folder = fresh_folder(*names)
    for kind in ("", "-reader-standin"):
        archives = list(PACKAGES.glob(f"zorbi2engine-*-{system}-x86_64{kind}.{ending}"))
        assert len(archives) == 1, archives
        shutil.unpack_archive(archives[0], folder)
    trees = list(folder.iterdir())
    assert len(trees) == 1, trees
    return trees[0]


class LinuxArchive(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # A space in the path: nothing in the tree may know where it was made.
        cls.tree = unpacked("linux", "tar.gz", "a moved tree")

    def test_the_program_runs_where_it_was_unpacked(self):
        desk = fresh_folder("archive desk") / "cover"
        shutil.copytree(ROOT / "examples" / "cover", desk)
        run(self.tree / "bin" / "zorbi2", "write", "cover.toml", cwd=desk)
        self.assertEqual((desk / "Cover02.cmi").read_bytes(),
                         (desk / "expected" / "Cover02.cmi").read_bytes())

    def test_new_recipes_name_the_schema_that_came_along(self):
        desk = fresh_folder("archive init") / "cover"
        shutil.copytree(ROOT / "examples" / "cover", desk)
        run(self.tree / "bin" / "zorbi2", "init", "Run02", cwd=desk)
        line = (desk / "Cover02.toml").read_text(encoding="utf-8").splitlines()[0]
        schema = self.tree / "share" / "zorbi2" / "recipe.schema.json"
        self.assertEqual(line, "#:schema " + schema.as_uri())

    def test_all_parts_are_there(self):
        check_headers(self.tree / "include")
        for part in ("lib/libZorbI2Engine.so.1", "share/man/man1/zorbi2.1", "share/doc",
                     "share/zorbi2/recipe.schema.json", "share/fish/vendor_completions.d/zorbi2.fish",
                     "share/bash-completion/completions/zorbi2", "share/zsh/site-functions/_zorbi2"):
            self.assertTrue((self.tree / part).exists(), part)

    def test_hosts_by_cmake(self):
        for compiler in LINUX_COMPILERS:
            hosts = hosts_by_cmake(fresh_folder("archive", "cmake", compiler),
                                   ("-D", f"CMAKE_PREFIX_PATH={self.tree}",
                                    "-D", f"CMAKE_CXX_COMPILER={compiler}"))
            self.assertEqual(len(hosts), 9)
            for host in hosts:
                with self.subTest(host.name, compiler=compiler):
                    check_host(host)

    def test_hosts_by_pkg_config(self):
        paths = {"PKG_CONFIG_PATH": str(self.tree / "lib" / "pkgconfig"),
                 "LD_LIBRARY_PATH": str(self.tree / "lib")}
        folder = fresh_folder("archive", "pkg-config")
        for host in hosts_by_pkg_config(folder, "g++", env=paths):
            with self.subTest(host.name):
                check_host(host, env=paths)


class SourceTree(unittest.TestCase):
    def test_hosts_by_add_subdirectory(self):
        for compiler in LINUX_COMPILERS:
            hosts = hosts_by_cmake(fresh_folder("source", compiler),
                                   ("-D", f"ENGINE_SOURCE={ROOT}",
                                    "-D", f"CMAKE_CXX_COMPILER={compiler}"))
            self.assertEqual(len(hosts), 9)
            for host in hosts:
                with self.subTest(host.name, compiler=compiler):
                    check_host(host)


class WindowsArchive(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tree = unpacked("windows", "zip", "a moved tree for Windows")

    def check_under_wine(self, hosts):
        for dll in (self.tree / "bin").glob("*.dll"):
            shutil.copy(dll, hosts[0].parent)
        for host in hosts:
            with self.subTest(host.name):
                check_host(host, before=WINE, line_end=b"\r\n")

    def test_all_parts_are_there(self):
        check_headers(self.tree / "include")
        for part in ("bin/ZorbI2Engine.dll", "bin/zorbi2.exe", "lib/libZorbI2Engine.dll.a",
                     "share/doc", "share/zorbi2/recipe.schema.json"):
            self.assertTrue((self.tree / part).exists(), part)

    def test_hosts_by_cmake(self):
        hosts = hosts_by_cmake(fresh_folder("windows", "cmake"), (
            "-D", f"CMAKE_TOOLCHAIN_FILE={ROOT}/cmake/windows.toolchain.cmake",
            "-D", f"CMAKE_PREFIX_PATH={self.tree}", "-D", "CMAKE_EXE_LINKER_FLAGS=-static"))
        self.assertEqual(len(hosts), 9)
        self.check_under_wine(hosts)

    def test_hosts_by_pkg_config(self):
        hosts = hosts_by_pkg_config(fresh_folder("windows", "pkg-config"), MINGW,
                                    options=MINGW_RUNTIME, suffix=".exe",
                                    env={"PKG_CONFIG_PATH": str(self.tree / "lib" / "pkgconfig")})
        self.check_under_wine(hosts)


if __name__ == "__main__":
    unittest.main()
