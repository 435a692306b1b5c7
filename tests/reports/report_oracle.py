#!/usr/bin/env python3
"""A year of papers made at random, and every row of every report figured from the raw tables.

usage: report_oracle.py make DATABASE SEED      fills an empty company-year
       report_oracle.py expect DATABASE         prints what must come of it

What must come stands in blocks headed "@ key", then tab and a field each: from, to, party, city, state,
item, category, answer. The first line has the columns, "heading|twips"; then come the rows, cells and
the voucher behind the row split by tabs. A detail row begins with "d", the total row with "t".
"""
import datetime
import os
import random
import re
import sqlite3
import sys
from decimal import Decimal

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from figures import dec, insert, money, number, rounded, rows

START, END = "2026-04-01", "2027-03-31"
NAMES = ["PATEL TRADING CO", "patel trading co", "O'NEIL & SONS", "ભાઈ ભાઈ", "100% COTTON_CO", ".", "", None, "ZED, LTD"]
AREAS = ["ANAND", "anand", "O'NEIL ROAD", "50%", "GAM_DI", "", None]
GSTINS = ["24ABCDE1234F1Z5", "24ABCDE1234F1Z5", "24abcde1234f1z5", "07FGHIJ5678K1Z3", "9X", "  ", ".", "X", "", None]


