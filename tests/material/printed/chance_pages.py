"""Pages composed by lot: each a layout of its own, of the choices that sites, books, apps and families make."""
import re
from html import escape

from printed._chance_parts import (Sheet, above, advert, after_method, below, fact_block, list_part, method_part, named,
                                   running_lines, title_block)
from printed._chance_words import REASONS, STORY, TYPES
from printed._parts import paragraphs, title


def type_area(sheet):
    body, heads, _, margins = TYPES[sheet.kind]
    size = {8: .5, 8.5: 1, 9: 3, 9.5: 2, 10: 1} if sheet.small else {9: 1, 9.5: 1, 10: 4, 10.5: 2, 11: 4, 12: 3, 13: .7, 14: .3}
    size = sheet.pick("size", size)
    margin = "15mm" if sheet.header else sheet.pick("margin", margins)  # Within which the browser prints its lines.
    aligned = "text-align: justify; hyphens: auto" if sheet.often("justified", .4 if sheet.kind in ("book", "magazine") else .06) else ""
    sheet.style(f"@page {{ size: {sheet.paper}; margin: {margin} }} body {{ font: {size}pt/{sheet.pick('leading', {1.25: 1, 1.35: 3, 1.45: 4, 1.55: 2, 1.7: 1})} {sheet.pick('face', body)}, serif; {aligned} }}")
    face = sheet.pick("head face", heads)
    scale = sheet.pick("title scale", {1.3: 1, 1.6: 2, 1.9: 3, 2.2: 3, 2.7: 2, 3.3: .7} if not sheet.small else {1.3: 1, 1.6: 3, 1.9: 2})
    if sheet.kind == "typescript":
        scale = min(scale, 1.6)
    case = {"": 12, "text-transform: uppercase": 2, "font-variant: small-caps": 1, "text-transform: uppercase; letter-spacing: .12em": 1, "letter-spacing: .04em": 1}
    if face == "Z003":
        case = {"": 1}
    sheet.style(f"h1, h2.name {{ background: none; border: 0; padding: 0; text-decoration: none; font: {sheet.pick('title weight', {'700': 6, '400': 4, 'italic 400': 1})} {scale}em/1.15 {face}; color: {sheet.pick('title colour', {'inherit': 2, sheet.accent: 1})}; margin: 0 0 .35em; text-align: left; {sheet.pick('title case', case)} }}")
    shape = {"": 10, f"border-bottom: 1pt solid {sheet.accent}; padding-bottom: .15em": 3, "text-decoration: underline": .6, f"background: {sheet.accent}; color: #fff; padding: .15em .5em": .7,
             f"border-left: 3pt solid {sheet.accent}; padding-left: .5em": .6, f"border-top: .7pt solid {sheet.accent}; padding-top: .3em": .8, "text-align: center": 1}
    if sheet.kind == "typescript":
        shape = {"": 5, "text-decoration: underline": 4, "text-align: center": 1}
    weight = sheet.pick("head weight", {"700": 8, "400": 2, "italic 700": 1, "italic 400": 1})
    sheet.style(f"h2 {{ font: {weight} {sheet.pick('head scale', {1: 1, 1.1: 2, 1.25: 3, 1.45: 2, 1.7: 1})}em/1.2 {face}; color: {sheet.accent}; margin: 1em 0 .4em; text-align: left; {sheet.pick('head case', case)}; {sheet.pick('head shape', shape)} }} h3 {{ font: 700 1.05em/1.3 {face}; margin: .9em 0 .3em }}")


def framed(sheet):
    """A tint or a border about the list."""
    if sheet.kind != "typescript" and sheet.often("framed", .15):
        sheet.style(f".list {{ {sheet.pick('frame', {'background: #f4f1e8': 3, 'border: .8pt solid ' + sheet.accent: 2, 'background: #eaf1ee': 1, 'border: 1pt dashed #888': .5})}; padding: .6em 1em; box-decoration-break: clone }} .list h2:first-child {{ margin-top: .2em }}")


def arrangement(sheet):
    """How ingredients and method stand to each other."""
    wide, landscape = not sheet.small, sheet.paper == "A5 landscape"
    how = sheet.pick("arrangement", {
        "below": 14, "list columns": 3 * (len(sheet.recipe["ingredients"]) > 5), "method first": .8, "method columns": 1.5 * wide, "grid left": 3.5 * wide + 2 * landscape, "grid right": 1.5 * wide,
        "float left": wide, "float right": wide + .3 * landscape, "table left": wide, "all columns": 1.5 * wide + landscape, "sidebar": 2 * wide, "heads in margin": .8 * wide})
    return "below" if how == "method first" and named(sheet) != "both" else how


def arranged(sheet):
    """What stands at the title, and below it ingredients and method with the facts and notes they carry."""
    how = arrangement(sheet)
    beside = how in ("grid left", "grid right", "float left", "float right", "table left", "sidebar")
    sheet.narrow_list = beside or how == "all columns"
    if how == "list columns":
        longest = max(map(len, sheet.recipe["ingredients"]))
        sheet.pick("list columns", {3: 1, 2: 2} if longest < 34 and not sheet.small else {2: 1})
        sheet.style(f".ing {{ columns: {sheet.drawn['list columns']}; column-gap: 2em }} .ing li {{ break-inside: avoid }}")
    if sheet.narrow_list:
        sheet.style(f"h2 {{ font-size: {min(1.15, sheet.drawn['head scale'])}em; letter-spacing: normal }}")
    framed(sheet)
    place = sheet.pick("facts place", {"title": 12, "list": 4 * beside, "end": .8})
    told = fact_block(sheet)
    lines, method = list_part(sheet, told if place == "list" else ""), method_part(sheet)
    extra = (told if place == "end" else "") + after_method(sheet)
    if how == "below" and sheet.kind == "site" and sheet.often("between", .08):
        lines += sheet.pick("between what", {advert(sheet): 2, "<div class='image item' style='height: 45mm; margin: 4mm 0'></div>": 2})
    return told if place == "title" else "", placed(sheet, how, lines, method, extra)


