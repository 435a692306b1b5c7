"""The books of the shop as they must stand: masters, vouchers, ledger, balances. Nothing here has seen the program."""
import datetime
from dataclasses import dataclass, field
from decimal import Decimal

import rules
from rules import dec

STATE = 24
PERIOD = datetime.date(2026, 4, 1), datetime.date(2027, 3, 31)
DEBTORS, BANKS, OVERDRAFTS, CREDITORS = 85, 87, 127, 135
INCOMES, EXPENSES, CAPITAL, ADVANCES, DUTIES = 51, 33, 121, 81, 132
CASH, PURCHASES, SALES, ROUNDING = "X90005", "X90001", "X90002", "X90015"
ALLOWED, CHARGED = "X90006", "X90007"  # discount and charges of sales; those of purchases belong to the goods
SYSTEM = {PURCHASES: "PURCHASE A/C", SALES: "SALES A/C", CASH: "CASH A/C", ROUNDING: "ROUND OFF", ALLOWED: "SALES DISCOUNT A/C",
          CHARGED: "PACKING & FORWARDING CHARGES", "X90061": "OUTPUT CGST",
          "X90062": "OUTPUT SGST", "X90063": "OUTPUT IGST", "X90064": "INPUT CGST", "X90065": "INPUT SGST", "X90066": "INPUT IGST"}
OUTPUT, INPUT = ("X90061", "X90062", "X90063"), ("X90064", "X90065", "X90066")
# Of bills and notes: the party's side, the other one, what the goods stand in, the taxes.
SIDES = {"SA": ("D", "C", SALES, OUTPUT), "PU": ("C", "D", PURCHASES, INPUT), "SR": ("C", "D", SALES, OUTPUT),
         "SD": ("D", "C", SALES, OUTPUT), "PR": ("D", "C", PURCHASES, INPUT)}
MONEY = {"RC": "DC", "PY": "CD", "IC": "DC", "EP": "CD"}  # side of the cash or bank account, of the other one
REASONS = ["GOODS RETURNED", "RATE", "QUANTITY", "DISCOUNT AFTER THE SALE", "OTHERS"]


@dataclass
class Unit:
    name: str
    purchase: float
    sale: float
    discount: float


@dataclass
class Item:
    code: str
    name: str
    category: str
    tax: float
    hsn: str
    units: list


@dataclass
class Category:
    code: str
    name: str
    hsn: str
    description: str
    tax: float


@dataclass
class Party:
    code: str
    name: str
    group: int
    state: int
    gstin: str
    opening: float
    days: int = 0
    address: tuple = ("", "")
    city: str = ""
    area: str = ""
    phone: str = ""
    abroad: bool = False  # trades over a border, and in no other way


@dataclass
class Line:
    item: Item
    unit: str
    quantity: float
    rate: float
    discount: float
    taxes: tuple
    detail: str = ""
    amount: float = 0
    amounts: list = field(default_factory=lambda: [0, 0, 0])
    net: float = 0
    typed: float = None  # IGST as typed, until the line runs through again
    taken: float = 0  # of this line of a bill, while a note is written against it
    zero: bool = False  # its rates stand, and no tax is charged
    foreign: float = 0  # its rate in the bill's currency
    share: float = 0  # of discount and charges of its bill

    def charged(self):
        return (0, 0, 0) if self.zero else self.taxes

    def work_out(self, typed=None):
        """As it is typed, before it bears a share."""
        self.amount, self.amounts, self.net = rules.bill_line(self.quantity, self.rate, self.discount, self.charged(), typed)
        self.shown = self.net


