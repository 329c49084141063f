#include "bench/benchpages.h"

#include <QRegularExpression>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Neutral markup: no attribute, tag or word that any scanner of the two sites looks for.
const QString fillerBlock
    = uR"(<div class="tm-filler-row"><span class="tm-filler">Lorem ipsum dolor sit amet, consectetur adipiscing elit, sed do eiusmod tempor incididunt ut labore et dolore magna aliqua.</span></div>
<script>window.tmFiller = window.tmFiller || []; window.tmFiller.push({"k": 1234, "v": "lorem ipsum dolor"});</script>
)"_s;

QString filler(qsizetype bytes)
{
    const qsizetype blockBytes = fillerBlock.toUtf8().size();
    const qsizetype blocks = bytes > 0 ? (bytes + blockBytes - 1) / blockBytes : 0;
    return fillerBlock.repeated(blocks);
}

void insertAfter(QString &page, const QString &marker, const QString &text)
{
    const qsizetype at = page.indexOf(marker);
    if (at < 0)
        page.prepend(text);
    else
        page.insert(at + marker.size(), text);
}

void insertBefore(QString &page, const QString &marker, const QString &text)
{
    const qsizetype at = page.lastIndexOf(marker);
    if (at < 0)
        page.append(text);
    else
        page.insert(at, text);
}

} // namespace

QString padPage(const QString &page, qsizetype targetBytes)
{
    const qsizetype missing = targetBytes - page.toUtf8().size();
    if (missing <= 0)
        return page;
    QString padded = page;
    insertAfter(padded, u"<head>"_s, filler(missing * 4 / 10));
    insertAfter(padded, u"</header>"_s, filler(missing * 3 / 10));
    insertBefore(padded, u"</body>"_s, filler(missing - missing * 4 / 10 - missing * 3 / 10));
    return padded;
}

QString leaguePage(const QStringList &clubPaths, qsizetype targetBytes)
{
    QString rows;
    for (qsizetype i = 0; i < clubPaths.size(); ++i) {
        const QString name = u"Club %1"_s.arg(i + 1);
        rows
            += uR"(<tr class="%1"><td class="zentriert no-border-rechts"><a title="%2" href="%3"><img src="/wappen/%4.png" alt="%2" /></a></td><td class="hauptlink no-border-links"><a title="%2" href="%3">%2</a></td><td class="zentriert">25</td><td class="rechts">€54.10m</td></tr>
)"_s.arg(i % 2 ? u"even"_s : u"odd"_s, name, clubPaths.at(i), QString::number(i + 1));
    }
    QString page = fixtureText(u"tfm/harvest_league.html"_s);
    static const QRegularExpression body(u"<tbody>.*</tbody>"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    page.replace(body, u"<tbody>\n"_s + rows + u"</tbody>"_s);
    return padPage(page, targetBytes);
}

QString squadPage(const QString &clubName, const QStringList &playerPaths, qsizetype targetBytes)
{
    QString rows;
    for (qsizetype i = 0; i < playerPaths.size(); ++i) {
        rows
            += uR"(<tr class="%1"><td class="zentriert rueckennummer">%2</td><td class="posrela"><table class="inline-table"><tr><td class="hauptlink"><a href="%3">Player %2</a></td></tr><tr><td>Centre-Forward</td></tr></table></td><td class="zentriert">25</td><td class="zentriert"><img src="/flagge/1.png" title="Testland" alt="Testland" class="flaggenrahmen" /></td><td class="zentriert">30</td></tr>
)"_s.arg(i % 2 ? u"even"_s : u"odd"_s, QString::number(i + 1), playerPaths.at(i));
    }
    QString page = fixtureText(u"tfm/harvest_team_alpha.html"_s);
    page.replace(u"FC Alpha"_s, clubName);
    static const QRegularExpression body(u"<tbody>.*</tbody>"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    page.replace(body, u"<tbody>\n"_s + rows + u"</tbody>"_s);
    return padPage(page, targetBytes);
}

QString profilePage(qsizetype targetBytes)
{
    return padPage(fixtureText(u"tfm/harvest_player_smith.html"_s), targetBytes);
}

QString historyPage(qsizetype targetBytes)
{
    return padPage(fixtureText(u"tfm/harvest_history_smith.html"_s), targetBytes);
}

QString fmdListPage(const QStringList &playerUrls, qsizetype targetBytes)
{
    QString rows;
    for (qsizetype i = 0; i < playerUrls.size(); ++i) {
        rows
            += uR"(<tr><td>%1</td><td><img src="/img/faces/%1.png" alt="" width="20" /> <a style="font-size:13px;" href="%2" title="Player %1">Player %1</a><span style="font-size:x-small; display: block;">Testland</span></td><td class="hidden-xs">ST (C)</td><td class="hidden-xs">FC %1</td></tr>
)"_s.arg(QString::number(i + 1), playerUrls.at(i));
    }
    QString page = fixtureText(u"fmd/list_first.html"_s);
    static const QRegularExpression body(u"<tbody>.*</tbody>"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    page.replace(body, u"<tbody>\n"_s + rows + u"</tbody>"_s);
    return padPage(page, targetBytes);
}

