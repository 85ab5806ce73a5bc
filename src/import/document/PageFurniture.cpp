#include "import/document/PageFurniture.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeWords.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace ovrin {

namespace {

/// How many lines at a page's head or foot may be its running head.
constexpr qsizetype marginLines = 2;
constexpr double largeType = 1.2;

QRegularExpression pattern(const QString& text)
{
    return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption |
                                        QRegularExpression::UseUnicodePropertiesOption);
}

bool matchesAny(const QList<QRegularExpression>& forms, const QString& text)
{
    return std::any_of(forms.begin(), forms.end(),
                       [&](const QRegularExpression& form) { return form.match(text).hasMatch(); });
}

/// "Home › Recipes › Egg Soup"
const QRegularExpression& wayThroughSite()
{
    static const QRegularExpression way = pattern(QStringLiteral("^\\S[^.]{0,40}\\s[›»>]\\s[^.]{0,60}$"));
    return way;
}

/// "Your address: ________"
const QRegularExpression& formField()
{
    static const QRegularExpression field = pattern(QStringLiteral("_{6,}$"));
    return field;
}

/// What stands above an advertisement.
const QRegularExpression& advertLabel()
{
    static const QRegularExpression label = pattern(QStringLiteral(
        "^(?:advertisement|advert|sponsored|promotion|anzeige|werbung|publicité|publicidad|"
        "anuncio|pubblicità|annuncio|advertentie|publicidade|reklama|reklam|annons|annonce)$"));
    return label;
}

/// "Save | Print | Share", "Save Print Share"
bool isRowOfButtons(const QString& lower)
{
    static const QRegularExpression separator = pattern(QStringLiteral("\\s*[|•·/,]\\s*|\\s{2,}"));
    static const QSet<QString> menu{
        QStringLiteral("home"),      QStringLiteral("recipes"),      QStringLiteral("about"),
        QStringLiteral("contact"),   QStringLiteral("blog"),         QStringLiteral("shop"),
        QStringLiteral("search"),    QStringLiteral("menu"),         QStringLiteral("login"),
        QStringLiteral("subscribe"), QStringLiteral("videos"),       QStringLiteral("books"),
        QStringLiteral("facebook"),  QStringLiteral("pinterest"),    QStringLiteral("twitter"),
        QStringLiteral("instagram"), QStringLiteral("tweet"),        QStringLiteral("like"),
        QStringLiteral("log in"),    QStringLiteral("sign in"),      QStringLiteral("sign up"),
        QStringLiteral("rezepte"),   QStringLiteral("suche"),        QStringLiteral("drucken"),
        QStringLiteral("teilen"),    QStringLiteral("imprimer"),     QStringLiteral("partager"),
        QStringLiteral("stampa"),    QStringLiteral("imprimir"),     QStringLiteral("compartir"),
        QStringLiteral("afdrukken"), QStringLiteral("print recipe"),
    };
    const auto known = [](const QString& part) {
        return part.isEmpty() || RecipeWords::noise().contains(part) || menu.contains(part);
    };
    const QStringList parts = lower.split(separator, Qt::SkipEmptyParts);
    if (parts.size() > 1 && std::all_of(parts.begin(), parts.end(), known)) {
        return true;
    }
    const QStringList words = lower.split(u' ', Qt::SkipEmptyParts);
    return (words.size() > 1 && std::all_of(words.begin(), words.end(), known)) || menu.contains(lower);
}

bool isNoise(const QString& lower)
{
    return RecipeWords::noise().contains(lower) || lower.contains(QStringLiteral("click here to see")) ||
           lower.contains(QStringLiteral("recipe units are from")) ||
           (lower.startsWith(QStringLiteral("customiz")) && lower.size() < 20) ||
           lower == QStringLiteral("e units");
}

/// The same text from page to page, whatever the page's number in it.
QString withoutNumbers(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("\\d+"));
    return QString(text).replace(digits, QStringLiteral("#")).simplified();
}

struct Margins
{
    QSet<qsizetype> lines;
    QSet<QString> recurring;
};

