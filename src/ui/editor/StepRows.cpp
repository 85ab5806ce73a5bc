#include "ui/editor/StepRows.h"

namespace ovrin {

StepRows::StepRows(QObject* parent)
    : QAbstractListModel(parent)
{
}

QList<RecipeStep> StepRows::steps() const
{
    QList<RecipeStep> steps;
    for (const Row& row : m_rows) {
        steps.append(row.step);
        // Text nobody touched keeps its paragraphs as they are, line breaks inside them included.
        if (row.isTextEdited)
            steps.last().setText(row.text);
    }
    return steps;
}

void StepRows::reset(const QList<RecipeStep>& steps)
{
    if (!m_rows.isEmpty()) {
        beginRemoveRows({}, 0, static_cast<int>(m_rows.size()) - 1);
        m_rows.clear();
        endRemoveRows();
    }
    if (steps.isEmpty())
        return;
    beginInsertRows({}, 0, static_cast<int>(steps.size()) - 1);
    for (const RecipeStep& step : steps)
        m_rows.append({step, step.text(), false});
    endInsertRows();
}

int StepRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant StepRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case TitleRole:
        return row.step.title.value_or(QString());
    case TextRole:
    case Qt::DisplayRole:
        return row.text;
    default:
        return {};
    }
}

QHash<int, QByteArray> StepRows::roleNames() const
{
    return {{TitleRole, "stepTitle"}, {TextRole, "stepText"}};
}

void StepRows::setStepTitle(int row, const QString& title)
{
    if (!holds(row) || m_rows.at(row).step.title.value_or(QString()) == title)
        return;
    m_rows[row].step.title = title.isEmpty() ? std::nullopt : std::optional(title);
    Q_EMIT dataChanged(index(row), index(row), {TitleRole});
    Q_EMIT edited();
}

void StepRows::setStepText(int row, const QString& text)
{
    if (!holds(row) || m_rows.at(row).text == text)
        return;
    m_rows[row].text = text;
    m_rows[row].isTextEdited = true;
    Q_EMIT dataChanged(index(row), index(row), {TextRole, Qt::DisplayRole});
    Q_EMIT edited();
}

int StepRows::append()
{
    const int at = static_cast<int>(m_rows.size());
    beginInsertRows({}, at, at);
    m_rows.append(Row{});
    endInsertRows();
    Q_EMIT edited();
    return at;
}

void StepRows::remove(int row)
{
    if (!holds(row))
        return;
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
    Q_EMIT edited();
}

void StepRows::move(int from, int to)
{
    if (!holds(from) || !holds(to) || from == to)
        return;
    beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
    m_rows.move(from, to);
    endMoveRows();
    Q_EMIT edited();
}

} // namespace ovrin
