"""The parts of a page composed by lot: title, facts, entries, steps, and what stands around them."""
import random
import re
from html import escape

from printed._chance_words import (ADVERTS, CHAPTERS, COLOURS, COMMENTS, LIST_WORDS, METHOD_WORDS, PLACES, SAY, STORY,
                                   TYPES)
from printed._parts import NARROW, amount_and_name, bold_amount, facts, furniture, head, ingredients, notes, paragraphs, title

PLAIN = """* { box-sizing: border-box } body, h1, h2, h3, p { margin: 0 } ul, ol { margin: 0; padding: 0; list-style: none } h1, h2, h3, .group, .label { break-after: avoid; break-inside: avoid } .image { background: #c4c4c4 }
    p { margin-bottom: .6em } .plainly { font: 8.5pt/1.45 Nimbus Sans, sans-serif; color: #555 } .halves { display: grid; gap: 7mm } tr, .item { break-inside: avoid } table { border-collapse: collapse } td { vertical-align: top; padding: 0 }"""


class Sheet:
    """A page in the making: what was drawn for it, and the styles of the parts that it has so far."""

    def __init__(self, name, recipe, following, words, header):
        self.dice = random.Random(f"{name}/{recipe['title']}")
        self.recipe, self.following, self.words, self.header = recipe, following, words, header
        self.narrow_list = False
        self.say, self.drawn, self.styles = SAY[recipe["language"]], {}, [PLAIN, NARROW]
        self.kind = self.pick("kind", {"site": 9, "print view": 5, "book": 5, "magazine": 4, "app": 3, "typescript": 4, "card": 2})
        self.in_english = recipe["language"] == "en"
        self.paper = self.pick("paper", TYPES[self.kind][2])
        self.small = self.paper in ("A5", "A5 landscape", "152mm 229mm", "110mm 220mm", "152mm 102mm")
        self.accent = self.pick("accent", COLOURS if self.kind != "typescript" else {"#222": 1})

    def pick(self, what, options):
        """One of the options, by their weights; the same one whenever the same is asked."""
        if what not in self.drawn:
            self.drawn[what] = self.dice.choices(list(options), list(options.values()))[0]
        return self.drawn[what]

    def often(self, what, share):
        return self.pick(what, {True: share, False: 1 - share})

    def style(self, text):
        if text not in self.styles:
            self.styles.append(text)

    def word(self, english, word, other):
        """What this page calls a thing: English has more words for it than the two that every language has."""
        return self.pick(word, english if self.in_english else {word: 3, other: 1})


# What stands above the entries and the steps.

def heading(sheet, word, with_yield=False):
    """A heading as this page has them, perhaps in capitals, with a colon or with the portions."""
    text = word.upper() if sheet.often("capitals", .08) else word
    colon = ":" if sheet.often("colon", .3 if sheet.kind == "typescript" else .08) else ""
    amount = portions(sheet) if with_yield else ""
    if not amount:
        return head(text + colon)
    amount = sheet.pick("heading's yield", {"({})": 3, "– {}": 1, "· {}": 1}).format(amount)
    return f"<h2><span data-k=head>{escape(text)}</span> <small data-k=meta>{escape(amount)}</small></h2>"


def portions(sheet):
    amount = sheet.recipe["yield"]
    if not re.fullmatch(r"[\d–-]+", amount):
        return amount and f"{sheet.words['yield']}: {amount}"
    return sheet.word({"Serves %1": 6, "Makes %1 servings": 1, "Serving size: %1": .3, "For %1 people": 1, "Yield: %1 servings": 1}, sheet.words["serves"], sheet.words["yield"] + ": %1").replace("%1", amount)


def yield_in_heading(sheet):
    return sheet.recipe["yield"] and sheet.often("yield in heading", .1)


