#include "tests/support/fixtureweb.h"

#include "core/fetchtesting.h"
#include "tests/support/testsupport.h"

#include <QHash>
#include <QHostAddress>
#include <QNetworkProxy>
#include <QPointer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <cstring>
#include <functional>
#include <memory>
#include <utility>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

// Longest request head the origin reads before it gives up on a client.
constexpr qsizetype maxHeadSize = 64 * 1024;

QByteArray reasonPhrase(int status)
{
    switch (status) {
    case 200:
        return "OK"_ba;
    case 204:
        return "No Content"_ba;
    case 301:
        return "Moved Permanently"_ba;
    case 302:
        return "Found"_ba;
    case 303:
        return "See Other"_ba;
    case 307:
        return "Temporary Redirect"_ba;
    case 308:
        return "Permanent Redirect"_ba;
    case 400:
        return "Bad Request"_ba;
    case 403:
        return "Forbidden"_ba;
    case 404:
        return "Not Found"_ba;
    case 429:
        return "Too Many Requests"_ba;
    case 500:
        return "Internal Server Error"_ba;
    case 502:
        return "Bad Gateway"_ba;
    case 503:
        return "Service Unavailable"_ba;
    default:
        return "Status"_ba;
    }
}

// Hands the socket descriptor of each connection to a callback, which wraps it
// in a QSslSocket: QTcpServer alone would make a plain socket of it.
class TlsServer : public QTcpServer
{
public:
    std::function<void(qintptr)> incoming;

protected:
    void incomingConnection(qintptr handle) override
    {
        if (incoming)
            incoming(handle);
    }
};

// Where a SOCKS5 conversation with one client stands.
struct SocksState
{
    enum Stage { Greeting, Login, Request, Connecting, Relaying, Closed };
    Stage stage = Greeting;
    QByteArray buffer;
    // The port the client asked for in its CONNECT.
    quint16 port = 0;
    QPointer<QTcpSocket> upstream;
};

QByteArray socksReply(char code)
{
    // VER, REP, RSV, ATYP IPv4, BND.ADDR 0.0.0.0, BND.PORT 0
    QByteArray reply("\x05\x00\x00\x01\x00\x00\x00\x00\x00\x00", 10);
    reply[1] = code;
    return reply;
}

quint8 byteAt(const QByteArray &bytes, qsizetype i)
{
    return quint8(bytes.at(i));
}

// Closes with a TCP reset instead of the orderly close: a linger time of zero
// makes the kernel drop the connection at once.
void resetSocket(QAbstractSocket *socket)
{
    if (!socket || socket->state() == QAbstractSocket::UnconnectedState)
        return;
    const linger immediately{1, 0};
    setsockopt(int(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &immediately,
               sizeof immediately);
    socket->abort();
}

} // namespace

class FixtureWeb::Private
{
public:
    struct Route
    {
        QList<Answer> answers;
        qsizetype served = 0;
    };

    explicit Private(FixtureWeb *owner)
        : q(owner)
    { }
    ~Private();

    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    FixtureWeb *q;
    QTcpServer proxyServer;
    TlsServer tlsServer;
    QTcpServer plainServer;
    QSslConfiguration originTls;
    QSslConfiguration untrustedTls;
    int untrustedLeft = 0;
    int untrustedAfter = 0;
    QString untrustedAfterUrl;
    bool refuseLogins = false;
    QList<QPair<QPointer<QTcpSocket>, Answer>> held;
    // The proxy's client connection behind each of its upstream connections,
    // by the upstream's local port, so that a reset reaches the client.
    QHash<quint16, QPointer<QTcpSocket>> relayClients;
    QHash<QString, Route> routes;
    QList<Request> log;
    QStringList targets;
    QList<QPair<QString, QString>> logins;

    bool loadTls();
    void acceptTls(qintptr handle);
    void serveOrigin(QTcpSocket *socket, const QString &scheme);
    void handleRequest(QTcpSocket *socket, const QString &scheme, const QByteArray &head);
    Answer nextAnswer(const QString &url);
    void respond(QTcpSocket *socket, const Answer &answer);

