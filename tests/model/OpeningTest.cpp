#include "model/RecipeStore.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <sqlite3.h>
#include <unistd.h>

namespace ovrin {
namespace {

/// Permissions do not bind root; for its lifetime this process is somebody else.
class AsNobody
{
public:
    AsNobody() { EXPECT_EQ(m_wasRoot ? seteuid(65534) : 0, 0); }
    ~AsNobody() { EXPECT_EQ(m_wasRoot ? seteuid(0) : 0, 0); }

private:
    bool m_wasRoot = geteuid() == 0;
};

class Opening : public testing::Test
{
protected:
    QString path(const char* name = "Library.sqlite") const
    {
        return folder.filePath(QString::fromUtf8(name));
    }

    RecipeStore::Opened open() const
    {
        return RecipeStore::open(
            {.folder = folder.path(),
             .now = [] { return Instant(std::chrono::sys_days(std::chrono::year(2024) / 5 / 1)); },
             .refreshInterval = std::chrono::milliseconds(0)});
    }

    QByteArray bytes(const QString& name) const
    {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    void write(const QByteArray& content) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// Leaves a whole library of `count` recipes, each of a few hundred bytes, with a photo each.
    void fill(int count) const
    {
        const auto opened = open();
        for (int i = 0; i < count; ++i) {
            RecipeRecord record;
            record.id = QUuid::createUuid();
            record.title = QStringLiteral("Recipe %1").arg(i);
            record.notes = QString(700, u'n');
            record.imageData = QByteArray(6000, static_cast<char>(i));
            opened.store->insert(std::make_shared<Recipe>(record));
        }
    }

    void execute(const char* sql) const
    {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(path().toUtf8().constData(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    void expectRefused(const char* why)
    {
        const QByteArray before = bytes(path());
        const auto opened = open();
        EXPECT_FALSE(opened.store);
        EXPECT_TRUE(opened.error.contains(QString::fromUtf8(why))) << opened.error.toStdString();
        EXPECT_EQ(bytes(path()), before);
        EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral("Library*.sqlite")}).size(), 1);
    }

    QTemporaryDir folder;
};

TEST_F(Opening, RefusesWhatIsNotALibraryAndLeavesItAlone)
{
    for (const QByteArray& content : {QByteArray("Dear diary"), QByteArray(5000, '\0'), QByteArray("S")}) {
        write(content);
        expectRefused("is not a recipe library");
    }
}

TEST_F(Opening, RefusesAnotherProgramsDatabase)
{
    execute("CREATE TABLE Song (title TEXT)");
    expectRefused("another program");
}

TEST_F(Opening, RefusesANewerLibrary)
{
    fill(1);
    execute("PRAGMA user_version = 2");
    expectRefused("newer version");
    execute("PRAGMA user_version = 1");
    EXPECT_EQ(open().store->count(), 1);
}

TEST_F(Opening, NeedsPermission)
{
    fill(1);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                             QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                             QFile::ExeOther);
    {
        QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        const AsNobody nobody;
        expectRefused("permission");
    }
    {
        QFile::setPermissions(path(), {});
        const AsNobody nobody;
        EXPECT_TRUE(open().error.contains(QStringLiteral("permission to read")));
    }
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(open().store->count(), 1);
}

TEST_F(Opening, NeedsAFolder)
{
    write("in the way");
    const auto opened = RecipeStore::open({.folder = path() + QStringLiteral("/ovrin")});
    EXPECT_FALSE(opened.store);
    EXPECT_TRUE(opened.error.contains(QStringLiteral("can’t be made"))) << opened.error.toStdString();
    QFile::remove(path());
    QDir().mkpath(path());
    EXPECT_TRUE(open().error.contains(QStringLiteral("is not a file")));
}

TEST_F(Opening, TakesAnEmptyFileForANewLibrary)
{
    write({});
    EXPECT_EQ(open().store->count(), 0);
}

/// Every page of a library in turn becomes rubbish.
TEST_F(Opening, RescuesWhatCanBeReadOfADamagedLibrary)
{
    constexpr int count = 40;
    constexpr qsizetype page = 4096;
    fill(count);
    const QByteArray whole = bytes(path());
    const auto pages = whole.size() / page;
    qsizetype rescued = 0;
    for (qsizetype damaged = 0; damaged < pages; ++damaged) {
        QByteArray content = whole;
        content.replace(damaged * page + (damaged == 0 ? 100 : 0), page - 100,
                        QByteArray(page - 100, '\x5a'));
        for (const QString& old : QDir(folder.path()).entryList({QStringLiteral("Library*")}))
            QFile::remove(folder.filePath(old));
        write(content);

        auto opened = open();
        ASSERT_TRUE(opened.store) << "page " << damaged << ": " << opened.error.toStdString();
        if (opened.notice.isEmpty()) {
            // Damage that a listing does not meet: the next reading does, and the next start mends it.
            for (const RecipePtr& recipe : opened.store->recipes())
                recipe->record();
            const QStringList wrong =
                opened.store->check([](const QByteArray& jpeg) { return jpeg.size() == 6000; });
            if (wrong.isEmpty())
                continue;
            if (opened.store->count() > 0)
                opened.store->remove(opened.store->at(0));
            opened.store.reset();
            opened = open();
            ASSERT_TRUE(opened.store) << "page " << damaged << ": " << opened.error.toStdString();
            if (opened.notice.isEmpty())
                continue;
        }
        ++rescued;
        EXPECT_TRUE(QFile::exists(path("Library damaged 2024-05-01 00.00.00.sqlite")));
        EXPECT_TRUE(opened.notice.contains(QStringLiteral("was damaged")));
        EXPECT_GE(opened.store->count(), count - 8) << "page " << damaged;
        EXPECT_TRUE(opened.store->check([](const QByteArray&) { return true; }).isEmpty())
            << "page " << damaged;
        opened.store->insert(std::make_shared<Recipe>(RecipeDraft(), Instant()));
        EXPECT_TRUE(opened.store->saved().result().isSaved());
    }
    EXPECT_GT(rescued, 5);
}

TEST_F(Opening, FinishesARescueThatWasCutShort)
{
    fill(3);
    QFile::rename(path(), path("Library.rescued.sqlite"));
    write("what was damaged");
    EXPECT_EQ(open().store->count(), 3);
    EXPECT_EQ(bytes(path("Library damaged 2024-05-01 00.00.00.sqlite")), "what was damaged");

    QFile::rename(path(), path("Library.rescued.sqlite"));
    EXPECT_EQ(open().store->count(), 3);
}

TEST_F(Opening, ChecksEveryValue)
{
    fill(3);
    const auto isPhoto = [](const QByteArray& jpeg) { return jpeg.size() == 6000; };
    EXPECT_TRUE(open().store->check(isPhoto).isEmpty());
    execute("UPDATE Recipe SET stepsData = x'5b' WHERE rowid = 1; UPDATE Recipe SET ingredients = '[1]' "
            "WHERE rowid = 2;"
            "UPDATE Photo SET imageData = x'00' WHERE rowid = 3; UPDATE Photo SET id = 'x' WHERE rowid = 1;");
    const auto opened = open();
    const QStringList wrong = opened.store->check(isPhoto);
    ASSERT_EQ(wrong.size(), 4) << wrong.join(u'\n').toStdString();
    for (const char* what : {"steps", "ingredients", "can’t be decoded", "without a recipe"})
        EXPECT_EQ(wrong.filter(QString::fromUtf8(what)).size(), 1) << what;
    EXPECT_EQ(opened.store->at(1)->ingredients(), QStringList(QStringLiteral("[1]")));
}

} // namespace
} // namespace ovrin
