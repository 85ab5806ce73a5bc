#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QList>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QStringList>
#include <QtGui/QFont>

#include <functional>

class QPainter;

namespace ovrin::material {

/// What holds for every line of a sheet. Lengths are in points.
struct SheetStyle
{
    QSizeF page{595, 842};
    double margin = 60;
    QString family = QStringLiteral("DejaVu Sans");
    double leading = 1.35;
    bool justified = false;
    bool hyphenated = false;
    /// Kept free below the top margin of every page but the first, and above every bottom margin.
    double headRoom = 0;
    double footRoom = 0;
};

/// Pages that are filled from the top: lines with their places, and what a reader of them should find.
class Sheet
{
public:
    struct Frame
    {
        double left;
        double width;
        double top = 0;
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
        /// Lines that `firstIndent` applies to.
        int firstLines = 1;
        /// Between letters, in type sizes.
        double tracking = 0;
    };
    struct Column
    {
        double left;
        double width;
        std::function<void()> fill;
    };

    explicit Sheet(SheetStyle style);

    int pageCount() const;
    /// Draws one page; the painter's unit is a tenth of a point.
    void draw(QPainter& painter, int page) const;
    /// `[{"kind", "text", "page"}]`, one an entry of the recipe, whatever lines it takes.
    QJsonArray truth() const { return m_truth; }

    void record(const char16_t* kind, const QString& text);
    /// A paragraph from here on down, broken to the frame and to as many pages as it needs.
    void paragraph(const QString& text, const Style& style);
    /// One line at this height that moves nothing; `left` is its right end when asked so.
    void at(double left, const QString& text, double size, bool bold, bool toTheLeft = false);
    void box(const QRectF& place);
    void circle(QPointF centre, double radius);
    void skip(double height) { m_y += height; }
    /// Begins the next page unless this much fits.
    void keep(double height) { advance(height); }
    /// Columns that start at the same height; goes on below the longest.
    void sideBySide(const QList<Column>& columns);
    /// Goes back to a page to put furniture on it.
    void turnTo(int page, double y);

    const SheetStyle& style() const { return m_style; }
    int page() const { return m_page; }
    double y() const { return m_y; }
    double left() const { return m_frames[m_frame].left; }
    double width() const { return m_frames[m_frame].width; }

protected:
    void advance(double height);

    SheetStyle m_style;
    QList<Frame> m_frames;
    qsizetype m_frame = 0;
    int m_page = 0;
    double m_y = 0;

private:
    struct Placed
    {
        int page;
        QPointF baseline;
        QString text;
        QFont font;
    };
    struct Shape
    {
        int page;
        QRectF place;
        bool round;
    };

    QFont font(double size, bool bold) const;
    double bottom() const;
    void nextFrame();
    QStringList broken(const QString& text, const QFont& font, const Style& style) const;
    void setSpaced(const QString& text, QPointF place, const Style& style);

    QList<Placed> m_placed;
    QList<Shape> m_shapes;
    QJsonArray m_truth;
};

} // namespace ovrin::material
