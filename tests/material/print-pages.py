#!/usr/bin/env python3
"""Prints recipes from a browser, in many page layouts, with what a reader of each page should find.

    print-pages.py RECIPES.json TARGET [--set NAME] [--layout NAME] [--every N] [--pictures]

RECIPES.json is what `set-recipes` leaves in its target. A module of `printed/` is a set: its LAYOUTS name functions
that make a page (HTML) of a recipe, the one after it and the words of its language. Elements with a `data-k` (title,
meta, head, ing, step) are the truth, in their order, the heading of a group of ingredients (class `group`) with the
colon that a draft gives it; everything else on the page is furniture. A function may bear
`header = True`: the browser then prints its own line of date, title, address and page number.
"""
import argparse
import base64
import fcntl
import importlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile

TRUTH = """[...document.querySelectorAll('[data-k]')].map(e => ({kind: e.dataset.k, page: 0,
    text: e.textContent.replace(/\\s+/g, ' ').trim(), group: e.classList.contains('group') && e.dataset.k === 'ing'}))
    .filter(e => e.text).map(({group, ...e}) => group ? {...e, text: e.text.replace(/:?$/, ':')} : e)"""


class Browser:
    """A headless Chromium, spoken to over two pipes: a JSON text a message, each ended by a NUL."""

    def __init__(self, profile):
        command, self.writer = self._pipe()
        self.reader, answer = self._pipe()
        command, answer = (fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in (command, answer))

        def hand_over():
            os.dup2(command, 3)
            os.dup2(answer, 4)

        self.process = subprocess.Popen(
            ["chromium", "--headless=new", "--no-sandbox", "--disable-gpu", "--remote-debugging-pipe",
             f"--user-data-dir={profile}", "about:blank"],
            preexec_fn=hand_over, close_fds=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(command), os.close(answer)
        self.reader, self.writer = os.fdopen(self.reader, "rb"), os.fdopen(self.writer, "wb")
        self.pending, self.count, self.session = b"", 0, None
        page = self.ask("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.ask("Target.attachToTarget", targetId=page, flatten=True)["sessionId"]
        self.frame = self.ask("Page.getFrameTree")["frameTree"]["frame"]["id"]

    @staticmethod
    def _pipe():
        """Reading and writing end, out of the way of the numbers that the browser uses."""
        ends = os.pipe()
        moved = tuple(fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, 10) for end in ends)
        os.close(ends[0]), os.close(ends[1])
        return moved

    def ask(self, method, **params):
        self.count += 1
        message = {"id": self.count, "method": method, "params": params}
        if self.session:
            message["sessionId"] = self.session
        self.writer.write(json.dumps(message).encode() + b"\0")
        self.writer.flush()
        while True:
            while b"\0" not in self.pending:
                read = self.reader.read1(1 << 20)
                if not read:
                    raise SystemExit("the browser is gone")
                self.pending += read
            text, _, self.pending = self.pending.partition(b"\0")
            answer = json.loads(text)
            if answer.get("id") == self.count:
                if "error" in answer:
                    raise SystemExit(f"{method}: {answer['error']}")
                return answer["result"]

    def show(self, html):
        self.ask("Page.setDocumentContent", frameId=self.frame, html=html)
        self.ask("Runtime.evaluate", expression="document.fonts.ready", awaitPromise=True)

    def close(self):
        self.session = None
        self.ask("Browser.close")
        self.process.wait()


def write(browser, html, header, base, pictures):
    browser.show(html)
    truth = browser.ask("Runtime.evaluate", expression=TRUTH, returnByValue=True)["result"]["value"]
    pdf = browser.ask("Page.printToPDF", printBackground=True, preferCSSPageSize=True, displayHeaderFooter=header)
    base.with_suffix(".pdf").write_bytes(base64.b64decode(pdf["data"]))
    base.with_suffix(".json").write_text(json.dumps(truth, ensure_ascii=False, indent=1), encoding="utf-8")
    if pictures:
        picture = browser.ask("Page.captureScreenshot", captureBeyondViewport=True)
        base.with_suffix(".png").write_bytes(base64.b64decode(picture["data"]))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("recipes", type=pathlib.Path)
    parser.add_argument("target", type=pathlib.Path)
    parser.add_argument("--set", help="only this module of printed/")
    parser.add_argument("--layout")
    parser.add_argument("--every", type=int, default=1, help="only every Nth recipe")
    parser.add_argument("--pictures", action="store_true")
    args = parser.parse_args()
    folder = pathlib.Path(__file__).parent
    sys.path.insert(0, str(folder))
    recipes = json.loads(args.recipes.read_text(encoding="utf-8"))
    sets = sorted(path.stem for path in (folder / "printed").glob("[a-z]*.py"))
    with tempfile.TemporaryDirectory() as profile:
        browser = Browser(profile)
        for name in sets:
            if args.set not in (None, name):
                continue
            target = args.target / name.replace("_", "-")
            target.mkdir(parents=True, exist_ok=True)
            layouts = importlib.import_module(f"printed.{name}").LAYOUTS
            for recipe in recipes[::args.every]:
                same = [other for other in recipes if other["language"] == recipe["language"]]
                following = same[(same.index(recipe) + 1) % len(same)]
                for layout, page in layouts.items():
                    if args.layout in (None, layout):
                        write(browser, page(recipe, following, recipe["words"]), getattr(page, "header", False),
                              target / f"{recipe['name']}__{layout}.pdf", args.pictures)
        browser.close()


main()