    void acceptProxyClient(QTcpSocket *client);
    void proceed(QTcpSocket *client, SocksState &state);
    void openUpstream(QTcpSocket *client, const std::shared_ptr<SocksState> &state);
};

FixtureWeb::Private::~Private()
{
    // No handler may run on a socket that is being torn down with its server.
    for (QTcpServer *server : {static_cast<QTcpServer *>(&proxyServer),
                               static_cast<QTcpServer *>(&tlsServer), &plainServer}) {
        server->close();
        const QList<QAbstractSocket *> sockets = server->findChildren<QAbstractSocket *>();
        for (QAbstractSocket *socket : sockets)
            QObject::disconnect(socket, nullptr, nullptr, nullptr);
    }
}

bool FixtureWeb::Private::loadTls()
{
    const QList<QSslCertificate> authority
        = QSslCertificate::fromData(fixtureBytes(u"tls/ca.pem"_s), QSsl::Pem);
    const QList<QSslCertificate> origin
        = QSslCertificate::fromData(fixtureBytes(u"tls/server.pem"_s), QSsl::Pem);
    const QSslKey key(fixtureBytes(u"tls/server.key"_s), QSsl::Rsa, QSsl::Pem);
    const QList<QSslCertificate> untrusted
        = QSslCertificate::fromData(fixtureBytes(u"tls/untrusted.pem"_s), QSsl::Pem);
    const QSslKey untrustedKey(fixtureBytes(u"tls/untrusted.key"_s), QSsl::Rsa, QSsl::Pem);
    if (authority.isEmpty() || origin.isEmpty() || key.isNull() || untrusted.isEmpty()
        || untrustedKey.isNull()) {
        qWarning("FixtureWeb: the test certificates under tests/fixtures/tls can't be read");
        return false;
    }

    // Trusted by this process only, and by every request made from now on.
    QSslConfiguration client = QSslConfiguration::defaultConfiguration();
    if (!client.caCertificates().contains(authority.first())) {
        client.addCaCertificates(authority);
        QSslConfiguration::setDefaultConfiguration(client);
    }

    originTls = QSslConfiguration::defaultConfiguration();
    originTls.setLocalCertificate(origin.first());
    originTls.setPrivateKey(key);
    originTls.setPeerVerifyMode(QSslSocket::VerifyNone);
    originTls.setProtocol(QSsl::TlsV1_2OrLater);
    // No h2 in ALPN: the client falls back to HTTP/1.1, which is all the
    // origin speaks.
    originTls.setAllowedNextProtocols({});

    untrustedTls = originTls;
    untrustedTls.setLocalCertificate(untrusted.first());
    untrustedTls.setPrivateKey(untrustedKey);
    return true;
}

void FixtureWeb::Private::acceptTls(qintptr handle)
{
    auto *socket = new QSslSocket(&tlsServer);
    if (!socket->setSocketDescriptor(handle)) {
        delete socket;
        return;
    }
    if (untrustedLeft > 0) {
        --untrustedLeft;
        socket->setSslConfiguration(untrustedTls);
    } else {
        socket->setSslConfiguration(originTls);
    }
    QObject::connect(socket, &QAbstractSocket::errorOccurred, socket,
                     [socket](QAbstractSocket::SocketError error) {
                         if (error != QAbstractSocket::RemoteHostClosedError
                             && socket->state() != QAbstractSocket::UnconnectedState)
                             socket->abort();
                     });
    serveOrigin(socket, u"https"_s);
    socket->startServerEncryption();
}

