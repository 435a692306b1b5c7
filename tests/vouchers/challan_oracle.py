#!/usr/bin/env python3
"""Random challans as an operator types them, figured apart from the program.

usage: challan_oracle.py SEED CHALLANS

One step a line, its parts split by tabs:

  challan                    a new challan
  enter  FIELD  TEXT         fill a field and press Enter
  pass   FIELD               go to a field and press Enter
  see    FIELD  TEXT         what a field must show
  line   QTY|RATE|NET        what the line must have stored, as number texts
  saved  ITEMS|QTY|...       what a save must store
"""
import random
import sys

sys.dont_write_bytecode = True
from oracle import number_text, rounded, step, typed_figure, val


def line(rng):
    typed_q, typed_r = rng.choice(["", typed_figure(rng, 3)]), typed_figure(rng, 4)
    quantity, rate = val(typed_q or "1"), val(typed_r or "0")
    net = number_text(quantity * rate)
    step("enter", "Text1(5)", "I0000002")
    step("enter", "Text1(8)", typed_q)
    step("see", "Text1(8)", typed_q or "1")
    step("enter", "Text1(9)", typed_r)
    step("see", "Text1(14)", net)
    step("line", "|".join(number_text(x) for x in (quantity, rate, val(net))))
    return quantity, val(net)


def challan(rng):
    step("challan")
    lines = [line(rng) for _ in range(rng.randrange(1, 8))]
    quantity, items = (number_text(sum(column)) for column in zip(*lines))
    for field, text in (26, quantity), (18, items), (28, items):
        step("see", "Text1(%d)" % field, text)

    percent = rng.choice(["", "0", "10", "2.5", "0.05", "12.5", "100", "150", "-5", typed_figure(rng, 2)])
    off = number_text(rounded(val(items) * val(percent) / 100, 0))
    step("enter", "Text1(19)", percent)
    step("see", "Text1(20)", off)
    if rng.randrange(4) == 0:
        off = typed_figure(rng, 2)  # an amount typed over it stands
        step("enter", "Text1(20)", off)
    else:
        step("pass", "Text1(20)")
    step("see", "Text1(28)", number_text(val(items) + 0.0 - val(off)))
    charges = rng.choice(["", "5.5", "100", "-0.01", typed_figure(rng, 2)])
    net = number_text(val(items) + val(charges) - val(off))
    step("enter", "Text1(21)", charges)
    step("see", "Text1(28)", net)
    step("saved", "|".join([items, quantity] + [number_text(val(x)) for x in (percent, off, charges, net)]))


def main():
    rng = random.Random(int(sys.argv[1]))
    for _ in range(int(sys.argv[2])):
        challan(rng)


main()
