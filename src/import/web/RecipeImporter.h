#pragma once

#include "import/error/RecipeImportError.h"
#include "import/web/PageDownloader.h"
#include "import/web/PageRenderer.h"
#include "import/web/PhotoMaker.h"
#include "model/RecipeDraft.h"

#include <QCoro/QCoroTask>

#include <QtCore/QByteArrayView>
#include <QtCore/QUrl>

#include <stop_token>

namespace ovrin {

/// Turns the address of a web page into a recipe's draft: from the page as it is downloaded, or, when that
/// holds no complete recipe, as it is rendered. Holds no state but its services, which outlive it and its
/// tasks.
class RecipeImporter
{
public:
    struct Options
    {
        /// Whether a page without a complete recipe is rendered, and whether the photo is fetched.
        bool render = true;
        bool photo = true;
    };

    RecipeImporter(PageDownloader& downloader, PageRenderer& renderer, PhotoMaker& photoMaker);

    /// See parsePage.
    static RecipeDraft parse(QByteArrayView html, const QUrl& pageURL);

    /// The whole import of one address. The draft may be incomplete: the caller decides what to do with it.
    /// Throws RecipeImportError or TransportError, and ImportCancelled soon after `stop` is requested.
    QCoro::Task<RecipeDraft> fetchDraft(QUrl url, std::stop_token stop, Options options);
    QCoro::Task<RecipeDraft> fetchDraft(QUrl url, std::stop_token stop = {});

    /// `draft` with the photo that its `imageURL` names, when it has none yet. Without one, whatever the
    /// reason, it comes back as it is; only a stop throws.
    QCoro::Task<RecipeDraft> loadImage(RecipeDraft draft, std::stop_token stop = {});

private:
    QCoro::Task<RecipeDraft> downloadedDraft(QUrl url, std::stop_token stop);
    QCoro::Task<RecipeDraft> renderedDraft(QUrl url, std::stop_token stop);

    PageDownloader& m_downloader;
    PageRenderer& m_renderer;
    PhotoMaker& m_photoMaker;
};

} // namespace ovrin