def known(sheet):
    """The facts as pairs of label and value, named as this page names them."""
    recipe, said = sheet.recipe, dict(facts(sheet.recipe, sheet.words))
    if sheet.in_english:
        short = sheet.pick("labels", {"Prep time/Cook time/Servings": 5, "Prep/Cook/Serves": 3, "Preparation/Cooking/Yield": 1, "Prep Time/Cook Time/Yield": 2, "Active time/In the oven/Portions": .3})
        said = dict(zip((short.split("/")[("Prep time", "Cook time", "Servings").index(label)] for label in said), said.values()))
    if yield_in_heading(sheet):
        said = dict(list(said.items())[:-1])
    minutes = [re.fullmatch(r"(\d+) min", recipe[key]) for key in ("prepTime", "cookTime")]
    if all(minutes) and sheet.often("total", .4):
        said[escape(sheet.say[16])] = f"{sum(int(found[1]) for found in minutes)} min"
    if sheet.often("long minutes", .3) and sheet.in_english:
        said = {label: re.sub(r"\bmins?\b", "minutes", value) for label, value in said.items()}
    pairs = list(said.items())
    return pairs[::-1] if sheet.often("yield first", .3) else pairs


def fact_block(sheet):
    pairs = known(sheet)
    shape = sheet.pick("facts", {"line": 6, "lines": 4, "stacked": 4, "table": 1.5, "boxes": 2, "yield": 3 if not yield_in_heading(sheet) else 0, "none": 1.5})
    if shape == "none" or not pairs:
        return ""
    sheet.style(".facts { margin: .6em 0 }")
    if shape == "yield":
        return f"<p data-k=meta class=facts>{escape(portions(sheet))}</p>" if sheet.recipe["yield"] else ""
    strong = sheet.pick("label", {"<b>{}:</b>": 4, "{}:": 4, "<i>{}</i>": 1, "<b>{}</b>": 1})
    extra = f"<span>{sheet.say[6]}</span>" if sheet.often("difficulty", .12) else ""
    if shape == "line":
        mark = sheet.pick("separator", {" · ": 3, " | ": 3, " &emsp; ": 3, " / ": .5, "; ": .7, " • ": 1})
        return f"<p class=facts>{mark.join([f'<span data-k=meta>{strong.format(label)} {value}</span>' for label, value in pairs] + [extra] * bool(extra))}</p>"
    if shape == "lines":
        return "<div class=facts>" + "".join(f"<div data-k=meta>{strong.format(label)} {value}</div>" for label, value in pairs) + f"<div>{extra}</div></div>"
    if shape == "table":
        sheet.style(f".facts td {{ border: .5pt solid {sheet.pick('table rule', {'#999': 2, 'transparent': 1})}; padding: .15em .8em .15em .3em }}")
        return "<table class=facts>" + "".join(f"<tr data-k=meta><td>{label}</td> <td><b>{value}</b></td></tr>" for label, value in pairs) + "</table>"
    sheet.style(f".stacked {{ display: flex; flex-wrap: wrap; gap: .6em 2em; {sheet.pick('stacked', {'': 3, 'justify-content: center; text-align: center': 2, f'border: solid {sheet.accent}; border-width: .7pt 0; padding: .5em 0': 1})} }} .stacked small, .stacked b {{ display: block }} .stacked small {{ font-size: .78em; {sheet.pick('small labels', {'': 2, 'text-transform: uppercase; letter-spacing: .08em': 1, 'color: #777': 1})} }}")
    if shape == "boxes":
        sheet.style(f".stacked {{ gap: .5em }} .stacked div {{ flex: 1; text-align: center; border: .7pt solid {sheet.accent}; border-radius: {sheet.pick('box corner', {'0': 1, '4pt': 1})}; padding: .4em }}")
    below = sheet.often("label below", .15)
    return "<div class='facts stacked'>" + "".join(
        f"<div data-k=meta><b>{value}</b> <small>{label}</small></div>" if below else f"<div data-k=meta><small>{label}</small> <b>{value}</b></div>" for label, value in pairs) + "</div>"


