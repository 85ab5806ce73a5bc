#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>

#include <random>

namespace ovrin {

/// PDFs of text and drawing with something wrong in them.
namespace Mutations {

/// Sound documents of different make: plain and compressed streams, forms, paths, clips and patterns, tables
/// of objects in the old and the new form, all objects in one compressed stream.
QByteArrayList originals();

/// One of the originals, changed in a few places; the same for the same random numbers. Half of them are
/// changed in their bytes, half in what they draw, which is then packed as a sound file packs it.
QByteArray next(std::mt19937& random);

} // namespace Mutations

} // namespace ovrin