Margins margins(const QList<TextLine>& lines)
{
    Margins margins;
    QHash<QString, QSet<int>> pagesOf;
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin;
        while (end < lines.size() && lines[end].page == lines[begin].page) {
            ++end;
        }
        for (qsizetype i = begin; i < end; ++i) {
            if (i < begin + marginLines || i >= end - marginLines) {
                margins.lines.insert(i);
                // "Step 4" and "Step 9" at the heads of two pages are no running head.
                if (LineShape::numbered(lines[i].text) && !LineShape::isBareNumber(lines[i].text)) {
                    continue;
                }
                pagesOf[withoutNumbers(lines[i].text)].insert(lines[i].page);
            }
        }
        begin = end;
    }
    for (auto it = pagesOf.cbegin(); it != pagesOf.cend(); ++it) {
        if (it.value().size() > 1) {
            margins.recurring.insert(it.key());
        }
    }
    return margins;
}

bool isPageNumber(const QString& text)
{
    static const QRegularExpression number = pattern(
        QStringLiteral("^(?:page|seite|p\\.|s\\.|pagina|página|strona|sida|side)?\\s*[-–—]?\\s*\\d{1,4}\\s*"
                       "(?:[-–—]|(?:of|von|/|sur|de|di|van|z|av|af)\\s*\\d{1,4})?$"));
    return number.match(text).hasMatch();
}

/// "86 WINTER", "SOUPS AND STEWS 21" at the foot of a page that is not in capitals itself.
bool isPageName(const QList<TextLine>& lines, qsizetype i)
{
    static const QRegularExpression name(
        QStringLiteral(
            "^(?:\\d{1,4}\\s+[\\p{Lu}][\\p{Lu} &,’']{2,40}|[\\p{Lu}][\\p{Lu} &,’']{2,40}\\s+\\d{1,4})$"),
        QRegularExpression::UseUnicodePropertiesOption);
    const bool isLast = i + 1 == lines.size() || lines[i + 1].page != lines[i].page;
    // Of two pages side by side the left one's foot is not the last line.
    constexpr double foot = 0.9;
    const bool standsAtFoot = isLast ? lines[i].startsBlock : lines[i].place.top() > foot;
    return standsAtFoot && i > 1 && name.match(lines[i].text).hasMatch() &&
           !LineShape::isAllCapitals(lines[i - 1].text) && !LineShape::isAllCapitals(lines[i - 2].text);
}

/// Whether the line stands where a page's number does; true where nobody knows.
bool isAtEdge(const TextLine& line)
{
    constexpr double edge = 0.12;
    return line.place.isNull() || line.place.bottom() < edge || line.place.top() > 1 - edge;
}

bool isAtFoot(const TextLine& line)
{
    constexpr double foot = 0.93;
    return !line.place.isNull() && line.place.top() > foot;
}

/// A short line at the page's foot, far from all else.
bool isLoneFoot(const QList<TextLine>& lines, qsizetype i)
{
    constexpr double widestGap = 2.5;
    constexpr qsizetype longestFoot = 80;
    const TextLine& line = lines[i];
    if (!isAtFoot(line) || line.text.size() > longestFoot) {
        return false;
    }
    bool hasText = false;
    for (qsizetype k = 0; k < lines.size(); ++k) {
        const QRectF& other = lines[k].place;
        if (k == i || lines[k].page != line.page || isAtFoot(lines[k])) {
            continue;
        }
        hasText = true;
        if (line.place.top() - other.bottom() < widestGap * line.place.height()) {
            return false;
        }
    }
    return hasText;
}

} // namespace

bool PageFurniture::isStatusBar(const QString& line)
{
    static const QString weekday = QStringLiteral("(?:mon|tue|wed|thu|fri|sat|sun)[a-z]*\\.?");
    static const QString month =
        QStringLiteral("(?:jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec)[a-z]*\\.?");
    static const QString clock = QStringLiteral("\\d{1,2}:\\d{2}(?:\\s?[ap]\\.?m\\.?)?");
    static const QString date = QStringLiteral("(?:%1\\s+\\d{1,2}|\\d{1,2}\\s+%1)").arg(month);
    static const QList<QRegularExpression> forms{
        pattern(QStringLiteral("^%1(?:\\s+(?:%2\\s*)?(?:%3)?)?$").arg(clock, weekday, date)),
        pattern(QStringLiteral("^(?:(?:%2\\s*)?%3\\s+)?%1$").arg(clock, weekday, date)),
        pattern(QStringLiteral("^%2\\s+%1$").arg(clock, weekday)),
        pattern(QStringLiteral("^\\d{1,3}\\s?%$")),
    };
    return matchesAny(forms, line.trimmed().toLower());
}

