#pragma once

#include <QString>

// Makes a name safe for an Ascii CSV line: its Latin-1 bytes are read back as
// UTF-8, commas and semicolons are dropped and a rebuilt o-slash becomes "o".
QString toAsciiName(const QString &name);
// Reads an amount or a count as a page shows it ("€1.50m", "500 Th. €", "17");
// 0 when it can't be read. Rewrites text in place: a title cell's value, with
// commas turned into points.
qint32 parseMoney(QString &text);
// A year of a table row: a candidate above 999 is a year, stands and becomes
// last; anything less is none, and the row takes last, the year of a row before.
qint16 carryYear(qint16 candidate, qint16 &last);
