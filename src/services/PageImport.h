#pragma once

#include "import/web/PageDownloader.h"
#include "import/web/RecipeImporter.h"

#include <QtNetwork/QNetworkAccessManager>

#include <memory>

namespace ovrin {

/// The web importer with its real services: what the window and the command line both import pages with.
class PageImport
{
public:
    /// `programFolder` is where this program lies; the helpers are found from there.
    explicit PageImport(const QString& programFolder);

    /// A page that is here already is read up to this size, as a downloaded one is.
    static constexpr qsizetype maximumPageBytes = qsizetype(32) << 20;

    RecipeImporter& importer() { return m_importer; }
    /// The draft of a page that is here already: its photo is fetched, the page itself is not. `address` may
    /// be empty. Throws RecipeImportError.
    QCoro::Task<RecipeDraft> savedPage(QByteArray html, QUrl address, std::stop_token stop = {});
    /// The same without the photo.
    static RecipeDraft parsedPage(const QByteArray& html, const QUrl& address);
    PhotoMaker& photos() { return *m_photos; }

private:
    QNetworkAccessManager m_network;
    PageDownloader m_downloader;
    std::unique_ptr<PageRenderer> m_renderer;
    std::unique_ptr<PhotoMaker> m_photos;
    RecipeImporter m_importer;
};

} // namespace ovrin
