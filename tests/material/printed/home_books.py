"""Pages as people keep them at home: typed sheets, cookbook pages, a card, a slide, a leaflet, a canteen's form."""
import re
from html import escape

UNITS = set("""g gr kg dag ml cl dl l lb lbs oz pt qt qts cup cups tbsp tbsps tsp tsps tablespoon tablespoons teaspoon
    teaspoons pound pounds ounces quart pint can cans jar stick clove cloves pinch bunch el tl prise tsk msk colheres
    xícaras xícara lata cucharada cucharadas cucchiai cucchiaio cuillère cuillères łyżka łyżki szklanka""".split())
NUMBER = re.compile(r"[~(]?[\d½¼¾⅓⅔⅛][\d½¼¾⅓⅔⅛.,/–-]*\w{0,5}")

# Kitchen of, amount, unit, tip, and a tip for whoever cooks.
WORDS = {
    "en": ("From the kitchen of", "Amount", "Unit", "Tip", "Read everything once before you begin."),
    "de": ("Aus der Küche von", "Menge", "Einheit", "Tipp", "Vor dem Kochen alles einmal durchlesen."),
    "pt": ("Da cozinha de", "Quantidade", "Unidade", "Dica", "Leia tudo uma vez antes de começar."),
    "da": ("Fra køkkenet hos", "Mængde", "Enhed", "Tip", "Læs det hele igennem, før du begynder."),
    "fr": ("De la cuisine de", "Quantité", "Unité", "Astuce", "Lisez tout une fois avant de commencer."),
    "sv": ("Från köket hos", "Mängd", "Enhet", "Tips", "Läs igenom allt innan du börjar."),
    "it": ("Dalla cucina di", "Quantità", "Unità", "Consiglio", "Leggete tutto prima di cominciare."),
    "nl": ("Uit de keuken van", "Hoeveelheid", "Eenheid", "Tip", "Lees alles een keer door voor je begint."),
    "es": ("De la cocina de", "Cantidad", "Unidad", "Consejo", "Lea todo una vez antes de empezar."),
    "pl": ("Z kuchni", "Ilość", "Jednostka", "Rada", "Przed gotowaniem przeczytaj wszystko."),
}
TIPS = ["Taste before you salt: some stocks bring enough of their own.",
        "If you are short of time, this can be done the evening before and kept cold under a cloth."]


def document(recipe, style, *body):
    return f"""<!doctype html><html lang={recipe["language"]}><meta charset=utf-8><style>
        h1, h2, h3, p, ul, ol, li, table {{ margin: 0; padding: 0 }} ul, ol {{ list-style: none }}
        h2, h3 {{ break-after: avoid }} h3 {{ margin-top: 4mm }} {style}</style>{"".join(body)}"""


def mark(kind, text, tag="p", more=""):
    return f"<{tag} data-k={kind}{more and ' ' + more}>{escape(text)}</{tag}>"


def given(text, tag="p", more=""):
    """Furniture, or nothing where the recipe has no such text."""
    return f"<{tag} {more}>{escape(text)}</{tag}>" if text else ""


def facts(recipe, words, tag="p"):
    shown = []
    if recipe["yield"]:
        plain = re.fullmatch(r"[\d–-]+", recipe["yield"])
        shown.append((words["serves"] if plain else words["yield"] + ": %1").replace("%1", recipe["yield"]))
    shown += [f"{words[kind]}: {recipe[kind + 'Time']}" for kind in ("prep", "cook") if recipe[kind + "Time"]]
    return [mark("meta", fact, tag) for fact in shown]


def notes(recipe, words):
    return given(words["notes"] if recipe["notes"] else "", "h3") + "".join(given(note) for note in recipe["notes"])


def numbered(recipe):
    """Each step with its number; a step that is only the heading of those below it has none."""
    number = 0
    for text in recipe["steps"]:
        number += not text.endswith(":")
        yield "" if text.endswith(":") else number, text


def split(text):
    """Amount, unit and name of an ingredient, cut only at blanks; the first two may be empty."""
    parts, at = text.split(), 0
    while at < len(parts) - 1 and (NUMBER.fullmatch(parts[at]) or at and parts[at] in ("-", "–", "+", "x", "and", "to")
                                   and NUMBER.fullmatch(parts[at + 1])):
        at += 1
    unit = at and at < len(parts) - 1 and parts[at].lower().strip(".,") in UNITS
    return " ".join(parts[:at]), parts[at] if unit else "", " ".join(parts[at + bool(unit):])