def make(db, rng):
    pick = rng.choice
    some = lambda most: pick([None, 0, 1, 2.5, 0.05, round(rng.uniform(0, most), 2), round(rng.uniform(0, most), 2)])
    parties = ["A%05d" % n for n in range(1, 31)]
    codes = parties + ["a00003", "A00099", "", None]  # A00099 was deleted
    items = ["I%07d" % n for n in range(1, 26)]
    sold = items + ["I0000099", "i0000002", None]
    depts = ["E%03d" % n for n in range(1, 9)]

    def day():
        edge = datetime.date.fromisoformat(pick([START, END, "2026-06-30", "2026-07-01"]))
        near = edge + datetime.timedelta(pick([-1, 0, 0, 1]))
        return pick([None, near.isoformat()] + [(datetime.date(2026, 3, 1) + datetime.timedelta(rng.randrange(420))).isoformat()] * 3)

    def sale(number, **head):
        insert(db, "SALE", VOUCH_NO=number, ITEM_AMT=some(90000), TCGSTRT=some(900), TSGSTRT=some(900), TIGSTRT=some(900), NO_OF_ITEM=some(40),
               DISC_AMT1=some(50), CHRG_AMT1=some(20), CHRG_AMT3=pick([0, 7.5, None]), DISC_AMT2=pick([0, 0, 3, None]), **head)
        for line in range(rng.randrange(5)):
            rate, own = pick([0, 5, 12, 18]), rng.random() < 0.7
            insert(db, "SALEITM", VOUCH_NO=number, BOOK_CD=head["BOOK_CD"], SR_NO=line + 1, ITEM_CD=pick(sold), QUANTITY=some(40), RATE=some(900),
                   SALE_DISC=some(9), AMOUNT=pick([None, 0.125, -50, some(9000)]), NET_AMOUNT=some(9000), CGSTRT=rate / 2 if own else 0,
                   SGSTRT=rate / 2 if own else pick([0, None]), IGSTRT=0 if own else rate, CGSTAMT=some(90), SGSTAMT=some(90),
                   IGSTAMT=pick([0, 0, 7.5, None]), DISC4=pick([0, -2.5, None]), DESC1=pick(["0", "RED", None, ""]), ITEM_DESC=pick(["2 M", None, ""]))

    for table in ("ACCOUNT", "DEPTMENT", "ITEM", "ITEMDTL"):
        db.execute("DELETE FROM " + table)
    for n, code in enumerate(parties):
        insert(db, "ACCOUNT", ACC_CD=code, ACC_NAME=NAMES[n] if n < len(NAMES) else pick(["PARTY %d" % n, "PARTY"]),
               GROUP_CD=pick([85, 85, 85, 86, 50, 81]), ADD1=pick(["14 ROAD", None, ""]), ADD2=pick(["NEAR BUS", "."]),
               AREA=pick(AREAS), CITY=pick(["ANAND", "SURAT", "O'NEIL"]), PHONE1=pick(["98250", ".", None]), BANK_NAME=pick(["AAAPL1234C", None]),
               GSTINNO=GSTINS[n % len(GSTINS)], STATECD=pick([24, 24, 27, 7, 9, 10, 0, None]), OP_BAL=pick([0, None, 500.25, 9000, -120.5, -9000]),
               CL_BAL=pick([0, -5, 1, 0.01, 9e5, 9e5, 9e5]), ANOTHER_CD="S001")
    for n, code in enumerate(depts):
        insert(db, "DEPTMENT", DEPT_CD=code, DEPT_NAME=pick(["LIGHTING", "wires", "WIRES", "O'NEIL", None]),
               HSNCODE=pick(["8544", "."]), ITEMDESC=pick([".", "LAMPS"]), RATEOFTAX=pick([0, 5, 18, None, 12.5]))
    for code in items:
        insert(db, "ITEM", ITEM_CD=code, ITEM_NAME=pick(["LAMP", "lamp", "FAN 1200 MM", "ટ્યુબ", None, 'PIPE 1/2"']),
               DEPT_CD=pick(depts[:6] + ["E099", None]), HSNCODE=pick(["9405", None]), RATEOFTAX=pick([5, 18, 2.5]))
        for size in rng.sample(["PCS", "BOX", "nos", ""], rng.randrange(4)):
            insert(db, "ITEMDTL", ITEM_CD=code, SIZE_CD=size, SALE_RATE1=some(900), SALE_DISC=some(20))
    for number in range(1, 301):
        for book in pick([["SA"], ["SA"], ["SA"], ["SA", "PU"], ["SR"], ["SA", "SR"]]):
            head = dict(BOOK_CD=book, VOUCH_DT=day(), PARTY_CD=pick(codes), NET_AMT=some(90000), GSTPOST=pick([1, 1, 1, 1, 0, 2, None]))
            bills = pick([["%04d" % number], ["A/7", "a/7"], [None]])
            rounding = pick([[0.4], [0, -0.5], [0.25, None]])
            for twin in range(pick([1, 1, 2, 3])):  # some bills have one like them under another number
                sale(number + 1000 * twin, BILL_NO=pick(bills), ROUND_OFF=pick(rounding), **head)
    for number in range(1, 41):
        insert(db, "QUOT", VOUCH_NO=number, VOUCH_DT=day(), PARTY_CD=pick(codes), TOTQTY=some(90), ITEM_AMT=some(9000), CHRG_AMT=some(9),
               DISC_AMT=some(9), TCGST=some(90), TSGST=some(90), TIGST=some(90), NET_AMT=some(9000))
        for line in range(rng.randrange(13)):
            insert(db, "QUOTITM", VOUCH_NO=number, VOUCH_DT=day(), SRNO=line + 1, TNO=str(line + 1), ITEM_NAME=pick(["LAMP", None]),
                   SIZE_CD=pick(["PCS", "", None]), QUANTITY=pick(["3", "2.5", ".", "", None]), AMOUNT=pick(["120", "99.95", "x", None]),
                   CGSTAMT=some(9), SGSTAMT=some(9), IGSTAMT=some(9))
        insert(db, "CHLN", VOUCH_NO=number, BOOK_CD="CH", VOUCH_DT=day(), PARTY_CD=pick(codes), NO_OF_ITEM=some(40), ITEM_AMT=some(9000),
               CHRGS=some(9), DISC_AMT=some(9), NET_AMT=some(9000))
        for line in range(rng.randrange(4)):
            insert(db, "CHLNITM", VOUCH_NO=number, BOOK_CD="CH", SR_NO=line + 1, VOUCH_DT=day(), ITEM_CD=pick(sold), SIZE_CD=pick(["PCS", None]),
                   QUANTITY=some(9), RATE=some(90), SALE_DISC=some(9), AMOUNT=some(900))
    for number in range(1, 121):
        insert(db, "RPTPAY", VOUCH_NO=pick([number, 7]), VOUCH_DT=day(), BOOK_CD=pick(["RC", "RC", "PY", "rc"]), PARTY_CD=pick(codes),
               AMOUNT=some(9000), NARRATION=pick(["BY CHEQUE", "O'NEIL\tTAB", None]), REF_NO=pick(["1", "2", None]))
    for number in range(1, 1201):
        insert(db, "ALEDGER", VOUCH_NO=pick([number, rng.randrange(300)]), BOOK_CD=pick(["SA", "SA", "RC", "JV"]), VOUCH_DT=day(),
               VOUCH_TYPE=pick("DDDDDCd"), PARTY_CD=pick(parties[4:] + ["A00099"]), VOUCH_AMT=pick([some(900), some(90000), -50]),
               PARTY_BL=pick([None, "", "0012", "b'12", "A%_", "%05d" % number, "N" * 60]))
    for code in parties[4:24:2]:  # paid to the last paisa up to some bill
        debits = db.execute("SELECT VOUCH_AMT FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'D' AND VOUCH_DT IS NOT NULL"
                            " ORDER BY VOUCH_DT, PARTY_BL, rowid", [code]).fetchall()
        opening = db.execute("SELECT MAX(OP_BAL, 0) FROM ACCOUNT WHERE ACC_CD = ?", [code]).fetchone()[0] or 0
        due = opening + sum(d[0] or 0 for d in debits[:rng.randrange(len(debits))])
        db.execute("DELETE FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'C'", [code])
        insert(db, "ALEDGER", BOOK_CD="RC", VOUCH_TYPE="C", VOUCH_DT=END, VOUCH_AMT=round(due, 2), PARTY_CD=code)
    db.commit()


