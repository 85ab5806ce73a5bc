"""Pages that lie in anybody's download folder: a blog, a mail, notes, a handout, cards, columns, pages of books."""
from collections import namedtuple
from html import escape

from printed.home_books import document, facts, given, group, listed, mark, notes, numbered, rows, split

# What surrounds a recipe, in its language: two sentences of talk, a reader's comment, tools, the ends of a letter.
Talk = namedtuple("Talk", "story aside comments praise tools toolList hello bye")
TALK = {
    "en": Talk("I first had this at my aunt's on a wet Sunday in March, and we have not stopped making it since.",
               "The leftovers, if there are any, are even better the next day.", "Comments",
               "Made this last night and everyone loved it!", "Equipment", "Large pan · sieve · wooden spoon",
               "Hi Tom, here it is at last, as promised on Saturday:", "Love to all of you, Helen"),
    "de": Talk("Das gab es bei meiner Tante an einem verregneten Sonntag, und seitdem machen wir es immer wieder.",
               "Am nächsten Tag schmeckt der Rest fast noch besser.", "Kommentare",
               "Gestern gemacht, alle waren begeistert!", "Geräte", "Großer Topf · Sieb · Kochlöffel",
               "Hallo Tom, hier ist es endlich, wie versprochen:", "Liebe Grüße, Helene"),
    "pt": Talk("Comi isto pela primeira vez em casa da minha tia, num domingo de chuva.",
               "No dia seguinte fica ainda melhor.", "Comentários", "Fiz ontem e todos adoraram!", "Utensílios",
               "Panela grande · peneira · colher de pau", "Olá Tomás, aqui está, como prometido:", "Beijos, Helena"),
    "da": Talk("Jeg fik det første gang hos min moster en regnfuld søndag.", "Resterne er endnu bedre dagen efter.",
               "Kommentarer", "Lavede den i går, alle var vilde med den!", "Redskaber", "Stor gryde · sigte · grydeske",
               "Hej Tom, her er den endelig, som lovet:", "Kærlig hilsen Helene"),
    "fr": Talk("Je l'ai mangé pour la première fois chez ma tante, un dimanche de pluie.",
               "Le lendemain, c'est encore meilleur.", "Commentaires", "Fait hier soir, tout le monde a adoré !",
               "Matériel", "Grande casserole · passoire · cuillère en bois", "Bonjour Tom, la voici, comme promis :",
               "Bises, Hélène"),
    "sv": Talk("Jag fick det först hos min moster en regnig söndag.", "Resterna är ännu godare dagen därpå.",
               "Kommentarer", "Lagade den i går, alla älskade den!", "Redskap", "Stor gryta · sil · träslev",
               "Hej Tom, här kommer det, som jag lovade:", "Kram, Helena"),
    "it": Talk("L'ho mangiato la prima volta da mia zia, una domenica di pioggia.",
               "Il giorno dopo è ancora più buono.", "Commenti", "Fatto ieri sera, è piaciuto a tutti!", "Utensili",
               "Pentola grande · colino · cucchiaio di legno", "Ciao Tommaso, eccola, come promesso:", "Baci, Elena"),
    "nl": Talk("Ik at dit voor het eerst bij mijn tante op een regenachtige zondag.",
               "De volgende dag smaakt het nog beter.", "Reacties", "Gisteren gemaakt, iedereen vond het heerlijk!",
               "Keukengerei", "Grote pan · zeef · houten lepel", "Hoi Tom, hier is het dan, zoals beloofd:",
               "Groetjes, Heleen"),
    "es": Talk("Lo comí por primera vez en casa de mi tía, un domingo de lluvia.", "Al día siguiente está aún mejor.",
               "Comentarios", "Lo hice anoche y a todos les encantó.", "Utensilios",
               "Olla grande · colador · cuchara de madera", "Hola Tomás, aquí la tienes, como te prometí:",
               "Besos, Elena"),
    "pl": Talk("Pierwszy raz jadłam to u cioci w deszczową niedzielę.", "Następnego dnia smakuje jeszcze lepiej.",
               "Komentarze", "Zrobiłam wczoraj, wszyscy byli zachwyceni!", "Sprzęt",
               "Duży garnek · sitko · drewniana łyżka", "Cześć Tomku, oto on, tak jak obiecałam:", "Ściskam, Helena"),
}


def talk(recipe):
    return TALK[recipe["language"]]


