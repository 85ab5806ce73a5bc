#pragma once

#include <QtCore/QString>

namespace ovrin {

/// Fragments of HTML, as they stand in the fields of structured data and in meta tags, as plain text.
namespace HTMLText {

/// Markup to plain text: `<br>`, `</p>` and `</li>` break lines, every other tag vanishes, entities are
/// decoded after that (so "&lt;b&gt;" is the text "<b>"), runs of spaces, tabs and no-break spaces become one
/// space, lines are trimmed and joined by "\n", empty ones dropped. Takes time in proportion to the text,
/// whatever it is.
QString clean(const QString& html);

/// Decodes "&#8217;", "&#x2019;" and forty-two common names, each ending in ";", once from left to right.
/// What is no such entity stays as it is; so does a number that is no Unicode scalar. "&nbsp;" gives an
/// ordinary space.
QString decodeEntities(const QString& text);

} // namespace HTMLText

} // namespace ovrin
