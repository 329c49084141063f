#include "core/datainterface.h"

#include "core/constants.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
#include "ep/epteam.h"
#include "fmd/fmdleague.h"
#include "fmd/fmdplayer.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmplayer.h"
#include "tfm/tfmteam.h"

#include <QComboBox>
#include <QFileInfo>
#include <QRegExp>

#include <cstdlib>
#include <ctime>
#include <limits>

using namespace Qt::StringLiterals;

void shuffleUrls(QStringList &urls)
{
    for (qsizetype i = 1; i < urls.size(); ++i) {
        const qsizetype j = std::rand() % (i + 1);
        if (j != i)
            urls.swapItemsAt(i, j);
    }
}

DataInterface::~DataInterface()
{
    clearRecords();
}

void DataInterface::setSeason(int i)
{
    season = i;
}

void DataInterface::fillWebsiteBox(QComboBox *box)
{
    box->insertItem(EliteProspects, u"Elite Prospects"_s);
    box->insertItem(TransferMarkt, u"Transfer Markt"_s);
    box->insertItem(FMDataba, u"FMDataba"_s);
}

const QStringList &DataInterface::fmdPageNames()
{
    static const QStringList names = {
        u"best-goalkeepers"_s,
        u"best-defenders-center"_s,
        u"best-defenders-left"_s,
        u"best-defenders-right"_s,
        u"best-wing-backs-left"_s,
        u"best-wing-backs-right"_s,
        u"best-defensive-midfielders"_s,
        u"best-midfielders-center"_s,
        u"best-midfielders-left"_s,
        u"best-midfielders-right"_s,
        u"best-attacking-midfielders-center"_s,
        u"best-attacking-midfielders-left"_s,
        u"best-attacking-midfielders-right"_s,
        u"best-strikers-center"_s,
    };
    return names;
}

bool DataInterface::startDownload(const Website &website, QStringList &urls,
                                  const bool &downloadPlayerDetails)
{
    clearRecords();
    this->website = website;

    if (!urls.isEmpty()) {
        const QString first = urls.first();

        if (first.contains(u"erweiterterkader/verein/"_s)) {
            urls.removeDuplicates();
            runNationalTeamPass(urls);
            if (downloadPlayerDetails)
                runPlayerPass(false, 0, 0);
            return true;
        }

        if (first.contains(u"profil/spieler/"_s)) {
            urls.removeDuplicates();
            std::srand(unsigned(std::time(nullptr)));
            shuffleUrls(urls);
            runPlayerUrlPass(urls);
            return true;
        }

        const QStringList parts = first.split(u'-', Qt::KeepEmptyParts, Qt::CaseSensitive);
        if (parts.size() <= 2) {
            const QString a = parts.at(0);
            const QString b = parts.size() > 1 ? parts.at(1) : QString();
            QRegExp digits(u"\\d*"_s, Qt::CaseSensitive, QRegExp::RegExp);
            if (!a.isEmpty() && !b.isEmpty() && digits.exactMatch(a) && digits.exactMatch(b)) {
                const qint32 firstId = a.toInt();
                const qint32 lastId = b.toInt();
                if (firstId <= lastId) {
                    if (downloadPlayerDetails)
                        runPlayerPass(true, firstId, lastId);
                    return true;
                }
            }
        }
    }

    if (website == FMDataba)
        expandFmdList(urls);

    runLeaguePass(urls);
    runTeamPass();
    if (downloadPlayerDetails)
        runPlayerPass(false, 0, 0);
    return true;
}

void DataInterface::expandFmdList(QStringList &urls)
{
    urls.removeDuplicates();
    const QStringList old = std::exchange(urls, QStringList());
    for (const QString &url : old) {
        urls.append(url);
        if (!url.contains(u"best-players"_s))
            continue;
        for (const QString &name : fmdPageNames())
            urls.append(QString(url).replace(u"best-players"_s, name));
    }
    urls.removeDuplicates();
}

int DataInterface::playerPageTotal(qsizetype players) const
{
    // Each player has a data page and a history page only when both are asked for.
    const qint64 total
        = includePlayerData && includePlayerHistory ? 2 * qint64(players) : qint64(players);
    return int(qMin(total, qint64(std::numeric_limits<int>::max())));
}

int DataInterface::runLeaguePass(QStringList &urls)
{
    emit pageCountIncreased(int(urls.size()));
    switch (website) {
    case TransferMarkt:
        return TFM_League::downloadLeagues(leagues, urls, season);
    case EliteProspects:
        return EP_League::downloadLeagues(leagues, urls, season);
    case FMDataba:
        return FMD_League::downloadLeagues(leagues, urls, season);
    }
    return 0;
}