# How values read

def plain(x):
    return "" if x is None else x if isinstance(x, str) else number(x)


def val(text):
    """The number at the start of a text."""
    found = re.match(r" *[-+]?(\d+\.?\d*|\.\d+)", text)
    return float(found.group()) if found else 0.0


def fast_day(x):
    return datetime.date.fromisoformat(x).strftime("%d/%b/%Y") if x else ""


def detail_day(x):
    return datetime.date.fromisoformat(x).strftime("%d/%m/%Y") if x else ""


def joined(*parts):
    return None if None in parts else "".join(parts)


def same(a, b):
    return a is not None and b is not None and fold(a) == fold(b)


def fold(text):
    return bytes(b + 32 if 65 <= b <= 90 else b for b in text.encode())


def order(x):
    """Nulls first, numbers before texts, texts without regard to the case of A to Z."""
    return (0,) if x is None else (1, x) if not isinstance(x, str) else (2, fold(x))


def minus(a, b):
    return None if a is None or b is None else a - b


def plus(*parts):
    return None if None in parts else sum(parts[1:], parts[0])


# Reports: columns as (heading, twips, summed, money in details), rows as cells with their voucher

class Books:
    def __init__(self, db):
        for table in ("ACCOUNT", "DEPTMENT", "ITEM", "ITEMDTL", "SALE", "SALEITM", "QUOT", "QUOTITM", "CHLN", "CHLNITM", "RPTPAY", "ALEDGER"):
            setattr(self, table, rows(db, "SELECT rowid, * FROM " + table))

    def account(self, code):
        return next((a for a in self.ACCOUNT if same(a["ACC_CD"], code)), None)

    def item(self, code):
        return next((i for i in self.ITEM if same(i["ITEM_CD"], code)), None)


NOBODY = dict.fromkeys(["ACC_NAME", "AREA", "CITY", "GSTINNO", "GROUP_CD"])


def summed(table, columns):
    """The total row behind the main rows (those without a mark)."""
    if not table or not any(c[2] for c in columns):
        return table
    totals = [0.0] * len(columns)
    for mark, cells, _ in table:
        for i, c in enumerate(columns):
            if c[2] and mark == "" and cells is not None and cells[i] != "":
                totals[i] = rounded(totals[i] + val(cells[i]))
    last = ["Total :" if i == 0 else money(totals[i]) if c[2] else "" for i, c in enumerate(columns)]
    return table + [("t", last, "")]


def with_details(mains, columns):
    """Money of main rows and details as "0.00"; a blank row under one without details."""
    table = []
    for cells, voucher, details in mains:
        table.append(("", [money(c) if columns[i][2] else plain(c) for i, c in enumerate(cells)], voucher))
        for line in details:
            shown = [money(val(c) if isinstance(c, str) and c else c) if columns[i][3] else plain(c) for i, c in enumerate(line)]
            table.append(("d", shown, voucher))
        if not details:
            table.append(("b", [""] * len(columns), voucher))
    return summed(table, columns)


def without(mains, columns):
    return summed([("", [plain(c) for c in cells], voucher) for cells, voucher in mains], columns)


def accmastADD(b, q):
    columns = [(h, w, 0, 0) for h, w in (("ACC_CD", 700), ("acc_name", 2800), ("ADRS", 3000), ("area", 1300), ("city", 1300), ("phone1", 1300), ("GSTINNO", 1400), ("PANNO", 1300))]
    found = [a for a in b.ACCOUNT if a["GROUP_CD"] == 85 and (not q["city"] or same(a["AREA"], q["city"]))
             and (not q["state"] or same(a["CITY"], q["state"])) and (not q["party"] or same(a["ACC_CD"], q["party"]))]
    found.sort(key=lambda a: (order(a["ACC_NAME"]), order(a["ACC_CD"])))
    return columns, without([([a["ACC_CD"], a["ACC_NAME"], joined(a["ADD1"], " ", a["ADD2"]), a["AREA"], a["CITY"], a["PHONE1"], a["GSTINNO"], a["BANK_NAME"]], "") for a in found], columns)


