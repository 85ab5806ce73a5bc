#pragma once

#include "material/SetPage.h"

namespace ovrin::material {

/// Pages as cookbooks and magazines set them, besides the layouts.
const QList<SetPage>& bookPages();

} // namespace ovrin::material
