#include "ui/cook/CookModeViewModel.h"

#include "cooking/CookTimers.h"
#include "model/RecipeTint.h"
#include "ui/images/RecipePhotos.h"
#include "ui/images/TintQColor.h"

namespace ovrin {

CookModeViewModel::CookModeViewModel(RecipeStore& store, RecipePhotos& photos, CookTimers& timers,
                                     const QUuid& recipeId, QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_photos(photos)
    , m_timers(timers)
    , m_recipeId(recipeId)
{
    connect(&store, &RecipeStore::changed, this, [this](qsizetype index) {
        if (m_store.at(index) == m_recipe)
            refresh();
    });
    connect(&store, &RecipeStore::removed, this, [this](qsizetype, const RecipePtr& recipe) {
        if (recipe == m_recipe)
            refresh();
    });
    // A removal may be undone.
    connect(&store, &RecipeStore::inserted, this, [this](qsizetype index) {
        if (m_store.at(index)->id() == m_recipeId)
            refresh();
    });
    refresh();
}

QUrl CookModeViewModel::photo() const
{
    return m_recipe ? m_photos.address(*m_recipe) : QUrl();
}

QColor CookModeViewModel::firstTint() const
{
    return m_recipe ? toQColor(headerGradient(*m_recipe).first) : QColor(Qt::black);
}

QColor CookModeViewModel::secondTint() const
{
    return m_recipe ? toQColor(headerGradient(*m_recipe).second) : QColor(Qt::black);
}

QAbstractItemModel* CookModeViewModel::timers() const
{
    return &m_timers;
}

void CookModeViewModel::move(int count)
{
    const QString id = CookMode::moved(m_items, m_currentId, count);
    if (id == m_currentId)
        return;
    m_currentId = id;
    Q_EMIT currentChanged();
}

void CookModeViewModel::select(int row)
{
    move(row - current());
}

void CookModeViewModel::openLink(const QString& address)
{
    m_timers.openLink(QUrl(address), title(), m_recipeId);
}

void CookModeViewModel::refresh()
{
    m_recipe = m_store.find(m_recipeId);
    m_items =
        m_recipe ? CookMode::items(m_recipe->ingredients(), m_recipe->steps()) : QList<CookMode::Item>();
    QList<DirectionRow> rows;
    rows.reserve(m_items.size());
    for (const CookMode::Item& item : m_items)
        rows.append({.stepNumber = item.isFirstInStep ? item.stepNumber : 0,
                     .stepTitle = item.isFirstInStep ? item.stepTitle.value_or(QString()) : QString(),
                     .paragraph = {item.text(), item.segments}});
    m_stops.setRows(rows);
    m_ingredients.setLines(m_recipe ? m_recipe->ingredients() : QStringList());
    Q_EMIT changed();
    Q_EMIT currentChanged();
}

} // namespace ovrin
