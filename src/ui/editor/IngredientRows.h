#pragma once

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// The ingredient lines being edited, one row each. Main thread.
class IngredientRows : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(IngredientRows)
    QML_UNCREATABLE("made by the editor")

public:
    enum Role { LineRole = Qt::UserRole + 1 };

    explicit IngredientRows(QObject* parent = nullptr);

    const QStringList& lines() const { return m_lines; }
    void reset(const QStringList& lines);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Writes into a row. A text with line breaks becomes several rows: its first piece replaces the row as
    /// it is, the others, trimmed and without the empty ones, follow it. A row that does not exist is
    /// ignored. Returns the last row written.
    Q_INVOKABLE int write(int row, const QString& text);
    /// An empty line after `row` (-1: at the very front). Returns the new row.
    Q_INVOKABLE int insertAfter(int row);
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void move(int from, int to);
    static bool hasLineBreak(const QString& text);
    /// A pasted list: bullets are stripped, lines that are still empty make room, the pieces follow the
    /// others.
    void pasteList(const QString& text);

Q_SIGNALS:
    void edited();

private:
    bool holds(int row) const { return row >= 0 && row < m_lines.size(); }
    void insert(int row, const QStringList& lines);

    QStringList m_lines;
};

} // namespace ovrin
