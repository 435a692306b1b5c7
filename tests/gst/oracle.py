#!/usr/bin/env python3
"""Works out the returns of played books from their raw tables, apart from the program, and compares its files.

usage: oracle.py make DATABASE SEED        adds vouchers of all kinds
       oracle.py change DATABASE SEED      changes some of April
       oracle.py judge DATABASE FOLDER PERIOD SAID [FILED PERIOD]

SAID is what the program printed of the period, FILED the books as they were when a return before it was filed.
"""
import datetime
import glob
import json
import os
import re
import sqlite3
import sys
from collections import defaultdict
from decimal import ROUND_HALF_UP, Decimal

import jsonschema

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "support"))
from figures import dec, rows
from sheets import sheets
from kinds import DEEMED, EXPORT, EXPORT_TAXED, GOODS, HOME, SERVICES, SEZ, SEZ_TAXED, Maker, check_digit

LISTED = ("b2b", "b2cl", "exp", "cdnr", "cdnur")
PAISA, ZERO = Decimal("0.01"), Decimal(0)
KNOWN = [dec(r) for r in (0, 0.1, 0.25, 1, 1.5, 3, 5, 6, 7.5, 12, 18, 28, 40)]
UNITS = {"NOS": "NOS", "KG": "KGS", "KGS": "KGS", "BOX": "BOX", "PCS": "PCS"}
LIQUOR_AND_OIL = ("2203", "2204", "2205", "2206", "2208", "2709", "271012", "271019", "271121")
TAXES = ("iamt", "camt", "samt", "csamt")
GSTIN = re.compile("[0-9]{2}[A-Z]{5}[0-9]{4}[A-Z][1-9A-Z][Z1-9A-J][0-9A-Z]$")


def paise(x):
    return dec(x).quantize(PAISA, ROUND_HALF_UP)


def text(x):
    return "" if x is None or x.strip() == "." else x.strip()


class Sum(defaultdict):
    """Taxable value and taxes."""

    def __init__(self):
        super().__init__(Decimal)

    def add(self, other, sign=1):
        for key in ("txval",) + TAXES:
            self[key] += sign * other[key]

    def shown(self, inter):
        keys = [k for k in TAXES if k == "csamt" or (k == "iamt") == inter or self[k] or (not inter and k == "iamt" and self[k])]
        if inter and (self["camt"] or self["samt"]):
            keys = list(TAXES)
        return {k: self[k] for k in keys}


