#!/usr/bin/env python3
"""Makes one page of what the benchmarks measured.

speed-report.py BENCH.jsonl PAGE.html    writes the page
speed-report.py --check                  says which figures have no meaning in benchmarks/meanings.txt, or no figure any more
"""

import html
import json
import pathlib
import platform
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MEANINGS = ROOT / "benchmarks" / "meanings.txt"

STYLE = """
body { font: 14px/1.45 system-ui, sans-serif; margin: 2em auto; max-width: 72em; padding: 0 1em; color: #222; background: #fff }
h1 { font-size: 1.5em } h2 { font-size: 1.1em; margin: 2em 0 .4em }
table { border-collapse: collapse; width: 100% }
th, td { padding: .35em .6em; border-bottom: 1px solid #ddd; vertical-align: top; text-align: left }
th { font-weight: 600; font-size: .85em; color: #666 }
.number { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums }
.small { color: #666; font-size: .85em }
.reached { color: #1a7f37 } .missed { color: #b42318; font-weight: 600 }
code { font-size: .9em }
@media (prefers-color-scheme: dark) {
  body { color: #ddd; background: #1d1d1f } th, .small { color: #999 } th, td { border-color: #3a3a3c }
  .reached { color: #4cc36a } .missed { color: #ff7b72 }
}
"""


def read_meanings():
    """The headings in order, each with its figures' meanings by name."""
    groups = []
    for line in MEANINGS.read_text().splitlines():
        if line.startswith("= "):
            groups.append((line[2:], {}))
        elif line and not line.startswith("#"):
            name, meaning = line.split(None, 1)
            groups[-1][1][name] = meaning
    return groups


def check():
    explained = {name for _, figures in read_meanings() for name in figures}
    measured = set()
    for source in (ROOT / "benchmarks").glob("*.cpp"):
        measured |= set(re.findall(r'^PLIX_FIGURE\("([^"]+)"\)', source.read_text(), re.MULTILINE))
    for name in sorted(measured - explained):
        print(f"benchmarks/meanings.txt: {name} has no meaning")
    for name in sorted(explained - measured):
        print(f"benchmarks/meanings.txt: there is no figure {name}")
    return 1 if measured != explained else 0


def number(value):
    return f"{value:,.0f}" if abs(value) >= 1000 else f"{value:.3g}"


def row(meaning, figure):
    cells = [f"<td>{html.escape(meaning)}<br><code class=small>{html.escape(figure['name'])}</code></td>"]
    if "skipped" in figure:
        return cells[0] + f"<td colspan=4 class=small>not measured: {html.escape(figure['skipped'])}</td>"
    unit = html.escape(figure["unit"])
    spread = f"{number(figure['min'])} to {number(figure['max'])}, {figure['runs']} runs"
    cells.append(f"<td class=number>{number(figure['value'])} {unit}<br><span class=small>{spread}</span></td>")
    if figure["peer"] is None:
        cells.append("<td class=small>none</td><td></td>")
    else:
        cells.append(f"<td>{number(figure['peer_value'])} {unit}<br><span class=small>{html.escape(figure['peer'])}</span></td>")
        ratio = figure["ratio"]
        cells.append(f"<td class=number>{'' if ratio is None else f'{ratio:.2f}'}</td>")
    if "wanted" in figure:
        reached = figure["ratio"] is not None and figure["ratio"] >= figure["wanted"]
        mark = "reached" if reached else "missed"
        cells.append(f"<td class='number {mark}'>{figure['wanted']:g}, {mark}</td>")
    else:
        cells.append("<td></td>")
    return "".join(cells)


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return platform.machine()


def page(figures):
    parts = [
        "<!doctype html><html lang=en><meta charset=utf-8><meta name=viewport content='width=device-width'>",
        f"<title>plix: speed</title><style>{STYLE}</style><h1>plix: speed</h1>",
        "<p>Medians, with the least and the greatest run below. Runs of ours and of the peer took turns on the same machine: "
        f"{html.escape(processor())}. A ratio says how many times better ours is than the peer; the limit is the ratio that is "
        "wanted at least.</p>",
    ]
    missing = dict(figures)
    for heading, meanings in read_meanings():
        present = [name for name in meanings if name in figures]
        if not present:
            continue
        parts.append(f"<h2>{html.escape(heading)}</h2><table><tr><th>Figure<th class=number>Ours<th>Peer<th class=number>Ratio"
                     "<th class=number>Limit</tr>")
        for name in present:
            parts.append(f"<tr>{row(meanings[name], missing.pop(name))}</tr>")
        parts.append("</table>")
    if missing:
        sys.exit(f"benchmarks/meanings.txt does not know {', '.join(sorted(missing))}")
    return "".join(parts) + "\n"


def main():
    if sys.argv[1:] == ["--check"]:
        return check()
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    source, target = map(pathlib.Path, sys.argv[1:])
    figures = [json.loads(line) for line in source.read_text().splitlines()]
    target.write_text(page({figure["name"]: figure for figure in figures}))
    print(f"wrote {target}")
    return 0


sys.exit(main())
