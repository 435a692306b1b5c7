#!/usr/bin/env python3
"""Random bills as an operator types them, and what must come of them, figured apart from the program.

usage: oracle.py SEED BILLS

One step a line, its parts split by tabs:

  bill   PARTY               a new bill to the party
  enter  FIELD  TEXT         fill a field and press Enter
  over   FIELD  TEXT         type over the amount of a tax
  see    FIELD  TEXT         what a field must show
  line   AMOUNT|NET|QTY|...  what the line must have stored, as number texts
  total  ITEMS|QTY|...       what the totals must show
"""
import random
import re
import sys
from decimal import ROUND_HALF_UP, Decimal


def rounded(x, d):
    scale = 10.0 ** d
    return round(x * scale) / scale  # Python rounds a half to the even neighbour


def val(text):
    leading = re.match(r" *([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)", text)
    return float(leading.group(1)) if leading else 0.0


def number_text(x):
    return "0" if x == 0 else "%.15g" % x


def three_decimals(x):
    """Half away from zero on the decimal form of 15 digits."""
    return str(Decimal("%.15g" % x).quantize(Decimal("0.001"), rounding=ROUND_HALF_UP))


def quantity_text(typed):
    return three_decimals(val(typed)) if val(typed) >= 0 else typed


def tax_rates(company, party, rate):
    if company == party:
        half = number_text(rate / 2) if rate > 0 else ""
        return half, half, "0"
    return "0", "0", number_text(rate) if rate > 0 else ""


def assessable(quantity, rate, discount):
    assess = rounded(rate * quantity, 2)
    return assess - (discount * assess) / 100


def line(rng, company, party):
    item_rate = rng.choice([0, 0.25, 3, 5, 6, 12, 18, 28, 7.5, 1.005])
    typed_q, typed_r = typed_figure(rng, 3), typed_figure(rng, 4)
    typed_d = rng.choice(["", "0", "5", "10", "12.5", "33.333", "100", "150", "0.125", "7.77", typed_figure(rng, 2)])
    typed_d = typed_d.replace("-", "")
    hand = rng.choice("-----csi")
    q, r, d = quantity_text(typed_q), number_text(val(typed_r)), number_text(val(typed_d))
    c, s, i = tax_rates(company, party, item_rate)

    assess = assessable(val(q), val(r), val(d))
    ct, st, it = (number_text(rounded(assess * val(x) / 100, 2)) for x in (c, s, i))
    cv, sv, iv = (rounded(assess * val(x) / 100, 2) for x in (c, s, i))
    net = assess + cv + sv + iv
    typed_tax = typed_figure(rng, 2)
    if hand != "-":
        ct, st, it = [typed_tax if k == hand else t for k, t in zip("csi", (ct, st, it))]
        net = assess + val(ct) + val(st) + val(it)
    net_text = number_text(rounded(net, 2))

    gross = rounded(val(q) * val(r), 2)
    off = rounded(gross * val(d) / 100, 2)
    amount = rounded(rounded(gross - off, 2), 2)

    step("enter", "Text1(5)", "T" + number_text(item_rate * 1000))
    for field, text in (12, c), (10, s), (19, i):
        step("see", "Text1(%d)" % field, text)
    for field, text in (8, typed_q), (9, typed_r), (11, typed_d):
        step("enter", "Text1(%d)" % field, text)
    if hand != "-":
        step("over", {"c": "Text1(13)", "s": "Text1(15)", "i": "Text1(31)"}[hand], typed_tax)
    for field, text in (13, ct), (15, st), (31, it), (14, net_text):
        step("see", "Text1(%d)" % field, text)
    step("line", "|".join(number_text(x) for x in (amount, val(net_text), val(q), val(r), val(d))))
    return amount, val(q), val(ct), val(st), val(it)


def step(*parts):
    print(*parts, sep="\t")


def typed_figure(rng, decimals):
    kind = rng.randrange(12)
    if kind == 0:
        return rng.choice(["", "0", ".", "-", "1.2.3", "007", ".5", "3.", "-2", "0.005", "1.005", "2.675"])
    if kind == 1:
        return str(rng.randrange(10 ** 9, 10 ** 12))
    if kind == 2:
        return "%.*f" % (decimals + 3, rng.uniform(-50, 50))
    if kind == 3:
        return "%d.%0*d5" % (rng.randrange(1000), decimals - 1, rng.randrange(10 ** (decimals - 1)))
    return "%.*f" % (rng.randrange(decimals + 1), rng.uniform(0, 10 ** rng.randrange(1, 6)))


def bill(rng):
    company = 24
    party = rng.choice([24, 24, 24, 27, 0])
    step("bill", {24: "A00001", 27: "A00002", 0: "A00009"}[party])
    sums = [0.0] * 5
    for _ in range(rng.randrange(1, 9)):
        for n, figure in enumerate(line(rng, company, party)):
            sums[n] += figure
    items, quantity, c, s, i = texts = [number_text(rounded(x, 2)) for x in sums]
    t = val(items) + val(c) + val(s) + val(i)
    amount = rounded(t, 0)
    round_off = rounded(rounded(t, 0) - rounded(t, 2), 2)
    step("total", "|".join([*texts, number_text(amount), number_text(round_off)]))


def main():
    rng = random.Random(int(sys.argv[1]))
    for _ in range(int(sys.argv[2])):
        bill(rng)


if __name__ == "__main__":
    main()
