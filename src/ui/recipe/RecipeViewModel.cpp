#include "ui/recipe/RecipeViewModel.h"

#include "model/RecipeTint.h"
#include "text/DirectionTokenizer.h"
#include "text/IngredientScaler.h"
#include "ui/images/RecipePhotos.h"
#include "ui/images/TintQColor.h"

namespace ovrin {

namespace {
constexpr double originalScale = 1;
constexpr RecipeAttributes ofIngredients{RecipeAttribute::Ingredients | RecipeAttribute::Scale};
constexpr RecipeAttributes ofDirections{RecipeAttribute::Ingredients | RecipeAttribute::StepsData};
// About what a window shows when a recipe is opened, and what one frame has the time to add to that.
constexpr qsizetype rowsAtOnce = 24;
constexpr qsizetype rowsAFrame = 8;
} // namespace

RecipeViewModel::RecipeViewModel(RecipeStore& store, RecipePhotos& photos, const QLocale& locale,
                                 QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_photos(photos)
    , m_locale(locale)
    , m_ingredients(rowsAtOnce, rowsAFrame)
    , m_directions(rowsAtOnce, rowsAFrame)
{
    connect(&store, &RecipeStore::changed, this, [this](qsizetype index, RecipeAttributes attributes) {
        if (m_store.at(index) != m_recipe)
            return;
        if (attributes & ofIngredients)
            refreshIngredients();
        if (attributes & ofDirections)
            refreshDirections();
        Q_EMIT changed();
    });
    connect(&store, &RecipeStore::removed, this, [this](qsizetype, const RecipePtr& recipe) {
        if (recipe != m_recipe)
            return;
        show(nullptr);
        Q_EMIT gone(recipe);
    });
}

void RecipeViewModel::show(const RecipePtr& recipe)
{
    // The record keeps the factor of the last time; each visit starts with the recipe as it is written.
    if (recipe && recipe->scale() != originalScale)
        recipe->setScale(originalScale);
    if (m_recipe == recipe)
        return;
    m_recipe = recipe;
    refreshIngredients();
    refreshDirections();
    Q_EMIT changed();
    Q_EMIT shown();
}

void RecipeViewModel::showMore()
{
    m_ingredients.reportMore();
    m_directions.reportMore();
}

void RecipeViewModel::showIngredient(int row)
{
    while (m_ingredients.rowCount() <= row && !m_ingredients.isWhole())
        m_ingredients.reportMore();
}

void RecipeViewModel::refreshIngredients()
{
    m_ingredients.setRows(m_recipe ? ingredientLines(m_recipe->ingredients(), m_recipe->scale(), m_locale)
                                   : QList<IngredientLine>());
}

void RecipeViewModel::refreshDirections()
{
    QList<DirectionRow> rows;
    if (m_recipe) {
        const QList<RecipeStep> steps = m_recipe->steps();
        QStringList paragraphs;
        for (const RecipeStep& step : steps)
            paragraphs += step.paragraphs;
        // One call for the whole recipe: an ingredient is marked at its first mention only.
        const auto segments = DirectionTokenizer(m_recipe->ingredients()).segments(paragraphs);
        qsizetype paragraph = 0;
        for (qsizetype step = 0; step < steps.size(); ++step)
            for (qsizetype i = 0; i < steps.at(step).paragraphs.size(); ++i, ++paragraph)
                rows.append({i == 0 ? static_cast<int>(step) + 1 : 0,
                             i == 0 ? steps.at(step).title.value_or(QString()) : QString(),
                             {paragraphs.at(paragraph), segments.at(paragraph)}});
    }
    m_directions.setRows(rows);
}

QString RecipeViewModel::recipeId() const
{
    return m_recipe ? m_recipe->id().toString(QUuid::WithoutBraces) : QString();
}

QString RecipeViewModel::facts() const
{
    if (!m_recipe)
        return {};
    QStringList facts;
    if (const QString times = m_recipe->timeSummary(); !times.isEmpty())
        facts.append(times);
    if (const QString yield = m_recipe->yield(); !yield.isEmpty())
        facts.append(scale() == originalScale ? yield : IngredientScaler::scale(yield, scale(), m_locale));
    return facts.join(QStringLiteral("  ·  "));
}

void RecipeViewModel::setNotes(const QString& notes)
{
    if (m_recipe && m_recipe->notes() != notes)
        m_recipe->setNotes(notes);
}

QString RecipeViewModel::cookedLabel() const
{
    return isCooked() ? tr("Cooked %1×").arg(m_recipe->timesCooked()) : tr("Cooked");
}

QUrl RecipeViewModel::photo() const
{
    return m_recipe ? m_photos.address(*m_recipe) : QUrl();
}

QColor RecipeViewModel::firstTint() const
{
    return m_recipe ? toQColor(headerGradient(*m_recipe).first) : QColor(Qt::black);
}

QColor RecipeViewModel::secondTint() const
{
    return m_recipe ? toQColor(headerGradient(*m_recipe).second) : QColor(Qt::black);
}

void RecipeViewModel::setScale(double factor)
{
    const auto& choices = IngredientScaler::scaleChoices;
    if (m_recipe && m_recipe->scale() != factor &&
        std::find(choices.begin(), choices.end(), factor) != choices.end())
        m_recipe->setScale(factor);
}

QString RecipeViewModel::scaleLabel() const
{
    return IngredientScaler::scaleLabel(scale(), m_locale);
}

QString RecipeViewModel::scaleNotice() const
{
    return scale() == originalScale ? QString()
                                    : tr("Amounts scaled %1×. Directions show the original amounts.")
                                          .arg(IngredientScaler::format(scale(), m_locale));
}

QVariantList RecipeViewModel::scaleChoices() const
{
    QVariantList choices;
    for (const double factor : IngredientScaler::scaleChoices)
        choices.append(
            QVariantMap{{QStringLiteral("factor"), factor},
                        {QStringLiteral("label"), IngredientScaler::scaleLabel(factor, m_locale)}});
    return choices;
}

QString RecipeViewModel::shareText() const
{
    return m_recipe ? m_recipe->shareText(m_locale) : QString();
}

QStringList RecipeViewModel::groceryLines() const
{
    QStringList lines;
    for (const IngredientLine& line : m_ingredients.rows())
        if (!line.isHeading)
            lines.append(line.text);
    return lines;
}

void RecipeViewModel::toggleSaved()
{
    if (m_recipe)
        m_recipe->setSaved(!m_recipe->isSaved());
}

void RecipeViewModel::recordCook()
{
    if (m_recipe)
        m_recipe->recordCook(m_store.now());
}

} // namespace ovrin
