#!/usr/bin/env bash
# Fails when a source file is not laid out as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
echo "format: $(git ls-files '*.cpp' '*.h' | wc -l) files as they should be"
