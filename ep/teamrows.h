#pragma once

#include "core/scan.h"

#include <QList>
#include <QString>

// What the two kinds of row at the foot of a team page share: each is cut out of
// the page text and read piece by piece into rows that carry the team's name,
// and each has a sample line for the team page report.

// Cuts the text down to what lies between first and last, then makes a row of
// every piece between pieceFirst and pieceSecond. True when rows is not empty.
template<typename Row>
bool scanTeamRows(QList<Row> &rows, QString &text, const QString &teamName, const QString &first,
                  const QString &last, const QString &pieceFirst, const QString &pieceSecond)
{
    isolateBetween(text, first, last);
    QString piece;
    while (takeBetween(piece, text, pieceFirst, pieceSecond)) {
        Row row;
        row.team = teamName;
        row.parsePage(piece);
        rows.append(row);
    }
    return !rows.isEmpty();
}

// "n/a" without rows, the missing format (with the index for %1) for an index
// outside them, and otherwise the line that line makes of the row.
template<typename Row, typename Line>
QString teamRowSample(const QList<Row> &rows, const int &index, const QString &missing, Line line)
{
    using namespace Qt::StringLiterals;
    if (rows.isEmpty())
        return u"n/a"_s;
    if (index < 0 || index >= rows.size())
        return missing.arg(index);
    return line(rows.at(index));
}

// Writes a name as it stands: the Utf form of the row writers.
inline QString asItStands(const QString &text)
{
    return text;
}
