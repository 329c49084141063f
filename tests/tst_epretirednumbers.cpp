#include "ep/epretirednumber.h"
#include "ep/epteamhistory.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString item(const QString &number, const QString &name)
{
    return u"<span class=\"number\">"_s + number
        + u"</span> <a href=\"https://www.eliteprospects.com/player/1/x\" class=\"txt-blue\">"_s
        + name + u"</a>"_s;
}

EP_RetiredNumber retired(qint32 number, const QString &first, const QString &second,
                         const QString &team = u"Oslo Hawks"_s)
{
    EP_RetiredNumber row;
    row.team = team;
    row.number = number;
    row.firstName = first;
    row.secondName = second;
    return row;
}

// What the history scan leaves of a fixture page for the retired numbers.
QString behindHistory(const QString &fixture)
{
    QString text = fixtureText(u"ep/"_s + fixture);
    const qsizetype at = text.indexOf(u"<tfoot>"_s);
    if (at >= 0)
        text.remove(0, at + 7);
    QList<EP_TeamHistory> rows;
    scanTeamHistory(rows, text, u"T"_s);
    return text;
}

} // namespace

// The retired number list behind the history table: the list cut, each item's
// number and name, and the sample line of the report.
class TestEpRetiredNumbers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void freshRow();
    void parsePage_data();
    void parsePage();
    void scanFixture_data();
    void scanFixture();
    void scanWithoutTheSection_data();
    void scanWithoutTheSection();
    void listMustStandBehindTheLastHistoryRow();
    void sample_data();
    void sample();
};

void TestEpRetiredNumbers::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpRetiredNumbers::freshRow()
{
    const EP_RetiredNumber row;
    QVERIFY(row.team.isNull());
    QCOMPARE(row.number, 0);
    QVERIFY(row.firstName.isNull());
    QVERIFY(row.secondName.isNull());
}

void TestEpRetiredNumbers::parsePage_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<qint32>("number");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QString>("secondName");

    QTest::newRow("two names") << item(u"#9"_s, u"Erik Berg (1980-1995)"_s) << 9 << u"Erik"_s
                               << u"Berg"_s;
    // Only the first blank splits.
    QTest::newRow("two forenames")
        << item(u"#17"_s, u"Jan Ove Nilsen (1990-2004)"_s) << 17 << u"Jan"_s << u"Ove Nilsen"_s;
    QTest::newRow("one name") << item(u"#33"_s, u"Bjørn (1971-1983)"_s) << 33 << u"Bjørn"_s
                              << QString();
    QTest::newRow("the name ends at the first bracket")
        << item(u"#5"_s, u"Per (Pelle) Holm (1960)"_s) << 5 << u"Per"_s << QString();
    QTest::newRow("no bracket behind the name")
        << item(u"#5"_s, u"Per Holm"_s) << 5 << QString() << QString();
    QTest::newRow("no number sign")
        << item(u"9"_s, u"Erik Berg (1980)"_s) << 0 << u"Erik"_s << u"Berg"_s;
    QTest::newRow("a dash before the number")
        << item(u"#-12"_s, u"A B (1)"_s) << 12 << u"A"_s << u"B"_s;
    QTest::newRow("number with blanks") << item(u"# 66 "_s, u"A B (1)"_s) << 66 << u"A"_s << u"B"_s;
    QTest::newRow("link without the class")
        << u"<span>#4</span> <a href=\"x\">Ola Nordmann (1975)</a>"_s << 4 << QString()
        << QString();
    QTest::newRow("anything else") << u"Note: more to come"_s << 0 << QString() << QString();
    QTest::newRow("markers in any letter case")
        << u"#8<a CLASS=\"TXT-BLUE\">Ola Nordmann (1975)</a>"_s << 8 << u"Ola"_s << u"Nordmann"_s;
}

void TestEpRetiredNumbers::parsePage()
{
    QFETCH(QString, item);
    QFETCH(qint32, number);
    QFETCH(QString, firstName);
    QFETCH(QString, secondName);

    EP_RetiredNumber row;
    row.parsePage(item);
    QCOMPARE(row.number, number);
    QCOMPARE(row.firstName, firstName);
    QCOMPARE(row.firstName.isNull(), firstName.isNull());
    QCOMPARE(row.secondName, secondName);
    QCOMPARE(row.secondName.isNull(), secondName.isNull());
    QVERIFY(row.team.isNull());
}

void TestEpRetiredNumbers::scanFixture_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("team");
    QTest::addColumn<QList<EP_RetiredNumber>>("rows");

    QTest::newRow("three numbers") << u"team_full.html"_s << u"Oslo Hawks"_s
                                   << QList<EP_RetiredNumber>{
                                          retired(9, u"Erik"_s, u"Berg"_s),
                                          retired(17, u"Jan"_s, u"Ove Nilsen"_s),
                                          retired(33, u"Bjørn"_s, QString()),
                                      };
    QTest::newRow("one number") << u"team_emptyroster.html"_s << u"Tromsø Tigers"_s
                                << QList<EP_RetiredNumber>{
                                       retired(4, u"Ola"_s, u"Nordmann"_s, u"Tromsø Tigers"_s)};
    QTest::newRow("no list") << u"team_plaintown.html"_s << u"Bergen Bears"_s
                             << QList<EP_RetiredNumber>();
}

