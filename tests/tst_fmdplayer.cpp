#include "core/sharedstate.h"
#include "fmd/fmdplayer.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Grid = QList<int>;

Grid gridOf(const FMD_Player &player)
{
    return Grid(player.positionRatings.cbegin(), player.positionRatings.cend());
}

// A grid of 1 with 20 in the slots given.
Grid gridWith(std::initializer_list<FMD_Player::Slot> filled)
{
    Grid grid(FMD_Player::SlotCount, 1);
    for (const FMD_Player::Slot slot : filled)
        grid[slot] = 20;
    return grid;
}

QList<int> valuesOf(const QMap<QString, qint16> &table)
{
    QList<int> values;
    for (const qint16 value : table)
        values.append(value);
    return values;
}

const QStringList ratingKeys = {
    u"Attacking"_s, u"Defending"_s, u"Goalkeeping"_s, u"Mental"_s,
    u"Overall"_s,   u"Physical"_s,  u"Technical"_s,
};

const QStringList attributeKeys = {
    u"Acceleration"_s,  u"Aerial Reach"_s,    u"Aggression"_s,     u"Agility"_s,
    u"Anticipation"_s,  u"Balance"_s,         u"Bravery"_s,        u"Command Of Area"_s,
    u"Communication"_s, u"Composure"_s,       u"Concentration"_s,  u"Corners"_s,
    u"Crossing"_s,      u"Decisions"_s,       u"Determination"_s,  u"Dribbling"_s,
    u"Eccentricity"_s,  u"Finishing"_s,       u"First Touch"_s,    u"Flair"_s,
    u"Free Kick"_s,     u"Handling"_s,        u"Heading"_s,        u"Jumping Reach"_s,
    u"Kicking"_s,       u"Leadership"_s,      u"Long Shots"_s,     u"Long Throws"_s,
    u"Marking"_s,       u"Natural Fitness"_s, u"Off The Ball"_s,   u"One On Ones"_s,
    u"Pace"_s,          u"Passing"_s,         u"Penalty Taking"_s, u"Positioning"_s,
    u"Reflexes"_s,      u"Rushing Out"_s,     u"Stamina"_s,        u"Strength"_s,
    u"Tackling"_s,      u"Teamwork"_s,        u"Technique"_s,      u"Tendency To Punch"_s,
    u"Throwing"_s,      u"Vision"_s,          u"Work Rate"_s,
};

// A rating cell pair and an attribute row as the profile page writes them.
QString ratingPair(const QString &first, const QString &firstValue, const QString &second,
                   const QString &secondValue)
{
    return u"<tr><td class=\"active warning\">%1</td><td><span style=\"font-size: "
           u"25px;\">%2</span></td></tr>"
           u"<tr><td class=\"active\">%3</td><td><span style=\"font-size: 25px;\">%4</span></td></tr>\n"_s
               .arg(first, firstValue, second, secondValue);
}

QString attributeRow(const QString &name, const QString &value)
{
    return u"<tr><td style=\"padding-top: 10px;\">%1</td><td><span class=\"veri61\">%2</span></td></tr>\n"_s
        .arg(name, value);
}

} // namespace

// The profile page scanner: every field on each fixture page, the decoding
// rules case by case, the two tables and the offline report.
class TestFmdPlayer : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void freshRecord();
    void keyOrder();
    void positionTable();
    void parsePage_data();
    void parsePage();
    void attributesOfTheFieldPlayer();
    void missingSecondStyleCellFilesUnderTheEmptyKey();
    void ratingsStopAfterThreeTurns();
    void ratingsOfOneTurn();
    void cellValues_data();
    void cellValues();
    void attributeNameInAnotherCase();
    void techniqueInFrontOfFirstTouchLosesItsValue();
    void emptyPage();
    void titleOfAnotherEdition();
    void missingLabelTakesTheNextCell();
    void internationalRecordIsAddedTo();
    void splitCommonName_data();
    void splitCommonName();
    void parseInternationalRecord_data();
    void parseInternationalRecord();
    void decodeFoot_data();
    void decodeFoot();
    void decodePositions_data();
    void decodePositions();
    void positionsLoseTheirFirstCharacter_data();
    void positionsLoseTheirFirstCharacter();
    void height_data();
    void height();
    void nation_data();
    void nation();
    void value_data();
    void value();
    void testReport();
    void testReportOfAFreshPage();
};

void TestFmdPlayer::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestFmdPlayer::init()
{
    log->clear();
}

