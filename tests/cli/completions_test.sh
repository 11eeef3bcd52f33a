#!/usr/bin/env bash
# completions_test.sh CAPTURE: every command and every option that --help names is offered by the
# completions of bash, zsh and fish, and the values of an option, too. depcalc is on the PATH;
# CAPTURE is zsh_completions.zsh.
set -euo pipefail

capture=$1
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export HOME=$place XDG_CONFIG_HOME=$place XDG_DATA_HOME=$place XDG_CACHE_HOME=$place
mkdir -p "$place/zsh"
depcalc completion bash >"$place/depcalc.bash"
depcalc completion zsh >"$place/zsh/_depcalc"
depcalc completion fish >"$place/depcalc.fish"
touch "$place/an asset.csv" "$place/books.company"
cd "$place"
failed=0

# Each prints what the shell offers behind the words of the line, one a line.
offers_bash() {
  bash --norc -c 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
    _depcalc depcalc; printf "%s\n" "${COMPREPLY[@]}"' bash "$place/depcalc.bash" "$@"
}
offers_fish() {
  fish --no-config -c 'source $argv[1]; complete -C "$argv[2]"' "$place/depcalc.fish" "$*" |
    cut -f 1
}
offers_zsh() { zsh -f "$capture" "$place/zsh" "$*"; }

# expect SHELL "WORDS" OFFER...: every OFFER is among those.
expect() {
  local shell=$1 line=$2 offered each
  shift 2
  local words
  IFS=' ' read -r -a words <<<"$line"
  [[ $line == *' ' ]] && words+=('')
  if [[ $shell == bash ]]; then
    offered=$(offers_bash "${words[@]}")
  else
    offered=$("offers_$shell" "$line")
  fi
  for each in "$@"; do
    grep -qxF -e "$each" <<<"$offered" && continue
    echo "$shell: \"$line\" does not offer $each but: $(tr '\n' ' ' <<<"$offered")"
    failed=1
  done
}

commands=$(depcalc --help | sed -n '/^Subcommands:/,$p' | sed -n 's/^  \([a-z]*\) .*/\1/p')
[[ $(wc -w <<<"$commands") -ge 10 ]] || { echo "only these commands: $commands"; exit 1; }
for shell in bash fish zsh; do
  expect $shell 'depcalc ' $commands
  expect $shell 'depcalc help ' $commands
  for command in $commands; do
    options=$(depcalc "$command" --help | sed -n 's/^  \(-.*\)/\1/p' | grep -o -e '--[a-z-]*')
    expect $shell "depcalc $command --" $options
  done
  expect $shell 'depcalc list --format ' table csv json
  expect $shell 'depcalc recalculate --format ' table csv
  expect $shell 'depcalc import --separator ' comma semicolon tab
  expect $shell 'depcalc completion ' bash zsh fish
  expect $shell 'depcalc list book' books.company
  expect $shell 'depcalc report ' schedule years rollforward journal asset check
  expect $shell 'depcalc report years book' books.company
  expect $shell 'depcalc report --by ' department method convention
done
expect bash 'depcalc list --format = c' csv
exit $failed
