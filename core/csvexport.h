#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

#include <functional>

class QFile;
class QFileInfo;
class QIODevice;
class QTextStream;

// The few rules that make every CSV file of the program alike.
void openCsvStream(QTextStream &stream, QIODevice *device, const bool &utf);
QChar csvSeparator(const bool &utf);
QFile *openCompanionFile(const QFileInfo &info, const QString &suffix);
// The chosen file, or its companion, opened with openCsvStream; null, with nothing
// left open, when it can't be written.
QFile *openCsvFile(QTextStream &stream, const QFileInfo &info, const QString &suffix,
                   const bool &utf);
// Detaches the stream first, so that what it holds reaches the file before it closes.
void closeCsvFile(QTextStream &stream, QFile *file);
QString boolToYN(const bool &value);
double textToFloat(const QString &text);

// Writes the rows of an export file with the separator of its mode.
using CsvRowWriter = std::function<void(QTextStream &stream, const QChar &separator)>;
// Writes one companion file of an export, suffix behind the chosen name: the
// titles joined by the separator, then what writeRows puts in. False, with the
// file object gone, when it can't be opened.
bool writeCsvFile(const QFileInfo &info, const QString &suffix, const bool &utf,
                  const QStringList &titles, const CsvRowWriter &writeRows);
