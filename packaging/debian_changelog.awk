# The newest part of CHANGELOG.md as Debian keeps it, "Unreleased" being what is packed:
#   awk -v package=… -v version=… -v maintainer=… -v day=… -f debian_changelog.awk CHANGELOG.md
function write_entry(    words, count, i, line) {
  count = split(entry, words, " ")
  line = "  *"
  for (i = 1; i <= count; ++i) {
    if (length(line) + length(words[i]) >= 78) {
      print line
      line = "   "
    }
    line = line " " words[i]
  }
  if (count > 0) print line
  entry = ""
}

BEGIN { print package " (" version ") unstable; urgency=medium\n" }
/^## / && ++parts > 1 { exit }
/^- / { write_entry(); $1 = "" }
parts == 1 && !/^#/ { entry = entry " " $0 }
END {
  write_entry()
  print "\n -- " maintainer "  " day
}
