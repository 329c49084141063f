#include "tests/support/harvestsite.h"

#include "app/mainwindow.h"
#include "core/constants.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmteam.h"

#include <QFile>
#include <QPushButton>
#include <QTest>

namespace HarvestSite {

QString leagueAddress()
{
    return TFM_ROOT_URL + u"/testland-premier-liga/startseite/wettbewerb/TL1"_s;
}

QString leagueUrl()
{
    return leagueAddress() + u"/plus/?saison_id=2023"_s;
}

QString alphaPath()
{
    return u"/fc-alpha/leistungsdaten/verein/101/saison_id/2023"_s;
}

QString betaPath()
{
    return u"/fc-beta/leistungsdaten/verein/202/saison_id/2023"_s;
}

QString smithProfilePath()
{
    return u"/jan-smith/profil/spieler/12345"_s;
}

QString smithHistoryPath()
{
    return u"/jan-smith/detaillierteleistungsdaten/spieler/12345"_s;
}

QString edersonProfilePath()
{
    return u"/ederson/profil/spieler/4711"_s;
}

void route(FixtureWeb &web)
{
    web.routeFile(leagueUrl(), u"tfm/harvest_league.html"_s);
    web.routeFile(TFM_ROOT_URL + alphaPath(), u"tfm/harvest_team_alpha.html"_s);
    web.routeFile(TFM_ROOT_URL + betaPath(), u"tfm/harvest_team_beta.html"_s);
    for (const auto &[path, name] : {std::pair{u"/jan-smith/%1/spieler/12345"_s, "smith"},
                                     std::pair{u"/ederson/%1/spieler/4711"_s, "ederson"},
                                     std::pair{u"/carlos-gomez/%1/spieler/777"_s, "gomez"}}) {
        web.routeFile(TFM_ROOT_URL + path.arg(u"profil"_s),
                      u"tfm/harvest_player_%1.html"_s.arg(QLatin1StringView(name)));
        web.routeFile(TFM_ROOT_URL + path.arg(u"detaillierteleistungsdaten"_s),
                      u"tfm/harvest_history_%1.html"_s.arg(QLatin1StringView(name)));
    }
}

void startAfresh(FixtureWeb &web)
{
    clearTfmLists();
    web.clearRoutes();
    web.clearRequests();
    web.useAsApplicationProxy();
    route(web);
}

} // namespace HarvestSite

void clearTfmLists()
{
    TFM_League::teamUrls().clear();
    TFM_Team::playerUrls() = PlayerPageList();
}

QByteArray saveThroughWindow(MainWindow &window, const QString &path)
{
    QFile::remove(path);
    answerNextFileDialog(path);
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}