def photo(width, height, table="#b99468"):
    """A plate on a table, which fills its place as a photograph would."""
    return f"""<svg class=photo viewBox="0 0 300 200" preserveAspectRatio="xMidYMid slice" style="display: block;
        width: {width}; height: {height}"><rect width=300 height=200 fill={table} /><circle cx=150 cy=104 r=78
        fill=#f6f3ec /><circle cx=150 cy=104 r=60 fill=#e9e2d3 /><ellipse cx=147 cy=102 rx=46 ry=38 fill=#d28a3c />
        <ellipse cx=158 cy=92 rx=15 ry=9 fill=#6f9440 /><ellipse cx=130 cy=116 rx=10 ry=8 fill=#b6422b /></svg>"""


def steps(recipe, form, heading="<p class=group>{1}</p>"):
    """The steps in a form of number and text, those that only head others in another."""
    return "".join((form if number else heading).format(number, mark("step", text, "span"))
                   for number, text in numbered(recipe))


def blog(recipe, following, words):
    """A blog printed with all that its pages carry: menu, buttons, a story, the recipe's box, comments, a footer."""
    said = talk(recipe)
    return document(recipe, """@page { size: Letter; margin: 15mm 16mm } body { margin: 0; font: 10.5pt/1.5 Inter;
        color: #333 } .logo { font: 30pt Z003; text-align: center; color: #b0483a } nav { text-align: center;
        font-size: 8.5pt; border: solid #ddd; border-width: .6pt 0; padding: 4pt; margin: 2mm 0 6mm;
        word-spacing: 12pt } h1 { font: 26pt/1.2 P052; color: #222 } .by, .foot { font-size: 8.5pt; color: #888 }
        .share { margin: 3mm 0 } .share span { background: #b0483a; color: #fff; padding: 2pt 9pt; font-size: 8pt;
        border-radius: 3pt; margin-right: 5pt } .story p { margin: 3mm 0 } .box { border: 1.2pt solid #b0483a;
        border-radius: 4mm; padding: 5mm 7mm; margin: 6mm .5mm } .top { display: flex;
        gap: 6mm } .top h2 { font: 17pt/1.2 P052 } .top p { font-size: 9pt } .box h3 { font: bold 12.5pt P052;
        border-bottom: .6pt solid #ddd; margin: 5mm 0 2mm } .box ul li:not(.group)::before { content: "▢ ";
        font-family: "DejaVu Sans" } .group { font-weight: 600 } .row { display: flex; margin: 1.5mm 0;
        break-inside: avoid } .row b { flex: none; width: 7mm; color: #b0483a } .said { margin: 3mm 0;
        break-inside: avoid } .next { display: flex; gap: 5mm; margin: 3mm 0; break-inside: avoid } .next div {
        width: 40mm; font-size: 8.5pt }""",
        f"<title>{escape(recipe['title'])} - Butter and Thyme</title><p class=logo>Butter & Thyme</p>",
        "<nav>Blog Instagram Pinterest Newsletter RSS</nav>", mark("title", recipe["title"], "h1"),
        f"<p class=by>{escape(recipe['author'] or 'Helen')} · 14.03.2024 · ★★★★★ 4.8 (212)</p>",
        "<p class=share><span>Pinterest</span><span>Facebook</span><span>E-mail</span></p>", photo("100%", "85mm"),
        f"<div class=story>{given(recipe['intro'])}<p>{said.story}</p><p>{said.aside}</p></div>",
        f"<div class=box><div class=top>{photo('32mm', '32mm')}<div>", given(recipe["title"], "h2"),
        "<p>★★★★★ 4.8</p>", *facts(recipe, words), "</div></div>", mark("head", words["ingredients"], "h3"),
        f"<ul>{listed(recipe)}</ul>", mark("head", words["directions"], "h3"),
        steps(recipe, "<div class=row><b>{0}.</b>{1}</div>"), notes(recipe, words),
        f"<h3>{words['nutrition']}</h3><p class=by>412 kcal · 9 g · 51 g · 17 g</p></div>",
        f"<h2>{said.comments} (2)</h2><p class=said><b>Marie K.</b> 16.03.2024<br>{said.praise}</p>",
        f"<p class=said><b>jonas_81</b> 02.04.2024<br>★★★★★ {said.praise}</p><div class=next>",
        f"<div>{photo('40mm', '26mm', '#7d8f86')}{escape(following['title'])}</div>" if following is not recipe else "",
        "</div><p class=foot>© 2024 Butter & Thyme · Privacy · Cookies · Contact</p>")


