"""Rules about single text files: each takes a path and its text and yields (line number, what is wrong)."""
import re
import socket

from tree import ROOT

LONGEST_LINE = 120  # of C++ sources; others may be a little longer
LONGEST_OTHER_LINE = 130
# Data that a program wrote, or pictures as text.
NO_LINE_LIMIT = {".svg", ".json", ".xml", ".html"}


def numbered(text):
    return enumerate(text.split("\n"), 1)


def lines_are_short(path, text):
    if path.suffix in NO_LINE_LIMIT:
        return
    for number, line in numbered(text):
        # A row of a table and an example of a file cannot be broken.
        unbreakable = (path.suffix == ".md" and line.startswith("|")) or line.lstrip().startswith("<")
        longest = LONGEST_LINE if path.suffix in {".cpp", ".h"} else LONGEST_OTHER_LINE
        if len(line) > longest and not unbreakable:
            yield number, f"{len(line)} columns"


def blanks_are_plain(path, text):
    """No tab, no carriage return, nothing behind the last letter of a line."""
    for number, line in numbered(text):
        if "\t" in line or "\r" in line:
            yield number, "tab or carriage return"
        elif line != line.rstrip():
            yield number, "blanks at the end of the line"


def files_end_with_one_line_end(path, text):
    if text and (not text.endswith("\n") or text.endswith("\n\n")):
        yield text.count("\n"), "does not end with exactly one line end"


def headers_say_what_they_are_for(path, text):
    if path.parts[0] != "src" or path.suffix != ".h":
        return
    lines = text.split("\n")
    if not re.match(r"// \S", lines[0]):
        yield 1, "the header does not open with a comment"
    code = next((line for line in lines if line and not line.startswith("//")), "")
    if code != "#pragma once":
        yield 1, "#pragma once is not the first line behind the opening comment"


def headers_open_no_namespace(path, text):
    if path.suffix == ".h":
        for number, line in numbered(text):
            if re.match(r"\s*using\s+namespace\b", line):
                yield number, "using namespace in a header"


# Folders of one person or one machine; "/home/<name>" and the like are how a document would say it.
FOREIGN_PATHS = re.compile(r"(?<![\w.])(/(?:home|Users|root|mnt|media)/\w|[A-Z]:\\Users\\\w)")


def names_no_machine(path, text):
    """Neither a path of somebody's machine nor its name."""
    host = socket.gethostname()
    for number, line in numbered(text):
        if f"{ROOT}/" in line or re.search(rf"{re.escape(str(ROOT))}(?![\w/-])", line) or FOREIGN_PATHS.search(line):
            yield number, "a path of one machine"
        elif is_given_name(host) and re.search(rf"\b{re.escape(host)}\b", line):
            yield number, "the name of a machine"


def is_given_name(host):
    """A name that no sentence would hold by chance: "debian" or "build" say nothing about a machine."""
    return bool(re.search(r"\d|[.-]", host)) and len(host) >= 6


def left_overs(path, text):
    """Marks that an editor or a merge leaves."""
    for number, line in numbered(text):
        if re.match(r"(<{7} |>{7} |={7}$)", line):
            yield number, "left over from a merge"


ALL = (lines_are_short, blanks_are_plain, files_end_with_one_line_end, headers_say_what_they_are_for,
       headers_open_no_namespace, names_no_machine, left_overs)

# rule, path, text with an offence, its line
PLANTED = (
    (lines_are_short, "src/a.cpp", "int n;\n" + "x" * 121 + "\n", 2),
    (lines_are_short, "docs/a.md", "| table |\n| " + "x" * 200 + " |\n" + "x" * 131 + "\n", 3),
    (blanks_are_plain, "src/a.cpp", "int n;\n\tint m;\n", 2),
    (blanks_are_plain, "src/a.cpp", "int n; \n", 1),
    (blanks_are_plain, "src/a.cpp", "int n;\r\n", 1),
    (files_end_with_one_line_end, "src/a.cpp", "int n;\nint m;", 1),
    (files_end_with_one_line_end, "src/a.cpp", "int n;\n\n", 2),
    (headers_say_what_they_are_for, "src/a/b.h", "#pragma once\n// Comment.\n", 1),
    (headers_say_what_they_are_for, "src/a/b.h", "// Comment.\n#include <map>\n#pragma once\n", 1),
    (headers_open_no_namespace, "src/a/b.h", "// C.\n#pragma once\nusing namespace crashvane;\n", 3),
    (names_no_machine, "script/a", f"cd {ROOT}/build\n", 1),
    (names_no_machine, "script/a", f"cd {ROOT}\n", 1),
    (names_no_machine, "docs/a.md", "look in /ho" + "me/anna/crashvane\n", 1),
    (names_no_machine, "docs/a.md", "look in C:\\Us" + "ers\\anna\n", 1),
    (left_overs, "src/a.cpp", "<" * 7 + " HEAD\n", 1),
)
