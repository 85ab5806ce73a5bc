#pragma once

#include "material/SetPage.h"

namespace ovrin::material {

/// The third set that is not to be looked at while the rules are written.
const QList<SetPage>& heldOutThree();

/// Its pages that come from no book or paper: cards, sheets, screens and exports.
QList<SetPage> heldOutThreeSheets();

} // namespace ovrin::material