void TestFmdPlayer::freshRecord()
{
    const FMD_Player player;
    QVERIFY(player.firstName.isNull());
    QVERIFY(player.secondName.isNull());
    QVERIFY(player.commonName.isNull());
    QVERIFY(player.completeName.isNull());
    QVERIFY(!player.dateOfBirth.isValid());
    QCOMPARE(player.height, 0.0f);
    QVERIFY(player.nation1.isNull());
    QVERIFY(!player.contractEnd.isValid());
    QVERIFY(player.club.isNull());
    QCOMPARE(player.marketValue, 0u);
    QVERIFY(player.id.isNull());
    QVERIFY(player.nameInUrl.isNull());
    QVERIFY(player.foot.isNull());
    QVERIFY(player.positions.isNull());
    QCOMPARE(gridOf(player), gridWith({}));
    QCOMPARE(player.internationalApps, 0u);
    QCOMPARE(player.internationalGoals, 0u);
    QCOMPARE(player.currentAbility, 0);
    QCOMPARE(player.potentialAbility, 0);
    // 7 and 47 zeros in key order.
    QCOMPARE(player.ratings.keys(), ratingKeys);
    QCOMPARE(valuesOf(player.ratings), QList<int>(7, 0));
    QCOMPARE(player.attributes.keys(), attributeKeys);
    QCOMPARE(valuesOf(player.attributes), QList<int>(47, 0));
}

void TestFmdPlayer::keyOrder()
{
    // The page's grouping is not the columns' order: the keys sort as strings.
    QCOMPARE(FMD_Player::ratingNames(),
             (QStringList{u"Overall"_s, u"Attacking"_s, u"Defending"_s, u"Technical"_s, u"Mental"_s,
                          u"Physical"_s, u"Goalkeeping"_s}));
    QCOMPARE(FMD_Player::attributeNames().size(), 47);
    QCOMPARE(FMD_Player::attributeNames().first(), u"Corners"_s);
    QCOMPARE(FMD_Player::attributeNames().last(), u"Throwing"_s);
    QStringList sorted = FMD_Player::attributeNames();
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(sorted, attributeKeys);

    // A blank sorts before any letter, and a capital before a small letter.
    FMD_Player player;
    player.attributes.insert(u"Free kick"_s, 3);
    player.attributes.insert(u"FreeKick"_s, 4);
    const QStringList keys = player.attributes.keys();
    QCOMPARE(keys.indexOf(u"Free Kick"_s) + 1, keys.indexOf(u"Free kick"_s));
    QCOMPARE(keys.indexOf(u"Free kick"_s) + 1, keys.indexOf(u"FreeKick"_s));
}

void TestFmdPlayer::positionTable()
{
    const QHash<QString, qint16> &table = FMD_Player::positionTable();
    const QHash<QString, qint16> expected = {
        {u"GK"_s, 0}, {u"SW"_s, 1}, {u"D,"_s, 2}, {u"D/"_s, 2}, {u"D "_s, 2},
        {u"DM"_s, 3}, {u" M"_s, 4}, {u",M"_s, 4}, {u"/M"_s, 4}, {u">M"_s, 4},
        {u"AM"_s, 5}, {u"WB"_s, 7}, {u"ST"_s, 8},
    };
    QCOMPARE(table, expected);
    QCOMPARE(&FMD_Player::positionTable(), &table);
}

