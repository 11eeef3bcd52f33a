#!/usr/bin/env python3
"""what_if_oracle.py PROGRAM DEPCALC [SEED]: each row of What if is what the command gives.

PROGRAM (what_if_rows.cpp) prints rows for random assets; `depcalc schedule` calculates the values
that each row stands for.
"""
import csv
import io
import random
import subprocess
import sys
from collections import defaultdict
from decimal import Decimal

COUNT = 300
METHODS = ["SL", "SYD", "DDB"]


def run(*command, text=None):
    return subprocess.run(command, check=True, input=text, stdout=subprocess.PIPE,
                          encoding="utf-8").stdout


def main():
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.SystemRandom().randrange(2**32)
    print(f"seed {seed}")
    rows = list(csv.reader(io.StringIO(run(sys.argv[1], str(seed), str(COUNT)))))
    head = "id,placed_in_service,fiscal_year_end,life,convention,basis,salvage\n"
    text = head + "".join(f"{i},{','.join(row[:6])}\n" for i, row in enumerate(rows))
    amounts = defaultdict(list)
    schedules = run(sys.argv[2], "schedule", "--format", "csv", "--no-date-limit", "--today",
                    "2026-01-01", text=text)
    for line in csv.DictReader(io.StringIO(schedules)):
        amounts[int(line["id"]), line["method"]].append(Decimal(line["amount"]))
    for i, row in enumerate(rows):
        for k, method in enumerate(METHODS):
            first, total = (Decimal(value) for value in row[6 + 2 * k:8 + 2 * k])
            expected = amounts[i, method]
            assert first == expected[0] and total == sum(expected), (row, method, expected)
    assert len(rows) > 10 * COUNT, len(rows)


main()
