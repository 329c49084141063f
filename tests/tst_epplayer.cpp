#include "app/identity.h"
#include "app/mainwindow.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "ep/epplayer.h"
#include "tests/support/dialogs.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QComboBox>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// What a player page should give, field by field.
struct Profile
{
    QString firstName;
    QString secondName;
    QDate dateOfBirth;
    qint16 yearOfBirth = 0;
    qint16 age = 0;
    QString birthPlace;
    QString nation1;
    QString nation2;
    qint16 height = 0;
    qint16 weight = 0;
    QString position;
    QString stickSide;
    qint16 contractExpiry = 0;
    quint32 capHit = 0;
    QString nhlDraft;
    qint16 intGp = 0;
    qint16 intGoals = 0;
    qint16 intAssists = 0;
    QStringList rows;
};

QString number(double value)
{
    return QString::number(value, 'g', 6);
}

// Every field of a career row in one comparable line: year, club, competition,
// the regular half (games, goals, assists, minutes, plus/minus, the averages),
// the playoff half likewise, captain and alternate, age class, national team, loan.
QString rowSummary(const EP_PlayerHistory &row)
{
    return u"%1|%2|%3|%4 %5 %6 %7 %8|%9 %10|"_s.arg(row.year)
               .arg(row.club, row.competition)
               .arg(row.regularGp)
               .arg(row.regularGoals)
               .arg(row.regularAssists)
               .arg(row.regularPim)
               .arg(row.regularPlusMinus)
               .arg(number(row.regularGaa), number(row.regularSvp))
        + u"%1|%2 %3 %4 %5 %6|%7 %8|%9 %10|"_s.arg(row.playoffType)
              .arg(row.playoffGp)
              .arg(row.playoffGoals)
              .arg(row.playoffAssists)
              .arg(row.playoffPim)
              .arg(row.playoffPlusMinus)
              .arg(number(row.playoffGaa), number(row.playoffSvp))
              .arg(int(row.isCaptain))
              .arg(int(row.isAlternate))
        + u"%1|%2|%3"_s.arg(row.ageType).arg(int(row.isInternational)).arg(int(row.onLoan));
}

QStringList rowSummaries(const QList<EP_PlayerHistory> &rows)
{
    QStringList lines;
    for (const EP_PlayerHistory &row : rows)
        lines.append(rowSummary(row));
    return lines;
}

std::unique_ptr<EP_Player> scanned(QString text)
{
    auto player = std::make_unique<EP_Player>();
    player->parsePage(text);
    return player;
}

// A page with every fact in the site's order, with the one named replaced by the
// test's own. The facts that are taken in turn, not looked up, consume the page as
// they go, so a fact is only read where the ones before it stand too.
QString factPage(const QString &name, const QString &replacement)
{
    const QList<QPair<QString, QString>> facts = {
        {u"date"_s,
         u"<div>Date of Birth</div><div><a href=\"/search/player?dob=2000-01-01\">x</a></div>"_s},
        {u"age"_s, u"<div>Age</div><div>24</div>"_s},
        {u"place"_s,
         u"<div>Place of Birth</div><div><a href=\"/search/player?birthplace=x\">Ume\u00e5</a>"
         u"</div>"_s},
        {u"nation"_s, u"<div>Nation</div><div><a href=\"/nation/sweden\">Sweden</a></div>"_s},
        {u"position"_s, u"<div>Position </div><div>D</div>"_s},
        {u"height"_s, u"<div>Height </div><div>180 cm</div>"_s},
        {u"weight"_s, u"<div>Weight </div><div>80 kg</div>"_s},
        {u"stick"_s, u"<div> Shoots </div><div>L</div>"_s},
        {u"contract"_s, u"<div>Contract</div><div class=\"v\">23/24</div>"_s},
        {u"cap"_s, u"<div>Cap Hit </div><div>$900,000 Per Year</div>"_s},
        {u"draft"_s, u"<div>Drafted </div><div><a href=\"/draft/1\">2018 round 1</a></div>"_s},
        {u"international"_s,
         u"<a href=\"/player/1/x/international/stats/all-time\">Totals</a>"
         u"<td class=\"regular gp\">1</td><td class=\"regular g\">1</td>"
         u"<td class=\"regular a\">1</td><td class=\"regular tp\">2</td>"_s},
    };
    QString page = u"<title>Anna Berg - Stats</title><h2>Player Facts</h2>"_s;
    for (const auto &[fact, html] : facts)
        page += fact == name ? replacement : html;
    return page;
}

