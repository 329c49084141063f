#include "core/csvexport.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTextStream>

using namespace Qt::StringLiterals;

void openCsvStream(QTextStream &stream, QIODevice *device, const bool &utf)
{
    stream.setDevice(device);
    stream.setGenerateByteOrderMark(true);
    stream.setEncoding(utf ? QStringConverter::Utf8 : QStringConverter::System);
}

QChar csvSeparator(const bool &utf)
{
    if (utf)
        return QChar(u'\t');
    const QString point = QLocale().decimalPoint();
    if (point.size() == 1 && point.at(0) == u'.')
        return QChar(u',');
    return QChar(u';');
}

QFile *openCompanionFile(const QFileInfo &info, const QString &suffix)
{
    // Four arg() calls in a row, kept so: a place marker inside the folder name
    // is filled by the calls that follow, as names have always been built.
    const QString name
        = u"%1/%2%3.%4"_s.arg(info.path()).arg(info.baseName()).arg(suffix).arg(info.suffix());
    auto *file = new QFile(name);
    file->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
    return file;
}

QFile *openCsvFile(QTextStream &stream, const QFileInfo &info, const QString &suffix,
                   const bool &utf)
{
    QFile *file = openCompanionFile(info, suffix);
    openCsvStream(stream, file, utf);
    if (file->isOpen())
        return file;
    stream.setDevice(nullptr);
    delete file;
    return nullptr;
}

void closeCsvFile(QTextStream &stream, QFile *file)
{
    stream.setDevice(nullptr);
    file->close();
    delete file;
}

QString boolToYN(const bool &value)
{
    return value ? u"Y"_s : u"N"_s;
}

double textToFloat(const QString &text)
{
    return double(text.toFloat());
}

bool writeCsvFile(const QFileInfo &info, const QString &suffix, const bool &utf,
                  const QStringList &titles, const CsvRowWriter &writeRows)
{
    QFile *file = openCompanionFile(info, suffix);
    QTextStream stream;
    openCsvStream(stream, file, utf);
    const QChar separator = csvSeparator(utf);
    if (!file->isOpen()) {
        // The stream lets go of the file before it is deleted.
        stream.setDevice(nullptr);
        delete file;
        return false;
    }
    stream << titles.join(separator) << '\n';
    writeRows(stream, separator);
    // Detached first, so that what the stream holds reaches the file before it closes.
    stream.setDevice(nullptr);
    file->close();
    delete file;
    return true;
}
