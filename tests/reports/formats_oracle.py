#!/usr/bin/env python3
"""formats_oracle.py PROGRAM [SEED [COUNT]]: other programs read the reports, and find the same.

PROGRAM (report_files.cpp) writes reports on random registers. Journals are read by ledger and
hledger, whose balances must be each year's movements; workbooks by Gnumeric, recalculated, and pages
by Python's HTML parser, whose tables must be those of the CSV files; charts by Python's XML parser. They are written where numbers
have a decimal comma.
With DEPCALC_LONG, LibreOffice recalculates the workbooks and Chromium draws the pages, too.
"""
import csv
import html.parser
import io
import json
import os
import random
import re
import subprocess
import sys
import tempfile
from datetime import date
from decimal import ROUND_HALF_EVEN, Decimal
from pathlib import Path
from xml.etree import ElementTree


LONG = bool(os.environ.get("DEPCALC_LONG"))
SVG = "{http://www.w3.org/2000/svg}"
METHODS = {"SL": "Straight Line", "SYD": "Sum of the Years' Digits",
           "DDB": "Double Declining Balance", "UOP": "Units of Production"}
SHEETS = 5  # as many registers have their workbooks opened


def run(*command, **environment):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          env={**os.environ, "LC_ALL": "C.UTF-8", **environment})
    assert done.returncode == 0, f"{command}: {done.stderr.decode()}"
    return done.stdout.decode()


def read_csv(path):
    return list(csv.reader(io.StringIO(path.read_bytes().decode(), newline="")))


# --- Journals ------------------------------------------------------------------------------------

def ledger_balances(path):
    out = run("ledger", "--args-only", "-f", str(path), "balance", "--flat", "--no-total",
              "--balance-format", "%(account)\t%(quantity(scrub(display_total)))\n")
    return {account: Decimal(amount) for account, amount in
            (line.rsplit("\t", 1) for line in out.splitlines())}


def hledger_balances(path):
    out = run("hledger", "-f", str(path), "balance", "--flat", "-N", "-O", "csv")
    rows = list(csv.reader(io.StringIO(out)))[1:]
    return {row[0]: Decimal(row[1]) for row in rows}


def sums(balances, prefix):
    return sum((amount for account, amount in balances.items()
                if account == prefix or account.startswith(prefix + ":")), Decimal(0))


def name_in_ledger(name):
    for blank in "\t\r\n;":
        name = name.replace(blank, " ")
    while "  " in name:
        name = name.replace("  ", " ")
    return name


def check_balances(balances, rows, by, where):
    captions = rows[0]
    for row in rows[1:]:
        group = row[0]
        moved = {caption: Decimal(amount) for caption, amount in zip(captions[1:], row[1:])}
        tail = "" if group == "total" else ":" + name_in_ledger(group)
        expected = {"Expenses:Depreciation": moved["depreciation"],
                    "Assets:Accumulated Depreciation":
                        moved["accumulated_disposals"] - moved["depreciation"],
                    "Assets:Fixed Assets": -moved["disposals"]}
        for account, amount in expected.items():
            got = sums(balances, account + tail)
            assert got == amount, f"{where} {account + tail}: {got}, not {amount}: {balances}"


def check_journals(folder, register):
    checked = 0
    for by in ("none", "department"):
        journals = sorted(folder.glob(f"{register}-*.{by}.journal"))
        for journal in journals:
            if not journal.stat().st_size:
                continue
            rows = read_csv(journal.with_suffix(".rollforward"))
            for balances in (ledger_balances, hledger_balances):
                check_balances(balances(journal), rows, by, f"{balances.__name__} {journal.name}")
                checked += 1
        every = folder / f"{register}.all"
        every.write_text("\n".join(journal.read_text() for journal in journals))
        if not every.read_text().strip():
            continue
        closing = read_csv(journals[-1].with_suffix(".rollforward"))[-1]
        for balances in (ledger_balances, hledger_balances):
            got = -sums(balances(every), "Assets:Accumulated Depreciation")
            assert got == Decimal(closing[8]), f"{balances.__name__} {register} {by}: {got} {closing}"
    return checked


# --- Tables --------------------------------------------------------------------------------------

AMOUNT = lambda text: f"{Decimal(text):.4f}"


