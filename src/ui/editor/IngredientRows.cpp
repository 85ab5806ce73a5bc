#include "ui/editor/IngredientRows.h"

#include <QtCore/QRegularExpression>

namespace ovrin {

namespace {

/// All that a text field or a pasteboard may mean by a line break.
const QRegularExpression& lineBreak()
{
    static const QRegularExpression pattern(QStringLiteral("\r\n|[\n\r\v\f\u0085\u2028\u2029]"));
    return pattern;
}

QStringList splitLines(const QString& text)
{
    return text.split(lineBreak());
}

QString trimmed(QStringView text, QStringView characters)
{
    while (!text.isEmpty() && characters.contains(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && characters.contains(text.back()))
        text.chop(1);
    return text.toString();
}

constexpr QStringView blanks = u" \t";
constexpr QStringView bullets = u"\u2022-*\u25A2\u2610 ";

} // namespace

IngredientRows::IngredientRows(QObject* parent)
    : QAbstractListModel(parent)
{
}

void IngredientRows::reset(const QStringList& lines)
{
    if (!m_lines.isEmpty()) {
        beginRemoveRows({}, 0, static_cast<int>(m_lines.size()) - 1);
        m_lines.clear();
        endRemoveRows();
    }
    insert(0, lines);
}

int IngredientRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant IngredientRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    return role == LineRole || role == Qt::DisplayRole ? QVariant(m_lines.at(index.row())) : QVariant();
}

QHash<int, QByteArray> IngredientRows::roleNames() const
{
    return {{LineRole, "line"}};
}

void IngredientRows::insert(int row, const QStringList& lines)
{
    if (lines.isEmpty())
        return;
    beginInsertRows({}, row, row + static_cast<int>(lines.size()) - 1);
    for (qsizetype i = 0; i < lines.size(); ++i)
        m_lines.insert(row + i, lines.at(i));
    endInsertRows();
}

int IngredientRows::write(int row, const QString& text)
{
    if (!holds(row))
        return row;
    const QStringList pieces = splitLines(text);
    QStringList further;
    for (const QString& piece : pieces.sliced(1))
        if (const QString line = trimmed(piece, blanks); !line.isEmpty())
            further.append(line);
    // A field whose line break goes away in the model must be told even if its first piece is what it was.
    if (m_lines.at(row) != pieces.first() || pieces.size() > 1) {
        m_lines[row] = pieces.first();
        Q_EMIT dataChanged(index(row), index(row), {LineRole, Qt::DisplayRole});
        insert(row + 1, further);
        Q_EMIT edited();
    }
    return row + static_cast<int>(further.size());
}

int IngredientRows::insertAfter(int row)
{
    const int at = qBound(0, row + 1, static_cast<int>(m_lines.size()));
    insert(at, {QString()});
    Q_EMIT edited();
    return at;
}

void IngredientRows::remove(int row)
{
    if (!holds(row))
        return;
    beginRemoveRows({}, row, row);
    m_lines.removeAt(row);
    endRemoveRows();
    Q_EMIT edited();
}

void IngredientRows::move(int from, int to)
{
    if (!holds(from) || !holds(to) || from == to)
        return;
    beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
    m_lines.move(from, to);
    endMoveRows();
    Q_EMIT edited();
}

bool IngredientRows::hasLineBreak(const QString& text)
{
    return text.contains(lineBreak());
}

void IngredientRows::pasteList(const QString& text)
{
    QStringList pieces;
    for (const QString& piece : splitLines(text))
        if (const QString line = trimmed(trimmed(piece, blanks), bullets); !line.isEmpty())
            pieces.append(line);
    // Nothing to paste changes nothing: the blank lines stay where the cook put them.
    if (pieces.isEmpty())
        return;
    for (int row = static_cast<int>(m_lines.size()) - 1; row >= 0; --row)
        if (trimmed(m_lines.at(row), blanks).isEmpty()) {
            beginRemoveRows({}, row, row);
            m_lines.removeAt(row);
            endRemoveRows();
        }
    insert(static_cast<int>(m_lines.size()), pieces);
    Q_EMIT edited();
}

} // namespace ovrin
