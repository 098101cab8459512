#!/usr/bin/env python3
"""Writes docs/reference/: every public type, function and property, in English and Portuguese.

Usage: scripts/reference.py              writes the pages and the file of translations
       scripts/reference.py --missing    prints the entries of that file that wait for a translation
       scripts/reference.py --check      checks all of it and writes nothing

The texts are the comments of the headers below include/tessaria; doxygen tells what they belong to.
`reference_sources.py` says what must be documented. The Portuguese texts stand in
docs/reference/pt_BR.po, by the English paragraph, so that a changed comment needs a new
translation. After a comment has changed: run this script, append what `--missing` prints to that
file, with the translations, and run it again. It puts the entries into their order, and removes
those that are not used any longer.
"""

import re
import shutil
import sys

sys.dont_write_bytecode = True

from reference_pages import LABELS, Writer
from reference_sources import ROOT, head_of, paragraphs, read_sources, undocumented

PAGES = ROOT / "docs" / "reference"
TRANSLATIONS = PAGES / "pt_BR.po"


# --- Translations --------------------------------------------------------------------------------

def quoted(text):
    """A text as a line, or as lines, of a gettext file."""
    def escape(part):
        part = part.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
        return f'"{part}"'

    if len(text) < 80 and "\n" not in text:
        return escape(text)
    words, lines = re.findall(r"\S+\s*", text) or [text], [""]
    for word in words:
        if len(lines[-1]) + len(word) > 90 and lines[-1]:
            lines.append("")
        lines[-1] += word
    return "\n".join(['""'] + [escape(line) for line in lines])


def read_translations():
    """msgid to msgstr, without the file's head."""
    found, text, target = {}, {"msgid": "", "msgstr": ""}, None
    lines = TRANSLATIONS.read_text().split("\n") if TRANSLATIONS.exists() else []
    for line in lines + ['msgid ""']:
        match = re.match(r'(msgid|msgstr)?\s*"(.*)"$', line)
        if not match:
            continue
        if match[1] == "msgid" and target == "msgstr":
            found[text["msgid"]] = text["msgstr"] or found.get(text["msgid"], "")
            text = {"msgid": "", "msgstr": ""}
        target = match[1] or target
        text[target] += re.sub(r"\\(.)", lambda m: "\n" if m[1] == "n" else m[1], match[2])
    found.pop("", None)
    return found


def texts_used(headers, owners):
    """Each text that is translated, with the first place that needs it."""
    used = {label: "scripts/reference.py" for label in LABELS}

    def use(texts, place):
        for text in texts:
            if not text.startswith("  "):
                used.setdefault(text.removeprefix("- "), place)

    for path, text in headers.items():
        use(head_of(text), path)
    for owner in owners:
        use(paragraphs(owner.text), owner.name)
        for entry in owner.entries:
            use(entry.texts(), f"{owner.name}::{entry.name}")
            for member in entry.members:
                for name, _, text in member.values:
                    use(paragraphs(text), f"{owner.name}::{name}")
    return used


def entry_text(msgid, msgstr, place):
    return f"#: {place}\nmsgid {quoted(msgid)}\nmsgstr {quoted(msgstr)}\n"


def file_of_translations(used, translations):
    head = ('# The texts of docs/reference in Portuguese, by the comments of the headers.\n'
            'msgid ""\nmsgstr ""\n"Language: pt_BR\\n"\n'
            '"MIME-Version: 1.0\\n"\n"Content-Type: text/plain; charset=UTF-8\\n"\n'
            '"Content-Transfer-Encoding: 8bit\\n"\n')
    return head + "".join("\n" + entry_text(text, translations.get(text, ""), place)
                          for text, place in used.items())


# --- The commands --------------------------------------------------------------------------------

def problems_of_pages(pages):
    found = [f"{PAGES.relative_to(ROOT)}/{name} is out of date: run scripts/reference.py"
             for name, text in pages.items()
             if not (PAGES / name).exists() or (PAGES / name).read_text() != text]
    return found + [f"{path.relative_to(ROOT)} belongs to no header: run scripts/reference.py"
                    for path in sorted(PAGES.glob("*.md")) if path.name not in pages]


def main():
    mode = sys.argv[1] if len(sys.argv) > 1 else ""
    if mode not in ("", "--check", "--missing") or len(sys.argv) > 2:
        print(__doc__.split("\n\n")[1], file=sys.stderr)
        return 2
    if not shutil.which("doxygen"):
        print("reference: doxygen is missing", file=sys.stderr)
        return 2
    headers, owners, properties = read_sources()
    translations = read_translations()
    used = texts_used(headers, owners)
    missing = [text for text in used if not translations.get(text)]
    if mode == "--missing":
        print("\n".join(entry_text(text, "", used[text]) for text in missing))
        return 0
    pages = Writer(headers, owners, {}, ".md").pages()
    pages |= Writer(headers, owners, translations, ".pt-BR.md").pages()
    problems = [f"undocumented: {name}" for name in undocumented(owners, properties)]
    problems += [f"untranslated: {used[text]}: {text}" for text in missing]
    if mode == "--check":
        problems += [f"stale translation: {text}" for text in translations if text not in used]
        problems += problems_of_pages(pages)
    else:
        PAGES.mkdir(exist_ok=True)
        for path in PAGES.glob("*.md"):
            path.unlink()
        for name, text in pages.items():
            (PAGES / name).write_text(text)
        TRANSLATIONS.write_text(file_of_translations(used, translations))
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
