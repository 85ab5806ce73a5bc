"""Pages that people keep: from sites, books, magazines and apps, from school, the club and out of the packet."""
import re
from html import escape

from printed._parts import NARROW, head, title

AMOUNT = re.compile(r"((?:[\d½¼¾⅓⅔][\d½¼¾⅓⅔/.,\s–-]*)(?:(?:kg|g|dl|cl|ml|l|oz|lbs?|cups?|tbsp|tsp|Tbsp|EL|TL)\b\.?)?)\s+(\S.*)")


def sheet(style, body, size="A4", margin="18mm"):
    return f"""<!doctype html><meta charset=utf-8><style>{NARROW} @page {{ size: {size}; margin: {margin} }}
        body, h1, h2, h3, p, ul, ol {{ margin: 0 }} ul, ol {{ padding: 0 }} .t {{ font-weight: bold }}
        h1, h2, h3 {{ break-after: avoid }} {style}</style>{body}"""


def ingredients(recipe, tag="li"):
    return "".join(f"<{tag} data-k=ing{' class=t' if text.endswith(':') else ''}>{escape(text)}</{tag}>"
                   for text in recipe["ingredients"])


def rows(recipe):
    """The ingredients as rows of a table, the amount in a cell of its own where one leads the entry."""
    def cells(text):
        split = AMOUNT.fullmatch(text)
        amount, name = split.groups() if split else ("", text)
        gap = " " if split else ""
        return f"<td>{escape(amount)}</td>{gap}<td>{escape(name)}</td>"
    return "".join(f"<tr data-k=ing{' class=t' if text.endswith(':') else ''}>{cells(text)}</tr>"
                   for text in recipe["ingredients"])


def steps(recipe, tag="li", before="", after="", inner="span"):
    """Every step in a `tag`; with `before` (in which {n} counts) outside of what is marked."""
    if not before:
        return "".join(f"<{tag} data-k=step>{escape(text)}</{tag}>" for text in recipe["steps"])
    return "".join(f"<{tag}>{before.format(n=n)}<{inner} data-k=step>{escape(text)}</{inner}>{after}</{tag}>"
                   for n, text in enumerate(recipe["steps"], 1))


def facts(recipe, words):
    named = ((words["yield"], "yield"), (words["prep"], "prepTime"), (words["cook"], "cookTime"))
    return [(name, recipe[key]) for name, key in named if recipe[key]]


def serves(recipe, words):
    amount = recipe["yield"]
    return words["serves"].replace("%1", amount) if amount.isdigit() else f"{words['yield']}: {amount}" if amount else ""


def some(form, text):
    """The text in its form, or nothing where there is no text."""
    return form.format(escape(text)) if text else ""


def another(recipe, following):
    return "" if following is recipe else following["title"]


def notes(recipe, words, tag="h3"):
    if not recipe["notes"]:
        return ""
    return f"<{tag}>{words['notes']}</{tag}>" + "".join(f"<p>{escape(text)}</p>" for text in recipe["notes"])


def weblog(recipe, following, words):
    """A post with the recipe in a framed card, readers' letters below."""
    times = "".join(f"<span data-k=meta><b>{name}</b> {escape(value)}</span>" for name, value in facts(recipe, words))
    return sheet("""body { font: 10.5pt/1.55 Inter; color: #333 } nav { font-size: 8pt; color: #888; margin-bottom: 20pt }
        nav span { margin-right: 14pt } h1 { font: 28pt/1.15 P052; color: #222 } .by { font-size: 9pt; color: #888; margin: 4pt 0 12pt }
        .card { border: 1.5pt solid #c98; padding: 14pt 18pt; margin: 16pt 0; box-decoration-break: clone }
        .facts span { margin-right: 18pt; font-size: 9.5pt } h2 { font-size: 14pt; margin: 14pt 0 6pt }
        .card ul, ol { padding-left: 18pt } li { margin-bottom: 4pt } h3 { margin-top: 12pt }
        .said { border-top: .5pt solid #ccc; padding: 8pt 0; font-size: 9pt; break-inside: avoid }""",
        f"""<nav><span>Home</span><span>About me</span><span>All recipes</span><span>Baking</span><span>Contact</span></nav>
        {title(recipe)}<p class=by>{some("{} · ", recipe["author"])}14 March · 3 comments</p>{some("<p>{}</p>", recipe["intro"])}
        <div class=card><div class=facts>{times}</div>{head(words["ingredients"])}<ul>{ingredients(recipe)}</ul>
        {head(words["directions"])}<ol>{steps(recipe)}</ol>{notes(recipe, words)}</div>
        <h3>3 comments</h3><div class=said><b>Marthe</b>, 15 March<br>Made this on Sunday, everybody had seconds. Thank you!</div>
        <div class=said><b>Old Tom</b>, 2 April<br>I left it 5 minutes longer and used half the salt.</div>
        <div class=said><b>June</b>, 9 April<br>Can it be frozen?</div>""")


