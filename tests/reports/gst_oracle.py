#!/usr/bin/env python3
"""A year of sales and receipts made at random, and what the GST statements and the list of outstanding
bills must show of it, figured from the raw tables.

usage: gst_oracle.py make DATABASE SEED      fills an empty company-year
       gst_oracle.py expect DATABASE         prints the rows of each report

What must come stands in blocks headed "@ key from to party area city group bills", "-" for an empty field.
Cells of a row are split by tabs. Sums are decimals, never doubles.
"""
import datetime
import itertools
import random
import sqlite3
import sys
from decimal import ROUND_HALF_UP, Decimal

START, END = datetime.date(2026, 4, 1), datetime.date(2027, 3, 31)
CODES = ["A%05d" % n for n in range(1, 41)]
NAMES = ["PATEL TRADING CO", "patel trading co", "O'NEIL & \"SONS\"", "50% OFF; DROP", "ભાઈ", "", "."]
GSTINS = ["24ABCDE1234F1Z5", "24ABCDE1234F1Z5", "24abcde1234f1z5", "07FGHIJ5678K1Z3", "9X", "  ", ".", "X", "", None]
CITIES = ["ANAND", "NADIAD", "O'BRIEN NAGAR", "", None]
BLANKS = ("", "", "", "", "")


def insert(db, table, **values):
    marks = ", ".join("?" * len(values))
    db.execute("INSERT INTO %s (%s) VALUES (%s)" % (table, ", ".join(values), marks), list(values.values()))


def make(db, rng):
    pick = rng.choice
    day = lambda: (START + datetime.timedelta(rng.randrange(-30, 396))).isoformat() if rng.random() < 0.97 else None
    quarters = lambda most: rng.randrange(most * 4) / 4  # exact as doubles, so that any order sums them alike
    for n, code in enumerate(CODES):
        insert(db, "ACCOUNT", ACC_CD=code, ACC_NAME=pick(NAMES) if n % 3 == 0 else "PARTY %d" % n, CITY=pick(CITIES),
               GSTINNO=GSTINS[n % len(GSTINS)], STATECD=pick([24, 24, 27, 7, 9, 10, 0, None]), AREA=pick(CITIES),
               GROUP_CD=pick([85, 85, 85, 86, 35]), OP_BAL=pick([0, None, 0, quarters(9000), -quarters(9000)]),
               CL_BAL=pick([0, -5, 1, 700, 0.01, 9e5, 9e5, 9e5]), PHONE1=pick(["98250", None]), ANOTHER_CD="S001")
    for number in range(1, 700):
        book = pick(["SA", "SA", "SA", "SA", "SA", "sa", "SR", "PU", "CH"])
        head = dict(BOOK_CD=book, VOUCH_DT=day(), BILL_NO=pick(["%05d" % number, "%05d" % rng.randrange(40), "b7", ""]),
                    PARTY_CD=pick(CODES + ["Z99999", None, "a00001"]), GSTPOST=pick([1] * 9 + [0, 2, None]),
                    NET_AMT=rng.randrange(1, 4) * 1000)
        rounding = pick([[0], [None], [0.25, -0.4]])
        for twin in range(pick([1, 1, 1, 1, 1, 2])):  # some bills have one like them under another number
            insert(db, "SALE", VOUCH_NO=number + 1000 * twin, ROUND_OFF=pick(rounding), **head)
            for serial in range(pick([0, 1, 1, 2, 3, 6])):
                rate, own = pick([0, 5, 12, 18, 28]), rng.random() < 0.7
                insert(db, "SALEITM", VOUCH_NO=number + 1000 * twin, BOOK_CD=book.upper(), SR_NO=serial,
                       AMOUNT=pick([None, 0.125, round(rng.uniform(-50, 9e4), 2)]), NET_AMOUNT=round(rng.uniform(0, 9e4), 2),
                       CGSTRT=rate / 2 if own else 0, SGSTRT=rate / 2 if own else pick([0, None]), IGSTRT=0 if own else rate,
                       CGSTAMT=round(rng.uniform(0, 900), 2), SGSTAMT=None if own else 0, IGSTAMT=round(rng.uniform(0, 9), 2))
    for number in range(1, 3000):
        side, amount = pick("DDDDDC"), pick([quarters(900), quarters(90000), 0, None, -quarters(50)])
        insert(db, "ALEDGER", VOUCH_NO=pick([number, rng.randrange(700)]), BOOK_CD=pick(["SA", "SA", "RC", "SR", "JV"]),
               VOUCH_TYPE=side if number % 9 else side.lower(), VOUCH_DT=day(), VOUCH_AMT=amount,
               PARTY_CD=pick(CODES[4:] + ["Z99999"]),  # the first four: bills, but no entry
               PARTY_BL=pick([None, "", "0012", "b'12", "A%_", "%05d" % number, "N" * 60]),
               NARRATION=pick([None, "", "BY ROAD", "O'NEIL, (50%) @ 7"]))
    for code in CODES[4:24:2]:  # paid to the last paisa up to some bill
        debits = db.execute("SELECT VOUCH_AMT FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'D' AND VOUCH_DT IS NOT NULL"
                            " ORDER BY VOUCH_DT, PARTY_BL, rowid", [code]).fetchall()
        opening = db.execute("SELECT MAX(OP_BAL, 0) FROM ACCOUNT WHERE ACC_CD = ?", [code]).fetchone()[0] or 0
        due = opening + sum(d[0] or 0 for d in debits[:rng.randrange(len(debits))])
        db.execute("DELETE FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'C'", [code])
        insert(db, "ALEDGER", BOOK_CD="RC", VOUCH_TYPE="C", VOUCH_DT="2027-03-31", VOUCH_AMT=due, PARTY_CD=code)
    db.commit()


