#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace morvak {

/// What the screens say about codes. Pure; any thread.
class QRTexts {
    Q_DECLARE_TR_FUNCTIONS(morvak::QRTexts)

public:
    /// Why a text has no QR code; empty when it has one.
    [[nodiscard]] static QString problem(const QString& text);

    /// What has to be known about the code that was made of `made` while the fields stand for `now`: that
    /// there is none, that it is older than the fields, or that scanning it finds no set. Empty when it is
    /// as it should be, and before the first was made.
    [[nodiscard]] static QString caution(const std::optional<QString>& made, const QString& now);
};

}  // namespace morvak
