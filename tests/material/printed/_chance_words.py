"""What the pages composed by lot say beside their recipe, and the papers that they are printed on."""

# By, save, jump to the recipe, start, recipes, advert, easy, keeping it (heading, sentence), a tip, equipment
# (heading, things), fat, carbohydrates, protein, all rights reserved, total time.
SAY = {language: line.split("|") for language, line in {
    "en": "By|Save|Jump to recipe|Home|Recipes|Advertisement|Difficulty: easy|Storage|Keeps in the fridge for up to three days in a closed box.|Read the whole recipe once before you begin.|Equipment|large bowl, wooden spoon, heavy pan|fat|carbs|protein|All rights reserved|Total time",
    "de": "Von|Merken|Zum Rezept|Start|Rezepte|Anzeige|Schwierigkeit: leicht|Aufbewahrung|Hält sich gut verschlossen drei Tage im Kühlschrank.|Vor dem Kochen alles einmal durchlesen.|Du brauchst außerdem|große Schüssel, Kochlöffel, schwere Pfanne|Fett|Kohlenhydrate|Eiweiß|Alle Rechte vorbehalten|Gesamtzeit",
    "da": "Af|Gem|Gå til opskriften|Forside|Opskrifter|Annonce|Sværhedsgrad: let|Opbevaring|Holder sig tre dage i køleskabet i en lukket boks.|Læs det hele igennem, før du begynder.|Redskaber|stor skål, grydeske, tung pande|fedt|kulhydrat|protein|Alle rettigheder forbeholdes|Tid i alt",
    "es": "Por|Guardar|Ir a la receta|Inicio|Recetas|Publicidad|Dificultad: fácil|Conservación|Se conserva tres días en la nevera bien tapado.|Lea todo una vez antes de empezar.|Utensilios|cuenco grande, cuchara de madera, sartén|grasas|hidratos|proteínas|Todos los derechos reservados|Tiempo total",
    "fr": "Par|Enregistrer|Aller à la recette|Accueil|Recettes|Publicité|Difficulté : facile|Conservation|Se garde trois jours au frais dans une boîte fermée.|Lisez tout une fois avant de commencer.|Ustensiles|grand saladier, cuillère en bois, poêle|lipides|glucides|protéines|Tous droits réservés|Temps total",
    "it": "Di|Salva|Vai alla ricetta|Home|Ricette|Pubblicità|Difficoltà: facile|Conservazione|Si conserva tre giorni in frigorifero ben chiuso.|Leggete tutto prima di cominciare.|Utensili|ciotola grande, cucchiaio di legno, padella|grassi|carboidrati|proteine|Tutti i diritti riservati|Tempo totale",
    "nl": "Door|Bewaren|Naar het recept|Home|Recepten|Advertentie|Moeilijkheid: makkelijk|Bewaren|Blijft afgesloten drie dagen goed in de koelkast.|Lees alles een keer door voor je begint.|Keukengerei|grote kom, houten lepel, zware pan|vet|koolhydraten|eiwit|Alle rechten voorbehouden|Totale tijd",
    "pl": "Autor:|Zapisz|Przejdź do przepisu|Start|Przepisy|Reklama|Trudność: łatwe|Przechowywanie|W zamkniętym pudełku wytrzyma trzy dni w lodówce.|Przed gotowaniem przeczytaj wszystko.|Przybory|duża miska, drewniana łyżka, patelnia|tłuszcz|węglowodany|białko|Wszelkie prawa zastrzeżone|Czas łącznie",
    "pt": "Por|Guardar|Ir para a receita|Início|Receitas|Publicidade|Dificuldade: fácil|Conservação|Conserva-se três dias no frigorífico em caixa fechada.|Leia tudo uma vez antes de começar.|Utensílios|tigela grande, colher de pau, frigideira|gordura|hidratos|proteína|Todos os direitos reservados|Tempo total",
    "sv": "Av|Spara|Till receptet|Hem|Recept|Annons|Svårighetsgrad: lätt|Förvaring|Håller tre dagar i kylen i en burk med lock.|Läs igenom allt innan du börjar.|Redskap|stor skål, träslev, tjock panna|fett|kolhydrater|protein|Med ensamrätt|Total tid",
}.items()}
# What English pages say besides the two words that every language has.
LIST_WORDS = {"Ingredients": 14, "You will need": 1, "For the recipe": .3, "Ingredient list": .5, "Ingredients list": .3}
METHOD_WORDS = {"Instructions": 8, "Preparation": 3, "Directions": 5, "Method": 5, "Steps": 1, "Procedure": .7, "How to make it": 1}
STORY = [
    "There are dishes you cook for guests and dishes you cook because it is Thursday. This one began as the second kind and has been moving up in the world ever since.",
    "My grandmother kept her recipes in a biscuit tin, on the backs of envelopes. Hers for this has no quantities at all, only the words \"until it looks right\".",
    "The market was nearly over when we came, and the woman at the last stall gave us everything that was left for the price of a coffee. This is what became of it.",
    "I have tried the short way and the long way. The long way wins, but only just, and the short way leaves you time to lay the table.",
    "People ask me whether it freezes. It does, for a month or so, though in this house it has never been put to the test.",
    "It is cheap, it is filling, and the children eat it. There is not much more to be said about a supper.",
    "Do not be put off by the look of it half way through. Everything comes together in the last few minutes.",
]
REASONS = ["One bowl, and little to wash up", "Nothing you have to send for", "Tastes as good the day after", "Children like to help"]
COMMENTS = [("Ruth", "Made this for my sister's birthday and there was none left. Thank you!"), ("Pavel", "A keeper. I used a little less salt."),
            ("Dotty B.", "Could I double it? We are eight on Sunday."), ("Anonymous", "Turned out well, though mine took ten minutes more."), ("Gwen", "Second time this week!")]