def dept(b, q):
    columns = [("Code", 1000, 0, 0), ("Name", 2500, 0, 0), ("HSN", 1400, 0, 0), ("Description", 2500, 0, 0), ("Tax Rt", 1000, 0, 0)]
    found = sorted(b.DEPTMENT, key=lambda d: (order(d["DEPT_NAME"]), order(d["DEPT_CD"])))
    return columns, without([([d["DEPT_CD"], d["DEPT_NAME"], d["HSNCODE"], d["ITEMDESC"], money(d["RATEOFTAX"])], "") for d in found], columns)


def priclstprn(b, q):
    sizes = [(i, d) for i in b.ITEM for d in b.ITEMDTL if same(i["ITEM_CD"], d["ITEM_CD"])]
    sizes.sort(key=lambda p: (order(p[0]["ITEM_NAME"]), order(p[1]["SIZE_CD"]), order(p[0]["ITEM_CD"])))
    if q["answer"] == "Yes":
        columns = [(h, w, 0, 0) for h, w in (("Particulars", 3000), ("Code", 1000), ("Unit", 1000), ("HSN", 1000), ("Rate", 1000), ("Disc", 1000))]
        found = sorted((d for d in b.DEPTMENT if not q["category"] or same(d["DEPT_CD"], q["category"])), key=lambda d: (order(d["DEPT_NAME"]), order(d["DEPT_CD"])))
        return columns, with_details([([d["DEPT_NAME"], d["DEPT_CD"], "", "", 0, 0], "", [
            [i["ITEM_NAME"], i["ITEM_CD"], s["SIZE_CD"], i["HSNCODE"], money(s["SALE_RATE1"]), money(s["SALE_DISC"])] for i, s in sizes if same(i["DEPT_CD"], d["DEPT_CD"])]) for d in found], columns)
    columns = [(h, w, 0, 0) for h, w in (("Code", 1200), ("Name", 2800), ("Catg", 1700), ("Unit", 900), ("Hsn", 1000), ("Tax-Rt", 800), ("S-Rate", 1000), ("Disc", 800))]
    rows = []
    for i, s in sizes:
        category = next((d for d in b.DEPTMENT if same(d["DEPT_CD"], i["DEPT_CD"])), None)
        if category and (not q["category"] or same(i["DEPT_CD"], q["category"])) and (not q["item"] or same(i["ITEM_CD"], q["item"])):
            rows.append(([i["ITEM_CD"], i["ITEM_NAME"], category["DEPT_NAME"], s["SIZE_CD"], i["HSNCODE"], money(i["RATEOFTAX"]), money(s["SALE_RATE1"]), money(s["SALE_DISC"])], ""))
    return columns, without(rows, columns)


def accmastclbl(b, q):
    columns = [("Code", 1100, 0, 0), ("Name", 3000, 0, 0), ("Dr", 1200, 1, 0), ("Cr", 1200, 1, 0), ("City", 1500, 0, 0), ("Phone1", 1400, 0, 0)]
    rows = []
    for a in sorted(b.ACCOUNT, key=lambda a: (order(a["ACC_NAME"]), order(a["ACC_CD"]))):
        if a["GROUP_CD"] != 85 or q["city"] and not same(a["AREA"], q["city"]) or q["state"] and not same(a["CITY"], q["state"]):
            continue
        net = dec(a["OP_BAL"])
        for r in b.ALEDGER:
            # Rows of the period and those before it; between a late From and an earlier To lies nothing.
            if r["PARTY_CD"] == a["ACC_CD"] and r["VOUCH_DT"] and (r["VOUCH_DT"] < q["from"] or r["VOUCH_DT"] <= q["to"]):
                net += dec(r["VOUCH_AMT"]) * (1 if r["VOUCH_TYPE"] in "Dd" else -1)
        rows.append(([a["ACC_CD"], a["ACC_NAME"], money(max(net, Decimal(0))), money(max(-net, Decimal(0))), a["AREA"], a["PHONE1"]], ""))
    return columns, without(rows, columns)


def bills(b, q):
    found = []
    for s in b.SALE:
        party = b.account(s["PARTY_CD"])
        inside = s["BOOK_CD"] == "SA" and s["VOUCH_DT"] and q["from"] <= s["VOUCH_DT"] <= q["to"]
        if (inside and (not q["party"] or same(s["PARTY_CD"], q["party"])) and (not q["city"] or party and same(party["AREA"], q["city"]))
                and (not q["state"] or party and same(party["CITY"], q["state"]))):
            found.append((s, party))
    return sorted(found, key=lambda p: (p[0]["VOUCH_DT"], p[0]["VOUCH_NO"]))


