#!/usr/bin/python3
"""Runs screens_test.py as a person's desktop would: with a display, a session bus and the assistive tools' bus of
its own, none of which is left behind.

run.py PROGRAM DATABASE_TOOL FOLDER
"""

import importlib.util
import os
import pathlib
import shutil
import signal
import subprocess
import sys

LONGEST_RUN = 540  # Seconds. CTest waits a little longer, so that this program ends what it has started.

COMMANDS = {"Xvfb": "xvfb", "dbus-run-session": "dbus"}
MODULES = {"pyatspi": "python3-pyatspi", "gi": "python3-gi"}
REGISTRY = pathlib.Path("/usr/libexec/at-spi2-registryd")


def missing_packages():
    missing = [package for command, package in COMMANDS.items() if shutil.which(command) is None]
    missing += [package for module, package in MODULES.items() if importlib.util.find_spec(module) is None]
    if not REGISTRY.exists():
        missing.append("at-spi2-core")
    return missing


def start_display(environment):
    """Starts a display under the next free number and waits until it takes clients."""
    reading, writing = os.pipe()
    display = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x800x24", "-nolisten", "tcp"],
        pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as number:
        environment["DISPLAY"] = ":" + number.readline().strip()
    if environment["DISPLAY"] == ":":
        sys.exit("Xvfb has not started")
    return display


def end(process):
    """Ends a process and what it has started in its session."""
    try:
        os.killpg(process.pid, signal.SIGTERM)
        process.wait(20)
    except ProcessLookupError:
        pass
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()


def main():
    if missing := missing_packages():
        sys.exit("This test needs the packages: " + " ".join(missing))
    program, database_tool, folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    shutil.rmtree(folder, ignore_errors=True)
    home = folder / "home"
    environment = {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
                   "XDG_DATA_HOME": str(home / "data"), "XDG_STATE_HOME": str(home / "state"),
                   "XDG_CACHE_HOME": str(home / "cache"), "XDG_RUNTIME_DIR": str(home / "run"),
                   "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
                   "GSETTINGS_BACKEND": "memory", "PYTHONDONTWRITEBYTECODE": "1"}
    for name in ("DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS", "WAYLAND_DISPLAY", "QT_SCALE_FACTOR"):
        environment.pop(name, None)
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
        pathlib.Path(environment[name]).mkdir(mode=0o700, parents=True)
    display = start_display(environment)
    test = pathlib.Path(__file__).with_name("screens_test.py")
    session = subprocess.Popen(
        ["dbus-run-session", "--", sys.executable, str(test), str(program), str(database_tool), str(folder)],
        env=environment, start_new_session=True)
    try:
        sys.exit(session.wait(LONGEST_RUN))
    except subprocess.TimeoutExpired:
        sys.exit(f"not done after {LONGEST_RUN} seconds")
    finally:
        end(session)
        display.terminate()
        display.wait()


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended from outside"))
    main()
