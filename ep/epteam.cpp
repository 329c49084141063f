#include "ep/epteam.h"

#include "core/constants.h"
#include "core/csvexport.h"
#include "core/fetch.h"
#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"
#include "ep/teamrows.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// The value of a fact in the facts box, found behind its label anywhere ahead.
// The closing tag is left open on purpose: the value ends at "</span".
bool peekFact(QString &value, const QString &text, const QString &label)
{
    return peekBetween(value, text, label, u"<span class=\"value\">"_s, u"</span"_s);
}

void scanFacts(EP_Team &team, const QString &text)
{
    QString value;
    if (peekFact(value, text, u"Full name"_s))
        team.fullName = value;
    if (peekFact(value, text, u"Team colours"_s))
        team.colours = value;
    // Only a town in a link is read; its ", " become ":".
    QString town;
    if (peekFact(value, text, u"Town"_s) && takeBetween(town, value, u">"_s, u"</a"_s))
        team.city = town.replace(u", "_s, u":"_s, Qt::CaseInsensitive);
    if (peekFact(value, text, u"Founded"_s))
        team.founded = static_cast<qint16>(parseMoney(value));
}

void scanRosterRow(QString &roster, const QString &teamName)
{
    // The two outs are overwritten and never searched for: both flags say only
    // that a link of the site's old form, with an image behind it, stands
    // somewhere ahead in the roster, in this row or a later one.
    QString captainImage = u"/c.png"_s;
    QString alternateImage = u"/a.png"_s;
    const QString oldLink = u"<a href=\"player.php?player="_s;
    const bool captain = peekBetween(captainImage, roster, oldLink, u"<img"_s, u"<"_s);
    const bool alternate = peekBetween(alternateImage, roster, oldLink, u"<img"_s, u"<"_s);

    QString jersey;
    takeBetween(jersey, roster, u"<td class=\"jersey\">"_s, u"</td>"_s);
    QString slug;
    takeBetween(slug, roster, u"<a href=\""_s + EP_ROOT_URL + u"/player/"_s, u"\""_s);
    QString name;
    takeBetween(name, roster, u">"_s, u"("_s);
    QString position;
    takeUntil(position, roster, u")"_s);
    QString dateOfBirth;
    takeBetween(dateOfBirth, roster, u"<td class=\"date-of-birth\">"_s, u"</td>"_s);
    // Read to move on, then dropped: the roster row keeps no birth place.
    skipPast(roster, u"<td class=\"birthplace\">"_s);
    QString birthPlace;
    takeBetween(birthPlace, roster, u">"_s, u"</a>"_s);
    QString height;
    takeBetween(height, roster, u"<td class=\"height\">"_s, u"</td>"_s);
    QString weight;
    takeBetween(weight, roster, u"<td class=\"weight\">"_s, u"</td>"_s);
    QString stickSide;
    takeBetween(stickSide, roster, u"<td class=\"shoots\">"_s, u"</td>"_s);
    QString contract;
    takeBetween(contract, roster, u"<td class=\"contract\">"_s, u"</td>"_s);

    EP_Team::playerUrls().addRosterEntry(slug, name, dateOfBirth, height, weight, position,
                                         stickSide, jersey, teamName, contract, captain, alternate);
}

// The names go through convert; the colours never do.
template<typename Convert>
void writeTeamRow(const EP_Team &team, QTextStream &stream, const QChar &s, Convert convert)
{
    stream << convert(team.teamName) << s << convert(team.fullName) << s << convert(team.city) << s
           << team.founded << s << team.colours << '\n';
}

// Each file's records: the teams themselves, or the rows of each team in turn.
template<typename Rows>
void writeRecords(QList<DataWrapper *> &teams, QTextStream &stream, const QChar &separator,
                  const bool &utf, Rows rowsOf)
{
    for (DataWrapper *record : teams) {
        auto *team = dynamic_cast<EP_Team *>(record);
        if (!team)
            continue;
        for (DataWrapper &row : rowsOf(*team)) {
            if (utf)
                row.writeUtf(stream, separator);
            else
                row.writeAscii(stream, separator);
        }
    }
}

} // namespace

void EP_Team::writeAscii(QTextStream &stream, const QChar &separator)
{
    writeTeamRow(*this, stream, separator, toAsciiName);
}

void EP_Team::writeUtf(QTextStream &stream, const QChar &separator)
{
    writeTeamRow(*this, stream, separator, asItStands);
}