def cookbook(recipe, following, words):
    """A page of a bound book: no headings, the list in italics in the margin, steps as paragraphs."""
    return sheet("""body { font: 10.5pt/1.4 C059 } .run { text-align: center; font-size: 8.5pt; letter-spacing: 1.5pt; margin-bottom: 18pt }
        h1 { font: bold 19pt/1.2 C059; margin-bottom: 3pt } .for { font-style: italic; margin-bottom: 8pt } .lead { margin-bottom: 12pt }
        .two { display: table; width: 100% } .two > div { display: table-cell; vertical-align: top }
        .list { width: 33%; padding-right: 14pt; font: italic 9.5pt/1.35 C059 } .list p { margin-bottom: 3pt; break-inside: avoid }
        .way p { text-indent: 12pt; text-align: justify } .way p:first-child { text-indent: 0 }""",
        f"""<p class=run>86 &emsp; SUPPERS AND SUNDAYS</p>{title(recipe)}{some("<p class=for data-k=meta>{}</p>", serves(recipe, words))}
        {some("<p class=lead>{}</p>", recipe["intro"])}<div class=two><div class=list>{ingredients(recipe, "p")}</div>
        <div class=way>{steps(recipe, "p")}</div></div>""", "170mm 240mm", "16mm 18mm")


def magazine(recipe, following, words):
    """A glossy page: a picture with its caption, a tinted list on the right, numbers run into the text."""
    strip = " | ".join(f"<span data-k=meta>{name}: {escape(value)}</span>" for name, value in facts(recipe, words))
    return sheet("""body { font: 9.5pt/1.45 "Nimbus Sans" } .top { color: #b03a2e; font-weight: bold; letter-spacing: 2pt; font-size: 8pt }
        .photo { height: 62mm; background: linear-gradient(160deg, #e8c07a, #a8552d 60%, #5b2e1a) } .cap { font-size: 7.5pt; color: #666; margin: 3pt 0 12pt }
        h1 { font: 34pt/1.05 Narrow; text-transform: uppercase; margin: 4pt 0 8pt } .lead { font: italic 12pt/1.4 "Nimbus Roman" }
        .strip { border-top: 1pt solid; border-bottom: 1pt solid; padding: 3pt 0; margin: 8pt 0 } .both { display: grid; grid-template-columns: 1fr 58mm; gap: 8mm }
        .way p { margin-bottom: 7pt } .way b { color: #b03a2e; font-size: 12pt; margin-right: 4pt } aside { background: #f6ead6; padding: 10pt; align-self: start }
        aside p { margin-bottom: 4pt } h2 { font: bold 11pt "Nimbus Sans"; margin-bottom: 6pt } .tip { border: 1pt dashed #b03a2e; padding: 8pt; margin: 10pt 0; break-inside: avoid }""",
        f"""<p class=top>IN SEASON</p><div class=photo></div><p class=cap>Best eaten with friends, straight from the dish.</p>
        {title(recipe)}{some("<p class=lead>{}</p>", recipe["intro"])}{f"<p class=strip>{strip}</p>" if strip else ""}
        <div class=both><div class=way>{head(words["otherDirections"])}{steps(recipe, "p", "<b>{n}</b>")}
        <div class=tip><b>Wine</b> A young red, lightly chilled.</div>{notes(recipe, words)}</div>
        <aside>{head(words["otherIngredients"])}{ingredients(recipe, "p")}</aside></div>""", "210mm 280mm", "14mm 15mm")


