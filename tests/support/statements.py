#!/usr/bin/env python3
"""Compares the statements of the program with those whose SQL for SQL Server is approved.

    tests/support/statements.py [--add] BUILD_FOLDER

Runs every test program of the build folder on the embedded engine under gdb, which stops where a new statement is
translated, and keeps those that our own code sends (not those that a test sends itself). Prints those that
tests/data/odbc/sqlserver-statements.txt lacks, and those that it has and nobody sends. With --add it adds the missing
ones: TARNWELL_APPROVE=1 then writes what they become, which is to be read before it is committed. Fails where something
is missing. Needs gdb and programs with debug information.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

TESTS = pathlib.Path(__file__).resolve().parents[1]
APPROVED = TESTS / "data/odbc/sqlserver-statements.txt"
OUTPUT = "TARNWELL_STATEMENTS"
TRANSLATION = "tarnwell::data::(anonymous namespace)::translateShape"
# What is called from here is called for somebody else.
PASSING = re.compile("/src/data/(sql|engine|sqlite|odbc|recordset)/")
OWN = re.compile("/(src|tools|tests)/")
# A literal of each kind in the place of its mark, so that the shape is a statement again.
MARKS = {"\x01": "'a'", "\x02": "7", "\x03": "#02/03/04#", "\x04": "7.5"}
# A statement that is too long to be kept has its keys in its text; a shorter one like it stands for it.
LONGEST = 4000


def statement_of(shape):
    """The keys 0 and 1 stay in a shape, but 1 is a key like any other. Of a list of keys one or two are enough."""
    for mark, literal in MARKS.items():
        shape = shape.replace(mark, literal)
    statement = re.sub(r"(?i)(key *(?:=|<>) *)1\b", r"\g<1>7", " ".join(shape.split()))
    statement = re.sub(r"IN \([\d, ]+\)", "IN (7)", statement)
    return re.sub(r"([\w.]+=7)(?: OR \1)+", r"\1 OR \1", statement)


def source_of(frame):
    place = frame.find_sal()
    return place.symtab.fullname() if place.symtab else ""


def is_ours(frame):
    """Whether the innermost call that is not made for somebody else stands in our sources."""
    while frame is not None:
        source = source_of(frame)
        if not source.startswith("/usr/") and not PASSING.search(source) and OWN.search(source):
            return "/tests/" not in source
        frame = frame.older()
    return False


def watch():
    """Within gdb: writes what the program's own code sends."""
    output = open(os.environ[OUTPUT], "a", encoding="utf-8")

    class Translation(gdb.Breakpoint):
        def stop(self):
            text = gdb.newest_frame().read_var("text")
            if text.type.code == gdb.TYPE_CODE_REF:
                text = text.referenced_value()
            length = int(text["_M_string_length"])
            if length <= LONGEST and is_ours(gdb.newest_frame()):
                letters = text["_M_dataplus"]["_M_p"]
                shape = "".join(chr(int(letters[i])) for i in range(length))
                output.write(statement_of(shape) + "\n")
                output.flush()
            return False

    gdb.execute("set pagination off")
    Translation(TRANSLATION)
    gdb.execute("run")


def sent_by_us(build):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8")
    environment.pop("TARNWELL_TEST_SERVER", None)
    with tempfile.TemporaryDirectory() as folder:
        output = pathlib.Path(folder) / "statements"
        output.touch()
        environment[OUTPUT] = str(output)
        for program in sorted((build / "tests").glob("*_test")):
            print("running", program.name, file=sys.stderr)
            subprocess.run(["gdb", "-q", "-batch", "-nx", "-x", __file__, program], env=environment, check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return set(output.read_text(encoding="utf-8").splitlines())


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--add"]
    if len(arguments) != 1:
        sys.exit(__doc__)
    sent = sent_by_us(pathlib.Path(arguments[0]).resolve())
    approved = {line for line in APPROVED.read_text(encoding="utf-8").splitlines() if line and line[0] not in "# "}
    missing = sorted(sent - approved)
    for statement in missing:
        print("missing:", statement)
    for statement in sorted(approved - sent):
        print("sent by nobody:", statement)
    if "--add" in sys.argv:
        with APPROVED.open("a", encoding="utf-8") as file:
            file.writelines(statement + "\n" for statement in missing)
    elif missing:
        sys.exit(1)


try:
    import gdb
except ImportError:
    main()
else:
    watch()
