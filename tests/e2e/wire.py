"""Request bodies written out by hand: what a sender's bytes must be, and what a receiver must take."""

HYPHENS = "-" * 27
# The C runtime's rand() is not seeded before the first requests of a run: 41, 18467, 6334, 26500, 19169, 15724.
FIRST_BOUNDARIES = [HYPHENS + numbers for numbers in ("0000002900004823", "000018BE00006784", "00004AE100003D6C")]
FILE_NAME = "C:\\Game\\Crash_7.zip"


def body_of(fields, file=None, file_name=FILE_NAME, boundary=FIRST_BOUNDARIES[0]):
    """The body of these fields (a mapping, or pairs) in this order, with a file behind them when there is one.

    The line end in front of the closing boundary comes on top of the last value's own.
    """
    pairs = fields.items() if isinstance(fields, dict) else fields
    text = "".join(f'--{boundary}\r\nContent-Disposition: form-data; name="{name}"\r\n\r\n{value}\r\n'
                   for name, value in pairs).encode()
    if file is not None:
        text += (f'--{boundary}\r\nContent-Disposition: form-data; name="File"; filename="{file_name}"\r\n'
                 "Content-Type: application/octet-stream\r\n\r\n").encode() + file
    return text + f"\r\n--{boundary}--\r\n".encode()


def boundary_of(request):
    """The boundary that a recorded request announces."""
    kind, _, boundary = request.header("Content-Type").partition("; boundary=")
    assert kind == "multipart/form-data"
    return boundary
