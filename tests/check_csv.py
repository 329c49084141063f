#!/usr/bin/env python3
"""Reads export files back with Python's csv module and checks their shape.

Transfer Markt: the main file has 41 titles and 40 cells a player plus one for
each secondary position; the history file has 7 titles and 7 cells a row, each
row closed by a separator, which a spreadsheet reads as an eighth, empty cell.

Elite Prospects, five files: clubs with 5 cells a row; club histories with 15,
the last ("Actual Name") always empty; retired numbers with 4; players with 21
titles and then one line of the record base class a record; player histories
with 27, of which the seven from "Mins" on are empty.

Usage: check_csv.py FOLDER [FOLDER...]
Every *.csv file of a folder is checked. The name tells the layout: one with
"club_histories", "retired_numbers", "clubs", "histories" or "players" in it is
taken for that Elite Prospects file, in this order; else one with "history" for
a Transfer Markt history file, any other for a Transfer Markt main file. The
byte-for-byte tests of the suite hold the program's output equal to the files
kept under tests/fixtures/tfm/expected and tests/fixtures/ep/expected, which are
the folders CTest passes here.
"""

import csv
import pathlib
import sys

MAIN_TITLES = [
    "Id", "NameInUrl", "First name", "Second name", "Common name", "Complete name", "DOB",
    "Nation 1", "Nation 2", "Contract Start", "Contract end", "Value", "World Rep", "Wage",
    "Club", "On loan from", "GK", "SW", "D", "DM", "M", "AM", "ST", "WB", "FR", "Right", "Left",
    "Centre", "Right Foot", "Left Foot", "qint32 apps", "qint32 goals", "CA", "PA", "Home Rep",
    "Current Rep", "Squad no.", "Height (m)", "Loan expiry", "Main position",
    "Secondary position(s)",
]
HISTORY_TITLES = ["Name", "DOB", "Club", "Year", "Apps", "Goals", "Loan"]

# Secondary positions of the players in the fixture files, by id.
SECONDARY_POSITIONS = {"12345": 3, "4711": 0, "777": 1, "": 0}

EP_CLUB_TITLES = ["Name", "Full Name", "City", "Founded", "Colours"]
EP_CLUB_HISTORY_TITLES = [
    "Team", "League", "Season", "Position", "GP", "W", "T", "L", "OTW", "OTW", "GF", "GA",
    "Points", "Post Season Outcome", "Actual Name",
]
EP_RETIRED_NUMBER_TITLES = ["Team", "Number", "First Name", "Second Name"]
EP_PLAYER_TITLES = [
    "Duplicate?", "First Name", "Second Name", "DOB", "Nation 1", "Nation 2", "Birth Place",
    "Team", "Contract Expiry", "Position", "Stick Side", "Jersey #", "Height", "Weight",
    "Cap Hit", "NHL Draft", "Status", "Age", "Int. GP", "Int. G", "Int. A",
]
EP_PLAYER_HISTORY_TITLES = [
    "First Name", "Second Name", "Date of Birth", "On Loan", "Playoffs", "Year", "Club",
    "Competition", "GP", "G", "A", "PIM", "'+/-", "Mins", "GA", "SO", "W", "L", "T/OT", "Saves",
    "Captain", "Alt Capt", "Playoff Type", "Age Type", "Int'l", "GAA", "Sv%",
]
# The player file holds no player data: every record writes the base class's line.
EP_PLAYER_LINES = [["DataWrapper base class called (ASCII)"], ["DataWrapper base class called (UTF)"]]

BOM = "\ufeff"


def layout(name):
    """The layout a file name stands for."""
    name = name.lower()
    for word in ("club_histories", "retired_numbers", "clubs", "histories", "players"):
        if word in name:
            return word
    return "history" if "history" in name else "main"


FIRST_TITLES = {
    "club_histories": "Team", "retired_numbers": "Team", "clubs": "Name",
    "histories": "First Name", "players": "Duplicate?", "history": "Name", "main": "Id",
}


def read_rows(path):
    """The rows of a file, with the separator told by its title row."""
    text = path.read_bytes().decode("utf-8", errors="replace")
    if not text.startswith(BOM):
        raise ValueError("no byte-order mark")
    text = text[len(BOM):]
    first_title = FIRST_TITLES[layout(path.name)]
    if not text.startswith(first_title) or len(text) <= len(first_title):
        raise ValueError("the title row does not begin with %r" % first_title)
    separator = text[len(first_title)]
    if separator not in ",;\t":
        raise ValueError("unexpected separator %r" % separator)
    if not text.endswith("\n"):
        raise ValueError("the last row has no line break")
    rows = list(csv.reader(text.splitlines(), delimiter=separator, quoting=csv.QUOTE_NONE))
    return separator, rows


