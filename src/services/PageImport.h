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

    RecipeImporter& importer() { return m_importer; }
    PhotoMaker& photos() { return *m_photos; }

private:
    QNetworkAccessManager m_network;
    PageDownloader m_downloader;
    std::unique_ptr<PageRenderer> m_renderer;
    std::unique_ptr<PhotoMaker> m_photos;
    RecipeImporter m_importer;
};

} // namespace ovrin
