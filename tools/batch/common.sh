# shellcheck shell=bash disable=SC2034
# Sourced by the engines: the arguments and lists that they share.
#
# The work is a list of lines "INPUT<TAB>OUTPUT". An output that stands and is not older than its
# input is finished; so is an input whose failure is noted. Everything else is to be done, whoever
# died over it, so running the same command again goes on where the last one ended.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
most_rounds=3

usage_of_engine() {
    cat <<END
Usage: ${0##*/} -o OUTDIR [-j WORKERS] [--join FILE.ps] $1 FOLDER|- [-- PSRENDER-OPTIONS]
Converts each drawing or picture of FOLDER, or of the list on standard input, to a document of its
own below OUTDIR. Finished outputs are kept; failures end in OUTDIR/failures.txt. With --join, all of
them become one document, too, in the order of their names or of the list.
END
}

fail() {
    echo "${0##*/}: $*" >&2
    exit 2
}

# Sets outdir, workers, hosts, source and options from the arguments.
read_arguments() {
    outdir='' workers=2 hosts='' source='' joined='' options=()
    while (($#)); do
        case $1 in
            -o) outdir=${2:?} && shift ;;
            -j) workers=${2:?} && shift ;;
            --join) joined=${2:?} && shift ;;
            --hosts) hosts=${2:?} && shift ;;
            --) shift && options=("$@") && break ;;
            --help | -h) usage_of_engine "${engine_usage:-}" && exit 0 ;;
            *) [[ -z $source ]] || fail "one folder at a time: '$source' and '$1'"
               source=$1 ;;
        esac
        shift
    done
    [[ -n $outdir && -n $source ]] || { usage_of_engine "${engine_usage:-}" >&2; exit 2; }
    [[ $source == - || -d $source ]] || fail "$source: no such folder"
    mkdir -p "$outdir"
    outdir=$(cd "$outdir" && pwd)
    notes=$outdir/.failed
    mkdir -p "$notes"
}

# All work, as lines "INPUT<TAB>OUTPUT". Outputs lie as their inputs do: below the folder, or below
# the root for a list.
list_work() {
    if [[ $source == - ]]; then
        while IFS= read -r input; do
            input=$(realpath -s -- "$input")
            printf '%s\t%s\n' "$input" "$outdir/${input#/}.ps"
        done
    else
        local folder
        folder=$(cd "$source" && pwd)
        find "$folder" -path "$outdir" -prune -o -type f \
            \( -iname '*.svg' -o -iname '*.svgz' -o -iname '*.png' -o -iname '*.jpg' \
               -o -iname '*.jpeg' \) -print | sort | while IFS= read -r input; do
            printf '%s\t%s\n' "$input" "$outdir/${input#"$folder"/}.ps"
        done
    fi
}

# Sets note: where the failure of an output is noted.
set_note() {
    note=${1#"$outdir"/}
    note=$notes/${note//\//%}
}

# Passes on those lines of standard input that are still to be done, with the note as a third column.
unfinished() {
    local input output note
    while IFS=$'\t' read -r input output; do
        set_note "$output"
        if [[ ! -e $note && (! -e $output || $input -nt $output) ]]; then
            printf '%s\t%s\t%s\n' "$input" "$output" "$note"
        fi
    done
}

# Makes the one list of failures, and ends with 1 if it is not empty.
finish() {
    local all=$1 left=$2
    : >"$outdir/failures.txt"
    find "$notes" -type f -exec cat {} + | sort >>"$outdir/failures.txt"
    cut -f1 "$left" | sed "s/\$/\tits worker died $most_rounds times/" >>"$outdir/failures.txt"
    local total failed
    total=$(wc -l <"$all")
    failed=$(wc -l <"$outdir/failures.txt")
    echo "${0##*/}: $((total - failed)) of $total converted, $failed failed"
    ((failed == 0)) || { echo "${0##*/}: see $outdir/failures.txt" >&2; return 1; }
}

# Makes one document of all outputs.
join_outputs() {
    local outputs
    mapfile -t outputs < <(cut -f2 "$1")
    "${PSRENDER:-psrender}" --join -o "$joined" -- "${outputs[@]}"
}

# Runs `run_round LIST`, a list of lines "INPUT<TAB>OUTPUT<TAB>NOTE", until nothing is left, or the same work has died too often.
run_rounds() {
    local work all round
    work=$(mktemp -d)
    # Now, not when the trap fires.
    # shellcheck disable=SC2064
    trap "rm -rf '$work'" EXIT
    # A failure of an earlier run is tried again.
    rm -f "$notes"/*
    list_work >"$work/all"
    for ((round = 1; round <= most_rounds; ++round)); do
        unfinished <"$work/all" >"$work/left"
        [[ -s $work/left ]] || break
        run_round "$work/left"
    done
    unfinished <"$work/all" >"$work/left"
    finish "$work/all" "$work/left"
    if [[ -n $joined ]]; then join_outputs "$work/all"; fi
}