const QStringList skaterRows = {
    u"2014|Fr\u00f6lunda HC J20|J20 Nationell|40 8 15 18 4|0 0|Playoffs|6 1 2 4 2|0 0|0 0|20|0|0"_s,
    u"2015|Sweden U20|WJC-20|7 1 3 2 5|0 0||0 0 0 0 0|0 0|0 0|20|1|0"_s,
    u"2015|Fr\u00f6lunda HC|SHL|12 1 0 2 1|0 0||0 0 0 0 0|0 0|0 0|-1|0|1"_s,
    // No season: the year of the row above.
    u"2015|M\u00f6lndal Hockey|Hockeyettan|5 0 1 2 0|0 0||0 0 0 0 0|0 0|0 0|-1|0|0"_s,
    // The row without a club between them is dropped, but its year counts.
    u"2016|Frolunda HC|SHL|44 4 9 20 3|0 0|Playoffs|0 0 0 0 0|0 0|0 0|-1|0|0"_s,
    u"2018|Fr\u00f6lunda HC|SHL|52 7 21 30 12|0 0|Playoffs|16 2 6 10 3|0 0|0 1|-1|0|0"_s,
    u"2019|Grand Rapids Griffins|AHL|61 9 24 44 0|0 0||0 0 0 0 0|0 0|1 0|-1|0|0"_s,
};

QStringList skaterReport()
{
    return {
        u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
        // The line as a whole goes through the Ascii conversion: a lone o-umlaut
        // is no UTF-8 and becomes the replacement character.
        u"ASCII name: Mattias Ekstr\ufffdm Lindqvist"_s,
        u"Forename: Mattias"_s,
        u"Surname: Ekstr\u00f6m Lindqvist"_s,
        u"Date of birth: Thu Feb 29 1996"_s,
        u"Year of birth: 1996"_s,
        u"Birth place: G\u00f6teborg:SWE"_s,
        u"Nationality 1: Sweden"_s,
        u"Nationality 2: "_s,
        u"Height (cm): 186"_s,
        u"Weight (kg): 89"_s,
        u"Position: D"_s,
        u"Stick side: L"_s,
        u"Contract exp: 2026"_s,
        u"Cap hit: 1250000"_s,
        u"NHL Draft: 2014 round 2 #45 overall by Detroit Red Wings"_s,
        u"Int. GP: 14"_s,
        u"Int. G: 3"_s,
        u"Int. A: 5"_s,
        u"History entries: 7"_s,
        u"History sample:  History row #20 does not exist"_s,
    };
}

} // namespace

Q_DECLARE_METATYPE(Profile)

class TestEpPlayer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void pages_data();
    void pages();
    void rosterFieldsAreNotTouched();
    void oneWordName_data();
    void oneWordName();
    void dateOfBirth_data();
    void dateOfBirth();
    void birthPlace_data();
    void birthPlace();
    void contract_data();
    void contract();
    void capHit_data();
    void capHit();
    void draft_data();
    void draft();
    void internationalTotals_data();
    void internationalTotals();
    void stickSide_data();
    void stickSide();
    void pageWithoutMarkers();
    void careerRowsPointIntoTheRecord();
    void careerScanWorksOnACopy();
    void testReportPrintsEveryLine();
    void testReportSampleOfARow();
    void testReportWithoutLogOutputStillScans();
    void testPlayerProfileButtonPrintsTheReport();

private:
    WindowSandbox sandbox;
};

void TestEpPlayer::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    setApplicationIdentity();
    QVERIFY(sandbox.enter());
}

