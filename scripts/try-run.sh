#!/usr/bin/env bash
# Tries ./run.sh where people have it: in odd folders, twice, without rights, without apt. What it builds
# and starts here is a stand-in for the program, so that it takes seconds; all else is the real thing.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run display
work=$(mktemp -d)
chmod 755 "$work"
started=()
clean_up() {
    [ ${#started[@]} -eq 0 ] || kill "${started[@]}" 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT
unset WAYLAND_DISPLAY
export DISPLAY=:none XDG_CACHE_HOME=$work/cache

# --- the stand-in
folder="$work/Rennen für Ärzte"
mkdir -p "$folder/src"
cp -r run.sh scripts CMakePresets.json "$folder"
cat >"$folder/CMakeLists.txt" <<'CMAKE'
cmake_minimum_required(VERSION 3.25)
project(trelawn LANGUAGES CXX)
# The build lasts as long as there is a file "wait", and says that it began in a file beside it.
add_custom_target(wait ALL VERBATIM COMMAND
    sh -c "while [ -e \"$0\" ]; do touch \"$0.begun\"; sleep 0.1; done" ${CMAKE_SOURCE_DIR}/wait)
add_subdirectory(src)
CMAKE
echo 'add_executable(trelawn main.cpp)' >"$folder/src/CMakeLists.txt"
cat >"$folder/src/main.cpp" <<'CPP'
#include <cstdio>
int main(int argc, char *argv[])
{
    std::puts("STARTED");
    while (*++argv)
        std::puts(*argv);
}
CPP

# --- what is expected of a run
bad=0
run() { # $1 says what is tried; the rest is the command, whose output and exit code are kept
    trial=$1
    code=0
    "${@:2}" >"$work/said" 2>&1 </dev/null || code=$?
}
expect() { # $1 is the exit code; the rest are texts that are said, or with "no:" before them are not
    [ "$code" -eq "$1" ] || wrong "exit code $code instead of $1"
    local text
    for text in "${@:2}"; do
        case $text in
        no:*) ! grep -qF -e "${text#no:}" "$work/said" || wrong "said: ${text#no:}" ;;
        *) grep -qF -e "$text" "$work/said" || wrong "not said: $text" ;;
        esac
    done
}
wrong() {
    echo "try-run: $trial: $1"
    sed 's/^/    /' "$work/said"
    bad=1
}
until_true() { # $1 says what is waited for; the rest is the command that tells
    for _ in $(seq 200); do
        "${@:2}" && return
        sleep 0.05
    done
    trial=$1
    wrong "did not come"
}

run "blanks and letters" "$folder/run.sh" one "two words"
expect 0 STARTED "two words"
[ -z "$(find "$folder" -maxdepth 1 -name '*.log')" ] || wrong "a log is left"

ln -s "$folder/run.sh" "$work/link"
run "from elsewhere, by a link" bash -c "cd / && '$work/link'"
expect 0 STARTED
ln -s "$folder" "$work/way"
run "a link to the folder" "$work/way/scripts/configure.sh" release
expect 0 "no:anew"

mv "$folder" "$work/It's moved"
folder="$work/It's moved"
run "moved after a build" "$folder/run.sh"
expect 0 "it is built anew" STARTED "no:CMake Error"
run "after that" "$folder/run.sh"
expect 0 STARTED "no:anew"

# A background process of a script ignores Ctrl+C unless it is told otherwise.
touch "$folder/wait"
env --default-signal=INT setsid "$folder/run.sh" >"$work/first" 2>&1 </dev/null &
first=$!
started+=("$first")
until_true "the first build" test -e "$folder/wait.begun"
"$folder/run.sh" >"$work/second" 2>&1 </dev/null &
second=$!
started+=("$second")
until_true "the second, waiting" grep -q "waiting for it" "$work/second"
kill -INT -- "-$first" || true
run "interrupted" wait "$first"
cp "$work/first" "$work/said"
expect 130 "Interrupted." no:STARTED
rm "$folder/wait"
run "started twice" wait "$second"
cp "$work/second" "$work/said"
expect 0 STARTED

# --- systems that lack something: commands are looked for in a folder of links
tools=$work/tools
mkdir "$tools"
ln -s /usr/bin/* "$tools"
pretend() { # the command $1 is the script on standard input
    rm -f "$tools/$1"
    { echo '#!/bin/sh' && cat; } >"$tools/$1"
    chmod +x "$tools/$1"
}
rm -f "$tools/sudo"
pretend id <<<'echo 1000'
pretend dpkg-query <<<'case "$*" in *fonts-*) echo not-installed ;; *wayland) ;; *) echo installed ;; esac'
run "a package missing, without sudo" env PATH="$tools" "$folder/run.sh"
expect 1 "only an administrator can install" "recommends fonts-liberation" no:STARTED
run "Wayland" env PATH="$tools" WAYLAND_DISPLAY=wayland-0 "$folder/run.sh"
expect 1 "fonts-liberation qt6-wayland"
rm "$tools/apt-get" "$tools/dpkg-query"
run "without apt, with all there" env PATH="$tools" "$folder/run.sh"
expect 0 STARTED
rm "$tools/Xvnc"
run "without apt and display" env -u DISPLAY PATH="$tools" "$folder/run.sh"
expect 1 "no apt" tigervnc no:STARTED
rm "$tools/cmake"
run "without apt and CMake" env PATH="$tools" "$folder/run.sh"
expect 1 "no apt" qt6-base-dev Fedora no:STARTED

# --- a folder that cannot be written to; nothing keeps root from writing
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
rm -rf "$folder/build"
mkdir -m 777 "$XDG_CACHE_HOME"
chmod a-w "$folder"
run "a folder that cannot be written to" "${as_user[@]}" "$folder/run.sh"
expect 0 "is built in $XDG_CACHE_HOME" STARTED "no:Permission denied"
chmod u+w "$folder"

# --- without a display, and with the port of the next virtual one taken
number=1
while [ -e "/tmp/.X$number-lock" ] || [ -e "/tmp/.X11-unix/X$number" ]; do
    number=$((number + 1))
done
python3 -c "import socket, time; s = socket.create_server(('127.0.0.1', $((5900 + number)))); time.sleep(60)" \
    2>/dev/null & # taken by others it is taken as well
started+=($!)
sleep 0.5
run "a taken port" env -u DISPLAY "$folder/run.sh"
expect 0 "port $((5900 + number)): vncExtInit: failed to bind socket" "vncviewer localhost:" STARTED

exit $bad
