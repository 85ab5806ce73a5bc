#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QSocketNotifier>
#include <QtCore/QUrl>

#include <memory>

namespace ovrin {

/// A real Chromium without a window, driven over its DevTools protocol, which reaches nothing but loopback.
/// Whatever goes wrong is a std::runtime_error.
class Chromium
{
public:
    /// With a profile in the folder `profile`.
    Chromium(const QString& profile, const QProcessEnvironment& environment);
    ~Chromium();

    /// The id that the browser gives the extension.
    QString load(const QString& extensionFolder);
    /// Opens `url` in a tab of its own, in front, and waits until the script `condition` holds in it.
    void open(const QUrl& url, const QString& condition);
    /// What a click on the extension's button does in the tab in front.
    void pressButton(const QString& extension);
    /// Waits until the script `expression` gives something but null in the document at `address`, and gives
    /// that.
    QJsonValue waitFor(const QString& address, const QString& expression);

private:
    QJsonObject call(const QString& method, const QJsonObject& parameters = {}, const QString& session = {});
    /// Waits until there is a target of that type at that very address; its id.
    QString find(const QString& type, const QString& address);
    void receive();

    QProcess m_process;
    int m_to = -1;
    int m_from = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_received;
    QJsonObject m_answers;
    int m_lastCall = 0;
    QUrl m_front;
};

} // namespace ovrin
