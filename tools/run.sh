#!/usr/bin/env bash
# Runs the settings application. The window arrives with the application shell;
# until then there is nothing to run.
echo "Tidewell Settings has no window yet: only its settings store and data files are built." >&2
echo "Run 'bash tools/test.sh' to build and test them." >&2
exit 1
