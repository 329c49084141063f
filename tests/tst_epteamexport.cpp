#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epteam.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QByteArray bom = "\xEF\xBB\xBF";

// The title lines of the three files with the separator of the mode.
QByteArray clubsTitle(const char *s)
{
    return QByteArray("Name%Full Name%City%Founded%Colours\n").replace('%', s);
}

QByteArray historiesTitle(const char *s)
{
    return QByteArray("Team%League%Season%Position%GP%W%T%L%OTW%OTW%GF%GA%Points%"
                      "Post Season Outcome%Actual Name\n")
        .replace('%', s);
}

QByteArray retiredTitle(const char *s)
{
    return QByteArray("Team%Number%First Name%Second Name\n").replace('%', s);
}

EP_Team *teamWith(const QString &name, const QString &fullName, const QString &city, qint16 founded,
                  const QString &colours)
{
    auto *team = new EP_Team;
    team->teamName = name;
    team->fullName = fullName;
    team->city = city;
    team->founded = founded;
    team->colours = colours;
    return team;
}

EP_TeamHistory historyRow()
{
    EP_TeamHistory row;
    row.team = u"Tromsø, Tigers"_s;
    row.league = u"Liga; Ñ"_s;
    row.season = 2020;
    row.gp = 52;
    row.wins = 30;
    row.ties = 2;
    row.losses = 15;
    row.otWins = 3;
    row.otLosses = 9;
    row.goalsFor = 170;
    row.goalsAgainst = 130;
    row.points = 97;
    row.standing = 2;
    row.postSeason = u"Lost, Final ø"_s;
    return row;
}

EP_RetiredNumber retiredRow()
{
    EP_RetiredNumber row;
    row.team = u"Tromsø Tigers"_s;
    row.number = 33;
    row.firstName = u"Bjørn"_s;
    row.secondName = u"Dæhlie, Jr."_s;
    return row;
}

template<typename Record> QString written(Record &record, bool utf, QChar separator)
{
    QString text;
    QTextStream stream(&text);
    if (utf)
        record.writeUtf(stream, separator);
    else
        record.writeAscii(stream, separator);
    stream.flush();
    return text;
}

} // namespace

// The three team files: their names, titles and rows in both modes, and the
// row writers of the team, history and retired number records.
class TestEpTeamExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void teamRow_data();
    void teamRow();
    void historyRowWriters_data();
    void historyRowWriters();
    void retiredRowWriters_data();
    void retiredRowWriters();
    void noRecordsGiveTitleLinesOnly_data();
    void noRecordsGiveTitleLinesOnly();
    void companionNames_data();
    void companionNames();
    void rowsOfEveryTeamInListOrder();
    void fileThatCannotBeOpenedIsSkipped();
    void folderThatDoesNotExist();
    void recordOfAnotherKind();
};

void TestEpTeamExport::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpTeamExport::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpTeamExport::teamRow_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("line");

    // In Ascii the three names are converted, the colours are not: the comma in
    // them stays and shifts the columns of the line.
    QTest::newRow("ascii") << false
                           << u"Troms\uFFFD Tigers,Troms\uFFFD IK,A:B,1968,Black, Yellow\n"_s;
    QTest::newRow("utf") << true << u"Tromsø; Tigers\tTromsø, IK\tA:B\t1968\tBlack, Yellow\n"_s;
}

void TestEpTeamExport::teamRow()
{
    QFETCH(bool, utf);
    QFETCH(QString, line);

    std::unique_ptr<EP_Team> team(
        teamWith(u"Tromsø; Tigers"_s, u"Tromsø, IK"_s, u"A:B"_s, 1968, u"Black, Yellow"_s));
    QCOMPARE(written(*team, utf, utf ? u'\t' : u','), line);
}

void TestEpTeamExport::historyRowWriters_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QChar>("separator");
    QTest::addColumn<QString>("line");

    // The overtime wins twice and the losses nowhere; the empty name ends the
    // line in a separator. The outcome is never converted.
    QTest::newRow("ascii")
        << false << QChar(u',')
        << u"Troms\uFFFD Tigers,Liga \uFFFD,2020,2,52,30,2,15,3,3,170,130,97,Lost, Final ø,\n"_s;
    QTest::newRow("ascii, semicolon")
        << false << QChar(u';')
        << u"Troms\uFFFD Tigers;Liga \uFFFD;2020;2;52;30;2;15;3;3;170;130;97;Lost, Final ø;\n"_s;
    QTest::newRow("utf") << true << QChar(u'\t')
                         << u"Tromsø, Tigers\tLiga; Ñ\t2020\t2\t52\t30\t2\t15\t3\t3\t170\t130\t97\t"
                            u"Lost, Final ø\t\n"_s;
}