def taxable(s):
    """The goods with discount and charges of the whole bill."""
    charges = sum(dec(s[c] or 0) for c in ("CHRG_AMT1", "CHRG_AMT2", "CHRG_AMT3")) - dec(s["DISC_AMT1"] or 0)
    return None if s["ITEM_AMT"] is None else dec(s["ITEM_AMT"]) + charges


def SALEBILLSUMMARY(b, q):
    columns = [("No", 700, 0, 0), ("Date", 1200, 0, 0), ("Party", 3000, 0, 0), ("City", 1300, 0, 0), ("Gstin", 1300, 0, 0), ("Assival", 1200, 1, 0),
               ("Cgst", 1000, 1, 0), ("Sgst", 1000, 1, 0), ("Igst", 1000, 1, 0), ("R.Off", 900, 1, 0), ("N.Amt", 1200, 1, 0)]
    return columns, without([([s["BILL_NO"], fast_day(s["VOUCH_DT"]), a["ACC_NAME"], a["AREA"], a["GSTINNO"]] +
                              [money(taxable(s))] + [money(s[c]) for c in ("TCGSTRT", "TSGSTRT", "TIGSTRT", "ROUND_OFF", "NET_AMT")],
                              "SA%d" % s["VOUCH_NO"]) for s, a in bills(b, q) if a], columns)


def slblreg(b, q):
    columns = [("No.", 700, 0, 0), ("Date", 1100, 0, 0), ("B.No", 800, 0, 0), ("Party", 2400, 0, 0), ("Type", 1200, 0, 0), ("Qty", 800, 1, 0),
               ("Rate/Tax", 1100, 1, 1), ("Chrg/Disc", 800, 1, 1), ("AMOUNT", 1200, 1, 1)]
    mains = []
    for s, party in bills(b, q):
        a = party or NOBODY
        off = plus(s["DISC_AMT1"], s["DISC_AMT2"])
        charge = minus(minus(plus(s["NET_AMT"], off), s["ITEM_AMT"]), off)
        lines = []
        for line in sorted((l for l in b.SALEITM if (l["VOUCH_NO"], l["BOOK_CD"]) == (s["VOUCH_NO"], "SA")), key=lambda l: l["SR_NO"]):
            item = b.item(line["ITEM_CD"])
            if item:
                tax = plus(line["CGSTAMT"], line["SGSTAMT"], line["IGSTAMT"])
                lines.append(["", item["HSNCODE"], line["DESC1"] if line["DESC1"] not in ("0", None) else "", item["ITEM_NAME"], line["ITEM_DESC"],
                              money(line["QUANTITY"]), money(line["RATE"]), money(line["SALE_DISC"]), money(minus(line["NET_AMOUNT"], tax))])
        mains.append(([s["VOUCH_NO"], detail_day(s["VOUCH_DT"]), s["BILL_NO"], a["ACC_NAME"], a["AREA"], s["NO_OF_ITEM"], s["ITEM_AMT"],
                       None if charge is None else abs(charge), s["NET_AMT"]], "SA%d" % s["VOUCH_NO"], lines))
    return columns, with_details(mains, columns)


QUOTATIONS = [("No", 600, 0, 0), ("Date", 1200, 0, 0), ("Party / Item", 2400, 0, 0), ("Qty", 900, 1, 1), ("I-Amt", 900, 1, 1), ("C/I GST", 1000, 1, 1),
              ("SGST", 1000, 1, 1), ("IGST", 1000, 1, 1), ("N-AMT", 1200, 1, 1)]
CHALLANS = [("No", 600, 0, 0), ("Date", 1200, 0, 0), ("Party / Item", 2600, 0, 0), ("Qty", 900, 1, 1), ("Amt", 900, 1, 0), ("C/I GST", 900, 1, 0),
            ("SGST", 900, 1, 0), ("N-Amt", 1200, 1, 0)]


def quotations(b, day):
    for h in sorted(b.QUOT, key=lambda h: h["VOUCH_NO"]):
        amounts = [minus(plus(h["ITEM_AMT"], h["CHRG_AMT"]), h["DISC_AMT"])] + [h[c] for c in ("TCGST", "TSGST", "TIGST", "NET_AMT")]
        yield h, [h["VOUCH_NO"], day(h["VOUCH_DT"]), (b.account(h["PARTY_CD"]) or NOBODY)["ACC_NAME"], h["TOTQTY"]] + [money(x) for x in amounts], "QT%d" % h["VOUCH_NO"]


