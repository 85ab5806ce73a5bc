#include "model/store/LibraryCheck.h"

#include "model/StepsCoding.h"
#include "json/JsonDocument.h"

#include <cmath>

namespace ovrin {

namespace {

using sqlite::Connection;
using sqlite::Statement;

void checkStructure(Connection& connection, QStringList& wrong)
{
    Statement rows = connection.prepare("PRAGMA integrity_check");
    while (rows.step()) {
        if (const QString answer = rows.text(0); answer != QStringLiteral("ok"))
            wrong.append(QStringLiteral("The file’s structure: %1").arg(answer));
    }
}

void checkRecipes(Connection& connection, QStringList& wrong)
{
    Statement rows =
        connection.prepare("SELECT id, title, ingredients, stepsData, scale FROM Recipe ORDER BY rowid");
    while (rows.step()) {
        const auto complain = [&](const QString& what) {
            wrong.append(QStringLiteral("%1 (%2): %3").arg(rows.text(0), rows.text(1), what));
        };
        if (!uuidFromText(rows.text(0)))
            complain(QStringLiteral("its id can’t be read."));
        const auto ingredients = JsonDocument::parse(rows.bytes(2), rows.bytes(2).size());
        if (!ingredients || !readStrings(ingredients->root()))
            complain(QStringLiteral("its ingredients can’t be read."));
        // No bytes at all are a recipe that never had steps.
        if (const QByteArray steps = rows.blob(3); !steps.isEmpty() && !decodeSteps(steps))
            complain(QStringLiteral("its steps can’t be read."));
        if (!std::isfinite(rows.real(4)) || rows.real(4) <= 0)
            complain(QStringLiteral("its scale is not a positive number."));
    }
}

void checkPhotos(Connection& connection, const std::function<bool(const QByteArray&)>& isDecodable,
                 QStringList& wrong)
{
    Statement rows =
        connection.prepare("SELECT Photo.id, Recipe.title, imageData, Recipe.id IS NULL FROM Photo "
                           "LEFT JOIN Recipe ON Recipe.id = Photo.id ORDER BY Photo.rowid");
    while (rows.step()) {
        if (rows.integer(3) != 0)
            wrong.append(QStringLiteral("%1: a photo without a recipe.").arg(rows.text(0)));
        else if (!isDecodable(rows.blob(2)))
            wrong.append(
                QStringLiteral("%1 (%2): its photo can’t be decoded.").arg(rows.text(0), rows.text(1)));
    }
}

} // namespace

QStringList checkLibrary(Connection& connection, const std::function<bool(const QByteArray&)>& isDecodable)
{
    QStringList wrong;
    const auto attempt = [&](auto check) {
        try {
            check();
        } catch (const sqlite::Error& error) {
            wrong.append(error.description());
        }
    };
    attempt([&] { checkStructure(connection, wrong); });
    attempt([&] { checkRecipes(connection, wrong); });
    attempt([&] { checkPhotos(connection, isDecodable, wrong); });
    return wrong;
}

} // namespace ovrin
