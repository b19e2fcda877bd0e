# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=bash
# Sourced by the scripts at the top of the tree: runs steps, a line of output for each.

# Nothing here asks anything, and nothing may wait for an answer.
exec </dev/null

# Without a home directory to write in, the compiler cache stays in the tree.
if [ -z "${CCACHE_DIR:-}" ] && ! [ -w "${HOME:-/nonexistent}" ]; then
    export CCACHE_DIR=$PWD/build/ccache
fi

# A second clone of the tree finds in the compiler cache what the first has put there.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# step NAME COMMAND...: runs the command, and says NAME and how many seconds it took. The output
# goes to build/logs; when the command fails, its end is shown and the script ends.
step() {
    local name=$1 started=$SECONDS status=0 log
    shift
    mkdir -p build/logs
    log=build/logs/${name//[^A-Za-z0-9]/-}.log
    "$@" >"$log" 2>&1 || status=$?
    if [ "$status" -ne 0 ]; then
        # Of a test run, what passed is of no interest now.
        grep -vE '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test .* Passed )' "$log" | tail -n 120 >&2 || true
        printf '%-48s failed after %d s (whole output: %s)\n' \
            "$name" $((SECONDS - started)) "$log" >&2
        exit 1
    fi
    printf '%-48s %4d s\n' "$name" $((SECONDS - started))
    last_log=$log
}

# closing_lines: what the last step's test run says at its end.
closing_lines() {
    sed -n '/tests passed/,$p' "$last_log"
}
