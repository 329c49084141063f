#include "core/fetch.h"
#include "core/scan.h"
#include "core/sharedstate.h"
#include "fmd/fmdplayer.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// One numbered log line of a fetched profile; a player without a page title
// shows his two name parts instead.
QString progressLine(const FMD_Player &player, int number)
{
    const QString counter = u"%1"_s.arg(number, 6) + u".\t"_s;
    if (!player.commonName.isEmpty())
        return counter + player.commonName;
    return counter + player.firstName + u' ' + player.secondName;
}

} // namespace

bool FMD_Player::downloadPlayers(QList<DataWrapper *> &players, const QStringList &urls,
                                 bool followRedirects)
{
    appendLog(u"\nDownloading %1 unique player page(s)"_s.arg(urls.size()));

    int count = 0;
    // By index over the live list: a league test pressed while a page is awaited
    // appends to it, and the walk takes those addresses in as well.
    for (qsizetype i = 0; i < urls.size(); ++i) {
        const QString url = urls.at(i);
        QString page;
        // The list page gave complete addresses: nothing is joined to them.
        if (!fetchSitePage(page, QString(), url, followRedirects, nullptr, 0, 1)) {
            appendLog(u"ERROR: Unable to access %1"_s.arg(url));
            continue;
        }

        auto player = std::make_unique<FMD_Player>();
        player->parsePage(page);
        // A profile address reads ".com/19/p/<number>/<name>/".
        peekBetween(player->id, url, u".com"_s, u"19/p/"_s, u"/"_s);
        peekBetween(player->nameInUrl, url, player->id, u"/"_s, u"/"_s);

        FMD_Player *added = player.release();
        players.append(added);
        ++count;
        appendLog(progressLine(*added, count));
    }
    return true;
}
