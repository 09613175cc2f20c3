"""Every screen as an assistive tool reads it, and one payment that is made by keys and names alone."""

import json
import os
import pathlib
import re
import sqlite3
import subprocess
import sys
import unittest

import pyatspi

from reader import (CONTROLS, PATIENCE, Listener, Reader, children, do, has, press_key, text_of, type_text, wait_for,
                    walk)

PROGRAM, DATABASE_TOOL, FOLDER = (pathlib.Path(argument) for argument in sys.argv[1:4])
DATABASE = FOLDER / "Tarnwell.mdb"
MAIN_WINDOW = "Tarnwell"

JOB, LOT, CATEGORY, TASK = "26-1003", "1/9", "Interior Trim", "Base and casing"
EMPLOYEE, PRICE = "911-14-7118", "12.34"
PAYMENT = """SELECT e.SSN, t.Name, l.LotBlock, j.JobNumber FROM JobTaskEmployee p
    JOIN JobLotTask t USING (JobLotTaskKey) JOIN JobLot l USING (JobLotKey) JOIN Job j USING (JobKey)
    JOIN Employee e ON e.EmployeeKey = p.EmployeeKey WHERE p.Price = ?"""


def faults(node):
    """What an assistive tool can't make sense of in one object."""
    role, name = node.getRole(), node.name
    if role == pyatspi.ROLE_INVALID or role == pyatspi.ROLE_UNKNOWN:
        # But for the handles that only a mouse can drag, for which the toolkit knows none.
        if node.parent.getRole() not in (pyatspi.ROLE_SPLIT_PANE, pyatspi.ROLE_STATUS_BAR):
            yield "has no role"
    if not has(node, pyatspi.STATE_VISIBLE):
        yield "shows and is not visible"
    if role in CONTROLS:
        if not name.strip():
            yield "has no name"
        if name.endswith(":") or re.search(r"&\w", name):
            yield "has its label's marks in its name"
        if not has(node, pyatspi.STATE_ENABLED) and has(node, pyatspi.STATE_SENSITIVE):
            yield "is disabled and says otherwise"
    if role == pyatspi.ROLE_TABLE_COLUMN_HEADER and re.search(r"\wKey$", name):
        yield "is a hidden column"


def faults_of_table(table):
    """Rows that don't fit the columns."""
    cells = table.queryTable()
    headers = [each for each in children(table) if each.getRole() == pyatspi.ROLE_TABLE_COLUMN_HEADER]
    if cells.nColumns != len(headers):
        yield f"has {cells.nColumns} columns under {len(headers)} headers"
    if [each.name for each in headers] != [cells.getColumnDescription(i) for i in range(cells.nColumns)]:
        yield "calls its columns otherwise than their headers"


def described(node):
    path = []
    while node is not None and node.getRole() != pyatspi.ROLE_APPLICATION:
        path.append(f"{node.getRoleName()} {node.name!r}")
        node = node.parent
    return " in ".join(path)