def placed(sheet, how, lines, method, extra):
    width = sheet.pick("list width", {"48mm": 2, "55mm": 3, "62mm": 2, "36%": 1} if not sheet.small else {"48mm": 1, "36%": 1})
    gap = sheet.pick("gutter", {"7mm": 2, "9mm": 2, "12mm": 1})
    sides = f"<div class=sides><div class=one>{lines}</div><div class=two>{method}</div></div>{extra}"
    if how == "grid left":
        sheet.style(f".sides {{ display: grid; grid-template-columns: {width} 1fr; gap: {gap} }} .two {{ {sheet.pick('rule between', {'': 4, f'border-left: .7pt solid {sheet.accent}; padding-left: {gap}': 1})} }}")
    elif how == "grid right":
        sheet.style(f".sides {{ display: grid; grid-template-columns: 1fr {width}; gap: {gap} }} .one {{ grid-column: 2; grid-row: 1 }} .two {{ grid-column: 1; grid-row: 1 }}")
    elif how == "table left":
        return f"<table style='width: 100%'><tr style='break-inside: auto'><td style='width: {width}; padding-right: {gap}'>{lines}</td><td>{method}</td></tr></table>{extra}"
    elif how in ("float left", "float right"):
        side, other = ("left", "right") if how == "float left" else ("right", "left")
        sheet.style(f".one {{ float: {side}; width: {width}; margin-{other}: 11mm; margin-bottom: 4mm }} .two h2 {{ display: flow-root }}")
    elif how == "sidebar":
        shade = sheet.pick("sidebar", {"background: #f2efe8; padding: 4mm": 2, "background: #e9f0ee; padding: 4mm": 1, f"border-right: .7pt solid {sheet.accent}; padding-right: 5mm": 2})
        sheet.style(f".sides {{ display: grid; grid-template-columns: 58mm 1fr; gap: 8mm }} .one {{ {shade}; align-self: start; font-size: .93em }} .one h2:first-child {{ margin-top: 0 }} .one .list, .one .extras {{ padding: 0; border: 0; background: none }}")
        return f"<div class=sides><div class=one>{lines}{extra}</div><div class=two>{method}</div></div>"
    elif how == "all columns":
        sheet.style(f".flow {{ columns: 2; column-gap: {gap}; {sheet.pick('column rule', {'': 2, 'column-rule: .5pt solid #999': 1})} }} .flow > section:first-child h2:first-child {{ margin-top: 0 }}")
        return f"<div class=flow>{lines}{method}{extra}</div>"
    elif how == "method first":
        return method + lines + extra
    else:
        if how == "heads in margin":
            sheet.style("section { display: grid; grid-template-columns: 34mm 1fr; gap: 5mm; margin-top: 4mm } section > h2 { margin: 0; font-size: 1em; break-after: auto } section > :not(h2) { grid-column: 2 } .gap { display: none }")
        elif how == "method columns":
            sheet.style(f".do {{ columns: 2; column-gap: {gap} }}")
        return lines + method + extra
    return sides


def another_recipe(sheet):
    """Now and then the next recipe follows, which is none of what this page's reader should find."""
    if sheet.following is sheet.recipe or not sheet.often("another", .05):
        return ""
    sheet.recipe, kept = sheet.following, sheet.recipe
    top, body = arranged(sheet)
    shown = f"<div style='clear: both; margin-top: 12mm'>{title_block(sheet, top)}{body}</div>"
    sheet.recipe = kept
    return re.sub(r" data-k=\w+", "", shown)


def composed(sheet):
    type_area(sheet)
    top, core = arranged(sheet)
    story = sheet.kind == "site" and sheet.in_english and sheet.often("story", .22)
    if story:
        start = sheet.pick("story from", {0: 1, 1: 1, 2: 1})
        reasons = f"<h2>Why we like it</h2><ul style='list-style: disc; padding-left: 1.3em'>{paragraphs(REASONS, 'li')}</ul>" if sheet.often("reasons", .4) else ""
        told = paragraphs(STORY[start:start + sheet.pick("story length", {2: 2, 3: 2, 5: 1})])
        sheet.style(f".card {{ {sheet.pick('card', {'border: 1.5pt solid ' + sheet.accent: 2, 'border: 1pt solid #ccc': 2, 'background: #faf6ee': 1, 'border-top: 3pt double #999': 1})}; padding: 5mm 6mm; margin: 6mm 0; box-decoration-break: clone }}")
        recipe_card = title_block(sheet, top, "h2 class=name").replace(" data-k=title", "")
        core = f"{title(sheet.recipe)}{told}{reasons}<div class=card>{recipe_card}{core}</div>"
    else:
        core = title_block(sheet, top) + core
    body = above(sheet) + core + another_recipe(sheet) + "<div style='clear: both'></div>" + below(sheet)
    running_lines(sheet)
    return f"<!doctype html><html lang={sheet.recipe['language']}><meta charset=utf-8><title>{escape(sheet.recipe['title'])}</title><style>{' '.join(sheet.styles)}</style><body>{body}"


def by_chance(name, header):
    def page(recipe, following, words):
        return composed(Sheet(name, recipe, following, words, header))
    page.header = header
    return page


LAYOUTS = {name: by_chance(name, name in ("chance-2", "chance-5")) for name in (f"chance-{n}" for n in range(1, 7))}
