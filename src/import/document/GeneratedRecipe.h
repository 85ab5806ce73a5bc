#pragma once

#include "import/document/TextLine.h"
#include "model/RecipeDraft.h"

#include <QtCore/QJsonObject>

namespace ovrin {

/// One step of a generated recipe.
struct GeneratedStep
{
    QStringList paragraphs;

    bool operator==(const GeneratedStep&) const = default;
};

/// A recipe as the language model answers it. Nothing of it is to be believed before it is held against the
/// text that it was made from.
struct GeneratedRecipe
{
    QString title;
    QString source;
    QString author;
    QString summary;
    QString yield;
    /// 0 when not stated.
    qint64 totalMinutes = 0;
    QStringList ingredients;
    QList<GeneratedStep> steps;

    /// The JSON schema of an answer, with what each field means.
    static QJsonObject schema();
    /// Nothing when `json` is not one object with all fields, each of its type.
    static std::optional<GeneratedRecipe> fromJson(const QByteArray& json);

    /// The draft of what `lines` bear out: ingredients that are on no line nearly of their own are dropped,
    /// step numbers and empty paragraphs too. Nothing when neither ingredients nor steps are left.
    std::optional<RecipeDraft> checkedAgainst(const QList<TextLine>& lines) const;

    bool operator==(const GeneratedRecipe&) const = default;
};

} // namespace ovrin
