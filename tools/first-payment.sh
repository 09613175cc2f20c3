#!/bin/sh
# first-payment.sh BIN: starts the program in BIN on a virtual display, makes one payment on its sample database
# with keys and a click, meets its warnings, prints the rows that it wrote and saves a picture beside the program.
# Ends non-zero when no payment came of it.
set -eu
bin=$(cd "$1" && pwd)
database=$bin/data/Tarnwell.mdb
picture=$bin/first-payment.png
work=$(mktemp -d)

say() { printf '== %s\n' "$*"; }
fail() {
    say "$*"
    exit 1
}
ask() { sqlite3 -readonly "$database" "$1"; }
list() { sqlite3 -readonly -header -column "$database" "$1"; }
clean_up() {
    kill $program $manager $display 2>/dev/null || true
    rm -rf "$work"
}
# window NAME TENTHS: the id of the window with that name, waited for.
window() {
    tenths=$2
    while [ "$tenths" -gt 0 ]; do
        xdotool search --onlyvisible --name "$1" 2>/dev/null && return 0
        sleep 0.1
        tenths=$((tenths - 1))
    done
    return 1
}
press() { xdotool key --delay 60 "$@"; }
write() { xdotool type --delay 60 "$1"; }

# A free display picks its own number; the settings are this run's own, so that the user's stay as they are.
program= manager= display=
trap clean_up EXIT
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1280x800x24 3>"$work/number" 2>/dev/null &
display=$!
read -r number <"$work/number"
export DISPLAY=":$number" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work"
openbox >/dev/null 2>&1 &
manager=$!

# An open job's first lot and a category whose first task is paid to an employee while a category that it depends
# on is not: paying it once more meets all three warnings.
choice=$(ask "SELECT j.JobNumber, c.Description, e.SSN FROM JobTaskEmployee p
JOIN JobLotTask t USING (JobLotTaskKey) JOIN JobLot l USING (JobLotKey) JOIN Job j USING (JobKey)
JOIN Code c ON c.CodeKey = t.CodeKey JOIN Employee e ON e.EmployeeKey = p.EmployeeKey
WHERE j.CompletedDate IS NULL AND e.Inactive = 0 AND l.ExcludeDependencyCheck = 0 AND t.ExcludeDependency = 0
AND l.JobLotKey = (SELECT JobLotKey FROM JobLot WHERE JobKey = j.JobKey ORDER BY LotBlock LIMIT 1)
AND t.JobLotTaskKey = (SELECT JobLotTaskKey FROM JobLotTask WHERE JobLotKey = l.JobLotKey
    AND CodeKey = t.CodeKey ORDER BY Name, ParentKey, Child LIMIT 1)
AND t.MasterPrice <= (SELECT SUM(Price) FROM JobTaskEmployee WHERE JobLotTaskKey = t.JobLotTaskKey)
AND EXISTS (SELECT 1 FROM CategoryDependency d
    JOIN JobLotTask o ON o.CodeKey = d.DependentKey AND o.JobLotKey = l.JobLotKey
    WHERE d.CategoryKey = t.CodeKey AND o.ExcludeDependency = 0 AND o.MasterPrice <> 0
    AND NOT EXISTS (SELECT 1 FROM JobTaskEmployee x WHERE x.JobLotTaskKey = o.JobLotTaskKey))
ORDER BY j.JobNumber, c.Description LIMIT 1")
[ -n "$choice" ] || fail "This database has no task to show the warnings with; make a new sample"
job=${choice%%|*}
employee=${choice##*|}
category=${choice#*|}
category=${category%|*}

before=$(ask "SELECT IFNULL(MAX(JobTaskEmployee), 0) FROM JobTaskEmployee")
logged=$(ask "SELECT IFNULL(MAX(LogKey), 0) FROM EmployeeLog")
"$bin/tarnwell" &
program=$!
window '^Tarnwell: Version' 300 >/dev/null || fail "The main window did not come"
sleep 0.5
press alt+c
timecards=$(window '^Timecards$' 100) || fail "Time Card did not open"
sleep 0.5

say "Job $job, its first lot, category $category"
write "$job"
eval "$(xdotool getwindowgeometry --shell "$timecards")"
xdotool mousemove --window "$timecards" $((WIDTH * 3 / 10)) $((HEIGHT * 18 / 100)) click 1
press alt+c
write "$category"
say "Employee $employee, 25.00"
press Tab Tab
write "$employee"
press alt+e ctrl+a
write 25
press alt+a
while window '^Payment Error!$' 15 >/dev/null; do
    sleep 0.5
    say "A warning comes; the answer is Yes"
    scrot -o "$bin/first-payment-warning.png"
    press alt+y
    sleep 0.5
done
sleep 0.5
scrot -o "$picture"

say "Payments written:"
list "SELECT p.JobTaskEmployee, t.Name AS Task, e.SSN, e.LastName, p.Price, p.Completed FROM JobTaskEmployee p
JOIN JobLotTask t USING (JobLotTaskKey) JOIN Employee e ON e.EmployeeKey = p.EmployeeKey
WHERE p.JobTaskEmployee > $before"
say "Log rows written:"
list "SELECT LogKey, Occured, Problem FROM EmployeeLog WHERE LogKey > $logged"
say "Picture: $picture"
[ "$(ask "SELECT COUNT(*) FROM JobTaskEmployee WHERE JobTaskEmployee > $before")" -ge 1 ] ||
    fail "No payment was written"
