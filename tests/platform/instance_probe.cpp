#include "platform/SingleInstance.h"

#include "platform/FileName.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

using namespace morvak;

namespace {

void say(const QByteArray& line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

}  // namespace

/// `instance_probe STORE PAUSE [FILE...]`: starts once, says its outcome and, as the first, what it is told;
/// its event loop begins PAUSE milliseconds late.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    SingleInstance instance(decodeFileName(argv[1]), std::chrono::seconds(10));
    QObject::connect(&instance, &SingleInstance::activationAsked, [] { say("activate"); });
    QObject::connect(&instance, &SingleInstance::filesHandedOver, [](const QStringList& files) {
        for (const QString& file : files)
            say(encodeFileName(file).toPercentEncoding("/"));
    });
    QStringList files;
    for (int i = 3; i < argc; ++i)
        files.append(decodeFileName(argv[i]));
    const SingleInstance::Outcome outcome = instance.start(files);
    if (outcome != SingleInstance::Outcome::First) {
        say(instance.problem().toUtf8());
        return outcome == SingleInstance::Outcome::HandedOver ? 0 : 1;
    }
    say("first");
    QThread::msleep(QByteArray(argv[2]).toULong());
    return QCoreApplication::exec();
}