def byline(sheet):
    author = escape(sheet.recipe["author"])
    forms = {"{by} {a}": 5, "{by} {a} · {d}": 3 if sheet.kind == "site" else 0}
    if sheet.in_english:
        forms |= {"Recipe by {a}": 2, "Source: {a}": 1, "From the kitchen of {a}": 2 if sheet.kind in ("card", "typescript") else 0, "<i>{a}</i>": .5}
    date = sheet.pick("date", {"14 May 2023": 1, "02/11/2021": 1, "2024-03-09": 1})
    return f"<p class=by>{sheet.pick('byline', forms).format(by=sheet.say[0], a=author, d=date)}</p>" if author and sheet.often("author", .6) else ""


def title_block(sheet, facts_here, tag="h1"):
    """The title with what stands about it: a picture, a line above or below, facts at its side."""
    name, by, intro = title(sheet.recipe, tag), byline(sheet), lead(sheet)
    over = f"<div class=plainly>{sheet.pick('kicker', dict.fromkeys(CHAPTERS, 1))}</div>" if sheet.kind in ("book", "magazine") and sheet.often("kicker?", .25) else ""
    stars = sheet.pick("stars", {"": 6, "★★★★☆ 4.3 (118)": 1, "★★★★★": 1, "4.8 / 5 (32)": .6}) if sheet.kind in ("site", "print view", "app") else ""
    rating = f"<div style='font-family: DejaVu Sans; font-size: .85em'>{stars}</div>" if stars else ""
    photo = f"<div class='image item' style='height: {sheet.pick('photo', {35: 1, 50: 2, 70: 1} if not sheet.small else {25: 1, 35: 1})}mm; margin-bottom: 1em'></div>"
    photo += f"<p class=plainly>Photograph: {sheet.pick('by whom', {'L. Marsh': 1, 'Ida Holm': 1})}</p>" if sheet.often("credit", .2) else ""
    pictured = sheet.kind in ("site", "magazine", "book", "app")
    place = sheet.pick("title place", {"top": 8, "picture above": 2.5 * pictured, "picture below": 2.5 * pictured, "centred": 3, "banner": .8 * (sheet.kind != "typescript"), "beside facts": 1 * (not sheet.small), "beside picture": 1.5 * pictured * (not sheet.small)})
    said = (over if place == "banner" else over + name) + by + rating
    order = intro + facts_here if sheet.often("facts below intro", .6) else facts_here + intro
    if place == "picture above":
        return photo + said + order
    if place == "picture below":
        return said + photo + order
    if place == "banner":
        shade, ink = sheet.pick("banner", {(sheet.accent, "#fff"): 2, ("#f0ece2", "#222"): 1})
        sheet.style(f".banner {{ background: {shade}; padding: 1em 1.2em; margin-bottom: 1em }} .banner h1, .banner h2 {{ margin: 0; border: 0; color: {ink}; background: none }}")
        return f"<div class=banner>{name}</div>{said}{order}"
    if place == "centred":
        sheet.style(".top h1, .top h2, .top .by, .top .facts, .top .plainly { text-align: center } .top table { margin: .5em auto }")
    if place == "beside facts" and facts_here:
        return f"<div class=halves style='grid-template-columns: 1fr fit-content(50%); align-items: end'><div>{said}</div><div>{facts_here}</div></div>{intro}"
    if place == "beside picture":
        columns, halves = sheet.pick("halves", {("1fr 60mm", "<div>{0}</div><div>{1}</div>"): 2, ("55mm 1fr", "<div>{1}</div><div>{0}</div>"): 1})
        return f"<div class=halves style='grid-template-columns: {columns}; margin-bottom: 1em'>{halves.format(said + order, photo)}</div>"
    return f"<div class=top>{said}{order}</div>"


def lead(sheet):
    """Introducing paragraphs: the recipe's own, and at times more of them."""
    more = sheet.pick("more lead", {0: 12, 1: 2, 2: 1} if sheet.kind in ("site", "book", "magazine") and sheet.in_english and not sheet.small and not sheet.drawn.get("story") else {0: 1})
    start = sheet.pick("lead from", dict.fromkeys(range(len(STORY) - 1), 1))
    sheet.style(f".lead {{ {sheet.pick('lead', {'': 5, 'font-style: italic': 2, 'font-size: 1.12em': 1, 'color: #555': 1})} }}")
    return paragraphs([sheet.recipe["intro"], *STORY[start:start + more]], "p class=lead")


