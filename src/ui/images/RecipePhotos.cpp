#include "ui/images/RecipePhotos.h"

namespace ovrin {

RecipePhotos::RecipePhotos(RecipeStore& store, QObject* parent)
    : QObject(parent)
    , m_store(store)
{
    connect(&store, &RecipeStore::changed, this, [this](qsizetype index, RecipeAttributes attributes) {
        if (attributes.testFlag(RecipeAttribute::ImageData))
            ++m_revisions[m_store.at(index)->id()];
    });
}

QUrl RecipePhotos::address(const Recipe& recipe) const
{
    if (!recipe.hasImage())
        return {};
    return QUrl(QStringLiteral("image://photo/recipe/%1/%2")
                    .arg(recipe.id().toString(QUuid::WithoutBraces))
                    .arg(m_revisions.value(recipe.id())));
}

QByteArray RecipePhotos::bytes(const QString& key) const
{
    const RecipePtr recipe = m_store.find(QUuid(key.section(u'/', 0, 0)));
    return recipe ? recipe->imageData().value_or(QByteArray()) : QByteArray();
}

} // namespace ovrin
