"""Hosts outside the build: made from the example page, run on the example project, compared."""

import os
import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGES = ROOT / "build" / "packages"
WORK = ROOT / "build" / "packages-test"
PAGE = ROOT / "examples" / "desktop_host" / "main.cpp"
LINUX_COMPILERS = ("g++", "clang++")
MINGW = "x86_64-w64-mingw32-g++-posix"
# Without the compiler's DLLs; "-static" would not take the import library.
MINGW_RUNTIME = ("-static-libgcc", "-static-libstdc++", "-Wl,-Bstatic,-lstdc++,-lwinpthread")
WINE = (ROOT / "cmake" / "run-under-wine", ROOT / "build" / "windows" / "wine")


def run(*command, env=None, **options):
    """What the command prints; its whole output is in the error when it fails."""
    done = subprocess.run([str(part) for part in command], text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, env={**os.environ, **(env or {})}, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}\n{done.stdout}\n{done.returncode}")
    return done.stdout


def fresh_folder(*names):
    folder = WORK.joinpath(*names)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def hosts_by_cmake(folder, options):
    """The hosts of the CMake project, two for each standard."""
    hosts = folder / "hosts"
    run("cmake", "-S", ROOT / "tests/packages/consumer", "-B", folder / "build", "-G", "Ninja",
        "-D", f"EXAMPLE={PAGE}", "-D", f"HOSTS={hosts}", *options)
    run("cmake", "--build", folder / "build")
    return sorted(path for path in hosts.iterdir() if path.name.startswith("host_"))


def hosts_by_pkg_config(folder, compiler, options=(), suffix="", env=None):
    """A shared and a linked-in host for the oldest and the newest standard, by one command each."""
    hosts = []
    for package in ("zorbi2engine", "zorbi2engine-static"):
        flags = run("pkg-config", "--cflags", "--libs", package, env=env).replace("\\ ", "\0").split()
        for standard in (11, 20):
            hosts.append(folder / f"host_{package}_{standard}{suffix}")
            run(compiler, f"-std=c++{standard}", "-Wall", "-Wextra", "-Wpedantic", "-Werror", PAGE,
                *(flag.replace("\0", " ") for flag in flags), *options, "-o", hosts[-1])
    return hosts


def check_host(host, before=(), env=None, line_end=b"\n"):
    """The host writes the control file that stands beside the test of the page."""
    desk = host.parent / f"desk of {host.stem}"
    shutil.copytree(ROOT / "examples" / "cover", desk)
    run(*before, host, "Run02", ".", cwd=desk, env=env)
    expected = (ROOT / "tests/library/DesktopHost.cmi").read_bytes().replace(b"\n", line_end)
    if (desk / "Cover02.cmi").read_bytes() != expected:
        raise AssertionError(f"{host}: not the control file of tests/library/DesktopHost.cmi")


def check_headers(folder):
    """Every public header is there, and no other."""
    there = sorted(path.name for path in (folder / "zorbi2").iterdir())
    public = sorted(path.name for path in (ROOT / "include" / "zorbi2").iterdir())
    if there != public:
        raise AssertionError(f"{folder}/zorbi2 holds {there}, not {public}")
