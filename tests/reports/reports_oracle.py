#!/usr/bin/env python3
"""reports_oracle.py PROGRAM [SEED [COUNT]]: what the reports on random registers should say.

PROGRAM prints registers and the reports on them (random_registers.cpp). Here every figure is worked
out anew from its definition, on Python's own dates and whole ten-thousandths; and what one report
says is held against the others.
"""
import json
import os
import random
import subprocess
import sys
from datetime import date, timedelta

WORDS = ["Full Year", "Half Year", "Full Month", "Half Month", "Actual Days"]


# --- Days ----------------------------------------------------------------------------------------

def carried(year, month, day):
    """29 February of a common year is 1 March."""
    return date(year, month, 1) + timedelta(days=day - 1)


def years_later(day, years):
    try:
        return day.replace(year=day.year + years)
    except ValueError:
        return date(day.year + years, 2, 28)


def month_boundaries(first, last):
    return 12 * last.year + last.month - 12 * first.year - first.month


def days_counted(last_day):
    year = last_day.year - 1 if date(last_day.year, 2, 28) >= last_day else last_day.year
    leap = year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)
    return 366.0 if leap else 365.0


# --- An asset ------------------------------------------------------------------------------------

def cents(value):
    """A double to two decimals, then in ten-thousandths."""
    return round(round(value * 100.0) / 100.0 * 10000.0)


class Asset:
    def __init__(self, saved):
        self.__dict__.update(saved)
        self.P = date.fromisoformat(self.placed)
        end = date.fromisoformat(self.year_end)
        self.E0 = carried(self.P.year, end.month, end.day)
        if self.E0 < self.P:
            self.E0 = years_later(self.E0, 1)
        self.y0 = self.E0.year
        known = self.convention in ("0", "1", "2", "3", "4")
        self.word = WORDS[int(self.convention)] if known else WORDS[0]
        self.c = int(self.convention) if known else 4
        self.code = {"uop": "UOP"}.get(self.method, self.method)
        if self.code not in ("SL", "SYD", "DDB", "UOP"):
            self.code = ""
        self.n = max(0, round(self.life + (0 if self.c == 0 else 1)))
        self.D = date.fromisoformat(self.disposed) if self.disposed else None
        self.d = None
        if self.D and self.D >= self.P:
            self.d = next(y for y in range(self.y0, 9999) if self.D <= self.E(y))
        self.unscheduled = not self.code or self.code == "UOP" and not self.units
        self.taken = self.amounts_by_year()

    def E(self, year):
        return years_later(self.E0, year - self.y0)

    def first_fraction(self):
        if self.c == 0:
            return 1.0
        if self.c == 1:
            return 0.5
        if self.c == 4:
            return min(1.0, ((self.E0 - self.P).days + 1) / days_counted(self.E0))
        start = self.P.replace(day=1)
        if self.c == 3 and self.P.day >= 16:
            start = (start + timedelta(days=31)).replace(day=1)
        return min(1.0, round((self.E0 - start).days / 30.0) / 12.0)

    def held(self):
        S = self.E(self.d - 1) + timedelta(days=1)
        months = month_boundaries(S, self.D)
        h = [0.0, 0.5, months / 12.0, (months + (1 if self.D.day >= 16 else 0)) / 12.0,
             (self.D - S).days / days_counted(self.E(self.d))][self.c]
        return max(0.0, min(1.0, h))

    def of_disposal(self, A):
        if self.d == self.y0:
            return 0
        s = 1.0 - self.first_fraction() if self.c != 0 and self.d - self.y0 == self.n - 1 else 1.0
        if s <= 0:
            return A
        amount = cents(A / 10000.0 * self.held() / s)
        return A if abs(amount) > abs(A) else amount

    def amounts_by_year(self):
        taken = {}
        if self.unscheduled:
            return taken
        if self.code == "UOP":
            left = self.basis - self.salvage
            for year in sorted(map(int, self.units)):
                if year < self.y0 or self.d is not None and year > self.d:
                    continue
                rate = self.amounts[0] / 10000.0
                taken[year] = max(0, min(cents(self.units[str(year)] * rate), left))
                left -= taken[year]
            return taken
        k = 0
        while k < self.life + 1:
            A = self.amounts[k] if k < len(self.amounts) else 0
            year = self.y0 + k
            if self.d is None or year < self.d:
                taken[year] = A
            elif year == self.d:
                taken[year] = self.of_disposal(A)
            k += 1
        return taken

    def of(self, year):
        return self.taken.get(year, 0)

    def acc(self, year):
        return sum(amount for y, amount in self.taken.items() if y <= year)

    def total(self):
        return sum(self.taken.values())

    def gain(self):
        return self.proceeds - (self.basis - self.acc(self.d))

    def group(self, by):
        return {"none": "", "department": self.department, "method": self.code,
                "convention": self.word}[by]


