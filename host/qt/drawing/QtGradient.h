#pragma once

#include <QtGui/QBrush>
#include <QtGui/QPainterPath>
#include <optional>

#include "host/Canvas.h"

namespace bkuk::host {

/// The brush that paints `gradient` in user space, extended at both ends. Absent when nothing is to be
/// painted: no stops, coordinates that are not finite, or no distance between the ends.
[[nodiscard]] std::optional<QBrush> gradientBrush(const Gradient& gradient);

/// The part of `area`, a rectangle in user space, that the gradient covers with its extensions; absent
/// when it covers the whole of it.
[[nodiscard]] std::optional<QPainterPath> gradientExtent(const Gradient& gradient, const QRectF& area);

}  // namespace bkuk::host