void FixtureWeb::Private::serveOrigin(QTcpSocket *socket, const QString &scheme)
{
    // One request a connection: the answer says "Connection: close".
    auto head = std::make_shared<QByteArray>();
    auto answered = std::make_shared<bool>(false);
    QObject::connect(socket, &QIODevice::readyRead, socket, [this, socket, scheme, head, answered] {
        head->append(socket->readAll());
        if (*answered)
            return;
        const qsizetype end = head->indexOf("\r\n\r\n"_ba);
        if (end < 0) {
            if (head->size() > maxHeadSize)
                socket->abort();
            return;
        }
        *answered = true;
        handleRequest(socket, scheme, head->left(end));
    });
    QObject::connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
}

void FixtureWeb::Private::handleRequest(QTcpSocket *socket, const QString &scheme,
                                        const QByteArray &head)
{
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');

    Request request;
    request.method = requestLine.value(0);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QByteArray line = lines.at(i).trimmed();
        const qsizetype colon = line.indexOf(':');
        if (colon <= 0)
            continue;
        request.headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    }

    const QByteArray target = requestLine.value(1);
    QString host = QString::fromLatin1(request.header("Host"_ba));
    if (host.isEmpty())
        host = u"127.0.0.1:%1"_s.arg(socket->localPort());
    if (target.startsWith("http://"_ba) || target.startsWith("https://"_ba))
        request.url = canonicalUrl(QString::fromLatin1(target));
    else
        request.url = canonicalUrl(scheme + u"://"_s + host + QString::fromLatin1(target));
    log.append(request);
    if (!untrustedAfterUrl.isEmpty() && request.url == untrustedAfterUrl) {
        untrustedLeft = untrustedAfter;
        untrustedAfterUrl.clear();
    }
    emit q->requestArrived(request.url);

    const Answer answer = nextAnswer(request.url);
    if (answer.hold) {
        held.append({socket, answer});
        return;
    }
    if (answer.delayMilliseconds > 0) {
        QTimer::singleShot(answer.delayMilliseconds, socket,
                           [this, socket, answer] { respond(socket, answer); });
        return;
    }
    respond(socket, answer);
}

FixtureWeb::Answer FixtureWeb::Private::nextAnswer(const QString &url)
{
    const auto found = routes.find(url);
    if (found == routes.end() || found->answers.isEmpty()) {
        Answer missing;
        missing.status = 404;
        missing.contentType.clear();
        return missing;
    }
    const qsizetype i = qMin(found->served, found->answers.size() - 1);
    ++found->served;
    return found->answers.at(i);
}

void FixtureWeb::Private::respond(QTcpSocket *socket, const Answer &answer)
{
    if (socket->state() != QAbstractSocket::ConnectedState)
        return;
    if (answer.closeConnection) {
        socket->disconnectFromHost();
        return;
    }
    if (answer.resetConnection) {
        // The client's side first: resetting the origin's side alone would reach
        // a proxied client only as the proxy's orderly close.
        resetSocket(relayClients.take(socket->peerPort()));
        resetSocket(socket);
        return;
    }

    QByteArray out = "HTTP/1.1 "_ba + QByteArray::number(answer.status) + ' '
        + reasonPhrase(answer.status) + "\r\n"_ba;
    if (!answer.contentType.isEmpty())
        out += "Content-Type: "_ba + answer.contentType + "\r\n"_ba;
    if (!answer.location.isEmpty())
        out += "Location: "_ba + answer.location + "\r\n"_ba;
    for (const auto &[name, value] : answer.headers)
        out += name + ": "_ba + value + "\r\n"_ba;
    out += "Content-Length: "_ba + QByteArray::number(answer.body.size()) + "\r\n"_ba;
    out += "Connection: close\r\n\r\n"_ba;
    out += answer.truncateBodyAt >= 0 ? answer.body.left(answer.truncateBodyAt) : answer.body;
    socket->write(out);
    socket->disconnectFromHost();
}

