#include "tfm/tfmplayer.h"

#include "core/playerpagelist.h"

QString TFM_Player::displayName(const QString &fallback)
{
    return fallback;
}

bool TFM_Player::downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list,
                                 bool followRedirects)
{
    Q_UNUSED(players)
    Q_UNUSED(list)
    Q_UNUSED(followRedirects)
    return true;
}