void TestFmdPlayer::parsePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("commonName");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QString>("secondName");
    QTest::addColumn<QString>("completeName");
    QTest::addColumn<QDate>("dateOfBirth");
    QTest::addColumn<QString>("positions");
    QTest::addColumn<float>("height");
    QTest::addColumn<QString>("nation1");
    QTest::addColumn<uint>("apps");
    QTest::addColumn<uint>("goals");
    QTest::addColumn<QString>("club");
    QTest::addColumn<uint>("marketValue");
    QTest::addColumn<QDate>("contractEnd");
    QTest::addColumn<QString>("foot");
    QTest::addColumn<int>("leftFoot");
    QTest::addColumn<int>("rightFoot");
    QTest::addColumn<Grid>("grid");
    QTest::addColumn<QStringList>("ratingKeys");
    QTest::addColumn<QList<int>>("ratings");

    using P = FMD_Player;
    // The foot cell loses its "&nbsp;".
    QTest::newRow("field player") << u"fmd/profile_field.html"_s << u"Jan Smith"_s << u"Jan"_s
                                  << u"Smith"_s << u"Jan Smith"_s << QDate(1995, 3, 5)
                                  << u"AM (RLC), ST (C)"_s << 1.85f << u"Testland"_s << 23u << 4u
                                  << u"FC Alpha"_s << 1500000u << QDate(2022, 6, 30) << u"Left"_s
                                  << 20 << 1
                                  << gridWith({P::AM, P::FR, P::Right, P::Left, P::Centre})
                                  << ratingKeys << QList<int>{81, 42, 0, 70, 78, 73, 76};
    // A second position word is not believed; no side for a goalkeeper; no goals
    // read behind 0 appearances.
    QTest::newRow("goalkeeper") << u"fmd/profile_goalkeeper.html"_s << u"Tom Keeper"_s << u"Tom"_s
                                << u"Keeper"_s << u"Tom Keeper"_s << QDate(1990, 11, 17)
                                << u"GK, DM (C)"_s << 1.93f << u"Macedonia"_s << 0u << 0u
                                << u"FC Alpha"_s << 750000u << QDate(2021, 6, 30) << u"Either"_s
                                << 20 << 20 << gridWith({P::GK}) << ratingKeys
                                << QList<int>{0, 0, 79, 68, 74, 66, 0};
    // One word; a height of two digits; no foot row, so right-footed.
    QTest::newRow("one-word name")
        << u"fmd/profile_oneword.html"_s << u"Ederzito"_s << QString() << QString() << QString()
        << QDate(2000, 12, 1) << u"D (L)"_s << 0.0f << u"South Korea"_s << 2u << 0u
        << u"Testville United"_s << 500u << QDate(2023, 12, 31) << QString() << 1 << 20
        << gridWith({P::D, P::Left}) << ratingKeys << QList<int>{55, 71, 0, 0, 69, 0, 64};
    // The third pair has no second-style cell: the value behind it goes under the
    // empty key, which sorts first.
    QTest::newRow("second-style cell missing")
        << u"fmd/profile_missingrating.html"_s << u"Carlos G\u00f3mez"_s << u"Carlos"_s
        << u"G\u00f3mez"_s << u"Carlos G\u00f3mez"_s << QDate(1996, 2, 29) << u"WB/M (R)"_s << 1.76f
        << u"Australia"_s << 11u << 1u << u"Atl\u00e9tico Testville"_s << 2250000u
        << QDate(2020, 6, 30) << u"Right"_s << 1 << 20 << gridWith({P::M, P::WB, P::Right})
        << (QStringList{QString()} + ratingKeys) << QList<int>{77, 66, 70, 0, 67, 72, 0, 71};
    // One turn of ratings; no dates; no appearances line; no attribute table.
    QTest::newRow("no attribute table")
        << u"fmd/profile_noattributes.html"_s << u"Mary Jane Watson"_s << u"Mary"_s
        << u"Jane Watson"_s << u"Mary Jane Watson"_s << QDate() << u"DM, M (C)"_s << 1.70f
        << u"Otherland"_s << 0u << 0u << u"FC Beta"_s << 0u << QDate() << u"right"_s << 1 << 20
        << gridWith({P::DM, P::M, P::Centre}) << ratingKeys << QList<int>{58, 0, 0, 0, 61, 0, 0};
    QTest::newRow("first touch, no technique")
        << u"fmd/profile_firsttouch.html"_s << u"Lukas Brandt"_s << u"Lukas"_s << u"Brandt"_s
        << u"Lukas Brandt"_s << QDate(1988, 8, 8) << u"SW, D (C)"_s << 1.90f << u"Testland"_s << 5u
        << 0u << u"FC Beta"_s << 300000u << QDate(2019, 6, 30) << u"Either"_s << 20 << 20
        << gridWith({P::SW, P::D, P::Centre}) << ratingKeys
        << QList<int>{40, 68, 0, 65, 66, 70, 62};
}

void TestFmdPlayer::parsePage()
{
    QFETCH(QString, fixture);
    QString text = fixtureText(fixture);
    QVERIFY(!text.isEmpty());
    FMD_Player player;
    player.parsePage(text);

    QTEST(player.commonName, "commonName");
    QTEST(player.firstName, "firstName");
    QTEST(player.secondName, "secondName");
    QTEST(player.completeName, "completeName");
    QTEST(player.dateOfBirth, "dateOfBirth");
    QTEST(player.positions, "positions");
    QTEST(player.height, "height");
    QTEST(player.nation1, "nation1");
    QTEST(uint(player.internationalApps), "apps");
    QTEST(uint(player.internationalGoals), "goals");
    QTEST(player.club, "club");
    QTEST(uint(player.marketValue), "marketValue");
    QTEST(player.contractEnd, "contractEnd");
    QTEST(player.foot, "foot");
    QTEST(int(player.leftFootRating), "leftFoot");
    QTEST(int(player.rightFootRating), "rightFoot");
    QTEST(gridOf(player), "grid");
    QTEST(player.ratings.keys(), "ratingKeys");
    QTEST(valuesOf(player.ratings), "ratings");
    // Only the pass sets these, and the page doesn't hold them.
    QVERIFY(player.id.isNull());
    QVERIFY(player.nameInUrl.isNull());
    QCOMPARE(player.currentAbility, 0);
    QCOMPARE(player.potentialAbility, 0);
    QCOMPARE(player.attributes.keys(), attributeKeys);
}

void TestFmdPlayer::attributesOfTheFieldPlayer()
{
    QString text = fixtureText(u"fmd/profile_field.html"_s);
    FMD_Player player;
    player.parsePage(text);
    // First Touch 14 followed by its own Technique of 9.
    QCOMPARE(valuesOf(player.attributes),
             (QList<int>{7,  3,  5,  10, 8,  13, 11, 6,  9,  14, 17, 4,  7,  20, 5,  10,
                         12, 13, 14, 8,  19, 15, 4,  16, 18, 11, 7,  10, 13, 19, 14, 3,
                         4,  16, 19, 17, 6,  9,  7,  10, 4,  20, 9,  12, 15, 5,  8}));
    QCOMPARE(player.attributes.value(u"First Touch"_s), qint16(14));
    QCOMPARE(player.attributes.value(u"Technique"_s), qint16(9));

    // Without a Technique row, the First Touch value stands in both.
    QString other = fixtureText(u"fmd/profile_firsttouch.html"_s);
    FMD_Player brandt;
    brandt.parsePage(other);
    QCOMPARE(brandt.attributes.value(u"First Touch"_s), qint16(14));
    QCOMPARE(brandt.attributes.value(u"Technique"_s), qint16(14));
    QCOMPARE(brandt.attributes.size(), 47);

    // No table: 47 zeros.
    QString none = fixtureText(u"fmd/profile_noattributes.html"_s);
    FMD_Player watson;
    watson.parsePage(none);
    QCOMPARE(valuesOf(watson.attributes), QList<int>(47, 0));
}

