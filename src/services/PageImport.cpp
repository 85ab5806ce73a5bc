#include "services/PageImport.h"

#include "platform/reader/ReaderPhotoMaker.h"
#include "platform/webkit/WebPageLoader.h"

namespace ovrin {

PageImport::PageImport(const QString& programFolder)
    : m_downloader(m_network)
    , m_renderer(std::make_unique<WebPageLoader>(findHelper(programFolder, QStringLiteral("page-renderer"))))
    , m_photos(
          std::make_unique<ReaderPhotoMaker>(findHelper(programFolder, QStringLiteral("document-reader"))))
    , m_importer(m_downloader, *m_renderer, *m_photos)
{
}

} // namespace ovrin
