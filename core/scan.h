#pragma once

#include <QString>

// Marker operations that every page scanner walks its page text with. Searches
// are case-insensitive unless said otherwise; what each does on a missing marker
// is relied upon by the scanners and must stay exactly as it is.

// Cuts text down to what lies between first and second, untrimmed. Never fails:
// an absent first still removes first.size() - 1 leading characters, and an
// absent second (or one at position 0) empties the text.
bool isolateBetween(QString &text, const QString &first, const QString &second);
// Takes the trimmed value between first and second and consumes through second.
// An absent marker or an empty value fails: out becomes a null string and the
// text stays as it was.
bool takeBetween(QString &out, QString &text, const QString &first, const QString &second);
// Takes the trimmed text before marker and consumes through marker. A marker at
// position 0 fails like an absent one; on failure out and text are left alone.
bool takeUntil(QString &out, QString &text, const QString &marker);
// Consumes through marker; text unchanged when it is absent.
bool skipPast(QString &text, const QString &marker);
// Ends the text after the first character of marker: a cut at "</table>" keeps
// the "<". Text unchanged when the marker is absent.
bool cutAt(QString &text, const QString &marker);
// Looks between first and second behind anchor without consuming anything; the
// value is trimmed and loses every "&nbsp;" (small letters only). With first
// absent the value is read from position first.size() - 1 on. On failure out is
// left alone.
bool peekBetween(QString &out, const QString &text, const QString &anchor, const QString &first,
                 const QString &second);
// takeBetween into a 32-bit number; out is 0 on failure or on a value that does
// not convert.
bool takeInt(qint32 &out, QString &text, const QString &first, const QString &second);
// The same into a 16-bit number.
bool takeShort(qint16 &out, QString &text, const QString &first, const QString &second);
// Reads a salary such as "$1,250,000 Per Year"; text is left holding the number
// without its commas.
qint32 parseDollars(QString &text);
// 2019 for "19/20"; 0 without a slash.
qint32 seasonStartYear(const QString &season);
// 2020 for "19/20"; 0 without a slash.
qint32 seasonEndYear(const QString &season);
// Splits at the first blank; without one, or with one at the front, first is the
// whole name and second a null string.
void splitAtSpace(const QString &name, QString &first, QString &second);
