#!/usr/bin/env python3
"""A year of random vouchers, and the ledger that full posting must make of them, figured apart from the program.

usage: posting_oracle.py fill FILE SEED BILLS    puts accounts, bills, receipts and challans into a company-year
       posting_oracle.py check FILE              compares its ledger and balances row by row; status 1 when they differ
"""
import pathlib
import random
import sqlite3
import sys
from collections import Counter

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "support"))
from figures import insert, number

TAXES = ("TCGSTRT", "TSGSTRT", "TIGSTRT")
# The party's side of a bill, the other side, and where the three taxes stand.
OUTPUT, INPUT = ("X90061", "X90062", "X90063"), ("X90064", "X90065", "X90066")
BILLS = {"SA": ("D", "C", OUTPUT), "SR": ("C", "D", OUTPUT), "SD": ("D", "C", OUTPUT),
         "PU": ("C", "D", INPUT), "PR": ("D", "C", INPUT)}

LEDGER = ("VOUCH_DT VOUCH_NO BOOK_CD VOUCH_TYPE PARTY_CD PARTY_TCD VOUCH_AMT PARTY_BL NARRATION SUB_DESC "
          "CHQ_NO CHQ_CLG_DT BW_AB NARR1 REF_NO SRNO GSTPOST").split()


# The year


