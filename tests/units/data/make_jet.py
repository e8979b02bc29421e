#!/usr/bin/env python3
"""Writes small units databases in the formats of other programs: make_jet.py FOLDER

Jet 3 (pages of 2 KB, texts in code page 1252) and Jet 4 (pages of 4 KB, texts in UTF-16, often compressed).
A file is a row of pages: 0 describes the database, 1 holds the usage maps of the tables, 2 the definition of the
catalog MSysObjects; then come the definitions, index leaves and data pages of the tables.
make_jet.py --large FILE AREAS UNITS writes a Jet 4 file of that size instead.
"""
import math
import pathlib
import struct
import sys

LONG, DOUBLE, TEXT, OLE = 4, 7, 10, 11
FIXED, NULLABLE, AUTO = 1, 2, 4
SIZES = {LONG: 4, DOUBLE: 8}
DELETED, MOVED, ELSEWHERE = 0xC000, 0x8000, 0x4000  # flags of a row's place: gone, come from another, a pointer


def rc4(key, data):
    state, j = list(range(256)), 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    out, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


class Column:
    def __init__(self, name, kind, size=0, flags=NULLABLE):
        self.name, self.kind = name, kind
        self.size = SIZES.get(kind, size)
        self.flags = flags | (FIXED if kind in SIZES else 0)