def rows(recipe, form="<td class=amount>{0} {1} <td class=lead>{3} <td>{2}"):
    """Ingredients as table rows of three cells, a leader where there is an amount; headings run across."""
    shown = []
    for text in recipe["ingredients"]:
        amount, unit, name = map(escape, split(text))
        cells = form.format(amount, unit, name, amount and "<i></i>")
        across = f"<td colspan=3 class=group>{escape(text)}"
        shown.append(f"<tr data-k=ing>{across if text.endswith(':') else cells}</tr>")
    return "".join(shown)


def group(text):
    return "class=group" if text.endswith(":") else ""


def listed(recipe):
    return "".join(mark("ing", text, "li", group(text)) for text in recipe["ingredients"])


# A soft hyphen is printed as a blank where no line ends: keep those alone that end one.
KEEP_BREAKS = """<script> {
    const end = (text, at) => { const range = new Range(); range.setStart(text, at - 1); range.setEnd(text, at);
                                return range.getBoundingClientRect().top }
    for (const e of [...document.querySelectorAll(".soft")].reverse()) {
        const before = e.previousSibling, after = e.nextSibling
        if (Math.abs(end(before, before.length) - end(after, 1)) < 4) e.remove() } } </script>"""


def soft(text):
    """The text with places to break long words, which a style shows as soft hyphens: a bare browser knows none."""
    v, c, any_ = "[aeiouyáàâãäåæéèêëíìîïóòôõöøúùûüąęó]", "[bcdfghjklmnpqrstvwxzçñłśżźćń]", r"[^\W\d_]"
    places = rf"(?<={any_}{{2}}{v})(?={c}{v}{any_})|(?<={any_}{v}{c})(?={c}{v}{any_})"
    return "<i class=soft></i>".join(map(escape, re.split(places, text)))


def typed(recipe, _, words):
    """A word processor's page: tabs after amounts and numbers, nothing but bold and underlines."""
    def tabbed(text):
        amount, unit, name = split(text)
        return f"{amount} {unit}".strip() + "\t" + name if amount else text

    lines = "".join(mark("ing", tabbed(text), "p", group(text) or "class=tab") for text in recipe["ingredients"])
    steps = "".join(f"<p class=step>{number and f'{number}.'}\t{mark('step', text, 'span')}</p>" if number
                    else mark("step", text, "p", "class=group") for number, text in numbered(recipe))
    return document(recipe, """@page { size: A4; margin: 25mm 22mm } body { font: 12pt/1.3 "Nimbus Roman" } p {
        white-space: pre-wrap; tab-size: 3cm } .step { tab-size: 1cm; padding-left: 1cm; text-indent: -1cm;
        margin-top: 4pt } .tab { padding-left: 3cm; text-indent: -3cm } .group { font-style: italic } h1 {
        font-size: 16pt; text-align: center; text-decoration: underline; margin-bottom: 12pt } h2, h3 { font-size: 12pt;
        margin: 12pt 0 4pt }""",
        mark("title", recipe["title"], "h1"), given(recipe["intro"]), *facts(recipe, words),
        mark("head", words["ingredients"] + ":", "h2"), lines, mark("head", words["directions"] + ":", "h2"), steps,
        notes(recipe, words), given(recipe["author"], "p", "style='text-align:right;margin-top:16pt'"))


def classic(recipe, _, words):
    """A novel-sized cookbook: headnote, bare list, then prose set in justified, indented, hyphenated paragraphs."""
    steps = "".join(f"<p data-k=step class='{'group' if text.endswith(':') else ''}"
                    f"{' first' if index == 0 and len(text) > 130 else ''}'>{soft(text)}</p>"
                    for index, text in enumerate(recipe["steps"]))
    return document(recipe, """@page { size: 5.5in 8.5in; margin: 18mm 18mm 20mm; @bottom-center {
        content: "8" counter(page); font: 9pt P052 } } body { font: 10.5pt/1.38 P052; text-align: justify;
        width: 103.7mm; margin: 0 } .soft::after { content: "\\AD" } h1 { font: 20pt P052; text-align: center;
        margin: 10mm 0 4mm } .note { font-style: italic; margin-bottom: 4mm } ul { margin: 0 0 4mm 8mm;
        text-align: left; font-size: 9.5pt } ul .group, .group { font-style: italic } .step p { text-indent: 1.3em }
        .step p:first-child { text-indent: 0 } .first::first-letter { font-size: 34pt; float: left; line-height: 27pt;
        padding-right: 2pt } .meta { text-align: center; font: 9pt P052; margin-top: 2mm; break-before: avoid }""",
        mark("title", recipe["title"], "h1"), f"<p class=note>{soft(recipe['intro'])}</p>" if recipe["intro"] else "",
        f"<ul>{listed(recipe)}</ul><div class=step>{steps}</div>", notes(recipe, words),
        f"<p class=meta>{' · '.join(facts(recipe, words, 'span'))}</p>", KEEP_BREAKS)


