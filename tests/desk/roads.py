"""The owner's roads through the program, by keys and clicks on a real display.

Usage: roads.py BIN BUSINESS [ROAD]. Each road begins with the program freshly started on a copy of
the business, and ends with what the screen says."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

from desk import Desk, keys, type_words, wait_for, walk_all

GRID = "Jobs and visits"
SEARCH = "Find a client, job or command"
CLIENT, SERVICES, PRICE, STATUS = 3, 7, 8, 9


def row_of(desk, grid, words, column):
    """The number of the first row that says so in the column."""
    return wait_for(f"a row with {words!r} in {grid}",
                    lambda: next((at + 1 for at, row in enumerate(desk.rows(grid))
                                  if row[column] == words), None)) - 1


def choose(desk, grid, row):
    """Goes to the row by keys, entering the list by a click where it has not the focus."""
    focused = desk.focused()
    if not focused or focused.get_name() != grid:
        desk.click_at(desk.cell(grid, 0, CLIENT))
    keys("ctrl+Home", *["Down"] * row)


def client_header(desk, name):
    return wait_for(f"the client {name}", lambda: desk.find(name))


def find_a_client_by_three_letters(desk):
    name = desk.rows(GRID)[1][CLIENT]
    keys("ctrl+k")
    type_words(name[:3].lower())
    search = desk.wait(SEARCH)
    wait_for("offers", lambda: search.get_description().endswith("found"))
    keys("Return")
    wait_for(f"the client {name}", lambda: desk.find("Currently owing"))
    keys("ctrl+k")
    type_words("zzzz")
    wait_for("that nothing was found", lambda: search.get_description() == "Nothing found")
    keys("Escape")


def new_client(desk, first="Zelda", last="Zimmer"):
    keys("alt+a")
    wait_for("an empty client", lambda: desk.find("New client"))
    type_words(first)
    keys("Tab")
    type_words(last)
    keys("Tab")
    type_words("A")
    keys("alt+p")
    wait_for("the display name",
             lambda: desk.field("Billing name/Display name") == f"{first} {last}")
    keys("ctrl+s")
    client_header(desk, f"{first} {last}")


def add_service(desk, service, price, update):
    """Types the service's first letters and its price, and stores it by the mnemonic `update`."""
    keys("alt+i")
    type_words(service)
    keys("Tab")
    type_words(price)


def a_new_client_with_a_weekly_and_a_followed_service(desk):
    new_client(desk)
    desk.click("Services")
    desk.wait("Services of the client")
    add_service(desk, "lawn", "55", "alt+u")
    keys("alt+t")
    type_words("R")
    keys("Tab")
    type_words("7abc")
    keys("Tab")
    assert desk.field_of_combo("Frequency (days)") == "7", "letters reach the frequency"
    keys("alt+u")
    answer(desk, "update the future schedule", "n")
    rows = wait_for("the service in the list", lambda: desk.rows("Services of the client"))
    assert any("$55.00" in cell for cell in rows[0]), rows
    desk.click("Clear fields")
    add_service(desk, "hedge", "40", "alt+w")
    keys("alt+m")
    keys("alt+w")
    answer(desk, "Re-create schedule", "y")
    rows = wait_for("both services",
                    lambda: (lambda found: found if len(found) == 2 else None)(
                        desk.rows("Services of the client")))
    assert any("Main service" in cell for cell in rows[0]), rows


def answer(desk, part, key):
    """Answers the question that shows with the key."""
    box = wait_for(f"the question {part!r}",
                   lambda: next((window for window in desk.windows()
                                 if any(part in (node.get_name() or "")
                                        for node in walk_all(window))
                                 and window.get_role_name() in ("alert", "dialog")), None))
    keys(f"alt+{key}")
    wait_for(f"the question {part!r} to go",
             lambda: not any(part in (node.get_name() or "")
                             for window in desk.windows() for node in walk_all(window)
                             if window.get_role_name() in ("alert", "dialog")))
    return box


def status_of(desk, client):
    return next(row[STATUS] for row in desk.rows(GRID) if row[CLIENT] == client)


def wait_status(desk, client, status):
    wait_for(f"{client} as {status!r}", lambda: status_of(desk, client) == status)


def open_jobs(desk):
    return [(at, row[CLIENT]) for at, row in enumerate(desk.rows(GRID))
            if row[STATUS] == "Job NOT DONE"]


