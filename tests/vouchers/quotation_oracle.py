#!/usr/bin/env python3
"""Random offers as an operator types them, figured apart from the program.

usage: quotation_oracle.py SEED OFFERS

One step a line, its parts split by tabs:

  offer  PARTY               a new offer to the party
  enter  FIELD  TEXT         fill a field and press Enter
  see    FIELD  TEXT         what a field must show
  line   AMOUNT|ASSESS|...   what the line must have stored, as number texts
  total  AMOUNT|QTY|...      what the totals must show
"""
import random
import sys

sys.dont_write_bytecode = True
from oracle import number_text, rounded, step, tax_rates, typed_figure, val


def line(rng, company, party):
    item_rate = rng.choice([0, 0.25, 3, 5, 12, 18, 28, 1.005])
    typed_q, typed_r = typed_figure(rng, 3), typed_figure(rng, 4)
    typed_d = rng.choice(["", "0", "5", "12.5", "33.333", "100", "150", "-10", "0.125", "7.77"])
    q, r, d = val(typed_q), val(typed_r), val(typed_d)
    c, s, i = tax_rates(company, party, item_rate)

    step("enter", "Text1(12)", "T" + number_text(item_rate * 1000))
    for field, text in (36, c), (38, s), (40, i):
        step("see", "Text1(%d)" % field, text)
    for field, text in (8, typed_q), (9, typed_r), (16, typed_d):
        step("enter", "Text1(%d)" % field, text)
    # A rate of tax typed over is taken; an amount typed over is not.
    over = rng.choice("----csicsi")
    if over != "-":
        field = {"c": 36, "s": 38, "i": 40}[over]
        typed = rng.choice(["14", "2.5", "0", "", "0.333", "28"])
        c, s, i = [typed if k == over else x for k, x in zip("csi", (c, s, i))]
        step("enter", "Text1(%d)" % field, typed)
        step("enter", "Text1(%d)" % (field + 1), typed_figure(rng, 2))

    gross = r * q
    assess = gross - gross * d / 100
    ct, st, it = (rounded(val(x) * assess / 100, 2) for x in (c, s, i))
    amount = rounded(assess + ct + st + it, 2)
    shown = [number_text(x) for x in (q, r, d, ct, st, it, amount)]
    for field, text in zip((8, 9, 16, 37, 39, 41, 14), shown):
        step("see", "Text1(%d)" % field, text)
    step("line", "|".join(number_text(x) for x in (amount, rounded(assess, 2), q, r, d)))
    return [val(x) for x in (shown[6], shown[0], shown[3], shown[4], shown[5])]


def offer(rng):
    party = rng.choice([24, 24, 24, 27, 0])
    step("offer", {24: "A00001", 27: "A00002", 0: "A00009"}[party])
    sums = [0.0] * 5
    for _ in range(rng.randrange(1, 9)):
        for n, figure in enumerate(line(rng, 24, party)):
            sums[n] += figure
    texts = [number_text(x) for x in sums]
    step("total", "|".join([*texts, number_text(rounded(val(texts[0]), 0))]))


def main():
    rng = random.Random(int(sys.argv[1]))
    for _ in range(int(sys.argv[2])):
        offer(rng)


main()