def fill(db, rng, bills):
    parties = [f"A{n:05}" for n in range(1, 31)]
    for code in parties + ["E00001"]:
        insert(db, "ACCOUNT", ACC_CD=code, ACC_NAME="PARTY " + code, GROUP_CD=85,
               OP_BAL=rng.choice([0, 0, 100.25, -4000]), CL_BAL=77)

    def day():
        return f"2026-{rng.randint(4, 12):02}-{rng.randint(1, 28):02}"

    def text(longest):
        words = ["", ".", "O'NEIL", "ભાગ બીજો", "SITE 4", None, "x" * longest]
        return rng.choices(words, [4, 1, 2, 2, 4, 2, 1])[0]

    def money(zeros=1):
        return rng.choices([0, round(rng.uniform(0.01, 99999), 2), -round(rng.uniform(1, 500), 2), None],
                           [zeros, 20, 1, 0.5])[0]

    for n in range(1, bills + 1):
        inside = rng.random() < 0.5
        half = rng.choice([0, round(rng.uniform(1, 900), 2)]) if inside else 0
        book = rng.choices(["SA", "sa", "PU", "pu", "SR", "SD", "PR", "CM"], [24, 1, 12, 1, 2, 1, 2, 1])[0]
        insert(db, "SALE", **{
            "VOUCH_NO": n, "VOUCH_DT": rng.choices([day(), None], [40, 1])[0], "BOOK_CD": book,
            "PARTY_CD": rng.choice(parties + ["A99999"]),
            "SALE_CD": rng.choices(["X90001" if book in ("PU", "pu", "PR") else "X90002", "X90007"], [20, 1])[0],
            "NET_AMT": money(), "ITEM_AMT": money(), "TCGSTRT": half, "TSGSTRT": half,
            "TIGSTRT": 0 if inside else money(3), "ROUND_OFF": rng.choice([0, 0.4, -0.4, 0.01, -0.5]),
            "NARRATION": text(200), "GR_NO": text(20), "DESTI": text(40), "BILL_NO": rng.choice([f"{n:04}", None]),
            "CR_DAYS": rng.choice([0, 15, 30, 7.5, None]), "GSTPOST": rng.choices([1, 0, None, 2], [30, 2, 1, 1])[0]})
    for n in range(1, bills // 3 + 1):
        for book in ("RC", "PY", "IC", "EP", "CM"):
            insert(db, "RPTPAY", **{
                "VOUCH_NO": n, "VOUCH_DT": day(), "BOOK_CD": book, "REF_NO": rng.choice([str(n), "R/7", None]),
                "CSHBNK_CD": rng.choice(["X90005", "E00001"]), "PARTY_CD": rng.choice(parties), "AMOUNT": money(),
                "NARRATION": text(200), "NARRATION1": ".", "CHQ_NO": rng.choice([".", "001234"]), "CHQ_CLG_DT": day(),
                "RPTPAY_DTL": rng.choice(["A", "B", None])})
    for n in range(1, bills // 5 + 1):
        insert(db, "CHLN", **{
            "VOUCH_NO": n, "VOUCH_DT": day(), "BOOK_CD": rng.choices(["CH", "RT"], [10, 1])[0],
            "PARTY_CD": rng.choice(parties), "NET_AMT": money(), "CHLN_NO": rng.choice([str(n), "007", "12.5", None]),
            "NARRATION": text(200), "GR_NO": text(50), "DESTI": text(50)})


# The ledger


def joined(*parts):
    return None if None in parts else " ".join(parts)[:200]


def expected(db):
    def rows(table, books):
        for row in db.execute(f"SELECT * FROM {table}"):
            if row["BOOK_CD"].upper() in books:
                yield row

    def entry(v, side, account, against, amount, **more):
        made = dict.fromkeys(LEDGER) | {"SRNO": 0, "GSTPOST": 0, "BW_AB": "A"} | more
        made |= {"VOUCH_DT": v["VOUCH_DT"], "VOUCH_NO": v["VOUCH_NO"], "BOOK_CD": v["BOOK_CD"], "VOUCH_TYPE": side,
                 "PARTY_CD": account, "PARTY_TCD": against, "VOUCH_AMT": amount}
        if amount != 0:
            yield tuple(made[column] for column in LEDGER)

    for v in rows("RPTPAY", {"RC", "PY", "IC", "EP"}):
        cash, other = ("D", "C") if v["BOOK_CD"] in ("RC", "IC") else ("C", "D")
        same = {"NARRATION": v["NARRATION"], "BW_AB": v["RPTPAY_DTL"], "PARTY_BL": v["REF_NO"], "NARR1": v["NARRATION1"],
                "CHQ_NO": v["CHQ_NO"], "CHQ_CLG_DT": v["CHQ_CLG_DT"], "SUB_DESC": ".", "SRNO": v["VOUCH_NO"]}
        yield from entry(v, cash, v["CSHBNK_CD"], v["PARTY_CD"], v["AMOUNT"], **same)
        yield from entry(v, other, v["PARTY_CD"], v["CSHBNK_CD"], v["AMOUNT"], **same)

    for v in rows("SALE", BILLS):
        if v["GSTPOST"] != 1:
            continue
        ours, theirs, accounts = BILLS[v["BOOK_CD"].upper()]
        party, goods, note = v["PARTY_CD"], v["SALE_CD"], v["NARRATION"]
        of_bill = {"PARTY_BL": v["BILL_NO"]}
        with_days = of_bill | {"SUB_DESC": None if v["CR_DAYS"] is None else number(v["CR_DAYS"])}
        yield from entry(v, ours, party, goods, v["NET_AMT"], NARRATION=joined(note, v["GR_NO"], v["DESTI"]), **with_days)
        yield from entry(v, theirs, goods, party, v["ITEM_AMT"], NARRATION=joined(note, v["GR_NO"]), **with_days)
        for account, tax in zip(accounts, TAXES):
            if v[tax] is not None and v[tax] != 0:
                yield from entry(v, theirs, account, party, v[tax], NARRATION=note)
        if v["ROUND_OFF"] != 0:
            side = ours if v["ROUND_OFF"] < 0 else theirs
            yield from entry(v, side, "X90015", party, abs(v["ROUND_OFF"]), NARRATION=note, **of_bill)

    for v in rows("CHLN", {"CH"}):
        their_no = None if v["CHLN_NO"] is None else " " + number(float(v["CHLN_NO"]))
        same = {"NARRATION": joined(v["NARRATION"], v["GR_NO"], v["DESTI"]), "PARTY_BL": their_no, "SUB_DESC": "0"}
        yield from entry(v, "D", v["PARTY_CD"], "X90002", v["NET_AMT"], **same)
        yield from entry(v, "C", "X90002", v["PARTY_CD"], v["NET_AMT"], **same)


def differences(db):
    wanted = Counter(expected(db))
    found = Counter(tuple(row) for row in db.execute(f"SELECT {', '.join(LEDGER)} FROM ALEDGER"))
    wrong = [f"missing {row}" for row in (wanted - found)] + [f"too many {row}" for row in (found - wanted)]
    for account in db.execute("SELECT ACC_CD, OP_BAL, CL_BAL FROM ACCOUNT"):
        paise = round((account["OP_BAL"] or 0) * 100)
        for row in wanted.elements():
            if row[4] == account["ACC_CD"] and row[6] is not None:
                paise += round(row[6] * 100) * (1 if row[3] == "D" else -1)
        if abs(account["CL_BAL"] - paise / 100) > 0.001:
            wrong.append(f"balance of {account['ACC_CD']} {account['CL_BAL']}, not {paise / 100}")
    return wrong


def main():
    task, file = sys.argv[1], sys.argv[2]
    db = sqlite3.connect(file)
    db.row_factory = sqlite3.Row
    if task == "check":
        wrong = differences(db)
        print("\n".join(wrong[:5]) or "the ledger is as expected")
        return 1 if wrong else 0
    fill(db, random.Random(int(sys.argv[3])), int(sys.argv[4]))
    db.commit()
    return 0


if __name__ == "__main__":
    sys.exit(main())