def app(recipe, following, words):
    """An export: boxes to tick in two columns, round numbers, a table of nutrition at the end."""
    lines = "".join(f"<tr data-k=meta><th>{name}</th> <td>{escape(value)}</td></tr>" for name, value in facts(recipe, words))
    return sheet("""body { font: 10pt/1.5 "DejaVu Sans" } h1 { font-size: 20pt; margin-bottom: 6pt } table + p { margin-top: 8pt } th { text-align: left; font-weight: normal; color: #777; padding-right: 14pt }
        h2 { font-size: 12pt; color: #1b6e5a; border-bottom: 1pt solid #1b6e5a; margin: 16pt 0 8pt } ul { columns: 2; column-gap: 24pt; list-style: none }
        ul li { padding-left: 16pt; position: relative; break-inside: avoid; margin-bottom: 3pt } ul li:not(.t)::before { content: ""; position: absolute; left: 0; top: 3.5pt; width: 7pt; height: 7pt; border: .8pt solid #777 }
        ul li.t { padding-left: 0 } section { display: flex; margin-bottom: 9pt; break-inside: avoid } section i { flex: none; width: 17pt; height: 17pt; line-height: 17pt; border-radius: 9pt; background: #1b6e5a; color: #fff; text-align: center; font: 9pt/17pt "DejaVu Sans"; margin-right: 10pt }
        .food td, .food th { border-bottom: .5pt solid #ccc; padding: 2pt 30pt 2pt 0; font-size: 9pt } .end { color: #999; font-size: 8pt; margin-top: 20pt }""",
        f"""{title(recipe)}<table>{lines}</table>{some("<p>{}</p>", recipe["intro"])}{head(words["ingredients"])}<ul>{ingredients(recipe)}</ul>
        {head(words["directions"])}{steps(recipe, "section", "<i>{n}</i>")}
        {notes(recipe, words, "h2")}<h2>{words["nutrition"]}</h2><table class=food><tr><th>kcal</th><td>412</td></tr><tr><th>kJ</th><td>1724</td></tr></table>
        <p class=end>Exported on 2 February · page made by your recipe box</p>""")


def school(recipe, following, words):
    """A hand-out for the class: lines to fill in, a ruled table of amounts, room to tick each step off."""
    return sheet("""body { font: 11.5pt/1.4 "URW Gothic" } .fill { display: flex; gap: 16pt; font-size: 10pt; margin-bottom: 14pt } .fill span { flex: 1; border-bottom: .7pt solid }
        h1 { font-size: 18pt; text-align: center; margin-bottom: 10pt } h2 { font-size: 12.5pt; margin: 12pt 0 4pt } table { border-collapse: collapse; width: 100% }
        td { border: .7pt solid #444; padding: 3pt 6pt; vertical-align: top } tr { break-inside: avoid } .what td:first-child { width: 24% } .way td:first-child { width: 18pt; text-align: center } .way td:last-child { width: 34pt }
        .ask { margin-top: 16pt; font-size: 10.5pt; break-inside: avoid } .ask p { margin: 6pt 0 20pt; border-bottom: .7pt dotted }""",
        f"""<div class=fill><span>Name:</span><span>Class:</span><span>Date:</span></div>{title(recipe)}
        {some("<p data-k=meta>{}</p>", serves(recipe, words))}{head(words["otherIngredients"])}<table class=what>{rows(recipe)}</table>
        {head(words["otherDirections"])}<table class=way>{steps(recipe, "tr", "<td>{n}</td>", "<td></td>", "td")}</table>
        <div class=ask><b>Think about it</b><p>1. Why do we wash our hands before we begin?</p><p>2. Which of these foods grow near your home?</p></div>""")


