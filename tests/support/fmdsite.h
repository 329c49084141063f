#pragma once

#include <QString>
#include <QStringList>

class FixtureWeb;

// The FMDataba pages of the fixture web: one league's "best-players" list of
// three pages, its goalkeepers' list of one page (with a second page that its
// heading does not count), six player profiles and a seventh player whose page
// is gone. The league's other thirteen position lists are not there either.
namespace FmdSite {
// https://fmdataba.com/19/l/7/testland-premier-league/ + list
QString listUrl(const QString &list);
// https://fmdataba.com/19/p/<number>/<name>/
QString playerUrl(int number, const QString &name);
// The seven players in the order the lists give them first.
QStringList playerUrls();
void route(FixtureWeb &web);
} // namespace FmdSite
