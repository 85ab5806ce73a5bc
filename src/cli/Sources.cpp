#include "cli/Sources.h"

#include "import/error/RecipeImportError.h"
#include "services/DocumentImport.h"
#include "services/PageImport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace ovrin::cli {

namespace {

constexpr qint64 maximumPageBytes = qint64(32) << 20;

bool isSavedPage(const QString& source)
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    return suffix == QLatin1String("html") || suffix == QLatin1String("htm") ||
           suffix == QLatin1String("xhtml");
}

template<typename T>
QCoro::Task<void> keepOutcome(QCoro::Task<T> task, std::optional<T>& result, std::exception_ptr& error)
{
    try {
        result = co_await task;
    } catch (...) {
        error = std::current_exception();
    }
}

/// Waits for `task`, and says what a failed import says to a person.
template<typename T>
T awaited(QCoro::Task<T> task)
{
    // Waiting for a task that throws would never end: the outcome is caught inside.
    std::optional<T> result;
    std::exception_ptr error;
    QCoro::waitFor(keepOutcome(std::move(task), result, error));
    if (!error)
        return *std::move(result);
    throw Failure(importErrorDescription(error).value_or(QStringLiteral("The import was cancelled.")));
}

} // namespace

std::optional<QUrl> webAddress(const QString& source)
{
    if (QFileInfo::exists(source) || (isSavedPage(source) && !source.contains(u'/')))
        return std::nullopt;
    const QUrl url(source.contains(QLatin1String("://")) ? source : QStringLiteral("https://") + source);
    const QString host = url.host();
    const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    // A bare word is rather a mistyped file than a host.
    const bool isHost = host.contains(u'.') || host.contains(u':') || host == QLatin1String("localhost");
    return isWeb && isHost ? std::optional(url) : std::nullopt;
}

Imported importSource(const QString& source, const SourceOptions& options, const Console& console)
{
    PageImport pages(QCoreApplication::applicationDirPath());
    Imported imported;
    if (isSavedPage(source) && !webAddress(source)) {
        imported.draft = draftOfSavedPage(source, QUrl(options.pageUrl));
        if (options.fetchesPhotos)
            imported.draft = awaited(pages.importer().loadImage(imported.draft));
    } else if (const auto address = webAddress(source)) {
        const RecipeImporter::Options how{.render = options.rendersPages, .photo = options.fetchesPhotos};
        imported.draft = awaited(pages.importer().fetchDraft(*address, {}, how));
    } else if (QFileInfo::exists(source)) {
        DocumentImport documents(QCoreApplication::applicationDirPath());
        const auto read = awaited(documents.importer().import(source));
        if (read.hasMoreRecipes)
            console.complain(DocumentRecipeImporter::severalRecipesNotice());
        return {.draft = read.draft, .needsReview = true};
    } else {
        throw Failure(QStringLiteral("“%1” is neither a file nor a web address.").arg(source));
    }
    imported.needsReview = !imported.draft.isComplete();
    return imported;
}

QList<TextLine> linesOf(const QString& path)
{
    DocumentImport documents(QCoreApplication::applicationDirPath());
    return awaited(documents.importer().lines(path));
}

RecipeDraft draftOfSavedPage(const QString& path, const QUrl& pageUrl)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("“%1” could not be read: %2.").arg(path, file.errorString()));
    const QByteArray html = file.read(maximumPageBytes + 1);
    try {
        if (html.size() > maximumPageBytes)
            throw RecipeImportError::tooLarge();
        return RecipeImporter::parse(html, pageUrl);
    } catch (const RecipeImportError& error) {
        throw Failure(error.errorDescription());
    }
}

RecipeDraft withSafePhoto(RecipeDraft draft)
{
    if (!draft.imageData)
        return draft;
    PageImport pages(QCoreApplication::applicationDirPath());
    const auto photo = awaited(pages.photos().photo(*draft.imageData, {}));
    draft.imageData = photo ? std::optional(photo->jpeg) : std::nullopt;
    return draft;
}

} // namespace ovrin::cli