void TestEpRetiredNumbers::scanFixture()
{
    QFETCH(QString, fixture);
    QFETCH(QString, team);
    QFETCH(QList<EP_RetiredNumber>, rows);

    QList<EP_RetiredNumber> scanned;
    QString text = behindHistory(fixture);
    QCOMPARE(scanRetiredNumbers(scanned, text, team), !rows.isEmpty());
    QCOMPARE(scanned.size(), rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        QCOMPARE(scanned.at(i).team, team);
        QCOMPARE(scanned.at(i).number, rows.at(i).number);
        QCOMPARE(scanned.at(i).firstName, rows.at(i).firstName);
        QCOMPARE(scanned.at(i).secondName, rows.at(i).secondName);
        QCOMPARE(scanned.at(i).secondName.isNull(), rows.at(i).secondName.isNull());
    }
}

void TestEpRetiredNumbers::scanWithoutTheSection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<EP_RetiredNumber>>("rows");

    QTest::newRow("nothing left") << QString() << QList<EP_RetiredNumber>();
    QTest::newRow("no list") << u"</table></section><section>"_s << QList<EP_RetiredNumber>();
    // 14 characters go from the front; the items before the first "</ul>" are
    // read as numbers all the same.
    QTest::newRow("another list left behind")
        << u"</table>\n<ul class=\"notes\"><li>Moved in 1999</li><li>#3 <b>Three</b></li></ul>"
           u"<ul><li>#4</li></ul>"_s
        << QList<EP_RetiredNumber>{retired(0, QString(), QString(), u"T"_s),
                                   retired(3, QString(), QString(), u"T"_s)};
    QTest::newRow("items without a list end")
        << u"0123456789abcd<li>#5</li>"_s << QList<EP_RetiredNumber>();
}

void TestEpRetiredNumbers::scanWithoutTheSection()
{
    QFETCH(QString, text);
    QFETCH(QList<EP_RetiredNumber>, rows);

    QList<EP_RetiredNumber> scanned;
    QCOMPARE(scanRetiredNumbers(scanned, text, u"T"_s), !rows.isEmpty());
    QCOMPARE(scanned.size(), rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        QCOMPARE(scanned.at(i).team, u"T"_s);
        QCOMPARE(scanned.at(i).number, rows.at(i).number);
        QVERIFY(scanned.at(i).firstName.isNull());
        QVERIFY(scanned.at(i).secondName.isNull());
    }
}

void TestEpRetiredNumbers::listMustStandBehindTheLastHistoryRow()
{
    // On a page without the history table the list stands behind "Where are they
    // now", which the history scan has cut away.
    QString text = behindHistory(u"team_nohistory.html"_s);
    QList<EP_RetiredNumber> rows;
    QVERIFY(!scanRetiredNumbers(rows, text, u"Drammen Dragons"_s));
    QVERIFY(rows.isEmpty());
    QVERIFY(fixtureText(u"ep/team_nohistory.html"_s).contains(u"Retired Numbers"_s));

    // The same list in the tail of a history section is read.
    QString tail = u"Team History and Standings<td class=\"season\"><a>2019-20</a></tr>"
                   u"<h3>Retired Numbers</h3><ul>"_s
        + u"<li>"_s + item(u"#1"_s, u"First Keeper (1999)"_s) + u"</li></ul>Where are they now"_s;
    QList<EP_TeamHistory> history;
    scanTeamHistory(history, tail, u"D"_s);
    QVERIFY(scanRetiredNumbers(rows, tail, u"D"_s));
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().number, 1);
    QCOMPARE(rows.first().firstName, u"First"_s);
    QCOMPARE(rows.first().secondName, u"Keeper"_s);
}

void TestEpRetiredNumbers::sample_data()
{
    QTest::addColumn<QList<EP_RetiredNumber>>("rows");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("line");

    const QList<EP_RetiredNumber> two
        = {retired(9, u"Erik"_s, u"Berg"_s), retired(33, u"Bjørn"_s, QString())};
    QTest::newRow("no rows") << QList<EP_RetiredNumber>() << 0 << u"n/a"_s;
    QTest::newRow("no rows, any index") << QList<EP_RetiredNumber>() << 3 << u"n/a"_s;
    QTest::newRow("first row") << two << 0 << u"9 - Erik Berg (Oslo Hawks)"_s;
    QTest::newRow("one name") << two << 1 << u"33 - Bjørn  (Oslo Hawks)"_s;
    QTest::newRow("index at the end") << two << 2 << u"Retired number row #2 does not exist"_s;
    QTest::newRow("index below 0") << two << -4 << u"Retired number row #-4 does not exist"_s;
    QTest::newRow("place marker in a name") << QList<EP_RetiredNumber>{retired(7, u"A%4"_s, u"B"_s)}
                                            << 0 << u"7 - AOslo Hawks B (Oslo Hawks)"_s;
}

void TestEpRetiredNumbers::sample()
{
    QFETCH(QList<EP_RetiredNumber>, rows);
    QFETCH(int, index);
    QFETCH(QString, line);
    QCOMPARE(retiredNumberSample(rows, index), line);
}

QM_TEST_MAIN(TestEpRetiredNumbers)
#include "tst_epretirednumbers.moc"
