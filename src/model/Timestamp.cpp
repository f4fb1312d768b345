#include "model/Timestamp.h"

#include <chrono>

namespace morvak {

Timestamp Timestamp::now()
{
    using namespace std::chrono;
    constexpr sys_days reference = 2001y / January / 1d;
    return {duration<double>(system_clock::now() - reference).count()};
}

}  // namespace morvak
