#include "model/Recipe.h"

#include "model/SearchFolding.h"
#include "model/store/RecordSql.h"

#include "text/IngredientScaler.h"

namespace ovrin {

namespace {

QString durationText(qint64 minutes)
{
    const qint64 hours = minutes / 60;
    const qint64 rest = minutes % 60;
    if (hours == 0)
        return QStringLiteral("%1 min").arg(minutes);
    if (rest != 0)
        return QStringLiteral("%1 hr %2 min").arg(hours).arg(rest);
    return QStringLiteral("%1 hr").arg(hours);
}

} // namespace

QStringList Recipe::scaledIngredients(const QLocale& locale) const
{
    return scaledIngredients(scale(), locale);
}

QStringList Recipe::scaledIngredients(double factor, const QLocale& locale) const
{
    QStringList lines;
    lines.reserve(ingredients().size());
    for (const QString& line : ingredients())
        lines.append(IngredientScaler::scale(line, factor, locale));
    return lines;
}

QString Recipe::byline() const
{
    QStringList names{publisher(), author()};
    names.removeAll(QString());
    return names.join(QStringLiteral(" • "));
}

QString Recipe::timeSummary() const
{
    QStringList times;
    const auto add = [&](const QString& label, std::optional<qint64> minutes) {
        if (minutes)
            times.append(label + QStringLiteral(": ") + durationText(*minutes));
    };
    add(QStringLiteral("Prep Time"), prepMinutes());
    add(QStringLiteral("Cook Time"), cookMinutes());
    add(QStringLiteral("Total Time"), totalMinutes());
    return times.join(QStringLiteral(", "));
}

QString Recipe::shareText(const QLocale& locale) const
{
    return shareText(scale(), locale);
}

QString Recipe::shareText(double factor, const QLocale& locale) const
{
    QStringList lines{title()};
    if (const QString names = byline(); !names.isEmpty())
        lines << names;
    if (const QString text = summary(); !text.isEmpty())
        lines << QString() << text;
    lines << QString() << QStringLiteral("INGREDIENTS");
    for (const QString& line : scaledIngredients(factor, locale))
        lines << QStringLiteral("• ") + line;
    lines << QString() << QStringLiteral("DIRECTIONS");
    int number = 0;
    for (const RecipeStep& step : steps()) {
        QString heading = QStringLiteral("Step %1").arg(++number);
        if (step.title)
            heading += QStringLiteral(" — ") + *step.title;
        lines << QString() << heading << step.paragraphs;
    }
    if (sourceAddress())
        lines << QString() << *sourceAddress();
    return lines.join(u'\n');
}

const std::string& Recipe::searchKey(const SearchFolding& folding) const
{
    if (m_searchKey.empty()) {
        folding.append(m_searchKey, title());
        m_searchKey += SearchFolding::separator;
        folding.append(m_searchKey, publisher());
        // Not kept: few of the recipes that are searched are read.
        for (const QString& line :
             m_unreadIngredients ? ingredientsFrom(*m_unreadIngredients) : m_record.ingredients) {
            m_searchKey += SearchFolding::separator;
            folding.append(m_searchKey, line);
        }
        m_searchKey.shrink_to_fit();
    }
    return m_searchKey;
}

} // namespace ovrin