def club(recipe, following, words):
    """A newsletter in two columns of text, with a second recipe behind the first."""
    items = "".join(f"<li>{escape(text)}</li>" for text in following["ingredients"])
    way = "".join(f"<p>{escape(text)}</p>" for text in following["steps"])
    # The only recipe of its language is followed by itself: printed twice, it would be marked but once.
    second = "" if following is recipe else f"""<div class=next>{escape(following["title"])}</div>
        <h2>{words["ingredients"]}</h2><ul>{items}</ul><h2>{words["directions"]}</h2>{way}"""
    return sheet("""body { font: 10.5pt/1.35 "Nimbus Roman" } .mast { border-bottom: 3pt double; padding-bottom: 4pt; margin-bottom: 10pt; font-size: 20pt; text-align: center }
        .mast small { display: block; font-size: 9pt } .text { columns: 2; column-gap: 9mm; column-rule: .5pt solid #888 } h1, .next { font: bold 15pt/1.2 "Nimbus Roman"; margin-bottom: 4pt }
        .next { margin-top: 16pt; border-top: 1pt solid; padding-top: 8pt } .from { font-style: italic; margin-bottom: 6pt } h2 { font-size: 11pt; margin: 8pt 0 3pt } ul { padding-left: 12pt } .text p { margin-bottom: 5pt }""",
        f"""<div class=mast>The Allotment Letter<small>Number 41 · Autumn · for members and their neighbours</small></div><div class=text>
        {title(recipe)}{some("<p class=from>Sent in by {}</p>", recipe["author"])}{some("<p>{}</p>", recipe["intro"])}{some("<p data-k=meta>{}</p>", serves(recipe, words))}
        {head(words["ingredients"])}<ul>{ingredients(recipe)}</ul>{head(words["directions"])}{steps(recipe, "p")}{notes(recipe, words, "h2")}{second}</div>""", "Letter")


def leaflet(recipe, following, words):
    """Out of the packet: a wide sheet of three columns that begin with the boxed list, a line above each step."""
    return sheet("""body { font: 8.5pt/1.35 Narrow } .brand { background: #2c5d34; color: #fff; padding: 5pt 10pt; font-size: 10pt; margin-bottom: 8pt }
        h1 { font: bold 17pt/1.15 Narrow; color: #2c5d34; margin-bottom: 6pt } .all { columns: 3; column-gap: 6mm } .box { border: 1pt solid #2c5d34; border-radius: 5pt; padding: 7pt; margin-bottom: 8pt; break-inside: avoid }
        .box li { list-style: "– "; margin-left: 8pt } h2 { font-size: 9.5pt; margin-bottom: 4pt } .way div { margin-bottom: 6pt; break-inside: avoid }
        .way b { display: block; color: #2c5d34; text-transform: uppercase; font-size: 7.5pt } .small { font-size: 6.5pt; border-top: .5pt solid; margin-top: 8pt; padding-top: 3pt }""",
        f"""<div class=brand>Recipe idea no. 6</div>{title(recipe)}<div class=all><div class=box>{head(words["ingredients"])}
        {some("<p data-k=meta>{}</p>", serves(recipe, words))}<ul>{ingredients(recipe)}</ul></div>
        <div class=way>{steps(recipe, "div", "<b>" + words["step"] + " {n}</b>")}</div></div>
        <p class=small>Store in a cool, dry place. Once opened use within 5 days. May contain traces of nuts and milk. Net weight 500 g.</p>""", "A5 landscape", "9mm")


def card(recipe, following, words):
    """A card from the box in the kitchen: who gave it, the list in two columns, then one paragraph after the other."""
    return sheet("""body { font: 10pt/1.35 "URW Bookman" } .top { display: flex; justify-content: space-between; border-bottom: 1pt solid #b33; padding-bottom: 3pt; margin-bottom: 6pt } .who { font: 13pt Z003 }
        h1 { font: 22pt/1.1 Z003 } ul { columns: 2; list-style: none; margin: 8pt 0; border-bottom: .5pt solid #8ab; padding-bottom: 6pt } li { break-inside: avoid; padding-left: 10pt; text-indent: -10pt } .way p { margin-bottom: 4pt }""",
        f"""{title(recipe)}<div class=top><span class=who>{some("from the kitchen of {}", recipe["author"])}</span>
        {some("<span data-k=meta>{}</span>", serves(recipe, words))}</div><ul>{ingredients(recipe)}</ul><div class=way>{steps(recipe, "p")}</div>
        {"".join(f"<p><i>{escape(text)}</i></p>" for text in recipe["notes"])}""", "7in 5in", "10mm 12mm")


