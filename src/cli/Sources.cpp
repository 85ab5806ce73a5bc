#include "cli/Sources.h"

#include "cli/DraftFile.h"
#include "import/document/RecipeTextParser.h"
#include "import/error/RecipeImportError.h"
#include "services/Awaited.h"
#include "services/FileImport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace ovrin::cli {

namespace {

bool isSavedPage(const QString& source)
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    return suffix == QLatin1String("html") || suffix == QLatin1String("htm") ||
           suffix == QLatin1String("xhtml");
}

/// Waits for `task`, and says what a failed import says to a person.
template<typename T>
T imported(QCoro::Task<T> task)
{
    try {
        return awaited(std::move(task));
    } catch (...) {
        const auto description = importErrorDescription(std::current_exception());
        throw Failure(description.value_or(QStringLiteral("The import was cancelled.")));
    }
}

QByteArray readPage(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("“%1” could not be read: %2.").arg(path, file.errorString()));
    // One byte more than a page may have, so that a larger one is told from it.
    return file.read(PageImport::maximumPageBytes + 1);
}

RecipeDraft parsedPage(const QByteArray& html, const QUrl& address)
{
    try {
        return PageImport::parsedPage(html, address);
    } catch (const RecipeImportError& error) {
        throw Failure(error.errorDescription());
    }
}

RecipeDraft draftOfPage(const QByteArray& html, const SourceOptions& options)
{
    const QUrl address(options.pageUrl);
    if (!options.fetchesPhotos)
        return parsedPage(html, address);
    PageImport pages(QCoreApplication::applicationDirPath());
    return imported(pages.savedPage(html, address));
}

RecipeDraft draftAt(const QUrl& address, const SourceOptions& options)
{
    PageImport pages(QCoreApplication::applicationDirPath());
    const RecipeImporter::Options how{.render = options.rendersPages, .photo = options.fetchesPhotos};
    return imported(pages.importer().fetchDraft(address, {}, how));
}

/// What is a draft already. One of which nobody knows the page is looked at before it is kept.
Imported received(RecipeDraft draft)
{
    const bool isFromPage = draft.isComplete() && draft.sourceURL;
    return {.draft = std::move(draft), .needsReview = !isFromPage};
}

Imported fromPage(RecipeDraft draft)
{
    const bool isComplete = draft.isComplete();
    return {.draft = std::move(draft), .needsReview = !isComplete};
}

/// What was recognized is always looked at.
Imported recognized(const DocumentRecipeImporter::Imported& read, const Console& console,
                    const QString& modelRefusal = {})
{
    const QString notice = DocumentImport::notice(read, modelRefusal);
    if (!notice.isEmpty())
        console.complain(notice);
    return {.draft = read.draft, .needsReview = true};
}

Imported fromText(const QByteArray& text, const Console& console)
{
    try {
        return recognized(FileImport::importText(text), console);
    } catch (const RecipeImportError& error) {
        throw Failure(error.errorDescription());
    }
}

/// Whatever a program before us in a pipe, or a clipboard, may hold.
Imported importInput(const SourceOptions& options, const Console& console)
{
    const QByteArray input = readFile(QStringLiteral("-"), console, maximumDraftBytes);
    QByteArray text = input.trimmed();
    if (text.startsWith("\xef\xbb\xbf"))
        text = text.mid(3).trimmed();
    if (text.startsWith('<'))
        return fromPage(draftOfPage(input, options));
    if (text.startsWith('{')) {
        if (auto draft = RecipeDraft::fromJson(text))
            return received(*std::move(draft));
        throw Failure(QStringLiteral("Standard input is not a recipe draft."));
    }
    if (text.startsWith('['))
        return {.draft = draftOfText(text), .needsReview = true};
    const QString line = QString::fromUtf8(text);
    if (line.contains(QLatin1String("://")) && !line.contains(QRegularExpression(QStringLiteral("\\s")))) {
        if (const auto address = webAddress(line))
            return fromPage(draftAt(*address, options));
    }
    return fromText(text, console);
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
    if (source == QLatin1String("-"))
        return importInput(options, console);
    if (const auto address = webAddress(source))
        return fromPage(draftAt(*address, options));
    if (isSavedPage(source))
        return fromPage(draftOfPage(readPage(source), options));
    if (!QFileInfo::exists(source))
        throw Failure(QStringLiteral("“%1” is neither a file nor a web address.").arg(source));
    if (QFileInfo(source).suffix().toLower() == QLatin1String("json"))
        return received(readDraft(source, console));
    PageImport pages(QCoreApplication::applicationDirPath());
    // The window's settings hold here too.
    const QSettings settings(QStringLiteral("ovrin"), QStringLiteral("ovrin"));
    DocumentImport documents(QCoreApplication::applicationDirPath(),
                             DocumentImport::languageModelIn(settings));
    FileImport files(pages, documents);
    const std::stop_token never;
    const auto read = imported(files.import(source, never));
    const bool isDocument = DocumentRecipeImporter::supports(source);
    return recognized(read, console, isDocument ? documents.refusal() : QString());
}

QList<TextLine> linesOf(const QString& path)
{
    DocumentImport documents(QCoreApplication::applicationDirPath());
    return imported(documents.importer().lines(path));
}

RecipeDraft draftOfSavedPage(const QString& path, const QUrl& pageUrl)
{
    return parsedPage(readPage(path), pageUrl);
}

RecipeDraft draftOfText(const QByteArray& input)
{
    const auto lines = input.trimmed().startsWith('[') ? TextLines::fromJson(input) : std::nullopt;
    return RecipeTextParser::parse(lines ? *lines : TextLines::fromPlainText(QString::fromUtf8(input)));
}

RecipeDraft withSafePhoto(RecipeDraft draft)
{
    if (!draft.imageData)
        return draft;
    PageImport pages(QCoreApplication::applicationDirPath());
    const auto photo = imported(pages.photos().photo(*draft.imageData, {}));
    draft.imageData = photo ? std::optional(photo->jpeg) : std::nullopt;
    return draft;
}

} // namespace ovrin::cli
