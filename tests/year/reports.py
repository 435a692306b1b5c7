"""The registers and returns that the books of the year must give, as keys and cells."""
import calendar
import datetime
from decimal import Decimal

from books import ADVANCES, BANKS, CASH, CREDITORS, DEBTORS, DUTIES, PERIOD, REASONS
from rules import dec, money, number
from trade import NAMES, PLACES

KINDS = {"SA": "Sale Bill", "PU": "Purchase", "SR": "Credit Note", "SD": "Debit Note", "PR": "Purchase Return", "CH": "Challan",
         "RC": "Receipt", "PY": "Payment", "IC": "Income", "EP": "Expense", "JV": "Journal", "CN": "Contra"}
FAST, DETAIL = "%d/%b/%Y", "%d/%m/%Y"


def grid(script, rows, control="Grid1"):
    script("expect rows %s %d" % (control, len(rows)))
    for r, cells in enumerate(rows):
        for c, text in enumerate(cells):
            if text is not None:
                script.expect("grid %s %d %d" % (control, r, c), text)


def named(party):
    return party.name.lower(), party.code


def total(rows, columns, width):
    last = ["Total :"] + [""] * (width - 1)
    for c in columns:
        last[c] = money(sum((Decimal(r[c]) for r in rows), Decimal(0)))
    return rows + [last]