def rows(db, sql):
    cursor = db.execute(sql)
    names = [d[0] for d in cursor.description]
    return [dict(zip(names, row)) for row in cursor]


def dec(x):
    return Decimal(0) if x is None else Decimal(repr(x))


def money(x):
    if x is None:
        return ""
    text = str(x.quantize(Decimal("0.01"), ROUND_HALF_UP))
    return text[1:] if text == "-0.00" else text


def number(x):
    return "" if x is None else "%.15g" % x


def shown(day, pattern):
    return datetime.date.fromisoformat(day).strftime(pattern)


def order(*values):
    """Nulls first, texts whatever their letter case."""
    return tuple((v is not None, v.upper() if isinstance(v, str) else v) for v in values)


def total(found, first, columns):
    cells = ["Total :"] + [""] * (columns - 1)
    for i in first:
        cells[i] = money(sum((Decimal(row[i]) for row in found if row[i]), Decimal(0)))
    return found + [cells] if found else []


class Books:
    def __init__(self, db):
        self.accounts = {a["ACC_CD"]: a for a in rows(db, "SELECT * FROM ACCOUNT")}
        self.sales = rows(db, "SELECT * FROM SALE")
        self.ledger = rows(db, "SELECT * FROM ALEDGER ORDER BY rowid")
        self.lines = {}
        for line in rows(db, "SELECT * FROM SALEITM"):
            self.lines.setdefault((line["VOUCH_NO"], line["BOOK_CD"].upper()), []).append(line)

    def gst(self, registered, start, end, party):
        sums = {}
        for s in self.sales:
            a = self.accounts.get((s["PARTY_CD"] or "").upper())
            if not a or a["GSTINNO"] is None or (len(a["GSTINNO"]) > 1) != registered or s["BOOK_CD"].upper() != "SA":
                continue
            if s["GSTPOST"] != 1 or not s["VOUCH_DT"] or not start <= s["VOUCH_DT"] <= end or party not in ("", a["ACC_CD"]):
                continue
            for line in self.lines.get((s["VOUCH_NO"], "SA"), [{}]):
                key = order(s["VOUCH_DT"], s["BILL_NO"], a["GSTINNO"], line.get("IGSTRT"), line.get("CGSTRT"), line.get("SGSTRT"),
                            a["ACC_NAME"], s["ROUND_OFF"], s["NET_AMT"], a["CITY"], a["STATECD"], a["ACC_CD"])
                for i, column in enumerate(("AMOUNT", "IGSTAMT", "CGSTAMT", "SGSTAMT", "NET_AMOUNT")):
                    figures = sums.setdefault(key, (s, a, line, [None] * 5))[3]
                    if line.get(column) is not None:
                        figures[i] = (figures[i] or 0) + dec(line[column])
        found = []
        for _, (s, a, line, (taxable, igst, cgst, sgst, net)) in sorted(sums.items(), key=lambda item: item[0]):
            state = a["STATECD"]
            there = None in (state, a["CITY"])
            found.append([s["BILL_NO"], shown(s["VOUCH_DT"], "%d/%b/%Y"), a["ACC_NAME"], a["GSTINNO"],
                          "" if there else ("0" if state < 10 else "") + number(state) + "-" + a["CITY"],
                          money(taxable), number(line.get("IGSTRT")), money(igst), number(line.get("CGSTRT")), money(cgst),
                          number(line.get("SGSTRT")), money(sgst), money(net)])
        return total(found, (5, 7, 9, 11, 12), 13)

    def open_bills(self, a, end):
        """Date, number, amount, paid and days of each open bill."""
        mine = [r for r in self.ledger if r["PARTY_CD"] == a["ACC_CD"]]
        side = lambda wanted: [r for r in mine if r["VOUCH_TYPE"].upper() == wanted]
        opening = dec(a["OP_BAL"])
        left = sum((dec(r["VOUCH_AMT"]) for r in side("C")), max(-opening, Decimal(0)))
        bills = [(START.isoformat(), " OP", opening)] if opening > 0 else []
        debits = [r for r in side("D") if r["VOUCH_DT"] and r["VOUCH_DT"] <= end]
        debits.sort(key=lambda r: order(r["VOUCH_DT"], r["PARTY_BL"]))
        bills += [(r["VOUCH_DT"], (r["PARTY_BL"] or ".")[:50], dec(r["VOUCH_AMT"])) for r in debits]
        if sum(b[2] for b in bills) <= left:
            return []
        found, first = [], True
        for day, name, amount in bills:
            left -= amount
            if left < 0:
                found.append((day, name, amount, amount + left if first else Decimal(0)))
                first = False
                if name == " OP":
                    left, first = Decimal(0), True
        return found

    def outstanding(self, end, party, area, city, group, details):
        parties = [a for a in self.accounts.values() if a["GROUP_CD"] in (85, 86) and a["CL_BAL"] > 0 and
                   party in ("", a["ACC_CD"]) and area in ("", a["AREA"]) and city in ("", a["CITY"]) and
                   group in ("", number(a["GROUP_CD"]))]
        if not parties:
            return [["pl select proper code"]]
        found, last = [], datetime.date.fromisoformat(end)
        sums = [Decimal(0)] * 3
        for a in sorted(parties, key=lambda a: order(a["ACC_NAME"], a["AREA"], a["PHONE1"], a["CITY"], a["ACC_CD"])):
            bills = self.open_bills(a, end)
            if not bills:
                continue
            figures = [sum(b[2] for b in bills), sum(b[3] for b in bills), sum(b[2] - b[3] for b in bills)]
            sums = [s + f for s, f in zip(sums, figures)]
            found.append([a["ACC_NAME"], a["AREA"] or "", *map(money, figures), a["PHONE1"] or ""])
            bills.sort(key=lambda b: order(b[0], b[1]))
            for day, name, amount, paid in bills if details else []:
                days = (last - datetime.date.fromisoformat(day)).days
                found.append([shown(day, "%d/%m/%Y"), name, money(amount), money(paid), money(amount - paid), str(days)])
        return found + [["Total :", "", *map(money, sums), ""]] if found else []


