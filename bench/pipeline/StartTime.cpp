#include "MorvakRun.h"
#include "Sections.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace morvak::bench {

bool measureStart(const BenchOptions& options)
{
    std::array<qint64, 5> times{};
    for (qint64& time : times)
        time = MorvakRun(options.program, std::chrono::seconds(30)).startTime().count();
    std::ranges::sort(times);
    std::printf(
        "start: from exec to watching, five runs\n  median %lld ms   shortest %lld ms   longest %lld ms\n",
        qlonglong{times[2]}, qlonglong{times[0]}, qlonglong{times[4]});
    return true;
}

}  // namespace morvak::bench
