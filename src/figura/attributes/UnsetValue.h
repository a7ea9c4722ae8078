#pragma once

#include <QtGlobal>

#include <limits>

namespace Figura {

// The value of a rotation, a curve style or a curve width that nobody has
// chosen yet. Attribute records start with it and leave it out of their JSON.
inline constexpr qint32 UnsetValue = std::numeric_limits<qint32>::min();

} // namespace Figura
