#pragma once

#include <QChar>
#include <QString>
#include <QTextStream>

// Base of every harvested record: it scans one page into itself, reports on it
// offline and writes itself as one CSV line.
class DataWrapper
{
public:
    DataWrapper() = default;
    // Virtual, so that clearing the planner's lists frees each record whole.
    virtual ~DataWrapper() = default;

    virtual void writeAscii(QTextStream &stream, const QChar &separator);
    virtual void writeUtf(QTextStream &stream, const QChar &separator);
    virtual void parsePage(QString &text);
    virtual void testReport(QString &text);
};
