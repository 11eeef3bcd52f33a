#!/usr/bin/env bash
# postgres_server.sh [--durable] [--extension DIR] [--replica-of SOCKETS] [NAME=VALUE…]: a PostgreSQL
# server of a test's own, in a new directory, on a Unix socket and no network; NAME=VALUE are
# settings of the server's. It does what its standard input says and is gone, with all its files,
# when that ends: however the test ended. Run by root it works as an unprivileged user.
#
# Answers "ready DIRECTORY" once it takes connections on the socket there, as user postgres, whom
# it trusts; then a line "ok" or "failed …" to each line of
#   stop smart|fast|immediate    start    restart    promote    set NAME VALUE    kill
# "set" writes a setting and has it read; "kill" ends every process at once, as a power failure.
#
# --durable writes through to the disk, which tests of crashes want and others need not wait for.
# --extension takes what an installation would put under / from DIR. --replica-of copies that server
# and follows it. POSTGRES_BIN is where PostgreSQL's programs are, if not where pg_config says.
set -euo pipefail
trap : INT TERM HUP
trap '' PIPE
source "$(dirname "$0")/postgres_installation.bash"

bin=${POSTGRES_BIN-$(pg_config --bindir)}
durable=off extension='' primary='' settings=()
while [[ $# -gt 0 ]]; do
  case $1 in
    --durable) durable=on ;;
    --extension) extension=$2 && shift ;;
    --replica-of) primary=$2 && shift ;;
    *=*) settings+=("$1") ;;
    *) echo "failed: what is $1?" && exit 2 ;;
  esac
  shift
done

# In memory where a gigabyte is free there, which several servers fit in.
place=/tmp
free=$(df --output=avail /dev/shm 2> /dev/null | tail -n 1) || free=0
[[ $durable == on || $free -lt 1000000 ]] || place=/dev/shm
home=$(mktemp -d $place/depcalc-postgres-XXXXXX)
data=$home/data log=$home/log server=''
as_user=()
if [[ $(id -u) -eq 0 ]]; then
  user=nobody
  ! id postgres > /dev/null 2>&1 || user=postgres
  as_user=(setpriv "--reuid=$user" "--regid=$(id -g "$user")" --clear-groups)
  chown "$user" "$home"
fi
become() { cd "$home" && HOME=$home exec "${as_user[@]}" "$@"; }
run() { (become "$@"); }

# What a test forgot must not stay, servers of its own below the directory among it: backends die of
# their postmaster's immediate end.
finish() {
  local pid
  while read -r pid; do kill -QUIT "$pid" 2> /dev/null || true; done \
    < <(find "$home" -name postmaster.pid -exec head -qn 1 {} + 2> /dev/null)
  [[ -z $server ]] || wait "$server" || true
  rm -rf "$home"
}
trap finish EXIT

make_data() {
  if [[ -n $primary ]]; then
    run "$bin/pg_basebackup" -h "$primary" -U postgres -D "$data" --checkpoint=fast --no-sync \
      --write-recovery-conf
  else
    run "$bin/initdb" -D "$data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 --wal-segsize=4 \
      --no-sync > "$home/initdb.log"
  fi
}

write_settings() {
  {
    cat << END
listen_addresses = ''
unix_socket_directories = '$home'
unix_socket_permissions = 0777
fsync = $durable
full_page_writes = $durable
shared_buffers = 16MB
min_wal_size = 16MB
dynamic_shared_memory_type = mmap
jit = off
timezone = 'UTC'
log_timezone = 'UTC'
lc_messages = 'C'
END
    local setting
    for setting in "${settings[@]}"; do printf "%s = '%s'\n" "${setting%%=*}" "${setting#*=}"; done
  } >> "$data/postgresql.conf"
}

# What this server says of itself; a dead one's last word is not listened to.
state() {
  awk -v server="$server" 'NR == 1 && $1 != server { exit } NR == 8 { print $1 }' \
    "$data/postmaster.pid" 2> /dev/null || true
}

# waits_until CONDITION…: a minute at most, and no longer than the server lives.
waits_until() {
  local step
  for ((step = 0; step < 3000; ++step)); do
    ! "$@" || return 0
    kill -0 "$server" 2> /dev/null || return 1
    sleep 0.02
  done
  return 1
}

is_open() { [[ $(state) == ready || $(state) == standby ]]; }
is_primary() { [[ ! -e $data/standby.signal && $(state) == ready ]]; }

start() {
  [[ -z $server ]] || return 0
  become "$bin/postgres" -D "$data" >> "$log" 2>&1 < /dev/null &
  server=$!
  waits_until is_open || {
    tail -n 5 "$log" >&2
    return 1
  }
}

# ended_by SIGNAL: sends it and waits for the end.
ended_by() {
  [[ -n $server ]] || return 0
  kill "-$1" "$server" 2> /dev/null || true
  wait "$server" 2> /dev/null || true
  server=''
}

stop() {
  case $1 in
    smart) ended_by TERM ;;
    fast) ended_by INT ;;
    immediate) ended_by QUIT ;;
    *) return 1 ;;
  esac
}

# A dead postmaster's backends hold on to its memory until they notice; so they go first.
kill_all() {
  [[ -n $server ]] || return 0
  kill -STOP "$server"
  pkill -KILL -P "$server" || true
  ended_by KILL
}

promote() {
  run touch "$data/promote"
  kill -USR1 "$server"
  waits_until is_primary
}

change() {
  printf "%s = '%s'\n" "$1" "${2-}" >> "$data/postgresql.conf"
  [[ -z $server ]] || kill -HUP "$server"
}

# Reads the next line, until there is none any more. A process that the test has left behind may hold
# the pipe open; so the test itself is looked at, too.
test=$PPID
next_line() {
  local status=142
  while [[ $status -gt 128 && -d /proc/$test ]]; do
    read -r -t 2 command first rest && return 0 || status=$?
  done
  return 1
}

make_data >&2
write_settings
if [[ -n $extension ]]; then
  make_installation "$home/installation" "$bin" "$extension"
  bin=$home/installation$bin
fi
start
echo "ready $home"

while next_line; do
  case $command in
    start | promote) $command ;;
    stop) stop "$first" ;;
    restart) stop fast && start ;;
    kill) kill_all ;;
    set) change "$first" "$rest" ;;
    *) false ;;
  esac && echo ok || echo "failed $command"
done
