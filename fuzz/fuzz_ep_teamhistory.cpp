// The history table of an Elite Prospects team page, the rows' report lines for
// every index (and one on either side), and each row written in both export
// modes; then the same bytes as one row.
#include "ep/epteamhistory.h"
#include "fuzz/harness.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Fuzz::reset();
    QString text = Fuzz::pageText(data, size);
    QList<EP_TeamHistory> rows;
    scanTeamHistory(rows, text, u"Fuzz Club"_s);
    for (int i = -1; i <= int(rows.size()); ++i)
        teamHistorySample(rows, i);
    for (EP_TeamHistory &row : rows)
        Fuzz::writeRecord(row);

    EP_TeamHistory row;
    text = Fuzz::pageText(data, size);
    row.parsePage(text);
    Fuzz::writeRecord(row);
    return 0;
}
