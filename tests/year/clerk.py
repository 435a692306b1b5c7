"""The shopkeeper's hands: each voucher as the keys that enter, mend or delete it, written into a script."""
from books import CASH, CREDITORS, REASONS
from rules import money, number, rounded
from shop import MONEY, Shop
from trade import Border

MISC_WORK = "FITTING AT SITE"
MENUS = {"SA": "SALE", "PU": "PURCHASE", "SR": "SALERET", "SD": "SALEDEB", "PR": "PURCHRET", "RC": "RECEIPT", "PY": "PAYMENT",
         "IC": "INCOME", "EP": "EXPENSE", "JV": "JOURNAL", "CN": "CONTRA"}


class Clerk(Shop, Border):
    def add(self, menu, voucher):
        self.at(menu)
        self.s.keys("Alt+A")
        self.s.expect("number", str(voucher.number))

    def open(self, menu, voucher):
        self.at(menu)
        self.s.keys("Alt+M")
        self.s.type(str(voucher.number), "Enter")

    # Bills and purchases

    def offered(self, line, party):
        """Rate and discount before anything is typed: the rate of the unit taken, or of the first where that has none; the discount the other way round."""
        units = [next(u for u in line.item.units if u.name == line.unit), line.item.units[0]]
        first = lambda figures: next((f for f in figures if f > 0), 0)
        if party.group == CREDITORS:
            return first(u.purchase for u in units), 0
        return first(u.sale for u in units), first(u.discount for u in reversed(units))

    def line(self, line, party):
        s = self.s
        s.type(line.item.code.lower(), "Enter")
        if line.item.code == "MISC":
            s.fill("item_name", MISC_WORK.lower(), "Enter")
            if line.detail != MISC_WORK:  # its name is kept as the detail where nothing else is typed
                s.fill("detail", line.detail.lower())
            s.keys("Enter")
            s.fill("unit", line.unit, "Enter")
        else:
            if line.detail:
                s.type(line.detail.lower())
            s.keys("Enter")
            if line.unit != line.item.units[0].name:
                s.fill("unit", line.unit)
            s.keys("Enter")
        s.type(number(line.quantity), "Enter")
        rate, discount = self.offered(line, party)
        s.expect("rate", number(rate) if rate else "")
        s.expect("discount", number(discount) if discount else "")
        if line.rate != rate:
            s.fill("rate", number(line.rate))
        s.keys("Enter")
        if line.discount != discount:
            s.fill("discount", number(line.discount))
        s.keys("Enter")
        self.taxes(line, party)
        s.expect("amount", number(line.shown))
        s.keys("Enter")

    def taxes(self, line, party):
        """Rates other than the item's, and an amount of IGST, are typed over what the line has worked out."""
        s, usual = self.s, self.books.taxes(line.item, party)
        if line.taxes[0] != usual[0]:
            s.fill("cgst_rate", number(line.taxes[0]), "Enter Enter")
            s("focus amount")
        if line.taxes[2] != usual[2]:
            s.fill("igst_rate", number(line.taxes[2]), "Enter Enter")
        if line.typed is not None:
            s("focus igst_amount", "focus igst_rate")
            s.fill("igst_amount", number(line.typed), "Enter")

    def bill(self, b, today, refused=None):
        s = self.s
        self.add(MENUS[b.book], b)
        if refused:
            s.fill("date", refused.strftime("%d%m%Y"), "Enter")
            s('expect message "Pl. Enter Date Between 01/Apr/2026 and 31/Mar/2027"', "expect focus date")
        if refused or b.day != today:
            s.fill("date", b.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(b.party.code.lower(), "Enter Tab")
        if b.type != "TAX":
            s.fill("bill_type", b.type.lower())
        s.keys("Enter")
        if b.book == "SA":
            s.expect("bill_no", b.bill_number)
            s.keys("Enter Enter Enter")
        else:
            s.type(b.bill_number.lower(), "Enter Enter Enter Enter")
        for line in b.lines:
            self.line(line, b.party)
        if any(b.charges):
            self.charges(b)
        else:
            s.keys("PgDn")
        if b.reverse:
            s.keys("Ctrl+R")
        if b.ineligible:
            s.keys("Ctrl+N")
        if b.narration:
            s.type(b.narration.lower())
        for field, text in (("transport", b.transport), ("lr_no", b.lorry), ("parcels", b.parcels)):
            if text:
                s.fill(field, text.lower())
                if field == "transport":
                    s.keys("Enter")
        self.save(b)

    def charges(self, b):
        """Ctrl+B opens discount and charges under the lines; a percentage gives the amount."""
        s = self.s
        s.keys("Ctrl+B")
        if b.percent:
            s.type(number(b.percent))
        s.keys("Enter")
        if b.charges[0] and not b.percent:
            s.type(number(b.charges[0]))
        s.expect("bill_discount", number(b.charges[0]) if b.charges[0] else "")
        s.keys("Enter")
        for amount in b.charges[1:]:
            if amount:
                s.type(number(amount))
            s.keys("Enter")
        s.expect("taxable", number(b.taxable))
        s("expect focus narration")

    @staticmethod
    def meant(voucher):
        """A voucher that comes to nothing, or of which another was made, is saved when it is meant so."""
        made = bool(getattr(voucher, "made", None))
        return ["answer Yes"] * (made + (not voucher.net))

    def save(self, b):
        s = self.s
        s.expect("items_amount", number(b.value))
        s.expect("round_off", number(b.rounding))
        s.expect("net_amount", number(b.net))
        s("focus parcels", "key Enter", *self.meant(b), "key Enter")
        s('expect Label1 contains "   Invoice AMOUNT : %s\\n"' % number(b.net))
        if b.book == "SA" and b.net > 50000:
            s('expect Label1 contains "Value Of Bill Exceeds Rs. 50000/-"')
        s("press CancelButton" if b.book == "SA" else "press OKButton")  # a new entry

    def note(self, n, today):
        """A bill's number brings its party and lines; what of each line is in the note is typed."""
        s = self.s
        self.add(MENUS[n.book], n)
        if n.day != today:
            s.fill("date", n.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(n.originals[0].bill_number.lower(), "Enter")
        s.expect("party", n.party.code)
        for more in n.originals[1:]:
            s('answer "Add It"')
            s.fill("original_bill", more.bill_number.lower(), "Enter")
        s.expect("original_date", n.originals[-1].day.strftime("%d/%m/%Y"))
        s.keys("Enter")
        s.expect("bill_no", n.bill_number)
        s.keys("Enter")
        s.fill("reason", str(n.reason), "Enter")
        s.expect("reason_name", REASONS[n.reason - 1])
        s.keys("Enter")
        for line in n.taken:
            s.expect("billed", "%.3f" % line.quantity)
            s.type(number(line.taken), "Enter")
        s.keys("PgDn")
        if n.narration:
            s.type(n.narration.lower())
        self.save_note(n)

    def mend_note(self, n):
        self.open(MENUS[n.book], n)
        self.s("focus quantity")
        self.s.fill("quantity", number(n.lines[0].quantity), "Enter")
        self.s.fill("narration", n.narration.lower())
        self.save_note(n)

    def save_note(self, n):
        s = self.s
        s.expect("items_amount", number(n.value))
        s.expect("round_off", number(n.rounding))
        s.expect("net_amount", number(n.net))
        s("focus parcels", "key Enter", *self.meant(n), "key Enter")
        s('expect Label1 contains "   Note AMOUNT : %s\\n"' % number(n.net))
        s.keys("Right Enter")

    def open_bill(self, b, party=None):
        self.open("SALE" if b.book == "SA" else "PURCHASE", b)
        self.s.expect("party_name", (party or b.party).name)

    def mend_line(self, b, index):
        """A quantity, rate or discount typed over; the rest of the line runs through again."""
        s, line = self.s, b.lines[index]
        self.open_bill(b)
        s("focus item", *["key Down"] * index)
        for field, figure in (("quantity", line.quantity), ("rate", line.rate), ("discount", line.discount)):
            s.fill(field, number(figure), "Enter")
        s.expect("amount", number(line.shown))
        s.keys("Enter")
        self.save(b)

    def drop_line(self, b, index):
        """F10 takes the line away; the totals follow when the first line is stored again."""
        s = self.s
        self.open_bill(b)
        s("focus item", *["key Down"] * index, "key F10", "focus item", *["key Up"] * (len(b.lines) + 1))
        s.expect("item", b.lines[0].item.code)
        s("focus rate", "key Enter Enter Enter", "expect rows lines %d" % len(b.lines))
        self.save(b)

    def add_line(self, b):
        s = self.s
        self.open_bill(b)
        s("focus item", *["key Down"] * (len(b.lines) - 1))
        s.expect("item", "")
        self.line(b.lines[-1], b.party)
        self.save(b)

    def mend_head(self, b, was, party):
        s = self.s
        self.open_bill(b, was)
        s.fill("date", b.day.strftime("%d%m%Y"), "Enter")
        if party:
            s.fill("party", party.code.lower(), "Enter")
        s.fill("narration", b.narration.lower())
        self.save(b)

    def delete(self, menu, voucher):
        self.at(menu)
        self.s.keys("Alt+D")
        self.s.type(str(voucher.number))
        self.s("answer Yes", "key Enter", 'expect message "ARE YOU SURE"')
        if menu in MONEY:
            self.s("key Esc")
        if menu == "CH":  # Escape leaves its screen with the mode
            self.s("key Esc", "expect screen frmmain")
            self.desk = None

    def order(self, b, today):
        s = self.s
        self.add("SALE", b)
        if b.day != today:
            s.fill("date", b.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(b.party.code.lower(), "Enter")
        self.take(b.sources, self.books.open_sources(b.party))
        s.expect("other_charges", number(b.charges[3]) if b.charges[3] else "")
        s("expect rows lines %d" % len(b.lines), "focus bill_type", "key Enter")
        s.expect("bill_no", b.bill_number)
        self.save(b)

    def take(self, sources, offered):
        for source in sources:
            self.s("key Ctrl+O", "row grdDataGrid %d" % offered.index(source), "key Enter")

    # Challans, quotations, money

    def order_sent(self, c):
        s = self.s
        self.add("CH", c)
        s.keys("Enter")
        s.type(c.party.code.lower(), "Enter")
        self.take(c.sources, [q for q in self.books.open_sources(c.party) if q.book == "QT"])
        s.fill("challan_type", "dc", "Enter")
        s.expect("challan_no", str(c.challan_number))
        s.keys("Enter")
        self.save_challan(c)

    def challan(self, c):
        s = self.s
        self.add("CH", c)
        s.keys("Enter")
        s.type(c.party.code.lower(), "Enter Enter")
        s.type(c.type.lower(), "Enter")
        s.expect("challan_no", str(c.challan_number))
        s.keys("Enter")
        for line in c.lines:
            s.type(line.item.code.lower(), "Enter Enter Enter")
            s.fill("quantity", number(line.quantity), "Enter")
            s.fill("rate", number(line.rate), "Enter Enter")
        self.save_challan(c)

    def save_challan(self, c):
        s = self.s
        s.keys("PgDn")
        if c.narration:
            s.fill("narration", c.narration.lower())
        s("focus discount_percent")
        s.fill("discount_percent", number(c.discount), "Enter Enter")
        s.fill("charges", number(c.charges), "Enter")
        s.expect("discount_amount", number(c.off))
        s.expect("net_amount", number(c.net))
        s("focus destination", "key Enter", *self.meant(c), "key Enter", "press CancelButton")

    def mend_challan(self, c):
        self.open("CH", c)
        self.s("focus quantity")
        self.s.fill("quantity", number(c.lines[0].quantity), "Enter Enter Enter")
        self.save_challan(c)

    def quotation(self, q):
        s = self.s
        self.add("QUOTATION", q)
        s.keys("Enter")
        s.type(q.party.code.lower(), "Enter")
        s.keys("Enter Enter Enter Enter")
        for line in q.lines:
            s.type(line.item.code.lower(), "Enter Enter Enter")
            s.fill("quantity", number(line.quantity), "Enter")
            s.fill("rate", number(line.rate), "Enter")
            s.fill("discount", number(line.discount), "Enter")
            s.expect("amount", number(line.net))
            s.keys("Enter")
        self.save_quotation(q)

    def save_quotation(self, q):
        self.s.expect("net_amount", number(q.net))
        self.s("focus subject_to", "key Enter", *self.meant(q), "key Enter", "press CancelButton")

    def mend_quotation(self, q):
        self.open("QUOTATION", q)
        self.s("focus quantity")
        self.s.fill("quantity", number(q.lines[0].quantity), "Enter Enter Enter Enter")
        self.save_quotation(q)

    def money(self, m, today):
        s = self.s
        self.add(MENUS[m.book], m)
        if m.day != today:
            s.fill("date", m.day.strftime("%d%m%Y"))
        if m.place == CASH:
            s.keys("Enter")
        else:
            s.keys("F5")
            s.fill("account", m.place.lower(), "Enter")
        s.type(m.party.code.lower(), "Enter")
        if m.place != CASH:
            s.fill("mode", m.mode.lower(), "Enter")
        s.type(number(m.amount), "Enter")
        if m.place != CASH:
            s.type(m.cheque.lower(), "Enter")
            if m.tds:
                s.fill("tds", number(m.tds), "Enter")
                if m.book not in self.taxed:  # from then on the account is known
                    self.taxed.add(m.book)
                    s.keys("Right")
                    s.type("tds rec" if m.book == "RC" else "tds pay", "Enter")
                s.expect("tds_account", m.tds_account)
            if m.settles:
                s("focus narration", "key PgDn", "expect focus bills", *["key Down"] * m.place_of_bill)
                s.keys("Enter")
                s.expect("settled", number(m.settles[1]))
            s("focus narration")
        if m.narration:
            s.type(m.narration.lower())
        s("key Enter", "key Enter")
        s('expect Label1 contains "   AMOUNT     : %s\\n"' % number(m.amount))
        s.keys("Enter")
        self.balances(m)

    def journal(self, j, today):
        """The amount that makes the sides equal is proposed on the side that lacks it."""
        s, lacks = self.s, 0
        self.add(MENUS[j.book], j)
        if j.day != today:
            s.fill("date", j.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(j.reference.lower(), "Enter")
        s.type(j.narration.lower(), "Enter")
        for entry in j.entries:
            s.type(entry.account.lower(), "Enter")
            if lacks:
                s.expect("debit" if lacks > 0 else "credit", number(abs(lacks)))
            s.fill("debit" if entry.side == "D" else "credit", number(entry.amount), "Enter")
            s.fill("line_narration", entry.narration.lower(), "Enter")
            lacks = rounded(lacks + (entry.amount if entry.side == "C" else -entry.amount), 2)
        s.expect("difference", "0")
        s.keys("PgDn Enter")
        s('expect Label1 contains "%s"' % money(sum(e.amount for e in j.entries if e.side == "D")))
        s.keys("Enter")
        for code in sorted({e.account for e in j.entries}):
            self.balance(code)

    def mend_journal(self, j):
        s = self.s
        self.open(MENUS[j.book], j)
        s("focus account")
        for entry in j.entries:
            s.expect("account", entry.account)
            s.fill("debit" if entry.side == "D" else "credit", number(entry.amount), "Enter")
            s("focus line_narration", "key Enter")
        s.expect("difference", "0")
        s.keys("PgDn Enter")
        s('expect Label1 contains "%s"' % money(sum(e.amount for e in j.entries if e.side == "D")))
        s.keys("Enter")
        for entry in j.entries:
            self.balance(entry.account)

    def delete_journal(self, j):
        self.delete(MENUS[j.book], j)
        for entry in j.entries:
            self.balance(entry.account)

    def balance(self, code):
        self.s.sql("SELECT ROUNDED(CL_BAL, 2) FROM ACCOUNT WHERE ACC_CD = '%s'" % code, number(float(self.books.standing_balance(code))))

    def balances(self, m):
        """A receipt or payment brings both its accounts up to date, deleted bills and all."""
        for code in filter(None, (m.party.code, m.place, m.tds_account)):
            self.balance(code)

    def mend_money(self, m):
        s = self.s
        self.open(MENUS[m.book], m)
        s.fill("date", m.day.strftime("%d%m%Y"), "Enter")
        s.fill("amount", number(m.amount))
        s("focus narration", "key Enter", "key Enter", "key Enter")
        self.balances(m)
