#include "core/csvexport.h"
#include "ep/epplayer.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// The titles of the player layout that writeAsciiRow and writeUtfRow write. The
// file itself holds the base class's line for each record below them.
const QStringList &playerTitles()
{
    static const QStringList titles = {
        u"Duplicate?"_s,      u"First Name"_s, u"Second Name"_s, u"DOB"_s,
        u"Nation 1"_s,        u"Nation 2"_s,   u"Birth Place"_s, u"Team"_s,
        u"Contract Expiry"_s, u"Position"_s,   u"Stick Side"_s,  u"Jersey #"_s,
        u"Height"_s,          u"Weight"_s,     u"Cap Hit"_s,     u"NHL Draft"_s,
        u"Status"_s,          u"Age"_s,        u"Int. GP"_s,     u"Int. G"_s,
        u"Int. A"_s,
    };
    return titles;
}

// The apostrophe in front of "+/-" belongs to the title; seven titles from "Mins"
// on stay empty in every line.
const QStringList &playerHistoryTitles()
{
    static const QStringList titles = {
        u"First Name"_s,
        u"Second Name"_s,
        u"Date of Birth"_s,
        u"On Loan"_s,
        u"Playoffs"_s,
        u"Year"_s,
        u"Club"_s,
        u"Competition"_s,
        u"GP"_s,
        u"G"_s,
        u"A"_s,
        u"PIM"_s,
        u"'+/-"_s,
        u"Mins"_s,
        u"GA"_s,
        u"SO"_s,
        u"W"_s,
        u"L"_s,
        u"T/OT"_s,
        u"Saves"_s,
        u"Captain"_s,
        u"Alt Capt"_s,
        u"Playoff Type"_s,
        u"Age Type"_s,
        u"Int'l"_s,
        u"GAA"_s,
        u"Sv%"_s,
    };
    return titles;
}

void writeRecord(DataWrapper &record, QTextStream &stream, const QChar &separator, bool utf)
{
    if (utf)
        record.writeUtf(stream, separator);
    else
        record.writeAscii(stream, separator);
}

} // namespace

bool EP_Player::savePlayers(const QFileInfo &info, QList<DataWrapper *> &players, const bool &utf)
{
    // Every record writes through the base class: the line it prints is the base
    // class's own, duplicates and unread players included.
    writeCsvFile(info, u"_players"_s, utf, playerTitles(),
                 [&players, utf](QTextStream &stream, const QChar &separator) {
                     for (DataWrapper *record : std::as_const(players)) {
                         if (record)
                             writeRecord(*record, stream, separator, utf);
                     }
                 });

    writeCsvFile(info, u"_player_histories"_s, utf, playerHistoryTitles(),
                 [&players, utf](QTextStream &stream, const QChar &separator) {
                     for (DataWrapper *record : std::as_const(players)) {
                         auto *player = dynamic_cast<EP_Player *>(record);
                         if (!player)
                             continue;
                         for (EP_PlayerHistory &row : player->histories)
                             writeRecord(row, stream, separator, utf);
                     }
                 });
    return true;
}
