#!/usr/bin/env python3
"""Builds cvxcl.dlj, the saints' table, from santoral.txt.

One row per day of the year, in calendar order: Fecha "dd/mm/2003" (the year
is always 2003 in the stored rows, 29 February included) and Santos.
"""
import os
import sqlite3
import sys


def read_days(path):
    days = []
    with open(path, encoding="utf-8") as f:
        for number, line in enumerate(f, 1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            day, sep, saints = line.partition("\t")
            if not sep or len(day) != 5 or day[2] != "/" or not saints.strip():
                sys.exit(f"{path}:{number}: expected 'dd/mm<TAB>saints'")
            days.append((day + "/2003", saints.strip()))
    if len(days) != 366 or len({d for d, _ in days}) != 366:
        sys.exit(f"{path}: expected 366 distinct days, found {len(days)}")
    return days


def main():
    source, target = sys.argv[1], sys.argv[2]
    days = read_days(source)
    temporary = target + ".tmp"
    if os.path.exists(temporary):
        os.remove(temporary)
    db = sqlite3.connect(temporary)
    db.execute("CREATE TABLE Santoral (Fecha TEXT NOT NULL, Santos TEXT NOT NULL)")
    db.executemany("INSERT INTO Santoral (Fecha, Santos) VALUES (?, ?)", days)
    db.commit()
    db.close()
    os.replace(temporary, target)


if __name__ == "__main__":
    main()
