"""Writes and reads 8-bit palette bitmaps with run-length encoding (BI_RLE8), as Windows loads them."""
import struct

BI_RLE8 = 1
PIXELS_PER_METRE = 3780   # 96 dpi


def encode_row(row):
    """One row: runs where they pay, literal stretches of 3 to 255 pixels between them."""
    out, i, end = bytearray(), 0, len(row)
    while i < end:
        run = run_length(row, i)
        if run >= 3:
            out += bytes((run, row[i]))
            i += run
            continue
        start = i
        while i < end and i - start < 255 and run_length(row, i) < 4:
            i += 1
        literal = row[start:i]
        if len(literal) < 3:
            for value in literal:
                out += bytes((1, value))
        else:
            out += bytes((0, len(literal))) + literal + (b"\0" if len(literal) % 2 else b"")
    return bytes(out)


def run_length(row, start):
    stop = start + 1
    while stop < len(row) and stop - start < 255 and row[stop] == row[start]:
        stop += 1
    return stop - start


def write(path, width, height, palette, pixels):
    """`palette` is a list of (r, g, b), `pixels` the indices row by row from the top."""
    bits = bytearray()
    for y in range(height - 1, -1, -1):
        bits += encode_row(bytes(pixels[y * width:(y + 1) * width])) + b"\0\0"
    bits[-1] = 1   # the last end of line becomes the end of the bitmap
    colours = b"".join(struct.pack("BBBB", b, g, r, 0) for r, g, b in palette)
    offset = 14 + 40 + len(colours)
    header = struct.pack("<2sIHHI", b"BM", offset + len(bits), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 8, BI_RLE8, len(bits),
                       PIXELS_PER_METRE, PIXELS_PER_METRE, len(palette), 0)
    with open(path, "wb") as file:
        file.write(header + info + colours + bytes(bits))


def read(path):
    """Width, height, palette and pixels of a file of `write`, decoded by the format's own rules."""
    with open(path, "rb") as file:
        data = file.read()
    offset, width, height, colours = (struct.unpack_from("<I", data, 10)[0], *struct.unpack_from("<ii", data, 18),
                                      struct.unpack_from("<I", data, 46)[0])
    palette = [(data[54 + 4 * i + 2], data[54 + 4 * i + 1], data[54 + 4 * i]) for i in range(colours)]
    rows, row, at = [], bytearray(), offset
    while True:
        count, value = data[at], data[at + 1]
        at += 2
        if count:
            row += bytes((value,)) * count
        elif value > 2:
            row += data[at:at + value]
            at += value + value % 2
        elif value == 2:
            raise ValueError("a jump in the bitmap")
        else:
            rows.append(bytes(row))
            row = bytearray()
            if value == 1:
                break
    if len(rows) != height or any(len(line) != width for line in rows):
        raise ValueError("a row of the wrong length")
    return width, height, palette, b"".join(reversed(rows))
