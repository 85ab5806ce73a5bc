#include "helpers/document-reader/photo/VipsLibrary.h"

#include <vips/vips.h>

#include <dlfcn.h>
#include <gmodule.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace ovrin::documentreader::VipsLibrary {

namespace {

/// More threads than this make a photo hardly faster, and each takes memory of its own.
constexpr int maximumThreads = 4;

bool start()
{
    // At start the library would load every module it finds, for PDF, microscopes and whatnot: half its
    // start-up time, and code that is never wanted. Looking for them in a place that does not exist, it finds
    // none.
    setenv("VIPSHOME", "/nonexistent", 1);
    // Nothing may be written to disk: large pictures stay in memory, or fail at its limit.
    setenv("VIPS_DISC_THRESHOLD", "1024g", 1);
    if (vips_init("document-reader") != 0) {
        return false;
    }
    vips_block_untrusted_set(TRUE);
    // Each picture is read once.
    vips_cache_set_max(0);
    vips_concurrency_set(std::min(vips_concurrency_get(), maximumThreads));
    return true;
}

/// HEIC and AVIF are read by a module, where the library was not built with them inside.
bool loadHeifModule()
{
    Dl_info library{};
    if (dladdr(reinterpret_cast<void*>(&vips_init), &library) == 0) {
        return false;
    }
    const auto version = std::to_string(vips_version(0)) + "." + std::to_string(vips_version(1));
    const auto module =
        std::filesystem::path(library.dli_fname).parent_path() / ("vips-modules-" + version) / "vips-heif.so";
    auto* handle = g_module_open(module.c_str(), G_MODULE_BIND_LAZY);
    if (handle != nullptr) {
        g_module_make_resident(handle);
    }
    return handle != nullptr || vips_type_find("VipsOperation", "heifload_buffer") != 0;
}

QByteArrayView loaderName(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Jpeg:
        return "VipsForeignLoadJpegBuffer";
    case PictureFormat::Png:
        return "VipsForeignLoadPngBuffer";
    case PictureFormat::WebP:
        return "VipsForeignLoadWebpBuffer";
    case PictureFormat::Tiff:
        return "VipsForeignLoadTiffBuffer";
    case PictureFormat::Gif:
        return "VipsForeignLoadNsgifBuffer";
    case PictureFormat::Heif:
        return "VipsForeignLoadHeifBuffer";
    }
    return {};
}

} // namespace

bool isReadyFor(PictureFormat format, const QByteArray& bytes)
{
    static const bool started = start();
    if (!started) {
        return false;
    }
    if (format == PictureFormat::Heif) {
        static const bool loaded = loadHeifModule();
        if (!loaded) {
            return false;
        }
    }
    const auto* loader = vips_foreign_find_load_buffer(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return loader != nullptr && loaderName(format) == loader;
}

} // namespace ovrin::documentreader::VipsLibrary
