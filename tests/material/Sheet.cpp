#include "material/Sheet.h"

#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <tuple>
#include <utility>

namespace ovrin::material {

namespace {

constexpr double unitsPerPoint = 10;

} // namespace

Sheet::Sheet(SheetStyle style)
    : m_style(std::move(style))
    , m_frames{{m_style.margin, m_style.page.width() - 2 * m_style.margin, m_style.margin}}
    , m_y(m_style.margin)
{
}

int Sheet::pageCount() const
{
    int last = 0;
    for (const Placed& line : m_placed) {
        last = std::max(last, line.page);
    }
    return last + 1;
}

void Sheet::draw(QPainter& painter, int page) const
{
    for (const Placed& line : m_placed) {
        if (line.page == page) {
            painter.setFont(line.font);
            painter.drawText(line.baseline * unitsPerPoint, line.text);
        }
    }
    painter.setPen(QPen(Qt::gray, unitsPerPoint * 0.7));
    for (const Shape& shape : m_shapes) {
        const QRectF place(shape.place.topLeft() * unitsPerPoint, shape.place.size() * unitsPerPoint);
        if (shape.page == page && shape.round) {
            painter.drawEllipse(place);
        } else if (shape.page == page) {
            painter.drawRect(place);
        }
    }
    painter.setPen(Qt::black);
}

QFont Sheet::font(double size, bool bold) const
{
    QFont font(m_style.family);
    font.setPixelSize(qRound(size * unitsPerPoint));
    font.setBold(bold);
    // A PDF made here names no characters for the alternate shapes that shaping puts in.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

double Sheet::bottom() const
{
    return m_style.page.height() - m_style.margin - m_style.footRoom;
}

void Sheet::nextFrame()
{
    if (++m_frame >= m_frames.size()) {
        m_frame = 0;
        ++m_page;
        for (Frame& frame : m_frames) {
            frame.top = m_style.margin + m_style.headRoom;
        }
    }
    m_y = m_frames[m_frame].top;
}

void Sheet::advance(double height)
{
    if (m_y + height > bottom()) {
        nextFrame();
    }
}

QStringList Sheet::broken(const QString& text, const QFont& font, const Style& style) const
{
    const QFontMetricsF metrics(font);
    static const QRegularExpression syllable(
        QStringLiteral("(?<=[aeiouäöü][bcdfgklmnprst])(?=[bcdfgklmnprstvw][aeiouäöü])"));
    QStringList lines{QString()};
    const double width = m_frames[m_frame].width - style.indent;
    const auto room = [&] {
        return (width - (lines.size() <= style.firstLines ? style.firstIndent : 0)) * unitsPerPoint;
    };
    for (QString word : text.split(u' ', Qt::SkipEmptyParts)) {
        const QString lead = lines.last().isEmpty() ? QString() : QStringLiteral(" ");
        if (metrics.horizontalAdvance(lines.last() + lead + word) <= room()) {
            lines.last() += lead + word;
            continue;
        }
        const auto cut = syllable.match(word, 3);
        const QString left = cut.hasMatch() ? word.first(cut.capturedStart()) + u'-' : QString();
        if (m_style.hyphenated && word.size() > 7 && cut.hasMatch() &&
            word.size() - cut.capturedStart() >= 3 &&
            metrics.horizontalAdvance(lines.last() + lead + left) <= room()) {
            lines.last() += lead + left;
            word = word.mid(cut.capturedStart());
            lines.append(word);
        } else if (lines.last().isEmpty()) {
            lines.last() = word;
        } else {
            lines.append(word);
        }
    }
    return lines;
}

void Sheet::paragraph(const QString& text, const Style& style)
{
    QFont face = font(style.size, style.bold);
    face.setLetterSpacing(QFont::AbsoluteSpacing, style.tracking * style.size * unitsPerPoint);
    const QFontMetricsF metrics(face);
    const double width = m_frames[m_frame].width - style.indent;
    const QStringList lines = broken(text, face, style);
    const double height = style.size * m_style.leading;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        advance(height);
        const double natural = metrics.horizontalAdvance(lines[i]) / unitsPerPoint;
        const double inset = i < style.firstLines ? style.firstIndent : 0;
        const double room = width - inset;
        double left = m_frames[m_frame].left + style.indent + inset;
        left += style.centred ? (room - natural) / 2 : 0;
        if (style.tracking > 0) {
            setSpaced(lines[i], {left, m_y + style.size}, style);
            m_y += height;
            continue;
        }
        QFont own = face;
        const auto spaces = lines[i].count(u' ');
        if (m_style.justified && style.mayJustify && i + 1 < lines.size() && spaces > 2) {
            own.setWordSpacing((room - natural) * unitsPerPoint / static_cast<double>(spaces));
        }
        m_placed.append({m_page, {left, m_y + style.size}, lines[i], own});
        m_y += height;
    }
    m_y += style.after * style.size;
}

void Sheet::setSpaced(const QString& text, QPointF place, const Style& style)
{
    // A letter at a time: Qt stretches the space between letters in a PDF.
    const QFont face = font(style.size, style.bold);
    const QFontMetricsF metrics(face);
    for (const QChar letter : text) {
        m_placed.append({m_page, place, letter, face});
        place.rx() += metrics.horizontalAdvance(letter) / unitsPerPoint + style.tracking * style.size;
    }
}

void Sheet::at(double left, const QString& text, double size, bool bold, bool toTheLeft)
{
    const QFont face = font(size, bold);
    const double width = QFontMetricsF(face).horizontalAdvance(text) / unitsPerPoint;
    m_placed.append({m_page, {left - (toTheLeft ? width : 0), m_y + size}, text, face});
}

void Sheet::box(const QRectF& place)
{
    m_shapes.append({m_page, place, false});
}

void Sheet::circle(QPointF centre, double radius)
{
    m_shapes.append({m_page, {centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)}, true});
}

void Sheet::sideBySide(const QList<Column>& columns)
{
    const QList<Frame> outer = m_frames;
    const qsizetype outerFrame = m_frame;
    const int page = m_page;
    const double top = m_y;
    std::pair end{m_page, m_y};
    for (const Column& column : columns) {
        m_frames = {{column.left, column.width, top}};
        m_frame = 0;
        m_page = page;
        m_y = top;
        column.fill();
        end = std::max(end, std::pair{m_page, m_y});
    }
    m_frames = outer;
    m_frame = outerFrame;
    std::tie(m_page, m_y) = end;
}

void Sheet::turnTo(int page, double y)
{
    m_page = page;
    m_y = y;
}

void Sheet::record(const char16_t* kind, const QString& text)
{
    m_truth.append(QJsonObject{{QStringLiteral("kind"), QString::fromUtf16(kind)},
                               {QStringLiteral("text"), text},
                               {QStringLiteral("page"), m_page}});
}

} // namespace ovrin::material
