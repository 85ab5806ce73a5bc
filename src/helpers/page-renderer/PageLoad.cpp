#include "helpers/page-renderer/PageLoad.h"

#include <jsc/jsc.h>

#include <algorithm>

namespace ovrin {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto pollInterval = 500ms;
/// What the last look at a page may take after the deadline, should the page be busy.
constexpr auto lastLook = 250ms;

/// Runs in a world of its own, out of reach of what the page has done to its objects. The document's length
/// comes before the document, so that a giant is not carried from process to process.
constexpr const char* lookScript = R"js((() => {
    const html = document.documentElement.outerHTML;
    return [html.length <= 33554432 ? html : html.length,
            !!document.querySelector('script[type="application/ld+json"]')];
})())js";
static_assert(maxRenderedBytes == 33554432);

class PageLoad
{
public:
    PageLoad(WebKitWebView* view, Clock::time_point deadline)
        : m_view(view)
        , m_deadline(deadline)
        , m_loop(g_main_loop_new(nullptr, FALSE))
        , m_cancel(g_cancellable_new())
    {
    }

    RenderedPage run(const std::string& address)
    {
        g_signal_connect(m_view, "load-changed", G_CALLBACK(onLoadChanged), this);
        g_signal_connect(m_view, "load-failed", G_CALLBACK(onLoadFailed), this);
        g_signal_connect(m_view, "web-process-terminated", G_CALLBACK(onTerminated), this);
        after(m_deadline + lastLook - Clock::now(), onTooLate);
        webkit_web_view_load_uri(m_view, address.c_str());
        waitForNextLook();
        if (!m_ended)
            g_main_loop_run(m_loop);
        if (m_page.outcome == RenderOutcome::TimedOut && !m_page.html.empty())
            m_page.outcome = RenderOutcome::Rendered;
        if (m_page.outcome != RenderOutcome::Rendered)
            m_page.html.clear();
        return std::move(m_page);
    }

private:
    void after(Clock::duration delay, GSourceFunc then)
    {
        const auto wait = std::max(std::chrono::ceil<std::chrono::milliseconds>(delay), 0ms);
        g_timeout_add(static_cast<guint>(wait.count()), then, this);
    }

    void waitForNextLook()
    {
        const auto left = m_deadline - Clock::now();
        if (left <= 0ms)
            end(RenderOutcome::TimedOut);
        else
            after(std::min<Clock::duration>(pollInterval, left), onLook);
    }

    /// Whatever comes second no longer counts.
    void end(RenderOutcome outcome)
    {
        if (m_ended)
            return;
        m_ended = true;
        m_page.outcome = outcome;
        g_cancellable_cancel(m_cancel);
        webkit_web_view_stop_loading(m_view);
        g_main_loop_quit(m_loop);
    }

    void read(JSCValue* value)
    {
        if (!jsc_value_is_array(value))
            return;
        g_autoptr(JSCValue) html = jsc_value_object_get_property_at_index(value, 0);
        g_autoptr(JSCValue) hasRecipeData = jsc_value_object_get_property_at_index(value, 1);
        if (jsc_value_is_number(html))
            return end(RenderOutcome::TooLarge);
        if (!jsc_value_is_string(html))
            return;
        g_autoptr(GBytes) bytes = jsc_value_to_string_as_bytes(html);
        gsize size = 0;
        const auto* data = static_cast<const char*>(g_bytes_get_data(bytes, &size));
        if (size > maxRenderedBytes)
            return end(RenderOutcome::TooLarge);
        m_page.html.assign(data, size);
        if (jsc_value_is_boolean(hasRecipeData) && jsc_value_to_boolean(hasRecipeData))
            end(RenderOutcome::Rendered);
    }

    static gboolean onLook(gpointer self)
    {
        auto* load = static_cast<PageLoad*>(self);
        if (webkit_web_view_is_loading(load->m_view))
            load->waitForNextLook();
        else
            webkit_web_view_evaluate_javascript(load->m_view, lookScript, -1, "ovrin", nullptr,
                                                load->m_cancel, onLooked, load);
        return G_SOURCE_REMOVE;
    }

    static void onLooked(GObject* view, GAsyncResult* result, gpointer self)
    {
        auto* load = static_cast<PageLoad*>(self);
        g_autoptr(GError) error = nullptr;
        g_autoptr(JSCValue) value =
            webkit_web_view_evaluate_javascript_finish(WEBKIT_WEB_VIEW(view), result, &error);
        if (load->m_ended)
            return;
        if (value != nullptr)
            load->read(value);
        if (!load->m_ended)
            load->waitForNextLook();
    }

    static gboolean onTooLate(gpointer self)
    {
        static_cast<PageLoad*>(self)->end(RenderOutcome::TimedOut);
        return G_SOURCE_REMOVE;
    }

    static void onLoadChanged(WebKitWebView* /*view*/, WebKitLoadEvent event, gpointer self)
    {
        if (event == WEBKIT_LOAD_COMMITTED)
            static_cast<PageLoad*>(self)->m_committed = true;
    }

    /// A failure before there is any document is final; afterwards (a navigation of the page's own that leads
    /// nowhere, or was refused) the document that is there still counts. Claimed in any case: WebKit's
    /// error page is no recipe.
    static gboolean onLoadFailed(WebKitWebView* /*view*/, WebKitLoadEvent /*event*/, const char* /*address*/,
                                 GError* error, gpointer self)
    {
        auto* load = static_cast<PageLoad*>(self);
        const bool superseded = g_error_matches(error, WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED);
        if (!load->m_committed && !superseded)
            load->end(RenderOutcome::Failed);
        return TRUE;
    }

    static void onTerminated(WebKitWebView* /*view*/, WebKitWebProcessTerminationReason /*reason*/,
                             gpointer self)
    {
        auto* load = static_cast<PageLoad*>(self);
        load->end(load->m_page.html.empty() ? RenderOutcome::Failed : RenderOutcome::Rendered);
    }

    WebKitWebView* m_view;
    Clock::time_point m_deadline;
    // Both live as long as the process, which ends with its one page.
    GMainLoop* m_loop;
    GCancellable* m_cancel;
    bool m_committed = false;
    bool m_ended = false;
    RenderedPage m_page;
};

} // namespace

RenderedPage loadPage(WebKitWebView* view, const std::string& address, Clock::time_point deadline)
{
    // Left to the end of the process: WebKit may still call back.
    auto* load = new PageLoad(view, deadline);
    return load->run(address);
}

} // namespace ovrin
