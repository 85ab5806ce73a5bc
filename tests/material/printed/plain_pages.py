"""Pages as sites print them: one plain, one with the ingredients beside the method."""
from html import escape


def marked(kind, texts, tag="p"):
    return "".join(f"<{tag} data-k={kind}>{escape(text)}</{tag}>" for text in texts)


def plain(recipe, _, words):
    return f"""<!doctype html><meta charset=utf-8><style>
        body {{ font: 12pt/1.5 Inter; margin: 1cm }} h1 {{ font-size: 26pt }} li {{ margin: 3pt 0 }}</style>
        <h1 data-k=title>{escape(recipe["title"])}</h1><p>{escape(recipe["intro"])}</p>
        <h2 data-k=head>{words["ingredients"]}</h2><ul>{marked("ing", recipe["ingredients"], "li")}</ul>
        <h2 data-k=head>{words["directions"]}</h2><ol>{marked("step", recipe["steps"], "li")}</ol>"""


def beside(recipe, _, words):
    return f"""<!doctype html><meta charset=utf-8><style>
        body {{ font: 11pt/1.4 "DejaVu Serif"; margin: 0 }} main {{ display: grid; grid-template-columns: 1fr 2fr; gap: 24pt }}
        section p {{ margin: 0 0 4pt }}</style>
        <h1 data-k=title>{escape(recipe["title"])}</h1><main>
        <section><h3 data-k=head>{words["ingredients"]}</h3>{marked("ing", recipe["ingredients"])}</section>
        <section><h3 data-k=head>{words["directions"]}</h3>{marked("step", recipe["steps"])}</section></main>"""


plain.header = True
LAYOUTS = {"printed-plain": plain, "printed-beside": beside}