void TestEpPlayer::init()
{
    // Every page here starts with a dated row; the year of the last row of the
    // player before must not matter.
    EP_PlayerHistory::lastYear = 0;
}

void TestEpPlayer::cleanupTestCase()
{
    setLogOutput(nullptr);
}

void TestEpPlayer::pages_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<Profile>("expected");

    Profile skater;
    skater.firstName = u"Mattias"_s;
    // A double surname stays whole behind the first blank.
    skater.secondName = u"Ekstr\u00f6m Lindqvist"_s;
    skater.dateOfBirth = QDate(1996, 2, 29);
    skater.yearOfBirth = 1996;
    skater.age = 28;
    skater.birthPlace = u"G\u00f6teborg:SWE"_s;
    skater.nation1 = u"Sweden"_s;
    skater.height = 186;
    skater.weight = 89;
    skater.position = u"D"_s;
    skater.stickSide = u"L"_s;
    skater.contractExpiry = 2026;
    skater.capHit = 1250000;
    skater.nhlDraft = u"2014 round 2 #45 overall by Detroit Red Wings"_s;
    skater.intGp = 14;
    skater.intGoals = 3;
    skater.intAssists = 5;
    skater.rows = skaterRows;
    QTest::newRow("skater with a full career") << u"ep/player_skater.html"_s << skater;

    Profile goalkeeper;
    goalkeeper.firstName = u"Henrik"_s;
    goalkeeper.secondName = u"Vesterinen"_s;
    goalkeeper.dateOfBirth = QDate(1999, 11, 5);
    goalkeeper.yearOfBirth = 1999;
    goalkeeper.age = 25;
    goalkeeper.birthPlace = u"Turku:FIN"_s;
    goalkeeper.nation1 = u"Finland"_s;
    goalkeeper.height = 190;
    goalkeeper.weight = 85;
    goalkeeper.position = u"G"_s;
    // The catching hand, from the second look-up.
    goalkeeper.stickSide = u"L"_s;
    // A lone dash has no slash; a cap hit with nothing behind the number gives 0.
    goalkeeper.contractExpiry = 0;
    goalkeeper.capHit = 0;
    goalkeeper.rows = {
        u"2019|TPS|Liiga|30 0 0 0 0|2.45 0.915|Playoffs|4 0 0 0 0|1.98 0.931|0 0|-1|0|0"_s,
        u"2020|TPS U20|U20 SM-sarja|0 0 0 0 0|0 0|Playoffs|4 0 0 0 0|2.1 0.92|0 0|20|0|0"_s,
    };
    QTest::newRow("goalkeeper") << u"ep/player_goalkeeper.html"_s << goalkeeper;

    Profile twoNations;
    twoNations.firstName = u"Jean-Luc"_s;
    twoNations.secondName = u"Tremblay"_s;
    twoNations.dateOfBirth = QDate(1999, 7, 14);
    twoNations.yearOfBirth = 1999;
    twoNations.age = 25;
    twoNations.birthPlace = u"Qu\u00e9bec:QC:CAN"_s;
    // A third nation is not read.
    twoNations.nation1 = u"Canada"_s;
    twoNations.nation2 = u"USA"_s;
    twoNations.height = 183;
    twoNations.weight = 82;
    twoNations.position = u"C"_s;
    twoNations.stickSide = u"R"_s;
    twoNations.contractExpiry = 2024;
    twoNations.capHit = 925000;
    // The bold tags go, in any letter case.
    twoNations.nhlDraft = u"2017 round 1 #3 overall by Dallas Stars"_s;
    twoNations.intGp = 9;
    twoNations.intGoals = 0;
    twoNations.intAssists = 2;
    twoNations.rows = {
        u"2021|Texas Stars|AHL|70 21 30 24 8|0 0|Calder Cup|5 1 1 0 2|0 0|0 0|-1|0|0"_s,
    };
    QTest::newRow("two nations and a bold draft") << u"ep/player_two_nations.html"_s << twoNations;

    Profile oneName;
    oneName.firstName = u"Sidorenko"_s;
    // The blank behind the name took the title's " -" with it, and the page has no other.
    oneName.yearOfBirth = 1990;
    oneName.age = 34;
    oneName.nation1 = u"Russia"_s;
    oneName.height = 178;
    oneName.weight = 80;
    oneName.position = u"LW"_s;
    oneName.stickSide = u"L"_s;
    oneName.rows = {
        u"2012|CSKA Moskva|KHL|48 11 9 16 4|0 0||0 0 0 0 0|0 0|0 0|-1|0|0"_s,
    };
    QTest::newRow("one-word name, a year for a date") << u"ep/player_one_name.html"_s << oneName;

    Profile noStatistics;
    noStatistics.firstName = u"Ola"_s;
    noStatistics.secondName = u"Nordmann"_s;
    noStatistics.dateOfBirth = QDate(2004, 1, 15);
    noStatistics.yearOfBirth = 2004;
    noStatistics.age = 20;
    noStatistics.birthPlace = u"Oslo:NOR"_s;
    noStatistics.nation1 = u"Norway"_s;
    noStatistics.height = 180;
    noStatistics.weight = 78;
    noStatistics.position = u"RW"_s;
    noStatistics.stickSide = u"R"_s;
    noStatistics.contractExpiry = 2025;
    QTest::newRow("no career table") << u"ep/player_no_statistics.html"_s << noStatistics;
}

