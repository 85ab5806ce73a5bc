#include "services/DocumentImport.h"

#include "platform/languagemodel/LoopbackLanguageModel.h"
#include "platform/reader/ReaderPdfTextLayer.h"

namespace ovrin {

DocumentImport::DocumentImport(const QString& programFolder, const QString& languageModel)
    : m_layer(
          std::make_unique<ReaderPdfTextLayer>(findHelper(programFolder, QStringLiteral("document-reader"))))
    , m_model(std::make_unique<LoopbackLanguageModel>(languageModel))
    , m_importer(*m_layer, *m_model)
{
}

DocumentImport::~DocumentImport() = default;

} // namespace ovrin
