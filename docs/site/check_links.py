"""Checks the links of the web site: each leads to a file of the site and to a place in it.

    check_links.py FOLDER
"""

import html
import pathlib
import re
import sys
import urllib.parse

# The home of the tool that makes the site, and the place of a file after an installation.
ELSEWHERE = ("https://www.doxygen.org/", "file:///usr/local/")


def main():
    folder = pathlib.Path(sys.argv[1])
    pages = {page.name: page.read_text(encoding="utf-8") for page in folder.glob("*.html")}
    places = {name: set(re.findall(r'\b(?:id|name)="([^"]+)"', text))
              for name, text in pages.items()}
    faults, count = [], 0
    for name, text in sorted(pages.items()):
        for link in map(html.unescape, re.findall(r'\b(?:href|src|data)="([^"]*)"', text)):
            if link.startswith(ELSEWHERE) or link.startswith("javascript:"):
                continue
            count += 1
            file, _, place = link.partition("#")
            file = urllib.parse.unquote(file) or name
            if not (folder / file).is_file() or (place and place not in places.get(file, ())):
                faults.append(f"{name}: {link} leads nowhere")
    if faults or not count:
        sys.exit("\n".join(faults) or "there are no links")
    print(f"{len(pages)} pages, {count} links lead to their places")


main()