@dataclass
class Bill:
    book: str
    number: int
    day: datetime.date
    party: Party
    type: str
    bill_number: str
    days: int
    lines: list
    narration: str = ""
    challan: int = 0
    destination: str = ""
    transport: str = ""
    lorry: str = ""
    parcels: str = ""
    originals: list = ()  # of a note: its bills
    settles: dict = field(default_factory=dict)  # of a note that takes back: how much of each
    reason: int = 1
    taken: list = ()  # the bills' lines as the note found them
    sources: list = ()  # challans and offers that it is made from
    reverse: bool = False  # the tax is not the party's: ours where we buy
    ineligible: bool = False  # and what we pay of it is a cost
    kind: int = 0  # of its supply, as typed
    place: int = 0
    currency: tuple = None  # its name and the rupees for one
    papers: tuple = ()  # number and date of the shipping bill or bill of entry
    customs: str = ""
    percent: float = 0  # that the discount follows
    charges: tuple = (0, 0, 0, 0)  # discount, packing, freight, others

    def work_out(self):
        if self.percent:
            goods = rules.rounded(sum(line.amount for line in self.lines), 2)
            self.charges = (rules.rounded(goods * self.percent / 100, 2), *self.charges[1:])
        if any(line.share for line in self.taken):
            self.take_along()
        elif any(self.charges):
            for line, share in zip(self.lines, rules.shares_of(rules.net_of(self.charges), [line.amount for line in self.lines])):
                line.share = share
        if any(self.charges):
            for line in self.lines:
                line.amounts, line.net = rules.charged_line(line.amount, line.share, line.charged())
        bought_abroad = self.book in ("PU", "PR") and self.kind
        self.value, self.taxes, self.quantity, self.rounding, self.net = rules.bill_totals(self.lines, rules.net_of(self.charges), not (bought_abroad or self.reverse))
        self.taxable = rules.rounded(self.value + rules.net_of(self.charges), 2)

    def take_along(self):
        """Each line of a note has of its bill's share what its quantity is of the billed one."""
        self.charges = (0, 0, 0, 0)
        for bill in self.originals:
            pairs = [(new, old, new.quantity / old.quantity) for new, old in zip(self.lines, self.taken) if any(old is own for own in bill.lines)]
            for new, old, part in pairs:
                new.share = rules.rounded(old.share * part, 2)
            goods = sum(old.amount * part for _, old, part in pairs) / bill.value
            its = rules.charges_of_part(bill.charges, goods, rules.rounded(sum(new.share for new, _, _ in pairs), 2))
            self.charges = tuple(rules.rounded(sum(both), 2) for both in zip(self.charges, its))

    def bears_charges(self):
        value = sum(line.amount for line in self.lines)
        return not any(self.charges) or (value > 0 and (self.percent or self.charges[0] <= value))

    def foreign(self):
        lines = sum(rules.bill_line(l.quantity, l.foreign, l.discount, (0, 0, 0))[0] for l in self.lines)
        return rules.rounded(lines + (self.net - self.rounding - self.value) / self.currency[1], 2)


@dataclass
class Challan:
    book = "CH"
    number: int
    day: datetime.date
    party: Party
    type: str
    challan_number: int
    lines: list
    discount: float = 0
    charges: float = 0
    narration: str = ""
    lorry: str = ""
    destination: str = "."
    made: object = None  # the bill that was made of it
    held: set = field(default_factory=set)  # bills of it that are deleted, and in the ledger yet
    sources: list = ()

    def work_out(self):
        self.value, self.quantity, self.off, self.net = rules.challan_totals(self.lines, self.discount, self.charges)


@dataclass
class Quotation:
    number: int
    day: datetime.date
    party: Party
    lines: list
    book = "QT"
    made: object = None

    def work_out(self):
        for line in self.lines:
            line.net, line.amounts = rules.quotation_line(line.quantity, line.rate, line.discount, line.taxes)
        self.total = float(rules.number(sum(line.net for line in self.lines)))
        self.taxes = [sum(line.amounts[i] for line in self.lines) for i in range(3)]
        self.quantity = sum(line.quantity for line in self.lines)
        self.net = rules.rounded(self.total, 0)


@dataclass
class Money:
    book: str
    number: int
    day: datetime.date
    place: str
    party: Party
    amount: float
    narration: str
    mode: str = ""    # over a bank
    cheque: str = ""
    order: int = 0    # in which it was written
    tds: float = 0    # kept back beside the money, and where that stands
    tds_account: str = ""
    settles: tuple = ()  # a bill's number and how much of it


@dataclass
class Series:
    prefix: str
    width: int
    first: int

    def after(self, numbers):
        """The highest of its own goes on."""
        start = self.prefix.replace("{yy}", "26-27")
        counts = [int(n[len(start):]) for n in numbers if n.startswith(start) and n[len(start):].isdigit()]
        return "%s%0*d" % (start, self.width, max(counts + [self.first - 1]) + 1)


@dataclass
class Entry:
    account: str
    side: str
    amount: float
    narration: str = ""


@dataclass
class Journal:
    book: str
    number: int
    day: datetime.date
    reference: str
    narration: str
    entries: list

    def against(self, entry):
        """The largest of the other side, of several the first."""
        return max((e for e in self.entries if e.side != entry.side), key=lambda e: e.amount).account


@dataclass
class Row:
    """One side of an entry."""
    day: datetime.date
    number: int
    book: str
    side: str
    account: str
    against: str
    amount: Decimal
    reference: str
    narration: str
    serial: int
    details: str
    cheque: str = ""


