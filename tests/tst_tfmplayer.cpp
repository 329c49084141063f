#include "app/identity.h"
#include "app/mainwindow.h"
#include "core/sharedstate.h"
#include "tests/support/dialogs.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"
#include "tfm/tfmplayer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Every key of the two value tables with its World Rep and Wage, written out in
// full so that the tables of the product are checked against a list of their own.
struct ValueStep
{
    qint32 key;
    qint32 worldRep;
    qint32 wage;
};

const ValueStep valueSteps[] = {
    {140000000, 200, 100000}, {135000000, 199, 99000},
    {130000000, 198, 98000},  {125000000, 197, 97000},
    {120000000, 196, 96000},  {115000000, 195, 95000},
    {110000000, 194, 94000},  {107500000, 193, 93000},
    {105000000, 192, 92000},  {102500000, 191, 91000},
    {100000000, 190, 90000},  {98000000, 189, 89000},
    {96000000, 188, 88000},   {94000000, 187, 87000},
    {92000000, 186, 86000},   {90000000, 185, 85000},
    {88000000, 184, 84000},   {86000000, 183, 83000},
    {84000000, 182, 82000},   {82000000, 181, 81000},
    {80000000, 180, 80000},   {79000000, 179, 79000},
    {78000000, 178, 78000},   {77000000, 177, 77000},
    {76000000, 176, 76000},   {75000000, 175, 75000},
    {74000000, 174, 74000},   {73000000, 173, 73000},
    {72000000, 172, 72000},   {71000000, 171, 71000},
    {70000000, 170, 70000},   {69000000, 169, 69000},
    {68000000, 168, 68000},   {67000000, 167, 67000},
    {66000000, 166, 66000},   {65000000, 165, 65000},
    {64000000, 164, 64000},   {63000000, 163, 63000},
    {62000000, 162, 62000},   {61000000, 161, 61000},
    {60000000, 160, 60000},   {59000000, 159, 59000},
    {58000000, 158, 58000},   {57000000, 157, 57000},
    {56000000, 156, 56000},   {55000000, 155, 55000},
    {54000000, 154, 54000},   {53000000, 153, 53000},
    {52000000, 152, 52000},   {51000000, 151, 51000},
    {50000000, 150, 50000},   {49000000, 149, 49000},
    {48000000, 148, 48000},   {47000000, 147, 47000},
    {46000000, 146, 46000},   {45000000, 145, 45000},
    {44000000, 144, 44000},   {43000000, 143, 43000},
    {42000000, 142, 42000},   {41000000, 141, 41000},
    {40000000, 140, 40000},   {39000000, 139, 39000},
    {38000000, 138, 38000},   {37000000, 137, 37000},
    {36000000, 136, 36000},   {35000000, 135, 35000},
    {34000000, 134, 34000},   {33000000, 133, 33000},
    {32000000, 132, 32000},   {31000000, 131, 31000},
    {30000000, 130, 30000},   {29000000, 129, 29000},
    {28000000, 128, 28000},   {27000000, 127, 27000},
    {26000000, 126, 26000},   {25000000, 125, 25000},
    {24000000, 124, 24000},   {23000000, 123, 23000},
    {22000000, 122, 22000},   {21000000, 121, 21000},
    {20000000, 120, 20000},   {19500000, 119, 19000},
    {19000000, 118, 18000},   {18500000, 117, 17000},
    {18000000, 116, 16000},   {17500000, 115, 15000},
    {17000000, 114, 14000},   {16500000, 113, 13000},
    {16000000, 112, 12000},   {15500000, 111, 11000},
    {15000000, 110, 11000},   {14500000, 109, 11000},
    {14000000, 108, 11000},   {13500000, 107, 11000},
    {13000000, 106, 11000},   {12500000, 105, 10500},
    {12000000, 104, 10500},   {11500000, 103, 10500},
    {11000000, 102, 10500},   {10500000, 101, 10500},
    {10000000, 100, 10000},   {9750000, 99, 9900},
    {9500000, 98, 9800},      {9250000, 97, 9700},
    {9000000, 96, 9600},      {8750000, 95, 9500},
    {8500000, 94, 9400},      {8250000, 93, 9300},
    {8000000, 92, 9200},      {7750000, 91, 9100},
    {7500000, 90, 9000},      {7400000, 89, 8900},
    {7300000, 88, 8800},      {7200000, 87, 8700},
    {7100000, 86, 8600},      {7000000, 85, 8500},
    {6900000, 84, 8400},      {6800000, 83, 8300},
    {6700000, 82, 8200},      {6600000, 81, 8100},
    {6500000, 80, 8000},      {6400000, 79, 7900},
    {6300000, 78, 7800},      {6200000, 77, 7700},
    {6100000, 77, 7700},      {6000000, 76, 7600},
    {5900000, 75, 7500},      {5800000, 74, 7400},
    {5700000, 73, 7300},      {5600000, 73, 7300},
    {5500000, 72, 7200},      {5400000, 71, 7100},
    {5300000, 70, 7000},      {5200000, 69, 6900},
    {5100000, 68, 6800},      {5000000, 67, 6700},
    {4900000, 67, 6700},      {4800000, 66, 6600},
    {4700000, 65, 6500},      {4600000, 64, 6400},
    {4500000, 63, 6300},      {4400000, 63, 6300},
    {4300000, 62, 6200},      {4200000, 61, 6100},
    {4100000, 60, 6000},      {4000000, 59, 5900},
    {3900000, 58, 5800},      {3800000, 57, 5700},
    {3700000, 57, 5700},      {3600000, 56, 5600},
    {3500000, 55, 5500},      {3400000, 54, 5400},
    {3300000, 53, 5300},      {3200000, 53, 5300},
    {3100000, 52, 5200},      {3050000, 51, 5100},
    {3000000, 50, 5000},      {2950000, 49, 4900},
    {2900000, 48, 4800},      {2850000, 47, 4700},
    {2800000, 46, 4600},      {2750000, 45, 4500},
    {2700000, 44, 4400},      {2650000, 43, 4300},
    {2600000, 42, 4200},      {2550000, 41, 4100},
    {2500000, 40, 4000},      {2450000, 39, 3900},
    {2400000, 38, 3800},      {2350000, 37, 3700},
    {2300000, 36, 3600},      {2250000, 35, 3500},
    {2200000, 34, 3400},      {2150000, 33, 3300},
    {2100000, 32, 3200},      {2050000, 31, 3100},
    {2000000, 30, 3000},      {1900000, 29, 2900},
    {1800000, 28, 2800},      {1700000, 27, 2700},
    {1600000, 26, 2600},      {1500000, 25, 2500},
    {1400000, 24, 2400},      {1300000, 23, 2300},
    {1200000, 22, 2200},      {1100000, 21, 2100},
    {1000000, 20, 2000},      {950000, 19, 1900},
    {900000, 18, 1800},       {850000, 17, 1700},
    {800000, 16, 1600},       {750000, 15, 1500},
    {700000, 14, 1400},       {650000, 13, 1300},
    {600000, 12, 1200},       {550000, 11, 1100},
    {500000, 10, 1000},       {450000, 9, 900},
    {400000, 8, 800},         {350000, 7, 700},
    {300000, 6, 600},         {250000, 5, 500},
    {225000, 5, 500},         {200000, 5, 500},
    {175000, 4, 400},         {150000, 4, 400},
    {125000, 3, 300},         {100000, 3, 300},
    {75000, 2, 200},          {50000, 2, 200},
    {25000, 1, 100},          {0, 1, 100},
};

