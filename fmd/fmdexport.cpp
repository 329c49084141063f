#include "core/csvexport.h"
#include "core/sharedstate.h"
#include "core/values.h"
#include "fmd/fmdplayer.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// The fixed titles; the table titles follow from the first record's keys.
const QStringList &fixedTitles()
{
    static const QStringList titles = {
        u"Id"_s,           u"NameInUrl"_s,
        u"First name"_s,   u"Second name"_s,
        u"Common name"_s,  u"Complete name"_s,
        u"DOB"_s,          u"Nation 1"_s,
        u"Contract end"_s, u"Value"_s,
        u"Club"_s,         u"GK"_s,
        u"SW"_s,           u"D"_s,
        u"DM"_s,           u"M"_s,
        u"AM"_s,           u"WB"_s,
        u"FR"_s,           u"Right"_s,
        u"Left"_s,         u"Centre"_s,
        u"Right Foot"_s,   u"Left Foot"_s,
        u"qint32 apps"_s,  u"qint32 goals"_s,
        u"CA"_s,           u"PA"_s,
    };
    return titles;
}

QString dateCell(const QDate &date)
{
    return date.toString(u"dd.MM.yyyy"_s);
}

void writeTable(QTextStream &stream, const QChar &separator, const QMap<QString, qint16> &table)
{
    for (auto it = table.cbegin(); it != table.cend(); ++it)
        stream << separator << it.value();
}

// One row; ascii converts the five name cells, the nation and the club.
void writePlayerRow(const FMD_Player &player, QTextStream &stream, const QChar &separator,
                    bool ascii)
{
    const auto name = [ascii](const QString &text) { return ascii ? toAsciiName(text) : text; };
    const QChar s = separator;
    using Slot = FMD_Player::Slot;

    stream << player.id << s << player.nameInUrl << s << name(player.firstName) << s
           << name(player.secondName) << s << name(player.commonName) << s
           << name(player.completeName) << s << dateCell(player.dateOfBirth) << s
           << name(player.nation1) << s << dateCell(player.contractEnd) << s << player.marketValue
           << s << name(player.club);
    // The unused slot between "AM" and "WB" has no column.
    for (const Slot slot : {FMD_Player::GK, FMD_Player::SW, FMD_Player::D, FMD_Player::DM,
                            FMD_Player::M, FMD_Player::AM, FMD_Player::WB, FMD_Player::FR,
                            FMD_Player::Right, FMD_Player::Left, FMD_Player::Centre})
        stream << s << player.positionRatings[slot];
    stream << s << player.rightFootRating << s << player.leftFootRating << s
           << player.internationalApps << s << player.internationalGoals << s
           << player.currentAbility << s << player.potentialAbility;
    writeTable(stream, s, player.ratings);
    writeTable(stream, s, player.attributes);
    stream << s << player.height << s << player.positions << s << '\n';
}

} // namespace

void FMD_Player::writeAscii(QTextStream &stream, const QChar &separator)
{
    writePlayerRow(*this, stream, separator, true);
}

void FMD_Player::writeUtf(QTextStream &stream, const QChar &separator)
{
    writePlayerRow(*this, stream, separator, false);
}

bool FMD_Player::exportPlayers(const QFileInfo &info, QList<DataWrapper *> &players,
                               const bool &utf)
{
    QTextStream stream;
    QFile *file = openCsvFile(stream, info, QString(), utf);
    if (!file)
        return false;
    const QChar separator = csvSeparator(utf);

    stream << fixedTitles().join(separator);
    // The table titles come from the first record alone.
    if (const auto *first
        = players.isEmpty() ? nullptr : dynamic_cast<FMD_Player *>(players.first())) {
        for (const QString &key : first->ratings.keys())
            stream << separator << key;
        for (const QString &key : first->attributes.keys())
            stream << separator << key;
    }
    stream << separator << u"Height (m)"_s << separator << u"Positions"_s << separator << '\n';

    for (DataWrapper *record : players) {
        if (utf)
            record->writeUtf(stream, separator);
        else
            record->writeAscii(stream, separator);
    }

    closeCsvFile(stream, file);
    return true;
}

void FMD_Player::testReport(QString &text)
{
    parsePage(text);
    const auto line = [](const QString &label, const QString &value) {
        appendLog(u"%1: %2"_s.arg(label, value));
    };
    const auto number = [](auto value) { return QString::number(value); };

    appendLog(u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s);
    appendLog(toAsciiName(u"%1: %2 %3 %4 : %5"_s.arg(u"ASCII name"_s, firstName, secondName,
                                                     commonName, completeName)));
    line(u"Forename"_s, firstName);
    line(u"Surname"_s, secondName);
    line(u"Common name"_s, commonName);
    line(u"Complete name"_s, completeName);
    line(u"Date of birth"_s, dateOfBirth.toString(Qt::TextDate));
    line(u"Nationality 1"_s, nation1);
    line(u"Height (m)"_s, u"%1"_s.arg(double(height)));
    line(u"Current club"_s, club);
    line(u"Contract end"_s, contractEnd.toString(Qt::TextDate));
    line(u"Transfer value"_s, number(marketValue));
    line(u"qint32. appearances"_s, number(internationalApps));
    line(u"qint32. goals"_s, number(internationalGoals));
    line(u"Positions"_s, positions);
    line(u"Foot"_s, foot);
    // The labels line up by their double blanks.
    const QList<QPair<QString, Slot>> grid = {
        {u"Pos  (GK): %1"_s, GK},     {u"Pos  (WB): %1"_s, WB},    {u"Pos  (SW): %1"_s, SW},
        {u"Pos (DEF): %1"_s, D},      {u"Pos  (DM): %1"_s, DM},    {u"Pos (MID): %1"_s, M},
        {u"Pos  (AM): %1"_s, AM},     {u"Pos  (FR): %1"_s, FR},    {u"Side  (L): %1"_s, Left},
        {u"Side  (C): %1"_s, Centre}, {u"Side  (R): %1"_s, Right},
    };
    for (const auto &[format, slot] : grid)
        appendLog(format.arg(positionRatings[slot]));
    for (auto it = ratings.cbegin(); it != ratings.cend(); ++it)
        line(it.key(), number(it.value()));
    for (auto it = attributes.cbegin(); it != attributes.cend(); ++it)
        line(it.key(), number(it.value()));
    line(u"CA"_s, number(currentAbility));
    line(u"PA"_s, number(potentialAbility));
    appendLog(u"--- COMPLETE ---"_s);
}
