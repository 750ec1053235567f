#pragma once

#include <QtGui/QPainterPath>
#include <QtGui/QPen>
#include <optional>

#include "host/Canvas.h"

namespace bkuk::host {

/// The pen that strokes `path` as `stroke` says. Absent when that paints nothing: a width that is not
/// finite or not above 0.
[[nodiscard]] std::optional<QPen> penFor(const Stroke& stroke, const QPainterPath& path);

/// The outline whose non-zero fill is the stroked path. Curves are kept to 0.05 units.
[[nodiscard]] QPainterPath strokeOutline(const Stroke& stroke, const QPainterPath& path);

}  // namespace bkuk::host