// What a profile page should give, field by field.
struct Profile
{
    QString firstName;
    QString secondName;
    QString commonName;
    QString completeName;
    QDate dateOfBirth;
    float height = 0;
    QString nation1;
    QString nation2;
    QDate contractStart;
    QDate contractEnd;
    QDate loanExpiry;
    QString club;
    QString onLoanFrom;
    quint32 marketValue = 0;
    quint32 worldRep = 0;
    quint32 wage = 0;
    qint16 squadNumber = 0;
    QString foot;
    qint16 leftFootRating = 0;
    qint16 rightFootRating = 0;
    QString mainPosition;
    QStringList otherPositions;
    // GK SW D DM M AM ST WB FR Right Left Centre
    QString grid;
    quint32 internationalApps = 0;
    quint32 internationalGoals = 0;
};

QString gridText(const std::array<qint16, TFM_Player::PositionCount> &ratings)
{
    QStringList parts;
    for (const qint16 rating : ratings)
        parts.append(QString::number(rating));
    return parts.join(u' ');
}

// A record scanned from a page text.
std::unique_ptr<TFM_Player> scanned(QString text)
{
    auto player = std::make_unique<TFM_Player>();
    player->parsePage(text);
    return player;
}

// The report of the field player page, line by line.
QStringList fieldPlayerReport(int apps, int goals)
{
    return QStringList{
        u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
        u"ASCII name: Marco Dellavalle  : Marco Antonio Dellavalle"_s,
        u"Forename: Marco"_s,
        u"Surname: Dellavalle"_s,
        u"Common name: "_s,
        u"Complete name: Marco Antonio Dellavalle"_s,
        u"Date of birth: Wed Apr 17 1996"_s,
        u"Nationality 1: Italy"_s,
        u"Nationality 2: Argentina"_s,
        // The single-precision 1.85 widened to double, to six significant digits.
        u"Height (m): 1.85"_s,
        u"Current club: AC Fiorentina"_s,
        u"On loan from: "_s,
        u"Contract start: Thu Jul 1 2021"_s,
        u"Contract end: Tue Jun 30 2026"_s,
        u"Loan end: "_s,
        u"Transfer value: 12500000"_s,
        u"World rep: 105"_s,
        u"Wage: 10500"_s,
        u"qint32. appearances: %1"_s.arg(apps),
        u"qint32. goals: %1"_s.arg(goals),
        u"Squad number: 10"_s,
        u"Position (main): central midfield"_s,
        u"Position (alt): attacking midfield"_s,
        u"Position (alt): right winger"_s,
        u"Position (alt): secondary striker"_s,
        u"Foot: left"_s,
        u"Pos  (GK): 1"_s,
        u"Pos  (WB): 1"_s,
        u"Pos  (SW): 1"_s,
        u"Pos (DEF): 1"_s,
        u"Pos  (DM): 1"_s,
        u"Pos (MID): 20"_s,
        u"Pos  (AM): 15"_s,
        u"Pos  (FR): 15"_s,
        u"Pos  (ST): 20"_s,
        u"Side  (L): 1"_s,
        u"Side  (C): 20"_s,
        u"Side  (R): 15"_s,
        u"--- COMPLETE ---"_s,
    };
}

const QString headline
    = u"<h1 class=\"data-header__headline-wrapper\">Ann <strong>Lee</strong></h1>"_s;

} // namespace

Q_DECLARE_METATYPE(Profile)

