#!/usr/bin/env python3
"""A year of books made at random, and every statement and balance of it figured from the raw tables.

usage: oracle.py make DATABASE SEED      fills an empty company-year
       oracle.py expect DATABASE         prints what must come of it

What must come stands in blocks headed "@ kind", then tab and an argument each. A cell is its text, \\x1f, and its style:
w white, m tinted, t total, 9 small, L left-aligned, B bold. Cells of a row are split by tabs, the last
one names the vouchers behind the row. Sums are decimals, never doubles.
"""
import datetime
import os
import random
import sqlite3
import string
import sys
from decimal import ROUND_HALF_EVEN, Decimal

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from figures import dec, insert, money, number, rows

START = "2026-04-01"
PERIODS = [(START, "2027-03-31"), ("2026-07-01", "2026-09-30"), ("2026-02-15", START)]
GROUPS = [10, 11, 13, 15, 16, 21, 22, 25, 26, 33, 35, 37, 40, 51, 70, 72, 74, 75, 76, 77, 78, 81, 85, 85, 85, 85,
          87, 88, 95, 121, 122, 125, 127, 128, 129, 130, 132, 133, 135, 135]
CODES = ["A%05d" % n for n in range(1, 51)]
ZERO, PAISA = Decimal(0), Decimal("0.01")


def narration(rng):
    size = rng.choice([0, 1, 2, 20, 31, 32, 33, 34, 35, 36, 36, 37, 45, 60, 60, 120, 199, 200])
    letters = rng.choice([string.ascii_uppercase, string.ascii_uppercase + "   ", "અબ ક", "A" * 9 + " "])
    text = "".join(rng.choice(letters) for _ in range(size))
    return text[:-1] + " " if text and rng.random() < 0.2 else text


def day(rng):
    if rng.random() < 0.1:
        return None
    edge = datetime.date.fromisoformat(rng.choice(rng.choice(PERIODS)))
    near = edge + datetime.timedelta(rng.choice([-1, 0, 0, 1]))
    any_day = datetime.date(2025, 6, 1) + datetime.timedelta(rng.randrange(700))
    return (near if rng.random() < 0.3 else any_day).isoformat()


def make(db, rng):
    pick, money_up_to = rng.choice, lambda most: round(rng.uniform(0, most), 2)
    db.execute("DELETE FROM ACCOUNT")
    for n, code in enumerate(CODES):
        name = pick(["PATEL TRADING CO", "O'NEIL & SONS", "ભાઈ", ".", ""]) if n % 7 == 0 else "PARTY %d" % n
        insert(db, "ACCOUNT", ACC_CD=code, ACC_NAME=name, GROUP_CD=GROUPS[n % len(GROUPS)], CL_BAL=7, ANOTHER_CD="S001",
               OP_BAL=pick([0, 0, None, 100, -100, money_up_to(1e5), -money_up_to(1e6)]) if code != CODES[-1] else 0,
               AREA=pick(["ANAND", "GAMDI", None]), CITY=pick(["ANAND", "SURAT"]), PHONE1=pick(["98250", None]))
    for number in range(1, 200):
        if rng.random() < 0.8:  # else deleted: its ledger rows have stayed
            insert(db, "SALE", VOUCH_NO=number, BOOK_CD=pick(["SA", "SA", "SR", "CH", "PU", "PU", "PR"]), GR_NO=pick(["", "7"]),
                   TRANSPORT=pick(["", ".", "MARUTI ROADLINES", None]), PARCLE=pick(["", "2 BOXES"]))
    odd = set(CODES)  # one amount of three decimals each, so that no sum of them lies half-way
    for _ in range(5000):
        code = pick(CODES[:-1] + ["A00001", "A00023", "Z99999", None])  # the last account stands idle
        amount = pick([0, None, 0.1, 50, 1000, money_up_to(9e4), money_up_to(900), pick([1, 1, -1]) * money_up_to(99)])
        if code in odd and rng.random() < 0.3:
            odd.discard(code)
            amount = round(rng.randrange(10000) / 100 + pick([0.001, 0.004, 0.006]), 3)
        insert(db, "ALEDGER", VOUCH_DT=day(rng), VOUCH_NO=rng.randrange(1, 200), VOUCH_TYPE=pick("CCCCCCDDDDDd"),
               BOOK_CD=pick(["SA", "SA", "SR", "CH", "RC", "PU", "PR", "PY", "IC", "EP"]), VOUCH_AMT=amount,
               PARTY_CD=code.lower() if code and rng.random() < 0.05 else code, PARTY_TCD=pick(CODES + ["Z99999", None]),
               PARTY_BL=pick([None, "", "00%d" % rng.randrange(99)]), CHQ_NO=pick([None, "", ".", "004512"]),
               NARRATION=pick([None, narration(rng)]), NARR1=pick([None, "ANAND BRANCH"]), SRNO=pick([None, 0, 1, 2, 3]))
    db.execute("UPDATE ALEDGER SET VOUCH_TYPE = NULL WHERE rowid % 50 = 7")
    db.commit()


