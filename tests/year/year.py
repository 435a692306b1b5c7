#!/usr/bin/env python3
"""A year in the shop: writes a script of keystrokes and, between and behind them, what must be seen.

usage: year.py SEED > SCRIPT
"""
import sys

from reports import expect_all
from story import Year


def main():
    year = Year(int(sys.argv[1])).play()
    expect_all(year)
    print("\n".join(year.script.lines))


main()
