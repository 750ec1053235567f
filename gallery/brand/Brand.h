#pragma once

namespace bkuk::gallery {

/// Gives the kit the example brand's look. Called once, before the first component is made.
void installBrand();

}  // namespace bkuk::gallery
