#include "core/fetch.h"

#include "core/constants.h"
#include "core/fetchtesting.h"
#include "core/sharedstate.h"
#include "status/statusdisplay.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// The pause after a failed reply, before the next attempt or the return.
constexpr int errorPauseSeconds = 30;

int pace = 1000;
// Only a test that has changed the pace keeps a record of the waits: the
// program itself never calls the setter and so collects nothing over a run.
bool recordWaits = false;

QList<int> &waitRecord()
{
    static QList<int> waits;
    return waits;
}

// seconds * pace without overflow, and never negative: a timer with a negative
// interval would not start and the loop would never end.
int waitMilliseconds(int seconds)
{
    const qint64 milliseconds = qint64(seconds) * qint64(pace);
    if (milliseconds <= 0)
        return 0;
    if (milliseconds > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return int(milliseconds);
}

} // namespace

namespace FetchTesting {

void setMillisecondsPerSecond(int milliseconds)
{
    pace = milliseconds;
    recordWaits = true;
}

int millisecondsPerSecond()
{
    return pace;
}

const QList<int> &waitsSeen()
{
    return waitRecord();
}

void clearWaitsSeen()
{
    waitRecord().clear();
}

} // namespace FetchTesting

bool fetchPage(QString &text, const QString &url, bool followRedirects, QString *errorText,
               int delaySeconds, int attempts)
{
    const QUrl address(url, QUrl::TolerantMode);
    QNetworkRequest request(address);
    // A manager of its own for every call and every retry: no cookies, cache
    // or connection carry over from one page to the next. It takes the
    // application proxy by itself.
    QNetworkAccessManager manager;
    if (followRedirects)
        manager.setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);

    request.setRawHeader("User-Agent"_ba, "Mozilla/5.0 (Windows NT 10.0; Win64; x64)"_ba);
    request.setRawHeader("Referer"_ba, PLACEHOLDER_REFERER.toUtf8());

    QNetworkReply *reply = manager.get(request);

    // All events go on during the wait, user input included: the window stays
    // alive while a pass stands still here.
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();

    // The politeness delay comes before the reply is looked at, so a failure
    // waits it as well.
    if (delaySeconds != 0)
        waitSeconds(delaySeconds);

    const QNetworkReply::NetworkError error = reply->error();
    if (error == QNetworkReply::NoError) {
        if (statusDisplay)
            statusDisplay->showSuccess(address.toString());
    } else {
        const QString message = reply->errorString();
        if (statusDisplay)
            statusDisplay->showError(message);
        if (errorText)
            *errorText = message;
        waitSeconds(errorPauseSeconds);

        // The failed reply stays unread and uncounted; the manager takes it
        // along when this call returns.
        if (attempts > 1)
            return fetchPage(text, url, followRedirects, errorText, delaySeconds, attempts - 1);
        // The last attempt reads its body like a good one.
    }

    // Decoded as UTF-8 whatever the headers say, and only up to the first zero
    // byte: a body that starts with one gives an empty text.
    const QByteArray bytes = reply->readAll();
    text = QString::fromUtf8(bytes.constData(),
                             qsizetype(qstrnlen(bytes.constData(), size_t(bytes.size()))));

    if (statusDisplay)
        statusDisplay->increment(
            int(qMin(text.size(), qsizetype(std::numeric_limits<int>::max()))));

    delete reply;

    return error == QNetworkReply::NoError && text.size() >= 1;
}

bool fetchPage(QString &text, const QString &url)
{
    return fetchPage(text, url, false, nullptr, 0, 1);
}

bool fetchSitePage(QString &text, const QString &base, const QString &path, bool followRedirects,
                   QString *errorText, int delaySeconds, int attempts)
{
    const QString url = u"%1%2"_s.arg(base).arg(path);
    return fetchPage(text, url, followRedirects, errorText, delaySeconds, attempts);
}

void waitSeconds(int seconds)
{
    if (recordWaits)
        waitRecord().append(seconds);

    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(waitMilliseconds(seconds));
    loop.exec();
}

void addExpectedPage()
{
    if (statusDisplay)
        statusDisplay->incrementPageCountTotal(1);
}
