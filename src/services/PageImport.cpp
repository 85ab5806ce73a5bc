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

QCoro::Task<RecipeDraft> PageImport::savedPage(QByteArray html, QUrl address, std::stop_token stop)
{
    RecipeDraft draft = parsedPage(html, address);
    co_return co_await m_importer.loadImage(std::move(draft), stop);
}

RecipeDraft PageImport::parsedPage(const QByteArray& html, const QUrl& address)
{
    if (html.size() > maximumPageBytes)
        throw RecipeImportError::tooLarge();
    return RecipeImporter::parse(html, address);
}

} // namespace ovrin
