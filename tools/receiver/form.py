"""Reads a sender's multipart/form-data body, byte for byte, and says what is wrong with a bad one."""
import re
from dataclasses import dataclass

FILE_PART = "File"
CONTENT_TYPE = re.compile(r'multipart/form-data;\s*boundary="?([^";\s]{1,70})"?\s*$', re.IGNORECASE)
DISPOSITION = re.compile(r'form-data; name="([^"]*)"(?:; filename="([^"]*)")?$')


class BadForm(Exception):
    """The request cannot be taken; the text says why."""


@dataclass
class Form:
    fields: dict  # name -> text, in the order of the body
    file_name: str = None  # as the sender wrote it: a whole path; never to be used as a path here
    file: bytes = None


def read(content_type, body, endpoint):
    """The form in a body. BadForm when it is malformed or when the endpoint cannot use it."""
    form = parse(content_type, body)
    missing = [name for name in endpoint.fields if name not in form.fields]
    if missing:
        raise BadForm("missing field: " + ", ".join(missing))
    if not form.fields["project"]:
        raise BadForm("the field project is empty")
    if endpoint.takes_file and form.file is None:
        raise BadForm(f"missing file part: {FILE_PART}")
    if not endpoint.takes_file and form.file is not None:
        raise BadForm("a file is not expected here")
    return form


def parse(content_type, body):
    match = CONTENT_TYPE.match(content_type or "")
    if not match:
        raise BadForm("the content type is not multipart/form-data with a boundary")
    form = Form({})
    parts = split(body, match.group(1).encode("latin-1"))
    for index, part in enumerate(parts):
        name, file_name, content = read_part(part)
        if file_name is not None:
            take_file(form, name, file_name, content)
            continue
        # Behind the last text field a sender puts one CRLF more than the format needs; behind a file it does not.
        if index == len(parts) - 1 and content.endswith(b"\r\n"):
            content = content[:-2]
        if name in form.fields:
            raise BadForm(f"the field {name} came twice")
        form.fields[name] = text(content, f"the field {name}")
    return form


def split(body, boundary):
    """The bytes of each part: headers, empty line, content."""
    if not body:
        raise BadForm("the body is empty")
    pieces = (b"\r\n" + body).split(b"\r\n--" + boundary)
    if pieces[-1] not in (b"--", b"--\r\n") or len(pieces) < 2:
        raise BadForm("the body does not end with the closing boundary")
    if pieces[0] not in (b"", b"\r\n"):
        raise BadForm("the body does not begin with the boundary")
    parts = pieces[1:-1]
    if not all(part.startswith(b"\r\n") for part in parts):
        raise BadForm("a boundary is not followed by a line end")
    return [part[2:] for part in parts]


def read_part(part):
    head, gap, content = part.partition(b"\r\n\r\n")
    if not gap:
        raise BadForm("a part has no empty line behind its headers")
    for line in text(head, "a part's header").split("\r\n"):
        key, _, value = line.partition(":")
        match = DISPOSITION.match(value.strip())
        if key.strip().lower() == "content-disposition" and match:
            if not match.group(1):
                raise BadForm("a part has an empty name")
            return match.group(1), match.group(2), content
    raise BadForm("a part has no readable Content-Disposition")


def take_file(form, name, file_name, content):
    if name != FILE_PART:
        raise BadForm(f"the file part is named {name}, not {FILE_PART}")
    if form.file is not None:
        raise BadForm("more than one file came")
    if not content:
        raise BadForm("the file is empty")
    form.file_name, form.file = file_name, content


def text(raw, what):
    try:
        return raw.decode("utf-8")
    except UnicodeDecodeError:
        raise BadForm(f"{what} is not UTF-8") from None
