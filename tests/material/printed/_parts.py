"""Pieces of printed pages that several sets share: words of sites, headings, facts, entries and steps."""
import re
from html import escape

FURNITURE = {  # print, share, rate, comments, more like this, leave the letter, tips
    "de": ("Drucken", "Teilen", "Bewerten", "Kommentare", "Das könnte auch schmecken", "Abmelden", "Gut zu wissen"),
    "da": ("Udskriv", "Del", "Bedøm", "Kommentarer", "Måske kan du også lide", "Afmeld", "Godt at vide"),
    "es": ("Imprimir", "Compartir", "Valorar", "Comentarios", "También te puede gustar", "Darse de baja", "Trucos"),
    "fr": ("Imprimer", "Partager", "Noter", "Commentaires", "À découvrir aussi", "Se désabonner", "Bon à savoir"),
    "it": ("Stampa", "Condividi", "Vota", "Commenti", "Ti potrebbe piacere", "Disiscriviti", "Da sapere"),
    "nl": ("Afdrukken", "Delen", "Beoordeel", "Reacties", "Ook lekker", "Uitschrijven", "Goed om te weten"),
    "pl": ("Drukuj", "Udostępnij", "Oceń", "Komentarze", "Może ci też zasmakować", "Wypisz się", "Warto wiedzieć"),
    "pt": ("Imprimir", "Partilhar", "Avaliar", "Comentários", "Também pode gostar", "Cancelar", "Bom saber"),
    "sv": ("Skriv ut", "Dela", "Betygsätt", "Kommentarer", "Du kanske också gillar", "Avsluta", "Bra att veta"),
}
ENGLISH = ("Print", "Share", "Rate", "Comments", "You may also like", "Unsubscribe", "Good to know")
UNITS = (r"(?:g|kg|mg|ml|cl|dl|l|oz|lbs?|pounds?|cups?|tsp|tbsp|tbs|teaspoons?|tablespoons?|cloves?|cans?|sticks?|EL|TL|"
         r"Prise|msk|tsk|krm|spsk|cucharadas?|cuillères?|stk|szt|łyżk[ai]|łyżeczk[ai])\.?")
AMOUNT = re.compile(rf"((?:[~\d½¼¾⅓⅔⅛][\d\s½¼¾⅓⅔⅛./,–-]*)(?:{UNITS}(?=\s))?)\s+(\S.*)$", re.S)

# By its family name the browser is handed the Type 1 file of this face, which it cannot use.
NARROW = "".join(f"@font-face {{ font-family: Narrow; font-weight: {weight}; src: local('NimbusSansNarrow-{style}') }}"
                 for weight, style in ((400, "Regular"), (700, "Bold")))


def furniture(recipe):
    return FURNITURE.get(recipe["language"], ENGLISH)


def title(recipe, tag="h1"):
    return f'<{tag} data-k=title>{escape(recipe["title"])}</{tag.split()[0]}>'


def head(text, tag="h2"):
    return f"<{tag} data-k=head>{escape(text)}</{tag}>"


def paragraphs(texts, tag="p"):
    return "".join(f"<{tag}>{escape(text)}</{tag.split()[0]}>" for text in texts if text)


def facts(recipe, words):
    """What is known of portions and times, as pairs of label and value."""
    named = ((words["prep"], "prepTime"), (words["cook"], "cookTime"), (words["yield"], "yield"))
    return [(escape(label), escape(recipe[key])) for label, key in named if recipe[key]]


def facts_as(recipe, words, shape):
    return "".join(shape.format(label=label, value=value) for label, value in facts(recipe, words))


def amount_and_name(text):
    found = AMOUNT.match(text)
    return (escape(found[1].strip()), escape(found[2])) if found else ("", escape(text))


def bold_amount(text):
    amount, name = amount_and_name(text)
    return f"<b>{amount}</b> {name}" if amount else name


def ingredients(recipe, item="<li data-k=ing>{}</li>", group="<li class=group data-k=ing>{}</li>", bare=False,
                shape=escape):
    """The entries in turn; a group's heading with its colon or `bare`."""
    def entry(text):
        if not text.endswith(":"):
            return item.format(shape(text))
        return group.format(escape(text.rstrip(": ") if bare else text))
    return "".join(entry(text) for text in recipe["ingredients"])


def steps(recipe, shape="<li data-k=step>{text}</li>"):
    return "".join(shape.format(text=escape(text), n=n) for n, text in enumerate(recipe["steps"], 1))


def notes(recipe, words, tag="h3"):
    listed = paragraphs(recipe["notes"], "li")
    return f"<{tag}>{words['notes']}</{tag}><ul class=notes>{listed}</ul>" if listed else ""
