#include "support/FigureTable.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace morvak::bench {

void addFigure(const QString& subject, const QString& figure, const std::optional<Comparison>& against)
{
    const QString path = qEnvironmentVariable("MORVAK_BENCH_TABLE");
    if (path.isEmpty())
        return;
    const QStringList cells{subject, figure, against ? against->what : u"–"_s,
                            against ? against->figure : u"–"_s,
                            against ? QString::number(against->ratio, 'f', 2) : u"–"_s};
    QFile table(path);
    if (!table.open(QFile::Append) || table.write(cells.join(u'\t').toUtf8() + '\n') < 0)
        qFatal("cannot write the table of figures");
}

}  // namespace morvak::bench