def rounded(x):
    return x.quantize(PAISA, ROUND_HALF_EVEN)


def letter(row):
    return (row["VOUCH_TYPE"] or "").upper()


def side(row, wanted):
    return dec(row["VOUCH_AMT"]) if letter(row) == wanted else ZERO


def lines(text):
    if len(text) <= 35 or " " not in text[31:]:
        return [text]
    blank = text.index(" ", 31)
    return [text[:blank + 1], text[blank + 1:]]


class Books:
    def __init__(self, db):
        self.accounts = {a["ACC_CD"]: a for a in rows(db, "SELECT * FROM ACCOUNT")}
        self.groups = {g["GROUP_CD"]: g["GROUP_NAME"] for g in rows(db, "SELECT * FROM GRP")}
        self.ledger = rows(db, "SELECT rowid AS ID, * FROM ALEDGER")
        self.sales = {(s["VOUCH_NO"], s["BOOK_CD"]): s for s in rows(db, "SELECT * FROM SALE")}
        for r in self.ledger:
            r["PARTY_CD"] = (r["PARTY_CD"] or "").upper()
            r["KEY"] = r["BOOK_CD"] + number(r["VOUCH_NO"])
            r["DAY"] = "/".join(reversed((r["VOUCH_DT"] or "")[2:].split("-")))
            name = self.accounts.get(r["PARTY_TCD"], {}).get("ACC_NAME", "")
            r["AGAINST"] = name if len(name) > 1 else ""

    def opening(self, code, before, since):
        stored = dec(self.accounts[code]["OP_BAL"])
        rows = [r for r in self.ledger if r["PARTY_CD"] == code and r["VOUCH_DT"] and since <= r["VOUCH_DT"] < before]
        return [max(sign * stored, ZERO) + sum(side(r, d) for r in rows) for sign, d in ((1, "D"), (-1, "C"))]

    def period(self, code, start, end, serial):
        inside = [r for r in self.ledger if r["PARTY_CD"] == code and start <= (r["VOUCH_DT"] or "") <= end]
        inside.sort(key=lambda r: (r["VOUCH_NO"], -1 if r["SRNO"] is None or not serial else r["SRNO"], r["ID"]))
        inside.sort(key=letter, reverse=True)
        inside.sort(key=lambda r: r["VOUCH_DT"])
        return inside

    def details(self, r):
        sale = self.sales.get((r["VOUCH_NO"], r["BOOK_CD"])) if r["BOOK_CD"] in ("SA", "SR", "PU", "PR") else None
        parts = [sale[c] for c in ("TRANSPORT", "GR_NO", "PARCLE")] if sale else [None]
        return "" if None in parts else " - ".join(parts)


class Sheet:
    def __init__(self, columns):
        self.columns, self.rows, self.keys = columns, [], []

    def put(self, at, cells, style="", marks=""):
        """Texts by column; a style of their own, and marks for the whole row."""
        while len(self.rows) <= at:
            self.rows.append([["", ""] for _ in range(self.columns)])
            self.keys.append(["", ""])
        for column, text in cells.items():
            self.rows[at][column] = [text, self.rows[at][column][1] + style]
        for cell in self.rows[at]:
            cell[1] += marks

    def add(self, cells, marks="", style=""):
        self.put(len(self.rows), cells, style, marks)
        return len(self.rows) - 1

    def print(self):
        for cells, keys in zip(self.rows, self.keys):
            print(*("%s\x1f%s" % (text, "".join(sorted(set(style)))) for text, style in cells), ",".join(keys), sep="\t")


