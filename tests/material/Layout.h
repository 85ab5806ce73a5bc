#pragma once

#include <QtCore/QList>
#include <QtCore/QSizeF>
#include <QtCore/QString>

namespace ovrin::material {

enum class Columns { One, ListLeft, ListRight, Newspaper };
enum class Headings { Words, Capitals, Colon, Alternative, ListOnly, MethodOnly, None };
enum class Facts { Row, Lines, LabelsAbove, Phrase, None };
enum class Numbers { Dot, Bracket, Bare, StepWord, StepLine, Hanging, Bullet, None };

/// How a page looks. Lengths are in points.
struct Layout
{
    QString name;
    /// Not to be looked at while the rules are written.
    bool heldOut = false;

    QSizeF page{595, 842};
    double margin = 60;
    QString family = QStringLiteral("DejaVu Sans");
    double size = 11;
    double titleSize = 24;
    bool titleInCapitals = false;
    bool titleCentred = false;
    double headingSize = 14;

    Columns columns = Columns::One;
    Headings headings = Headings::Words;
    Facts facts = Facts::Row;
    Numbers numbers = Numbers::Dot;
    /// In front of each ingredient, with its space.
    QString mark = {};
    /// The amounts stand in a column of their own.
    bool amountColumn = false;
    bool justified = false;
    bool hyphenated = false;
    /// First lines of paragraphs are indented.
    bool indented = false;
    double leading = 1.35;
    /// Blank space after an ingredient and after a step, in type sizes.
    double ingredientGap = 0.25;
    double stepGap = 0.6;

    bool intro = true;
    bool author = false;
    bool notes = false;
    bool nutrition = false;
    bool related = false;
    bool statusBar = false;
    bool buttons = false;
    bool menu = false;
    bool printHeader = false;
    bool pageNumbers = false;
    bool runningHead = false;
    /// A site's name in large type above the title, its address in the footer.
    bool siteName = false;
};

const QList<Layout>& layouts();

} // namespace ovrin::material
