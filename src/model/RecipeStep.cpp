#include "model/RecipeStep.h"

#include <QtCore/QStringView>

namespace ovrin {

namespace {

/// "Spaces and tabs": the Unicode space separators and the tab.
QStringView trimmedOfBlanks(QStringView line)
{
    const auto blank = [](QChar c) { return c == u'\t' || c.category() == QChar::Separator_Space; };
    while (!line.isEmpty() && blank(line.front()))
        line = line.sliced(1);
    while (!line.isEmpty() && blank(line.back()))
        line.chop(1);
    return line;
}

} // namespace

QString RecipeStep::text() const
{
    return paragraphs.join(QStringLiteral("\n\n"));
}

void RecipeStep::setText(const QString& text)
{
    QString clean = text;
    clean.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));

    paragraphs.clear();
    QString paragraph;
    const auto finishParagraph = [&] {
        if (!paragraph.isEmpty())
            paragraphs.append(std::exchange(paragraph, QString()));
    };
    for (const QStringView part : QStringView(clean).split(u'\n')) {
        const QStringView line = trimmedOfBlanks(part);
        if (line.isEmpty()) {
            finishParagraph();
            continue;
        }
        if (!paragraph.isEmpty())
            paragraph += u' ';
        paragraph += line;
    }
    finishParagraph();
}

} // namespace ovrin
