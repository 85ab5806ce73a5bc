#pragma once

#include "cooking/CookMode.h"
#include "model/RecipeStore.h"
#include "ui/cook/CheckList.h"
#include "ui/recipe/DirectionList.h"

#include <QtGui/QColor>

namespace ovrin {

class CookTimers;
class RecipePhotos;

/// One recipe as it is cooked. Follows the record: edited, the stops are made anew and the current one stays
/// if it is still there; removed, nothing is found. The recipe itself is never changed.
class CookModeViewModel : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(CookModeViewModel)
    QML_UNCREATABLE("made for its window")
    Q_PROPERTY(bool isFound READ isFound NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QUrl photo READ photo NOTIFY changed)
    Q_PROPERTY(QColor firstTint READ firstTint NOTIFY changed)
    Q_PROPERTY(QColor secondTint READ secondTint NOTIFY changed)
    Q_PROPERTY(int current READ current NOTIFY currentChanged)
    Q_PROPERTY(bool canMoveUp READ canMoveUp NOTIFY currentChanged)
    Q_PROPERTY(bool canMoveDown READ canMoveDown NOTIFY currentChanged)
    Q_PROPERTY(ovrin::DirectionList* stops READ stops CONSTANT)
    Q_PROPERTY(ovrin::CheckList* ingredients READ ingredients CONSTANT)
    Q_PROPERTY(QAbstractItemModel* timers READ timers CONSTANT)

public:
    CookModeViewModel(RecipeStore& store, RecipePhotos& photos, CookTimers& timers, const QUuid& recipeId,
                      QObject* parent = nullptr);

    bool isFound() const { return m_recipe != nullptr; }
    QString title() const { return m_recipe ? m_recipe->title() : QString(); }
    QUrl photo() const;
    QColor firstTint() const;
    QColor secondTint() const;
    /// Position of the current stop; 0 as well when there is none.
    int current() const { return static_cast<int>(CookMode::position(m_items, m_currentId)); }
    bool canMoveUp() const { return current() > 0; }
    bool canMoveDown() const { return current() + 1 < m_items.size(); }
    DirectionList* stops() { return &m_stops; }
    CheckList* ingredients() { return &m_ingredients; }
    QAbstractItemModel* timers() const;

    Q_INVOKABLE void move(int count);
    Q_INVOKABLE void select(int row);
    /// Starts the timer of a timer link; whatever else an address says is dropped.
    Q_INVOKABLE void openLink(const QString& address);
    /// See CookMode::panelWidth.
    Q_INVOKABLE double panelWidth(double windowWidth) const { return CookMode::panelWidth(windowWidth); }

Q_SIGNALS:
    void changed();
    void currentChanged();

private:
    void refresh();

    RecipeStore& m_store;
    RecipePhotos& m_photos;
    CookTimers& m_timers;
    QUuid m_recipeId;
    RecipePtr m_recipe;
    QList<CookMode::Item> m_items;
    QString m_currentId;
    DirectionList m_stops;
    CheckList m_ingredients;
};

} // namespace ovrin