class Jet:
    def __init__(self, version):
        self.jet4 = version == 4
        self.page_size = 4096 if self.jet4 else 2048
        self.pages = [b"", b"", b""]  # filled at the end
        self.maps = []                # rows of page 1
        self.catalog = []             # rows of MSysObjects

    # Texts and rows

    def text(self, value):
        if not self.jet4:
            return value.encode("cp1252")
        plain, packed, narrow = value.encode("utf-16-le"), bytearray(b"\xff\xfe"), True
        for c in value:
            if (0 < ord(c) < 256) != narrow:  # a zero byte changes between one byte a character and two
                packed.append(0)
                narrow = not narrow
            packed += bytes([ord(c)]) if narrow else c.encode("utf-16-le")
        return bytes(packed) if len(packed) < len(plain) else plain

    def name(self, value):
        raw = value.encode("utf-16-le" if self.jet4 else "cp1252")
        return struct.pack("<H" if self.jet4 else "<B", len(raw)) + raw

    def row(self, columns, values):
        fixed, variable, offsets = b"", b"", []
        nulls = 0
        for i, (column, value) in enumerate(zip(columns, values)):
            if value is not None:
                nulls |= 1 << i
            if column.kind == LONG:
                fixed += struct.pack("<I", (value or 0) & 0xFFFFFFFF)
            elif column.kind == DOUBLE:
                fixed += struct.pack("<d", value or 0)
        head = struct.pack("<H" if self.jet4 else "<B", len(columns)) + fixed
        for column, value in zip(columns, values):
            if column.kind not in SIZES:
                offsets.append(len(head) + len(variable))
                variable += self.text(value) if value is not None else b""
        offsets.append(len(head) + len(variable))  # where the last one ends
        mask = nulls.to_bytes((len(columns) + 7) // 8, "little")
        body = head + variable
        if self.jet4:
            table = b"".join(struct.pack("<H", o) for o in reversed(offsets))
            return body + table + struct.pack("<H", len(offsets) - 1) + mask
        # One byte an offset: a jump table tells from which column on another 256 is to be added.
        table, jumps = bytes(o % 256 for o in reversed(offsets)), 0
        while (len(body) + len(table) + jumps + 1 + len(mask) - 1) // 256 > jumps:
            jumps += 1
        jump = [next((i for i, o in enumerate(offsets) if o >= 256 * (j + 1)), 0xFF) for j in range(jumps)]
        return body + table + bytes(reversed(jump)) + bytes([len(offsets) - 1]) + mask

    # Pages

    def padded(self, page):
        assert len(page) <= self.page_size
        return page + bytes(self.page_size - len(page))

    def data_page(self, owner, rows):
        """Rows stand from the end of the page upwards; each is its bytes and the flags of its place."""
        places, end, body = [], self.page_size, b""
        for row, flags in rows:
            end -= len(row)
            places.append(end | flags)
            body = row + body
        head = self.data_head(owner) + struct.pack("<H", len(rows)) + struct.pack(f"<{len(rows)}H", *places)
        free = end - len(head)
        assert free >= 0
        page = head + bytes(free) + body
        return page[:2] + struct.pack("<H", free) + page[4:]

    def data_head(self, owner):
        return struct.pack("<BBHI", 1, 1, 0, owner) + (bytes(4) if self.jet4 else b"")

    def usage_map(self, pages):
        bits = bytearray(max(64 if self.jet4 else 128, max(pages, default=0) // 8 + 1))
        for page in pages:
            bits[page // 8] |= 1 << page % 8
        self.maps.append((b"\0" + struct.pack("<I", 0) + bytes(bits), 0))
        return struct.pack("<I", 1 << 8 | len(self.maps) - 1)

    def leaf(self, owner, keys):
        """Index entries of a long key: (key, page, row)."""
        start, first = (0x1B, 0x1E0) if self.jet4 else (0x16, 0xF8)
        entries = [b"\x7f" + struct.pack(">I", key ^ 0x80000000) + struct.pack(">I", page << 8 | row)
                   for key, page, row in sorted(keys)]
        mask = bytearray(first - start)
        for i in range(1, len(entries) + 1):
            mask[9 * i // 8] |= 1 << 9 * i % 8
        body = b"".join(entries)
        free = self.page_size - first - len(body)
        head = struct.pack("<BBHIIII", 4, 1, free, owner, 0, 0, 0)
        return self.padded(head.ljust(start, b"\0") + bytes(mask) + body)

    def definition(self, columns, rows, used, free, index, system=False):
        """`index` is the name of the primary key on the first column and its leaf, or none."""
        texts = fixed = 0
        fields = b""
        for number, column in enumerate(columns):
            place = fixed if column.flags & FIXED else 0
            if self.jet4:
                fields += struct.pack("<BIHHHHHBBIHH", column.kind, 1625, number, texts, number,
                                      0x409 if column.kind == TEXT else 0, 0, column.flags, column.kind == TEXT,
                                      0, place, column.size * 2 if column.kind == TEXT else column.size)
            else:
                fields += struct.pack("<BHHHHHHBHH", column.kind, number, texts, number,
                                      0x409 if column.kind == TEXT else 0, 1252 if column.kind == TEXT else 0, 0,
                                      column.flags, place, column.size)
            texts += column.kind not in SIZES
            fixed += column.size if column.flags & FIXED else 0
        count = struct.pack("<HHH", len(columns), texts, len(columns))
        kind = struct.pack("<B", 0x53 if system else 0x4E)
        indexes = struct.pack("<II", *[1 if index else 0] * 2)
        if self.jet4:
            block = struct.pack("<IIIBBHI8x", 1625, rows, rows + 1, 1, 0, 0, 0) + kind + count + indexes
        else:
            block = struct.pack("<II", rows, rows + 1) + kind + count + indexes
        block += used + free
        if index:
            block += struct.pack("<II", 0, rows) + (bytes(4) if self.jet4 else b"")
        block += fields + b"".join(self.name(column.name) for column in columns)
        if index:
            key, leaf = index
            block += bytes(4 if self.jet4 else 0) + struct.pack("<HB", 0, 1) + struct.pack("<HB", 0xFFFF, 0) * 9
            block += used + struct.pack("<IB", leaf, 9) + bytes(9 if self.jet4 else 0)
            block += bytes(4 if self.jet4 else 0) + struct.pack("<IIBIIBBB", 0, 0, 0, 0xFFFFFFFF, 0, 0, 0, 1)
            block += bytes(4 if self.jet4 else 0) + self.name(key)
        block += b"\xff\xff"
        head = struct.pack("<BB2sII", 2, 1, b"VC", 0, len(block) + 4)
        return self.padded(head + block)

    # Tables

    def table(self, name, columns, rows, key=None, at=None, elsewhere=()):
        """`elsewhere` numbers rows that have grown and stand on another page, with a pointer in their place."""
        number = at
        if number is None:
            number = len(self.pages)
            self.pages.append(b"")
        here, moved = [], []
        for i, values in enumerate(rows):
            deleted = values[0] is None
            row = self.row(columns, [0, *values[1:]] if deleted else values)
            if i in elsewhere:
                moved.append((row, MOVED))
                here.append((None, ELSEWHERE, values[0]))
            else:
                here.append((row, DELETED if deleted else 0, values[0]))
        mine, keys = [], []
        other = len(self.pages)
        if moved:
            self.pages.append(self.data_page(number, moved))
        batch, room = [], 0
        for row, flags, key_value in here + [(b"", 0, None)]:
            last = row == b""
            if row is None:
                row = struct.pack("<I", other << 8 | sum(r[1] == ELSEWHERE for r in batch))
            if batch and (last or len(row) + 2 > room or len(batch) == 250):
                mine.append(len(self.pages))
                self.pages.append(self.data_page(number, batch))
                batch = []
            if not batch:
                room = self.page_size - len(self.data_head(0)) - 2
            if flags != DELETED and key_value is not None:
                keys.append((key_value, len(self.pages), len(batch)))
            batch.append((row, flags))
            room -= len(row) + 2
        index = None
        if key and len(keys) <= 150:
            index = key, len(self.pages)
            self.pages.append(self.leaf(number, keys))
        used, free = self.usage_map(mine + ([other] if moved else [])), self.usage_map([])
        self.pages[number] = self.definition(columns, sum(row[0] is not None for row in rows), used, free, index,
                                             at is not None)
        self.catalog.append((number, 0x0F000001, name, 1, -0x80000000 if at is not None else 0, None))

    def content(self):
        catalog = [Column("Id", LONG), Column("ParentId", LONG), Column("Name", TEXT, 255), Column("Type", LONG),
                   Column("Flags", LONG), Column("LvProp", OLE)]
        self.catalog.append((2, 0x0F000001, "MSysObjects", 1, -0x80000000, None))
        rows = self.catalog
        self.table("MSysObjects", catalog, rows, at=2)
        self.pages[1] = self.data_page(0, self.maps)
        secret = bytearray(128 if self.jet4 else 126)
        struct.pack_into("<HHI", secret, 0x3A - 0x18, 0x409, 1252, 0)  # sort order, code page, no key
        head = b"\0\1\0\0Standard Jet DB\0" + struct.pack("<I", 1 if self.jet4 else 0)
        self.pages[0] = self.padded(head + rc4(b"\xc7\xda\x39\x6b", bytes(secret)))
        return b"".join(self.pages)


AREAS = [Column("Area Index", LONG, flags=AUTO), Column("Measurement Area", TEXT, 120)]
UNITS = [Column("Units Index", LONG, flags=AUTO), Column("Area Index", LONG), Column("Measurement Area", TEXT, 120),
         Column("Units", TEXT, 80), Column("Description", TEXT, 255), Column("Units Group", TEXT, 10),
         Column("Multipliers", DOUBLE)]
NAMES = {1: "Voltage", 2: "angle", 4: "Temp\u00e9rature difference", 5: "Empty"}
DELETED_ROW = None


def unit_rows():
    units = [
        (1, "kV", "kilovolt", None, 1000.0), (1, "V", None, "", 1.0), (1, "mV", "millivolt", None, 0.001),
        (DELETED_ROW, "gone", "deleted", None, 5.0),
        (1, "\u00b5V", "x" * 255, None, 1e-6), (1, "dBV", "logarithmic", "log", 0.1),
        (1, "none", "has no size", None, 0.0),
        (2, "rad", "radian", None, 1.0), (2, "\u00b0", "degree", None, math.pi / 180),
        (2, "'", "arcminute", None, math.pi / 10800), (2, '"', "arcsecond; 24\" as well", None, math.pi / 648000),
        (4, "K", "grown since, and moved to another page", None, 1.0), (4, "\u00b0F", None, None, 5 / 9),
    ]
    rows = []
    for number, (area, *rest) in enumerate(units, 1):
        alive = area is not DELETED_ROW
        rows.append((number if alive else None, area or 1, NAMES[area or 1], *rest))
    return rows


def small(version):
    jet = Jet(version)
    areas = [(key, name) for key, name in NAMES.items()]
    jet.table("Areas", AREAS, areas, "AreaIndex")
    rows = unit_rows()
    if version == 4:
        rows.append((99, 1, "Voltage", "abvolt \u03a9-free \u2126", "Greek and signs: \u03bc\u03a9", None, 1e-8))
    jet.table("Units", UNITS, rows, "UnitsIndex", elsewhere=[11])
    return jet.content()


def large(areas, units):
    jet = Jet(4)
    each = units // areas
    jet.table("Areas", AREAS, [(i + 1, f"Area {i:05}") for i in range(areas)])
    jet.table("Units", UNITS, [(i + 1, i // each + 1, f"Area {i // each:05}", f"unit {i % each}", "a description", None,
                                float(i % each + 1)) for i in range(areas * each)])
    return jet.content()


def main(arguments):
    if len(arguments) == 4 and arguments[0] == "--large":
        pathlib.Path(arguments[1]).write_bytes(large(int(arguments[2]), int(arguments[3])))
    elif len(arguments) == 1:
        for version in (3, 4):
            pathlib.Path(arguments[0], f"units-jet{version}.mdb").write_bytes(small(version))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
