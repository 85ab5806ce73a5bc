#pragma once

#include <QtCore/QUrl>

QT_BEGIN_NAMESPACE
class QQmlEngine;
QT_END_NAMESPACE

namespace ovrin {

class DraftPhotos;
class RecipePhotos;

/// Begins to read the window's QML on the engine's thread, so that it is there by the time `prepareViews` and
/// the models are through. May be left out.
void beginViews(QQmlEngine& engine);

/// Gives `engine` all that the views ask it for: the module `Ovrin`, symbols and photos. The photos outlive
/// it.
void prepareViews(QQmlEngine& engine, RecipePhotos& photos, DraftPhotos& drafts);
/// The same for views that show no photo.
void prepareViews(QQmlEngine& engine);

/// The library window's QML; its required property `model` is a LibraryWindow.
QUrl mainWindowUrl();
/// The window that takes its place when there is no library to show.
QUrl storeProblemUrl();

} // namespace ovrin
