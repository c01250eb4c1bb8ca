#!/usr/bin/python3
"""Writes the sample price data: KSConfig.DTA, MULTIPLE.PRC, TUBE.PRC and JETPRC.PRC.

These are SAMPLE PRICES for demonstrating the price build-up, not a quotation
basis. Every figure below is either taken from a published source (named where
it is used) or is a stated sample assumption. The layout of each file is
described in pgmfiles/README.md ("Price data").

Published sources used:
- [SSL] W. D. Seider, J. D. Seader, D. R. Lewin, S. Widagdo, "Product and
  Process Design Principles", 3rd ed., Wiley 2009, ch. 22 (cost index CE 500):
  one-stage carbon steel ejector vacuum system, purchase cost
  Cp = 1690 S^0.41 with the size factor S = (lb/hr of load) / (suction torr),
  and a material factor of 2.0 for stainless steel.
- [CCE] A. B. Corripio, K. S. Chrien, L. B. Evans, "Estimate costs of heat
  exchangers and storage tanks via correlations", Chemical Engineering,
  25 January 1982 (cost index CE 315): base cost of a carbon steel
  exchanger, USD, with A the area in ft2,
  CB = exp(8.551 - 0.30863 ln A + 0.06811 (ln A)^2), the fixed tube sheet
  type factor FD = exp(-1.1156 + 0.0906 ln A), and the material factors
  (SI form, A in m2) FM(304) = 1.1991 + 0.15984 ln A,
  FM(316) = 1.4144 + 0.23296 ln A.
- [CEPCI] Chemical Engineering Plant Cost Index, annual average 2023: 797.9.
- [DENS] Densities of the tube metals, lb/in3, as the metal producers'
  data sheets give them (carbon steel 0.2836, 304/316 stainless 0.289/0.290,
  admiralty brass 0.308, aluminium brass 0.301, 90/10 and 70/30
  copper-nickel 0.323, Monel 400 0.319, Hastelloy B-2 0.333,
  Hastelloy C-276 0.321, titanium grade 2 0.163, Alloy 20 0.292 ...), here in
  whole lb/ft3 (x 1728).
- Tube weights per foot follow from the tube's metal ring, as the tubing
  tables (TEMA "Characteristics of tubing") compute them: the weight per foot
  of a tube of outside diameter OD and wall t is 12 pi t (OD - t) times the
  density.

Usage: make_prices.py OUTPUT_FOLDER
"""

import math
import os
import sys

# --- Sample assumptions -----------------------------------------------------------------------------------------
BLABOR = 95.0          # burdened shop labor, $/hour (sample)
DLR = 1.30             # selling price over cost (sample mark-up; the breakdown's "Price")
MATERIAL_SHARE = 0.45  # share of an ejector's cost that is material, the rest shop labor (sample)
ESCALATE_SSL = 797.9 / 500.0   # [CEPCI] over [SSL]'s CE 500
ESCALATE_CCE = 797.9 / 315.0   # [CEPCI] over [CCE]'s CE 315

# Material multipliers on carbon steel material cost.
AMF304 = 2.0                                   # [SSL] stainless ejector material factor
AMF316 = round(AMF304 * (1.4144 + 0.23296 * math.log(100)) / (1.1991 + 0.15984 * math.log(100)), 2)
# ^ [CCE]: 316 over 304 at 100 m2, applied to the stainless factor
AMFSTEEL = 1.0
AMFCI = 0.80       # sample: a cast iron body's metal against fabricated steel plate
AMFCASTSTL = 1.25  # sample: cast carbon steel against fabricated steel
AMFCAST316 = round(AMF316 * 1.15, 2)  # sample: a cast 316 body against fabricated 316

MULTIPLIERS = [("DLR", DLR), ("AMFCI", AMFCI), ("AMFSTEEL", AMFSTEEL), ("AMF304", AMF304), ("AMF316", AMF316),
               ("AMFCASTSTL", AMFCASTSTL), ("AMFCAST316", AMFCAST316), ("BLABOR", BLABOR)]

