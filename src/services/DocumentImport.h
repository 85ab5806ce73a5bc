#pragma once

#include "import/document/DocumentRecipeImporter.h"

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

    DocumentRecipeImporter& importer() { return m_importer; }

private:
    std::unique_ptr<PdfTextLayer> m_layer;
    std::unique_ptr<LanguageModel> m_model;
    DocumentRecipeImporter m_importer;
};

} // namespace ovrin
