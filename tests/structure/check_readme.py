"""Fails when the page of code in the README is not the example that the tests build and run."""

import pathlib
import sys

root = pathlib.Path(__file__).resolve().parents[2]
readme = (root / "README.md").read_text(encoding="utf-8")
example = (root / "examples/desktop_host/main.cpp").read_text(encoding="utf-8")

if f"```cpp\n{example}```\n" not in readme:
    sys.exit("README.md: its code is not examples/desktop_host/main.cpp")
