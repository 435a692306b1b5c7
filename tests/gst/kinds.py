"""Puts into played books what a year of keys does not bring: vouchers of every kind that a return tells apart, faults among them."""
import datetime
import random

from figures import insert, rows

RATES = [0, 0, 0.25, 3, 5, 12, 18, 18, 28, 40]
DIGITS = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
HOME = 24
ORDINARY, EXPORT_TAXED, EXPORT, SEZ_TAXED, SEZ, DEEMED, GOODS, SERVICES = range(8)


def check_digit(number):
    total = 0
    for place, sign in enumerate(number[:14]):
        product = DIGITS.index(sign) * (1 + place % 2)
        total += product // 36 + product % 36
    return DIGITS[-total % 36]


def gstin(state, n):
    number = "%02dZZZC%s%04dA1Z" % (state, DIGITS[10 + n % 26], n)
    return number + check_digit(number)


class Maker:
    def __init__(self, db, seed):
        self.db, self.rng = db, random.Random(seed)

    def make(self):
        db, rng = self.db, self.rng
        db.execute("UPDATE COMP_DET SET GSTINNO = ?, STATECD = ?", (gstin(HOME, 1), str(HOME)))
        for n, party in enumerate(rows(db, "SELECT ACC_CD, STATECD FROM ACCOUNT WHERE LENGTH(GSTINNO) = 15 ORDER BY ACC_CD")):
            if n % 5:  # the others keep one whose last sign is wrong
                db.execute("UPDATE ACCOUNT SET GSTINNO = ? WHERE ACC_CD = ?", (gstin(int(party["STATECD"]), n + 10), party["ACC_CD"]))
        for n, (state, number, kind) in enumerate([(24, gstin(24, 900), "SEZ UNIT"), (27, gstin(27, 901), "SEZ"), (96, ".", "."), (96, "", "OVERSEAS"), (29, "2920UNO00001UNZ", "."),
                                                   (27, gstin(27, 902), "COMPOSITION"), (24, gstin(24, 903), "."), (7, None, "."), (27, ".", "."), (28, gstin(28, 904), "."), (0, ".", ".")]):
            insert(db, "ACCOUNT", ACC_CD="K%05d" % n, ACC_NAME="KIND %d" % n, GROUP_CD=85 if n % 3 else 135, STATECD=state, GSTINNO=number, GSTREGTYP=kind, ANOTHER_CD="S001", OP_BAL=0, CL_BAL=0)
        for n, hsn in enumerate(["847130", "392410", "998313", "2203", "040120", ".", "12", "84A1", "27101210", "85044090"]):
            insert(db, "ITEM", ITEM_CD="K%d" % n, ITEM_NAME="GOODS %d" % n, ITEM_SNAME=".", ITEM_LNAME=".", DEPT_CD="E001", TAX_CD=1, UOM=["KGS", "."][n % 2], HSNCODE=hsn, RATEOFTAX=18, RATEOFCESS=0)
        if "KIND" not in [column["name"] for column in rows(db, "PRAGMA table_info(SUPPLY)")]:
            for column in ("KIND DOUBLE", "POS DOUBLE", "PORT TEXT", "SHIP_NO TEXT", "SHIP_DT TEXT"):
                db.execute("ALTER TABLE SUPPLY ADD " + column)
        self.parties = {p["ACC_CD"]: p for p in rows(db, "SELECT * FROM ACCOUNT WHERE GROUP_CD IN (85, 135)")}
        self.counts = {}
        for book, many in (("SA", 220), ("PU", 80), ("SR", 50), ("SD", 25), ("PR", 25)):
            for n in range(many):
                self.voucher(book, n * 365 / many)

    def change(self):
        """April after its return was filed: other amounts, numbers, parties and dates, some gone, some that come late."""
        db, rng = self.db, self.rng
        listed = rows(db, "SELECT BOOK_CD, VOUCH_NO, BILL_NO FROM SALE WHERE VOUCH_DT < '2026-05-01' AND BOOK_CD IN ('SA', 'SR', 'SD') AND GSTPOST = 1 ORDER BY BOOK_CD, VOUCH_NO")
        for v in rng.sample(listed, 24):
            key = (v["BOOK_CD"], v["VOUCH_NO"])
            what = rng.choice(["amount", "amount", "number", "day", "later", "gone", "party"])
            if what == "amount":
                db.execute("UPDATE SALEITM SET AMOUNT = AMOUNT + 100 WHERE BOOK_CD = ? AND VOUCH_NO = ?", key)
            elif what == "gone":
                for table in ("SALE", "SALEITM", "SUPPLY", "ORIGINAL"):
                    db.execute("DELETE FROM %s WHERE BOOK_CD = ? AND VOUCH_NO = ?" % table, key)
            else:
                party = rng.choice(rows(db, "SELECT ACC_CD FROM ACCOUNT WHERE LENGTH(GSTINNO) = 15 AND GROUP_CD = 85 ORDER BY ACC_CD"))["ACC_CD"]
                column, value = {"number": ("BILL_NO", "N" + v["BILL_NO"][-6:]), "day": ("VOUCH_DT", "2026-04-30"), "later": ("VOUCH_DT", "2026-05-31"), "party": ("PARTY_CD", party)}[what]
                db.execute("UPDATE SALE SET %s = ? WHERE BOOK_CD = ? AND VOUCH_NO = ?" % column, (value,) + key)
        self.parties = {p["ACC_CD"]: p for p in rows(db, "SELECT * FROM ACCOUNT WHERE GROUP_CD IN (85, 135)")}
        self.counts = {}
        for book in ("SA", "SA", "SA", "SA", "SR", "SD"):
            self.voucher(book, 15)

    def number(self, book):
        """Of series with and without a prefix, with numbers left out; now and then one against the law or a second time."""
        rng = self.rng
        prefix, width = rng.choice([("", 4), ("K/26-27/", 3), ("EX-", 1)])
        count = self.counts.get((book, prefix), 700) + rng.choice([1, 1, 1, 1, 2, 4])
        self.counts[book, prefix] = count
        text = prefix + str(count).zfill(width)
        return rng.choice([text] * 30 + ["A LONG NUMBER 12345", "K/26-27/705", "000"])

    def voucher(self, book, around):
        db, rng = self.db, self.rng
        number = 1 + (db.execute("SELECT MAX(VOUCH_NO) FROM SALE WHERE BOOK_CD = ?", (book,)).fetchone()[0] or 0)
        party = self.parties[rng.choice(list(self.parties))]
        day = datetime.date(2026, 4, 1) + datetime.timedelta(int(min(364, max(0, rng.gauss(around, 15)))))
        bought = book in ("PU", "PR")
        kind = rng.choice([GOODS, SERVICES, ORDINARY, ORDINARY]) if bought and rng.random() < 0.3 else ORDINARY
        if not bought:
            kind = rng.choice([EXPORT_TAXED, EXPORT]) if party["STATECD"] == 96 else rng.choice([SEZ_TAXED, SEZ]) if "SEZ" in (party["GSTREGTYP"] or "") else DEEMED if rng.random() < 0.05 else ORDINARY
        place = rng.choice([27, 8]) if kind == ORDINARY and not bought and rng.random() < 0.1 else 0
        inter = kind not in (ORDINARY, DEEMED) or (place or party["STATECD"]) != HOME
        if rng.random() < 0.02:
            inter = not inter
        reverse, ineligible = rng.random() < 0.12, bought and rng.random() < 0.1
        original = None
        if book in ("SR", "SD", "PR"):
            bills = rows(db, "SELECT * FROM SALE WHERE BOOK_CD = '%s' AND PARTY_CD = '%s' AND VOUCH_DT <= '%s' ORDER BY VOUCH_NO" % ("PU" if bought else "SA", party["ACC_CD"], day))
            original = rng.choice(bills) if bills else None
        items = rows(db, "SELECT ITEM_CD FROM ITEM ORDER BY ITEM_CD")
        total = 0
        for serial in range(1, rng.choice([1, 2, 3, 6]) + 1):
            amount = round(rng.choice([rng.uniform(1, 900), rng.uniform(900, 90000), 100000]), 2)
            share = rng.choice([0, 0, 0, round(rng.uniform(-50, 50), 2)])
            rate = rng.choice(RATES) if rng.random() > 0.02 else 16
            due = 0 if kind in (EXPORT, SEZ) else (amount + share) * rate / 100
            cgst, sgst, igst = (0, 0, round(due, 2)) if inter else (round(due / 2, 2), round(due / 2, 2), 0)
            if rng.random() < 0.02:
                sgst += 0.5
            insert(db, "SALEITM", BOOK_CD=book, VOUCH_NO=number, VOUCH_DT=day.isoformat(), SR_NO=serial, ITEM_CD=rng.choice(items)["ITEM_CD"], SIZE_CD=rng.choice(["NOS", "kg", "BOX", "LOT 7"]),
                   QUANTITY=rng.choice([1, 2.5, 12, 0.333]), RATE=amount, AMOUNT=amount, DISC4=share, CGSTRT=0 if inter else rate / 2, SGSTRT=0 if inter else rate / 2, IGSTRT=rate if inter else 0,
                   CGSTAMT=cgst, SGSTAMT=sgst, IGSTAMT=igst, CESS_AMT1=rng.choice([0] * 20 + [1.25]), NET_AMOUNT=amount + cgst + sgst + igst, GSTPOST=1)
            total += amount + share + (0 if reverse else cgst + sgst + igst)
        insert(db, "SALE", BOOK_CD=book, VOUCH_NO=number, VOUCH_DT=day.isoformat(), BL_TYPE=rng.choice(["TAX", "TAX", "RETAIL"]), BILL_NO=self.number(book), PARTY_CD=party["ACC_CD"],
               NET_AMT=round(total), ROUND_OFF=0, ITEM_AMT=total, GSTPOST=1)
        shipped = kind in (EXPORT_TAXED, EXPORT) and rng.random() < 0.8
        if kind or place or reverse or ineligible:
            if not (original and rng.random() < 0.5):  # a note may leave it to its bill
                insert(db, "SUPPLY", BOOK_CD=book, VOUCH_NO=number, REVERSE=int(reverse), INELIGIBLE=int(ineligible), KIND=kind, POS=place, PORT="INNSA1" if shipped else "",
                       SHIP_NO=rng.choice(["1234567", "4321", "SB/1"]) if shipped else "", SHIP_DT=day.isoformat() if shipped and rng.random() < 0.9 else None)
        if original:
            insert(db, "ORIGINAL", BOOK_CD=book, VOUCH_NO=number, SR_NO=1, BILL_BOOK=original["BOOK_CD"], BILL_VOUCH=original["VOUCH_NO"], BILL_NO=original["BILL_NO"], BILL_DT=original["VOUCH_DT"], REASON=1,
                   GOODS=rng.choice([0, 1]))