void TestEpPlayer::pages()
{
    QFETCH(QString, fixture);
    QFETCH(Profile, expected);

    const auto player = scanned(fixtureText(fixture));
    QCOMPARE(player->firstName, expected.firstName);
    QCOMPARE(player->secondName, expected.secondName);
    QCOMPARE(player->dateOfBirth, expected.dateOfBirth);
    QCOMPARE(player->yearOfBirth, expected.yearOfBirth);
    QCOMPARE(player->age, expected.age);
    QCOMPARE(player->birthPlace, expected.birthPlace);
    QCOMPARE(player->nation1, expected.nation1);
    QCOMPARE(player->nation2, expected.nation2);
    QCOMPARE(player->height, expected.height);
    QCOMPARE(player->weight, expected.weight);
    QCOMPARE(player->position, expected.position);
    QCOMPARE(player->stickSide, expected.stickSide);
    QCOMPARE(player->contractExpiry, expected.contractExpiry);
    QCOMPARE(player->capHit, expected.capHit);
    QCOMPARE(player->nhlDraft, expected.nhlDraft);
    QCOMPARE(player->intGp, expected.intGp);
    QCOMPARE(player->intGoals, expected.intGoals);
    QCOMPARE(player->intAssists, expected.intAssists);
    QCOMPARE(rowSummaries(player->histories), expected.rows);
    // Null, not merely empty, where the page has nothing.
    QCOMPARE(player->nation2.isNull(), expected.nation2.isNull());
    QCOMPARE(player->nhlDraft.isNull(), expected.nhlDraft.isNull());
    QCOMPARE(player->secondName.isNull(), expected.secondName.isNull());
}

void TestEpPlayer::rosterFieldsAreNotTouched()
{
    // Team, jersey, status and the duplicate marks are the roster's; the page
    // leaves them as they were, and no field of the record waits unset.
    EP_Player fresh;
    QCOMPARE(fresh.duplicateIndex, 0);
    QCOMPARE(fresh.isDuplicate, false);
    QCOMPARE(fresh.yearOfBirth, qint16(0));
    QCOMPARE(fresh.age, qint16(0));
    QCOMPARE(fresh.height, qint16(0));
    QCOMPARE(fresh.weight, qint16(0));
    QCOMPARE(fresh.contractExpiry, qint16(0));
    QCOMPARE(fresh.capHit, 0u);
    QVERIFY(fresh.firstName.isNull());
    QVERIFY(fresh.reservedText.isNull());

    EP_Player player;
    player.team = u"Frolunda HC"_s;
    player.jersey = 27;
    player.status = u"C"_s;
    player.duplicateIndex = -1;
    QString text = fixtureText(u"ep/player_skater.html"_s);
    player.parsePage(text);
    QCOMPARE(player.team, u"Frolunda HC"_s);
    QCOMPARE(player.jersey, qint16(27));
    QCOMPARE(player.status, u"C"_s);
    QCOMPARE(player.duplicateIndex, -1);
    QCOMPARE(player.isDuplicate, false);
    QVERIFY(player.reservedText.isNull());
}

