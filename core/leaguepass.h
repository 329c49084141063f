#pragma once

#include "core/datawrapper.h"
#include "core/fetch.h"
#include "core/sharedstate.h"

#include <QList>
#include <QStringList>

// The walk of a league pass, the same for every site: each entry of urls becomes
// the page address that addressOf makes of it, in the caller's list as well, and
// each page that comes in is scanned into a new League record with the log line
// that lineOf makes of it. A page that can't be fetched leaves its error line and
// no record.
template<typename League, typename AddressOf, typename LineOf>
void fetchLeaguePages(QList<DataWrapper *> &leagues, QStringList &urls, AddressOf addressOf,
                      LineOf lineOf)
{
    using namespace Qt::StringLiterals;
    // The entries as they stand now: the caller's list may change during a wait.
    const QStringList entries = urls;
    appendLog(u"\nDownloading %1 league page(s)"_s.arg(entries.size()));

    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QString address = addressOf(entries.at(i));
        if (i < urls.size())
            urls[i] = address;

        QString page;
        if (!fetchPage(page, address, false, nullptr, 0, 1)) {
            appendLog(u"ERROR: Unable to access %1."_s.arg(address));
            continue;
        }

        auto *league = new League;
        league->parsePage(page);
        leagues.append(league);
        appendLog(lineOf(*league, leagues.size()));
    }
}
