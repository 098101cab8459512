"""What the public headers declare, with the comments: the sources of docs/reference.

What must be documented is what a program can use. A text covers all functions of one name in its
class, and `setX` beside `x`. These need none of their own:
- enumerators and constants of a namespace, when their owner has a text;
- operators, destructors, the constructors of a class that has a text, and what is deleted or
  defaulted;
- names of types, and enumerations inside a class that has a text;
- in a class that has a text, what only writers of a host or of its tests use (HOST_HEADERS): data,
  and a function without arguments, or a pair of it and a function of the same name that takes one
  (the name says what it does or reads);
- an override, which has the text of what it overrides, and functions of its name beside it. An
  override of a class outside the library (such as QWidget) is not listed.
"""

import itertools
import re
import subprocess
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADERS = ROOT / "include" / "tessaria"
HOST_HEADERS = tuple("tessaria/" + name for name in (
    "host/", "memory/", "calendar.h", "stored_match.h", "thread_state.h", "variant.h"))

DOXYGEN = """
INPUT = {folder}/include/tessaria
RECURSIVE = YES
FILE_PATTERNS = *.h
OUTPUT_DIRECTORY = {folder}
GENERATE_HTML = NO
GENERATE_LATEX = NO
GENERATE_XML = YES
XML_PROGRAMLISTING = NO
EXTRACT_ALL = YES
INLINE_INHERITED_MEMB = NO
INHERIT_DOCS = NO
HAVE_DOT = NO
INCLUDE_GRAPH = NO
INCLUDED_BY_GRAPH = NO
FULL_PATH_NAMES = YES
STRIP_FROM_PATH = {folder}/include
QUIET = YES
WARNINGS = NO
"""


# --- The sources ---------------------------------------------------------------------------------

def prepare(text):
    """A header for doxygen: its comments as they stand, without our macros."""
    text = re.sub(r"\bTESSARIA_[A-Z]+_API\b ?", "", text)
    lines, block = [], []
    for line in text.split("\n"):
        comment = re.match(r"\s*/// ?(?!<)(.*)", line)
        if comment:
            block.append(comment[1])
            continue
        if block:
            lines.append("/** \\verbatim\n" + "\n".join(block) + "\n\\endverbatim */")
            block = []
        lines.append(line)
    text = "\n".join(lines)
    # A comment behind its member, and the lines that continue it.
    return re.sub(r"///< ?(.*(?:\n\s+///< ?.*)*)",
                  lambda m: "/**< \\verbatim\n" + re.sub(r"\n\s+///< ?", "\n", m[1])
                  + "\n\\endverbatim */", text)


def join_continued(text):
    """A comment behind a member continues in the comment lines that stand right below it."""
    lines = text.split("\n")
    for i in range(1, len(lines)):
        comment = re.match(r"(\s*)// (.*)", lines[i]) or re.match(r"(\s*)/// (.*)", lines[i])
        before = lines[i - 1].find("///<")
        if comment and before > 0 and len(comment[1]) == before:
            lines[i] = comment[1] + "///< " + comment[2]
    return "\n".join(lines)


def head_of(text):
    """The paragraphs of the comment at the head of a header, and the code in it."""
    lines = itertools.takewhile(lambda line: line.startswith("//"), text.split("\n"))
    return paragraphs("\n".join(line[2:].removeprefix(" ") for line in lines))


def paragraphs(text):
    """Paragraphs, items of lists ("- ...") and code (lines that are indented by two blanks)."""
    result = []
    for block in re.split(r"\n\s*\n", text.strip("\n")):
        lines = block.split("\n")
        if lines[0].startswith("  ") and (not result or not result[-1].startswith("- ")):
            result.append(block)
            continue
        current = []
        for line in lines:
            if line.lstrip().startswith("- ") and current:
                result.append(" ".join(current))
                current = []
            current.append(line.strip())
        result.append(" ".join(current))
    return [text for text in result if text.strip()]


def qt_properties(text):
    """The declarations Q_PROPERTY of a header, by class."""
    found = {}
    for match in re.finditer(r"^class (?:TESSARIA_\w+ )?(\w+)[^;{]*\{(.*?)^\};", text, re.M | re.S):
        declared = re.findall(r"Q_PROPERTY\(\s*([^()]*?)\s*\)", match[2])
        found[match[1]] = [" ".join(item.split()) for item in declared]
    return found


# --- What doxygen found --------------------------------------------------------------------------

