#pragma once

#include "model/RecipeStep.h"

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// The steps being edited. While a step is being typed its text is kept as typed; `steps()` cuts it into
/// paragraphs, so that a blank line at the end is not taken away under the writer's hands.
class StepRows : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(StepRows)
    QML_UNCREATABLE("made by the editor")

public:
    enum Role { TitleRole = Qt::UserRole + 1, TextRole };

    explicit StepRows(QObject* parent = nullptr);

    QList<RecipeStep> steps() const;
    void reset(const QList<RecipeStep>& steps);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void setStepTitle(int row, const QString& title);
    Q_INVOKABLE void setStepText(int row, const QString& text);
    /// An empty step at the end. Returns its row.
    Q_INVOKABLE int append();
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void move(int from, int to);

Q_SIGNALS:
    void edited();

private:
    struct Row
    {
        RecipeStep step;
        QString text;
        bool isTextEdited = false;
    };
    bool holds(int row) const { return row >= 0 && row < m_rows.size(); }

    QList<Row> m_rows;
};

} // namespace ovrin
