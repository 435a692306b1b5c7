"""A year of the shop from a seed: what happens on which day, done in the books and by the clerk alike."""
import datetime
import random
from dataclasses import replace

from books import (ADVANCES, BANKS, CAPITAL, CASH, CREDITORS, DEBTORS, DUTIES, EXPENSES, INCOMES, OVERDRAFTS, PERIOD, Bill, Books, Category, Challan, Entry, Item,
                   Journal, Line, Money, Party, Quotation, Series, Unit)
from clerk import MENUS, MISC_WORK, Clerk
from rules import bill_date_passes, bill_line, dec, rounded
from script import Script
from trade import Trade, partners

RATES = [0, 5, 12, 18, 28]
KINDS = ["GRAIN BAG", "SPICE BOX", "LADDER", "LAMP", "PAINT", "HAMMER", "ROPE", "BASIN"]
WORDS = ["HARSH", "GIRNAR", "NAVRANG", "O'NEIL & SONS", "SHREEJI", "MEHTA", "PARIMAL", "GOKUL", "DHRUV", "MODI"]
PLACES = {24: ["ANAND", "NADIAD", "SURAT"], 27: ["NASHIK", "PUNE"], 8: ["JAIPUR"], 29: ["HUBLI"]}
ACCOUNTS = [("RENT", EXPENSES), ("SALARIES", EXPENSES), ("BANK CHARGES", EXPENSES), ("SCRAP SOLD", INCOMES), ("INTEREST EARNED", INCOMES),
            ("DRAWINGS", CAPITAL), ("CREDIT LINE", OVERDRAFTS), ("TDS RECEIVABLE", ADVANCES), ("TDS PAYABLE", DUTIES)]
UPDATE_IN = 9  # the month of the database update
RESTARTS = 3, 8  # months before which the program is started anew
SERIES = {5: ("SR", "", Series("CN-", 4, 1)), 6: ("SA", "RETAIL", Series("R/{yy}/", 3, 41)), 10: ("SA", "TAX", Series("T{yy}-", 4, 501))}


def rules_of(line):
    """The taxes that its rates make, which a typed one is not."""
    return bill_line(line.quantity, line.rate, line.discount, (0, 0, 0) if line.zero else line.taxes)[1]