bool PageFurniture::isFurniture(const QString& line)
{
    static const QList<QRegularExpression> forms{
        // Addresses, alone or behind a word such as "Printed from".
        pattern(QStringLiteral(
            "^(?:[\\p{L} ]{0,24}[: ]\\s*)?(?:https?://|www\\.|file:/|about:)\\S+(?:\\s+\\d+/\\d+)?$")),
        pattern(QStringLiteral(
            "^[a-z0-9-]+(?:\\.[a-z0-9-]+)*\\.(?:com|org|net|de|fr|es|it|nl|pt|pl|se|dk|co\\.uk|"
            "example|recipes|blog|kitchen)(?:/\\S*)?$")),
        pattern(QStringLiteral("^(?:©|\\(c\\)|copyright\\b)")),
        pattern(QStringLiteral("all rights reserved|alle rechte vorbehalten|tous droits réservés|"
                               "todos los derechos|todos os direitos reservados|tutti i diritti riservati|"
                               "alle rechten voorbehouden|wszelkie prawa zastrzeżone|"
                               "alla rättigheter|alle rettigheder")),
        pattern(QStringLiteral("^page \\d+ (?:of|/) \\d+$")),
        // When and from where it was printed, and who took the picture.
        pattern(QStringLiteral("^(?:exported|printed|saved|downloaded) on \\d{1,2}\\b.{0,20}$")),
        pattern(QStringLiteral("^(?:recipe|rezept|recette|receta|ricetta) \\d+ (?:of|von|de|di) \\d+$")),
        pattern(QStringLiteral("^(?:photo(?:graph|graphy)?s?|foto|image|bild)(?: by)?\\s*:\\s.{2,40}$")),
        // A price.
        pattern(QStringLiteral("^(?:[€$£]\\s?\\d+(?:[.,]\\d{2})?|\\d+[.,]\\d{2}\\s?(?:€|eur|kr|zł))$")),
        // What a mail answers to.
        pattern(QStringLiteral("^>+\\s")),
        // Ratings: stars, "4.8 (120 reviews)", "4.8 from 120 votes".
        pattern(QStringLiteral("^[★☆⭐✩✭\\s]{2,}")),
        pattern(QStringLiteral("^\\d(?:[.,]\\d+)?\\s*(?:/\\s*5|stars?|★)?\\s*(?:\\(|from|·|•)\\s*[\\d,.]+\\s*"
                               "(?:reviews?|ratings?|votes?)?\\)?$")),
        pattern(QStringLiteral("^[\\d,.]+ (?:reviews?|ratings?|votes?|shares?|likes?)$")),
        // A browser's print header: a date and a clock, then the page's title.
        pattern(QStringLiteral("^\\d{1,2}[./-]\\d{1,2}[./-]\\d{2,4},?\\s+\\d{1,2}:\\d{2}")),
        wayThroughSite(),
        pattern(QStringLiteral(
            "^(?:skip to|jump to|(?:un)?subscribe|follow us|sign up|log in|advertisement|sponsored|"
            "scroll down|continue reading|read more|click here|leave a (?:comment|review)|"
            "save this recipe|print this|pin (?:it|this|recipe)|rate this|share (?:this|on)|"
            "printed from|shared from|find this recipe|this (?:post|page) (?:may )?contains? "
            "affiliate|accept cookies|"
            "we use cookies|follow @|tag @)\\b")),
        formField(),
        advertLabel(),
        // A phone's network beside its battery.
        pattern(QStringLiteral("^(?:lte|[2345]g|wi-?fi|edge)\\b[\\s\\d%]*$")),
        // That a card goes on overleaf, when a sheet was issued, and its number.
        pattern(QStringLiteral(
            "^[(\\[]?(?:please )?(?:over|turn over|see over|p\\.?t\\.?o\\.?|cont(?:inued|'d|\\.)?|"
            "fortsetzung|bitte wenden|suite|sigue|segue|vervolg)(?: on (?:the )?back)?[)\\]]?$")),
        pattern(QStringLiteral("^(?:issued|revised|rev\\.?|revision|version|stand|ausgabe)\\s*:?\\s*"
                               "(?:\\d{1,2}[./-]){0,2}\\d{1,4}$")),
        pattern(QStringLiteral("^(?:no|nr|n°|№)\\.?\\s*\\d+(?:\\s*[/|·]\\s*rev.*)?$")),
        // The heads of a table's columns, and its number sign.
        pattern(QStringLiteral(
            "^(?:#|amounts?|units?|qty\\.?|quantity|measures?|weight|items?|menge|einheit|quantités?|unités?|"
            "cantidad|unidad|quantità|unità|hoeveelheid|eenheid|quantidade|unidade|ilość|jednostka|mängd|"
            "enhet|"
            "mængde|enhed)(?:\\s+(?:units?|einheit|unité|unidad|unità|eenheid|unidade|jednostka|enhe[td]))?"
            "$")),
        // A line of a table of contents.
        pattern(QStringLiteral("(?:\\.\\s?){4,}\\s*\\d{1,4}$")),
    };
    const QString text = line.trimmed();
    const QString lower = text.toLower();
    const bool hasLetterOrDigit =
        std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return !hasLetterOrDigit || isNoise(lower) || isStatusBar(text) || isRowOfButtons(lower) ||
           matchesAny(forms, text);
}