def check_main(rows):
    problems = []
    if rows[0] != MAIN_TITLES:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    for number, row in enumerate(rows[1:], start=2):
        if not row:
            problems.append("row %d is empty" % number)
            continue
        expected = 40 + SECONDARY_POSITIONS.get(row[0], 0)
        if row[0] not in SECONDARY_POSITIONS:
            problems.append("row %d: unknown id %r" % (number, row[0]))
        if len(row) != expected:
            problems.append("row %d: %d cells, expected %d" % (number, len(row), expected))
            continue
        if any(row[32:36]):
            problems.append("row %d: CA, PA, Home Rep or Current Rep holds a value" % number)
        if not all(row[40:]):
            problems.append("row %d: an empty secondary position" % number)
    return problems


def check_history(rows):
    problems = []
    if rows[0] != HISTORY_TITLES + [""]:
        problems.append("title row: %r" % rows[0])
    for number, row in enumerate(rows[1:], start=2):
        if len(row) != 8 or row[7] != "":
            problems.append("row %d: %d cells, expected 7 and a closing separator" % (number, len(row)))
            continue
        if row[6] not in ("0", "1"):
            problems.append("row %d: loan cell %r" % (number, row[6]))
    return problems


def check_cells(rows, titles):
    """Title row and cells per row of an Elite Prospects file without a special rule."""
    problems = []
    if rows[0] != titles:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    for number, row in enumerate(rows[1:], start=2):
        if len(row) != len(titles):
            problems.append("row %d: %d cells, expected %d" % (number, len(row), len(titles)))
    return problems


def check_club_histories(rows):
    problems = check_cells(rows, EP_CLUB_HISTORY_TITLES)
    for number, row in enumerate(rows[1:], start=2):
        if len(row) == len(EP_CLUB_HISTORY_TITLES) and row[14] != "":
            problems.append("row %d: Actual Name holds %r" % (number, row[14]))
    return problems


def check_players(rows):
    problems = []
    if rows[0] != EP_PLAYER_TITLES:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    for number, row in enumerate(rows[1:], start=2):
        if row not in EP_PLAYER_LINES:
            problems.append("row %d: not the record base class's line: %r" % (number, row))
    return problems


def check_player_histories(rows):
    problems = check_cells(rows, EP_PLAYER_HISTORY_TITLES)
    for number, row in enumerate(rows[1:], start=2):
        if len(row) != len(EP_PLAYER_HISTORY_TITLES):
            continue
        if any(row[13:20]):
            problems.append("row %d: a cell from Mins to Saves holds a value" % number)
        if row[3] not in ("Y", "N") or row[4] not in ("Y", "N"):
            problems.append("row %d: On Loan or Playoffs is not Y or N" % number)
        if any(row[i] not in ("0", "1") for i in (20, 21, 24)):
            problems.append("row %d: Captain, Alt Capt or Int'l is not 0 or 1" % number)
        if (row[4] == "N") != (row[22] == "Reg. Season"):
            problems.append("row %d: Playoff Type %r on a line with Playoffs %r"
                            % (number, row[22], row[4]))
    return problems


CHECKS = {
    "club_histories": check_club_histories,
    "retired_numbers": lambda rows: check_cells(rows, EP_RETIRED_NUMBER_TITLES),
    "clubs": lambda rows: check_cells(rows, EP_CLUB_TITLES),
    "histories": check_player_histories,
    "players": check_players,
    "history": check_history,
    "main": check_main,
}


def main(folders):
    checked = 0
    failed = 0
    for folder in folders:
        files = sorted(pathlib.Path(folder).glob("*.csv"))
        if not files:
            print("FAIL %s: no CSV files" % folder)
            failed += 1
            continue
        for path in files:
            checked += 1
            try:
                separator, rows = read_rows(path)
                problems = CHECKS[layout(path.name)](rows)
                if len(rows) < 2:
                    problems.append("no row behind the titles")
            except ValueError as error:
                problems = [str(error)]
            if problems:
                failed += 1
                print("FAIL %s" % path.name)
                for problem in problems:
                    print("     %s" % problem)
            else:
                print("PASS %s (%d rows, separator %r)" % (path.name, len(rows), separator))
    print("%d passed, %d failed" % (checked - failed, failed))
    return 1 if failed or checked == 0 else 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        print(__doc__)
        sys.exit(2)
    sys.exit(main(sys.argv[1:]))
