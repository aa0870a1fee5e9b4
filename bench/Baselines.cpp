#include "bench/Baselines.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringDecoder>
#include <QStringEncoder>

namespace baselines {

QStringList splitFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read the generated file");
    }
    QStringDecoder decoder("windows-1252");
    const QString text = decoder.decode(file.readAll());
    QStringList fields;
    qsizetype first = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u',' || text[i] == u'\n') {
            const qsizetype last = text[i] == u'\n' && i > first ? i - 1 : i;
            fields.append(text.sliced(first, last - first));
            first = i + 1;
        }
    }
    return fields;
}

void joinToFile(const QStringList &fields, const QString &fileName)
{
    QStringEncoder encoder("windows-1252");
    const QByteArray bytes = encoder.encode(fields.join(u','));
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        qFatal("cannot write the generated file");
    }
}

void passEvents(int count)
{
    for (int i = 0; i < count; ++i) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

} // namespace baselines
