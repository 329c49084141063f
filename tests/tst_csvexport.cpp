#include "core/csvexport.h"
#include "core/datawrapper.h"
#include "tests/support/testmain.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <memory>
#include <type_traits>

using namespace Qt::StringLiterals;

// The helpers that every CSV file of the program goes through, and the literals
// that a record without its own write operations prints.
class TestCsvExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void separator_data();
    void separator();

    void companionName_data();
    void companionName();
    void companionFileIsOpenAndEmptied();
    void companionFileThatCannotOpen();

    void streamBytes_data();
    void streamBytes();
    void streamSetsDevice();

    void boolToYN_data();
    void boolToYN();

    void textToFloat_data();
    void textToFloat();

    void baseWriteLiterals_data();
    void baseWriteLiterals();
    void baseParseAndReportLeaveTextAlone();
    void recordFreedWholeThroughBase();

private:
    QTemporaryDir dir;
};

void TestCsvExport::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(dir.isValid());
}

void TestCsvExport::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void TestCsvExport::separator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QChar>("expected");

    QTest::newRow("Ascii, decimal point") << QLocale::c() << false << QChar(u',');
    QTest::newRow("Ascii, English decimal point")
        << QLocale(QLocale::English, QLocale::UnitedKingdom) << false << QChar(u',');
    QTest::newRow("Ascii, German decimal comma")
        << QLocale(QLocale::German) << false << QChar(u';');
    QTest::newRow("Ascii, French decimal comma")
        << QLocale(QLocale::French) << false << QChar(u';');
    QTest::newRow("Utf, decimal point") << QLocale::c() << true << QChar(u'\t');
    QTest::newRow("Utf, German decimal comma") << QLocale(QLocale::German) << true << QChar(u'\t');
}

void TestCsvExport::separator()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QChar, expected);

    QLocale::setDefault(locale);
    const QChar separator = csvSeparator(utf);
    QCOMPARE(separator, expected);
}

void TestCsvExport::companionName_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("expected");

    const QString root = dir.path();
    QTest::newRow("suffix before the extension")
        << root + u"/data.csv"_s << u"_players"_s << root + u"/data_players.csv"_s;
    QTest::newRow("empty suffix keeps the chosen name")
        << root + u"/data.csv"_s << QString() << root + u"/data.csv"_s;
    QTest::newRow("middle part of a dotted name is dropped")
        << root + u"/a.b.csv"_s << u"_players"_s << root + u"/a_players.csv"_s;
    QTest::newRow("dotted name with empty suffix")
        << root + u"/a.b.csv"_s << QString() << root + u"/a.csv"_s;
    QTest::newRow("no extension gives a trailing dot")
        << root + u"/data"_s << QString() << root + u"/data."_s;
    QTest::newRow("no extension with suffix")
        << root + u"/data"_s << u"_teams"_s << root + u"/data_teams."_s;
    // The first arg() puts the folder in; the base name then takes "%2", and the
    // suffix takes the lowest marker left, the folder's "%3" along with the
    // format's own.
    QTest::newRow("folder name holding a place marker")
        << root + u"/p%3q/data.csv"_s << u"_x"_s << root + u"/p_xq/data_x.csv"_s;
}

void TestCsvExport::companionName()
{
    QFETCH(QString, chosen);
    QFETCH(QString, suffix);
    QFETCH(QString, expected);

    QDir().mkpath(QFileInfo(chosen).path());
    QDir().mkpath(QFileInfo(expected).path());
    std::unique_ptr<QFile> file(openCompanionFile(QFileInfo(chosen), suffix));
    QVERIFY(file);
    QCOMPARE(file->fileName(), expected);
    QVERIFY(file->isOpen());
    QCOMPARE(file->openMode(), QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
    file->close();
    QVERIFY(QFile::exists(expected));
}

void TestCsvExport::companionFileIsOpenAndEmptied()
{
    const QString name = dir.filePath(u"old.csv"_s);
    {
        QFile old(name);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("left over from before");
    }
    std::unique_ptr<QFile> file(openCompanionFile(QFileInfo(name), QString()));
    QVERIFY(file->isOpen());
    file->write("new");
    file->close();

    QFile check(name);
    QVERIFY(check.open(QIODevice::ReadOnly));
    QCOMPARE(check.readAll(), "new"_ba);
}

void TestCsvExport::companionFileThatCannotOpen()
{
    // The caller finds out through isOpen(): the file comes back all the same.
    const QString chosen = dir.filePath(u"no-such-folder/data.csv"_s);
    std::unique_ptr<QFile> file(openCompanionFile(QFileInfo(chosen), u"_players"_s));
    QVERIFY(file);
    QCOMPARE(file->fileName(), dir.filePath(u"no-such-folder/data_players.csv"_s));
    QVERIFY(!file->isOpen());
}

void TestCsvExport::streamBytes_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QByteArray>("expected");

    // "aé€" and a line feed, each time behind the UTF-8 byte-order mark. The
    // Ascii mode writes the system's 8-bit code page, which here (C.UTF-8) is
    // UTF-8, and Qt puts the byte-order mark in front of it as well.
    const QByteArray body = QByteArray::fromHex("61c3a9e282ac0a");
    QTest::newRow("Utf") << true << QByteArray::fromHex("efbbbf") + body;
    QTest::newRow("Ascii") << false << QByteArray::fromHex("efbbbf") + body;
}

