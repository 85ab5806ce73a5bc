#include "helpers/document-reader/Cage.h"

#include "helpers/document-reader/RequestTypes.h"

namespace ovrin::documentreader {

sandbox::Confinement cage(const std::filesystem::path& programFolder)
{
    return {
        .readable =
            {
                // Shared libraries: modules are loaded once the request is known, inside the cage.
                "/lib",
                "/lib64",
                "/usr/lib",
                "/usr/lib64",
                "/usr/local/lib",
                "/etc/ld.so.cache",
                programFolder,
                // Fonts that a document names but does not carry, and its character maps.
                "/etc/fonts",
                "/usr/share/fonts",
                "/usr/share/fontconfig",
                "/usr/share/poppler",
                // Data of the text recognition.
                "/usr/share/tesseract-ocr",
            },
        .memoryBytes = largestMemory(),
        .time = longestTime(),
    };
}

} // namespace ovrin::documentreader
