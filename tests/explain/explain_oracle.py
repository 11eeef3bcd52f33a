#!/usr/bin/env python3
"""explain_oracle.py DEPCALC VECTORS: what `depcalc explain` says of the vectors, worked out anew.

Every expression is evaluated by Python's own arithmetic, with nothing but round2() and currency() to
name; it must come to the step's result, and the last one to the amount, which is the vectors'.
"""
import csv
import json
import re
import subprocess
import sys
import tempfile
from decimal import Decimal
from pathlib import Path

PLAIN = re.compile(r"(?:round2|currency|[0-9.]+|[-+*/() ])*")


def round2(value):
    return round(value * 100.0) / 100.0


def currency(value):
    return round(value * 10000.0) / 10000.0


def evaluated(expression):
    assert PLAIN.fullmatch(expression), expression
    return eval(expression, {"__builtins__": {}, "round2": round2, "currency": currency})


def check(explanation):
    assert list(explanation) == ["method", "fiscal_year", "amount", "steps"], explanation
    for step in explanation["steps"]:
        assert list(step) == ["words", "expression", "result"] and step["words"], step
        value = evaluated(step["expression"])
        assert float(value) == float(step["result"]), (step, value)
    last = explanation["steps"][-1]["result"]
    assert Decimal(last) == Decimal(explanation["amount"]), explanation


def main():
    depcalc, vectors = sys.argv[1], Path(sys.argv[2])
    with open(vectors / "schedules-expected.csv", newline="") as file:
        expected = {(row["id"], row["method"], row["fiscal_year"]): Decimal(row["amount"])
                    for row in csv.DictReader(file)}
    with open(vectors / "schedules-input.csv", newline="") as file:
        ids = [row["id"] for row in csv.DictReader(file)]
    found = {}
    with tempfile.TemporaryDirectory() as folder:
        company = str(Path(folder) / "vectors.company")

        def run(*arguments):
            return subprocess.run([depcalc, *arguments], check=True, text=True, capture_output=True).stdout

        run("new", company)
        run("import", "--today", "2024-06-15", "--allow-duplicates", company,
            str(vectors / "schedules-input.csv"))
        for number, name in enumerate(ids, start=1):
            for method in ("SL", "SYD", "DDB", "UOP"):
                said = run("explain", company, str(number), "--method", method, "--format", "json")
                for explanation in json.loads(said):
                    check(explanation)
                    year = explanation["fiscal_year"]
                    key = (name, method, "" if year is None else str(year))
                    found[key] = Decimal(explanation["amount"])
    assert found == expected, {key for key in found.keys() | expected.keys()
                               if found.get(key) != expected.get(key)}
    assert len(ids) == 300
    print(len(found), "amounts")


main()
