import re
from html import escape

from printed._parts import (amount_and_name, bold_amount, facts, facts_as, furniture, head, ingredients, notes,
                            paragraphs, steps, title)

POST = [
    "It rained the whole of last week, and when it rains I cook. The kitchen window steams up, the radio mumbles "
    "to itself, and by four in the afternoon somebody always comes in to ask what smells so good.",
    "I first ate this at my neighbour's table years ago. She never wrote anything down, so it took me eleven tries, "
    "two burnt pans and one very patient family to arrive at a version that tastes the way I remember it.",
    "Can I make it ahead? Yes, and I would even say that you should. It keeps in the fridge for three days and tastes "
    "better on the second. Warm it gently, with a spoonful of water if it looks dry.",
    "What should I serve with it? We like a green salad and good bread. On a cold night a bowl of soup before it "
    "makes a whole meal, and nobody has yet complained about the leftovers.",
]
TIPS = ["A heavy pan keeps its warmth when cold food goes in, so buy one good one rather than three thin ones.",
        "Taste before you salt, and then again just before the plates go out.",
        "Blunt knives slip. Five strokes on a stone every Sunday are enough for a home kitchen."]


def page(style, body, size="A4", margin="15mm"):
    return f"""<!doctype html><meta charset=utf-8><style>@page {{ size: {size}; margin: {margin} }}
        * {{ box-sizing: border-box }} body {{ margin: 0 }} ul, ol {{ margin: 0; padding: 0; list-style: none }}
        h1, h2, h3, h4 {{ break-after: avoid; break-inside: avoid }} li, .together {{ break-inside: avoid }}
        .image {{ background: #bbb }} {style}</style>{body}"""


def blog_card(recipe, following, words):
    print_, share, rate, comments, more, *_ = furniture(recipe)
    by = f"by {escape(recipe['author'])} · " if recipe["author"] else ""
    return page("""body { font: 11.5pt/1.6 P052 } nav { font: 8.5pt Inter; letter-spacing: .1em; text-align: center }
        nav b { display: block; font: 24pt Z003; letter-spacing: 0 } .cookies { font: 8pt Inter; background: #eee; padding: 6pt }
        .by { color: #888; font: 9pt Inter } .image { height: 55mm; margin: 10pt 0 } .card { border: 2pt dashed #b0685a;
        padding: 14pt; font: 10pt/1.45 Inter; margin: 16pt 0 } .card .image { float: right; width: 34mm; height: 34mm; margin: 0 0 8pt 10pt }
        .card h2 { margin: 0 } .card h3 { clear: both; border-bottom: 1pt solid #b0685a; margin: 12pt 0 4pt } .facts span { margin-right: 12pt }
        .card ul { list-style: disc; padding-left: 14pt } .group { list-style: none; font-weight: 700; margin: 6pt 0 0 -14pt }
        .card ol { list-style: decimal; padding-left: 18pt } .card ol li { margin-bottom: 4pt } .stars { color: #c90; font: 11pt DejaVu Sans }
        .comment { border-left: 3pt solid #ddd; padding-left: 8pt; margin: 8pt 0; font-size: 10pt }""", f"""
        <div class=cookies>This site uses cookies to remember your shopping list. Accept all · Settings</div>
        <nav><b>The Blue Kettle</b>HOME &nbsp; ABOUT &nbsp; RECIPES &nbsp; SHOP &nbsp; CONTACT</nav>
        <h1>What we ate when the rain would not stop</h1><p class=by>{by}12 comments · Jump to recipe ↓</p>
        {paragraphs(POST[:2])}<div class=image></div><h2>Your questions</h2>{paragraphs(POST[2:])}
        <div class=card><div class=image></div>{title(recipe, "h2")}<div class=stars>★★★★☆</div>
        {paragraphs([recipe["intro"]])}<p class=facts>{facts_as(recipe, words, "<span data-k=meta><b>{label}:</b> {value}</span> ")}</p>
        <p>{print_} &nbsp; Pin &nbsp; {share}</p>{head(words["ingredients"], "h3")}<ul>{ingredients(recipe)}</ul>
        {head(words["directions"], "h3")}<ol>{steps(recipe)}</ol>{notes(recipe, words)}</div>
        <p>{more}: <u>{escape(following["title"])}</u></p><h2>{comments} (2)</h2>
        <p class=comment><b>Hanne</b> 4 March<br>Made it twice already. I left out the salt and added 2 cloves of garlic.</p>
        <p class=comment><b>Old Tom</b> 9 March<br>Mine took ten minutes longer, but my oven is slow. {rate}: 5/5</p>""")


