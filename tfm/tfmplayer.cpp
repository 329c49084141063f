#include "tfm/tfmplayer.h"

#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"

using namespace Qt::StringLiterals;

namespace {

// The site publishes market values in steps; each run of steps is listed from the
// top down with the World Rep of its first key, and World Rep falls by one a key.
struct ValueRun
{
    qint32 from;
    qint32 to;
    qint32 step;
    qint32 firstRep;
};

constexpr ValueRun valueRuns[] = {
    {140000000, 110000000, 5000000, 200}, {107500000, 100000000, 2500000, 193},
    {98000000, 80000000, 2000000, 189},   {79000000, 20000000, 1000000, 179},
    {19500000, 10000000, 500000, 119},    {9750000, 7500000, 250000, 99},
    {7400000, 3100000, 100000, 89},       {3050000, 2000000, 50000, 51},
    {1900000, 1000000, 100000, 29},       {950000, 250000, 50000, 19},
};

// Keys of the 100,000 run that keep the World Rep of the key above them.
constexpr qint32 repeatedRepKeys[] = {6100000, 5600000, 4900000, 4400000, 3700000, 3200000};

bool keepsRepOfKeyAbove(qint32 key)
{
    for (const qint32 repeated : repeatedRepKeys) {
        if (repeated == key)
            return true;
    }
    return false;
}

QHash<qint32, qint32> buildWorldRepByValue()
{
    QHash<qint32, qint32> table;
    for (const ValueRun &run : valueRuns) {
        qint32 rep = run.firstRep;
        for (qint32 key = run.from; key >= run.to; key -= run.step) {
            if (key != run.from && !keepsRepOfKeyAbove(key))
                --rep;
            table.insert(key, rep);
        }
    }
    // Below 250,000 the steps are 25,000 and two keys share a value.
    for (qint32 key = 225000; key >= 0; key -= 25000)
        table.insert(key, 5 - (225000 - key) / 50000);
    return table;
}

qint32 wageForRep(qint32 rep)
{
    if (rep >= 111)
        return (rep - 100) * 1000;
    if (rep >= 106)
        return 11000;
    if (rep >= 101)
        return 10500;
    return rep * 100;
}

QHash<qint32, qint32> buildWageByValue()
{
    const QHash<qint32, qint32> reps = buildWorldRepByValue();
    QHash<qint32, qint32> table;
    for (auto it = reps.cbegin(); it != reps.cend(); ++it)
        table.insert(it.key(), wageForRep(it.value()));
    return table;
}

// Every date of a profile page is read with the class's format; a two-digit year
// would belong to the 1900s.
QDate pageDate(const QString &text)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    return QDate::fromString(text, TFM_Player::dateFormat, 1900);
#else
    return QDate::fromString(text, TFM_Player::dateFormat);
#endif
}

// The shirt number keeps the low 16 bits of what it reads; numbers above 50 are
// not shirt numbers the export wants.
qint16 shirtNumber(const QString &text)
{
    const qint32 value = text.toInt();
    const auto low
        = static_cast<qint16>(static_cast<quint16>(static_cast<quint32>(value) & 0xFFFFu));
    return low > 50 ? qint16(0) : low;
}

// Reads position words one after the other: each stands between a ">" and the
// next "<".
void appendPositionWords(QStringList &words, QString &cell)
{
    QString word;
    while (takeBetween(word, cell, u">"_s, u"<"_s))
        words.append(word.trimmed().toLower());
}

