#!/usr/bin/env python3
"""Random vouchers as an operator types them, and what must come of them, figured apart from the program.

usage: oracle.py bill|challan|offer SEED COUNT

One step a line, its parts split by tabs:

  start  PARTY               a new voucher to the party
  enter  FIELD  TEXT         fill a field and press Enter
  over   FIELD  TEXT         type over the amount of a tax
  pass   FIELD               go to a field and press Enter
  see    FIELD  TEXT         what a field must show
  line   AMOUNT|QTY|...      what the line must have stored, as number texts
  total  ITEMS|QTY|...       what a save must store, as number texts
"""
import pathlib
import random
import re
import sys
from decimal import ROUND_HALF_UP, Decimal

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "support"))
from figures import number as number_text, rounded

COMPANY = 24  # its state


def val(text):
    leading = re.match(r" *([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)", text)
    return float(leading.group(1)) if leading else 0.0


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


def bill_line(rng, party):
    item_rate = rng.choice([0, 0.25, 3, 5, 6, 12, 18, 28, 7.5, 1.005])
    typed_q, typed_r = typed_figure(rng, 3), typed_figure(rng, 4)
    typed_d = rng.choice(["", "0", "5", "10", "12.5", "33.333", "100", "150", "0.125", "7.77", typed_figure(rng, 2)])
    typed_d = typed_d.replace("-", "")
    hand = rng.choice("-----csi")
    q, r, d = quantity_text(typed_q), number_text(val(typed_r)), number_text(val(typed_d))
    c, s, i = tax_rates(COMPANY, party, item_rate)

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
    step("pass", "Text1(14)")
    step("line", "|".join(number_text(x) for x in (amount, val(net_text), val(q), val(r), val(d))))
    return amount, val(q), val(ct), val(st), val(it)


def start(rng):
    party = rng.choice([24, 24, 24, 27, 0])
    step("start", {24: "A00001", 27: "A00002", 0: "A00009"}[party])
    return party


def added(lines):
    return [sum(column) for column in zip(*lines)]


def step(*parts):
    print(*parts, sep="\t")


def typed_figure(rng, decimals):
    kind = rng.randrange(12)
    if kind == 0:
        return rng.choice(["", "0", ".", "-", "1.2.3", "007", ".5", "3.", "-2", "0.005", "1.005", "2.675"])
    if kind == 1:
        return str(rng.randrange(10 ** 3, 10 ** 4))
    if kind == 2:
        return "%.*f" % (decimals + 3, rng.uniform(-50, 50))
    if kind == 3:
        return "%d.%0*d5" % (rng.randrange(1000), decimals - 1, rng.randrange(10 ** (decimals - 1)))
    return "%.*f" % (rng.randrange(decimals + 1), rng.uniform(0, 10 ** rng.randrange(1, 6)))


def bill(rng):
    party = start(rng)
    sums = added(bill_line(rng, party) for _ in range(rng.randrange(1, 9)))
    items, quantity, c, s, i = texts = [number_text(rounded(x, 2)) for x in sums]
    t = val(items) + val(c) + val(s) + val(i)
    amount = rounded(t, 0)
    round_off = rounded(rounded(t, 0) - rounded(t, 2), 2)
    texts += [number_text(amount), number_text(round_off)]
    for field, text in zip((18, 26, 1, 3, 20, 28, 38), texts):
        step("see", "Text1(%d)" % field, text)
    step("total", "|".join(texts))


def challan_line(rng):
    typed_q, typed_r = rng.choice(["", typed_figure(rng, 3)]), typed_figure(rng, 4)
    quantity, rate = val(typed_q or "1"), val(typed_r or "0")
    net = number_text(quantity * rate)
    step("enter", "Text1(5)", "I0000002")
    step("enter", "Text1(8)", typed_q)
    step("see", "Text1(8)", typed_q or "1")
    step("enter", "Text1(9)", typed_r)
    step("see", "Text1(14)", net)
    step("pass", "Text1(14)")
    step("line", "|".join(number_text(x) for x in (quantity, rate, val(net))))
    return quantity, val(net)


def challan(rng):
    step("start", "A00001")
    quantity, items = (number_text(x) for x in added(challan_line(rng) for _ in range(rng.randrange(1, 8))))
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
    step("total", "|".join([items, quantity] + [number_text(val(x)) for x in (percent, off, charges, net)]))


def offer_line(rng, party):
    item_rate = rng.choice([0, 0.25, 3, 5, 12, 18, 28, 1.005])
    typed_q, typed_r = typed_figure(rng, 3), typed_figure(rng, 4)
    typed_d = rng.choice(["", "0", "5", "12.5", "33.333", "100", "150", "-10", "0.125", "7.77"])
    q, r, d = val(typed_q), val(typed_r), val(typed_d)
    c, s, i = tax_rates(COMPANY, party, item_rate)

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
    step("pass", "Text1(14)")
    step("line", "|".join(number_text(x) for x in (amount, rounded(assess, 2), q, r, d)))
    return [val(x) for x in (shown[6], shown[0], shown[3], shown[4], shown[5])]


def offer(rng):
    party = start(rng)
    texts = [number_text(x) for x in added(offer_line(rng, party) for _ in range(rng.randrange(1, 9)))]
    texts.append(number_text(rounded(val(texts[0]), 0)))
    for field, text in zip((21, 45, 42, 43, 44, 27), texts):
        step("see", "Text1(%d)" % field, text)
    step("total", "|".join(texts))


def main():
    make = {"bill": bill, "challan": challan, "offer": offer}[sys.argv[1]]
    rng = random.Random(int(sys.argv[2]))
    for _ in range(int(sys.argv[3])):
        make(rng)


main()
