#pragma once

#include <QString>
#include <QStringList>

// Pages of the benchmarks: the hand-written fixture pages, grown to the size of
// the site's real pages with markup that holds none of the scanners' markers.

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

// Peak resident memory of this process so far, in megabytes.
double peakResidentMegabytes();
// Resident memory of this process now, in megabytes.
double residentMegabytes();