# Ejector model sizes with their throat diameter (in) and standard suction and discharge connections (in): the
# program's own model size table.
SIZES = [(1.0, 0.3, 2, 1), (1.5, 0.368, 2, 1), (2.0, 0.425, 2, 1.5), (2.5, 0.475, 2, 1.5), (3.0, 0.54, 2, 1.5),
         (3.5, 0.563, 2, 1.5), (4.0, 0.6, 2, 1.5), (4.5, 0.635, 2, 1.5), (5.0, 0.695, 2, 1.5), (6.0, 0.735, 2, 1.5),
         (7.0, 0.795, 2, 1.5), (8.0, 0.85, 3, 2.5), (9.0, 0.9, 3, 2.5), (10.0, 0.98, 3, 2.5), (12.0, 1.1, 3, 2.5),
         (14.0, 1.18, 3, 2.5), (16.0, 1.25, 3, 2.5), (18.0, 1.33, 4, 3), (22.0, 1.47, 4, 3), (26.0, 1.59, 4, 3),
         (31.0, 1.75, 4, 4), (36.0, 1.88, 4, 4), (40.0, 1.98, 4, 4), (50.0, 2.21, 4, 4), (60.0, 2.42, 6, 6),
         (70.0, 2.61, 6, 6), (80.0, 2.8, 6, 6), (90.0, 2.96, 8, 6), (100.0, 3.1, 8, 6), (110.0, 3.27, 8, 8),
         (120.0, 3.42, 8, 8), (130.0, 3.56, 8, 8)]


def standard_motive(size):
    """Standard motive connection of a model size, in (sample)."""
    if size <= 5:
        return 0.5
    if size <= 16:
        return 0.75
    if size <= 50:
        return 1.0
    if size <= 90:
        return 1.5
    return 2.0


def ejector_cost(throat):
    """Cost (before the mark-up DLR) of a one-stage carbon steel ejector of this throat, $.

    [SSL] Cp = 1690 S^0.41 escalated by [CEPCI]; the size factor is taken as S = 2 d^2 with d the throat in
    inches (sample: the load an ejector handles per torr of suction grows with its throat area; a 1 in throat
    takes about 2 lb/hr per torr)."""
    s = 2.0 * throat * throat
    return 1690.0 * s ** 0.41 * ESCALATE_SSL / DLR


def body_weight(throat):
    """Weight of a fabricated ejector body, lb (sample: 12 lb of flanges and chest plus 30 lb per in2 of throat)."""
    return 12.0 + 30.0 * throat * throat


def cstc_rows():
    rows = []
    for size, d, suction, discharge in SIZES:
        cost = ejector_cost(d)
        body = 0.85 * cost          # sample: the steam nozzle is 15 % of an ejector's cost
        nozzle = 0.15 * cost
        matl, hours = MATERIAL_SHARE * body, (1 - MATERIAL_SHARE) * body / BLABOR
        weeks = 8 if d < 1 else (10 if d < 2 else 12)  # sample shipment weeks
        rows.append([size, matl, hours, body_weight(d),
                     0.10 * matl, 0.30 * hours,   # ASME Sect. VIII: 10 % more material, 30 % more hours (sample)
                     0.0, 0.10 * hours,           # HEI: a performance test, 10 % more hours (sample)
                     suction, discharge, standard_motive(size),
                     0.5 * nozzle, 0.5 * nozzle / BLABOR, 0.5 + 0.8 * d,  # steam nozzle: half material (sample)
                     weeks])
    return rows


def castjets_rows():
    rows = []
    for size, d, _, _ in SIZES:
        # Cast bodies: every material up to size 4.5, cast iron up to size 100, none above (sample patterns).
        flag = 2 if size <= 4.5 else (1 if size <= 100 else 0)
        body = 0.85 * ejector_cost(d) * 0.70        # sample: a casting costs 70 % of a fabrication
        matl, hours = 0.60 * body, 0.40 * body / BLABOR  # sample: castings are mostly material
        rows.append([size, flag, matl, hours, 1.3 * body_weight(d) if flag else 0.0,
                     0.05 * matl, 0.20 * hours,    # ASME adder (sample)
                     0.0, 0.10 * hours,            # HEI adder (sample)
                     6 if flag else 0])            # sample: stock patterns ship in 6 weeks
        if not flag:
            rows[-1][2:9] = [0.0] * 7
    return rows


PIPE_SIZES = [0.25, 0.5, 0.75, 1, 1.25, 1.5, 2, 2.5, 3, 4, 6, 8, 10, 12, 14, 16, 18]  # the program's standard pipes
CLASSES = [(150, 1.0, 0), (300, 1.5, 0), (600, 2.8, 2), (900, 3.9, 4), (1500, 5.4, 6)]
# ^ flange class, weight against class 150 (sample ratios of the order of weld-neck flange weights), extra weeks


