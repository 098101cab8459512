#!/usr/bin/env python3
"""Tells which links of the documentation lead nowhere.

Usage: scripts/links.py [FOLDER]     (default: the source tree; or share/doc of an installation)

Looks at README*.md, CHANGELOG.md, CONTRIBUTING.md and docs/**/*.md: every relative link and picture
names a file below the folder, and every "#name" a heading of its page.
"""

import re
import sys
from pathlib import Path
from urllib.parse import unquote

PAGES = ("README*.md", "CHANGELOG.md", "CONTRIBUTING.md", "docs/**/*.md")
FENCED = re.compile(r"^ *```.*?^ *```$", re.M | re.S)
LINK = re.compile(r"\]\(\s*<?([^)\s>]+)>?(?:\s+\"[^\"]*\")?\)")
HEADING = re.compile(r"^#{1,6} +(.+?) *#*$", re.M)
NAMED = re.compile(r"<a (?:id|name)=\"([^\"]+)\"")


def without_code(text):
    """Keeps the line breaks, which tell the line of a link."""
    text = FENCED.sub(lambda block: "\n" * block[0].count("\n"), text)
    return re.sub(r"`[^`\n]*`", lambda code: re.sub(r"[][()]", " ", code[0]), text)


def anchors_of(text):
    """The names under which GitHub's and GitLab's pages have their headings."""
    found, seen = set(NAMED.findall(text)), {}
    for heading in HEADING.findall(FENCED.sub("", text)):
        heading = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", heading)
        name = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        count = seen[name] = seen.get(name, -1) + 1
        found.add(f"{name}-{count}" if count else name)
    return found


def faults(root):
    pages = sorted({page for pattern in PAGES for page in root.glob(pattern)})
    texts = {page: page.read_text() for page in pages}
    for page, text in texts.items():
        plain = without_code(text)
        for link in LINK.finditer(plain):
            if re.match(r"[a-z]+:", link[1]):
                continue
            path, _, anchor = unquote(link[1]).partition("#")
            target = (page.parent / path).resolve() if path else page
            where = f"{page.relative_to(root)}:{plain.count(chr(10), 0, link.start()) + 1}"
            if not target.is_relative_to(root) or not target.exists():
                yield f"{where}: no file {link[1]}"
            elif anchor and target.suffix == ".md" and anchor not in anchors_of(
                    texts.get(target) or target.read_text()):
                yield f"{where}: no heading {link[1]}"
    if not pages:
        yield f"{root}: no pages"


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    found = list(faults(root))
    print("\n".join(found) or f"All links of {root} have targets.")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
