#include "model/SampleRecipes.h"
#include "model/FlagStore.h"
#include "model/RecipeStore.h"

#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>

namespace ovrin {
namespace {

class Flags : public FlagStore
{
public:
    bool flag(const QString& key) const override { return m_set.contains(key); }
    void setFlag(const QString& key, bool) override { m_set.insert(key); }

private:
    QSet<QString> m_set;
};

TEST(SampleRecipes, AreSeededOncePerUserIntoAnEmptyLibrary)
{
    const QTemporaryDir folder;
    Flags flags;
    {
        const auto opened = RecipeStore::open({.folder = folder.path()});
        SampleRecipes::seedIfNeeded(*opened.store, flags);
        ASSERT_EQ(opened.store->count(), 1);
        EXPECT_TRUE(flags.flag(QStringLiteral("didSeedSampleRecipes")));
        const Recipe& sample = *opened.store->at(0);
        EXPECT_EQ(sample.title(), QStringLiteral("Lemony Garlic Spaghetti"));
        EXPECT_EQ(sample.ingredients().size(), 8);
        EXPECT_EQ(sample.steps().size(), 3);
        opened.store->remove(opened.store->at(0));
    }
    const auto opened = RecipeStore::open({.folder = folder.path()});
    SampleRecipes::seedIfNeeded(*opened.store, flags);
    EXPECT_EQ(opened.store->count(), 0);
}

TEST(SampleRecipes, StayOutOfALibraryWithRecipesForGood)
{
    const QTemporaryDir folder;
    Flags flags;
    const auto opened = RecipeStore::open({.folder = folder.path()});
    const auto own = std::make_shared<Recipe>(RecipeDraft(), Instant());
    opened.store->insert(own);
    SampleRecipes::seedIfNeeded(*opened.store, flags);
    EXPECT_EQ(opened.store->count(), 1);
    opened.store->remove(own);
    SampleRecipes::seedIfNeeded(*opened.store, flags);
    EXPECT_EQ(opened.store->count(), 0);
}

} // namespace
} // namespace ovrin
