#include "fmd/fmdplayer.h"

#include "core/scan.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Both dates of a profile page read alike; the year has four digits.
QDate pageDate(const QString &text)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    return QDate::fromString(text, u"d/M/yyyy"_s, 1900);
#else
    return QDate::fromString(text, u"d/M/yyyy"_s);
#endif
}

// A cell keeps the low 16 bits of its number, with no range test.
void storeCell(QMap<QString, qint16> &table, const QString &name, const QString &value)
{
    table.insert(name, static_cast<qint16>(value.toInt()));
}

} // namespace

FMD_Player::FMD_Player()
{
    for (const QString &name : ratingNames())
        ratings.insert(name, 0);
    for (const QString &name : attributeNames())
        attributes.insert(name, 0);
}

const QStringList &FMD_Player::ratingNames()
{
    static const QStringList names = {
        u"Overall"_s, u"Attacking"_s, u"Defending"_s,   u"Technical"_s,
        u"Mental"_s,  u"Physical"_s,  u"Goalkeeping"_s,
    };
    return names;
}

const QStringList &FMD_Player::attributeNames()
{
    static const QStringList names = {
        // technical
        u"Corners"_s,
        u"Crossing"_s,
        u"Dribbling"_s,
        u"Finishing"_s,
        u"First Touch"_s,
        u"Free Kick"_s,
        u"Heading"_s,
        u"Long Shots"_s,
        u"Long Throws"_s,
        u"Marking"_s,
        u"Passing"_s,
        u"Penalty Taking"_s,
        u"Tackling"_s,
        u"Technique"_s,
        // mental
        u"Aggression"_s,
        u"Anticipation"_s,
        u"Bravery"_s,
        u"Composure"_s,
        u"Concentration"_s,
        u"Decisions"_s,
        u"Determination"_s,
        u"Flair"_s,
        u"Leadership"_s,
        u"Off The Ball"_s,
        u"Positioning"_s,
        u"Teamwork"_s,
        u"Vision"_s,
        u"Work Rate"_s,
        // physical
        u"Acceleration"_s,
        u"Agility"_s,
        u"Balance"_s,
        u"Jumping Reach"_s,
        u"Natural Fitness"_s,
        u"Pace"_s,
        u"Stamina"_s,
        u"Strength"_s,
        // goalkeeping
        u"Aerial Reach"_s,
        u"Command Of Area"_s,
        u"Communication"_s,
        u"Eccentricity"_s,
        u"Handling"_s,
        u"Kicking"_s,
        u"One On Ones"_s,
        u"Reflexes"_s,
        u"Rushing Out"_s,
        u"Tendency To Punch"_s,
        u"Throwing"_s,
    };
    return names;
}

QHash<QString, qint16> &FMD_Player::positionTable()
{
    static QHash<QString, qint16> table;
    if (table.isEmpty()) {
        // What stands around a single letter tells "D" from "DM" and "M" from
        // "AM" or "DM"; the ">" is the start of the position text.
        table = {
            {u"GK"_s, GK}, {u"SW"_s, SW}, {u"D,"_s, D},  {u"D/"_s, D}, {u"D "_s, D},
            {u"DM"_s, DM}, {u" M"_s, M},  {u",M"_s, M},  {u"/M"_s, M}, {u">M"_s, M},
            {u"AM"_s, AM}, {u"WB"_s, WB}, {u"ST"_s, FR},
        };
    }
    return table;
}

void FMD_Player::parsePage(QString &text)
{
    QString s;

    // The site's edition stands in the title.
    takeBetween(commonName, text, u"<title>"_s, u" FM 2019 Reviews, Profile</title>"_s);
    splitCommonName();
    readRatings(text);
    skipPast(text, u"people vote."_s);
    skipPast(text, u"</script>"_s);

    takeBetween(s, text, u"<td class=\"text-center\">("_s, u")"_s);
    dateOfBirth = pageDate(s);

    skipPast(text, u"Position</td>"_s);
    // Stops short of the tag's bracket: the text keeps a ">" in front until the end.
    takeBetween(positions, text, u"<td class=\"text-center\""_s, u"</td>"_s);
    positions = positions.trimmed();

    takeBetween(s, text, u"<meta itemprop=\"height\" content=\""_s, u" cm"_s);
    applyHeight(s);

    skipPast(text, u"Nation"_s);
    takeBetween(nation1, text, u"alt=\""_s, u"\""_s);
    applyNation();
    parseInternationalRecord(text);

    skipPast(text, u"Club"_s);
    // The tail of the club cell's tag.
    takeBetween(club, text, u"affiliation\">"_s, u"</strong>"_s);

    skipPast(text, u"<td class=\"text-center\"><strong>"_s);
    takeBetween(s, text, u" "_s, u"<"_s);
    applyValue(s);

    // The site spells the label so.
    skipPast(text, u"Contrat"_s);
    takeBetween(s, text, u"<td class=\"text-center\">"_s, u"</td>"_s);
    contractEnd = pageDate(s);

    peekBetween(foot, text, u"Pre. Foot"_s, u"<td class=\"text-center\">"_s, u"</td>"_s);

    // Everything behind the attribute table goes, so that its rows end the loop.
    cutAt(text, u"If you want to see <strong>Current Ability"_s);
    skipPast(text, u"TECHNICAL"_s);
    skipPast(text, u"GOALKEEPING"_s);
    readAttributes(text);

    decodeFoot();
    decodePositions();
    decodeSides();
    if (!positions.isEmpty())
        positions.remove(0, 1);
}

