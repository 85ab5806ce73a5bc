#pragma once

#include "material/SetPage.h"

namespace ovrin::material {

/// The second set that is not to be looked at while the rules are written.
const QList<SetPage>& heldOutTwo();

} // namespace ovrin::material
