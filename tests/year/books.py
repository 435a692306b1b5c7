"""The books of the shop as they must stand: masters, vouchers, ledger, balances. Nothing here has seen the program."""
import datetime
from dataclasses import dataclass, field
from decimal import Decimal

import rules
from rules import dec

STATE = 24
PERIOD = datetime.date(2026, 4, 1), datetime.date(2027, 3, 31)
DEBTORS, BANKS, CREDITORS = 85, 87, 135
CASH, PURCHASES, SALES, ROUNDING = "X90005", "X90001", "X90002", "X90015"
SYSTEM = {PURCHASES: "PURCHASE A/C", SALES: "SALES A/C", CASH: "CASH A/C", ROUNDING: "ROUND OFF", "X90061": "OUTPUT CGST",
          "X90062": "OUTPUT SGST", "X90063": "OUTPUT IGST", "X90064": "INPUT CGST", "X90065": "INPUT SGST", "X90066": "INPUT IGST"}
TAXES = {"SA": ("X90061", "X90062", "X90063"), "PU": ("X90064", "X90065", "X90066")}


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

    def work_out(self, typed=None):
        self.amount, self.amounts, self.net = rules.bill_line(self.quantity, self.rate, self.discount, self.taxes, typed)


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

    def work_out(self):
        self.value, self.taxes, self.quantity, self.rounding, self.net = rules.bill_totals(self.lines)


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

    def work_out(self):
        self.value, self.quantity, self.off, self.net = rules.challan_totals(self.lines, self.discount, self.charges)


@dataclass
class Quotation:
    number: int
    day: datetime.date
    party: Party
    lines: list

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


class Books:
    def __init__(self):
        self.categories = [Category("E001", "MISC", ".", ".", 0)]
        self.misc = Item("MISC", "MISC", "E001", 0, ".", [Unit("NOS", 0, 0, 0)])
        self.items, self.parties = [], []
        self.bills = {"SA": {}, "PU": {}}
        self.challans, self.quotations = {}, {}
        self.money = {"RC": {}, "PY": {}}
        self.standing = {}  # rows of the ledger between postings: those of a deleted bill or challan stay

    def next(self, vouchers):
        return max(vouchers, default=0) + 1

    def next_bill_number(self, kind):
        same = [b for b in self.bills["SA"].values() if b.type == kind]
        return rules.next_bill_number(max(same, key=lambda b: b.number).bill_number if same else None)

    def next_challan_number(self, kind):
        same = [c for c in self.challans.values() if c.type == kind]
        return max(same, key=lambda c: c.number).challan_number + 1 if same else 1

    def taxes(self, item, party):
        """The halves inside the state, the whole for another one."""
        return (item.tax / 2, item.tax / 2, 0) if party.state == STATE else (0, 0, item.tax)

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
        rows, code, paying = [], v.party.code, isinstance(v, Money)
        reference = str(v.number) if paying else " %d" % v.challan_number if v.book == "CH" else v.bill_number
        details = " - ".join((v.transport, v.lorry, v.parcels)) if v.book == "SA" else ""

        def entry(side, account, against, amount, reference, *remarks):
            if amount != 0:
                rows.append(Row(v.day, v.number, v.book, side, account, against, dec(amount), reference, " ".join((v.narration,) + remarks),
                                v.number if paying else -1, details))

        if paying:
            first, second = {"RC": "DC", "PY": "CD"}[v.book]
            entry(first, v.place, code, v.amount, reference)
            entry(second, code, v.place, v.amount, reference)
        elif v.book == "CH":
            entry("D", code, SALES, v.net, reference, v.lorry, v.destination)
            entry("C", SALES, code, v.net, reference, v.lorry, v.destination)
        else:
            ours, theirs, goods = ("D", "C", SALES) if v.book == "SA" else ("C", "D", PURCHASES)
            entry(ours, code, goods, v.net, reference, v.lorry, v.destination)
            entry(theirs, goods, code, v.value, reference, v.lorry)
            for account, amount in zip(TAXES[v.book], v.taxes):
                entry(theirs, account, code, amount, "")
            entry(ours if v.rounding < 0 else theirs, ROUNDING, code, abs(v.rounding), reference)
        return rows

    def saved(self, v):
        self.standing[v.book, v.number] = self.rows(v)

    def standing_balance(self, code):
        return self.balance(code, [r for rows in self.standing.values() for r in rows])

    def left_behind(self):
        """Deleted vouchers of which the ledger still holds rows."""
        books = {**self.money, **self.bills, "CH": self.challans}
        return [key for key, rows in self.standing.items() if rows and key[1] not in books[key[0]]]

    def ledger(self):
        """Every row after a full posting."""
        books = [*self.money.values(), *self.bills.values(), self.challans]
        return [row for vouchers in books for v in vouchers.values() for row in self.rows(v)]

    def opening(self, code):
        return next((dec(p.opening) for p in self.parties if p.code == code), Decimal(0))

    def balance(self, code, rows, until=None):
        signed = (r.amount if r.side == "D" else -r.amount for r in rows if r.account == code and (until is None or r.day <= until))
        return self.opening(code) + sum(signed, Decimal(0))
