# SPDX-License-Identifier: MIT
"""Compares what Tarnwick shows of real applications with the menus that they open themselves.

Environment: TARNWICK_INSPECT, the program that prints the menus as Tarnwick would show them; TARNWICK_BINARY, the one that
shows them; TARNWICK_COMMIT, what both were built of.
"""
import argparse
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

_HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(_HERE.parent / "desktop"))

import catalogue  # noqa: E402
import report  # noqa: E402

_LIMIT = 900  # seconds for one application


def main():
    arguments = _arguments()
    known = catalogue.doors() if arguments.doors else catalogue.applications()
    unknown = [name for name in arguments.names if name not in known]
    if unknown:
        print(f"coverage: no such application: {', '.join(unknown)}; --list tells what there is.", file=sys.stderr)
        return 2
    if arguments.list:
        print("\n".join(known))
        return 0
    chosen = [known[name] for name in arguments.names] or list(known.values())
    if arguments.packages:
        print("\n".join(catalogue.packages(chosen, known, module=not (arguments.doors or arguments.check))))
        return 0
    table = pathlib.Path(arguments.output or ("docs/doors.md" if arguments.doors else "docs/coverage.md"))
    if arguments.doors:
        return _measure_doors(arguments, chosen, table, known)
    if arguments.check:
        return _check(chosen, report.load(table.with_suffix(".json")))
    keep = arguments.names or arguments.rewrite
    rows = report.load(table.with_suffix(".json")) if keep else []
    for application in [] if arguments.rewrite else chosen:
        rows = report.merged(rows, [_measured(application, module=catalogue.takes_module(application))], list(known))
        report.write(table, rows, catalogue.explanations())
    report.write(table, rows, catalogue.explanations())
    print(report.summary(rows))
    return 0 if all(report.is_explained(row, catalogue.explanations()) for row in rows) else 1


def _measure_doors(arguments, chosen, table, known):
    """Nothing is explained there: what is missing without a switch is what the table is about."""
    rows = report.load(table.with_suffix(".json")) if arguments.names or arguments.rewrite else []
    switched_on = {name: each["switched on"] for name, each in known.items()}
    for application in [] if arguments.rewrite else chosen:
        rows = report.merged(rows, [_measured(application, catalogue.truth_of(application, known))], list(known))
        report.write_doors(table, rows, switched_on)
    report.write_doors(table, rows, switched_on)
    print(report.summary(rows))
    return 1 if any("failed" in row for row in rows) else 0


def _arguments():
    parser = argparse.ArgumentParser(prog="scripts/coverage", description=__doc__.splitlines()[0])
    parser.add_argument("names", nargs="*", help="applications; all without")
    parser.add_argument("--list", action="store_true", help="print their names and stop")
    parser.add_argument("--packages", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("--rewrite", action="store_true", help="write the table anew, with what is known already")
    parser.add_argument("--doors", action="store_true", help="programs with what can be switched on instead: docs/doors.md")
    parser.add_argument("--check", action="store_true", help="write nothing; fail when the table tells something else")
    parser.add_argument("--output", help="the table, docs/coverage.md without; the JSON file stands next to it")
    return parser.parse_args()


def _check(chosen, rows):
    """The status: 1 when one is not as the table has it, 77 when one is not there and need not be.

    Of another version than the table's only what is not explained is a failure.
    """
    missing = [each["name"] for each in chosen if not shutil.which(each["command"][0])]
    if missing and os.environ.get("TARNWICK_REQUIRE_TOOLS") != "1":
        print(f"missing: {', '.join(missing)}")
        return 77
    told = {row["name"]: row for row in rows}
    failures = 0
    for application in chosen:
        row, old = _measured(application), told[application["name"]]
        if row.get("version", "") == old.get("version", ""):
            problems = report.unlike(row, old)
        else:
            print(f"  the table is of {old.get('version')}, this is {row.get('version')}: its figures are not compared")
            problems = [] if report.is_explained(row, catalogue.explanations()) else ["something is not explained"]
        print("".join(f"  {problem}\n" for problem in problems), end="")
        failures += bool(problems)
    return 1 if failures else 0


def _measured(application, truth_of=None, module=False):
    print(f"{application['name']} …", end="", flush=True)
    signal.signal(signal.SIGALRM, _give_up)
    signal.alarm(_LIMIT)
    start = time.monotonic()
    try:
        row = _measurement(application, truth_of, module)
    except Exception as error:  # pylint: disable=broad-except  # one application must not keep others from their turn
        row = report.failed(application, f"{type(error).__name__}: {error}".splitlines()[0])
    finally:
        signal.alarm(0)
    print(f" {report.one_line(row)} ({time.monotonic() - start:.0f} s)", flush=True)
    return row


def _give_up(_number, _frame):
    raise TimeoutError(f"not done after {_LIMIT} s")


def _measurement(application, truth_of, module):
    import running  # needs what a desktop test needs; the list does not
    row = running.measured(application, os.environ["TARNWICK_INSPECT"], _version(application), truth_of, module)
    return {**row, "commit": os.environ.get("TARNWICK_COMMIT", "")}


def _version(application):
    result = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", application["packages"][0]], capture_output=True,
                            text=True, check=False)
    return result.stdout.strip()


if __name__ == "__main__":
    sys.exit(main())
