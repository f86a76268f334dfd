#!/usr/bin/env bash
# Checks that every include points to a lower floor. Run with the project's folder.
cd "$1" || exit 2
declare -A below=(
    [platform]="platform"
    [library]="platform library"
    [audio]="platform audio"
    [toolkit]="platform toolkit"
    [game]="platform library audio toolkit game"
    [editor]="platform library audio toolkit editor"
    [app]="platform library audio toolkit game editor app"
)
wrong=0
for floor in "${!below[@]}"; do
    allowed=${below[$floor]// /|}
    if grep -nE '^#include "' "$floor"/*.h "$floor"/*.cpp | grep -vE "#include \"($allowed)/"; then
        echo "$floor/ may include only: ${below[$floor]}"
        wrong=1
    fi
done
exit $wrong
