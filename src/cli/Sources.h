#pragma once

#include "cli/Console.h"
#include "import/document/TextLine.h"
#include "model/RecipeDraft.h"

namespace ovrin::cli {

struct SourceOptions
{
    bool rendersPages = true;
    bool fetchesPhotos = true;
    /// Where a saved page came from.
    QString pageUrl;
};

struct Imported
{
    RecipeDraft draft;
    /// Whether a person should look at it before it is kept: an incomplete page, any document.
    bool needsReview = false;
};

/// What `source` means as a web address, as people write them ("https://" may be missing); nothing for a file
/// that exists, and for what is no address.
std::optional<QUrl> webAddress(const QString& source);

/// Reads a web address, a saved page, a document or the JSON of a draft, waiting for the result; "-" is
/// standard input, which may hold a page, an address, the JSON of a draft or of `lines`, or plain text.
/// Throws Failure with the message that the window would show.
Imported importSource(const QString& source, const SourceOptions& options, const Console& console);

/// The lines of a document. Throws Failure.
QList<TextLine> linesOf(const QString& path);

/// The draft of a saved page alone: no network, no rendering, no photo. Throws Failure.
RecipeDraft draftOfSavedPage(const QString& path, const QUrl& pageUrl);

/// The draft that plain text, or the JSON of lines, holds by rule.
RecipeDraft draftOfText(const QByteArray& input);

/// The draft with a photo made of the foreign bytes that it carried; without one when these were none.
RecipeDraft withSafePhoto(RecipeDraft draft);

} // namespace ovrin::cli