void EP_Team::parsePage(QString &text)
{
    takeBetween(teamName, text, u"<title>Elite Prospects - "_s, u"</title>"_s);
    skipPast(text, u"Team Facts"_s);
    scanFacts(*this, text);

    // The page text loses all through the roster's foot; without the roster it
    // stays whole for the history scan.
    QString roster;
    takeBetween(roster, text, u"#roster"_s, u"<tfoot>"_s);
    // Exactly "<tr>": a row with attributes in its tag is passed over.
    while (skipPast(roster, u"<tr>"_s))
        scanRosterRow(roster, teamName);

    scanTeamHistory(histories, text, teamName);
    // Goes on with what the history scan left of the text.
    scanRetiredNumbers(retiredNumbers, text, teamName);
}

void EP_Team::testReport(QString &text)
{
    parsePage(text);
    appendLog(u"--- TESTING TEAM ROSTER WEBPAGE ---"_s);
    // The whole line is made Ascii, not only the names.
    appendLog(toAsciiName(u"%1: %2 (%3)"_s.arg(u"ASCII names"_s, teamName, fullName)));
    appendLog(u"%1: %2 (%3)"_s.arg(u"UTF names"_s, teamName, fullName));
    appendLog(u"%1: %2"_s.arg(u"City"_s, city));
    appendLog(u"%1: %2"_s.arg(u"Founded"_s, QString::number(founded)));
    appendLog(u"%1: %2"_s.arg(u"Colours"_s, colours));
    appendLog(u"%1: %2"_s.arg(u"Player entries"_s, QString::number(playerUrls().count())));
    appendLog(u"%1: %2"_s.arg(u"History entries"_s, QString::number(histories.size())));
    appendLog(u"%1:  %2"_s.arg(u"History sample"_s, teamHistorySample(histories, 0)));
    appendLog(u"%1: %2"_s.arg(u"Retired numbers"_s, QString::number(retiredNumbers.size())));
    appendLog(u"%1: %2"_s.arg(u"Ret. no. sample"_s, retiredNumberSample(retiredNumbers, 0)));
}

PlayerPageList &EP_Team::playerUrls()
{
    static PlayerPageList list;
    return list;
}

bool EP_Team::downloadTeams(QList<DataWrapper *> &teams, QStringList &urls)
{
    // A copy: the list passed in is the league class's own, which a test of a
    // league page can grow while a fetch waits.
    const QStringList addresses = urls;
    appendLog(u"\nDownloading %1 team page(s)"_s.arg(addresses.size()));

    for (const QString &address : addresses) {
        QString page;
        if (!fetchPage(page, address, false, nullptr, 0, 1)) {
            appendLog(u"ERROR: Unable to access %1"_s.arg(address));
            continue;
        }

        auto *team = new EP_Team;
        team->parsePage(page);
        teams.append(team);
        appendLog(passLine(teams.size(), team->teamName, playerUrls().count(), u"players"_s));
    }
    return true;
}

bool EP_Team::saveTeams(const QFileInfo &info, QList<DataWrapper *> &teams, const bool &utf)
{
    writeCsvFile(info, u"_clubs"_s, utf,
                 {u"Name"_s, u"Full Name"_s, u"City"_s, u"Founded"_s, u"Colours"_s},
                 [&](QTextStream &stream, const QChar &separator) {
                     for (DataWrapper *team : teams) {
                         if (!team)
                             continue;
                         if (utf)
                             team->writeUtf(stream, separator);
                         else
                             team->writeAscii(stream, separator);
                     }
                 });

    // The overtime wins stand twice, under the same title.
    writeCsvFile(info, u"_club_histories"_s, utf,
                 {u"Team"_s, u"League"_s, u"Season"_s, u"Position"_s, u"GP"_s, u"W"_s, u"T"_s,
                  u"L"_s, u"OTW"_s, u"OTW"_s, u"GF"_s, u"GA"_s, u"Points"_s,
                  u"Post Season Outcome"_s, u"Actual Name"_s},
                 [&](QTextStream &stream, const QChar &separator) {
                     writeRecords(
                         teams, stream, separator, utf,
                         [](EP_Team &team) -> QList<EP_TeamHistory> & { return team.histories; });
                 });

    writeCsvFile(info, u"_retired_numbers"_s, utf,
                 {u"Team"_s, u"Number"_s, u"First Name"_s, u"Second Name"_s},
                 [&](QTextStream &stream, const QChar &separator) {
                     writeRecords(teams, stream, separator, utf,
                                  [](EP_Team &team) -> QList<EP_RetiredNumber> & {
                                      return team.retiredNumbers;
                                  });
                 });
    return true;
}