def margin(recipe, _, words):
    """What a paragraph uses stands beside it, small, in the margin; there are no headings at all."""
    beside, parts = [[] for _ in recipe["steps"]], []
    for text in recipe["ingredients"]:
        if text.endswith(":") or not parts or not parts[-1][0].endswith(":"):
            parts.append([])
        parts[-1].append(text)
    for part in parts:
        stems = [word[:6] for word in re.findall(r"[^\W\d_]{4,}", part[-1].lower()) if word not in UNITS]
        used = (step for step, text in enumerate(recipe["steps"]) if any(stem in text.lower() for stem in stems))
        beside[next(used, 0)] += part
    pairs = "".join(f"<div class=side>{''.join(mark('ing', text) for text in side)}</div>{mark('step', step)}"
                    for side, step in zip(beside, recipe["steps"]))
    return document(recipe, """@page { size: 190mm 235mm; margin: 20mm 22mm 22mm 14mm } body { font: 11pt/1.45 C059 }
        h1 { font: bold 24pt/1.1 C059; margin-left: 46mm } .lead { margin: 3mm 0 6mm 46mm; font-style: italic } main {
        display: grid; grid-template-columns: 40mm 1fr; column-gap: 6mm; row-gap: 3.5mm } .side {
        font: 8.5pt/1.35 "Nimbus Sans Narrow"; text-align: right; padding-top: 2pt; color: #7a2f1d }""",
        mark("title", recipe["title"], "h1"), "<div class=lead>", given(recipe["intro"]), *facts(recipe, words),
        f"</div><main>{pairs}</main>", notes(recipe, words))


def card(recipe, _, words):
    """A family's index card, typed on ruled lines; what does not fit goes on the next one."""
    steps = "".join(f"<p>{number and f'{number}) '}{mark('step', text, 'span')}</p>"
                    for number, text in numbered(recipe))
    return document(recipe, """@page { size: 6in 4in; margin: 6mm 8mm } body { font: 8.5pt/13pt "Nimbus Mono PS" } h1 {
        font: 21pt/1.1 Z003; color: #a02020 } header { display: flex; justify-content: space-between; gap: 5mm;
        align-items: end; border-bottom: 1.5pt solid #c04040; margin-bottom: 1mm } header p { white-space: nowrap }
        .from { font: 8pt "URW Bookman"; color: #666 } .from b { font: 12pt Z003; color: #224;
        border-bottom: .5pt dotted } ul { columns: 2; column-gap: 6mm } li, .step p { border-bottom: .4pt solid #9cc4e4;
        break-inside: avoid } h3 { font: bold 8pt/13pt "URW Bookman" }""",
        f"<header>{mark('title', recipe['title'], 'h1')}<div>{''.join(facts(recipe, words)[:1])}</div></header>",
        f"<p class=from>{WORDS[recipe['language']][0]} <b>{escape(recipe['author'] or ' ' * 20)}</b></p>",
        f"<ul>{listed(recipe)}</ul>{mark('head', words['directions'], 'h3')}<div class=step>{steps}</div>",
        "".join(facts(recipe, words)[1:]), notes(recipe, words))


