"""Shows Doxygen a document or a public header in its own terms.

Headers: the head comment becomes the file's, the labels of an operation's comment ("Returns: ...")
become headings, and what only the manager calls is left out. Documents: headings get the names that
links between documents go by, and bold code is written in the one way that Doxygen knows.
"""

import pathlib
import re
import sys

LABEL = re.compile(r"^( *///) (Requires|Parameters|Returns|Throws|Side effects): ")


def header(text):
    head, rest = text.split("#pragma once", 1)
    head = "/// \\file\n" + re.sub(r"^// ", "/// ", head, flags=re.M)
    lines = rest.split("\n")
    for place in range(1, len(lines)):
        # A comment that starts with "Returns:" has nothing else to say.
        if lines[place - 1].lstrip().startswith("///"):
            lines[place] = LABEL.sub(r"\1 \\label{\2} ", lines[place])
    rest = "\n".join(lines)
    hidden = (r"^#if defined\(_WIN32\)\n(?:#.*\n)+",
              r"^ *// -+ What the (?:engine and the )?manager calls? -+\n(?s:.*?)(?=^};)")
    for pattern in hidden:
        rest = re.sub(pattern, lambda found: f"/// \\cond\n{found[0]}/// \\endcond\n", rest,
                      flags=re.M)
    return head + "#pragma once" + rest


def name_of(heading):
    """The name that a link has for a heading, as on the pages of a repository."""
    return re.sub(r"[^\w -]", "", heading).strip().lower().replace(" ", "-")


def document(text, path):
    page = path.stem.lower()
    parts = re.split(r"(^```.*?^```$)", text, flags=re.M | re.S)
    for place in range(0, len(parts), 2):  # outside blocks of code
        part = re.sub(r"^(##+ )(.*)$", lambda found: f"{found[0]} {{#{page}-{name_of(found[2])}}}",
                      parts[place], flags=re.M)
        part = re.sub(r"\]\(#([\w-]+)\)", rf"](#{page}-\1)", part)
        part = re.sub(r"\]\((?:docs/)?(\w+)\.md#([\w-]+)\)", r"](#\1-\2)", part)
        part = re.sub(r"\*\*(`[^`\n]+`)\*\*", r"<b>\1</b>", part)
        parts[place] = re.sub(r"\]\([./\w]*/(\w+\.h)\)", r"](@ref \1)", part)
    return "".join(parts)


source = pathlib.Path(sys.argv[1])
source_text = source.read_text(encoding="utf-8")
sys.stdout.write(header(source_text) if source.suffix == ".h" else document(source_text, source))