def print_view(recipe, _, words):
    """What a recipe site's print button gives: a logo, a line of facts, the list in two columns, labelled steps."""
    return document(recipe, """@page { size: A4; margin: 14mm 18mm 16mm; @bottom-left {
        content: "www.potsandplates.example/r/48211"; font: 7.5pt "Nimbus Sans"; color: #777 } @bottom-right {
        content: counter(page) "/" counter(pages); font: 7.5pt "Nimbus Sans"; color: #777 } } body { margin: 0;
        font: 10.5pt/1.45 "Nimbus Sans" } header { display: flex; justify-content: space-between; align-items: center;
        border-bottom: 2pt solid #e2572b; padding-bottom: 3mm; color: #e2572b; font: bold 14pt "URW Gothic" } header
        small { font: 8pt "Nimbus Sans"; color: #777 } h1 { font: bold 22pt/1.2 "URW Gothic"; margin: 5mm 0 1mm }
        .stars { color: #e2a12b; font-size: 10pt } .facts { margin: 3mm 0; padding: 2mm 0; border: solid #ccc;
        border-width: .6pt 0; font-weight: bold; font-size: 9.5pt } .facts span + span::before { content: "|";
        color: #ccc; margin: 0 4mm } h2 { font: bold 13pt "URW Gothic"; margin: 5mm 0 2mm } ul { columns: 2;
        column-gap: 10mm } li { break-inside: avoid; padding: 1pt 0 } .group { font-weight: bold } .label {
        font-weight: bold; font-size: 9pt; color: #e2572b; margin-top: 3mm; break-after: avoid }""",
        "<header>pots&plates<small>16.09.2025</small></header>", mark("title", recipe["title"], "h1"),
        "<p class=stars>★★★★☆ <small>(87)</small></p>", given(recipe["intro"]),
        f"<p class=facts>{''.join(facts(recipe, words, 'span'))}</p>" if facts(recipe, words) else "",
        mark("head", words["ingredients"], "h2"), f"<ul>{listed(recipe)}</ul>",
        mark("head", words["directions"], "h2"),
        steps(recipe, f"<p class=label>{words['step']} {{0}}</p><p>{{1}}</p>"), notes(recipe, words))


def note(recipe, _, words):
    """A note exported from an app: properties under the title, bullets, numbers, links to other notes."""
    return document(recipe, """@page { size: A4; margin: 22mm 26mm } body { margin: 0; font: 11pt/1.55 Inter; color:
        #37352f } h1 { font: 700 28pt/1.2 Inter; margin: 2mm 0 5mm } .props { border-bottom: .6pt solid #e3e2de;
        padding-bottom: 4mm; margin-bottom: 4mm; font-size: 10pt } .props i { font-style: normal; color: #9b9a97;
        display: inline-block; width: 32mm } .tag { background: #fbe4d4; border-radius: 2pt; padding: 0 4pt;
        margin-right: 4pt } h2 { font: 600 16pt Inter; margin: 7mm 0 2mm } ul { list-style: disc; padding-left: 7mm } li
        { margin: 1mm 0 } li.group { list-style: none; font-weight: 600; margin-left: -7mm } ol { list-style: decimal;
        padding-left: 7mm } .callout { background: #f1f1ef; padding: 4mm; border-radius: 1.5mm } .links { margin-top:
        9mm; font-size: 9pt; color: #9b9a97 } u { color: #37352f } h3 { font: 600 13pt Inter }""",
        mark("title", recipe["title"], "h1"), "<div class=props><p><i>Tags</i><span class=tag>#cooking</span>",
        "<span class=tag>#weekend</span></p><p><i>Created</i>2023-11-04 18:22</p><p><i>Status</i>★★★★</p>",
        f"{''.join(facts(recipe, words))}</div>", given(recipe["intro"], "p", "class=callout"),
        mark("head", words["ingredients"], "h2"), f"<ul>{listed(recipe)}</ul>",
        mark("head", words["otherDirections"], "h2"), f"<ol>{steps(recipe, '<li>{1}</li>')}</ol>",
        notes(recipe, words), "<p class=links>2 backlinks: <u>Meal plan 2023-45</u>, <u>What we like</u></p>")


