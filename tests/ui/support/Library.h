#pragma once

#include "model/RecipeStore.h"

#include <QtCore/QTemporaryDir>

namespace ovrin {

/// A library of its own in a folder of its own, with a clock that stands until it is moved.
class Library
{
public:
    Library()
    {
        RecipeStore::Options options;
        options.folder = m_folder.path();
        options.now = [this] { return m_now; };
        options.refreshInterval = std::chrono::milliseconds(0);
        m_store = RecipeStore::open(options).store;
        if (!m_store)
            qFatal("the library could not be opened");
    }

    RecipeStore& store() { return *m_store; }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    void advance(std::chrono::microseconds time) { m_now += time; }

    /// A recipe that is a second younger than the one before.
    RecipePtr add(const RecipeDraft& draft)
    {
        advance(std::chrono::seconds(1));
        auto recipe = std::make_shared<Recipe>(draft, m_now);
        m_store->insert(recipe);
        return recipe;
    }
    RecipePtr add(const QString& title)
    {
        RecipeDraft draft;
        draft.title = title;
        return add(draft);
    }

private:
    QTemporaryDir m_folder;
    Instant m_now{std::chrono::sys_days{std::chrono::year{2024} / 5 / 1}};
    std::unique_ptr<RecipeStore> m_store;
};

} // namespace ovrin
