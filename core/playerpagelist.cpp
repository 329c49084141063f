#include "core/playerpagelist.h"

void PlayerPageList::addRosterEntry(const QString &slug, const QString &name,
                                    const QString &dateOfBirth, const QString &height,
                                    const QString &weight, const QString &position,
                                    const QString &stickSide, const QString &jersey,
                                    const QString &team, const QString &contract, bool captain,
                                    bool alternate)
{
    urls.append(slug);
    PlayerPageEntry entry;
    entry.setName(name);
    entry.setDateOfBirth(dateOfBirth);
    entry.setHeight(height);
    entry.setWeight(weight);
    entry.setPosition(position);
    entry.setStickSide(stickSide);
    entry.setJersey(jersey);
    entry.setTeam(team);
    entry.setContractExpiry(contract);
    entry.setStatus(captain, alternate);
    entries.append(entry);
}

qint32 PlayerPageList::duplicateIndexAt(const int &i) const
{
    return i >= 0 && i < entries.size() ? entries.at(i).duplicateIndex : -1;
}

qint16 PlayerPageList::jerseyAt(const int &i) const
{
    return i >= 0 && i < entries.size() ? entries.at(i).jersey : qint16(0);
}

QString PlayerPageList::teamAt(const int &i) const
{
    return i >= 0 && i < entries.size() ? entries.at(i).team : QString();
}

QString PlayerPageList::statusAt(const int &i) const
{
    return i >= 0 && i < entries.size() ? entries.at(i).status : QString();
}

QString PlayerPageList::urlAt(const int &i) const
{
    return i >= 0 && i < urls.size() ? urls.at(i) : QString();
}

bool PlayerPageList::markDuplicate(const int &i)
{
    if (i < 0 || i >= urls.size())
        return false;
    const QString &slug = urls.at(i);
    for (int j = 0; j < i; ++j) {
        if (urls.at(j).compare(slug, Qt::CaseInsensitive) == 0) {
            if (i < entries.size())
                entries[i].setDuplicateIndex(j);
            return true;
        }
    }
    // A match further down is written into that later entry, not into entry i.
    for (int j = i + 1; j < urls.size(); ++j) {
        if (urls.at(j).compare(slug, Qt::CaseInsensitive) == 0) {
            if (j < entries.size())
                entries[j].setDuplicateIndex(i);
            return true;
        }
    }
    return false;
}

void PlayerPageList::clear()
{
    urls.clear();
    entries.clear();
}
