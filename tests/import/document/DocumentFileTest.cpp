#include "import/document/DocumentFile.h"

#include "import/error/RecipeImportError.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace ovrin;

namespace {

class DocumentFiles : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    QString link(const QString& target, const char* name) const
    {
        EXPECT_TRUE(QFile::link(target, path(name)));
        return path(name);
    }
    static std::optional<RecipeImportError::Case> failureOf(const QString& path)
    {
        try {
            DocumentFile::read(path);
        } catch (const RecipeImportError& error) {
            return error.reason();
        }
        return std::nullopt;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(DocumentFiles, AreReadWhole)
{
    QFile file(path("tea.pdf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("%PDF-1.5 tea");
    file.close();
    EXPECT_EQ(DocumentFile::read(file.fileName()), "%PDF-1.5 tea");
    EXPECT_EQ(DocumentFile::read(link(file.fileName(), "other name.pdf")), "%PDF-1.5 tea");
}

TEST_F(DocumentFiles, ThatAreNoPlainFilesAreDamagedAndKeepNobodyWaiting)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.pdf")).constData(), 0600), 0);
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.pdf")));
    for (const QString& document :
         {path("gone.pdf"), path("pipe.pdf"), path("folder.pdf"),
          link(QStringLiteral("/dev/zero"), "zero.pdf"), link(QStringLiteral("/dev/tty"), "terminal.pdf"),
          link(path("b.pdf"), "a.pdf"), link(path("a.pdf"), "b.pdf")}) {
        EXPECT_EQ(failureOf(document), RecipeImportError::Case::DamagedFile) << document.toStdString();
    }
}

TEST_F(DocumentFiles, ThatMayNotBeReadAreDamaged)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "The superuser may read everything.";
    QFile file(path("secret.pdf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.setPermissions(QFile::WriteOwner));
    EXPECT_EQ(failureOf(file.fileName()), RecipeImportError::Case::DamagedFile);
}

TEST_F(DocumentFiles, ThatGrowWhileTheyAreReadAreTooLargeInTheEnd)
{
    // A plain file of no bytes, to go by its size, that has more of them than anyone can read.
    EXPECT_EQ(failureOf(link(QStringLiteral("/proc/self/pagemap"), "growing.pdf")),
              RecipeImportError::Case::TooLarge);
}
