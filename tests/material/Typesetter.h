#pragma once

#include "material/Layout.h"
#include "material/Recipe.h"

#include <QtCore/QJsonArray>
#include <QtCore/QPointF>
#include <QtGui/QFont>

class QPainter;

namespace ovrin::material {

/// A recipe set in a layout: lines with their places, and what a reader of the page should find.
class Typesetter
{
public:
    Typesetter(const Recipe& recipe, const Layout& layout);

    int pageCount() const;
    /// Draws one page; the painter's unit is a tenth of a point.
    void draw(QPainter& painter, int page) const;
    /// `[{"kind", "text", "page"}]`, one an entry of the recipe, whatever lines it takes.
    QJsonArray truth() const { return m_truth; }

private:
    struct Frame
    {
        double left;
        double width;
        double top;
    };
    struct Placed
    {
        int page;
        QPointF baseline;
        QString text;
        QFont font;
    };
    struct Style
    {
        double size;
        bool bold = false;
        double indent = 0;
        double firstIndent = 0;
        double after = 0;
        bool centred = false;
        bool mayJustify = false;
    };

    QFont font(double size, bool bold) const;
    double bottom() const;
    void advance(double height);
    void nextFrame();
    void paragraph(const QString& text, const Style& style);
    QStringList broken(const QString& text, const QFont& font, double first, double rest) const;
    void at(double left, const QString& text, double size, bool bold);
    void record(const char16_t* kind, const QString& text);

    void setHead();
    void setFacts();
    void setIngredients();
    void setSteps();
    void setStep(qsizetype index, const QString& number);
    void setAfter();
    void setFurniture();
    void heading(const QString& word, const QString& other, bool shown);

    const Recipe& m_recipe;
    const Layout& m_layout;
    QList<Frame> m_frames;
    qsizetype m_frame = 0;
    int m_page = 0;
    double m_y = 0;
    QList<Placed> m_placed;
    QJsonArray m_truth;
};

} // namespace ovrin::material