void TestFmdPlayer::missingSecondStyleCellFilesUnderTheEmptyKey()
{
    QString text = fixtureText(u"fmd/profile_missingrating.html"_s);
    FMD_Player player;
    player.parsePage(text);
    QCOMPARE(player.ratings.size(), 8);
    QVERIFY(player.ratings.contains(QString()));
    QCOMPARE(player.ratings.value(QString()), qint16(77));
    QCOMPARE(player.ratings.value(u"Physical"_s), qint16(0));
    QCOMPARE(player.ratings.firstKey(), u""_s);
}

void TestFmdPlayer::ratingsStopAfterThreeTurns()
{
    QString text = ratingPair(u"Overall"_s, u"1"_s, u"Attacking"_s, u"2"_s)
        + ratingPair(u"Defending"_s, u"3"_s, u"Technical"_s, u"4"_s)
        + ratingPair(u"Mental"_s, u"5"_s, u"Physical"_s, u"6"_s)
        + ratingPair(u"Goalkeeping"_s, u"7"_s, u"Extra"_s, u"8"_s);
    FMD_Player player;
    player.readRatings(text);
    QCOMPARE(valuesOf(player.ratings), (QList<int>{2, 3, 0, 5, 1, 6, 4}));
    // The fourth pair is left for whatever follows.
    QVERIFY(text.startsWith(u"/span></td></tr>\n<tr><td class=\"active warning\">Goalkeeping"_s));

    // A name that isn't among the seven adds a key.
    QString more = ratingPair(u"Overall"_s, u"1"_s, u"Speed"_s, u"9"_s);
    FMD_Player other;
    other.readRatings(more);
    QCOMPARE(other.ratings.size(), 8);
    QCOMPARE(other.ratings.value(u"Speed"_s), qint16(9));
}

void TestFmdPlayer::ratingsOfOneTurn()
{
    QString text
        = ratingPair(u"Overall"_s, u"70"_s, u"Attacking"_s, u"60"_s) + u"<p>no further pairs</p>"_s;
    FMD_Player player;
    player.readRatings(text);
    QCOMPARE(valuesOf(player.ratings), (QList<int>{60, 0, 0, 0, 70, 0, 0}));
    QCOMPARE(text, u"/span></td></tr>\n<p>no further pairs</p>"_s);
}

void TestFmdPlayer::cellValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");

    QTest::newRow("plain") << u"17"_s << 17;
    QTest::newRow("beyond 20") << u"300"_s << 300;
    QTest::newRow("beyond 16 bits keeps the low bits") << u"70000"_s << 4464;
    QTest::newRow("32767") << u"32767"_s << 32767;
    QTest::newRow("32768 wraps") << u"32768"_s << -32768;
    QTest::newRow("negative") << u"-5"_s << -5;
    QTest::newRow("not a number") << u"12a"_s << 0;
    QTest::newRow("beyond 32 bits") << u"99999999999"_s << 0;
    QTest::newRow("blanks around") << u"  9 "_s << 9;
}

void TestFmdPlayer::cellValues()
{
    QFETCH(QString, text);
    QFETCH(int, value);

    QString ratingText = ratingPair(u"Overall"_s, text, u"Attacking"_s, u"1"_s);
    FMD_Player player;
    player.readRatings(ratingText);
    QCOMPARE(int(player.ratings.value(u"Overall"_s)), value);

    QString attributeText = attributeRow(u"Pace"_s, text);
    player.readAttributes(attributeText);
    QCOMPARE(int(player.attributes.value(u"Pace"_s)), value);
}

void TestFmdPlayer::attributeNameInAnotherCase()
{
    QString text = attributeRow(u"Technique"_s, u"9"_s) + attributeRow(u"First touch"_s, u"14"_s);
    FMD_Player player;
    player.readAttributes(text);
    QCOMPARE(player.attributes.size(), 48);
    QCOMPARE(player.attributes.value(u"First touch"_s), qint16(14));
    QCOMPARE(player.attributes.value(u"First Touch"_s), qint16(0));
    QCOMPARE(player.attributes.value(u"Technique"_s), qint16(9));
}

