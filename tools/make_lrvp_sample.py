#!/usr/bin/python3
"""Writes the sample liquid ring pump catalogue lrvp_sample_catalogue.csv.

This catalogue is a physically reasoned sample, not a vendor's. Its shapes and
ratios follow the research notes of the project's pump data (shared/data/lrvp):

- Capacity against suction pressure: phi(P) = (1 - (pb/P)^m) / (1 - (pb/760)^m),
  single-stage pb = 20 mmHgA, m = 1.3; two-stage pb = 17 mmHgA, m = 2.0 (synthetic
  shapes anchored to the 75 torr single-stage and 40 torr two-stage floors of
  Ryans & Roper Table 8-1 and to the zero-flow pressures of real pumps).
- Brake power against suction pressure: bhp/bhp_max = 0.6 + 0.4 C(P)/C_max with
  C = P phi(P) ln(760/P) (60 % ring loss, 40 % isothermal compression).
- Maximum brake power 5.0 hp (single-stage) and 7.5 hp (two-stage) per 100 ACFM
  of maximum capacity: the motor ratings of real SK and 2SK pumps, 5.9-7.6 and
  7.7-15.5 hp per 100 ACFM, less a motor margin.
- Seal water: option 1 (once-through) 0.6 gpm per hp of maximum power (a 10 F
  rise needs 0.51 gpm per bhp, Ryans & Roper eq. 10-8), option 2 (partial
  recirculation) half of it, option 3 (total recirculation) a quarter.
- 44 frames from 10 to about 4200 ACFM at 50 Hz, single- and two-stage; the same
  frames at 60 Hz turn 20 % faster and take 20 % more (reasoning, not data).
- Motors: the next standard NEMA rating (NEC Table 430.250) above the maximum power.
- One more two-stage pump, flagged for explicit choice only, makes 89.

Usage: make_lrvp_sample.py OUTPUT_CSV
"""

import csv
import math
import sys

MOTORS_HP = [0.5, 0.75, 1, 1.5, 2, 3, 5, 7.5, 10, 15, 20, 25, 30, 40, 50, 60, 75, 100, 125, 150, 200, 400, 450, 500]

SHAPES = {
    1: {"pb": 20.0, "m": 1.3, "hp_per_100": 5.0,
        "points": [30, 35, 40, 45, 50, 55, 60, 70, 80, 90, 100, 125, 150, 175, 200, 250, 300, 350, 400, 500, 600,
                   700, 760]},
    2: {"pb": 17.0, "m": 2.0, "hp_per_100": 7.5,
        "points": [20, 25, 30, 35, 40, 45, 50, 60, 70, 80, 90, 100, 125, 150, 175, 200, 250, 300, 400, 500, 600,
                   700, 760]},
}

FIELDS = ["model", "frequency", "class", "series", "flag", "seal1_gpm", "seal2_gpm", "seal3_gpm", "max_bhp",
          "motor_index", "rated_acfm", "speed_rpm", "suction_mmHgA", "capacity_acfm", "bhp"]


def phi(shape, p):
    pb, m = shape["pb"], shape["m"]
    if p <= pb:
        return 0.0
    return (1 - (pb / p) ** m) / (1 - (pb / 760.0) ** m)


def power_fraction(shape, p):
    def work(q):
        return q * phi(shape, q) * math.log(760.0 / q) if q < 760 else 0.0
    peak = max(work(q) for q in range(int(shape["pb"]) + 1, 760))
    return 0.6 + 0.4 * work(p) / peak


def frames():
    """44 frames: maximum capacity at 50 Hz, 10 to about 4200 ACFM, geometric."""
    ratio = (4166.0 / 10.0) ** (1 / 21)
    return [float(f"{10 * ratio ** i:.3g}") for i in range(22)]


def speed(acfm_50hz, frequency):
    base = 1450 if acfm_50hz < 300 else 970 if acfm_50hz < 1500 else 740
    return base if frequency == 50 else round(base * 1.2)


def pump_rows(model, frequency, pump_class, flag, acfm):
    shape = SHAPES[pump_class]
    max_bhp = round(shape["hp_per_100"] * acfm / 100, 2)
    seal = round(max(0.6 * max_bhp, 0.5), 2)
    motor = next(i for i, hp in enumerate(MOTORS_HP, start=1) if hp >= max_bhp)
    rows = []
    for p in shape["points"]:
        rows.append({"model": model, "frequency": frequency, "class": pump_class, "series": pump_class, "flag": flag,
                     "seal1_gpm": seal, "seal2_gpm": round(seal / 2, 2), "seal3_gpm": round(seal / 4, 2),
                     "max_bhp": max_bhp, "motor_index": motor, "rated_acfm": acfm,
                     "speed_rpm": speed(acfm if frequency == 50 else acfm / 1.2, frequency), "suction_mmHgA": p,
                     "capacity_acfm": round(acfm * phi(shape, p), 2),
                     "bhp": round(max_bhp * power_fraction(shape, p), 2)})
    return rows


def catalogue():
    rows = []
    for frequency in (60, 50):
        for pump_class, letter in ((1, "S"), (2, "T")):
            for frame in frames():
                acfm = round(frame * (1.2 if frequency == 60 else 1.0), 1)
                model = f"L{letter}-{acfm:06.1f}-{frequency}"
                rows += pump_rows(model, frequency, pump_class, 0, acfm)
    rows += pump_rows("LX-0250.0-60", 60, 2, 1, 250.0)
    return rows


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], "w", newline="", encoding="ascii") as out:
        writer = csv.DictWriter(out, fieldnames=FIELDS, lineterminator="\n")
        writer.writeheader()
        writer.writerows(catalogue())


if __name__ == "__main__":
    main()
