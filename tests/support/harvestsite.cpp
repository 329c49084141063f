#include "tests/support/harvestsite.h"

#include "app/mainwindow.h"
#include "core/constants.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"

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
    clearSiteLists();
    resetFixtureWeb(web);
    route(web);
}

} // namespace HarvestSite

namespace EpHarvestSite {

QString leagueAddress()
{
    return EP_ROOT_URL + u"/league/test-liiga"_s;
}

QString leagueUrl()
{
    return leagueAddress() + u"/2023-2024?team-history=complete"_s;
}

QString karhutUrl()
{
    return EP_ROOT_URL + u"/team/101/kiekko-karhut/2023-2024"_s;
}

QString skaterUrl()
{
    return EP_ROOT_URL + u"/player/8001/mattias-ekstrom-lindqvist"_s;
}

void route(FixtureWeb &web)
{
    web.routeFile(leagueUrl(), u"ep/harvest_league.html"_s);
    web.routeFile(karhutUrl(), u"ep/harvest_team_karhut.html"_s);
    web.routeFile(EP_ROOT_URL + u"/team/202/jaa-sudet/2023-2024"_s,
                  u"ep/harvest_team_sudet.html"_s);
    web.routeFile(skaterUrl(), u"ep/player_skater.html"_s);
    web.routeFile(EP_ROOT_URL + u"/player/9102/jean-luc-tremblay"_s,
                  u"ep/player_two_nations.html"_s);
    web.routeFile(EP_ROOT_URL + u"/player/9102/JEAN-LUC-TREMBLAY"_s,
                  u"ep/player_two_nations.html"_s);
    web.routeFile(EP_ROOT_URL + u"/player/5123/henrik-vesterinen"_s,
                  u"ep/player_goalkeeper.html"_s);
    web.routeFile(EP_ROOT_URL + u"/player/6006/ola-nordmann"_s, u"ep/player_no_statistics.html"_s);
    web.routeFile(EP_ROOT_URL + u"/player/7007/sidorenko"_s, u"ep/player_one_name.html"_s);
}

} // namespace EpHarvestSite

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
