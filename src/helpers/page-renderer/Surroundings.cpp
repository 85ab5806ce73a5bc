#include "helpers/page-renderer/Surroundings.h"

#include <sys/stat.h>

#include <cstdlib>
#include <map>
#include <string>

namespace ovrin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kept[] = {
    "PATH",         "DISPLAY",       "WAYLAND_DISPLAY", "XAUTHORITY",      "LANG",
    "LANGUAGE",     "LC_ALL",        "LC_CTYPE",        "LC_MESSAGES",     "LC_TIME",
    "TZ",           "XDG_DATA_DIRS", "FONTCONFIG_PATH", "FONTCONFIG_FILE", "LD_LIBRARY_PATH",
    "ASAN_OPTIONS", "UBSAN_OPTIONS",
};

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

bool enterOwnSurroundings(const fs::path& folder)
{
    std::map<std::string, std::string> next;
    for (const char* name : kept) {
        if (const std::string value = variable(name); !value.empty())
            next[name] = value;
    }
    // Both are found relative to folders that are about to change.
    if (!next.contains("XAUTHORITY"))
        next["XAUTHORITY"] = variable("HOME") + "/.Xauthority";
    if (next.contains("WAYLAND_DISPLAY") && next["WAYLAND_DISPLAY"].front() != '/')
        next["WAYLAND_DISPLAY"] = variable("XDG_RUNTIME_DIR") + "/" + next["WAYLAND_DISPLAY"];

    const std::pair<const char*, const char*> own[] = {
        {"HOME", "home"},
        {"XDG_CONFIG_HOME", "config"},
        {"XDG_DATA_HOME", "data"},
        {"XDG_CACHE_HOME", "cache"},
        {"XDG_STATE_HOME", "state"},
        {"XDG_RUNTIME_DIR", "run"},
        {"TMPDIR", "tmp"},
    };
    for (const auto& [name, child] : own) {
        const fs::path path = folder / child;
        if (mkdir(path.c_str(), 0700) != 0)
            return false;
        next[name] = path.string();
    }
    next["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
    next["GDK_BACKEND"] = "x11,wayland";
    next["GIO_USE_VFS"] = "local";
    next["GSETTINGS_BACKEND"] = "memory";
    next["GTK_A11Y"] = "none";

    if (clearenv() != 0)
        return false;
    for (const auto& [name, value] : next) {
        if (setenv(name.c_str(), value.c_str(), 1) != 0)
            return false;
    }
    return true;
}

} // namespace ovrin