void FixtureWeb::Private::acceptProxyClient(QTcpSocket *client)
{
    auto state = std::make_shared<SocksState>();
    QObject::connect(client, &QIODevice::readyRead, client, [this, client, state] {
        state->buffer.append(client->readAll());
        proceed(client, *state);
        if (state->stage == SocksState::Connecting && state->upstream.isNull())
            openUpstream(client, state);
    });
    QObject::connect(client, &QAbstractSocket::disconnected, client, [client, state] {
        state->stage = SocksState::Closed;
        if (state->upstream)
            state->upstream->disconnectFromHost();
        client->deleteLater();
    });
}

void FixtureWeb::Private::proceed(QTcpSocket *client, SocksState &state)
{
    QByteArray &in = state.buffer;
    for (;;) {
        switch (state.stage) {
        case SocksState::Greeting: {
            if (in.size() < 2)
                return;
            const qsizetype count = byteAt(in, 1);
            if (in.size() < 2 + count)
                return;
            const QByteArray methods = in.mid(2, count);
            in.remove(0, 2 + count);
            if (methods.contains('\x02')) {
                client->write("\x05\x02"_ba);
                state.stage = SocksState::Login;
            } else if (methods.contains('\x00')) {
                client->write(QByteArray("\x05\x00", 2));
                state.stage = SocksState::Request;
            } else {
                client->write("\x05\xff"_ba);
                state.stage = SocksState::Closed;
                client->disconnectFromHost();
                return;
            }
            break;
        }
        case SocksState::Login: {
            // Any user name and password will do; they are only noted.
            if (in.size() < 2)
                return;
            const qsizetype userLength = byteAt(in, 1);
            if (in.size() < 3 + userLength)
                return;
            const qsizetype passwordLength = byteAt(in, 2 + userLength);
            if (in.size() < 3 + userLength + passwordLength)
                return;
            logins.append({QString::fromUtf8(in.mid(2, userLength)),
                           QString::fromUtf8(in.mid(3 + userLength, passwordLength))});
            in.remove(0, 3 + userLength + passwordLength);
            if (refuseLogins) {
                client->write(QByteArray("\x01\x01", 2));
                state.stage = SocksState::Closed;
                client->disconnectFromHost();
                return;
            }
            client->write(QByteArray("\x01\x00", 2));
            state.stage = SocksState::Request;
            break;
        }
        case SocksState::Request: {
            if (in.size() < 5)
                return;
            qsizetype addressLength = 0;
            switch (byteAt(in, 3)) {
            case 1:
                addressLength = 4;
                break;
            case 3:
                addressLength = 1 + byteAt(in, 4);
                break;
            case 4:
                addressLength = 16;
                break;
            default:
                client->write(socksReply('\x08'));
                state.stage = SocksState::Closed;
                client->disconnectFromHost();
                return;
            }
            if (in.size() < 4 + addressLength + 2)
                return;
            const quint8 command = byteAt(in, 1);
            QString host;
            if (byteAt(in, 3) == 3) {
                host = QString::fromLatin1(in.mid(5, addressLength - 1));
            } else if (byteAt(in, 3) == 1) {
                host = QHostAddress(qFromBigEndian<quint32>(in.constData() + 4)).toString();
            } else {
                Q_IPV6ADDR address;
                std::memcpy(address.c, in.constData() + 4, 16);
                host = QHostAddress(address).toString();
            }
            const quint16 port = qFromBigEndian<quint16>(in.constData() + 4 + addressLength);
            in.remove(0, 4 + addressLength + 2);
            if (command != 1) {
                client->write(socksReply('\x07'));
                state.stage = SocksState::Closed;
                client->disconnectFromHost();
                return;
            }
            targets.append(host + u':' + QString::number(port));
            state.port = port;
            state.stage = SocksState::Connecting;
            return;
        }
        case SocksState::Connecting:
        case SocksState::Closed:
            return;
        case SocksState::Relaying:
            if (!in.isEmpty() && state.upstream)
                state.upstream->write(in);
            in.clear();
            return;
        }
    }
}

