// How long from a second start, files and links and all, to the window of the first being raised: whole
// processes, on a display and a bus of their own, as the display sees it.

#include "platform/VirtualDisplay.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <poll.h>

using namespace ovrin;

namespace {

constexpr int patience = 60'000;
constexpr int rounds = 30;

/// The display as a window manager sees it.
class Screen
{
public:
    explicit Screen(const QByteArray& display)
        : m_connection(xcb_connect(display.constData(), nullptr))
    {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        m_cover = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_cover, m_root, 0, 0, 1024, 768, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    ~Screen() { xcb_disconnect(m_connection); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// The large window that appears next; none when it takes too long.
    xcb_window_t appearing()
    {
        xcb_window_t found = XCB_NONE;
        until(XCB_MAP_NOTIFY, [&](const xcb_generic_event_t* event) {
            const auto window = reinterpret_cast<const xcb_map_notify_event_t*>(event)->window;
            auto* const size =
                xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr);
            if (window != m_cover && size && size->width > 500)
                found = window;
            std::free(size);
            return found != XCB_NONE;
        });
        return found;
    }
    void cover()
    {
        const uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_map_window(m_connection, m_cover);
        xcb_configure_window(m_connection, m_cover, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
        while (auto* const event = xcb_poll_for_event(m_connection))
            std::free(event);
    }
    bool isRaised(xcb_window_t window)
    {
        return until(XCB_CONFIGURE_NOTIFY, [&](const xcb_generic_event_t* event) {
            const auto* const change = reinterpret_cast<const xcb_configure_notify_event_t*>(event);
            return change->window == window && change->above_sibling == m_cover;
        });
    }

private:
    bool until(uint8_t type, const std::function<bool(const xcb_generic_event_t*)>& isIt)
    {
        xcb_flush(m_connection);
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < patience) {
            while (auto* const event = xcb_poll_for_event(m_connection)) {
                const bool isFound = (event->response_type & 0x7F) == type && isIt(event);
                std::free(event);
                if (isFound)
                    return true;
            }
            pollfd socket{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            ::poll(&socket, 1, 1000);
        }
        return false;
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    xcb_window_t m_cover;
};

void print(const char* what, std::vector<double> milliseconds)
{
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-44s median %6.1f ms   worst %6.1f ms\n", what, milliseconds[milliseconds.size() / 2],
                milliseconds.back());
}

double since(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const test::VirtualDisplay display;
    const ovrin::testing::PrivateBus bus;
    const QTemporaryDir home;
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QString::fromLatin1(name), home.path());
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display.name()));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));

    const auto start = [&](QProcess& process, const QStringList& arguments) {
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(OVRIN_PROGRAM), arguments);
    };
    Screen screen(display.name());
    QProcess first;
    start(first, {});
    const xcb_window_t window = screen.appearing();
    if (window == XCB_NONE)
        return 1;

    const auto measure = [&](const char* what, const QStringList& arguments) {
        std::vector<double> raised;
        std::vector<double> over;
        for (int round = 0; round < rounds; ++round) {
            screen.cover();
            QProcess second;
            QElapsedTimer timer;
            timer.start();
            start(second, arguments);
            if (!screen.isRaised(window))
                return false;
            raised.push_back(since(timer));
            second.waitForFinished(patience);
            over.push_back(since(timer));
        }
        print(what, raised);
        print("    and the second process gone", over);
        return true;
    };
    // The window appears before the program has done all for its first frame; one start waits for that.
    QProcess early;
    start(early, {});
    early.waitForFinished(patience);

    const bool isMeasured = measure("second start, to the window being raised", {}) &&
                            measure("with a link", {QStringLiteral("ovrin://whatever")});
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        QProcess process;
        QElapsedTimer timer;
        timer.start();
        start(process, {QStringLiteral("--version")});
        process.waitForFinished(patience);
        bare.push_back(since(timer));
    }
    print("for comparison: ovrin --version", bare);
    first.terminate();
    first.waitForFinished(patience);
    return isMeasured ? 0 : 1;
}
