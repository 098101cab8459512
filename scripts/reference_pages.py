"""The pages of docs/reference, in one language each."""

import re

from reference_sources import head_of, paragraphs

# Headings of the pages; their translations stand in the same file.
LABELS = (
    "Properties", "Signals and events", "Functions", "Types", "Constants", "Data",
    "getter", "setter", "signal", "in Designer", "not in Designer", "stored by Designer",
    "not stored by itself", "user property", "Implements", "Base classes", "Reference",
    "Header", "What it holds",
)


def is_class(owner):
    return owner.kind != "namespace"


class Writer:
    """Writes the pages of one language; `suffix` is the end of their names."""

    def __init__(self, headers, owners, translations, suffix):
        self.headers, self.owners = headers, owners
        self.translations, self.suffix = translations, suffix
        self.page_of_class = {o.name: self.page_name(o.header) for o in owners if is_class(o)}

    def t(self, text):
        return self.translations.get(text) or text

    def page_name(self, header):
        name = header.removeprefix("tessaria/").removesuffix(".h")
        return name.replace("/", "-").replace("_", "-") + self.suffix

    def text(self, texts):
        """Paragraphs, with items of a list and lines of code together."""
        result, last = [], None
        for text in texts:
            if text.startswith("  "):
                kind, text = "code", "\n".join("    " + line[2:] for line in text.split("\n"))
            elif text.startswith("- "):
                kind, text = "item", "- " + self.t(text[2:])
            else:
                kind, text = "text", self.t(text)
            if result and not (kind == last == "item"):
                result.append("")
            result.append(markdown(text) if kind != "code" else text)
            last = kind
        return result + [""] if result else []

    def page(self, header):
        lines = [f"# `<{header}>`", ""] + self.text(head_of(self.headers[header]))
        for owner in (o for o in self.owners if o.header == header):
            lines += self.owner(owner)
        return "\n".join(lines).rstrip() + "\n"

    def owner(self, owner):
        lines = [f"## {owner.kind} `{owner.name}`", ""] + self.text(paragraphs(owner.text))
        bases = [base for base in owner.bases if not base.startswith("std::")]
        if bases:
            links = ", ".join(self.class_link(base) for base in bases)
            lines += [f"{self.t('Base classes')}: {links}.", ""]
        sections = {}
        for entry in owner.entries:
            sections.setdefault(entry.section, []).append(entry)
        for section in LABELS:
            if section in sections:
                lines += [f"### {self.t(section)}", ""]
                plain = section in ("Data", "Constants")
                for entry in sections[section]:
                    lines += self.row(entry) if plain else self.entry(entry)
                if plain:
                    lines.append("")
        if owner.implemented:
            names = ", ".join(f"`{name}`" for name in owner.implemented)
            lines += [f"{self.t('Implements')}: {names}.", ""]
        return lines

    def class_link(self, name):
        plain = name.split("<")[0]
        page = self.page_of_class.get(plain) or self.page_of_class.get("tessaria::" + plain)
        return f"[`{name}`]({page})" if page else f"`{name}`"

    def row(self, entry):
        """One line for data and constants."""
        member = entry.members[0]
        signature = re.sub(r"^(static )?(inline )?constexpr ", "", member.signature())
        text = " ".join(self.t(p.removeprefix("- ")) for p in entry.texts())
        return [f"- `{signature}`" + (f": {markdown(text)}" if text else "")]

    def entry(self, entry):
        lines = [f"#### `{entry.name}`", ""]
        if entry.section == "Properties":
            lines += [self.property_line(*entry.details), ""]
        else:
            lines += ["```"] + [m.signature() + ";" for m in entry.members] + ["```", ""]
        lines += self.text(entry.texts())
        for member in entry.members:
            values = [self.value(*value) for value in member.values]
            lines += values + [""] if values else []
        return lines

    def value(self, name, initial, text):
        described = " ".join(self.t(p) for p in paragraphs(text))
        line = f"- `{name} {initial}".rstrip() + "`"
        return line + (f": {markdown(described)}" if described else "")

    def property_line(self, kind, options):
        words = [f"`{kind}`"]
        for option, label in (("READ", "getter"), ("WRITE", "setter"), ("NOTIFY", "signal")):
            if option in options:
                words.append(f"{self.t(label)} `{options[option]}()`")
        designable = options.get("DESIGNABLE") != "false"
        stored = options.get("STORED") != "false"
        words.append(self.t("in Designer" if designable else "not in Designer"))
        words.append(self.t("stored by Designer" if stored else "not stored by itself"))
        if options.get("USER") == "true":
            words.append(self.t("user property"))
        return "; ".join(words) + "."

    def index(self, headers):
        other = "[English](index.md)" if "pt-BR" in self.suffix else "[Português](index.pt-BR.md)"
        lines = [f"# {self.t('Reference')}", "", f"*{other}*", ""]
        folder = None
        for header in sorted(headers, key=lambda name: (name.count("/") > 1, name)):
            if header.rsplit("/", 1)[0] != folder:
                folder = header.rsplit("/", 1)[0]
                heads = f"| {self.t('Header')} | {self.t('What it holds')} |"
                lines += ["", f"## `{folder}/`", "", heads, "|---|---|"]
            first = self.t(next(iter(head_of(self.headers[header])), ""))
            own = [o for o in self.owners if o.header == header and is_class(o)]
            classes = ", ".join(f"`{owner.short}`" for owner in own)
            text = markdown(first) + (f" ({classes})" if classes else "")
            name = header.rsplit("/", 1)[1]
            lines.append(f"| [`{name}`]({self.page_name(header)}) | {text} |")
        return "\n".join(lines).replace("\n\n\n", "\n\n") + "\n"

    def pages(self):
        described = [h for h in self.headers if any(o.header == h for o in self.owners)]
        pages = {self.page_name(header): self.page(header) for header in described}
        pages["index" + self.suffix] = self.index(described)
        return pages


def markdown(text):
    """A text of a comment as Markdown: only what stands outside of `code` can be misread."""
    parts = re.split(r"(`[^`]*`)", text)
    return "".join(part if part.startswith("`") else re.sub(r"([\\*_<>#|\[\]])", r"\\\1", part)
                   for part in parts)
