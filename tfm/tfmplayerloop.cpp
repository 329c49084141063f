#include "tfm/tfmplayer.h"

#include "core/constants.h"
#include "core/fetch.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The last segment of a player path: the site's id of the player.
QString idOfPath(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/', -1, Qt::CaseSensitive) + 1);
}

// The first segment of a player path, the name slug; the whole path when it has no
// first segment of its own.
QString nameOfPath(const QString &path)
{
    if (path.size() < 2)
        return path;
    const qsizetype slash = path.indexOf(u'/', 1, Qt::CaseSensitive);
    if (slash <= 1)
        return path;
    return path.mid(1, slash - 1);
}

// One numbered log line of a fetched page; a player with a single name shows it alone.
QString pageLine(const TFM_Player &player, int number, const QString &what)
{
    if (!player.commonName.isEmpty())
        return u"%1.\t%2 "_s.arg(number, 6).arg(player.commonName) + what;
    return u"%1.\t%2 %3 "_s.arg(number, 6).arg(player.firstName, player.secondName) + what;
}

} // namespace

QString TFM_Player::displayName(const QString &fallback)
{
    if (!firstName.isEmpty() && !secondName.isEmpty())
        return firstName + u' ' + secondName;
    if (!firstName.isEmpty() && secondName.isEmpty() && commonName.isEmpty())
        return firstName;
    if (firstName.isEmpty() && commonName.isEmpty()) {
        // The only name a player of the history-only mode ever gets.
        commonName = fallback;
        return commonName;
    }
    return commonName;
}

bool TFM_Player::downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list,
                                 bool followRedirects)
{
    // A copy: a test button can grow the shared list while a page is awaited.
    const QStringList paths = list.urls;
    const qsizetype n = paths.size();

    const qsizetype dataPages = historyOnlyMode() ? 0 : n;
    const qsizetype historyPages = includePlayerHistory ? n : 0;
    appendLog(u"\nDownloading %1 player data page(s) and %2 player history page(s). "
              u"Total page(s): %3"_s.arg(dataPages)
                  .arg(historyPages)
                  .arg(dataPages + historyPages));

    if (paths.isEmpty())
        return true;

    int count = 0;
    for (const QString &path : paths) {
        // Owned here until all its pages are in: a test button may clear the
        // planner's lists while this pass waits for a page.
        auto player = std::make_unique<TFM_Player>();

        // The options are read afresh for each player: a test pressed during a run
        // takes them in anew.
        if (!historyOnlyMode()) {
            QString page;
            QString error;
            if (!fetchSitePage(page, TFM_ROOT_URL, path, followRedirects, &error, 7, 10)) {
                appendLog(u"ERROR: Unable to access %1: %2"_s.arg(path, error));
                continue;
            }
            player->parsePage(page);

            player->id = idOfPath(path);
            // An interval's path holds a filler word in place of the name.
            if (!followRedirects)
                player->nameInUrl = nameOfPath(path);

            appendLog(pageLine(*player, count + 1, u"player data"_s));
            ++count;
        }

        if (includePlayerHistory) {
            const QString historyPath = QString(path).replace(
                u"profil"_s, u"detaillierteleistungsdaten"_s, Qt::CaseSensitive);
            QString name;
            QString date;
            TFM_History::downloadHistory(player->history, historyPath, name, date);

            player->displayName(name);
            if (!player->dateOfBirth.isValid())
                player->dateOfBirth = QDate::fromString(date, dateFormat);

            appendLog(pageLine(*player, count + 1, u"player history"_s));
            ++count;
        }

        players.append(player.release());
    }
    return true;
}
