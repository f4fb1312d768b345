#include "platform/Sound.h"

#include <unistd.h>

namespace morvak {

void playActivationSound()
{
    if (::isatty(STDERR_FILENO) == 1) [[maybe_unused]]
        const ssize_t n = ::write(STDERR_FILENO, "\a", 1);
}

}  // namespace morvak