void FixtureWeb::Private::openUpstream(QTcpSocket *client, const std::shared_ptr<SocksState> &state)
{
    // Whatever the host, the origin answers: TLS for 443, plain for the rest.
    auto *upstream = new QTcpSocket(client);
    upstream->setProxy(QNetworkProxy::NoProxy);
    state->upstream = upstream;

    QObject::connect(upstream, &QAbstractSocket::connected, client,
                     [this, client, upstream, state] {
                         if (state->stage != SocksState::Connecting)
                             return;
                         relayClients.insert(upstream->localPort(), client);
                         client->write(socksReply('\x00'));
                         state->stage = SocksState::Relaying;
                         if (!state->buffer.isEmpty()) {
                             upstream->write(state->buffer);
                             state->buffer.clear();
                         }
                     });
    // A client that was reset takes nothing more.
    QObject::connect(upstream, &QIODevice::readyRead, client, [client, upstream] {
        const QByteArray bytes = upstream->readAll();
        if (client->isOpen())
            client->write(bytes);
    });
    QObject::connect(upstream, &QAbstractSocket::disconnected, client, [client, upstream, state] {
        const QByteArray bytes = upstream->readAll();
        if (client->isOpen())
            client->write(bytes);
        if (state->stage != SocksState::Closed) {
            state->stage = SocksState::Closed;
            client->disconnectFromHost();
        }
    });
    QObject::connect(upstream, &QAbstractSocket::errorOccurred, client,
                     [client, state](QAbstractSocket::SocketError) {
                         if (state->stage != SocksState::Connecting)
                             return;
                         client->write(socksReply('\x05'));
                         state->stage = SocksState::Closed;
                         client->disconnectFromHost();
                     });

    const quint16 origin = state->port == 443 ? tlsServer.serverPort() : plainServer.serverPort();
    upstream->connectToHost(QHostAddress(QHostAddress::LocalHost), origin);
}

QByteArray FixtureWeb::Request::header(const QByteArray &name) const
{
    for (const auto &[key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

FixtureWeb::FixtureWeb(QObject *parent)
    : QObject(parent)
    , d(new Private(this))
{
    d->tlsServer.incoming = [this](qintptr handle) { d->acceptTls(handle); };
    connect(&d->plainServer, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = d->plainServer.nextPendingConnection())
            d->serveOrigin(socket, u"http"_s);
    });
    connect(&d->proxyServer, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = d->proxyServer.nextPendingConnection())
            d->acceptProxyClient(socket);
    });
}

FixtureWeb::~FixtureWeb()
{
    // The application proxy is left on the closed port: a stray request after
    // the web is gone fails on loopback instead of going out.
    delete d;
}

bool FixtureWeb::start()
{
    if (!d->loadTls())
        return false;
    const QHostAddress loopback(QHostAddress::LocalHost);
    for (QTcpServer *server :
         {static_cast<QTcpServer *>(&d->tlsServer), &d->plainServer, &d->proxyServer}) {
        // Connections of the fixture web itself never go through a proxy.
        server->setProxy(QNetworkProxy::NoProxy);
        if (!server->isListening() && !server->listen(loopback, 0)) {
            qWarning("FixtureWeb: can't listen on 127.0.0.1: %s",
                     qPrintable(server->errorString()));
            return false;
        }
    }
    useAsApplicationProxy();
    return true;
}

void FixtureWeb::useAsApplicationProxy() const
{
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::Socks5Proxy, u"127.0.0.1"_s, d->proxyServer.serverPort()));
}

void FixtureWeb::route(const QString &url, const Answer &answer)
{
    routeSequence(url, {answer});
}

void FixtureWeb::routeFile(const QString &url, const QString &fixture, int status)
{
    const QByteArray body = fixtureBytes(fixture);
    if (body.isNull()) {
        // A misspelt fixture answers like a missing page, and says so.
        qWarning("FixtureWeb: fixture %s can't be read", qPrintable(fixturePath(fixture)));
        routeBody(url, QByteArray(), 404);
        return;
    }
    routeBody(url, body, status);
}

