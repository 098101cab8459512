#!/usr/bin/env python3
"""Takes the code out of the documentation, so that a test compiles, loads and runs it.

Usage: scripts/documentation.py FOLDER
(writes FOLDER/code, FOLDER/ui, FOLDER/sql, FOLDER/cmake and FOLDER/project)

From README*.md and docs/*.md, by the language of the fence:
- cpp: one source for each page; a block that a page in the other language repeats is taken once.
  Functions, classes and tests are compiled as they stand; statements are wrapped into a member
  function of a window. A comment in front of the block says what else it needs:
    <!-- inside: QWidget* form -->        the parameters of that function
    <!-- continues: -->                   it goes on in the function of the block before it
- xml: a form, or a widget of one, which is put into a form.
- sql: run by psql, the blocks of a page in one new database "loja"; a block without a semicolon
  holds one statement a line. <!-- first: STATEMENTS --> run before it.
- cmake: a project, or lines of one, which is configured against the installed package.
  <!-- first: LINE --> stands before the lines.
- <!-- file: NAME --> makes a block of any language a file of the page's project, as it stands. That
  project is built by its CMakeLists.txt against the installed package, and its tests run.
- <!-- left: REASON --> in front of a block leaves it out.
Blocks in other languages are not looked at.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FENCE = re.compile(r"^( *)```(\w+)$")
NOTE = re.compile(r"^ *<!-- (inside|continues|first|file|left): ?(.*?) ?-->$")


class Block:
    def __init__(self, page, line, language, text, notes):
        self.page, self.line, self.language, self.text, self.notes = page, line, language, text, notes


def blocks_of(page):
    lines, number = page.read_text().split("\n"), 0
    while number < len(lines):
        fence = FENCE.match(lines[number])
        if fence:
            end = next(i for i in range(number + 1, len(lines)) if lines[i].strip() == "```")
            notes, above = {}, number - 1
            while above >= 0 and NOTE.match(lines[above]):
                name, value = NOTE.match(lines[above]).groups()
                notes[name] = value
                above -= 1
            body = [line.removeprefix(fence[1]) for line in lines[number + 1:end]]
            if "left" not in notes:
                yield Block(page, number + 2, fence[2], "\n".join(body), notes)
            elif not notes["left"]:
                sys.exit(f"{page.name}:{number + 1}: no reason why the block is left")
            number = end
        number += 1


def is_declaration(text):
    """Whether the block holds functions, classes or tests, not statements."""
    return re.search(r"^(class|struct|namespace|template|TEST|[\w:<>*&]+ [\w:*& ]+\([^;]*\)( const)? )"
                     r"[^;]*\{$", text, re.M) is not None


def source_of(page, blocks):
    lines, open_function = [], False
    scope = re.sub(r"\W", "_", page.stem)  # the pages of both languages are linked together
    for block in blocks:
        body = block.text.split("\n")
        includes = [line for line in body if line.startswith("#include")]
        body = ["" if line.startswith("#include") else line for line in body]
        place = f'#line {block.line} "{page.relative_to(ROOT)}"'
        if "continues" in block.notes:
            lines += [place] + body
            continue
        if open_function:
            lines.append("}}")
        open_function = not is_declaration(block.text)
        lines += includes + [f"namespace {scope}_{block.line} {{"]
        if open_function:
            lines += ["struct Window : QMainWindow { void run(%s); };" % block.notes.get("inside", ""),
                      "void Window::run(%s) {" % block.notes.get("inside", "")]
        lines += [place] + body
        if not open_function:
            lines.append("}")
    if open_function:
        lines.append("}}")
    return "// The code of a page.\n#include <QMainWindow>\n" + "\n".join(lines) + "\n"


def form_of(block):
    if re.match(r"\s*<(\?xml|ui)", block.text):
        return block.text
    return ('<ui version="4.0">\n<class>Form</class>\n<widget class="QWidget" name="Form">\n'
            + block.text + "\n</widget>\n</ui>\n")


def statements_of(blocks):
    lines = ["drop database if exists loja;", "create database loja template template0 encoding 'UTF8'"
             " lc_collate 'C.UTF-8' lc_ctype 'C.UTF-8';", "\\connect loja"]
    for block in blocks:
        lines.append(block.notes.get("first", ""))
        if ";" in block.text:
            lines.append(block.text)
        else:
            lines += [line + ";" for line in block.text.split("\n")]
    return "\n".join(lines) + "\n"


def configured(block):
    """A project around lines for CMake; sources that they name are empty."""
    if "project(" in block.text:
        return block.text
    return ("cmake_minimum_required(VERSION 3.25)\nproject(Documented LANGUAGES CXX)\n"
            + block.notes.get("first", "") + "\n" + block.text + "\n")


def write_projects(folder, page, blocks):
    """Writes the files of a page's project, and each block of lines for CMake as one of its own."""
    written = set()
    for block in blocks:
        if "file" in block.notes:
            path = folder / "project" / page.name.split(".")[0] / block.notes["file"]
            if path.exists() and path in write_projects.seen and path.read_text() != block.text + "\n":
                sys.exit(f"{page.name}:{block.line}: {path.name} differs from the other language's")
            write_projects.seen.add(write(path, block.text + "\n"))
        elif block.language == "cmake":
            own = folder / "cmake" / f"{page.stem}-{block.line}"
            text = configured(block)
            written.add(write(own / "CMakeLists.txt", text))
            for name in re.findall(r"\b[\w/]+\.(?:cpp|h|ui)\b", text):
                written.add(write(own / name, ""))
    return written | write_projects.seen


write_projects.seen = set()


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_text() != text:
        path.write_text(text)
    return path


def main():
    folder = Path(sys.argv[1])
    written, seen = set(), set()
    pages = sorted(ROOT.glob("README*.md")) + sorted(ROOT.glob("docs/*.md"))
    for page in pages:
        blocks = list(blocks_of(page))
        written |= write_projects(folder, page, blocks)
        blocks = [b for b in blocks if "file" not in b.notes]
        code = [b for b in blocks if b.language == "cpp"]
        key = "".join(b.text for b in code)
        if code and key not in seen:
            seen.add(key)
            written.add(write(folder / "code" / f"{page.stem}.cpp", source_of(page, code)))
        for block in (b for b in blocks if b.language == "xml"):
            written.add(write(folder / "ui" / f"{page.stem}-{block.line}.ui", form_of(block)))
        statements = [b for b in blocks if b.language == "sql"]
        if statements:
            written.add(write(folder / "sql" / f"{page.stem}.sql", statements_of(statements)))
    for path in folder.rglob("*"):
        if path.is_file() and path not in written:
            path.unlink()


if __name__ == "__main__":
    main()