class Year(Trade):
    def __init__(self, seed):
        self.rng = random.Random(seed)
        self.books, self.script = Books(), Script()
        self.clerk = Clerk(self.script, self.books)
        self.today = datetime.date(2026, 4, 1)

    def play(self):
        self.clerk.company("YEAR STORES")
        self.masters()
        for month in range(12):
            if month in RESTARTS:
                self.clerk.start_again("YEAR STORES", self.today)
                self.newly_registered()
            self.script.note("Month %d" % (month + 1))
            if month in SERIES:
                self.clerk.series(*SERIES[month])
            self.month(datetime.date(2026 + (month + 3) // 12, (month + 3) % 12 + 1, 1))
        self.clerk.post()
        return self

    # Masters

    def masters(self):
        rng, books = self.rng, self.books
        made = [Category("E%03d" % (n + 2), "%s AT %d" % (word, rate), str(8400 + n), "", rate)
                for n, (word, rate) in enumerate(zip(["FOOD", "SPICES", "TOOLS", "ELECTRIC", "LUXURY"], RATES))]
        books.categories += made
        for n in range(40):
            category = made[n % 5]
            price = rng.choice([rng.randrange(20, 900), rng.randrange(400, 90000) / 100, rng.randrange(20, 200) / 4])
            units = [Unit("NOS", rounded(price * 0.7, 2), price, rng.choice([0, 0, 0, 5, 12.5]))]
            if n % 5 == 2:
                units[0].name = "BOX"
                units.append(Unit("PCS", rounded(price * 0.07, 2), rounded(price / 8, 2), rng.choice([0, 3])))
            books.items.append(Item("I%07d" % (n + 1), "%s %02d" % (KINDS[n % 8], n + 1), category.code, category.tax, category.hsn, units))
        books.parties = [self.party(n) for n in range(28)]
        books.parties += [Party("A%05d" % (29 + n), name, group, 24, "", 0) for n, (name, group) in enumerate(ACCOUNTS)]
        books.parties += partners(len(books.parties) + 1)
        self.clerk.categories(made)
        self.clerk.items(books.items)
        self.clerk.parties(books.parties)

    def party(self, n):
        rng = self.rng
        group = BANKS if n == 26 else CREDITORS if n % 4 == 3 else DEBTORS
        state = 24 if n == 0 or group == BANKS else rng.choice([24, 24, 24, 27, 27, 8, 29])
        place = rng.choice(PLACES[state])
        gstin = "" if n == 0 else ["%02dABCDE%04dF1Z5" % (state, n), ".", "", "%02dPQRST%04dK2Z7" % (state, n), "."][n % 5]
        opening = rng.choice([0, 0, rng.randrange(100, 90000) / 4]) * (-1 if group == CREDITORS else 1)
        party = Party("A%05d" % (n + 1), "CASH SALE" if n == 0 else "%s %02d" % (WORDS[n % 10], n), group, state, gstin, opening, rng.choice([0, 15, 30]))
        if n % 6 != 4:
            party.address, party.city, party.area, party.phone = ("%d STATION ROAD" % (n + 3), "NEAR BUS"), place, place + rng.choice([" EAST", " WEST"]), "98250%05d" % n
        return party

    def newcomers(self):
        self.clerk.leave()
        new = [self.party(n) for n in (32, 33)]
        for n, p in enumerate(new, len(self.books.parties) + 1):
            p.code = "A%05d" % n
            p.group = DEBTORS
            p.opening = abs(p.opening)
        self.books.parties += new
        self.clerk.parties(new)

    def newly_registered(self):
        p = next(p for p in self.books.parties if p.group == DEBTORS and len(p.gstin) < 2 and p.city)
        p.gstin = "%02dNEWLY%sF1Z5" % (p.state, p.code[2:])
        self.clerk.register(p)

    # Months and days

    def month(self, first):
        rng = self.rng
        after = (first + datetime.timedelta(32)).replace(day=1)
        days = sorted(rng.sample(range((after - first).days), 9))
        entries = ["bill"] * 25 + ["purchase"] * 3 + ["receipt"] * 5 + ["payment"] * 2 + ["challan", "quotation", "expense"] * 2
        entries += ["export", "abroad", rng.choice(["zone", "elsewhere"])]
        entries += ["income", "journal", "journal", "contra", "note", rng.choice(["debit_note", "purchase_return"])]
        entries += ["order", "order", "order_sent"] + rng.sample(["mend_note", "mend_journal", "mend_paid", "note_of_two", "delete_note", "delete_journal", "delete_paid"], 4)
        entries += rng.sample(["mend", "head", "drop", "add"], 3) + rng.choice([["delete"], []]) + [rng.choice(["mend_challan", "mend_quotation", "mend_money"])]
        for kind in ("challan", "money", "quotation", "last"):
            if rng.random() < 0.25:
                entries.append("delete_" + kind)
        rng.shuffle(entries)
        share = [entries[i::len(days)] for i in range(len(days))]
        for day, work in zip(days, share):
            self.today = first + datetime.timedelta(day)
            self.clerk.s("clock %s 10:%02d" % (self.today, day))
            for what in sorted(work):
                getattr(self, what)()
            self.clerk.leave()
            self.script("expect message none")
            if first.month == UPDATE_IN and day == days[4]:
                self.clerk.update()
                self.books.repair()
                self.newcomers()

    def choose(self, group):
        return self.rng.choice([p for p in self.books.parties if p.group == group and not p.abroad])

    def line(self, party, purchase=False):
        rng = self.rng
        if rng.random() < 0.08 and not purchase:
            item, unit = self.books.misc, self.books.misc.units[0]
        else:
            item = rng.choice(self.books.items)
            unit = rng.choice(item.units)
        quantity = rng.choice([1, 2, 3, 7, 10, 12, 0.5, 2.5, rng.randrange(1, 60), rng.randrange(5, 900) / 100])
        rate = unit.purchase if purchase else unit.sale
        if rate == 0 or rng.random() < 0.25:
            rate = rng.choice([33.33, 100, 299.95, 78.25, rng.randrange(500, 99999) / 100])
        discount = rng.choice([0, 0, 10, 7.5, 100]) if rng.random() < 0.2 else 0 if purchase else unit.discount
        detail = rng.choice(["", "", "FOR THE GODOWN"]) or (MISC_WORK if item is self.books.misc else "")
        line = Line(item, unit.name, quantity, rate, discount, self.books.taxes(item, party), detail)
        if not purchase and item.tax and rng.random() < 0.08:
            line.taxes = (7, line.taxes[1], 0) if line.taxes[0] else (0, 0, 15)
        line.work_out()
        if line.taxes[2] and rng.random() < 0.15:
            line.typed = rounded(line.amounts[2] + 0.5, 2)
            line.work_out(line.typed)
        return line

    def some_day(self):
        """Today, or some days before; a day that the screen refuses is tried and given up."""
        day = self.today - datetime.timedelta(self.rng.choice([0, 0, 0, 1, 2, 5]))
        day = max(day, datetime.date(2026, 4, 1))
        return day if bill_date_passes(day, *PERIOD) else day - datetime.timedelta(1)

    def refused_day(self):
        day = self.today - datetime.timedelta(self.today.day)
        return None if bill_date_passes(day, *PERIOD) else day

    def bill(self, book="SA"):
        rng, books = self.rng, self.books
        party = self.choose(CREDITORS if book == "PU" else DEBTORS)
        kind = "RETAIL" if book == "SA" and party.name == "CASH SALE" else "TAX"
        number = books.next(books.bills[book])
        theirs = "PB/%d" % (number * 7 + 100)
        b = Bill(book, number, self.some_day(), party, kind, books.next_bill_number(kind) if book == "SA" else theirs, party.days,
                 [self.line(party, book == "PU") for _ in range(rng.choice([1, 1, 2, 2, 3, 4]))], rng.choice(["", "", "", "BY ROAD"]), number if book == "SA" else 0)
        if book == "SA":
            b.destination = party.area
            if rng.random() < 0.2:
                b.transport, b.lorry, b.parcels = rng.choice(["GIRNAR CARRIERS", "MARUTI"]), "LR %d" % number, rng.choice(["", "2 BOXES"])
                b.narration = rng.choice([b.narration, "GOODS FOR THE NEW SHOP, THE SECOND FLOOR AND THE YARD"])
        b.reverse = rng.random() < (0.3 if book == "PU" else 0.04)
        b.ineligible = book == "PU" and rng.random() < 0.2
        if sum(line.amount for line in b.lines) > 50 and rng.random() < 0.15:
            b.percent = rng.choice([0, 5, 12.5])
            b.charges = (0 if b.percent else rng.choice([0, 9.99, 40]), rng.choice([0, 20, 33.33]), rng.choice([0, 150, 99.99]), rng.choice([0, 0, 7.5]))
        b.work_out()
        books.bills[book][number] = b
        books.saved(b)
        self.clerk.bill(b, self.today, self.refused_day() if rng.random() < 0.3 else None)

    def purchase(self):
        self.bill("PU")

    def some_bill(self, lines=1, marked=False):
        """One that goes by the party's state alone, unless such a one may be marked otherwise; never one in a currency."""
        found = [b for b in self.books.bills["SA"].values()
                 if len(b.lines) >= lines and not b.currency and (marked or not (b.kind or b.place)) and not self.books.is_bound(b)]
        return self.rng.choice(found) if found else None

    def mended_bill(self, b):
        b.challan = self.number_of(b.sources)  # that of the bill itself is not shown again
        b.work_out()
        self.books.saved(b)

    def mend(self):
        if b := self.some_bill(marked=True):
            index = self.rng.randrange(len(b.lines))
            line = b.lines[index]
            was = line.quantity, line.discount
            line.quantity, line.discount = self.rng.choice([1, 4, 6.25]), self.rng.choice([0, 2.5, line.discount])
            line.work_out()
            if not b.bears_charges():
                line.quantity, line.discount = was
                line.work_out()
                return b.work_out()
            self.mended_bill(b)
            self.clerk.mend_line(b, index)

    def head(self):
        if b := self.some_bill():
            b.day, b.narration, was = self.some_day(), "CHANGED AT NOON", b.party
            other = self.rng.choice([p for p in self.books.parties if p.group == DEBTORS and p.state == was.state and not p.abroad])
            if self.rng.random() < 0.5 and not b.sources:  # the number goes on, and so do days and destination
                b.party = other
            self.mended_bill(b)
            self.clerk.mend_head(b, was, b.party if b.party is not was else None)

    def drop(self):
        if b := self.some_bill(2):
            index = self.rng.randrange(1, len(b.lines))
            gone = b.lines.pop(index)
            if not b.bears_charges():
                return b.lines.insert(index, gone)
            b.lines[0].work_out()  # it is stored again, with the taxes of its rates
            self.mended_bill(b)
            self.clerk.drop_line(b, index)

    def add(self):
        if b := self.some_bill():
            b.lines.append(self.line(b.party))
            self.mended_bill(b)
            self.clerk.add_line(b)

    def delete(self):
        if b := self.some_bill(marked=True):
            del self.books.bills["SA"][b.number]
            self.books.gone(b)
            self.clerk.delete("SALE", b)

    def delete_last(self):
        bills = self.books.bills["SA"]
        if bills and not self.books.is_bound(bills[max(bills)]):
            b = bills.pop(max(bills))
            self.books.gone(b)
            self.clerk.delete("SALE", b)

    # Notes against bills

    def note(self, book="SR", most=1):
        """Part of what some bills of a party hold, at their rates; each bill is written against once."""
        rng, books, day = self.rng, self.books, self.some_day()
        bills = books.bills["PU" if book == "PR" else "SA"].values()
        numbers = [b.bill_number for b in bills]
        against = [bill for notes in ("SR", "SD", "PR") for n in books.bills[notes].values() for bill in n.originals]
        found = [b for b in bills if b not in against and b.net > 0 and b.day <= day and numbers.count(b.bill_number) == 1
                 and all(l.amount > 0 and l.typed is None and (any(b.charges) or l.amounts == rules_of(l)) for l in b.lines)]
        if not found:
            return
        b = rng.choice(found)
        kind_of = lambda bill: (bill.party.code, bill.reverse, bill.ineligible, bill.kind, bill.place, bill.currency, bill.customs)
        originals = [b] + [other for other in found if other is not b and kind_of(other) == kind_of(b)][:most - 1]
        lines, taken = [], [line for bill in originals for line in bill.lines]
        for line in taken:
            line.taken = rng.choice([line.quantity, min(1, line.quantity), rounded(line.quantity / 2, 2)])
            new = replace(line, quantity=line.taken)
            new.work_out()
            lines.append(new)
        number = books.next(books.bills[book])
        n = Bill(book, number, day, b.party, "TAX", books.next_bill_number("TAX", book), b.party.days if book == "SD" else 0, lines, rng.choice(["", "AS TALKED OVER"]),
                 originals=originals, reason=rng.choice([1, 3]), taken=taken, reverse=b.reverse, ineligible=b.ineligible,
                 kind=b.kind, place=b.place, currency=b.currency, customs=b.customs)
        n.work_out()
        if n.net == 0:
            return
        books.bills[book][number] = n
        if book == "SR":
            books.settle(n)
        books.saved(n)
        self.clerk.note(n, self.today)

    def note_of_two(self):
        self.note(most=2)

    def some_note(self):
        found = [n for book in ("SR", "SD", "PR") for n in self.books.bills[book].values()]
        return self.rng.choice(found) if found else None

    def mend_note(self):
        """Another part of what the first line's bill holds; none of its lines comes back when it stands for nothing."""
        n = self.some_note()
        if n and all(line.quantity for line in n.lines):
            n.lines[0].quantity = self.rng.choice([n.taken[0].quantity, min(1, n.taken[0].quantity)])
            n.lines[0].work_out()
            n.narration = "LOOKED AT AGAIN"
            n.work_out()
            if n.book == "SR":
                self.books.settle(n)
            self.books.saved(n)
            self.clerk.mend_note(n)

    def delete_note(self):
        if n := self.some_note():
            del self.books.bills[n.book][n.number]
            self.clerk.delete(MENUS[n.book], n)

    def debit_note(self):
        self.note("SD")

    def purchase_return(self):
        self.note("PR")

    def plain_lines(self, party, most):
        lines = []
        for _ in range(self.rng.randrange(1, most)):
            item = self.rng.choice([i for i in self.books.items if len(i.units) == 1])
            lines.append(Line(item, item.units[0].name, self.rng.randrange(1, 20), item.units[0].sale, item.units[0].discount, self.books.taxes(item, party)))
        return lines

    def challan(self):
        party, kind = self.choose(DEBTORS), self.rng.choice(["DC", "JOB"])
        c = Challan(self.books.next(self.books.challans), self.today, party, kind, self.books.next_challan_number(kind),
                    self.plain_lines(party, 4), self.rng.choice([0, 10, 2.5]), self.rng.choice([0, 25.5]), self.rng.choice(["", "ON APPROVAL"]))
        c.work_out()
        self.books.challans[c.number] = c
        self.books.saved(c)
        self.clerk.challan(c)

    def mended(self, vouchers):
        v = self.rng.choice(list(vouchers.values()))
        v.lines[0].quantity = self.rng.randrange(21, 30)
        v.work_out()
        return v

    # What a party has been offered and sent becomes a challan or a bill

    def order(self):
        """Up to two challans and offers of a party in one bill; into a challan goes an offer."""
        rng, books = self.rng, self.books
        found = books.open_sources()
        if found:
            first = rng.choice(found)
            sources = [first] + [s for s in found if s is not first and s.party is first.party][:rng.choice([0, 1])]
            number = books.next(books.bills["SA"])
            lines = [line for s in sources for line in self.lines_of(s)]
            b = Bill("SA", number, self.some_day(), first.party, "TAX", books.next_bill_number("TAX"), first.party.days, lines,
                     challan=self.number_of(sources) if any(s.book == "CH" for s in sources) else number, destination=first.party.area, sources=sources)
            b.charges = (0, 0, 0, sum(s.charges for s in sources if s.book == "CH"))
            b.work_out()
            self.clerk.order(b, self.today)
            books.bills["SA"][number] = b
            books.made(b)

    @staticmethod
    def number_of(sources):
        """For one challan there is room."""
        numbers = [s.challan_number for s in sources if s.book == "CH"]
        return numbers[0] if len(numbers) == 1 else 0

    def lines_of(self, source):
        """At the tax of today; a challan's lines at its discount."""
        lines = []
        for line in source.lines:
            lines.append(Line(line.item, line.unit, line.quantity, line.rate, source.discount if source.book == "CH" else line.discount,
                              self.books.taxes(line.item, source.party)))
            lines[-1].work_out()
        return lines

    def order_sent(self):
        """At rates without their discount; of those that are paise then."""
        left = lambda line, places=2: rounded(line.rate * (100 - line.discount) / 100, places)
        found = [q for q in self.books.open_sources() if q.book == "QT" and all(left(line) == left(line, 4) for line in q.lines)]
        if found:
            q = self.rng.choice(found)
            lines = [replace(line, rate=left(line), discount=0) for line in q.lines]
            c = Challan(self.books.next(self.books.challans), self.today, q.party, "DC", self.books.next_challan_number("DC"), lines,
                        self.rng.choice([0, 5]), sources=[q])
            c.work_out()
            self.clerk.order_sent(c)
            self.books.challans[c.number] = c
            self.books.made(c)

    def mend_challan(self):
        if self.books.challans:
            c = self.mended(self.books.challans)
            self.books.saved(c)
            self.clerk.mend_challan(c)

    def delete_challan(self):
        self.delete_some("CH", self.books.challans)


    def delete_some(self, menu, vouchers):
        found = [v for v in vouchers.values() if not v.made]
        if found:
            v = vouchers.pop(self.rng.choice(found).number)
            self.books.gone(v)
            self.clerk.delete(menu, v)

    def quotation(self):
        party = self.choose(DEBTORS)
        q = Quotation(self.books.next(self.books.quotations), self.today, party, self.plain_lines(party, 5))
        q.work_out()
        self.books.quotations[q.number] = q
        self.clerk.quotation(q)

    def mend_quotation(self):
        if self.books.quotations:
            self.clerk.mend_quotation(self.mended(self.books.quotations))

    def delete_quotation(self):
        self.delete_some("QUOTATION", self.books.quotations)

    def receipt(self, book="RC", group=DEBTORS):
        rng, books = self.rng, self.books
        place = rng.choice([CASH, CASH, next(p.code for p in books.parties if p.group == BANKS)])
        m = Money(book, books.next(books.money[book]), self.some_day(), place, self.choose(group),
                  rng.choice([rng.randrange(1, 300) * 100, rng.randrange(100, 900000) / 100]), rng.choice(["", "PART OF IT"]))
        if place != CASH:
            m.mode, m.cheque = rng.choice(["Cheque", "UPI", "NEFT / RTGS", "Card"]), str(rng.randrange(100000, 999999))
            if book in ("RC", "PY") and rng.random() < 0.4:
                m.tds = rounded(m.amount / 10, 2)
                m.tds_account = next(p.code for p in books.parties if p.group == (ADVANCES if book == "RC" else DUTIES))
            if book == "RC":
                self.settle(m)
        m.order = sum(len(kept) for kept in books.money.values())
        books.money[book][m.number] = m
        books.saved(m)
        self.clerk.money(m, self.today)

    def settle(self, m):
        """One of the party's open bills, whole or as far as the money goes. Posting alone puts a blank before a challan's number.
        What was deleted is not among them, though the ledger has it yet."""
        gone = self.books.left_behind()
        standing = [replace(r, reference=r.reference.strip()) for key, rows in self.books.standing.items() if key not in gone for r in rows]
        found = self.books.owed(m.party, standing, datetime.date.max)
        chosen = [(place, bill) for place, bill in enumerate(found) if bill[4] in self.books.bills["SA"]]
        if chosen:
            place, (_, _, amount, paid, number) = self.rng.choice(chosen)
            m.place_of_bill = place
            m.settles = number, float(min(amount - paid, dec(m.amount) + dec(m.tds)))

    def payment(self):
        self.receipt("PY", CREDITORS)

    def income(self):
        self.receipt("IC", INCOMES)

    def expense(self):
        self.receipt("EP", EXPENSES)

    # Journals

    def journal(self):
        """Some debits against some credits of any accounts; the last makes both sides equal."""
        rng = self.rng
        accounts = rng.sample([p.code for p in self.books.parties if p.group not in (BANKS, OVERDRAFTS)], rng.choice([2, 2, 3, 5]))
        self.write_journal("JV", accounts)

    def contra(self):
        self.write_journal("CN", self.rng.sample([CASH] + [p.code for p in self.books.parties if p.group in (BANKS, OVERDRAFTS)], 2))

    def write_journal(self, book, accounts):
        rng, books = self.rng, self.books
        j = Journal(book, books.next(books.journals[book]), self.some_day(), rng.choice(["", "REF/%d" % rng.randrange(1, 999)]),
                    rng.choice(["", "AS AGREED"]), [])
        open_sides = 0
        for code in accounts[:-1]:
            entry = Entry(code, rng.choice("DC"), rng.randrange(100, 900000) / 100, rng.choice(["", "", "OF THE MONTH"]))
            j.entries.append(entry)
            open_sides = rounded(open_sides + (entry.amount if entry.side == "D" else -entry.amount), 2)
        if open_sides == 0:
            return
        j.entries.append(Entry(accounts[-1], "C" if open_sides > 0 else "D", abs(open_sides)))
        books.journals[book][j.number] = j
        books.saved(j)
        self.clerk.journal(j, self.today)

    def some_journal(self):
        found = [j for kept in self.books.journals.values() for j in kept.values()]
        return self.rng.choice(found) if found else None

    def mend_journal(self):
        j = self.some_journal()
        if j and len(j.entries) == 2:
            for entry in j.entries:
                entry.amount = rounded(entry.amount + 12.5, 2)
            self.books.saved(j)
            self.clerk.mend_journal(j)

    def delete_journal(self):
        if j := self.some_journal():
            del self.books.journals[j.book][j.number], self.books.standing[j.book, j.number]
            self.clerk.delete_journal(j)

    # Money again

    def some_money(self, *books):
        found = [m for book in books for m in self.books.money[book].values()]
        return self.rng.choice(found) if found else None

    def mend_money(self, *books):
        if m := self.some_money(*books or ["RC"]):
            m.amount = rounded((m.amount if m.settles else 0) + self.rng.randrange(100, 900000) / 100, 2)
            m.day = self.some_day()
            self.books.saved(m)
            self.clerk.mend_money(m)

    def delete_money(self, *books):
        if m := self.some_money(*books or ["RC"]):
            del self.books.money[m.book][m.number], self.books.standing[m.book, m.number]
            self.clerk.delete(MENUS[m.book], m)
            self.clerk.balances(m)

    def mend_paid(self):
        self.mend_money("PY", "IC", "EP")

    def delete_paid(self):
        self.delete_money("PY", "IC", "EP")
