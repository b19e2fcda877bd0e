#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Turns the JSON results of the benchmarks into the Markdown tables of the performance page.

    bench_report.py [--write PAGE] charset.json number.json number_text.json decimal.json uri.json \
        uuid.json stream.json text.json load.json liborvxx.so

Prints the tables, or with --write puts them between the two marker lines of PAGE. Where a benchmark was
repeated the best run counts: other load on the machine makes runs slower and never faster.
"""
import argparse
import json
import pathlib
import sys

import library_size

BEGIN = "<!-- tables: begin (written by tools/bench_report.py) -->"
END = "<!-- tables: end -->"

# A section of the page for each kind of coder, and the sets measured in it.
FAMILIES = [
    ("UTF-8 and CESU-8", ["UTF-8", "CESU-8"]),
    ("UTF-16", ["UTF-16LE", "UTF-16BE"]),
    ("US-ASCII and ISO-8859-1", ["US-ASCII", "ISO-8859-1"]),
    ("Single-byte sets with a character for every byte", ["ISO-8859-2", "KOI8-R"]),
    ("Single-byte sets with unmapped bytes",
     ["ISO-8859-3", "windows-1251", "windows-1252", "windows-1253", "windows-1255", "windows-874"]),
    ("Double-byte sets",
     ["Shift_JIS", "Windows-31J", "x-windows-949", "Big5", "Big5-HKSCS", "GBK"]),
    ("GB18030", ["GB18030"]),
]
SIZES = [("2MiB", "2 MiB"), ("1MiB", "1 MiB"), ("64B", "Lines of 64 bytes")]
# Column heading and the names of benchmarks that it stands for.
COLUMNS = [("orvxx", "orvxx"), ("orvxx, whole", "orvxx-whole"), ("ICU", "ICU"),
           ("ICU `u_str`", "ICU-u_str"), ("iconv", "iconv")]
# Heading of a ratio and the contestants of whom the fastest counts.
RATIOS = [("to ICU", ["ICU", "ICU-u_str"]), ("to iconv", ["iconv"])]


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


def cases_by_family_and_size(rates):
    """Rate by contestant for each (set, text, direction), under (family, size)."""
    family_of = {charset: family for family, sets in FAMILIES for charset in sets}
    cases = {}
    for name, rate in rates.items():
        direction, charset, text, size, who = name.split("/")
        if charset not in family_of:
            sys.exit(f"{charset}: no family of bench_report.py has it")
        table = cases.setdefault((family_of[charset], size), {})
        table.setdefault((charset, text, direction), {})[who] = rate
    return cases


def charset_table(cases):
    """Rows of one family and text size: GB/s of everyone, and our incremental form against the
    peers. A contestant who has none of the sets has no column."""
    there = {who for by in cases.values() for who in by}
    columns = [(title, who) for title, who in COLUMNS if who in there]
    ratios = [(title, whos) for title, whos in RATIOS if there.intersection(whos)]
    lines = header(["Set", "Text", "Direction"] + [title for title, _ in columns]
                   + [title for title, _ in ratios], 3)
    for case, by in cases.items():
        speeds = [f"{by[who] / 1e9:.2f}" if who in by else "" for _, who in columns]
        lines.append(row(list(case) + speeds + [ratio(by.get("orvxx"), map(by.get, whos))
                                                for _, whos in ratios]))
    return lines


def charset_sections(rates):
    cases = cases_by_family_and_size(rates)
    lines = []
    for family, _ in FAMILIES:
        for size, title in SIZES:
            if (family, size) in cases:
                lines += [f"### {family}", ""] if f"### {family}" not in lines else []
                lines += [f"{title}:", ""] + charset_table(cases[family, size]) + [""]
    return lines


def short(nanoseconds):
    """A time in at least three digits."""
    return f"{nanoseconds:.3g}" if nanoseconds < 100 else f"{nanoseconds:.0f}"


def number_sections(times):
    """Whole numbers by operation and words; then what is ours alone or has no width."""
    operations, others = {}, {}
    for name, time in times.items():
        operation, words, who = name.split("/")
        table = others if words == "-" or operation == "ilog10" else operations
        label = operation if words == "-" else (f"{operation}, {words} words"
                                                if table is others else (operation, words))
        table.setdefault(label, {})[who] = time
    whos = ("orvxx", "GMP", "Boost")
    lines = header(["Operation", "Words", "orvxx", "GMP", "Boost", "times GMP's", "times Boost's"], 1)
    for (operation, words), by in operations.items():
        shares = [f"{by['orvxx'] / by[peer]:.2f}" if peer in by else "" for peer in whos[1:]]
        lines.append(row([operation, words] + [short(by[who]) if who in by else "" for who in whos]
                         + shares))
    lines += [""] + header(["Operation", *whos], 1)
    for operation, by in others.items():
        lines.append(row([operation] + [short(by[who]) if who in by else "" for who in whos]))
    return lines


# Columns of reading and of writing; the last ones are the peers that ratios are told for.
TEXT_COLUMNS = {
    "read": (["orvxx", "orvxx char16", "orvxx strtod_c", "strtod", "strtoll", "std", "fast_float",
              "double-conversion"], ["strtod", "strtoll", "std", "fast_float"]),
    "write": (["orvxx", "orvxx char16", "orvxx to_string_c", "snprintf", "std",
               "double-conversion"], ["snprintf", "std", "double-conversion"]),
}


def number_text_sections(times):
    """Reading and writing, a row for each set of numbers and a column for each contestant."""
    lines = []
    for operation, (whos, peers) in TEXT_COLUMNS.items():
        sets = {}
        for name, time in times.items():
            what, numbers, who = name.split("/")
            if what == operation:
                sets.setdefault(numbers, {})[who] = time
        lines += header([operation.capitalize(), *whos] + [f"times {peer}" for peer in peers], 1)
        for numbers, by in sets.items():
            shares = [f"{by['orvxx'] / by[peer]:.2f}" if peer in by else "" for peer in peers]
            lines.append(row([numbers] + [short(by[who]) if who in by else "" for who in whos]
                             + shares))
        lines.append("")
    return lines


# Columns of the URI tables by operation; the last ones are the peers that ratios are told for.
URI_COLUMNS = {
    "parse": (["orvxx", "orvxx parser", "Boost", "Boost view", "uriparser"],
              ["Boost", "Boost view", "uriparser"]),
    "others": (["orvxx", "Boost", "uriparser", "std::string_view"], ["Boost", "uriparser"]),
}


def uri_sections(times):
    """Parsing with a column for each form of a result, then the other operations."""
    tables = {"parse": {}, "others": {}}
    for name, time in times.items():
        operation, texts, who = name.split("/")
        kind = operation if operation in tables else "others"
        tables[kind].setdefault(f"{operation}, {texts}", {})[who] = time
    lines = []
    for kind, (whos, peers) in URI_COLUMNS.items():
        lines += header(["Operation", *whos] + [f"times {peer}" for peer in peers], 1)
        for operation, by in tables[kind].items():
            shares = [f"{by['orvxx'] / by[peer]:.2f}" if peer in by else "" for peer in peers]
            lines.append(row([operation] + [short(by[who]) if who in by else "" for who in whos]
                             + shares))
        lines.append("")
    return lines


# Columns of the decimal tables by operation; Intel's is the peer that a ratio is told for.
DECIMAL_COLUMNS = {
    "read": ["orvxx", "orvxx char16", "orvxx strtod", "Intel"],
    "write": ["orvxx", "orvxx char16", "orvxx to_string_c", "orvxx to_string", "Intel",
              "Intel string"],
    "others": ["orvxx", "Intel", "compiler"],
}


def decimal_peer(who):
    """What makes a string stands beside a string."""
    return "Intel string" if "to_string" in who else "Intel"


def decimal_sections(times):
    """Arithmetic, then reading and writing: ratios for each of our ways to Intel's."""
    tables = {"others": {}, "read": {}, "write": {}}
    for name, time in times.items():
        operation, numbers, who = name.split("/")
        kind = operation if operation in tables else "others"
        tables[kind].setdefault(f"{operation}, {numbers}", {})[who] = time
    lines = []
    for kind, table in tables.items():
        whos = DECIMAL_COLUMNS[kind]
        own = [who for who in whos if who.startswith("orvxx")]
        lines += header(["Operation", *whos] + [f"{who}, times {decimal_peer(who)}" for who in own], 1)
        for operation, by in table.items():
            shares = [f"{by[who] / by[decimal_peer(who)]:.2f}" if who in by else "" for who in own]
            lines.append(row([operation] + [short(by[who]) if who in by else "" for who in whos]
                             + shares))
        lines.append("")
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


