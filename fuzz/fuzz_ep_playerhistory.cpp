// The career table of an Elite Prospects player page, the rows' report lines for
// every index (and one on either side), and each row written in both export
// modes; then the same bytes as one table row.
#include "ep/epplayerhistory.h"
#include "fuzz/harness.h"

#include <QDate>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Fuzz::reset();
    const QString firstName = u"Fuzz"_s;
    const QString secondName = u"Player"_s;
    const QDate dateOfBirth(2001, 2, 3);
    QList<EP_PlayerHistory> rows;
    scanPlayerHistory(&firstName, &secondName, &dateOfBirth, rows, Fuzz::pageText(data, size));
    for (int i = -1; i <= int(rows.size()); ++i)
        playerHistorySample(rows, i);
    for (EP_PlayerHistory &row : rows)
        Fuzz::writeRecord(row);

    EP_PlayerHistory row(&firstName, &secondName, &dateOfBirth);
    QString text = Fuzz::pageText(data, size);
    row.parsePage(text);
    Fuzz::writeRecord(row);
    return 0;
}
