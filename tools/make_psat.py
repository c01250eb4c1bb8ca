#!/usr/bin/python3
"""Writes the binary vapor data base PSAT.DTA from the vapor table vapors.tsv.

Layout, little-endian: NPSAT as a 16-bit integer, then per vapor a 97-byte
record: ID (single), formula (15 bytes, blank padded), name (50 bytes, blank
padded), and seven singles: molecular weight, Antoine A, B, C (log10 of mmHg
against degC), lowest and highest valid temperature (degC), latent heat at the
normal boiling point (Btu/lb). The ID is the row number in the table's order.

Usage: make_psat.py VAPORS_TSV OUTPUT
"""

import csv
import struct
import sys

MIN_VAPORS = 1000
MAX_VAPORS = 2000


def text_field(value, width):
    data = value.encode("ascii")
    if len(data) > width:
        raise ValueError(f"{value!r} is longer than {width} characters")
    return data.ljust(width, b" ")


def psat_bytes(tsv_path):
    with open(tsv_path, newline="", encoding="ascii") as f:
        rows = list(csv.DictReader(f, delimiter="\t"))
    if not MIN_VAPORS <= len(rows) <= MAX_VAPORS:
        raise ValueError(f"{len(rows)} vapors; the data base holds {MIN_VAPORS} to {MAX_VAPORS}")
    data = struct.pack("<h", len(rows))
    for number, r in enumerate(rows, start=1):
        if int(r["id"]) != number:
            raise ValueError(f"row {number} carries id {r['id']}")
        data += struct.pack("<f", number)
        data += text_field(r["formula"], 15)
        data += text_field(r["name"], 50)
        data += struct.pack("<7f", *(float(r[k]) for k in (
            "mw", "antoine_a", "antoine_b", "antoine_c", "tmin_c", "tmax_c", "latent_btu_lb")))
    return data


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    data = psat_bytes(sys.argv[1])
    with open(sys.argv[2], "wb") as out:
        out.write(data)


if __name__ == "__main__":
    main()
