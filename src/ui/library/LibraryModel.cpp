#include "ui/library/LibraryModel.h"

#include "ui/images/RecipePhotos.h"
#include "ui/images/TintQColor.h"
#include "ui/library/RowChanges.h"

#include <algorithm>

namespace ovrin {

namespace {

QList<int> rolesOf(RecipeAttributes attributes)
{
    QList<int> roles;
    if (attributes.testFlag(RecipeAttribute::Title))
        roles << LibraryModel::TitleRole << Qt::DisplayRole;
    if (attributes.testFlag(RecipeAttribute::Publisher))
        roles << LibraryModel::PublisherRole;
    if (attributes.testFlag(RecipeAttribute::IsSaved))
        roles << LibraryModel::SavedRole;
    if (attributes.testFlag(RecipeAttribute::SourceURL))
        roles << LibraryModel::HasPageRole;
    if (attributes.testFlag(RecipeAttribute::ImageData))
        roles << LibraryModel::PhotoRole;
    // Without a photo the tint follows from the title.
    if (attributes & (RecipeAttribute::TintHex | RecipeAttribute::Title))
        roles << LibraryModel::FirstTintRole << LibraryModel::SecondTintRole;
    return roles;
}

} // namespace

LibraryModel::LibraryModel(RecipeStore& store, RecipePhotos& photos, QObject* parent)
    : QAbstractListModel(parent)
    , m_store(store)
    , m_photos(photos)
{
    m_rows.assign(store.recipes().begin(), store.recipes().end());
    connect(&store, &RecipeStore::inserted, this, &LibraryModel::onInserted);
    connect(&store, &RecipeStore::removed, this,
            [this](qsizetype, const RecipePtr& recipe) { onRemoved(recipe); });
    connect(&store, &RecipeStore::changed, this, &LibraryModel::onChanged);
}

int LibraryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant LibraryModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Recipe& recipe = *m_rows[index.row()];
    switch (role) {
    case RecipeIdRole:
        return recipe.id().toString(QUuid::WithoutBraces);
    case TitleRole:
    case Qt::DisplayRole:
        return recipe.title();
    case PublisherRole:
        return recipe.publisher();
    case PhotoRole:
        return m_photos.address(recipe);
    case SavedRole:
        return recipe.isSaved();
    case HasPageRole:
        return recipe.sourceAddress().has_value();
    case FirstTintRole:
        return toQColor(headerGradient(recipe).first);
    case SecondTintRole:
        return toQColor(headerGradient(recipe).second);
    default:
        return {};
    }
}

QHash<int, QByteArray> LibraryModel::roleNames() const
{
    return {{RecipeIdRole, "recipeId"},   {TitleRole, "title"},          {PublisherRole, "publisher"},
            {PhotoRole, "photo"},         {SavedRole, "isSaved"},        {HasPageRole, "hasPage"},
            {FirstTintRole, "firstTint"}, {SecondTintRole, "secondTint"}};
}

RecipePtr LibraryModel::recipe(int row) const
{
    return row >= 0 && row < count() ? m_rows[row] : nullptr;
}

int LibraryModel::rowOf(const QString& recipeId) const
{
    const QUuid id(recipeId);
    const auto found = std::ranges::find(m_rows, id, [](const RecipePtr& recipe) { return recipe->id(); });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

void LibraryModel::setFilter(LibraryFilter filter)
{
    if (m_filter == filter)
        return;
    m_filter = filter;
    Q_EMIT filterChanged();
    showOthers();
}

void LibraryModel::setFilterName(const QString& name)
{
    setFilter(libraryFilterFrom(name).value_or(LibraryFilter::All));
}

void LibraryModel::setSearch(const QString& text)
{
    if (m_search == text)
        return;
    m_search = text;
    Q_EMIT searchChanged();
    showOthers();
}

QVariantList LibraryModel::filters() const
{
    QVariantList filters;
    for (const LibraryFilter filter : libraryFilters)
        filters.append(QVariantMap{{QStringLiteral("name"), rawValue(filter)},
                                   {QStringLiteral("symbol"), symbolName(filter)}});
    return filters;
}

bool LibraryModel::isVisible(const Recipe& recipe) const
{
    return m_store.query(m_filter, m_search).letsThrough(recipe);
}

void LibraryModel::refresh()
{
    const std::vector<RecipePtr> wanted = m_store.visible(m_filter, m_search);
    const auto before = m_rows.size();
    for (const RowChange& change : rowChanges(m_rows, wanted)) {
        const int first = static_cast<int>(change.row);
        const int last = first + static_cast<int>(change.count) - 1;
        if (change.kind == RowChange::Remove) {
            beginRemoveRows({}, first, last);
            m_rows.erase(m_rows.begin() + change.row, m_rows.begin() + change.row + change.count);
            endRemoveRows();
        } else {
            beginInsertRows({}, first, last);
            m_rows.insert(m_rows.begin() + change.row, wanted.begin() + change.source,
                          wanted.begin() + change.source + change.count);
            endInsertRows();
        }
    }
    if (m_rows.size() != before)
        Q_EMIT countChanged();
}

void LibraryModel::showOthers()
{
    std::vector<RecipePtr> wanted = m_store.visible(m_filter, m_search);
    const auto before = static_cast<int>(m_rows.size());
    const auto after = static_cast<int>(wanted.size());
    const int common = qMin(before, after);
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_rows.resize(after);
        endRemoveRows();
    }
    const auto [old, fresh] = std::mismatch(m_rows.begin(), m_rows.begin() + common, wanted.begin());
    const auto firstOther = static_cast<int>(old - m_rows.begin());
    std::copy(fresh, wanted.begin() + common, old);
    if (firstOther < common)
        Q_EMIT dataChanged(index(firstOther), index(common - 1));
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_rows = std::move(wanted);
        endInsertRows();
    }
    if (after != before)
        Q_EMIT countChanged();
}

qsizetype LibraryModel::lowerBound(qsizetype storeIndex) const
{
    const auto place =
        std::ranges::lower_bound(m_rows, storeIndex, std::less<>(),
                                 [this](const RecipePtr& recipe) { return m_store.indexOf(*recipe); });
    return place - m_rows.begin();
}

void LibraryModel::insertRow(qsizetype row, const RecipePtr& recipe)
{
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row));
    m_rows.insert(m_rows.begin() + row, recipe);
    endInsertRows();
    Q_EMIT countChanged();
}

void LibraryModel::removeRow(qsizetype row)
{
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
    Q_EMIT countChanged();
}

void LibraryModel::onInserted(qsizetype storeIndex)
{
    if (const RecipePtr recipe = m_store.at(storeIndex); isVisible(*recipe))
        insertRow(lowerBound(storeIndex), recipe);
}

void LibraryModel::onRemoved(const RecipePtr& recipe)
{
    if (const auto found = std::ranges::find(m_rows, recipe); found != m_rows.end())
        removeRow(found - m_rows.begin());
}

void LibraryModel::onChanged(qsizetype storeIndex, RecipeAttributes attributes)
{
    const RecipePtr recipe = m_store.at(storeIndex);
    const qsizetype row = lowerBound(storeIndex);
    const bool isShown = row < count() && m_rows[row] == recipe;
    const bool isWanted = isVisible(*recipe);
    if (isWanted && !isShown)
        insertRow(row, recipe);
    else if (isShown && !isWanted)
        removeRow(row);
    else if (const QList<int> roles = rolesOf(attributes); isShown && !roles.isEmpty())
        Q_EMIT dataChanged(index(static_cast<int>(row)), index(static_cast<int>(row)), roles);
}

} // namespace ovrin