def typed_document(recipe, _, words):
    """A word processor's document in its ready-made styles: blue headings, a small table, round bullets, numbers."""
    cells = "".join(f"<td>{fact}</td>" for fact in facts(recipe, words, "span"))
    return document(recipe, """@page { size: Letter; margin: 1in; @top-right { content: "Family recipes.docx";
        font: 9pt "Nimbus Roman"; color: #666 } @bottom-center { content: counter(page); font: 10pt "Nimbus Roman" } }
        body { margin: 0; font: 12pt/1.25 "Nimbus Roman" } h1 { font: bold 20pt "Nimbus Sans"; color: #2e5597 } h2, h3 {
        font: bold 14pt "Nimbus Sans"; color: #2e5597; margin: 14pt 0 5pt } table { border-collapse: collapse;
        margin: 10pt 0 } td { border: .75pt solid #000; padding: 3pt 8pt } ul { list-style: disc; padding-left: .5in }
        ol { list-style: decimal; padding-left: .5in } .group { list-style: none; margin-left: -.25in;
        text-decoration: underline } li { padding-left: 4pt } ol li { margin-bottom: 5pt } .by { font-style: italic;
        margin-bottom: 8pt }""",
        mark("title", recipe["title"], "h1"), given(recipe["author"], "p", "class=by"), given(recipe["intro"]),
        f"<table><tr>{cells}</table>" if cells else "", mark("head", words["ingredients"], "h2"),
        f"<ul>{listed(recipe)}</ul>", mark("head", words["directions"], "h2"),
        f"<ol>{steps(recipe, '<li>{1}')}</ol>", notes(recipe, words))


def typewriter(recipe, _, words):
    """A sheet from a typewriter that has been scanned and recognised: a little askew, on yellowed paper."""
    lines = "".join(mark("ing", text, "p", group(text)) for text in recipe["ingredients"])
    return document(recipe, """@page { size: A4; margin: 28mm 24mm 24mm 30mm; background: #f4ecd6 } body { margin: 0;
        font: 11.5pt/1.5 "Nimbus Mono PS"; color: #33302c } body > * { transform: rotate(.35deg);
        transform-origin: 0 0 } h1 { font: bold 11.5pt "Nimbus Mono PS"; text-decoration: underline; margin-bottom: 9mm;
        text-align: center; letter-spacing: .12em } .list { margin: 5mm 0 6mm 16mm } .list p { padding-left: 8mm;
        text-indent: -8mm } .group { text-decoration: underline } .step { margin-bottom: 3.5mm } .right {
        text-align: right; margin-top: 8mm }""",
        mark("title", recipe["title"], "h1"), *facts(recipe, words), f"<div class=list>{lines}</div>",
        steps(recipe, "<p class=step>{1}</p>", "<p class=step>{1}</p>"), notes(recipe, words),
        given(recipe["author"] and f"({recipe['author']})", "p", "class=right"))


def newspaper(recipe, _, words):
    """A weekend paper's recipe in three columns: talk, then what is needed in one paragraph, then the method."""
    needed = "; ".join(mark("ing", text, "span", group(text)) for text in recipe["ingredients"])
    needed = needed.replace(":</span>;", ":</span>")
    said = talk(recipe)
    return document(recipe, """@page { size: A4; margin: 14mm 15mm } body { margin: 0; font: 10pt/1.32 "Nimbus Roman" }
        .mast { display: flex; justify-content: space-between; align-items: baseline; border: solid #000; border-width:
        2pt 0 .6pt; padding: 2pt 0; font: 8.5pt "Nimbus Sans" } .mast b { font: bold 13pt C059 } h1 { font: bold
        34pt/1.05 C059; margin: 6mm 0 3mm } .deck { font: italic 13pt/1.3 C059; margin-bottom: 4mm } main { columns: 3;
        column-gap: 6mm; column-rule: .4pt solid #999 } main p { text-indent: 4mm } main .flush { text-indent: 0;
        margin-bottom: 2mm } .by { font: bold 8.5pt "Nimbus Sans"; margin-bottom: 2mm } .meta p { text-indent: 0
        !important; font: 9pt/1.4 "Nimbus Sans" } .recipe { margin-top: 3mm; padding-top: 2mm; border-top: 1.5pt solid
        #000 } h3 { font: bold 10pt "Nimbus Sans" } .head { font: bold 9pt "Nimbus Sans" } .group { font-style: italic
        }""",
        "<div class=mast><b>The Saturday Courier</b><span>14 | 09 | 2019</span><span>Weekend 27</span></div>",
        mark("title", recipe["title"], "h1"), given(recipe["intro"], "p", "class=deck"), "<main>",
        f"<p class='by flush'>{escape(recipe['author'] or 'Helen Marsh')}</p><p class=flush>{said.story} {said.aside}",
        "</p>", photo("100%", "44mm", "#777"), "<div class=recipe><div class=meta>", *facts(recipe, words),
        f"</div><p class=flush>{mark('head', words['ingredients'] + ':', 'span', 'class=head')} {needed}.</p>",
        mark("head", words["otherDirections"] + ":", "p", "class='head flush'"),
        steps(recipe, "<p>{1}</p>", "<p class=flush>{1}</p>"), notes(recipe, words), "</div></main>")


