#pragma once

#include <QtCore/QtGlobal>

namespace ovrin::fuzz {

/// Ends the program when a property that must hold for every input does not: that is a finding.
inline void require(bool holds, const char* property)
{
    if (!holds)
        qFatal("violated: %s", property);
}

} // namespace ovrin::fuzz
