#include "ep/epleague.h"

#include "core/constants.h"
#include "core/fetch.h"
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
    // The entries as they stand now; the caller's entries are rewritten by place.
    const QStringList entries = urls;
    appendLog(u"\nDownloading %1 league page(s)"_s.arg(entries.size()));
    selectedSeason = season;

    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QString address = leagueAddress(entries.at(i), season);
        if (i < urls.size())
            urls[i] = address;

        QString page;
        if (!fetchPage(page, address, false, nullptr, 0, 1)) {
            appendLog(u"ERROR: Unable to access %1."_s.arg(address));
            continue;
        }

        auto *league = new EP_League;
        league->parsePage(page);
        leagues.append(league);
        appendLog(passLine(leagues.size(), league->leagueName, teamUrls().size(), u"teams"_s));
    }

    removeDuplicateTeams(teamUrls());
    return true;
}
