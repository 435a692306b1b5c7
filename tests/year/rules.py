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


def shares_of(net, amounts):
    """What discount and charges come to, over the lines; the largest takes what the paise leave."""
    goods = sum(amounts)
    if net == 0 or goods <= 0:
        return [0] * len(amounts)
    shares = [rounded(net * amount / goods, 2) if amount else 0 for amount in amounts]
    largest = amounts.index(max(amounts))
    shares[largest] = rounded(shares[largest] + net - sum(shares), 2)
    return shares


def charged_line(amount, share, taxes):
    """Taxes and net of a line that bears its share."""
    taxable = rounded(amount + share, 2)
    amounts = [rounded(taxable * tax / 100, 2) for tax in taxes]
    return amounts, rounded(taxable + sum(amounts), 2)


def net_of(charges):
    """Discount, packing, freight, others."""
    return rounded(sum(charges[1:]) - charges[0], 2)


def charges_of_part(charges, part, net):
    """Those that go back with a part of the goods; the largest takes what is left to the shares of the lines."""
    its = [rounded(charge * part, 2) for charge in charges]
    left = rounded(net - net_of(its), 2)
    largest = max((1, 2, 3), key=lambda i: its[i])
    if its[largest] >= its[0]:
        its[largest] = rounded(its[largest] + left, 2)
    else:
        its[0] = rounded(its[0] - left, 2)
    return its


def bill_totals(lines, charges=0, with_taxes=True):
    """Value, three taxes, quantity, round-off and the amount of a bill in whole rupees."""
    value = rounded(sum(line.amount for line in lines), 2)
    taxes = [rounded(sum(line.amounts[i] for line in lines), 2) for i in range(3)]
    total = value + charges + taxes[0] + taxes[1] + taxes[2] if with_taxes else value + charges
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
