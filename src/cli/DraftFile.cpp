#include "cli/DraftFile.h"

namespace ovrin::cli {

RecipeDraft readDraft(const QString& path, const Console& console)
{
    if (auto draft = RecipeDraft::fromJson(readFile(path, console, maximumDraftBytes)))
        return *std::move(draft);
    throw Failure(QStringLiteral("“%1” is not a recipe draft.").arg(path));
}

} // namespace ovrin::cli
