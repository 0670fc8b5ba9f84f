#!/bin/bash
# Opens the page of the runs in a real browser: page_test.sh INSTALLER_TOOL
#
# The browser itself measures: on a desk, on a telephone, and within the margins of a sheet of A4.
set -eu
tool=$(realpath "$1")
cd "$(dirname "$0")/../.."
if ! command -v chromium >/dev/null; then
    echo "page_test: SKIPPED: there is no browser; \"scripts/setup.sh chromium\" installs one"
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
markup='</script><img src=x><!--<script>'
sed "s|beta EtherTavlink 2|& $markup|" tests/end_to_end/machines/server.json >"$work/server.json"
PYTHONPATH=scripts python3 -Bc 'import pathlib, sys, sample_parts
sample_parts.make_desk(*map(pathlib.Path, sys.argv[1:]))' "$(dirname "$tool")" "$work"
cd "$work"
cat >viewer.json <<'END'
{"windows": "Windows XP",
 "installed": [{"DisplayName": "Bluetooth Protocol Viewer", "DisplayVersion": "11.0.0.0",
                "UninstallString": "\"C:\\viewer\\setup.exe\" -remove", "InstallLocation": "C:\\viewer"}]}
END
echo '{"windows": "Windows 98"}' >old.json
"$tool" check --html runs.html --installed server.json
long=$(printf "release/%090d" 0)
mkdir -p "$long/1k" # a folder without an installer
"$tool" stamp build/release/installer.exe 1q 1q.exe
mkdir "$long/1q" # media of an installer alone
osslsigncode sign -certs certificate.pem -key key.pem -in 1q.exe -out "$long/1q/Install.exe" >/dev/null
"$tool" stamp build/release/installer.exe 1r "$long/1r/Install.exe"
"$tool" check --html faults.html --release "$long" --installed viewer.json --installed old.json \
    --ca-file certificate.pem \
    >/dev/null || [ $? -eq 1 ]

cat >measures.html <<'END'
<pre></pre>
<iframe src="runs.html" width="1280" height="900"></iframe>
<iframe src="runs.html" width="390" height="800"></iframe>
<iframe src="runs.html" width="703" height="1031" class="print"></iframe>
<iframe src="faults.html" width="390" height="800"></iframe>
<script>
function measured(frame) {
    const view = frame.contentWindow, page = view.document, onPaper = frame.className === 'print';
    const all = (selector) => [...page.querySelectorAll(selector)];
    const box = (element) => element.getBoundingClientRect();
    for (const {media} of onPaper ? all('style')[0].sheet.cssRules : []) {
        if (media?.mediaText === 'print') media.mediaText = 'all';
        else if (media?.mediaText.startsWith('screen')) media.mediaText = 'not all';
    }
    if (onPaper) view.dispatchEvent(new view.Event('beforeprint'));
    const links = all('#products a');
    const headingOf = (link) => page.querySelector(link.hash + ' h2');
    const faults = {
        'leads elsewhere': links.filter((link) => headingOf(link).innerText !== link.innerText),
        'covered by the bar': links.filter((link) => {
            view.location.hash = link.hash;
            return box(headingOf(link)).top < box(page.querySelector('nav')).bottom;
        }),
        'sticks out': all('body *').filter((part) => box(part).right > view.innerWidth + 1),
        'not of the page': all('img, script').slice(2),
        'archive key': page.documentElement.innerHTML.match(/-fzxkey (?!\.\.\. )/g) ?? [],
        'loaded': view.performance.getEntriesByType('resource'),
        'cut': all('section').filter((card) => onPaper &&
            (view.getComputedStyle(card).breakInside !== 'avoid' || box(card).height > frame.height)),
        'closed': all('details:not([open])').filter(() => onPaper),
    };
    const found = Object.entries(faults).filter(([, parts]) => parts.length > 0);
    return `${frame.getAttribute('src')} at ${frame.width}: ${links.length} products` +
        found.map(([what, parts]) => `, ${what}: ${parts.length}`).join('');
}
onload = () => {
    const frames = [...document.querySelectorAll('iframe')];
    const row = (frame, number) => [...frame.contentDocument.querySelector('#products').rows[number]
        .cells].map((cell) => cell.innerText.replace(/\s+/g, ' ')).join(' | ');
    document.querySelector('pre').textContent = [...frames.map(measured),
        ...[2, 15].map((number) => row(frames[0], number)),
        frames[0].contentDocument.querySelector('.list li').innerText,
        ...[2, 3, 4, 5].map((number) => row(frames[3], number)), ''].join('\n');
};
</script>
END
timeout 100 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync \
    --allow-file-access-from-files --user-data-dir=browser --window-size=1400,1000 \
    --dump-dom "file://$work/measures.html" 2>/dev/null | sed -n 's/.*<pre>//; /<\/pre>/q; p' >seen
diff - seen <<END
runs.html at 1280: 23 products
runs.html at 390: 23 products
runs.html at 703: 23 products
faults.html at 390: 3 products
EtherTavlink 07 · 16.4.10002.0 | Asks untested Windows, older versions, product type | 3 offered | – | Live Product, File Viewer, Demonstration
Tavlink Industrial Analyzer 1m · 16.4.10002.0 | Asks untested Windows, product type | – | 1 | Live Product, File Viewer, Demonstration
☑ beta EtherTavlink 2 $(sed 's/</\&lt;/g; s/>/\&gt;/g' <<<"$markup")
Bluetooth Protocol Viewer 1Q · 16.4.10002.0 | $long/1q | viewer.json | Asks nothing | 1 removed | – | Without a question (a message) | good /CN=Trial | 2 problems 2 warnings
old.json | Refused | – | – | –
Tavlink Low Energy Analyzer 1r · 16.4.10002.0 | $long/1r | viewer.json | Ends silently | – | – | – | none | none 3 warnings
old.json | Refused | – | – | –
END