// The profile page scan: every field of each saved page, the steps' edge cases,
// the value tables, the offline report and the window's test button.
class TestTfmPlayer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void fixturePage_data();
    void fixturePage();

    void valueTablesHoldEveryStep_data();
    void valueTablesHoldEveryStep();
    void valueTablesHaveNoOtherKeys();
    void marketValueLooksUpExactKeys_data();
    void marketValueLooksUpExactKeys();

    void headlineWithoutStrongLeavesNamesEmptyAndConsumesNothing();
    void headlineWithOnlyBoldNameGivesCommonName();
    void headlineWithoutShirtNumberIsReachedBehindEarlierTags();
    void headlineWithShirtNumberReadsBehindTheNumber();
    void shirtNumber_data();
    void shirtNumber();
    void height_data();
    void height();
    void clubSinceNote_data();
    void clubSinceNote();
    void contractRule_data();
    void contractRule();
    void foot_data();
    void foot();
    void citizenship_data();
    void citizenship();
    void mainPositionFallsBackToPositionOnlyWithoutMainPosition();
    void positionWordsOfBothLayoutsShareTheList();
    void loanClubIsTheLinkText();
    void nationalTeamCareerIsReadBehindTheCut();
    void pageThatIsNoProfileGivesDefaults();

    void testReportPrintsEveryLine();
    void testReportOfSingleNamePlayer();
    void testReportWithoutLogOutputStillScans();
    void testPlayerProfileButtonPrintsTheReport_data();
    void testPlayerProfileButtonPrintsTheReport();

private:
    WindowSandbox sandbox;
};

void TestTfmPlayer::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    setApplicationIdentity();
    QVERIFY(sandbox.enter());
}

void TestTfmPlayer::cleanupTestCase()
{
    setLogOutput(nullptr);
    setIncludeOlympicStats(false);
}

void TestTfmPlayer::init()
{
    setLogOutput(nullptr);
    setIncludeOlympicStats(false);
}

