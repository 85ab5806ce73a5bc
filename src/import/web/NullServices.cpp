#include "import/error/RecipeImportError.h"
#include "import/web/PageRenderer.h"
#include "import/web/PhotoMaker.h"

namespace ovrin {

QCoro::Task<QString> NullPageRenderer::html(QUrl /*url*/, std::chrono::milliseconds /*timeout*/)
{
    throw TransportError(TransportError::Case::NoAnswer);
    co_return QString();
}

QCoro::Task<std::optional<Photo>> NullPhotoMaker::photo(QByteArray /*bytes*/)
{
    co_return std::nullopt;
}

} // namespace ovrin