def paperback(recipe, _, words):
    """A pocket cookbook, thrifty with paper: small type, amounts in a column, all the steps in one paragraph."""
    return document(recipe, """@page { size: A5; margin: 20mm 17mm 16mm 20mm; @top-left { content: "11" counter(page);
        font: 9pt "Nimbus Roman" } @top-right { content: "Suppers in a Hurry"; font: italic 9pt "Nimbus Roman" } } body
        { margin: 0; font: 10.5pt/1.3 "Nimbus Roman" } .top { display: flex; justify-content: space-between;
        align-items: baseline; gap: 6mm; border-bottom: .5pt solid #000; margin-bottom: 3mm } h1 { font: bold 14pt/1.2
        "Nimbus Roman" } .top div { text-align: right; font-style: italic; font-size: 9.5pt; flex: none } .note {
        margin-bottom: 3mm } table { margin: 0 0 3mm 5mm; border-spacing: 0; font-size: 10pt } td { padding: 0 6pt 0 0;
        vertical-align: top } .amount { white-space: nowrap } .lead { display: none } .group { font-style: italic } .run
        { text-align: justify } h3 { font-size: 10.5pt }""",
        f"<div class=top>{mark('title', recipe['title'], 'h1')}<div>{''.join(facts(recipe, words))}</div></div>",
        given(recipe["intro"], "p", "class=note"), f"<table>{rows(recipe)}</table><p class=run>",
        steps(recipe, "<b>{0}.</b> {1} ", "<i>{1}</i> "), "</p>", notes(recipe, words))


def illustrated(recipe, _, words):
    """A large cookbook: a picture fills the first page; on the next a narrow list stands beside wide paragraphs."""
    return document(recipe, """@page { size: 210mm 260mm; margin: 22mm 20mm 20mm; @bottom-right {
        content: "EVERYDAY SUPPERS · " counter(page); font: 7.5pt Inter; letter-spacing: .1em } } @page plate {
        margin: 0; @bottom-right { content: none } } body { margin: 0; font: 10.5pt/1.5 P052 } .plate { page: plate;
        height: 259.6mm; break-after: page; overflow: hidden } h1 { font: 300 32pt/1.1 "Inter Display" } .note {
        font: italic 11.5pt/1.5 P052; margin: 4mm 30mm 0 0; color: #555 } main { display: grid; margin-top: 10mm;
        grid-template-columns: 44mm 1fr; column-gap: 10mm; align-items: start } .list { font: 8.5pt/1.4 Inter }
        .list p { font-weight: 600; color: #a4532b } .list ul { border-top: 1pt solid #a4532b; margin-top: 2mm;
        padding-top: 2mm } .list li { margin-bottom: 1.5mm } .group { font-weight: 600 } .text p { margin-bottom: 3mm }
        h3 { font: 600 10pt Inter }""",
        f"<div class=plate>{photo('100%', '100%', '#4d5a55')}</div>", mark("title", recipe["title"], "h1"),
        given(recipe["intro"], "p", "class=note"), "<main><div class=list>", *facts(recipe, words),
        f"<ul>{listed(recipe)}</ul></div><div class=text>", steps(recipe, "<p>{1}</p>"), notes(recipe, words),
        "</div></main>")


