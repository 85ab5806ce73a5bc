#pragma once

#include "services/DocumentImport.h"
#include "services/PageImport.h"

namespace ovrin {

/// Any file that the window is given: a document, and also a saved web page or a plain text.
class FileImport
{
public:
    /// Both outlive every import.
    FileImport(PageImport& pages, DocumentImport& documents);

    /// Of a file on this machine, by its extension. Throws RecipeImportError and ImportCancelled.
    QCoro::Task<DocumentRecipeImporter::Imported> import(QString path, std::stop_token stop);

    /// What a plain text holds. Throws RecipeImportError when that is no recipe at all.
    static DocumentRecipeImporter::Imported importText(const QByteArray& text);

private:
    PageImport& m_pages;
    DocumentImport& m_documents;
};

} // namespace ovrin