namespace {

/// Whether line `i` is an address in a running text: behind words of a sentence, or below a line that ends in
/// the middle of one.
bool isAddressInText(const QList<TextLine>& lines, qsizetype i)
{
    static const QRegularExpression alone = pattern(QStringLiteral("^(?:https?://|www\\.)\\S+$"));
    static const QRegularExpression behindWords = pattern(
        QStringLiteral("^\\p{Lu}\\p{L}+(?: \\p{L}+)* (?:at|on|by|bei|auf|unter|sur|en|su|op|em|na|på) "
                       "(?:https?://|www\\.)\\S+$"));
    static const QRegularExpression openEnd = pattern(QStringLiteral(
        "\\s(?:at|on|from|by|see|bei|auf|unter|von|sur|en|de|su|da|op|van|em|na|z|på|från|fra)$"));
    if (i == 0 || lines[i].startsBlock) {
        return false;
    }
    return behindWords.match(lines[i].text).hasMatch() ||
           (alone.match(lines[i].text).hasMatch() && openEnd.match(lines[i - 1].text).hasMatch());
}

/// Whether line `i` goes on in lower case where the one before has left a bracket open: "(adjust / amount".
bool isInOpenBracket(const QList<TextLine>& lines, qsizetype i)
{
    const QString& text = lines[i].text;
    const QString before = i > 0 && !lines[i].startsBlock ? lines[i - 1].text : QString();
    return !text.isEmpty() && text.front().isLower() && before.count(u'(') > before.count(u')');
}

/// Whether line `i` goes on the one before in small type of the same size.
bool isSmallPrintBelow(const QList<TextLine>& lines, qsizetype i)
{
    constexpr double sameSize = 0.02;
    return i > 0 && i < lines.size() && !lines[i].startsBlock && lines[i].relativeHeight < 1 - sameSize &&
           std::abs(lines[i].relativeHeight - lines[i - 1].relativeHeight) < sameSize;
}

/// Whether line `i` is what an advertisement says, right below its label, or what a form asks for, right
/// above its fields.
bool isBesideLabel(const QList<TextLine>& lines, qsizetype i)
{
    return (isSmallPrintBelow(lines, i) && advertLabel().match(lines[i - 1].text).hasMatch()) ||
           (isSmallPrintBelow(lines, i + 1) && formField().match(lines[i + 1].text).hasMatch());
}

} // namespace

