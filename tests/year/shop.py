"""The shopkeeper's hands before and around the vouchers: company, masters, update, posting."""
from rules import number

MONEY = "RECEIPT", "PAYMENT", "INCOME", "EXPENSE"


class Shop:
    def __init__(self, script, books):
        self.s, self.books = script, books
        self.desk = None
        self.chosen = set()  # books whose account of customs is known
        self.taxed = set()  # books whose account of TDS has been chosen

    def at(self, menu):
        """The screen of a menu entry, kept open while one voucher follows another."""
        if self.desk == menu:
            return False
        self.leave()
        self.s("menu " + menu)
        self.desk = menu
        return True

    def leave(self):
        if self.desk in MONEY:
            self.s("press cmdClose")
        elif self.desk:
            self.s("press cmdclose")
        if self.desk:
            self.s("expect screen frmmain")
        self.desk = None

    def company(self, name):
        self.s("clock 2026-04-01 09:00", "press mnunewcomp")
        self.s.type(name.lower(), "Enter")
        self.s.type("2026")
        self.s("answer Yes", "key Enter", "tick 4", 'expect message "Are You Sure"', 'expect message "company created"')
        self.s("expect screen stngs")
        self.s.fill("company", name.lower())
        self.s.fill("state_code", "24")
        self.s.fill("gstin", "24AAKFS4821M1ZW")
        self.s("press cmdsave", "expect screen frmmain")

    def series(self, book, kind, series):
        """The list has a row for each kind of voucher, and one for each type that it has."""
        self.leave()
        types = {b.type for b in self.books.bills["SA"].values()} | {of for b, of in self.books.series if b == "SA"}
        self.s("menu SERIES", "row lst %d" % (0 if book == "SA" else 1 + len(types)), "key Enter")
        if kind:
            self.s.fill("series_type", kind.lower())
        for field, text in (("prefix", series.prefix.lower()), ("width", str(series.width)), ("first_no", str(series.first))):
            self.s.fill(field, text)
        self.s("press cmdsave", "expect focus lst", "press cmdclose", "expect screen frmmain")
        self.books.series[book, kind] = series

    def start_again(self, name, today):
        """A new start finds the company by its name and brings the stored balances up to date."""
        s = self.s
        s.new_part()
        s("clock %s 08:50" % today, "focus lst")
        s.type(name.lower().split()[0])  # the search takes no blanks
        s("expect rows lst 1", "key Enter", "tick 4", 'expect caption contains "%s : 2627"' % name)
        for code in sorted({r.account for rows in self.books.standing.values() for r in rows}):
            s.sql("SELECT ROUNDED(CL_BAL, 2) FROM ACCOUNT WHERE ACC_CD = '%s'" % code, number(float(self.books.standing_balance(code))))

    def categories(self, categories):
        self.s("menu category", "key Alt+A")
        for c in categories:
            self.s.expect("code", c.code)
            self.s.type(c.name.lower(), "Enter Enter")
            self.s.type(c.hsn, "Enter Enter")
            self.s.type(number(c.tax), "Enter Enter Enter Enter")
        self.s("key Alt+C", "key Esc", "expect screen frmmain")

    def items(self, items):
        self.s("menu item")
        for item in items:
            self.s.expect("code", item.code)
            for text in (item.name.lower(), item.category.lower(), item.units[0].name.lower(), number(item.tax), item.hsn):
                self.s.type(text, "Enter")
            self.s.keys("Enter Enter")
            for i, unit in enumerate(item.units):
                self.s.fill("unit", unit.name, "Enter")
                self.s.type(number(unit.purchase), "Enter")
                self.s.type(number(unit.sale), "Enter Enter Enter")
                if unit.discount:
                    self.s.type(number(unit.discount))
                self.s.keys("Enter Enter")
                self.s("expect rows DataGrid1 %d" % (i + 1))
            self.s.keys("PgDn Enter")
        self.s("answer Yes", "key Esc", "expect screen frmmain")

    def parties(self, parties):
        """A registered one by its number, which gives the state; "." by a number that is refused; "X" without asking."""
        self.s("menu account", "key Alt+A")
        for p in parties:
            self.s.expect("code", p.code)
            self.s.type(p.name.lower(), "Enter")
            self.s.fill("group", str(p.group), "Enter")
            self.s.type(number(p.opening))
            self.s("answer No", "key Enter", 'expect message "Save Entry = Yes ::  Enter Other Details = No"')
            for field, text in (("cr_days", number(p.days)), ("address1", p.address[0]), ("address2", p.address[1]), ("city", p.city), ("area", p.area), ("phone", p.phone)):
                if text:
                    self.s.fill(field, text)
            if p.gstin:
                self.s.fill("gstin", "24AAA" if p.gstin == "." else p.gstin)
            if len(p.gstin) == 15:
                self.s.keys("Enter")
                self.s.expect("state_code", "%02d" % p.state)
            else:
                if p.gstin == ".":
                    self.s.keys("Enter")
                    self.s('expect message contains "INVALID GSTIN NO"')
                self.s.fill("state_code", str(p.state))
            self.s("press cmdUpdate")
        self.s("answer Yes", "key Esc", 'expect message "Do you want to Exit"', "expect screen frmmain")

    def register(self, p):
        """A party gets its number: all its bills of the year are those of a registered one."""
        s = self.s
        s("menu account", "key Alt+M")
        s.type(p.code.lower(), "Enter")
        s.expect("name", p.name)
        s.fill("gstin", p.gstin, "Enter")
        s("press cmdUpdate", "answer Yes", "key Esc", 'expect message "Do you want to Exit"', "expect screen frmmain")

    def update(self):
        self.leave()
        s = self.s
        s("menu struct", "press cmdupdate")
        s('expect message contains "Backup Done"', 'expect message contains "Nothing Is Wrong"', 'expect message "SUCCESS"')
        # Only what posting will clear does not agree, and is shown at once.
        gone = len(self.books.left_behind())
        if gone:
            s("expect screen frmreport", "expect rows Grid1 %d" % gone, 'expect grid Grid1 %d 0 "In The Ledger Without Voucher"' % (gone - 1), "press cmdclose")
        self.posting_due(gone)

    def posting_due(self, gone):
        self.s("expect screen frmmain", 'expect grid Due 0 0 "%s"' % (gone or ""))

    def post(self):
        self.leave()
        self.posting_due(len(self.books.left_behind()))
        self.s("menu posting", "key Enter", 'expect message "POSTING IS COMPLETE"')
        self.posting_due(0)
