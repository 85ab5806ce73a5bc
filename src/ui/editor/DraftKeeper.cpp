#include "ui/editor/DraftKeeper.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSaveFile>

namespace ovrin {

namespace {
constexpr qint64 largestFile = 64LL * 1024 * 1024;
const QString headingKey = QStringLiteral("heading");
const QString noticeKey = QStringLiteral("notice");
const QString recipeKey = QStringLiteral("recipe");
const QString draftKey = QStringLiteral("draft");
} // namespace

bool DraftKeeper::keep(const KeptDraft& kept) const
{
    if (m_path.isEmpty() || !QDir().mkpath(QFileInfo(m_path).path()))
        return false;
    QJsonObject object{{headingKey, kept.heading},
                       {noticeKey, kept.notice},
                       {draftKey, QJsonDocument::fromJson(kept.draft.toJson()).object()}};
    if (kept.recipe)
        object.insert(recipeKey, kept.recipe->toString());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(QJsonDocument(object).toJson(QJsonDocument::Compact));
    return file.commit();
}

void DraftKeeper::forget() const
{
    if (!m_path.isEmpty())
        QFile::remove(m_path);
}

std::optional<KeptDraft> DraftKeeper::kept() const
{
    QFile file(m_path);
    if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    const auto draft = RecipeDraft::fromJson(QJsonDocument(object.value(draftKey).toObject()).toJson());
    if (!draft)
        return std::nullopt;
    KeptDraft kept{object.value(headingKey).toString(), object.value(noticeKey).toString(), std::nullopt,
                   *draft};
    if (const QUuid recipe(object.value(recipeKey).toString()); !recipe.isNull())
        kept.recipe = recipe;
    return kept;
}

} // namespace ovrin