def print_view(recipe, _, words):
    print_, share, *_ = furniture(recipe)
    return page("""body { font: 11pt/1.45 Nimbus Sans } .tools { text-align: right; font-size: 9pt; color: #666; margin-bottom: 5mm }
        header { display: grid; grid-template-columns: 62mm 1fr; gap: 8mm } .image { height: 48mm } h1 { font-size: 24pt; margin: 0 0 6pt; line-height: 1.1 }
        .facts:empty { display: none } .facts { display: flex; border: solid #ccc; border-width: 1pt 0; margin: 14pt 0; padding: 8pt 0; text-align: center }
        .facts div { flex: 1 } .facts i { display: block; width: 16pt; height: 16pt; border: 1.5pt solid #444; border-radius: 50%; margin: 0 auto 3pt }
        .facts small { display: block; color: #777; text-transform: uppercase; font-size: 7.5pt } h2 { font-size: 14pt; margin: 12pt 0 6pt }
        .ing li { display: flex; gap: 8pt; margin: 4pt 0 } .ing li::before { content: ""; flex: none; width: 9pt; height: 9pt; border: 1pt solid #333; margin-top: 3pt }
        .ing .group { font-weight: 700; margin-top: 8pt } .ing .group::before { display: none } .do { counter-reset: n }
        .do li { counter-increment: n; padding-left: 20pt; text-indent: -20pt; margin: 6pt 0 } .do li::before { content: counter(n) "."; display: inline-block; width: 20pt; text-indent: 0; font-weight: 700 }
        footer { border-top: 1pt solid #ccc; margin-top: 18pt; font-size: 8pt; color: #777; padding-top: 4pt }""", f"""
        <div class=tools>← Back &nbsp; | &nbsp; {print_} &nbsp; | &nbsp; {share} &nbsp; | &nbsp; A− A+</div>
        <header><div class=image></div><div>{title(recipe)}{paragraphs([recipe["intro"]])}{paragraphs([recipe["author"]], "em")}</div></header>
        <div class=facts>{facts_as(recipe, words, "<div data-k=meta><i></i><small>{label}</small> <b>{value}</b></div>")}</div>
        {head(words["ingredients"])}<ul class=ing>{ingredients(recipe, shape=lambda text: f"<span>{escape(text)}</span>")}</ul>
        {head(words["directions"])}<ol class=do>{steps(recipe)}</ol>{notes(recipe, words, "h2")}
        <footer>https://kitchen.example/print/{recipe["name"]}<br>© All rights reserved. For personal use only.</footer>""", "Letter", "18mm")


def amount_table(recipe, _, words):
    def row(text):
        amount, name = amount_and_name(text)
        return f"<tr data-k=ing><td>{amount} </td><td>{name}</td></tr>"
    rows = "".join(row(text) if not text.endswith(":") else f"<tr data-k=ing><th colspan=2>{escape(text.rstrip(':'))}</th></tr>"
                   for text in recipe["ingredients"])
    values = "".join(f"<tr><td>{name}</td><td>{value}</td></tr>" for name, value in
                     (("kcal", "412"), ("Protein", "14 g"), ("Fat", "19 g"), ("Carbs", "46 g"), ("Salt", "1.2 g")))
    return page("""body { font: 10.5pt/1.5 DejaVu Sans Condensed, DejaVu Sans } h1 { color: #2e6b3f; font-size: 22pt; margin: 0 } .facts { color: #555; font-size: 9pt }
        table { border-collapse: collapse; width: 100% } tr { break-inside: avoid } .ing td { border-bottom: .5pt solid #ccc; padding: 4pt 6pt; vertical-align: top }
        .ing td:first-child { width: 34mm; text-align: right; color: #2e6b3f; font-weight: 700 } .ing th { text-align: left; background: #e6efe7; padding: 4pt 6pt }
        h2 { font-size: 13pt; margin: 16pt 0 6pt } .do p { margin: 0 0 7pt } .values { width: 60mm; font-size: 8.5pt; float: right; margin: 10pt 0 0 10pt }
        .values td { border: .5pt solid #999; padding: 2pt 5pt } .portions { float: right; border: 1pt solid #2e6b3f; border-radius: 9pt; padding: 1pt 9pt; font-size: 9pt }""", f"""
        {title(recipe)}<p class=facts>{facts_as(recipe, words, "<span data-k=meta>{label}: {value}</span> &nbsp;·&nbsp; ")}★ 4.6 (231)</p>
        {paragraphs([recipe["intro"]])}<div class=portions>−  1×  +</div>{head(words["ingredients"])}<table class=ing>{rows}</table>
        {head(words["directions"])}<div class=do>{steps(recipe, "<p data-k=step>{text}</p>")}</div>{notes(recipe, words, "h2")}
        <div class=together><h2>{words["nutrition"]}</h2><table class=values style="float: none; margin: 0">{values}</table></div>""", margin="20mm 22mm")


