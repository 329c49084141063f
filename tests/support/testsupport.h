#pragma once

#include <QString>
#include <QStringList>

class QPlainTextEdit;

// Path of a file under tests/fixtures.
QString fixturePath(const QString &relative);
// The bytes of a fixture file, or an empty array when it can't be read.
QByteArray fixtureBytes(const QString &relative);
// A fixture file read as UTF-8 text, as the fetcher hands pages to the scanners.
QString fixtureText(const QString &relative);
// The bytes of any file, such as an export; "<unreadable>" when it can't be read.
QByteArray fileBytes(const QString &path);
// The names of the files and folders in a folder, sorted by name.
QStringList filesIn(const QString &folder);
// The lines of a log box.
QStringList logLines(const QPlainTextEdit *edit);
