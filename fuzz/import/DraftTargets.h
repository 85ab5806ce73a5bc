#pragma once

#include <QtCore/QByteArrayView>

/// What companions and other programs hand over, on any bytes: each function ends the program when a promise
/// is broken.
namespace ovrin::fuzz {

/// A link as it stands, and the bytes as the value of a link that imports a page or brings a draft.
void importLink(QByteArrayView bytes);
/// A file in the inbox.
void inboxDraft(QByteArrayView bytes);

} // namespace ovrin::fuzz