# The ingredients.

def amount_column(sheet):
    """How many letters wide a column of amounts is; none where too few entries have one, or it would crowd the list."""
    amounts = [amount_and_name(text)[0] for text in sheet.recipe["ingredients"] if not text.endswith(":")]
    widest = max(map(len, amounts), default=0)
    fits = widest <= (10 if sheet.narrow_list else 16) and "list columns" not in sheet.drawn
    return widest if fits and len(list(filter(None, amounts))) >= .6 * len(amounts) else 0


def entries(sheet):
    """The entries with their marks; `group` is how the headings among them stand out."""
    form = sheet.pick("entries", {"disc": 8, "bare": 6, "dash": 2, "box": 3, "columned": 4, "table": 3, "hanging": 1.5, "ruled": 1, "square": 1, "bold amount": 1.5, "drawn box": 1, "tick": .3, "centred": .4 * (sheet.kind == "card")})
    widest = amount_column(sheet)
    if form in ("columned", "table") and not widest:
        form = "hanging"
    sheet.style(f".ing .group {{ {sheet.pick('group', {'font-weight: 700': 5, 'font-style: italic': 1, f'font-weight: 700; color: {sheet.accent}': 1, 'text-decoration: underline': 1, 'font-size: .85em; text-transform: uppercase; letter-spacing: .06em; font-weight: 700': 1})}; margin: .6em 0 .2em; padding: 0; text-indent: 0; list-style: none; border: 0; display: block }} .ing .group::before {{ content: none }} .ing > :first-child {{ margin-top: 0 }}")
    sheet.style(f".ing li, .ing td {{ padding-bottom: {sheet.pick('entry gap', {'0': 3, '.15em': 3, '.35em': 2})}; text-align: left; hyphens: manual }}")
    bare = sheet.often("bare group", .4)
    marks = {"disc": ".ing { padding-left: 1.2em } .ing li { list-style: disc } .ing .group { margin-left: -1.2em }", "square": ".ing { padding-left: 1.2em } .ing li { list-style: square } .ing .group { margin-left: -1.2em }",
             "dash": ".ing li::before { content: '" + sheet.pick("dash", {"– ": 2, "- ": 2, "— ": .3}) + "' }", "box": ".ing li::before { content: '☐ '; font-family: DejaVu Sans } .ing li { padding-left: 1.6em; text-indent: -1.6em }",
             "tick": ".ing li::before { content: '✓ '; font-family: DejaVu Sans } .ing li { padding-left: 1.3em; text-indent: -1.3em }", "centred": ".ing li { text-align: center }", "hanging": ".ing li { padding-left: 1.4em; text-indent: -1.4em }",
             "ruled": f".ing li {{ border-bottom: .6pt {sheet.pick('rule', {'dotted': 2, 'solid': 1})} #999; padding: .2em 0 }}", "drawn box": ".ing li { display: flex; gap: .6em } .ing li::before { content: ''; flex: 0 0 .75em; height: .75em; border: .7pt solid #444; margin-top: .3em }",
             "columned": f".ing li {{ display: grid; grid-template-columns: {max(2.2, widest * .62):.1f}em 1fr; gap: .7em }} .ing b {{ white-space: nowrap; font-weight: {sheet.pick('amount weight', {'400': 2, '700': 1})}; text-align: {sheet.pick('amount side', {'left': 2, 'right': 1})} }}",
             "table": f".ing td {{ border-bottom: {sheet.pick('lines', {'0': 2, '.5pt solid #bbb': 1})}; padding-right: 1em }} .ing td:first-child:not(.across) {{ white-space: nowrap }}"}
    sheet.style(marks.get(form, ""))
    if form == "table":
        def row(text):
            if text.endswith(":"):
                return f"<tr data-k=ing><td colspan=2 class=across>{escape(text)}</td></tr>"
            amount, name = amount_and_name(text)
            return f"<tr data-k=ing><td>{amount}</td> <td>{name}</td></tr>"
        sheet.style(".ing .across { font-weight: 700; padding-top: .5em }")
        return "<table class=ing>" + "".join(row(text) for text in sheet.recipe["ingredients"]) + "</table>"
    shape = {"columned": lambda text: "<b>{}</b> <span>{}</span>".format(*amount_and_name(text)), "bold amount": bold_amount}.get(form, escape)
    item = "<li data-k=ing><span>{}</span></li>" if form == "drawn box" else "<li data-k=ing>{}</li>"
    return f"<ul class=ing>{ingredients(sheet.recipe, item, bare=bare, shape=shape)}</ul>"


