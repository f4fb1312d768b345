#include "platform/ChildProcess.h"

#include "platform/Signals.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace morvak {

namespace {

constexpr std::size_t readChunk = 256 * 1024;
constexpr int firstFreeDescriptor = 3;
constexpr int pollWithoutPidfdMs = 10;
constexpr int killPatienceMs = 2'000;
constexpr int launchLimitMs = 10'000;
constexpr qsizetype mostUnread = 1024 * 1024;  // no pipe of ours holds more

std::atomic<int> abandonedChildren = 0;

void closeDescriptor(int& descriptor)
{
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}

/// Both ends close on exec and lie above the standard descriptors, whatever this process has closed.
class Pipe {
public:
    Pipe()
    {
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return;
        for (int& end : ends) {
            if (end >= firstFreeDescriptor)
                continue;
            const int higher = ::fcntl(end, F_DUPFD_CLOEXEC, firstFreeDescriptor);
            ::close(end);
            end = higher;
        }
        readEnd = ends[0];
        writeEnd = ends[1];
    }
    ~Pipe()
    {
        closeDescriptor(readEnd);
        closeDescriptor(writeEnd);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    [[nodiscard]] bool isOpen() const { return readEnd >= 0 && writeEnd >= 0; }

    int readEnd = -1;
    int writeEnd = -1;
};

/// A null-terminated array of pointers into `strings`, as execve takes it.
std::vector<char*> pointersTo(QList<QByteArray>& strings)
{
    std::vector<char*> pointers;
    pointers.reserve(static_cast<std::size_t>(strings.size()) + 1);
    for (QByteArray& string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// All that the child needs between fork and exec, made before the fork: another thread of this process may
/// have held any lock at that moment, so the child itself makes async-signal-safe calls only.
struct Launch {
    explicit Launch(const ChildCommand& command)
        : program(command.program),
          workingDirectory(command.workingDirectory),
          argumentBytes(QList<QByteArray>{command.program} + command.arguments),
          environmentBytes(command.environment),
          arguments(pointersTo(argumentBytes)),
          environment(pointersTo(environmentBytes))
    {
    }

    QByteArray program;
    QByteArray workingDirectory;
    QList<QByteArray> argumentBytes;
    QList<QByteArray> environmentBytes;
    std::vector<char*> arguments;
    std::vector<char*> environment;
    Pipe input;
    Pipe output;
    Pipe failure;  // carries the errno of a failed launch; closed by a successful exec
    pid_t parent = ::getpid();
};

[[noreturn]] void giveUp(const Launch& launch, int error)
{
    [[maybe_unused]] const ssize_t n = ::write(launch.failure.writeEnd, &error, sizeof error);
    ::_exit(127);
}

void restoreSignals()
{
    struct sigaction standard = {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number)
        ::sigaction(number, &standard, nullptr);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void becomeProgram(const Launch& launch)
{
    ::setsid();
    ::prctl(PR_SET_PDEATHSIG, SIGINT);
    if (::getppid() != launch.parent)
        ::_exit(127);  // the parent died before the death signal was asked for
    restoreSignals();
    const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null < 0 || ::dup2(launch.input.readEnd, STDIN_FILENO) < 0 ||
        ::dup2(launch.output.writeEnd, STDOUT_FILENO) < 0 || ::dup2(null, STDERR_FILENO) < 0)
        giveUp(launch, errno);
    if (null == STDERR_FILENO)
        ::fcntl(null, F_SETFD, 0);
    ::close_range(firstFreeDescriptor, UINT_MAX, CLOSE_RANGE_CLOEXEC);
    if (!launch.workingDirectory.isEmpty() && ::chdir(launch.workingDirectory.constData()) != 0)
        giveUp(launch, errno);
    ::execve(launch.program.constData(), launch.arguments.data(), launch.environment.data());
    giveUp(launch, errno);
}

/// Signals stay blocked until the child has its own dispositions: a handler of ours must not run in it.
pid_t forkWithSignalsBlocked(const Launch& launch)
{
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t pid = ::fork();
    if (pid == 0)
        becomeProgram(launch);
    const int error = errno;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return pid;
}

/// 0 when the exec has succeeded. A working directory on a dead disk keeps the child from getting that far.
int errorOfLaunch(Launch& launch)
{
    closeDescriptor(launch.failure.writeEnd);
    pollfd entry = {launch.failure.readEnd, POLLIN, 0};
    int ready = 0;
    do {
        ready = ::poll(&entry, 1, launchLimitMs);
    } while (ready < 0 && errno == EINTR);
    if (ready == 0)
        return ETIMEDOUT;
    int error = 0;
    ssize_t n = 0;
    do {
        n = ::read(launch.failure.readEnd, &error, sizeof error);
    } while (n < 0 && errno == EINTR);
    return n == sizeof error ? error : 0;
}

int released(int& descriptor)
{
    ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
    return std::exchange(descriptor, -1);
}

QString description(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

int pollTime(const QDeadlineTimer& deadline)
{
    if (deadline.isForever())
        return -1;
    return static_cast<int>(std::clamp<qint64>(deadline.remainingTime(), 0, INT_MAX));
}

}  // namespace

Interrupt::Interrupt() : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Interrupt::~Interrupt()
{
    closeDescriptor(m_descriptor);
}

void Interrupt::raise()
{
    m_raised = true;
    ::eventfd_write(m_descriptor, 1);
}

QList<QByteArray> ownEnvironment()
{
    QList<QByteArray> entries;
    for (char** entry = environ; entry && *entry; ++entry)
        entries.append(QByteArray(*entry));
    return entries;
}

std::unique_ptr<ChildProcess> ChildProcess::launch(const ChildCommand& command, QString& error)
{
    ignoreStraySignals();
    Launch launch(command);
    if (!launch.input.isOpen() || !launch.output.isOpen() || !launch.failure.isOpen()) {
        error = description(errno);
        return nullptr;
    }
    const pid_t pid = forkWithSignalsBlocked(launch);
    if (pid < 0) {
        error = description(errno);
        return nullptr;
    }
    std::unique_ptr<ChildProcess> child(
        new ChildProcess(pid, released(launch.input.writeEnd), released(launch.output.readEnd)));
    if (const int failure = errorOfLaunch(launch)) {
        error = description(failure);
        return nullptr;
    }
    return child;
}

ChildProcess::ChildProcess(pid_t pid, int input, int output)
    : m_pid(pid),
      m_exitDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))),
      m_input(input),
      m_output(output)
{
}

ChildProcess::~ChildProcess()
{
    closePipes();
    sendSignal(SIGKILL);
    if (!waitForExit(QDeadlineTimer(killPatienceMs)))
        abandon();
    closeDescriptor(m_exitDescriptor);
}

int ChildProcess::abandonedCount()
{
    return abandonedChildren;
}

ChildProcess::Io ChildProcess::write(QByteArrayView bytes, QDeadlineTimer deadline,
                                     const Interrupt* interrupt)
{
    while (!bytes.isEmpty()) {
        const ssize_t n = ::write(m_input, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (n >= 0) {
            bytes = bytes.sliced(n);
            continue;
        }
        if (errno == EINTR)
            continue;
        if (errno != EAGAIN)
            return failed(errno);
        if (const Io waited = waitFor(m_input, POLLOUT, deadline, interrupt); waited != Io::Done)
            return waited;
    }
    return Io::Done;
}

ChildProcess::Io ChildProcess::read(QByteArray& chunk, QDeadlineTimer deadline, const Interrupt* interrupt)
{
    // Waiting comes first: a child that never stops talking must not keep an interrupt from being seen.
    for (;;) {
        if (const Io waited = waitFor(m_output, POLLIN, deadline, interrupt); waited != Io::Done)
            return waited;
        chunk.resize(readChunk);
        const ssize_t n = ::read(m_output, chunk.data(), readChunk);
        chunk.truncate(std::max<ssize_t>(n, 0));
        if (n >= 0)
            return n == 0 ? Io::EndOfStream : Io::Done;
        if (errno != EAGAIN && errno != EINTR)
            return failed(errno);
    }
}

void ChildProcess::discardOutput()
{
    QByteArray chunk(readChunk, Qt::Uninitialized);
    for (qsizetype discarded = 0; discarded < mostUnread;) {
        const ssize_t n = ::read(m_output, chunk.data(), readChunk);
        if (n <= 0 && !(n < 0 && errno == EINTR))
            return;
        discarded += std::max<ssize_t>(n, 0);
    }
}

void ChildProcess::closePipes()
{
    closeDescriptor(m_input);
    closeDescriptor(m_output);
}

void ChildProcess::abandon()
{
    closePipes();
    sendSignal(SIGKILL);
    if (reap())
        return;
    m_reaped = true;  // as far as this object goes
    const auto awaitEnd = [pid = m_pid] {
        while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        --abandonedChildren;
    };
    ++abandonedChildren;
    try {
        std::thread(awaitEnd).detach();
    } catch (const std::system_error&) {  // no thread to be had: it counts as abandoned from now on
    }
}

void ChildProcess::sendSignal(int signal)
{
    if (!m_reaped)
        ::kill(m_pid, signal);
}

bool ChildProcess::waitForExit(QDeadlineTimer deadline, const Interrupt* interrupt)
{
    while (!reap()) {
        // Without a pidfd the child is looked at again and again.
        const QDeadlineTimer look =
            m_exitDescriptor >= 0 ? deadline : std::min(deadline, QDeadlineTimer(pollWithoutPidfdMs));
        const Io waited = waitFor(m_exitDescriptor, POLLIN, look, interrupt);
        if (waited == Io::Interrupted || waited == Io::Failed || deadline.hasExpired())
            return reap();
    }
    return true;
}

/// Done when the descriptor is ready, which for a pipe includes that the other end is closed.
ChildProcess::Io ChildProcess::waitFor(int descriptor, short events, QDeadlineTimer deadline,
                                       const Interrupt* interrupt)
{
    std::array<pollfd, 2> entries = {pollfd{descriptor, events, 0},
                                     pollfd{interrupt ? interrupt->descriptor() : -1, POLLIN, 0}};
    for (;;) {
        const int ready = ::poll(entries.data(), entries.size(), pollTime(deadline));
        if (ready < 0 && errno != EINTR)
            return failed(errno);
        if (ready == 0)
            return Io::TimedOut;
        if (ready > 0)
            return entries[1].revents != 0 ? Io::Interrupted : Io::Done;
    }
}

ChildProcess::Io ChildProcess::failed(int error)
{
    m_errorText = description(error);
    return Io::Failed;
}

bool ChildProcess::reap()
{
    if (m_reaped)
        return true;
    int status = 0;
    const pid_t ended = ::waitpid(m_pid, &status, WNOHANG);
    m_reaped = ended == m_pid || (ended < 0 && errno == ECHILD);
    return m_reaped;
}

}  // namespace morvak