def giant_numerals(recipe, _, words):
    return page("""body { font: 11pt/1.5 C059 } h1 { font: 300 34pt/1.05 Inter Display; margin: 0 0 4mm; max-width: 140mm } .lead { font: italic 13pt/1.4 C059; color: #555 }
        .facts { font: 8.5pt Inter; text-transform: uppercase; letter-spacing: .08em } .ing { columns: 2; column-gap: 10mm; border-top: 3pt solid #000; padding-top: 3mm; margin: 2mm 0 8mm }
        .ing li { padding: 2pt 0 } .group { font: 700 10pt Inter; break-after: avoid; color: #b5442c } h2 { font: 700 11pt Inter; margin: 6mm 0 0 }
        .do { border-top: 3pt solid #000; margin-top: 2mm } .row { display: grid; grid-template-columns: 22mm 1fr; padding: 3mm 0; border-bottom: .5pt solid #bbb; break-inside: avoid }
        .row b { font: 200 40pt/1 Inter Display; color: #b5442c } .row p { margin: 0 }""", f"""
        {title(recipe)}{paragraphs([recipe["intro"]], "p class=lead")}<p class=facts>{facts_as(recipe, words, "<span data-k=meta>{label} {value}</span> / ")}{escape(recipe["author"])}</p>
        {head(words["otherIngredients"])}<ul class=ing>{ingredients(recipe)}</ul>{head(words["otherDirections"])}
        <div class=do>{steps(recipe, "<div class=row><b>{n}</b><p data-k=step>{text}</p></div>")}</div>{notes(recipe, words)}""", margin="22mm 25mm")


def labelled_steps(recipe, following, words):
    *_, more, _, _ = furniture(recipe)
    return page("""body { font: 10.5pt/1.5 Inter } nav { display: flex; gap: 14pt; font-size: 9pt; border-bottom: 1pt solid #ddd; padding-bottom: 6pt; color: #666 }
        h1 { font: 800 25pt/1.1 Inter; margin: 12pt 0 6pt } main { display: grid; grid-template-columns: 1fr 58mm; gap: 9mm } aside { grid-column: 2; grid-row: 1; background: #fdf1dc; padding: 5mm; align-self: start }
        .left { grid-column: 1; grid-row: 1 } aside li { font-size: 9.5pt; padding: 3pt 0; border-bottom: .5pt dotted #c9a35b } aside h2 { font-size: 12pt; margin: 0 0 4pt }
        .group { font-weight: 700; color: #9a6a10 } .left h3 { font-size: 10.5pt; margin: 10pt 0 1pt } .left p { margin: 0 } .left h2 { font-size: 15pt; margin: 0 } .more { display: flex; gap: 5mm; margin-top: 10mm; font-size: 9pt }
        .more div { flex: 1 } .more .image { height: 24mm }""", f"""
        <nav><b>☰</b> Dinner &nbsp; Baking &nbsp; Seasons &nbsp; Video <span style="margin-left: auto">Log in</span></nav>{title(recipe)}
        {paragraphs([recipe["intro"]])}<main><aside>{head(words["ingredients"])}{facts_as(recipe, words, "<div data-k=meta><small>{label}: {value}</small></div>")}
        <ul>{ingredients(recipe, bare=True, shape=bold_amount)}</ul></aside>
        <div class=left>{head(words["directions"])}{steps(recipe, f"<h3>{words['step']} {{n}}</h3><p data-k=step>{{text}}</p>")}{notes(recipe, words)}</div></main>
        <h4>{more}</h4><div class="more together"><div><div class=image></div>{escape(following["title"])}</div><div><div class=image></div>Lemon cake in a tin</div><div><div class=image></div>Seven soups for seven days</div></div>""", margin="14mm")