void TestEpPlayer::oneWordName_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QString>("secondName");

    QTest::newRow("no further blank and hyphen")
        << u"<title>Sidorenko - Stats</title><p>x</p>"_s << u"Sidorenko"_s << QString();
    // The next " -" further on ends the second name, wherever it stands.
    QTest::newRow("a blank and hyphen further on")
        << u"<title>Sidorenko - Stats</title><h1>Player - Facts</h1>"_s << u"Sidorenko"_s
        << u"- Stats</title><h1>Player"_s;
    QTest::newRow("two words") << u"<title>Jan Smith - Stats</title>"_s << u"Jan"_s << u"Smith"_s;
    QTest::newRow("a suffix stays in the second name")
        << u"<title>Jan van der Berg Jr. - Stats</title>"_s << u"Jan"_s << u"van der Berg Jr."_s;
    // Without the title the second name may still find a " -" on the page.
    QTest::newRow("no title") << u"<h1>Jan Smith - Stats</h1>"_s << QString() << u"<h1>Jan Smith"_s;
}

void TestEpPlayer::oneWordName()
{
    QFETCH(QString, page);
    QFETCH(QString, firstName);
    QFETCH(QString, secondName);

    const auto player = scanned(page);
    QCOMPARE(player->firstName, firstName);
    QCOMPARE(player->secondName, secondName);
    QCOMPARE(player->firstName.isNull(), firstName.isNull());
    QCOMPARE(player->secondName.isNull(), secondName.isNull());
}

void TestEpPlayer::dateOfBirth_data()
{
    QTest::addColumn<QString>("fact");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("year");

    const QString link = u"Date of Birth</div><div><a href=\"https://www.eliteprospects.com/"
                         u"search/player?dob=%1\">x</a>"_s;
    QTest::newRow("full date") << link.arg(u"2001-12-31"_s) << QDate(2001, 12, 31) << 2001;
    QTest::newRow("year alone") << link.arg(u"2001"_s) << QDate() << 2001;
    QTest::newRow("two digits") << link.arg(u"01"_s) << QDate() << 1;
    QTest::newRow("empty value") << link.arg(QString()) << QDate() << 0;
    QTest::newRow("not a number") << link.arg(u"unknown"_s) << QDate() << 0;
    QTest::newRow("impossible day") << link.arg(u"2001-02-30"_s) << QDate() << 2001;
    // Without "dob=" the first three characters go and the value ends at the
    // first quote: the year is whatever stands there.
    QTest::newRow("no dob in the link") << u"Date of Birth</div><div>1987\"</a>"_s << QDate() << 0;
    QTest::newRow("no date fact") << u"<p>nothing</p>"_s << QDate() << 0;
    // The marker is found in any letter case.
    QTest::newRow("capitals") << u"DATE OF BIRTH</div><a href=\"/x?DOB=1980-05-06\">x</a>"_s
                              << QDate(1980, 5, 6) << 1980;
}

void TestEpPlayer::dateOfBirth()
{
    QFETCH(QString, fact);
    QFETCH(QDate, date);
    QFETCH(int, year);

    const auto player = scanned(factPage(u"date"_s, fact));
    QCOMPARE(player->dateOfBirth, date);
    QCOMPARE(player->yearOfBirth, qint16(year));
}

