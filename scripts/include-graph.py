#!/usr/bin/env python3
"""Prints the folder-level include graph of the sources and fails on what breaks the layering.

A node is a top-level folder, or a folder one level down for agent/ and platform/linux/. The
script exits non-zero when the graph has a cycle, when a program folder includes the engine or
a platform implementation, or when the engine includes a program folder.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SKIP = {"tests", "bench", "data", "docs", "scripts", ".git", ".ci"}
PROGRAM = {"core", "character", "reading", "clock", "commands", "apps", "settings", "notes",
           "info", "startup"}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def node_of(relative):
    parts = pathlib.PurePosixPath(relative).parts
    if parts[0] == "agent" and len(parts) > 2:
        return "/".join(parts[:2])
    if parts[:2] == ("platform", "linux"):
        return "platform/linux"
    return parts[0]


def sources():
    for path in sorted(ROOT.rglob("*")):
        relative = path.relative_to(ROOT)
        if path.suffix in {".cpp", ".h"} and relative.parts[0] not in SKIP \
                and not relative.parts[0].startswith("build"):
            yield relative


def graph():
    edges = {}
    for relative in sources():
        here = node_of(relative)
        edges.setdefault(here, set())
        for target in INCLUDE.findall((ROOT / relative).read_text(errors="replace")):
            if (ROOT / target).is_file() and node_of(target) != here:
                edges[here].add(node_of(target))
    return edges


def cycles(edges):
    """Strongly connected components of more than one node (Tarjan)."""
    index, low, stack, on_stack, found = {}, {}, [], set(), []

    def visit(v):
        index[v] = low[v] = len(index)
        stack.append(v)
        on_stack.add(v)
        for w in sorted(edges.get(v, ())):
            if w not in index:
                visit(w)
                low[v] = min(low[v], low[w])
            elif w in on_stack:
                low[v] = min(low[v], index[w])
        if low[v] == index[v]:
            component = []
            while True:
                w = stack.pop()
                on_stack.discard(w)
                component.append(w)
                if w == v:
                    break
            if len(component) > 1:
                found.append(sorted(component))

    for v in sorted(edges):
        if v not in index:
            visit(v)
    return found


def main():
    edges = graph()
    for here in sorted(edges):
        print(f"{here} -> {', '.join(sorted(edges[here])) or '(nothing)'}")
    problems = [f"cycle: {' <-> '.join(c)}" for c in cycles(edges)]
    for here, targets in sorted(edges.items()):
        for target in sorted(targets):
            if here in PROGRAM and (target.startswith("agent") or target == "platform/linux"):
                problems.append(f"{here} includes {target}: program folders see only platform/")
            if here.startswith("agent") and target in PROGRAM:
                problems.append(f"{here} includes {target}: the engine knows nothing of Quorl")
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
