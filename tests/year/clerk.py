"""The shopkeeper's hands: each voucher as the keys that enter, mend or delete it, written into a script."""
from rules import number

MISC_WORK = "FITTING AT SITE"


def quoted(text):
    return '"%s"' % text.replace("\\", "\\\\").replace('"', '\\"')


class Script:
    """Commands for the player, in parts: the program is started anew for each."""

    def __init__(self):
        self.lines = []
        self.parts = [self.lines]

    def new_part(self):
        self.lines = []
        self.parts.append(self.lines)

    def __call__(self, *lines):
        self.lines += lines

    def note(self, text):
        self.lines += ["", "# " + text]

    def type(self, text):
        self("type " + quoted(text))

    def fill(self, control, text):
        self("fill %s %s" % (control, quoted(text)))

    def keys(self, keys):
        self("key " + keys)

    def expect(self, what, text):
        self("expect %s %s" % (what, quoted(text)))

    def sql(self, statement, answer):
        self('expect sql data %s %s' % (quoted(statement), quoted(answer)))


class Clerk:
    def __init__(self, script, books):
        self.s, self.books = script, books
        self.desk = None

    def at(self, menu):
        """The screen of a menu entry, kept open while one voucher follows another."""
        if self.desk == menu:
            return False
        self.leave()
        self.s("menu " + quoted(menu))
        self.desk = menu
        return True

    def leave(self):
        if self.desk in ("Receipts", "Payments"):
            self.s("press cmdClose")
        elif self.desk:
            self.s("press cmdclose")
        if self.desk:
            self.s("expect screen frmmain")
        self.desk = None

    def company(self, name):
        self.s("clock 2026-04-01 09:00", "press mnunewcomp")
        self.s.type(name.lower())
        self.s.keys("Enter")
        self.s.type("2026")
        self.s("answer Yes", "key Enter", "tick 4", 'expect message "Are You Sure"', 'expect message "company created"')
        self.s('menu "Company Details Set"')
        self.s.fill("txtFields(2)", name.lower())
        self.s.fill("txtFields(7)", "24")
        self.s.fill("txtFields(1)", "24AAKFS4821M1ZW")
        self.s("press cmdsave", "expect screen frmmain")

    def start_again(self, name, today):
        """A new start finds the company by its name and brings the stored balances up to date."""
        s = self.s
        s.new_part()
        s("clock %s 08:50" % today, "focus lst")
        s.type(name.lower().split()[0])  # the search takes no blanks
        s("expect rows lst 1", "key Enter", "tick 4", 'expect caption contains "%s : 2627"' % name)
        for code in sorted({r.account for rows in self.books.standing.values() for r in rows}):
            s.sql("SELECT ROUND(CL_BAL, 2) FROM ACCOUNT WHERE ACC_CD = '%s'" % code, number(float(self.books.standing_balance(code))))

    def categories(self, categories):
        self.s('menu "Category Master"', "key Alt+A")
        for c in categories:
            self.s.expect("txtFields(0)", c.code)
            self.s.type(c.name.lower())
            self.s.keys("Enter Enter")
            self.s.type(c.hsn)
            self.s.keys("Enter Enter")
            self.s.type(number(c.tax))
            self.s.keys("Enter Enter Enter Enter")
        self.s("key Alt+C", "key Esc", "expect screen frmmain")

    def items(self, items):
        self.s('menu "Item Master"')
        for item in items:
            self.s.expect("Text1(0)", item.code)
            for text in (item.name.lower(), item.category.lower(), item.units[0].name.lower(), number(item.tax), item.hsn):
                self.s.type(text)
                self.s.keys("Enter")
            self.s.keys("Enter Enter")
            for i, unit in enumerate(item.units):
                self.s.fill("Text1(6)", unit.name)
                self.s.keys("Enter")
                self.s.type(number(unit.purchase))
                self.s.keys("Enter")
                self.s.type(number(unit.sale))
                self.s.keys("Enter Enter Enter")
                if unit.discount:
                    self.s.type(number(unit.discount))
                self.s.keys("Enter Enter")
                self.s("expect rows DataGrid1 %d" % (i + 1))
            self.s.keys("PgDn Enter")
        self.s("answer Yes", "key Esc", "expect screen frmmain")

    def parties(self, parties):
        """A registered one by its number, which gives the state; "." by a number that is refused; "X" without asking."""
        self.s('menu "Account Master"', "key Alt+A")
        for p in parties:
            self.s.expect("txtFields(0)", p.code)
            self.s.type(p.name.lower())
            self.s.keys("Enter")
            self.s.fill("txtFields(2)", str(p.group))
            self.s.keys("Enter")
            self.s.type(number(p.opening))
            self.s("answer No", "key Enter", 'expect message "Save Entry = Yes ::  Enter Other Details = No"')
            for index, text in ((4, number(p.days)), (5, p.address[0]), (6, p.address[1]), (7, p.city), (9, p.area), (10, p.phone)):
                if text:
                    self.s.fill("txtFields(%d)" % index, text)
            if p.gstin:
                self.s.fill("txtFields(44)", "24AAA" if p.gstin == "." else p.gstin)
            if len(p.gstin) == 15:
                self.s.keys("Enter")
                self.s.expect("txtFields(45)", "%02d" % p.state)
            else:
                if p.gstin == ".":
                    self.s.keys("Enter")
                    self.s('expect message contains "INVALID GSTIN NO"')
                self.s.fill("txtFields(45)", str(p.state))
            self.s("press cmdUpdate")
        self.s("answer Yes", "key Esc", 'expect message "Do you want to Exit"', "expect screen frmmain")

    def register(self, p):
        """A party gets its number: all its bills of the year are those of a registered one."""
        s = self.s
        s('menu "Account Master"', "key Alt+M")
        s.type(p.code.lower())
        s.keys("Enter")
        s.expect("txtFields(1)", p.name)
        s.fill("txtFields(44)", p.gstin)
        s.keys("Enter")
        s("press cmdUpdate", "answer Yes", "key Esc", 'expect message "Do you want to Exit"', "expect screen frmmain")

    # Bills and purchases

    def offered(self, line, party):
        """Rate and discount before anything is typed: of the first unit, and of the unit taken where that has none."""
        units = [line.item.units[0], next(u for u in line.item.units if u.name == line.unit)]
        first = lambda figures: next((f for f in figures if f > 0), 0)
        if party.group == 135:
            return first(u.purchase for u in units), 0
        return first(u.sale for u in units), first(u.discount for u in units)

    def line(self, line, party):
        s = self.s
        s.type(line.item.code.lower())
        s.keys("Enter")
        if line.item.code == "MISC":
            s.fill("Text1(6)", MISC_WORK.lower())
            s.keys("Enter")
            if line.detail != MISC_WORK:  # its name is kept as the detail where nothing else is typed
                s.fill("Text1(46)", line.detail.lower())
            s.keys("Enter")
            s.fill("Text1(7)", line.unit)
            s.keys("Enter")
        else:
            if line.detail:
                s.type(line.detail.lower())
            s.keys("Enter")
            if line.unit != line.item.units[0].name:
                s.fill("Text1(7)", line.unit)
            s.keys("Enter")
        s.type(number(line.quantity))
        s.keys("Enter")
        rate, discount = self.offered(line, party)
        s.expect("Text1(9)", number(rate) if rate else "")
        s.expect("Text1(11)", number(discount) if discount else "")
        if line.rate != rate:
            s.fill("Text1(9)", number(line.rate))
        s.keys("Enter")
        if line.discount != discount:
            s.fill("Text1(11)", number(line.discount))
        s.keys("Enter")
        self.taxes(line, party)
        s.expect("Text1(14)", number(line.net))
        s.keys("Enter")

    def taxes(self, line, party):
        """Rates other than the item's, and an amount of IGST, are typed over what the line has worked out."""
        s, usual = self.s, self.books.taxes(line.item, party)
        if line.taxes[0] != usual[0]:
            s.fill("Text1(12)", number(line.taxes[0]))
            s.keys("Enter Enter")
            s("focus Text1(14)")
        if line.taxes[2] != usual[2]:
            s.fill("Text1(19)", number(line.taxes[2]))
            s.keys("Enter Enter")
        if line.typed is not None:
            s("focus Text1(31)", "focus Text1(19)")
            s.fill("Text1(31)", number(line.typed))
            s.keys("Enter")

    def bill(self, b, today, refused=None):
        s = self.s
        self.at("GST Sales Entry" if b.book == "SA" else "Purchase")
        s.keys("Alt+A")
        s.expect("Text1(0)", str(b.number))
        if refused:
            s.fill("MaskEdBox1(0)", refused.strftime("%d%m%Y"))
            s.keys("Enter")
            s('expect message "Pl. Enter Date Between 01/Apr/2023 and 31/Mar/2034"', "expect focus MaskEdBox1(0)")
        if refused or b.day != today:
            s.fill("MaskEdBox1(0)", b.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.type(b.party.code.lower())
        s.keys("Enter Tab")
        if b.type != "TAX":
            s.fill("Text1(47)", b.type.lower())
        s.keys("Enter")
        if b.book == "SA":
            s.expect("Text1(43)", b.bill_number)
            s.keys("Enter Enter Enter")
        else:
            s.type(b.bill_number.lower())
            s.keys("Enter Enter Enter Enter")
        for line in b.lines:
            self.line(line, b.party)
        s.keys("PgDn")
        if b.narration:
            s.type(b.narration.lower())
        for control, text in ((42, b.transport), (40, b.lorry), (45, b.parcels)):
            if text:
                s.fill("Text1(%d)" % control, text.lower())
                if control == 42:
                    s.keys("Enter")
        self.save(b)

    def save(self, b):
        s = self.s
        s.expect("Text1(18)", number(b.value))
        s.expect("Text1(38)", number(b.rounding))
        s.expect("Text1(28)", number(b.net))
        s("focus Text1(45)", "key Enter", "key Enter")
        s('expect Label1 contains "   Invoice AMOUNT : %s\\n"' % number(b.net))
        if b.book == "SA" and b.net > 50000:
            s('expect Label1 contains "Value Of Bill Exceeds Rs. 50000/-"')
        s('press "New Entry"')

    def open_bill(self, b, party=None):
        self.at("GST Sales Entry" if b.book == "SA" else "Purchase")
        self.s.keys("Alt+M")
        self.s.type(str(b.number))
        self.s.keys("Enter")
        self.s.expect("Text2", (party or b.party).name)

    def mend_line(self, b, index):
        """A quantity, rate or discount typed over; the rest of the line runs through again."""
        s, line = self.s, b.lines[index]
        self.open_bill(b)
        s("focus Text1(5)", *["key Down"] * index)
        for control, figure in ((8, line.quantity), (9, line.rate), (11, line.discount)):
            s.fill("Text1(%d)" % control, number(figure))
            s.keys("Enter")
        s.expect("Text1(14)", number(line.net))
        s.keys("Enter")
        self.save(b)

    def drop_line(self, b, index):
        """F10 takes the line away; the totals follow when the first line is stored again."""
        s = self.s
        self.open_bill(b)
        s("focus Text1(5)", *["key Down"] * index, "key F10", "focus Text1(5)", *["key Up"] * (len(b.lines) + 1))
        s.expect("Text1(5)", b.lines[0].item.code)
        s("focus Text1(9)", "key Enter Enter Enter", "expect rows DataGrid1 %d" % len(b.lines))
        self.save(b)

    def add_line(self, b):
        s = self.s
        self.open_bill(b)
        s("focus Text1(5)", *["key Down"] * (len(b.lines) - 1))
        s.expect("Text1(5)", "")
        self.line(b.lines[-1], b.party)
        self.save(b)

    def mend_head(self, b, was, party):
        s = self.s
        self.open_bill(b, was)
        s.fill("MaskEdBox1(0)", b.day.strftime("%d%m%Y"))
        s.keys("Enter")
        if party:
            s.fill("Text1(4)", party.code.lower())
            s.keys("Enter")
        s.fill("Text1(29)", b.narration.lower())
        self.save(b)

    def delete(self, menu, voucher):
        self.at(menu)
        self.s.keys("Alt+D")
        self.s.type(str(voucher.number))
        self.s("answer Yes", "key Enter", 'expect message "ARE YOU SURE"')
        if menu == "Receipts":
            self.s("key Esc")
        if menu == "Delivery Challan":  # Escape leaves its screen with the mode
            self.s("key Esc", "expect screen frmmain")
            self.desk = None

    # Challans, quotations, money

    def challan(self, c):
        s = self.s
        self.at("Delivery Challan")
        s.keys("Alt+A")
        s.expect("Text1(0)", str(c.number))
        s.keys("Enter")
        s.type(c.party.code.lower())
        s.keys("Enter Enter")
        s.type(c.type.lower())
        s.keys("Enter")
        s.expect("Text1(24)", str(c.challan_number))
        s.keys("Enter")
        for line in c.lines:
            s.type(line.item.code.lower())
            s.keys("Enter Enter Enter")
            s.fill("Text1(8)", number(line.quantity))
            s.keys("Enter")
            s.fill("Text1(9)", number(line.rate))
            s.keys("Enter Enter")
        self.save_challan(c)

    def save_challan(self, c):
        s = self.s
        s.keys("PgDn")
        if c.narration:
            s.fill("Text1(29)", c.narration.lower())
        s("focus Text1(19)")
        s.fill("Text1(19)", number(c.discount))
        s.keys("Enter Enter")
        s.fill("Text1(21)", number(c.charges))
        s.keys("Enter")
        s.expect("Text1(20)", number(c.off))
        s.expect("Text1(28)", number(c.net))
        s("focus Text1(11)", "key Enter", "key Enter", 'press "New Entry"')

    def mend_challan(self, c):
        self.at("Delivery Challan")
        self.s.keys("Alt+M")
        self.s.type(str(c.number))
        self.s.keys("Enter")
        self.s("focus Text1(8)")
        self.s.fill("Text1(8)", number(c.lines[0].quantity))
        self.s.keys("Enter Enter Enter")
        self.save_challan(c)

    def quotation(self, q):
        s = self.s
        self.at("Quotation")
        s.keys("Alt+A")
        s.expect("Text1(0)", str(q.number))
        s.keys("Enter")
        s.type(q.party.code.lower())
        s.keys("Enter")
        s.keys("Enter Enter Enter Enter")
        for line in q.lines:
            s.type(line.item.code.lower())
            s.keys("Enter Enter Enter")
            s.fill("Text1(8)", number(line.quantity))
            s.keys("Enter")
            s.fill("Text1(9)", number(line.rate))
            s.keys("Enter")
            s.fill("Text1(16)", number(line.discount))
            s.keys("Enter")
            s.expect("Text1(14)", number(line.net))
            s.keys("Enter")
        self.save_quotation(q)

    def save_quotation(self, q):
        self.s.expect("Text1(27)", number(q.net))
        self.s("focus Text1(6)", "key Enter", "key Enter", 'press "New Entry"')

    def mend_quotation(self, q):
        s = self.s
        self.at("Quotation")
        s.keys("Alt+M")
        s.type(str(q.number))
        s.keys("Enter")
        s("focus Text1(8)")
        s.fill("Text1(8)", number(q.lines[0].quantity))
        s.keys("Enter Enter Enter Enter")
        self.save_quotation(q)

    def money(self, m, today):
        s = self.s
        self.at("Receipts" if m.book == "RC" else "Payments")
        s.keys("Alt+A")
        s.expect("txtFields(0)", str(m.number))
        if m.day != today:
            s.fill("MaskEdBox1(0)", m.day.strftime("%d%m%Y"))
        if m.place == "X90005":
            s.keys("Enter")
        else:
            s.keys("F5")
            s.fill("txtFields(2)", m.place.lower())
            s.keys("Enter")
        s.type(m.party.code.lower())
        s.keys("Enter")
        s.type(number(m.amount))
        s.keys("Enter")
        if m.narration:
            s.type(m.narration.lower())
        s("key Enter", "key Enter")
        s('expect Label1 contains "   AMOUNT     : %s\\n"' % number(m.amount))
        s.keys("Enter")
        self.balances(m)

    def balances(self, m):
        """A receipt or payment brings both its accounts up to date, deleted bills and all."""
        for code in (m.party.code, m.place):
            self.s.sql("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = '%s'" % code, number(float(self.books.standing_balance(code))))

    def mend_money(self, m):
        s = self.s
        self.at("Receipts" if m.book == "RC" else "Payments")
        s.keys("Alt+M")
        s.type(str(m.number))
        s.keys("Enter")
        s.fill("MaskEdBox1(0)", m.day.strftime("%d%m%Y"))
        s.keys("Enter")
        s.fill("txtFields(4)", number(m.amount))
        s("key Enter", "key Enter", "key Enter", "key Enter")
        self.balances(m)

    def update(self):
        self.leave()
        s = self.s
        s('menu "Database Check"', "press cmdupdate")
        s('expect message contains "Backup Done"', 'expect message "PRIMARY KEY NOT SET FOR ITEMDTL  TABLE"', 'expect message "SUCCESS"')
        s("expect screen frmmain")

    def post(self):
        self.leave()
        self.s('menu "Posting"', "key Enter", 'expect message "POSTING IS COMPLETE"', "expect screen frmmain")
