#pragma once

#include "platform/instance/StartRequest.h"

QT_BEGIN_NAMESPACE
class QWindow;
QT_END_NAMESPACE

namespace ovrin {

/// Shows `window` if it is hidden or minimised, raises it and asks for the focus, on the strength of `token`.
void bringForward(QWindow& window, const ActivationToken& token);

} // namespace ovrin
