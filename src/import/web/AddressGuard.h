#pragma once

#include <QtCore/QUrl>
#include <QtNetwork/QHostAddress>

namespace ovrin {

/// Whether `address` is anywhere but on the public internet: private, loopback, link-local, shared by a
/// provider, multicast or reserved (the special-purpose registries of RFC 6890), also when it is an IPv4
/// address in one of the IPv6 forms that lead to it.
bool isPrivateAddress(const QHostAddress& address);

/// Whether `url` is one that HTTP can fetch.
bool isWebAddress(const QUrl& url);

/// Where the answer from `from` leads that names `location`. Credentials stay on the host that they were
/// given for. Throws TransportError when that is no web address, or one that gives encryption up.
QUrl redirectTarget(const QUrl& from, const QUrl& location);

} // namespace ovrin
