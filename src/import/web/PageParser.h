#pragma once

#include "model/RecipeDraft.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QUrl>

namespace ovrin {

/// The draft that one HTML document holds, in UTF-8 (what is broken is read as U+FFFD). Its JSON-LD recipe
/// comes first, its meta tags and title fill gaps; `pageURL` is the document's address, empty when nobody
/// knows it. Pure, linear in the document's length, callable from any thread. Throws
/// RecipeImportError::noRecipeFound when it finds no title; a draft without ingredients or steps is a normal
/// result.
RecipeDraft parsePage(QByteArrayView html, const QUrl& pageURL);

} // namespace ovrin
