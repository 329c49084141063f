#include "ep/epplayer.h"

#include "core/constants.h"
#include "core/fetch.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"

using namespace Qt::StringLiterals;

namespace {

// Record i of the list as it stands now: a test button may have cleared the
// planner's lists while the pass waited for a page.
EP_Player *playerAt(const QList<DataWrapper *> &players, qsizetype i)
{
    return i < players.size() ? dynamic_cast<EP_Player *>(players.at(i)) : nullptr;
}

} // namespace

bool EP_Player::downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list)
{
    const int n = int(list.count());

    // A record for every roster row, with what the row knows. The row's duplicate
    // index is read before the row's own duplicate search can write into a later one.
    qint16 duplicates = 0;
    for (int i = 0; i < n; ++i) {
        auto *player = new EP_Player;
        player->duplicateIndex = list.duplicateIndexAt(i);
        player->jersey = list.jerseyAt(i);
        player->team = list.teamAt(i);
        player->status = list.statusAt(i);
        if (list.markDuplicate(i)) {
            ++duplicates;
            player->isDuplicate = true;
        }
        players.append(player);
    }

    // Rows are counted, so one player on two rosters counts twice.
    if (duplicates != 0) {
        appendLog(u"%1 duplicate players(s) have been removed from the downloads list."_s.arg(
            duplicates));
    }
    appendLog(u"\nDownloading %1 player(s)"_s.arg(n));

    for (int i = 0; i < n; ++i) {
        // Every row of a slug that stands twice keeps what its roster row gave it,
        // the first row as well: none of them is fetched.
        const EP_Player *before = playerAt(players, i);
        if (!before || before->isDuplicate)
            continue;

        const QString url = EP_ROOT_URL + u"/player/%1"_s.arg(list.urlAt(i));
        QString page;
        const bool fetched = fetchPage(page, url, false, nullptr, 0, 1);

        if (!fetched) {
            appendLog(u"ERROR: Unable to access %1."_s.arg(url));
            continue;
        }
        EP_Player *player = playerAt(players, i);
        if (!player)
            continue;
        player->parsePage(page);
        appendLog(u"%1.\t%2 %3\t%4"_s.arg(i + 1, 6).arg(player->firstName, player->secondName,
                                                        player->team));
    }

    list.clear();
    return true;
}
