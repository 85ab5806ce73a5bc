#include "model/RecipeStore.h"

#include "model/store/LibraryCheck.h"
#include "model/store/LibraryFile.h"
#include "model/store/Sqlite.h"
#include "model/store/StoreWriter.h"

#include <QtCore/QPromise>
#include <QtCore/QScopeGuard>

#include <algorithm>
#include <future>

namespace ovrin {

namespace {

constexpr RecipeAttributes unlisted{RecipeAttribute::Summary | RecipeAttribute::StepsData |
                                    RecipeAttribute::Notes | RecipeAttribute::ImageData};
/// What starts together with the store, a window above all, comes before the search keys.
constexpr auto foldingDelay = std::chrono::milliseconds(400);

} // namespace

/// What the opening thread makes of a library, ready to be taken over.
struct RecipeStore::Listing
{
    LibraryFile file;
    std::vector<RecipePtr> recipes = {};
    QHash<QUuid, Recipe*> byId = {};
    qint64 lastOrder = 0;
};

RecipeStore::Listing RecipeStore::list(const Options& options)
{
    Listing listing{openLibrary(options.folder, options.vfs, options.now())};
    const auto count = listing.file.recipes.size();
    listing.recipes.reserve(count);
    listing.byId.reserve(static_cast<qsizetype>(count));
    for (ListedRecipe& listed : listing.file.recipes) {
        listing.lastOrder = listed.row;
        auto recipe = std::make_shared<Recipe>(std::move(listed));
        listing.byId.insert(recipe->id(), recipe.get());
        listing.recipes.push_back(std::move(recipe));
    }
    std::ranges::sort(listing.recipes,
                      [](const RecipePtr& a, const RecipePtr& b) { return liesBelow(*a, *b); });
    listing.file.recipes = {};
    return listing;
}

RecipeStore::RecipeStore(Options options, Listing listing)
    : m_options(std::move(options))
    , m_folding(m_options.locale)
    , m_reader(std::make_unique<sqlite::Connection>(std::move(listing.file.reader)))
    , m_recipes(std::move(listing.recipes))
    , m_byId(std::move(listing.byId))
    , m_lastOrder(listing.lastOrder)
    , m_dataVersion(listing.file.dataVersion)
    , m_seenSequence(listing.file.sequence)
{
    for (const RecipePtr& recipe : m_recipes)
        recipe->m_store = this;

    m_writer = std::make_unique<StoreWriter>(std::move(listing.file.writer), [this](WrittenBatch batch) {
        QMetaObject::invokeMethod(
            this, [this, batch = std::move(batch)] { acknowledge(batch); }, Qt::QueuedConnection);
    });
    m_foldTimer.callOnTimeout(this, &RecipeStore::foldSome);
    m_foldTimer.start(foldingDelay);
    m_refreshTimer.callOnTimeout(this, &RecipeStore::refresh);
    if (m_options.refreshInterval.count() > 0)
        m_refreshTimer.start(m_options.refreshInterval);
}

RecipeStore::Opened RecipeStore::open(Options options)
{
    return beginOpening(std::move(options)).opened();
}

RecipeStore::Opening RecipeStore::beginOpening(Options options)
{
    const auto ready = std::make_shared<QPromise<void>>();
    ready->start();
    const QFuture<void> isReady = ready->future();
    const auto opening = std::make_shared<std::future<Listing>>(std::async(std::launch::async, [=] {
        const auto tell = qScopeGuard([&] { ready->finish(); });
        return list(options);
    }));
    const auto opened = [options = std::move(options), opening]() -> Opened {
        try {
            Listing listing = opening->get();
            const QString notice = listing.file.notice;
            return {std::unique_ptr<RecipeStore>(new RecipeStore(options, std::move(listing))), {}, notice};
        } catch (const LibraryError& error) {
            return {nullptr, error.description, {}};
        } catch (const sqlite::Error& error) {
            return {nullptr, error.description(), {}};
        }
    };
    return {isReady, opened};
}

RecipeStore::~RecipeStore()
{
    for (const RecipePtr& recipe : m_recipes)
        recipe->m_store = nullptr;
    // The connection that is closed last empties the log into the file, which only the writer's can.
    m_reader.reset();
    m_writer.reset();
}

template<typename Read>
auto RecipeStore::reading(Read read) -> decltype(read())
{
    try {
        return read();
    } catch (const sqlite::Error& error) {
        if (error.isDamage())
            markDamaged(m_options.folder);
        Q_EMIT readFailed(error.description());
        return decltype(read())();
    }
}

bool RecipeStore::liesBelow(const Recipe& a, const Recipe& b)
{
    return a.createdAt() != b.createdAt() ? a.createdAt() < b.createdAt() : a.m_order > b.m_order;
}

std::vector<RecipePtr>::const_iterator RecipeStore::place(const Recipe& recipe) const
{
    return std::partition_point(m_recipes.begin(), m_recipes.end(),
                                [&](const RecipePtr& other) { return liesBelow(*other, recipe); });
}

qsizetype RecipeStore::indexOf(const Recipe& recipe) const
{
    if (recipe.m_store != this)
        return -1;
    const auto self = std::find(place(recipe), m_recipes.end(), recipe.shared_from_this());
    return m_recipes.end() - self - 1;
}

RecipePtr RecipeStore::find(const QUuid& id) const
{
    Recipe* recipe = m_byId.value(id);
    return recipe ? recipe->shared_from_this() : nullptr;
}

RecipePtr RecipeStore::existingRecipe(const QUrl& url) const
{
    const QString address = url.toString(QUrl::FullyEncoded);
    const auto all = recipes();
    const auto found = std::ranges::find_if(
        all, [&](const RecipePtr& recipe) { return recipe->sourceAddress() == address; });
    return found != all.end() ? *found : nullptr;
}

void RecipeStore::foldSome()
{
    constexpr std::size_t atOnce = 200;
    m_foldTimer.setInterval(0);
    const std::size_t end = std::min(m_folded + atOnce, m_recipes.size());
    for (; m_folded < end; ++m_folded)
        m_recipes[m_folded]->searchKey(m_folding);
    if (m_folded >= m_recipes.size())
        m_foldTimer.stop();
}

LibraryQuery RecipeStore::query(LibraryFilter filter, const QString& search) const
{
    return {filter, search, now(), m_folding};
}

std::vector<RecipePtr> RecipeStore::visible(LibraryFilter filter, const QString& search) const
{
    const LibraryQuery asked = query(filter, search);
    std::vector<RecipePtr> found;
    std::ranges::copy_if(recipes(), std::back_inserter(found),
                         [&](const RecipePtr& recipe) { return asked.letsThrough(*recipe); });
    return found;
}

void RecipeStore::putIn(const RecipePtr& recipe)
{
    const auto above = place(*recipe);
    const qsizetype index = m_recipes.end() - above;
    m_recipes.insert(above, recipe);
    m_byId.insert(recipe->id(), recipe.get());
    recipe->m_store = this;
    recipe->m_isGone = false;
    Q_EMIT inserted(index);
}

void RecipeStore::takeOut(const RecipePtr& recipe)
{
    const qsizetype index = indexOf(*recipe);
    m_recipes.erase(m_recipes.end() - 1 - index);
    m_byId.remove(recipe->id());
    recipe->m_store = nullptr;
    recipe->m_isGone = true;
    Q_EMIT removed(index, recipe);
}

QFuture<SaveResult> RecipeStore::insert(const RecipePtr& recipe)
{
    if (m_byId.contains(recipe->id()))
        return saved();
    recipe->m_order = ++m_lastOrder;
    Write write{Write::Kind::Insert, recipe->record(), {}, QPromise<SaveResult>()};
    auto result = write.promise->future();
    enqueue(std::move(write));
    putIn(recipe);
    return result;
}

QFuture<SaveResult> RecipeStore::remove(const RecipePtr& recipe)
{
    if (recipe->m_store != this)
        return saved();
    recipe->loadAll();
    m_removing.insert(recipe->id(), recipe);
    Write write{Write::Kind::Remove, {}, {}, QPromise<SaveResult>()};
    write.record.id = recipe->id();
    auto result = write.promise->future();
    enqueue(std::move(write));
    takeOut(recipe);
    return result;
}

QFuture<SaveResult> RecipeStore::saved()
{
    Write barrier{Write::Kind::Barrier, {}, {}, QPromise<SaveResult>()};
    auto result = barrier.promise->future();
    enqueue(std::move(barrier));
    return result;
}

QStringList RecipeStore::check(const std::function<bool(const QByteArray&)>& isDecodable)
{
    return checkLibrary(*m_reader, isDecodable);
}

void RecipeStore::recipeChanged(Recipe& recipe, RecipeAttributes attributes)
{
    enqueue({Write::Kind::Update, recipe.m_record, attributes, {}});
    Q_EMIT changed(indexOf(recipe), attributes);
}

void RecipeStore::enqueue(Write write)
{
    if (write.kind != Write::Kind::Barrier)
        ++m_pending[write.record.id];
    if (write.promise)
        write.promise->start();
    m_writer->enqueue(std::move(write));
}

void RecipeStore::acknowledge(const WrittenBatch& batch)
{
    // With nobody else's changes between, there is nothing to look at again.
    if (batch.sequenceAfter > 0 && batch.sequenceBefore == m_seenSequence)
        m_seenSequence = batch.sequenceAfter;

    for (const Written& written : batch.writes) {
        if (written.kind == Write::Kind::Barrier)
            continue;
        const QUuid id = written.id;
        RecipePtr recipe = m_removing.value(id);
        if (!recipe)
            recipe = find(id);
        if (!written.result.isSaved()) {
            m_stale[id] |= unlisted;
            if (written.metDamage)
                markDamaged(m_options.folder);
            Q_EMIT saveFailed(recipe, written.result.error);
        }
        if (--m_pending[id] > 0)
            continue;
        m_pending.remove(id);
        if (m_stale.contains(id))
            refreshRecipe(id, m_stale.take(id));
        else if (recipe && recipe->m_store)
            recipe->releasePhoto();
        m_removing.remove(id);
    }
}

void RecipeStore::refresh()
{
    reading([this] {
        const qint64 version = m_reader->number("PRAGMA data_version");
        if (version == m_dataVersion)
            return;
        const qint64 last = m_reader->number("SELECT ifnull(max(sequence), 0) FROM Change");
        const qint64 first = m_reader->number("SELECT ifnull(min(sequence), 0) FROM Change");
        if (last < m_seenSequence || first > m_seenSequence + 1) {
            refreshAll();
        } else {
            std::vector<std::pair<QUuid, RecipeAttributes>> changes;
            sqlite::Statement rows = m_reader->prepare("SELECT recipe, attributes FROM Change WHERE sequence "
                                                       "> ? AND sequence <= ? ORDER BY sequence");
            rows.bind(0, m_seenSequence).bind(1, last);
            while (rows.step()) {
                const QUuid id = QUuid::fromString(rows.text(0));
                const RecipeAttributes attributes{QFlag(static_cast<uint>(rows.integer(1)))};
                const auto known = std::ranges::find(changes, id, &std::pair<QUuid, RecipeAttributes>::first);
                if (known == changes.end())
                    changes.emplace_back(id, attributes);
                else
                    known->second |= attributes;
            }
            rows.reset();
            for (const auto& [id, attributes] : changes)
                refreshRecipe(id, attributes);
        }
        m_seenSequence = last;
        m_dataVersion = version;
    });
}

void RecipeStore::refreshAll()
{
    QHash<QUuid, bool> onDisk;
    for (ListedRecipe& listed : listRecipes(*m_reader)) {
        const QUuid id = listed.record.id;
        onDisk.insert(id, true);
        if (m_pending.contains(id))
            m_stale[id] |= unlisted;
        else
            takeOver(id, std::move(listed), unlisted);
    }
    const std::vector<RecipePtr> before = m_recipes;
    for (const RecipePtr& recipe : before) {
        if (!onDisk.contains(recipe->id()) && !m_pending.contains(recipe->id()))
            takeOver(recipe->id(), std::nullopt, {});
    }
}

void RecipeStore::refreshRecipe(const QUuid& id, RecipeAttributes logged)
{
    if (m_pending.contains(id)) {
        m_stale[id] |= logged;
        return;
    }
    reading([&] { takeOver(id, listRecipe(*m_reader, id), logged); });
}

void RecipeStore::takeOver(const QUuid& id, std::optional<ListedRecipe> listed, RecipeAttributes logged)
{
    RecipePtr recipe = find(id);
    if (!listed) {
        if (recipe)
            takeOut(recipe);
        return;
    }
    m_lastOrder = std::max(m_lastOrder, listed->row);
    if (!recipe) {
        // A removal that failed brings the same object back.
        recipe = m_removing.value(id);
        if (recipe)
            recipe->m_order = listed->row;
        else
            recipe = std::make_shared<Recipe>(std::move(*listed));
        putIn(recipe);
        return;
    }
    const bool moves = recipe->createdAt() != listed->record.createdAt;
    if (moves)
        takeOut(recipe);
    const RecipeAttributes attributes = recipe->takeOver(std::move(*listed), logged);
    if (moves)
        putIn(recipe);
    else if (attributes)
        Q_EMIT changed(indexOf(*recipe), attributes);
}

std::optional<RecipeDetails> RecipeStore::details(const QUuid& id)
{
    return reading([&] { return readDetails(*m_reader, id); });
}

std::optional<QByteArray> RecipeStore::photo(const QUuid& id)
{
    return reading([&] { return readPhoto(*m_reader, id); });
}

} // namespace ovrin
