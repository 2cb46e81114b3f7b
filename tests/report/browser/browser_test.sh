#!/usr/bin/env bash
# Gets the checkers of the report's pages, in the versions of package-lock.json, and runs them.
#
#   tests/report/browser/browser_test.sh <build folder>
#   tests/report/browser/browser_test.sh --packages       only installs what it takes
#
# Checkers, pictures and prints stay in <build folder>/browser.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
[ $# -eq 1 ] || { echo "Usage: $0 <build folder> | --packages" >&2; exit 2; }
. "$here/../../../scripts/common.sh"

install_packages chromium chromium-driver python3-selenium poppler-utils
# Those from elsewhere will do; Debian's npm doesn't even stand beside another Node.js.
command -v java >/dev/null || install_packages default-jre-headless
command -v npm >/dev/null || install_packages npm
if [ "$1" = --packages ]; then exit; fi  # before others look at which ones there are
build=$(cd "$1" && pwd)

tools=$build/browser
mkdir -p "$tools"
if ! cmp -s "$here/package-lock.json" "$tools/package-lock.json" || [ ! -d "$tools/node_modules" ]; then
    cp "$here/package.json" "$here/package-lock.json" "$tools"
    (cd "$tools" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error)
fi
exec /usr/bin/python3 -B "$here/browser_test.py" "$build/velmora-informe" "$tools" "$tools/pages"
