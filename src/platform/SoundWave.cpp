#include "platform/SoundWave.h"

#include <QDataStream>
#include <QIODevice>

#include <array>
#include <cmath>
#include <numbers>

namespace morvak {

namespace {

constexpr int sampleRate = 44'100;  // Hz
constexpr int samples = sampleRate / 3;
constexpr double attack = 0.002;  // seconds

struct Partial {
    double frequency;  // Hz
    double loudness;
    double decay;  // seconds until it has fallen to 1/e
};

/// Those of a struck bar that swings freely stand in the ratios 1 : 2.756 : 5.404; the high ones die first.
constexpr std::array<Partial, 3> partials = {
    {{1318.5, 0.30, 0.060}, {1318.5 * 2.756, 0.12, 0.030}, {1318.5 * 5.404, 0.05, 0.012}}};

qint16 sampleAt(int index)
{
    const double time = double(index) / sampleRate;
    double sum = 0;
    for (const Partial& partial : partials)
        sum += partial.loudness * std::exp(-time / partial.decay) *
               std::sin(2 * std::numbers::pi * partial.frequency * time);
    const double fadeIn = std::min(1.0, time / attack);
    const double fadeOut = 1.0 - double(index) / samples;
    return qint16(std::lround(sum * fadeIn * fadeOut * 32'767));
}

}  // namespace

QByteArray activationSoundWave()
{
    constexpr quint32 dataBytes = samples * sizeof(qint16);
    QByteArray wave;
    QDataStream out(&wave, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + dataBytes);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(sampleRate)
        << quint32(sampleRate * sizeof(qint16)) << quint16(sizeof(qint16)) << quint16(16);
    out.writeRawData("data", 4);
    out << dataBytes;
    for (int i = 0; i < samples; ++i)
        out << sampleAt(i);
    return wave;
}

}  // namespace morvak
