#!/usr/bin/env python3
"""A small mutation sampler: plants one small fault at a time in the logic's sources, rebuilds,
runs the suite, and tells which faults the suite let through.

    scripts/mutate [N] [--seed S] [--list] [--compare OLD.tsv]

Faults: a comparison turned into its opposite (== and !=, < and >=, > and <=), an integer
literal changed by one, the last character of a string literal dropped, && and || swapped.

The sample is deterministic: every place where a fault can be planted gets an identity made of
its file's name, the kind of fault and the tokens around it (not line numbers, so that moving or
reformatting code keeps the identity), and the N places whose hash with the seed is smallest are
taken. Code that did not change keeps its faults in the sample, so two runs can be compared
fault by fault (--compare).

A fault that doesn't compile is no test of the suite: it is counted apart ("stillborn").
Everything happens in a copy of the tree under build/mutate; the checkout is never touched.
"""

import argparse
import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LOGIC_DIRS = ["src/system", "src/form", "src/store", "src/fields", "src/vocab", "src/speech", "src/ui"]
WORK = os.path.join(ROOT, "build", "mutate")
TREE = os.path.join(WORK, "tree")
BUILD = os.path.join(WORK, "build")

# --- Tokens -------------------------------------------------------------------------------

TOKEN = re.compile(
    r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<string>(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*")
  | (?P<char>'(?:\\.|[^'\\\n])+')
  | (?P<number>0[xX][0-9a-fA-F']+[uUlL]*|\d[\d']*(?:\.\d+)?(?:[eE][+-]?\d+)?[uUlLfF]*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<op>&&|\|\||==|!=|<=|>=|<<|>>|->|::|[-+*/%<>=!&|^~?:;,.(){}\[\]\#])
  | (?P<space>\s+)
  """,
    re.VERBOSE | re.DOTALL,
)


def tokens(source):
    """(kind, text, start offset) of every token but blanks and comments; preprocessor lines are
    left out whole."""
    out = []
    pos = 0
    at_line_start = True
    while pos < len(source):
        if at_line_start:
            m = re.match(r"[ \t]*#", source[pos:])
            if m:
                end = pos
                while True:
                    nl = source.find("\n", end)
                    if nl < 0:
                        end = len(source)
                        break
                    if source[nl - 1] == "\\":
                        end = nl + 1
                        continue
                    end = nl
                    break
                pos = end
                continue
        m = TOKEN.match(source, pos)
        if not m:
            pos += 1
            at_line_start = False
            continue
        kind = m.lastgroup
        text = m.group(kind)
        if kind == "space":
            if "\n" in text:
                at_line_start = True
        elif kind != "comment":
            out.append((kind, text, m.start()))
            at_line_start = False
        pos = m.end()
    return out


# --- Faults -------------------------------------------------------------------------------

FLIP = {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}
SWAP = {"&&": "||", "||": "&&"}


def drop_last_character(literal):
    """The string literal without its last character (a whole escape or UTF-8 character), or
    None for an empty one."""
    head = literal[: literal.index('"') + 1]
    body = literal[len(head) : -1]
    units = re.findall(r"\\(?:[0-7]{1,3}|x[0-9a-fA-F]+|u[0-9a-fA-F]{4}|.)|.", body, re.DOTALL)
    if not units:
        return None
    return head + "".join(units[:-1]) + '"'


def sites(path, source):
    """Every fault that can be planted in one file: (identity, offset, old text, new text)."""
    toks = tokens(source)
    found = []
    seen = {}
    base = os.path.basename(path)
    for i, (kind, text, start) in enumerate(toks):
        new = None
        fault = None
        if kind == "op" and text in FLIP:
            # < and > are comparisons only between blanks; without them they close templates.
            if text in ("<", ">"):
                before = source[start - 1] if start > 0 else ""
                after = source[start + 1] if start + 1 < len(source) else ""
                if before != " " or after != " ":
                    continue
            new, fault = FLIP[text], "flip"
        elif kind == "op" and text in SWAP:
            new, fault = SWAP[text], "swap"
        elif kind == "number" and re.fullmatch(r"\d+", text):
            value = int(text)
            new, fault = str(value + 1 if value % 2 == 0 else value - 1), "number"
        elif kind == "string":
            new, fault = drop_last_character(text), "string"
            if new is None:
                continue
        else:
            continue
        context = " ".join(t[1] for t in toks[max(0, i - 5) : i + 6])
        key = (base, fault, context)
        seen[key] = seen.get(key, 0) + 1
        identity = "%s|%s|%s|#%d" % (base, fault, context, seen[key])
        found.append((identity, start, text, new))
    return found


def all_sites(root):
    out = []
    for d in LOGIC_DIRS:
        folder = os.path.join(root, d)
        for name in sorted(os.listdir(folder)):
            if not name.endswith((".cpp", ".h")):
                continue
            # The Windows side of the system calls is built and tested under wine, not here.
            if name.rsplit(".", 1)[0].endswith("_win"):
                continue
            rel = os.path.join(d, name)
            with open(os.path.join(root, rel), encoding="utf-8") as f:
                source = f.read()
            for identity, start, old, new in sites(rel, source):
                out.append({"id": identity, "file": rel, "offset": start, "old": old, "new": new,
                            "line": source.count("\n", 0, start) + 1})
    return out


def sample(candidates, n, seed):
    def key(site):
        return hashlib.sha1(("%s|%s" % (seed, site["id"])).encode()).hexdigest()
    return sorted(sorted(candidates, key=key)[:n], key=lambda s: (s["file"], s["offset"]))


# --- Building and running -----------------------------------------------------------------

def run(cmd, **kw):
    return subprocess.run(cmd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **kw)


def copy_tree():
    if os.path.isdir(TREE):
        shutil.rmtree(TREE)
    ignore = shutil.ignore_patterns("build", ".git")
    # Copied files take the time of the copy: the build folder stays from run to run, and a file
    # that kept its own older time would leave its old object in place.
    shutil.copytree(ROOT, TREE, ignore=ignore, symlinks=True, copy_function=shutil.copy)


def test_targets():
    """The programs the suite runs, as build targets."""
    out = run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"]).stdout
    targets = set()
    for test in json.loads(out).get("tests", []):
        if test["name"] == "install":
            continue
        program = (test.get("command") or [""])[0]
        if program.startswith(BUILD):
            targets.add(os.path.basename(program))
    return sorted(targets)


def build(targets):
    return run(["cmake", "--build", BUILD, "--target"] + targets).returncode == 0


def suite_passes(timeout):
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    result = run(["ctest", "--test-dir", BUILD, "-E", "^install$", "--timeout", str(timeout),
                  "--stop-on-failure", "-j", str(os.cpu_count() or 1)], env=env)
    return result.returncode == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0],
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("n", nargs="?", type=int, default=200, help="faults to plant (default 200)")
    parser.add_argument("--seed", default="vorlane", help="seed of the sample (default vorlane)")
    parser.add_argument("--list", action="store_true", help="only list the sample, plant nothing")
    parser.add_argument("--compare", metavar="TSV", help="results of an earlier run to compare with")
    parser.add_argument("--timeout", type=int, default=20, help="seconds a test may run (default 20; the suite takes one)")
    args = parser.parse_args()

    candidates = all_sites(ROOT)
    chosen = sample(candidates, args.n, args.seed)
    print("%d places for a fault in the logic; %d taken with seed %r" % (len(candidates), len(chosen), args.seed))
    if args.list:
        for s in chosen:
            print("%s:%d  %s -> %s" % (s["file"], s["line"], s["old"], s["new"]))
        return 0

    os.makedirs(WORK, exist_ok=True)
    copy_tree()
    configure = run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=RelWithDebInfo",
                     "-DVORLANE_TESTS=ON"])
    if configure.returncode != 0:
        print(configure.stdout)
        return 2
    if not build(["all"]):
        print("the tree does not build")
        return 2
    targets = test_targets()
    if not build(targets) or not suite_passes(args.timeout):
        print("the suite does not pass without any fault; nothing to measure")
        return 2

    results = []
    started = time.time()
    for number, s in enumerate(chosen, 1):
        path = os.path.join(TREE, s["file"])
        with open(path, encoding="utf-8") as f:
            original = f.read()
        assert original[s["offset"] : s["offset"] + len(s["old"])] == s["old"]
        mutated = original[: s["offset"]] + s["new"] + original[s["offset"] + len(s["old"]) :]
        try:
            with open(path, "w", encoding="utf-8") as f:
                f.write(mutated)
            if not build(targets):
                status = "stillborn"
            else:
                status = "caught" if not suite_passes(args.timeout) else "survived"
        finally:
            with open(path, "w", encoding="utf-8") as f:
                f.write(original)
        results.append((s, status))
        print("[%3d/%d] %-9s %s:%d  %s -> %s" % (number, len(chosen), status, s["file"], s["line"],
                                                 s["old"], s["new"]), flush=True)
    build(targets)  # leave the copy built as it is

    caught = sum(1 for _, st in results if st == "caught")
    survived = [s for s, st in results if st == "survived"]
    stillborn = sum(1 for _, st in results if st == "stillborn")
    tested = caught + len(survived)
    tsv = os.path.join(WORK, "results-%s-%d.tsv" % (args.seed, args.n))
    with open(tsv, "w", encoding="utf-8") as f:
        for s, st in results:
            f.write("%s\t%s\t%s:%d\t%s -> %s\n" % (st, s["id"], s["file"], s["line"], s["old"], s["new"]))

    print()
    print("Survivors:")
    for s in survived:
        print("  %s:%d  %s -> %s" % (s["file"], s["line"], s["old"], s["new"]))
    print()
    print("%d faults: %d caught, %d survived, %d did not compile; %.1f%% of those that compiled caught"
          " (%.0f s)" % (len(results), caught, len(survived), stillborn, 100.0 * caught / max(tested, 1),
                         time.time() - started))
    print("results: %s" % os.path.relpath(tsv, ROOT))

    if args.compare:
        old = {}
        with open(args.compare, encoding="utf-8") as f:
            for line in f:
                parts = line.rstrip("\n").split("\t")
                old[parts[1]] = (parts[0], parts[2], parts[3])
        now = {s["id"]: st for s, st in results}
        common = [i for i in now if i in old]
        lost = [i for i in common if old[i][0] == "caught" and now[i] == "survived"]
        gained = [i for i in common if old[i][0] == "survived" and now[i] == "caught"]
        print()
        print("Against %s: %d faults in both samples; %d caught only now, %d caught only before"
              % (args.compare, len(common), len(gained), len(lost)))
        for i in lost:
            print("  caught before, not now: %s  %s" % (old[i][1], old[i][2]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