void TestEpTeamExport::historyRowWriters()
{
    QFETCH(bool, utf);
    QFETCH(QChar, separator);
    QFETCH(QString, line);

    EP_TeamHistory row = historyRow();
    QCOMPARE(written(row, utf, separator), line);

    // A name set by hand goes through the same conversion in the last column.
    row.actualName = u"A, ø"_s;
    QVERIFY(written(row, utf, separator)
                .endsWith(separator + (utf ? u"A, ø"_s : u"A \uFFFD"_s) + u'\n'));
}

void TestEpTeamExport::retiredRowWriters_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("line");

    QTest::newRow("ascii") << false << u"Troms\uFFFD Tigers,33,Bj\uFFFDrn,D\uFFFDhlie Jr.\n"_s;
    QTest::newRow("utf") << true << u"Tromsø Tigers,33,Bjørn,Dæhlie, Jr.\n"_s;
}

void TestEpTeamExport::retiredRowWriters()
{
    QFETCH(bool, utf);
    QFETCH(QString, line);

    EP_RetiredNumber row = retiredRow();
    QCOMPARE(written(row, utf, u','), line);

    // A one-word name leaves the last cell empty.
    row.secondName = QString();
    QVERIFY(written(row, utf, u',').endsWith(u",\n"_s));
}

void TestEpTeamExport::noRecordsGiveTitleLinesOnly_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QByteArray>("separator");

    QTest::newRow("ascii, decimal point") << QLocale::c() << false << QByteArray(",");
    QTest::newRow("ascii, decimal comma") << QLocale(QLocale::German) << false << QByteArray(";");
    QTest::newRow("utf, decimal comma") << QLocale(QLocale::German) << true << QByteArray("\t");
}

void TestEpTeamExport::noRecordsGiveTitleLinesOnly()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QByteArray, separator);
    QLocale::setDefault(locale);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QList<DataWrapper *> teams;
    QVERIFY(EP_Team::saveTeams(QFileInfo(dir.filePath(u"data.csv"_s)), teams, utf));

    const char *s = separator.constData();
    QCOMPARE(fileBytes(dir.filePath(u"data_clubs.csv"_s)), bom + clubsTitle(s));
    QCOMPARE(fileBytes(dir.filePath(u"data_club_histories.csv"_s)), bom + historiesTitle(s));
    QCOMPARE(fileBytes(dir.filePath(u"data_retired_numbers.csv"_s)), bom + retiredTitle(s));
    // The three files and nothing else: not the chosen name.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files, QDir::Name),
             (QStringList{u"data_club_histories.csv"_s, u"data_clubs.csv"_s,
                          u"data_retired_numbers.csv"_s}));
}

void TestEpTeamExport::companionNames_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("files");

    QTest::newRow("plain name") << u"data.csv"_s
                                << QStringList{u"data_club_histories.csv"_s, u"data_clubs.csv"_s,
                                               u"data_retired_numbers.csv"_s};
    // The part between the first and the last dot is dropped.
    QTest::newRow("two dots") << u"a.b.csv"_s
                              << QStringList{u"a_club_histories.csv"_s, u"a_clubs.csv"_s,
                                             u"a_retired_numbers.csv"_s};
    QTest::newRow("no extension") << u"data"_s
                                  << QStringList{u"data_club_histories."_s, u"data_clubs."_s,
                                                 u"data_retired_numbers."_s};
}

void TestEpTeamExport::companionNames()
{
    QFETCH(QString, chosen);
    QFETCH(QStringList, files);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QList<DataWrapper *> teams;
    EP_Team::saveTeams(QFileInfo(dir.filePath(chosen)), teams, true);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files, QDir::Name), files);
}