void TestFmdPlayer::techniqueInFrontOfFirstTouchLosesItsValue()
{
    QString text = attributeRow(u"Technique"_s, u"9"_s) + attributeRow(u"First Touch"_s, u"14"_s);
    FMD_Player player;
    player.readAttributes(text);
    QCOMPARE(player.attributes.value(u"Technique"_s), qint16(14));
    QCOMPARE(player.attributes.size(), 47);

    // The rows end at the cut of the page; what stands behind is not read.
    QString page = fixtureText(u"fmd/profile_field.html"_s);
    page.replace(u"<footer>"_s, attributeRow(u"Behind"_s, u"1"_s) + u"<footer>"_s);
    FMD_Player smith;
    smith.parsePage(page);
    QCOMPARE(smith.attributes.value(u"Pace"_s), qint16(4));
    QVERIFY(!smith.attributes.contains(u"Behind"_s));
    QCOMPARE(smith.attributes.size(), 47);
}

void TestFmdPlayer::emptyPage()
{
    QString text;
    FMD_Player player;
    player.parsePage(text);
    QVERIFY(player.commonName.isNull());
    QVERIFY(player.positions.isEmpty());
    QVERIFY(player.foot.isNull());
    // No side letter counts as central; no foot text as right-footed.
    QCOMPARE(gridOf(player), gridWith({FMD_Player::Centre}));
    QCOMPARE(player.leftFootRating, qint16(1));
    QCOMPARE(player.rightFootRating, qint16(20));
    QCOMPARE(valuesOf(player.ratings), QList<int>(7, 0));
    QCOMPARE(valuesOf(player.attributes), QList<int>(47, 0));
}

void TestFmdPlayer::titleOfAnotherEdition()
{
    QString text = fixtureText(u"fmd/profile_field.html"_s);
    text.replace(u"FM 2019 Reviews"_s, u"FM 2020 Reviews"_s);
    FMD_Player player;
    player.parsePage(text);
    QVERIFY(player.commonName.isNull());
    QVERIFY(player.firstName.isNull());
    // The rest of the page is read all the same.
    QCOMPARE(player.club, u"FC Alpha"_s);
}

void TestFmdPlayer::missingLabelTakesTheNextCell()
{
    // Without "Contrat" the contract takes the next cell of that class behind the
    // value: here the foot cell, which is no date.
    QString text = fixtureText(u"fmd/profile_field.html"_s);
    text.replace(u"<td>Contrat</td><td class=\"text-center\">30/6/2022</td>"_s,
                 u"<td>Expires</td><td class=\"other\">30/6/2022</td>"_s);
    FMD_Player player;
    player.parsePage(text);
    QVERIFY(!player.contractEnd.isValid());
    // That step consumed the foot label too, so the look-ahead finds no foot.
    QVERIFY(player.foot.isNull());
    QCOMPARE(player.rightFootRating, qint16(20));
    QCOMPARE(player.leftFootRating, qint16(1));

    QString moved = fixtureText(u"fmd/profile_field.html"_s);
    moved.replace(u"<td>Contrat</td><td class=\"text-center\">30/6/2022</td>"_s,
                  u"<td>Expires</td><td class=\"other\">-</td>"_s);
    moved.replace(u"Left&nbsp;"_s, u"1/7/2024"_s);
    FMD_Player other;
    other.parsePage(moved);
    QCOMPARE(other.contractEnd, QDate(2024, 7, 1));
}

void TestFmdPlayer::internationalRecordIsAddedTo()
{
    FMD_Player player;
    player.internationalApps = 10;
    player.internationalGoals = 2;
    QString text = u"</a><br />Main 3 caps / 1 goals"_s;
    player.parseInternationalRecord(text);
    QCOMPARE(player.internationalApps, 13u);
    QCOMPARE(player.internationalGoals, 3u);
}

void TestFmdPlayer::splitCommonName_data()
{
    QTest::addColumn<QString>("commonName");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QString>("secondName");
    QTest::addColumn<QString>("completeName");

    QTest::newRow("two words") << u"Jan Smith"_s << u"Jan"_s << u"Smith"_s << u"Jan Smith"_s;
    QTest::newRow("three words") << u"Mary Jane Watson"_s << u"Mary"_s << u"Jane Watson"_s
                                 << u"Mary Jane Watson"_s;
    QTest::newRow("one word") << u"Ederzito"_s << QString() << QString() << QString();
    QTest::newRow("leading blank") << u" Ederzito"_s << QString() << QString() << QString();
    QTest::newRow("two blanks kept") << u"Ann  Lee"_s << u"Ann"_s << u" Lee"_s << u"Ann  Lee"_s;
    QTest::newRow("trailing blank") << u"Ann "_s << u"Ann"_s << u""_s << u"Ann "_s;
    // A no-break space is no blank.
    QTest::newRow("no-break space") << u"Ann\u00a0Lee"_s << QString() << QString() << QString();
    QTest::newRow("empty") << QString() << QString() << QString() << QString();
}

void TestFmdPlayer::splitCommonName()
{
    QFETCH(QString, commonName);
    FMD_Player player;
    player.commonName = commonName;
    player.splitCommonName();
    QTEST(player.firstName, "firstName");
    QTEST(player.secondName, "secondName");
    QTEST(player.completeName, "completeName");
    QCOMPARE(player.commonName, commonName);
}

