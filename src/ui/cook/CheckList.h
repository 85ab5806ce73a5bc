#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// Lines that can be ticked. What is ticked is a set of positions; none to begin with.
class CheckList : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(CheckList)
    QML_UNCREATABLE("made by cook mode's view model")

public:
    enum Role {
        TextRole = Qt::UserRole + 1,
        CheckedRole,
        HeadingRole, ///< bool: the line heads the ones below and cannot be ticked
    };

    using QAbstractListModel::QAbstractListModel;

    /// Ticks stay with their positions; those beyond the end go.
    void setLines(const QStringList& lines);
    const QSet<int>& checked() const { return m_checked; }
    Q_INVOKABLE void toggle(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QStringList m_lines;
    QSet<int> m_checked;
};

} // namespace ovrin
