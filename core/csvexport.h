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
QString boolToYN(const bool &value);
double textToFloat(const QString &text);
// Writes the file beside the chosen one that suffix names: the titles joined by
// the separator, then what writeLines puts into the stream. False, with nothing
// written and nothing left open, when the file can't be opened.
bool writeCompanionCsv(const QFileInfo &info, const QString &suffix, const bool &utf,
                       const QStringList &titles,
                       const std::function<void(QTextStream &, const QChar &)> &writeLines);
