// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>

#include <QUrl>

#include <arpa/inet.h>
#include <netinet/in.h>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

bool isThisMachine(const QString& host)
{
    if (host == u"localhost"_s) {
        return true;
    }
    // Only addresses as such: any other name could mean another machine by the time it is used.
    const QByteArray name = host.toLatin1();
    in_addr older{};
    in6_addr newer{};
    return (::inet_pton(AF_INET, name.constData(), &older) == 1
            && ntohl(older.s_addr) >> IN_CLASSA_NSHIFT == IN_LOOPBACKNET)
        || (::inet_pton(AF_INET6, name.constData(), &newer) == 1 && IN6_IS_ADDR_LOOPBACK(&newer));
}

} // namespace

bool mayFetch(const QUrl& url)
{
    if (!url.isValid() || url.isRelative() || url.host().isEmpty() || !url.userInfo().isEmpty()) {
        return false;
    }
    return url.scheme() == u"https"_s || (url.scheme() == u"http"_s && isThisMachine(url.host()));
}

bool mayFollow(const QUrl& from, const QUrl& to)
{
    return mayFetch(to) && (to.scheme() == u"https"_s || from.scheme() == u"http"_s);
}

} // namespace Tavik
