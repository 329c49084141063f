#include "tests/support/windowharness.h"

#include "core/sharedstate.h"
#include "tests/support/harness.h"

#include <QLocale>

bool WindowHarness::start()
{
    if (!startFixtureHarness(sandbox, web))
        return false;
    fast = std::make_unique<FastWaits>();
    return true;
}

void WindowHarness::startTest()
{
    QLocale::setDefault(QLocale::c());
    // The passes' address lists outlive a run; each test starts from empty ones.
    clearSiteLists();
    resetFixtureWeb(web);
}

void WindowHarness::endTest()
{
    QLocale::setDefault(QLocale::c());
    setStatusDisplay(nullptr);
}

void WindowHarness::stop()
{
    fast.reset();
}
