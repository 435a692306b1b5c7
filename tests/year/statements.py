"""Statements of accounts as they must read."""
import datetime
from decimal import Decimal

from books import BANKS, CASH, CREDITORS, DEBTORS, ROUNDING, SALES, STATE
from rules import money, narration_rows

NIL = Decimal(0)


def grid(script, rows, control="Grid1"):
    script("expect rows %s %d" % (control, len(rows)))
    for r, cells in enumerate(rows):
        for c, text in enumerate(cells):
            if text is not None:
                script.expect("grid %s %d %d" % (control, r, c), text)


def opening(r, code, start):
    """Both sides before the period; nothing of this year lies before the accounting period."""
    stored = r.books.opening(code)
    before = [x for x in r.ledger if x.account == code and x.day < start]
    return [max(sign * stored, NIL) + sum((x.amount for x in before if x.side == side), NIL) for sign, side in ((1, "D"), (-1, "C"))]


def entries(r, code, start, end):
    """Debits of a day come before its credits."""
    found = [x for x in r.ledger if x.account == code and start <= x.day <= end]
    return sorted(found, key=lambda x: (x.day, x.side == "C", x.number, x.serial))


def running(r, code, start, end, narrated):
    debit, credit = opening(r, code, start)
    net, rows = debit - credit, []
    if net > 0:
        rows.append(["", "", "", "", "OPENING BALANCE", money(net), "", money(net), "Dr"])
    elif net < 0:
        rows.append(["", "", "", "", "OPENING BALANCE", "", money(-net), money(-net), "Cr"])
    found, balance = entries(r, code, start, end), net
    for x in found:
        balance += x.amount if x.side == "D" else -x.amount
        amounts = [money(x.amount), ""] if x.side == "D" else ["", money(x.amount)]
        rows.append([str(x.number), x.day.strftime("%d/%m/%y"), x.reference, x.book, r.books.name(x.against), *amounts,
                     money(abs(balance)), "Dr" if balance > 0 else "Cr"])
        remarks = narration_rows(x.narration) + ([x.details] if len(x.details) > 7 else [])
        rows += [["", "", "", "", text, "", "", "", ""] for text in remarks if narrated]
    debits, credits = (sum((x.amount for x in found if x.side == side), NIL) for side in "DC")
    count = sum(x.side == "D" for x in found)
    rows.append([""] * 9)
    rows.append(["", "", "", "", "Transactions : Dr : %d  Cr : %d" % (count, len(found) - count), money(debits), money(credits), "", ""])
    left = ["", money(balance)] if balance > 0 else [money(-balance), ""]
    rows.append(["", "", "", "", "**Closing Balance %s." % ("Dr" if balance > 0 else "Cr"), *left, "", ""])
    whole = money(max(max(net, NIL) + debits, max(-net, NIL) + credits))
    rows.append(["", "", "", "", "***TOTAL AMOUNT", whole, whole, "", ""])
    return rows


def show(r, code, start, end, narrated=False):
    s = r.s
    s.note("Ledger of %s" % code)
    s("menu LEDGERS")
    s.type(code.lower(), "Enter")
    s.fill("MaskEdBox1(0)", start.strftime("%d%m%Y"), "Enter")
    s.fill("MaskEdBox1(1)", end.strftime("%d%m%Y"))
    s("key Enter", "answer No" if narrated else "answer Yes", "key Enter")
    grid(s, running(r, code, start, end, narrated))
    s("press cmdclose", "expect screen frmmain")


def statements(r):
    year = datetime.date(2026, 4, 1), r.today
    autumn = datetime.date(2026, 9, 1), datetime.date(2026, 11, 30)
    of = lambda group: [p.code for p in r.books.parties if p.group == group]
    abroad = next(p.code for p in r.books.parties if p.group == DEBTORS and p.state != STATE)
    codes = of(DEBTORS)[:3] + of(DEBTORS)[-1:] + of(CREDITORS)[:2] + of(BANKS) + [abroad, CASH]
    for code in codes:
        for period in (year, autumn):
            show(r, code, *period)
    for code in of(DEBTORS) + [CASH]:
        show(r, code, *year, narrated=True)
    for code in (SALES, ROUNDING, "X90061", "X90063", "X90064"):
        show(r, code, *autumn)