// The market value and the shirt number are peeked at first; then the headline
// is consumed up to the end of the bold family name.
void readHeader(TFM_Player &player, QString &text)
{
    const QString shirtTag = u"<span class=\"data-header__shirt-number\">"_s;

    QString value;
    peekBetween(value, text, u"Market value:"_s, u" "_s, u" "_s);
    player.marketValue = static_cast<quint32>(parseMoney(value));

    QString number;
    if (peekBetween(number, text, shirtTag, u"#"_s, u"</span>"_s))
        player.squadNumber = shirtNumber(number);

    // With a shirt number the headline's tag lies before the shirt number's and
    // the second skip finds nothing.
    skipPast(text, shirtTag);
    skipPast(text, u"<h1 class=\"data-header__headline-wrapper\""_s);
    // "<str" is the front of "<strong>", and "ong>" the rest of it.
    takeBetween(player.firstName, text, u">"_s, u"<str"_s);
    takeBetween(player.secondName, text, u"ong>"_s, u"</strong>"_s);
    player.secondName.remove(u"<strong>"_s, Qt::CaseSensitive);
}

// The facts table: full name, birth, citizenship and contract. Gives the text of
// the contract's end, which becomes a date once the loan row is known.
QString readFacts(TFM_Player &player, const QString &text)
{
    peekBetween(player.completeName, text, u"Full name:</span>"_s, u"--bold\">"_s, u"</span>"_s);

    QString birth;
    peekBetween(birth, text, u"aktuell/new/datum"_s, u"\">"_s, u" ("_s);
    player.dateOfBirth = pageDate(birth);

    // Two citizenships at most; a third is not read.
    QString citizenship;
    peekBetween(citizenship, text, u"--regular\">Citizenship:</span>"_s, u"<img"_s, u"</span>"_s);
    takeBetween(player.nation1, citizenship, u"alt=\""_s, u"\" class=\"flaggenrahmen"_s);
    takeBetween(player.nation2, citizenship, u"alt=\""_s, u"\" class=\"flaggenrahmen"_s);

    QString joined;
    peekBetween(joined, text, u"-regular\">Joined:</span>"_s, u"--bold\">"_s, u"</span>"_s);
    player.contractStart = pageDate(joined);

    // One dash in "-bold" where the rows around it have two: the site's class list
    // goes on either way.
    QString expires;
    peekBetween(expires, text, u"-regular\">Contract expires:</span>"_s, u"-bold\">"_s,
                u"</span>"_s);
    return expires;
}

// The main position, from the new layout or the old one's "Position:", and the
// other positions of both layouts into one list.
void readPositionWords(TFM_Player &player, const QString &text)
{
    if (!peekBetween(player.mainPosition, text, u"Main position:"_s, u"\">"_s, u"<"_s))
        peekBetween(player.mainPosition, text, u"Position:"_s, u"\">"_s, u"<"_s);
    player.mainPosition = player.mainPosition.toLower();

    QString others;
    if (peekBetween(others, text, u"Other position:"_s,
                    u"<dd class=\"detail-position__position\""_s, u"/dd>"_s))
        appendPositionWords(player.otherPositions, others);
    QString sides;
    if (peekBetween(sides, text, u"<span>Side position:</span>"_s, u"<br/"_s, u"/div>"_s))
        appendPositionWords(player.otherPositions, sides);
}

void readFootAndHeight(TFM_Player &player, const QString &text)
{
    peekBetween(player.foot, text, u"--regular\">Foot:</span>"_s, u"--bold\">"_s, u"</span>"_s);

    // "1,85&nbsp;m"
    QString size;
    peekBetween(size, text, u"--regular\">Height:</span>"_s, u"--bold\">"_s, u"</span>"_s);
    size.remove(u"m"_s, Qt::CaseInsensitive);
    size.remove(u"&nbsp;"_s, Qt::CaseInsensitive);
    size.replace(u","_s, u"."_s, Qt::CaseSensitive);
    player.height = size.trimmed().toFloat();
}

