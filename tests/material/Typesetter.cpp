#include "material/Typesetter.h"

#include "material/Words.h"

#include <QtCore/QRegularExpression>

namespace ovrin::material {

namespace {

constexpr double gutter = 24;

SheetStyle styleOf(const Layout& layout)
{
    return {.page = layout.page,
            .margin = layout.margin,
            .family = layout.family,
            .leading = layout.leading,
            .justified = layout.justified,
            .hyphenated = layout.hyphenated,
            .headRoom = layout.runningHead || layout.printHeader ? 24.0 : 0.0,
            .footRoom = layout.pageNumbers || layout.siteName ? 16.0 : 0.0};
}

} // namespace

Typesetter::Typesetter(const Recipe& recipe, const Layout& layout)
    : Sheet(styleOf(layout))
    , m_recipe(recipe)
    , m_layout(layout)
{
    const double width = layout.page.width() - 2 * layout.margin;
    m_y = layout.margin + (layout.statusBar || layout.printHeader || layout.runningHead ? 24 : 0);
    const double top = m_y;
    m_frames = {{layout.margin, width, top}};
    setHead();
    if (layout.columns == Columns::One) {
        setIngredients();
        setSteps();
        setAfter();
    } else if (layout.columns == Columns::Newspaper) {
        const double column = (width - gutter) / 2;
        m_frames = {{layout.margin, column, m_y}, {layout.margin + column + gutter, column, m_y}};
        setIngredients();
        setSteps();
        setAfter();
    } else {
        const bool listLeft = layout.columns == Columns::ListLeft;
        const double narrow = width * 0.36;
        const double wide = width - narrow - gutter;
        const double start = m_y;
        const Frame list{listLeft ? layout.margin : layout.margin + wide + gutter, narrow, start};
        const Frame method{listLeft ? layout.margin + narrow + gutter : layout.margin, wide, start};
        m_frames = {list};
        setIngredients();
        m_frames = {method};
        m_page = 0;
        m_y = start;
        setSteps();
        setAfter();
    }
    setFurniture();
}

void Typesetter::setHead()
{
    const double small = m_layout.size * 0.85;
    if (m_layout.menu) {
        paragraph(QStringLiteral("Home   Recipes   About   Contact"), {.size = small, .after = 0.8});
        paragraph(QStringLiteral("Home › Recipes › Dinner"), {.size = small, .after = 0.8});
    }
    if (m_layout.siteName) {
        paragraph(QStringLiteral("The Copper Ladle"),
                  {.size = m_layout.titleSize * 1.1, .bold = true, .after = 0.6});
    }
    const QString title = m_layout.titleInCapitals ? m_recipe.title.toUpper() : m_recipe.title;
    record(u"title", title);
    paragraph(title,
              {.size = m_layout.titleSize, .bold = true, .after = 0.4, .centred = m_layout.titleCentred});
    if (m_layout.author && !m_recipe.author.isEmpty()) {
        record(u"meta", QStringLiteral("By ") + m_recipe.author);
        paragraph(QStringLiteral("By ") + m_recipe.author, {.size = m_layout.size, .after = 0.6});
    }
    if (m_layout.buttons) {
        paragraph(QStringLiteral("Save   Print   Share"), {.size = small, .after = 0.8});
    }
    setFacts();
    if (m_layout.intro && !m_recipe.intro.isEmpty()) {
        record(u"intro", m_recipe.intro);
        paragraph(m_recipe.intro, {.size = m_layout.size, .after = 0.8, .mayJustify = true});
    }
}

void Typesetter::setFacts()
{
    const Words& words = wordsOf(m_recipe.language);
    QList<QPair<QString, QString>> facts;
    for (const auto& [label, value] :
         {qMakePair(words.prep, m_recipe.prepTime), qMakePair(words.cook, m_recipe.cookTime),
          qMakePair(words.yield, m_recipe.yield)}) {
        if (!value.isEmpty()) {
            facts.append({label, value});
        }
    }
    const Style style{.size = m_layout.size, .after = 0.5};
    QStringList row;
    switch (m_layout.facts) {
    case Facts::Row:
        for (const auto& [label, value] : facts) {
            row.append(label + QStringLiteral(": ") + value);
        }
        if (!row.isEmpty()) {
            paragraph(row.join(QStringLiteral(" • ")), style);
        }
        break;
    case Facts::Lines:
        for (const auto& [label, value] : facts) {
            paragraph(label + QStringLiteral(": ") + value, style);
        }
        break;
    case Facts::LabelsAbove: {
        const double column = m_frames[0].width / 3;
        double left = m_frames[0].left;
        for (const auto& [label, value] : facts) {
            at(left, label, m_layout.size * 0.85, false);
            m_y += m_layout.size * 1.3;
            at(left, value, m_layout.size, true);
            m_y -= m_layout.size * 1.3;
            left += column;
        }
        m_y += facts.isEmpty() ? 0 : m_layout.size * 3.4;
        break;
    }
    case Facts::Phrase:
        if (!m_recipe.yield.isEmpty()) {
            paragraph(words.serves.arg(m_recipe.yield), style);
        }
        break;
    case Facts::None:
        break;
    }
}

void Typesetter::heading(const QString& word, const QString& other, bool shown)
{
    if (!shown) {
        m_y += m_layout.size * 0.9;
        return;
    }
    QString text = word;
    if (m_layout.headings == Headings::Alternative) {
        text = other;
    } else if (m_layout.headings == Headings::Capitals) {
        text = word.toUpper();
    } else if (m_layout.headings == Headings::Colon) {
        text = word + u':';
    }
    m_y += m_layout.size * 0.6;
    advance(m_layout.headingSize * 3);
    record(u"head", text);
    paragraph(text, {.size = m_layout.headingSize, .bold = true, .after = 0.35});
}

void Typesetter::setIngredients()
{
    static const QRegularExpression amount(
        QStringLiteral("^((?:\\d[\\d/.,–-]*|[½¼¾⅓⅔])(?:\\s(?:\\d/"
                       "\\d|g|kg|ml|dl|l|cups?|tbsp|tsp|EL|TL|oz|lb))?)\\s(.*)$"),
        QRegularExpression::CaseInsensitiveOption);
    const Words& words = wordsOf(m_recipe.language);
    heading(words.ingredients, words.otherIngredients,
            m_layout.headings != Headings::None && m_layout.headings != Headings::MethodOnly);
    for (const QString& entry : m_recipe.ingredients) {
        record(u"ing", entry);
        if (entry.endsWith(u':')) {
            m_y += m_layout.size * 0.4;
            paragraph(entry, {.size = m_layout.size, .bold = true, .after = m_layout.ingredientGap});
            continue;
        }
        const auto match = amount.match(entry);
        if (m_layout.amountColumn) {
            advance(m_layout.size * m_layout.leading);
            if (match.hasMatch()) {
                at(m_frames[m_frame].left, match.captured(1), m_layout.size, false);
            }
            paragraph(match.hasMatch() ? match.captured(2) : entry,
                      {.size = m_layout.size, .indent = m_layout.size * 5, .after = m_layout.ingredientGap});
        } else {
            const double hang = m_layout.size * (m_layout.mark.isEmpty() ? 1.2 : 0.9);
            paragraph(m_layout.mark + entry, {.size = m_layout.size,
                                              .indent = hang,
                                              .firstIndent = -hang,
                                              .after = m_layout.ingredientGap});
        }
    }
}

void Typesetter::setSteps()
{
    const Words& words = wordsOf(m_recipe.language);
    heading(words.directions, words.otherDirections,
            m_layout.headings != Headings::None && m_layout.headings != Headings::ListOnly);
    for (qsizetype i = 0; i < m_recipe.steps.size(); ++i) {
        const QString number = QString::number(i + 1);
        switch (m_layout.numbers) {
        case Numbers::Dot:
            setStep(i, number + QStringLiteral(". "));
            break;
        case Numbers::Bracket:
            setStep(i, number + QStringLiteral(") "));
            break;
        case Numbers::Bare:
            setStep(i, number + QStringLiteral("  "));
            break;
        case Numbers::StepWord:
            setStep(i, words.step + u' ' + number + QStringLiteral(": "));
            break;
        case Numbers::Bullet:
            setStep(i, QStringLiteral("• "));
            break;
        case Numbers::StepLine:
            advance(m_layout.size * m_layout.leading * 2);
            paragraph(words.step + u' ' + number, {.size = m_layout.size, .bold = true, .after = 0.2});
            setStep(i, {});
            break;
        case Numbers::Hanging:
        case Numbers::None:
            setStep(i, {});
            break;
        }
    }
}

void Typesetter::setStep(qsizetype index, const QString& number)
{
    const QString text = number + m_recipe.steps[index];
    record(u"step", text);
    Style style{.size = m_layout.size, .after = m_layout.stepGap, .mayJustify = true};
    if (m_layout.numbers == Numbers::Hanging) {
        advance(m_layout.size * m_layout.leading);
        at(m_frames[m_frame].left, QString::number(index + 1), m_layout.size, true);
        style.indent = m_layout.size * 2.2;
    } else if (m_layout.indented && index > 0) {
        style.firstIndent = m_layout.size;
    }
    paragraph(text, style);
}

void Typesetter::setAfter()
{
    const Words& words = wordsOf(m_recipe.language);
    const Style style{.size = m_layout.size, .after = 0.4};
    const auto title = [&](const QString& text) {
        m_y += m_layout.size * 0.8;
        advance(m_layout.headingSize * 3);
        paragraph(text, {.size = m_layout.headingSize, .bold = true, .after = 0.35});
    };
    if (m_layout.notes && !m_recipe.notes.isEmpty()) {
        title(words.notes);
        for (const QString& note : m_recipe.notes) {
            paragraph(note, style);
        }
    }
    if (m_layout.nutrition) {
        title(words.nutrition);
        paragraph(QStringLiteral("412 kcal"), style);
        paragraph(QStringLiteral("18 g protein, 40 g carbohydrates, 19 g fat"), style);
    }
    if (m_layout.related) {
        title(QStringLiteral("You might also like"));
        paragraph(QStringLiteral("Smoky Aubergine Stew"), style);
        paragraph(QStringLiteral("One-Pan Lemon Orzo"), style);
    }
}

void Typesetter::setFurniture()
{
    const int pages = pageCount();
    const double small = m_layout.size * 0.8;
    const double foot = m_layout.page.height() - m_layout.margin + 4;
    for (m_page = 0; m_page < pages; ++m_page) {
        const QString number = QString::number(m_page + 1);
        m_y = m_layout.margin * 0.6;
        if (m_layout.statusBar && m_page == 0) {
            at(m_layout.margin, QStringLiteral("9:41"), small, true);
            at(m_layout.page.width() - m_layout.margin - 60, QStringLiteral("87%"), small, false);
        }
        if (m_layout.printHeader) {
            at(m_layout.margin, QStringLiteral("3/14/24, 6:05 PM"), small, false);
            at(m_layout.margin + 200, m_recipe.title + QStringLiteral(" - The Copper Ladle"), small, false);
        }
        if (m_layout.runningHead) {
            at(m_layout.margin, QStringLiteral("Main Courses"), small, false);
        }
        m_y = foot;
        if (m_layout.pageNumbers) {
            at(m_layout.page.width() / 2, number, small, false);
        }
        if (m_layout.siteName) {
            at(m_layout.margin, QStringLiteral("https://www.thecopperladle.example/recipes/") + number, small,
               false);
        }
    }
}

} // namespace ovrin::material