def done_cancelled_and_moved(desk):
    (first, one), (second, two), (third, three) = open_jobs(desk)[:3]
    choose(desk, GRID, first)
    keys("alt+u")
    wait_status(desk, one, "Job DONE")
    choose(desk, GRID, second)
    keys("ctrl+shift+c")
    wait_status(desk, two, "Job CANCELLED")
    # One key down in the status cell decides nothing; Esc leaves it as it was.
    choose(desk, GRID, third)
    desk.click_at(desk.cell(GRID, third, STATUS), times=2)
    keys("Down", "Escape")
    time.sleep(0.2)
    assert status_of(desk, three) == "Job NOT DONE", status_of(desk, three)
    desk.click_at(desk.cell(GRID, third, STATUS), times=2)
    keys("Down", "Return")
    wait_for("another status", lambda: status_of(desk, three) != "Job NOT DONE")


def marked_ones_moved_and_taken_back(desk):
    before = len(desk.rows(GRID))
    (first, _), *_others = open_jobs(desk)
    choose(desk, GRID, first)
    keys("shift+Down", "ctrl+m")
    wait_for("the days to move to", lambda: desk.find("Days to move to"))
    keys("Return")
    wait_for("them to have gone to another day", lambda: len(desk.rows(GRID)) < before)
    keys("ctrl+z")
    wait_for("them to be back", lambda: len(desk.rows(GRID)) == before)


def dialogs(desk):
    return [window for window in desk.windows() if window.get_role_name() in ("dialog", "alert")]


def billed_and_paid_over_two_dialogs(desk):
    jobs = open_jobs(desk)
    (first, one), (second, two) = jobs[0], jobs[1]
    for at, client in ((first, one), (second, two)):
        choose(desk, GRID, at)
        keys("alt+u")
        wait_status(desk, client, "Job DONE")
    choose(desk, GRID, first)
    keys("alt+v")
    wait_for("the question how to bill", lambda: len(dialogs(desk)) == 1)
    keys("alt+i")
    wait_for("the invoice over the question", lambda: len(dialogs(desk)) == 2)
    keys("alt+s")
    wait_for("both to close", lambda: not dialogs(desk))
    wait_status(desk, one, "Job Invoiced")
    choose(desk, GRID, second)
    keys("alt+m")
    wait_for("the question how it was paid", lambda: len(dialogs(desk)) == 1)
    keys("alt+n")
    wait_for("the payment over the question", lambda: len(dialogs(desk)) == 2)
    keys("alt+s")
    wait_for("both to close", lambda: not dialogs(desk))
    wait_for("the job as paid", lambda: "paid" in status_of(desk, two))


def leaving_with_edits(desk):
    new_client(desk, "Yolanda", "Young")
    keys("alt+1")
    type_words("0412 555 667")
    keys("alt+x")
    wait_for("a question before leaving",
                   lambda: next((window for window in desk.windows()
                                 if window.get_role_name() in ("alert", "dialog")), None))
    keys("Escape")
    wait_for("the question to go", lambda: len(desk.windows()) == 1)
    assert desk.field("Phone 1") == "0412 555 667", "what was typed is gone"


ROADS = [find_a_client_by_three_letters, a_new_client_with_a_weekly_and_a_followed_service,
         done_cancelled_and_moved, marked_ones_moved_and_taken_back, billed_and_paid_over_two_dialogs, leaving_with_edits]


def run(road, binary, business):
    copy = os.path.join(os.environ["QUILLARY_HOME"], "ROAD.MDB")
    shutil.copyfile(business, copy)
    begun = time.monotonic()
    desk = Desk(os.path.join(binary, "quillary"), copy)
    try:
        desk.wait(GRID)
        road(desk)
        print(f"ok      {road.__name__}  {time.monotonic() - begun:.1f} s", flush=True)
        return True
    except Exception as failure:  # noqa: BLE001 - whatever it is, it is told with a picture
        picture = os.path.join(os.environ.get("QUILLARY_DESK_PICTURES", tempfile.gettempdir()),
                               f"desk-{road.__name__}.xwd")
        subprocess.run(["xwd", "-root", "-silent", "-out", picture], check=False)
        print(f"FAILED  {road.__name__}: {type(failure).__name__}: {failure}; see {picture}",
              flush=True)
        if os.environ.get("QUILLARY_DESK_TRACE"):
            raise
        return False
    finally:
        desk.leave()


def main():
    binary, business, *asked = sys.argv[1:]
    roads = [road for road in ROADS if not asked or road.__name__ in asked]
    results = [run(road, binary, business) for road in roads]
    print(f"{results.count(True)} passed, {results.count(False)} failed", flush=True)
    return 0 if all(results) and results else 1


if __name__ == "__main__":
    sys.exit(main())
