#include "fuzz/harness.h"

#include "core/csvexport.h"
#include "core/datawrapper.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epplayerhistory.h"
#include "ep/epteam.h"
#include "ep/epteamhistory.h"
#include "fmd/fmdleague.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmteam.h"

#include <QApplication>
#include <QBuffer>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTextStream>

namespace {

QPlainTextEdit *logBox()
{
    // Never destroyed: the process ends inside libFuzzer's own loop.
    static QPlainTextEdit *box = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "quillmark-fuzz";
        static char *argv[] = {name, nullptr};
        new QApplication(argc, argv);
        QLocale::setDefault(QLocale::c());
        auto *edit = new QPlainTextEdit;
        edit->setReadOnly(true);
        edit->setUndoRedoEnabled(false);
        setLogOutput(edit);
        // The first line laid out loads the fonts, whose caches live as long
        // as the process: done here, they are not taken for a leak of an input.
        edit->appendPlainText(QStringLiteral("\u00e9"));
        edit->clear();
        return edit;
    }();
    return box;
}

} // namespace

// libFuzzer calls this once before the first input.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    logBox();
    return 0;
}

namespace Fuzz {

QString pageText(const uint8_t *data, size_t size)
{
    auto bytes = reinterpret_cast<const char *>(data);
    auto length = qsizetype(size);
    bool olympic = false;
    bool playerData = true;
    bool history = false;
    qint32 season = -1;
    if (length > 0 && uint8_t(bytes[0]) < 16) {
        const auto options = uint8_t(bytes[0]);
        olympic = options & 1;
        playerData = options & 2;
        history = options & 4;
        if (options & 8)
            season = 2023;
        ++bytes;
        --length;
    }
    setIncludeOlympicStats(olympic);
    setIncludePlayerData(playerData);
    setIncludePlayerHistory(history);
    EP_League::selectedSeason = season;
    return QString::fromUtf8(bytes, length);
}

void reset()
{
    // No event loop runs between inputs, as the window's would: the log box's
    // scroll bar posts a queued signal for every line, and without this they
    // would pile up input after input.
    QCoreApplication::sendPostedEvents();
    logBox()->clear();
    TFM_League::teamUrls().clear();
    TFM_Team::playerUrls().clear();
    EP_League::teamUrls().clear();
    EP_Team::playerUrls().clear();
    FMD_League::playerUrls().clear();
    FMD_League::teamUrls().clear();
    EP_TeamHistory::lastSeason = 0;
    EP_PlayerHistory::lastYear = 0;
}

void writeRecord(DataWrapper &record)
{
    for (const bool utf : {false, true}) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QTextStream stream;
        openCsvStream(stream, &buffer, utf);
        const QChar separator = csvSeparator(utf);
        if (utf)
            record.writeUtf(stream, separator);
        else
            record.writeAscii(stream, separator);
        stream.flush();
    }
}

void exercise(DataWrapper &record, const uint8_t *data, size_t size)
{
    reset();
    QString text = pageText(data, size);
    record.testReport(text);
    writeRecord(record);
}

} // namespace Fuzz
