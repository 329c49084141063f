#include "tests/support/testsupport.h"

#include <QFile>

using namespace Qt::StringLiterals;

QString fixturePath(const QString &relative)
{
    return QStringLiteral(QM_FIXTURES_DIR) + u'/' + relative;
}

QByteArray fixtureBytes(const QString &relative)
{
    QFile file(fixturePath(relative));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}
