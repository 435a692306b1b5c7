"""The arithmetic of the trade, worked out from what was typed alone."""
import datetime
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from figures import dec, money, number, rounded


def day_of(text):
    return datetime.date.fromisoformat(text)


def bill_line(quantity, rate, discount, taxes, typed=None):
    """What a line of a bill stores: amount, taxes, net. The taxes stand on a value whose discount is not rounded;
    a tax typed over is taken as it is."""
    value = rounded(rate * quantity, 2)
    value = value - (discount * value) / 100
    amounts = [rounded(value * tax / 100, 2) for tax in taxes]
    if typed is not None:
        amounts[2] = typed
    net = rounded(value + amounts[0] + amounts[1] + amounts[2], 2)
    gross = rounded(quantity * rate, 2)
    amount = rounded(gross - rounded(gross * discount / 100, 2), 2)
    return amount, amounts, net


def bill_totals(lines, with_taxes=True):
    """Value, three taxes, quantity, round-off and the amount of a bill in whole rupees."""
    value = rounded(sum(line.amount for line in lines), 2)
    taxes = [rounded(sum(line.amounts[i] for line in lines), 2) for i in range(3)]
    total = value + taxes[0] + taxes[1] + taxes[2] if with_taxes else value
    net = rounded(total, 0)
    return value, taxes, rounded(sum(line.quantity for line in lines), 2), rounded(net - rounded(total, 2), 2), net


def quotation_line(quantity, rate, discount, taxes):
    gross = rate * quantity
    value = gross - gross * discount / 100
    amounts = [rounded(taxes[0] * value / 100, 2), rounded(value * taxes[1] / 100, 2), rounded(taxes[2] * value / 100, 2)]
    return rounded(value + amounts[0] + amounts[1] + amounts[2], 2), amounts


def challan_totals(lines, discount, charges):
    """Value, quantity, discount in whole rupees and amount."""
    value = float(number(sum(line.quantity * line.rate for line in lines)))
    off = rounded(value * discount / 100, 0)
    return value, sum(line.quantity for line in lines), off, value + charges - off


def next_bill_number(last):
    """The number after the last of its type: three digits get two noughts, more than four digits keep only four."""
    if last is None:
        following = 1
    else:
        n = int("".join(c for c in last if c.isdigit()) or 0)
        following = n + 1 if n >= 10000 else int(str(n)[:4]) + 1
    text = str(following)
    return {1: "000", 2: "00", 3: "00"}.get(len(text), "") + text


def bill_date_passes(day, first, last):
    """Dates are compared as texts, the day of the month first."""
    text = lambda d: d.strftime("%d/%b/%Y")
    return text(first) <= text(day) <= text(last)
