#include "services/DocumentImport.h"

#include "platform/languagemodel/LoopbackLanguageModel.h"
#include "platform/reader/ReaderPdfTextLayer.h"

namespace ovrin {

DocumentImport::DocumentImport(const QString& programFolder, const QString& languageModel)
    : m_refusal(LoopbackLanguageModel::refusal(languageModel))
    , m_layer(
          std::make_unique<ReaderPdfTextLayer>(findHelper(programFolder, QStringLiteral("document-reader"))))
    , m_model(std::make_unique<LoopbackLanguageModel>(languageModel))
    , m_importer(*m_layer, *m_model)
{
}

DocumentImport::~DocumentImport() = default;

QString DocumentImport::languageModelIn(const QSettings& settings)
{
    return settings.value(QStringLiteral("languageModel/address")).toString().trimmed();
}

QString DocumentImport::notice(const DocumentRecipeImporter::Imported& imported, const QString& refusal)
{
    const RecipeDraft& draft = imported.draft;
    const bool neededModel = draft.ingredients.isEmpty() || draft.steps.isEmpty();
    QString notice = imported.hasMoreRecipes ? DocumentRecipeImporter::severalRecipesNotice() : QString();
    if (neededModel && !refusal.isEmpty()) {
        notice = (notice.isEmpty() ? ImportCoordinator::fileNotice() : notice) + u' ' + refusal;
    }
    return notice;
}

} // namespace ovrin