void TestEpPlayer::birthPlace_data()
{
    QTest::addColumn<QString>("fact");
    QTest::addColumn<QString>("place");

    QTest::newRow("place and country")
        << u"<a href=\"/search/player?birthplace=Oslo\">Oslo, Norway</a>"_s << u"Oslo:Norway"_s;
    QTest::newRow("three parts") << u"<a href=\"/search/player?birthplace=x\">A, B, C</a>"_s
                                 << u"A:B:C"_s;
    // Only a comma with a blank behind it is replaced.
    QTest::newRow("comma without a blank")
        << u"<a href=\"/search/player?birthplace=x\">A,B</a>"_s << u"A,B"_s;
    QTest::newRow("no link") << u"<div>Oslo, Norway</div>"_s << QString();
    QTest::newRow("entity is dropped")
        << u"<a href=\"/search/player?birthplace=x\">Bergen&nbsp;</a>"_s << u"Bergen"_s;
}

void TestEpPlayer::birthPlace()
{
    QFETCH(QString, fact);
    QFETCH(QString, place);

    const auto player = scanned(factPage(u"place"_s, fact));
    QCOMPARE(player->birthPlace, place);
    QCOMPARE(player->birthPlace.isNull(), place.isNull());
}

void TestEpPlayer::contract_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expiry");

    QTest::newRow("season") << u"23/24"_s << 2024;
    QTest::newRow("last season of a century") << u"99/00"_s << 2000;
    QTest::newRow("dash") << u"-"_s << 0;
    QTest::newRow("year without slash") << u"2025"_s << 0;
    QTest::newRow("slash and nothing behind it") << u"24/"_s << 2000;
    QTest::newRow("four digits behind the slash") << u"2024/2025"_s << 4025;
}

void TestEpPlayer::contract()
{
    QFETCH(QString, value);
    QFETCH(int, expiry);

    const auto player = scanned(
        factPage(u"contract"_s, u"<div>Contract</div><div class=\"v\">"_s + value + u"</div>"_s));
    QCOMPARE(player->contractExpiry, qint16(expiry));
}

void TestEpPlayer::capHit_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<quint32>("capHit");

    QTest::newRow("per year") << u"$1,250,000 Per Year"_s << 1250000u;
    QTest::newRow("small p") << u"$975,000 per year"_s << 975000u;
    // Nothing behind the number to end it: the value empties.
    QTest::newRow("no P behind the number") << u"$4,500,000"_s << 0u;
    QTest::newRow("no dollar sign") << u"800,000 P"_s << 800000u;
    QTest::newRow("dash") << u"-"_s << 0u;
}

void TestEpPlayer::capHit()
{
    QFETCH(QString, value);
    QFETCH(quint32, capHit);

    const auto player = scanned(
        factPage(u"cap"_s, u"<div>Cap Hit </div><div class=\"v\">"_s + value + u"</div>"_s));
    QCOMPARE(player->capHit, capHit);
}

void TestEpPlayer::draft_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("draft");

    QTest::newRow("plain") << u"<a href=\"/draft/1\">2014 round 2 #45 overall</a>"_s
                           << u"2014 round 2 #45 overall"_s;
    QTest::newRow("strong") << u"<a href=\"/draft/1\"><strong>2015</strong> round 1</a>"_s
                            << u"2015 round 1"_s;
    QTest::newRow("b in capitals")
        << u"<a href=\"/draft/1\"><B>2015</B> round 1</a>"_s << u"2015 round 1"_s;
    QTest::newRow("trimmed") << u"<a href=\"/draft/1\">  2016 round 3  </a>"_s << u"2016 round 3"_s;
    // No link: the first ">" is missing, so nothing goes from the front, and the
    // missing "</a>" empties the value.
    QTest::newRow("no link") << u"Undrafted"_s << QString(u""_s);
}

void TestEpPlayer::draft()
{
    QFETCH(QString, value);
    QFETCH(QString, draft);

    const auto player = scanned(
        factPage(u"draft"_s, u"<div>Drafted </div><div class=\"v\">"_s + value + u"</div>"_s));
    QCOMPARE(player->nhlDraft, draft);
}