// The current club, with the date of a player who has none, and the parent club
// of a loan.
void readClub(TFM_Player &player, const QString &text)
{
    peekBetween(player.club, text, u"Current club:"_s, u"alt=\""_s, u"\""_s);
    if (player.club == u"Without Club"_s || player.club == u"Unknown"_s) {
        QString since;
        if (peekBetween(since, text, player.club + u"</a> since:"_s,
                        u"<span class=\"data-header__content\">"_s, u"</span>"_s)) {
            const QDate date = pageDate(since);
            player.club += u" since: "_s + date.toString(u"dd.MM.yyyy"_s);
        }
    }

    if (peekBetween(player.onLoanFrom, text, u"-regular\">On loan from:</span>"_s, u"<a "_s,
                    u"</span>"_s))
        isolateBetween(player.onLoanFrom, u">"_s, u"</a>"_s);
}

// A national team row counts only for the senior side: youth teams carry a 1 or
// a 2 in their name, reserve sides end in a letter.
bool isSeniorTeamRow(const QString &title)
{
    if (title.indexOf(QString::number(1), 0, Qt::CaseInsensitive) >= 0)
        return false;
    if (title.indexOf(QString::number(2), 0, Qt::CaseInsensitive) >= 0)
        return false;
    for (const QString &reserve : {u" B"_s, u" C"_s, u" D"_s}) {
        if (title.endsWith(reserve, Qt::CaseInsensitive))
            return false;
    }
    if (title.contains(u"olympi"_s, Qt::CaseInsensitive) && !includeOlympicStats)
        return false;
    return true;
}

QString labelled(const QString &label, const QString &value)
{
    return u"%1: %2"_s.arg(label, value);
}

} // namespace

const QString TFM_Player::dateFormat = u"dd.MM.yyyy"_s;
const QHash<qint32, qint32> TFM_Player::worldRepByValue = buildWorldRepByValue();
const QHash<qint32, qint32> TFM_Player::wageByValue = buildWageByValue();

void TFM_Player::parsePage(QString &text)
{
    readHeader(*this, text);
    normaliseNames();

    // The national team table may lie behind the transfer history, so it is read
    // before the cut.
    QString career;
    if (peekBetween(career, text, u"National team career</h2>"_s, u"national-career\">"_s,
                    u"national player profile"_s))
        addNationalTeamStats(career);

    cutAt(text, u"Transfer history"_s);

    const QString expires = readFacts(*this, text);
    readPositionWords(*this, text);
    readFootAndHeight(*this, text);
    readClub(*this, text);

    // A loan page names the contract with the parent club "there"; the other date
    // is then the end of the loan.
    QString there;
    if (peekBetween(there, text, u"--regular\">Contract there expires:</span>"_s, u"--bold\">"_s,
                    u"</span>"_s)) {
        contractEnd = pageDate(there);
        loanExpiry = pageDate(expires);
    } else {
        contractEnd = pageDate(expires);
        loanExpiry = pageDate(QString());
    }

    applyValueTables();
    applyFoot();
    applyPositions();
    applySides();
}

