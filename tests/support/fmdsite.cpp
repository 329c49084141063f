#include "tests/support/fmdsite.h"

#include "tests/support/fixtureweb.h"

using namespace Qt::StringLiterals;

QString FmdSite::listUrl(const QString &list)
{
    return u"https://fmdataba.com/19/l/7/testland-premier-league/"_s + list;
}

QString FmdSite::playerUrl(int number, const QString &name)
{
    return u"https://fmdataba.com/19/p/%1/%2/"_s.arg(number).arg(name);
}

QStringList FmdSite::playerUrls()
{
    return {
        playerUrl(1001, u"jan-smith"_s),        playerUrl(1002, u"tom-keeper"_s),
        playerUrl(1003, u"ederzito"_s),         playerUrl(1004, u"carlos-gomez"_s),
        playerUrl(1005, u"mary-jane-watson"_s), playerUrl(1006, u"lukas-brandt"_s),
        playerUrl(1007, u"ghost-keeper"_s),
    };
}

void FmdSite::route(FixtureWeb &web)
{
    web.routeFile(listUrl(u"best-players"_s), u"fmd/list_first.html"_s);
    web.routeFile(listUrl(u"best-players/1"_s), u"fmd/list_middle.html"_s);
    web.routeFile(listUrl(u"best-players/2"_s), u"fmd/list_last.html"_s);
    web.routeFile(listUrl(u"best-goalkeepers"_s), u"fmd/list_goalkeepers.html"_s);
    web.routeFile(listUrl(u"best-goalkeepers/1"_s), u"fmd/list_goalkeepers.html"_s);

    const QStringList profiles = {
        u"fmd/profile_field.html"_s,        u"fmd/profile_goalkeeper.html"_s,
        u"fmd/profile_oneword.html"_s,      u"fmd/profile_missingrating.html"_s,
        u"fmd/profile_noattributes.html"_s, u"fmd/profile_firsttouch.html"_s,
    };
    const QStringList players = playerUrls();
    for (qsizetype i = 0; i < profiles.size(); ++i)
        web.routeFile(players.at(i), profiles.at(i));
    web.routeBody(players.last(), QByteArray(), 404);
}
