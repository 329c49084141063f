#include "tfm/tfmhistory.h"

QString seasonYear(QString &text)
{
    return text;
}

void TFM_History::writeAscii(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void TFM_History::writeUtf(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void TFM_History::parsePage(QString &row)
{
    Q_UNUSED(row)
}

void TFM_History::testReport(QString &text)
{
    Q_UNUSED(text)
}

void TFM_History::scanHistoryPage(QList<TFM_History> &rows, QString &page, QString &name,
                                  QString &dateOfBirth)
{
    Q_UNUSED(rows)
    Q_UNUSED(page)
    Q_UNUSED(name)
    Q_UNUSED(dateOfBirth)
}

bool TFM_History::downloadHistory(QList<TFM_History> &rows, const QString &path, QString &name,
                                  QString &dateOfBirth)
{
    Q_UNUSED(rows)
    Q_UNUSED(path)
    Q_UNUSED(name)
    Q_UNUSED(dateOfBirth)
    return true;
}