def QUOTREG(b, q):
    return QUOTATIONS, without([(cells, voucher) for _, cells, voucher in quotations(b, fast_day)], QUOTATIONS)


def QUOTREGDTL(b, q):
    mains = []
    for h, cells, voucher in quotations(b, detail_day):
        lines = sorted((l for l in b.QUOTITM if l["VOUCH_NO"] == h["VOUCH_NO"]), key=lambda l: int(l["TNO"]))
        mains.append((cells, voucher, [[l["VOUCH_NO"], detail_day(l["VOUCH_DT"]), joined(l["ITEM_NAME"], " ", l["SIZE_CD"]) if l["ITEM_NAME"] else None,
                                        money(l["QUANTITY"]), money(l["AMOUNT"]), l["CGSTAMT"], l["SGSTAMT"], l["IGSTAMT"], l["AMOUNT"]] for l in lines]))
    return QUOTATIONS, with_details(mains, QUOTATIONS)


def challans(b, day):
    for h in sorted(b.CHLN, key=lambda h: h["VOUCH_NO"]):
        yield h, [h["VOUCH_NO"], day(h["VOUCH_DT"]), (b.account(h["PARTY_CD"]) or NOBODY)["ACC_NAME"]] + \
            [h[c] for c in ("NO_OF_ITEM", "ITEM_AMT", "CHRGS", "DISC_AMT")] + [money(h["NET_AMT"])], "CH%d" % h["VOUCH_NO"]


def CHLNRPT(b, q):
    return CHALLANS, without([(cells, voucher) for _, cells, voucher in challans(b, fast_day)], CHALLANS)


def CHLNRPTDTL(b, q):
    mains = []
    for h, cells, voucher in challans(b, detail_day):
        lines = []
        for l in sorted((l for l in b.CHLNITM if l["VOUCH_NO"] == h["VOUCH_NO"]), key=lambda l: l["SR_NO"]):
            item = b.item(l["ITEM_CD"])
            if item:
                value = None if None in (l["RATE"], l["QUANTITY"]) else l["RATE"] * l["QUANTITY"]
                lines.append([l["VOUCH_NO"], detail_day(l["VOUCH_DT"]), joined(item["ITEM_NAME"], " ", l["SIZE_CD"]) if item["ITEM_NAME"] else None,
                              money(l["QUANTITY"]), money(value), l["RATE"], l["SALE_DISC"], l["AMOUNT"]])
        mains.append((cells, voucher, lines))
    return CHALLANS, with_details(mains, CHALLANS)


def recipt(b, q):
    columns = [("No.", 600, 0, 0), ("Date", 1200, 0, 0), ("Party", 2600, 0, 0), ("Amount", 1200, 1, 0), ("Remarks", 1500, 0, 0)]
    found = []
    for r in b.RPTPAY:
        a = b.account(r["PARTY_CD"])
        if (a and same(r["BOOK_CD"], "RC") and r["VOUCH_DT"] and q["from"] <= r["VOUCH_DT"] <= q["to"] and (not q["party"] or same(r["PARTY_CD"], q["party"]))
                and (not q["city"] or same(a["AREA"], q["city"])) and (not q["state"] or same(a["CITY"], q["state"]))
                and (not q["category"] or a["GROUP_CD"] == val(q["category"]))):
            found.append((r, a))
    found.sort(key=lambda p: (p[0]["VOUCH_DT"], p[0]["VOUCH_NO"], order(p[0]["REF_NO"]), p[0]["rowid"]))
    return columns, without([([r["VOUCH_NO"], fast_day(r["VOUCH_DT"]), joined(a["ACC_NAME"], " ", a["AREA"]) if a["ACC_NAME"] is not None else None,
                               money(r["AMOUNT"]), r["NARRATION"]], "%s%d" % (r["BOOK_CD"], r["VOUCH_NO"])) for r, a in found], columns)


