# Every room includes only what it may know; an arrow points down this list. Run in the root with
# every source behind the program: awk -f tests/house_test.awk values/currency.h …
BEGIN {
  may["values"] = "values"
  may["common"] = may["values"] " common"
  may["engine"] = may["common"] " engine"
  may["explain"] = may["engine"] " explain"
  may["controls"] = may["common"] " controls"
  may["host"] = may["common"] " host"
  may["host/memory"] = may["host"] " host/memory"
  may["host/failing"] = may["host"] " host/failing"
  may["host/stored"] = may["host"] " host/stored"
  may["host/history"] = may["host"] " host/stored host/history"
  may["host/sqlite"] = may["host/stored"] " host/sqlite"
  may["host/postgresql"] = may["host/stored"] " host/postgresql"
  may["host/places"] = may["host/sqlite"] " host/postgresql host/places"
  may["entry"] = may["engine"] " controls entry"
  may["compare"] = may["engine"] " controls compare"
  may["register"] = may["engine"] " controls register"
  may["help"] = may["controls"] " help"
  may["DepCalc"] = may["engine"] " controls host entry compare register help DepCalc"
  may["reports"] = may["engine"] " reports"
  may["reports/charts"] = may["reports"] " reports/pages reports/charts"
  may["reports/formats"] = may["reports"] " reports/charts reports/pages reports/formats"
  may["reports/formats/xlsx"] = may["reports"] " reports/formats/xlsx"
  may["reports/pages"] = may["reports"] " reports/charts reports/pages"
  may["reports/explaining"] = may["reports"] " explain reports/explaining"
  may["reports/reading"] = may["reports"] " host DepCalc reports/reading"
  may["changes"] = may["reports/reading"] " host/stored host/history changes"
  may["importing"] = may["changes"] " entry importing"
  may["importing/workbook"] = may["importing"] " importing/workbook"
  may["desktop/importing"] = may["importing"] " desktop/guide desktop desktop/importing"
  may["desktop/reports"] = may["reports"] " reports/formats reports/formats/xlsx desktop/reports"
  may["desktop/guide"] = may["engine"] " desktop/guide"
  may["desktop/workspace"] = may["DepCalc"] " explain reports reports/explaining reports/pages reports/formats reports/charts desktop desktop/workspace"
  may["desktop"] = may["DepCalc"] " explain reports/explaining host/stored host/history host/memory host/stored host/sqlite host/postgresql host/places reports reports/charts reports/formats reports/formats/xlsx reports/pages reports/reading changes importing importing/workbook desktop/importing desktop/reports desktop/guide desktop/workspace desktop"
  may["cli"] = may["DepCalc"] " explain reports/explaining host/memory host/stored host/sqlite host/postgresql host/places reports reports/formats reports/formats/xlsx reports/pages reports/reading changes importing desktop cli"
  may["windows/com"] = may["values"] " windows/com"
  may["windows/registration"] = "windows/registration"
  may["windows/controls"] = may["controls"] " windows/com windows/controls"
  may["windows/host"] = may["host"] " windows/com windows/registration windows/host"
  may["windows/typelib"] = "windows/typelib"
  may["windows/record"] = may["engine"] " windows/typelib windows/com windows/record"
  may["windows/ole"] = may["DepCalc"] " windows/typelib windows/com windows/controls windows/record windows/ole"
  may["windows/library"] = may["windows/ole"] " windows/registration windows/host windows/library"
  may["postgresql"] = may["engine"] " postgresql"
  # Headers that the standard library does not have: the operating system's and a database in one
  # room, anything but that database in the others.
  outside["host/stored"] = outside["host/sqlite"] = outside["host/postgresql"] = outside["host/places"] = "."
  outside["reports/formats/xlsx"] = outside["desktop"] = outside["desktop/importing"] = outside["desktop/workspace"] = outside["cli"] = "^[^s]|^s[^q]"
  outside["postgresql"] = "^(postgres|access/|catalog/|fmgr|funcapi|miscadmin|utils/)"
  outside["importing"] = "^iconv[.]h$"
  outside["importing/workbook"] = "^(expat|minizip/unzip)[.]h$"
  # Windows' own headers: in its rooms alone, and nothing else there.
  native = "^(win|ole|oc|oa|obj|comm|unknwn|activscp|dispex|shl|tlhelp|psapi|wrl)[a-z/]*[.]h$"
}

function complain(what) { print FILENAME ":" FNR ": " what; wrong = 1 }

function may_include(header) {
  if (room ~ /^windows/ || header ~ native) return room ~ /^windows/ && header ~ native
  return room in outside && header ~ outside[room]
}

# The room of a path: the longest folder that is one.
function room_of(path) {
  while (sub(/\/[^\/]*$/, "", path) && !(path in may)) {}
  return path
}

FNR == 1 && !((room = room_of(FILENAME)) in may) { complain("this is in no room") }

/^ *#include/ {
  ++count
  header = $2
  gsub(/[<">]/, "", header)
  if ($2 ~ /^"/) {
    if (index(" " may[room] " ", " " room_of(header) " ") == 0)
      complain(room " may not know " header)
  } else if (header ~ /\.h|^Q/ && !may_include(header)) {
    complain(room " may not include <" header ">")
  }
}

END {
  print count " includes"
  exit wrong || count < 100
}