def named(sheet):
    """Which of its two headings the page has."""
    return sheet.pick("heads", {"both": 20, "no list": 1.5, "no method": 1, "none": .8})


def list_part(sheet, inside=""):
    word = sheet.word(LIST_WORDS, sheet.words["ingredients"], sheet.words["otherIngredients"])
    shown = heading(sheet, word, yield_in_heading(sheet)) if named(sheet) in ("both", "no method") or yield_in_heading(sheet) else ""
    tools = f"<h2>{sheet.say[10]}</h2><p>{sheet.say[11]}</p>" if sheet.kind in ("site", "book") and shown and sheet.often("tools", .06) else ""
    return f"<section class=list>{inside}{tools}{shown}{entries(sheet)}</section>"


# The method.

def steps_of(sheet):
    """Number and text of the steps; one that is only a heading of those below has none."""
    number = 0
    for text in sheet.recipe["steps"]:
        number += not text.endswith(":")
        yield "" if text.endswith(":") else number, escape(text)


def steps(sheet):
    recipe = sheet.recipe
    flowing = len(recipe["steps"]) > 1 and all(text[-1] in ".!?)" for text in recipe["steps"])
    form = sheet.pick("steps", {"ordered": 10, "bare": 5, "label above": 2, "label in front": 1.5, "numeral": 1.5, "circle": 1.5, "glyph": .5, "running": .8, "running numbers": .4, "bullets": 1,
                                "bold start": 1, "indented": .7, "paren": 1, "table": .5, "pictures": .6 * (sheet.kind == "site"), "of": .4})
    if form in ("running", "running numbers") and not flowing or form in ("bare", "indented") and not flowing and named(sheet) == "none":
        form = "ordered"
    total = sum(not text.endswith(":") for text in recipe["steps"])
    label = sheet.words["step"].upper() if sheet.often("step capitals", .25) else sheet.words["step"]
    sheet.style(f".do {{ overflow-wrap: anywhere }} .do li, .do p, .do .item {{ margin-bottom: {sheet.pick('step gap', {'.2em': 1, '.5em': 3, '.8em': 2})} }} .do .sub {{ font-weight: 700; list-style: none; margin: .6em 0 .2em; text-indent: 0 }} .do .label {{ font-weight: 700; color: {sheet.accent}; margin: .5em 0 .1em }}")
    if sheet.often("steps whole", .4):
        sheet.style(".do li, .do p { break-inside: avoid }")
    text, mark = "<span data-k=step>{t}</span>", sheet.pick("end of number", {".": 4, ")": 1, "": 1, ":": .5})
    shapes = {
        "ordered": "<li value={n} data-k=step>{t}</li>", "bullets": "<li data-k=step>{t}</li>", "bare": "<p data-k=step>{t}</p>", "indented": "<p data-k=step>{t}</p>",
        "label above": f"<div class=label>{label} {{n}}{sheet.pick('label end', {'': 3, ':': 1})}</div><p data-k=step>{{t}}</p>", "label in front": f"<p><b>{label} {{n}}{mark or ':'}</b> {text}</p>", "of": f"<div class=label>{label} {{n}} / {total}</div><p data-k=step>{{t}}</p>",
        "numeral": f"<div class='item numbered'><b>{{n}}</b><div data-k=step>{{t}}</div></div>", "circle": f"<div class='item numbered'><b>{{n}}</b><div data-k=step>{{t}}</div></div>", "glyph": f"<p>{{g}} {text}</p>", "paren": f"<p>{{n}}{mark or ')'} {text}</p>",
        "running": f"{text} ", "running numbers": f"({{n}}) {text} ", "table": f"<tr><td class=n>{{n}}</td><td data-k=step>{{t}}</td></tr>", "pictures": f"<p><b>{{n}}.</b> {text}</p><div class='image item' style='height: 32mm; width: 55mm'></div>",
        "bold start": "<p data-k=step><b>{first}</b> {rest}</p>"}
    sheet.style({"ordered": f".do {{ list-style: decimal; padding-left: {sheet.pick('indent', {'1.6em': 3, '2.2em': 1})} }} .do li::marker {{ {sheet.pick('marker', {'': 4, f'font-weight: 700; color: {sheet.accent}': 2})} }}", "bullets": ".do { list-style: disc; padding-left: 1.3em }", "indented": ".do p { text-indent: 1.5em; margin: 0 }",
                 "numeral": f".numbered {{ display: grid; grid-template-columns: 3em 1fr; gap: .3em }} .numbered b {{ font-size: {sheet.pick('numeral size', {'1.8em': 2, '2.4em': 1})}; line-height: 1; color: {sheet.accent}; width: 1.4em }}",
                 "circle": f".numbered {{ display: grid; grid-template-columns: 1.7em 1fr; gap: .8em }} .numbered b {{ width: 1.7em; height: 1.7em; line-height: 1.7em; border-radius: 50%; background: {sheet.accent}; color: #fff; text-align: center }}",
                 "table": ".do td { padding: .3em .5em; border-top: .5pt solid #aaa } .do .n { width: 2em; font-weight: 700 }"}.get(form, ""))

    def shown(number, said):
        if number == "":
            return {"table": f"<tr><td></td><td data-k=step class=sub>{said}</td></tr>"}.get(form, f"<{'li' if form in ('ordered', 'bullets') else 'p'} class=sub data-k=step>{said}</{'li' if form in ('ordered', 'bullets') else 'p'}>")
        words = said.split(" ")
        first = min(len(words), sheet.pick("bold words", {2: 2, 3: 2, 1: 1}))
        glyph = f"<span style='font-family: DejaVu Sans'>{chr(0x245F + number)}</span>" if number <= 20 else f"({number})"
        return shapes[form].format(n=number, t=said, g=glyph, first=" ".join(words[:first]), rest=" ".join(words[first:]))
    tag = {"ordered": "ol", "bullets": "ul", "running": "p", "running numbers": "p", "table": "table"}.get(form, "div")
    return f"<{tag} class=do>{''.join(shown(number, said) for number, said in steps_of(sheet))}</{tag}>"