def step_cards(recipe, _, words):
    return page("""body { font: 9.5pt/1.4 Nimbus Sans } h1 { font: 700 26pt/1.1 URW Gothic; text-align: center; margin: 0 0 3mm } .facts { display: flex; justify-content: center; gap: 4mm }
        .facts span { background: #dcebf5; border-radius: 8pt; padding: 2pt 9pt } .lead { text-align: center; margin: 3mm 20mm } h2 { font: 700 13pt URW Gothic; margin: 6mm 0 2mm }
        .ing { display: grid; grid-template-columns: repeat(4, 1fr); gap: 3mm } .ing li { background: #f3f3f3; border-radius: 4pt; padding: 2.5mm; text-align: center } .ing .group { grid-column: 1 / -1; background: none; text-align: left; font-weight: 700; padding: 0 }
        .do { display: grid; grid-template-columns: repeat(3, 1fr); gap: 5mm } .do li { border: .7pt solid #bbb; border-radius: 4pt; overflow: hidden } .do .image { height: 30mm; position: relative } .do b { position: absolute; left: 2mm; bottom: -3.5mm;
        width: 8mm; height: 8mm; line-height: 8mm; border-radius: 50%; background: #20587c; color: #fff; text-align: center } .do p { margin: 5mm 3mm 3mm }""", f"""
        {title(recipe)}<div class=facts>{facts_as(recipe, words, "<span data-k=meta>{label} <b>{value}</b></span>")}</div>{paragraphs([recipe["intro"]], "p class=lead")}
        {head(words["ingredients"])}<ul class=ing>{ingredients(recipe)}</ul>{head(words["directions"])}
        <ol class=do>{steps(recipe, "<li><div class=image><b>{n}</b></div><p data-k=step>{text}</p></li>")}</ol>{notes(recipe, words, "h2")}""", margin="12mm")


def tinted_left(recipe, _, words):
    return page("""body { font: 10pt/1.5 P052 } h1 { font: 30pt/1.1 C059; margin: 0 } .kicker { font: 8pt Nimbus Sans; letter-spacing: .2em; color: #a33 } .by { font-style: italic; margin: 2mm 0 5mm }
        main { display: grid; grid-template-columns: 56mm 1fr; gap: 8mm } aside { background: #e9efe4; padding: 5mm; font: 9pt/1.45 Nimbus Sans; align-self: start } aside h2 { font: 700 10pt Nimbus Sans; text-transform: uppercase; margin: 0 0 3mm }
        aside li { margin-bottom: 1.5mm } .group { font-weight: 700; text-transform: uppercase; font-size: 8pt; margin-top: 3mm } .columns { columns: 2; column-gap: 7mm; text-align: justify; hyphens: auto } .columns p { margin: 0 0 2.5mm }
        .columns p b { font: 700 11pt C059; color: #a33 } h2 { font: 13pt C059; margin: 0 0 2mm } .image { height: 62mm; margin-bottom: 6mm } footer { font: 8pt Nimbus Sans; margin-top: 8mm; display: flex; justify-content: space-between }
        .notes li { margin-bottom: 2mm }""", f"""
        <div class=image></div><div class=kicker>THE SUNDAY TABLE</div>{title(recipe)}{paragraphs([recipe["author"]], "p class=by")}{paragraphs([recipe["intro"]])}
        <main><aside>{facts_as(recipe, words, "<div data-k=meta><b>{value}</b> {label}</div>")}<br>{head(words["ingredients"])}<ul>{ingredients(recipe, bare=True)}</ul></aside>
        <div>{head(words["otherDirections"])}<div class=columns lang={recipe["language"]}>{steps(recipe, "<p><b>{n}</b> <span data-k=step>{text}</span></p>")}</div>{notes(recipe, words)}</div></main>
        <footer><span>64</span><span>The Sunday Table · October</span></footer>""", margin="14mm 16mm")