void TestEpPlayer::internationalTotals_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("gp");
    QTest::addColumn<int>("goals");
    QTest::addColumn<int>("assists");

    const QString link = u"<a href=\"/player/1/x/international/stats/all-time\">Totals</a>"_s;
    QTest::newRow("three counts") << link
            + u"<td class=\"regular gp\">21</td><td class=\"regular g\">4</td>"
              u"<td class=\"regular a\">6</td><td class=\"regular tp\">10</td>"_s
                                  << 21 << 4 << 6;
    QTest::newRow("dashes") << link
            + u"<td class=\"regular gp\">-</td><td class=\"regular g\">-</td>"
              u"<td class=\"regular a\">-</td><td class=\"regular tp\">-</td>"_s
                            << 0 << 0 << 0;
    // The class list goes on behind the markers.
    QTest::newRow("more classes") << link
            + u"<td class=\"regular gp sorted\">3</td><td class=\"regular g\">1</td>"
              u"<td class=\"regular a\">0</td><td class=\"regular tp\">1</td>"_s
                                  << 3 << 1 << 0;
    QTest::newRow("no link") << u"<td class=\"regular gp\">21</td><td class=\"regular g\">4</td>"
                                u"<td class=\"regular a\">6</td><td class=\"regular tp\">10</td>"_s
                             << 0 << 0 << 0;
    QTest::newRow("no points cell")
        << link + u"<td class=\"regular gp\">21</td><td class=\"regular g\">4</td>"_s << 0 << 0
        << 0;
}

void TestEpPlayer::internationalTotals()
{
    QFETCH(QString, table);
    QFETCH(int, gp);
    QFETCH(int, goals);
    QFETCH(int, assists);

    const auto player = scanned(factPage(u"international"_s, table));
    QCOMPARE(player->intGp, qint16(gp));
    QCOMPARE(player->intGoals, qint16(goals));
    QCOMPARE(player->intAssists, qint16(assists));
}

void TestEpPlayer::stickSide_data()
{
    QTest::addColumn<QString>("facts");
    QTest::addColumn<QString>("side");

    QTest::newRow("shoots") << u"<div> Shoots </div><div>R</div>"_s << u"R"_s;
    QTest::newRow("catches") << u"<div> Catches </div><div>L</div>"_s << u"L"_s;
    QTest::newRow("shoots wins over catches")
        << u"<div> Catches </div><div>L</div><div> Shoots </div><div>R</div>"_s << u"R"_s;
    // The blanks inside the marker are part of it.
    QTest::newRow("without the blanks") << u"<div>Shoots</div><div>R</div>"_s << QString();
    QTest::newRow("neither") << u"<p>x</p>"_s << QString();
}

void TestEpPlayer::stickSide()
{
    QFETCH(QString, facts);
    QFETCH(QString, side);

    const auto player = scanned(factPage(u"stick"_s, facts));
    QCOMPARE(player->stickSide, side);
    QCOMPARE(player->stickSide.isNull(), side.isNull());
}

void TestEpPlayer::pageWithoutMarkers()
{
    EP_PlayerHistory::lastYear = 1999;
    const auto player = scanned(u"<html><body>Not a player page</body></html>"_s);
    QVERIFY(player->firstName.isNull());
    QVERIFY(player->secondName.isNull());
    QVERIFY(!player->dateOfBirth.isValid());
    QCOMPARE(player->yearOfBirth, qint16(0));
    QCOMPARE(player->age, qint16(0));
    QVERIFY(player->birthPlace.isNull());
    QVERIFY(player->nation1.isNull());
    QVERIFY(player->nation2.isNull());
    QCOMPARE(player->height, qint16(0));
    QCOMPARE(player->weight, qint16(0));
    QVERIFY(player->position.isNull());
    QVERIFY(player->stickSide.isNull());
    QCOMPARE(player->contractExpiry, qint16(0));
    QCOMPARE(player->capHit, 0u);
    QVERIFY(player->nhlDraft.isNull());
    QCOMPARE(player->intGp, qint16(0));
    QVERIFY(player->histories.isEmpty());
    // Nothing was read, so the year of the last row stays.
    QCOMPARE(EP_PlayerHistory::lastYear, qint16(1999));
}

