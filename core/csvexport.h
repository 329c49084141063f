#pragma once

#include <QChar>
#include <QString>

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
