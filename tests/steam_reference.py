#!/usr/bin/python3
"""Reference steam states from IAPWS-IF97 (python3-iapws) for the steam tests.

Prints one state a line:
  sat T_F P_psia               saturation pressure, 35 to 500 F
  satvap P_psia T_F h          saturated vapor, 0.1 to 300 psia
  pt P_psia T_F h s v          superheated steam from 20 F above saturation, 0.02 to 300 psia
Units: psia, degF, Btu/lb, Btu/lb-F, ft3/lb.
"""

from iapws import iapws97

MPA_PER_PSI = 0.45359237 * 9.80665 / 0.0254 ** 2 / 1e6
BTU_LB = 2.326
BTU_LBF = 4.1868
FT3_LB = 0.45359237 / 0.3048 ** 3


def k(t_f):
    return (t_f - 32.0) / 1.8 + 273.15


def f(t_k):
    return (t_k - 273.15) * 1.8 + 32.0


def steam(t_k, p_mpa):
    return iapws97._Region5(t_k, p_mpa) if t_k > 1073.15 else iapws97._Region2(t_k, p_mpa)


for t_f in range(35, 501, 5):
    print("sat", t_f, iapws97._PSat_T(k(t_f)) / MPA_PER_PSI)

for p in (0.1, 0.2, 0.5, 1, 2, 5, 10, 14.696, 20, 50, 100, 150, 200, 250, 300):
    p_mpa = p * MPA_PER_PSI
    ts = iapws97._TSat_P(p_mpa)
    print("satvap", p, f(ts), iapws97._Region2(ts, p_mpa)["h"] / BTU_LB)

for p in (0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 14.696, 20, 50, 100, 150, 200, 250, 300):
    p_mpa = p * MPA_PER_PSI
    # Below the triple point the saturation temperature lies below 32 F.
    tsat_f = f(iapws97._TSat_P(p_mpa)) if p_mpa >= 611.212677e-6 else 32.0
    t_f = tsat_f + 20
    while t_f <= 1590:
        st = steam(k(t_f), p_mpa)
        print("pt", p, t_f, st["h"] / BTU_LB, st["s"] / BTU_LBF, st["v"] * FT3_LB)
        t_f += 23.7