void FMD_Player::readRatings(QString &text)
{
    // The cells come in pairs of row styles, at most three pairs.
    QString name;
    QString value;
    for (int turn = 0; turn < 3; ++turn) {
        if (!takeBetween(name, text, u"<td class=\"active warning\">"_s, u"<"_s))
            break;
        // The tail of the value cell's style.
        takeBetween(value, text, u"25px;\">"_s, u"<"_s);
        storeCell(ratings, name, value);
        // A missing second cell files its value under the empty name.
        takeBetween(name, text, u"<td class=\"active\">"_s, u"<"_s);
        takeBetween(value, text, u"25px;\">"_s, u"<"_s);
        storeCell(ratings, name, value);
    }
}

void FMD_Player::readAttributes(QString &text)
{
    // Both markers are the tails of longer tags.
    QString name;
    QString value;
    while (takeBetween(name, text, u"padding-top: 10px;\">"_s, u"<"_s)) {
        takeBetween(value, text, u"veri61\">"_s, u"<"_s);
        storeCell(attributes, name, value);
        // The site shows no technique of its own for many players: it takes the
        // first touch, unless a row of its own follows.
        if (name == u"First Touch"_s)
            storeCell(attributes, u"Technique"_s, value);
    }
}

void FMD_Player::splitCommonName()
{
    if (commonName.isEmpty())
        return;
    const qsizetype blank = commonName.indexOf(u' ', 0, Qt::CaseSensitive);
    if (blank <= 0)
        return;
    firstName = commonName.left(blank);
    secondName = commonName.mid(blank + 1);
    completeName = commonName;
}

void FMD_Player::parseInternationalRecord(QString &text)
{
    if (text.isEmpty())
        return;
    QString apps;
    takeBetween(apps, text, u"</a><br />Main "_s, u" "_s);
    internationalApps += apps.toUInt();
    if (internationalApps == 0)
        return;
    QString goals;
    takeBetween(goals, text, u" / "_s, u" goal"_s);
    internationalGoals += goals.toUInt();
}

void FMD_Player::decodeFoot()
{
    if (foot.contains(u"left"_s, Qt::CaseInsensitive)) {
        leftFootRating = 20;
        rightFootRating = 1;
    } else if (foot.contains(u"either"_s, Qt::CaseInsensitive)) {
        leftFootRating = 20;
        rightFootRating = 20;
    } else {
        leftFootRating = 1;
        rightFootRating = 20;
    }
}

void FMD_Player::decodePositions()
{
    const QHash<QString, qint16> &table = positionTable();
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (positions.contains(it.key(), Qt::CaseSensitive))
            positionRatings[it.value()] = 20;
    }
    // A goalkeeper has no other position, whatever the text says.
    if (positionRatings[GK] == 20) {
        for (int slot = SW; slot <= FR; ++slot)
            positionRatings[slot] = 1;
    }
}

void FMD_Player::decodeSides()
{
    if (positions.contains(u"GK"_s, Qt::CaseSensitive))
        return;
    const bool right = positions.contains(u'R', Qt::CaseSensitive);
    const bool left = positions.contains(u'L', Qt::CaseSensitive);
    if (positions.contains(u'C', Qt::CaseSensitive))
        positionRatings[Centre] = 20;
    if (right)
        positionRatings[Right] = 20;
    if (left)
        positionRatings[Left] = 20;
    // No side letter at all counts as central.
    if (!right && !left)
        positionRatings[Centre] = 20;
}

void FMD_Player::applyHeight(const QString &centimetres)
{
    if (centimetres.size() != 3 || centimetres.toInt() <= 0)
        return;
    height = QString(centimetres).insert(1, u'.').toFloat();
}

void FMD_Player::applyNation()
{
    // Longer forms of these three names lose their other words.
    for (const QString &country : {u"South Korea"_s, u"Australia"_s, u"Macedonia"_s}) {
        if (nation1.contains(country, Qt::CaseSensitive)) {
            nation1 = country;
            return;
        }
    }
}

void FMD_Player::applyValue(QString value)
{
    float factor = 1;
    if (value.endsWith(u'K', Qt::CaseSensitive)) {
        value.chop(1);
        factor = 1000;
    } else if (value.endsWith(u'M', Qt::CaseSensitive)) {
        value.chop(1);
        factor = 1000000;
    }
    const float amount = value.toFloat() * factor;
    // Truncated toward zero; what no quint32 can hold (a negative amount among
    // them) counts as no value rather than overflowing the conversion.
    if (amount >= 0 && amount < 4294967296.0f)
        marketValue = static_cast<quint32>(amount);
    else
        marketValue = 0;
}