def csta_rows():
    rows = []
    for size in PIPE_SIZES:
        for rating, ratio, weeks in CLASSES:
            weight = (1.5 + 1.1 * size ** 1.6) * ratio      # flange and pipe stub, carbon steel (sample)
            matl = 10.0 + 3.0 * weight                        # forged steel at $3/lb (sample)
            hours = 0.5 + 0.25 * size * math.sqrt(ratio)
            npt = [5.0 + 4.0 * size, 0.3 + 0.1 * size, 0.3 + 0.2 * size]  # threaded coupling (sample)
            asme = [0.2 * matl, 0.3 + 0.1 * size, 0.15 * weight]       # reinforcing pad (sample)
            rows.append([size, rating, matl, hours, weight] + npt + asme + [weeks])
    return rows


# Extra condenser nozzles: nominal size and the smallest shell OD whose base price already includes one (sample).
EXTRA_SIZES = [(0.75, 6), (1, 6), (1.25, 6), (1.5, 6), (2, 8), (2.5, 10), (3, 12), (4, 16), (5, 20), (6, 24),
               (8, 30), (10, 36), (12, 42), (14, 99), (16, 99), (18, 99), (20, 99), (24, 99)]


def extranoz_rows():
    rows = []
    for group, factor in ((1, 1.0), (2, AMF304)):  # steel; stainless
        for size, shell in EXTRA_SIZES:
            weight = 2.0 + 1.3 * size ** 1.6
            matl = (10.0 + 3.0 * weight) * factor
            hours = (0.8 + 0.35 * size) * (1.15 if group == 2 else 1.0)  # stainless welding is slower (sample)
            rows.append([size, group, matl, hours, weight, shell, 0 if size < 14 else 2])
    return rows


# Design pressure surcharge of condenser shells: design pressure psig, percent (sample: the shell wall, and so its
# steel, grows with pressure over the 75 psig the family tables are priced at).
def pctstlcf_rows():
    rows = []
    for k in range(1, 27):
        p = 15 * k
        rows.append([p, 0.0 if p <= 75 else round(0.12 * (p - 75), 1)])
    return rows


SHELLS = list(range(6, 44, 2))  # 19 shell outside diameters, in


def bundle_area(shell, length):
    """Tube area of a full bundle of 3/4 in tubes on a 15/16 in triangular pitch, ft2 (sample layout: the bundle
    fills the shell less 1.5 in, at 85 % of the ideal count)."""
    d = shell - 1.5
    tubes = 0.85 * (math.pi / 4 * d * d) / (0.866 * 0.9375 ** 2)
    return tubes * math.pi * 0.75 / 12 * length


def exchanger_price(area):
    """Selling price of a carbon steel fixed tube sheet exchanger, $: [CCE] CB FD, escalated by [CEPCI]."""
    ln = math.log(area)
    return math.exp(8.551 - 0.30863 * ln + 0.06811 * ln * ln) * math.exp(-1.1156 + 0.0906 * ln) * ESCALATE_CCE


SHELL_SHARE = 0.75  # sample: the exchanger without its tubes
SHELL_PART = 0.60   # sample: of that, the shell (process side); the rest heads and channels (water side)


def steel_condenser(shell):
    """Base (6 ft) and per-foot slope of MATL, HOURS, WEIGHT of a carbon steel condenser without tubes."""
    def at(length):
        cost = exchanger_price(bundle_area(shell, length)) * SHELL_SHARE / DLR
        return [MATERIAL_SHARE * cost, (1 - MATERIAL_SHARE) * cost / BLABOR]
    wall = 0.25 if shell <= 24 else 0.375
    shell_per_ft = math.pi * shell * wall * 12 * 0.2836       # [DENS] steel
    ends = 2 * (math.pi / 4 * shell * shell) * (1.5 + 2 * wall) * 0.2836  # tube sheets and heads (sample)
    base, next_ft = at(6.0), at(7.0)
    return ([base[0], base[1], 6 * shell_per_ft + ends], [next_ft[0] - base[0], next_ft[1] - base[1], shell_per_ft])


