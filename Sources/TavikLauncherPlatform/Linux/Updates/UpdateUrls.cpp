// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>

#include <QHostAddress>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

bool isThisMachine(const QString& host)
{
    if (host == u"localhost"_s) {
        return true;
    }
    // Only addresses as such: any other name could mean another machine by the time it is used.
    return QHostAddress(host).isLoopback();
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
