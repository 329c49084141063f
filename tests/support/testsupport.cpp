#include "tests/support/testsupport.h"

#include <QDir>
#include <QFile>
#include <QPlainTextEdit>

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

QString fixtureText(const QString &relative)
{
    return QString::fromUtf8(fixtureBytes(relative));
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArrayLiteral("<unreadable>");
    return file.readAll();
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

QStringList logLines(const QPlainTextEdit *edit)
{
    return edit->toPlainText().split(u'\n');
}
