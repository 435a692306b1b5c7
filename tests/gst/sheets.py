"""What stands in the sheets of a workbook, by nothing but zip and XML."""
import re
import xml.etree.ElementTree as ET
import zipfile

SPACE = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"


def sheets(path):
    """By name: rows of texts and numbers by their column's letters."""
    book, found = zipfile.ZipFile(path), {}
    names = [s.get("name") for s in ET.fromstring(book.read("xl/workbook.xml")).iter(SPACE + "sheet")]
    shared = []
    if "xl/sharedStrings.xml" in book.namelist():
        shared = ["".join(t.text or "" for t in s.iter(SPACE + "t")) for s in ET.fromstring(book.read("xl/sharedStrings.xml")).iter(SPACE + "si")]
    for n, name in enumerate(names, 1):
        rows = found[name] = []
        for row in ET.fromstring(book.read("xl/worksheets/sheet%d.xml" % n)).iter(SPACE + "row"):
            cells = {}
            for cell in row:
                value = cell.find(SPACE + "v")
                text = shared[int(value.text)] if cell.get("t") == "s" else "".join(t.text or "" for t in cell.iter(SPACE + "t")) if cell.get("t") == "inlineStr" else value.text if value is not None else ""
                cells[re.match("[A-Z]+", cell.get("r")).group()] = text
            rows.append((int(row.get("r")), cells))
    return found