class Voucher:
    def __init__(self, books, head):
        party = books.parties.get(head["PARTY_CD"].upper())
        marks = books.marks.get((head["BOOK_CD"], head["VOUCH_NO"]), {})
        self.originals = books.originals.get((head["BOOK_CD"], head["VOUCH_NO"]), [])
        first = self.originals[0] if self.originals else None
        self.kind, self.place = int(marks.get("KIND") or 0), int(marks.get("POS") or 0)
        if first and not self.kind:
            its = books.marks.get((first["BILL_BOOK"], first["BILL_VOUCH"]), {})
            self.kind, self.place = int(its.get("KIND") or 0), self.place or int(its.get("POS") or 0)
        self.marks, self.party = marks, party
        self.book, self.voucher, self.number, self.type = head["BOOK_CD"], head["VOUCH_NO"], head["BILL_NO"].strip(), head["BL_TYPE"]
        self.day, self.value = head["VOUCH_DT"], paise(head["NET_AMT"])
        self.note = self.book in ("SR", "SD", "PR")
        self.sign = -1 if self.book in ("SR", "PR") else 1
        self.bought = self.book in ("PU", "PR")
        self.export, self.sez = self.kind in (EXPORT, EXPORT_TAXED), self.kind in (SEZ, SEZ_TAXED)
        self.bond = self.kind in (EXPORT, SEZ)
        self.gstin = text(party["GSTINNO"]).upper()
        self.state = int(party["STATECD"] or 0) or int(self.gstin[:2] or 0)
        self.place = 96 if self.export else self.place or self.state
        self.registered = bool(self.gstin) and not self.export
        self.inter = (self.kind in (GOODS, SERVICES) or self.state != HOME) if self.bought else self.export or self.sez or self.place != HOME
        self.rates, self.untaxed, self.lines = defaultdict(Sum), defaultdict(Decimal), []
        moves = not self.originals or first["GOODS"] == 1
        for line in books.lines.get((self.book, self.voucher), []):
            self.take(books.items.get(line["ITEM_CD"].upper()), line, moves)

    def take(self, item, line, moves):
        rate = sum(dec(line[k]) for k in ("CGSTRT", "SGSTRT", "IGSTRT"))
        sums = Sum()
        sums["txval"] = (dec(line["AMOUNT"]) + dec(line["DISC4"])).quantize(PAISA, ROUND_HALF_UP)
        for key, column in zip(TAXES, ("IGSTAMT", "CGSTAMT", "SGSTAMT", "CESS_AMT1")):
            sums[key] = paise(line[column])
        hsn = text(item["HSNCODE"])
        service = hsn.startswith("99")
        unit = "NA" if service else UNITS.get(line["SIZE_CD"].upper()) or UNITS.get(item["UOM"].upper()) or "OTH"
        self.lines.append((hsn, unit, rate, dec(line["QUANTITY"]) if moves and not service else ZERO, sums))
        if rate == 0 and not any(sums[k] for k in TAXES) and not (self.export or self.sez):
            self.untaxed["ngsup_amt" if hsn.startswith(LIQUOR_AND_OIL) else "nil_amt"] += sums["txval"]
        else:
            self.rates[rate].add(sums)

    def section(self):
        if not self.rates:
            return None
        if self.export:
            return "cdnur" if self.note else "exp"
        if self.registered:
            return "cdnr" if self.note else "b2b"
        large = self.inter and max([self.value] + [paise(o["NET_AMT"]) for o in self.originals]) > 100000
        return "b2cs" if not large else "cdnur" if self.note else "b2cl"

    def taxed(self):
        sums = Sum()
        for its in self.rates.values():
            sums.add(its)
        return sums

    def liability(self):
        reverse = self.marks.get("REVERSE") == 1 and self.registered
        return "osup_zero" if self.export or self.sez else "buyer" if reverse else "osup_det"

    def row(self, section):
        day = lambda iso: "-".join(reversed(iso.split("-")))
        row = {"nt_num": self.number, "nt_dt": day(self.day), "ntty": "C" if self.sign < 0 else "D"} if self.note else {"inum": self.number, "idt": day(self.day)}
        row["val"] = self.value
        lines = [dict(sums.shown(self.inter), txval=sums["txval"], rt=rate) for rate, sums in sorted(self.rates.items())]
        row["itms"] = lines if section == "exp" else [{"num": int(line["rt"] * 100) + 1, "itm_det": line} for line in lines]
        if section in ("b2b", "cdnr"):
            row.update(pos="%02d" % self.place, rchrg="Y" if self.marks.get("REVERSE") == 1 else "N", inv_typ={SEZ: "SEWOP", SEZ_TAXED: "SEWP", DEEMED: "DE"}.get(self.kind, "R"))
        if section == "cdnur":
            row["typ"] = "B2CL" if not self.export else "EXPWOP" if self.bond else "EXPWP"
            if not self.export:
                row["pos"] = "%02d" % self.place
        if section == "exp":
            number, shipped = text(self.marks.get("SHIP_NO")), self.marks.get("SHIP_DT")
            row.update({"sbpcode": self.marks["PORT"]} if self.marks.get("PORT") else {})
            row.update({"sbnum": number, "sbdt": day(shipped)} if number and shipped else {})
        return row

    def refused(self, section, twice):
        """Whether the portal takes it."""
        sums = list(self.rates.items())
        bad = self.rates and (not 1 <= self.place <= 38 and self.place not in (96, 97) or self.place in (25, 28))
        bad = bad or self.sez and not self.registered and self.rates
        for rate, s in sums:
            tax = s["iamt"] + s["camt"] + s["samt"]
            bad = bad or rate not in KNOWN or (s["camt"] or s["samt"] if self.inter else s["iamt"]) or s["camt"] != s["samt"] or self.bond and (tax or s["csamt"])
        bad = bad or not re.fullmatch("[A-Za-z0-9/-]{1,16}", self.number) or not self.number.strip("0")
        if section in (None, "b2cs"):
            return bool(bad)
        shipping = text(self.marks.get("SHIP_NO"))
        bad = bad or (self.book, self.number.upper()) in twice
        bad = bad or self.registered and not (re.fullmatch("[0-9]{4}[A-Z]{3}[0-9]{5}[UO]N[0-9A-Z]", self.gstin) or GSTIN.match(self.gstin) and check_digit(self.gstin) == self.gstin[14])
        bad = bad or self.export and (bool(shipping) != bool(self.marks.get("SHIP_DT")) or shipping and not re.fullmatch("[0-9]{3,7}", shipping))
        bad = bad or self.kind == DEEMED and self.marks.get("REVERSE") == 1 and self.registered
        return bool(bad or self.value < 0 or any(s["txval"] < 0 or self.note and not s["txval"] for _, s in sums))


