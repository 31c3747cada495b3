"""Reads the documents for their tests; the tests of the program lend their folder and program."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "host"))


def text_of(name):
    return (ROOT / name).read_text(encoding="utf-8")


def indented_blocks(text):
    """The blocks that are indented by four spaces, without them."""
    blocks = re.findall(r"(?:^    .*\n|^\n(?=    ))+", text, flags=re.M)
    return ["".join(line[4:] if line.strip() else line
                    for line in block.strip("\n").splitlines(keepends=True)) + "\n"
            for block in blocks]


def fenced_blocks(text, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", text, flags=re.M | re.S)


def transcript(text):
    """The commands of all blocks with "$ ", each with what it printed."""
    found = []
    for block in indented_blocks(text):
        for part in re.split(r"^\$ ", block, flags=re.M)[1:]:
            command, _, printed = part.partition("\n")
            found.append((command, printed))
    return found


def table_rows(text, heading):
    """The cells of the rows of the table whose first line starts so."""
    table = text[text.index(heading):].split("\n\n")[0].splitlines()
    return [[cell.strip() for cell in re.split(r"(?<!\\)\|", row.strip()[1:-1])]
            for row in table[2:]]
