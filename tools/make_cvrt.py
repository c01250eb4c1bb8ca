#!/usr/bin/python3
"""Writes the unit conversion table CVRT.DTA.

Each line: category number, unit name, short name, A, B, C, D, with the value
in the category's SI base unit = A^B * (C + x) + D. Factors are the exact
definitions (inch 0.0254 m, foot 0.3048 m, pound 0.45359237 kg, US gallon
231 in3, calorie (IT) 4.1868 J, standard atmosphere 101325 Pa) and the values
of NIST Special Publication 811 (2008 edition), Appendix B: Btu (IT)
1055.05585262 J, pound-force 4.4482216152605 N, conventional millimeter of
mercury 133.322387415 Pa, inch of water (60 F) 248.84 Pa, foot of water
(39.2 F) 2988.98 Pa, metric horsepower 735.49875 W, therm (EC) 1.05505585262E+08 J.
Gauge units are offset by one standard atmosphere; "inHg vac" counts down from it.

Usage: make_cvrt.py OUTPUT
"""

import sys

lbm = 0.45359237
ft = 0.3048
inch = 0.0254
gal = 3.785411784e-3
btu = 1055.05585262
cal = 4.1868
lbf = 4.4482216152605
mmhg = 133.322387415

CATEGORIES = [
    (1, [("Pascal", "Pa", 1, 1, 0, 0), ("Kilopascal", "kPa", 1000, 1, 0, 0), ("Bar (absolute)", "bar a", 1e5, 1, 0, 0),
         ("Millibar", "mbar", 100, 1, 0, 0), ("Millimeter of mercury (absolute)", "mmHgA", mmhg, 1, 0, 0),
         ("Torr", "torr", 101325 / 760, 1, 0, 0), ("Micron of mercury", "micron", mmhg / 1000, 1, 0, 0),
         ("Inch of mercury (absolute)", "inHgA", mmhg * 25.4, 1, 0, 0),
         ("Pound per square inch (absolute)", "psia", lbf / inch ** 2, 1, 0, 0),
         ("Pound per square inch (gauge)", "psig", lbf / inch ** 2, 1, 101325 / (lbf / inch ** 2), 0),
         ("Bar (gauge)", "bar g", 1e5, 1, 1.01325, 0), ("Inch of mercury vacuum", "inHg vac", -mmhg * 25.4, 1, 0, 101325),
         ("Standard atmosphere", "atm", 101325, 1, 0, 0), ("Kilogram-force per square centimeter", "kg/cm2", 98066.5, 1, 0, 0),
         ("Inch of water (60 F)", "inH2O", 248.84, 1, 0, 0), ("Foot of water (39.2 F)", "ftH2O", 2988.98, 1, 0, 0),
         ("Megapascal", "MPa", 1e6, 1, 0, 0)]),
    (2, [("Degree Fahrenheit", "degF", 5 / 9, 1, 459.67, 0), ("Degree Celsius", "degC", 1, 1, 273.15, 0),
         ("Kelvin", "K", 1, 1, 0, 0), ("Degree Rankine", "degR", 5 / 9, 1, 0, 0)]),
    (3, [("Pound per hour", "lb/hr", lbm / 3600, 1, 0, 0), ("Kilogram per hour", "kg/hr", 1 / 3600, 1, 0, 0),
         ("Pound per minute", "lb/min", lbm / 60, 1, 0, 0), ("Pound per second", "lb/s", lbm, 1, 0, 0),
         ("Kilogram per second", "kg/s", 1, 1, 0, 0), ("Gram per second", "g/s", 1e-3, 1, 0, 0),
         ("Metric ton per hour", "t/hr", 1000 / 3600, 1, 0, 0), ("Short ton per hour", "ton/hr", 907.18474 / 3600, 1, 0, 0),
         ("Kilogram per minute", "kg/min", 1 / 60, 1, 0, 0)]),
    (4, [("Cubic foot per minute", "CFM", ft ** 3 / 60, 1, 0, 0), ("Cubic foot per second", "ft3/s", ft ** 3, 1, 0, 0),
         ("Cubic foot per hour", "ft3/hr", ft ** 3 / 3600, 1, 0, 0), ("Cubic meter per hour", "m3/hr", 1 / 3600, 1, 0, 0),
         ("Cubic meter per second", "m3/s", 1, 1, 0, 0), ("Cubic meter per minute", "m3/min", 1 / 60, 1, 0, 0),
         ("US gallon per minute", "gpm", gal / 60, 1, 0, 0), ("Imperial gallon per minute", "Imp gpm", 4.54609e-3 / 60, 1, 0, 0),
         ("Liter per minute", "l/min", 1e-3 / 60, 1, 0, 0), ("Liter per second", "l/s", 1e-3, 1, 0, 0),
         ("Barrel (42 US gal) per day", "bbl/day", 42 * gal / 86400, 1, 0, 0)]),
    (5, [("Inch", "in", inch, 1, 0, 0), ("Foot", "ft", ft, 1, 0, 0), ("Yard", "yd", 0.9144, 1, 0, 0),
         ("Mile", "mile", 1609.344, 1, 0, 0), ("Micrometer", "micron", 1e-6, 1, 0, 0), ("Millimeter", "mm", 1e-3, 1, 0, 0),
         ("Centimeter", "cm", 1e-2, 1, 0, 0), ("Meter", "m", 1, 1, 0, 0), ("Kilometer", "km", 1000, 1, 0, 0)]),
    (6, [("Square inch", "in2", inch ** 2, 1, 0, 0), ("Square foot", "ft2", ft ** 2, 1, 0, 0),
         ("Square yard", "yd2", 0.9144 ** 2, 1, 0, 0), ("Acre", "acre", 4046.8564224, 1, 0, 0),
         ("Square millimeter", "mm2", 1e-6, 1, 0, 0), ("Square centimeter", "cm2", 1e-4, 1, 0, 0),
         ("Square meter", "m2", 1, 1, 0, 0), ("Hectare", "ha", 1e4, 1, 0, 0)]),
    (7, [("Cubic inch", "in3", inch ** 3, 1, 0, 0), ("Cubic foot", "ft3", ft ** 3, 1, 0, 0), ("US gallon", "gal", gal, 1, 0, 0),
         ("Imperial gallon", "Imp gal", 4.54609e-3, 1, 0, 0), ("Barrel (42 US gal)", "bbl", 42 * gal, 1, 0, 0),
         ("Cubic centimeter", "cm3", 1e-6, 1, 0, 0), ("Liter", "l", 1e-3, 1, 0, 0), ("Cubic meter", "m3", 1, 1, 0, 0),
         ("Cubic yard", "yd3", 0.9144 ** 3, 1, 0, 0)]),
    (8, [("Pound", "lb", lbm, 1, 0, 0), ("Ounce (avoirdupois)", "oz", lbm / 16, 1, 0, 0), ("Grain", "gr", lbm / 7000, 1, 0, 0),
         ("Short ton", "ton", 907.18474, 1, 0, 0), ("Long ton", "long ton", 1016.0469088, 1, 0, 0), ("Gram", "g", 1e-3, 1, 0, 0),
         ("Kilogram", "kg", 1, 1, 0, 0), ("Metric ton", "t", 1000, 1, 0, 0)]),
    (9, [("British thermal unit (IT)", "Btu", btu, 1, 0, 0), ("Million Btu", "MMBtu", btu * 1e6, 1, 0, 0),
         ("Therm (EC)", "therm", 1.05505585262e8, 1, 0, 0), ("Foot pound-force", "ft-lbf", lbf * ft, 1, 0, 0),
         ("Horsepower hour", "hp-hr", 550 * lbf * ft * 3600, 1, 0, 0), ("Calorie (IT)", "cal", cal, 1, 0, 0),
         ("Kilocalorie (IT)", "kcal", cal * 1000, 1, 0, 0), ("Joule", "J", 1, 1, 0, 0), ("Kilojoule", "kJ", 1000, 1, 0, 0),
         ("Megajoule", "MJ", 1e6, 1, 0, 0), ("Kilowatt hour", "kWh", 3.6e6, 1, 0, 0)]),
    (10, [("Btu per hour", "Btu/hr", btu / 3600, 1, 0, 0), ("Million Btu per hour", "MMBtu/hr", btu * 1e6 / 3600, 1, 0, 0),
          ("Horsepower (550 ft-lbf/s)", "hp", 550 * lbf * ft, 1, 0, 0), ("Metric horsepower", "PS", 735.49875, 1, 0, 0),
          ("Ton of refrigeration (12000 Btu/hr)", "TR", 12000 * btu / 3600, 1, 0, 0),
          ("Foot pound-force per second", "ft-lbf/s", lbf * ft, 1, 0, 0),
          ("Kilocalorie (IT) per hour", "kcal/hr", cal * 1000 / 3600, 1, 0, 0), ("Watt", "W", 1, 1, 0, 0),
          ("Kilowatt", "kW", 1000, 1, 0, 0), ("Megawatt", "MW", 1e6, 1, 0, 0)]),
    (11, [("Btu per hour square foot", "Btu/hr-ft2", btu / 3600 / ft ** 2, 1, 0, 0),
          ("Kilocalorie per hour square meter", "kcal/hr-m2", cal * 1000 / 3600, 1, 0, 0),
          ("Watt per square meter", "W/m2", 1, 1, 0, 0), ("Kilowatt per square meter", "kW/m2", 1000, 1, 0, 0),
          ("Watt per square centimeter", "W/cm2", 1e4, 1, 0, 0)]),
    (12, [("Btu per hour square foot degree F", "Btu/hr-ft2-F", btu / 3600 / ft ** 2 * 1.8, 1, 0, 0),
          ("Kilocalorie per hour square meter degree C", "kcal/hr-m2-C", cal * 1000 / 3600, 1, 0, 0),
          ("Watt per square meter kelvin", "W/m2-K", 1, 1, 0, 0), ("Kilowatt per square meter kelvin", "kW/m2-K", 1000, 1, 0, 0)]),
    (13, [("Hour square foot degree F per Btu", "hr-ft2-F/Btu", 1 / (btu / 3600 / ft ** 2 * 1.8), 1, 0, 0),
          ("Hour square meter degree C per kilocalorie", "hr-m2-C/kcal", 3600 / (cal * 1000), 1, 0, 0),
          ("Square meter kelvin per watt", "m2-K/W", 1, 1, 0, 0), ("Square meter kelvin per kilowatt", "m2-K/kW", 1e-3, 1, 0, 0)]),
    (14, [("Pound per cubic foot", "lb/ft3", lbm / ft ** 3, 1, 0, 0), ("Pound per US gallon", "lb/gal", lbm / gal, 1, 0, 0),
          ("Pound per cubic inch", "lb/in3", lbm / inch ** 3, 1, 0, 0), ("Gram per cubic centimeter", "g/cm3", 1000, 1, 0, 0),
          ("Kilogram per cubic meter", "kg/m3", 1, 1, 0, 0), ("Kilogram per liter", "kg/l", 1000, 1, 0, 0)]),
    (15, [("Centipoise", "cP", 1e-3, 1, 0, 0), ("Poise", "P", 0.1, 1, 0, 0), ("Pascal second", "Pa-s", 1, 1, 0, 0),
          ("Millipascal second", "mPa-s", 1e-3, 1, 0, 0), ("Pound per foot second", "lb/ft-s", lbm / ft, 1, 0, 0),
          ("Pound per foot hour", "lb/ft-hr", lbm / ft / 3600, 1, 0, 0)]),
    (16, [("Foot per second", "ft/s", ft, 1, 0, 0), ("Foot per minute", "ft/min", ft / 60, 1, 0, 0),
          ("Inch per second", "in/s", inch, 1, 0, 0), ("Mile per hour", "mph", 0.44704, 1, 0, 0),
          ("Meter per second", "m/s", 1, 1, 0, 0), ("Meter per minute", "m/min", 1 / 60, 1, 0, 0),
          ("Kilometer per hour", "km/hr", 1 / 3.6, 1, 0, 0)]),
    (17, [("Btu per hour foot degree F", "Btu/hr-ft-F", btu / 3600 / ft * 1.8, 1, 0, 0),
          ("Btu inch per hour square foot degree F", "Btu-in/hr-ft2-F", btu / 3600 * inch / ft ** 2 * 1.8, 1, 0, 0),
          ("Kilocalorie per hour meter degree C", "kcal/hr-m-C", cal * 1000 / 3600, 1, 0, 0),
          ("Watt per meter kelvin", "W/m-K", 1, 1, 0, 0)]),
    (18, [("Btu per pound degree F", "Btu/lb-F", btu / lbm * 1.8, 1, 0, 0),
          ("Kilocalorie per kilogram degree C", "kcal/kg-C", cal * 1000, 1, 0, 0),
          ("Kilojoule per kilogram kelvin", "kJ/kg-K", 1000, 1, 0, 0), ("Joule per kilogram kelvin", "J/kg-K", 1, 1, 0, 0)]),
    (19, [("Btu per pound", "Btu/lb", btu / lbm, 1, 0, 0), ("Kilocalorie per kilogram", "kcal/kg", cal * 1000, 1, 0, 0),
          ("Kilojoule per kilogram", "kJ/kg", 1000, 1, 0, 0), ("Joule per kilogram", "J/kg", 1, 1, 0, 0)]),
    (20, [("Centistokes", "cSt", 1e-6, 1, 0, 0), ("Stokes", "St", 1e-4, 1, 0, 0), ("Square foot per second", "ft2/s", ft ** 2, 1, 0, 0),
          ("Square foot per hour", "ft2/hr", ft ** 2 / 3600, 1, 0, 0), ("Square meter per second", "m2/s", 1, 1, 0, 0)]),
    (21, [("Pound mole per hour", "lbmol/hr", lbm * 1000 / 3600, 1, 0, 0), ("Kilogram mole per hour", "kmol/hr", 1000 / 3600, 1, 0, 0),
          ("Mole per second", "mol/s", 1, 1, 0, 0),
          ("Standard cubic foot per minute (60 F, 14.696 psia)", "SCFM", lbm * 1000 / 60 / 379.49, 1, 0, 0),
          ("Normal cubic meter per hour (0 C, 1 atm)", "Nm3/hr", 1000 / 3600 / 22.41397, 1, 0, 0)]),
]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    lines = []
    for number, units in CATEGORIES:
        if len(units) > 20:
            raise ValueError(f"category {number}: at most 20 units")
        for name, short, a, b, c, d in units:
            lines.append(f'{number},"{name}","{short}",{a!r},{b!r},{c!r},{d!r}')
    with open(sys.argv[1], "w", newline="") as out:
        out.write("\r\n".join(lines) + "\r\n")


if __name__ == "__main__":
    main()
