#pragma once

#include <QString>

// Makes a name safe for an Ascii CSV line.
QString toAsciiName(const QString &name);
// Reads an amount or a count as a page shows it; rewrites text in place.
qint32 parseMoney(QString &text);
