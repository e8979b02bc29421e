#!/usr/bin/env python3
"""Prints numerics/mathlib/Polynomials.h: polynomials of the array forms of the normal distribution.

Each is the Chebyshev interpolation at 50 digits, written out in powers. Usage: polynomials.py > Polynomials.h,
then clang-format. Needs mpmath.
"""
from mpmath import chebyt, cos, erfc, exp, mp, mpf, nstr, pi, sqrt, taylor

mp.dps = 50
POINTS = 64


def chebyshev(f, count):
    """The first `count` Chebyshev coefficients of f on [-1, 1], and the largest of those left out."""
    angles = [pi * (j + mpf(1) / 2) / POINTS for j in range(POINTS)]
    values = [f(cos(angle)) for angle in angles]
    all_of_them = [
        sum(value * cos(k * angle) for value, angle in zip(values, angles)) * (1 if k == 0 else 2) / POINTS
        for k in range(POINTS)
    ]
    return all_of_them[:count], max(abs(c) for c in all_of_them[count:])


def powers(coefficients):
    """The same polynomial by its powers, the constant first."""
    result = [mpf(0)] * len(coefficients)
    for k, coefficient in enumerate(coefficients):
        for power, factor in enumerate(reversed(taylor(lambda x: chebyt(k, x), 0, k)[::-1])):
            result[power] += coefficient * factor
    return result


def show(name, comment, coefficients):
    print(f"/// {comment}")
    print(f"inline constexpr double {name}[] = {{{', '.join(nstr(c, 19) for c in coefficients)}}};\n")


def tail(name, farthest, shift, count):
    """(a + shift) exp(a^2/2) Phi(-a) over v = (shift - slope a)/(a + shift), which is 1 at 0 and -1 at farthest."""
    slope = 1 + 2 * mpf(shift) / mpf(farthest)

    def scaled(v):
        a = shift * (1 - v) / (v + slope)
        return (a + shift) * exp(a * a / 2) * erfc(a / sqrt(mpf(2))) / 2

    coefficients, rest = chebyshev(scaled, count)
    show(name, f"(a + {shift}) exp(a^2/2) Phi(-a), a from 0 to {farthest}; the next coefficient is {nstr(rest, 2)}.",
         powers(coefficients))
    print(f"inline constexpr double {name}Shift = {shift}, {name}Slope = {nstr(slope, 19)};\n")


def exponential(name, widest, count):
    """(exp(r) - 1 - r)/r^2 over r itself, so that exp(r) = 1 + (r + r^2 times it)."""

    def rest_of(r):
        return sum(r**k / mp.factorial(k + 2) for k in range(40))

    coefficients, rest = chebyshev(lambda v: rest_of(v * widest), count)
    scaled = [c / mpf(widest) ** k for k, c in enumerate(powers(coefficients))]
    show(name, f"(exp(r) - 1 - r)/r^2, |r| up to {nstr(mpf(widest), 4)}; the next coefficient is {nstr(rest, 2)}.", scaled)


print("// Polynomials of the array forms of the normal distribution, made by polynomials.py.")
print("#pragma once\n\nnamespace metrisk::polynomials {\n")
tail("nearTail", mpf("8.5"), 6, 18)
tail("farTail", mpf("38.8"), 5, 24)
exponential("exponentialRest", mpf("0.347"), 10)
print("} // namespace metrisk::polynomials")
