#include "import/error/RecipeImportError.h"
#include "import/web/PageRenderer.h"
#include "import/web/PhotoMaker.h"

namespace ovrin {

QCoro::Task<QString> NullPageRenderer::html(QUrl /*url*/, std::chrono::milliseconds /*timeout*/,
                                            std::stop_token /*stop*/)
{
    throw TransportError(TransportError::Case::NoAnswer);
    co_return QString();
}

QCoro::Task<std::optional<Photo>> NullPhotoMaker::photo(QByteArray /*bytes*/, std::stop_token /*stop*/)
{
    co_return std::nullopt;
}

} // namespace ovrin
