#include "core/datawrapper.h"

using namespace Qt::StringLiterals;

// The Elite Prospects player file prints these literals as its lines: they are
// part of that file format.
void DataWrapper::writeAscii(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(separator)
    stream << u"DataWrapper base class called (ASCII)\n"_s;
}

void DataWrapper::writeUtf(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(separator)
    stream << u"DataWrapper base class called (UTF)\n"_s;
}

void DataWrapper::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void DataWrapper::testReport(QString &text)
{
    Q_UNUSED(text)
}
