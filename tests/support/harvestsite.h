#pragma once

#include <QByteArray>
#include <QString>

class FixtureWeb;
class MainWindow;

// The small Transfer Markt site of the harvest fixtures as the season 2023 shows
// it: one league of two clubs, FC Alpha with Jan Smith and Ederson and FC Beta
// with Carlos Gómez, each player with a profile and a history page.
namespace HarvestSite {
// The league's address as the user pastes it, and as the league pass asks for it.
QString leagueAddress();
QString leagueUrl();
// Paths behind the site's root, as the team and player passes ask for them.
QString alphaPath();
QString betaPath();
QString smithProfilePath();
QString smithHistoryPath();
QString edersonProfilePath();
// Routes every page above; a later route of the same address replaces its page.
void route(FixtureWeb &web);
// A fresh start for a test: empty address lists of the three sites' passes, a
// web that has forgotten its routes, requests and faults and is the application
// proxy again, and the pages above routed.
void startAfresh(FixtureWeb &web);
} // namespace HarvestSite

// The Elite Prospects league of the harvest fixtures for the season 2023: two
// teams and their players' pages, the one player on both rosters under either
// spelling of his address.
namespace EpHarvestSite {
// As the user pastes it, and as the league pass asks for it (less the fragment).
QString leagueAddress();
QString leagueUrl();
QString karhutUrl();
QString skaterUrl();
void route(FixtureWeb &web);
} // namespace EpHarvestSite

// Save As through the window's own dialog, to path: the bytes it wrote there,
// or a null array when it wrote nothing.
QByteArray saveThroughWindow(MainWindow &window, const QString &path);