void TestTfmPlayer::fixturePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<bool>("olympic");
    QTest::addColumn<Profile>("expected");

    Profile field;
    field.firstName = u"Marco"_s;
    field.secondName = u"Dellavalle"_s;
    field.completeName = u"Marco Antonio Dellavalle"_s;
    field.dateOfBirth = QDate(1996, 4, 17);
    field.height = 1.85f;
    field.nation1 = u"Italy"_s;
    field.nation2 = u"Argentina"_s;
    field.contractStart = QDate(2021, 7, 1);
    field.contractEnd = QDate(2026, 6, 30);
    field.club = u"AC Fiorentina"_s;
    field.marketValue = 12500000;
    field.worldRep = 105;
    field.wage = 10500;
    field.squadNumber = 10;
    field.foot = u"left"_s;
    field.leftFootRating = 20;
    field.rightFootRating = 1;
    field.mainPosition = u"central midfield"_s;
    field.otherPositions
        = QStringList{u"attacking midfield"_s, u"right winger"_s, u"secondary striker"_s};
    // The secondary striker among the others swaps AM and ST round.
    field.grid = u"1 1 1 1 20 15 20 1 15 15 1 20"_s;
    field.internationalApps = 34;
    field.internationalGoals = 9;
    QTest::newRow("field player, Olympic row left out")
        << u"profile_field_player.html"_s << false << field;
    field.internationalApps = 39;
    field.internationalGoals = 11;
    QTest::newRow("field player, Olympic row counted")
        << u"profile_field_player.html"_s << true << field;

    Profile keeper;
    keeper.firstName = u"Jonas"_s;
    keeper.secondName = u"Brekke"_s;
    keeper.completeName = u"Jonas Brekke"_s;
    keeper.dateOfBirth = QDate(1993, 11, 2);
    keeper.height = 1.92f;
    keeper.nation1 = u"Norway"_s;
    keeper.contractStart = QDate(2020, 1, 15);
    keeper.contractEnd = QDate(2025, 12, 31);
    keeper.club = u"Rosenborg BK"_s;
    keeper.marketValue = 750000;
    keeper.worldRep = 15;
    keeper.wage = 1500;
    keeper.squadNumber = 1;
    keeper.foot = u"right"_s;
    keeper.leftFootRating = 1;
    keeper.rightFootRating = 20;
    keeper.mainPosition = u"goalkeeper"_s;
    keeper.otherPositions = QStringList{u"sweeper"_s, u"centre-back"_s};
    keeper.grid = u"20 1 1 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("goalkeeper with outfield positions")
        << u"profile_goalkeeper.html"_s << false << keeper;

    Profile single;
    single.commonName = u"Ronald\u00e3o"_s;
    single.completeName = u"Ronaldo Silva, Ara\u00fajo"_s;
    single.dateOfBirth = QDate(2001, 2, 28);
    single.height = 1.79f;
    single.nation1 = u"Brazil"_s;
    single.contractStart = QDate(2022, 1, 1);
    single.club = u"Santos FC"_s;
    // A dash for the value reads as 0, which is the lowest key.
    single.worldRep = 1;
    single.wage = 100;
    single.foot = u"both"_s;
    single.leftFootRating = 1;
    single.rightFootRating = 20;
    single.mainPosition = u"centre-forward"_s;
    single.grid = u"1 1 1 1 1 1 20 1 1 1 1 20"_s;
    QTest::newRow("single name without shirt number")
        << u"profile_single_name.html"_s << false << single;

    Profile loan;
    loan.firstName = u"Luca"_s;
    loan.secondName = u"Ferraro"_s;
    loan.completeName = u"Luca Ferraro"_s;
    loan.dateOfBirth = QDate(2003, 9, 9);
    loan.height = 1.80f;
    loan.nation1 = u"Italy"_s;
    loan.nation2 = u"France"_s;
    loan.contractStart = QDate(2023, 8, 1);
    loan.contractEnd = QDate(2027, 6, 30);
    loan.loanExpiry = QDate(2024, 6, 30);
    loan.club = u"Empoli FC"_s;
    loan.onLoanFrom = u"Juventus FC"_s;
    loan.marketValue = 3100000;
    loan.worldRep = 52;
    loan.wage = 5200;
    // The page shows 77, beyond the cap.
    loan.squadNumber = 0;
    loan.foot = u"Left"_s;
    loan.leftFootRating = 20;
    loan.rightFootRating = 1;
    loan.mainPosition = u"left-back"_s;
    loan.otherPositions = QStringList{u"left midfield"_s};
    loan.grid = u"1 1 20 1 15 1 1 1 1 1 20 1"_s;
    QTest::newRow("loan player with both contract dates")
        << u"profile_loan.html"_s << false << loan;

    Profile free;
    free.firstName = u"Pieter"_s;
    free.secondName = u"van Dam"_s;
    free.completeName = u"Pieter Johannes van Dam"_s;
    free.dateOfBirth = QDate(1989, 12, 31);
    free.height = 1.88f;
    free.nation1 = u"Netherlands"_s;
    free.club = u"Without Club since: 01.07.2023"_s;
    free.marketValue = 250000;
    free.worldRep = 5;
    free.wage = 500;
    free.squadNumber = 50;
    free.foot = u"right"_s;
    free.leftFootRating = 1;
    free.rightFootRating = 20;
    free.mainPosition = u"centre-back"_s;
    free.otherPositions = QStringList{u"right-back"_s, u"defensive midfield"_s};
    free.grid = u"1 1 20 15 1 1 1 1 1 15 1 20"_s;
    QTest::newRow("without club since a date") << u"profile_without_club.html"_s << false << free;

    Profile old;
    old.firstName = u"Tom\u00e1s"_s;
    old.secondName = u"Herrera"_s;
    old.completeName = u"Tom\u00e1s Herrera Ruiz"_s;
    old.dateOfBirth = QDate(1990, 5, 6);
    old.height = 1.78f;
    old.nation1 = u"Spain"_s;
    old.contractStart = QDate(2013, 8, 10);
    old.contractEnd = QDate(2018, 6, 30);
    old.club = u"Sevilla FC"_s;
    old.marketValue = 4500000;
    old.worldRep = 63;
    old.wage = 6300;
    old.foot = u"LEFT"_s;
    old.leftFootRating = 20;
    old.rightFootRating = 1;
    old.mainPosition = u"right-back"_s;
    old.otherPositions = QStringList{u"right midfield"_s, u"centre-back"_s};
    old.grid = u"1 1 20 1 15 1 1 1 1 20 1 15"_s;
    QTest::newRow("old layout with side positions") << u"profile_old_layout.html"_s << false << old;

    Profile cut;
    cut.firstName = u"Sami"_s;
    cut.secondName = u"Koskinen"_s;
    // The market value and the national team are read before the cut; all the
    // rest lies behind "Transfer history" and is out of reach.
    cut.marketValue = 1500000;
    cut.worldRep = 25;
    cut.wage = 2500;
    cut.squadNumber = 8;
    cut.leftFootRating = 1;
    cut.rightFootRating = 20;
    cut.grid = u"1 1 1 1 1 1 1 1 1 1 1 20"_s;
    cut.internationalApps = 8;
    cut.internationalGoals = 1;
    QTest::newRow("facts behind the transfer history") << u"profile_cut.html"_s << false << cut;
}

void TestTfmPlayer::fixturePage()
{
    QFETCH(QString, fixture);
    QFETCH(bool, olympic);
    QFETCH(Profile, expected);

    QString text = fixtureText(u"tfm/"_s + fixture);
    QVERIFY(!text.isEmpty());
    setIncludeOlympicStats(olympic);
    TFM_Player player;
    player.parsePage(text);

    QCOMPARE(player.firstName, expected.firstName);
    QCOMPARE(player.secondName, expected.secondName);
    QCOMPARE(player.commonName, expected.commonName);
    QCOMPARE(player.completeName, expected.completeName);
    QCOMPARE(player.dateOfBirth, expected.dateOfBirth);
    QCOMPARE(player.height, expected.height);
    QCOMPARE(player.nation1, expected.nation1);
    QCOMPARE(player.nation2, expected.nation2);
    QCOMPARE(player.contractStart, expected.contractStart);
    QCOMPARE(player.contractEnd, expected.contractEnd);
    QCOMPARE(player.loanExpiry, expected.loanExpiry);
    QCOMPARE(player.club, expected.club);
    QCOMPARE(player.onLoanFrom, expected.onLoanFrom);
    QCOMPARE(player.marketValue, expected.marketValue);
    QCOMPARE(player.worldRep, expected.worldRep);
    QCOMPARE(player.wage, expected.wage);
    QCOMPARE(player.squadNumber, expected.squadNumber);
    QCOMPARE(player.foot, expected.foot);
    QCOMPARE(player.leftFootRating, expected.leftFootRating);
    QCOMPARE(player.rightFootRating, expected.rightFootRating);
    QCOMPARE(player.mainPosition, expected.mainPosition);
    QCOMPARE(player.otherPositions, expected.otherPositions);
    QCOMPARE(gridText(player.positionRatings), expected.grid);
    QCOMPARE(player.internationalApps, expected.internationalApps);
    QCOMPARE(player.internationalGoals, expected.internationalGoals);
    // Left to the download loop.
    QVERIFY(player.history.isEmpty());
    QVERIFY(player.id.isEmpty());
    QVERIFY(player.nameInUrl.isEmpty());
}