ADVERTS = ["Sharp for a lifetime: knives from Tolland & Sons", "Your kitchen, fitted in a week. Ask for our catalogue.", "Winter boots, now half price"]
PLACES = ["The Copper Spoon", "Salt & Thyme", "Granary Street Kitchen", "The Long Table", "Nettle and Plum"]
CHAPTERS = ["From the oven", "Suppers", "Sundays", "For a crowd", "Everyday cooking", "The family table"]
TYPES = {  # Of a kind of paper: faces of text and of headings, sheets and their margins.
    "site": ({"Inter": 4, "Nimbus Sans": 4, "DejaVu Sans": 2, "DejaVu Serif": 1, "P052": 2, "Nimbus Roman": 1}, {"Inter": 3, "Nimbus Sans": 3, "P052": 2, "C059": 1, "URW Gothic": 1, "Narrow": 1, "DejaVu Serif": 1},
             {"A4": 6, "Letter": 5, "Legal": .2}, {"10mm": 4, "12mm 14mm": 3, "15mm": 2, "20mm 25mm": 1}),
    "print view": ({"Nimbus Sans": 5, "Inter": 3, "Nimbus Roman": 2, "DejaVu Sans": 1}, {"inherit": 6, "Nimbus Sans": 2, "C059": 1, "P052": 1}, {"A4": 6, "Letter": 5, "A5": .5}, {"10mm": 3, "15mm": 3, "18mm": 1, "25mm": 1}),
    "book": ({"C059": 3, "P052": 3, "Nimbus Roman": 3, "URW Bookman": 2, "Nimbus Sans": 1}, {"inherit": 5, "URW Gothic": 1, "Nimbus Sans": 2, "Narrow": 1, "C059": 1, "Z003": .4},
             {"A4": 4, "Letter": 2, "A5": 2, "152mm 229mm": 3, "190mm 235mm": 3, "210mm 210mm": 1}, {"15mm": 2, "18mm": 3, "20mm 18mm 24mm": 3, "22mm 15mm 20mm 25mm": 1}),
    "magazine": ({"Nimbus Roman": 2, "Nimbus Sans": 3, "C059": 2, "Inter": 2, "P052": 1}, {"URW Gothic": 2, "Narrow": 3, "C059": 2, "Nimbus Sans": 2, "Inter": 1}, {"A4": 5, "Letter": 4, "210mm 275mm": 3}, {"12mm": 2, "15mm": 3, "18mm 15mm": 2}),
    "app": ({"Inter": 5, "Nimbus Sans": 4, "DejaVu Sans": 3}, {"inherit": 1}, {"A4": 6, "Letter": 4, "A5": 1, "110mm 220mm": .7}, {"10mm": 3, "14mm": 3, "20mm": 2}),
    "typescript": ({"Nimbus Mono PS": 4, "Noto Sans Mono": 1, "Nimbus Roman": 6, "DejaVu Sans": 1, "Nimbus Sans": 3, "URW Bookman": 1}, {"inherit": 1}, {"A4": 5, "Letter": 5, "A5": .5}, {"20mm": 3, "25mm": 4, "30mm 25mm": 1}),
    "card": ({"Nimbus Roman": 3, "C059": 2, "URW Bookman": 2, "Nimbus Sans": 2, "Nimbus Mono PS": 1}, {"inherit": 3, "Z003": 2, "URW Gothic": 1}, {"A5 landscape": 5, "A5": 3, "A4": 2, "152mm 102mm": 1}, {"9mm": 2, "11mm 13mm": 3, "14mm": 1}),
}
COLOURS = {"#222": 6, "#a33b20": 2, "#2f6b4f": 2, "#20587c": 2, "#8a5a9c": 1, "#b8741a": 1.5, "#c2185b": 1, "#666": 1}
