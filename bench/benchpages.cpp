#include "bench/benchpages.h"

#include "tests/support/testsupport.h"

#include <QRegularExpression>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Neutral markup: no attribute, tag or word that any Transfer Markt scanner looks for.
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