def balance(debit, credit):
    return ("Cr", credit - debit) if abs(credit) >= debit else ("Dr", debit - abs(credit))


def running(books, code, start, end, narrated):
    sheet = Sheet(9)
    plain, tinted = ("w", "m") if narrated else ("", "")
    debit, credit = books.opening(code, start, START if books.accounts[code]["GROUP_CD"] > 74 else "")
    net = rounded(debit - credit)
    owes = debit >= abs(credit)
    if net != 0:
        sheet.add({4: "OPENING BALANCE", 5 if owes else 6: money(abs(net)), 7: money(abs(net)),
                   8: "Dr" if owes else "Cr"}, plain)
    opening = debit, credit = (net, ZERO) if owes else (ZERO, -net)

    entries = books.period(code, start, end, True)
    for r in entries:
        d, c = side(r, "D"), side(r, "C")
        debit, credit = debit + rounded(d), credit + rounded(c)
        name, left = balance(debit, credit)
        at = sheet.add({0: number(r["VOUCH_NO"]), 1: r["DAY"], 3: r["BOOK_CD"], 4: r["AGAINST"], 7: money(left), 8: name,
                        2: r["CHQ_NO"] if len(r["CHQ_NO"] or "") > 1 else r["PARTY_BL"] or "",
                        5: money(rounded(d)) if d != 0 else "", 6: money(rounded(c)) if c != 0 else ""}, tinted)
        remarks = lines(r["NARRATION"]) if len(r["NARRATION"] or "") > 1 else []
        remarks += [books.details(r)] if len(books.details(r)) > 7 else []
        for text in remarks if narrated else []:
            sheet.add({4: text}, plain, "9L")
        for keys in sheet.keys[at:]:
            keys[0] = r["KEY"]

    sheet.add({}, tinted)
    debits = sum(side(r, "D") != 0 for r in entries)
    sheet.add({4: "Transactions : Dr : %d  Cr : %d" % (debits, len(entries) - debits),
               5: money(debit - opening[0]), 6: money(credit - opening[1])}, "Bt")
    name = balance(debit, credit)[0]
    sheet.add({4: "**Closing Balance %s." % name, 6 if name == "Dr" else 5: money(abs(debit - credit))}, plain + "B")
    total = money(abs(debit if name == "Dr" else credit))
    sheet.add({4: "***TOTAL AMOUNT", 5: total, 6: total}, "Bt")
    return sheet


def t_ledger(books, code, start, end, narrated):
    sheet = Sheet(10)
    debit, credit = books.opening(code, start, "")
    net = rounded(debit - credit)
    first = 5 if net > 0 else 0
    sheet.put(0, {first + 3: "OPENING BALANCE", first + 4: money(abs(net))})
    entries = books.period(code, start, end, False)

    def fill(wanted, base, at):
        for r in entries:
            amount, begin = side(r, wanted), at
            if amount == 0:
                continue
            sheet.put(at, {base: number(r["VOUCH_NO"]), base + 1: r["BOOK_CD"], base + 2: r["DAY"], base + 4: money(amount)})
            if r["AGAINST"]:
                sheet.put(at, {base + 3: r["AGAINST"]})
            at += 1
            if narrated and (r["CHQ_NO"] or r["PARTY_BL"]):
                cheque = "Ch.No.: %s - %s" % (r["CHQ_NO"], r["NARR1"] or "") if r["CHQ_NO"] else ""
                sheet.put(at, {base + 2: r["PARTY_BL"] or "", base + 3: cheque})
                at += 1
            for text in lines(r["NARRATION"]) if narrated and r["NARRATION"] else []:
                sheet.put(at, {base + 3: text}, "9L")
                at += 1
            for keys in sheet.keys[begin:at]:
                keys[0 if base == 5 else 1] = r["KEY"]
        return at

    at = max(fill("D", 5, 1), fill("C", 0, 1 if net < 0 else 0))
    debits, credits = (sum((side(r, wanted) for r in entries), ZERO) for wanted in "DC")
    left = rounded(max(net, ZERO) + debits - max(-net, ZERO) - credits)
    total = money(max(max(net, ZERO) + debits, max(-net, ZERO) + credits))
    count = sum(side(r, "D") != 0 for r in entries)
    sheet.put(at, {3: "Transaction Total   Cr : %d" % (len(entries) - count), 4: money(credits),
                   8: "Transaction Total   Dr : %d" % count, 9: money(debits)}, marks="B")
    sheet.put(at + 1, {**({3: "**Closing Bal. Dr.", 4: money(left)} if left >= 0 else {}),
                       **({8: "**Closing Bal. Cr.", 9: money(-left)} if left <= 0 else {})}, marks="B")
    sheet.put(at + 2, {3: "Total ", 4: total, 8: "Total ", 9: total}, marks="Bt")
    return sheet


