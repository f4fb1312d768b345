#pragma once

#include "driver/MorvakProcess.h"
#include "driver/ReadBack.h"
#include "sampleshoot/SampleShoot.h"

namespace morvak::demo {

/// The demonstration: plays a small shoot with the real program and checks what became of the photos.
///
/// Main thread. What it starts is gone when the object is, what it writes goes with the profile.
class Demo {
public:
    /// `program` is the path of the real program. The pacer must outlive the object.
    Demo(QString program, driver::Pacer& pacer);

    /// True when every photo carries exactly what it should.
    [[nodiscard]] bool run();

private:
    [[nodiscard]] bool prepare();
    [[nodiscard]] bool startProgram();
    [[nodiscard]] bool shoot();
    [[nodiscard]] bool shootOne(qsizetype index);
    [[nodiscard]] bool waitForTags(qsizetype count);
    [[nodiscard]] bool stopProgram();
    [[nodiscard]] bool judge();
    [[nodiscard]] QStringList faultsOf(const samples::SamplePhoto& photo,
                                       const driver::PhotoTags& tags) const;
    [[nodiscard]] QStringList leftOvers() const;

    /// The first line of the log that says a photo will not be tagged; empty while there is none.
    [[nodiscard]] QString refusal() const;

    /// Tells why the demonstration does not go on; false, for the caller to return.
    [[nodiscard]] bool giveUp(const QString& reason) const;

    driver::Pacer& m_pacer;
    Shoot m_shoot;
    QList<SetData> m_sets;
    QList<samples::SamplePhoto> m_photos;
    driver::MorvakProcess m_program;
};

}  // namespace morvak::demo
