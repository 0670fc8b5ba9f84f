#!/bin/bash
# Opens the page of all runs in a real browser: story_page_test.sh INSTALLER_TOOL
#
# The browser itself counts the products, the dialogs and what does not fit at 1280 pixels.
set -eu
tool=$1
tests=$(cd "$(dirname "$0")/.." && pwd)
if ! command -v chromium >/dev/null; then
    echo "story_page_test: SKIPPED: there is no browser; \"scripts/setup.sh chromium\" installs one"
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$tool" check --html "$work/page.html" --installed "$tests/end_to_end/machines/server.json"

# The page has no script of its own; this one takes the measures.
cat "$work/page.html" - >"$work/measured.html" <<'END'
<script>
const all = (selector) => [...document.querySelectorAll(selector)];
const outside = all('.road text, .window, .ending, td').filter((part) => {
    const own = part.getBoundingClientRect();
    const around = part.closest('svg, section').getBoundingClientRect();
    return own.width > 0 && (own.left < around.left - 1 || own.right > around.right + 1);
});
const pills = all('.road rect').filter((pill) => {
    const end = pill.getBoundingClientRect();
    return all('.road text').some((text) => {
        const own = text.getBoundingClientRect();
        return own.left > end.left && own.top >= end.top && own.bottom <= end.bottom &&
            own.right > end.right;
    });
});
document.title = ['products', all('section').length, 'linked',
    all('nav a').filter((link) => document.querySelector(link.getAttribute('href'))).length,
    'without a name', all('[role]:not([aria-label])').length,
    'outside', outside.length + pills.length,
    'wider than the window', document.documentElement.scrollWidth > 1280,
    'loaded', performance.getEntriesByType('resource').length].join(' ');
</script>
END
title=$(timeout 100 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync \
    --user-data-dir="$work/browser" --window-size=1280,1000 --dump-dom \
    "file://$work/measured.html" 2>/dev/null | grep -o '<title>[^<]*')
expected='<title>products 23 linked 23 without a name 0 outside 0 wider than the window false loaded 0'
if [ "$title" != "$expected" ]; then
    printf 'story_page_test: expected %s\n                 but saw  %s\n' "$expected" "$title" >&2
    exit 1
fi
