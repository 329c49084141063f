#include "tfm/tfmplayer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 notPlayedRating = 1;
constexpr qint16 secondaryRating = 15;
constexpr qint16 mainRating = 20;

QHash<QString, qint16> buildPositionTable()
{
    return {
        {u"keeper"_s, TFM_Player::GK},
        {u"goalkeeper"_s, TFM_Player::GK},
        {u"goalie"_s, TFM_Player::GK},
        {u"sweeper"_s, TFM_Player::SW},
        {u"left-back"_s, TFM_Player::D},
        {u"centre-back"_s, TFM_Player::D},
        {u"right-back"_s, TFM_Player::D},
        {u"defence"_s, TFM_Player::D},
        {u"defender"_s, TFM_Player::D},
        {u"defensive midfield"_s, TFM_Player::DM},
        {u"wing-back"_s, TFM_Player::WB},
        {u"attack"_s, TFM_Player::ST},
        {u"second striker"_s, TFM_Player::ST},
        {u"midfield"_s, TFM_Player::M},
        {u"left midfield"_s, TFM_Player::M},
        {u"central midfield"_s, TFM_Player::M},
        {u"right midfield"_s, TFM_Player::M},
        {u"attacking midfield"_s, TFM_Player::AM},
        {u"left wing"_s, TFM_Player::AM},
        {u"left winger"_s, TFM_Player::AM},
        {u"right wing"_s, TFM_Player::AM},
        {u"right winger"_s, TFM_Player::AM},
        {u"striker - centre-forward"_s, TFM_Player::ST},
        {u"centre-forward"_s, TFM_Player::ST},
        {u"striker"_s, TFM_Player::ST},
        {u"secondary striker"_s, TFM_Player::ST},
    };
}

// The side a word names, searched in this order; none for most words.
int sideOf(const QString &word)
{
    if (word.indexOf(u"centre"_s, 0, Qt::CaseSensitive) >= 0)
        return TFM_Player::Centre;
    if (word.indexOf(u"central"_s, 0, Qt::CaseSensitive) >= 0)
        return TFM_Player::Centre;
    if (word.indexOf(u"right"_s, 0, Qt::CaseSensitive) >= 0)
        return TFM_Player::Right;
    if (word.indexOf(u"left"_s, 0, Qt::CaseSensitive) >= 0)
        return TFM_Player::Left;
    return -1;
}

} // namespace

const QHash<QString, qint16> &TFM_Player::positionTable()
{
    static const QHash<QString, qint16> table = buildPositionTable();
    return table;
}

void TFM_Player::applyPositions()
{
    const QHash<QString, qint16> &table = positionTable();

    for (const QString &word : std::as_const(otherPositions)) {
        const auto found = table.constFind(word);
        if (found != table.cend())
            positionRatings[found.value()] = secondaryRating;
    }
    // After the others, so that the main position wins over an equal secondary one.
    const auto found = table.constFind(mainPosition);
    if (found != table.cend())
        positionRatings[found.value()] = mainRating;

    // A goalkeeper's outfield words don't count.
    if (positionRatings[GK] == mainRating) {
        for (int index = SW; index <= FR; ++index)
            positionRatings[index] = notPlayedRating;
    }

    // The secondary striker plays behind the striker: as a main position he is an
    // attacking midfielder first; as another position he swaps the two ratings round.
    if (mainPosition == u"secondary striker"_s) {
        positionRatings[AM] = mainRating;
        positionRatings[ST] = secondaryRating;
        positionRatings[FR] = mainRating;
    } else if (otherPositions.contains(u"secondary striker"_s, Qt::CaseInsensitive)) {
        positionRatings[AM] = secondaryRating;
        positionRatings[ST] = mainRating;
        positionRatings[FR] = secondaryRating;
    }
}

void TFM_Player::applySides()
{
    // A goalkeeper plays on no side, whatever else he plays.
    if (mainPosition.indexOf(u"keeper"_s, 0, Qt::CaseSensitive) >= 0
        || mainPosition.indexOf(u"goalie"_s, 0, Qt::CaseSensitive) >= 0)
        return;

    for (const QString &word : std::as_const(otherPositions)) {
        const int side = sideOf(word);
        if (side >= 0)
            positionRatings[side] = secondaryRating;
    }

    // Every outfield player has a main side; a word without one plays in the centre.
    const int side = sideOf(mainPosition);
    positionRatings[side >= 0 ? side : Centre] = mainRating;
}
