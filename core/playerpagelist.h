#pragma once

#include "ep/playerpageentry.h"

#include <QList>
#include <QStringList>

// Player page addresses of a player pass. The Transfer Markt passes use the
// addresses alone; the Elite Prospects harvest keeps each roster row beside its
// player's slug, at the same index.
class PlayerPageList
{
public:
    QStringList urls;
    QList<PlayerPageEntry> entries;

    void append(const QString &url) { urls.append(url); }
    qsizetype count() const { return urls.count(); }

    // Appends the slug and the roster row made of the texts as the team scanner
    // found them.
    void addRosterEntry(const QString &slug, const QString &name, const QString &dateOfBirth,
                        const QString &height, const QString &weight, const QString &position,
                        const QString &stickSide, const QString &jersey, const QString &team,
                        const QString &contract, bool captain, bool alternate);

    // The read side of the player pass; an index out of range answers -1, 0 or a
    // null string.
    qint32 duplicateIndexAt(const int &i) const;
    qint16 jerseyAt(const int &i) const;
    QString teamAt(const int &i) const;
    QString statusAt(const int &i) const;
    QString urlAt(const int &i) const;
    // True when slug i stands at another index too (compared in any letter case);
    // records the match in the entry of the later of the two.
    bool markDuplicate(const int &i);
    void clear();
};
