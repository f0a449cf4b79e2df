"""What the documents point to is there."""
import re
from pathlib import Path

import tree
from tree import ROOT, nothing, text

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
FENCE = re.compile(r"^```.*?^```$", re.M | re.S)
# A path of the tree in back quotes: `src/net/Requests.h`, `script/test -k archive`, `tests/unit/<room>/...` not.
NAMED = re.compile(r"`((?:src|docs|script|tests|tools|samples|bench|cmake)/[\w./-]+)[^`<*{]*`")
MENTION = re.compile(r"\b(docs/[\w-]+\.md)\b")


def outside_fences(document):
    return FENCE.sub("", text(document))


def anchors(body):
    headings = re.findall(r"^#+ (.*)$", body, re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def broken_links(document, body):
    """One line for every link of a document's body that leads nowhere."""
    broken = []
    for target in LINK.findall(body):
        if re.match(r"[a-z]+:", target):
            continue
        name, _, anchor = target.partition("#")
        path = (ROOT / document.parent / name).resolve()
        if name and not path.exists():
            broken.append(f"{document}: {target} is not there")
        elif anchor and anchor not in anchors(outside_fences(path.relative_to(ROOT)) if name else body):
            broken.append(f"{document}: {target} has no such heading")
    return broken


def test_every_link_points_to_something():
    broken = [broken_links(document, outside_fences(document)) for document in tree.documents()]
    nothing(sum(broken, []))


def test_every_path_in_a_document_is_there():
    named = [(document, name) for document in tree.documents() for name in NAMED.findall(outside_fences(document))]
    nothing([f"{document}: {name}" for document, name in named if not (ROOT / name).exists()])


def test_every_document_that_the_code_mentions_is_there():
    missing = [f"{path}: {name}" for path in tree.text_files()
               if path.suffix != ".md" and path.parts[:2] != ("tests", "house")
               for name in MENTION.findall(text(path)) if not (ROOT / name).exists()]
    nothing(missing)


def test_every_document_can_be_reached_from_the_readme():
    reached, next_ones = set(), [Path("README.md")]
    while next_ones:
        document = next_ones.pop()
        if document in reached:
            continue
        reached.add(document)
        for target in LINK.findall(outside_fences(document)):
            path = (ROOT / document.parent / target.partition("#")[0]).resolve()
            if path.suffix == ".md" and path.exists():
                next_ones.append(path.relative_to(ROOT))
    nothing(sorted(set(tree.documents()) - reached))


def test_pictures_of_the_documents_are_shown_somewhere():
    pictures = {path for path in tree.files() if path.parts[:2] == ("docs", "images")}
    shown = {(document.parent / target) for document in tree.documents() for target in LINK.findall(text(document))}
    nothing(sorted(map(str, pictures - shown)))


def test_a_broken_link_is_found():
    body = ("# Here\n[a](nowhere.md) [b](#there) [c](https://example.com) [d](#here)\n"
            "[e](server.md) [f](server.md#there)\n")
    assert broken_links(Path("docs/planted.md"), body) == [
        "docs/planted.md: nowhere.md is not there", "docs/planted.md: #there has no such heading",
        "docs/planted.md: server.md#there has no such heading"]
