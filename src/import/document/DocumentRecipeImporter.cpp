#include "import/document/DocumentRecipeImporter.h"

#include "import/document/DocumentFile.h"
#include "import/document/DocumentTextReader.h"
#include "import/document/RecipeStructurer.h"
#include "import/document/RecipeTextParser.h"
#include "import/error/RecipeImportError.h"

#include <QCoro/QCoroFuture>

#include <QtConcurrent/QtConcurrentRun>

#include <exception>

namespace ovrin {

namespace {

/// A file's bytes, or why there are none: Qt would carry over its own exceptions only.
struct Contents
{
    QByteArray bytes;
    std::exception_ptr error;
};

// What blocks or takes its time is done in a thread.

QFuture<Contents> contentsOf(const QString& path)
{
    return QtConcurrent::run([path]() -> Contents {
        try {
            return {DocumentFile::read(path), {}};
        } catch (...) {
            return {{}, std::current_exception()};
        }
    });
}

QFuture<RecipeTextParser::Result> parsed(const QList<TextLine>& lines)
{
    return QtConcurrent::run([lines] { return RecipeTextParser::parseFirst(lines); });
}

QCoro::Task<QByteArray> read(QString path)
{
    const auto future = contentsOf(path);
    const Contents contents = co_await future;
    if (contents.error) {
        std::rethrow_exception(contents.error);
    }
    co_return contents.bytes;
}

} // namespace

DocumentRecipeImporter::DocumentRecipeImporter(PdfTextLayer& layer, LanguageModel& model)
    : m_layer(layer)
    , m_model(model)
{
}

bool DocumentRecipeImporter::supports(const QString& path)
{
    return !DocumentFile::mimeType(path).isEmpty();
}

QString DocumentRecipeImporter::severalRecipesNotice()
{
    return QStringLiteral(
        "This file holds several recipes, and this is the first one. Check the ingredients and "
        "steps, then save.");
}

QCoro::Task<QList<TextLine>> DocumentRecipeImporter::lines(QString path, std::stop_token stop)
{
    const QString type = DocumentFile::mimeType(path);
    if (type.isEmpty()) {
        throw RecipeImportError::unsupportedFile();
    }
    auto data = co_await read(path);
    co_return co_await DocumentTextReader::read(m_layer, std::move(data), type, stop);
}

QCoro::Task<DocumentRecipeImporter::Imported> DocumentRecipeImporter::import(QString path,
                                                                             std::stop_token stop)
{
    const QString type = DocumentFile::mimeType(path);
    if (type.isEmpty()) {
        throw RecipeImportError::unsupportedFile();
    }
    auto data = co_await read(path);
    co_return co_await import(std::move(data), type, stop);
}

QCoro::Task<DocumentRecipeImporter::Imported>
DocumentRecipeImporter::import(QByteArray data, QString mimeType, std::stop_token stop)
{
    const QList<TextLine> lines =
        co_await DocumentTextReader::read(m_layer, std::move(data), std::move(mimeType), stop);
    if (lines.isEmpty()) {
        throw RecipeImportError::noTextFound();
    }
    const auto parsing = parsed(lines);
    const RecipeTextParser::Result result = co_await parsing;
    Imported imported{result.draft, result.hasMoreRecipes};
    if (imported.draft.ingredients.isEmpty() || imported.draft.steps.isEmpty()) {
        if (const auto structured = co_await RecipeStructurer::structure(m_model, lines, stop)) {
            imported.draft = structured->merged(imported.draft);
        }
    }
    if (stop.stop_requested()) {
        throw ImportCancelled();
    }
    if (imported.draft.title.isEmpty()) {
        imported.draft.title = QStringLiteral("Imported Recipe");
    }
    co_return imported;
}

} // namespace ovrin