class Reports:
    def __init__(self, year):
        self.books, self.s, self.today = year.books, year.script, year.today
        self.taxed = year.clerk.taxed  # the accounts of these are known
        self.ledger = self.books.ledger()

    def show(self, menu, rows, start=None, end=None, fields=(), answer=None):
        """Shows a report and goes over all its cells; none where there are no rows."""
        s = self.s
        s.note(menu)
        s("menu " + menu)
        for field, text in fields:
            s.fill(field, text)
        for field, day in (("from", start), ("to", end)):
            if day:
                s.fill(field, day.strftime("%d%m%Y"), "Enter")
        if answer:
            s("answer " + answer)
        s.keys("Alt+S")
        if rows:
            grid(s, rows)
        else:
            s('expect message "No Records"')
        s("press cmdclose", "expect screen frmmain")

    # Sales

    def bills(self, start=None, end=None, keep=lambda party: True):
        found = [b for b in self.books.bills["SA"].values() if (not start or start <= b.day <= end) and keep(b.party)]
        return sorted(found, key=lambda b: (b.day, b.number))

    def mark(self, b):
        return NAMES[b.book][b.kind] or ", ".join(word for word, on in (("Rev. Charge", b.reverse), ("No ITC", b.ineligible)) if on)

    def bill_register(self, bills):
        rows = [[b.bill_number, b.day.strftime(FAST), b.party.name, b.party.area, b.party.gstin, money(b.taxable), *map(money, b.taxes),
                 money(b.rounding), money(b.net), self.mark(b)] for b in bills]
        return total(rows, range(5, 11), 12) if rows else []

    def detailed_register(self, bills):
        rows, mains = [], []
        for b in bills:
            mains.append([str(b.number), b.day.strftime(DETAIL), b.bill_number, b.party.name, b.party.area, money(b.quantity), money(b.value),
                          money(abs(b.net - b.value)), money(b.net)])
            rows.append(mains[-1])
            for line in b.lines:
                rows.append(["", line.item.hsn, "", line.item.name, line.detail, money(line.quantity), money(line.rate), money(line.discount),
                             money(line.net - (line.amounts[0] + line.amounts[1] + line.amounts[2]))])
        return rows + total(mains, range(5, 9), 9)[-1:]

    def gst(self, registered, start, end):
        rows = []
        for b in self.bills(start, end, lambda p: (len(p.gstin) > 1) == registered):
            groups = {}
            for line in b.lines:
                groups.setdefault((line.taxes[2], line.taxes[0], line.taxes[1]), []).append(line)
            for taxes, lines in groups.items():
                add = lambda figure: money(sum((dec(figure(line)) for line in lines), Decimal(0)))
                igst, cgst, sgst = taxes
                cells = [b.bill_number, b.day.strftime(FAST), b.party.name, b.party.gstin,
                         "%02d-%s" % (b.place, PLACES[b.place]) if b.place else "%02d-%s" % (b.party.state, b.party.city),
                         add(lambda l: l.amount + l.share), number(igst), add(lambda l: l.amounts[2]), number(cgst), add(lambda l: l.amounts[0]),
                         number(sgst), add(lambda l: l.amounts[1]), add(lambda l: l.net)]
                rows.append(((b.day, b.bill_number, b.party.gstin, taxes), cells))
        rows = [cells for _, cells in sorted(rows, key=lambda r: r[0])]
        return total(rows, (5, 7, 9, 11, 12), 13) if rows else []

    def sales(self):
        s, everything = self.s, self.bills()
        self.show("SALEBILLSUMMARY", self.bill_register(everything))
        october = datetime.date(2026, 10, 1), datetime.date(2026, 10, 30)
        self.show("SALEBILLSUMMARY", self.bill_register(self.bills(*october)), *october)
        party = everything[-1].party
        self.show("SALEBILLSUMMARY", self.bill_register(self.bills(keep=lambda p: p is party)), fields=[("party", party.code)])
        area = next(p.area for p in self.books.parties if p.group == DEBTORS and p.area)
        self.show("SALEBILLSUMMARY", self.bill_register(self.bills(keep=lambda p: p.area == area)), fields=[("city", area.lower())])
        self.show("slblreg", self.detailed_register(everything))
        for month in range(12):
            start = datetime.date(2026 + (month + 3) // 12, (month + 3) % 12 + 1, 1)
            end = start.replace(day=28 if start.month == 2 else calendar.monthrange(start.year, start.month)[1])
            self.show("GSTR1-RD", self.gst(True, start, end), start)
            self.show("GSTR1-URD", self.gst(False, start, end), start)

    # Offers, challans, receipts

    def asked(self, vouchers, start, end, party):
        """What registers that obey dates and party list, by date."""
        found = [v for v in vouchers.values() if start <= v.day <= end and (not party or v.party is party)]
        return sorted(found, key=lambda v: (v.day, v.number))

    def registers(self, plain, detailed, rows, vouchers):
        """Those that list everything, and those beside them: of a month, of a party in the second half of the year."""
        def show(menu, number_of_rows, found, *narrowed, **fields):
            self.show(menu, rows(found)[number_of_rows] if found else [], *narrowed, **fields)

        everything = sorted(vouchers.values(), key=lambda v: v.number)
        show(plain[0], 0, everything)
        show(detailed[0], 1, everything)
        october, second = [datetime.date(2026, 10, d) for d in (1, 31)], [datetime.date(2026, 10, 1), self.today]
        found = self.asked(vouchers, *october, None)
        lines = rows(found)[0] if found else []
        self.show(plain[1], [line + [self.standing(v)] for line, v in zip(lines, found)] + lines[-1:], *october)
        party = everything[-1].party
        show(detailed[1], 1, self.asked(vouchers, *second, party), *second, fields=[("party", party.code)])

    def standing(self, source):
        made = source.made
        return "Open" if not made else made.bill_number if made.book == "SA" else "CH %d" % made.challan_number

    def offers(self, found):
        mains, rows = [], []
        for q in found:
            figures = [q.total, *q.taxes, q.net]
            mains.append([str(q.number), q.day.strftime(FAST), q.party.name, number(q.quantity), *map(money, figures)])
            rows.append([str(q.number), q.day.strftime(DETAIL), q.party.name, money(q.quantity), *map(money, figures)])
            for line in q.lines:
                rows.append([str(q.number), q.day.strftime(DETAIL), "%s %s" % (line.item.name, line.unit), money(line.quantity), money(line.net),
                             *map(money, line.amounts), money(line.net)])
        last = total([r[:3] + [money(float(r[3]))] + r[4:] for r in mains], range(3, 9), 9)[-1:]
        return mains + last, rows + last

    def challans(self, found):
        mains, rows = [], []
        for c in found:
            figures = [c.quantity, c.value, c.charges, c.off]
            mains.append([str(c.number), c.day.strftime(FAST), c.party.name, *map(number, figures), money(c.net)])
            rows.append([str(c.number), c.day.strftime(DETAIL), c.party.name, *map(money, figures), money(c.net)])
            for line in c.lines:
                rows.append([str(c.number), c.day.strftime(DETAIL), "%s %s" % (line.item.name, line.unit), money(line.quantity),
                             money(line.rate * line.quantity), number(line.rate), "0", None])
        last = total([r[:3] + [money(float(x)) for x in r[3:]] for r in mains], range(3, 8), 8)[-1:]
        return mains + last, rows + last

    def receipts(self):
        found = sorted(self.books.money["RC"].values(), key=lambda m: (m.day, m.number))
        rows = lambda kept: total([[str(m.number), m.day.strftime(FAST), "%s %s" % (m.party.name, m.party.area), money(m.amount), None]
                                   for m in kept], [3], 5)
        self.show("recipt", rows(found))
        party = found[0].party
        self.show("recipt", rows([m for m in found if m.party is party]), fields=[("party", party.code)])

    # Purchases, payments, and the books by day

    def purchases(self):
        rows = [[str(b.number), b.day.strftime(FAST), b.bill_number, b.day.strftime(FAST), b.party.name, b.party.gstin, money(b.taxable),
                 *map(money, b.taxes), money(b.rounding), money(b.net), self.mark(b)] for b in sorted(self.books.bills["PU"].values(), key=lambda b: (b.day, b.number))]
        self.show("PURREG", total(rows, range(6, 12), 13))

    def notes(self):
        """A line a kind with its sums, its notes under it; kinds are not summed together."""
        rows = []
        for book in ("PR", "SD", "SR"):
            notes = sorted(self.books.bills[book].values(), key=lambda n: (n.day, n.number))
            figures = lambda n: [n.taxable, *n.taxes, n.rounding, n.net]
            if notes:
                rows.append(["", "", KINDS[book], "", "", "", ""] + [money(sum((dec(x) for x in column), Decimal(0))) for column in zip(*map(figures, notes))])
            rows += [[n.bill_number, n.day.strftime(DETAIL), n.party.name, n.party.gstin, self.against(n), n.originals[0].day.strftime(DETAIL),
                      REASONS[n.reason - 1], *map(money, figures(n))] for n in notes]
        self.show("NOTEREG", rows)

    def against(self, n):
        return n.originals[0].bill_number + (" +%d" % (len(n.originals) - 1) if n.originals[1:] else "")

    def payments(self):
        rows = [[str(m.number), m.day.strftime(FAST), "%s %s" % (m.party.name, m.party.area), self.books.name(m.place),
                 m.mode or "Cash", m.cheque, money(m.amount), m.narration]
                for m in sorted(self.books.money["PY"].values(), key=lambda m: (m.day, m.number))]
        self.show("PAYREG", total(rows, [6], 8))

    def incomes_and_expenses(self):
        found = [m for book in ("IC", "EP") for m in self.books.money[book].values()]
        rows = [[str(m.number), m.day.strftime(FAST), KINDS[m.book], m.party.name, self.books.name(m.place), m.mode or "Cash", m.cheque,
                 *(money(m.amount) if m.book == book else "" for book in ("IC", "EP")), m.narration]
                for m in sorted(found, key=lambda m: (m.day, m.number, m.order))]
        sums = [money(sum((dec(m.amount) for m in found if m.book == book), Decimal(0))) for book in ("IC", "EP")]
        self.show("INEXREG", rows + [["Total :"] + [""] * 6 + sums + [""]])

    def taxes_at_source(self):
        found = sorted((m for kept in self.books.money.values() for m in kept.values() if m.tds), key=lambda m: (m.day, m.book, m.number))
        pan = lambda p: p.gstin[2:12] if p and len(p.gstin) == 15 else None
        rows = [((m.day, m.book, m.number), [str(m.number), m.day.strftime(FAST), KINDS[m.book], m.party.name, pan(m.party),
                 self.books.name(m.tds_account), money(m.amount), money(m.tds)]) for m in found]
        parties = {p.code: p for p in self.books.parties}
        kept_back = {next(p.code for p in self.books.parties if p.group == group): side
                     for group, side, book in ((ADVANCES, "D", "RC"), (DUTIES, "C", "PY")) if book in self.taxed}
        for j in (j for kept in self.books.journals.values() for j in kept.values()):
            for place, e in enumerate(j.entries):
                if kept_back.get(e.account) == e.side:
                    others = [o for o in j.entries if o is not e]
                    of = max(others, key=lambda o: (o.account in parties and parties[o.account].group in (DEBTORS, CREDITORS), o.amount))
                    rows.append(((j.day, j.book, j.number, place), [str(j.number), j.day.strftime(FAST), KINDS[j.book], self.books.name(of.account),
                                 pan(parties.get(of.account)), self.books.name(e.account), money(of.amount), money(e.amount)]))
        rows = [row for _, row in sorted(rows, key=lambda r: r[0])]
        self.show("TDSREG", total(rows, (6, 7), 8) if rows else [])

    def journals(self):
        rows, mains = [], []
        for j in sorted((j for kept in self.books.journals.values() for j in kept.values()), key=lambda j: (j.day, j.book, j.number)):
            entries = self.books.rows(j)
            sides = [money(sum((r.amount for r in entries if r.side == side), Decimal(0))) for side in "DC"]
            mains.append([j.day.strftime(DETAIL), KINDS[j.book], str(j.number), j.reference, j.narration, *sides])
            rows.append(mains[-1])
            rows += [["", "", "", "", self.books.name(r.account) + (" : " + r.narration if len(r.narration) > 1 else ""),
                      *(money(r.amount) if r.side == side else "" for side in "DC")] for r in entries]
        self.show("JVREG", rows + total(mains, (5, 6), 7)[-1:])

    def cash_book(self, menu, code, start, end):
        """A line a day with what stood in the account before and after, and its entries, debits first."""
        found = sorted((r for r in self.ledger if r.account == code and start <= r.day <= end), key=lambda r: (r.day, r.side == "C", r.number, r.book))
        side = lambda rows, letter: sum((r.amount for r in rows if r.side == letter), Decimal(0))
        mains, rows = [], []
        for day in sorted({r.day for r in found}):
            entries = [r for r in found if r.day == day]
            closing = self.books.balance(code, self.ledger, day)
            received, paid = side(entries, "D"), side(entries, "C")
            mains.append([day.strftime(DETAIL), "", "", self.books.name(code), "", *map(money, (closing - received + paid, received, paid, closing))])
            rows.append(mains[-1])
            for r in entries:
                amount = money(r.amount)
                rows.append(["", str(r.number), r.book, self.books.name(r.against) + (" : " + r.narration if len(r.narration) > 1 else ""), r.cheque or r.reference, "",
                             amount if r.side == "D" else "", amount if r.side == "C" else "", ""])
        self.show(menu, rows + total(mains, (6, 7), 9)[-1:], start, end, fields=[("party", code)])

    def day_book(self, start, end, party=None):
        books = self.books
        touches = lambda v: not party or getattr(v, "party", None) is party or any(r.account == party.code for r in books.rows(v))
        vouchers = [v for kept in (*books.bills.values(), books.challans, *books.money.values(), *books.journals.values()) for v in kept.values()
                    if start <= v.day <= end and touches(v)]
        mains, rows = [], []
        for v in sorted(vouchers, key=lambda v: (v.day, v.book, v.number)):
            entries = books.rows(v)
            paper = str(v.challan_number) if v.book == "CH" else getattr(v, "bill_number", getattr(v, "reference", ""))
            sides = [money(sum((r.amount for r in entries if r.side == side), Decimal(0))) for side in "DC"]
            mains.append([v.day.strftime(DETAIL), KINDS[v.book], str(v.number), paper, v.narration if v.book in ("JV", "CN") else v.party.name, *sides])
            rows.append(mains[-1])
            rows += [["", "", "", "", books.name(r.account), *(money(r.amount) if r.side == side else "" for side in "DC")] for r in entries] or [[""] * 7]
        self.show("DAYBOOK", rows + total(mains, (5, 6), 7)[-1:], start, end, fields=[("party", party.code)] if party else ())

    def books_by_day(self):
        self.purchases()
        self.notes()
        self.payments()
        self.incomes_and_expenses()
        self.taxes_at_source()
        self.journals()
        bank = next(p for p in self.books.parties if p.group == BANKS)
        self.cash_book("CASHBOOK", CASH, PERIOD[0], self.today)
        self.cash_book("BANKBOOK", bank.code, datetime.date(2026, 10, 1), self.today)
        self.day_book(datetime.date(2026, 10, 1), datetime.date(2026, 10, 31))
        self.day_book(PERIOD[0], self.today, self.bills()[-1].party)

    # What is owed

    def owed(self, party, end):
        return [[day.strftime(DETAIL), reference, money(amount), money(paid), money(amount - paid), str((end - day).days)]
                for day, reference, amount, paid, _ in self.books.owed(party, self.ledger, end)]

    def outstanding(self, end):
        mains, rows = [], []
        for p in sorted((p for p in self.books.parties if p.group == DEBTORS), key=named):
            bills = self.owed(p, end) if self.books.balance(p.code, self.ledger) > 0 else []
            if bills:
                sums = [money(sum((Decimal(b[c]) for b in bills), Decimal(0))) for c in (2, 3, 4)]
                mains.append([p.name, p.area, *sums, p.phone])
                rows += [mains[-1]] + bills
        last = total(mains, (2, 3, 4), 6)[-1:]
        self.show("ONACRCV", mains + last, None, end, answer="No")
        self.show("ONACRCV", rows + last, None, end, answer="Yes")

    def closing(self, end):
        rows = []
        for p in sorted((p for p in self.books.parties if p.group == DEBTORS), key=named):
            balance = self.books.balance(p.code, self.ledger, end)
            rows.append([p.code, p.name, money(max(balance, Decimal(0))), money(max(-balance, Decimal(0))), p.area, p.phone])
        self.show("accmastclbl", total(rows, (2, 3), 6), None, end)

    def by_group(self, start, end):
        """The debtors' opening balances, what moved in the period, and what stands then."""
        rows = []
        for p in sorted((p for p in self.books.parties if p.group == DEBTORS), key=named):
            moved = [sum((r.amount for r in self.ledger if r.account == p.code and r.side == side and start <= r.day <= end), Decimal(0))
                     for side in "DC"]
            opening, closing = (self.books.balance(p.code, self.ledger, day) for day in (start - datetime.timedelta(1), end))
            if opening or any(moved):
                rows.append(["SUNDRY DEBITORS", p.code, p.name, money(opening), *map(money, moved), money(max(closing, Decimal(0))),
                             money(max(-closing, Decimal(0)))])
        self.show("CLBALGROUP", total(rows, range(3, 8), 8), start, end, fields=[("category", str(DEBTORS))])

    # Lists of masters

    def lists(self):
        books = self.books
        self.show("accmastADD", [[p.code, p.name, "%s %s" % p.address, p.area, p.city, p.phone, p.gstin, p.gstin[2:12] if len(p.gstin) == 15 else None]
                                       for p in sorted((p for p in books.parties if p.group == DEBTORS), key=named)])
        self.show("dept", [[c.code, c.name, c.hsn, c.description, money(c.tax)] for c in sorted(books.categories, key=lambda c: c.name)])
        names = {c.code: c.name for c in books.categories}
        sizes = sorted(((i, u) for i in books.items + [books.misc] for u in i.units), key=lambda x: (x[0].name, x[1].name))
        self.show("priclstprn", [[i.code, i.name, names[i.category], u.name, i.hsn, money(i.tax), money(u.sale), money(u.discount)]
                                         for i, u in sizes], answer="No")

    # The books by statements of their own

    def sums(self):
        s, books = self.s, self.books
        s.note("The books")
        signed = "CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END"
        s.sql("SELECT COUNT(*) FROM (SELECT 1 FROM ALEDGER GROUP BY BOOK_CD, VOUCH_NO HAVING ABS(SUM(%s)) > 0.004) AS GAPS" % signed, "0")
        s.sql("SELECT COUNT(*) FROM ALEDGER", str(len(self.ledger)))
        codes = sorted({r.account for r in self.ledger} | {p.code for p in books.parties})
        for code in codes:
            sides = [sum((r.amount for r in self.ledger if r.account == code and r.side == side), Decimal(0)) for side in "DC"]
            s.sql("SELECT ROUNDED(COALESCE(SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT END), 0), 2), ROUNDED(COALESCE(SUM(CASE VOUCH_TYPE WHEN 'C' THEN VOUCH_AMT END), 0), 2)"
                  " FROM ALEDGER WHERE PARTY_CD = '%s'" % code, "|".join(number(float(x)) for x in sides))
            s.sql("SELECT ROUNDED(CL_BAL, 2) FROM ACCOUNT WHERE ACC_CD = '%s'" % code, number(float(books.balance(code, self.ledger))))
        for book, bills in ((book, bills) for book, bills in books.bills.items() if bills):
            add = lambda figure: number(float(sum((dec(figure(b)) for b in bills.values()), Decimal(0))))
            s.sql("SELECT COUNT(*), ROUNDED(SUM(ITEM_AMT), 2), ROUNDED(SUM(TCGSTRT), 2), ROUNDED(SUM(TSGSTRT), 2), ROUNDED(SUM(TIGSTRT), 2),"
                  " ROUNDED(SUM(ROUND_OFF), 2), SUM(NET_AMT), SUM(CHLN_NO), SUM(CR_DAYS) FROM SALE WHERE BOOK_CD = '%s'" % book,
                  "|".join([str(len(bills)), add(lambda b: b.value), *(add(lambda b, i=i: b.taxes[i]) for i in range(3)), add(lambda b: b.rounding),
                            add(lambda b: b.net), add(lambda b: b.challan), add(lambda b: b.days)]))


def expect_all(year):
    r = Reports(year)
    r.sums()
    year.script("menu BOOKSCHECK", "key Alt+S", 'expect message "Everything Agrees In These Books"', "press cmdclose", "expect screen frmmain")
    r.sales()
    r.registers(("QUOTREG", "QUOTASKED"), ("QUOTREGDTL", "QUOTASKEDDTL"), r.offers, r.books.quotations)
    r.registers(("CHLNRPT", "CHLNASKED"), ("CHLNRPTDTL", "CHLNASKEDDTL"), r.challans, r.books.challans)
    r.receipts()
    r.books_by_day()
    r.outstanding(year.today)
    r.outstanding(datetime.date(2026, 9, 15))
    r.closing(year.today)
    r.closing(datetime.date(2026, 8, 15))
    r.by_group(datetime.date(2026, 8, 15), datetime.date(2026, 11, 30))
    r.lists()
    year.script("expect message none")