class Member:
    def __init__(self, element):
        self.kind = element.get("kind")
        self.name = element.findtext("name")
        self.type = all_text(element.find("type"))
        self.arguments = element.findtext("argsstring") or ""
        self.text = text_of(element)
        self.public = element.get("prot") == "public"
        self.overrides = [node.get("refid") for node in element.findall("reimplements")]
        self.id = element.get("id")
        self.header = element.find("location").get("file")
        self.initial = all_text(element.find("initializer"))
        self.static = element.get("static") == "yes"
        self.explicit = element.get("explicit") == "yes"
        self.virtual = element.get("virt") in ("virtual", "pure-virtual")
        template = element.find("templateparamlist")
        self.template = ""
        if template is not None:
            names = [" ".join(all_text(param).split()) for param in template.findall("param")]
            self.template = "template <" + ", ".join(names) + "> "
        self.values = [(value.findtext("name"), all_text(value.find("initializer")), text_of(value))
                       for value in element.findall("enumvalue")]

    @property
    def is_override(self):
        return re.search(r"\boverride\b", self.arguments) is not None

    def signature(self):
        arguments = re.sub(r"\s*=\s*0$|\s+(override|final)\b", "", self.arguments)
        if self.kind == "enum":
            return f"enum {self.name}"
        if self.kind == "typedef":
            return f"using {self.name} = {self.type}"
        words = [self.template, "static " if self.static else "",
                 "explicit " if self.explicit else "", self.type, " " if self.type else "",
                 self.name, arguments]
        if self.kind == "variable":
            words.append(" " + self.initial if self.initial.startswith("=") else self.initial)
        text = re.sub(r"\s+", " ", "".join(words)).replace("< ", "<").replace(" >", ">")
        text = re.sub(r"(?<=[\w>]) ([&*]+)\s*(?=[\w,)=]|$)", r"\1 ", text)
        return text.replace(" ,", ",").replace(" )", ")").strip()


def all_text(element):
    return "" if element is None else "".join(element.itertext())


def text_of(element):
    verbatim = element.find("detaileddescription//verbatim")
    return "" if verbatim is None else verbatim.text.strip("\n")


class Owner:
    """A class, or the part of a namespace that one header declares."""

    def __init__(self, kind, name, header, text, members, bases=()):
        self.kind, self.name, self.header, self.text = kind, name, header, text
        self.members, self.bases = members, bases
        self.properties = []

    @property
    def short(self):
        return self.name.split("::")[-1]


def read_doxygen(folder):
    owners, by_id = [], {}
    for path in sorted((folder / "xml").glob("*.xml")):
        if not re.match(r"(class|struct|namespace)", path.name):
            continue
        compound = ElementTree.parse(path).getroot().find("compounddef")
        name = compound.findtext("compoundname")
        if compound.get("prot") in ("private", "protected") or not name.startswith("tessaria"):
            continue
        members = [Member(m) for m in compound.iter("memberdef")]
        for member in members:
            by_id[member.id] = member
        members = [m for m in members if m.public and m.kind != "friend"]
        bases = [base.text for base in compound.findall("basecompoundref")
                 if base.get("prot") == "public"]
        if compound.get("kind") == "namespace":
            for header in sorted({m.header for m in members}):
                own = [m for m in members if m.header == header]
                owners.append(Owner("namespace", name, header, text_of(compound), own))
        else:
            owners.append(Owner(compound.get("kind"), name, compound.find("location").get("file"),
                                text_of(compound), members, bases))
    resolve_overrides(owners, by_id)
    return owners


def resolve_overrides(owners, by_id):
    """An override without a text is listed as one; that of a foreign class is left out."""
    for owner in owners:
        owner.implemented = []
        kept = []
        for member in owner.members:
            if not member.is_override or member.text:
                kept.append(member)
                continue
            if member.overrides:
                base = by_id.get(member.overrides[0])
                if member.name not in owner.implemented and base:
                    owner.implemented.append(member.name)
        owner.members = kept


# --- The model of the pages ----------------------------------------------------------------------

class Entry:
    """What one text describes: functions of one name, a property, a type."""

    def __init__(self, name, section, members):
        self.name, self.section, self.members = name, section, members
        self.details = ""

    def texts(self):
        found = []
        for member in self.members:
            if member.text and member.text not in found:
                found.append(member.text)
        return [p for text in found for p in paragraphs(text)]


def is_hidden(member, owner):
    if member.name.startswith("~") or member.name.startswith("operator"):
        return True
    if re.search(r"=\s*(delete|default)$", member.arguments):
        return True
    return member.kind == "property" or (member.kind == "function" and member.name == "Q_ENUM")


