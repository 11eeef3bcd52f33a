# What docs/contributing.md sends its readers to is there: each `FILE` exists, and what stands behind
# it in quotes (`FILE`: `TEXT`) is in it. Prints where, as compilers do, for editors to go there.
# Run in the root: awk -f tests/contributing_test.awk docs/contributing.md
function complain(what) { print FILENAME ":" FNR ": " what; wrong = 1 }

function exists(file,    line, got) {
  got = (getline line < file)
  close(file)
  return got >= 0
}

# The number of the first line that has the text, or 0.
function line_of(file, text,    line, number, found) {
  while (!found && (getline line < file) > 0) {
    ++number
    if (index(line, text)) found = number
  }
  close(file)
  return found
}

/^## / { print substr($0, 4) }

{
  count = split($0, parts, "`")
  for (i = 2; i <= count; i += 2) {
    if (parts[i] !~ /^[A-Za-z_\/0-9]+\.(h|cpp|txt|awk|golden|1)$/ || parts[i] !~ /\/|CMakeLists/) continue
    ++files
    if (!exists(parts[i])) complain(parts[i] " is not there")
    else if (parts[i + 1] == ": ") {
      ++texts
      if (line = line_of(parts[i], parts[i + 2])) print parts[i] ":" line ": " parts[i + 2]
      else complain(parts[i] " has no " parts[i + 2])
      i += 2
    }
  }
}

END {
  print files " files, " texts " texts"
  exit wrong || files < 40 || texts < 30
}