class Tables(html.parser.HTMLParser):
    """The rows of each table, a cell as data files have it; what it must not have is refused."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.tables, self.cell, self.kind = [], None, None

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        assert tag not in ("script", "link", "img", "iframe", "object"), tag
        assert not {"src", "href", "onclick"} & set(attributes), attributes
        if tag == "table":
            self.tables.append([])
        elif tag == "tr":
            self.kind = attributes.get("class", "")
            self.tables[-1].append((self.kind, []))
        elif tag in ("td", "th"):
            self.cell = ["", attributes, None]
        elif tag == "data":
            self.cell[2] = attributes["value"]
        elif tag == "time":
            self.cell[2] = attributes["datetime"]

    def handle_data(self, data):
        if self.cell is not None:
            self.cell[0] += data

    def handle_endtag(self, tag):
        if tag in ("td", "th"):
            text, attributes, exact = self.cell
            span = int(attributes.get("colspan", 1))
            self.tables[-1][-1][1].extend([text if exact is None else exact] + [""] * (span - 1))
            self.cell = None


def shown_by_chromium(path):
    """The page as the browser has it, when it is drawn."""
    dom = path.with_suffix(".dom")
    dom.write_text(run("chromium", "--headless", "--no-sandbox", "--disable-gpu",
                       f"--user-data-dir={path.parent}/chromium", "--dump-dom", f"file://{path}"))
    return dom


def printable(text):
    written = {"\n": "\\n", "\r": "\\r", "\t": "\\t"}
    return "".join(written.get(c, f"\\x{ord(c):02X}" if c < " " else c) for c in text)


def check_html(path, rows, data_table, order):
    parser = Tables()
    parser.feed(path.read_text())
    shown = parser.tables[data_table]
    captions = shown[0][1]
    body = [cells for kind, cells in shown[1:] if kind == ""]
    assert all(len(cells) == len(captions) for kind, cells in shown), path.name
    columns = matching(captions, rows[0])
    expected = [rows[i] for i in order]
    got = [{name: cell for name, cell in zip(columns, cells)} for cells in body]
    assert len(got) == len(expected), (path.name, len(got), len(expected))
    for cells, row in zip(got, expected):
        for name, value in zip(rows[0], row):
            left_out = name not in cells
            assert left_out and value in ("", "0.0000") or not left_out and (
                cells[name] == printable(value)), f"{path.name} {name}: {cells.get(name)!r} {value!r}"
    totals = [cells for kind, cells in shown if kind == "sum"][-1:]
    if rows[-1][0] == "total":
        for name, value in zip(rows[0], rows[-1]):
            if name in columns and value and value != "total":
                assert totals[0][columns.index(name)] == value, (path.name, name)


NAMES = {"N": "n", "Asset ID": "id", "In service": "placed_in_service",
         "Accumulated before": "before", "Removed by disposal": "removed",
         "Accumulated after": "after", "Disposed of": "disposed", "Cost, opening": "cost_opening",
         "Cost, closing": "cost_closing", "Accumulated, opening": "accumulated_opening",
         "Accumulated on disposals": "accumulated_disposals",
         "Accumulated, closing": "accumulated_closing", "Book value, opening": "book_value_opening",
         "Book value, closing": "book_value_closing"}


def matching(captions, names):
    found = []
    for caption in captions:
        name = NAMES.get(caption, caption if caption in names else caption.lower().replace(" ", "_"))
        if names[0] == "group" and not found:
            name = "group"
        assert name in names, (caption, names)
        found.append(name)
    return found


def unescaped(text):
    """As Excel reads a text; Gnumeric leaves what stands for a character as it is."""
    return re.sub("_x([0-9A-F]{4})_", lambda found: chr(int(found[1], 16)), text)


def same(got, expected):
    """A number of a spreadsheet is the amount to its last digit; a date a date, or a count of days."""
    if expected in (got, unescaped(got)):
        return True
    try:
        return AMOUNT(got) == AMOUNT(expected)
    except ArithmeticError:
        pass
    try:
        day = date.fromisoformat(expected)
    except ValueError:
        return False
    return got in (str((day - date(1899, 12, 30)).days), day.strftime("%m/%d/%Y"))


def gnumeric_rows(path, sheet):
    out = path.with_suffix(".sheets")
    run("ssconvert", "--recalc", "-S", "-O", "format=raw separator=, quoting-mode=auto",
        "-T", "Gnumeric_stf:stf_assistant", str(path), f"{out}.%n")
    return read_csv(Path(f"{out}.{sheet}"))


ALWAYS_RECALCULATE = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Calc/Formula/Load">
<prop oor:name="OOXMLRecalcMode" oor:op="fuse"><value>0</value></prop></item></oor:items>
"""


def convert_by_libreoffice(folder, paths):
    profile = folder / "libreoffice" / "user"
    profile.mkdir(parents=True)
    (profile / "registrymodifications.xcu").write_text(ALWAYS_RECALCULATE)
    run("soffice", f"-env:UserInstallation=file://{profile.parent}", "--headless", "--convert-to",
        "csv:Text - txt - csv (StarCalc):44,34,76,1,,1033,false,true,false,false,false,-1",
        "--outdir", str(folder / "by-libreoffice"), *map(str, paths))