# --- Reports as rows of Python values ------------------------------------------------------------

class Money(int):
    pass


def field(value):
    if isinstance(value, Money):
        sign = "-" if value < 0 else ""
        return f"{sign}{abs(value) // 10000}.{abs(value) % 10000:04d}"
    if isinstance(value, date):
        return value.isoformat()
    if not isinstance(value, str):
        return f"{value:.15g}"
    behind = value.lstrip("'")
    if behind[:1] in ("=", "+", "-", "@", "\t", "\r") and behind:
        value = "'" + value
    if any(c in value for c in ",\"\r\n"):
        value = '"' + value.replace('"', '""') + '"'
    return value


def csv(captions, rows, total=True):
    lines = [captions.split(",")] + [[field(value) for value in row] for row in rows]
    if total:
        width = len(lines[0])
        sums = ["total"] + [""] * (width - 1)
        for i in MONEY_COLUMNS(lines[0]):
            sums[i] = field(Money(sum(row[i] for row in rows)))
        lines.append(sums)
    return "".join(",".join(line) + "\n" for line in lines)


def MONEY_COLUMNS(captions):
    no_money = {"n", "id", "name", "department", "placed_in_service", "life", "convention", "method",
                "disposed", "group"}
    return [i for i, caption in enumerate(captions) if caption not in no_money]


def schedule(register, year, by):
    rows = []
    for a in register.assets:
        if a.y0 > year or a.d is not None and year > a.d:
            continue
        gone = a.d == year
        before, taken = a.acc(year - 1), a.of(year)
        removed = a.acc(year) if gone else 0
        after = before + taken - removed
        book = 0 if gone else a.basis - after
        rows.append([a.n_, a.id, a.name, a.department, a.P, Money(a.basis), Money(a.salvage), a.life,
                     a.word, a.code, Money(before), Money(taken), Money(removed), Money(after),
                     Money(book), a.D if gone else ""])
    gone_basis = sum(a.basis for a in register.assets if a.d == year)
    assert sum(r[14] for r in rows) == sum(r[5] for r in rows) - sum(r[13] for r in rows) - gone_basis
    return csv("n,id,name,department,placed_in_service,basis,salvage,life,convention,method,before,"
               "depreciation,removed,after,book_value,disposed", rows)


def years(register, first, last, by):
    if first == "-":
        company = register.year_of(register.today_)
        first = register.start if register.assets else company
        last = register.start + register.span if register.assets else company
    first, last = int(first), int(last)
    rows = []
    for a in register.assets:
        inside = [a.of(y) for y in range(first, last + 1)]
        later = a.total() - a.acc(last)
        row = [a.acc(first - 1)] + inside + [later, a.total()]
        assert sum(row[:-1]) == row[-1]
        rows.append([a.n_, a.id, a.name, a.code] + [Money(x) for x in row])
    names = "".join(f"FY{y}," for y in range(first, last + 1))
    return csv(f"n,id,name,method,earlier,{names}later,total", rows)


def movement(assets, year):
    there = [a for a in assets if a.d is None or year <= a.d]
    co = sum(a.basis for a in there if a.y0 < year)
    add = sum(a.basis for a in there if a.y0 == year)
    out = sum(a.basis for a in there if a.d == year)
    ao = sum(a.acc(year - 1) for a in there if a.y0 < year)
    dep = sum(a.of(year) for a in there if a.y0 <= year)
    ad = sum(a.acc(year) for a in there if a.d == year)
    cc, ac = co + add - out, ao + dep - ad
    return [Money(x) for x in (co, add, out, cc, ao, dep, ad, ac, co - ao, cc - ac)]


