#pragma once

#include <QString>

// Marker operations that every page scanner walks its page text with. Searches
// are case-insensitive unless said otherwise; what each does on a missing marker
// is relied upon by the scanners and must stay exactly as it is.

// Cuts text down to what lies between first and second. Never fails.
bool isolateBetween(QString &text, const QString &first, const QString &second);
// Takes the trimmed value between first and second and consumes through second.
bool takeBetween(QString &out, QString &text, const QString &first, const QString &second);
// Takes the trimmed text before marker and consumes through marker.
bool takeUntil(QString &out, QString &text, const QString &marker);
// Consumes through marker.
bool skipPast(QString &text, const QString &marker);
// Ends the text after the first character of marker.
bool cutAt(QString &text, const QString &marker);
// Looks between first and second behind anchor without consuming anything.
bool peekBetween(QString &out, const QString &text, const QString &anchor, const QString &first,
                 const QString &second);
bool takeInt(qint32 &out, QString &text, const QString &first, const QString &second);
bool takeShort(qint16 &out, QString &text, const QString &first, const QString &second);
qint32 parseDollars(QString &text);
qint32 seasonStartYear(const QString &season);
qint32 seasonEndYear(const QString &season);
void splitAtSpace(const QString &name, QString &first, QString &second);