void TestTfmPlayer::valueTablesHoldEveryStep_data()
{
    QTest::addColumn<qint32>("key");
    QTest::addColumn<qint32>("worldRep");
    QTest::addColumn<qint32>("wage");
    for (const ValueStep &step : valueSteps)
        QTest::addRow("%d", step.key) << step.key << step.worldRep << step.wage;
}

void TestTfmPlayer::valueTablesHoldEveryStep()
{
    QFETCH(qint32, key);
    QFETCH(qint32, worldRep);
    QFETCH(qint32, wage);

    QVERIFY(TFM_Player::worldRepByValue.contains(key));
    QVERIFY(TFM_Player::wageByValue.contains(key));
    QCOMPARE(TFM_Player::worldRepByValue.value(key), worldRep);
    QCOMPARE(TFM_Player::wageByValue.value(key), wage);

    // The same through a page: a plain number is read as it stands.
    const auto player = scanned(u"<p>Market value: %1 Last update</p>"_s.arg(key));
    QCOMPARE(player->marketValue, quint32(key));
    QCOMPARE(player->worldRep, quint32(worldRep));
    QCOMPARE(player->wage, quint32(wage));
}

void TestTfmPlayer::valueTablesHaveNoOtherKeys()
{
    QCOMPARE(std::size(valueSteps), size_t(212));
    QCOMPARE(TFM_Player::worldRepByValue.size(), 212);
    QCOMPARE(TFM_Player::wageByValue.size(), 212);
}

void TestTfmPlayer::marketValueLooksUpExactKeys_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<quint32>("marketValue");
    QTest::addColumn<quint32>("worldRep");
    QTest::addColumn<quint32>("wage");

    QTest::newRow("12.50m is a key") << u"\u20ac12.50m"_s << 12500000u << 105u << 10500u;
    QTest::newRow("12.60m lies between keys") << u"\u20ac12.60m"_s << 12600000u << 0u << 0u;
    QTest::newRow("16.00m") << u"\u20ac16.00m"_s << 16000000u << 112u << 12000u;
    QTest::newRow("140.00m is the top key") << u"140000000"_s << 140000000u << 200u << 100000u;
    QTest::newRow("above the top key") << u"145000000"_s << 145000000u << 0u << 0u;
    QTest::newRow("one above the top key") << u"140000001"_s << 140000001u << 0u << 0u;
    QTest::newRow("500k") << u"\u20ac500k"_s << 500000u << 10u << 1000u;
    QTest::newRow("between 225k and 250k") << u"240000"_s << 240000u << 0u << 0u;
    QTest::newRow("a dash is 0") << u"-"_s << 0u << 1u << 100u;
}

void TestTfmPlayer::marketValueLooksUpExactKeys()
{
    QFETCH(QString, value);
    QFETCH(quint32, marketValue);
    QFETCH(quint32, worldRep);
    QFETCH(quint32, wage);

    const auto player = scanned(u"<p>Market value: "_s + value + u" Last update</p>"_s);
    QCOMPARE(player->marketValue, marketValue);
    QCOMPARE(player->worldRep, worldRep);
    QCOMPARE(player->wage, wage);
}

void TestTfmPlayer::headlineWithoutStrongLeavesNamesEmptyAndConsumesNothing()
{
    QString text = u"<title>x</title><h1 class=\"data-header__headline-wrapper\">Ann Lee</h1>"
                   "<p>rest</p>"_s;
    TFM_Player player;
    player.parsePage(text);
    QVERIFY(player.firstName.isEmpty());
    QVERIFY(player.secondName.isEmpty());
    QVERIFY(player.commonName.isEmpty());
    // Only the skip to the headline consumed anything: the rest of the steps peek.
    QCOMPARE(text, u">Ann Lee</h1><p>rest</p>"_s);
}

void TestTfmPlayer::headlineWithOnlyBoldNameGivesCommonName()
{
    const auto player
        = scanned(u"<h1 class=\"data-header__headline-wrapper\"> <strong>Kaka</strong></h1>"_s);
    QCOMPARE(player->commonName, u"Kaka"_s);
    QVERIFY(player->firstName.isEmpty());
    QVERIFY(player->secondName.isEmpty());

    // A bold name right behind the tag: the given name's take fails, the bold one
    // is read all the same.
    const auto tight
        = scanned(u"<h1 class=\"data-header__headline-wrapper\"><strong>Kaka</strong></h1>"_s);
    QCOMPARE(tight->commonName, u"Kaka"_s);
    QVERIFY(tight->firstName.isEmpty());
    QVERIFY(tight->secondName.isEmpty());
}

void TestTfmPlayer::headlineWithoutShirtNumberIsReachedBehindEarlierTags()
{
    // Without the skip to the headline the given name would come from the title.
    const auto player = scanned(u"<title>Ann > Lee <strong>Title</strong></title>"_s + headline);
    QCOMPARE(player->firstName, u"Ann"_s);
    QCOMPARE(player->secondName, u"Lee"_s);
    QCOMPARE(player->squadNumber, qint16(0));
}