def newsletter(recipe, following, words):
    *_, comments, more, leave, _ = furniture(recipe)
    return page("""body { font: 11pt/1.55 DejaVu Sans; background: #f4efe8 } main { width: 140mm; margin: 0 auto; background: #fff; padding: 8mm 12mm } .mast { text-align: center; font: 700 22pt URW Bookman; border-bottom: 2pt solid #333; padding-bottom: 3mm }
        .mast small { display: block; font: 8pt DejaVu Sans; color: #777 } .sponsor { background: #eef; font-size: 8.5pt; padding: 3mm; text-align: center; margin: 5mm 0 } h1, h2, h3 { font-family: URW Bookman; text-align: center } .ing { text-align: center; font-size: 10pt }
        .ing p { margin: 0 0 1mm } .ing .group { font-weight: 700; margin-top: 3mm } .button { display: block; width: 60mm; margin: 6mm auto; background: #c4532f; color: #fff; text-align: center; padding: 2.5mm; border-radius: 3pt }
        .do p { margin: 0 0 3mm } .image { height: 60mm; margin: 4mm -12mm } .end { font-size: 8pt; color: #777; text-align: center; margin-top: 8mm } hr { border: 0; border-top: 1pt dotted #999 }""", f"""
        <main><div class=mast>Pot &amp; Pantry<small>Letter no. 118 · View in browser</small></div><p>Hello again,</p><p>{POST[0]}</p>
        <div class=sponsor>TODAY WITH: Hartwell's wooden boards. 15 % off until Friday.</div><div class=image></div>{title(recipe)}{paragraphs([recipe["intro"]])}
        {facts_as(recipe, words, "<div data-k=meta style='text-align: center'><b>{label}</b> {value}</div>")}{head(words["otherIngredients"], "h3")}
        <div class=ing>{ingredients(recipe, "<p data-k=ing>{}</p>", "<p class=group data-k=ing>{}</p>")}</div>{head(words["directions"], "h3")}
        <div class=do>{steps(recipe, "<p data-k=step>{text}</p>")}</div>{notes(recipe, words)}<span class=button>{comments} (8)</span><hr>
        <h2>{more}</h2><p><b>{escape(following["title"])}.</b> {escape(following["intro"])}</p><p><b>Asked by readers.</b> {POST[3]}</p>
        <div class=end>You receive this letter because you asked for it.<br>{leave} · 12 Mill Lane, Oldbury</div></main>""", "Letter", "10mm")


def app_export(recipe, _, words):
    known = "".join(f"<tr><th>{label}</th><td data-k=meta>{value}</td></tr>" for label, value in facts(recipe, words))
    author = f"<tr><th>Source</th><td>{escape(recipe['author'])}</td></tr>" if recipe["author"] else ""
    listed = paragraphs(recipe["notes"], "li")
    return page("""@page { @bottom-center { content: "Page " counter(page) } } body { font: 9.5pt/1.4 DejaVu Sans } h1 { font-size: 16pt; margin: 0 0 3mm; background: #3b4a5a; color: #fff; padding: 2mm 3mm } table { border-collapse: collapse; font-size: 8.5pt; width: 100% }
        th, td { border: .5pt solid #aaa; padding: 1mm 2mm; text-align: left } th { width: 36mm; background: #eee } h2 { font-size: 10pt; background: #dfe4e9; padding: 1mm 3mm; margin: 5mm 0 2mm } .ing li::before { content: "☐ "; font-size: 11pt } .ing .group { font-weight: 700 }
        .ing .group::before { content: "" } .do li { margin: 0 0 2mm; padding-left: 8mm; position: relative } .do li b { position: absolute; left: 0 } .notes { list-style: square; padding-left: 6mm } footer { font-size: 7pt; color: #888; margin-top: 6mm }""", f"""
        {title(recipe)}<table>{known}{author}<tr><th>Category</th><td>Dinner, Favourites</td></tr><tr><th>Rating</th><td>★★★★★</td></tr><tr><th>Created</th><td>2024-02-11 18:42</td></tr><tr><th>Times cooked</th><td>3</td></tr></table>
        {"<h2>Description</h2>" + paragraphs([recipe["intro"]]) if recipe["intro"] else ""}{head(words["ingredients"])}<ul class=ing>{ingredients(recipe)}</ul>
        {head(words["directions"])}<ol class=do>{steps(recipe, "<li><b>{n})</b><span data-k=step>{text}</span></li>")}</ol>
        {"<h2>" + words["notes"] + "</h2><ul class=notes>" + listed + "</ul>" if listed else ""}<footer>Exported 2025-06-30 09:15 · 1 of 1 recipes · Library "Home"</footer>""", "A5", "11mm")


