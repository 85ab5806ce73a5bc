#pragma once

#include <QtCore/QByteArrayView>

/// What documents, the document reader and the language model may send, on any bytes: each function ends the
/// program when a promise is broken.
namespace ovrin::fuzz {

/// Plain text as the lines of a document; "# " in front of a line sets it in large type.
void recipeText(QByteArrayView bytes);
/// Boxes from anywhere: eight bytes make one.
void readingOrder(QByteArrayView bytes);
/// The body of the reader's answer to a document, and a frame's header before it.
void documentAnswer(QByteArrayView bytes);
/// What the reader receives as a request, and the application as the answer to a photo.
void readerFrame(QByteArrayView bytes);
/// The answers of a language model's server.
void chatCompletion(QByteArrayView bytes);
/// The language model's answer, held against its own first line.
void generatedRecipe(QByteArrayView bytes);

} // namespace ovrin::fuzz