def canteen(recipe, _, words):
    """A school kitchen's production sheet: a form, with its headings in the heads of two tables."""
    _, amount, unit, *_ = WORDS[recipe["language"]]
    steps = "".join(f"<tr><td class=amount>{number}<td>{mark('step', text, 'span')}<td><td></tr>"
                    for number, text in numbered(recipe))
    return document(recipe, """@page { size: A4; margin: 14mm; @bottom-right {
        content: counter(page) " / " counter(pages); font: 8pt "Nimbus Sans" } @bottom-left {
        content: "Form K-12 · keep for 90 days"; font: 8pt "Nimbus Sans" } } body { font: 10pt/1.3 "Nimbus Sans" }
        table { width: 100%; border-collapse: collapse; margin-top: 5mm } td, th { border: .6pt solid #555;
        padding: 2pt 5pt; text-align: left; vertical-align: top } tr { break-inside: avoid } th { background: #d9e2d0;
        font-size: 9pt } .amount { text-align: right; width: 16mm } .unit { width: 22mm } .group { font-weight: bold }
        h1 { font-size: 17pt } .form td { font-size: 8.5pt; height: 9mm }""",
        "<table class=form><tr><td>Site<td>Date<td>Cook<td>Batch no.<td>Trays</tr></table>",
        f"<table><tr><td colspan=3>{mark('title', recipe['title'], 'h1')}</td></tr><tr>",
        "".join(f"<td>{fact}</td>" for fact in facts(recipe, words)), "</tr></table>",
        f"<table><thead><tr><th class=amount>{amount}<th class=unit>{unit}", mark("head", words["ingredients"], "th"),
        "</tr></thead>", rows(recipe, "<td class=amount>{0} <td>{1} <td>{2}"), "</table><table><thead><tr><th>#",
        mark("head", words["directions"], "th"), f"<th>°C<th>OK</tr></thead><tbody>{steps}</tbody></table>",
        "<table class=form><tr><td>☐ Gluten<td>☐ Milk<td>☐ Eggs<td>☐ Nuts<td>☐ Fish</tr></table>", notes(recipe, words))


def chapter(recipe, _, words):
    """A book with running heads: small capitals, amounts led to the names, numbers hanging in the margin."""
    steps = "".join(f"<div class=item><b>{number}</b>{mark('step', text)}</div>" for number, text in numbered(recipe))
    return document(recipe, """@page { size: 7in 10in; margin: 24mm 20mm 20mm 26mm; @top-left {
        content: "11" counter(page); font: 9pt "URW Bookman" } @top-right {
        content: "CHAPTER FOUR · THE EVERYDAY TABLE"; font: 8pt "URW Bookman" } } @page :left { @top-left {
        content: "THE KITCHEN YEAR"; font: 8pt "URW Bookman" } @top-right { content: "11" counter(page);
        font: 9pt "URW Bookman" } } body { font: 10pt/1.45 "URW Bookman" } h1 {
        font: small-caps 22pt/1.15 "URW Bookman"; letter-spacing: .03em } h2 { font: small-caps 13pt "URW Bookman";
        margin: 5mm 0 1.5mm; border-top: .5pt solid } .by { font-style: italic } .facts { display: flex; gap: 7mm;
        font-size: 9pt; margin: 2mm 0 } .amount { white-space: nowrap } .lead i { display: block; width: 14mm;
        height: 9pt; border-bottom: 1pt dotted #777 } td { padding: 0 5pt; vertical-align: top } .group {
        font-style: italic } .item { position: relative; margin: 0 0 2mm 12mm; break-inside: avoid } .item b {
        position: absolute; left: -12mm; width: 9mm; text-align: right; font-size: 12pt; line-height: 15pt }""",
        mark("title", recipe["title"], "h1"), given(recipe["author"], "p", "class=by"), given(recipe["intro"]),
        f"<div class=facts>{''.join(facts(recipe, words))}</div>", mark("head", words["otherIngredients"], "h2"),
        f"<table>{rows(recipe)}</table>{mark('head', words['otherDirections'], 'h2')}", steps, notes(recipe, words))


def slide(recipe, _, words):
    """Slides of a talk: the first shows what is needed, those after it tiles with the steps, read row by row."""
    tiles = "".join(f"<div class=tile><b>{number or '·'}</b>{mark('step', text)}</div>"
                    for number, text in numbered(recipe))
    return document(recipe, """@page { size: 13.333in 7.5in; margin: 14mm 18mm; background: #20343c } body {
        color: #fff; font: 17pt/1.35 "URW Gothic" } h1 { font-size: 40pt; line-height: 1.1 } h2 { font-size: 26pt;
        color: #ffc861 } .top { display: grid; grid-template-columns: 2fr 3fr; gap: 14mm } .by { color: #9fc;
        font-size: 14pt } ul { columns: 2; column-gap: 10mm; font-size: 15pt } li { break-inside: avoid; margin: 2pt 0 }
        .group { color: #ffc861 } .intro { font-size: 14pt; margin: 6mm 0 } .steps { break-before: page;
        margin-bottom: 6mm } .tiles { display: grid; grid-template-columns: 1fr 1fr; gap: 6mm 10mm } .tile {
        display: flex; gap: 5mm; break-inside: avoid; font-size: 15pt } b { flex: none; width: 11mm; height: 11mm;
        border-radius: 50%; background: #ffc861; color: #20343c; text-align: center; line-height: 11mm }""",
        "<div class=top><div>", mark("title", recipe["title"], "h1"), given(recipe["author"], "p", "class=by"),
        given(recipe["intro"], "p", "class=intro"), *facts(recipe, words), "</div><div>",
        mark("head", words["otherIngredients"], "h2"), f"<ul>{listed(recipe)}</ul></div></div>",
        mark("head", words["directions"], "h2", "class=steps"), f"<div class=tiles>{tiles}</div>", notes(recipe, words))


