#include "import/web/RecipeImporter.h"

#include "import/web/PageParser.h"

#include <exception>
#include <optional>

namespace ovrin {
namespace {

constexpr std::chrono::seconds renderingTimeout{15};

void throwIfStopped(const std::stop_token& stop)
{
    if (stop.stop_requested()) {
        throw ImportCancelled();
    }
}

} // namespace

RecipeImporter::RecipeImporter(PageDownloader& downloader, PageRenderer& renderer, PhotoMaker& photoMaker)
    : m_downloader(downloader)
    , m_renderer(renderer)
    , m_photoMaker(photoMaker)
{
}

RecipeDraft RecipeImporter::parse(QByteArrayView html, const QUrl& pageURL)
{
    return parsePage(html, pageURL);
}

QCoro::Task<RecipeDraft> RecipeImporter::fetchDraft(QUrl url, std::stop_token stop)
{
    RecipeDraft draft = co_await fetchDraft(std::move(url), std::move(stop), Options());
    co_return draft;
}

QCoro::Task<RecipeDraft> RecipeImporter::fetchDraft(QUrl url, std::stop_token stop, Options options)
{
    std::exception_ptr failure = std::make_exception_ptr(RecipeImportError::noRecipeFound());
    std::optional<RecipeDraft> chosen;
    try {
        chosen = co_await downloadedDraft(url, stop);
    } catch (...) {
        failure = std::current_exception();
    }
    throwIfStopped(stop);

    if (options.render && !(chosen && chosen->isComplete())) {
        std::optional<RecipeDraft> rendered;
        try {
            rendered = co_await renderedDraft(url, stop);
        } catch (...) {
            // The download's own failure is the one to tell.
        }
        throwIfStopped(stop);
        if (rendered && (!chosen || rendered->isComplete())) {
            chosen = std::move(rendered);
        }
    }
    if (!chosen) {
        std::rethrow_exception(failure);
    }
    if (options.photo) {
        chosen = co_await loadImage(*std::move(chosen), stop);
    }
    co_return *std::move(chosen);
}

QCoro::Task<RecipeDraft> RecipeImporter::downloadedDraft(QUrl url, std::stop_token stop)
{
    const PageDownloader::Page page = co_await m_downloader.page(url, stop);
    co_return parse(page.html, page.url);
}

QCoro::Task<RecipeDraft> RecipeImporter::renderedDraft(QUrl url, std::stop_token stop)
{
    const QString html = co_await m_renderer.html(url, renderingTimeout, stop);
    co_return parse(html.toUtf8(), url);
}

QCoro::Task<RecipeDraft> RecipeImporter::loadImage(RecipeDraft draft, std::stop_token stop)
{
    if (draft.imageData || !draft.imageURL) {
        co_return draft;
    }
    try {
        QByteArray bytes = co_await m_downloader.photo(*draft.imageURL, draft.sourceURL, stop);
        std::optional<Photo> photo = co_await m_photoMaker.photo(std::move(bytes), stop);
        if (photo) {
            draft.imageData = std::move(photo->jpeg);
        }
    } catch (...) {
        // A recipe without its photo is still a recipe.
    }
    throwIfStopped(stop);
    co_return draft;
}

} // namespace ovrin
