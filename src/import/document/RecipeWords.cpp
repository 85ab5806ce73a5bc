#include "import/document/RecipeWords.h"

namespace ovrin {

namespace {

/// "a|b c|d" as a list: the tables below stay readable.
QStringList listed(const char16_t* words)
{
    return QString::fromUtf16(words).split(u'|');
}

QSet<QString> asSet(const QStringList& words)
{
    return {words.begin(), words.end()};
}

} // namespace

const QStringList& RecipeWords::ingredientHeadings()
{
    static const QStringList words =
        listed(u"ingredients|ingredient list|what you’ll need|what you'll need|what you need|you will need|"
               u"you’ll need|you'll need|shopping list|for the recipe|for this recipe|"
               u"zutaten|zutatenliste|das brauchst du|das brauchen sie|du brauchst|man nehme|"
               u"ingrédients|les ingrédients|liste des ingrédients|il vous faut|il faut|"
               u"ingredientes|los ingredientes|necesitas|vas a necesitar|lista de ingredientes|"
               u"ingredienti|gli ingredienti|occorrente|lista degli ingredienti|"
               u"ingrediënten|ingredienten|dit heb je nodig|wat heb je nodig|dit heeft u nodig|"
               u"você vai precisar|vai precisar de|"
               u"składniki|lista składników|potrzebne składniki|czego potrzebujesz|"
               u"ingredienser|det här behöver du|du behöver|du skal bruge|det skal du bruge");
    return words;
}

const QStringList& RecipeWords::directionHeadings()
{
    static const QStringList words = listed(
        u"directions|instructions|method|preparation|steps|procedure|how to make it|how to make|what to do|"
        u"cooking instructions|cooking directions|preparation method|how to prepare|cooking method|"
        u"the method|let’s cook|let's cook|making it|to make|how to cook|preparation steps|"
        u"how to prepare it|how it’s made|how it's made|here’s how|here's how|"
        u"zubereitung|anleitung|so geht’s|so geht's|so geht es|so wird’s gemacht|so wird's gemacht|"
        u"so wird es gemacht|zubereitungsschritte|arbeitsschritte|vorgehen|schritte|"
        u"préparation|la préparation|étapes|les étapes|étapes de préparation|réalisation|méthode|"
        u"préparation de la recette|comment faire|"
        u"preparación|la preparación|elaboración|instrucciones|pasos|modo de preparación|"
        u"cómo se hace|cómo hacerlo|cómo se prepara|así se hace|"
        u"preparazione|la preparazione|procedimento|il procedimento|istruzioni|come si prepara|come si "
        u"fa|esecuzione|"
        u"bereiding|bereidingswijze|werkwijze|instructies|stappen|zo maak je het|zo doe je het|aan de slag|"
        u"modo de preparo|modo de fazer|modo de preparação|preparação|preparo|instruções|como fazer|como se "
        u"faz|passos|"
        u"przygotowanie|sposób przygotowania|wykonanie|sposób wykonania|instrukcje|jak zrobić|kroki|"
        u"gör så här|så här gör du|så gör du|instruktioner|tillagning|tillvägagångssätt|"
        u"fremgangsmåde|sådan gør du|tilberedning|sådan laver du det");
    return words;
}

const QStringList& RecipeWords::otherHeadings()
{
    static const QStringList words = listed(
        u"notes|note|recipe notes|cook’s notes|cook's notes|cook’s note|cook's note|tips|tip|recipe tips|"
        u"chef’s tips|chef's tips|chef’s tip|chef's tip|top tips|top tip|pro tips|tips and tricks|hints|"
        u"nutrition|nutrition facts|nutritional information|nutrition information|nutritional facts|"
        u"nutrition per serving|per serving|nutritional values|nutrition (per serving)|"
        u"equipment|tools|special equipment|equipment needed|you might also like|you may also like|"
        u"related recipes|more recipes|similar recipes|recommended|reviews|comments|leave a comment|"
        u"leave a reply|ratings|about the author|did you make this recipe|did you make this|storage|"
        u"make ahead|make-ahead|variations|variation|substitutions|serving suggestions|serving suggestion|"
        u"to store|faq|faqs|video|tags|keywords|filed under|share this|sources|subscribe|newsletter|"
        u"popular recipes|trending|latest recipes|follow us|next week|next month|next time|in the next issue|"
        u"more from|coming up|good to know|why we like it|why we love it|why you’ll love it|"
        u"why you'll love it|"
        u"gut zu wissen|aufbewahrung|notizen|hinweise|hinweis|anmerkungen|anmerkung|tipp|tipps|nährwerte|"
        u"nährwertangaben|nährwerte pro portion|das könnte dir auch gefallen|"
        u"das könnte ihnen auch schmecken|kommentare|utensilien|küchengeräte|weitere rezepte|"
        u"bon à savoir|remarques|astuces|astuce|conseils|conseil|valeurs nutritionnelles|commentaires|"
        u"matériel|ustensiles|vous aimerez aussi|"
        u"bueno saberlo|conservación|variaciones|notas|nota|consejos|consejo|trucos|"
        u"información nutricional|valores nutricionales|comentarios|utensilios|también te puede gustar|"
        u"buono a sapersi|consigli|consiglio|valori nutrizionali|commenti|conservazione|attrezzatura|"
        u"varianti|ti potrebbe piacere|"
        u"goed om te weten|bewaren|notities|voedingswaarden|voedingswaarde|reacties|keukengerei|"
        u"dit vind je misschien ook lekker|"
        u"bom saber|conservação|dicas|dica|informação nutricional|informações nutricionais|comentários|"
        u"utensílios|você também pode gostar|"
        u"warto wiedzieć|przechowywanie|uwagi|wskazówki|wskazówka|porady|wartości odżywcze|komentarze|"
        u"notatki|sprzęt|może ci też zasmakować|może ci się spodobać|zobacz też|"
        u"bra att veta|förvaring|noteringar|anteckningar|näringsvärde|näringsinnehåll|kommentarer|"
        u"utrustning|"
        u"godt at vide|opbevaring|noter|næringsindhold|udstyr|du vil måske også kunne lide");
    return words;
}

const QSet<QString>& RecipeWords::noise()
{
    static const QSet<QString> words = asSet(listed(
        u"cook|save|saved|share|scale|print|jump to recipe|read the story|start cooking|mark as cooked|"
        u"add notes|customize units|add to grocery list in reminders|add to grocery list|"
        u"recipe units are from the publisher.|save recipe|rate|review|reviews|comments|advertisement|"
        u"ready to cook?|jump to|pin|email|more"));
    return words;
}

const QSet<QString>& RecipeWords::connectors()
{
    static const QSet<QString> words =
        asSet(listed(u"and|or|but|the|a|an|of|to|in|into|with|for|over|until|then|on|at|by|from|about"));
    return words;
}

const QSet<QString>& RecipeWords::modifiers()
{
    static const QSet<QString> words = asSet(listed(
        u"fresh|freshly|finely|coarsely|roughly|thinly|lightly|very|large|small|medium|medium-sized|"
        u"medium-size|big|whole|ground|dried|dry|smoked|white|red|green|black|brown|yellow|dark|light|"
        u"heavy|hot|cold|warm|sweet|sour|salted|unsalted|raw|ripe|baby|wild|plain|extra|virgin|"
        u"extra-virgin|olive|vegetable|vanilla|baking|bell|bay|soy|sesame|sea|kosher|all-purpose|"
        u"self-raising|granulated|powdered|caster|icing|unsweetened|boneless|skinless|lean|pickled|"
        u"canned|tinned|italian|french|greek|spanish|chinese|mexican|irish|english|balsamic|"
        u"worcestershire|cayenne|curry|cherry|plum|spring|full-fat|low-fat|free-range|flat-leaf|good|"
        u"quality|neutral|peanut|oyster|hoisin|hard-boiled|soft-boiled|low-sodium|"
        u"jigger|condensed|evaporated|double|minced|grated|shredded|crushed|cooked|"
        u"frischer|frische|frisches|frischen|gemahlener|gemahlene|gemahlenes|gehackte|geriebener|geriebene|"
        u"getrocknete|große|kleine|mittelgroße|rote|grüne|gelbe|weiße|weißer|schwarzer|schwarze|brauner|"
        u"verse|gemalen|gehakte|geraspelde|gedroogde|grote|rode|groene|gele|witte|zwarte|bruine|"
        u"färsk|färska|hackad|riven|malen|torkad|stora|röd|röda|grön|gröna|svart|vita|"
        u"frisk|friske|hakket|revet|malet|tørret|store|rød|røde|grønne|sort|"
        u"świeży|świeża|świeże|mielony|mielona|duża|duże|mała|małe|czerwona|zielona|biała|czarny|"
        u"grande|petit|petite|grosse|gros|gran"));
    return words;
}

const QSet<QString>& RecipeWords::cookingVerbs()
{
    static const QSet<QString> words = asSet(listed(
        u"add|adjust|after|allow|apply|arrange|assemble|bake|baste|beat|begin|blend|boil|braise|break|bring|"
        u"brown|brush|"
        u"butterfly|carefully|carve|check|chill|chop|crack|crumble|debone|dissolve|empty|ensure|finally|"
        u"fluff|form|get|"
        u"give|halve|keep|loosen|moisten|next|open|optionally|pierce|plunge|prick|proceed|push|reheat|"
        u"reserve|rotate|"
        u"run|scald|scramble|seal|secure|skewer|smash|smear|snip|stack|start|stretch|submerge|swirl|tear|"
        u"then|tie|"
        u"truss|try|twist|unmold|wait|weigh|while|work|"
        u"coat|combine|cook|cool|cover|cream|crush|cut|deglaze|dice|discard|divide|drain|dredge|drizzle|drop|"
        u"dust|fill|finish|flip|fold|fry|garnish|gently|grate|grease|grill|grind|heat|in|increase|knead|"
        u"ladle|lay|leave|let|lightly|line|lower|make|marinate|mash|measure|meanwhile|melt|mince|mix|move|"
        u"once|parboil|pat|peel|place|poach|pour|preheat|prepare|press|pull|punch|put|quickly|reduce|"
        u"refrigerate|remove|repeat|rest|return|rinse|roast|roll|rub|saute|sauté|scatter|scoop|score|scrape|"
        u"sear|season|separate|serve|set|shake|shape|shred|sift|simmer|skim|slice|slowly|soak|soften|spoon|"
        u"spread|sprinkle|squeeze|steam|steep|stir|store|strain|stuff|sweat|take|taste|thicken|thread|tip|"
        u"toast|top|toss|transfer|trim|turn|use|using|warm|wash|when|whip|whisk|wrap|"
        u"backen|braten|den|die|das|dann|zuerst|backofen|ofen|alle|alles|"
        u"préchauffer|préchauffez|faire|faites|mélanger|mélangez|ajouter|ajoutez|couper|coupez|verser|versez|"
        u"dans|laisser|laissez|cuire|éplucher|épluchez|laver|lavez|servir|servez|"
        u"precalentar|precalienta|mezclar|mezcla|añadir|añade|cortar|corta|calentar|calienta|pelar|pela|"
        u"hervir|cocer|cocinar|cocina|servir|sirve|poner|pon|batir|bate|lavar|"
        u"preriscaldare|mescolare|aggiungere|aggiungete|tagliare|tagliate|cuocere|fate|lessare|versare|"
        u"servire|servite|unire|unite|mettete|mettere|scaldate|scaldare|"
        u"verwarm|meng|voeg|snijd|snij|bak|kook|doe|roer|serveer|schil|laat|giet|verhit|"
        u"preaqueça|misture|adicione|corte|asse|cozinhe|coloque|bata|leve|sirva|aqueça|deixe|"
        u"rozgrzej|wymieszaj|dodaj|pokrój|gotuj|piecz|wlej|podawaj|obierz|smaż|ugotuj|"
        u"värm|blanda|tillsätt|skär|koka|stek|häll|servera|rör|skala|hacka|sätt|"
        u"forvarm|tænd|bland|tilsæt|kog|steg|hæld|server|skræl|hak|pisk|kom"));
    return words;
}

const QSet<QString>& RecipeWords::units()
{
    static const QSet<QString> words = asSet(listed(
        u"cup|cups|c|tablespoon|tablespoons|tbsp|tbsps|tbs|tb|teaspoon|teaspoons|tsp|tsps|ounce|ounces|oz|"
        u"pound|pounds|lb|lbs|g|gr|gram|grams|gramm|kg|kilo|kilos|mg|ml|cl|dl|l|liter|liters|litre|litres|"
        u"quart|quarts|qt|pint|pints|pt|gallon|gallons|clove|cloves|can|cans|tin|tins|jar|jars|package|"
        u"packages|pkg|packet|packets|pack|bunch|bunches|sprig|sprigs|stalk|stalks|stick|sticks|slice|slices|"
        u"piece|pieces|head|heads|pinch|pinches|dash|dashes|handful|handfuls|knob|bag|bags|box|bottle|large|"
        u"medium|small|inch|fl|"
        u"el|tl|esslöffel|teelöffel|prise|prisen|bund|dose|dosen|zehe|zehen|päckchen|pck|pkt|stück|stk|"
        u"becher|"
        u"msp|tasse|tassen|scheibe|scheiben|glas|"
        u"cuillère|cuillères|cuil|càs|càc|cs|cc|gousse|gousses|pincée|pincées|sachet|sachets|verre|verres|"
        u"tranche|tranches|botte|brin|brins|boîte|"
        u"cucharada|cucharadas|cucharadita|cucharaditas|cda|cdas|cdta|cdtas|taza|tazas|diente|dientes|pizca|"
        u"lata|latas|vaso|gramos|"
        u"cucchiaio|cucchiai|cucchiaino|cucchiaini|spicchio|spicchi|pizzico|grammi|bicchiere|fetta|fette|"
        u"eetlepel|eetlepels|theelepel|theelepels|teen|teentjes|teentje|snufje|blik|gram|bosje|"
        u"colher|colheres|xícara|xícaras|dente|dentes|pitada|copo|lata|"
        u"łyżka|łyżki|łyżek|łyżeczka|łyżeczki|szklanka|szklanki|szczypta|ząbek|ząbki|dag|sztuka|sztuki|szt|"
        u"msk|tsk|krm|klyfta|klyftor|nypa|burk|paket|förp|st|"
        u"spsk|fed|knivspids|dåse|dåser|bdt|stk"));
    return words;
}

const QSet<QString>& RecipeWords::amountWords()
{
    static const QSet<QString> words = asSet(
        listed(u"a|an|one|two|three|four|five|six|half|some|few|several|pinch|dash|handful|juice|zest|splash|"
               u"drizzle|knob|sprig|bunch|couple|dozen|about|approx|approximately|ca|"
               u"eine|ein|einen|etwas|eins|zwei|drei|vier|halbe|prise|einige|"
               u"un|une|deux|trois|quatre|quelques|du|de|des|pincée|"
               u"una|uno|dos|tres|cuatro|medio|media|pizca|unas|unos|"
               u"due|tre|quattro|mezzo|mezza|pizzico|qualche|"
               u"een|twee|drie|half|halve|snufje|wat|"
               u"um|uma|dois|duas|meia|meio|pitada|"
               u"jeden|jedna|dwa|dwie|trzy|pół|szczypta|garść|"
               u"en|ett|två|tre|fyra|halv|nypa|lite|et|to|fire|lidt|en"));
    return words;
}

const QSet<QString>& RecipeWords::pantry()
{
    static const QSet<QString> words = asSet(
        listed(u"salt|pepper|butter|rice|oil|olive|water|sugar|flour|garlic|onion|onions|milk|cheese|parsley|"
               u"basil|mustard|cream|ghee|potatoes|tomatoes|spaghetti|pasta|bacon|lemon|honey|vinegar|"
               u"soy|cilantro|coriander|cumin|paprika|cinnamon|yeast|eggs|carrots|celery|thyme|rosemary|"
               u"ginger|chili|chilli|salz|pfeffer|öl|olivenöl|zucker|mehl|wasser|etwas|sel|poivre|huile|"
               u"sal|pimienta|aceite|sale|pepe|olio|zout|peper|olie|pimenta|sól|pieprz|olej|smör|socker|"
               u"peppar|smør|sukker|peber"));
    return words;
}

const QSet<QString>& RecipeWords::staples()
{
    static const QSet<QString> words = asSet(
        listed(u"salt|butter|oil|olive|water|lemon|cinnamon|salz|öl|olivenöl|wasser|sel|huile|beurre|eau|sal|"
               u"aceite|mantequilla|agua|sale|olio|burro|acqua|zout|olie|boter|azeite|manteiga|água|sól|olej|"
               u"masło|woda|smör|olja|vatten|smør|vand"));
    return words;
}

const QSet<QString>& RecipeWords::pantryPairs()
{
    static const QSet<QString> pairs = asSet(listed(
        u"extra virgin|olive oil|sunflower oil|vegetable oil|canola oil|rapeseed oil|sesame oil|peanut oil|"
        u"groundnut oil|coconut oil|cooking oil|black pepper|white pepper|ground pepper|sea "
        u"salt|kosher salt"));
    return pairs;
}

const QSet<QString>& RecipeWords::groupNames()
{
    static const QSet<QString> words = asSet(listed(
        u"dough|filling|fillings|stuffing|sauce|topping|toppings|marinade|dressing|vinaigrette|optional|"
        u"garnish|"
        u"crust|glaze|frosting|icing|batter|base|spices|syrup|extras|assembly|"
        u"teig|füllung|soße|belag|guss|streusel|gewürze|pâte|garniture|farce|nappage|masa|relleno|aderezo|"
        u"cobertura|impasto|ripieno|condimento|deeg|vulling|saus|massa|recheio|molho|ciasto|nadzienie|polewa|"
        u"sos|"
        u"deg|fyllning|sås|dej|fyld|glasur"));
    return words;
}

const QStringList& RecipeWords::groupOpenings()
{
    static const QStringList words = listed(
        u"for the |for |to serve|to finish|to garnish|für den |für die |für das |für |zum |zur |"
        u"pour la |pour le |pour les |pour l’|pour l'|pour |para la |para el |para los |para las |para o |"
        u"para a |para |per la |per il |per lo |per le |per i |per |voor de |voor het |voor |do |na |"
        u"till |för |til |garnish|topping|dressing|sauce|marinade|filling|dough|crust|glaze|frosting");
    return words;
}

} // namespace ovrin
