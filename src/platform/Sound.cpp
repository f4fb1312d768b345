#include "platform/Sound.h"

#include "platform/CoalescingThread.h"
#include "platform/Diagnostics.h"
#include "platform/SoundWave.h"

#include <memory>

#include <canberra.h>
#include <sys/mman.h>
#include <unistd.h>

namespace morvak {

namespace {

constexpr quint32 soundId = 1;

/// The desktop's sound system, which plays files: ours lies in memory. Used by one thread.
class Player {
public:
    void play()
    {
        int result = open();
        if (result == CA_SUCCESS) {
            ca_context_cancel(m_context, soundId);
            result = ca_context_play(m_context, soundId, CA_PROP_MEDIA_FILENAME, m_fileName.constData(),
                                     CA_PROP_MEDIA_ROLE, "event", CA_PROP_EVENT_DESCRIPTION, "Set actief",
                                     nullptr);
        }
        if (result != CA_SUCCESS && !std::exchange(m_hasComplained, true))
            diagnostic(QStringLiteral("⚠️ Geen geluid: ") + QString::fromUtf8(ca_strerror(result)));
    }

private:
    int open()
    {
        if (m_context)
            return CA_SUCCESS;
        const QByteArray wave = activationSoundWave();
        const int file = ::memfd_create("morvak-sound", MFD_CLOEXEC);
        if (file < 0 || ::write(file, wave.constData(), size_t(wave.size())) != wave.size())
            return CA_ERROR_SYSTEM;
        m_fileName = "/proc/self/fd/" + QByteArray::number(file);
        const int result = ca_context_create(&m_context);
        if (result == CA_SUCCESS)
            ca_context_change_props(m_context, CA_PROP_APPLICATION_NAME, "Morvak", nullptr);
        return result;
    }

    ca_context* m_context = nullptr;
    QByteArray m_fileName;
    bool m_hasComplained = false;
};

}  // namespace

void playActivationSound()
{
    // Never destroyed: the sound system may be busy, or stuck, when the program ends.
    static auto* const thread =
        new CoalescingThread([player = std::make_shared<Player>()] { player->play(); });
    thread->ask();
}

}  // namespace morvak
