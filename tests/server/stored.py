"""What stands in the books of either engine, read by the engines' own clients: never by the program."""
import sqlite3
import subprocess
import xml.etree.ElementTree as tree

KINDS = {"double": float, "int": int, "bigint": int, "smallint": int, "tinyint": int}


class Stored:
    """The books of a database on the server (`Node.sql` answers for it), as a database in memory."""

    def __init__(self, node, name):
        self.node, self.name = node, name

    def rows(self, statements):
        """For each statement its rows, which are lists of texts and None."""
        answer = subprocess.run(["mariadb", "--no-defaults", "--xml", "--socket=" + self.node.folder + "/socket", "--user=root"],
                                input="SET NAMES utf8mb4; SET wsrep_sync_wait = 15;" + ";".join(statements), text=True, check=True, capture_output=True).stdout
        sets = [tree.fromstring(part) for part in answer.split('<?xml version="1.0"?>')[1:]]
        return [[[None if len(cell.attrib) > 1 else cell.text or "" for cell in row] for row in one] for one in sets]

    def copy(self):
        columns = self.rows(["SELECT C.TABLE_NAME, C.COLUMN_NAME, C.DATA_TYPE FROM information_schema.COLUMNS AS C JOIN information_schema.TABLES AS T"
                             " ON T.TABLE_SCHEMA = C.TABLE_SCHEMA AND T.TABLE_NAME = C.TABLE_NAME WHERE C.TABLE_SCHEMA = '%s' AND TABLE_TYPE = 'BASE TABLE'"
                             " ORDER BY C.TABLE_NAME, C.ORDINAL_POSITION" % self.name])[0]
        shape = {}
        for table, column, kind in columns:
            shape.setdefault(table, {})[column] = KINDS.get(kind, str)
        shape = {table: names for table, names in shape.items() if "rowid" in names}  # the others are the server engine's own
        selects = ["SELECT %s FROM `%s`.`%s` ORDER BY rowid" % (", ".join("`%s`" % c for c in names), self.name, table) for table, names in shape.items()]
        db = sqlite3.connect(":memory:")
        for (table, names), rows in zip(shape.items(), self.rows(selects)):
            db.execute("CREATE TABLE [%s] (%s)" % (table, ", ".join("[%s]" % c for c in names if c != "rowid")))
            made = [[None if x is None else kind(x) for kind, x in zip(names.values(), row)] for row in rows]
            db.executemany("INSERT INTO [%s] (%s) VALUES (%s)" % (table, ", ".join("[%s]" % c for c in names), ", ".join("?" * len(names))), made)
        return db


def differences(one, other, without=()):
    """Between two databases, table by table and row by row to the last bit; names in any case."""
    def tables(db):
        names = [n for n, in db.execute("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'")]
        return {name.upper(): name for name in names if name.upper() not in without}

    found, seen, there = [], 0, tables(other)
    for table, name in tables(one).items():
        if table not in there:
            found.append("%s is not there" % table)
            continue
        columns = [row[1] for row in one.execute("PRAGMA table_info([%s])" % name)]
        select = "SELECT %s FROM [%s] ORDER BY rowid" % (", ".join("[%s]" % c for c in columns), "%s")
        rows, theirs = one.execute(select % name).fetchall(), other.execute(select % there[table]).fetchall()
        seen += len(rows)
        if len(rows) != len(theirs):
            found.append("%s: %d rows and %d" % (table, len(rows), len(theirs)))
        for n, (a, b) in enumerate(zip(rows, theirs)):
            found += ["%s row %d, %s: %r and %r" % (table, n + 1, c, x, y) for c, x, y in zip(columns, a, b) if x != y]
    found += ["%s is too many" % table for table in there if table not in tables(one)]
    return found, seen