def expect(books):
    block = lambda key, *fields: print("@", key, *(f or "-" for f in fields))
    out = lambda found: print(*("\t".join(row) for row in found), sep="\n")
    periods = [("2026-04-01", "2027-03-31"), ("2026-07-01", "2026-07-31"), ("2026-08-09", "2026-08-09"),
               ("2027-01-01", "2026-12-31"), ("2020-01-01", "2020-12-31")]
    for (start, end), key, party in itertools.product(periods, ("GSTR1-RD", "GSTR1-URD"), ["", "Z99999"] + CODES[:10]):
        block(key, start, end, party, *BLANKS[:3], "0")
        out(books.gst(key == "GSTR1-RD", start, end, party))
    filters = [BLANKS[:4], ("", "ANAND", "", ""), ("", "", "O'BRIEN NAGAR", ""), ("", "ANAND", "NADIAD", "85"), ("", "", "", "86"),
               ("", "", "", "35"), ("Z99999", "", "", "")] + [(code, "", "", "") for code in CODES]
    for (start, end), fields, details in itertools.product(periods[:3], filters, "01"):
        if " " in "".join(fields):
            fields = tuple(f.replace(" ", "_") for f in fields)
        block("ONACRCV", start, end, *fields, details)
        out(books.outstanding(end, *(f.replace("_", " ") for f in fields), details == "1"))


def main():
    db = sqlite3.connect(sys.argv[2])
    make(db, random.Random(int(sys.argv[3]))) if sys.argv[1] == "make" else expect(Books(db))


main()
