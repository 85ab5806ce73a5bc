#pragma once

#include <QtCore/QAbstractListModel>

#include <algorithm>
#include <limits>
#include <utility>

namespace ovrin {

/// A list model whose rows mostly correspond by position to those it takes over: differing rows are reported
/// as changed one by one, rows at the end as inserted or removed. It may report only the first of its rows at
/// once and the others by and by, as `reportMore` is called: a view that makes an item a row is then never
/// busy for long, however many there are.
template<typename Row>
class RowList : public QAbstractListModel
{
public:
    static constexpr qsizetype all = std::numeric_limits<qsizetype>::max();

    /// Reports `atOnce` rows of a new list and `more` rows with each `reportMore`.
    explicit RowList(qsizetype atOnce = all, qsizetype more = all)
        : m_atOnce(atOnce)
        , m_more(more)
    {
    }

    /// All rows, those not yet reported as well.
    const QList<Row>& rows() const { return m_rows; }

    void setRows(const QList<Row>& rows)
    {
        if (rows.size() < m_reported) {
            beginRemoveRows({}, static_cast<int>(rows.size()), static_cast<int>(m_reported) - 1);
            m_reported = rows.size();
            endRemoveRows();
        }
        const QList<Row> before = std::exchange(m_rows, rows);
        for (qsizetype row = 0; row < m_reported; ++row)
            if (!(before.at(row) == rows.at(row)))
                Q_EMIT dataChanged(index(static_cast<int>(row)), index(static_cast<int>(row)));
        report(m_atOnce);
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_reported);
    }
    bool isWhole() const { return m_reported == m_rows.size(); }
    void reportMore() { report(m_reported + std::min(m_more, m_rows.size() - m_reported)); }

private:
    void report(qsizetype wanted)
    {
        const qsizetype count = std::min(wanted, m_rows.size());
        if (count <= m_reported)
            return;
        beginInsertRows({}, static_cast<int>(m_reported), static_cast<int>(count) - 1);
        m_reported = count;
        endInsertRows();
    }

    qsizetype m_atOnce;
    qsizetype m_more;
    qsizetype m_reported = 0;
    QList<Row> m_rows;
};

} // namespace ovrin
