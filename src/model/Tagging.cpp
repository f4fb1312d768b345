#include "model/Tagging.h"

#include <utility>

namespace morvak {

Tagging::Tagging(SetData setToWrite, std::optional<Shoot> ofShoot)
    : set(std::move(setToWrite)), shoot(std::move(ofShoot))
{
    if (shoot) {
        shoot->sets = {};  // not cleared, which would allocate room for as many
        shoot->activationLog = {};
    }
}

}  // namespace morvak
