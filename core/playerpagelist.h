#pragma once

#include "ep/playerpageentry.h"

#include <QList>
#include <QStringList>

// Player page addresses of a player pass; the Elite Prospects harvest keeps the
// roster row of each address beside it.
class PlayerPageList
{
public:
    QStringList urls;
    QList<PlayerPageEntry> entries;

    void append(const QString &url) { urls.append(url); }
    qsizetype count() const { return urls.count(); }
};
