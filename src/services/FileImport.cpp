#include "services/FileImport.h"

#include "import/document/RecipeTextParser.h"
#include "import/error/RecipeImportError.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>

namespace ovrin {

namespace {

/// A recipe as text is a few pages; a log or a dictionary is none.
constexpr qsizetype maximumTextBytes = qsizetype(1) << 20;

/// At most one byte more than `maximum`, so that a larger file is told from one of that size.
QByteArray read(const QString& path, qsizetype maximum)
{
    QFile file(path);
    // Anything but a plain file may have no end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw RecipeImportError::damagedFile();
    QByteArray bytes = file.read(maximum + 1);
    if (bytes.size() > maximum)
        throw RecipeImportError::tooLarge();
    return bytes;
}

} // namespace

FileImport::FileImport(PageImport& pages, DocumentImport& documents)
    : m_pages(pages)
    , m_documents(documents)
{
}

DocumentRecipeImporter::Imported FileImport::importText(const QByteArray& text)
{
    // Something else under a text's name.
    if (text.startsWith("%PDF-") || text.contains('\0'))
        throw RecipeImportError::damagedFile();
    const RecipeTextParser::Result result =
        RecipeTextParser::parseFirst(TextLines::fromPlainText(QString::fromUtf8(text)));
    const RecipeDraft& draft = result.draft;
    if (draft.title.isEmpty() && draft.ingredients.isEmpty() && draft.steps.isEmpty())
        throw RecipeImportError::noTextFound();
    return {draft, result.hasMoreRecipes};
}

QCoro::Task<DocumentRecipeImporter::Imported> FileImport::import(QString path, std::stop_token stop)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    if (type.inherits(QStringLiteral("text/html")) ||
        type.inherits(QStringLiteral("application/xhtml+xml"))) {
        auto page = m_pages.savedPage(read(path, PageImport::maximumPageBytes), QUrl(), stop);
        DocumentRecipeImporter::Imported imported;
        imported.draft = co_await page;
        co_return imported;
    }
    // Not what merely inherits it: programs and tables are text as well.
    if (type.name() == QStringLiteral("text/plain") || type.name() == QStringLiteral("text/markdown"))
        co_return importText(read(path, maximumTextBytes));
    co_return co_await m_documents.importer().import(path, stop);
}

} // namespace ovrin
