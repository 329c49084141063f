#include "tfm/tfmteam.h"

void TFM_Team::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void TFM_Team::testReport(QString &text)
{
    parsePage(text);
}

PlayerPageList &TFM_Team::playerUrls()
{
    static PlayerPageList list;
    return list;
}

bool TFM_Team::downloadTeams(QList<DataWrapper *> &teams, const QStringList &urls)
{
    Q_UNUSED(teams)
    Q_UNUSED(urls)
    return true;
}
