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
QString boolToYN(const bool &value);
double textToFloat(const QString &text);
