#!/usr/bin/env python3
"""Reads Transfer Markt, FMDataba and Elite Prospects export files back with
Python's csv module and checks their shape. Transfer Markt: the main file has 41
titles and 40 cells a player plus one for each secondary position; the history
file has 7 titles and 7 cells a row, each row closed by a separator, which a
spreadsheet reads as an eighth, empty cell. FMDataba: 84 titles and 84 cells a
player, every row closed by a separator; a player's rating table with a further
key has one cell more, and in a comma-separated file each comma of the unquoted
position text opens a further cell.

Usage: check_csv.py FOLDER [FOLDER...]
Every *.csv file of a folder is checked; a name with "history" in it is taken
for a history file, any other for a main file. The byte-for-byte tests of the
suite hold the program's output equal to the files kept under
tests/fixtures/tfm/expected and tests/fixtures/fmd/expected, the folders CTest
passes here. A file whose title row is the FMDataba one is checked as such.

Elite Prospects, five files, told by the first two titles of their title rows
before the rules above (CTest passes tests/fixtures/ep/expected too). Clubs
have 5 cells a row; club histories 15, the last ("Actual Name") always empty;
retired numbers 4; the player file has 21 titles and then one line of the
record base class a record; player histories have 27 cells, of which the seven
from "Mins" on are empty. In a comma-separated file the free text of "Colours",
"Post Season Outcome" and "Playoff Type" is written as it stands, so each comma
in it opens a further cell.
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

FMD_TITLES = [
    "Id", "NameInUrl", "First name", "Second name", "Common name", "Complete name", "DOB",
    "Nation 1", "Contract end", "Value", "Club", "GK", "SW", "D", "DM", "M", "AM", "WB", "FR",
    "Right", "Left", "Centre", "Right Foot", "Left Foot", "qint32 apps", "qint32 goals", "CA",
    "PA", "Attacking", "Defending", "Goalkeeping", "Mental", "Overall", "Physical", "Technical",
    "Acceleration", "Aerial Reach", "Aggression", "Agility", "Anticipation", "Balance",
    "Bravery", "Command Of Area", "Communication", "Composure", "Concentration", "Corners",
    "Crossing", "Decisions", "Determination", "Dribbling", "Eccentricity", "Finishing",
    "First Touch", "Flair", "Free Kick", "Handling", "Heading", "Jumping Reach", "Kicking",
    "Leadership", "Long Shots", "Long Throws", "Marking", "Natural Fitness", "Off The Ball",
    "One On Ones", "Pace", "Passing", "Penalty Taking", "Positioning", "Reflexes",
    "Rushing Out", "Stamina", "Strength", "Tackling", "Teamwork", "Technique",
    "Tendency To Punch", "Throwing", "Vision", "Work Rate", "Height (m)", "Positions",
]

# Position text and further rating keys of the FMDataba players in the fixture
# files, by id.
FMD_PLAYERS = {
    "1001": ("AM (RLC), ST (C)", 0),
    "1002": ("GK, DM (C)", 0),
    "1003": ("D (L)", 0),
    "1004": ("WB/M (R)", 1),
    "1005": ("DM, M (C)", 0),
    "1006": ("SW, D (C)", 0),
}

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

# The first cells of each site's title rows, longest first where one begins another.
FIRST_TITLES = ("Duplicate?", "First Name", "Name", "Team", "Id")

BOM = "\ufeff"


def ep_layout(titles):
    """The Elite Prospects file a title row stands for, or None."""
    for layout, known in (("clubs", EP_CLUB_TITLES), ("club_histories", EP_CLUB_HISTORY_TITLES),
                          ("retired_numbers", EP_RETIRED_NUMBER_TITLES),
                          ("players", EP_PLAYER_TITLES),
                          ("histories", EP_PLAYER_HISTORY_TITLES)):
        if titles[:2] == known[:2]:
            return layout
    return None


def read_rows(path):
    """The rows of a file, with the separator told by its title row."""
    text = path.read_bytes().decode("utf-8", errors="replace")
    if not text.startswith(BOM):
        raise ValueError("no byte-order mark")
    text = text[len(BOM):]
    first_title = next((title for title in FIRST_TITLES if text.startswith(title)), None)
    if first_title is None or len(text) <= len(first_title):
        raise ValueError("the title row begins with none of %r" % (FIRST_TITLES,))
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


def check_fmd(rows, separator):
    problems = []
    if rows[0] != FMD_TITLES + [""]:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    for number, row in enumerate(rows[1:], start=2):
        if not row or row[0] not in FMD_PLAYERS:
            problems.append("row %d: unknown id %r" % (number, row[0] if row else None))
            continue
        positions, further_keys = FMD_PLAYERS[row[0]]
        split = positions.count(",") if separator == "," else 0
        expected = len(FMD_TITLES) + 1 + further_keys + split
        if len(row) != expected:
            problems.append("row %d: %d cells, expected %d" % (number, len(row), expected))
            continue
        if row[-1] != "":
            problems.append("row %d: no closing separator" % number)
        if ",".join(row[-2 - split:-1]) != positions:
            problems.append("row %d: position cells %r" % (number, row[-2 - split:-1]))
        if any(cell not in ("1", "20") for cell in row[11:24]):
            problems.append("row %d: a position or foot rating other than 1 or 20" % number)
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


def joined_free_text(row, titles, separator, free_column):
    """The row with the cells that commas split off a free-text column joined again."""
    extra = len(row) - len(titles)
    if separator != "," or extra <= 0:
        return row
    return row[:free_column] + [",".join(row[free_column:free_column + extra + 1])] \
        + row[free_column + extra + 1:]


def check_cells(rows, titles, separator, free_column=None):
    """Title row and cells per row of an Elite Prospects file; the rows, rejoined."""
    problems = []
    if rows[0] != titles:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    joined = [rows[0]]
    for number, row in enumerate(rows[1:], start=2):
        if free_column is not None:
            row = joined_free_text(row, titles, separator, free_column)
        if len(row) != len(titles):
            problems.append("row %d: %d cells, expected %d" % (number, len(row), len(titles)))
        joined.append(row)
    return problems, joined


def check_ep_clubs(rows, separator):
    problems, rows = check_cells(rows, EP_CLUB_TITLES, separator, 4)
    for number, row in enumerate(rows[1:], start=2):
        if len(row) == len(EP_CLUB_TITLES) and not row[3].lstrip("-").isdigit():
            problems.append("row %d: Founded %r is no number" % (number, row[3]))
    return problems


def check_ep_club_histories(rows, separator):
    problems, rows = check_cells(rows, EP_CLUB_HISTORY_TITLES, separator, 13)
    for number, row in enumerate(rows[1:], start=2):
        if len(row) != len(EP_CLUB_HISTORY_TITLES):
            continue
        if row[14] != "":
            problems.append("row %d: Actual Name holds %r" % (number, row[14]))
        if row[8] != row[9]:
            problems.append("row %d: the two OTW cells differ" % number)
        if not all(cell.lstrip("-").isdigit() for cell in row[2:13]):
            problems.append("row %d: a figure from Season to Points is no number" % number)
    return problems


def check_ep_retired_numbers(rows, separator):
    return check_cells(rows, EP_RETIRED_NUMBER_TITLES, separator)[0]


def check_ep_players(rows, separator):
    problems = []
    if rows[0] != EP_PLAYER_TITLES:
        problems.append("title row: %d cells %r" % (len(rows[0]), rows[0]))
    for number, row in enumerate(rows[1:], start=2):
        if row not in EP_PLAYER_LINES:
            problems.append("row %d: not the record base class's line: %r" % (number, row))
    return problems


def check_ep_player_histories(rows, separator):
    problems, rows = check_cells(rows, EP_PLAYER_HISTORY_TITLES, separator, 22)
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


EP_CHECKS = {
    "club_histories": check_ep_club_histories,
    "retired_numbers": check_ep_retired_numbers,
    "clubs": check_ep_clubs,
    "histories": check_ep_player_histories,
    "players": check_ep_players,
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
                history = "history" in path.name.lower()
                if ep_layout(rows[0]):
                    problems = EP_CHECKS[ep_layout(rows[0])](rows, separator)
                elif history:
                    problems = check_history(rows)
                elif rows[0][:9] == FMD_TITLES[:9]:
                    problems = check_fmd(rows, separator)
                else:
                    problems = check_main(rows)
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