class Books:
    def __init__(self, db):
        by = lambda statement, key: {row[key].upper(): row for row in rows(db, statement)}
        self.parties, self.items = by("SELECT * FROM ACCOUNT", "ACC_CD"), by("SELECT * FROM ITEM", "ITEM_CD")
        self.marks = {(r["BOOK_CD"], r["VOUCH_NO"]): r for r in rows(db, "SELECT * FROM SUPPLY")}
        self.lines, self.originals = defaultdict(list), defaultdict(list)
        for line in rows(db, "SELECT * FROM SALEITM"):
            self.lines[line["BOOK_CD"], line["VOUCH_NO"]].append(line)
        for bill in rows(db, "SELECT O.*, S.NET_AMT FROM ORIGINAL O LEFT JOIN SALE S ON S.VOUCH_NO = O.BILL_VOUCH AND S.BOOK_CD = O.BILL_BOOK ORDER BY O.SR_NO"):
            self.originals[bill["BOOK_CD"], bill["VOUCH_NO"]].append(bill)
        self.vouchers = [Voucher(self, head) for head in rows(db, "SELECT * FROM SALE WHERE GSTPOST = 1 AND BOOK_CD IN ('SA', 'SR', 'SD', 'PU', 'PR')")]
        self.gstin = rows(db, "SELECT GSTINNO FROM COMP_DET")[0]["GSTINNO"]

    def twice(self, listed):
        """Numbers that registered parties have twice in the year, or that a return itself lists twice."""
        year, period = defaultdict(int), defaultdict(int)
        for v in self.vouchers:
            year[v.book, v.number.upper()] += len(v.party["GSTINNO"] or "") > 1
        for v in listed:
            period[v.book, v.number.upper()] += v.section() in LISTED
        return {k for counts in (year, period) for k, n in counts.items() if n > 1}

    def issued(self, first, last):
        series, found = defaultdict(list), defaultdict(list)
        for v in self.vouchers:
            parts = re.fullmatch(r"(.*?)(\d+)(\D*)", v.number, re.S)
            if not v.bought and parts:
                before, digits, behind = parts.groups()
                series[v.book, "" if before or behind else v.type.upper(), before.upper(), behind.upper()].append((int(digits), v.day, v.number))
        for (book, _, before, behind), numbers in series.items():
            run, previous = [], None
            for count, day, number in sorted(numbers):
                missing = count - previous - 1 if previous is not None and count > previous else 0
                if missing > 50:
                    found[book].append(run)
                    run, missing = [], 0
                if first <= day <= last and count != previous:
                    start = number if not missing or run else before + str(previous + 1).zfill(len(number) - len(before) - len(behind)) + behind
                    run.append((start, number, missing))
                previous = count
            found[book].append(run)
        table = []
        for nature, word, book in ((1, "Invoices for outward supply", "SA"), (4, "Debit Note", "SD"), (5, "Credit Note", "SR")):
            docs = [(run[0][0], run[-1][1], len(run) + sum(m for _, _, m in run), sum(m for _, _, m in run)) for run in found[book] if run]
            if docs:
                table.append({"doc_num": nature, "doc_typ": word, "docs": [{"from": a, "to": b, "totnum": n, "cancel": c, "net_issue": n - c} for a, b, n, c in docs]})
        return table


