#include "ep/playerpageentry.h"

#include "core/scan.h"

using namespace Qt::StringLiterals;

void PlayerPageEntry::setName(const QString &text)
{
    splitAtSpace(text, firstName, secondName);
}

void PlayerPageEntry::setDateOfBirth(const QString &text)
{
    dateOfBirth = QDate::fromString(text, u"yyyy-MM-dd"_s);
    // left() gives the whole text when it has four characters or fewer.
    yearOfBirth = text.left(4).toShort();
}

void PlayerPageEntry::setBirthPlace(const QString &text)
{
    birthPlace = QString(text).replace(u", "_s, u":"_s);
}

void PlayerPageEntry::setHeight(const QString &text)
{
    height = text.toShort();
}

void PlayerPageEntry::setWeight(const QString &text)
{
    weight = text.toShort();
}

void PlayerPageEntry::setPosition(const QString &text)
{
    position = text;
}

void PlayerPageEntry::setStickSide(const QString &text)
{
    stickSide = text;
}

void PlayerPageEntry::setJersey(const QString &text)
{
    jersey = text.toShort();
}

void PlayerPageEntry::setTeam(const QString &text)
{
    team = text;
}

void PlayerPageEntry::setContractExpiry(const QString &text)
{
    contractExpiry = static_cast<qint16>(seasonEndYear(text));
}

void PlayerPageEntry::setStatus(bool captain, bool alternate)
{
    if (captain)
        status = u"C"_s;
    else if (alternate)
        status = u"A"_s;
    else
        status.clear();
}

void PlayerPageEntry::setDuplicateIndex(qint32 index)
{
    duplicateIndex = index;
}
