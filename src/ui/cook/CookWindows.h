#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QUuid>

#include <functional>
#include <memory>

class QQmlEngine;
class QQuickWindow;

namespace ovrin {

class CookModeViewModel;
class CookTimers;
class RecipePhotos;
class RecipeStore;

/// The cook windows, one a recipe. Each lives until it is closed.
class CookWindows : public QObject
{
    Q_OBJECT

public:
    /// Keeps the display awake as long as what it gives lives.
    using KeepAwake = std::function<std::shared_ptr<void>()>;

    struct Services
    {
        QQmlEngine& engine;
        RecipeStore& store;
        RecipePhotos& photos;
        CookTimers& timers;
        /// May be empty.
        KeepAwake keepAwake;
    };

    explicit CookWindows(Services services, QObject* parent = nullptr);
    ~CookWindows() override;

    /// Opens the recipe's window, or brings the one that is open forward.
    QQuickWindow* open(const QUuid& recipeId);
    qsizetype count() const { return static_cast<qsizetype>(m_windows.size()); }

private:
    struct Opened;

    Services m_services;
    QHash<QUuid, std::shared_ptr<Opened>> m_windows;
};

} // namespace ovrin