def stream_sections(times, rates):
    """Numbers in nanoseconds, then lines of a file in MB per second, beside wchar_t and char."""
    numbers, lines_read = {}, {}
    for name, time in times.items():
        operation, what, who = name.split("/")
        if operation == "lines":
            lines_read.setdefault(what, {})[who] = rates[name] / 1e6
        else:
            numbers.setdefault(f"{operation}, {what}", {})[who] = time
    whos = ("orvxx", "wchar_t", "char")
    lines = header(["Numbers", *whos, "times wchar_t's"], 1)
    for operation, by in numbers.items():
        lines.append(row([operation] + [short(by[who]) for who in whos]
                         + [f"{by['orvxx'] / by['wchar_t']:.2f}"]))
    lines += ["", "Lines of a UTF-8 file in MB per second; `char` decodes nothing.", ""]
    lines += header(["Lines", *whos, "to wchar_t"], 1)
    for text, by in lines_read.items():
        lines.append(row([text] + [f"{by[who]:.0f}" for who in whos]
                         + [f"{by['orvxx'] / by['wchar_t']:.1f}"]))
    return lines + [""]


def text_section(times):
    """Operations on text, a row for each operation and text."""
    whos = ["orvxx", "orvxx builder", "std", "ICU"]
    cases = {}
    for name, time in times.items():
        operation, text, who = name.split("/")
        cases.setdefault(f"{operation}: {text}", {})[who] = time
    lines = header(["Operation", *whos, "times std's", "times ICU's"], 1)
    for operation, by in cases.items():
        shares = [f"{by['orvxx'] / by[peer]:.2f}" if peer in by else "" for peer in whos[2:]]
        lines.append(row([operation] + [short(by[who]) if who in by else "" for who in whos]
                         + shares))
    return lines + [""]