def spread(recipe, _, words):
    *_, tips = furniture(recipe)
    return page("""body { font: 10pt/1.5 C059 } main { display: grid; grid-template: auto 1fr / 176mm 52mm 1fr; column-gap: 9mm } .left { grid-column: 1; grid-row: 1 / 3 } .left .image { height: 170mm } .folio { font: 8pt Nimbus Sans; margin-top: 4mm }
        h1 { font: 44pt/1 URW Gothic; margin: 6mm 0 3mm } .lead { font: italic 13pt/1.4 C059 } .ing { grid-column: 2; grid-row: 1 / 3; border-top: 4pt solid #d28a1e; padding-top: 3mm; font: 9.5pt/1.4 Nimbus Sans } .ing li { margin-bottom: 1.5mm }
        .group { font-weight: 700; color: #d28a1e } h2 { font: 700 12pt URW Gothic; margin: 0 0 3mm } .do { grid-column: 3; grid-row: 1; border-top: 4pt solid #d28a1e; padding-top: 3mm } .do p { margin: 0 0 3mm }
        .tips { grid-column: 3; grid-row: 2; align-self: start; background: #fbf0dc; padding: 4mm; margin-top: 6mm; font: 9pt/1.4 Nimbus Sans; break-inside: avoid } .tips h3 { margin: 0 }""", f"""
        <main><section class=left><div class=image></div>{title(recipe)}{paragraphs([recipe["intro"]], "p class=lead")}<div class=folio>38 &nbsp; AUTUMN AT HOME</div></section>
        <section class=ing>{head(words["ingredients"])}{facts_as(recipe, words, "<div data-k=meta>{label}: {value}</div>")}<br><ul>{ingredients(recipe)}</ul></section>
        <section class=do>{head(words["directions"])}{steps(recipe, "<p><b>{n}.</b> <span data-k=step>{text}</span></p>")}{notes(recipe, words)}</section>
        <section class=tips><h3>{tips}</h3>{paragraphs(TIPS)}</section></main>""", "A3 landscape", "16mm")


def telephone(recipe, _, words):
    print_, share, *_ = furniture(recipe)
    return page("""html { background: #1d1f24 } body { font: 10pt/1.45 Inter; color: #e8e8e8; padding: 5mm } .bar { display: flex; justify-content: space-between; font-size: 8pt; color: #aaa } .image { height: 46mm; margin: 3mm -5mm; background: #555 }
        h1 { font: 700 19pt/1.15 Inter; margin: 0 0 2mm } .chips span { display: inline-block; border: .7pt solid #777; border-radius: 9pt; padding: 0 7pt; margin: 0 3pt 4pt 0; font-size: 8pt } .tabs { display: flex; text-align: center; margin: 4mm 0; font-size: 9pt; border-bottom: 1pt solid #555 }
        .tabs span { flex: 1; padding-bottom: 2mm } .tabs span:first-child { border-bottom: 2pt solid #7fd1a0 } h2 { font-size: 13pt; margin: 5mm 0 2mm } .ing li { display: grid; grid-template-columns: 1fr 7mm; padding: 2mm 0; border-bottom: .5pt solid #444 } .ing i { border: 1pt solid #7fd1a0; border-radius: 50%; width: 5mm; height: 5mm }
        .ing .group { display: block; color: #7fd1a0; font-weight: 600; border: 0 } .step { background: #2a2d34; border-radius: 6pt; padding: 3mm; margin-bottom: 3mm; break-inside: avoid } .step small { color: #7fd1a0; display: block } .portions { text-align: center; margin: 2mm }""", f"""
        <div class=bar><span>18:07</span><span>▮▮▯ 74 %</span></div><div class=image></div>{title(recipe)}{paragraphs([recipe["intro"]])}
        <div class=chips>{facts_as(recipe, words, "<span data-k=meta>{label} {value}</span>")}<span>{share}</span><span>{print_}</span></div>
        <div class=tabs><span>Recipe</span><span>{words["nutrition"]}</span><span>Reviews 46</span></div>{head(words["ingredients"])}<div class=portions>⊖ &nbsp; ⊕</div>
        <ul class=ing>{ingredients(recipe, "<li><span data-k=ing>{}</span><i></i></li>", shape=bold_amount)}</ul>{head(words["directions"])}
        {steps(recipe, f"<div class=step><small>{words['step']} {{n}} / {len(recipe['steps'])}</small><span data-k=step>{{text}}</span></div>")}{notes(recipe, words)}""", "100mm 205mm", "0 0 6mm")