METAL = {"STL": 1.0, "304": AMF304, "316": AMF316}
FAMILIES = [("ALLSTL", "STL", "STL"), ("STL304", "STL", "304"), ("304STL", "304", "STL"), ("304SS", "304", "304"),
            ("STL316", "STL", "316"), ("316STL", "316", "STL"), ("316SS", "316", "316")]
# Group factors on the X family (sample): C tube side condensing (vertical), B barometric, R TEMA R / API 660.
GROUPS = [("X", 1.0), ("C", 1.10), ("B", 0.55), ("R", 1.25)]


def family_rows(group, factor, process, water):
    rows = []
    for shell in SHELLS:
        base, slope = steel_condenser(shell)
        metal = SHELL_PART * METAL[process] + (1 - SHELL_PART) * METAL[water]
        alloy = SHELL_PART * (process != "STL") + (1 - SHELL_PART) * (water != "STL")
        labor = 1 + 0.15 * alloy   # stainless welding is slower (sample)
        if group == "B":           # a barometric condenser: a plain vessel, priced by diameter alone
            slope = [0.0, 0.0, 0.0]
        weeks = 10 + shell // 12
        rows.append([shell, weeks,
                     base[0] * metal * factor, base[1] * labor * factor, base[2],
                     slope[0] * metal * factor, slope[1] * labor * factor, slope[2]])
    return rows


def channel_rows(water):
    """A channel with cover in place of a bonnet, per head (sample: 12 % of the X family's water side material
    and hours, a cover plate's weight)."""
    rows = []
    for shell in SHELLS:
        base, _ = steel_condenser(shell)
        rows.append([shell, 2, 0.12 * base[0] * METAL[water], 0.12 * base[1], math.pi / 4 * shell * shell * 1.0 * 0.2836,
                     0.0, 0.0, 0.0])
    return rows


# --- Tubes -------------------------------------------------------------------------------------------------------
# The program's material list (1..35) with its tube price group (0: not priced as a tube), density [DENS] in
# lb/ft3, mill weeks and the mill's minimum order in feet (sample).
GROUP_NAMES = ["carbon steel", "copper alloys", "copper-nickel", "304 stainless", "316 stainless", "nickel alloys",
               "Hastelloy", "titanium"]
GROUP_PRICE = [1.5, 6.0, 9.0, 4.5, 6.0, 20.0, 35.0, 25.0]       # mill price, $/lb (sample)
GROUP_DENSITY = [0.2836, 0.308, 0.323, 0.289, 0.290, 0.319, 0.321, 0.163]  # reference metal of each group [DENS]
GROUP_HOURS = [0.06, 0.05, 0.05, 0.07, 0.07, 0.09, 0.10, 0.10]  # hours per tube per inch of OD (sample)

MATERIALS = [  # name, group, lb/in3 [DENS], mill weeks, minimum order ft
    ("STEEL", 1, 0.2836, 4, 0), ("ADMIRALTY", 2, 0.308, 8, 500), ("304SS", 4, 0.289, 6, 0),
    ("304L SS", 4, 0.289, 6, 0), ("316SS", 5, 0.290, 6, 0), ("316L SS", 5, 0.290, 6, 0),
    ("NRB", 2, 0.304, 8, 500), ("MUNTZ", 2, 0.303, 8, 500), ("ALUM BR", 2, 0.301, 8, 500),
    ("70/30 CU NI", 3, 0.323, 10, 500), ("90/10 CU NI", 3, 0.323, 10, 500), ("MONEL", 6, 0.319, 12, 300),
    ("INCONEL-600", 6, 0.304, 12, 300), ("HAST-B", 7, 0.333, 16, 300), ("HAST-C", 7, 0.321, 16, 300),
    ("INCOLOY 825", 6, 0.294, 12, 300), ("TI GR 2", 8, 0.163, 14, 300), ("ALLOY 20", 6, 0.292, 12, 300),
    ("416SS", 0, 0.280, 0, 0), ("CAST IRON", 0, 0.260, 0, 0), ("FRP", 0, 0.065, 0, 0), ("GRAPHITE", 0, 0.065, 0, 0),
    ("321SS", 4, 0.286, 8, 200), ("317SS", 5, 0.290, 8, 200), ("2205SS", 5, 0.285, 10, 300),
    ("COPPER", 2, 0.323, 8, 500), ("904LSS", 6, 0.287, 12, 300), ("AL6XN", 6, 0.290, 12, 300),
    ("INCONEL 625", 6, 0.305, 14, 300), ("410SS", 4, 0.280, 8, 200), ("317LSS", 5, 0.290, 8, 200),
    ("254SMO", 6, 0.287, 12, 300), ("CAST STEEL", 0, 0.2836, 0, 0), ("CAST 316LSS", 0, 0.290, 0, 0), ("", 0, 0, 0, 0)]