def gst(b, q, registered):
    columns = [("Inv No.", 800, 0, 0), ("Date", 1200, 0, 0), ("Party Name", 2700, 0, 0), ("GSTIN No", 1400, 0, 0), ("State", 1400, 0, 0),
               ("Taxable Val", 1100, 1, 0), ("I-Rt", 600, 0, 0), ("I-Amt", 1000, 1, 0), ("C-Rt", 600, 0, 0), ("C-Amt", 1000, 1, 0),
               ("S-Rt", 600, 0, 0), ("S-Amt", 1000, 1, 0), ("Inv Val", 1200, 1, 0)]
    sums = {}
    for s in b.SALE:
        a = b.account(s["PARTY_CD"])
        if (not a or a["GSTINNO"] is None or (len(a["GSTINNO"]) > 1) != registered or s["BOOK_CD"] != "SA" or s["GSTPOST"] != 1
                or not s["VOUCH_DT"] or not q["from"] <= s["VOUCH_DT"] <= q["to"] or q["party"] and not same(a["ACC_CD"], q["party"])):
            continue
        for line in [l for l in b.SALEITM if (l["VOUCH_NO"], l["BOOK_CD"]) == (s["VOUCH_NO"], "SA")] or [{}]:
            key = [s["VOUCH_DT"], s["BILL_NO"] or "", a["GSTINNO"], line.get("IGSTRT"), line.get("CGSTRT"), line.get("SGSTRT"), a["ACC_NAME"] or "",
                   s["ROUND_OFF"], s["NET_AMT"], a["CITY"], a["STATECD"], a["ACC_CD"]]
            found = sums.setdefault(tuple(map(order, key)), [s["VOUCH_NO"], s, a, line, [None] * 5])
            found[0] = min(found[0], s["VOUCH_NO"])
            for i, column in enumerate(("AMOUNT", "IGSTAMT", "CGSTAMT", "SGSTAMT", "NET_AMOUNT")):
                if line.get(column) is not None:
                    share = dec(line["DISC4"] or 0) if column == "AMOUNT" else 0
                    found[4][i] = (found[4][i] or 0) + dec(line[column]) + share
    mains = []
    for _, (voucher, s, a, line, (taxable, igst, cgst, sgst, net)) in sorted(sums.items(), key=lambda item: item[0]):
        state = a["STATECD"]
        place = None if state is None else ("0" if state < 10 else "") + number(state) + "-" + a["CITY"]
        mains.append(([s["BILL_NO"], fast_day(s["VOUCH_DT"]), a["ACC_NAME"], a["GSTINNO"], place, money(taxable), line.get("IGSTRT"), money(igst),
                       line.get("CGSTRT"), money(cgst), line.get("SGSTRT"), money(sgst), money(net)], "SA%d" % voucher))
    return columns, without(mains, columns)


def GSTR1_RD(b, q):
    return gst(b, q, True)


def GSTR1_URD(b, q):
    return gst(b, q, False)


def open_bills(b, a, end):
    """Of what the credits leave open: day, number, amount, paid and the voucher."""
    mine = [r for r in b.ALEDGER if r["PARTY_CD"] == a["ACC_CD"]]
    opening = dec(a["OP_BAL"])
    left = sum((dec(r["VOUCH_AMT"]) for r in mine if r["VOUCH_TYPE"] == "C"), max(-opening, Decimal(0)))
    debits = [r for r in mine if r["VOUCH_TYPE"] in "Dd" and r["VOUCH_DT"] and r["VOUCH_DT"] <= end]
    debits.sort(key=lambda r: (r["VOUCH_DT"], order(r["PARTY_BL"])))
    bills = [(START, " OP", opening, "OP0")] if opening > 0 else []
    bills += [(r["VOUCH_DT"], (r["PARTY_BL"] or ".")[:50], dec(r["VOUCH_AMT"]), "%s%d" % (r["BOOK_CD"], r["VOUCH_NO"])) for r in debits]
    if sum(amount for _, _, amount, _ in bills) <= left:
        return []
    found, first = [], True
    for day, name, amount, voucher in bills:
        left -= amount
        if left < 0:
            found.append((day, name, amount, amount + left if first else Decimal(0), voucher))
            first = False
            if name == " OP":
                left, first = Decimal(0), True
    return found


def balance(b, a):
    """The ledger's, whatever the account has stored; what is less than half a paisa is nothing."""
    rows = (r for r in b.ALEDGER if r["PARTY_CD"] == a["ACC_CD"])
    return round(dec(a["OP_BAL"]) + sum(dec(r["VOUCH_AMT"]) * (1 if r["VOUCH_TYPE"] in "Dd" else -1) for r in rows), 2)