void TestEpPlayer::careerRowsPointIntoTheRecord()
{
    const auto player = scanned(fixtureText(u"ep/player_skater.html"_s));
    QVERIFY(!player->histories.isEmpty());
    for (const EP_PlayerHistory &row : std::as_const(player->histories)) {
        QCOMPARE(row.firstName, &player->firstName);
        QCOMPARE(row.secondName, &player->secondName);
        QCOMPARE(row.dateOfBirth, &player->dateOfBirth);
        QVERIFY(row.isValid);
    }
}

void TestEpPlayer::careerScanWorksOnACopy()
{
    // The facts consume the page; the career table is read from a copy of what
    // they left, which stays in the caller's text.
    QString text = fixtureText(u"ep/player_skater.html"_s);
    EP_Player player;
    player.parsePage(text);
    QVERIFY(text.contains(u"Player Statistics"_s));
    QVERIFY(text.contains(u"international/stats/all-time"_s));
    QVERIFY(!text.contains(u"Player Facts"_s));
    QVERIFY(!text.contains(u"<title>"_s));
}

void TestEpPlayer::testReportPrintsEveryLine()
{
    QPlainTextEdit log;
    setLogOutput(&log);
    QString text = fixtureText(u"ep/player_skater.html"_s);
    EP_Player player;
    player.testReport(text);
    QCOMPARE(logLines(&log), skaterReport());
    QCOMPARE(player.histories.size(), 7);
    setLogOutput(nullptr);
}

void TestEpPlayer::testReportSampleOfARow()
{
    // A player with no career at all, and an invalid date: an empty date line.
    QPlainTextEdit log;
    setLogOutput(&log);
    QString text = fixtureText(u"ep/player_one_name.html"_s);
    EP_Player player;
    player.testReport(text);
    const QStringList lines = logLines(&log);
    QCOMPARE(lines.size(), 21);
    QCOMPARE(lines.at(1), u"ASCII name: Sidorenko "_s);
    QCOMPARE(lines.at(3), u"Surname: "_s);
    QCOMPARE(lines.at(4), u"Date of birth: "_s);
    QCOMPARE(lines.at(5), u"Year of birth: 1990"_s);
    QCOMPARE(lines.at(19), u"History entries: 1"_s);
    QCOMPARE(lines.at(20), u"History sample:  History row #20 does not exist"_s);

    log.clear();
    text = fixtureText(u"ep/player_no_statistics.html"_s);
    EP_Player without;
    without.testReport(text);
    QCOMPARE(logLines(&log).at(20), u"History sample:  n/a"_s);
    QCOMPARE(logLines(&log).at(4), u"Date of birth: Thu Jan 15 2004"_s);
    setLogOutput(nullptr);
}

void TestEpPlayer::testReportWithoutLogOutputStillScans()
{
    setLogOutput(nullptr);
    QString text = fixtureText(u"ep/player_goalkeeper.html"_s);
    EP_Player player;
    player.testReport(text);
    QCOMPARE(player.secondName, u"Vesterinen"_s);
    QCOMPARE(player.histories.size(), 2);
}

void TestEpPlayer::testPlayerProfileButtonPrintsTheReport()
{
    MainWindow window;
    window.show();
    window.websiteBox->setCurrentIndex(EliteProspects);

    answerNextFileDialog(fixturePath(u"ep/player_skater.html"_s));
    window.testPlayerButton->click();

    QCOMPARE(lastDialogTitle(), u"Open Offline Player Profile Webpage"_s);
    QCOMPARE(logLines(window.logBox), skaterReport());
    QVERIFY(window.testPlayerButton->isEnabled());
    // The record stays with the planner until the next run or test.
    QCOMPARE(window.dataInterface.players.size(), 1);
    const auto *player = dynamic_cast<const EP_Player *>(window.dataInterface.players.first());
    QVERIFY(player);
    QCOMPARE(player->histories.size(), 7);
    QCOMPARE(pendingDialogAnswers(), 0);

    // An empty log box leaves no log file behind when the window closes.
    window.logBox->clear();
}

QM_TEST_MAIN(TestEpPlayer)
#include "tst_epplayer.moc"
