#include "model/FaultVfs.h"
#include "model/RecipeStore.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <sqlite3.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace ovrin {
namespace {

using Library = QMap<QUuid, RecipeRecord>;
using Change = std::function<void(RecipeStore&)>;

QUuid idOf(int n)
{
    return {0x5eed0000U + static_cast<uint>(n), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
}

/// The same every time, and large enough to need pages of its own.
RecipePtr recipe(int n, int photoBytes)
{
    RecipeRecord record;
    record.id = idOf(n);
    record.title = QStringLiteral("Recipe %1").arg(n);
    record.ingredients = {QStringLiteral("%1 eggs").arg(n), QStringLiteral("salt")};
    record.notes = QString(900, QChar(u'a' + n));
    if (photoBytes > 0)
        record.imageData = QByteArray(photoBytes, static_cast<char>(n));
    record.createdAt = Instant(std::chrono::hours(n));
    return std::make_shared<Recipe>(record);
}

/// A change of the n-th recipe, as long as it is there.
template<typename F>
Change with(int n, F f)
{
    return [=](RecipeStore& store) {
        if (const RecipePtr found = store.find(idOf(n)))
            f(store, found);
    };
}

/// A session of inserts, edits and deletions.
std::vector<Change> session()
{
    const auto insert = [](int n, int photoBytes) {
        return [=](RecipeStore& store) { store.insert(recipe(n, photoBytes)); };
    };
    return {
        insert(1, 9000),
        insert(2, 0),
        with(1, [](auto&, auto& r) { r->setNotes(QString(2500, u'é')); }),
        insert(3, 15000),
        with(2, [](auto&, auto& r) { r->setTitle(QStringLiteral("Two")); }),
        with(1, [](auto& store, auto& r) { store.remove(r); }),
        with(3, [](auto&, auto& r) { r->setImageData(QByteArray(6000, 'x')); }),
        insert(4, 3000),
        with(3, [](auto&, auto& r) { r->setImageData(std::nullopt); }),
        with(2, [](auto&, auto& r) { r->recordCook(Instant(std::chrono::hours(99))); }),
        with(4, [](auto&, auto& r) { r->setIngredients(QStringList(200, QStringLiteral("1 cup water"))); }),
        insert(1, 5000),
        with(4, [](auto& store, auto& r) { store.remove(r); }),
        with(2, [](auto&, auto& r) { r->setSaved(true); }),
    };
}

Library contents(const RecipeStore& store)
{
    Library library;
    for (const RecipePtr& each : store.recipes())
        library.insert(each->id(), each->record());
    return library;
}

class Survival : public testing::Test
{
protected:
    static void SetUpTestSuite() { vfs = new FaultVfs; }
    static void TearDownTestSuite() { delete std::exchange(vfs, nullptr); }
    void TearDown() override
    {
        vfs->setFault({});
        vfs->trackDurability(false);
        failAllocation(0);
    }

    static RecipeStore::Opened open(const QString& folder)
    {
        return RecipeStore::open(
            {.folder = folder, .vfs = vfs->name(), .refreshInterval = std::chrono::milliseconds(0)});
    }

    /// The library after each change of the session, from none to all.
    static const std::vector<Library>& stages()
    {
        static const std::vector<Library> all = [] {
            const QTemporaryDir folder;
            const auto opened = open(folder.path());
            std::vector<Library> libraries{Library()};
            for (const Change& change : session()) {
                change(*opened.store);
                libraries.push_back(contents(*opened.store));
            }
            return libraries;
        }();
        return all;
    }

    /// Reopened, the library holds what was acknowledged, and of one more change all or nothing.
    static void expectStage(const QString& folder, std::size_t acknowledged, const std::string& what)
    {
        const auto opened = open(folder);
        ASSERT_TRUE(opened.store) << what << ": " << opened.error.toStdString();
        EXPECT_TRUE(opened.notice.isEmpty()) << what << ": " << opened.notice.toStdString();
        const Library found = contents(*opened.store);
        const bool isNext = acknowledged + 1 < stages().size() && found == stages()[acknowledged + 1];
        EXPECT_TRUE(found == stages()[acknowledged] || isNext)
            << what << ": " << found.size() << " recipes after " << acknowledged << " acknowledged changes";
    }

    /// In a child process: the session, killed at an operation; gives the acknowledged changes.
    static std::size_t runAndKill(const QString& folder, int atOperation, bool halfWritten)
    {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            vfs->startCounting();
            vfs->setFault([&](int number, FaultVfs::Operation) {
                // Half a write is left by failing it: the next operation is then the last.
                if (number == atOperation && halfWritten)
                    return SQLITE_IOERR_WRITE;
                if (number >= atOperation)
                    ::kill(getpid(), SIGKILL);
                return SQLITE_OK;
            });
            const auto opened = open(folder);
            if (!opened.store)
                ::kill(getpid(), SIGKILL);
            for (const Change& change : session()) {
                change(*opened.store);
                if (!opened.store->saved().result().isSaved() || write(ends[1], "+", 1) != 1)
                    ::kill(getpid(), SIGKILL);
            }
            _exit(0);
        }
        close(ends[1]);
        std::size_t acknowledged = 0;
        char mark = 0;
        while (read(ends[0], &mark, 1) == 1)
            ++acknowledged;
        close(ends[0]);
        int status = 0;
        waitpid(child, &status, 0);
        finished = WIFEXITED(status);
        return acknowledged;
    }

    static inline FaultVfs* vfs = nullptr;
    static inline bool finished = false;
};

TEST_F(Survival, OfBeingKilledAtEveryWrite)
{
    stages();
    int kills = 0;
    for (const bool halfWritten : {false, true}) {
        for (int operation = 1;; operation += halfWritten ? 2 : 1) {
            const QTemporaryDir folder;
            const std::size_t acknowledged = runAndKill(folder.path(), operation, halfWritten);
            if (finished)
                break;
            ++kills;
            expectStage(folder.path(), acknowledged, "killed at operation " + std::to_string(operation));
            if (HasFatalFailure())
                return;
        }
    }
    EXPECT_GE(kills, 300);
}

/// Runs the session with what fails; then the library on disk is exactly what was acknowledged, and the
/// objects in memory say the same.
void expectFailuresAreTold(FaultVfs& vfs, const std::string& what, const std::function<void()>& arm,
                           const std::function<void()>& disarm)
{
    const QTemporaryDir folder;
    const RecipeStore::Options options{
        .folder = folder.path(), .vfs = vfs.name(), .refreshInterval = std::chrono::milliseconds(0)};
    Library expected;
    {
        const auto opened = RecipeStore::open(options);
        ASSERT_TRUE(opened.store) << what;
        arm();
        for (const Change& change : session()) {
            change(*opened.store);
            const Library after = contents(*opened.store);
            const bool isSaved = opened.store->saved().result().isSaved();
            if (isSaved)
                expected = after;
            QCoreApplication::processEvents();
        }
        disarm();
        opened.store->refresh();
        EXPECT_EQ(contents(*opened.store), expected) << what << ": in memory";
    }
    const auto opened = RecipeStore::open(options);
    ASSERT_TRUE(opened.store) << what << ": " << opened.error.toStdString();
    EXPECT_EQ(contents(*opened.store), expected) << what << ": on the disk";
}

TEST_F(Survival, OfEveryFailingWriteAndSync)
{
    for (int failing = 1;; ++failing) {
        const int code = failing % 2 == 0 ? SQLITE_IOERR_WRITE : SQLITE_FULL;
        bool reached = false;
        expectFailuresAreTold(
            *vfs, "operation " + std::to_string(failing) + " fails",
            [&] {
                vfs->startCounting();
                vfs->setFault([&](int number, FaultVfs::Operation operation) {
                    reached = reached || number == failing;
                    if (number != failing)
                        return SQLITE_OK;
                    return operation == FaultVfs::Operation::Sync ? SQLITE_IOERR_FSYNC : code;
                });
            },
            [&] { vfs->setFault({}); });
        if (!reached || HasFailure())
            break;
    }
}

TEST_F(Survival, OfADiskThatStaysFull)
{
    for (int full = 1; full < 120; full += 7) {
        expectFailuresAreTold(
            *vfs, "full from operation " + std::to_string(full),
            [&] {
                vfs->startCounting();
                vfs->setFault([=](int number, FaultVfs::Operation operation) {
                    return number >= full && operation == FaultVfs::Operation::Write ? SQLITE_FULL
                                                                                     : SQLITE_OK;
                });
            },
            [&] { vfs->setFault({}); });
    }
}

TEST_F(Survival, OfPowerCuts)
{
    stages();
    std::mt19937 random(20240501);
    bool reached = true;
    for (int cut = 1; reached; ++cut) {
        const QTemporaryDir folder;
        const QTemporaryDir after;
        reached = false;
        std::size_t acknowledged = 0;
        vfs->trackDurability(true);
        vfs->startCounting();
        vfs->setFault([&](int number, FaultVfs::Operation) {
            reached = reached || number >= cut;
            // Nothing reaches a disk without power, the last goodbye included.
            return number >= cut ? SQLITE_IOERR : SQLITE_OK;
        });
        if (const auto opened = open(folder.path()); opened.store) {
            for (const Change& change : session()) {
                change(*opened.store);
                if (!opened.store->saved().result().isSaved())
                    break;
                ++acknowledged;
            }
            vfs->cutPower(folder.path(), after.path(), random);
        } else {
            vfs->cutPower(folder.path(), after.path(), random);
        }
        vfs->setFault({});
        vfs->trackDurability(false);
        expectStage(after.path(), acknowledged, "power cut at operation " + std::to_string(cut));
        if (HasFailure())
            return;
    }
}

TEST_F(Survival, OfFailingAllocations)
{
    for (const bool forGood : {false, true}) {
        bool reached = true;
        for (int failing = 1; reached; failing += forGood ? 201 : 23) {
            expectFailuresAreTold(
                *vfs, "allocation " + std::to_string(failing) + (forGood ? " and all after" : "") + " fails",
                [&] { failAllocation(failing, forGood, true); },
                [&] {
                    reached = allocations() >= failing;
                    failAllocation(0);
                });
            if (HasFailure())
                return;
        }
    }
}

TEST_F(Survival, OfFailingAllocationsWhileOpening)
{
    const QTemporaryDir folder;
    open(folder.path()).store->insert(recipe(1, 5000));
    const Library expected{{idOf(1), recipe(1, 5000)->record()}};
    bool reached = true;
    for (int failing = 1; reached; failing += 7) {
        failAllocation(failing);
        auto opened = open(folder.path());
        reached = allocations() >= failing;
        failAllocation(0);
        EXPECT_TRUE(opened.store || !opened.error.isEmpty());
        EXPECT_TRUE(opened.notice.isEmpty()) << opened.notice.toStdString();
        opened.store.reset();
        ASSERT_EQ(contents(*open(folder.path()).store), expected) << "allocation " << failing;
    }
}

} // namespace
} // namespace ovrin
