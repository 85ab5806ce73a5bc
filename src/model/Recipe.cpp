#include "model/Recipe.h"

#include "imaging/ImageProcessing.h"
#include "model/RecipeStore.h"
#include "model/StepsCoding.h"
#include "model/store/RecordSql.h"

#include <limits>
#include <utility>

namespace ovrin {

namespace {

std::optional<QString> addressOf(const std::optional<QUrl>& url)
{
    return url && !url->isEmpty() ? std::optional(url->toString(QUrl::FullyEncoded)) : std::nullopt;
}

RecipeRecord freshRecord(Instant createdAt)
{
    RecipeRecord record;
    record.id = QUuid::createUuid();
    record.createdAt = createdAt;
    return record;
}

} // namespace

/// Changes made while one of these lives are saved and told as one.
class Recipe::Change
{
public:
    explicit Change(Recipe& recipe)
        : m_recipe(recipe)
    {
        ++m_recipe.m_changeDepth;
    }
    ~Change()
    {
        if (--m_recipe.m_changeDepth > 0)
            return;
        const RecipeAttributes changed = std::exchange(m_recipe.m_changed, {});
        if (changed && m_recipe.m_store)
            m_recipe.m_store->recipeChanged(m_recipe, changed);
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

private:
    Recipe& m_recipe;
};

Recipe::Recipe(const RecipeDraft& draft, Instant createdAt)
    : Recipe(freshRecord(createdAt))
{
    apply(draft);
}

Recipe::Recipe(RecipeRecord record)
    : m_record(std::move(record))
    , m_hasImage(m_record.imageData.has_value())
{
}

Recipe::Recipe(ListedRecipe listed)
    : m_record(std::move(listed.record))
    , m_unreadIngredients(std::move(listed.ingredients))
    , m_hasDetails(false)
    , m_hasImage(listed.hasImage)
    , m_holdsImage(false)
    , m_order(listed.row)
{
}

Recipe::~Recipe() = default;

bool Recipe::loadDetails() const
{
    if (m_hasDetails || !m_store)
        return m_hasDetails;
    auto read = m_store->details(m_record.id);
    if (!read)
        return false;
    m_record.summary = std::move(read->summary);
    m_record.stepsData = std::move(read->stepsData);
    m_record.notes = std::move(read->notes);
    m_hasDetails = true;
    return true;
}

void Recipe::readIngredients() const
{
    if (m_unreadIngredients)
        m_record.ingredients = ingredientsFrom(*std::exchange(m_unreadIngredients, std::nullopt));
}

void Recipe::loadAll()
{
    loadDetails();
    m_record.imageData = imageData();
    m_holdsImage = true;
}

void Recipe::releasePhoto()
{
    m_holdsImage = false;
    m_record.imageData.reset();
}

RecipeAttributes Recipe::takeOver(ListedRecipe listed, RecipeAttributes logged)
{
    RecipeRecord& fresh = listed.record;
    if (m_unreadIngredients != listed.ingredients) {
        readIngredients();
        fresh.ingredients = ingredientsFrom(listed.ingredients);
    }
    RecipeAttributes changed = logged & (details | RecipeAttribute::ImageData);
    const auto compare = [&](auto RecipeRecord::*field, RecipeAttribute attribute) {
        changed.setFlag(attribute, changed.testFlag(attribute) || m_record.*field != fresh.*field);
    };
    compare(&RecipeRecord::title, RecipeAttribute::Title);
    compare(&RecipeRecord::author, RecipeAttribute::Author);
    compare(&RecipeRecord::publisher, RecipeAttribute::Publisher);
    compare(&RecipeRecord::sourceURL, RecipeAttribute::SourceURL);
    compare(&RecipeRecord::tintHex, RecipeAttribute::TintHex);
    compare(&RecipeRecord::yield, RecipeAttribute::Yield);
    compare(&RecipeRecord::prepMinutes, RecipeAttribute::PrepMinutes);
    compare(&RecipeRecord::cookMinutes, RecipeAttribute::CookMinutes);
    compare(&RecipeRecord::totalMinutes, RecipeAttribute::TotalMinutes);
    compare(&RecipeRecord::ingredients, RecipeAttribute::Ingredients);
    compare(&RecipeRecord::isSaved, RecipeAttribute::IsSaved);
    compare(&RecipeRecord::scale, RecipeAttribute::Scale);
    compare(&RecipeRecord::createdAt, RecipeAttribute::CreatedAt);
    compare(&RecipeRecord::lastCookedAt, RecipeAttribute::LastCookedAt);
    compare(&RecipeRecord::timesCooked, RecipeAttribute::TimesCooked);
    if (m_hasImage != listed.hasImage)
        changed |= RecipeAttribute::ImageData;

    if (m_hasDetails && !(logged & details)) {
        fresh.summary = m_record.summary;
        fresh.stepsData = m_record.stepsData;
        fresh.notes = m_record.notes;
    } else {
        m_hasDetails = false;
    }
    m_record = std::move(fresh);
    m_hasImage = listed.hasImage;
    m_holdsImage = false;
    m_searchKey.clear();
    return changed;
}

void Recipe::noteChange(RecipeAttribute attribute)
{
    const Change change(*this);
    m_changed |= attribute;
    m_searchKey.clear();
}

template<typename T>
void Recipe::assign(T RecipeRecord::*field, const T& value, RecipeAttribute attribute)
{
    // Without the old value there is no telling whether this changes anything, nor what a failure goes back
    // to.
    if (details.testFlag(attribute) && !loadDetails())
        return;
    if (m_record.*field == value)
        return;
    m_record.*field = value;
    noteChange(attribute);
}

const QStringList& Recipe::ingredients() const
{
    readIngredients();
    return m_record.ingredients;
}

QString Recipe::summary() const
{
    loadDetails();
    return m_record.summary;
}

std::optional<QUrl> Recipe::sourceURL() const
{
    return m_record.sourceURL ? std::optional(QUrl(*m_record.sourceURL)) : std::nullopt;
}

std::optional<QByteArray> Recipe::imageData() const
{
    if (m_holdsImage || !m_hasImage || !m_store)
        return m_record.imageData;
    return m_store->photo(m_record.id);
}

QByteArray Recipe::stepsData() const
{
    loadDetails();
    return m_record.stepsData;
}

QString Recipe::notes() const
{
    loadDetails();
    return m_record.notes;
}

void Recipe::setTitle(const QString& title)
{
    assign(&RecipeRecord::title, title, RecipeAttribute::Title);
}

void Recipe::setAuthor(const QString& author)
{
    assign(&RecipeRecord::author, author, RecipeAttribute::Author);
}

void Recipe::setPublisher(const QString& publisher)
{
    assign(&RecipeRecord::publisher, publisher, RecipeAttribute::Publisher);
}

void Recipe::setSummary(const QString& summary)
{
    assign(&RecipeRecord::summary, summary, RecipeAttribute::Summary);
}

void Recipe::setSourceURL(const std::optional<QUrl>& url)
{
    assign(&RecipeRecord::sourceURL, addressOf(url), RecipeAttribute::SourceURL);
}

void Recipe::setImageData(const std::optional<QByteArray>& jpeg)
{
    if (imageData() == jpeg)
        return;
    m_record.imageData = jpeg;
    m_hasImage = jpeg.has_value();
    m_holdsImage = true;
    noteChange(RecipeAttribute::ImageData);
}

void Recipe::setTintHex(const std::optional<QString>& hex)
{
    assign(&RecipeRecord::tintHex, hex, RecipeAttribute::TintHex);
}

void Recipe::setYield(const QString& yield)
{
    assign(&RecipeRecord::yield, yield, RecipeAttribute::Yield);
}

void Recipe::setPrepMinutes(std::optional<qint64> minutes)
{
    assign(&RecipeRecord::prepMinutes, minutes, RecipeAttribute::PrepMinutes);
}

void Recipe::setCookMinutes(std::optional<qint64> minutes)
{
    assign(&RecipeRecord::cookMinutes, minutes, RecipeAttribute::CookMinutes);
}

void Recipe::setTotalMinutes(std::optional<qint64> minutes)
{
    assign(&RecipeRecord::totalMinutes, minutes, RecipeAttribute::TotalMinutes);
}

void Recipe::setIngredients(const QStringList& lines)
{
    readIngredients();
    assign(&RecipeRecord::ingredients, lines, RecipeAttribute::Ingredients);
}

void Recipe::setStepsData(const QByteArray& json)
{
    assign(&RecipeRecord::stepsData, json, RecipeAttribute::StepsData);
}

void Recipe::setNotes(const QString& notes)
{
    assign(&RecipeRecord::notes, notes, RecipeAttribute::Notes);
}

void Recipe::setSaved(bool saved)
{
    assign(&RecipeRecord::isSaved, saved, RecipeAttribute::IsSaved);
}

void Recipe::setScale(double scale)
{
    assign(&RecipeRecord::scale, scale, RecipeAttribute::Scale);
}

void Recipe::setLastCookedAt(std::optional<Instant> at)
{
    assign(&RecipeRecord::lastCookedAt, at, RecipeAttribute::LastCookedAt);
}

void Recipe::setTimesCooked(qint64 times)
{
    assign(&RecipeRecord::timesCooked, times, RecipeAttribute::TimesCooked);
}

QList<RecipeStep> Recipe::steps() const
{
    return decodeSteps(stepsData()).value_or(QList<RecipeStep>());
}

void Recipe::setSteps(const QList<RecipeStep>& steps)
{
    setStepsData(encodeSteps(steps));
}

void Recipe::apply(const RecipeDraft& draft)
{
    const Change change(*this);
    setTitle(draft.title.trimmed());
    setAuthor(draft.author);
    setPublisher(draft.publisher);
    setSummary(draft.summary);
    setSourceURL(draft.sourceURL);
    if (imageData() != draft.imageData) {
        setImageData(draft.imageData);
        setTintHex(draft.imageData ? ImageProcessing::averageColorHex(*draft.imageData) : std::nullopt);
    }
    setYield(draft.yield);
    setPrepMinutes(draft.prepMinutes);
    setCookMinutes(draft.cookMinutes);
    setTotalMinutes(draft.totalMinutes);

    QStringList lines;
    for (const QString& line : draft.ingredients) {
        if (const QString trimmed = line.trimmed(); !trimmed.isEmpty())
            lines.append(trimmed);
    }
    setIngredients(lines);

    QList<RecipeStep> steps;
    for (RecipeStep step : draft.steps) {
        step.id = QUuid::createUuid();
        if (step.title && step.title->isEmpty())
            step.title.reset();
        step.paragraphs.removeAll(QString());
        if (!step.paragraphs.isEmpty())
            steps.append(step);
    }
    setSteps(steps);
}

RecipeDraft Recipe::draft() const
{
    return {.title = title(),
            .author = author(),
            .publisher = publisher(),
            .summary = summary(),
            .sourceURL = sourceURL(),
            .imageURL = {},
            .imageData = imageData(),
            .yield = yield(),
            .prepMinutes = prepMinutes(),
            .cookMinutes = cookMinutes(),
            .totalMinutes = totalMinutes(),
            .ingredients = ingredients(),
            .steps = steps()};
}

void Recipe::recordCook(Instant now)
{
    const Change change(*this);
    if (timesCooked() < std::numeric_limits<qint64>::max())
        setTimesCooked(timesCooked() + 1);
    setLastCookedAt(now);
}

RecipeRecord Recipe::record() const
{
    loadDetails();
    readIngredients();
    RecipeRecord record = m_record;
    record.imageData = imageData();
    return record;
}

} // namespace ovrin
