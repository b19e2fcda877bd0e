#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Turns the JSON results of the benchmarks into the Markdown tables of the performance page.

    bench_report.py [--write PAGE] charset.json uuid.json

Prints the tables, or with --write puts them between the two marker lines of PAGE. Where a benchmark was
repeated the best run counts: other load on the machine makes runs slower and never faster.
"""
import argparse
import json
import pathlib
import sys

BEGIN = "<!-- tables: begin (written by tools/bench_report.py) -->"
END = "<!-- tables: end -->"

SIZES = [("2MiB", "2 MiB"), ("1MiB", "1 MiB"), ("64B", "Lines of 64 bytes")]
# Column heading and the names of benchmarks that it stands for.
COLUMNS = [("orvxx", "orvxx"), ("orvxx, whole", "orvxx-whole"), ("ICU", "ICU"),
           ("ICU `u_str`", "ICU-u_str"), ("iconv", "iconv")]


def load(path):
    """Context and the runs (no aggregates) of one file of results, in the order of registration."""
    results = json.loads(pathlib.Path(path).read_text(encoding="utf-8"))
    runs = [run for run in results["benchmarks"] if run.get("run_type", "iteration") == "iteration"]
    return results["context"], sorted(runs, key=lambda run: run["family_index"])


def best(runs, key, choose):
    """Best value of a key for each benchmark name, in the order of the runs."""
    values = {}
    for run in runs:
        name = run["run_name"]
        values[name] = choose(values[name], run[key]) if name in values else run[key]
    return values


def ratio(ours, peers):
    known = [peer for peer in peers if peer is not None]
    return f"{ours / max(known):.1f}" if ours is not None and known else ""


def row(cells):
    return "| " + " | ".join(cells) + " |"


def header(titles, left):
    """Heading of a table whose first columns are text and whose others are numbers."""
    return [row(titles), row(["---"] * left + ["---:"] * (len(titles) - left))]


def charset_table(rates, size):
    """Rows of one text size: GB/s of everyone, and our incremental form against the peers."""
    cases = {}
    for name, rate in rates.items():
        direction, charset, text, case_size, who = name.split("/")
        if case_size == size:
            cases.setdefault((charset, text, direction), {})[who] = rate
    lines = header(["Set", "Text", "Direction"] + [title for title, _ in COLUMNS]
                   + ["to ICU", "to iconv"], 3)
    for case, by in cases.items():
        speeds = [f"{by[who] / 1e9:.2f}" if who in by else "" for _, who in COLUMNS]
        ours = by.get("orvxx")
        lines.append(row(list(case) + speeds
                         + [ratio(ours, [by.get("ICU"), by.get("ICU-u_str")]),
                            ratio(ours, [by.get("iconv")])]))
    return lines


def uuid_table(times):
    operations = {}
    for name, time in times.items():
        operation, who = name.split("/")
        operations.setdefault(operation, {})[who] = time
    lines = header(["Operation", "orvxx", "libuuid"], 1)
    for operation, by in operations.items():
        lines.append(row([operation] + [f"{by[who]:.0f}" if who in by else ""
                                        for who in ("orvxx", "libuuid")]))
    return lines


def machine(context):
    """One sentence on where the numbers come from."""
    peers = [f"{name} {context[name]}" for name in ("ICU",) if name in context]
    peers += [context["C library"]] if "C library" in context else []
    sentence = (f"Measured on {context['date'][:10]}: {context.get('processor', 'unknown')}, "
                f"{context['num_cpus']} cores at {context['mhz_per_cpu']} MHz; "
                f"compiler {context.get('compiler', 'unknown')}")
    return sentence + ("; peers " + ", ".join(peers) if peers else "") + "."


def report(charset_path, uuid_path):
    context, charset_runs = load(charset_path)
    _, uuid_runs = load(uuid_path)
    rates = best(charset_runs, "bytes_per_second", max)
    lines = [machine(context), ""]
    for size, title in SIZES:
        lines += [f"### {title}", "", "GB of encoded text per second.", ""]
        lines += charset_table(rates, size) + [""]
    lines += ["### UUIDs", "", "Nanoseconds for one.", ""]
    lines += uuid_table(best(uuid_runs, "cpu_time", min)) + [""]
    return "\n".join(lines)


def write(page, tables):
    text = page.read_text(encoding="utf-8")
    if text.count(BEGIN) != 1 or text.count(END) != 1:
        sys.exit(f"{page}: the marker lines must be there once each")
    head, rest = text.split(BEGIN)
    _, tail = rest.split(END)
    page.write_text(f"{head}{BEGIN}\n\n{tables}\n{END}{tail}", encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description="Tables of the benchmarks' results.")
    parser.add_argument("--write", type=pathlib.Path, metavar="PAGE")
    parser.add_argument("charset_json")
    parser.add_argument("uuid_json")
    arguments = parser.parse_args()
    tables = report(arguments.charset_json, arguments.uuid_json)
    if arguments.write:
        write(arguments.write, tables)
    else:
        print(tables)


if __name__ == "__main__":
    main()