void TestCsvExport::streamBytes()
{
    QFETCH(bool, utf);
    QFETCH(QByteArray, expected);

    const QString name = dir.filePath(utf ? u"utf.csv"_s : u"ascii.csv"_s);
    {
        std::unique_ptr<QFile> file(openCompanionFile(QFileInfo(name), QString()));
        QVERIFY(file->isOpen());
        QTextStream stream;
        openCsvStream(stream, file.get(), utf);
        QVERIFY(stream.generateByteOrderMark());
        QCOMPARE(stream.encoding(), utf ? QStringConverter::Utf8 : QStringConverter::System);
        stream << u"a\u00e9\u20ac\n"_s;
        stream.flush();
        file->close();
    }

    QFile check(name);
    QVERIFY(check.open(QIODevice::ReadOnly));
    QCOMPARE(check.readAll().toHex(' '), expected.toHex(' '));
}

void TestCsvExport::streamSetsDevice()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QTextStream stream;
    openCsvStream(stream, &buffer, true);
    QCOMPARE(stream.device(), &buffer);
}

void TestCsvExport::boolToYN_data()
{
    QTest::addColumn<bool>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("true") << true << u"Y"_s;
    QTest::newRow("false") << false << u"N"_s;
}

void TestCsvExport::boolToYN()
{
    QFETCH(bool, value);
    QFETCH(QString, expected);
    const QString text = ::boolToYN(value);
    QCOMPARE(text, expected);
    QCOMPARE(text.size(), 1);
}

void TestCsvExport::textToFloat_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    QTest::newRow("whole number") << u"12"_s << 12.0;
    QTest::newRow("decimal point") << u"2.5"_s << 2.5;
    QTest::newRow("negative") << u"-0.75"_s << -0.75;
    QTest::newRow("single precision") << u"0.1"_s << double(0.1f);
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("not a number") << u"abc"_s << 0.0;
    QTest::newRow("decimal comma") << u"2,5"_s << 0.0;
    QTest::newRow("trailing text") << u"3.5 pts"_s << 0.0;
}

void TestCsvExport::textToFloat()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    const double value = ::textToFloat(text);
    QCOMPARE(value, expected);
}

void TestCsvExport::baseWriteLiterals_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("expected");
    QTest::newRow("writeAscii") << false << u"DataWrapper base class called (ASCII)\n"_s;
    QTest::newRow("writeUtf") << true << u"DataWrapper base class called (UTF)\n"_s;
}

void TestCsvExport::baseWriteLiterals()
{
    QFETCH(bool, utf);
    QFETCH(QString, expected);

    QString out;
    QTextStream stream(&out);
    DataWrapper record;
    const QChar separator = csvSeparator(utf);
    if (utf)
        record.writeUtf(stream, separator);
    else
        record.writeAscii(stream, separator);
    stream.flush();
    QCOMPARE(out, expected);
}

void TestCsvExport::baseParseAndReportLeaveTextAlone()
{
    DataWrapper record;
    QString text = u"<html>page</html>"_s;
    record.parsePage(text);
    QCOMPARE(text, u"<html>page</html>"_s);
    record.testReport(text);
    QCOMPARE(text, u"<html>page</html>"_s);
}

namespace {
// A record with a field of its own, which the base pointer must release too.
class OwningRecord : public DataWrapper
{
public:
    explicit OwningRecord(int *freed)
        : freed(freed)
    { }
    ~OwningRecord() override { ++*freed; }

    QStringList rows = {u"one"_s, u"two"_s};

private:
    int *freed;
};
} // namespace

void TestCsvExport::recordFreedWholeThroughBase()
{
    static_assert(std::has_virtual_destructor_v<DataWrapper>);
    int freed = 0;
    DataWrapper *record = new OwningRecord(&freed);
    delete record;
    QCOMPARE(freed, 1);
}

QM_TEST_GUILESS_MAIN(TestCsvExport)
#include "tst_csvexport.moc"
