#pragma once

#include "model/SetData.h"

namespace morvak {

/// One entry of a shoot's activation log.
struct SetActivation {
    QUuid setId;
    Timestamp activatedAt;
};

/// One shoot: the named container of its sets.
struct Shoot {
    QUuid id = QUuid::createUuid();          ///< fixed when the shoot is made
    QString name;                            ///< also the shoot name in the photos' metadata
    QString location;                        ///< may be empty
    QString client;                          ///< may be empty
    Timestamp date = Timestamp::now();       ///< when the shoot was made
    QList<SetData> sets;                     ///< newest first
    std::optional<QString> watchFolderPath;  ///< absolute; none until a folder is chosen
    QList<SetActivation> activationLog;      ///< oldest first; keeps the entries of deleted sets
};

}  // namespace morvak
