#include "tests/support/testmain.h"
#include "tfm/tfmplayer.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// GK SW D DM M AM ST WB FR Right Left Centre
QString gridText(const std::array<qint16, TFM_Player::PositionCount> &ratings)
{
    QStringList parts;
    for (const qint16 rating : ratings)
        parts.append(QString::number(rating));
    return parts.join(u' ');
}

TFM_Player classified(const QString &main, const QStringList &others)
{
    TFM_Player player;
    player.mainPosition = main;
    player.otherPositions = others;
    player.applyPositions();
    player.applySides();
    return player;
}

} // namespace

// The position grid: words of the page into twelve ratings, 1 for no, 15 for a
// secondary position and 20 for the main one.
class TestTfmPositions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void wordTableHoldsTheTwentySixWords();
    void grid_data();
    void grid();
    void positionsLeaveTheSidesAlone();
    void sidesLeaveThePositionsAlone();
    void frStaysOneWithoutSecondaryStriker_data();
    void frStaysOneWithoutSecondaryStriker();
};

void TestTfmPositions::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTfmPositions::wordTableHoldsTheTwentySixWords()
{
    const QHash<QString, qint16> expected{
        {u"keeper"_s, 0},
        {u"goalkeeper"_s, 0},
        {u"goalie"_s, 0},
        {u"sweeper"_s, 1},
        {u"left-back"_s, 2},
        {u"centre-back"_s, 2},
        {u"right-back"_s, 2},
        {u"defence"_s, 2},
        {u"defender"_s, 2},
        {u"defensive midfield"_s, 3},
        {u"wing-back"_s, 7},
        {u"attack"_s, 6},
        {u"second striker"_s, 6},
        {u"midfield"_s, 4},
        {u"left midfield"_s, 4},
        {u"central midfield"_s, 4},
        {u"right midfield"_s, 4},
        {u"attacking midfield"_s, 5},
        {u"left wing"_s, 5},
        {u"left winger"_s, 5},
        {u"right wing"_s, 5},
        {u"right winger"_s, 5},
        {u"striker - centre-forward"_s, 6},
        {u"centre-forward"_s, 6},
        {u"striker"_s, 6},
        {u"secondary striker"_s, 6},
    };
    QCOMPARE(expected.size(), 26);
    QCOMPARE(TFM_Player::positionTable(), expected);
    // Filled once and kept.
    QCOMPARE(&TFM_Player::positionTable(), &TFM_Player::positionTable());
}