void TFM_Player::testReport(QString &text)
{
    parsePage(text);
    appendLog(u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s);
    appendLog(toAsciiName(u"%1: %2 %3 %4 : %5"_s.arg(u"ASCII name"_s, firstName, secondName,
                                                     commonName, completeName)));
    appendLog(labelled(u"Forename"_s, firstName));
    appendLog(labelled(u"Surname"_s, secondName));
    appendLog(labelled(u"Common name"_s, commonName));
    appendLog(labelled(u"Complete name"_s, completeName));
    appendLog(labelled(u"Date of birth"_s, dateOfBirth.toString(Qt::TextDate)));
    appendLog(labelled(u"Nationality 1"_s, nation1));
    appendLog(labelled(u"Nationality 2"_s, nation2));
    appendLog(u"%1: %2"_s.arg(u"Height (m)"_s).arg(double(height), 0, 'g', -1));
    appendLog(labelled(u"Current club"_s, club));
    appendLog(labelled(u"On loan from"_s, onLoanFrom));
    appendLog(labelled(u"Contract start"_s, contractStart.toString(Qt::TextDate)));
    appendLog(labelled(u"Contract end"_s, contractEnd.toString(Qt::TextDate)));
    appendLog(labelled(u"Loan end"_s, loanExpiry.toString(Qt::TextDate)));
    appendLog(u"%1: %2"_s.arg(u"Transfer value"_s).arg(marketValue));
    appendLog(u"%1: %2"_s.arg(u"World rep"_s).arg(worldRep));
    appendLog(u"%1: %2"_s.arg(u"Wage"_s).arg(wage));
    appendLog(u"%1: %2"_s.arg(u"qint32. appearances"_s).arg(internationalApps));
    appendLog(u"%1: %2"_s.arg(u"qint32. goals"_s).arg(internationalGoals));
    appendLog(u"%1: %2"_s.arg(u"Squad number"_s).arg(squadNumber));
    appendLog(labelled(u"Position (main)"_s, mainPosition));
    for (const QString &position : std::as_const(otherPositions))
        appendLog(labelled(u"Position (alt)"_s, position));
    appendLog(labelled(u"Foot"_s, foot));

    appendLog(u"Pos  (GK): %1"_s.arg(positionRatings[GK]));
    appendLog(u"Pos  (WB): %1"_s.arg(positionRatings[WB]));
    appendLog(u"Pos  (SW): %1"_s.arg(positionRatings[SW]));
    appendLog(u"Pos (DEF): %1"_s.arg(positionRatings[D]));
    appendLog(u"Pos  (DM): %1"_s.arg(positionRatings[DM]));
    appendLog(u"Pos (MID): %1"_s.arg(positionRatings[M]));
    appendLog(u"Pos  (AM): %1"_s.arg(positionRatings[AM]));
    appendLog(u"Pos  (FR): %1"_s.arg(positionRatings[FR]));
    appendLog(u"Pos  (ST): %1"_s.arg(positionRatings[ST]));
    appendLog(u"Side  (L): %1"_s.arg(positionRatings[Left]));
    appendLog(u"Side  (C): %1"_s.arg(positionRatings[Centre]));
    appendLog(u"Side  (R): %1"_s.arg(positionRatings[Right]));
    appendLog(u"--- COMPLETE ---"_s);
}

void TFM_Player::addNationalTeamStats(QString &careerText)
{
    if (careerText.isEmpty())
        return;

    while (skipPast(careerText, u"-career__row\">"_s)) {
        skipPast(careerText, u"</div>"_s);
        QString title;
        takeBetween(title, careerText, u"<a title=\""_s, u"\""_s);
        skipPast(title, u">"_s);
        skipPast(careerText, u"</div>"_s);
        skipPast(careerText, u"</div>"_s);
        if (!isSeniorTeamRow(title))
            continue;

        QString apps;
        takeBetween(apps, careerText, u"<a href"_s, u"</a>"_s);
        skipPast(apps, u">"_s);
        skipPast(careerText, u"</div>"_s);
        internationalApps += apps.toUInt();

        QString goals;
        takeBetween(goals, careerText, u"<a href"_s, u"</a>"_s);
        skipPast(goals, u">"_s);
        internationalGoals += goals.toUInt();
    }
}

void TFM_Player::normaliseNames()
{
    if (!firstName.isEmpty() && !secondName.isEmpty())
        return;
    if (!firstName.isEmpty()) {
        commonName = firstName;
        firstName.clear();
        return;
    }
    commonName = secondName;
    secondName.clear();
}

void TFM_Player::applyValueTables()
{
    // Exact keys only: a value between two steps, or above the top one, has no rep.
    const auto key = static_cast<qint32>(marketValue);
    worldRep = static_cast<quint32>(worldRepByValue.value(key, 0));
    wage = static_cast<quint32>(wageByValue.value(key, 0));
}

void TFM_Player::applyFoot()
{
    if (foot.contains(u"left"_s, Qt::CaseInsensitive)) {
        leftFootRating = 20;
        rightFootRating = 1;
    } else {
        rightFootRating = 20;
        leftFootRating = 1;
    }
}