def load_section(context, times, library):
    """What a program pays that links with the library: time to start and end, and size."""
    lines = ["### Loading", "", machine(context), "",
             "Microseconds from the start of a program to its end that does nothing, and links with:",
             ""]
    lines += header(["Library", "µs"], 1)
    titles = {"neither": "the standard library alone", "orvxx": "orvxx", "ICU": "ICU's uc"}
    for name, time in times.items():
        who = name.split("/")[1]
        lines.append(row([titles[who], f"{time / 1e3:.0f}"]))
    return lines + ["", "What of `liborvxx` goes into memory:", ""] \
        + library_size.Library(library).table() + [""]


def machine(context):
    """One sentence on where the numbers come from."""
    peers = [f"{name} {context[name]}" for name in ("ICU", "GMP", "Boost", "uriparser")
             if name in context]
    peers += [context["C library"]] if "C library" in context else []
    sentence = (f"Measured on {context['date'][:10]}: {context.get('processor', 'unknown')}, "
                f"{context['num_cpus']} cores at {context['mhz_per_cpu']} MHz; "
                f"compiler {context.get('compiler', 'unknown')}")
    return sentence + ("; peers " + ", ".join(peers) if peers else "") + "."


def report(arguments):
    context, charset_runs = load(arguments.charset_json)
    number_context, number_runs = load(arguments.number_json)
    number_text_context, number_text_runs = load(arguments.number_text_json)
    decimal_context, decimal_runs = load(arguments.decimal_json)
    uri_context, uri_runs = load(arguments.uri_json)
    _, uuid_runs = load(arguments.uuid_json)
    stream_context, stream_runs = load(arguments.stream_json)
    text_context, text_runs = load(arguments.text_json)
    load_context, load_runs = load(arguments.load_json)
    lines = [machine(context), "", "Character sets in GB of encoded text per second.", ""]
    lines += charset_sections(best(charset_runs, "bytes_per_second", max))
    lines += ["### Text", "", machine(text_context), "", "Nanoseconds for one text.", ""]
    lines += text_section(best(text_runs, "cpu_time", min))
    lines += ["### Numbers", "", machine(number_context), "", "Nanoseconds for one.", ""]
    lines += number_sections(best(number_runs, "cpu_time", min)) + [""]
    lines += ["### Number text", "", machine(number_text_context), "",
              "Nanoseconds for one. `std` is `std::from_chars` and `std::to_chars`; `snprintf` writes"
              " `%.17g` and `%lld`.", ""]
    lines += number_text_sections(best(number_text_runs, "cpu_time", min))
    lines += ["### Decimals", "", machine(decimal_context), "", "Nanoseconds for one.", ""]
    lines += decimal_sections(best(decimal_runs, "cpu_time", min))
    lines += ["### URIs", "", machine(uri_context), "", "Nanoseconds for one.", ""]
    lines += uri_sections(best(uri_runs, "cpu_time", min))
    lines += ["### UUIDs", "", "Nanoseconds for one.", ""]
    lines += uuid_table(best(uuid_runs, "cpu_time", min)) + [""]
    line_runs = [run for run in stream_runs if "bytes_per_second" in run]
    lines += ["### Streams", "", machine(stream_context), "", "Nanoseconds for one number.", ""]
    lines += stream_sections(best(stream_runs, "cpu_time", min),
                             best(line_runs, "bytes_per_second", max))
    lines += load_section(load_context, best(load_runs, "real_time", min), arguments.library)
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
    parser.add_argument("number_json")
    parser.add_argument("number_text_json")
    parser.add_argument("decimal_json")
    parser.add_argument("uri_json")
    parser.add_argument("uuid_json")
    parser.add_argument("stream_json")
    parser.add_argument("text_json")
    parser.add_argument("load_json")
    parser.add_argument("library", help="the shared library, for its size")
    arguments = parser.parse_args()
    tables = report(arguments)
    if arguments.write:
        write(arguments.write, tables)
    else:
        print(tables)


if __name__ == "__main__":
    main()
