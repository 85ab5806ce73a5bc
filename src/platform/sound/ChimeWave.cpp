#include "platform/sound/ChimeWave.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace ovrin {

namespace {

constexpr int rate = 44'100;
constexpr double length = 1.8;
/// Of full scale: heard across a kitchen, and nobody starts.
constexpr double loudness = 0.3;
constexpr double attack = 0.006;
constexpr double fadeOut = 0.2;

struct Stroke
{
    double at;
    double frequency;
};
constexpr std::array strokes{Stroke{0.0, 659.26}, Stroke{0.22, 880.0}};

/// The higher a partial of a bell, the sooner it is gone.
struct Partial
{
    double ratio;
    double share;
    double halfLife;
};
constexpr std::array partials{Partial{1, 0.72, 0.22}, Partial{2.0, 0.2, 0.1}, Partial{3.01, 0.08, 0.04}};

double strokeAt(double time, double frequency)
{
    if (time < 0)
        return 0;
    double sum = 0;
    for (const Partial& partial : partials)
        sum += partial.share * std::exp2(-time / partial.halfLife) *
               std::sin(2 * M_PI * partial.ratio * frequency * time);
    return sum * std::min(1.0, time / attack);
}

double chimeAt(double time)
{
    double sum = 0;
    for (const Stroke& stroke : strokes)
        sum += strokeAt(time - stroke.at, stroke.frequency);
    return loudness * sum * std::min(1.0, (length - time) / fadeOut);
}

} // namespace

QByteArray chimeWave()
{
    constexpr int count = static_cast<int>(rate * length);
    constexpr quint16 bytesPerSample = 2;
    constexpr quint32 dataSize = count * bytesPerSample;

    QByteArray wave;
    wave.reserve(44 + dataSize);
    QDataStream out(&wave, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + dataSize);
    out.writeRawData("WAVEfmt ", 8);
    constexpr quint16 pcm = 1;
    constexpr quint16 channels = 1;
    out << quint32(16) << pcm << channels << quint32(rate) << quint32(rate * bytesPerSample) << bytesPerSample
        << quint16(8 * bytesPerSample);
    out.writeRawData("data", 4);
    out << dataSize;
    for (int sample = 0; sample < count; ++sample)
        out << static_cast<qint16>(std::lround(32'767 * chimeAt(double(sample) / rate)));
    return wave;
}

} // namespace ovrin
