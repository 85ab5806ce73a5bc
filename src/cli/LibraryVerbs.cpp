#include "cli/LibraryVerbs.h"

#include "cli/DraftFile.h"
#include "cli/RecipeJson.h"
#include "cli/Sources.h"
#include "imaging/ImageProcessing.h"
#include "model/LibraryFilter.h"
#include "model/RecipeStore.h"
#include "model/StepsCoding.h"
#include "reminders/TaskCalendar.h"
#include "text/IngredientScaler.h"

#include <QCoro/QCoroFuture>
#include <QtCore/QStandardPaths>

namespace ovrin::cli {

namespace {

RecipeStore::Opened open(const Arguments& arguments, const Console& console)
{
    const QString own =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/ovrin");
    RecipeStore::Options options;
    options.folder = arguments.value(QStringLiteral("store"), own);
    options.locale = console.locale;
    options.refreshInterval = {};
    auto opened = RecipeStore::open(std::move(options));
    if (!opened.store)
        throw Failure(QStringLiteral("Couldn't open the recipe library: %1").arg(opened.error));
    return opened;
}

std::unique_ptr<RecipeStore> openStore(const Arguments& arguments, const Console& console)
{
    auto opened = open(arguments, console);
    if (!opened.notice.isEmpty())
        console.complain(opened.notice);
    return std::move(opened.store);
}

RecipePtr wantedRecipe(const RecipeStore& store, const Arguments& arguments)
{
    const QString text = arguments.required(0, QStringLiteral("ID"));
    const QUuid id(text);
    if (id.isNull())
        throw UsageError(QStringLiteral("“%1” is no recipe's ID.").arg(text));
    if (auto recipe = store.find(id))
        return recipe;
    throw Failure(QStringLiteral("There is no recipe %1 in the library.").arg(text));
}

/// Waits until the change is durable; only then is it reported as done.
void settle(const QFuture<SaveResult>& saving)
{
    const auto ending = [&]() -> QCoro::Task<SaveResult> { co_return co_await saving; };
    const SaveResult result = QCoro::waitFor(ending());
    if (!result.isSaved())
        throw Failure(result.error);
}

RecipePtr add(RecipeStore& store, const RecipeDraft& draft)
{
    auto recipe = std::make_shared<Recipe>(draft, store.now());
    settle(store.insert(recipe));
    return recipe;
}

LibraryFilter wantedFilter(const QString& name)
{
    const QStringList names{QStringLiteral("all"), QStringLiteral("saved"), QStringLiteral("cooked"),
                            QStringLiteral("recent")};
    const auto index = names.indexOf(name);
    if (index < 0)
        throw UsageError(
            QStringLiteral("There is no filter “%1”: it is all, saved, cooked or recent.").arg(name));
    return libraryFilters.at(std::size_t(index));
}

int list(const Arguments& arguments, const Console& console)
{
    const LibraryFilter filter =
        wantedFilter(arguments.value(QStringLiteral("filter"), QStringLiteral("all")));
    const auto store = openStore(arguments, console);
    const bool asJson = arguments.has(QStringLiteral("json"));
    QByteArrayList rows;
    for (const RecipePtr& recipe : store->visible(filter, arguments.value(QStringLiteral("search")))) {
        if (asJson)
            rows << toJson(*recipe);
        else
            console.print(uuidText(recipe->id()) + u' ' + recipe->title());
    }
    if (asJson)
        console.print('[' + rows.join(",\n") + ']');
    return Done;
}

int show(const Arguments& arguments, const Console& console)
{
    const auto store = openStore(arguments, console);
    const RecipePtr recipe = wantedRecipe(*store, arguments);
    if (arguments.has(QStringLiteral("json")))
        console.print(toJson(*recipe));
    else if (arguments.has(QStringLiteral("scale")))
        console.print(recipe->shareText(arguments.factor(QStringLiteral("scale")), console.locale));
    else
        console.print(recipe->shareText(console.locale));
    return Done;
}

int addDraft(const Arguments& arguments, const Console& console)
{
    RecipeDraft draft = readDraft(arguments.required(0, QStringLiteral("DRAFT.json")), console);
    draft = withSafePhoto(std::move(draft));
    const auto store = openStore(arguments, console);
    console.print(uuidText(add(*store, draft)->id()));
    return Done;
}

/// What dropping `source` on the window does: the recipe that is there already, or a new one, or a draft to
/// review.
int import(const QString& source, RecipeStore& store, const Console& console)
{
    const auto address = webAddress(source);
    RecipePtr recipe = address ? store.existingRecipe(*address) : nullptr;
    if (!recipe) {
        const Imported imported = importSource(source, {}, console);
        const auto& found = imported.draft.sourceURL;
        recipe = found && address ? store.existingRecipe(*found) : nullptr;
        if (!recipe && imported.needsReview) {
            console.print(imported.draft.toJson());
            return NeedsReview;
        }
        if (!recipe)
            recipe = add(store, imported.draft);
    }
    console.print(uuidText(recipe->id()));
    return Done;
}

int importSources(const Arguments& arguments, const Console& console)
{
    arguments.required(0, QStringLiteral("SOURCE"));
    const auto store = openStore(arguments, console);
    int worst = Done;
    for (const QString& source : arguments.positional) {
        int status = Failed;
        try {
            status = import(source, *store, console);
        } catch (const Failure& failure) {
            console.complain(arguments.positional.size() == 1
                                 ? QString::fromUtf8(failure.what())
                                 : QStringLiteral("%1: %2").arg(source, QString::fromUtf8(failure.what())));
        }
        // A failure outweighs a draft to review.
        if (worst != Failed && status != Done)
            worst = status;
    }
    return worst;
}

int remove(const Arguments& arguments, const Console& console)
{
    const auto store = openStore(arguments, console);
    settle(store->remove(wantedRecipe(*store, arguments)));
    return Done;
}

int check(const Arguments& arguments, const Console& console)
{
    const auto opened = open(arguments, console);
    QStringList wrong = opened.store->check([](const QByteArray& photo) {
        return ImageProcessing::decoded(photo, ImageProcessing::maximumPhotoSide).has_value();
    });
    // What was damaged has been set right by opening the library, but it was wrong.
    if (!opened.notice.isEmpty())
        wrong.prepend(opened.notice);
    for (const QString& problem : wrong)
        console.print(problem);
    return wrong.isEmpty() ? Done : Failed;
}

int groceries(const Arguments& arguments, const Console& console)
{
    const auto store = openStore(arguments, console);
    const RecipePtr recipe = wantedRecipe(*store, arguments);
    const double factor =
        arguments.has(QStringLiteral("scale")) ? arguments.factor(QStringLiteral("scale")) : recipe->scale();
    QStringList lines;
    for (const QString& line : recipe->scaledIngredients(factor, console.locale)) {
        if (!IngredientScaler::isSectionHeading(line))
            lines << line;
    }
    console.out.write(TaskCalendar::write(lines, recipe->title(), toDateTime(store->now())));
    return Done;
}

} // namespace

QList<Verb> libraryVerbs()
{
    const Option store{QStringLiteral("store"), QStringLiteral("DIR"),
                       QStringLiteral("a library folder other than your own")};
    const Option scale{QStringLiteral("scale"), QStringLiteral("F"), QStringLiteral("multiply the amounts")};
    return {
        {QStringLiteral("library list"),
         QStringLiteral("library list"),
         QStringLiteral("Lists the recipes, newest first, one line each: ID and title."),
         {{QStringLiteral("filter"), QStringLiteral("NAME"), QStringLiteral("all, saved, cooked or recent")},
          {QStringLiteral("search"), QStringLiteral("TEXT"),
           QStringLiteral("only those with TEXT in title, publisher or ingredients")},
          {QStringLiteral("json"), {}, QStringLiteral("an array of the whole recipes but their photos")},
          store},
         0,
         list},
        {QStringLiteral("library show"),
         QStringLiteral("library show ID"),
         QStringLiteral("Prints the recipe as text."),
         {scale, {QStringLiteral("json"), {}, QStringLiteral("all attributes but the photo")}, store},
         1,
         show},
        {QStringLiteral("library add"),
         QStringLiteral("library add DRAFT.json"),
         QStringLiteral("Adds a draft to the library and prints the new recipe's ID. “-” is standard input."),
         {store},
         1,
         addDraft},
        {QStringLiteral("library import"),
         QStringLiteral("library import SOURCE..."),
         QStringLiteral("Imports addresses, saved pages and documents as dropping them on the window would.\n"
                        "A complete page is saved and its ID printed; anything else is printed for review."),
         {store},
         -1,
         importSources},
        {QStringLiteral("library remove"),
         QStringLiteral("library remove ID"),
         QStringLiteral("Deletes a recipe."),
         {store},
         1,
         remove},
        {QStringLiteral("library check"),
         QStringLiteral("library check"),
         QStringLiteral("Verifies the whole library; lists what is wrong, one line each."),
         {store},
         0,
         check},
        {QStringLiteral("library groceries"),
         QStringLiteral("library groceries ID"),
         QStringLiteral("Prints the ingredients as an iCalendar task list."),
         {scale, store},
         1,
         groceries},
    };
}

} // namespace ovrin::cli
