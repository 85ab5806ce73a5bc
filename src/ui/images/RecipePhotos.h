#pragma once

#include "model/RecipeStore.h"

#include <QtCore/QUrl>

namespace ovrin {

/// The addresses under which an Image shows the photos of the library. A photo that is replaced gets a new
/// one.
class RecipePhotos : public QObject
{
    Q_OBJECT

public:
    explicit RecipePhotos(RecipeStore& store, QObject* parent = nullptr);

    /// Empty for a recipe without a photo.
    QUrl address(const Recipe& recipe) const;
    /// The JPEG of `key`, which is what follows "recipe/" in an address.
    QByteArray bytes(const QString& key) const;

private:
    RecipeStore& m_store;
    QHash<QUuid, int> m_revisions;
};

} // namespace ovrin