int DataInterface::runTeamPass()
{
    switch (website) {
    case EliteProspects:
        emit pageCountIncreased(int(EP_League::teamUrls().size()));
        return EP_Team::downloadTeams(teams, EP_League::teamUrls());
    case TransferMarkt:
        emit pageCountIncreased(int(TFM_League::teamUrls().size()));
        return TFM_Team::downloadTeams(teams, TFM_League::teamUrls());
    case FMDataba:
        break;
    }
    return 0;
}

int DataInterface::runPlayerPass(bool idInterval, qint32 firstId, qint32 lastId)
{
    switch (website) {
    case EliteProspects:
        if (idInterval)
            return 0;
        emit pageCountIncreased(int(EP_Team::playerUrls().count()));
        return EP_Player::downloadPlayers(players, EP_Team::playerUrls());
    case FMDataba:
        if (idInterval)
            return 0;
        emit pageCountIncreased(int(FMD_League::playerUrls().size()));
        return FMD_Player::downloadPlayers(players, FMD_League::playerUrls(), false);
    case TransferMarkt:
        if (!idInterval) {
            PlayerPageList &list = TFM_Team::playerUrls();
            emit pageCountIncreased(playerPageTotal(list.count()));
            return TFM_Player::downloadPlayers(players, list, false);
        }
        // The site redirects the filler word "name" to the player's real address.
        PlayerPageList list;
        for (qint64 id = firstId; id <= lastId; ++id)
            list.append(u"/name/profil/spieler/"_s + QString::number(id));
        emit pageCountIncreased(playerPageTotal(list.count()));
        return TFM_Player::downloadPlayers(players, list, true);
    }
    return 0;
}

int DataInterface::runPlayerUrlPass(const QStringList &urls)
{
    if (website != TransferMarkt)
        return 0;
    PlayerPageList list;
    for (const QString &url : urls)
        list.append(QString(url).remove(TFM_ROOT_URL, Qt::CaseSensitive));
    emit pageCountIncreased(playerPageTotal(list.count()));
    return TFM_Player::downloadPlayers(players, list, false);
}

int DataInterface::runNationalTeamPass(QStringList &urls)
{
    if (website != TransferMarkt)
        return 0;
    for (QString &url : urls)
        url.remove(TFM_ROOT_URL, Qt::CaseSensitive);
    emit pageCountIncreased(int(urls.size()));
    return TFM_Team::downloadTeams(teams, urls);
}

bool DataInterface::saveRecords(const QString &fileName, const bool &utf)
{
    const QFileInfo info(fileName);
    switch (website) {
    case TransferMarkt:
        TFM_Player::exportPlayers(info, players, utf);
        break;
    case FMDataba:
        FMD_Player::exportPlayers(info, players, utf);
        break;
    case EliteProspects:
        EP_Team::saveTeams(info, teams, utf);
        EP_Player::savePlayers(info, players, utf);
        break;
    }
    return true;
}

bool DataInterface::record(DataWrapper *created, QList<DataWrapper *> &list, QString &text)
{
    if (!created)
        return false;
    created->testReport(text);
    list.append(created);
    return true;
}

bool DataInterface::testLeaguePage(const Website &website, QString &text)
{
    clearRecords();
    this->website = website;
    switch (website) {
    case TransferMarkt:
        return record(new TFM_League, leagues, text);
    case FMDataba:
        return record(new FMD_League, leagues, text);
    case EliteProspects:
        EP_League::selectedSeason = season;
        return record(new EP_League, leagues, text);
    }
    return false;
}

bool DataInterface::testTeamPage(const Website &website, QString &text)
{
    clearRecords();
    this->website = website;
    switch (website) {
    case TransferMarkt:
        return record(new TFM_Team, teams, text);
    case EliteProspects:
        return record(new EP_Team, teams, text);
    case FMDataba:
        break;
    }
    return false;
}

bool DataInterface::testPlayerPage(const Website &website, QString &text)
{
    clearRecords();
    this->website = website;
    switch (website) {
    case TransferMarkt:
        return record(new TFM_Player, players, text);
    case FMDataba:
        return record(new FMD_Player, players, text);
    case EliteProspects:
        return record(new EP_Player, players, text);
    }
    return false;
}

void DataInterface::clearRecords()
{
    for (QList<DataWrapper *> *list : {&leagues, &players, &teams}) {
        // Take the list out first: a record's destructor must not find itself
        // still listed if anything looks at the lists meanwhile.
        const QList<DataWrapper *> old = std::exchange(*list, {});
        qDeleteAll(old);
    }
}