def ONACRCV(b, q):
    columns = [("Party", 2400, 0, 0), ("B.No.", 900, 0, 0), ("Bills", 1200, 1, 1), ("Paid", 1200, 1, 1), ("Balance", 1200, 1, 1), ("Days / Mob", 1400, 0, 0)]
    parties = [a for a in b.ACCOUNT if a["GROUP_CD"] in (85, 86) and balance(b, a) > 0 and (not q["party"] or same(a["ACC_CD"], q["party"]))
               and (not q["city"] or same(a["AREA"], q["city"])) and (not q["state"] or same(a["CITY"], q["state"]))
               and (not q["category"] or a["GROUP_CD"] == val(q["category"]))]
    if not parties:
        return [("pl select proper code", 0)], []
    mains, last = [], datetime.date.fromisoformat(q["to"])
    for a in sorted(parties, key=lambda a: [order(a[c]) for c in ("ACC_NAME", "AREA", "PHONE1", "CITY", "ACC_CD")]):
        bills = open_bills(b, a, q["to"])
        figures = [sum(bill[2] for bill in bills), sum(bill[3] for bill in bills), sum(bill[2] - bill[3] for bill in bills)]
        bills.sort(key=lambda bill: (bill[0], order(bill[1])))
        details = [([detail_day(day), name, money(amount), money(paid), money(amount - paid), str((last - datetime.date.fromisoformat(day)).days)], voucher)
                   for day, name, amount, paid, voucher in bills if q["answer"] == "Yes"]
        if bills:
            mains.append(([a["ACC_NAME"], a["AREA"], *map(money, figures), a["PHONE1"]], details))
    table = []
    for cells, details in mains:
        table.append(("", [plain(c) for c in cells], ""))
        table += [("d", line, voucher) for line, voucher in details]
    return columns, summed(table, columns)


FIELDS = ["from", "to", "party", "city", "state", "item", "category", "answer"]
YEAR = dict.fromkeys(FIELDS, "") | {"from": START, "to": END}
PARTIES = [{}, {"party": "A00003"}, {"party": "a00003"}, {"party": "A00099"}, {"city": "O'NEIL ROAD"}, {"city": "50%"}, {"city": "GAM_DI"}, {"city": "%"},
           {"city": "_____"}, {"state": "O'NEIL"}, {"city": "ANAND", "state": "SURAT"}, {"party": "' OR '1'='1"}]
PERIODS = [{"from": "2026-07-01", "to": "2026-06-30"}, {"from": "2026-06-30", "to": "2026-07-01"}, {"from": "2025-01-01", "to": "2030-12-31"},
           {"from": "2026-07-01", "to": "2026-07-01", "city": "ANAND"}]
RETURNS = [{}] + PERIODS[:3] + [{"from": day, "to": day} for day in (START, "2026-06-30")] + [{"party": "a%05d" % n} for n in (*range(1, 31), 99)]
ASKED = [
    (accmastADD, PARTIES),
    (dept, [{}]),
    (priclstprn, [{"answer": answer} | more for answer in ("No", "Yes") for more in
                  ({}, {"category": "E002"}, {"category": "e003"}, {"category": "E'"}, {"item": "I0000005"}, {"item": "I0000006", "category": "E001"})]),
    (accmastclbl, [p for p in PARTIES if "party" not in p] + [{"party": "A00003", "category": "50"}, PERIODS[1], PERIODS[2]]),
    (SALEBILLSUMMARY, PARTIES + PERIODS),
    (slblreg, PARTIES + PERIODS),
    (QUOTREG, [{}, {"from": "2026-07-01"}]),
    (QUOTREGDTL, [{}]),
    (CHLNRPT, [{}, {"party": "A00003"}]),
    (CHLNRPTDTL, [{}]),
    (recipt, PARTIES + PERIODS + [{"category": "85"}, {"category": "85x"}, {"category": "x"}]),
    (GSTR1_RD, RETURNS),
    (GSTR1_URD, RETURNS),
    (ONACRCV, [{"answer": answer} | to | more for answer in ("No", "Yes") for to in ({}, {"to": "2026-06-30"}, {"to": "2026-03-01"})
               for more in PARTIES + [{"category": "86"}, {"category": "35"}] + [{"party": "A%05d" % n} for n in range(4, 25)]]),
]


def expect(db):
    books = Books(db)
    for report, queries in ASKED:
        for query in queries:
            query = YEAR | query
            columns, table = report(books, query)
            print("@ " + report.__name__.replace("_", "-"), *(query[f] for f in FIELDS), sep="\t")
            print(*("%s|%d" % (c[0], c[1]) for c in columns), sep="\t")
            for mark, cells, voucher in table:
                print("" if mark == "b" else mark, *(c.replace("\t", "\x1f") for c in cells), voucher, sep="\t")


def main():
    task, file = sys.argv[1:3]
    db = sqlite3.connect(file)
    if task == "make":
        make(db, random.Random(int(sys.argv[3])))
    else:
        expect(db)


if __name__ == "__main__":
    main()