class Books:
    def __init__(self):
        self.categories = [Category("E001", "MISC", ".", ".", 0)]
        self.misc = Item("MISC", "MISC", "E001", 0, ".", [Unit("NOS", 0, 0, 0)])
        self.items, self.parties = [], []
        self.bills = {book: {} for book in SIDES}
        self.challans, self.quotations = {}, {}
        self.money = {book: {} for book in MONEY}
        self.journals = {"JV": {}, "CN": {}}
        self.standing = {}  # rows of the ledger between postings: those of a deleted bill or challan stay
        self.series = {}  # by book and type

    def next(self, vouchers):
        return max(vouchers, default=0) + 1

    def next_bill_number(self, kind, book="SA"):
        series = self.series.get((book, kind)) or self.series.get((book, ""))
        if series:
            return series.after([b.bill_number for b in self.bills[book].values()])
        same = [b for b in self.bills[book].values() if b.type == kind]
        return rules.next_bill_number(max(same, key=lambda b: b.number).bill_number if same else None)

    def next_challan_number(self, kind):
        same = [c for c in self.challans.values() if c.type == kind]
        return max(same, key=lambda c: c.number).challan_number + 1 if same else 1

    def taxes(self, item, party, place=0):
        """The halves inside the state, the whole for another one."""
        return (item.tax / 2, item.tax / 2, 0) if (place or party.state) == STATE else (0, 0, item.tax)

    def name(self, code):
        return SYSTEM.get(code) or next(p.name for p in self.parties if p.code == code)

    def repair(self):
        """What a database update writes where nothing was typed."""
        for p in self.parties:
            p.city, p.area, p.phone, p.gstin = p.city or ".", p.area or ".", p.phone or "0", p.gstin or "."
            p.address = tuple(part or "." for part in p.address)
        for c in self.categories:
            c.hsn, c.description = c.hsn or ".", c.description or "."
        for b in (b for bills in self.bills.values() for b in bills.values()):
            for name in ("narration", "destination", "transport", "lorry", "parcels"):
                setattr(b, name, getattr(b, name) or ".")
            for line in b.lines:
                line.detail = line.detail or "."
        for c in self.challans.values():
            c.narration, c.lorry = c.narration or ".", c.lorry or "."

    def rows(self, v):
        """What a voucher stands for in the ledger after a full posting."""
        if isinstance(v, Journal):
            return [Row(v.day, v.number, v.book, e.side, e.account, v.against(e), dec(e.amount), v.reference or str(v.number),
                        e.narration or v.narration, serial, "") for serial, e in enumerate(v.entries, 1)]
        rows, code, paying = [], v.party.code, isinstance(v, Money)
        reference = str(v.number) if paying else " %d" % v.challan_number if v.book == "CH" else v.bill_number
        details = " - ".join((v.transport, v.lorry, v.parcels)) if v.book == "SA" else ""

        def entry(side, account, against, amount, reference, *remarks):
            if amount != 0:
                rows.append(Row(v.day, v.number, v.book, side, account, against, dec(amount), reference, " ".join((v.narration,) + remarks),
                                v.number if paying else -1, details, v.cheque if paying else ""))

        if paying:
            first, second = MONEY[v.book]
            entry(first, v.place, code, v.amount, reference)
            entry(second, code, v.place, v.amount, reference)
            entry(first, v.tds_account, code, v.tds, reference)
            entry(second, code, v.tds_account, v.tds, reference)
        elif v.book == "CH":
            if v.made:
                return rows
            entry("D", code, SALES, v.net, reference, v.lorry, v.destination)
            entry("C", SALES, code, v.net, reference, v.lorry, v.destination)
        else:
            ours, theirs, goods, taxes = SIDES[v.book]
            entry(ours, code, goods, v.net, reference, v.lorry, v.destination)
            entry(theirs, goods, code, v.value, reference, v.lorry)
            for i, amount in enumerate(v.charges):
                account = goods if goods == PURCHASES else CHARGED if i else ALLOWED
                entry(theirs if i else ours, account, code, amount, reference, v.lorry)
            bought = taxes is INPUT
            for account, amount in zip(taxes, v.taxes):
                if bought or not v.reverse:
                    entry(theirs, goods if v.ineligible else account, code, amount, "")
            for account, amount in zip(OUTPUT, v.taxes):
                if bought and v.reverse:
                    entry(ours, account, code, amount, "")
            if v.book in ("PU", "PR") and v.kind:
                entry(ours, v.customs or OUTPUT[2], code, v.taxes[2], "")
            entry(ours if v.rounding < 0 else theirs, ROUNDING, code, abs(v.rounding), reference)
        return rows

    def saved(self, v):
        """A challan in a bill is not in the ledger, nor beside one that is deleted until that is posted or its number taken."""
        self.standing[v.book, v.number] = [] if v.book == "CH" and v.held else self.rows(v)
        freed = [c for c in self.challans.values() if v.book == "SA" and v.number in c.held]
        for c in freed:
            c.held.remove(v.number)
        for c in [s for s in getattr(v, "sources", ()) if s.book == "CH"] + freed:
            self.saved(c)

    def made(self, v):
        for source in v.sources:
            source.made = v
        self.saved(v)

    def gone(self, v):
        """What a voucher was made of is open again."""
        for source in getattr(v, "sources", ()):
            source.made = None
            if source.book == "CH":
                source.held.add(v.number)

    def open_sources(self, party=None):
        """As they are offered: the newest first."""
        found = [s for kept in (self.challans, self.quotations) for s in kept.values() if not s.made and party in (None, s.party)]
        return sorted(found, key=lambda s: (-s.day.toordinal(), s.book, -s.number))

    def standing_balance(self, code):
        return self.balance(code, [r for rows in self.standing.values() for r in rows])

    def left_behind(self):
        """Deleted vouchers of which the ledger still holds rows; a bill has some that say 0."""
        books = {**self.money, **self.bills, **self.journals, "CH": self.challans}
        return [key for key, rows in self.standing.items() if (rows or key[0] in self.bills) and key[1] not in books[key[0]]]

    def ledger(self):
        """Every row after a full posting."""
        books = [*self.money.values(), *self.bills.values(), *self.journals.values(), self.challans]
        return [row for vouchers in books for v in vouchers.values() for row in self.rows(v)]

    def settled(self):
        """How much of each sale bill is settled by itself."""
        paid = {}
        for m in self.money["RC"].values():
            if m.settles:
                number, amount = m.settles
                paid[number] = paid.get(number, 0) + dec(amount)
        for n in self.bills["SR"].values():
            for number, amount in n.settles.items():
                paid[number] = paid.get(number, 0) + amount
        return paid

    def settle(self, note):
        """As it is saved: of each of its bills what its lines give back, then in their order what is left, as far as nothing else has settled them."""
        note.settles = {}
        paid, left = self.settled(), dec(note.net)
        given = [sum((dec(new.net) for new, line in zip(note.lines, note.taken) if any(line is own for own in bill.lines)), Decimal(0)) for bill in note.originals]
        for amounts in given, [left] * len(given):
            for bill, amount in zip(note.originals, amounts):
                before = note.settles.get(bill.number, Decimal(0))
                more = max(min(amount, dec(bill.net) - paid.get(bill.number, Decimal(0)) - before, left), Decimal(0))
                note.settles[bill.number] = before + more
                left -= more

    def is_bound(self, bill):
        """A note or money stands against it."""
        return bill.number in self.settled() or any(bill in n.originals for book in ("SR", "SD") for n in self.bills[book].values())

    def owed(self, party, ledger, end):
        """The debits that are open: what is settled of a bill by itself first, then the other credits, first in, first out."""
        debits = sorted(((r.day, r.reference, r) for r in ledger if r.account == party.code and r.side == "D"), key=lambda d: d[:2])
        debits = [(day, reference, r.amount, r.number if r.book == "SA" else None) for day, reference, r in debits]
        left = sum((r.amount for r in ledger if r.account == party.code and r.side == "C"), max(-dec(party.opening), Decimal(0)))
        if party.opening > 0:
            debits.insert(0, (PERIOD[0], " OP", dec(party.opening), None))
        paid = {number: min(amount, sum(d[2] for d in debits if d[3] == number)) for number, amount in self.settled().items()}
        paid = {number: amount for number, amount in paid.items() if any(d[3] == number for d in debits)}
        left -= sum(paid.values(), Decimal(0))
        open_bills = []
        for day, reference, amount, number in debits:
            if day > end:
                continue
            own = paid.get(number, Decimal(0))
            more = min(left, amount - own)
            left -= more
            if own + more < amount:
                open_bills.append((day, reference, amount, own + more, number))
        return open_bills

    def opening(self, code):
        return next((dec(p.opening) for p in self.parties if p.code == code), Decimal(0))

    def balance(self, code, rows, until=None):
        signed = (r.amount if r.side == "D" else -r.amount for r in rows if r.account == code and (until is None or r.day <= until))
        return self.opening(code) + sum(signed, Decimal(0))
