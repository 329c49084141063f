#pragma once

#include "tests/support/fixtureweb.h"
#include "tests/support/windowsandbox.h"

#include <memory>

// What a test program of the whole window over the fixture web holds for its
// run: the sandbox, the web, and the program's waits shortened throughout.
class WindowHarness
{
public:
    // In initTestCase: the sandbox entered, the web listening, the waits short.
    // False when the sandbox or the web failed.
    bool start();
    // In init: the C locale, the site lists emptied and the web without routes.
    void startTest();
    // In cleanup: the C locale again, and no status panel left to a closed window.
    void endTest();
    // In cleanupTestCase: the waits as a user has them.
    void stop();

    WindowSandbox sandbox;
    FixtureWeb web;

private:
    std::unique_ptr<FastWaits> fast;
};
