#pragma once

#include "tests/support/testsupport.h"

#include <QString>
#include <QStringList>

// Pages of the benchmarks: the hand-written fixture pages (read with the tests'
// fixtureText()), grown to the size of the site's real pages with markup that
// holds none of the scanners' markers.

// page with filler blocks added until its UTF-8 size reaches targetBytes: two
// fifths behind <head> (inline scripts and styles), three tenths behind
// </header> (navigation, advertising) and the rest before </body> (footer).
QString padPage(const QString &page, qsizetype targetBytes);

// A league page of the clubs named by paths (each "/club-n/startseite/verein/n").
QString leaguePage(const QStringList &clubPaths, qsizetype targetBytes);
// A club's squad page that links to the given player profile paths.
QString squadPage(const QString &clubName, const QStringList &playerPaths, qsizetype targetBytes);
// A player profile page and a player history page of realistic size.
QString profilePage(qsizetype targetBytes);
QString historyPage(qsizetype targetBytes);

// An FMDataba player list page with a row for each profile address, and an
// FMDataba profile page.
QString fmdListPage(const QStringList &playerUrls, qsizetype targetBytes);
QString fmdProfilePage(qsizetype targetBytes);

// An Elite Prospects league page in its standings form, with teams numbered from 1.
QString epLeaguePage(int teams, qsizetype targetBytes);
// An Elite Prospects team page with its facts, a roster and a history table of the
// given numbers of rows, and three retired numbers. The roster's players have the
// site numbers from firstPlayer on.
QString epTeamPage(int rosterRows, int historyRows, qsizetype targetBytes, int firstPlayer = 5001);
// An Elite Prospects player page whose career table has careerRows rows, each with
// a club and games in both halves.
QString epPlayerPage(int careerRows, qsizetype targetBytes);

// Peak resident memory of this process so far, in megabytes.
double peakResidentMegabytes();
// Resident memory of this process now, in megabytes.
double residentMegabytes();
