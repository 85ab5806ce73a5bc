#pragma once

#include "import/ImportCoordinator.h"
#include "import/document/DocumentRecipeImporter.h"

#include <QtCore/QSettings>

#include <memory>

namespace ovrin {

/// The document importer with its real services: what the window and the command line both read files with.
class DocumentImport
{
public:
    /// `programFolder` is where this program lies; the helpers are found from there. `languageModel` is the
    /// address of the user's own server, empty for the usual ones of this machine.
    explicit DocumentImport(const QString& programFolder, const QString& languageModel = {});
    ~DocumentImport();

    /// The user's server in `settings`: `address` in the section `languageModel`.
    static QString languageModelIn(const QSettings& settings);

    /// Why the server in the settings is not asked, for a person; mostly empty.
    const QString& refusal() const { return m_refusal; }

    /// What a person should know of this document: that there are more recipes in it, or that the language
    /// model it needed is refused. Empty when there is nothing to say but the usual.
    static QString notice(const DocumentRecipeImporter::Imported& imported, const QString& refusal);

    DocumentRecipeImporter& importer() { return m_importer; }

private:
    QString m_refusal;
    std::unique_ptr<PdfTextLayer> m_layer;
    std::unique_ptr<LanguageModel> m_model;
    DocumentRecipeImporter m_importer;
};

} // namespace ovrin
