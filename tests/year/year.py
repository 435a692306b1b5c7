#!/usr/bin/env python3
"""A year in the shop: writes scripts of keystrokes and, between and behind them, what must be seen.

usage: year.py SEED STEM    writes STEM.1.keys and so on, each played from a fresh start of the program
"""
import sys

from reports import expect_all
from story import Year


def main():
    year = Year(int(sys.argv[1])).play()
    expect_all(year)
    for n, lines in enumerate(year.script.parts):
        with open("%s.%d.keys" % (sys.argv[2], n + 1), "w", encoding="utf-8") as script:
            script.write("\n".join(lines) + "\n")


main()