QList<TextLine> PageFurniture::removed(const QList<TextLine>& lines)
{
    const Margins margin = margins(lines);
    const QStringList sites = siteNames(lines);
    const auto repeatsSite = [&](const TextLine& line) {
        return line.page > lines.first().page && sites.contains(LineShape::lettersOf(line.text));
    };
    QList<TextLine> kept;
    bool startsBlock = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        TextLine line = lines[i];
        line.text = line.text.trimmed();
        startsBlock = startsBlock || line.startsBlock || line.text.isEmpty();
        const bool inMargin = margin.lines.contains(i) || isAtFoot(line);
        const bool recurs = inMargin && line.relativeHeight < largeType &&
                            margin.recurring.contains(withoutNumbers(line.text));
        const bool numbersPage = inMargin && lines.size() > 4 && isPageNumber(line.text) && isAtEdge(line) &&
                                 (i + 1 == lines.size() || lines[i + 1].page != line.page || i == 0 ||
                                  lines[i - 1].page != line.page || isAtFoot(line));
        if (line.text.isEmpty() || recurs || numbersPage || isLoneFoot(lines, i) || isPageName(lines, i) ||
            isBesideLabel(lines, i) ||
            (isFurniture(line.text) && !isAddressInText(lines, i) && !isInOpenBracket(lines, i)) ||
            repeatsSite(line)) {
            continue;
        }
        line.startsBlock = startsBlock;
        startsBlock = false;
        kept.append(line);
    }
    return kept;
}

namespace {

/// Whether a site's menu or the way through it stands right below line `i`, the page's first, and more in
/// large type below that: then the line is the site's name.
bool isAboveMenu(const QList<TextLine>& lines, qsizetype i)
{
    static const QRegularExpression entry = pattern(
        QStringLiteral("\\b(?:home|start|startseite|accueil|inicio|início|recipes|rezepte|recettes|recetas|"
                       "ricette|recepten|receitas|przepisy|recept|opskrifter|about|blog|shop|contact)\\b"));
    constexpr qsizetype leastEntries = 2;
    qsizetype entries = 0;
    qsizetype end = i + 1;
    for (; end < lines.size() && isRowOfButtons(lines[end].text.toLower()); ++end) {
        auto matches = entry.globalMatch(lines[end].text);
        for (; matches.hasNext(); matches.next()) {
            ++entries;
        }
    }
    const bool isMenu = entries >= leastEntries;
    const bool isWay = i + 1 < lines.size() && wayThroughSite().match(lines[i + 1].text).hasMatch();
    constexpr qsizetype nearby = 12;
    const auto last = lines.begin() + std::min(lines.size(), end + nearby);
    return (isMenu || isWay) && std::any_of(lines.begin() + end, last, [&](const TextLine& line) {
               return line.page == lines[i].page && line.relativeHeight > 0.6 * lines[i].relativeHeight &&
                      line.relativeHeight > 1;
           });
}

} // namespace

QStringList PageFurniture::siteNames(const QList<TextLine>& lines)
{
    static const QRegularExpression address = pattern(QStringLiteral(
        "(?:https?://|www\\.|\\b)(?:www\\.)?([a-z0-9-]+)\\.(?:com|org|net|de|fr|es|it|nl|pt|pl|se|dk|"
        "co\\.uk|example|recipes|blog|kitchen)\\b"));
    // "© 2019 The Copper Spoon. All rights reserved."
    static const QRegularExpression copyright = pattern(
        QStringLiteral("^(?:©|\\(c\\)|copyright)\\s*(?:\\d{4}(?:[–-]\\d{4})?)?\\s*([\\p{L}][^.·|,]{2,40})"));
    QStringList names;
    if (!lines.isEmpty() && isAboveMenu(lines, 0)) {
        names.append(LineShape::lettersOf(lines.first().text));
    }
    for (const TextLine& line : lines) {
        const auto match = address.match(line.text);
        if (match.hasMatch()) {
            names.append(LineShape::lettersOf(match.captured(1)));
        }
        const auto owner = copyright.match(line.text);
        if (owner.hasMatch()) {
            names.append(LineShape::lettersOf(owner.captured(1)));
        }
    }
    return names;
}

} // namespace ovrin
