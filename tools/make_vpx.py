#!/usr/bin/python3
"""Writes the liquid ring pump catalogue VPX.DTA from a readable catalogue.

Input: a CSV with one row per pump and curve point, the pump's fields repeated
on each of its rows, pumps in catalogue order, points by rising suction:
model, frequency (50 or 60), class (compression limit class: 1 single-stage,
2 two-stage, other), series (1 or 2: the correction tables), flag (1: only
for an explicit choice), seal1_gpm .. seal3_gpm (seal water by seal option),
max_bhp, motor_index (into the motor table), rated_acfm, speed_rpm (carried,
not used by the design), suction_mmHgA, capacity_acfm, bhp (brake power; the
design reads the first point's).

Output: exactly 89 records of 450 bytes, little-endian, no header: model (12
bytes, blank padded), rated capacity and speed (singles), point count and
motor index (16-bit), frequency (single), class, series and flag (16-bit),
three seal flows and the maximum power (singles), then 25 curve rows of
suction, capacity, a spare 0 and brake power (singles); unused rows are 0.

Usage: make_vpx.py CATALOGUE_CSV OUTPUT
"""

import csv
import struct
import sys

PUMPS = 89
POINTS = 25


def record(rows):
    first = rows[0]
    if len(rows) > POINTS:
        raise ValueError(f"{first['model']}: {len(rows)} curve points, at most {POINTS}")
    model = first["model"].encode("ascii")
    if len(model) > 12:
        raise ValueError(f"{first['model']}: a model name has at most 12 characters")
    data = model.ljust(12, b" ")
    data += struct.pack("<ffhhfhhh", float(first["rated_acfm"]), float(first["speed_rpm"]), len(rows),
                        int(first["motor_index"]), float(first["frequency"]), int(first["class"]),
                        int(first["series"]), int(first["flag"]))
    data += struct.pack("<4f", float(first["seal1_gpm"]), float(first["seal2_gpm"]), float(first["seal3_gpm"]),
                        float(first["max_bhp"]))
    curve = []
    for r in rows:
        curve += [float(r["suction_mmHgA"]), float(r["capacity_acfm"]), 0.0, float(r["bhp"])]
    curve += [0.0] * (4 * POINTS - len(curve))
    data += struct.pack("<100f", *curve)
    assert len(data) == 450
    return data


def vpx_bytes(csv_path):
    with open(csv_path, newline="", encoding="ascii") as f:
        rows = list(csv.DictReader(f))
    pumps = []
    for row in rows:
        if not pumps or pumps[-1][0]["model"] != row["model"]:
            pumps.append([])
        pumps[-1].append(row)
    if len(pumps) != PUMPS:
        raise ValueError(f"{len(pumps)} pumps; the catalogue holds exactly {PUMPS}")
    return b"".join(record(p) for p in pumps)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    data = vpx_bytes(sys.argv[1])
    with open(sys.argv[2], "wb") as out:
        out.write(data)


if __name__ == "__main__":
    main()
