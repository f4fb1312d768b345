#include "metadata/NameBatches.h"

#include "platform/FileName.h"

namespace morvak {

namespace {

/// The kernel also counts the byte that ends an argument and the pointer to it.
qsizetype bytesOnCommandLine(const QString& name)
{
    return encodeFileName(name).size() + 1 + qsizetype(sizeof(char*));
}

}  // namespace

QList<QStringList> nameBatches(const QStringList& names, qsizetype mostNames, qsizetype mostBytes)
{
    QList<QStringList> batches;
    qsizetype bytes = 0;
    for (const QString& name : names) {
        const qsizetype more = bytesOnCommandLine(name);
        if (batches.isEmpty() || batches.constLast().size() >= mostNames || bytes + more > mostBytes) {
            batches.append(QStringList());
            bytes = 0;
        }
        batches.last().append(name);
        bytes += more;
    }
    return batches;
}

}  // namespace morvak