void TestTfmPositions::grid_data()
{
    QTest::addColumn<QString>("main");
    QTest::addColumn<QStringList>("others");
    QTest::addColumn<QString>("grid");

    // The grid reads GK SW D DM M AM ST WB FR Right Left Centre.
    QTest::newRow("centre-back with right-back and defensive midfield")
        << u"centre-back"_s << QStringList{u"right-back"_s, u"defensive midfield"_s}
        << u"1 1 20 15 1 1 1 1 1 15 1 20"_s;
    QTest::newRow("goalkeeper who sweeps")
        << u"goalkeeper"_s << QStringList{u"sweeper"_s} << u"20 1 1 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("goalkeeper keeps no side from other words")
        << u"goalkeeper"_s << QStringList{u"centre-back"_s, u"left midfield"_s}
        << u"20 1 1 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("keeper") << u"keeper"_s << QStringList{u"right-back"_s}
                            << u"20 1 1 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("goalie") << u"goalie"_s << QStringList{} << u"20 1 1 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("unknown keeper word keeps every side at 1")
        << u"sweeper-keeper"_s << QStringList{u"left-back"_s} << u"1 1 15 1 1 1 1 1 1 1 1 1"_s;
    QTest::newRow("goalkeeper as another position only")
        << u"striker"_s << QStringList{u"goalkeeper"_s} << u"15 1 1 1 1 1 20 1 1 1 1 20"_s;
    QTest::newRow("goalkeeper with secondary striker after the reset")
        << u"goalkeeper"_s << QStringList{u"secondary striker"_s}
        << u"20 1 1 1 1 15 20 1 15 1 1 1"_s;
    QTest::newRow("right winger") << u"right winger"_s << QStringList{}
                                  << u"1 1 1 1 1 20 1 1 1 20 1 1"_s;
    QTest::newRow("secondary striker as main")
        << u"secondary striker"_s << QStringList{} << u"1 1 1 1 1 20 15 1 20 1 1 20"_s;
    QTest::newRow("secondary striker as main and other")
        << u"secondary striker"_s << QStringList{u"secondary striker"_s}
        << u"1 1 1 1 1 20 15 1 20 1 1 20"_s;
    QTest::newRow("centre-forward with secondary striker")
        << u"centre-forward"_s << QStringList{u"secondary striker"_s}
        << u"1 1 1 1 1 15 20 1 15 1 1 20"_s;
    QTest::newRow("left wing with secondary striker swaps main and secondary")
        << u"left wing"_s << QStringList{u"secondary striker"_s}
        << u"1 1 1 1 1 15 20 1 15 1 20 1"_s;
    QTest::newRow("secondary striker in other letter case still swaps")
        << u"striker"_s << QStringList{u"Secondary Striker"_s} << u"1 1 1 1 1 15 20 1 15 1 1 20"_s;
    QTest::newRow("no position at all")
        << QString() << QStringList{} << u"1 1 1 1 1 1 1 1 1 1 1 20"_s;
    QTest::newRow("unknown main word")
        << u"libero"_s << QStringList{} << u"1 1 1 1 1 1 1 1 1 1 1 20"_s;
    QTest::newRow("unknown other word with a side")
        << QString() << QStringList{u"left side"_s} << u"1 1 1 1 1 1 1 1 1 1 15 20"_s;
    QTest::newRow("unknown other word without a side")
        << u"midfield"_s << QStringList{u"playmaker"_s} << u"1 1 1 1 20 1 1 1 1 1 1 20"_s;
    QTest::newRow("other word twice changes nothing further")
        << u"left-back"_s << QStringList{u"left-back"_s, u"left-back"_s}
        << u"1 1 20 1 1 1 1 1 1 1 20 1"_s;
    QTest::newRow("left back without hyphen is no key")
        << u"left back"_s << QStringList{} << u"1 1 1 1 1 1 1 1 1 1 20 1"_s;
    QTest::newRow("capitals are no key and no side")
        << u"Right-Back"_s << QStringList{u"Centre-Back"_s} << u"1 1 1 1 1 1 1 1 1 1 1 20"_s;
    QTest::newRow("main wins over an equal secondary")
        << u"midfield"_s << QStringList{u"central midfield"_s} << u"1 1 1 1 20 1 1 1 1 1 1 20"_s;
    QTest::newRow("central midfield as other, right midfield as main")
        << u"right midfield"_s << QStringList{u"central midfield"_s}
        << u"1 1 1 1 20 1 1 1 1 20 1 15"_s;
    QTest::newRow("centre comes before right in a word")
        << u"left-back"_s << QStringList{u"right centre"_s} << u"1 1 20 1 1 1 1 1 1 1 20 15"_s;
    QTest::newRow("right comes before left in a word")
        << u"attack"_s << QStringList{u"left or right"_s} << u"1 1 1 1 1 1 20 1 1 15 1 20"_s;
    QTest::newRow("striker - centre-forward is in the centre")
        << u"striker - centre-forward"_s << QStringList{} << u"1 1 1 1 1 1 20 1 1 1 1 20"_s;
    QTest::newRow("wing-back without a side word")
        << u"wing-back"_s << QStringList{} << u"1 1 1 1 1 1 1 20 1 1 1 20"_s;
    QTest::newRow("defence and defender")
        << u"defence"_s << QStringList{u"defender"_s} << u"1 1 20 1 1 1 1 1 1 1 1 20"_s;
    QTest::newRow("second striker is no secondary striker")
        << u"attacking midfield"_s << QStringList{u"second striker"_s}
        << u"1 1 1 1 1 20 15 1 1 1 1 20"_s;
    QTest::newRow("wingers on both sides")
        << u"left winger"_s << QStringList{u"right wing"_s, u"left midfield"_s}
        << u"1 1 1 1 15 20 1 1 1 15 20 1"_s;
    QTest::newRow("every outfield line as other")
        << u"defensive midfield"_s
        << QStringList{u"sweeper"_s, u"left-back"_s, u"midfield"_s, u"attacking midfield"_s,
                       u"attack"_s,  u"wing-back"_s}
        << u"1 15 15 20 15 15 15 15 1 1 15 20"_s;
}

void TestTfmPositions::grid()
{
    QFETCH(QString, main);
    QFETCH(QStringList, others);
    QFETCH(QString, grid);

    const TFM_Player player = classified(main, others);
    QCOMPARE(gridText(player.positionRatings), grid);
    // The words themselves are left as they were.
    QCOMPARE(player.mainPosition, main);
    QCOMPARE(player.otherPositions, others);
}

void TestTfmPositions::positionsLeaveTheSidesAlone()
{
    TFM_Player player;
    player.mainPosition = u"right winger"_s;
    player.otherPositions = QStringList{u"left wing"_s};
    player.applyPositions();
    QCOMPARE(gridText(player.positionRatings), u"1 1 1 1 1 20 1 1 1 1 1 1"_s);
}

void TestTfmPositions::sidesLeaveThePositionsAlone()
{
    TFM_Player player;
    player.mainPosition = u"right winger"_s;
    player.otherPositions = QStringList{u"left wing"_s};
    player.applySides();
    QCOMPARE(gridText(player.positionRatings), u"1 1 1 1 1 1 1 1 1 20 15 1"_s);
}

void TestTfmPositions::frStaysOneWithoutSecondaryStriker_data()
{
    QTest::addColumn<QString>("word");
    for (auto it = TFM_Player::positionTable().cbegin(); it != TFM_Player::positionTable().cend();
         ++it) {
        if (it.key() != u"secondary striker"_s)
            QTest::newRow(qPrintable(it.key())) << it.key();
    }
}

void TestTfmPositions::frStaysOneWithoutSecondaryStriker()
{
    QFETCH(QString, word);
    QCOMPARE(classified(word, QStringList{word}).positionRatings[TFM_Player::FR], qint16(1));
    QCOMPARE(classified(u"striker"_s, QStringList{word}).positionRatings[TFM_Player::FR],
             qint16(1));
}

QM_TEST_MAIN(TestTfmPositions)
#include "tst_tfmpositions.moc"
