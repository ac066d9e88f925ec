#!/usr/bin/env python3
"""Builds the sample draw history cvxlp.dlj (SQLite, table Tabla1).

Official results are not shipped: the rows are a reproducible sample made by
a fixed linear congruential generator, on the weekdays each draw type used
(Primitiva on Saturdays from 1985 and Thursdays from 1997, Bonoloto on
Tuesdays from 1988, the 6/49 Gordo on Sundays from 1993 to 30 January 2005).
Every row is a valid draw: six different numbers 1-49, a complementary that
differs from them, a reintegro 0-9 and the type letter.

  make_draws.py --database OUT.dlj
"""
import datetime
import os
import sqlite3
import sys

# Tabla1's fields in the order the window reads them.
FIELDS = ["Fecha", "N1", "N2", "N3", "N4", "N5", "N6", "Complementario", "Reintegro", "Sorteo", "Tipo"]


class Lcg:
    """The Numerical Recipes 32-bit generator: the same rows on every Python."""

    def __init__(self, seed):
        self.state = seed & 0xFFFFFFFF

    def below(self, n):
        self.state = (1664525 * self.state + 1013904223) & 0xFFFFFFFF
        return (self.state >> 8) % n


def days(first, last, weekday):
    d = first + datetime.timedelta(days=(weekday - first.weekday()) % 7)
    while d <= last:
        yield d
        d += datetime.timedelta(days=7)


def draws():
    end = datetime.date(2020, 12, 31)
    dates = [(d, "P") for d in days(datetime.date(1985, 10, 17), end, 5)]
    dates += [(d, "P") for d in days(datetime.date(1997, 1, 1), end, 3)]
    dates += [(d, "B") for d in days(datetime.date(1988, 3, 1), end, 1)]
    dates += [(d, "G") for d in days(datetime.date(1993, 10, 31), datetime.date(2005, 1, 30), 6)]
    dates.sort()
    rng = Lcg(20260101)
    rows = []
    for number, (d, kind) in enumerate(dates, start=1):
        pool = list(range(1, 50))
        picked = [pool.pop(rng.below(len(pool))) for _ in range(7)]
        six = sorted(picked[:6])
        reintegro = "" if kind == "G" else str(rng.below(10))
        rows.append([d.strftime("%d/%m/%Y")] + [str(x) for x in six] +
                    [str(picked[6]), reintegro, str(number), kind])
    return rows


def check(rows):
    for row in rows:
        numbers = [int(x) for x in row[1:8]]
        assert all(1 <= x <= 49 for x in numbers) and len(set(numbers)) == 7, row
        assert row[10] in "PBG" and (row[8] == "" or 0 <= int(row[8]) <= 9), row


def main(argv):
    if len(argv) != 3 or argv[1] != "--database":
        sys.exit(__doc__)
    rows = draws()
    check(rows)
    out = argv[2]
    tmp = out + ".tmp"
    if os.path.exists(tmp):
        os.remove(tmp)
    db = sqlite3.connect(tmp)
    db.execute("CREATE TABLE Tabla1 (%s)" % ", ".join("%s TEXT" % f for f in FIELDS))
    db.executemany("INSERT INTO Tabla1 VALUES (%s)" % ", ".join("?" * len(FIELDS)), rows)
    db.commit()
    db.close()
    os.replace(tmp, out)


if __name__ == "__main__":
    main(sys.argv)
