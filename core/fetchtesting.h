#pragma once

#include <QList>

// For the test suite only. Nothing in the window, the settings, the command line
// or the environment reaches these; the tests shorten the pacing waits with them.
namespace FetchTesting {
// How long one waited second lasts, in milliseconds; 1000 unless a test says otherwise.
// The first call also starts the record of waits below.
void setMillisecondsPerSecond(int milliseconds);
int millisecondsPerSecond();
// Every wait that waitSeconds was asked for, in seconds, since the last clear. Kept
// only once a test has set the pace, so the program itself records nothing.
const QList<int> &waitsSeen();
void clearWaitsSeen();
} // namespace FetchTesting