void TestFmdPlayer::parseInternationalRecord_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("apps");
    QTest::addColumn<uint>("goals");

    QTest::newRow("caps and goals") << u"</a><br />Main 23 caps / 4 goals</td>"_s << 23u << 4u;
    QTest::newRow("one goal") << u"</a><br />Main 11 caps / 1 goal</td>"_s << 11u << 1u;
    QTest::newRow("no goals read behind 0 caps")
        << u"</a><br />Main 0 caps / 1 goals</td>"_s << 0u << 0u;
    QTest::newRow("no line") << u"<td>Club</td> / 3 goals"_s << 0u << 0u;
    QTest::newRow("markers in capitals") << u"</A><BR />MAIN 7 caps / 2 GOALS"_s << 7u << 2u;
    QTest::newRow("negative caps") << u"</a><br />Main -3 caps / 2 goals"_s << 0u << 0u;
    QTest::newRow("not a number") << u"</a><br />Main many caps / 2 goals"_s << 0u << 0u;
    QTest::newRow("beyond 32 bits") << u"</a><br />Main 4294967296 caps / 2 goals"_s << 0u << 0u;
    QTest::newRow("largest count")
        << u"</a><br />Main 4294967295 caps / x goals"_s << 4294967295u << 0u;
    QTest::newRow("empty text") << QString() << 0u << 0u;
}

void TestFmdPlayer::parseInternationalRecord()
{
    QFETCH(QString, text);
    FMD_Player player;
    player.parseInternationalRecord(text);
    QTEST(uint(player.internationalApps), "apps");
    QTEST(uint(player.internationalGoals), "goals");
}

void TestFmdPlayer::decodeFoot_data()
{
    QTest::addColumn<QString>("foot");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");

    QTest::newRow("Left") << u"Left"_s << 20 << 1;
    QTest::newRow("left in capitals") << u"LEFT"_s << 20 << 1;
    QTest::newRow("left only") << u"Left only"_s << 20 << 1;
    QTest::newRow("left is tested first") << u"Either, Left preferred"_s << 20 << 1;
    QTest::newRow("Either") << u"Either"_s << 20 << 20;
    QTest::newRow("either in small letters") << u"either"_s << 20 << 20;
    QTest::newRow("Right") << u"Right"_s << 1 << 20;
    QTest::newRow("anything else") << u"Both"_s << 1 << 20;
    QTest::newRow("empty") << QString() << 1 << 20;
}

void TestFmdPlayer::decodeFoot()
{
    QFETCH(QString, foot);
    FMD_Player player;
    player.foot = foot;
    player.leftFootRating = 7;
    player.rightFootRating = 7;
    player.decodeFoot();
    QTEST(int(player.leftFootRating), "left");
    QTEST(int(player.rightFootRating), "right");
}

void TestFmdPlayer::decodePositions_data()
{
    QTest::addColumn<QString>("positions");
    QTest::addColumn<Grid>("grid");

    using P = FMD_Player;
    QTest::newRow("AM (RLC), ST (C)")
        << u">AM (RLC), ST (C)"_s << gridWith({P::AM, P::FR, P::Right, P::Left, P::Centre});
    QTest::newRow("GK") << u">GK"_s << gridWith({P::GK});
    QTest::newRow("GK wins over other words") << u">GK, D (C), ST (L)"_s << gridWith({P::GK});
    QTest::newRow("D (L)") << u">D (L)"_s << gridWith({P::D, P::Left});
    QTest::newRow("ST") << u">ST"_s << gridWith({P::FR, P::Centre});
    QTest::newRow("a lone D at the end") << u">D"_s << gridWith({P::Centre});
    QTest::newRow("empty") << QString() << gridWith({P::Centre});
    QTest::newRow("D, DM") << u">D, DM (C)"_s << gridWith({P::D, P::DM, P::Centre});
    QTest::newRow("D/WB") << u">D/WB (R)"_s << gridWith({P::D, P::WB, P::Right});
    QTest::newRow("DM is no D and no M") << u">DM"_s << gridWith({P::DM, P::Centre});
    QTest::newRow("AM is no M") << u">AM (C)"_s << gridWith({P::AM, P::Centre});
    QTest::newRow("M at the start") << u">M (C)"_s << gridWith({P::M, P::Centre});
    QTest::newRow("M behind a blank") << u">AM, M (L)"_s << gridWith({P::M, P::AM, P::Left});
    QTest::newRow("M behind a comma") << u">DM,M (R)"_s << gridWith({P::DM, P::M, P::Right});
    QTest::newRow("M behind a slash") << u">WB/M (R)"_s << gridWith({P::M, P::WB, P::Right});
    QTest::newRow("M without the bracket") << u"M (C)"_s << gridWith({P::Centre});
    QTest::newRow("SW") << u">SW"_s << gridWith({P::SW, P::Centre});
    QTest::newRow("small letters match nothing") << u">st (c)"_s << gridWith({P::Centre});
    QTest::newRow("right and left, no centre")
        << u">D (RL)"_s << gridWith({P::D, P::Right, P::Left});
    QTest::newRow("centre beside a side") << u">D (LC)"_s << gridWith({P::D, P::Left, P::Centre});
    // Side letters count wherever they stand.
    QTest::newRow("side letter in a word") << u">Centre Back"_s << gridWith({P::Centre});
}