QString fmdProfilePage(qsizetype targetBytes)
{
    return padPage(fixtureText(u"fmd/profile_field.html"_s), targetBytes);
}

namespace {

// Replaces the table body number index (from 0) of page by rows.
void replaceTableBody(QString &page, int index, const QString &rows)
{
    qsizetype start = -1;
    for (int i = 0; i <= index; ++i)
        start = page.indexOf(u"<tbody>"_s, start + 1);
    const qsizetype end = page.indexOf(u"</tbody>"_s, start);
    if (start < 0 || end < 0)
        qFatal("the page has no table body %d", index);
    page.replace(start, end - start, u"<tbody>\n"_s + rows);
}

} // namespace

QString epLeaguePage(int teams, qsizetype targetBytes)
{
    QString rows;
    for (int i = 1; i <= teams; ++i) {
        rows
            += uR"(<tr><td class="rank">%1</td><td class="team"><a href="https://www.eliteprospects.com/team/%1/club-%1/2019-2020">Club %1</a></td><td class="gp">52</td><td class="tp">%2</td></tr>
)"_s.arg(QString::number(i), QString::number(100 - i));
    }
    QString page = fixtureText(u"ep/league_standings.html"_s);
    replaceTableBody(page, 0, rows);
    return padPage(page, targetBytes);
}

QString epTeamPage(int rosterRows, int historyRows, qsizetype targetBytes, int firstPlayer)
{
    QString roster;
    for (int i = 1; i <= rosterRows; ++i) {
        roster += uR"(<tr>
<td class="jersey">%1</td>
<td class="name"><a href="https://www.eliteprospects.com/player/%2/player-%1">Player Number%1 (F)</a></td>
<td class="date-of-birth">1996-04-12</td>
<td class="birthplace"><a href="https://www.eliteprospects.com/search/player?birthplace=Oslo">Oslo, NOR</a></td>
<td class="height">183</td>
<td class="weight">88</td>
<td class="shoots">L</td>
<td class="contract">21/22</td>
</tr>
)"_s.arg(QString::number(i), QString::number(firstPlayer - 1 + i));
    }
    QString history;
    for (int i = 0; i < historyRows; ++i) {
        const int year = 2019 - i;
        history += uR"(<tr>
<td class="season"><a href="https://www.eliteprospects.com/team/101/oslo-hawks/%1-%2">%1-%3</a></td>
<td class="league"><a href="https://www.eliteprospects.com/league/testland-hockey-league/%1-%2">THL</a></td>
<td class="gp">52</td><td class="w">30</td><td class="t">2</td><td class="l">15</td><td class="otw">3</td><td class="otl">2</td><td class="gf">170</td><td class="ga">130</td><td class="tp">97</td>
<td class="rank ">2</td>
<td class="postseason">Lost in Final</td>
</tr>
)"_s.arg(QString::number(year), QString::number(year + 1),
         QString::number((year + 1) % 100).rightJustified(2, u'0'));
    }
    QString page = fixtureText(u"ep/team_full.html"_s);
    replaceTableBody(page, 0, roster);
    replaceTableBody(page, 1, history);
    return padPage(page, targetBytes);
}

QString epPlayerPage(int careerRows, qsizetype targetBytes)
{
    QString rows;
    for (int i = 0; i < careerRows; ++i) {
        const int year = 2000 + i;
        rows += uR"(<tr class="team-continent-EU">
<td class="season sorted">%1-%2</td>
<td class="team"><span class="txt-blue"><a href="https://www.eliteprospects.com/team/%3/club-%3/%1-%4?tab=stats">Club %3</a></span></td>
<td class="league"><a href="https://www.eliteprospects.com/league/league-%3/stats/%1-%4">League %3</a></td>
<td class="regular gp">%5</td><td class="regular g">7</td><td class="regular a">21</td><td class="regular tp">28</td><td class="regular pim">30</td><td class="regular pm">-4</td>
<td class="separator"></td>
<td class="playoffs"><a href="https://www.eliteprospects.com/league/league-%3/stats/playoffs/%1-%4">Playoffs</a></td>
<td class="playoffs gp">12</td><td class="playoffs g">2</td><td class="playoffs a">6</td><td class="playoffs tp">8</td><td class="playoffs pim">10</td><td class="playoffs pm">3</td>
</tr>
)"_s.arg(QString::number(year), QString::number(year + 1).right(2), QString::number(i % 7 + 1),
         QString::number(year + 1), QString::number(40 + i));
    }
    // The international totals come first; the career table is the second body.
    QString page = fixtureText(u"ep/player_skater.html"_s);
    replaceTableBody(page, 1, rows);
    return padPage(page, targetBytes);
}

double peakResidentMegabytes()
{
    rusage usage{};
    if (getrusage(RUSAGE_SELF, &usage) != 0)
        return 0;
    // Linux gives kilobytes.
    return double(usage.ru_maxrss) / 1024.0;
}

double residentMegabytes()
{
    // The second field of statm: resident pages.
    std::FILE *statm = std::fopen("/proc/self/statm", "r");
    if (!statm)
        return 0;
    long size = 0;
    long resident = 0;
    const int read = std::fscanf(statm, "%ld %ld", &size, &resident);
    std::fclose(statm);
    if (read != 2)
        return 0;
    return double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}
