#include "cli/DraftFile.h"

namespace ovrin::cli {

RecipeDraft readDraft(const QString& path, const Console& console)
{
    constexpr qint64 limit = qint64(128) << 20;
    if (auto draft = RecipeDraft::fromJson(readFile(path, console, limit)))
        return *std::move(draft);
    throw Failure(QStringLiteral("“%1” is not a recipe draft.").arg(path));
}

} // namespace ovrin::cli