class Return:
    """The documents of a period; where one before it was filed also what came late for that, and what was changed."""

    def __init__(self, books, period, filed=None):
        self.books, self.fp, self.iff = books, period[-6:], period.startswith("IFF")
        month, year = int(period[-6:-4]), int(period[-4:])
        self.first = datetime.date(year, month - 2 if period.startswith("Q") else month, 1).isoformat()
        self.last = (datetime.date(year + month // 12, month % 12 + 1, 1) - datetime.timedelta(1)).isoformat()
        self.own = [v for v in books.vouchers if self.first <= v.day <= self.last]
        if self.iff:
            self.own = [v for v in self.own if v.section() in ("b2b", "cdnr")]
        self.amended, self.sums, self.gone, self.filed, self.before = [], [], set(), filed, set()
        self.within = filed and filed.first >= self.first and filed.fp != self.fp  # an IFF of the quarter, whose bills are not listed again
        self.changed = set()
        if filed and filed.fp == self.fp:
            was, now = ({(v.book, v.voucher): (v.section(), v.gstin, v.row(v.section())) for v in r.own if not v.bought and v.section() in LISTED} for r in (filed, self))
            self.changed = {key for key in {*was, *now} if was.get(key) != now.get(key)}
        elif filed:
            self.amend(filed)

    def amend(self, filed):
        was = {(v.book, v.voucher): v for v in filed.own if not v.bought and v.section() in LISTED}
        now = {(v.book, v.voucher): v for v in self.books.vouchers if v.day <= self.last}
        if self.within:
            self.before = set(was)
        else:
            late = [v for key, v in now.items() if filed.first <= v.day <= filed.last and key not in was and not v.bought and v.section() in LISTED]
            self.own = [v for v in self.own if (v.book, v.voucher) not in was] + late
        for key, old in was.items():
            new = now.get(key)
            if new and new.section() == old.section():
                if (new.row(new.section()), new.gstin) != (old.row(old.section()), old.gstin):
                    self.amended.append((old, new))
            else:
                self.gone.add(key)
        if self.within:
            return
        before, after = b2cs_of(filed.own), b2cs_of([v for key, v in now.items() if filed.first <= v.day <= filed.last and key not in was])
        for key in {*before, *after}:
            if any(before[key][k] != after[key][k] for k in ("txval",) + TAXES):
                self.sums.append((key, before[key], after[key]))

    def outward(self):
        return [v for v in self.own if not v.bought]

    def listed(self):
        return [v for v in self.outward() if (v.book, v.voucher) not in self.before]


def b2cs_of(vouchers):
    sums = defaultdict(Sum)
    for v in vouchers:
        if not v.bought and v.section() == "b2cs":
            for rate, its in v.rates.items():
                sums[v.place, rate, v.inter].add(its, v.sign)
    return sums


def gstr1(asked):
    books = asked.books
    tree = {"gstin": books.gstin, "fp": asked.fp, "version": "GST3.2.4", "hash": "hash"}
    groups, nil, hsn = defaultdict(list), defaultdict(lambda: defaultdict(Decimal)), (defaultdict(Sum), defaultdict(Sum))

    def put(v, section, row):
        key = {"b2b": ("ctin", v.gstin), "cdnr": ("ctin", v.gstin), "b2cl": ("pos", "%02d" % v.place), "exp": ("exp_typ", "WOPAY" if v.bond else "WPAY")}.get(section.rstrip("a"))
        groups[section, key].append(row)

    for v in asked.listed():
        if v.section() in LISTED:
            put(v, v.section(), v.row(v.section()))
    for v in asked.outward():
        for what, amount in v.untaxed.items():
            nil["INTR%sB2%s" % ("" if v.inter else "A", "B" if v.registered else "C")][what] += v.sign * amount
        for code, unit, rate, quantity, sums in v.lines:
            row = hsn[0 if v.registered else 1][code, unit, rate]
            row.add(sums, v.sign)
            row["qty"] += v.sign * quantity
    for old, new in asked.amended:
        row = new.row(new.section())
        was = old.row(old.section())
        row.update({"ont_num": was["nt_num"], "ont_dt": was["nt_dt"]} if new.note else {"oinum": was["inum"], "oidt": was["idt"]})
        put(new, new.section() + "a", row)
    for (section, key), found in groups.items():
        tree.setdefault(section, [])
        tree[section] += [{key[0]: key[1], "nt" if section.startswith("cdnr") else "inv": found}] if key else found
    small = lambda place, rate, inter: {"sply_ty": "INTER" if inter else "INTRA", "typ": "OE", "pos": "%02d" % place}
    if rows_of := b2cs_of(asked.own):
        tree["b2cs"] = [dict(s.shown(key[2]), rt=key[1], txval=s["txval"], **small(*key)) for key, s in rows_of.items()]
    if asked.sums:
        tree["b2csa"] = [dict(omon=asked.filed.fp, itms=[dict(s.shown(key[2]), rt=key[1], txval=s["txval"])], **small(*key)) for key, _, s in asked.sums]
    if asked.iff:
        return tree
    if any(amount for row in nil.values() for amount in row.values()):
        tree["nil"] = {"inv": [dict({"expt_amt": ZERO, "nil_amt": ZERO, "ngsup_amt": ZERO}, sply_ty=t, **nil[t]) for t in ("INTRB2B", "INTRAB2B", "INTRB2C", "INTRAB2C")]}
    halves = {}
    for name, table in zip(("hsn_b2b", "hsn_b2c"), hsn):
        coded = [(k, row) for k, row in sorted(table.items()) if k[0]]
        if coded:
            halves[name] = [dict({k: row[k] for k in ("txval",) + TAXES}, hsn_sc=code, uqc=unit, rt=rate, qty=row["qty"].quantize(PAISA)) for (code, unit, rate), row in coded]
    if halves:
        tree["hsn"] = halves
    if issued := books.issued(asked.first, asked.last):
        tree["doc_issue"] = {"doc_det": issued}
    return tree


def gstr3b(asked):
    cells, inward = defaultdict(Sum), defaultdict(Decimal)
    for v in asked.own:
        taxed, reverse = v.taxed(), v.marks.get("REVERSE") == 1
        nil, other = v.untaxed["nil_amt"], v.untaxed["ngsup_amt"]
        if v.bought:
            inward["GST", v.inter] += v.sign * nil
            inward["NONGST", v.inter] += v.sign * other
            if reverse or v.kind == SERVICES:
                cells["isup_rev"].add(taxed, v.sign)
            cells["IMPG" if v.kind == GOODS else "IMPS" if v.kind == SERVICES else "ISRC" if reverse else "OTH"].add(taxed, v.sign)
            if v.marks.get("INELIGIBLE") == 1:
                cells["RUL"].add(taxed, v.sign)
            continue
        cells["osup_nil_exmp"]["txval"] += v.sign * nil
        cells["osup_nongst"]["txval"] += v.sign * other
        cells[v.liability()].add(taxed, v.sign)
    for old, new in [] if asked.within else asked.amended:
        cells[new.liability()].add(new.taxed(), new.sign)
        cells[new.liability()].add(old.taxed(), -old.sign)
    for _, was, now in asked.sums:
        cells["osup_det"].add(now)
        cells["osup_det"].add(was, -1)
    five = lambda s: {k: s[k] for k in ("txval",) + TAXES}
    four = lambda s: {k: s[k] for k in TAXES}
    none, net = Sum(), Sum()
    for ty in ("IMPG", "IMPS", "ISRC", "OTH"):
        net.add(cells[ty])
    net.add(cells["RUL"], -1)
    return {"gstin": asked.books.gstin, "ret_period": asked.fp,
            "sup_details": {k: five(cells[k]) for k in ("osup_det", "osup_zero", "osup_nil_exmp", "isup_rev", "osup_nongst")},
            "eco_dtls": {"eco_sup": five(none), "eco_reg_sup": {"txval": ZERO}},
            "itc_elg": {"itc_avl": [dict(four(cells[ty]), ty=ty) for ty in ("IMPG", "IMPS", "ISRC", "ISD", "OTH")], "itc_rev": [dict(four(cells["RUL"]), ty="RUL"), dict(four(none), ty="OTH")],
                        "itc_net": four(net), "itc_inelg": [dict(four(none), ty="RUL"), dict(four(none), ty="OTH")]},
            "inward_sup": {"isup_details": [{"ty": ty, "inter": inward[ty, True], "intra": inward[ty, False]} for ty in ("GST", "NONGST")]},
            "intr_ltfee": {"intr_details": four(none), "ltfee_details": {}}}


def merged(parts):
    """The parts of a file that was too large for one; each has the head, and a group may go on in the next."""
    whole = {}
    for part in parts:
        for key, rows in part.items():
            if not isinstance(rows, list):
                assert whole.setdefault(key, rows) == rows
                continue
            for row in rows:
                head = {k: v for k, v in row.items() if k not in ("inv", "nt")}
                same = [r for r in whole.setdefault(key, []) if "itms" not in row and len(head) == 1 and head.items() <= r.items()]
                if same:
                    same[0]["nt" if "nt" in row else "inv"] += row.get("inv", row.get("nt"))
                else:
                    whole[key].append(row)
    return whole


def beyond(asked):
    """3.2: what went to other states, by those who bear the tax themselves."""
    tables = {"unreg_details": defaultdict(Sum), "comp_details": defaultdict(Sum), "uin_details": defaultdict(Sum)}
    for v in asked.outward():
        if v.inter and v.rates and not v.export and not v.sez and v.marks.get("REVERSE") != 1:
            composition, uin = (v.party["GSTREGTYP"] or "").upper().startswith("COMPOS"), re.match("[0-9]{4}[A-Z]{3}", v.gstin)
            if not v.registered or composition or uin:
                tables["unreg_details" if not v.registered else "comp_details" if composition else "uin_details"][v.place].add(v.taxed(), v.sign)
    return {name: [{"pos": "%02d" % place, "txval": s["txval"], "iamt": s["iamt"]} for place, s in table.items()] for name, table in tables.items()}


def canonical(tree):
    """Without the order of rows, numbers as decimals."""
    if isinstance(tree, dict):
        return {k: canonical(v) for k, v in sorted(tree.items())}
    if isinstance(tree, list):
        return sorted((canonical({k: v for k, v in row.items() if k != "num" or "itm_det" in row}) for row in tree), key=repr)
    return Decimal(tree).normalize() + 0 if isinstance(tree, (int, Decimal)) else tree


def differences(mine, theirs, path=""):
    if isinstance(mine, dict) and isinstance(theirs, dict):
        return [d for k in sorted({*mine, *theirs}) for d in differences(mine.get(k), theirs.get(k), path + "." + k)]
    if isinstance(mine, list) and isinstance(theirs, list) and len(mine) == len(theirs):
        return [d for n, (a, b) in enumerate(zip(mine, theirs)) for d in differences(a, b, "%s[%d]" % (path, n))]
    return [] if mine == theirs else ["%s: expected %s, in the file %s" % (path, mine, theirs)]


def faults_of(asked, said, file):
    """What is refused in words is what is, and whatever the schema refuses is among it."""
    changed = {(line[1], float(line[2])) for line in said if line[0] == "changed"}
    refused = [line for line in said if line[0] == "refused"]
    told = {(book, float(number)) for _, book, number, *_ in refused if book}
    listed = asked.listed() + [new for _, new in asked.amended]
    twice = asked.books.twice(listed)
    mine = asked.gone | {(v.book, v.voucher) for v in listed if v.refused(v.section(), twice)}
    found = ["behind a cell stands something else: %s" % line for line in said if line[0] == "behind"]
    found += ["%s %d is changed since it was filed, or not" % key for key in changed ^ asked.changed]
    found += ["%s %d is %srefused" % (b, n, "" if (b, n) in mine else "not ") for b, n in told ^ mine]
    numbers = {line[3] for line in refused}
    fields = " ".join(line[5] for line in refused)
    file = {key: rows for key, rows in file.items() if not key.endswith("a")}  # the schema is of a first return
    for error in jsonschema.Draft7Validator(json.load(open(os.path.join(HERE, "schemas", "gstr1.json")))).iter_errors(file):
        row, path = file, list(error.absolute_path)
        for step in path[:4 if path[0] in ("b2b", "b2cl", "exp", "cdnr", "doc_issue") else 2]:
            row = row[step]
        named = set(re.findall("'(?:inum|nt_num|from|to)': '([^']*)'", repr(row if isinstance(row, dict) else file[path[0]][path[1]])))
        if not named & numbers and not (path[0] == "b2cs" and "Rate" in fields + "Place" or path[0] == "hsn" and ("HSN" in fields or "Rate" in fields)):
            found.append("the schema refuses %s: %s" % (path, error.message[:120]))
    return found


def workbook_of(path, tree):
    """The sheets list what the file lists: as many rows, the same taxable value; headings stand in row 4."""
    found, book = [], sheets(path)
    listed = {"b2b,sez,de": "b2b", "b2cl": "b2cl", "b2cs": "b2cs", "exp": "exp", "cdnr": "cdnr", "cdnur": "cdnur", "hsn(b2b)": "hsn_b2b", "hsn(b2c)": "hsn_b2c"}

    def values(tree):
        if isinstance(tree, dict):
            return [tree["txval"]] if "txval" in tree else [v for branch in tree.values() for v in values(branch)]
        return [v for branch in tree for v in values(branch)] if isinstance(tree, list) else []

    for sheet, key in listed.items():
        rows = dict(book[sheet])
        letter = next(c for c, text in rows[4].items() if text == "Taxable Value")
        mine = values(tree.get("hsn", {}).get(key, []) if key.startswith("hsn") else tree.get(key, []))
        theirs = [Decimal(cells[letter]) for n, cells in rows.items() if n > 4 and (cells.get("A") or key[:3] != "hsn")]
        if sorted(mine) != sorted(v.quantize(PAISA) for v in theirs):
            found.append("sheet %s: expected %d rows of %s, found %d of %s" % (sheet, len(mine), sum(mine), len(theirs), sum(theirs)))
    return found


def registers(asked, said):
    """The two registers come to what bills come to; one whose GSTIN was never filled is in neither."""
    sums = defaultdict(Sum)
    for v in asked.books.vouchers:
        if v.book == "SA" and asked.first <= v.day <= asked.last and v.party["GSTINNO"] is not None:
            for *_, its in v.lines:
                sums["GSTR1-RD" if len(v.party["GSTINNO"]) > 1 else "GSTR1-URD"].add(its)
    told = {line[0]: [Decimal(x) for x in line[1:5]] for line in said if line[0].startswith("GSTR1-")}
    mine = {name: [sums[name][k] for k in ("txval", "iamt", "camt", "samt")] for name in told}
    return [] if len(told) == 2 and told == mine else ["the registers come to %s, the bills to %s" % (told, mine)]


def judge(db, folder, period, said, filed=None, before=None):
    filed = filed and Return(Books(sqlite3.connect(filed)), before)
    asked = Return(Books(db), period, filed)
    mine = {"GSTR1": gstr1(asked)} if asked.iff else {"GSTR1": gstr1(asked), "GSTR3B": gstr3b(asked)}
    corrected = os.path.exists(os.path.join(folder, "..", "gst_tables.csv"))  # parts of 12,000 bytes, and 3.2
    found = []
    for kind, tree in mine.items():
        files = sorted(glob.glob(os.path.join(folder, "%s_%s_%s*.json" % (kind, asked.books.gstin, asked.fp))), key=len)
        text = json.dumps(merged([json.load(open(file)) for file in files]))
        if corrected and kind == "GSTR3B":
            tree["inter_sup"] = beyond(asked)
        if corrected and kind == "GSTR1" and (len(files) < 3 or any(os.path.getsize(f) > 12000 and '"hsn"' not in open(f).read() for f in files)):
            found.append("parts of %s bytes" % [os.path.getsize(f) for f in files])
        found += [kind + d for d in differences(canonical(tree), canonical(json.loads(text, parse_float=Decimal)))]
        if kind == "GSTR1":
            found += registers(asked, [line.rstrip("\n").split("|") for line in open(said)])
            found += workbook_of(os.path.join(folder, "GSTR1_%s_%s.xlsx" % (asked.books.gstin, asked.fp)), tree)
            found += faults_of(asked, [line.rstrip("\n").split("|") for line in open(said)], json.loads(text))
        else:
            schema = json.load(open(os.path.join(HERE, "schemas", "gstr3b.json")))
            found += ["GSTR3B: " + e.message[:120] for e in jsonschema.Draft7Validator(schema).iter_errors(json.loads(text))]
    return found, sorted(k for tree in mine.values() for k, v in tree.items() if not isinstance(v, str))


def main():
    db = sqlite3.connect(sys.argv[2])
    if sys.argv[1] != "judge":
        getattr(Maker(db, int(sys.argv[3])), sys.argv[1])()
        db.commit()
        return
    found, sections = judge(db, *sys.argv[3:])
    print("\n".join(found[:40]) or "%s agrees: %s" % (sys.argv[4], " ".join(sections)))
    sys.exit(bool(found))


main()