def key_of(member, names):
    """Functions of one name share an entry, as do `x` and `setX`."""
    match = re.match(r"set([A-Z].*)", member.name)
    if match and member.kind in ("function", "slot"):
        getter = match[1][0].lower() + match[1][1:]
        for name in (getter, "is" + match[1]):
            if name in names:
                return name
    return member.name


def section_of(member):
    if member.kind == "signal":
        return "Signals and events"
    if member.kind in ("enum", "typedef"):
        return "Types"
    if member.kind == "variable":
        if "function<" in member.type.replace(" ", ""):
            return "Signals and events"
        return "Constants" if "constexpr" in member.type or "const " in member.type else "Data"
    return "Functions"


def property_entries(owner, declared, entries):
    """An entry for each Q_PROPERTY, with the text of its getter and setter, which it replaces."""
    result, used = [], set()
    by_member = {m.name: entry for entry in entries for m in entry.members}
    for declaration in declared:
        words = declaration.split()
        first = next(i for i, word in enumerate(words) if word in ("READ", "MEMBER"))
        kind, name = " ".join(words[:first - 1]), words[first - 1]
        options = dict(zip(words[first::2], words[first + 1::2]))
        functions = [options[word] for word in ("READ", "WRITE") if word in options]
        members = []
        for function in functions:
            entry = by_member.get(function)
            if entry:
                members += [m for m in entry.members if m not in members]
                used.add(entry)
        entry = Entry(name, "Properties", members)
        entry.details = (kind, options)
        result.append(entry)
    return result, used


def entries_of(owner, declared):
    members = [m for m in owner.members if not is_hidden(m, owner)]
    names = {m.name for m in members}
    entries = []
    for member in members:
        key = key_of(member, names)
        section = section_of(member)
        known = next((e for e in entries if e.name == key and e.section == section), None)
        if known:
            known.members.append(member)
        else:
            entries.append(Entry(key, section, [member]))
    properties, used = property_entries(owner, declared, entries)
    return properties + [e for e in entries if e not in used]


def is_self_explaining(entry, owner, widget):
    """The rule at the head of this file."""
    if all(m.kind == "typedef" for m in entry.members):
        return True
    if not owner.text:
        return False
    if all(m.kind == "function" and m.name in constructors_of(owner) for m in entry.members):
        return True
    if entry.section == "Constants":
        return True
    if entry.section == "Data":
        return owner.header.startswith(HOST_HEADERS)
    if entry.section == "Types" and owner.kind != "namespace":
        return True
    plain = (owner.header.startswith(HOST_HEADERS) and len(entry.members) <= 3
             and any(m.arguments.startswith("()") for m in entry.members))
    beside = entry.name in owner.implemented
    return entry.section == "Functions" and (plain or beside) and not widget


def constructors_of(owner):
    """Its own name, and those of the classes whose constructors it takes over."""
    return [owner.short] + [base.split("<")[0].split("::")[-1] for base in owner.bases]


def undocumented(owners, properties):
    found = []
    for owner in owners:
        if owner.kind != "namespace" and not owner.text:
            found.append(f"{owner.name} ({owner.header})")
        widget = bool(properties.get(owner.name))
        for entry in owner.entries:
            if not entry.texts() and not is_self_explaining(entry, owner, widget):
                found.append(f"{owner.name}::{entry.name} ({owner.header})")
    return found


def place_of(owner, text):
    """Classes stand in the order of their header, what stands outside of them at the end."""
    found = re.search(rf"\b(class|struct) (TESSARIA_\w+ )?{owner.short}\b[^;{{]*{{", text)
    return found.start() if found and owner.kind != "namespace" else len(text)


def read_sources():
    """The headers by their path, and their classes in the order of the pages."""
    headers = {str(path.relative_to(ROOT / "include")): path.read_text()
               for path in sorted(HEADERS.rglob("*.h"))}
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for path, text in headers.items():
            target = folder / "include" / path
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(prepare(join_continued(text)))
        subprocess.run(["doxygen", "-"], input=DOXYGEN.format(folder=folder), text=True, check=True,
                       stderr=subprocess.DEVNULL)
        owners = read_doxygen(folder)
    properties = {}
    for path, text in headers.items():
        for short, declared in qt_properties(text).items():
            for owner in owners:
                if declared and (owner.header, owner.short) == (path, short):
                    properties[owner.name] = declared
    for owner in owners:
        owner.entries = entries_of(owner, properties.get(owner.name, []))
        owner.place = place_of(owner, headers[owner.header])
    owners = [o for o in owners if o.entries or o.implemented or o.text]
    owners.sort(key=lambda o: (o.header, o.place, o.name))
    return headers, owners, properties
