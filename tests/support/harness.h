#pragma once

class FixtureWeb;
class WindowSandbox;

// The set-up shared by the test programs that run the window or the passes
// over the fixture web.

// Once, in initTestCase: the C locale, the application's identity (the
// settings store is named after it), the sandbox entered and the web listening
// as the application proxy. False when the sandbox or the web failed.
bool startFixtureHarness(WindowSandbox &sandbox, FixtureWeb &web);
// Before each test: no route and no request left from an earlier test, and the
// web the application proxy again, since a test may have set another.
void resetFixtureWeb(FixtureWeb &web);
// The address lists that the passes of the three sites keep for the whole
// process, emptied.
void clearSiteLists();