void FixtureWeb::routeBody(const QString &url, const QByteArray &body, int status)
{
    Answer answer;
    answer.status = status;
    answer.body = body;
    route(url, answer);
}

void FixtureWeb::routeSequence(const QString &url, const QList<Answer> &answers)
{
    d->routes.insert(canonicalUrl(url), Private::Route{answers, 0});
}

void FixtureWeb::routeRedirect(const QString &url, const QString &location, int status)
{
    Answer answer;
    answer.status = status;
    answer.location = location.toUtf8();
    answer.contentType.clear();
    route(url, answer);
}

void FixtureWeb::clearRoutes()
{
    d->routes.clear();
    d->untrustedLeft = 0;
    d->untrustedAfterUrl.clear();
    d->refuseLogins = false;
}

void FixtureWeb::presentUntrustedCertificate(int count, const QString &afterUrl)
{
    if (afterUrl.isEmpty()) {
        d->untrustedLeft = count;
        return;
    }
    d->untrustedAfter = count;
    d->untrustedAfterUrl = canonicalUrl(afterUrl);
}

void FixtureWeb::releaseHeld()
{
    const auto held = std::exchange(d->held, {});
    for (const auto &[socket, answer] : held) {
        if (socket)
            d->respond(socket, answer);
    }
}

void FixtureWeb::whenRequested(const QString &url, QObject *context, std::function<void()> action)
{
    const QString key = url.isEmpty() ? QString() : canonicalUrl(url);
    auto watch = std::make_shared<QMetaObject::Connection>();
    *watch = connect(this, &FixtureWeb::requestArrived, context,
                     [key, context, watch, action = std::move(action)](const QString &arrived) {
                         if (!key.isEmpty() && arrived != key)
                             return;
                         disconnect(*watch);
                         QTimer::singleShot(0, context, action);
                     });
}

void FixtureWeb::setProxyRefusesLogins(bool refuse)
{
    d->refuseLogins = refuse;
}

QList<FixtureWeb::Request> FixtureWeb::requests() const
{
    return d->log;
}

QStringList FixtureWeb::requestedUrls() const
{
    QStringList urls;
    for (const Request &request : d->log)
        urls.append(request.url);
    return urls;
}

int FixtureWeb::requestCount(const QString &url) const
{
    const QString key = canonicalUrl(url);
    int count = 0;
    for (const Request &request : std::as_const(d->log)) {
        if (request.url == key)
            ++count;
    }
    return count;
}

void FixtureWeb::clearRequests()
{
    d->log.clear();
    d->targets.clear();
    d->logins.clear();
}

QStringList FixtureWeb::proxyTargets() const
{
    return d->targets;
}

QList<QPair<QString, QString>> FixtureWeb::proxyLogins() const
{
    return d->logins;
}

QStringList FixtureWeb::canonicalUrls(const QStringList &urls)
{
    QStringList result;
    for (const QString &url : urls)
        result.append(canonicalUrl(url));
    return result;
}

QString FixtureWeb::canonicalUrl(const QString &url)
{
    QUrl parsed(url, QUrl::TolerantMode);
    if (parsed.path().isEmpty())
        parsed.setPath(u"/"_s);
    return parsed.toString(QUrl::FullyEncoded | QUrl::RemoveFragment);
}

quint16 FixtureWeb::proxyPort() const
{
    return d->proxyServer.serverPort();
}

quint16 FixtureWeb::plainPort() const
{
    return d->plainServer.serverPort();
}

QString FixtureWeb::plainUrl(const QString &path) const
{
    return u"http://127.0.0.1:%1"_s.arg(d->plainServer.serverPort()) + path;
}

FastWaits::FastWaits(int millisecondsPerSecond)
{
    FetchTesting::setMillisecondsPerSecond(millisecondsPerSecond);
    FetchTesting::clearWaitsSeen();
}

FastWaits::~FastWaits()
{
    FetchTesting::setMillisecondsPerSecond(1000);
}