def supermarket(recipe, _, words):
    """A shop's card to take home: picture and shopping list in front; steps, food values and small print behind."""
    return document(recipe, """@page { size: A5 landscape; margin: 9mm 10mm } body { margin: 0;
        font: 9pt/1.35 "Nimbus Sans" } .strip { background: #0b7a3b; color: #fff; font: bold 10pt "URW Gothic";
        padding: 3pt 8pt; display: flex; justify-content: space-between; margin-bottom: 4mm } .front { display: grid;
        grid-template-columns: 84mm 1fr; gap: 7mm; height: 112mm } h1 { font: bold 18pt/1.1 "URW Gothic";
        color: #0b7a3b; margin-bottom: 2mm } .facts { font-weight: bold; margin-bottom: 3mm } h2 {
        font: bold 11pt "URW Gothic"; color: #0b7a3b; margin-bottom: 1.5mm } .group { font-weight: bold } .price {
        background: #ffd400; font: bold 12pt "URW Gothic"; display: inline-block; padding: 3pt 8pt; margin-top: 3mm }
        .back { break-before: page } .cols { columns: 2; column-gap: 8mm } .row { display: flex; gap: 3mm;
        break-inside: avoid; margin-bottom: 2.5mm } .row b { flex: none; width: 6mm; color: #0b7a3b;
        font: bold 13pt/16pt "URW Gothic" } table { border-collapse: collapse; margin-top: 4mm; font-size: 7.5pt } td {
        border: .4pt solid #999; padding: 1pt 6pt } .small { font-size: 6.5pt; color: #666; margin-top: 2mm }""",
        "<div class=strip><span>GreenBasket</span><span>N° 214</span></div><div class=front><div>",
        photo("84mm", "96mm"), "<span class=price>€ 2.40</span></div><div>", mark("title", recipe["title"], "h1"),
        f"<div class=facts>{''.join(facts(recipe, words))}</div>", mark("head", words["ingredients"], "h2"),
        f"<ul>{listed(recipe)}</ul></div></div><div class=back><div class=strip><span>GreenBasket</span>",
        "<span>N° 214</span></div>", mark("head", words["directions"], "h2"), "<div class=cols>",
        steps(recipe, "<div class=row><b>{0}</b>{1}</div>"), f"</div>{notes(recipe, words)}<table><tr>",
        f"<td><b>{words['nutrition']}</b><td>1840 kJ / 440 kcal<td>18 g<td>52 g<td>14 g<td>1.2 g</table>",
        "<p class=small>greenbasket.example · 0800 555 0142 · © GreenBasket 2022 · 7 612345 002141</p></div>")


def lesson(recipe, _, words):
    """A cooking school's sheet: goods and tools in two boxes, the work in a table with room for one's own notes."""
    said = talk(recipe)
    tools = "".join(given(tool, "li") for tool in said.toolList.split(" · "))
    return document(recipe, """@page { size: Letter; margin: 16mm 18mm; @bottom-center {
        content: "Harbour Cooking School · Module 3 · " counter(page); font: 8pt "URW Gothic" } } body { margin: 0;
        font: 9.5pt/1.4 "DejaVu Serif" } .top { display: flex; justify-content: space-between;
        font: 9pt "URW Gothic"; color: #fff; background: #33475b; padding: 4pt 9pt } h1 {
        font: bold 21pt/1.2 "URW Gothic"; color: #33475b; margin: 5mm 0 2mm } .facts { display: flex; gap: 8mm;
        margin: 2mm 0 4mm; font-style: italic } .boxes { display: grid; grid-template-columns: 2fr 1fr; gap: 6mm;
        align-items: start } .box { border: .8pt solid #33475b; padding: 3mm 4mm } h2, h3 {
        font: bold 11.5pt "URW Gothic"; color: #33475b; margin-bottom: 2mm } li { margin: .6mm 0 } .group {
        font-weight: bold } .work { margin-top: 6mm; width: 100%; border-collapse: collapse } .work td {
        border-bottom: .4pt solid #aaa; padding: 5pt 6pt 5pt 0; vertical-align: top } .work tr { break-inside: avoid }
        .no { width: 8mm; font-weight: bold } td.own { width: 38mm; border-left: .4pt solid #aaa;
        padding-left: 6pt }
        .work h2 { text-align: left; margin: 0 } h3 { margin-top: 5mm }""",
        "<div class=top><span>Harbour Cooking School</span><span>Module 3</span></div>",
        mark("title", recipe["title"], "h1"), given(recipe["intro"]),
        f"<div class=facts>{''.join(facts(recipe, words))}</div><div class=boxes><div class=box>",
        mark("head", words["otherIngredients"], "h2"), f"<ul>{listed(recipe)}</ul></div><div class=box>",
        f"<h2>{said.tools}</h2><ul>{tools}</ul></div></div><table class=work><tr><td colspan=2>",
        mark("head", words["otherDirections"], "h2"), f"<td class=own><h2>{words['notes']}</h2>",
        steps(recipe, "<tr><td class=no>{0}<td>{1}<td class=own>", "<tr><td><td class=group>{1}<td class=own>"),
        "</table>", notes(recipe, words))


