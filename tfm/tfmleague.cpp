#include "tfm/tfmleague.h"

#include "core/leaguepass.h"
#include "core/scan.h"
#include "core/sharedstate.h"

using namespace Qt::StringLiterals;

namespace {

// A club link may point at the club's "spielplan" or "startseite" page; the team
// pass wants its "leistungsdaten" page. The two steps run in this order, so that
// a fixtures link goes through the home page word to the squad page word.
void fixturesToHomePage(QString &url)
{
    url.replace(u"spielplan"_s, u"startseite"_s, Qt::CaseSensitive);
}

void homeToSquadPage(QString &url)
{
    url.replace(u"startseite"_s, u"leistungsdaten"_s, Qt::CaseSensitive);
}

// The year is fixed on purpose, whatever the season of the run. A link that the
// list already holds keeps it, and the duplicate removal of the pass takes it out.
void dropSeasonUnlessListed(QString &url)
{
    if (!TFM_League::teamUrls().contains(url, Qt::CaseSensitive))
        url.replace(u"/saison_id/2019"_s, QString(), Qt::CaseSensitive);
}

// Only a club's squad page is worth a team page fetch.
void appendIfSquadPage(const QString &url)
{
    if (url.contains(u"leistungsdaten"_s, Qt::CaseSensitive))
        TFM_League::teamUrls().append(url);
}

void appendClubLink(QString url)
{
    fixturesToHomePage(url);
    homeToSquadPage(url);
    dropSeasonUnlessListed(url);
    appendIfSquadPage(url);
}

void scanClubsTable(QString &text)
{
    skipPast(text, u"</thead>"_s);
    skipPast(text, u"<tr class=\""_s);
    cutAt(text, u"</tbody>"_s);
    QString url;
    while (takeBetween(url, text, u"\" href=\""_s, u"\"><img"_s)) {
        homeToSquadPage(url);
        TFM_League::teamUrls().append(url);
        skipPast(text, u"<tr class=\""_s);
    }
}

void scanTournamentTable(QString &text)
{
    skipPast(text, u"<td class=\"zentriert no-border-rechts\">"_s);
    cutAt(text, u"footer"_s);
    QString url;
    while (takeBetween(url, text, u"href=\""_s, u"\">"_s)) {
        homeToSquadPage(url);
        TFM_League::teamUrls().append(url);
        // Each club stands in two links in a row: the second one is passed over.
        skipPast(text, u"href=\""_s);
    }
}

// The site's class attribute goes on behind this marker, so it has no closing quote.
const QString clubNameMarker = u"<span class=\"vereinsname"_s;

void scanClubLinksFromMarker(QString &text)
{
    QString url;
    while (takeBetween(url, text, u"href=\""_s, u"\">"_s)) {
        appendClubLink(url);
        if (!skipPast(text, clubNameMarker))
            break;
    }
}

void scanAllLinks(QString &text)
{
    // Finds nothing, as the caller has just looked for it in vain.
    skipPast(text, clubNameMarker);
    QString url;
    while (takeBetween(url, text, u"href=\""_s, u"\">"_s)) {
        appendClubLink(url);
        skipPast(text, clubNameMarker);
    }
}

// Drops any season or "plus" part the user pasted and asks for the season of the run.
QString seasonAddress(QString url, qint32 season)
{
    cutAt(url, u"/saison_id/"_s);
    cutAt(url, u"/plus/"_s);
    if (url.endsWith(u'/'))
        url.chop(1);
    return url + u"/plus/?saison_id="_s + QString::number(season);
}

} // namespace

void TFM_League::parsePage(QString &text)
{
    takeBetween(leagueName, text, u"\"spielername-profil\">"_s, u"<"_s);
    skipPast(text, u"<div class=\"flagge\">"_s);
    takeBetween(nation, text, u"title=\""_s, u"\""_s);

    if (skipPast(text, u"Clubs - "_s))
        scanClubsTable(text);
    else if (skipPast(text, u"TEAMS STILL REPRESENTED IN COMPETITION"_s))
        scanTournamentTable(text);
    else if (skipPast(text, clubNameMarker))
        scanClubLinksFromMarker(text);
    else
        scanAllLinks(text);
}

void TFM_League::testReport(QString &text)
{
    parsePage(text);
    appendLeagueReport(leagueName, teamUrls());
}

QStringList &TFM_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

bool TFM_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    fetchLeaguePages<TFM_League>(
        leagues, urls, [season](const QString &entry) { return seasonAddress(entry, season); },
        [](const TFM_League &league, qsizetype number) {
            return passLine(number, league.leagueName, league.nation, teamUrls().size(),
                            u"teams"_s);
        });
    removeDuplicateTeams(teamUrls());
    return true;
}
