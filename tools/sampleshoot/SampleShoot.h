#pragma once

#include "model/Tagging.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace morvak::samples {

/// One file of the sample shoot, in the order of shooting.
struct SamplePhoto {
    QString name;
    QByteArray bytes;
    qsizetype set = 0;    ///< index into the shoot's sets: the set that is on when it is taken
    bool isCard = false;  ///< the photographed card that starts its set
};

/// Two sets of a small fashion shoot, with text as photographers write it.
[[nodiscard]] QList<SetData> sampleSets();

/// The first of them, as a photo of a shoot of that name gets it.
[[nodiscard]] Tagging sampleTagging(const QString& shootName);

/// A shoot with nothing but its name.
[[nodiscard]] Shoot shootNamed(const QString& name);

/// The shoot of `sampleSets`: for each set its photographed card, then photos as JPEG, TIFF and RAW
/// containers of several makers, upright and turned. Takes a few seconds; needs a QGuiApplication, for the
/// cards' text.
[[nodiscard]] QList<SamplePhoto> sampleShoot(const QList<SetData>& sets);

}  // namespace morvak::samples
