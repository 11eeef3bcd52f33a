#!/usr/bin/env bash
# room_includes_test.sh COMPILER ROOMS INCLUDES [GATES]: what each room can include is what it says
# below, no more and no less. ROOMS is the folder that has every room's headers under the room's
# name, INCLUDES has a line "ROOM FOLDER…" for each: where its sources look for headers. What lies
# where every compiler looks has a header in GATES, which lets nobody through who does not link it.
set -euo pipefail

compiler=$1
rooms=$2
includes=$3
gates=${4-}
probe=$(mktemp --suffix=.cpp)
trap 'rm -f "$probe"' EXIT

ground='values'
records="$ground common engine"
screens="$ground common controls"
store="$records host store"
container="$store controls compare_events entry_events help_events register_events container"
calculator="$container calculator compare entry field_rules help register"
window="$calculator host_stored history undoing recalculation server_address explain reports reports_explaining reports_reading changes importing workbook desktop_importing charts report_formats report_xlsx report_pages report_desk guide desktop_site desktop_widgets desktop_workspace desktop_window paper paper_texts print_module printing_objects"
expected() {
  case $1 in
    values) echo "$ground" ;;
    common | host) echo "$ground $1" ;;
    engine) echo "$records" ;;
    explain) echo "$records $1" ;;
    controls) echo "$screens" ;;
    host_memory | host_failing | host_stored) echo "$ground host $1" ;;
    history) echo "$ground host host_stored $1" ;;
    undoing) echo "$store host_stored history $1" ;;
    server_address) echo "$ground host $1" ;;
    host_sqlite) echo "$ground common host host_stored $1" ;;
    host_postgresql) echo "$ground common host host_stored server_address $1" ;;
    host_places) echo "$ground common host host_stored host_postgresql host_sqlite server_address $1" ;;
    field_rules) echo "$ground $1" ;;
    compare_events | entry_events | register_events) echo "$records $1" ;;
    help_events) echo "$ground $1" ;;
    compare | register) echo "$records controls $1 $1_events" ;;
    entry) echo "$records controls entry entry_events field_rules" ;;
    help) echo "$screens help help_events" ;;
    store) echo "$store" ;;
    container) echo "$container" ;;
    calculator) echo "$calculator" ;;
    recalculation) echo "$store field_rules $1" ;;
    reports) echo "$records $1" ;;
    charts) echo "$records reports paper paper_texts $1" ;;
    report_formats) echo "$records reports paper paper_texts charts $1" ;;
    report_xlsx) echo "$records reports $1" ;;
    reports_explaining) echo "$records explain reports $1" ;;
    reports_reading) echo "$store reports $1" ;;
    changes) echo "$store reports reports_reading $1" ;;
    importing) echo "$store reports reports_reading changes field_rules $1" ;;
    guide) echo "$records $1" ;;
    report_desk) echo "$records reports paper paper_texts charts report_formats report_xlsx $1" ;;
    paper) echo "$1" ;;
    paper_texts) echo "$ground paper $1" ;;
    report_pages) echo "$records reports paper paper_texts charts $1" ;;
    print_module) echo "$screens paper $1" ;;
    cli) echo "$store recalculation explain reports reports_explaining reports_reading report_formats report_pages report_xlsx changes charts importing paper paper_texts cli controls field_rules host_places host_postgresql host_sqlite host_stored print_module register register_events server_address" ;;
    desktop_widgets) echo "$screens $1" ;;
    workbook) echo "$store reports reports_reading changes field_rules importing $1" ;;
    desktop_importing) echo "$screens $store reports reports_reading changes field_rules importing guide desktop_widgets $1" ;;
    desktop_site) echo "$screens desktop_widgets $1" ;;
    desktop_workspace) echo "$calculator explain reports reports_explaining paper paper_texts charts report_formats print_module printing_objects desktop_widgets $1" ;;
    desktop_window) echo "$window" ;;
    desktop_companies) echo "$window host_places host_postgresql host_sqlite host_stored $1" ;;
    com) echo "$ground $1" ;;
    postgresql) echo "$records $1" ;;
    registration) echo "$1" ;;
    record) echo "$records com $1" ;;
    ole) echo "$calculator com native_controls record $1" ;;
    native_controls) echo "$screens com $1" ;;
    host_automation) echo "$ground host com registration $1" ;;
    *) echo "a line in $0" ;;
  esac
}

# One header of each room stands for all of them.
for room in "$rooms"/depcalc_*; do
  header=$(cd "$room" && find . -name '*.h' | sort | head -n 1)
  printf '#if __has_include("%s")\nsees %s\n#endif\n' "${header#./}" "${room##*/depcalc_}"
done >"$probe"

sorted() { tr ' ' '\n' | grep . | sort -u | xargs; }

status=0
count=0
while read -r room folders; do
  room=${room#depcalc_}
  count=$((count + 1))
  seen=$("$compiler" -E -P -w -I ${folders// / -I } "$probe" | sed -n 's/^sees //p' | sorted)
  wanted=$(expected "$room" | sorted)
  [[ $seen == "$wanted" ]] && continue
  printf '%s can include:\n  %s\nand not:\n  %s\n' "$room" "$seen" "$wanted"
  status=1
done <"$includes"

while IFS= read -r gate; do
  count=$((count + 1))
  includes() { printf '#include <%s>\n' "$gate" | "$compiler" -std=c++20 -fsyntax-only -x c++ "$@" - 2>&1; }
  permission=$(sed -n 's/^#ifndef //p' "$gates/$gate")
  [[ $(includes -I "$gates" || true) == *"This room does not link"* ]] || {
    echo "<$gate> can be included by everyone"
    status=1
  }
  includes -I "$gates" "-D$permission"
done < <([[ -z $gates ]] || { cd "$gates" && find . -type f | sed 's|^\./||'; })
echo "$count rooms and gates"
[[ $count -gt 20 ]]
exit $status
