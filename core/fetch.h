#pragma once

#include <QString>

// The one way the program reads a page: blocks in a nested event loop, pauses
// delaySeconds after every reply and 30 seconds after a failure, and retries
// until attempts are used up.
bool fetchPage(QString &text, const QString &url, bool followRedirects, QString *errorText,
               int delaySeconds, int attempts);
bool fetchPage(QString &text, const QString &url);
bool fetchSitePage(QString &text, const QString &base, const QString &path, bool followRedirects,
                   QString *errorText, int delaySeconds, int attempts);
void waitSeconds(int seconds);
void addExpectedPage();
