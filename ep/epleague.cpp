#include "ep/epleague.h"

qint32 EP_League::selectedSeason = -1;

void EP_League::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void EP_League::testReport(QString &text)
{
    parsePage(text);
}

QStringList &EP_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

bool EP_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    Q_UNUSED(leagues)
    Q_UNUSED(urls)
    selectedSeason = season;
    return true;
}
