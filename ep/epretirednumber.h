#pragma once

#include "core/datawrapper.h"

#include <QList>

// One sweater number that an Elite Prospects team has retired, with its player.
class EP_RetiredNumber : public DataWrapper
{
public:
    QString team;
    qint32 number = 0;
    QString firstName;
    QString secondName;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    // The text is one list item.
    void parsePage(QString &item) override;
};

// Reads the retired number list from what the team history scan left of the page:
// the list is found only where it stands behind the last history row. True when
// rows is not empty.
bool scanRetiredNumbers(QList<EP_RetiredNumber> &rows, QString &text, const QString &teamName);
// One number in a line for the team page report; "n/a" when there is none.
QString retiredNumberSample(const QList<EP_RetiredNumber> &rows, const int &index);
