#include "ep/epleague.h"

#include "core/constants.h"
#include "core/leaguepass.h"
#include "core/scan.h"
#include "core/sharedstate.h"

using namespace Qt::StringLiterals;

qint32 EP_League::selectedSeason = -1;

namespace {

// A pasted address keeps all that follows "/league/", a season or a trailing
// slash included; a line without it is taken for the slug as it stands.
QString leagueAddress(QString entry, qint32 season)
{
    skipPast(entry, u"/league/"_s);
    // The season decides the address form and the years come from the pass, even
    // when a test has changed the stored season meanwhile.
    if (EP_League::selectedSeason > 0)
        return EP_ROOT_URL + u"/league/"_s + entry + u'/' + QString::number(season) + u'-'
            + QString::number(qint64(season) + 1) + u"?team-history=complete#team-history"_s;
    return EP_ROOT_URL + u"/league/"_s + entry + u"?team-history=complete#team-history"_s;
}

} // namespace

void EP_League::parsePage(QString &text)
{
    takeBetween(leagueName, text, u"<title>Elite Prospects - "_s, u"</title>"_s);
    // The season alone chooses the section; a page that has only the other one
    // is not tried a second time.
    if (selectedSeason < 1)
        isolateBetween(text, u">Team Rosters<"_s, u"</ul>"_s);
    else
        isolateBetween(text, u"Standings </div>"_s, u"</table>"_s);

    // A link's slug is all up to its closing quote, with any season or query part.
    // The first empty one ends the walk.
    QString slug;
    while (takeBetween(slug, text, u"team/"_s, u"\">"_s))
        teamUrls().append(EP_ROOT_URL + u"/team/"_s + slug);
}

void EP_League::testReport(QString &text)
{
    parsePage(text);
    appendLeagueReport(leagueName, teamUrls());
}

QStringList &EP_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

bool EP_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    selectedSeason = season;
    fetchLeaguePages<EP_League>(
        leagues, urls, [season](const QString &entry) { return leagueAddress(entry, season); },
        [](const EP_League &league, qsizetype number) {
            return passLine(number, league.leagueName, teamUrls().size(), u"teams"_s);
        });
    removeDuplicateTeams(teamUrls());
    return true;
}