ROLL = ("group,cost_opening,additions,disposals,cost_closing,accumulated_opening,depreciation,"
        "accumulated_disposals,accumulated_closing,book_value_opening,book_value_closing")


def rollforward(register, year, by):
    if by == "none":
        total = movement(register.assets, year)
        return ROLL + "\n" + ",".join(["total"] + [field(x) for x in total]) + "\n"
    groups = sorted({a.group(by) for a in register.assets})
    rows = [[group or "(none)"] + movement([a for a in register.assets if a.group(by) == group], year)
            for group in groups]
    return csv(ROLL, rows)


def journal(register, year, by):
    rows, entry = [], 0

    def add(day, lines, memo):
        nonlocal entry
        lines = [(account, debit) for account, debit in lines if debit]
        assert sum(debit for account, debit in lines) == 0
        if lines:
            entry += 1
        for account, debit in lines:
            rows.append([day, entry, account, Money(max(debit, 0)), Money(max(-debit, 0)), memo])

    def within(account, group):
        return f"{account}:{group or '(none)'}" if by == "department" else account

    lines = []
    for group in sorted({a.group(by) for a in register.assets}):
        amount = sum(a.of(year) for a in register.assets if a.group(by) == group)
        lines += [(within("Expenses:Depreciation", group), amount),
                  (within("Assets:Accumulated Depreciation", group), -amount)]
    add(register.last_day(year), lines, f"Depreciation, FY{year}")
    for a in register.assets:
        if a.d != year:
            continue
        gain, group = a.gain(), a.group("department")
        add(a.D, [("Assets:Cash", a.proceeds),
                  (within("Assets:Accumulated Depreciation", group), a.acc(year)),
                  (within("Assets:Fixed Assets", group), -a.basis),
                  ("Income:Gain on Disposal" if gain > 0 else "Expenses:Loss on Disposal", -gain)],
            "Disposal of " + (", ".join(t for t in (a.id, a.name) if t) or f"asset {a.n_}"))
    return csv("date,entry,account,debit,credit,memo", rows, total=False)


def asset(register, number):
    a = register.assets[int(number) - 1]
    rows = []
    if not a.unscheduled:
        last = max([a.y0 + a.n - 1] + [y for y, amount in a.taken.items() if amount])
        for year in range(a.y0, min(last, a.d if a.d is not None else last) + 1):
            gone = a.d == year
            after = 0 if gone else a.acc(year)
            rows.append([year, Money(a.acc(year - 1)), Money(a.of(year)), Money(after),
                         Money(0 if gone else a.basis - after)])
    return csv("fiscal_year,before,depreciation,after,book_value", rows, total=False)


def findings(register):
    """The severities and assets of the check, in its order."""
    found = []
    ids, serials = set(), set()
    for a in register.assets:
        error, warning, note = (lambda s=s: found.append((a.n_, s)) for s in range(3))
        if a.salvage > a.basis:
            error()
        if a.method and a.life == 0:
            error()
        if a.method and a.basis == 0:
            error()
        if a.method and not a.code:
            error()
        if a.convention not in ("0", "1", "2", "3", "4"):
            error()
        if a.D and a.D < a.P:
            error()
        if a.code == "UOP":
            if a.amounts[0] != a.today["UOP"]:
                error()
            if a.amounts[0] == 0:
                warning()
            left, missing = a.basis - a.salvage, False
            for year in range(a.y0, 9999):
                if a.E(year) >= register.today_ or a.d is not None and year > a.d or left <= 0:
                    break
                missing = missing or str(year) not in a.units
                left -= a.of(year)
            if missing:
                warning()
            if sum(a.units.values()) > a.capacity:
                warning()
        elif a.code:
            counted = [k for k in range(100) if k < a.life + 1]
            saved = [(a.amounts + [0] * 100)[k] for k in counted]
            if saved != [(a.today[a.code] + [0] * 100)[k] for k in counted]:
                error()
            total = sum(saved)
            if a.code == "DDB" and total < a.basis - a.salvage:
                note()
            if a.code != "DDB" and total != a.basis - a.salvage:
                error()
        end, company = date.fromisoformat(a.year_end), register.last_day(2023)
        if (end.month, end.day) == (2, 29):
            warning()
        if end.month != company.month or end.day != company.day and not (
                end.month == 2 and end.day in (28, 29)):
            warning()
        if not a.method:
            warning()
        if a.id in ids:
            warning()
        if a.serial in serials:
            warning()
        ids.update([a.id] if a.id else [])
        serials.update([a.serial] if a.serial else [])
        if a.n_ > len(register.assets) - register.not_printed:
            note()
        if not years_later(register.today_, -50) <= a.P <= years_later(register.today_, 50):
            note()
    found += [(n, 0) for n in register.not_known]
    return sorted(found)


