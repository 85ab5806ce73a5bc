#pragma once

#include <QtCore/QByteArray>

namespace ovrin {

/// The soft sound of a timer that has run out, as a whole WAV file: 16-bit PCM, one channel, 44,100 samples a
/// second. Two strokes of a small bell a fourth apart, silent at both ends. Source of the layout: Multimedia
/// Programming Interface and Data Specifications 1.0, "Waveform Audio File Format".
QByteArray chimeWave();

} // namespace ovrin
