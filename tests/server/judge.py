"""Whether the books hold what operators were told, whole and once each; nothing here has seen the program."""
import os
import sqlite3
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "vouchers"))
import posting_oracle

LINES = "ITEM_CD QUANTITY RATE AMOUNT CGSTAMT SGSTAMT IGSTAMT NET_AMOUNT".split()
HEAD = "PARTY_CD ITEM_AMT TCGSTRT TSGSTRT TIGSTRT ROUND_OFF NET_AMT NO_OF_ITEM".split()


def lines_of(bill):
    return [(line.item.code, line.quantity, line.rate, line.amount, *line.amounts, line.net) for line in bill.lines]


def head_of(bill):
    return (bill.party, bill.value, *bill.taxes, bill.rounding, bill.net, bill.quantity)


def judge(db, journal):
    """What is wrong in the books beside the journal, as lines."""
    db.row_factory = sqlite3.Row
    faults = []
    deeds = {(d.book, d.tag): d for d in journal.deeds}
    for book, table in (("SA", "SALE"), ("RC", "RPTPAY")):
        found = {}
        for row in db.execute("SELECT * FROM %s WHERE BOOK_CD = ?" % table, (book,)):
            deed = deeds.get((book, row["NARRATION"]))
            number = int(row["VOUCH_NO"])
            if number in found:
                faults.append("%s %d is there twice" % (book, number))
            found[number] = deed
            if deed:
                faults += compare(db, row, deed)
        stored = [d.tag for d in found.values() if d]
        faults += ["%s stands under two numbers" % tag for tag in set(stored) if stored.count(tag) > 1]
        faults += lost(book, found, journal.deeds)
    faults += ["%s %s has lines without a head" % tuple(row) for row in db.execute(
        "SELECT DISTINCT BOOK_CD, VOUCH_NO FROM SALEITM AS L WHERE NOT EXISTS (SELECT 1 FROM SALE AS S WHERE S.VOUCH_NO = L.VOUCH_NO AND S.BOOK_CD = L.BOOK_CD)")]
    faults += ["bill number %s of %s is there %d times" % tuple(row) for row in db.execute(
        "SELECT BILL_NO, BL_TYPE, COUNT(*) FROM SALE WHERE BOOK_CD = 'SA' GROUP BY BILL_NO, BL_TYPE HAVING COUNT(*) > 1")]
    faults += ["somebody's work stands in the books' own " + table for table in ("T_SLITM", "T_CHLNITM", "T_QUOTITM", "TEMP_ITMDTL")
               if db.execute("SELECT 1 FROM " + table).fetchone()]
    signed = "SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END)"
    faults += ["debits of %s %s are %s above credits" % tuple(row) for row in db.execute(
        "SELECT BOOK_CD, VOUCH_NO, %s FROM ALEDGER GROUP BY BOOK_CD, VOUCH_NO HAVING ABS(%s) > 0.004" % (signed, signed))]
    faults += ["CL_BAL of %s is %s, its rows come to %s" % tuple(row) for row in db.execute(
        "SELECT ACC_CD, CL_BAL, B FROM (SELECT ACC_CD, CL_BAL, OP_BAL + COALESCE((SELECT %s FROM ALEDGER AS L WHERE L.PARTY_CD = ACC_CD), 0) AS B"
        " FROM ACCOUNT) WHERE ABS(CL_BAL - B) > 0.004" % signed)]
    return faults


def compare(db, row, deed):
    """A voucher beside what was typed by the one whose mark it bears."""
    name = "%s %d: %s" % (deed.book, row["VOUCH_NO"], deed)
    if deed.number not in (None, row["VOUCH_NO"]):
        return ["%s was told as %d" % (name, deed.number)]
    if deed.book == "RC":
        return [] if (row["PARTY_CD"], row["AMOUNT"]) == deed.bill else ["%s differs" % name]
    lines = [tuple(line) for line in db.execute("SELECT %s FROM SALEITM WHERE BOOK_CD = 'SA' AND VOUCH_NO = ? ORDER BY SR_NO" % ", ".join(LINES), (row["VOUCH_NO"],))]
    head = tuple(row[c] for c in HEAD)
    wanted = [*lines_of(deed.bill), head_of(deed.bill)]
    return ["%s has %s, not %s" % (name, have, want) for have, want in zip([*lines, head] if len(lines) == len(deed.bill.lines) else [lines], wanted) if not same(have, want)]


def same(one, other):
    return len(one) == len(other) and all(abs(a - b) < 0.0000001 if isinstance(a, float) else a == b for a, b in zip(one, other))


def lost(book, found, deeds):
    """What was told as done shows, unless something later went over it."""
    faults = []
    of_number = {}
    for deed in deeds:
        if deed.book == book and deed.number and deed.ended:
            of_number.setdefault(deed.number, []).append(deed)
    for number, done in of_number.items():
        now = found.get(number)
        if now:
            later = [d for d in done if now.ended and d.begun > now.ended]
            faults += ["%s %d shows %s, though %s came later" % (book, number, now, d) for d in later]
        else:
            gone = [d for d in deeds if d.book == book and d.number == number and not d.bill]
            if not any(all(d.bill is None or not gone_by.ended or d.begun < gone_by.ended for d in done) for gone_by in gone):
                faults.append("%s %d is missing: %s" % (book, number, ", ".join(map(str, done))))
    return faults


def posted(db):
    """The ledger after a full posting, as the oracle of posting has it: what differs."""
    db.row_factory = sqlite3.Row
    return posting_oracle.differences(db)
