"""An operator at a running program, who looks before going on, and the journal of what was saved by whom when."""
import itertools
import os
import random
import re
import subprocess
import sys
import threading
import time
from dataclasses import dataclass, field

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "year"))
from books import Bill, Item, Line, Unit
from rules import number

PARTIES = {"A00001": 24, "A00002": 24, "A00003": 24, "A00004": 24, "A00005": 8, "A00006": 8}
ITEMS = {"I%07d" % n: Item("I%07d" % n, "", "", tax, "", [Unit(unit, 0, rate, 0)]) for n, unit, tax, rate in (
    (4, "NOS", 18, 32), (5, "NOS", 18, 105), (6, "NOS", 18, 126), (7, "NOS", 18, 165), (8, "NOS", 12, 82.5), (10, "NOS", 5, 815), (12, "NOS", 18, 3340),
    (14, "BOX", 5, 275), (15, "NOS", 0, 140))}
TODAY = "2026-11-25"
AWAY = re.compile(r"\[Mirav[^\]]*\].*(?:Try Again|Was Lost)|is in use by another program")


class Gone(Exception):
    """The program has ended."""


class Refused(Exception):
    """What was begun could not be done, with what was said."""


class Hand:
    """A running program, line by line (docs/player.md)."""

    def __init__(self, player, folder, dialogue=os.devnull):
        self.dialogue = open(dialogue, "w", buffering=1, encoding="utf-8")
        self.process = subprocess.Popen([player, folder, "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.said = []
        self.hear()

    def note(self, sign, line):
        self.dialogue.write("%.3f %s %s\n" % (time.monotonic(), sign, line))

    def do(self, *lines):
        """What the program says meanwhile."""
        self.said = []
        for line in lines:
            self.tell(line)
            self.hear()
        return "\n".join(self.said)

    def sure(self, *lines):
        """Each done; what a server that was gone has kept back is done again, as a person would."""
        for line in lines:
            for one in ["key " + key for key in line.split()[1:]] if line.startswith("key ") else [line]:
                for _ in range(60):
                    said = self.do(one)
                    if not AWAY.search(said) or line.startswith("type "):
                        break
                    if line.startswith("menu ") and self.top() != "frmmain":
                        break  # it opened all the same
                    time.sleep(0.5)
                if "failed: " in said:
                    raise Refused("%s: %s" % (one, said))

    def tell(self, line):
        self.note(">", line)
        try:
            self.process.stdin.write(line + "\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            raise Gone from None

    def hear(self):
        for line in self.process.stdout:
            if line == "ready\n":
                if not (self.said and self.said[-1].startswith("question: ")):
                    return
                self.tell("answer " + self.reply(self.said[-1]))
            else:
                self.note("<", line.rstrip("\n"))
                self.said.append(line.rstrip("\n"))
        raise Gone

    def reply(self, question):
        """An operator means what was typed, waits for a server, and does not look again at what others have changed."""
        time.sleep(0.5 if "Does Not Answer" in question else 0)
        return "No" if "Nothing Was Stored" in question else "Yes"

    def step(self, field, then=None, typed=None, key="Enter"):
        """Looks where the cursor stands, types, and looks whether the key has gone on: what is told meanwhile may have kept it back or not."""
        self.stand(field)
        if typed is not None:
            self.sure('fill %s "%s"' % (field, typed))
        said = self.do("key " + key)
        for _ in range(60):
            if not then or "failed: " not in self.do("expect focus " + then):
                return
            if not AWAY.search(said) and "Duplicate Bill No" not in said:  # then the next free one stands there
                break
            time.sleep(0.5)
            self.stand(field)
            said = self.do("key " + key)
        raise Refused("%s to %s: %s%s" % (field, then, said, self.do("show")))

    def stand(self, field):
        if "failed: " in self.do("expect focus " + field):
            self.sure("focus " + field)

    def top(self):
        return self.do("show").split(" ", 1)[0]

    def end(self):
        self.process.kill()
        self.process.wait()
        self.note("<", "ended with %d" % self.process.returncode)
        self.dialogue.close()


@dataclass
class Deed:
    """A save or a deletion; `number` is known once the program has told it."""
    book: str
    tag: str
    bill: object
    number: int
    begun: float
    ended: float = None  # told as done
    told: list = field(default_factory=list)

    def __str__(self):
        ended = "%.1f" % self.ended if self.ended else "?"
        return "%s (%s, %.1f to %s)%s" % (self.tag, "save" if self.bill else "deletion", self.begun, ended, "".join("; " + t for t in self.told[-3:]))


class Journal:
    def __init__(self):
        self.lock, self.deeds, self.faults = threading.Lock(), [], []

    def begin(self, book, tag, voucher, number):
        deed = Deed(book, tag, voucher, number, time.monotonic())
        with self.lock:
            self.deeds.append(deed)
        return deed

    def standing(self, book):
        """Numbers that somebody may look for."""
        with self.lock:
            return sorted({d.number for d in self.deeds if d.book == book and d.ended and d.bill})


class Typist:
    """One operator: does at random what a day brings, a start of the program after each end of it."""

    def __init__(self, name, player, folder, journal, dialogues=None):
        self.name, self.player, self.folder, self.journal, self.dialogues = name, player, folder, journal, dialogues
        self.rng, self.count = random.Random(name), itertools.count(1)
        self.hand, self.starts, self.refusals, self.done = None, 0, [], 0

    def start(self):
        self.starts += 1
        self.hand = Hand(self.player, self.folder, self.dialogues and os.path.join(self.dialogues, "%s.%d" % (self.name, self.starts)))
        self.hand.sure("clock %s 10:30" % TODAY, "focus lst", "key Enter", "tick 4", "expect screen frmmain")

    def work(self, goes_on):
        while goes_on():
            try:
                if not self.hand:
                    self.start()
                self.rng.choices([self.bill, self.change, self.delete, self.receipt, self.report, self.post], [12, 4, 2, 4, 1, 0.2])[0]()
                self.done += 1
            except Refused as refused:
                self.refusals.append(str(refused))
                self.close()
            except Gone:
                self.close()
        self.close()

    def close(self):
        if self.hand:
            self.hand.end()
        self.hand = None

    # The year's keys, without what only one who is alone can expect

    def tag(self):
        tag = "%s %d" % (self.name, next(self.count))
        self.hand.note("=", tag)
        return tag

    def lines(self, party, most=3):
        some = self.rng.sample(list(ITEMS.values()), self.rng.randrange(1, most + 1))
        return [self.line(party, item.code, self.rng.choice([1, 2, 3, 10, 0.5, self.rng.randrange(5, 900) / 100]), item.units[0].sale) for item in some]

    @staticmethod
    def line(party, code, quantity, rate):
        item = ITEMS[code]
        taxes = (item.tax / 2, item.tax / 2, 0) if PARTIES[party] == 24 else (0, 0, item.tax)
        line = Line(item, item.units[0].name, quantity, rate, 0, taxes)
        line.work_out()
        return line

    def bill(self):
        hand, party, tag = self.hand, self.rng.choice(list(PARTIES)), self.tag()
        bill = Bill("SA", 0, TODAY, party, "TAX", "", 0, self.lines(party), tag)
        bill.work_out()
        self.open("SALE")
        hand.sure("key Alt+A")
        hand.step("date", "party")
        hand.step("party", "ship_to", party)
        hand.step("ship_to", "bill_type", key="Tab")
        for field, then in (("bill_type", "bill_no"), ("bill_no", "challan_no"), ("challan_no", "order_no"), ("order_no", "item")):
            hand.step(field, then)
        for n, line in enumerate(bill.lines, 1):
            hand.step("item", "detail", line.item.code)
            hand.step("detail", "unit")
            hand.step("unit", "quantity")
            self.rest_of_line(number(line.quantity), number(line.rate), n)
        hand.sure("key PgDn", 'fill narration "%s"' % tag)
        self.save(self.journal.begin("SA", tag, bill, None))

    def rest_of_line(self, quantity, rate, lines):
        self.hand.step("quantity", None, quantity)
        self.hand.step("rate", "discount", rate)
        self.hand.step("discount", "amount", "0")
        self.hand.step("amount", "item")
        if "failed: " in self.hand.do("expect rows DataGrid1 %d" % lines):
            self.journal.faults.append("%s sees a line less, or more, than was typed: %s" % (self.name, self.hand.do("show")))

    def save(self, deed, last="parcels", away="CancelButton"):
        """Pressed again while the program says why not; what was typed stands there meanwhile."""
        for _ in range(40):
            self.hand.do("focus " + last, "key Enter", "key Enter")
            deed.told += self.hand.said
            saved = re.search(r'lblvalue\(0\): "(\d+)"', self.hand.do("show"))
            if saved:
                deed.number, deed.ended = int(saved[1]), time.monotonic()
                self.hand.sure("press " + away)
                return self.leave()
            if re.search("Nothing Was Stored|Was Stored After All", "\n".join(deed.told)):
                return self.leave()
            time.sleep(0.5)
        raise Refused("\n".join(deed.told[:12]) + self.hand.do("show"))

    def open(self, menu):
        """Tried again while the program says that it cannot."""
        for _ in range(40):
            self.hand.sure("menu " + menu)
            if self.hand.top() != "frmmain":
                return
            time.sleep(0.5)
        raise Refused("%s does not open" % menu)

    def leave(self):
        for button in ("cmdcancel", "cmdclose"):
            if self.hand.top() != "frmmain":
                self.hand.do("press " + button)
        if self.hand.top() != "frmmain":
            raise Refused(self.hand.do("show"))

    def look_for(self, menu, key, book, deed=None):
        """Types the number of a voucher of late that somebody has saved; the deed bears it before it is done."""
        numbers = self.journal.standing(book)
        if not numbers:
            return None
        found = self.rng.choice(numbers[-12:])
        self.open(menu)
        self.hand.sure("key " + key, 'type "%d"' % found)
        if deed:
            deed.number = found
        self.hand.do("key Enter")
        return found

    def change(self):
        """The first line's quantity and the narration of a bill; what else is in it stays as the program loaded it."""
        hand, tag = self.hand, self.tag()
        found = self.look_for("SALE", "Alt+M", "SA")
        if not found or AWAY.search("\n".join(hand.said)):
            return self.leave()  # what came half is not worked on
        loaded = [row.split("|") for row in hand.do('sql data "SELECT ITEM_CD, QUANTITY, RATE FROM T_SLITM ORDER BY SR_NO"').splitlines()]
        party = re.search(r'party[ (][^:]*: "(A\d+)"', hand.do("show"))
        quantity = self.rng.choice([1, 4, 6.25, 20])
        if not loaded or any(len(row) != 3 for row in loaded) or not party or "failed: " in hand.do("focus item", "focus quantity"):
            return self.leave()  # gone, or in other hands
        loaded[0][1] = quantity
        bill = Bill("SA", found, TODAY, party[1], "TAX", "", 0, [self.line(party[1], code, float(q), float(r)) for code, q, r in loaded], tag)
        bill.work_out()
        self.rest_of_line(number(quantity), number(float(loaded[0][2])), len(loaded))
        hand.sure('fill narration "%s"' % tag)
        self.save(self.journal.begin("SA", tag, bill, found))

    def delete(self):
        deed = self.journal.begin("SA", self.tag(), None, None)
        self.look_for("SALE", "Alt+D", "SA", deed)
        deed.told = self.hand.said
        # Nothing is told of what went well.
        if deed.number and [line[:3] for line in self.hand.said] == ["que", "  ["]:
            deed.ended = time.monotonic()
        self.leave()

    def receipt(self):
        hand, tag, amount = self.hand, self.tag(), self.rng.randrange(100, 90000) / 100
        party = self.rng.choice(list(PARTIES))
        self.open("RECEIPT")
        hand.sure("key Alt+A", "key Enter", 'type "%s"' % party, "key Enter", 'type "%s"' % number(amount), "key Enter", 'type "%s"' % tag)
        self.save(self.journal.begin("RC", tag, (party, amount), None), "narration", "OKButton")

    def report(self):
        self.open(self.rng.choice(["SALEBILLSUMMARY", "slblreg", "ONACRCV", "accmastclbl", "recipt", "GSTR1-RD"]))
        self.hand.do("key Alt+S")
        self.leave()

    def post(self):
        self.open("posting")
        self.hand.do("key Enter")
        if self.hand.top() == "frmothers":
            self.hand.do("press cmdok")
        self.leave()
