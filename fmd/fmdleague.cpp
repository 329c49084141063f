#include "fmd/fmdleague.h"

#include "core/fetch.h"
#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString linkStart = u"href=\""_s;
const QString linkEnd = u"\" title="_s;

// The player link of a table row: its style attribute comes first; the small
// span behind the link closes the row, and the site goes on with its style text
// behind the marker.
const QString rowStart = u"font-size:13px;"_s;
const QString rowEnd = u"</a><span style=\"font-size:x-small; display: block;"_s;

} // namespace

void FMD_League::parsePage(QString &text)
{
    skipPast(text, u"<th class=\"hidden-xs\">"_s);
    // The text ends with the pagination bar and the "<" of its closing tag.
    cutAt(text, u"</nav>"_s);

    QString row;
    while (takeBetween(row, text, rowStart, rowEnd)) {
        // A row without the link markers still adds what is left of it.
        isolateBetween(row, linkStart, linkEnd);
        // Duplicates stay until the list has ended.
        playerUrls().append(row);
    }

    // The next page's link is the first one behind "Previous".
    skipPast(text, u"<nav"_s);
    skipPast(text, u"Previous"_s);
}

void FMD_League::testReport(QString &text)
{
    parsePage(text);
    const QStringList urls = playerUrls();
    appendLog(u"--- TESTING LEAGUE WEBPAGE ---"_s);
    appendLog(u"%1: %2"_s.arg(u"League"_s, toAsciiName(leagueName)));
    appendLog(u"%1: %2"_s.arg(u"Players"_s, QString::number(qint32(urls.size()))));
    for (qsizetype i = 0; i < urls.size(); ++i)
        appendLog(u"Player %1: %2"_s.arg(QString::number(i + 1), urls.at(i)));
}

QStringList &FMD_League::playerUrls()
{
    static QStringList urls;
    return urls;
}

QStringList &FMD_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

qint32 FMD_League::pageOfAddress(const QString &url)
{
    const qsizetype start = url.lastIndexOf(u'/', -1, Qt::CaseSensitive) + 1;
    if (start >= url.size())
        return 0;
    return url.mid(start).toInt();
}

qint32 FMD_League::lastPageOfHeading(QString &page)
{
    QString heading;
    takeBetween(heading, page, u"Profiles"_s, u"/h1>"_s);
    // A heading without a page clause leaves just the "<" of its closing tag.
    if (heading == u"<"_s)
        return 1;
    QString number;
    takeBetween(number, heading, u", page "_s, u"<"_s);
    const qint32 last = number.toInt();
    return last == 0 ? 1 : last;
}

bool FMD_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    // The year is part of the addresses.
    Q_UNUSED(season)
    appendLog(u"\nDownloading %1 league page(s)"_s.arg(urls.size()));

    for (qsizetype i = 0; i < urls.size(); ++i) {
        // Owned here until the list has ended: a test button may clear the
        // planner's lists while a page is awaited.
        auto league = std::make_unique<FMD_League>();
        QString url = urls.at(i);

        while (!url.isEmpty()) {
            QString page;
            if (!fetchPage(page, url, false, nullptr, 0, 1)) {
                appendLog(u"ERROR: Unable to access %1."_s.arg(url));
                break;
            }

            const qint32 current = pageOfAddress(url);
            skipPast(page, u"<div class=\"panel-heading\"><h1>FM "_s);
            // The site's edition stands in the heading; the last page read names the list.
            takeBetween(league->leagueName, page, u"2019 "_s, u" Best"_s);
            if (current >= lastPageOfHeading(page))
                break;

            league->parsePage(page);
            // The walk goes on with the next page's address in place of this one; a
            // page without one leaves a null address and ends the walk.
            takeBetween(url, page, linkStart, linkEnd);
            if (i < urls.size())
                urls[i] = url;
            if (url.isEmpty())
                break;
            addExpectedPage();
        }

        playerUrls().removeDuplicates();
        // Once any list has found a player, every further list gets its record and line.
        if (playerUrls().isEmpty())
            continue;
        FMD_League *added = league.release();
        leagues.append(added);
        appendLog(passLine(leagues.size(), added->leagueName, added->nation, playerUrls().size(),
                           u"total unique players from all leagues so far"_s));
    }
    return true;
}
