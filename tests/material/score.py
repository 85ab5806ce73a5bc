#!/usr/bin/env python3
"""Scores drafts against pages whose recipe is known.

    score.py DRAFTS.jsonl [--show N] [--layout NAME] [--set FOLDER] [--totals]

DRAFTS.jsonl has a line {"path": PDF, "draft": {...}} a page; beside each PDF lies NAME.json with what a reader should
find (`set-recipes` writes both). A layout a line: titles found, ingredient lines exactly right, character errors of
the steps' text, ingredients that are on no true line.
"""
import argparse
import collections
import difflib
import json
import os
import re


def plain(text):
    text = re.sub(r"^[•·*▢☐\-–—]\s*", "", re.sub(r"\s+", " ", text).strip())
    return re.sub(r"\s*[–—-]\s*", "-", text).replace("’", "'").casefold()


def step_text(text):
    return re.sub(r"^(?:(?:step|schritt|étape|paso|passo|stap|krok|steg|trin)\s*)?\d{1,2}[.):]?\s+", "", text, flags=re.I)


def errors(truth, got):
    """Characters to insert, delete or replace, found blockwise: an upper bound of the edit distance."""
    matcher = difflib.SequenceMatcher(None, truth.split(" "), got.split(" "), autojunk=False)
    count = 0
    for op, a, b, c, d in matcher.get_opcodes():
        if op != "equal":
            count += max(len(" ".join(truth.split(" ")[a:b])), len(" ".join(got.split(" ")[c:d])))
    return min(count, len(truth))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("drafts")
    parser.add_argument("--show", type=int, default=0)
    parser.add_argument("--layout")
    parser.add_argument("--set", help="only pages of this folder: known, held-out, held-out-two, held-out-three")
    parser.add_argument("--totals", action="store_true", help="the totals alone, nothing of single pages or layouts")
    args = parser.parse_args()
    totals = collections.defaultdict(lambda: [0] * 8)
    shown = 0
    for row in open(args.drafts, encoding="utf-8"):
        row = json.loads(row)
        name = os.path.basename(row["path"])[:-4]
        layout = name.rpartition("__")[2]
        folder = os.path.basename(os.path.dirname(row["path"]))
        if (args.layout and layout != args.layout) or (args.set and folder != args.set):
            continue
        lines = json.load(open(row["path"][:-4] + ".json", encoding="utf-8"))
        draft = row["draft"]
        title = plain(" ".join(l["text"] for l in lines if l["kind"] == "title"))
        wanted = [plain(l["text"]) for l in lines if l["kind"] == "ing"]
        steps = plain(" ".join(step_text(l["text"]) for l in lines if l["kind"] == "step"))
        got = [plain(i) for i in draft["ingredients"]]
        text = plain(" ".join(p for s in draft["steps"] for p in s["paragraphs"]))
        wrong = errors(steps, text)
        for k, v in enumerate((1, plain(draft["title"]) == title, len(wanted), sum(i in got for i in wanted), len(steps), wrong,
                               len(got), sum(g not in wanted for g in got))):
            totals[layout][k] += v
        faults = [i for i in wanted if i not in got], [g for g in got if g not in wanted]
        if shown < args.show and not args.totals and (faults[0] or faults[1] or wrong * 20 > len(steps) or plain(draft["title"]) != title):
            shown += 1
            print(f"--- {name}")
            if plain(draft["title"]) != title:
                print(f"  title {draft['title']!r}")
            for kind, entries in zip(("missing", "extra"), faults):
                for entry in entries[:6]:
                    print(f"  {kind} {entry!r}")
            if wrong:
                print(f"  steps {wrong}/{len(steps)}")
                for op in difflib.SequenceMatcher(None, steps.split(" "), text.split(" "), autojunk=False).get_opcodes()[:12]:
                    if op[0] != "equal":
                        print(f"    {' '.join(steps.split(' ')[op[1]:op[2]])[:150]!r} -> {' '.join(text.split(' ')[op[3]:op[4]])[:150]!r}")
    every = [sum(t[k] for t in totals.values()) for k in range(8)]
    for layout, t in [*([] if args.totals else sorted(totals.items())), ("all", every)]:
        print(f"{layout:22s} {t[0]:4d} pages  titles {100 * t[1] / max(1, t[0]):5.1f} %  ingredients {100 * t[3] / max(1, t[2]):5.1f} % of {t[2]:5d}"
              f"  steps {100 * t[5] / max(1, t[4]):5.2f} % wrong  invented {t[7]}/{t[6]}")


main()