def method_part(sheet):
    word = sheet.word(METHOD_WORDS, sheet.words["directions"], sheet.words["otherDirections"])
    shown = heading(sheet, word) if named(sheet) in ("both", "no list") else "<div class=gap style='height: 1.2em'></div>"
    return f"<section class=method>{shown}{steps(sheet)}</section>"


# What goes with a recipe, and what surrounds it.

def nutrition(sheet):
    values = [("", f"{sheet.dice.randrange(140, 780)} kcal")] + [(label, f"{sheet.dice.randrange(2, 60)} g") for label in sheet.say[12:15]]
    if sheet.often("nutrition table", .3):
        sheet.style(".nutrition td { border-bottom: .5pt solid #ccc; padding: .1em 1em .1em 0; font-size: .85em }")
        return f"<div class=item><h3>{sheet.words['nutrition']}</h3><table class=nutrition>{''.join(f'<tr><td>{label}</td><td>{value}</td></tr>' for label, value in values)}</table></div>"
    return f"<p class=plainly>{sheet.words['nutrition']}: {', '.join(f'{label} {value}'.strip() for label, value in values)}</p>"


def after_method(sheet):
    """Notes, nutrition and the like, the recipe's own first."""
    wordless = sheet.drawn["steps"] in ("ordered", "numeral", "circle", "label above") and sheet.often("tip without heading", .4)
    called = sheet.pick("tip head", {furniture(sheet.recipe)[6]: 1, sheet.words["notes"]: 2})
    tip = f"<p><i>{sheet.say[9]}</i></p>" if wordless else f"<h3>{called}</h3><p>{sheet.say[9]}</p>"
    parts = {"tip": (.12, tip), "nutrition": (.18, nutrition(sheet)), "storage": (.1, f"<h3>{sheet.say[7]}</h3><p>{sheet.say[8]}</p>"),
             "variations": (.06 * sheet.in_english, "<h3>Variations</h3><p>With mushrooms in autumn, with herbs in spring.</p>")}
    rest = [notes(sheet.recipe, sheet.words)] + [part for name, (share, part) in parts.items() if sheet.often(name, share)]
    shaded = sheet.often("shaded notes", .2)
    sheet.style(f".notes li {{ margin-bottom: .3em }} .extras {{ clear: both; {'background: #f3f0ea; padding: .6em 1em; margin-top: 1.2em' if shaded else ''} }} .extras h3:first-child {{ margin-top: .3em }}")
    return f"<div class=extras>{''.join(rest)}</div>" if any(rest) else ""


