#!/usr/bin/python3
"""Writes the binary steam table MOLVBLG.DTA from IAPWS-IF97 (Debian's python3-iapws).

Layout, little-endian: STEAMNP and STEAMNC as 16-bit integers, the 34 superheat
temperatures in degF divided by 10 as singles, then per pressure 75 singles:
pressure psia, saturation temperature degF, saturated vapor volume ft3/lb,
saturated liquid enthalpy Btu/lb and entropy Btu/lb-F, saturated vapor
enthalpy and entropy, then enthalpy and entropy at each superheat temperature
(0 where the temperature lies below saturation).

Enthalpy and entropy keep the IAPWS reference (internal energy and entropy of
the saturated liquid at the triple point are zero). Below the triple point the
saturation line of IF97 and its liquid and vapor equations are extrapolated
(metastable liquid), as steam tables for ejector work do.

Usage: make_steam_table.py OUTPUT
"""

import math
import struct
import sys

from iapws import iapws97

# Unit factors (exact by definition of the international foot, pound and Btu).
KJ_PER_KG_PER_BTU_PER_LB = 2.326
KJ_PER_KGK_PER_BTU_PER_LBF = 4.1868
FT3_PER_LB_PER_M3_PER_KG = 0.45359237 / 0.3048 ** 3
MPA_PER_PSI = 0.45359237 * 9.80665 / 0.0254 ** 2 / 1e6

TRIPLE_POINT_MPA = 611.212677e-6

NP = 147
NC = 75

# Superheat temperatures, degF: 20 F apart near saturation at vacuum, wider above.
SUPERHEAT_F = (list(range(120, 301, 20)) + list(range(325, 501, 25)) +
               list(range(550, 1001, 50)) + list(range(1100, 1601, 100)))


def pressures_psia():
    """147 rising pressures: 100 from 0.01 to one atmosphere, 47 from there to 1000 psia,
    each a geometric series rounded to four significant digits."""
    def series(lo, hi, count):
        ratio = (hi / lo) ** (1.0 / (count - 1))
        return [float(f"{lo * ratio ** i:.4g}") for i in range(count)]

    low = series(0.01, 14.696, 100)
    low[-1] = 14.696
    high = series(14.696, 1000.0, 48)[1:]
    high[-1] = 1000.0
    points = low + high
    assert len(points) == NP and all(b > a for a, b in zip(points, points[1:]))
    return points


def saturation_temperature_k(p_mpa):
    """IF97 saturation temperature (IAPWS R7-97, Eq. 31 with the coefficients of
    Table 34); below the triple point the same equation is extrapolated."""
    if p_mpa >= TRIPLE_POINT_MPA:
        return iapws97._TSat_P(p_mpa)
    n = (0, 0.11670521452767e4, -0.72421316703206e6, -0.17073846940092e2,
         0.12020824702470e5, -0.32325550322333e7, 0.14915108613530e2,
         -0.48232657361591e4, 0.40511340542057e6, -0.23855557567849,
         0.65017534844798e3)
    beta = p_mpa ** 0.25
    e = beta ** 2 + n[3] * beta + n[6]
    f = n[1] * beta ** 2 + n[4] * beta + n[7]
    g = n[2] * beta ** 2 + n[5] * beta + n[8]
    d = 2 * g / (-f - math.sqrt(f ** 2 - 4 * e * g))
    return (n[10] + d - math.sqrt((n[10] + d) ** 2 - 4 * (n[9] + n[10] * d))) / 2


def vapor(t_k, p_mpa):
    """Steam properties: IF97 region 2, region 5 above 1073.15 K."""
    return iapws97._Region5(t_k, p_mpa) if t_k > 1073.15 else iapws97._Region2(t_k, p_mpa)


def f_to_k(t_f):
    return (t_f - 32.0) / 1.8 + 273.15


def k_to_f(t_k):
    return (t_k - 273.15) * 1.8 + 32.0


def row(p_psia):
    p = p_psia * MPA_PER_PSI
    ts = saturation_temperature_k(p)
    liquid = iapws97._Region1(ts, p)
    steam = vapor(ts, p)
    cells = [p_psia, k_to_f(ts), steam["v"] * FT3_PER_LB_PER_M3_PER_KG,
             liquid["h"] / KJ_PER_KG_PER_BTU_PER_LB, liquid["s"] / KJ_PER_KGK_PER_BTU_PER_LBF,
             steam["h"] / KJ_PER_KG_PER_BTU_PER_LB, steam["s"] / KJ_PER_KGK_PER_BTU_PER_LBF]
    for t_f in SUPERHEAT_F:
        t = f_to_k(t_f)
        if t > ts:
            state = vapor(t, p)
            cells += [state["h"] / KJ_PER_KG_PER_BTU_PER_LB, state["s"] / KJ_PER_KGK_PER_BTU_PER_LBF]
        else:
            cells += [0.0, 0.0]
    assert len(cells) == NC
    return cells


def table_bytes():
    assert len(SUPERHEAT_F) == 34 and SUPERHEAT_F[0] == 120 and SUPERHEAT_F[-1] == 1600
    data = struct.pack("<hh", NP, NC)
    data += struct.pack("<34f", *[t / 10.0 for t in SUPERHEAT_F])
    for p in pressures_psia():
        data += struct.pack("<75f", *row(p))
    return data


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], "wb") as out:
        out.write(table_bytes())


if __name__ == "__main__":
    main()