class Register:
    def __init__(self, line):
        self.__dict__.update(json.loads(line))
        self.assets = [Asset({**saved, "n_": saved["n"]}) for saved in self.assets]
        self.today_ = date.fromisoformat(self.today)

    def last_day(self, year):
        return date(year + (self.first_month == 1), self.first_month, 1) - timedelta(days=1)

    def year_of(self, day):
        return day.year if day <= self.last_day(day.year) else day.year + 1


REPORTS = {"schedule": schedule, "years": years, "rollforward": rollforward, "journal": journal,
           "asset": asset}


def cells(text):
    """The fields of each row behind the captions; no text of ours has a comma where this is used."""
    return [line.split(",") for line in text.splitlines()[1:]]


def check_against_each_other(register, reports):
    for name, text in reports.items():
        kind, _, rest = name.partition(" ")
        if kind == "rollforward" and rest.endswith(" none"):
            year = int(rest.split()[0])
            now = cells(text)[-1]
            total = next(csv_total(reports[f"schedule {year} {by}"]) for by in ("none",))
            gone = float(now[3])
            assert abs(float(total[5]) - gone - float(now[4])) < 1e-3, "cost"
            assert (total[10], total[11], total[12], total[13]) == (
                now[5], now[6], now[7], now[8]), (name, total, now)
            assert total[14] == now[10], (name, total, now)
            following = reports.get(f"rollforward {year + 1} none")
            if following:
                later = cells(following)[-1]
                assert (later[1], later[5], later[9]) == (now[4], now[8], now[10]), name
            for by in ("department", "method", "convention"):
                assert cells(reports[f"rollforward {rest.split()[0]} {by}"])[-1] == now, name


def csv_total(text):
    return text.rstrip("\n").rsplit("\n", 1)[-1].split(",")


def check(line, where):
    register = Register(line)
    reports = register.reports
    reports.pop("")
    for name, said in reports.items():
        assert not name.startswith("disproof"), f"{where}: {name}: {said}"
        kind, *arguments = name.split()
        if kind == "check":
            expected = findings(register)
            rows = [row for row in said.splitlines()[1:]
                    if row.split(",")[0] in ("error", "warning", "note")]
            got = [(int(row.split(",")[1]), ["error", "warning", "note"].index(row.split(",")[0]))
                   for row in rows]
            assert got == expected, f"{where}: {name}:\n{said}\n{got}\n{expected}"
            assert (arguments[0] == "1") == any(severity == 0 for n, severity in expected), where
            continue
        expected = REPORTS[kind](register, *[int(x) if x.isdigit() else x for x in arguments])
        assert said == expected, f"{where}: {name}:\nsaid\n{said}\nexpected\n{expected}"
    check_against_each_other(register, reports)
    return len(reports)


def main():
    program = sys.argv[1]
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.SystemRandom().randrange(2**32)
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 20000 if os.environ.get("DEPCALC_LONG") else 1000
    print(f"seed {seed}")
    made = subprocess.run([program, str(seed), str(count)], check=True, stdout=subprocess.PIPE)
    lines = made.stdout.decode().split("\n")[:-1]
    assert len(lines) == count, f"{len(lines)} registers"
    reports = sum(check(line, f"seed {seed}, register {i}") for i, line in enumerate(lines))
    print(f"{count} registers, {reports} reports agree")


if __name__ == "__main__":
    main()