def advert(sheet):
    return f"<div class='plainly item' style='border: .5pt solid #ccc; text-align: center; padding: 3mm; margin: 4mm 0'>{sheet.say[5]}<br><b>{sheet.pick('advert', dict.fromkeys(ADVERTS, 1))}</b></div>"


def above(sheet):
    if sheet.kind == "typescript" and sheet.often("occasion", .12) and sheet.in_english:
        return f"<p class=plainly>{sheet.pick('handout', {'Evening class, week 4': 1, 'Parish cookery circle &emsp; Handout 7': 1, 'Name: ______________ &emsp; Date: ________': 1})}</p>"
    if sheet.kind not in ("site", "app"):
        return ""
    place = sheet.pick("place", dict.fromkeys(PLACES, 1))
    print_, share, *_ = furniture(sheet.recipe)
    buttons = [print_, sheet.say[1], share, "Pin"][:sheet.pick("buttons", {2: 2, 3: 2, 4: 1})]
    parts = []
    if sheet.kind == "site" and sheet.often("masthead", .5):
        parts.append(f"<div style='font: 700 15pt {sheet.pick('mast', {'C059': 1, 'Inter': 1, 'URW Gothic': 1})}; text-align: {sheet.pick('mast side', {'left': 1, 'center': 1})}; margin-bottom: 3mm'>{escape(place)}</div>")
    if sheet.kind == "site" and sheet.often("menu", .3):
        parts.append(f"<p class=plainly>{sheet.say[3]} &emsp; {sheet.say[4]} &emsp; About &emsp; Shop &emsp; Contact</p>")
    if sheet.often("trail", .25):
        parts.append(f"<p class=plainly>{sheet.say[3]} {sheet.pick('arrow', {'›': 2, '/': 1, '&gt;': 1})} {sheet.say[4]} {sheet.drawn['arrow']} {escape(sheet.recipe['title'])}</p>")
    if sheet.often("buttons?", .35):
        sheet.style(".button { border: .7pt solid #999; border-radius: 3pt; padding: .15em .8em; margin-right: .6em }")
        parts.append("<p class=plainly>" + "".join(f"<span class=button>{escape(word)}</span>" for word in buttons) + "</p>")
    if sheet.kind == "site" and sheet.often("advert above", .12):
        parts.append(advert(sheet))
    return "".join(parts)


