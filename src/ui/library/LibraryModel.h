#pragma once

#include "model/LibraryFilter.h"
#include "model/RecipeStore.h"

#include <QtCore/QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

class RecipePhotos;

/// The recipes that the sidebar's filter and the search text let through, newest first. Follows the store;
/// every change arrives as rows inserted, removed or changed, never as a reset.
class LibraryModel : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(LibraryModel)
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QString filter READ filterName WRITE setFilterName NOTIFY filterChanged)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QVariantList filters READ filters CONSTANT)

public:
    enum Role {
        RecipeIdRole = Qt::UserRole + 1, ///< QString, without braces
        TitleRole,
        PublisherRole,
        PhotoRole, ///< QUrl, empty without a photo
        SavedRole,
        HasPageRole,    ///< whether there is an original page
        FirstTintRole,  ///< QColor: the header gradient, from its first...
        SecondTintRole, ///< ...to its second colour
    };

    LibraryModel(RecipeStore& store, RecipePhotos& photos, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int count() const { return static_cast<int>(m_rows.size()); }
    RecipePtr recipe(int row) const;
    Q_INVOKABLE int rowOf(const QString& recipeId) const;

    LibraryFilter filter() const { return m_filter; }
    void setFilter(LibraryFilter filter);
    QString filterName() const { return rawValue(m_filter); }
    /// A name that is no filter's counts as "All Recipes".
    void setFilterName(const QString& name);
    const QString& search() const { return m_search; }
    void setSearch(const QString& text);
    /// What the sidebar shows: maps with "name" and "symbol".
    QVariantList filters() const;

    /// Computes the list anew: what is recent depends on the time.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void filterChanged();
    void searchChanged();
    void countChanged();

private:
    bool isVisible(const Recipe& recipe) const;
    /// The list for a new filter or search. Rows take over other recipes instead of coming and going, so that
    /// the cards that are seen are filled anew and not built anew.
    void showOthers();
    /// The first row whose recipe does not stand before `recipe` in the store.
    qsizetype lowerBound(qsizetype storeIndex) const;
    void onInserted(qsizetype storeIndex);
    void onRemoved(const RecipePtr& recipe);
    void onChanged(qsizetype storeIndex, RecipeAttributes attributes);
    void insertRow(qsizetype row, const RecipePtr& recipe);
    void removeRow(qsizetype row);

    RecipeStore& m_store;
    RecipePhotos& m_photos;
    LibraryFilter m_filter = LibraryFilter::All;
    QString m_search;
    std::vector<RecipePtr> m_rows;
};

} // namespace ovrin
