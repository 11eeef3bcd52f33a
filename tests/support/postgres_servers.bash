# For shell tests: servers of their own (postgres_server.sh), gone when the script is.
#   start_server NAME [OPTION…]   sets NAME to the directory of its socket: psql -h "$NAME" -U postgres
#   tell_server NAME COMMAND…     stop, start, restart, promote, set, kill; fails where that failed

start_server() {
  local name=$1 answers to from word directory
  shift
  answers=$(mktemp -u)
  mkfifo "$answers"
  exec {to}> >(exec "$(dirname "${BASH_SOURCE[0]}")/postgres_server.sh" "$@" > "$answers")
  exec {from}< "$answers"
  rm "$answers"
  read -r -u "$from" word directory && [[ $word == ready ]] || {
    echo "$name did not start" >&2
    return 1
  }
  printf -v "$name" %s "$directory"
  printf -v "${name}_to" %s "$to"
  printf -v "${name}_from" %s "$from"
}

tell_server() {
  local name=$1 to=${1}_to from=${1}_from answer
  shift
  echo "$@" >&"${!to}"
  read -r -u "${!from}" answer
  [[ $answer == ok ]] || {
    echo "$name: $answer" >&2
    return 1
  }
}