class Screens(unittest.TestCase):
    """Each test starts the program again on one sample."""

    @classmethod
    def setUpClass(cls):
        subprocess.run([DATABASE_TOOL, "sample", DATABASE, "--scale", "small"], check=True, timeout=PATIENCE,
                       stdout=subprocess.DEVNULL)
        values = {"Provider": "Microsoft.Jet.OLEDB.4.0", "DataSource": str(DATABASE), "DataServer": "",
                  "ConnectionMisc": ";Persist Security Info=False", "ImportPath": f"{FOLDER}/",
                  "LogPath": f"{FOLDER}/", "LayoutPath": f"{PROGRAM.parent}/layouts/", "DataPath": f"{FOLDER}/",
                  "ReportDataPath": f"{FOLDER}/Report.mdb"}
        key = {name: {"type": 1, "data": value} for name, value in values.items()}
        settings = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "Brenmoor" / "Tarnwell.json"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(json.dumps({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": key}}))

    def setUp(self):
        self.program = subprocess.Popen([PROGRAM])
        self.addCleanup(self.end_program)
        self.reader = Reader("Tarnwell", self.program.pid)
        self.main = self.reader.wait_for_window(MAIN_WINDOW)

    def end_program(self):
        self.program.terminate()
        try:
            self.program.wait(20)
        except subprocess.TimeoutExpired:
            self.program.kill()
            self.program.wait()

    def read(self, title):
        """Waits for a window and reads all that it shows."""
        window = self.reader.wait_for_window(title)
        self.check(window)
        return window

    def check(self, window):
        found = []
        count = 0
        for node in walk(window):
            count += 1
            problems = list(faults(node))
            if node.getRole() == pyatspi.ROLE_TABLE:
                problems += faults_of_table(node)
            found += [f"{described(node)}: {problem}" for problem in problems]
        self.assertGreater(count, 3, f"{window} shows nothing")
        self.assertEqual(found, [])

    def open(self, item, title):
        """By the main window's item, which an assistive tool presses whatever window is in front."""
        button = next(each for each in walk(self.main)
                      if each.getRole() == pyatspi.ROLE_PUSH_BUTTON and each.name == item)
        do(button, "Press")
        return self.read(title)

    def leave_to(self, keys, title):
        press_key(keys)
        return self.reader.wait_for_window(title)

    def search(self, caption, text):
        """Finds a record and brings it to the screen."""
        press_key("Ctrl+f")
        self.read(caption)
        self.reader.wait_for_focus("Search")
        type_text(text)
        wait_for(lambda: self.reader.get(pyatspi.ROLE_LIST, "Found").childCount > 0, f"lines for {text}")
        press_key("Down")
        wait_for(lambda: has(self.reader.get(pyatspi.ROLE_LIST, "Found"), pyatspi.STATE_FOCUSED), "the found lines")
        press_key("Enter")

    def go_to_cell(self, table, column, text):
        """Walks down a grid until the cell of the current row says so."""
        self.reader.go_to(pyatspi.ROLE_TABLE, table)
        for _ in range(60):
            cell = wait_for(self.reader.current_cell, f"a current cell in {table}")
            grid = cell.parent
            cells = grid.queryTable()
            columns = [cells.getColumnDescription(i) for i in range(cells.nColumns)]
            row = self.reader.row_of(cell)
            if cells.getAccessibleAt(row, columns.index(column)).name == text:
                return
            press_key("Down")
            wait_for(lambda row=row: (now := self.reader.current_cell()) is not None
                     and self.reader.row_of(now) != row, f"the row behind {row} of {table}")
        self.fail(f"{table} has no row {text}")

    def type_over(self, name, text):
        self.reader.wait_for_focus(name)
        press_key("Ctrl+a")
        type_text(text)

    def wait_for_text(self, role, name, text):
        wait_for(lambda: text_of(self.reader.get(role, name)).startswith(text), f"{text!r} in {name!r}")

    def test_main_window_and_its_menus(self):
        self.read(MAIN_WINDOW)
        for keys, title in (("to", "Options"), ("ha", "About")):
            press_key("Alt+" + keys[0])
            type_text(keys[1])
            self.read(title)
            if title == "About":
                press_key("F1")
                self.read("Tarnwell Help")
            else:
                press_key("Escape")
                self.read("Cancel Verification")
                press_key("Alt+y")
                self.reader.wait_for_window(MAIN_WINDOW)

    def test_employees(self):
        self.open("Employee", "Employee")
        self.search("Employee Search", "Montoya")
        self.reader.wait_for_window("Employee")
        self.wait_for_text(pyatspi.ROLE_TEXT, "Last Name", "Montoya")
        self.read("Employee")
        self.reader.go_to(pyatspi.ROLE_LIST, "Notes Log")
        press_key("Down")
        press_key("Enter")
        self.read("Employee Note")

    def test_master_codes(self):
        self.open("Master Codes", "Master Codes")

    def test_master_tasks(self):
        self.open("Master Tasks", "Master Tasks")
        self.reader.wait_for_focus("Category")
        type_text("Flooring")
        self.wait_for_text(pyatspi.ROLE_COMBO_BOX, "Category", "Flooring")
        self.reader.go_to(pyatspi.ROLE_TABLE, "Category Dependency")
        press_key("Ctrl+n")
        self.read("Add Category Dependency")

    def test_builders(self):
        self.open("Builder", "Builders")
        self.search("Builder Search", "North")
        self.reader.wait_for_window("Builders")
        self.go_to_cell("Plans", "Plan Name", "Birch 1620")
        self.read("Builders")
        self.reader.go_to(pyatspi.ROLE_TABLE, "Task Grid")
        press_key("Ctrl+t")
        self.read("Add Master Tasks")
        self.leave_to("Ctrl+w", "Builders")
        self.reader.go_to(pyatspi.ROLE_TEXT, "Name")
        press_key("Ctrl+g")
        self.read("Maintain Option Groups")
        press_key("Ctrl+n")
        self.read("Add Option Group")

    def test_jobs(self):
        self.open("Jobs", "Jobs")
        self.search("Job Search", JOB)
        self.reader.wait_for_window("Jobs")
        self.wait_for_text(pyatspi.ROLE_TEXT, "Job", JOB)
        self.go_to_cell("Lots", "Lot/Block", LOT)
        self.read("Jobs")
        self.reader.go_to(pyatspi.ROLE_TABLE, "Tasks")
        press_key("Ctrl+g")
        self.read("Add Job Option Group")
        self.leave_to("Escape", "Jobs")
        lots = self.reader.get(pyatspi.ROLE_TABLE, "Lots").queryTable()
        columns = [lots.getColumnDescription(i) for i in range(lots.nColumns)]
        do(lots.getAccessibleAt(0, columns.index("Plan Name")), "Press")
        self.read("Add Plan/Job Tasks")
        self.leave_to("Ctrl+w", "Jobs")
        self.reader.go_to(pyatspi.ROLE_TEXT, "Job")
        press_key("Ctrl+n")
        self.read("Add Job")

    def test_reports(self):
        self.open("Reports", "Report Generator")
        chosen = self.reader.go_to(pyatspi.ROLE_COMBO_BOX, "Report")
        while (before := text_of(chosen)) != "Lot Budget":
            press_key("Down")
            wait_for(lambda before=before: text_of(chosen) != before, f"the report behind {before}")
        self.reader.press("Select All")
        jobs = self.reader.get(pyatspi.ROLE_LIST, "Jobs")
        wait_for(lambda: has(children(jobs)[0], pyatspi.STATE_SELECTED), "the jobs to be selected")
        press_key("Ctrl+r")
        self.read("Lot Budget - Preview")

    def test_reports_where_the_keys_are_and_what_the_status_bar_says(self):
        self.open("Time Card", "Timecards")
        self.reader.wait_for_focus("Job")
        type_text(JOB)
        self.wait_for_text(pyatspi.ROLE_TEXT, "Job", JOB)
        listener = Listener()
        self.addCleanup(listener.close)
        press_key("Tab")
        listener.wait_for(Listener.FOCUS, pyatspi.ROLE_TABLE_CELL, self.reader.current_cell().name)
        status = "Select the lot/block to display tasks to pay"
        self.assertEqual(listener.wait_for(Listener.NAME, pyatspi.ROLE_LABEL, status), 1)
        listener.heard.clear()
        press_key("Right")
        row = self.reader.row_of(self.reader.current_cell())
        plan = self.reader.get(pyatspi.ROLE_TABLE, "Lots").queryTable().getAccessibleAt(row, 1)
        listener.wait_for(Listener.FOCUS, pyatspi.ROLE_TABLE_CELL, plan.name)

    def test_pays_an_employee_by_keys_and_names(self):
        self.open("Time Card", "Timecards")
        self.reader.wait_for_focus("Job")
        type_text(JOB)
        self.wait_for_text(pyatspi.ROLE_TEXT, "Job", JOB)
        self.go_to_cell("Lots", "Lot/Block", LOT)
        press_key("Alt+c")
        self.reader.wait_for_focus("Category")
        type_text(CATEGORY)
        self.wait_for_text(pyatspi.ROLE_COMBO_BOX, "Category", CATEGORY)
        self.go_to_cell("Task", "Name", TASK)
        press_key("Tab")
        self.type_over("Employee", EMPLOYEE)
        self.wait_for_text(pyatspi.ROLE_COMBO_BOX, "Employee", EMPLOYEE)
        self.read("Timecards")
        for name in ("Use Task Employee", "Completed", "Task Price"):
            press_key("Tab")
            self.reader.wait_for_focus(name)
        self.type_over("Task Price", PRICE)
        press_key("Alt+a")
        self.answer_warnings()
        self.assertEqual(self.payments(), [(EMPLOYEE, TASK, LOT, JOB)])
        self.reader.wait_for_window("Timecards")
        history = self.reader.get(pyatspi.ROLE_LIST, "Task History")
        wait_for(lambda: any(PRICE in line.name for line in children(history)), "the payment in the history")
        self.reader.go_to(pyatspi.ROLE_LIST, "Task History")
        press_key("Down")
        press_key("Enter")
        self.read("Task Notes")

    @staticmethod
    def payments():
        with sqlite3.connect(f"file:{DATABASE}?mode=ro", uri=True) as database:
            return database.execute(PAYMENT, (float(PRICE),)).fetchall()

    def answer_warnings(self):
        """Yes to every warning until the payment is stored."""
        for _ in range(4):
            window = wait_for(lambda: self.payments() or self.reader.message(), "the payment or a warning")
            if isinstance(window, list):
                return
            self.check(window)
            said = " ".join(each.name for each in walk(window))
            self.assertRegex(said, r"\?", "a warning asks")
            press_key("Alt+y")
            wait_for(lambda window=window: not self.reader.is_there(window), "the answered warning to go")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
