#include "demo/Report.h"

#include <QTime>

#include <cstdio>

namespace morvak::demo::report {

void heading(const QString& text)
{
    plain(u'\n' + text + u'\n' + QString(text.size(), u'═'));
}

void event(const QString& who, const QString& what)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    plain(QStringLiteral("  %1  %2  %3").arg(time.chopped(2), who, what));
}

void plain(const QString& text)
{
    std::puts(text.toUtf8().constData());
    std::fflush(stdout);
}

}  // namespace morvak::demo::report
