#pragma once

#include "cooking/CookTimers.h"
#include "import/ImportCoordinator.h"
#include "import/error/RecipeImportError.h"
#include "ui/Views.h"
#include "ui/images/DraftPhotos.h"
#include "ui/images/RecipePhotos.h"
#include "ui/library/LibraryWindow.h"
#include "ui/support/Fakes.h"
#include "ui/support/Library.h"

#include <QCoro/QCoroTimer>
#include <QtQml/QQmlEngine>

namespace ovrin {

/// The window's whole model over a library of its own, with importers that give what they are told to.
class WindowFixture
{
public:
    Library library;
    RecipePhotos photos{library.store()};
    DraftPhotos draftPhotos;
    FakePhotoMaker photoMaker;
    FakePasteboard pasteboard;
    FakeDesktop desktop;
    FakeFlags flags;
    Appearance appearance;
    NullNotificationCenter notifications;
    QDateTime now = QDateTime::fromMSecsSinceEpoch(1700000000000, Qt::UTC);
    CookTimers timers{[this] { return now; }, notifications};
    /// The recipes whose cook window was asked for.
    QList<QUuid> cooked;

    /// What an import gives; without one it fails.
    std::optional<RecipeDraft> imported;
    /// While set, neither imports nor the task service come to an end.
    bool isHeld = false;
    QStringList requests;
    /// What went to the grocery list.
    QList<QStringList> groceries;

    ImportCoordinator importer{services()};

    std::unique_ptr<LibraryWindow> makeWindow()
    {
        return std::make_unique<LibraryWindow>(LibraryWindow::Services{
            library.store(), importer, photoMaker, photos, draftPhotos, pasteboard, desktop, flags,
            DraftKeeper(library.path(QStringLiteral("kept.json"))), QLocale::c(), &timers,
            [this](QUuid recipe) { cooked.append(recipe); },
            [this](QStringList lines, QString) { return addGroceries(lines); }, true, true});
    }

    /// What the main window is made with.
    QVariantMap windowProperties(LibraryWindow& model)
    {
        return {{QStringLiteral("appearance"), QVariant::fromValue(&appearance)},
                {QStringLiteral("model"), QVariant::fromValue(&model)}};
    }

    void prepare(QQmlEngine& engine) { prepareViews(engine, photos, draftPhotos); }

private:
    QCoro::Task<void> release()
    {
        while (isHeld) {
            QTimer pause;
            pause.start(1);
            co_await pause;
        }
    }
    QCoro::Task<QString> addGroceries(QStringList lines)
    {
        groceries.append(lines);
        co_await release();
        co_return QStringLiteral("Added %1 items.").arg(lines.size());
    }

    ImportCoordinator::Services services()
    {
        const auto answer = [this](QString request) -> QCoro::Task<RecipeDraft> {
            requests.append(request);
            co_await release();
            if (!imported)
                throw RecipeImportError::noRecipeFound();
            co_return *imported;
        };
        const auto document = [answer](QString request) -> QCoro::Task<ImportCoordinator::Document> {
            const RecipeDraft draft = co_await answer(request);
            ImportCoordinator::Document read{draft, {}};
            co_return read;
        };
        return {library.store(),
                [answer](QUrl url, std::stop_token) { return answer(url.toString()); },
                [document](QString path, std::stop_token) { return document(path); },
                [document](QByteArray, QString type, std::stop_token) { return document(type); },
                photoMaker,
                [this] { return library.store().now(); },
                std::nullopt,
                library.path(QStringLiteral("Review"))};
    }
};

} // namespace ovrin