def final_table(books, start, end):
    """Rows of account and six figures: opening, earlier and period, each debit and credit."""
    table = [(code, [max(dec(a["OP_BAL"]), ZERO), max(-dec(a["OP_BAL"]), ZERO)] + [ZERO] * 4)
             for code, a in books.accounts.items() if a["GROUP_CD"] in books.groups]
    sums = {}
    for r in books.ledger:
        group = books.accounts.get(r["PARTY_CD"], {}).get("GROUP_CD", 0)
        when = r["VOUCH_DT"] or "9"
        column = 2 if when < start and (group == 10 or group >= 70) else 4 if start <= when <= end else None
        if column:
            figures = sums.setdefault((r["PARTY_CD"], letter(r), column), [ZERO] * 6)
            if letter(r):
                figures[column + "DC".index(letter(r))] += dec(r["VOUCH_AMT"])
    return table + [(code, figures) for (code, _, _), figures in sums.items()]


def print_final(books, start, end):
    unknown = {"GROUP_CD": 0, "ACC_NAME": ""}
    table = []
    for code, figures in final_table(books, start, end):
        a = books.accounts.get(code, unknown)
        table.append((number(a["GROUP_CD"]), books.groups.get(a["GROUP_CD"], ""), code, a["ACC_NAME"], figures))
    print("@ final", start, end, sep="\t")
    print(*sorted("\t".join([*names, *map(money, figures)]) for *names, figures in table), sep="\n")

    def sums(column, wanted):
        six = [sum(figures) for figures in zip(*(row[4] for row in table if row[column] == wanted))]
        return six, sum(six[0::2]), sum(six[1::2])

    print("@ summary", start, end, sep="\t")
    for group, name in sorted({row[:2] for row in table}, key=lambda g: float(g[0])):
        six, debit, credit = sums(0, group)
        print(group, name, *map(money, six + [debit, credit, debit - credit]), sep="\t")
    for area, city in (("", ""), ("ANAND", ""), ("GAMDI", "SURAT")):
        print("@ closing", start, end, area, city, sep="\t")
        for name, code in sorted({(row[3], row[2]) for row in table if row[0] == "85"}):
            a = books.accounts[code]
            if area in ("", a["AREA"]) and city in ("", a["CITY"]):
                _, debit, credit = sums(2, code)
                print(code, name, money(max(debit - credit, ZERO)), money(max(credit - debit, ZERO)), a["AREA"] or "",
                      a["PHONE1"] or "", money(debit - credit), "85", "S001", a["CITY"], sep="\t")


def expect(books):
    for period in PERIODS:
        for code in CODES:
            for narrated in (0, 1):
                for kind, statement in (("running", running), ("tledger", t_ledger)):
                    print("@ " + kind, *period, code, narrated, sep="\t")
                    statement(books, code, *period, narrated).print()
        print_final(books, *period)
    print("@ CL_BAL")
    for code in CODES:
        debit, credit = books.opening(code, "9", "")
        undated = [r for r in books.ledger if r["PARTY_CD"] == code and not r["VOUCH_DT"]]
        print(code, money(debit - credit + sum(side(r, "D") - side(r, "C") for r in undated)), sep="\t")


def main():
    db = sqlite3.connect(sys.argv[2])
    make(db, random.Random(int(sys.argv[3]))) if sys.argv[1] == "make" else expect(Books(db))


main()