def below(sheet):
    """What a page of its kind has under the recipe."""
    _, _, rate, comments, more, leave, _ = furniture(sheet.recipe)
    parts, year = [], sheet.pick("year", {"2019": 1, "2022": 1, "2024": 1})
    if sheet.kind == "site":
        if sheet.often("related", .3):
            others = ([escape(sheet.following["title"])] if sheet.following is not sheet.recipe else []) + ["Plum cake with oats", "A soup for cold days"]
            parts.append(f"<h3>{more}</h3><div class=item style='display: flex; gap: 5mm'>" + "".join(f"<div style='flex: 1'><div class=image style='height: 22mm'></div>{other}</div>" for other in others) + "</div>")
        if sheet.often("letters", .3):
            told = sheet.dice.sample(COMMENTS, sheet.pick("letters told", {1: 1, 2: 2, 3: 2, 5: 1}))
            parts.append(f"<h3>{comments} ({len(told)})</h3>" + "".join(f"<p class=item><b>{name}</b><br>{text}</p>" for name, text in told) + f"<p class=plainly>{rate} ☆☆☆☆☆</p>")
        if sheet.often("letter", .15):
            parts.append(f"<div class='plainly item' style='background: #eee; padding: 4mm; margin-top: 4mm'><b>A letter every Friday.</b> One recipe, no noise.<br>Your address: ______________ &emsp; {leave}</div>")
        if sheet.often("rights", .4):
            parts.append(f"<p class=plainly style='margin-top: 5mm'>© {year} {escape(sheet.drawn['place'])}. {sheet.say[15]}.</p>")
    if sheet.kind == "book" and sheet.often("glossary", .06):
        parts.append("<div class='plainly item' style='border: .5pt solid #888; padding: 3mm; margin-top: 4mm'><b>To fold:</b> to mix so gently that the air stays in. <b>To sweat:</b> to soften under a lid without colour.</div>")
    if sheet.kind == "app" and sheet.often("exported", .5):
        parts.append(f"<p class=plainly style='margin-top: 6mm'>{sheet.pick('app', {'Exported on 3 June 2024': 1, 'Shared from my kitchen notebook': 1, 'Recipe 1 of 1': 1})}</p>")
    if sheet.kind == "print view" and sheet.often("address", .4):
        parts.append(f"<p class=plainly style='margin-top: 6mm'>{sheet.pick('address at', {'https://www.saltandthyme.example/recipes/print/4417': 1, 'Find this recipe online: thelongtable.example/r/208': 1})}</p>")
    if sheet.kind in ("typescript", "card") and sheet.often("farewell", .12) and sheet.in_english:
        parts.append(f"<p style='margin-top: 1em'><i>{sheet.pick('last words', {'Enjoy!': 3, 'Bon appétit!': 1, 'With love, Aunt Clem': 1, 'Typed up for the reunion, July 1998': 1})}</i></p>")
    return "".join(parts)


def running_lines(sheet):
    """Heads and feet of every page, where the browser does not print its own."""
    if sheet.header or sheet.kind in ("site", "card") and not sheet.often("foot of site", .1):
        return
    place = sheet.pick("book", dict.fromkeys(PLACES + CHAPTERS, 1)).replace('"', "")
    number = sheet.pick("page number", {"none": 3, '"Page " counter(page)': 1, "counter(page)": 3, 'counter(page) " / " counter(pages)': 1} if sheet.kind not in ("book", "magazine") else {"none": 1, "counter(page)": 3})
    lines = []
    if number != "none":
        start = sheet.dice.randrange(8, 240) if sheet.kind in ("book", "magazine") else 0
        sheet.style(f"@page {{ @{sheet.pick('number at', {'bottom-center': 3, 'bottom-right': 2, 'top-right': 1})} {{ content: {number}; font: 8pt Nimbus Sans }} }}" + (f" body {{ counter-reset: page {start} }}" if start else ""))
    if sheet.kind in ("book", "magazine") and sheet.often("running head", .5):
        lines.append(f"@page {{ @{sheet.pick('head at', {'top-left': 2, 'top-center': 2, 'bottom-left': 1})} {{ content: \"{place.upper() if sheet.often('head capitals', .4) else place}\"; font: 8pt Nimbus Sans; letter-spacing: .05em }} }}")
    sheet.style("".join(lines))