def slides(recipe, _, words):
    """A plain deck: a title slide, a slide of bullets, slides of numbered points."""
    return document(recipe, """@page { size: 10in 5.625in; margin: 13mm 18mm; @bottom-left {
        content: "Cooking club, autumn term"; font: 8pt Inter; color: #888 } @bottom-right { content: counter(page);
        font: 8pt Inter; color: #888 } } body { margin: 0; font: 13pt/1.35 Inter } .first { height: 110mm;
        display: flex; flex-direction: column; justify-content: center; text-align: center; break-after: page } h1 {
        font: 700 32pt/1.15 "Inter Display"; color: #6a1b4d; margin-bottom: 5mm } .first p { color: #555 } h2 {
        font: 700 22pt "Inter Display"; color: #6a1b4d; margin-bottom: 5mm } .second { break-before: page } ul {
        columns: 2; column-gap: 12mm; list-style: disc; padding-left: 6mm } li { break-inside: avoid;
        margin-bottom: 1mm } .group { list-style: none; margin-left: -5mm; font-weight: 600 } ol { list-style: decimal;
        padding-left: 9mm } ol li { margin-bottom: 2mm } h3 { font-size: 14pt }""",
        "<div class=first>", mark("title", recipe["title"], "h1"), given(recipe["author"]), *facts(recipe, words),
        "</div>", mark("head", words["ingredients"], "h2"), f"<ul>{listed(recipe)}</ul>",
        mark("head", words["directions"], "h2", "class=second"), f"<ol>{steps(recipe, '<li>{1}</li>')}</ol>",
        notes(recipe, words))


def facing(recipe, following, words):
    """An opened ring binder on one sheet: the recipe on its left page, somebody else's on the right."""
    def one(shown, kept):
        amounts = "".join(kept("ing", text, "li", group(text)) for text in shown["ingredients"])
        text = "".join(kept("step", step, "p", group(step) or "class=step") for step in shown["steps"])
        about = " · ".join(facts(shown, words, "span"))
        return f"""<section>{kept("title", shown["title"], "h1")}<p class=about>{about}</p><ul>{amounts}</ul>
            {text}{given(shown["author"], "p", "class=by")}</section>"""

    def plain(_, text, tag, more=""):
        return given(text, tag, more)

    other = one(following, plain).replace(" data-k=meta", "") if following is not recipe else "<section></section>"
    return document(recipe, """@page { size: Letter landscape; margin: 15mm 16mm; @top-center {
        content: "ST. BRENDAN'S SCHOOL  ·  OUR FAVOURITE RECIPES"; font: 8pt "URW Bookman"; color: #555 } }
        body { margin: 0; font: 9.5pt/1.35 "URW Bookman" } main { display: grid; grid-template-columns: 1fr 1fr }
        section { padding-right: 11mm } section + section { padding: 0 0 0 11mm; border-left: .5pt solid #999 } h1 {
        font: bold 14pt/1.2 "URW Bookman"; color: #355e3b } .about { font-style: italic; font-size: 8.5pt } ul {
        margin: 3mm 0 } .group { font-style: italic } .step { text-indent: 5mm } .by { text-align: right;
        font-weight: bold; margin-top: 2mm }""",
        f"<main>{one(recipe, mark)}{other}</main>")