void TestEpTeamExport::rowsOfEveryTeamInListOrder()
{
    QList<DataWrapper *> teams{
        teamWith(u"B Team"_s, u"B Full"_s, u"X"_s, 1900, u"Red"_s),
        teamWith(u"A Team"_s, QString(), QString(), 0, QString()),
    };
    auto *b = static_cast<EP_Team *>(teams.at(0));
    EP_TeamHistory row = historyRow();
    row.team = u"B Team"_s;
    b->histories = {row, row};
    b->histories[1].season = 2019;
    auto *a = static_cast<EP_Team *>(teams.at(1));
    EP_RetiredNumber retired = retiredRow();
    retired.team = u"A Team"_s;
    a->retiredNumbers = {retired};
    b->retiredNumbers = {retired};
    b->retiredNumbers[0].team = u"B Team"_s;
    b->retiredNumbers[0].number = 7;

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    EP_Team::saveTeams(QFileInfo(dir.filePath(u"out.csv"_s)), teams, true);
    qDeleteAll(teams);

    QCOMPARE(fileBytes(dir.filePath(u"out_clubs.csv"_s)),
             bom + clubsTitle("\t") + "B Team\tB Full\tX\t1900\tRed\nA Team\t\t\t0\t\n");
    QCOMPARE(fileBytes(dir.filePath(u"out_club_histories.csv"_s)),
             bom + historiesTitle("\t")
                 + "B Team\tLiga; \xC3\x91\t2020\t2\t52\t30\t2\t15\t3\t3\t170\t130\t97\t"
                   "Lost, Final \xC3\xB8\t\n"
                   "B Team\tLiga; \xC3\x91\t2019\t2\t52\t30\t2\t15\t3\t3\t170\t130\t97\t"
                   "Lost, Final \xC3\xB8\t\n");
    QCOMPARE(fileBytes(dir.filePath(u"out_retired_numbers.csv"_s)),
             bom + retiredTitle("\t")
                 + "B Team\t7\tBj\xC3\xB8rn\tD\xC3\xA6hlie, Jr.\n"
                   "A Team\t33\tBj\xC3\xB8rn\tD\xC3\xA6hlie, Jr.\n");
}

void TestEpTeamExport::fileThatCannotBeOpenedIsSkipped()
{
    // A folder in the place of the clubs file: that one is skipped in silence,
    // the other two are written.
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(QDir(dir.path()).mkdir(u"data_clubs.csv"_s));
    QList<DataWrapper *> teams{teamWith(u"T"_s, u"F"_s, u"C"_s, 1, u"K"_s)};
    QVERIFY(EP_Team::saveTeams(QFileInfo(dir.filePath(u"data.csv"_s)), teams, false));
    qDeleteAll(teams);

    QVERIFY(QFileInfo(dir.filePath(u"data_clubs.csv"_s)).isDir());
    QCOMPARE(fileBytes(dir.filePath(u"data_club_histories.csv"_s)), bom + historiesTitle(","));
    QCOMPARE(fileBytes(dir.filePath(u"data_retired_numbers.csv"_s)), bom + retiredTitle(","));
}

void TestEpTeamExport::folderThatDoesNotExist()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString missing = dir.filePath(u"missing/data.csv"_s);
    QList<DataWrapper *> teams{teamWith(u"T"_s, u"F"_s, u"C"_s, 1, u"K"_s)};
    QVERIFY(EP_Team::saveTeams(QFileInfo(missing), teams, true));
    qDeleteAll(teams);
    QVERIFY(!QFileInfo::exists(dir.filePath(u"missing"_s)));
}

void TestEpTeamExport::recordOfAnotherKind()
{
    // Only team records have rows; any other record in the list writes its own line
    // to the clubs file.
    QList<DataWrapper *> teams{new EP_League, teamWith(u"T"_s, u"F"_s, u"C"_s, 1, u"K"_s)};
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    EP_Team::saveTeams(QFileInfo(dir.filePath(u"data.csv"_s)), teams, false);
    qDeleteAll(teams);
    QCOMPARE(fileBytes(dir.filePath(u"data_clubs.csv"_s)),
             bom + clubsTitle(",") + "DataWrapper base class called (ASCII)\nT,F,C,1,K\n");
    QCOMPARE(fileBytes(dir.filePath(u"data_club_histories.csv"_s)), bom + historiesTitle(","));
}

QM_TEST_MAIN(TestEpTeamExport)
#include "tst_epteamexport.moc"