def short_recipe(recipe, words, heading):
    """A recipe of a page that holds several: a title over the ingredients and a numbered method."""
    return f"""{title(recipe, heading)}{paragraphs([recipe["intro"]], "p class=lead")}<p class=facts>{facts_as(recipe, words, "<span data-k=meta>{label}: {value}</span><br>")}</p>
        <div class=both><div>{head(words["ingredients"], "h3")}<ul>{ingredients(recipe)}</ul></div>
        <div>{head(words["directions"], "h3")}<ol>{steps(recipe)}</ol></div></div>"""


def second(recipe, following, words, heading):
    """The neighbour, if there is another: on the page, and not what its reader should find."""
    neighbour = re.sub(r" data-k=\w+", "", short_recipe(following, words, heading))
    return f"<section>{neighbour}</section>" if following is not recipe else ""


def second_below(recipe, following, words):
    return page("""body { font: 10pt/1.45 URW Bookman } h2 { font: 700 17pt Nimbus Sans Narrow; margin: 0; color: #274a8a } h3 { font: 700 10pt Nimbus Sans; margin: 0 0 1.5mm } .both { clear: both; display: grid; grid-template-columns: 52mm 1fr; gap: 7mm } ol { list-style: decimal; padding-left: 5mm }
        ol li { margin-bottom: 2mm } ul li { padding-left: 3mm; text-indent: -3mm } .group { font-weight: 700 } .facts { float: right; text-align: right; font-size: 8.5pt; margin: 0 0 2mm 6mm } .lead { font-style: italic; margin: 1mm 0 3mm } section + section { border-top: 1pt solid #274a8a; margin-top: 7mm; padding-top: 5mm }
        .running { font: 8pt Nimbus Sans; text-align: right; border-bottom: .5pt solid #000; margin-bottom: 5mm }""", f"""
        <div class=running>Weeknight suppers &nbsp; 117</div><section>{short_recipe(recipe, words, "h2")}</section>{second(recipe, following, words, "h2")}""", margin="18mm 20mm")


def second_beside(recipe, following, words):
    return page("""body { font: 9.5pt/1.4 Nimbus Roman; display: grid; grid-template-columns: 1fr 1fr; gap: 0 16mm } h1 { font: 27pt Z003; text-align: center; margin: 0 } h3 { font: italic 12pt Nimbus Roman; text-align: center; margin: 4mm 0 1mm } .facts, .lead { text-align: center; margin: 1mm 0 }
        ul { columns: 2; column-gap: 5mm } .group { font-variant: small-caps; break-after: avoid } ol li { text-indent: 4mm; text-align: justify } section { padding: 4mm; border: 1pt double #777; align-self: start }""", f"""
        <section>{short_recipe(recipe, words, "h1")}</section>{second(recipe, following, words, "h1")}""", "Letter landscape", "12mm")


def running_card(recipe, _, words):
    return page("""body { font: 11pt/1.5 Nimbus Roman } h1 { font: 26pt Z003; color: #b22; border-bottom: 1.5pt solid #b22; margin: 0 0 2mm } .facts { display: flex; justify-content: space-between; font-style: italic; margin: 0 0 2mm } .ing { columns: 3; column-gap: 6mm; font-size: 10pt }
        .ing li { border-bottom: .5pt solid #9cc3e0 } .group { font-weight: 700; break-after: avoid } h2 { font: italic 700 12pt Nimbus Roman; margin: 3mm 0 1mm } .run { margin: 0; text-align: justify } .run b { color: #b22 }""", f"""
        {title(recipe)}<div class=facts>{facts_as(recipe, words, "<span data-k=meta>{label}: {value}</span>")}{paragraphs([recipe["author"] and "From the kitchen of " + recipe["author"]], "span")}</div>
        {head(words["ingredients"])}<ul class=ing>{ingredients(recipe)}</ul>{head(words["otherDirections"])}
        <p class=run>{steps(recipe, "<b>({n})</b> <span data-k=step>{text}</span> ")}</p>{notes(recipe, words)}""", "A5 landscape", "11mm 13mm")


blog_card.header = newsletter.header = True
LAYOUTS = {f"sites-{make.__name__.replace('_', '-')}": make for make in (
    blog_card, print_view, amount_table, giant_numerals, labelled_steps, step_cards, tinted_left, newsletter, app_export,
    spread, telephone, second_below, second_beside, running_card)}