TUBE_ODS = [0.625, 0.75, 0.875, 1.0, 1.25, 1.5]
TUBE_GAUGES = [14, 16, 18, 20]  # BWG; walls as the program's gauge table
BWG_WALL = {14: 0.083, 16: 0.065, 18: 0.049, 20: 0.035}


def tube_rows():
    """TUBEPRC(group, OD, 1..5): mill $/ft at BWG 14, 16, 18, 20, then hours per tube."""
    out = []
    for g in range(8):
        for od in TUBE_ODS:
            prices = []
            for bwg in TUBE_GAUGES:
                t = BWG_WALL[bwg]
                lb_per_ft = 12 * math.pi * t * (od - t) * GROUP_DENSITY[g]
                prices.append(lb_per_ft * GROUP_PRICE[g])
            out.append(prices + [GROUP_HOURS[g] * od])
    return out


# --- Writing -----------------------------------------------------------------------------------------------------
def number(v):
    """A number as the files hold it: integers bare, others with at most 4 decimals, no trailing zeros."""
    if float(v) == int(v):
        return str(int(v))
    text = f"{v:.4f}".rstrip("0").rstrip(".")
    return text


def write(folder, name, lines):
    with open(os.path.join(folder, name), "wb") as f:
        f.write("".join(line + "\r\n" for line in lines).encode("ascii"))


def section(name, rows, columns):
    lines = [f"' {columns}", f"DATA {name}"]
    lines += [",".join(number(v) for v in row) for row in rows]
    return lines


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)

    write(folder, "KSConfig.DTA", ['1,""'])
    write(folder, "MULTIPLE.PRC", [f'"{k}",{number(v)}' for k, v in MULTIPLIERS])

    tube = []
    for name, g, density, weeks, minimum in MATERIALS:
        tube.append(",".join(str(v) for v in (g, round(density * 1728), weeks, minimum)))
    tube += [",".join(number(round(v, 4)) for v in row) for row in tube_rows()]
    write(folder, "TUBE.PRC", tube)

    jet = ["' Sample prices for a demonstration: see the README of the program's data folder."]
    jet += section("CSTC", [[round(v, 2) for v in r] for r in cstc_rows()],
                   "size,MATL,HOURS,WEIGHT,ASME MATL,ASME HOURS,HEI MATL,HEI HOURS,suction,discharge,motive,"
                   "nozzle MATL,nozzle HOURS,nozzle WEIGHT,weeks")
    jet += section("CSTA", [[round(v, 2) for v in r] for r in csta_rows()],
                   "size,class,MATL,HOURS,WEIGHT,NPT MATL,NPT HOURS,NPT WEIGHT,ASME MATL,ASME HOURS,ASME WEIGHT,weeks")
    jet += section("PCTSTLCF", pctstlcf_rows(), "design psig,percent")
    jet += section("EXTRANOZ", [[round(v, 2) for v in r] for r in extranoz_rows()],
                   "size,group,MATL,HOURS,WEIGHT,included from shell OD,weeks")
    jet += section("CASTJETS", [[round(v, 2) for v in r] for r in castjets_rows()],
                   "size,cast,MATL,HOURS,WEIGHT,ASME MATL,ASME HOURS,HEI MATL,HEI HOURS,weeks")
    heads = "shell OD,weeks,MATL,HOURS,WEIGHT,MATL/ft,HOURS/ft,WEIGHT/ft"
    for group, factor in GROUPS:
        for family, process, water in FAMILIES:
            jet += section(group + family, [[round(v, 2) for v in r] for r in family_rows(group, factor, process, water)],
                           heads)
        if group == "X":
            for water in ("STL", "304", "316"):
                jet += section(f"X{water}CHAN", [[round(v, 2) for v in r] for r in channel_rows(water)], heads)
    write(folder, "JETPRC.PRC", jet)


if __name__ == "__main__":
    main()