def libreoffice_rows(path, sheet):
    found = sorted((path.parent / "by-libreoffice").glob(f"{path.stem}-*.csv"))
    name = [each for each in found if each.stem.endswith("-Schedule")] or found
    assert len(name) == 1, found
    return read_csv(name[0])


def check_xlsx(path, rows, shown, order):
    at = next(i for i, row in enumerate(shown) if len(row) > 1 and all(row)
              or i == 3)
    width = len(rows[0])
    assert matching(shown[at][:width], rows[0]) == rows[0], shown[at]
    body, total = [], None
    for row in shown[at + 1:]:
        if len(row) < width or not any(row):
            break
        is_sum = any(row[0] == label for label in ("Total",)) or row[0].startswith("Total, ")
        if is_sum:
            total = row
            break
        body.append(row)
    expected = [rows[i] for i in order]
    data = [row for row in body if any(same_row(row, each) for each in expected)]
    assert len(data) >= len(expected), (path.name, body, expected)
    position = 0
    for row in expected:
        while not same_row(body[position], row):
            position += 1
        position += 1
    if rows[-1][0] == "total":
        for value, cell in zip(rows[-1][1:], total[1:]):
            assert same(cell, value), (path.name, total, rows[-1])


def same_row(row, expected):
    return len(row) >= len(expected) and all(map(same, row, expected))


def check_tables(folder, register, spreadsheets):
    checked = 0
    for path in sorted(folder.glob(f"{register}-*.csv")):
        rows = read_csv(path)
        kind = path.stem.rsplit("-", 1)[1]
        count = len(rows) - 1 - (rows[-1][0] == "total" and kind not in ("journal", "check", "asset"))
        order = list(range(1, count + 1))
        key = {"schedule": "department", "years": "method"}.get(kind)
        if key and "plain" not in path.stem:
            column = rows[0].index(key)
            order.sort(key=lambda i: rows[i][column].encode())
        data_table = 0
        if kind == "asset":
            text = path.with_suffix(".html").read_text()
            data_table = 2 if "<caption>Disposal</caption>" in text else 1
        check_json(path.with_suffix(".json"), rows)
        check_html(path.with_suffix(".html"), rows, data_table, order)
        for rows_of in spreadsheets:
            workbook = path.with_suffix(".xlsx")
            check_xlsx(workbook, rows, rows_of(workbook, data_table), order)
        if LONG and spreadsheets:
            check_html(shown_by_chromium(path.with_suffix(".html")), rows, data_table, order)
        checked += 1
    return checked


def check_charts(folder, register):
    """Every figure of the table stands in the picture once, as the title of its mark."""
    checked = 0
    for path in sorted(folder.glob(f"{register}-*.svg")):
        told = sorted(title.text for title in ElementTree.parse(path).iter(f"{SVG}path")
                      for title in title.iter(f"{SVG}title"))
        captions, *rows = read_csv(path.with_suffix(".chart"))
        expected = []
        for row in rows:
            for name, value in zip(captions[1:], row[1:]):
                method = METHODS[name.removesuffix("_book_value")]
                if value:
                    expected.append(f"FY{row[0]}, {method}: {shown_money(value)}")
        assert told == sorted(expected), (path.name, told, expected)
        checked += len(told)
    return checked


def shown_money(value):
    cents = Decimal(value).quantize(Decimal("0.01"), ROUND_HALF_EVEN)
    return f"{cents + 0:,.2f}"


def check_json(path, rows):
    told = json.loads(path.read_text())
    expected = [{name: int(value) if name == "n" and value.isdigit() else value
                 for name, value in zip(rows[0], row)} for row in rows[1:]]
    assert told == expected, (path.name, told, expected)


def main():
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.SystemRandom().randrange(2**32)
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 12
    print(f"seed {seed}")
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        run("localedef", "-i", "de_DE", "-f", "UTF-8", f"{name}/de_DE.UTF-8")
        point = run(sys.argv[1], str(seed), str(count), name, LOCPATH=name, LC_ALL="de_DE.UTF-8")
        assert point == ",", "the reports were not written where numbers have a decimal comma"
        journals = sum(check_journals(folder, i) for i in range(min(count, 4)))
        if LONG:
            convert_by_libreoffice(folder, [path for i in range(SHEETS)
                                            for path in sorted(folder.glob(f"{i}-*.xlsx"))])
        programs = [gnumeric_rows] + [libreoffice_rows] * LONG
        tables = sum(check_tables(folder, i, programs if i < SHEETS else []) for i in range(count))
        figures = sum(check_charts(folder, i) for i in range(count))
    assert figures > 50 * count, figures
    assert journals > 20 and tables > 5 * count, (journals, tables)
    print(f"{journals} journals and {tables} tables agree")


if __name__ == "__main__":
    main()