def leaflet(recipe, _, words):
    """A sheet to fold in three: the cover, then what to buy, then what to do."""
    steps = "".join(mark("step", text, "li", group(text)) for text in recipe["steps"])
    return document(recipe, """@page { size: A4 landscape; margin: 12mm 10mm } body { margin: 0; font: 9.5pt/1.4 Inter;
        columns: 3; column-gap: 16mm; column-rule: .5pt dashed #aaa; column-fill: auto } h1 {
        font: 900 24pt/1.1 "Inter Display"; margin: 35mm 0 8mm; color: #0a5d4a } .cover { text-align: center } h2 {
        break-before: column; font-size: 14pt; background: #0a5d4a; color: #fff; padding: 3pt 8pt; margin-bottom: 8pt }
        .buy li { padding: 2.5pt 0; border-bottom: .5pt solid #ddd } .buy li:not(.group)::before { content: "☐ ";
        font-family: "DejaVu Sans" } .group { font-weight: 700 } .do { counter-reset: n } .do li { margin-bottom: 5pt;
        padding-left: 6mm } .do li:not(.group)::before { counter-increment: n; content: counter(n); position: absolute;
        margin-left: -6mm; color: #0a5d4a } .foot { margin-top: 30mm }""",
        "<div class=cover>", mark("title", recipe["title"], "h1"), given(recipe["intro"]), "<br>",
        *facts(recipe, words), given(recipe["author"], "p", "class=foot"), "<p class=foot>Please take one</p></div>",
        mark("head", words["ingredients"], "h2"), f"<ul class=buy>{listed(recipe)}</ul>",
        mark("head", words["directions"], "h2"), f"<ol class=do>{steps}</ol>", notes(recipe, words))


def community(recipe, following, words):
    """A parish's cookbook: two recipes on a page, the second of them no part of what is sought."""
    def one(shown):
        steps = "".join(mark("step", text) for text in shown["steps"])
        return (mark("title", shown["title"], "h1") + f"<div class=facts>{''.join(facts(shown, words, 'span'))}</div>"
                f"<ul>{listed(shown)}</ul>{steps}{notes(shown, words)}" + given(shown["author"], "p", "class=by"))

    second = "<hr>" + re.sub(r" data-k=\w+", "", one(following)) if following is not recipe else ""
    return document(recipe, """@page { size: 5.5in 8.5in; margin: 17mm 13mm 15mm 17mm; @top-center {
        content: "Main Dishes"; font: italic 9pt "DejaVu Serif" } @bottom-right { content: "4" counter(page);
        font: 8pt "DejaVu Serif" } } body { font: 8.5pt/1.35 "DejaVu Serif" } h1 { font-size: 12pt; text-align: center }
        ul { columns: 2; column-gap: 6mm; margin: 2mm 0 } li { padding-left: 3mm; text-indent: -3mm;
        break-inside: avoid } .facts { text-align: center; font-size: 8pt } .facts span { margin: 0 2mm } .by {
        text-align: right; font-style: italic } .group { font-style: italic } hr { margin: 5mm 20mm; border: 0;
        border-top: 1pt double #555 } p { margin-bottom: 1mm }""",
        one(recipe), second)


def menu(recipe, _, words):
    """Like the card on a wedding's table: everything centred, ornaments between the parts."""
    steps = "<p class=star>❦</p>".join(mark("step", text) for text in recipe["steps"])
    return document(recipe, """@page { size: A5; margin: 16mm 18mm; background: #fbf6ea } body { text-align: center;
        font: 10.5pt/1.4 P052; color: #3b3025 } h1 { font: 30pt/1.1 Z003; margin-top: 4mm } .star { color: #b08d57;
        font: 9pt/1.6 "DejaVu Sans" } h2 { font: 10pt P052; letter-spacing: .3em; text-transform: uppercase;
        color: #b08d57; margin: 6mm 0 2mm } .group { font-style: italic } li { text-wrap: balance }""",
        "<p class=star>✦ ✦ ✦</p>", mark("title", recipe["title"], "h1"), given(recipe["intro"]), "<br>",
        *facts(recipe, words), mark("head", words["ingredients"], "h2"), f"<ul>{listed(recipe)}</ul>",
        mark("head", words["otherDirections"], "h2"), steps, notes(recipe, words),
        given(recipe["author"] and f"— {recipe['author']} —", "p", "style='margin-top:6mm;font-style:italic'"))