void TestTfmPlayer::headlineWithShirtNumberReadsBehindTheNumber()
{
    const auto player = scanned(
        u"<h1 class=\"data-header__headline-wrapper\"><span class=\"data-header__shirt-number\">"
        "#23</span> Ann <strong>Lee</strong></h1>"_s);
    QCOMPARE(player->squadNumber, qint16(23));
    QCOMPARE(player->firstName, u"Ann"_s);
    QCOMPARE(player->secondName, u"Lee"_s);
    QVERIFY(player->commonName.isEmpty());
}

void TestTfmPlayer::shirtNumber_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<qint16>("squadNumber");

    QTest::newRow("1") << u"#1"_s << qint16(1);
    QTest::newRow("50 stays") << u"#50"_s << qint16(50);
    QTest::newRow("51 is beyond the cap") << u"#51"_s << qint16(0);
    QTest::newRow("99 is beyond the cap") << u"#99"_s << qint16(0);
    QTest::newRow("low 16 bits of 65546 are 10") << u"#65546"_s << qint16(10);
    QTest::newRow("low 16 bits of 65535 are -1") << u"#65535"_s << qint16(-1);
    QTest::newRow("negative number stays") << u"#-7"_s << qint16(-7);
    QTest::newRow("not a number") << u"#ab"_s << qint16(0);
    QTest::newRow("blanks around the number") << u"# 9 "_s << qint16(9);
}

void TestTfmPlayer::shirtNumber()
{
    QFETCH(QString, tag);
    QFETCH(qint16, squadNumber);

    const auto player = scanned(u"<h1 class=\"data-header__headline-wrapper\">"
                                "<span class=\"data-header__shirt-number\">"_s
                                + tag + u"</span> Ann <strong>Lee</strong></h1>"_s);
    QCOMPARE(player->squadNumber, squadNumber);
    QCOMPARE(player->firstName, u"Ann"_s);
}

void TestTfmPlayer::height_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<float>("height");

    QTest::newRow("decimal comma and blank entity") << u"1,85&nbsp;m"_s << 1.85f;
    QTest::newRow("capital M") << u"1,78 M"_s << 1.78f;
    QTest::newRow("entity in capitals") << u"&NBSP;1,70 m"_s << 1.70f;
    QTest::newRow("decimal point") << u"1.90m"_s << 1.90f;
    QTest::newRow("no height") << u"-"_s << 0.0f;
    QTest::newRow("words") << u"unknown"_s << 0.0f;
}

void TestTfmPlayer::height()
{
    QFETCH(QString, cell);
    QFETCH(float, height);

    const auto player = scanned(headline
                                + u"<span class=\"info-table__content--regular\">Height:</span>"
                                  "<span class=\"info-table__content--bold\">"_s
                                + cell + u"</span>"_s);
    QCOMPARE(player->height, height);
}

void TestTfmPlayer::clubSinceNote_data()
{
    QTest::addColumn<QString>("club");
    QTest::addColumn<QString>("since");
    QTest::addColumn<QString>("expected");

    QTest::newRow("without club") << u"Without Club"_s << u"01.07.2023"_s
                                  << u"Without Club since: 01.07.2023"_s;
    QTest::newRow("unknown") << u"Unknown"_s << u"15.02.2022"_s << u"Unknown since: 15.02.2022"_s;
    QTest::newRow("other letter case gets no note")
        << u"without club"_s << u"01.07.2023"_s << u"without club"_s;
    QTest::newRow("unreadable date") << u"Without Club"_s << u"soon"_s << u"Without Club since: "_s;
    QTest::newRow("a club of its own gets no note")
        << u"Chelsea FC"_s << u"01.07.2023"_s << u"Chelsea FC"_s;
}

void TestTfmPlayer::clubSinceNote()
{
    QFETCH(QString, club);
    QFETCH(QString, since);
    QFETCH(QString, expected);

    const auto player = scanned(headline
                                + u"<span>Current club:</span><a><img alt=\"%1\" /></a>"
                                  " <a>%1</a> since: <span class=\"data-header__content\">"
                                  "%2</span>"_s.arg(club, since));
    QCOMPARE(player->club, expected);

    // Without the since row the club stays as it is.
    const auto plain
        = scanned(headline + u"<span>Current club:</span><a><img alt=\"%1\" /></a>"_s.arg(club));
    QCOMPARE(plain->club, club);
}

void TestTfmPlayer::contractRule_data()
{
    QTest::addColumn<QString>("expires");
    QTest::addColumn<QString>("there");
    QTest::addColumn<QDate>("contractEnd");
    QTest::addColumn<QDate>("loanExpiry");

    QTest::newRow("own contract") << u"30.06.2026"_s << QString() << QDate(2026, 6, 30) << QDate();
    QTest::newRow("loan swaps the roles")
        << u"30.06.2024"_s << u"30.06.2027"_s << QDate(2027, 6, 30) << QDate(2024, 6, 30);
    QTest::newRow("only the parent club's contract")
        << QString() << u"30.06.2027"_s << QDate(2027, 6, 30) << QDate();
    QTest::newRow("no contract") << QString() << QString() << QDate() << QDate();
    QTest::newRow("dash for no date") << u"-"_s << QString() << QDate() << QDate();
}

void TestTfmPlayer::contractRule()
{
    QFETCH(QString, expires);
    QFETCH(QString, there);
    QFETCH(QDate, contractEnd);
    QFETCH(QDate, loanExpiry);

    QString text = headline;
    if (!expires.isNull())
        text += u"<span class=\"x--regular\">Contract expires:</span>"
                "<span class=\"x--bold\">%1</span>"_s.arg(expires);
    if (!there.isNull())
        text += u"<span class=\"x--regular\">Contract there expires:</span>"
                "<span class=\"x--bold\">%1</span>"_s.arg(there);
    const auto player = scanned(text);
    QCOMPARE(player->contractEnd, contractEnd);
    QCOMPARE(player->loanExpiry, loanExpiry);
}

