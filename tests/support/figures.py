"""What those who work results out apart from the program share: rows in and out of a database, numbers as they show."""
from decimal import ROUND_HALF_UP, Decimal


def insert(db, table, **values):
    marks = ", ".join("?" * len(values))
    db.execute("INSERT INTO %s (%s) VALUES (%s)" % (table, ", ".join(values), marks), list(values.values()))


def rows(db, statement):
    cursor = db.execute(statement)
    names = [d[0] for d in cursor.description]
    return [dict(zip(names, row)) for row in cursor]


def rounded(x, places=2):
    """Half to even, on the double as it stands."""
    scale = 10.0 ** places
    return round(x * scale) / scale


def number(x):
    text = "%.15g" % x
    return "0" if text == "-0" else text


def dec(x):
    return Decimal(0) if x is None else Decimal(number(x))


def money(x):
    """Two decimals, half away from zero on the decimal form; a text that is no number as it is."""
    if x is None or x == "":
        return ""
    if isinstance(x, str):
        try:
            x = float(x)
        except ValueError:
            return x
    text = str((x if isinstance(x, Decimal) else dec(x)).quantize(Decimal("0.01"), ROUND_HALF_UP))
    return text[1:] if text == "-0.00" else text
