#pragma once

#include "import/document/LanguageModel.h"
#include "import/document/PdfTextLayer.h"
#include "model/RecipeDraft.h"

namespace ovrin {

/// Turns a document into a draft for review: reads its text, finds the recipe by rule, and asks the language
/// model where the rules found no ingredients or no steps.
class DocumentRecipeImporter
{
public:
    struct Imported
    {
        RecipeDraft draft;
        /// The document holds further recipes; the draft is the first one.
        bool hasMoreRecipes = false;
    };

    /// Both services must outlive every import.
    DocumentRecipeImporter(PdfTextLayer& layer, LanguageModel& model);

    /// Of a file on this machine, by its extension. Throws RecipeImportError (not a document or picture, too
    /// large, unreadable, without text) and ImportCancelled.
    QCoro::Task<Imported> import(QString path, std::stop_token stop = {});
    /// Of a document's bytes.
    QCoro::Task<Imported> import(QByteArray data, QString mimeType, std::stop_token stop = {});

    /// The lines that `import` works on.
    QCoro::Task<QList<TextLine>> lines(QString path, std::stop_token stop = {});

    /// Whether files of this name are documents that can be imported.
    static bool supports(const QString& path);

    /// What the review says of a draft that is the first of several.
    static QString severalRecipesNotice();

private:
    PdfTextLayer& m_layer;
    LanguageModel& m_model;
};

} // namespace ovrin
