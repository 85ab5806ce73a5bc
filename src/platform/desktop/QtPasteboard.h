#pragma once

#include "ui/desktop/Pasteboard.h"

namespace ovrin {

/// The pasteboard of the running desktop. Needs a QGuiApplication.
class QtPasteboard : public Pasteboard
{
public:
    QString text() const override;
    std::optional<Picture> picture() const override;
    void setText(const QString& text) override;
};

} // namespace ovrin
