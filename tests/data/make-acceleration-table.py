#!/usr/bin/env python3
"""Writes acceleration-table.txt: what the acceleration slider's conversions give, to the last bit.

    tests/data/make-acceleration-table.py > tests/data/acceleration-table.txt

Python's numbers are the doubles that the panel computes with; struct rounds them to 32-bit floats. Each line is
'p' (position to factor) or 'f' (factor to position) and pairs of 32-bit floats by their bits: input, result.
"""
import struct
from fractions import Fraction


def bits(number):
    return struct.unpack("<I", struct.pack("<f", number))[0]


def number(of_bits):
    return struct.unpack("<f", struct.pack("<I", of_bits))[0]


def nearest_float(fraction):
    """The 32-bit float nearest to the exact fraction, without rounding twice."""
    guess = bits(float(fraction))
    near = (guess - 1, guess, guess + 1) if guess else (0, 1)
    return number(min(near, key=lambda b: (abs(Fraction(number(b)) - fraction), b & 1)))


def factor_of(position):
    if position < 1.0 or position > 10.0:
        return 0.0
    if position < 5.0:
        return position * 0.2 - 0.1
    return (position - 5.0) * 0.2 + 1.0


def position_of(factor):
    if factor < 0.1 or factor > 2.0:
        return 5.0
    if factor < 1.0:
        return (factor + 0.1) / 0.2
    return (factor - 1.0) / 0.2 + 5.0


def neighbours(of):
    """The floats just below and above each of the numbers: the edges of the branches."""
    return [number(bits(n) + step) for n in of for step in (-1, 0, 1)]


def inputs(last, edges):
    return [nearest_float(Fraction(i, 100)) for i in range(last + 1)] + neighbours(edges)


def rows(kind, numbers, function):
    pairs = ["%08x%08x" % (bits(n), bits(function(n))) for n in numbers]
    for start in range(0, len(pairs), 6):
        print(kind, *pairs[start : start + 6])


rows("p", inputs(1100, (1.0, 5.0, 10.0)), factor_of)
rows("f", inputs(250, (0.1, 0.9, 1.0, 2.0)), position_of)
# Every factor that the slider stores finds its way back to where the slider stood, or nearly.
rows("f", [number(bits(factor_of(nearest_float(Fraction(i, 100))))) for i in range(100, 1001)], position_of)
