#include "core/csvexport.h"
#include "core/sharedstate.h"
#include "core/values.h"
#include "tfm/tfmplayer.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// The main file's titles; the secondary positions share the last one, whatever
// their number.
const QStringList &mainTitles()
{
    static const QStringList titles = {
        u"Id"_s,
        u"NameInUrl"_s,
        u"First name"_s,
        u"Second name"_s,
        u"Common name"_s,
        u"Complete name"_s,
        u"DOB"_s,
        u"Nation 1"_s,
        u"Nation 2"_s,
        u"Contract Start"_s,
        u"Contract end"_s,
        u"Value"_s,
        u"World Rep"_s,
        u"Wage"_s,
        u"Club"_s,
        u"On loan from"_s,
        u"GK"_s,
        u"SW"_s,
        u"D"_s,
        u"DM"_s,
        u"M"_s,
        u"AM"_s,
        u"ST"_s,
        u"WB"_s,
        u"FR"_s,
        u"Right"_s,
        u"Left"_s,
        u"Centre"_s,
        u"Right Foot"_s,
        u"Left Foot"_s,
        u"qint32 apps"_s,
        u"qint32 goals"_s,
        u"CA"_s,
        u"PA"_s,
        u"Home Rep"_s,
        u"Current Rep"_s,
        u"Squad no."_s,
        u"Height (m)"_s,
        u"Loan expiry"_s,
        u"Main position"_s,
        u"Secondary position(s)"_s,
    };
    return titles;
}

// Every history row ends in a separator, the title row too.
const QStringList &historyTitles()
{
    static const QStringList titles = {
        u"Name"_s, u"DOB"_s, u"Club"_s, u"Year"_s, u"Apps"_s, u"Goals"_s, u"Loan"_s,
    };
    return titles;
}

QString dateCell(const QDate &date)
{
    return date.toString(u"dd.MM.yyyy"_s);
}

// One main file row; ascii converts the eight name cells and nothing else.
void writePlayerRow(const TFM_Player &player, QTextStream &stream, const QChar &separator,
                    bool ascii)
{
    const auto name = [ascii](const QString &text) { return ascii ? toAsciiName(text) : text; };
    const QChar s = separator;

    stream << player.id << s << player.nameInUrl << s << name(player.firstName) << s
           << name(player.secondName) << s << name(player.commonName) << s
           << name(player.completeName) << s << dateCell(player.dateOfBirth) << s
           << name(player.nation1) << s << name(player.nation2) << s
           << dateCell(player.contractStart) << s << dateCell(player.contractEnd) << s
           << player.marketValue << s << player.worldRep << s << player.wage << s
           << name(player.club) << s << name(player.onLoanFrom);
    for (const qint16 rating : player.positionRatings)
        stream << s << rating;
    stream << s << player.rightFootRating << s << player.leftFootRating << s
           << player.internationalApps << s << player.internationalGoals;
    // CA, PA, Home Rep and Current Rep: the site has no figure for them.
    stream << s << s << s << s;
    stream << s << player.squadNumber << s << player.height << s << dateCell(player.loanExpiry) << s
           << player.mainPosition;
    for (const QString &position : player.otherPositions)
        stream << s << position;
    stream << '\n';
}

// The history file beside the chosen one: "HISTORY" before the dot of the complete
// suffix, or at the end (before a dot that ends the name) when there is none.
QFileInfo historyInfo(const QFileInfo &info)
{
    QString path = info.absoluteFilePath();
    const QString completeSuffix = info.completeSuffix();
    if (!completeSuffix.isEmpty())
        path.insert(path.size() - completeSuffix.size() - 1, u"HISTORY"_s);
    else if (path.endsWith(u'.'))
        path.insert(path.size() - 1, u"HISTORY"_s);
    else
        path.append(u"HISTORY"_s);
    return QFileInfo(path);
}

} // namespace

void TFM_Player::writeAscii(QTextStream &stream, const QChar &separator)
{
    writePlayerRow(*this, stream, separator, true);
}

void TFM_Player::writeUtf(QTextStream &stream, const QChar &separator)
{
    writePlayerRow(*this, stream, separator, false);
}

bool TFM_Player::exportPlayers(const QFileInfo &info, const QList<DataWrapper *> &players,
                               const bool &utf)
{
    QTextStream mainStream;
    QTextStream historyStream;
    const QChar separator = csvSeparator(utf);
    QFile *mainFile = nullptr;
    QFile *historyFile = nullptr;
    const bool historyOnly = historyOnlyMode();
    const bool withHistory = includePlayerHistory;

    if (historyOnly) {
        // History only: its rows go into the very file that was chosen.
        historyFile = openCsvFile(historyStream, info, QString(), utf);
        if (!historyFile)
            return false;
    } else {
        mainFile = openCsvFile(mainStream, info, QString(), utf);
        if (!mainFile)
            return false;
        mainStream << mainTitles().join(separator) << '\n';

        if (withHistory) {
            historyFile = openCsvFile(historyStream, historyInfo(info), QString(), utf);
            if (!historyFile) {
                closeCsvFile(mainStream, mainFile);
                return false;
            }
        }
    }

    if (withHistory) {
        for (const QString &title : historyTitles())
            historyStream << title << separator;
        historyStream << '\n';
    }

    for (DataWrapper *record : players) {
        auto *player = dynamic_cast<TFM_Player *>(record);
        if (!player)
            continue;

        if (!historyOnly) {
            if (utf)
                player->writeUtf(mainStream, separator);
            else
                player->writeAscii(mainStream, separator);
            if (!withHistory)
                continue;
        }

        for (TFM_History &row : player->history) {
            // May give the player its common name for good: a later export shows it.
            const QString name = player->displayName(player->completeName);
            historyStream << (utf ? name : toAsciiName(name)) << separator
                          << dateCell(player->dateOfBirth) << separator;
            if (utf)
                row.writeUtf(historyStream, separator);
            else
                row.writeAscii(historyStream, separator);
        }
    }

    if (mainFile)
        closeCsvFile(mainStream, mainFile);
    if (historyFile)
        closeCsvFile(historyStream, historyFile);
    return true;
}