void TestTfmPlayer::foot_data()
{
    QTest::addColumn<QString>("foot");
    QTest::addColumn<qint16>("left");
    QTest::addColumn<qint16>("right");

    QTest::newRow("left") << u"left"_s << qint16(20) << qint16(1);
    QTest::newRow("Left") << u"Left"_s << qint16(20) << qint16(1);
    QTest::newRow("LEFT") << u"LEFT"_s << qint16(20) << qint16(1);
    QTest::newRow("right") << u"right"_s << qint16(1) << qint16(20);
    QTest::newRow("both") << u"both"_s << qint16(1) << qint16(20);
    QTest::newRow("no foot row") << QString() << qint16(1) << qint16(20);
}

void TestTfmPlayer::foot()
{
    QFETCH(QString, foot);
    QFETCH(qint16, left);
    QFETCH(qint16, right);

    QString text = headline;
    if (!foot.isNull())
        text += u"<span class=\"x--regular\">Foot:</span><span class=\"x--bold\">%1</span>"_s.arg(
            foot);
    const auto player = scanned(text);
    QCOMPARE(player->foot, foot);
    QCOMPARE(player->leftFootRating, left);
    QCOMPARE(player->rightFootRating, right);
}

void TestTfmPlayer::citizenship_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QString>("nation1");
    QTest::addColumn<QString>("nation2");

    const QString flag = u"<img src=\"/f.png\" title=\"%1\" alt=\"%1\" class=\"flaggenrahmen\" />"
                         "&nbsp;%1<br />"_s;
    QTest::newRow("one") << flag.arg(u"Chile"_s) << u"Chile"_s << QString();
    QTest::newRow("two") << flag.arg(u"Chile"_s) + flag.arg(u"Peru"_s) << u"Chile"_s << u"Peru"_s;
    QTest::newRow("third is ignored")
        << flag.arg(u"Chile"_s) + flag.arg(u"Peru"_s) + flag.arg(u"Spain"_s) << u"Chile"_s
        << u"Peru"_s;
    QTest::newRow("none") << QString() << QString() << QString();
}

void TestTfmPlayer::citizenship()
{
    QFETCH(QString, flags);
    QFETCH(QString, nation1);
    QFETCH(QString, nation2);

    const auto player = scanned(headline
                                + u"<span class=\"x--regular\">Citizenship:</span>"
                                  "<span class=\"x--bold\">"_s
                                + flags + u"</span>"_s);
    QCOMPARE(player->nation1, nation1);
    QCOMPARE(player->nation2, nation2);
    QCOMPARE(player->nation1.isNull(), nation1.isNull());
    QCOMPARE(player->nation2.isNull(), nation2.isNull());
}

void TestTfmPlayer::mainPositionFallsBackToPositionOnlyWithoutMainPosition()
{
    const auto both = scanned(headline
                              + u"<span>Position:</span><span class=\"v\">Sweeper</span>"
                                "<dt>Main position:</dt><dd class=\"p\">Left Wing</dd>"_s);
    QCOMPARE(both->mainPosition, u"left wing"_s);

    const auto fallback
        = scanned(headline + u"<span>Position:</span><span class=\"v\">Sweeper</span>"_s);
    QCOMPARE(fallback->mainPosition, u"sweeper"_s);
    QCOMPARE(gridText(fallback->positionRatings), u"1 20 1 1 1 1 1 1 1 1 1 20"_s);
}

void TestTfmPlayer::positionWordsOfBothLayoutsShareTheList()
{
    const auto player
        = scanned(headline
                  + u"<dt>Other position:</dt><dd class=\"detail-position__position\">"
                    "  Left WINGER <br />Striker</dd>"
                    "<div><span>Side position:</span><br/>Left Winger<br/>Wing-Back</div>"_s);
    QCOMPARE(player->otherPositions,
             (QStringList{u"left winger"_s, u"striker"_s, u"left winger"_s, u"wing-back"_s}));
}

void TestTfmPlayer::loanClubIsTheLinkText()
{
    const auto player = scanned(headline
                                + u"<span class=\"x-regular\">On loan from:</span>"
                                  "<span class=\"x--bold\"><a title=\"FC Porto\" href=\"/p\">"
                                  "FC Porto</a></span>"_s);
    QCOMPARE(player->onLoanFrom, u"FC Porto"_s);
}

void TestTfmPlayer::nationalTeamCareerIsReadBehindTheCut()
{
    const QString career = u"<h2>National team career</h2><div class=\"national-career\">"
                           "<div class=\"national-career__row\"><div>1</div>"
                           "<div><a title=\"Chile\" href=\"/c\">Chile</a></div><div>Jun 2020</div>"
                           "<div><a href=\"/a\">7</a></div><div><a href=\"/g\">3</a></div></div>"
                           "<a href=\"/n\">national player profile</a>"_s;
    const auto behind = scanned(headline + u"<h2>Transfer history</h2>"_s + career);
    QCOMPARE(behind->internationalApps, 7u);
    QCOMPARE(behind->internationalGoals, 3u);

    const auto before = scanned(headline + career + u"<h2>Transfer history</h2>"_s);
    QCOMPARE(before->internationalApps, 7u);
    QCOMPARE(before->internationalGoals, 3u);
}