def boxed(recipe, _, words):
    """The method first, each step under its own label; the list in a box at the end; labels in two languages."""
    method, list_ = ("Préparation", "Ingrédients") if recipe["language"] == "en" else ("Method", "Ingredients")
    steps = "".join((number and f"<p class=label>{words['step']} {number}</p>" or "") + mark("step", text)
                    for number, text in numbered(recipe))
    return document(recipe, """@page { size: Letter; margin: 18mm 24mm } body { font: 11pt/1.5 "DejaVu Sans Condensed" }
        h1 { font-size: 23pt; border-left: 5mm solid #3d6fb6; padding-left: 4mm; line-height: 1.2 } h2 {
        font-size: 13pt; color: #3d6fb6; margin: 5mm 0 1mm } .label { font-size: 8pt; color: #888; margin-top: 2.5mm;
        break-after: avoid } .box { border: 1.2pt solid #3d6fb6; border-radius: 3mm; padding: 0 5mm 4mm;
        margin-top: 7mm; break-inside: avoid } ul { columns: 3; column-gap: 6mm; font-size: 9pt; line-height: 1.35 }
        li { break-inside: avoid; margin-bottom: 3pt } .group { font-weight: bold } .facts { display: flex;
        gap: 8mm }""",
        mark("title", recipe["title"], "h1"), f"<div class=facts>{''.join(facts(recipe, words))}</div>",
        mark("head", f"{words['directions']} / {method}", "h2"), steps, notes(recipe, words),
        "<div class=box>", mark("head", f"{words['ingredients']} / {list_}", "h2"), f"<ul>{listed(recipe)}</ul></div>")


def handout(recipe, _, words):
    """A cooking class's sheet: amounts set right against the names, steps to tick off, small tips between them."""
    *_, label, tip = WORDS[recipe["language"]]
    tips = [tip] + (TIPS if recipe["language"] == "en" else [])
    steps = []
    for index, (number, text) in enumerate(numbered(recipe)):
        steps.append(f"<div class=item>{number and '<i></i>'}{mark('step', text)}</div>")
        if index % 3 == 1 and tips:
            steps.append(f"<p class=tip>{label}: {tips.pop(0)}</p>")
    return document(recipe, """@page { size: Letter; margin: 16mm 20mm } body { font: 11pt/1.45 "Nimbus Sans" } .form {
        display: flex; justify-content: space-between; font-size: 9pt; border-bottom: 1pt solid; padding-bottom: 2mm }
        h1 { font: bold 22pt/1.2 "URW Gothic"; margin: 6mm 0 2mm } h2 { font: bold 13pt "URW Gothic";
        margin: 6mm 0 2mm } table { margin-left: 8mm; border-spacing: 0 } td { padding: 1pt 6pt; vertical-align: top }
        .amount { text-align: right; width: 34mm; font-weight: bold } .lead { display: none } .group {
        padding-left: 43mm; text-decoration: underline } .item { margin: 2mm 0 0 9mm; break-inside: avoid } i {
        float: left; width: 3.4mm; height: 3.4mm; border: 1pt solid; margin: 1mm 0 0 -8mm } .tip { font-size: 8pt;
        color: #666; margin: 1mm 0 1mm 9mm; break-before: avoid }""",
        "<div class=form><span>Cooking Class · 7</span><span>Name ____________</span><span>Date ________</span></div>",
        mark("title", recipe["title"], "h1"), given(recipe["intro"]), *facts(recipe, words),
        mark("head", words["otherIngredients"], "h2"), f"<table>{rows(recipe)}</table>",
        mark("head", words["otherDirections"], "h2"), *steps, notes(recipe, words))


LAYOUTS = {"home-typed": typed, "book-classic": classic, "book-margin": margin, "home-card": card,
           "home-canteen": canteen, "book-chapter": chapter, "home-slide": slide, "home-leaflet": leaflet,
           "book-community": community, "home-menu": menu, "home-boxed": boxed, "home-handout": handout}