def weekly(recipe, following, words):
    """A supplement that tells the way first and puts what to buy in a box at the foot."""
    return sheet("""body { font: 11pt/1.5 P052 } .page { display: flex; justify-content: space-between; font: 8pt Inter; border-bottom: 2pt solid; padding-bottom: 3pt; margin-bottom: 16pt } h1 { font-size: 25pt; line-height: 1.15 } .by { font: 9pt Inter; margin: 5pt 0 10pt }
        .lead { font-size: 12.5pt; margin-bottom: 12pt } h2 { font: bold 12pt Inter; margin-bottom: 6pt } ol { padding-left: 20pt; margin-bottom: 14pt } ol li { margin-bottom: 6pt } .buy { background: #eef2ee; padding: 10pt 14pt; box-decoration-break: clone }
        .buy ul { columns: 3; column-gap: 14pt; list-style: none; font: 9pt/1.4 Inter } .buy li { break-inside: avoid; margin-bottom: 4pt } .more { font: 9pt Inter; margin-top: 14pt }""",
        f"""<div class=page><span>WEEKEND</span><span>Food &amp; Garden</span><span>23</span></div>{title(recipe)}{some("<p class=by>By {}</p>", recipe["author"])}
        {some("<p class=lead>{}</p>", recipe["intro"])}{head(words["directions"])}<ol>{steps(recipe)}</ol><div class=buy>{head(words["otherIngredients"])}<ul>{ingredients(recipe)}</ul></div>
        {notes(recipe, words)}{some("<p class=more>Next week: {}</p>", another(recipe, following))}""", "A4", "20mm 24mm")


def portal(recipe, following, words):
    """A large site sent to the printer: stars, the list on the left with amounts set apart, named steps, what others cooked."""
    tiles = "".join(f"<div data-k=meta><small>{name}</small> <b>{escape(value)}</b></div>" for name, value in facts(recipe, words))
    return sheet("""body { font: 10pt/1.45 "DejaVu Sans Condensed", "DejaVu Sans" } .crumb { font-size: 8pt; color: #777 } h1 { font-size: 22pt; line-height: 1.2; margin: 6pt 0 } .star { color: #d80; font-size: 9pt; margin-bottom: 8pt } .tiles { display: flex; gap: 10pt; margin: 10pt 0 }
        .tiles div { border: .7pt solid #ccc; padding: 5pt 10pt } small { display: block; color: #777 } .both { display: grid; grid-template-columns: 40% 1fr; gap: 18pt } h2 { font-size: 13pt; margin-bottom: 6pt } td { vertical-align: top; padding: 2pt 6pt 2pt 0; border-bottom: .5pt solid #ddd } td:first-child { min-width: 46pt }
        h4 { margin: 0; font-size: 10pt; break-after: avoid } .way div { margin-bottom: 9pt; break-inside: avoid } .also { display: flex; gap: 12pt; font-size: 8.5pt; margin-top: 16pt; break-inside: avoid } .also div { flex: 1; border-top: 14mm solid #d9cfc3; padding-top: 3pt }""",
        f"""<p class=crumb>Recipes › Main dishes › Family favourites</p>{title(recipe)}<p class=star>★★★★☆ 4.3 (118)</p>{some("<p>{}</p>", recipe["intro"])}<div class=tiles>{tiles}</div>
        <div class=both><div>{head(words["ingredients"])}<table>{rows(recipe)}</table></div><div class=way>{head(words["directions"])}{steps(recipe, "div", "<h4>" + words["step"] + " {n}</h4>")}{notes(recipe, words)}</div></div>
        <div class=also>{some("<div>{}</div>", another(recipe, following))}<div>Five quick suppers</div><div>What to cook in March</div></div>""", "A4", "15mm")


portal.header = True
LAYOUTS = {f"kitchen-{page.__name__}": page
           for page in (weblog, cookbook, magazine, app, school, club, leaflet, card, weekly, portal)}
