#include "ep/epplayer.h"

#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"

using namespace Qt::StringLiterals;

namespace {

QString labelled(const QString &label, const QString &value)
{
    return u"%1: %2"_s.arg(label, value);
}

template<typename Number> QString labelled(const QString &label, Number value)
{
    return u"%1: %2"_s.arg(label).arg(value);
}

// The draft link's text, with the site's bold tags around the year taken out.
QString draftText(QString value)
{
    isolateBetween(value, u">"_s, u"</a>"_s);
    for (const QString &tag : {u"<strong>"_s, u"</strong>"_s, u"<b>"_s, u"</b>"_s})
        value.remove(tag, Qt::CaseInsensitive);
    return value.trimmed();
}

} // namespace

void EP_Player::parsePage(QString &text)
{
    // "<title>First Second - ...": the first blank ends the first name.
    takeBetween(firstName, text, u"<title>"_s, u" "_s);
    takeUntil(secondName, text, u" -"_s);

    skipPast(text, u"Player Facts"_s);
    readFacts(text);
    readContract(text);
    readInternationalTotals(text);

    scanPlayerHistory(&firstName, &secondName, &dateOfBirth, histories, text);
}

void EP_Player::readFacts(QString &text)
{
    // The site links the date to the players born that day: "...?dob=1995-03-04"".
    QString value;
    takeBetween(value, text, u"Date of Birth"_s, u"</a>"_s);
    isolateBetween(value, u"dob="_s, u"\""_s);
    dateOfBirth = QDate::fromString(value, u"yyyy-MM-dd"_s);
    yearOfBirth = value.left(4).toShort();

    skipPast(text, u">Age</div>"_s);
    takeShort(age, text, u">"_s, u"</div>"_s);

    // A place such as "Oslo, Norway" would bring its comma into the files.
    if (peekBetween(birthPlace, text, u"player?birthplace="_s, u">"_s, u"</a>"_s))
        birthPlace.replace(u", "_s, u":"_s, Qt::CaseInsensitive);

    // One or two nation links; a third is not read.
    if (peekBetween(value, text, u"Nation</div>"_s, u">"_s, u"</div>"_s)) {
        takeBetween(nation1, value, u"\">"_s, u"</a>"_s);
        takeBetween(nation2, value, u"\">"_s, u"</a>"_s);
    }

    skipPast(text, u">POSITION </div>"_s);
    takeBetween(position, text, u">"_s, u"</div>"_s);
    skipPast(text, u">HEIGHT </div>"_s);
    takeShort(height, text, u">"_s, u" cm"_s);
    skipPast(text, u">WEIGHT </div>"_s);
    takeShort(weight, text, u">"_s, u" kg"_s);

    // A goalkeeper catches where a skater shoots.
    if (!peekBetween(stickSide, text, u"> SHOOTS </div>"_s, u">"_s, u"</div>"_s))
        peekBetween(stickSide, text, u"> CATCHES </div>"_s, u">"_s, u"</div>"_s);
}

void EP_Player::readContract(QString &text)
{
    // "23/24": the contract runs out in 2024. Assigned whatever the page holds.
    QString value;
    skipPast(text, u"CONTRACT"_s);
    takeBetween(value, text, u"\">"_s, u"</div>"_s);
    contractExpiry = static_cast<qint16>(seasonEndYear(value));

    if (peekBetween(value, text, u"Cap Hit </div>"_s, u">"_s, u"<"_s))
        capHit = static_cast<quint32>(parseDollars(value));

    if (peekBetween(value, text, u"Drafted </div>"_s, u">"_s, u"</div>"_s))
        nhlDraft = draftText(value);
}

void EP_Player::readInternationalTotals(const QString &text)
{
    // Both markers end without their closing quote: the class attribute goes on.
    // The piece runs from the games cell up to the points cell.
    QString value;
    if (!peekBetween(value, text, u"international/stats/all-time"_s, u"<td class=\"regular gp"_s,
                     u"<td class=\"regular tp"_s))
        return;
    for (qint16 *field : {&intGp, &intGoals, &intAssists}) {
        QString cell;
        takeBetween(cell, value, u">"_s, u"</td>"_s);
        *field = static_cast<qint16>(parseMoney(cell));
    }
}

void EP_Player::testReport(QString &text)
{
    parsePage(text);
    appendLog(u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s);
    appendLog(toAsciiName(u"%1: %2 %3"_s.arg(u"ASCII name"_s, firstName, secondName)));
    appendLog(labelled(u"Forename"_s, firstName));
    appendLog(labelled(u"Surname"_s, secondName));
    appendLog(labelled(u"Date of birth"_s, dateOfBirth.toString(Qt::TextDate)));
    appendLog(labelled(u"Year of birth"_s, yearOfBirth));
    appendLog(labelled(u"Birth place"_s, birthPlace));
    appendLog(labelled(u"Nationality 1"_s, nation1));
    appendLog(labelled(u"Nationality 2"_s, nation2));
    appendLog(labelled(u"Height (cm)"_s, height));
    appendLog(labelled(u"Weight (kg)"_s, weight));
    appendLog(labelled(u"Position"_s, position));
    appendLog(labelled(u"Stick side"_s, stickSide));
    appendLog(labelled(u"Contract exp"_s, contractExpiry));
    appendLog(labelled(u"Cap hit"_s, capHit));
    appendLog(labelled(u"NHL Draft"_s, nhlDraft));
    appendLog(labelled(u"Int. GP"_s, intGp));
    appendLog(labelled(u"Int. G"_s, intGoals));
    appendLog(labelled(u"Int. A"_s, intAssists));
    appendLog(labelled(u"History entries"_s, histories.size()));
    appendLog(u"%1:  %2"_s.arg(u"History sample"_s, playerHistorySample(histories, 20)));
}

void EP_Player::writeAsciiRow(QTextStream &stream, const QChar &separator,
                              const QString &teamOverride)
{
    writeRow(stream, separator, teamOverride, true);
}

void EP_Player::writeUtfRow(QTextStream &stream, const QChar &separator,
                            const QString &teamOverride)
{
    writeRow(stream, separator, teamOverride, false);
}

void EP_Player::writeRow(QTextStream &stream, const QChar &separator, const QString &teamOverride,
                         bool ascii) const
{
    // A duplicate that names another row would hand the writing on to that row;
    // there is none to hand it to, so it writes nothing at all.
    if (isDuplicate && duplicateIndex >= 0)
        return;

    const auto name = [ascii](const QString &text) { return ascii ? toAsciiName(text) : text; };
    const QChar s = separator;
    // Small "n", unlike every other yes/no column.
    const QString duplicate = isDuplicate ? u"Y"_s : u"n"_s;
    const QString date = dateOfBirth.isValid() ? dateOfBirth.toString(u"dd.MM.yyyy"_s)
                                               : u"0.0.%1"_s.arg(yearOfBirth);
    const QString &rowTeam = teamOverride.isEmpty() ? team : teamOverride;

    stream << duplicate << s << name(firstName) << s << name(secondName) << s << date << s
           << name(nation1) << s << name(nation2) << s << name(birthPlace) << s << name(rowTeam)
           << s << contractExpiry << s << position << s << stickSide << s << jersey << s << height
           << s << weight << s << capHit << s << nhlDraft << s << status << s << age << s << intGp
           << s << intGoals << s << intAssists << '\n';
}
