#pragma once

#include "ui/support/Library.h"

#include <QtGui/QImage>

namespace ovrin {

/// A dish on a plate, drawn, different for each seed: photos that need nobody's permission.
QImage drawnDish(int seed, QSize size);
QByteArray toJpeg(const QImage& image);

/// A recipe with everything a page shows.
RecipeDraft fullRecipe();
/// `count` recipes of many kinds: with and without photos, landscape and portrait, long and short titles,
/// some saved, some cooked. `photos` are used in turn, drawn ones when there are none.
void fill(Library& library, int count, const QList<QByteArray>& photos = {});

} // namespace ovrin
