#!/usr/bin/env bash
# Judges the sets of a list by GNU parallel: on this machine, or on several that share the folders of the sets and of the store.
#
#   parallel.sh LIST STORE [OPTION ...]      options as of 'polarline batch', for example --limit 'dy_means<=0.1' --refine
#
# WORKERS=N  workers of each machine (one a core)      HOSTS=FILE  machines, one a line: '4/station-pc' has 4 workers, '2/:' is this one
# SETS=N     sets of a part (20)                       TRIES=N     how often a part is begun at most (3)
#
# The list is cut into parts. What became of each is in STORE/joblog, so that a second call begins with those that are not done; a list that
# changed is gone through again, which costs little, as sets that are in the store are not judged again.
# Exit code 0: every set has its document. 4: some may succeed when this is called again.
set -euo pipefail
if [[ $# -lt 2 ]]; then
  sed -n '2,/^set/{/^#/s/^# \?//p}' "$0" >&2
  exit 2
fi
list=$(realpath -- "$1") store=$(realpath -m -- "$2") sets=${SETS:-20}
shift 2
# At least one, so that a list without sets is refused by a worker.
parts=$((($(grep -cvE '^(#|[[:space:]]*$)' "$list" || true) + sets - 1) / sets))
parts=$((parts > 0 ? parts : 1))
# The store is made once, here: a worker that finds an empty folder where a disk was mounted must not begin another. For the same reason a
# folder that is there and no store is refused.
polarline batch --store "$store" --make-store
joblog=$store/joblog/$({ cat -- "$list" && printf '%s\n' "$parts" "$@"; } | sha256sum | cut -c1-16).tsv
mkdir -p "$store/joblog"

# One part: list, store, part and options. A limit that is exceeded and a set that can't be used are answers (exit codes 1 to 3);
# what may succeed when tried again, as a set whose disk is away, and a worker that told nothing of its sets are none.
told='{ print; fflush() } /"retry":true/ { again = 1 } END { exit again || !NR }'
worker='polarline batch "$1" --store "$2" --existing --shard "$3" "${@:4}"'
part="$worker | awk ${told@Q}; ((PIPESTATUS[0] == 0 || (PIPESTATUS[0] <= 3 && PIPESTATUS[1] == 0)))"

how=(--jobs "${WORKERS:-100%}" --retries "${TRIES:-3}" --joblog "$joblog" --resume-failed --line-buffer --workdir "$PWD")
if [[ -n ${HOSTS:-} ]]; then how+=(--sshloginfile "$HOSTS" --filter-hosts); fi
if [[ -t 2 ]]; then how+=(--bar); fi
# At the end, those that no try could read: a line of the list may be misspelt.
unread='{ print; fflush() }
  match($0, /"set":".*","state":"/) {
    set = substr($0, RSTART + 7, RLENGTH - 18)
    if (/"id":""/) { why[set] = $0; sub(/.*,"text":"/, "", why[set]); sub(/"}$/, "", why[set]) } else delete why[set]
  }
  END { for (set in why) print "parallel.sh: could not be read: " set ": " why[set] | "sort >&2" }'
seq "$parts" | (PARALLEL_SHELL=$BASH parallel "${how[@]}" bash -c "${part@Q}" worker "${list@Q}" "${store@Q}" "{}/$parts" "${@@Q}" || true) |
  awk "$unread"

[[ -r $joblog ]] || { echo "parallel.sh: $store is away; call it again when it is back" >&2 && exit 4; }
done_parts=$(awk -F '\t' 'NR > 1 { good[$1] = $7 == 0 && $8 == 0 } END { for (part in good) sum += good[part]; print sum + 0 }' "$joblog")
if [[ $done_parts -lt $parts ]]; then
  echo "parallel.sh: $done_parts of $parts parts are done; call it again" >&2
  exit 4
fi
