#pragma once

#include "model/LibraryQuery.h"
#include "model/Recipe.h"
#include "model/SaveResult.h"

#include <QtCore/QFuture>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace ovrin {

namespace sqlite {
class Connection;
class Error;
} // namespace sqlite
struct LibraryFile;
struct ListedRecipe;
struct RecipeDetails;
struct Write;
struct WrittenBatch;
class StoreWriter;

/// The library on disk and its recipes in memory, newest first, kept alike: a live list. Main thread only.
///
/// Changes go in order to a writer's thread; a save is acknowledged when it is durable. One that fails is
/// reported, and its recipe goes back to what is on the disk. What other processes change arrives by itself
/// within a second. Observers hear of each insert, removal and change one by one, after the list has taken
/// it.
class RecipeStore : public QObject
{
    Q_OBJECT

public:
    /// The live list for a loop; valid until the list changes.
    struct Range
    {
        const std::vector<RecipePtr>& oldestFirst;
        auto begin() const { return oldestFirst.rbegin(); }
        auto end() const { return oldestFirst.rend(); }
    };

    struct Options
    {
        /// Folder of `Library.sqlite`; made when missing.
        QString folder = {};
        Clock now = systemNow;
        /// What "localized" means when searching.
        QLocale locale = QLocale::c();
        /// SQLite's name of the file layer; empty for the system's.
        QByteArray vfs = {};
        /// How often to look for other processes' changes; 0 for only when `refresh` is called.
        std::chrono::milliseconds refreshInterval{500};
    };

    struct Opened
    {
        /// Null when the library cannot be opened.
        std::unique_ptr<RecipeStore> store;
        /// Why it cannot: a sentence for the user.
        QString error;
        /// Something the user should be told although it went well; mostly empty.
        QString notice;
    };
    static Opened open(Options options);
    /// A library that is being opened on a thread of its own.
    struct Opening
    {
        /// Finished when `opened` need not wait any more.
        QFuture<void> isReady = {};
        /// Called once, on the thread that the store is to live on.
        std::function<Opened()> opened = {};
    };
    static Opening beginOpening(Options options);
    /// Returns when everything changed so far is on the disk.
    ~RecipeStore() override;

    /// Newest first; of the same moment the one inserted first comes first.
    auto recipes() const { return Range{m_recipes}; }
    qsizetype count() const { return static_cast<qsizetype>(m_recipes.size()); }
    const RecipePtr& at(qsizetype index) const { return m_recipes[m_recipes.size() - 1 - index]; }
    /// -1 when it is not in the library.
    qsizetype indexOf(const Recipe& recipe) const;
    /// Null when there is none.
    RecipePtr find(const QUuid& id) const;
    /// The newest recipe imported from this address, compared fully encoded; null when there is none.
    RecipePtr existingRecipe(const QUrl& url) const;

    LibraryQuery query(LibraryFilter filter, const QString& search = {}) const;
    /// The recipes that the query lets through, in the list's order.
    std::vector<RecipePtr> visible(LibraryFilter filter, const QString& search = {}) const;

    /// Puts a new recipe in, or a removed one back as it was. Does nothing with one that is in.
    QFuture<SaveResult> insert(const RecipePtr& recipe);
    /// Takes it out; the object stays whole, its photo included, so that `insert` can undo this.
    QFuture<SaveResult> remove(const RecipePtr& recipe);
    /// Done when every change made so far is durable or has failed; holds the first failure since the last
    /// call.
    QFuture<SaveResult> saved();

    /// Looks for other processes' changes now.
    void refresh();

    /// What is wrong with the library on disk, a sentence each; reads all of it. `isDecodable` says whether
    /// bytes are a photo.
    QStringList check(const std::function<bool(const QByteArray&)>& isDecodable);

    Instant now() const { return m_options.now(); }
    QString folder() const { return m_options.folder; }

Q_SIGNALS:
    void inserted(qsizetype index);
    /// `recipe` stood at `index`.
    void removed(qsizetype index, const ovrin::RecipePtr& recipe);
    void changed(qsizetype index, ovrin::RecipeAttributes attributes);
    /// Null `recipe` when the failure is not about one. The message is for the user.
    void saveFailed(const ovrin::RecipePtr& recipe, const QString& message);
    void readFailed(const QString& message);

private:
    friend class Recipe;

    struct Listing;
    static Listing list(const Options& options);
    RecipeStore(Options options, Listing listing);

    void recipeChanged(Recipe& recipe, RecipeAttributes attributes);
    std::optional<RecipeDetails> details(const QUuid& id);
    std::optional<QByteArray> photo(const QUuid& id);
    /// What `read` gives, or an empty value and a report when the database cannot be read.
    template<typename Read>
    auto reading(Read read) -> decltype(read());

    /// The live list's order.
    static bool liesBelow(const Recipe& a, const Recipe& b);
    std::vector<RecipePtr>::const_iterator place(const Recipe& recipe) const;

    void enqueue(Write write);
    void acknowledge(const WrittenBatch& batch);

    /// Makes search keys while nothing else happens, so that the first search finds them made.
    void foldSome();

    void putIn(const RecipePtr& recipe);
    void takeOut(const RecipePtr& recipe);
    void refreshAll();
    void refreshRecipe(const QUuid& id, RecipeAttributes logged);
    void takeOver(const QUuid& id, std::optional<ListedRecipe> listed, RecipeAttributes logged);

    Options m_options;
    SearchFolding m_folding;
    std::unique_ptr<sqlite::Connection> m_reader;

    /// Oldest first, so that the usual insert is at the end.
    std::vector<RecipePtr> m_recipes;
    QHash<QUuid, Recipe*> m_byId;
    qint64 m_lastOrder = 0;

    /// Recipes with writes under way, and how many.
    QHash<QUuid, int> m_pending;
    /// Removed, but not yet durably.
    QHash<QUuid, RecipePtr> m_removing;
    /// Changed elsewhere or failed to save while writes were under way: read again when those are done.
    QHash<QUuid, RecipeAttributes> m_stale;

    qint64 m_dataVersion = -1;
    qint64 m_seenSequence = 0;
    QTimer m_refreshTimer;

    QTimer m_foldTimer;
    std::size_t m_folded = 0;

    /// Last, so that it ends first.
    std::unique_ptr<StoreWriter> m_writer;
};

} // namespace ovrin