void TestTfmPlayer::pageThatIsNoProfileGivesDefaults()
{
    const auto player = scanned(u"<html><body><p>Page not found</p></body></html>"_s);
    QVERIFY(player->firstName.isEmpty());
    QVERIFY(player->secondName.isEmpty());
    QVERIFY(player->commonName.isEmpty());
    QVERIFY(player->completeName.isEmpty());
    QVERIFY(!player->dateOfBirth.isValid());
    QCOMPARE(player->height, 0.0f);
    QVERIFY(player->club.isEmpty());
    QCOMPARE(player->marketValue, 0u);
    QCOMPARE(player->worldRep, 1u);
    QCOMPARE(player->wage, 100u);
    QCOMPARE(player->squadNumber, qint16(0));
    QCOMPARE(player->leftFootRating, qint16(1));
    QCOMPARE(player->rightFootRating, qint16(20));
    QVERIFY(player->mainPosition.isEmpty());
    QVERIFY(player->otherPositions.isEmpty());
    QCOMPARE(gridText(player->positionRatings), u"1 1 1 1 1 1 1 1 1 1 1 20"_s);
    QCOMPARE(player->internationalApps, 0u);
    QCOMPARE(player->internationalGoals, 0u);
}

void TestTfmPlayer::testReportPrintsEveryLine()
{
    QPlainTextEdit log;
    setLogOutput(&log);
    QString text = fixtureText(u"tfm/profile_field_player.html"_s);
    TFM_Player player;
    static_cast<DataWrapper &>(player).testReport(text);

    const QStringList expected = fieldPlayerReport(34, 9);
    QCOMPARE(logLines(&log), expected);
    QCOMPARE(log.blockCount(), int(expected.size()));
    setLogOutput(nullptr);
}

void TestTfmPlayer::testReportOfSingleNamePlayer()
{
    QPlainTextEdit log;
    setLogOutput(&log);
    QString text = fixtureText(u"tfm/profile_single_name.html"_s);
    TFM_Player player;
    player.testReport(text);

    const QStringList expected{
        u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
        // The line goes through the Ascii conversion: the lone accented letters
        // become U+FFFD and the comma goes.
        u"ASCII name:   Ronald\ufffdo : Ronaldo Silva Ara\ufffdjo"_s,
        u"Forename: "_s,
        u"Surname: "_s,
        u"Common name: Ronald\u00e3o"_s,
        u"Complete name: Ronaldo Silva, Ara\u00fajo"_s,
        u"Date of birth: Wed Feb 28 2001"_s,
        u"Nationality 1: Brazil"_s,
        u"Nationality 2: "_s,
        u"Height (m): 1.79"_s,
        u"Current club: Santos FC"_s,
        u"On loan from: "_s,
        u"Contract start: Sat Jan 1 2022"_s,
        u"Contract end: "_s,
        u"Loan end: "_s,
        u"Transfer value: 0"_s,
        u"World rep: 1"_s,
        u"Wage: 100"_s,
        u"qint32. appearances: 0"_s,
        u"qint32. goals: 0"_s,
        u"Squad number: 0"_s,
        u"Position (main): centre-forward"_s,
        u"Foot: both"_s,
        u"Pos  (GK): 1"_s,
        u"Pos  (WB): 1"_s,
        u"Pos  (SW): 1"_s,
        u"Pos (DEF): 1"_s,
        u"Pos  (DM): 1"_s,
        u"Pos (MID): 1"_s,
        u"Pos  (AM): 1"_s,
        u"Pos  (FR): 1"_s,
        u"Pos  (ST): 20"_s,
        u"Side  (L): 1"_s,
        u"Side  (C): 20"_s,
        u"Side  (R): 1"_s,
        u"--- COMPLETE ---"_s,
    };
    QCOMPARE(logLines(&log), expected);
    setLogOutput(nullptr);
}

void TestTfmPlayer::testReportWithoutLogOutputStillScans()
{
    setLogOutput(nullptr);
    QString text = fixtureText(u"tfm/profile_loan.html"_s);
    TFM_Player player;
    player.testReport(text);
    QCOMPARE(player.secondName, u"Ferraro"_s);
    QCOMPARE(player.onLoanFrom, u"Juventus FC"_s);
}

void TestTfmPlayer::testPlayerProfileButtonPrintsTheReport_data()
{
    QTest::addColumn<bool>("olympic");
    QTest::addColumn<int>("apps");
    QTest::addColumn<int>("goals");

    QTest::newRow("Olympic stats off") << false << 34 << 9;
    QTest::newRow("Olympic stats on") << true << 39 << 11;
}

void TestTfmPlayer::testPlayerProfileButtonPrintsTheReport()
{
    QFETCH(bool, olympic);
    QFETCH(int, apps);
    QFETCH(int, goals);

    MainWindow window;
    window.show();
    window.websiteBox->setCurrentIndex(1);
    window.includeOlympicStatsBox->setChecked(olympic);

    answerNextFileDialog(fixturePath(u"tfm/profile_field_player.html"_s));
    window.testPlayerButton->click();

    QCOMPARE(window.logBox->toPlainText().split(u'\n'), fieldPlayerReport(apps, goals));
    QCOMPARE(lastDialogTitle(), u"Open Offline Player Profile Webpage"_s);
    QVERIFY(window.testPlayerButton->isEnabled());

    // An empty log box leaves no log file behind when the window closes.
    window.logBox->clear();
}

QM_TEST_MAIN(TestTfmPlayer)
#include "tst_tfmplayer.moc"
