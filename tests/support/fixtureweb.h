#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QStringList>

#include <functional>

// An in-process web on loopback for end-to-end tests. The origin answers for the
// sites' real host names over HTTPS, with a certificate of a test authority that
// only this process trusts, and over plain HTTP on its own port. A SOCKS5 proxy
// hands every connection to the origin; start() makes it the application proxy,
// so the product's own addresses reach the fixtures unchanged.
//
// Adding a page takes one line:
//     web.routeFile(TFM_ROOT_URL + u"/x/startseite/wettbewerb/GB1/plus/?saison_id=2023"_s,
//                   u"tfm/league_clubs.html"_s);
class FixtureWeb : public QObject
{
    Q_OBJECT

public:
    // One scripted answer.
    struct Answer
    {
        int status = 200;
        QByteArray body;
        QByteArray contentType = "text/html; charset=utf-8";
        // With a 3xx status: the Location header.
        QByteArray location;
        // Close the connection without any answer. Qt sends a request whose
        // connection closed unanswered once more on a new one (Qt 6.4), and
        // each try takes the next answer of a sequence.
        bool closeConnection = false;
        // Further response headers, in this order (e.g. "Set-Cookie").
        QList<QPair<QByteArray, QByteArray>> headers;
        // Hold the answer back this long after the request has arrived.
        int delayMilliseconds = 0;
        // Reset the connection (TCP RST) as soon as the request is in, without
        // a byte of answer. Through the proxy, the client's own connection to
        // the proxy is reset as well.
        bool resetConnection = false;
        // Send the headers with the whole body's Content-Length, then only this
        // many bytes of the body, and close: a body cut short. -1 sends it all.
        qsizetype truncateBodyAt = -1;
        // Keep the answer back until releaseHeld(): the client waits as long as
        // the test wants, with no clock involved.
        bool hold = false;
    };

    // One request as the origin received it.
    struct Request
    {
        QString url; // scheme://host/path?query, as routes are keyed
        QByteArray method;
        QList<QPair<QByteArray, QByteArray>> headers; // in the order received
        QByteArray header(const QByteArray &name) const; // case-insensitive, first match
    };

    explicit FixtureWeb(QObject *parent = nullptr);
    ~FixtureWeb() override;

    // Listens on 127.0.0.1, trusts the test authority in this process and sets the
    // SOCKS5 proxy as the application proxy. False when a socket could not listen.
    bool start();
    // Sets the application proxy to the SOCKS5 proxy again (after a test changed it).
    void useAsApplicationProxy() const;

    // url is the full address as the product asks for it: "https://host/path?query"
    // or, for the plain origin, plainUrl(path). An unrouted address answers 404
    // with an empty body.
    void route(const QString &url, const Answer &answer);
    void routeFile(const QString &url, const QString &fixture, int status = 200);
    void routeBody(const QString &url, const QByteArray &body, int status = 200);
    // The i-th request gets answers[i]; the last answer repeats.
    void routeSequence(const QString &url, const QList<Answer> &answers);
    // A 3xx answer that sends the client on to location.
    void routeRedirect(const QString &url, const QString &location, int status = 302);
    // Also ends the faults below.
    void clearRoutes();

    // The next count TLS connections show a certificate for the same hosts that
    // no authority of the tests signed: the client refuses it during the
    // handshake, before it sends its request. With afterUrl, the count starts
    // once a request for that address has come in.
    void presentUntrustedCertificate(int count, const QString &afterUrl = QString());
    // While set, the SOCKS5 proxy answers every login with a refusal and closes.
    void setProxyRefusesLogins(bool refuse);

    // Sends every answer held back so far.
    void releaseHeld();
    // Runs action once, when the first request for url comes in (with an empty
    // url, the first request of all). It is posted out of the server's handler,
    // so it runs in the event loop of the client that waits for the answer: with
    // that answer held, the action has the wait to itself. The watch ends with
    // context, whether a request came or not.
    void whenRequested(const QString &url, QObject *context, std::function<void()> action);

    QList<Request> requests() const;
    // The addresses of requests(), in order.
    QStringList requestedUrls() const;
    int requestCount(const QString &url) const;
    // Also clears proxyTargets() and proxyLogins().
    void clearRequests();

    // "host:port" of every CONNECT the SOCKS5 proxy was asked for, in order.
    QStringList proxyTargets() const;
    // User name and password of every login at the proxy, in order; a client
    // without credentials logs in without any and adds nothing here.
    QList<QPair<QString, QString>> proxyLogins() const;

    // An address in the form routes and Request::url are kept in: host in lower
    // case, "/" for an empty path, percent-encoded, fragment dropped.
    static QString canonicalUrl(const QString &url);
    static QStringList canonicalUrls(const QStringList &urls);

    quint16 proxyPort() const;
    quint16 plainPort() const;
    // "http://127.0.0.1:<port>" + path
    QString plainUrl(const QString &path) const;

signals:
    // A request has come in, in the form of Request::url; emitted before it is answered.
    void requestArrived(const QString &url);

private:
    class Private;
    Private *d;
};

// Shortens the fetcher's pacing waits to one millisecond a second while it lives,
// and clears the record of waits seen.
class FastWaits
{
public:
    explicit FastWaits(int millisecondsPerSecond = 1);
    ~FastWaits();
    FastWaits(const FastWaits &) = delete;
    FastWaits &operator=(const FastWaits &) = delete;
};
