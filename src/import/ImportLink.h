#pragma once

#include "model/RecipeDraft.h"

#include <QtCore/QUrl>

#include <optional>

namespace ovrin {

/// Reads the application's own links:
/// `ovrin://import?url=<address>` and `ovrin://draft?json=<base64 of a draft's JSON>`.
namespace ImportLink {

/// Longer links are no links: nothing that a person sends is larger.
constexpr qsizetype maximumLength = qsizetype(96) << 20;

/// Whether `url` is one of the application's links, well-formed or not.
bool isOurs(const QUrl& url);
/// The http or https address to import; nothing for any other link.
std::optional<QUrl> page(const QUrl& url);
/// The draft to review; nothing for any other link, broken base64 or JSON that is no draft.
std::optional<RecipeDraft> draft(const QUrl& url);

} // namespace ImportLink

} // namespace ovrin
