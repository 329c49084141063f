#include "tfm/tfmteam.h"

#include "core/constants.h"
#include "core/fetch.h"
#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"

using namespace Qt::StringLiterals;

namespace {

// A club page names its league in one of three page layouts; the first whose
// box is found decides, and none found leaves the league empty.
void scanClubLeague(QString &league, QString &text)
{
    if (skipPast(text, u"<div class=\"dataZusatzImage\">"_s))
        takeBetween(league, text, u"alt=\""_s, u"\" class="_s);
    else if (skipPast(text, u"<div class=\"wettbewerbLink\">"_s))
        takeBetween(league, text, u"<a title=\""_s, u"\" class="_s);
    else if (skipPast(text, u"<div class=\"data-header__box--big\">"_s))
        takeBetween(league, text, u"alt=\""_s, u"\" height="_s);
}

} // namespace

void TFM_Team::parsePage(QString &text)
{
    // The title alone tells a national team's extended squad from a club's squad.
    const bool extended = takeBetween(teamName, text, u"<title>"_s, u" - Extended"_s);
    QString section;
    if (extended) {
        leagueName = teamName;
        section = u"Extended Squad "_s;
    } else {
        takeBetween(teamName, text, u"<title>"_s, u" - Club"_s);
        scanClubLeague(leagueName, text);
        section = u"content-box-headline"_s;
    }

    skipPast(text, section);
    skipPast(text, u"</thead>"_s);
    // A club page ends its squad where the link to the detailed squad stands.
    cutAt(text, extended ? u"</tbody>"_s : u"Detailed squad"_s);

    // The extended squad page writes this class without quotes, the club page with them.
    const QString cell = extended ? u"<td class=hauptlink>"_s : u"<td class=\"hauptlink\">"_s;
    QString link;
    while (takeBetween(link, text, cell, u"</a>"_s)) {
        isolateBetween(link, u"href=\""_s, u"\">"_s);
        playerUrls().append(link);
    }
}

void TFM_Team::testReport(QString &text)
{
    parsePage(text);
    appendLog(u"--- TESTING TEAM ROSTER WEBPAGE ---"_s);
    appendLog(toAsciiName(u"%1: %2"_s.arg(u"ASCII name"_s, teamName)));
    appendLog(u"%1: %2"_s.arg(u"UTF name"_s, teamName));
    appendLog(u"%1: %2"_s.arg(u"League"_s, leagueName));
    appendLog(u"%1: %2"_s.arg(u"Player entries"_s, QString::number(playerUrls().count())));
}

PlayerPageList &TFM_Team::playerUrls()
{
    static PlayerPageList list;
    return list;
}

bool TFM_Team::downloadTeams(QList<DataWrapper *> &teams, const QStringList &urls)
{
    // A copy: the list passed in may be the league class's own, which a test of a
    // league page can grow while a fetch waits.
    const QStringList addresses = urls;
    appendLog(u"\nDownloading %1 team page(s)"_s.arg(addresses.size()));

    for (const QString &address : addresses) {
        QString page;
        if (!fetchSitePage(page, TFM_ROOT_URL, address, false, nullptr, 0, 1)) {
            appendLog(u"ERROR: Unable to access %1"_s.arg(address));
            continue;
        }

        auto *team = new TFM_Team;
        team->parsePage(page);
        teams.append(team);
        appendLog(passLine(teams.size(), team->teamName + u" ("_s + address + u")"_s,
                           team->leagueName, playerUrls().count(), u"players"_s));
    }
    return true;
}
