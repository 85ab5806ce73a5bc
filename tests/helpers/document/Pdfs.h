#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>

namespace ovrin {

/// PDFs made by hand, so that each test has exactly the fault it speaks of.
namespace Pdfs {

/// A whole file of numbered objects, the first one being object 1, which is the catalogue.
QByteArray file(const QByteArrayList& objects);

/// The same with its objects in one compressed stream, as far as they are no streams themselves, and with a
/// compressed table.
QByteArray packedFile(const QByteArrayList& objects);

/// A page of 600 x 800 points for each of `contents`, drawn by it; /F1 is Helvetica.
QByteArray pages(const QByteArrayList& contents);

/// Draws `text` at a place given in points from the lower left corner.
QByteArray textAt(int x, int y, const QByteArray& text, int size = 12);

QByteArray stream(const QByteArray& content, const QByteArray& entries = {});
QByteArray compressedStream(const QByteArray& content, const QByteArray& entries = {});

} // namespace Pdfs

} // namespace ovrin