def mail(recipe, _, words):
    """A printed e-mail in plain text: hyphens, numbers with brackets, a greeting, and the letter it answers."""
    said = talk(recipe)
    goods = "".join(f"<p>{mark('ing', text, 'span')}</p>" if text.endswith(":") else
                    f"<p class=item>- {mark('ing', text, 'span')}</p>" for text in recipe["ingredients"])
    return document(recipe, """@page { size: A4; margin: 16mm 18mm } body { margin: 0; font: 10.5pt/1.4 "Nimbus Sans" }
        .top { display: flex; justify-content: space-between; border-bottom: 1pt solid #bbb; font-size: 9pt;
        padding-bottom: 2mm } h1 { font: bold 15pt/1.3 "Nimbus Sans"; margin: 4mm 0 1mm } .from { font-size: 9pt;
        border: solid #bbb; border-width: .6pt 0; padding: 2mm 0; margin-bottom: 5mm; color: #444 } .gap {
        margin: 4mm 0 } .item { padding-left: 3mm; text-indent: -3mm } .quote { border-left: 1pt solid #bbb;
        padding-left: 3mm; color: #666; margin-top: 5mm } h3 { font-size: 10.5pt }""",
        "<div class=top><b>Postbox</b><span>Tom Marsh &lt;tom.marsh@mail.example&gt;</span></div>",
        mark("title", recipe["title"], "h1"), "<div class=from><p><b>Helen Marsh</b> &lt;helen@marsh.example&gt;</p>",
        f"<p>12.10.2021 21:47 · tom.marsh@mail.example</p></div><p class=gap>{said.hello}</p>",
        given(recipe["intro"], "p", "class=gap"), *facts(recipe, words), "<br>",
        mark("head", words["ingredients"] + ":"), goods, "<br>", mark("head", words["directions"] + ":"),
        steps(recipe, "<p class=item>{0}) {1}</p>", "<p>{1}</p>"), notes(recipe, words),
        f"<p class=gap>{said.aside}</p><p>{said.bye}</p><div class=quote><p>12.10.2021 19:05, Tom Marsh:</p>",
        f"<p>&gt; {escape(recipe['title'])}?</p><p>&gt; Tom</p></div>")


def meal_kit(recipe, _, words):
    """A meal kit's sheet: in front a picture and the name; behind, small pictured goods and boxes of steps in rows."""
    def good(text):
        if text.endswith(":"):
            return mark("ing", text, "p", "class=group")
        amount, unit, name = map(escape, split(text))
        return f"<div data-k=ing class=good><b>{amount} {unit}</b> <span>{name}</span></div>"

    return document(recipe, """@page { size: A4 landscape; margin: 11mm 12mm; @bottom-left { content:
        "freshcrate.example · 2023-W41"; font: 7pt Inter; color: #777 } } body { margin: 0; font: 9.5pt/1.35 Inter }
        .front { position: relative; height: 184mm; break-after: page } h1 { font: 800 26pt/1.15 "Inter Display";
        margin-top: 5mm } .facts { display: flex; gap: 8mm; color: #3a7d2c; font-weight: 600; margin-top: 2mm } .brand {
        font: 800 11pt Inter; color: #3a7d2c; margin-bottom: 4mm } h2 { font: 800 13pt "Inter Display"; color: #3a7d2c;
        margin-bottom: 3mm } .goods { display: grid; grid-template-columns: repeat(6, 1fr); gap: 4mm 4mm; margin-bottom:
        6mm; text-align: center; font-size: 8.5pt; line-height: 1.25 } .good { break-inside: avoid } .good::before {
        content: ""; display: block; width: 9mm; height: 9mm; border-radius: 50%; background: #e6dcc5; margin: 0 auto
        1mm } .good b, .good span { display: block } .goods .group { grid-column: 1 / -1; font-weight: 600; text-align:
        left } .steps { display: grid; grid-template-columns: repeat(4, 1fr); gap: 4mm 5mm } .tile { break-inside: avoid
        } .tile b { display: inline-block; background: #3a7d2c; color: #fff; width: 6mm; line-height: 6mm; text-align:
        center; border-radius: 1mm; margin: 1.5mm 0 1mm } .steps .group { grid-column: 1 / -1; font-weight: 600 }""",
        "<div class=front><p class=brand>FRESHCRATE</p>", photo("100%", "112mm", "#a7b79a"),
        mark("title", recipe["title"], "h1"), given(recipe["intro"]),
        f"<div class=facts>{''.join(facts(recipe, words))}</div></div>", mark("head", words["ingredients"], "h2"),
        f"<div class=goods>{''.join(map(good, recipe['ingredients']))}</div>",
        mark("head", words["directions"], "h2"), "<div class=steps>",
        steps(recipe, f"<div class=tile>{photo('100%', '17mm', '#c9b48e')}<b>{{0}}</b><p>{{1}}</p></div>"),
        "</div>", notes(recipe, words))


blog.header = True
LAYOUTS = {"daily-blog": blog, "daily-print-view": print_view, "daily-note": note, "daily-document": typed_document,
           "daily-typewriter": typewriter, "daily-newspaper": newspaper, "daily-paperback": paperback,
           "daily-illustrated": illustrated, "daily-supermarket": supermarket, "daily-lesson": lesson,
           "daily-slides": slides, "daily-facing": facing, "daily-mail": mail, "daily-meal-kit": meal_kit}
