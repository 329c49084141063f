#include "tests/support/networkfaults.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QByteArray fiftyMegabytes()
{
    // Text without a single marker of any scanner, so that the scans run through
    // it once and find nothing.
    const QByteArray line = "lorem ipsum dolor sit amet consectetur adipiscing elit\n"_ba;
    return line.repeated(50 * 1024 * 1024 / line.size() + 1);
}

// Another page of the site of url.
QString sameSite(const QString &url, const QString &path)
{
    return QUrl(url).resolved(QUrl(path)).toString();
}

} // namespace

QList<FaultyAnswer> faultyAnswers(const QByteArray &good, const QString &url)
{
    QList<FaultyAnswer> faults;
    auto add = [&faults](NetworkFault fault, const char *name) -> FixtureWeb::Answer & {
        faults.append({fault, name, {}});
        return faults.last().answer;
    };

    FixtureWeb::Answer *answer
        = &add(NetworkFault::ClosedMidBody, "closed in the middle of the body");
    answer->body = good;
    answer->truncateBodyAt = good.size() / 2;

    add(NetworkFault::ResetBeforeAnswer, "reset before any answer").resetConnection = true;
    add(NetworkFault::FiftyMegabytes, "body of 50 MB").body = fiftyMegabytes();
    add(NetworkFault::ZeroBytesOnly, "body of zero bytes only").body = QByteArray(64, '\0');
    add(NetworkFault::InvalidUtf8, "invalid UTF-8").body
        = "\xff\xfe\xc3("_ba + good + "\xed\xa0\x80\xc0\xaf"_ba;
    add(NetworkFault::ByteOrderMark, "byte-order mark in front").body = "\xef\xbb\xbf"_ba + good;

    answer = &add(NetworkFault::Status500, "500 with a body");
    answer->status = 500;
    answer->body = "<html><body>Internal trouble</body></html>"_ba;

    answer = &add(NetworkFault::Status404, "404 with a body");
    answer->status = 404;
    answer->body = "<html><body>No such page</body></html>"_ba;

    answer = &add(NetworkFault::RedirectToMissing, "redirect to a missing page");
    answer->status = 302;
    answer->location = sameSite(url, u"/nowhere/to/be/found"_s).toUtf8();
    answer->contentType.clear();

    add(NetworkFault::RedirectLoop, "redirect loop");
    faults.last().redirectLoop = true;

    add(NetworkFault::UntrustedCertificate, "untrusted certificate").body = good;
    faults.last().untrusted = true;
    return faults;
}

void putFault(FixtureWeb &web, const QString &url, const FaultyAnswer &fault, int attempts,
              const QString &before)
{
    if (fault.redirectLoop) {
        const QString other = sameSite(url, u"/round/and/round"_s);
        web.routeRedirect(url, other);
        web.routeRedirect(other, url);
    } else {
        web.route(url, fault.answer);
    }
    if (fault.untrusted)
        web.presentUntrustedCertificate(attempts, before);
}

QStringList errorLines(const QStringList &lines)
{
    QStringList errors;
    for (const QString &line : lines) {
        if (line.startsWith(u"ERROR"_s))
            errors.append(line);
    }
    return errors;
}
