#!/usr/bin/env python3
"""Builds the periodic table's data from elements.txt.

  make_elements.py --database OUT.dlj   the SQLite file read by the window:
                                        table Tabla1, one row per element,
                                        row z holds element z, every field a
                                        text as written in the source
  make_elements.py --tooltips OUT.cpp   the buttons' tooltips ("z, Spanish,
                                        English, French, Catalan") and their
                                        symbols, as C++

The source is checked first: 111 rows numbered 1 to 111 in order, each with
every column. A broken source stops the build instead of making a short table.
"""
import os
import sqlite3
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.join(HERE, "elements.txt")

COLUMNS = ["z", "symbol", "es", "en", "fr", "ca", "weight", "melt", "boil", "density", "volume",
           "ratom", "rcov", "rion", "pauling", "allred", "heat", "fusion", "vapour", "ion1", "conduct",
           "acidbase", "structure", "valences", "crystal"]

# Tabla1's fields, in the order of the data sheet, and the source column of each.
FIELDS = [("numat", "z"), ("nombres", "es"), ("ebulliciones", "boil"), ("fusiones", "melt"),
          ("densidades", "density"), ("simbolos", "symbol"), ("pesos", "weight"),
          ("volumenes", "volume"), ("radioas", "ratom"), ("radiocs", "rcov"), ("radiois", "rion"),
          ("electronegs", "pauling"), ("electronegs1", "allred"), ("calores", "heat"),
          ("calorfs", "fusion"), ("calorvs", "vapour"), ("energias", "ion1"),
          ("condutes", "conduct"), ("caracteres", "acidbase"), ("estructura", "structure"),
          ("valencias", "valences"), ("cristal", "crystal")]

ELEMENT_COUNT = 111


def read_source(path):
    rows = []
    with open(path, encoding="utf-8") as f:
        for number, line in enumerate(f, 1):
            line = line.rstrip("\n")
            if not line.strip() or line.startswith("#"):
                continue
            parts = line.split("|")
            if len(parts) != len(COLUMNS):
                sys.exit(f"{path}:{number}: {len(parts)} fields, {len(COLUMNS)} expected")
            row = dict(zip(COLUMNS, (p.strip() for p in parts)))
            if row["z"] != str(len(rows) + 1):
                sys.exit(f"{path}:{number}: element {row['z']} out of order")
            if any(v == "" for v in row.values()):
                sys.exit(f"{path}:{number}: an empty field (write -- for an unknown value)")
            rows.append(row)
    if len(rows) != ELEMENT_COUNT:
        sys.exit(f"{path}: {len(rows)} elements, {ELEMENT_COUNT} expected")
    return rows


def write_database(rows, out):
    tmp = out + ".tmp"
    if os.path.exists(tmp):
        os.remove(tmp)
    db = sqlite3.connect(tmp)
    names = ", ".join(f"{name} TEXT" for name, _ in FIELDS)
    db.execute(f"CREATE TABLE Tabla1 ({names})")
    marks = ", ".join("?" for _ in FIELDS)
    # Inserted in order, so the table's row z (its rowid) is element z.
    for row in rows:
        db.execute(f"INSERT INTO Tabla1 VALUES ({marks})", [row[column] for _, column in FIELDS])
    db.commit()
    db.close()
    os.replace(tmp, out)


def cpp_text(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def write_tooltips(rows, out):
    lines = ["// Generated from data/elements/elements.txt by make_elements.py.",
             '#include "elements/ElementTooltips.h"', "",
             "const std::array<const char*, 111>& elementTooltips() {",
             "  static const std::array<const char*, 111> tips{"]
    for row in rows:
        tip = ", ".join(row[c] for c in ("z", "es", "en", "fr", "ca"))
        lines.append(f"      {cpp_text(tip)},")
    lines += ["  };", "  return tips;", "}", "",
              "const std::array<const char*, 111>& elementSymbols() {",
              "  static const std::array<const char*, 111> symbols{"]
    for i in range(0, len(rows), 12):
        lines.append("      " + " ".join(cpp_text(r["symbol"]) + "," for r in rows[i:i + 12]))
    lines += ["  };", "  return symbols;", "}", ""]
    text = "\n".join(lines)
    if os.path.exists(out) and open(out, encoding="utf-8").read() == text:
        return
    with open(out, "w", encoding="utf-8") as f:
        f.write(text)


def main(argv):
    if len(argv) != 3 or argv[1] not in ("--database", "--tooltips"):
        sys.exit("usage: make_elements.py --database OUT | --tooltips OUT")
    rows = read_source(SOURCE)
    os.makedirs(os.path.dirname(os.path.abspath(argv[2])), exist_ok=True)
    if argv[1] == "--database":
        write_database(rows, argv[2])
    else:
        write_tooltips(rows, argv[2])


if __name__ == "__main__":
    main(sys.argv)
