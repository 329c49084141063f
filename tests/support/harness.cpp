#include "tests/support/harness.h"

#include "app/identity.h"
#include "ep/epleague.h"
#include "ep/epteam.h"
#include "fmd/fmdleague.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/windowsandbox.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmteam.h"

#include <QLocale>

bool startFixtureHarness(WindowSandbox &sandbox, FixtureWeb &web)
{
    QLocale::setDefault(QLocale::c());
    setApplicationIdentity();
    return sandbox.enter() && web.start();
}

void resetFixtureWeb(FixtureWeb &web)
{
    web.clearRoutes();
    web.clearRequests();
    web.useAsApplicationProxy();
}

void clearSiteLists()
{
    TFM_League::teamUrls().clear();
    TFM_Team::playerUrls() = PlayerPageList();
    EP_League::teamUrls().clear();
    EP_Team::playerUrls() = PlayerPageList();
    FMD_League::playerUrls().clear();
}