void TestFmdPlayer::decodePositions()
{
    QFETCH(QString, positions);
    FMD_Player player;
    player.positions = positions;
    player.decodePositions();
    player.decodeSides();
    QTEST(gridOf(player), "grid");
    QCOMPARE(player.positions, positions);
    QCOMPARE(player.positionRatings[FMD_Player::Unused], qint16(1));
}

void TestFmdPlayer::positionsLoseTheirFirstCharacter_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("positions");

    QTest::newRow("two positions")
        << u"<td class=\"text-center\">AM (RLC), ST (C)</td>"_s << u"AM (RLC), ST (C)"_s;
    QTest::newRow("goalkeeper") << u"<td class=\"text-center\">GK</td>"_s << u"GK"_s;
    // The value is trimmed before the bracket goes, and the blanks behind it stay.
    QTest::newRow("blanks inside the tag")
        << u"<td class=\"text-center\" >  D (L) </td>"_s << u"  D (L)"_s;
    // Whatever the first character is, it goes.
    QTest::newRow("other attribute")
        << u"<td class=\"text-center\" id=\"p\">ST</td>"_s << u"d=\"p\">ST"_s;
    QTest::newRow("empty cell") << u"<td class=\"text-center\"></td>"_s << u""_s;
}

void TestFmdPlayer::positionsLoseTheirFirstCharacter()
{
    QFETCH(QString, cell);
    QString text = u"<tr><td>Position</td>"_s + cell + u"</tr>"_s;
    FMD_Player player;
    player.parsePage(text);
    QTEST(player.positions, "positions");
}

void TestFmdPlayer::height_data()
{
    QTest::addColumn<QString>("centimetres");
    QTest::addColumn<float>("height");

    QTest::newRow("185") << u"185"_s << 1.85f;
    QTest::newRow("200") << u"200"_s << 2.0f;
    QTest::newRow("two digits") << u"85"_s << 0.0f;
    QTest::newRow("four digits") << u"1850"_s << 0.0f;
    QTest::newRow("zero") << u"000"_s << 0.0f;
    QTest::newRow("negative") << u"-85"_s << 0.0f;
    QTest::newRow("not a number") << u"1a5"_s << 0.0f;
    QTest::newRow("leading zero") << u"099"_s << 0.99f;
    QTest::newRow("empty") << QString() << 0.0f;
}

void TestFmdPlayer::height()
{
    QFETCH(QString, centimetres);
    FMD_Player player;
    player.applyHeight(centimetres);
    QTEST(player.height, "height");

    QString page = u"<meta itemprop=\"height\" content=\"%1 cm\" />"_s.arg(centimetres);
    FMD_Player scanned;
    scanned.parsePage(page);
    QTEST(scanned.height, "height");
}

void TestFmdPlayer::nation_data()
{
    QTest::addColumn<QString>("alt");
    QTest::addColumn<QString>("nation");

    QTest::newRow("plain") << u"Testland"_s << u"Testland"_s;
    QTest::newRow("Republic of Macedonia") << u"Republic of Macedonia"_s << u"Macedonia"_s;
    QTest::newRow("North Macedonia") << u"North Macedonia"_s << u"Macedonia"_s;
    QTest::newRow("small letters left alone")
        << u"republic of macedonia"_s << u"republic of macedonia"_s;
    QTest::newRow("Korea Republic") << u"South Korea Republic"_s << u"South Korea"_s;
    QTest::newRow("North Korea untouched") << u"North Korea"_s << u"North Korea"_s;
    QTest::newRow("Australia") << u"Commonwealth of Australia"_s << u"Australia"_s;
    QTest::newRow("first test wins") << u"South Korea and Australia"_s << u"South Korea"_s;
    QTest::newRow("Austria untouched") << u"Austria"_s << u"Austria"_s;
}

void TestFmdPlayer::nation()
{
    QFETCH(QString, alt);
    QString text = u"<td>Nation</td><td><img alt=\"%1\" /></td>"_s.arg(alt);
    FMD_Player player;
    player.parsePage(text);
    QTEST(player.nation1, "nation");
}

void TestFmdPlayer::value_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<uint>("value");

    QTest::newRow("1.5M") << u"&euro; 1.5M"_s << 1500000u;
    QTest::newRow("750K") << u"&euro; 750K"_s << 750000u;
    QTest::newRow("500") << u"&euro; 500"_s << 500u;
    QTest::newRow("750k is no suffix") << u"&euro; 750k"_s << 0u;
    QTest::newRow("1.5m is no suffix") << u"&euro; 1.5m"_s << 0u;
    QTest::newRow("sign dropped, whatever it is") << u"$$ 2M"_s << 2000000u;
    QTest::newRow("no blank: the value is empty") << u"&euro;1.5M"_s << 0u;
    QTest::newRow("two blanks") << u"&euro; 2 500K"_s << 0u;
    QTest::newRow("fraction truncated") << u"&euro; 0.0015K"_s << 1u;
    QTest::newRow("negative counts as none") << u"&euro; -5M"_s << 0u;
    QTest::newRow("beyond 32 bits counts as none") << u"&euro; 5000M"_s << 0u;
    QTest::newRow("largest") << u"&euro; 4000M"_s << 4000000000u;
    QTest::newRow("empty cell") << u""_s << 0u;
}

