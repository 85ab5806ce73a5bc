#include "helpers/page-renderer/PageView.h"

#include <array>
#include <string_view>

namespace ovrin {
namespace {

constexpr int viewWidth = 1024;
constexpr int viewHeight = 768;
/// The web process is ended at 1.25 times this: a page cannot take the machine's memory with it.
constexpr unsigned webMemoryMegabytes = 800;

bool isWebAddress(const char* address)
{
    const char* scheme = address != nullptr ? g_uri_peek_scheme(address) : nullptr;
    if (scheme == nullptr)
        return false;
    const std::string_view name(scheme);
    // about: is what frames start as.
    return name == "http" || name == "https" || name == "about";
}

gboolean decidePolicy(WebKitWebView* /*view*/, WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
                      gpointer /*data*/)
{
    bool allowed = false;
    if (type == WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION) {
        WebKitNavigationAction* action = webkit_navigation_policy_decision_get_navigation_action(
            WEBKIT_NAVIGATION_POLICY_DECISION(decision));
        allowed = isWebAddress(webkit_uri_request_get_uri(webkit_navigation_action_get_request(action)));
    } else if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) {
        allowed =
            webkit_response_policy_decision_is_mime_type_supported(WEBKIT_RESPONSE_POLICY_DECISION(decision));
    }
    if (allowed)
        webkit_policy_decision_use(decision);
    else
        webkit_policy_decision_ignore(decision);
    return TRUE;
}

/// For signals whose default would show or grant something: claiming to have dealt with them refuses.
gboolean refuse()
{
    return TRUE;
}

gboolean refusePermission(WebKitWebView* /*view*/, WebKitPermissionRequest* request, gpointer /*data*/)
{
    webkit_permission_request_deny(request);
    return TRUE;
}

gboolean refuseCredentials(WebKitWebView* /*view*/, WebKitAuthenticationRequest* request, gpointer /*data*/)
{
    webkit_authentication_request_cancel(request);
    return TRUE;
}

gboolean refuseFile(WebKitWebView* /*view*/, WebKitFileChooserRequest* request, gpointer /*data*/)
{
    webkit_file_chooser_request_cancel(request);
    return TRUE;
}

GtkWidget* refuseWindow(WebKitWebView* /*view*/, WebKitNavigationAction* /*action*/, gpointer /*data*/)
{
    return nullptr;
}

void refuseDownload(WebKitNetworkSession* /*session*/, WebKitDownload* download, gpointer /*data*/)
{
    webkit_download_cancel(download);
}

void connectRefusals(WebKitWebView* view, WebKitNetworkSession* session)
{
    g_signal_connect(view, "decide-policy", G_CALLBACK(decidePolicy), nullptr);
    g_signal_connect(view, "permission-request", G_CALLBACK(refusePermission), nullptr);
    g_signal_connect(view, "authenticate", G_CALLBACK(refuseCredentials), nullptr);
    g_signal_connect(view, "run-file-chooser", G_CALLBACK(refuseFile), nullptr);
    g_signal_connect(view, "create", G_CALLBACK(refuseWindow), nullptr);
    for (const char* signal : {"script-dialog", "run-color-chooser", "print", "enter-fullscreen",
                               "show-notification", "context-menu"})
        g_signal_connect(view, signal, G_CALLBACK(refuse), nullptr);
    g_signal_connect(session, "download-started", G_CALLBACK(refuseDownload), nullptr);
}

/// WebKit slows the timers of what nobody sees; here a page that nobody sees is all there is.
void runAsIfVisible(WebKitSettings* settings)
{
    constexpr std::array<std::string_view, 4> throttles{
        "HiddenPageDOMTimerThrottlingEnabled", "HiddenPageDOMTimerThrottlingAutoIncreases",
        "PageVisibilityBasedProcessSuppressionEnabled", "HiddenPageCSSAnimationSuppressionEnabled"};
    g_autoptr(WebKitFeatureList) features = webkit_settings_get_all_features();
    for (gsize index = 0; index < webkit_feature_list_get_length(features); ++index) {
        WebKitFeature* feature = webkit_feature_list_get(features, index);
        for (const std::string_view throttle : throttles) {
            if (throttle == webkit_feature_get_identifier(feature))
                webkit_settings_set_feature_enabled(settings, feature, FALSE);
        }
    }
}

WebKitSettings* makeSettings()
{
    WebKitSettings* settings = webkit_settings_new();
    g_object_set(settings, "enable-media", FALSE, "enable-webaudio", FALSE, "enable-webgl", FALSE,
                 "enable-webrtc", FALSE, "enable-media-stream", FALSE, "enable-mediasource", FALSE,
                 "enable-encrypted-media", FALSE, "enable-fullscreen", FALSE, "enable-page-cache", FALSE,
                 "enable-smooth-scrolling", FALSE, "enable-2d-canvas-acceleration", FALSE,
                 "javascript-can-open-windows-automatically", FALSE, "javascript-can-access-clipboard", FALSE,
                 "hardware-acceleration-policy", WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER, nullptr);
    runAsIfVisible(settings);
    return settings;
}

WebKitNetworkSession* makeSession(const std::string& proxy)
{
    WebKitNetworkSession* session = webkit_network_session_new_ephemeral();
    WebKitNetworkProxySettings* settings = webkit_network_proxy_settings_new(proxy.c_str(), nullptr);
    webkit_network_session_set_proxy_settings(session, WEBKIT_NETWORK_PROXY_MODE_CUSTOM, settings);
    webkit_network_proxy_settings_free(settings);
    webkit_network_session_set_persistent_credential_storage_enabled(session, FALSE);
    return session;
}

WebKitWebContext* makeContext()
{
    WebKitMemoryPressureSettings* pressure = webkit_memory_pressure_settings_new();
    webkit_memory_pressure_settings_set_memory_limit(pressure, webMemoryMegabytes);
    webkit_memory_pressure_settings_set_kill_threshold(pressure, 1.25);
    webkit_memory_pressure_settings_set_poll_interval(pressure, 1.0);
    auto* context = WEBKIT_WEB_CONTEXT(
        g_object_new(WEBKIT_TYPE_WEB_CONTEXT, "memory-pressure-settings", pressure, nullptr));
    webkit_memory_pressure_settings_free(pressure);
    webkit_web_context_set_cache_model(context, WEBKIT_CACHE_MODEL_DOCUMENT_VIEWER);
    return context;
}

} // namespace

WebKitWebView* makePageView(const std::string& proxy)
{
    g_autoptr(WebKitWebContext) context = makeContext();
    g_autoptr(WebKitNetworkSession) session = makeSession(proxy);
    g_autoptr(WebKitSettings) settings = makeSettings();
    auto* view = WEBKIT_WEB_VIEW(
        g_object_ref_sink(g_object_new(WEBKIT_TYPE_WEB_VIEW, "web-context", context, "network-session",
                                       session, "settings", settings, "is-muted", TRUE, nullptr)));
    connectRefusals(view, session);
    // Without a window nobody else gives it a size.
    gtk_widget_measure(GTK_WIDGET(view), GTK_ORIENTATION_HORIZONTAL, -1, nullptr, nullptr, nullptr, nullptr);
    gtk_widget_allocate(GTK_WIDGET(view), viewWidth, viewHeight, -1, nullptr);
    return view;
}

} // namespace ovrin
