#pragma once

#include "helpers/document-reader/photo/PictureFormat.h"

#include <QtCore/QByteArray>

/// libvips, started at its first use with the loaders that it calls untrusted blocked.
namespace ovrin::documentreader::VipsLibrary {

/// True when the library would read `bytes` with its own loader for `format`, and with no other.
bool isReadyFor(PictureFormat format, const QByteArray& bytes);

} // namespace ovrin::documentreader::VipsLibrary