void TestFmdPlayer::value()
{
    QFETCH(QString, cell);
    QString text
        = u"<tr><td>Position</td><td class=\"text-center\">ST</td></tr>"
          u"<tr><td>Value</td><td class=\"text-center\"><strong>%1</strong></td></tr>"_s.arg(cell);
    FMD_Player player;
    player.parsePage(text);
    QTEST(uint(player.marketValue), "value");
}

void TestFmdPlayer::testReport()
{
    QString text = fixtureText(u"fmd/profile_missingrating.html"_s);
    FMD_Player player;
    player.testReport(text);
    QStringList expected = {
        u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
        u"ASCII name: Carlos G\uFFFDmez Carlos G\uFFFDmez : Carlos G\uFFFDmez"_s,
        u"Forename: Carlos"_s,
        u"Surname: G\u00f3mez"_s,
        u"Common name: Carlos G\u00f3mez"_s,
        u"Complete name: Carlos G\u00f3mez"_s,
        u"Date of birth: Thu Feb 29 1996"_s,
        u"Nationality 1: Australia"_s,
        u"Height (m): 1.76"_s,
        u"Current club: Atl\u00e9tico Testville"_s,
        u"Contract end: Tue Jun 30 2020"_s,
        u"Transfer value: 2250000"_s,
        u"qint32. appearances: 11"_s,
        u"qint32. goals: 1"_s,
        u"Positions: WB/M (R)"_s,
        u"Foot: Right"_s,
        u"Pos  (GK): 1"_s,
        u"Pos  (WB): 20"_s,
        u"Pos  (SW): 1"_s,
        u"Pos (DEF): 1"_s,
        u"Pos  (DM): 1"_s,
        u"Pos (MID): 20"_s,
        u"Pos  (AM): 1"_s,
        u"Pos  (FR): 1"_s,
        u"Side  (L): 1"_s,
        u"Side  (C): 1"_s,
        u"Side  (R): 20"_s,
        u": 77"_s,
        u"Attacking: 66"_s,
        u"Defending: 70"_s,
        u"Goalkeeping: 0"_s,
        u"Mental: 67"_s,
        u"Overall: 72"_s,
        u"Physical: 0"_s,
        u"Technical: 71"_s,
    };
    const QList<int> values = {18, 19, 17, 3,  20, 6,  5,  4, 7,  8,  11, 16, 19, 14, 17, 4,
                               10, 7,  10, 20, 13, 13, 16, 9, 16, 5,  19, 4,  7,  12, 8,  19,
                               15, 10, 13, 11, 4,  7,  18, 3, 16, 14, 19, 10, 13, 17, 20};
    for (qsizetype i = 0; i < attributeKeys.size(); ++i)
        expected.append(u"%1: %2"_s.arg(attributeKeys.at(i)).arg(values.at(i)));
    expected += QStringList{u"CA: 0"_s, u"PA: 0"_s, u"--- COMPLETE ---"_s};
    QCOMPARE(log.lines(), expected);
}

void TestFmdPlayer::testReportOfAFreshPage()
{
    // Dates that aren't there and a height that wasn't read; a report has no
    // address fields.
    QString text = u"<html><title>Ederzito FM 2019 Reviews, Profile</title></html>"_s;
    FMD_Player player;
    player.testReport(text);
    const QStringList lines = log.lines();
    QCOMPARE(lines.size(), 1 + 15 + 11 + 7 + 47 + 3);
    QCOMPARE(lines.mid(0, 17),
             (QStringList{
                 u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
                 u"ASCII name:   Ederzito : "_s,
                 u"Forename: "_s,
                 u"Surname: "_s,
                 u"Common name: Ederzito"_s,
                 u"Complete name: "_s,
                 u"Date of birth: "_s,
                 u"Nationality 1: "_s,
                 u"Height (m): 0"_s,
                 u"Current club: "_s,
                 u"Contract end: "_s,
                 u"Transfer value: 0"_s,
                 u"qint32. appearances: 0"_s,
                 u"qint32. goals: 0"_s,
                 u"Positions: "_s,
                 u"Foot: "_s,
                 u"Pos  (GK): 1"_s,
             }));
    QCOMPARE(lines.at(25), u"Side  (C): 20"_s);
    QCOMPARE(lines.at(27), u"Attacking: 0"_s);
    QCOMPARE(lines.at(34), u"Acceleration: 0"_s);
    QCOMPARE(lines.last(), u"--- COMPLETE ---"_s);
}

QM_TEST_MAIN(TestFmdPlayer)

#include "tst_fmdplayer.moc"
