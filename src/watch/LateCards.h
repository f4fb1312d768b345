#pragma once

#include <QUuid>

#include <map>
#include <optional>

namespace morvak {

/// What was active when a photo took its set; another activation, of the same set as well, makes another one.
struct SetMoment {
    std::optional<QUuid> shoot;
    qsizetype activations = 0;  ///< in that shoot so far
    std::optional<QUuid> set;
    bool operator==(const SetMoment&) const = default;
};

/// The photos that took their set without a look, by run, each with its moment. One of them that turns out
/// to be a card may activate its set only while nothing newer was activated.
class LateCards {
public:
    void note(quint64 run, const SetMoment& moment) { m_moments.insert_or_assign(run, moment); }

    /// The photo's moment, which is forgotten; none when it was not noted.
    [[nodiscard]] std::optional<SetMoment> take(quint64 run);

    /// The card of this run and of the moment `before` has led to `after`, late. For photos of the same
    /// moment that came after this card, that is no newer activation.
    void cardActivated(quint64 run, const SetMoment& before, const SetMoment& after);

private:
    std::map<quint64, SetMoment> m_moments;
};

}  // namespace morvak
