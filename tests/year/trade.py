"""What crosses a border in the year: exports, supplies to a zone, another place of supply, imports. Vouchers and keys."""
from books import CREDITORS, DEBTORS, DUTIES, Bill, Line, Party
from rules import number, rounded

# Kinds by the number that is typed: of what we sell, of what we buy.
EXPORT_TAXED, EXPORT, SEZ_TAXED, SEZ, DEEMED = 1, 2, 3, 4, 5
GOODS, SERVICES = 1, 2
NAMES = {"SA": ["", "Export With Tax", "Export, LUT", "SEZ With Tax", "SEZ, LUT", "Deemed Export"],
         "PU": ["", "Import Of Goods", "Import Of Services"]}
PLACES = {8: "Rajasthan", 27: "Maharashtra", 97: "Other Territory"}
CURRENCIES = [None, ("USD", 83.25), ("EUR", 90.4875), ("JPY", 0.5625)]


def partners(first):
    """A customer abroad, a unit of a zone in the own state, a supplier abroad, and whoever takes the customs' tax."""
    made = [("DUBAI TRADERS", DEBTORS, 96, ""), ("KANDLA UNIT", DEBTORS, 24, "24SEZAB0001F1Z5"),
            ("SHENZHEN TOOLS", CREDITORS, 96, ""), ("CUSTOMS HOUSE", DUTIES, 24, "")]
    return [Party("A%05d" % (first + n), name, group, state, gstin, 0, abroad=True) for n, (name, group, state, gstin) in enumerate(made)]


class Trade:
    """Of the year."""

    def partner(self, name):
        return next(p for p in self.books.parties if p.name == name)

    def last_kind(self, book, kinds, party=None):
        found = [b for b in self.books.bills[book].values() if b.kind in kinds and (party is None or b.party is party)]
        return max(found, key=lambda b: b.number).kind if found else None

    def proposed(self, book, party):
        if book == "PU":
            return self.last_kind(book, (GOODS, SERVICES), party) or GOODS
        if party.state == 96:
            return self.last_kind(book, (EXPORT_TAXED, EXPORT)) or EXPORT
        return self.last_kind(book, (SEZ_TAXED, SEZ), party) or 0

    def export(self):
        self.cross("SA", self.partner("DUBAI TRADERS"), self.rng.choice([EXPORT, EXPORT, EXPORT_TAXED]))

    def zone(self):
        self.cross("SA", self.partner("KANDLA UNIT"), self.rng.choice([SEZ, SEZ_TAXED, SEZ_TAXED]))

    def elsewhere(self):
        party = self.choose(DEBTORS)
        self.cross("SA", party, self.rng.choice([0, 0, DEEMED]), self.rng.choice([p for p in PLACES if p != party.state]))

    def abroad(self):
        self.cross("PU", self.partner("SHENZHEN TOOLS"), self.rng.choice([GOODS, GOODS, SERVICES]))

    def cross(self, book, party, kind, place=0):
        rng, books = self.rng, self.books
        integrated = kind not in (0, DEEMED) or book == "PU"
        currency = rng.choice(CURRENCIES) if party.state == 96 else None
        lines = []
        for _ in range(rng.choice([1, 2, 3])):
            item = rng.choice([i for i in books.items if len(i.units) == 1])
            taxes = (0, 0, item.tax) if integrated else books.taxes(item, party, place)
            line = Line(item, item.units[0].name, rng.choice([1, 5, 12, 2.5, rng.randrange(10, 900)]), rng.randrange(100, 40000) / 100,
                        0 if book == "PU" else item.units[0].discount, taxes, zero=book == "SA" and kind in (EXPORT, SEZ))
            if currency:
                line.foreign = line.rate
                line.rate = rounded(line.foreign * currency[1], 6)
            line.work_out()
            if book == "PU" and kind == GOODS and rng.random() < 0.5:
                line.typed = rounded(line.amounts[2] + 12.25, 2)  # customs go by a value of their own
                line.work_out(line.typed)
            lines.append(line)
        n = books.next(books.bills[book])
        b = Bill(book, n, self.some_day(), party, "TAX", books.next_bill_number("TAX") if book == "SA" else "IM/%d" % n, party.days, lines,
                 challan=n if book == "SA" else 0, kind=kind, place=place, currency=currency)
        if book == "SA":
            b.destination = party.area
        if book == "SA" and kind in (EXPORT, EXPORT_TAXED) and rng.random() < 0.5 or book == "PU" and kind == GOODS:
            b.papers = "%07d" % rng.randrange(10 ** 6), b.day
        if book == "PU" and kind == GOODS:
            b.customs = self.partner("CUSTOMS HOUSE").code
        proposed = self.proposed(book, party)
        if book == "SA" and sum(line.amount for line in lines) > 50 and rng.random() < 0.4:
            b.charges = (rng.choice([0, 9.99]), 20, rng.choice([0, 99.99]), 0)
        b.work_out()
        books.bills[book][n] = b
        books.saved(b)
        self.clerk.cross(b, self.today, proposed)


class Border:
    """Of the clerk."""

    def cross(self, b, today, proposed):
        s, ours = self.s, b.book == "SA"
        self.add("SALE" if ours else "PURCHASE", b)
        if b.day != today:
            s.fill("date", b.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(b.party.code.lower(), "Enter Tab Enter")
        s.expect("supply_kind", str(proposed) if proposed else "")
        if ours:
            s.expect("bill_no", b.bill_number)
        else:
            s.type(b.bill_number.lower())
        s.keys("Enter Ctrl+E")
        s("expect focus supply_kind")
        if b.kind != proposed:
            s.fill("supply_kind", str(b.kind))
        s.expect("supply_kind_name", NAMES[b.book][b.kind])
        s.keys("Enter")
        if b.place:
            s.type(str(b.place))
        s.keys("Enter")
        if b.place:
            s.expect("place_name", PLACES[b.place])
        if b.currency:
            s.type(b.currency[0].lower(), "Enter")
            s.type(number(b.currency[1]), "Enter")
        if b.papers:
            s.fill("shipping_bill", b.papers[0])
            s.fill("shipping_date", b.papers[1].strftime("%d%m%Y"))
        if b.customs:
            if b.book not in self.chosen:
                self.chosen.add(b.book)
                s.fill("customs", b.customs.lower(), "Enter")
            s.expect("customs", b.customs)
        s("focus item")
        for line in b.lines:
            self.line_abroad(b, line)
        if any(b.charges):
            self.charges(b)
        else:
            s.keys("PgDn")
        if b.currency:
            s.expect("currency_total", number(b.foreign()))
        self.save(b)

    def line_abroad(self, b, line):
        s = self.s
        s.type(line.item.code.lower(), "Enter Enter Enter")
        s.type(number(line.quantity), "Enter")
        if b.currency:
            s("expect focus currency_item_rate")
            s.fill("currency_item_rate", number(line.foreign), "Enter")
        else:
            s.fill("rate", number(line.rate), "Enter")
        s.keys("Enter")
        if line.typed is not None:
            s("focus igst_amount", "focus igst_rate")
            s.fill("igst_amount", number(line.typed), "Enter")
        s.expect("amount", number(line.shown))
        s.keys("Enter")
