#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <atomic>
#include <memory>

#include <sys/types.h>

namespace morvak {

/// Wakes every wait that it is handed to, and each later one at once; it is never lowered again. Any thread.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    void raise();
    [[nodiscard]] bool isRaised() const { return m_raised; }

    /// Readable once raised.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    std::atomic<bool> m_raised = false;
    int m_descriptor;
};

/// What to run. Everything is bytes, as the kernel takes it.
struct ChildCommand {
    QByteArray program;           ///< absolute path
    QList<QByteArray> arguments;  ///< without the program's own name
    QList<QByteArray> environment;
    QByteArray workingDirectory;
};

/// The environment of this process, one NAME=value an entry.
[[nodiscard]] QList<QByteArray> ownEnvironment();

/// A child process with pipes on standard input and output; its standard error goes to the null device.
///
/// It lives in a session of its own, so that a Ctrl+C in a terminal does not reach it; it has the default
/// signal dispositions, no inherited descriptors, and gets SIGINT when the *thread* that launched it ends: a
/// thread that launches a child must outlive it. Used by one thread at a time. A broken pipe is an error of
/// `write`, never a signal.
///
/// A child that the kernel holds back, such as one that reads from a dead disk, survives even SIGKILL. It is
/// abandoned then: nobody waits for it, and it is reaped when it ends.
class ChildProcess {
public:
    enum class Io {
        Done,         ///< all bytes are written, or some were read
        EndOfStream,  ///< the child has closed its output
        TimedOut,
        Interrupted,
        Failed,  ///< `errorText` says why
    };

    /// None when the program could not be started; `error` then holds the system's description.
    [[nodiscard]] static std::unique_ptr<ChildProcess> launch(const ChildCommand& command, QString& error);

    /// How many children of this process are abandoned and have not ended yet. Any thread.
    [[nodiscard]] static int abandonedCount();

    /// Closes the pipes, kills the child if it still runs, and reaps it, or abandons it after two seconds.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] Io write(QByteArrayView bytes, QDeadlineTimer deadline,
                           const Interrupt* interrupt = nullptr);

    /// Replaces `chunk` by what the child has written, waiting until there is something.
    [[nodiscard]] Io read(QByteArray& chunk, QDeadlineTimer deadline, const Interrupt* interrupt = nullptr);

    /// Throws away, without waiting, what the child has written and nobody has read.
    void discardOutput();

    void closePipes();

    /// Kills the child and leaves it to be reaped when it ends.
    void abandon();

    /// Does nothing once the child has been reaped.
    void sendSignal(int signal);

    /// True once the child has ended and is reaped; false when the time was over or the interrupt came first.
    [[nodiscard]] bool waitForExit(QDeadlineTimer deadline, const Interrupt* interrupt = nullptr);

    [[nodiscard]] pid_t pid() const { return m_pid; }

    /// Readable once the child has ended; -1 where the kernel has no such descriptor.
    [[nodiscard]] int exitDescriptor() const { return m_exitDescriptor; }

    [[nodiscard]] const QString& errorText() const { return m_errorText; }

private:
    ChildProcess(pid_t pid, int input, int output);

    [[nodiscard]] Io waitFor(int descriptor, short events, QDeadlineTimer deadline,
                             const Interrupt* interrupt);
    [[nodiscard]] Io failed(int error);
    [[nodiscard]] bool reap();

    pid_t m_pid;
    int m_exitDescriptor;  // a pidfd; -1 where the kernel has none
    int m_input;
    int m_output;
    bool m_reaped = false;
    QString m_errorText;
};

}  // namespace morvak
